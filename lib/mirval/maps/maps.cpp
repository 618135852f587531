// The map routines: map axis systems, graticules, shorelines and countries, data on maps.
#include "maps/data.h"
#include "maps/maps.h"
#include "maps/projection.h"
#include "axes/scaling.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "core/state.h"
#include "core/trace.h"
#include "draw/clip.h"
#include "draw/colours.h"
#include "draw/draw.h"
#include "draw/markers.h"
#include "draw/text.h"
#include "mirval.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

namespace {

MapState &ms() { return mirval_state().map; }

int world_segments = 0;

// Shorelines carry detail far finer than the page shows: points closer than a plot unit (a
// tenth of a millimetre on A4) to the line through their neighbours are left out.
constexpr double MAP_TOLERANCE = 1.0;

// Warns once per data file that is missing, naming the package that brings it.
void missing(const char *routine, const std::string &file, const char *package) {
  static std::set<std::string> said;
  if (!said.insert(file).second) return;
  mv_warn(routine, "map data %s not found (install the Debian package %s)", file.c_str(), package);
}

const MapProjection *need_map(const char *routine) {
  if (!mv_level(routine, 2, 2)) return nullptr;
  const MapProjection *m = current_map();
  if (!m) mv_warn(routine, "no map axis system in force (GRAFMP)");
  return m;
}

Rect map_clip(const MapProjection *m) {
  (void)m;
  const Rect &b = mirval_state().axes.box;
  double e = 0.5;  // a hair beyond the box: lines on the edge stay whole
  return {b.x0 - e, b.y0 - e, b.x1 + e, b.y1 + e};
}

void stroke_lines(const std::vector<std::vector<Pt>> &lines, const Rect &clip, Rgb rgb, double width,
                  const std::vector<double> &dash) {
  Path p;
  for (const std::vector<Pt> &l : lines) append_polyline(p, simplify(l, MAP_TOLERANCE), clip);
  if (!p.empty()) stroke_path(p, rgb, width, dash);
}

void add_polygons(Path &p, const std::vector<std::vector<Pt>> &polys, const Rect &clip) {
  for (const std::vector<Pt> &q : polys) {
    // polygons are cut to the map already: the box rarely has anything left to do; they are
    // not thinned, for neighbouring bins must keep their common edge or a seam would show
    if (std::all_of(q.begin(), q.end(), [&](Pt a) { return inside(a, clip); })) append_polygon(p, q);
    else if (std::vector<Pt> c = clip_polygon(q, clip); c.size() >= 3) append_polygon(p, c);
  }
}

// The bins of a binned file that the map's region may touch.
std::vector<int> bins_of(const BinnedData &d, const MapProjection *m) {
  std::vector<int> out;
  const Region &r = m->region;
  for (int b = 0; b < d.nlon * d.nlat; ++b) {
    double lon0 = (b % d.nlon) * d.bin_deg, lat0 = 90 - (b / d.nlon + 1) * d.bin_deg;
    if (!r.cap) {
      if (lat0 > r.lat_e || lat0 + d.bin_deg < r.lat_a) continue;
      if (r.lon_e - r.lon_a < 359.9) {
        // longitudes of the bin brought next to the region
        double c = wrap_lon(lon0 + d.bin_deg / 2, (r.lon_a + r.lon_e) / 2);
        if (c + d.bin_deg / 2 < r.lon_a || c - d.bin_deg / 2 > r.lon_e) continue;
      }
    } else {
      double best = 180;
      for (int i = 0; i <= 4; ++i)
        for (int j = 0; j <= 4; ++j)
          best = std::min(best, angular_distance({lon0 + d.bin_deg * i / 4, lat0 + d.bin_deg * j / 4},
                                                 {r.lon0, r.lat0}));
      if (best > r.cap_deg + d.bin_deg) continue;
    }
    out.push_back(b);
  }
  return out;
}

}  // namespace

std::string map_label(double v, bool lon) {
  LabelType type = mirval_state().axes.axis[lon ? 0 : 1].labels;
  if (type == LabelType::None) return "";
  char b[48];
  if (std::fabs(v) < 1e-9) v = 0;
  if (type != LabelType::Map) {
    std::snprintf(b, sizeof b, "%s%g", v < 0 ? "\u2212" : "", std::fabs(v));
    return b;
  }
  if (lon) {
    double w = std::fmod(v + 180, 360);
    if (w < 0) w += 360;
    w -= 180;
    if (std::fabs(w + 180) < 1e-9) w = 180;
    std::snprintf(b, sizeof b, "%g\u00b0%s", std::fabs(w), w == 0 || std::fabs(w) == 180 ? "" : w > 0 ? "E" : "W");
  } else {
    std::snprintf(b, sizeof b, "%g\u00b0%s", std::fabs(v), v == 0 ? "" : v > 0 ? "N" : "S");
  }
  return b;
}

