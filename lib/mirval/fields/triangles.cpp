// Scattered data: Delaunay triangulation through Qhull (TRIANG), filled and colour-coded
// triangles (TRIFLL, TRIFLC, CRVTRI, CRVQDR), contours of triangulated data (CONTRI, CONFLL,
// TRIPTS), scattered points on a grid (GETMAT, MDFMAT), contour points of a matrix (CONPTS),
// contour lines given as curves (CONCRV) and contours on curvilinear grids (CONTUR2, CONSHD2).
#include "axes/scaling.h"
#include "core/messages.h"
#include "core/trace.h"
#include "draw/clip.h"
#include "draw/colours.h"
#include "draw/draw.h"
#include "fields/fields.h"
#include "grids/colour_matrix.h"
#include "grids/contour.h"
#include "mirval.h"

extern "C" {
#include <libqhull_r/qhull_ra.h>
}

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <memory>
#include <unordered_map>

std::vector<std::array<int, 3>> delaunay(const float *x, const float *y, int n, std::string *error) {
  std::vector<std::array<int, 3>> out;
  if (n < 3) {
    if (error) *error = "fewer than three points";
    return out;
  }
  // centred and scaled, so that Qhull's tolerances fit any unit
  double xa = INFINITY, xb = -INFINITY, ya = INFINITY, yb = -INFINITY;
  for (int k = 0; k < n; ++k) xa = std::min(xa, double(x[k])), xb = std::max(xb, double(x[k])), ya = std::min(ya, double(y[k])), yb = std::max(yb, double(y[k]));
  double cx = (xa + xb) / 2, cy = (ya + yb) / 2, s = std::max(xb - xa, yb - ya);
  if (!(s > 0)) {
    if (error) *error = "all points coincide";
    return out;
  }
  std::vector<coordT> pts(size_t(2) * n);
  for (int k = 0; k < n; ++k) pts[2 * k] = (x[k] - cx) / s, pts[2 * k + 1] = (y[k] - cy) / s;
  FILE *err = std::fopen("/dev/null", "w");
  auto qh = std::make_unique<qhT>();
  qh_zero(qh.get(), err);
  char flags[] = "qhull d Qt Qbb Qc Qz Q12";
  int code = qh_new_qhull(qh.get(), 2, n, pts.data(), False, flags, nullptr, err);
  if (code == 0) {
    qhT *q = qh.get();
    facetT *facet;
    vertexT *vertex, **vertexp;
    for (facet = q->facet_list; facet && facet->next; facet = facet->next) {
      if (facet->upperdelaunay) continue;
      std::array<int, 3> t{};
      int k = 0;
      FOREACHvertex_(facet->vertices) {
        if (k < 3) t[k] = qh_pointid(q, vertex->point);
        ++k;
      }
      if (k != 3 || t[0] >= n || t[1] >= n || t[2] >= n) continue;
      double area = (x[t[1]] - double(x[t[0]])) * (y[t[2]] - double(y[t[0]])) -
                    (x[t[2]] - double(x[t[0]])) * (y[t[1]] - double(y[t[0]]));
      if (area == 0) continue;
      if (area < 0) std::swap(t[1], t[2]);
      out.push_back(t);
    }
    std::sort(out.begin(), out.end());
  } else if (error) {
    *error = "the points lie on one line";
  }
  qh_freeqhull(qh.get(), !qh_ALL);
  int curlong, totlong;
  qh_memfreeshort(qh.get(), &curlong, &totlong);
  if (err) std::fclose(err);
  return out;
}

