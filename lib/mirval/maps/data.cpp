#include "maps/data.h"

#include <netcdf.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <memory>

namespace {

bool read_ints(int nc, const char *name, std::vector<int> &v) {
  int id, nd, dim;
  size_t len = 0;
  if (nc_inq_varid(nc, name, &id) != NC_NOERR) return false;
  if (nc_inq_varndims(nc, id, &nd) != NC_NOERR || nd != 1) return false;
  if (nc_inq_vardimid(nc, id, &dim) != NC_NOERR || nc_inq_dimlen(nc, dim, &len) != NC_NOERR) return false;
  v.assign(len, 0);
  return len == 0 || nc_get_var_int(nc, id, v.data()) == NC_NOERR;
}

int scalar(int nc, const char *name) {
  std::vector<int> v;
  return read_ints(nc, name, v) && !v.empty() ? v[0] : 0;
}

std::string join(const std::string &dir, const std::string &name) {
  return dir.empty() || dir.back() == '/' ? dir + name : dir + "/" + name;
}

}  // namespace

std::string gshhg_dir(const std::string &dir) { return dir.empty() ? "/usr/share/gmt-gshhg" : dir; }
std::string dcw_dir(const std::string &dir) { return dir.empty() ? "/usr/share/gmt-dcw" : dir; }

const BinnedData &binned_data(const std::string &dir, const char *kind, char res) {
  static std::map<std::string, std::unique_ptr<BinnedData>> cache;
  std::string file = join(gshhg_dir(dir), std::string("binned_") + kind + "_" + res + ".nc");
  auto &slot = cache[file];
  if (slot) return *slot;
  slot = std::make_unique<BinnedData>();
  BinnedData &d = *slot;
  d.file = file;
  int nc;
  if (nc_open(file.c_str(), NC_NOWRITE, &nc) != NC_NOERR) return d;
  bool shore = std::string(kind) == "GSHHS";
  int minutes = scalar(nc, "Bin_size_in_minutes");
  d.nlon = scalar(nc, "N_bins_in_360_longitude_range");
  d.nlat = scalar(nc, "N_bins_in_180_degree_latitude_range");
  d.segments = scalar(nc, "N_segments_in_file");
  std::vector<int> first_seg, nseg, info, first_pt, dx, dy, ant, npts, level;
  bool fine = minutes > 0 && d.nlon > 0 && d.nlat > 0 && d.nlon * d.nlat <= 1000000 &&
              read_ints(nc, "Id_of_first_segment_in_a_bin", first_seg) &&
              read_ints(nc, "N_segments_in_a_bin", nseg) &&
              read_ints(nc, "Id_of_first_point_in_a_segment", first_pt) &&
              read_ints(nc, "Relative_longitude_from_SW_corner_of_bin", dx) &&
              read_ints(nc, "Relative_latitude_from_SW_corner_of_bin", dy);
  if (fine && shore)
    fine = read_ints(nc, "Embedded_npts_levels_exit_entry_for_a_segment", info) &&
           read_ints(nc, "Embedded_node_levels_in_a_bin", d.corners) &&
           read_ints(nc, "Embedded_ANT_flag", ant);
  else if (fine)
    fine = read_ints(nc, "N_points_for_a_segment", npts) &&
           read_ints(nc, "Hierarchial_level_of_a_segment", level);
  nc_close(nc);
  size_t nbins = static_cast<size_t>(d.nlon) * d.nlat;
  if (!fine || first_seg.size() < nbins || nseg.size() < nbins || dx.size() != dy.size()) return d;
  d.bin_deg = minutes / 60.0;
  d.bins.resize(nbins);
  double unit = d.bin_deg / 65535.0;
  for (size_t b = 0; b < nbins; ++b) {
    double lon0 = (b % d.nlon) * d.bin_deg, lat0 = 90 - (b / d.nlon + 1) * d.bin_deg;
    for (int s = first_seg[b], k = 0; k < nseg[b]; ++k, ++s) {
      if (s < 0 || static_cast<size_t>(s) >= first_pt.size()) break;
      BinSegment seg;
      int n;
      if (shore) {
        if (static_cast<size_t>(s) >= info.size()) break;
        n = info[s] >> 9;
        seg.level = (info[s] >> 6) & 7;
        if (seg.level > 4) seg.level = 1;  // Antarctica's shore (ice front or grounding line) is land's
        seg.ant = static_cast<size_t>(s) < ant.size() && ant[s] != 0;
      } else {
        if (static_cast<size_t>(s) >= npts.size()) break;
        n = npts[s];
        seg.level = level[s];
      }
      long p0 = first_pt[s];
      if (n < 0 || p0 < 0 || static_cast<size_t>(p0 + n) > dx.size()) continue;
      seg.pts.reserve(n);
      for (int i = 0; i < n; ++i) {
        // stored as signed shorts; the values run from 0 to 65535
        double u = static_cast<uint16_t>(dx[p0 + i]), v = static_cast<uint16_t>(dy[p0 + i]);
        seg.pts.push_back({lon0 + u * unit, lat0 + v * unit});
      }
      d.bins[b].push_back(std::move(seg));
    }
  }
  d.ok = true;
  return d;
}