namespace {

std::vector<double> steps(double a, double e, double org, double step) {
  std::vector<double> v;
  if (!(step > 0)) return v;
  double lo = std::min(a, e), hi = std::max(a, e);
  double eps = step * 1e-6;
  for (double k = std::ceil((lo - org - eps) / step); v.size() < 2000; ++k) {
    double x = org + k * step;
    if (x > hi + eps) break;
    v.push_back(x);
  }
  return v;
}

// Meridian and parallel as densely sampled lines.
LLine meridian(double lon, double lat_a, double lat_e) {
  LLine l;
  int n = std::max(2, static_cast<int>(std::ceil(std::fabs(lat_e - lat_a) / 0.5)));
  for (int k = 0; k <= n; ++k) l.push_back({lon, lat_a + (lat_e - lat_a) * k / n});
  return l;
}
LLine parallel(double lat, double lon_a, double lon_e) {
  LLine l;
  int n = std::max(2, static_cast<int>(std::ceil(std::fabs(lon_e - lon_a) / 0.5)));
  for (int k = 0; k <= n; ++k) l.push_back({lon_a + (lon_e - lon_a) * k / n, lat});
  return l;
}

// Labels of the map axis system.
void draw_labels(const MapProjection *m) {
  MirvalState &st = mirval_state();
  const AxesState &ax = st.axes;
  const Region &r = m->region;
  double h = st.text.height;
  Rgb rgb = pen_rgb();
  const AxisRange &rx = ax.range[0], &ry = ax.range[1];
  double top_reach = 0;
  if (r.cap) {
    Pt c = m->page({r.lon0, r.lat0});
    if (ms().lab_lon && std::fabs(std::fabs(r.lat0) - 90) < 1e-9) {
      // longitudes around the disc, latitudes along the central meridian
      double edge_lat = r.lat0 > 0 ? 90 - r.cap_deg : -90 + r.cap_deg;
      for (double lon : steps(-180, 180 - rx.step / 2, rx.org, rx.step)) {
        Pt q = m->page({lon, edge_lat});
        if (!std::isfinite(q.x)) continue;
        double dx = q.x - c.x, dy = q.y - c.y, d = std::hypot(dx, dy);
        if (d < 1) continue;
        Pt at{q.x + dx / d * h * 1.2, q.y + dy / d * h * 1.2};
        Just j = std::fabs(dx / d) < 0.3 ? Just::Center : dx > 0 ? Just::Left : Just::Right;
        put_text(map_label(lon, true), "", at, h, 0, j, VAlign::Middle, rgb);
        top_reach = std::max(top_reach, ax.box.y0 - at.y + h);
      }
    }
    if (ms().lab_lat && std::fabs(std::fabs(r.lat0) - 90) < 1e-9) {
      for (double lat : steps(ry.a, ry.e, ry.org, ry.step)) {
        if (std::fabs(lat) >= 90 || angular_distance({r.lon0, lat}, {r.lon0, r.lat0}) > r.cap_deg - 1e-6) continue;
        Pt q = m->page({r.lon0, lat});
        if (std::isfinite(q.x)) put_text(map_label(lat, false), "", {q.x + h * 0.3, q.y - h * 0.3}, h * 0.8, 0, Just::Left, VAlign::Base, rgb);
      }
    }
    st.axes.title_room = top_reach;
    return;
  }
  if (ms().lab_lon) {
    // along the lower edge, or along the equator where the meridians meet at the pole
    std::vector<double> lons = steps(r.lon_a, r.lon_e, rx.org, rx.step);
    std::vector<Pt> at;
    for (double lon : lons) at.push_back(m->page({lon, r.lat_a}));
    bool crowded = false;
    for (size_t i = 1; i < at.size(); ++i)
      if (std::fabs(at[i].x - at[i - 1].x) < h * 2.5) crowded = true;
    double lat_line = r.lat_a;
    if (crowded || ms().lab_lon == 2) {
      lat_line = std::clamp(0.0, r.lat_a, r.lat_e);
      for (size_t i = 0; i < lons.size(); ++i) at[i] = m->page({lons[i], lat_line});
    }
    for (size_t i = 0; i < lons.size(); ++i) {
      if (!std::isfinite(at[i].x)) continue;
      bool inside_map = lat_line != r.lat_a;
      if (inside_map && (i == 0 || i + 1 == lons.size()) && r.lon_e - r.lon_a >= 359.9) continue;
      Pt p{at[i].x + (inside_map ? h * 0.3 : 0), at[i].y + (inside_map ? h * 0.4 : h * 0.6)};
      put_text(map_label(lons[i], true), "", p, inside_map ? h * 0.8 : h, 0, inside_map ? Just::Left : Just::Center,
               VAlign::Top, rgb);
    }
  }
  if (ms().lab_lat) {
    for (double lat : steps(r.lat_a, r.lat_e, ry.org, ry.step)) {
      if (std::fabs(lat) >= 90) continue;  // the poles' labels would meet the longitudes'
      Pt q = m->page({r.lon_a, lat});
      if (!std::isfinite(q.x)) continue;
      if (ms().lab_lat == 2) q = m->page({r.lon0, lat});
      put_text(map_label(lat, false), "", {q.x - h * 0.5, q.y}, h, 0, Just::Right, VAlign::Middle, rgb);
    }
  }
  st.axes.title_room = h * 0.6;
}

void draw_frame(const MapProjection *m) {
  const std::string &b = ms().base;
  if (b == "NONE") return;
  const MirvalState &st = mirval_state();
  Rgb rgb = pen_rgb();
  double w = std::max(1.0, st.pen.width) * 2;
  if (b == "BOX") {
    const Rect &r = st.axes.box;
    Path p = rect_path(r.x0, r.y0, r.x1, r.y1);
    stroke_path(p, rgb, w, {});
    return;
  }
  std::vector<Pt> ring = m->outline();
  if (ring.size() < 3) return;
  ring.push_back(ring.front());
  stroke_lines({ring}, map_clip(m), rgb, w, {});
}

bool finite_arg(const char *routine, const char *what, double v) {
  if (std::isfinite(v) && std::fabs(v) < 1e7) return true;
  mv_warn(routine, "%s %g is not a usable value", what, v);
  return false;
}

bool switch_word(const char *c, bool &v) {
  if (same(c, "ON")) v = true;
  else if (same(c, "OFF")) v = false;
  else return false;
  return true;
}

// The continents' lists of DCW codes, in the order of the data set's list.
const std::vector<std::string> &continent(const std::string &code) {
  static std::map<std::string, std::vector<std::string>> lists;
  auto it = lists.find(code);
  if (it != lists.end()) return it->second;
  std::vector<std::string> &v = lists[code];
  bool states = code == "US";
  std::ifstream in(dcw_dir(ms().dir) + (states ? "/dcw-states.txt" : "/dcw-countries.txt"));
  std::string line;
  while (std::getline(in, line)) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream ls(line);
    std::string a, b;
    ls >> a >> b;
    if (a == code || (code == "EU" && a == "EU")) v.push_back(states ? "US" + b : b);
  }
  return v;
}