std::vector<std::vector<Pt>> tri_contours(const float *x, const float *y, const float *z,
                                          const std::vector<std::array<int, 3>> &tri, double level) {
  struct Seg {
    uint64_t key[2];
    Pt p[2];
  };
  std::vector<Seg> segs;
  std::vector<std::vector<Pt>> lines;
  if (!std::isfinite(level)) return lines;
  auto key = [](int a, int b) { return (uint64_t(std::min(a, b)) << 32) | uint32_t(std::max(a, b)); };
  for (const auto &t : tri) {
    double zz[3] = {z[t[0]], z[t[1]], z[t[2]]};
    if (!std::isfinite(zz[0]) || !std::isfinite(zz[1]) || !std::isfinite(zz[2])) continue;
    bool up[3] = {zz[0] >= level, zz[1] >= level, zz[2] >= level};
    if (up[0] == up[1] && up[1] == up[2]) continue;
    Seg s{};
    int m = 0;
    for (int e = 0; e < 3; ++e) {
      int a = e, b = (e + 1) % 3;
      if (up[a] == up[b]) continue;
      double r = (level - zz[a]) / (zz[b] - zz[a]);
      s.key[m] = key(t[a], t[b]);
      s.p[m] = {x[t[a]] + r * (double(x[t[b]]) - x[t[a]]), y[t[a]] + r * (double(y[t[b]]) - y[t[a]])};
      ++m;
    }
    segs.push_back(s);
  }
  std::unordered_map<uint64_t, std::array<int, 2>> at;
  at.reserve(segs.size() * 2);
  for (int k = 0; k < static_cast<int>(segs.size()); ++k)
    for (uint64_t kk : segs[k].key) {
      auto it = at.try_emplace(kk, std::array<int, 2>{-1, -1}).first;
      if (it->second[0] < 0) it->second[0] = k;
      else if (it->second[1] < 0) it->second[1] = k;
    }
  std::vector<char> used(segs.size(), 0);
  auto other = [&](uint64_t kk, int s) {
    const auto &a = at[kk];
    return a[0] == s ? a[1] : a[0];
  };
  auto follow = [&](int s, int side) {
    std::vector<Pt> line{segs[s].p[side], segs[s].p[1 - side]};
    used[s] = 1;
    int first = s;
    uint64_t kk = segs[s].key[1 - side];
    int next = other(kk, s);
    while (next >= 0 && !used[next]) {
      used[next] = 1;
      int sd = segs[next].key[0] == kk ? 0 : 1;
      line.push_back(segs[next].p[1 - sd]);
      kk = segs[next].key[1 - sd];
      s = next;
      next = other(kk, s);
    }
    if (next == first && line.size() > 3) line.back() = line.front();
    lines.push_back(std::move(line));
  };
  for (int k = 0; k < static_cast<int>(segs.size()); ++k) {
    if (used[k]) continue;
    if (other(segs[k].key[0], k) < 0) follow(k, 0);
    else if (other(segs[k].key[1], k) < 0) follow(k, 1);
  }
  for (int k = 0; k < static_cast<int>(segs.size()); ++k)
    if (!used[k]) follow(k, 0);
  return lines;
}

std::vector<Pt> tri_band(const Pt p[3], const double z[3], double lo, double hi) {
  struct V {
    Pt p;
    double z;
  };
  std::vector<V> poly{{p[0], z[0]}, {p[1], z[1]}, {p[2], z[2]}};
  auto cut = [](const std::vector<V> &in, double v, bool keep_above) {
    std::vector<V> out;
    auto keep = [&](double zz) { return keep_above ? zz >= v : zz <= v; };
    for (size_t k = 0; k < in.size(); ++k) {
      const V &a = in[k], &b = in[(k + 1) % in.size()];
      if (keep(a.z)) out.push_back(a);
      if (keep(a.z) != keep(b.z)) {
        double r = (v - a.z) / (b.z - a.z);
        out.push_back({{a.p.x + r * (b.p.x - a.p.x), a.p.y + r * (b.p.y - a.p.y)}, v});
      }
    }
    return out;
  };
  if (std::isfinite(lo)) poly = cut(poly, lo, true);
  if (poly.size() >= 3 && std::isfinite(hi)) poly = cut(poly, hi, false);
  std::vector<Pt> out;
  if (poly.size() >= 3)
    for (const V &v : poly) out.push_back(v.p);
  return out;
}

namespace {

// Indexes i with g[i] in [lo, hi] of a monotonic array: [i0, i1], empty when i0 > i1.
void index_range(const std::vector<double> &g, double lo, double hi, int &i0, int &i1) {
  int n = static_cast<int>(g.size());
  bool up = g[n - 1] >= g[0];
  if (up) {
    i0 = static_cast<int>(std::lower_bound(g.begin(), g.end(), lo) - g.begin());
    i1 = static_cast<int>(std::upper_bound(g.begin(), g.end(), hi) - g.begin()) - 1;
  } else {
    i0 = static_cast<int>(std::lower_bound(g.begin(), g.end(), hi, std::greater<double>()) - g.begin());
    i1 = static_cast<int>(std::upper_bound(g.begin(), g.end(), lo, std::greater<double>()) - g.begin()) - 1;
  }
}

int nearest_grid(const std::vector<double> &g, double v) {
  int n = static_cast<int>(g.size());
  bool up = g[n - 1] >= g[0];
  int lo = 0, hi = n - 1;
  while (hi - lo > 1) {
    int mid = (lo + hi) / 2;
    if (up ? g[mid] <= v : g[mid] >= v) lo = mid;
    else hi = mid;
  }
  return std::fabs(g[lo] - v) <= std::fabs(g[hi] - v) ? lo : hi;
}

}  // namespace