namespace {

// Position along the bin's edge, counter-clockwise from the south-west corner (0..4), or -1.
double edge_pos(LL p, double x0, double y0, double size) {
  double u = (p.lon - x0) / size, v = (p.lat - y0) / size, e = 1e-7;
  if (v <= e) return std::clamp(u, 0.0, 1.0);
  if (u >= 1 - e) return 1 + std::clamp(v, 0.0, 1.0);
  if (v >= 1 - e) return 2 + (1 - std::clamp(u, 0.0, 1.0));
  if (u <= e) return 3 + (1 - std::clamp(v, 0.0, 1.0));
  return -1;
}

LL corner(int k, double x0, double y0, double size) {
  switch (k & 3) {
    case 0: return {x0, y0};
    case 1: return {x0 + size, y0};
    case 2: return {x0 + size, y0 + size};
    default: return {x0, y0 + size};
  }
}

bool inside(const std::vector<LLine> &rings, LL p) {
  bool in = false;
  for (const LLine &r : rings)
    for (size_t i = 0, j = r.size() - 1; i < r.size(); j = i++)
      if ((r[i].lat > p.lat) != (r[j].lat > p.lat) &&
          p.lon < (r[j].lon - r[i].lon) * (p.lat - r[i].lat) / (r[j].lat - r[i].lat) + r[i].lon)
        in = !in;
  return in;
}

// The rings of one level in a bin: open pieces joined along the edge, closed ones as they are.
std::vector<LLine> level_rings(const std::vector<BinSegment> &segs, int level, double x0, double y0,
                               double size) {
  std::vector<LLine> rings;
  struct Open {
    const LLine *pts;
    double s, e;
  };
  std::vector<Open> open;
  for (const BinSegment &g : segs) {
    if (g.level != level || g.ant || g.pts.size() < 2) continue;
    double s = edge_pos(g.pts.front(), x0, y0, size), e = edge_pos(g.pts.back(), x0, y0, size);
    bool closed = g.pts.front().lon == g.pts.back().lon && g.pts.front().lat == g.pts.back().lat;
    if (s < 0 || e < 0 || closed) rings.push_back(g.pts);
    else open.push_back({&g.pts, s, e});
  }
  std::vector<bool> used(open.size(), false);
  for (size_t start = 0; start < open.size(); ++start) {
    if (used[start]) continue;
    LLine ring;
    size_t cur = start;
    used[cur] = true;
    for (size_t guard = 0; guard <= open.size(); ++guard) {
      ring.insert(ring.end(), open[cur].pts->begin(), open[cur].pts->end());
      double e = open[cur].e;
      // the next start counter-clockwise along the edge
      size_t best = start;
      double bestd = INFINITY;
      for (size_t k = 0; k < open.size(); ++k) {
        if (used[k] && k != start) continue;
        double d = std::fmod(open[k].s - e + 8, 4.0);
        if (d < bestd) bestd = d, best = k;
      }
      // corners passed on the way
      double pos = e;
      for (int c = static_cast<int>(std::floor(e)) + 1; c <= std::floor(e + bestd); ++c) {
        ring.push_back(corner(c, x0, y0, size));
        pos = c;
      }
      (void)pos;
      if (best == start) break;
      cur = best;
      used[cur] = true;
    }
    if (ring.size() >= 3) rings.push_back(ring);
  }
  return rings;
}

}  // namespace