// SHDAFR ... SHDUSA: the countries of one continent, traced under the routine's name.
void shade_countries(const char *routine, const char *cont, const int *inray, const int *ipray,
                     const int *icray, int n) {
  mv_tracef("%s(inray=%s, ipray=%s, icray=%s, n=%d)", routine, mv_tarr(n, "ints").c_str(), mv_tarr(n, "ints").c_str(),
            mv_tarr(n, "ints").c_str(), n);
  if (!mv_level(routine, 2, 2)) return;
  if (n < 1) {
    mv_warn(routine, "count %d below 1", n);
    return;
  }
  if (!inray || !ipray || !icray) {
    mv_warn(routine, "missing array");
    return;
  }
  if (n > 100000) {
    mv_warn(routine, "count %d too large", n);
    return;
  }
  const MapProjection *m = need_map(routine);
  if (!m) return;
  if (!dcw_available(ms().dir)) {
    missing(routine, dcw_dir(ms().dir) + "/dcw-gmt.nc", "gmt-dcw");
    return;
  }
  const std::vector<std::string> &codes = continent(cont);
  if (codes.empty()) {
    missing(routine, dcw_dir(ms().dir) + "/dcw-countries.txt", "gmt-dcw");
    return;
  }
  MirvalState &st = mirval_state();
  Rect clip = map_clip(m);
  Rgb pen = pen_rgb();
  for (int i = 0; i < n; ++i) {
    int k = inray[i];
    std::vector<std::string> which;
    if (k == 0) which = codes;
    else if (k >= 1 && static_cast<size_t>(k) <= codes.size()) which = {codes[k - 1]};
    else {
      mv_warn(routine, "country number %d out of range 0..%zu", k, codes.size());
      continue;
    }
    int pat = ipray[i], col = icray[i];
    if (pat < 0 || pat > 16) {
      mv_warn(routine, "pattern %d out of range 0..16", pat);
      continue;
    }
    if (col < -1 || col > 255) {
      mv_warn(routine, "colour %d out of range -1..255", col);
      continue;
    }
    Rgb rgb = col < 0 ? pen : table_rgb(col);
    for (const std::string &code : which) {
      const Outline &o = dcw_outline(ms().dir, code);
      if (!o.ok) continue;
      Path p, edge;
      for (const LLine &part : o.parts) {
        add_polygons(p, m->page_polygons(part, 0.5), clip);
        LLine ring = part;
        ring.push_back(part.front());
        for (const std::vector<Pt> &l : m->page_lines(ring)) append_polyline(edge, l, clip);
      }
      if (p.empty()) continue;
      pattern_fill(p, rgb, pat);
      if (!edge.empty()) stroke_path(edge, pen, std::max(0.5, st.pen.width * 0.5), {});
    }
  }
}