void grid_scattered(const float *x, const float *y, const float *z, int n, const std::vector<double> &gx,
                    const std::vector<double> &gy, double outside, std::vector<float> &zmat,
                    std::vector<int> *count, std::vector<float> *inside) {
  int nx = static_cast<int>(gx.size()), ny = static_cast<int>(gy.size());
  zmat.assign(size_t(nx) * ny, float(outside));
  if (inside) inside->assign(size_t(nx) * ny, 0.0f);
  if (count) {
    count->assign(size_t(nx) * ny, 0);
    for (int k = 0; k < n; ++k)
      if (std::isfinite(x[k]) && std::isfinite(y[k])) (*count)[size_t(nearest_grid(gx, x[k])) * ny + nearest_grid(gy, y[k])]++;
  }
  std::vector<std::array<int, 3>> tri = delaunay(x, y, n);
  for (const auto &t : tri) {
    double ax = x[t[0]], ay = y[t[0]], bx = x[t[1]], by = y[t[1]], cx = x[t[2]], cy = y[t[2]];
    double det = (by - cy) * (ax - cx) + (cx - bx) * (ay - cy);
    if (det == 0) continue;
    int i0, i1, j0, j1;
    index_range(gx, std::min({ax, bx, cx}), std::max({ax, bx, cx}), i0, i1);
    index_range(gy, std::min({ay, by, cy}), std::max({ay, by, cy}), j0, j1);
    for (int i = i0; i <= i1; ++i)
      for (int j = j0; j <= j1; ++j) {
        double px = gx[i], py = gy[j];
        double l0 = ((by - cy) * (px - cx) + (cx - bx) * (py - cy)) / det;
        double l1 = ((cy - ay) * (px - cx) + (ax - cx) * (py - cy)) / det;
        double l2 = 1 - l0 - l1;
        const double e = -1e-9;
        if (l0 < e || l1 < e || l2 < e) continue;
        size_t k = size_t(i) * ny + j;
        zmat[k] = float(l0 * z[t[0]] + l1 * z[t[1]] + l2 * z[t[2]]);
        if (inside) (*inside)[k] = 1;
      }
  }
}