std::vector<LLine> bin_areas(const BinnedData &d, int bin, int level_from, int level_to) {
  std::vector<LLine> out;
  if (!d.ok || bin < 0 || static_cast<size_t>(bin) >= d.bins.size()) return out;
  double size = d.bin_deg;
  double x0 = (bin % d.nlon) * size, y0 = 90 - (bin / d.nlon + 1) * size;
  int nodes = static_cast<size_t>(bin) < d.corners.size() ? d.corners[bin] : 0;
  // corner levels as the file packs them: NW, NE, SE, SW; here SW, SE, NE, NW
  int lev[4] = {(nodes >> 9) & 7, (nodes >> 6) & 7, (nodes >> 3) & 7, nodes & 7};
  LLine box{corner(0, x0, y0, size), corner(1, x0, y0, size), corner(2, x0, y0, size), corner(3, x0, y0, size)};
  for (int level = level_from; level <= level_to; ++level) {
    std::vector<LLine> rings = level_rings(d.bins[bin], level, x0, y0, size);
    // the joined pieces may have come out as the other side: the corners tell
    double in = size * 1e-5;
    LL probe[4] = {{x0 + in, y0 + in}, {x0 + size - in, y0 + in}, {x0 + size - in, y0 + size - in}, {x0 + in, y0 + size - in}};
    int votes = 0;
    for (int c = 0; c < 4; ++c) votes += inside(rings, probe[c]) == (lev[c] >= level) ? 1 : -1;
    if (votes < 0) rings.push_back(box);
    out.insert(out.end(), rings.begin(), rings.end());
  }
  return out;
}

namespace {

struct DcwFile {
  int nc = -1;
  bool tried = false;
  std::map<std::string, Outline> cache;
  ~DcwFile() {
    if (nc >= 0) nc_close(nc);
  }
};

DcwFile &dcw(const std::string &dir) {
  static std::map<std::string, std::unique_ptr<DcwFile>> files;
  auto &f = files[dir];
  if (!f) f = std::make_unique<DcwFile>();
  if (!f->tried) {
    f->tried = true;
    if (nc_open(join(dcw_dir(dir), "dcw-gmt.nc").c_str(), NC_NOWRITE, &f->nc) != NC_NOERR) f->nc = -1;
  }
  return *f;
}

bool read_axis(int nc, const std::string &name, std::vector<double> &v) {
  int id, dim;
  size_t len = 0;
  if (nc_inq_varid(nc, name.c_str(), &id) != NC_NOERR) return false;
  if (nc_inq_vardimid(nc, id, &dim) != NC_NOERR || nc_inq_dimlen(nc, dim, &len) != NC_NOERR) return false;
  double lo = 0, scale = 1;
  if (nc_get_att_double(nc, id, "min", &lo) != NC_NOERR || nc_get_att_double(nc, id, "scale", &scale) != NC_NOERR ||
      !(scale > 0))
    return false;
  std::vector<unsigned short> raw(len);
  if (len && nc_get_var_ushort(nc, id, raw.data()) != NC_NOERR) return false;
  v.resize(len);
  for (size_t i = 0; i < len; ++i) v[i] = raw[i] == 65535 ? NAN : lo + raw[i] / scale;
  return true;
}

}  // namespace

bool dcw_available(const std::string &dir) { return dcw(dir).nc >= 0; }

const Outline &dcw_outline(const std::string &dir, const std::string &code) {
  DcwFile &f = dcw(dir);
  auto it = f.cache.find(code);
  if (it != f.cache.end()) return it->second;
  Outline &o = f.cache[code];
  std::vector<double> lon, lat;
  if (f.nc < 0 || !read_axis(f.nc, code + "_lon", lon) || !read_axis(f.nc, code + "_lat", lat) ||
      lon.size() != lat.size())
    return o;
  LLine cur;
  for (size_t i = 0; i < lon.size(); ++i) {
    if (std::isnan(lon[i]) || std::isnan(lat[i])) {
      if (cur.size() >= 3) o.parts.push_back(cur);
      cur.clear();
    } else {
      cur.push_back({lon[i], lat[i]});
    }
  }
  if (cur.size() >= 3) o.parts.push_back(cur);
  o.ok = true;
  return o;
}