std::vector<LLine> read_outline_file(const std::string &file, bool &ok) {
  std::vector<LLine> out;
  std::ifstream in(file);
  ok = static_cast<bool>(in);
  LLine cur;
  std::string line;
  while (std::getline(in, line)) {
    size_t f = line.find_first_not_of(" \t\r");
    if (f == std::string::npos || line[f] == '>' || line[f] == '#') {
      if (f != std::string::npos && line[f] == '#') continue;
      if (cur.size() > 1) out.push_back(cur);
      cur.clear();
      continue;
    }
    std::istringstream ls(line);
    double lon, lat;
    if (ls >> lon >> lat && std::isfinite(lon) && std::isfinite(lat) && std::fabs(lat) <= 90)
      cur.push_back({lon, lat});
  }
  if (cur.size() > 1) out.push_back(cur);
  return out;
}

}  // namespace

int map_world_segments() { return world_segments; }

void map_reset_proj(MirvalState &s) { s.map.proj = MapState{}.proj; }
void map_reset_ref(MirvalState &s) { s.map.ref1 = s.map.ref2 = NAN; }
void map_reset_pol(MirvalState &s) { s.map.pole_lon = s.map.pole_lat = NAN; }
void map_reset_sph(MirvalState &s) { s.map.radius = MapState{}.radius; }
void map_reset_bas(MirvalState &s) { s.map.base = MapState{}.base; }
void map_reset_mod(MirvalState &s) { s.map.mode = MapState{}.mode; }
void map_reset_dir(MirvalState &s) { s.map.dir.clear(); }
void map_reset_lev(MirvalState &s) { s.map.levels = MapState{}.levels; }
void map_reset_opt(MirvalState &s) {
  MapState d;
  s.map.resolution = d.resolution, s.map.rivers = d.rivers, s.map.borders = d.borders;
}
void map_reset_lab(MirvalState &s) {
  MapState d;
  s.map.lab_lon = d.lab_lon, s.map.lab_lat = d.lab_lat;
}
void map_reset_cbk(MirvalState &s) { s.map.user = nullptr; }
void map_reset_fil(MirvalState &s) { s.map.user_file.clear(), s.map.user_kind = MapState{}.user_kind; }
void map_reset_plate(MirvalState &s) {
  MapState d;
  s.map.plate_x = d.plate_x, s.map.plate_y = d.plate_y, s.map.plate_size = d.plate_size;
  s.map.plate_angle = d.plate_angle, s.map.plate_bg = d.plate_bg, s.map.plate_fg = d.plate_fg;
}