namespace {

#define TARR(n, kind) mv_tarr(n, kind).c_str()

// Reads triangles given as three index arrays; warns about an index out of range.
bool read_triangles(const char *routine, int n, const int *i1, const int *i2, const int *i3, int ntri,
                    std::vector<std::array<int, 3>> &tri) {
  tri.clear();
  tri.reserve(ntri);
  for (int k = 0; k < ntri; ++k) {
    std::array<int, 3> t{i1[k], i2[k], i3[k]};
    for (int c : t)
      if (c < 0 || c >= n) {
        mv_warn(routine, "triangle %d has the corner %d outside 0..%d", k, c, n - 1);
        return false;
      }
    tri.push_back(t);
  }
  return true;
}

bool tri_args(const char *routine, const float *x, const float *y, const float *z, int n, const int *i1,
              const int *i2, const int *i3, int ntri, std::vector<std::array<int, 3>> &tri) {
  if (!arrays_ok(routine, n, 3, {x, y, z}) || !arrays_ok(routine, ntri, 1, {i1, i2, i3})) return false;
  return read_triangles(routine, n, i1, i2, i3, ntri, tri);
}

Pt to_page(Pt p) { return page_point(p.x, p.y); }

// Cuts the page triangle p into m * m smaller ones and adds each, clipped, to the fill of the
// colour that colour_of gives for the mean of its corners' values (v linear over p), so that
// each colour becomes one seamless path; a negative colour is left out.
template <class ColourOf>
void fill_graded(const Pt p[3], const double v[3], int m, const Rect &clip, std::map<int, Path> &fills,
                 ColourOf colour_of) {
  for (int i = 0; i < m; ++i)
    for (int j = 0; i + j < m; ++j)
      for (int up = 0; up < 2; ++up) {
        if (up && i + j + 1 >= m) continue;
        double a[3], b[3];
        if (!up) a[0] = i, b[0] = j, a[1] = i + 1, b[1] = j, a[2] = i, b[2] = j + 1;
        else a[0] = i + 1, b[0] = j, a[1] = i + 1, b[1] = j + 1, a[2] = i, b[2] = j + 1;
        std::vector<Pt> q;
        double mean = 0;
        for (int k = 0; k < 3; ++k) {
          double wa = a[k] / m, wb = b[k] / m, wc = 1 - wa - wb;
          q.push_back({wa * p[0].x + wb * p[1].x + wc * p[2].x, wa * p[0].y + wb * p[1].y + wc * p[2].y});
          mean += (wa * v[0] + wb * v[1] + wc * v[2]) / 3;
        }
        int colour = colour_of(mean);
        if (colour < 0) continue;
        std::vector<Pt> cut = clip_polygon(q, clip);
        if (cut.size() >= 3) append_polygon(fills[colour], cut);
      }
}

// Colour-coded triangles: each one cut into as many smaller ones as its colours need, the
// small ones coloured by the value at their centres; one seamless fill per colour.
void colour_triangles(const float *x, const float *y, const float *z, const std::vector<std::array<int, 3>> &tri) {
  double lo = INFINITY, hi = -INFINITY;
  for (const auto &t : tri)
    for (int c : t)
      if (std::isfinite(z[c])) lo = std::min(lo, double(z[c])), hi = std::max(hi, double(z[c]));
  Rect clip = user_clip();
  std::map<int, Path> fills;
  for (const auto &t : tri) {
    double zz[3] = {z[t[0]], z[t[1]], z[t[2]]};
    if (!std::isfinite(zz[0] + zz[1] + zz[2])) continue;
    Pt p[3];
    for (int k = 0; k < 3; ++k) p[k] = to_page({x[t[k]], y[t[k]]});
    if (!std::isfinite(p[0].x + p[0].y + p[1].x + p[1].y + p[2].x + p[2].y)) continue;
    int c[3] = {value_colour(zz[0], lo, hi), value_colour(zz[1], lo, hi), value_colour(zz[2], lo, hi)};
    int span = std::max({c[0], c[1], c[2]}) - std::min({c[0], c[1], c[2]});
    int m = std::clamp((span + 2) / 3, 1, 24);
    fill_graded(p, zz, m, clip, fills, [&](double v) { return value_colour(v, lo, hi); });
  }
  for (auto &f : fills) fill_cell(f.second, table_rgb(f.first));
}

// Writes lines into the point and count arrays of TRIPTS and CONPTS.
void write_lines(const char *routine, const std::vector<std::vector<Pt>> &lines, float *xpts, float *ypts, int maxpts,
                 int *counts, int maxray, int *nlins) {
  int used = 0, m = 0;
  for (const auto &l : lines) {
    if (m >= maxray || used + static_cast<int>(l.size()) > maxpts) {
      mv_warn(routine, "the outputs hold %d of %zu lines (maxpts = %d, maxray = %d)", m, lines.size(), maxpts, maxray);
      break;
    }
    for (Pt p : l) xpts[used] = float(p.x), ypts[used] = float(p.y), ++used;
    counts[m++] = static_cast<int>(l.size());
  }
  *nlins = m;
}

// The levels of filled contours: sorted, unique, finite; the SHDMOD mode may open the ends.
bool band_levels(const char *routine, const float *zlev, int nlev, std::vector<double> &l, std::vector<double> &mid) {
  if (!zlev || nlev < 2) {
    mv_warn(routine, "at least two levels are needed (nlev = %d)", nlev);
    return false;
  }
  for (int k = 0; k < nlev; ++k)
    if (std::isfinite(zlev[k])) l.push_back(zlev[k]);
  std::sort(l.begin(), l.end());
  l.erase(std::unique(l.begin(), l.end()), l.end());
  if (l.size() < 2) {
    mv_warn(routine, "the levels need at least two different finite values");
    return false;
  }
  const MirvalState &st = mirval_state();
  auto mode = st.space.shading.find("CONTOUR");
  std::string m = mode == st.space.shading.end() ? "INNER" : mode->second;
  bool lower = m == "LOWER" || m == "BOTH", upper = m == "UPPER" || m == "BOTH";
  for (size_t k = 0; k + 1 < l.size(); ++k) mid.push_back((l[k] + l[k + 1]) / 2);
  if (lower) l.insert(l.begin(), -INFINITY), mid.insert(mid.begin(), l[1]);
  if (upper) l.push_back(INFINITY), mid.push_back(l[l.size() - 2]);
  return true;
}

int band_colour(size_t k, size_t bands, double mid) {
  const GridState &gs = mirval_state().grid;
  int span = gs.colour_hi - gs.colour_lo + 1;
  return gs.colour_axis ? z_colour(mid) : gs.colour_lo + std::min(span - 1, static_cast<int>((k + 0.5) * span / bands));
}

// Curvilinear grids: index coordinates (i along x, j along y) to the user coordinates of the
// matrices xmat, ymat, bilinear inside each cell.
struct Curvilinear {
  const float *xm, *ym;
  int nx, ny;
  Pt map(Pt p) const {
    int i = std::clamp(static_cast<int>(std::floor(p.x)), 0, nx - 2), j = std::clamp(static_cast<int>(std::floor(p.y)), 0, ny - 2);
    double s = p.x - i, t = p.y - j;
    auto bil = [&](const float *m) {
      long k = long(i) * ny + j;
      return (1 - s) * (1 - t) * m[k] + s * (1 - t) * m[k + ny] + (1 - s) * t * m[k + 1] + s * t * m[k + ny + 1];
    };
    return {bil(xm), bil(ym)};
  }
  // A polyline in index coordinates, with points added so that no piece spans half a cell.
  std::vector<Pt> map_line(const std::vector<Pt> &l, bool closed) const {
    std::vector<Pt> out;
    size_t n = l.size();
    for (size_t k = 0; k < n; ++k) {
      out.push_back(map(l[k]));
      if (k + 1 == n && !closed) break;
      Pt a = l[k], b = l[(k + 1) % n];
      int parts = static_cast<int>(std::ceil(std::max(std::fabs(b.x - a.x), std::fabs(b.y - a.y)) / 0.5));
      for (int q = 1; q < parts; ++q) out.push_back(map({a.x + (b.x - a.x) * q / parts, a.y + (b.y - a.y) * q / parts}));
    }
    return out;
  }
};

bool curvilinear_ok(const char *routine, const float *xmat, const float *ymat, const float *zmat, int nx, int ny) {
  if (!xmat || !ymat || !zmat) {
    mv_warn(routine, "an array is missing");
    return false;
  }
  if (nx < 2 || ny < 2 || long(nx) * ny > 25000000L) {
    mv_warn(routine, "the matrices need 2 x 2 to 5000 x 5000 points (nx = %d, ny = %d)", nx, ny);
    return false;
  }
  if (!finite_all(xmat, nx * ny) || !finite_all(ymat, nx * ny)) {
    mv_warn(routine, "a grid coordinate (xmat, ymat) is not a number");
    return false;
  }
  return true;
}

std::vector<float> index_axis(int n) {
  std::vector<float> v(n);
  for (int k = 0; k < n; ++k) v[k] = float(k);
  return v;
}

}  // namespace