extern "C" {

void projct(const char *c) {
  mv_tracef("projct(%s)", mv_tstr(c).c_str());
  std::string k = upper(c);
  const ProjectionInfo *p = find_projection(k);
  if (!p) {
    mv_warn("projct", "unknown projection %s", mv_tstr(c).c_str());
    return;
  }
  ms().proj = p->key;
}

void grafmp(float xa, float xe, float xor_, float xstp, float ya, float ye, float yor, float ystp) {
  mv_tracef("grafmp(%g, %g, %g, %g, %g, %g, %g, %g)", (double)xa, (double)xe, (double)xor_,
            (double)xstp, (double)ya, (double)ye, (double)yor, (double)ystp);
  if (!mv_level("grafmp", 1, 1)) return;
  const double v[8] = {xa, xe, xor_, xstp, ya, ye, yor, ystp};
  const char *names[8] = {"xa", "xe", "xor", "xstp", "ya", "ye", "yor", "ystp"};
  for (int i = 0; i < 8; ++i)
    if (!finite_arg("grafmp", names[i], v[i])) return;
  if (xa == xe || ya == ye) {
    mv_warn("grafmp", "empty longitude or latitude range");
    return;
  }
  if (std::fabs(xe - xa) > 360.0001) {
    mv_warn("grafmp", "longitude range %g..%g wider than 360 degrees", (double)xa, (double)xe);
    return;
  }
  if (std::fabs(ya) > 90.0001 || std::fabs(ye) > 90.0001) {
    mv_warn("grafmp", "latitude range %g..%g beyond -90..90", (double)ya, (double)ye);
    return;
  }
  if (xstp <= 0 || ystp <= 0) {
    mv_warn("grafmp", "label steps must be positive (%g, %g)", (double)xstp, (double)ystp);
    return;
  }
  MirvalState &st = mirval_state();
  MapState &m = st.map;
  std::string err;
  auto proj = make_projection(m.proj, std::min(xa, xe), std::max(xa, xe), std::min(ya, ye), std::max(ya, ye),
                              m.ref1, m.ref2, m.pole_lon, m.pole_lat, m.radius, m.user, err);
  if (!proj) {
    mv_warn("grafmp", "%s: %s", m.proj.c_str(), err.c_str());
    return;
  }
  Rect place = placed_box();
  double bx0, by0, bx1, by1;
  proj->place(place.x0, place.y0, place.x1, place.y1, bx0, by0, bx1, by1);
  AxesState &ax = st.axes;
  ax.box = {bx0, by0, bx1, by1};
  ax.range[0] = AxisRange{std::min(xa, xe), std::max(xa, xe), xor_, xstp, false};
  ax.range[1] = AxisRange{std::min(ya, ye), std::max(ya, ye), yor, ystp, false};
  st.grid.colour_axis = false;
  m.active = proj;
  m.box[0] = bx0, m.box[1] = by0, m.box[2] = bx1, m.box[3] = by1;
  m.range_a = ax.range[0].a, m.range_e = ax.range[0].e;
  st.level = 2;
  draw_frame(proj.get());
  draw_labels(proj.get());
}

void gridmp(int n1, int n2) {
  mv_tracef("gridmp(%d, %d)", n1, n2);
  const MapProjection *m = need_map("gridmp");
  if (!m) return;
  if (n1 < 1 || n2 < 1 || n1 > 100 || n2 > 100) {
    mv_warn("gridmp", "grid lines per label step (%d, %d) out of range 1..100", n1, n2);
    return;
  }
  const MirvalState &st = mirval_state();
  const AxisRange &rx = st.axes.range[0], &ry = st.axes.range[1];
  const Region &r = m->region;
  double lon_a = r.cap ? -180 : r.lon_a, lon_e = r.cap ? 180 : r.lon_e;
  double lat_a = r.cap ? -90 : r.lat_a, lat_e = r.cap ? 90 : r.lat_e;
  std::vector<std::vector<Pt>> lines;
  double pole_gap = r.cap ? 0 : 0;
  for (double lon : steps(lon_a, lon_e - (r.cap ? 1e-9 : 0), rx.org, rx.step / n1))
    for (auto &l : m->page_lines(meridian(lon, lat_a + pole_gap, lat_e - pole_gap))) lines.push_back(l);
  for (double lat : steps(lat_a, lat_e, ry.org, ry.step / n2)) {
    if (std::fabs(lat) >= 90) continue;
    for (auto &l : m->page_lines(parallel(lat, lon_a, lon_e))) lines.push_back(l);
  }
  stroke_lines(lines, map_clip(m), pen_rgb(), st.pen.width, st.pen.dash);
}

void world(void) {
  mv_tracef("world()");
  const MapProjection *m = need_map("world");
  if (!m) return;
  MirvalState &st = mirval_state();
  MapState &s = st.map;
  Rect clip = map_clip(m);
  world_segments = 0;
  std::vector<std::vector<Pt>> lines;
  if (!s.user_file.empty()) {
    bool ok;
    std::vector<LLine> parts = read_outline_file(s.user_file, ok);
    if (!ok) {
      mv_warn("world", "cannot read the outline file %s", s.user_file.c_str());
    } else {
      if (s.user_kind == "FILL") {
        Path p;
        for (const LLine &q : parts) add_polygons(p, m->page_polygons(q, 0.5), clip);
        if (!p.empty()) fill_path(p, pen_rgb());
      }
      for (const LLine &q : parts) {
        ++world_segments;
        for (auto &l : m->page_lines(q)) lines.push_back(l);
      }
    }
  } else {
    const BinnedData &d = binned_data(s.dir, "GSHHS", s.resolution);
    int top = s.levels == "LAND" ? 1 : s.levels == "LAKES" ? 2 : 4;
    if (!d.ok) {
      missing("world", d.file, s.resolution == 'i' ? "gmt-gshhg-high" : "gmt-gshhg-low");
    } else {
      for (int b : bins_of(d, m))
        for (const BinSegment &g : d.bins[b]) {
          if (g.ant || g.level < 1 || g.level > top) continue;
          ++world_segments;
          for (auto &l : m->page_lines(g.pts)) lines.push_back(l);
        }
    }
  }
  stroke_lines(lines, clip, pen_rgb(), st.pen.width, st.pen.dash);
  if (s.rivers) {
    const BinnedData &d = binned_data(s.dir, "river", s.resolution);
    if (!d.ok) missing("world", d.file, "gmt-gshhg-low");
    else {
      std::vector<std::vector<Pt>> rl;
      for (int b : bins_of(d, m))
        for (const BinSegment &g : d.bins[b])
          if (g.level >= 1 && g.level <= 4)
            for (auto &l : m->page_lines(g.pts)) rl.push_back(l);
      stroke_lines(rl, clip, Rgb{0.15f, 0.4f, 0.85f}, std::max(0.5, st.pen.width * 0.7), {});
    }
  }
  if (s.borders) {
    const BinnedData &d = binned_data(s.dir, "border", s.resolution);
    if (!d.ok) missing("world", d.file, "gmt-gshhg-low");
    else {
      std::vector<std::vector<Pt>> bl;
      for (int b : bins_of(d, m))
        for (const BinSegment &g : d.bins[b])
          if (g.level == 1)
            for (auto &l : m->page_lines(g.pts)) bl.push_back(l);
      stroke_lines(bl, clip, pen_rgb(), std::max(0.5, st.pen.width * 0.8), {8, 5});
    }
  }
}

void shdmap(const char *c) {
  mv_tracef("shdmap(%s)", mv_tstr(c).c_str());
  int what = same(c, "LAND") ? 1 : same(c, "LAKE") || same(c, "LAKES") ? 2 : same(c, "OCEAN") || same(c, "SEA") ? 3 : 0;
  if (!what) {
    mv_warn("shdmap", "unknown area %s (LAND, LAKE or OCEAN)", mv_tstr(c).c_str());
    return;
  }
  const MapProjection *m = need_map("shdmap");
  if (!m) return;
  MapState &s = ms();
  const BinnedData &d = binned_data(s.dir, "GSHHS", s.resolution);
  if (!d.ok) {
    missing("shdmap", d.file, "gmt-gshhg-low");
    return;
  }
  Rect clip = map_clip(m);
  Path p;
  for (int b : bins_of(d, m)) {
    std::vector<LLine> rings = what == 1 ? bin_areas(d, b, 1, 4) : what == 2 ? bin_areas(d, b, 2, 4) : bin_areas(d, b, 1, 1);
    if (what == 3) {
      double x0 = (b % d.nlon) * d.bin_deg, y0 = 90 - (b / d.nlon + 1) * d.bin_deg, z = d.bin_deg;
      rings.push_back({{x0, y0}, {x0 + z, y0}, {x0 + z, y0 + z}, {x0, y0 + z}});
    }
    for (const LLine &r : rings) add_polygons(p, m->page_polygons(r, 1.0), clip);
  }
  if (!p.empty()) fill_path(p, pen_rgb());
}

void curvmp(const float *x, const float *y, int n) {
  mv_tracef("curvmp(x=%s, y=%s, n=%d)", mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), n);
  if (!mv_level("curvmp", 2, 2)) return;
  if (!x || !y || n < 1) {
    mv_warn("curvmp", "no points (n = %d)", n);
    return;
  }
  const MapProjection *m = need_map("curvmp");
  if (!m) return;
  MirvalState &st = mirval_state();
  bool great = ms().mode == "GREAT";
  std::vector<std::vector<Pt>> lines;
  LLine cur;
  auto flush = [&]() {
    if (cur.size() > 1)
      for (auto &l : m->page_lines(cur)) lines.push_back(l);
    cur.clear();
  };
  for (int i = 0; i < n; ++i) {
    LL p{x[i], y[i]};
    if (!std::isfinite(p.lon) || !std::isfinite(p.lat) || std::fabs(p.lat) > 90 || std::fabs(p.lon) > 1e6) {
      flush();
      continue;
    }
    if (!cur.empty()) {
      LL a = cur.back();
      LLine seg;
      if (great) seg = great_circle(a, p, 1.0);
      else {
        int k = std::max(1, static_cast<int>(std::ceil(std::max(std::fabs(p.lon - a.lon), std::fabs(p.lat - a.lat)))));
        k = std::min(k, 2000);
        for (int j = 0; j <= k; ++j) seg.push_back({a.lon + (p.lon - a.lon) * j / k, a.lat + (p.lat - a.lat) * j / k});
      }
      cur.insert(cur.end(), seg.begin() + 1, seg.end());
    } else {
      cur.push_back(p);
    }
  }
  flush();
  const CurveState &c = st.curve;
  Rgb rgb = pen_rgb();
  double width = st.pen.width * st.pen.thick;
  Rect clip = map_clip(m);
  if (c.incmrk >= 0) stroke_lines(lines, clip, rgb, width, st.pen.dash);
  if (c.incmrk != 0) {
    int every = std::abs(c.incmrk);
    for (int i = 0; i < n; i += every) {
      double px, py;
      if (!map_user_point(x[i], y[i], px, py) || !std::isfinite(px) || !std::isfinite(py)) continue;
      if (inside({px, py}, clip)) draw_marker(c.marker, {px, py}, c.hsymbl, rgb, st.pen.width);
    }
  }
  CurveLook look;
  look.rgb = rgb, look.width = width, look.dash = st.pen.dash, look.incmrk = c.incmrk, look.marker = c.marker;
  st.legend.curves.push_back(look);
}

void mapref(float x1, float x2) {
  mv_tracef("mapref(%g, %g)", (double)x1, (double)x2);
  if (!std::isfinite(x1) || !std::isfinite(x2) || std::fabs(x1) > 90 || std::fabs(x2) > 90) {
    mv_warn("mapref", "standard parallels %g, %g out of range -90..90", (double)x1, (double)x2);
    return;
  }
  ms().ref1 = x1, ms().ref2 = x2;
}

void mappol(float x1, float x2) {
  mv_tracef("mappol(%g, %g)", (double)x1, (double)x2);
  if (!std::isfinite(x1) || !std::isfinite(x2) || std::fabs(x1) > 360 || std::fabs(x2) > 90) {
    mv_warn("mappol", "centre %g, %g out of range (longitude -360..360, latitude -90..90)", (double)x1, (double)x2);
    return;
  }
  ms().pole_lon = x1, ms().pole_lat = x2;
}

void mapsph(float x) {
  mv_tracef("mapsph(%g)", (double)x);
  if (!(x >= 1) || !(x <= 1e9)) {
    mv_warn("mapsph", "radius %g out of range 1..1e9 metres", (double)x);
    return;
  }
  ms().radius = x;
}

void mapbas(const char *c) {
  mv_tracef("mapbas(%s)", mv_tstr(c).c_str());
  for (const char *k : {"FRAME", "BOX", "NONE"})
    if (same(c, k)) {
      ms().base = k;
      return;
    }
  mv_warn("mapbas", "unknown outline %s (FRAME, BOX or NONE)", mv_tstr(c).c_str());
}