extern "C" {

void triang(const float *xray, const float *yray, int n, int *i1ray, int *i2ray, int *i3ray, int nmax, int *ntri) {
  mv_tracef("triang(xray=%s, yray=%s, n=%d, i1ray=%s, i2ray=%s, i3ray=%s, nmax=%d, ntri=out)", TARR(n, "floats"),
            TARR(n, "floats"), n, TARR(nmax, "ints out"), TARR(nmax, "ints out"), TARR(nmax, "ints out"), nmax);
  if (ntri) *ntri = 0;
  if (!ntri || !arrays_ok("triang", n, 3, {xray, yray}) || !arrays_ok("triang", nmax, 1, {i1ray, i2ray, i3ray})) return;
  if (!finite_all(xray, n) || !finite_all(yray, n)) {
    mv_warn("triang", "a point is not a number");
    return;
  }
  std::string why;
  std::vector<std::array<int, 3>> tri = delaunay(xray, yray, n, &why);
  if (tri.empty()) {
    mv_warn("triang", "no triangles: %s", why.empty() ? "the points lie on one line" : why.c_str());
    return;
  }
  if (static_cast<int>(tri.size()) > nmax)
    mv_warn("triang", "nmax = %d holds %d of the %zu triangles", nmax, nmax, tri.size());
  int m = std::min(nmax, static_cast<int>(tri.size()));
  for (int k = 0; k < m; ++k) i1ray[k] = tri[k][0], i2ray[k] = tri[k][1], i3ray[k] = tri[k][2];
  *ntri = m;
}

void trifll(const float *xray, const float *yray) {
  mv_tracef("trifll(xray=%s, yray=%s)", TARR(3, "floats"), TARR(3, "floats"));
  if (!mv_level("trifll", 2, 3) || !arrays_ok("trifll", 3, 3, {xray, yray})) return;
  std::vector<Pt> q;
  for (int k = 0; k < 3; ++k) q.push_back(to_page({xray[k], yray[k]}));
  for (Pt p : q)
    if (!std::isfinite(p.x + p.y)) {
      mv_warn("trifll", "a corner is not a number or has no place on a log axis");
      return;
    }
  std::vector<Pt> cut = clip_polygon(q, user_clip());
  if (cut.size() >= 3) fill_path(closed_path(cut), pen_rgb());
}

void triflc(const float *xray, const float *yray, const int *icray, int n) {
  mv_tracef("triflc(xray=%s, yray=%s, icray=%s, n=%d)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "ints"), n);
  if (!mv_level("triflc", 2, 3) || !arrays_ok("triflc", n, 3, {xray, yray, icray})) return;
  std::vector<Pt> p(n);
  for (int k = 0; k < n; ++k) {
    p[k] = to_page({xray[k], yray[k]});
    if (!std::isfinite(p[k].x + p[k].y)) {
      mv_warn("triflc", "corner %d is not a number or has no place on a log axis", k);
      return;
    }
    if (icray[k] < 0 || icray[k] > 255) {
      mv_warn("triflc", "the colour %d of corner %d is outside 0..255", icray[k], k);
      return;
    }
  }
  Rect clip = user_clip();
  std::map<int, Path> fills;
  // a fan about the first corner; each triangle cut finely enough for its colours
  for (int t = 1; t + 1 < n; ++t) {
    int idx[3] = {0, t, t + 1};
    int span = 0;
    for (int a = 0; a < 3; ++a)
      for (int b = 0; b < 3; ++b) span = std::max(span, std::abs(icray[idx[a]] - icray[idx[b]]));
    Pt q[3] = {p[0], p[t], p[t + 1]};
    double v[3] = {double(icray[0]), double(icray[t]), double(icray[t + 1])};
    fill_graded(q, v, std::clamp(span, 1, 64), clip, fills, [](double c) { return static_cast<int>(std::lround(c)); });
  }
  for (auto &f : fills) fill_cell(f.second, table_rgb(f.first));
}

void crvtri(const float *xray, const float *yray, const float *zray, int n, const int *i1ray, const int *i2ray,
            const int *i3ray, int ntri) {
  mv_tracef("crvtri(xray=%s, yray=%s, zray=%s, n=%d, i1ray=%s, i2ray=%s, i3ray=%s, ntri=%d)", TARR(n, "floats"),
            TARR(n, "floats"), TARR(n, "floats"), n, TARR(ntri, "ints"), TARR(ntri, "ints"), TARR(ntri, "ints"), ntri);
  std::vector<std::array<int, 3>> tri;
  if (!mv_level("crvtri", 2, 3) || !tri_args("crvtri", xray, yray, zray, n, i1ray, i2ray, i3ray, ntri, tri)) return;
  colour_triangles(xray, yray, zray, tri);
}

void crvqdr(const float *xray, const float *yray, const float *zray, int n) {
  mv_tracef("crvqdr(xray=%s, yray=%s, zray=%s, n=%d)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n);
  if (!mv_level("crvqdr", 2, 3) || !arrays_ok("crvqdr", n, 4, {xray, yray, zray})) return;
  if (n % 4) mv_warn("crvqdr", "n = %d is no multiple of 4: the last %d points are left out", n, n % 4);
  std::vector<std::array<int, 3>> tri;
  for (int q = 0; q + 3 < n; q += 4) {
    tri.push_back({q, q + 1, q + 2});
    tri.push_back({q, q + 2, q + 3});
  }
  colour_triangles(xray, yray, zray, tri);
}

void contri(const float *xray, const float *yray, const float *zray, int n, const int *i1ray, const int *i2ray,
            const int *i3ray, int ntri, float zlev) {
  mv_tracef("contri(xray=%s, yray=%s, zray=%s, n=%d, i1ray=%s, i2ray=%s, i3ray=%s, ntri=%d, zlev=%g)",
            TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n, TARR(ntri, "ints"), TARR(ntri, "ints"),
            TARR(ntri, "ints"), ntri, (double)zlev);
  std::vector<std::array<int, 3>> tri;
  if (!mv_level("contri", 2, 2) || !tri_args("contri", xray, yray, zray, n, i1ray, i2ray, i3ray, ntri, tri)) return;
  if (!std::isfinite(zlev)) {
    mv_warn("contri", "the level %g is not a number", (double)zlev);
    return;
  }
  draw_level(tri_contours(xray, yray, zray, tri, zlev), zlev);
}

void tripts(const float *xray, const float *yray, const float *zray, int n, const int *i1ray, const int *i2ray,
            const int *i3ray, int ntri, float zlev, float *xpts, float *ypts, int maxpts, int *iray, int maxray,
            int *nlins) {
  mv_tracef("tripts(xray=%s, yray=%s, zray=%s, n=%d, i1ray=%s, i2ray=%s, i3ray=%s, ntri=%d, zlev=%g, xpts=%s, ypts=%s, "
            "maxpts=%d, iray=%s, maxray=%d, nlins=out)",
            TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n, TARR(ntri, "ints"), TARR(ntri, "ints"),
            TARR(ntri, "ints"), ntri, (double)zlev, TARR(maxpts, "floats out"), TARR(maxpts, "floats out"), maxpts,
            TARR(maxray, "ints out"), maxray);
  if (nlins) *nlins = 0;
  if (!nlins || !arrays_ok("tripts", maxpts, 2, {xpts, ypts}) || !arrays_ok("tripts", maxray, 1, {iray})) return;
  std::vector<std::array<int, 3>> tri;
  if (!tri_args("tripts", xray, yray, zray, n, i1ray, i2ray, i3ray, ntri, tri)) return;
  if (!std::isfinite(zlev)) {
    mv_warn("tripts", "the level %g is not a number", (double)zlev);
    return;
  }
  write_lines("tripts", tri_contours(xray, yray, zray, tri, zlev), xpts, ypts, maxpts, iray, maxray, nlins);
}

void conpts(const float *xray, int nx, const float *yray, int ny, const float *zmat, float zlev, float *xpts,
            float *ypts, int maxpts, int *nray, int maxray, int *nlins) {
  mv_tracef("conpts(xray=%s, nx=%d, yray=%s, ny=%d, zmat=%s, zlev=%g, xpts=%s, ypts=%s, maxpts=%d, nray=%s, maxray=%d, "
            "nlins=out)",
            TARR(nx, "floats"), nx, TARR(ny, "floats"), ny, TARR(matrix_size(nx, ny), "floats"), (double)zlev,
            TARR(maxpts, "floats out"), TARR(maxpts, "floats out"), maxpts, TARR(maxray, "ints out"), maxray);
  if (nlins) *nlins = 0;
  if (!nlins || !arrays_ok("conpts", maxpts, 2, {xpts, ypts}) || !arrays_ok("conpts", maxray, 1, {nray})) return;
  if (!xray || !yray || !zmat || nx < 2 || ny < 2) {
    mv_warn("conpts", "the matrix needs at least 2 x 2 points (nx = %d, ny = %d)", nx, ny);
    return;
  }
  if (!std::isfinite(zlev)) {
    mv_warn("conpts", "the level %g is not a number", (double)zlev);
    return;
  }
  write_lines("conpts", contour_lines({xray, nx, yray, ny, zmat}, zlev), xpts, ypts, maxpts, nray, maxray, nlins);
}

void confll(const float *xray, const float *yray, const float *zray, int n, const int *i1ray, const int *i2ray,
            const int *i3ray, int ntri, const float *zlev, int nlev) {
  mv_tracef("confll(xray=%s, yray=%s, zray=%s, n=%d, i1ray=%s, i2ray=%s, i3ray=%s, ntri=%d, zlev=%s, nlev=%d)",
            TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n, TARR(ntri, "ints"), TARR(ntri, "ints"),
            TARR(ntri, "ints"), ntri, TARR(nlev, "floats"), nlev);
  std::vector<std::array<int, 3>> tri;
  if (!mv_level("confll", 2, 2) || !tri_args("confll", xray, yray, zray, n, i1ray, i2ray, i3ray, ntri, tri)) return;
  std::vector<double> l, mid;
  if (!band_levels("confll", zlev, nlev, l, mid)) return;
  Rect clip = user_clip();
  // layer k is where z >= l[k] up to the last level; laid from the lowest upwards
  size_t layers = l.size() - 1;
  std::vector<Path> paths(layers);
  for (const auto &t : tri) {
    Pt p[3];
    double zz[3];
    bool ok = true;
    for (int k = 0; k < 3; ++k) {
      p[k] = to_page({xray[t[k]], yray[t[k]]});
      zz[k] = zray[t[k]];
      ok = ok && std::isfinite(p[k].x + p[k].y + zz[k]);
    }
    if (!ok) continue;
    double zmin = std::min({zz[0], zz[1], zz[2]});
    for (size_t k = 0; k < layers; ++k) {
      if (zmin >= l[k] && k + 1 < layers && zmin >= l[k + 1]) continue;  // a higher layer covers it
      std::vector<Pt> q = tri_band(p, zz, l[k], l.back());
      if (q.size() < 3) continue;
      std::vector<Pt> cut = clip_polygon(q, clip);
      if (cut.size() >= 3) append_polygon(paths[k], cut);
    }
  }
  for (size_t k = 0; k < layers; ++k) {
    int c = band_colour(k, layers, mid[k]);
    if (c >= 0) fill_path(paths[k], table_rgb(c));
  }
}

void getmat(const float *xray, const float *yray, const float *zray, int n, float *zmat, int nx, int ny, float zval,
            int *imat, float *wmat) {
  mv_tracef("getmat(xray=%s, yray=%s, zray=%s, n=%d, zmat=%s, nx=%d, ny=%d, zval=%g, imat=%s, wmat=%s)",
            TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n, TARR(matrix_size(nx, ny), "floats out"), nx, ny,
            (double)zval, TARR(matrix_size(nx, ny), "ints out"), TARR(matrix_size(nx, ny), "floats out"));
  if (!arrays_ok("getmat", n, 3, {xray, yray, zray}) || !zmat || !imat || !wmat) {
    if (!zmat || !imat || !wmat) mv_warn("getmat", "an output array is missing");
    return;
  }
  if (nx < 2 || ny < 2 || long(nx) * ny > 25000000L) {
    mv_warn("getmat", "the matrix needs 2 x 2 to 5000 x 5000 points (nx = %d, ny = %d)", nx, ny);
    return;
  }
  // the grid: the axis system's ranges, or without one the data's extent
  std::vector<double> gx(nx), gy(ny);
  const MirvalState &st = mirval_state();
  if (st.level == 2) {
    std::vector<float> a = spread_over(st.axes.range[0], nx), b = spread_over(st.axes.range[1], ny);
    gx.assign(a.begin(), a.end()), gy.assign(b.begin(), b.end());
  } else {
    double xa = INFINITY, xb = -INFINITY, ya = INFINITY, yb = -INFINITY;
    for (int k = 0; k < n; ++k)
      if (std::isfinite(xray[k]) && std::isfinite(yray[k]))
        xa = std::min(xa, double(xray[k])), xb = std::max(xb, double(xray[k])), ya = std::min(ya, double(yray[k])),
        yb = std::max(yb, double(yray[k]));
    if (!(xb > xa) || !(yb > ya)) {
      mv_warn("getmat", "the points span no area");
      return;
    }
    for (int i = 0; i < nx; ++i) gx[i] = xa + (xb - xa) * i / (nx - 1);
    for (int j = 0; j < ny; ++j) gy[j] = ya + (yb - ya) * j / (ny - 1);
  }
  std::vector<float> z, inside;
  std::vector<int> count;
  grid_scattered(xray, yray, zray, n, gx, gy, zval, z, &count, &inside);
  const FieldState &fs = st.field;
  for (int pass = 0; pass < fs.mdf_passes; ++pass) {
    std::vector<float> next = z;
    int r = fs.mdf_radius;
    for (int i = 0; i < nx; ++i)
      for (int j = 0; j < ny; ++j) {
        size_t k = size_t(i) * ny + j;
        if (!inside[k]) continue;
        double sum = 0;
        int m = 0;
        for (int a = std::max(0, i - r); a <= std::min(nx - 1, i + r); ++a)
          for (int b = std::max(0, j - r); b <= std::min(ny - 1, j + r); ++b)
            if (inside[size_t(a) * ny + b] && std::isfinite(z[size_t(a) * ny + b])) sum += z[size_t(a) * ny + b], ++m;
        if (m) next[k] = float((1 - fs.mdf_weight) * z[k] + fs.mdf_weight * sum / m);
      }
    z.swap(next);
  }
  std::copy(z.begin(), z.end(), zmat);
  std::copy(count.begin(), count.end(), imat);
  std::copy(inside.begin(), inside.end(), wmat);
}

void mdfmat(int n1, int n2, float x) {
  mv_tracef("mdfmat(%d, %d, %g)", n1, n2, (double)x);
  if (!in_range("mdfmat", "passes", n1, 0, 1000) || !in_range("mdfmat", "radius", n2, 1, 100) ||
      !in_range("mdfmat", "weight", x, 0, 1))
    return;
  FieldState &fs = mirval_state().field;
  fs.mdf_passes = n1, fs.mdf_radius = n2, fs.mdf_weight = x;
}

void concrv(const float *xray, const float *yray, int n, float zlev) {
  mv_tracef("concrv(xray=%s, yray=%s, n=%d, zlev=%g)", TARR(n, "floats"), TARR(n, "floats"), n, (double)zlev);
  if (!mv_level("concrv", 2, 2) || !arrays_ok("concrv", n, 2, {xray, yray})) return;
  if (!std::isfinite(zlev)) {
    mv_warn("concrv", "the level %g is not a number", (double)zlev);
    return;
  }
  std::vector<std::vector<Pt>> lines(1);
  for (int k = 0; k < n; ++k) {
    if (std::isfinite(xray[k]) && std::isfinite(yray[k])) lines.back().push_back({xray[k], yray[k]});
    else if (!lines.back().empty()) lines.emplace_back();
  }
  draw_level(lines, zlev);
}

void contur2(const float *xmat, const float *ymat, const float *zmat, int nx, int ny, float zlev) {
  mv_tracef("contur2(xmat=%s, ymat=%s, zmat=%s, nx=%d, ny=%d, zlev=%g)", TARR(matrix_size(nx, ny), "floats"),
            TARR(matrix_size(nx, ny), "floats"), TARR(matrix_size(nx, ny), "floats"), nx, ny, (double)zlev);
  if (!mv_level("contur2", 2, 2) || !curvilinear_ok("contur2", xmat, ymat, zmat, nx, ny)) return;
  if (!std::isfinite(zlev)) {
    mv_warn("contur2", "the level %g is not a number", (double)zlev);
    return;
  }
  std::vector<float> ix = index_axis(nx), iy = index_axis(ny);
  Curvilinear cv{xmat, ymat, nx, ny};
  std::vector<std::vector<Pt>> lines;
  for (const auto &l : contour_lines({ix.data(), nx, iy.data(), ny, zmat}, zlev)) lines.push_back(cv.map_line(l, false));
  draw_level(lines, zlev);
}

void conshd2(const float *xmat, const float *ymat, const float *zmat, int nx, int ny, const float *zlev, int nlev) {
  mv_tracef("conshd2(xmat=%s, ymat=%s, zmat=%s, nx=%d, ny=%d, zlev=%s, nlev=%d)", TARR(matrix_size(nx, ny), "floats"),
            TARR(matrix_size(nx, ny), "floats"), TARR(matrix_size(nx, ny), "floats"), nx, ny, TARR(nlev, "floats"), nlev);
  if (!mv_level("conshd2", 2, 2) || !curvilinear_ok("conshd2", xmat, ymat, zmat, nx, ny)) return;
  std::vector<double> l, mid;
  if (!band_levels("conshd2", zlev, nlev, l, mid)) return;
  std::vector<float> ix = index_axis(nx), iy = index_axis(ny);
  Curvilinear cv{xmat, ymat, nx, ny};
  Rect clip = user_clip();
  auto layers = contour_layers({ix.data(), nx, iy.data(), ny, zmat}, l);
  for (size_t k = 0; k < layers.size(); ++k) {
    int c = band_colour(k, layers.size(), mid[k]);
    if (c < 0) continue;
    Path p;
    for (const auto &poly : layers[k]) {
      std::vector<Pt> page;
      for (Pt q : cv.map_line(poly, true)) page.push_back(to_page(q));
      std::vector<Pt> cut = clip_polygon(page, clip);
      if (cut.size() >= 3) append_polygon(p, cut);
    }
    fill_path(p, table_rgb(c));
  }
}

}