void mapmod(const char *c) {
  mv_tracef("mapmod(%s)", mv_tstr(c).c_str());
  if (same(c, "GREAT") || same(c, "INTER")) ms().mode = "GREAT";
  else if (same(c, "STRAIGHT") || same(c, "CONNECT")) ms().mode = "STRAIGHT";
  else mv_warn("mapmod", "unknown mode %s (GREAT or STRAIGHT)", mv_tstr(c).c_str());
}

void mapdir(const char *c) {
  mv_tracef("mapdir(%s)", mv_tstr(c).c_str());
  if (!c) {
    mv_warn("mapdir", "no directory given");
    return;
  }
  std::string d = c;
  d.erase(d.find_last_not_of(' ') + 1);
  if (same(c, "DEFAULT") || same(c, "NONE")) d.clear();
  ms().dir = d;
}

void maplev(const char *c) {
  mv_tracef("maplev(%s)", mv_tstr(c).c_str());
  for (const char *k : {"LAND", "LAKES", "ALL"})
    if (same(c, k)) {
      ms().levels = k;
      return;
    }
  if (same(c, "LAKE")) {
    ms().levels = "LAKES";
    return;
  }
  mv_warn("maplev", "unknown levels %s (LAND, LAKES or ALL)", mv_tstr(c).c_str());
}

void mapopt(const char *c1, const char *c2) {
  mv_tracef("mapopt(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  MapState &s = ms();
  if (same(c2, "RESOLUTION")) {
    if (same(c1, "CRUDE")) s.resolution = 'c';
    else if (same(c1, "LOW")) s.resolution = 'l';
    else if (same(c1, "INTER") || same(c1, "INTERMEDIATE")) s.resolution = 'i';
    else mv_warn("mapopt", "unknown resolution %s (CRUDE, LOW or INTER)", mv_tstr(c1).c_str());
  } else if (same(c2, "RIVERS") || same(c2, "BORDERS")) {
    bool &v = same(c2, "RIVERS") ? s.rivers : s.borders;
    if (!switch_word(c1, v)) mv_warn("mapopt", "unknown value %s (ON or OFF)", mv_tstr(c1).c_str());
  } else {
    mv_warn("mapopt", "unknown option %s (RESOLUTION, RIVERS or BORDERS)", mv_tstr(c2).c_str());
  }
}

void maplab(const char *c1, const char *c2) {
  mv_tracef("maplab(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  MapState &s = ms();
  int v = same(c1, "NONE") ? 0 : same(c1, "BORDER") ? 1 : same(c1, "GRID") ? 2 : -1;
  if (v < 0) {
    mv_warn("maplab", "unknown placement %s (NONE, BORDER or GRID)", mv_tstr(c1).c_str());
    return;
  }
  if (same(c2, "LONG")) s.lab_lon = v;
  else if (same(c2, "LAT")) s.lab_lat = v;
  else if (same(c2, "BOTH")) s.lab_lon = s.lab_lat = v;
  else mv_warn("maplab", "unknown labels %s (LONG, LAT or BOTH)", mv_tstr(c2).c_str());
}

void setcbk(MvProjectionCb cb, const char *copt) {
  mv_tracef("setcbk(cb=callback, copt=%s)", mv_tstr(copt).c_str());
  if (!same(copt, "PROJ")) {
    mv_warn("setcbk", "unknown callback kind %s (PROJ)", mv_tstr(copt).c_str());
    return;
  }
  ms().user = cb;
}

// The continents' shading routines, each under its own name.
#define SHADE(NAME, CONT)                                                    \
  void NAME(const int *inray, const int *ipray, const int *icray, int n) {   \
    shade_countries(#NAME, CONT, inray, ipray, icray, n);                    \
  }
SHADE(shdafr, "AF")
SHADE(shdasi, "AS")
SHADE(shdaus, "OC")
SHADE(shdeur, "EU")
SHADE(shdnor, "NA")
SHADE(shdsou, "SA")
SHADE(shdusa, "US")
#undef SHADE

void mapfil(const char *c1, const char *c2) {
  mv_tracef("mapfil(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  std::string kind = upper(c2);
  if (kind != "CURVE" && kind != "FILL" && kind != "NONE") {
    mv_warn("mapfil", "unknown use %s (CURVE, FILL or NONE)", mv_tstr(c2).c_str());
    return;
  }
  if (kind == "NONE") {
    ms().user_file.clear();
    ms().user_kind = kind;
    return;
  }
  if (!c1 || !*c1) {
    mv_warn("mapfil", "no file name given");
    return;
  }
  std::string f = c1;
  f.erase(f.find_last_not_of(' ') + 1);
  if (!std::ifstream(f)) {
    mv_warn("mapfil", "cannot read the outline file %s", f.c_str());
    return;
  }
  ms().user_file = f;
  ms().user_kind = kind;
}

}  // extern "C"
