// Curves, markers, vectors and streamlines in 3-D, all in the depth group so that solids and
// surfaces hide them where they are in front.
#include "solids/curves3d.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "core/trace.h"
#include "draw/colours.h"
#include "draw/draw.h"
#include "draw/markers.h"
#include "grids/colour_matrix.h"
#include "mirval.h"
#include "solids/render3d.h"

#include <algorithm>
#include <cmath>

using s3::V3;

namespace {

SolidState &sol() { return mirval_state().solid; }

double line_width() {
  const MirvalState &st = mirval_state();
  return st.solid.thick > 0 ? st.solid.thick : st.pen.width;
}

bool arrays_ok(const char *routine, int n, std::initializer_list<const void *> arrays, int least = 1) {
  for (const void *a : arrays)
    if (!a) {
      mv_warn(routine, "an array is missing");
      return false;
    }
  if (n < least || n > 100000000) {
    mv_warn(routine, "the number of points must be at least %d (got %d)", least, n);
    return false;
  }
  return true;
}

bool finite(V3 p) { return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z); }

// Flattens a page path (Bezier segments as short lines) into polylines.
std::vector<std::vector<Pt>> flatten(const Path &p) {
  std::vector<std::vector<Pt>> out;
  size_t k = 0;
  for (SegOp op : p.ops) {
    switch (op) {
      case SegOp::Move:
        out.push_back({p.pts[k++]});
        break;
      case SegOp::Line:
        if (out.empty()) out.push_back({});
        out.back().push_back(p.pts[k++]);
        break;
      case SegOp::Curve: {
        if (out.empty()) out.push_back({p.pts[k]});
        Pt a = out.back().back(), c1 = p.pts[k], c2 = p.pts[k + 1], b = p.pts[k + 2];
        k += 3;
        for (int i = 1; i <= 8; ++i) {
          double t = i / 8.0, u = 1 - t;
          out.back().push_back({u * u * u * a.x + 3 * u * u * t * c1.x + 3 * u * t * t * c2.x + t * t * t * b.x,
                                u * u * u * a.y + 3 * u * u * t * c1.y + 3 * u * t * t * c2.y + t * t * t * b.y});
        }
        break;
      }
      case SegOp::Close:
        if (!out.empty() && !out.back().empty()) out.back().push_back(out.back().front());
        break;
    }
  }
  return out;
}

}  // namespace

namespace s3 {

void marker3d(int n, V3 p, Rgb c) {
  MirvalState &st = mirval_state();
  double size = st.solid.hsym > 0 ? st.solid.hsym : st.curve.hsymbl;
  if (st.scene.pages.empty()) return;
  // the marker as the 2-D symbols draw it around the origin, turned into pieces facing the eye
  Page &pg = st.scene.current();
  size_t before = pg.items.size();
  unsigned long changes = st.scene.changes;
  draw_marker(n, {0, 0}, size, c, st.pen.width);
  std::vector<Item> made(pg.items.begin() + long(before), pg.items.end());
  pg.items.resize(before);
  st.scene.changes = changes;
  for (const Item &it : made)
    for (const std::vector<Pt> &line : flatten(it.path)) {
      if (it.kind == ItemKind::Stroke) {
        billboard_line(p, line, false, it.rgb, it.width);
      } else if (line.size() >= 3) {
        std::vector<Pt> fan{{0, 0}};  // marker shapes are star-shaped about their centre
        fan.insert(fan.end(), line.begin(), line.end());
        if (fan.back().x != fan[1].x || fan.back().y != fan[1].y) fan.push_back(fan[1]);
        billboard(p, fan, it.rgb);
      }
    }
}

void polyline3d(const std::vector<V3> &pts, const std::vector<Rgb> &colours, double width) {
  for (size_t i = 0; i + 1 < pts.size(); ++i)
    if (finite(pts[i]) && finite(pts[i + 1])) segment(pts[i], pts[i + 1], colours[std::min(i, colours.size() - 1)], width);
}

void arrow3d(V3 a, V3 b, Rgb c, double width, int ivec) {
  if (!finite(a) || !finite(b)) return;
  V3 d = b - a;
  double len = std::sqrt(dot(d, d));
  if (!(len > 0)) return;
  if (ivec == 0) {
    segment(a, b, c, width);
    return;
  }
  // shaft up to the head, a lit cone for the head (a fifth of the length, at most 0.12 box)
  double head = std::min(0.25 * len, 0.12);
  V3 e = unit(d), base = b - e * head;
  segment(a, base, c, width);
  V3 t = std::fabs(e.z) < 0.9 ? V3{0, 0, 1} : V3{1, 0, 0};
  V3 u = unit(cross(t, e)), v = cross(e, u);
  double r = head * 0.35;
  const int k = 10;
  for (int i = 0; i < k; ++i) {
    double a1 = 2 * M_PI * i / k, a2 = 2 * M_PI * (i + 1) / k;
    V3 p1 = base + (u * std::cos(a1) + v * std::sin(a1)) * r, p2 = base + (u * std::cos(a2) + v * std::sin(a2)) * r;
    auto vtx = [&](V3 p, V3 n) {
      Vtx3 x;
      x.p[0] = p.x, x.p[1] = p.y, x.p[2] = p.z;
      x.n[0] = n.x, x.n[1] = n.y, x.n[2] = n.z;
      x.c = c;
      return x;
    };
    V3 n1 = unit((u * std::cos(a1) + v * std::sin(a1)) + e * 0.35), n2 = unit((u * std::cos(a2) + v * std::sin(a2)) + e * 0.35);
    triangle(vtx(p1, n1), vtx(p2, n2), vtx(b, unit(n1 + n2)));
    triangle(vtx(p2, e * -1), vtx(p1, e * -1), vtx(base, e * -1));
  }
}

}  // namespace s3

namespace {

// Trilinear sampling of a vector field given on a grid xp (nx) x yp (ny) x zp (nz), matrices
// in the order ((i * ny) + j) * nz + k; false outside the grid.
struct Field {
  const float *u, *v, *w, *xp, *yp, *zp;
  int nx, ny, nz;
  static bool find(const float *c, int n, double x, int &i, double &f) {
    if (!(x >= c[0] && x <= c[n - 1])) return false;
    i = int(std::upper_bound(c, c + n, float(x)) - c) - 1;
    i = std::max(0, std::min(n - 2, i));
    double span = c[i + 1] - c[i];
    f = span > 0 ? (x - c[i]) / span : 0;
    return true;
  }
  bool at(V3 p, V3 &out) const {
    int i, j, k;
    double fx, fy, fz;
    if (!find(xp, nx, p.x, i, fx) || !find(yp, ny, p.y, j, fy) || !find(zp, nz, p.z, k, fz)) return false;
    out = {0, 0, 0};
    for (int a = 0; a < 2; ++a)
      for (int b = 0; b < 2; ++b)
        for (int c = 0; c < 2; ++c) {
          double wgt = (a ? fx : 1 - fx) * (b ? fy : 1 - fy) * (c ? fz : 1 - fz);
          if (wgt == 0) continue;
          long n = (long(i + a) * ny + (j + b)) * nz + (k + c);
          out = out + V3{u[n], v[n], w[n]} * wgt;
        }
    return finite(out);
  }
};

bool grid_ok(const char *routine, const float *c, int n) {
  for (int i = 0; i + 1 < n; ++i)
    if (!(c[i + 1] > c[i])) {
      mv_warn(routine, "grid coordinates must increase (point %d)", i + 2);
      return false;
    }
  return true;
}

// A streamline from p0, forward (dir 1) or backward (-1), by fourth-order Runge-Kutta steps of
// a fifth of the smallest grid cell, the speed normalised; stops outside the grid, where the
// field vanishes, or after 'most' points.
std::vector<V3> trace(const Field &f, V3 p0, int dir, size_t most) {
  double h = INFINITY;
  auto least = [&](const float *c, int n) {
    for (int i = 0; i + 1 < n; ++i) h = std::min(h, double(c[i + 1] - c[i]));
  };
  least(f.xp, f.nx), least(f.yp, f.ny), least(f.zp, f.nz);
  h *= 0.2 * dir;
  std::vector<V3> out;
  V3 p = p0, d;
  if (!f.at(p, d)) return out;
  out.push_back(p);
  auto dirn = [&](V3 q, V3 &r) {
    V3 x;
    if (!f.at(q, x)) return false;
    double s = std::sqrt(s3::dot(x, x));
    if (!(s > 1e-12)) return false;
    r = x * (1 / s);
    return true;
  };
  while (out.size() < most) {
    V3 k1, k2, k3, k4;
    if (!dirn(p, k1) || !dirn(p + k1 * (h / 2), k2) || !dirn(p + k2 * (h / 2), k3) || !dirn(p + k3 * h, k4)) break;
    V3 q = p + (k1 + k2 * 2 + k3 * 2 + k4) * (h / 6);
    if (!f.at(q, d)) break;
    p = q;
    out.push_back(p);
    if (out.size() > 20) {  // closed orbits: stop when back at the start
      V3 e = p - p0;
      if (std::sqrt(s3::dot(e, e)) < std::fabs(h) * 0.5) break;
    }
  }
  return out;
}

bool field_ok(const char *routine, const float *xv, const float *yv, const float *zv, int nx, int ny, int nz,
              const float *xp, const float *yp, const float *zp) {
  if (!xv || !yv || !zv || !xp || !yp || !zp) {
    mv_warn(routine, "an array is missing");
    return false;
  }
  if (nx < 2 || ny < 2 || nz < 2 || double(nx) * ny * nz > 2e8) {
    mv_warn(routine, "the grid needs at least 2 x 2 x 2 points (got %d x %d x %d)", nx, ny, nz);
    return false;
  }
  return grid_ok(routine, xp, nx) && grid_ok(routine, yp, ny) && grid_ok(routine, zp, nz);
}

}  // namespace

extern "C" {

void hsym3d(float x) {
  mv_tracef("hsym3d(%g)", (double)x);
  if (in_range("hsym3d", "size", x, 0, 10000)) sol().hsym = x;
}

void thkc3d(float x) {
  mv_tracef("thkc3d(%g)", (double)x);
  if (in_range("thkc3d", "thickness", x, 0, 10000)) sol().thick = x;
}

void symb3d(int n, float x, float y, float z) {
  mv_tracef("symb3d(%d, %g, %g, %g)", n, (double)x, (double)y, (double)z);
  if (n < 0 || n >= marker_count) {
    mv_warn("symb3d", "symbol %d out of range 0..%d", n, marker_count - 1);
    return;
  }
  if (!finite(V3{x, y, z})) {
    mv_warn("symb3d", "the point must be finite");
    return;
  }
  if (!s3::begin("symb3d")) return;
  s3::marker3d(n, s3::user_to_box({x, y, z}), pen_rgb());
  s3::end();
}

void strt3d(float x, float y, float z) {
  mv_tracef("strt3d(%g, %g, %g)", (double)x, (double)y, (double)z);
  if (!mv_level("strt3d", 3, 3)) return;
  if (!finite(V3{x, y, z})) {
    mv_warn("strt3d", "the point must be finite");
    return;
  }
  SolidState &s = sol();
  s.pos[0] = x, s.pos[1] = y, s.pos[2] = z;
  s.have_pos = true;
}

void conn3d(float x, float y, float z) {
  mv_tracef("conn3d(%g, %g, %g)", (double)x, (double)y, (double)z);
  if (!finite(V3{x, y, z})) {
    mv_warn("conn3d", "the point must be finite");
    return;
  }
  SolidState &s = sol();
  if (!s3::begin("conn3d")) return;
  if (!s.have_pos) mv_warn("conn3d", "no start point (STRT3D): the line starts here");
  else s3::segment(s3::user_to_box({s.pos[0], s.pos[1], s.pos[2]}), s3::user_to_box({x, y, z}), pen_rgb(), line_width());
  s.pos[0] = x, s.pos[1] = y, s.pos[2] = z;
  s.have_pos = true;
  s3::end();
}

void curv3d(const float *x, const float *y, const float *z, int n) {
  mv_tracef("curv3d(xray=%s, yray=%s, zray=%s, n=%d)", mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(),
            mv_tarr(n, "floats").c_str(), n);
  if (!arrays_ok("curv3d", n, {x, y, z}) || !s3::begin("curv3d")) return;
  const MirvalState &st = mirval_state();
  std::vector<V3> p(n);
  for (int i = 0; i < n; ++i) p[i] = s3::user_to_box({x[i], y[i], z[i]});
  Rgb c = pen_rgb();
  int inc = st.curve.incmrk;
  if (inc >= 0) s3::polyline3d(p, {c}, line_width());
  if (inc != 0)
    for (int i = 0; i < n; i += std::abs(inc))
      if (finite(p[i])) s3::marker3d(st.curve.marker, p[i], c);
  s3::end();
}

void curv4d(const float *x, const float *y, const float *z, const float *w, int n) {
  mv_tracef("curv4d(xray=%s, yray=%s, zray=%s, wray=%s, n=%d)", mv_tarr(n, "floats").c_str(),
            mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), n);
  if (!arrays_ok("curv4d", n, {x, y, z, w}) || !s3::begin("curv4d")) return;
  const MirvalState &st = mirval_state();
  std::vector<V3> p(n);
  std::vector<Rgb> c(n);
  std::vector<bool> shown(n);
  for (int i = 0; i < n; ++i) {
    p[i] = s3::user_to_box({x[i], y[i], z[i]});
    int e = z_colour(w[i]);
    shown[i] = e >= 0;
    c[i] = table_rgb(std::max(0, std::min(255, e)));
  }
  int inc = st.curve.incmrk;
  if (inc >= 0)
    for (int i = 0; i + 1 < n; ++i)
      if (shown[i] && shown[i + 1] && finite(p[i]) && finite(p[i + 1])) {
        // each half of a segment in the colour of its nearer end
        V3 m = (p[i] + p[i + 1]) * 0.5;
        s3::segment(p[i], m, c[i], line_width());
        s3::segment(m, p[i + 1], c[i + 1], line_width());
      }
  if (inc < 0 && (st.solid.res3d[0] > 0 || st.solid.autres3d[0] > 0)) {
    // colour cubes of SETRES3D's size (user units) or AUTRES3D's share of the axes
    const Space3D &sp = st.space;
    double size[3];
    for (int k = 0; k < 3; ++k) {
      double span = sp.range[k].e - sp.range[k].a;
      size[k] = st.solid.res3d[0] > 0 ? st.solid.res3d[k] * sp.box[k] / span : sp.box[k] / st.solid.autres3d[k];
    }
    for (int i = 0; i < n; ++i) {
      if (!shown[i] || !finite(p[i])) continue;
      for (int axis = 0; axis < 3; ++axis)
        for (int sgn : {-1, 1}) {
          int a = (axis + 1) % 3, b = (axis + 2) % 3;
          Vtx3 q[4];
          int k = 0;
          for (auto [u, v] : {std::pair{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}) {
            double pt[3] = {p[i].x, p[i].y, p[i].z};
            pt[axis] += sgn * size[axis] / 2, pt[a] += u * size[a] / 2, pt[b] += sgn * v * size[b] / 2;
            for (int d = 0; d < 3; ++d) q[k].p[d] = pt[d], q[k].n[d] = d == axis ? sgn : 0;
            q[k++].c = c[i];
          }
          s3::triangle(q[0], q[1], q[2]);
          s3::triangle(q[0], q[2], q[3]);
        }
    }
  } else if (inc != 0) {
    for (int i = 0; i < n; i += std::abs(inc))
      if (shown[i] && finite(p[i])) s3::marker3d(st.curve.marker, p[i], c[i]);
  }
  s3::end();
}

void crvt3d(const float *x, const float *y, const float *z, const float *r, const int *ic, int n) {
  mv_tracef("crvt3d(xray=%s, yray=%s, zray=%s, rray=%s, icray=%s, n=%d)", mv_tarr(n, "floats").c_str(),
            mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(),
            mv_tarr(n, "ints").c_str(), n);
  if (!arrays_ok("crvt3d", n, {x, y, z, r, ic}, 2)) return;
  for (int i = 0; i < n; ++i)
    if (!finite(V3{x[i], y[i], z[i]}) || !(r[i] >= 0) || !std::isfinite(r[i]) || ic[i] < 0 || ic[i] > 255) {
      mv_warn("crvt3d", "point %d: coordinates must be finite, the radius non-negative, the colour 0..255", i + 1);
      return;
    }
  if (!s3::begin("crvt3d")) return;
  // a tube of radius r (units of the X axis) around the curve, frames carried along it
  const Space3D &sp = mirval_state().space;
  double k = sp.box[0] / (sp.range[0].e - sp.range[0].a);
  std::vector<V3> p;
  std::vector<int> idx;
  for (int i = 0; i < n; ++i) {
    V3 q = s3::user_to_box({x[i], y[i], z[i]});
    if (!p.empty()) {
      V3 d = q - p.back();
      if (!(s3::dot(d, d) > 1e-18)) continue;
    }
    p.push_back(q), idx.push_back(i);
  }
  if (p.size() < 2) {
    s3::end();
    return;
  }
  const int m = 12;
  std::vector<std::vector<Vtx3>> rings;
  V3 t0 = s3::unit(p[1] - p[0]);
  V3 ref = std::fabs(t0.z) < 0.9 ? V3{0, 0, 1} : V3{1, 0, 0};
  V3 u = s3::unit(s3::cross(ref, t0));
  for (size_t i = 0; i < p.size(); ++i) {
    V3 t = i == 0 ? t0 : i + 1 == p.size() ? s3::unit(p[i] - p[i - 1]) : s3::unit(p[i + 1] - p[i - 1]);
    u = s3::unit(u - t * s3::dot(u, t));  // carried along without twisting
    V3 v = s3::cross(t, u);
    double rad = r[idx[i]] * std::fabs(k);
    Rgb c = table_rgb(ic[idx[i]]);
    std::vector<Vtx3> ring;
    for (int j = 0; j <= m; ++j) {
      double a = 2 * M_PI * j / m;
      V3 nrm = u * std::cos(a) + v * std::sin(a), q = p[i] + nrm * rad;
      Vtx3 vx;
      vx.p[0] = q.x, vx.p[1] = q.y, vx.p[2] = q.z;
      vx.n[0] = nrm.x, vx.n[1] = nrm.y, vx.n[2] = nrm.z;
      vx.c = c;
      ring.push_back(vx);
    }
    rings.push_back(ring);
  }
  for (size_t i = 0; i + 1 < rings.size(); ++i)
    for (int j = 0; j < m; ++j) {
      s3::triangle(rings[i][j], rings[i + 1][j], rings[i + 1][j + 1]);
      s3::triangle(rings[i][j], rings[i + 1][j + 1], rings[i][j + 1]);
    }
  s3::end();
}

void vecf3d(const float *xv, const float *yv, const float *zv, const float *xp, const float *yp, const float *zp, int n,
            int ivec) {
  mv_tracef("vecf3d(xv=%s, yv=%s, zv=%s, xp=%s, yp=%s, zp=%s, n=%d, ivec=%d)", mv_tarr(n, "floats").c_str(),
            mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(),
            mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), n, ivec);
  if (!arrays_ok("vecf3d", n, {xv, yv, zv, xp, yp, zp}) || !s3::begin("vecf3d")) return;
  Rgb c = pen_rgb();
  for (int i = 0; i < n; ++i)
    s3::arrow3d(s3::user_to_box({xp[i], yp[i], zp[i]}),
                s3::user_to_box({double(xp[i]) + xv[i], double(yp[i]) + yv[i], double(zp[i]) + zv[i]}), c,
                line_width(), ivec);
  s3::end();
}

void field3d(const float *x1, const float *y1, const float *z1, const float *x2, const float *y2, const float *z2,
             int n, int ivec) {
  mv_tracef("field3d(x1ray=%s, y1ray=%s, z1ray=%s, x2ray=%s, y2ray=%s, z2ray=%s, n=%d, ivec=%d)",
            mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(),
            mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), n, ivec);
  if (!arrays_ok("field3d", n, {x1, y1, z1, x2, y2, z2}) || !s3::begin("field3d")) return;
  Rgb c = pen_rgb();
  for (int i = 0; i < n; ++i)
    s3::arrow3d(s3::user_to_box({x1[i], y1[i], z1[i]}), s3::user_to_box({x2[i], y2[i], z2[i]}), c, line_width(), ivec);
  s3::end();
}

void vecmat3d(const float *xv, const float *yv, const float *zv, int nx, int ny, int nz, const float *xp,
              const float *yp, const float *zp, int ivec) {
  mv_tracef("vecmat3d(xv=%s, yv=%s, zv=%s, nx=%d, ny=%d, nz=%d, xp=%s, yp=%s, zp=%s, ivec=%d)",
            mv_tarr(nx * ny * nz, "floats").c_str(), mv_tarr(nx * ny * nz, "floats").c_str(),
            mv_tarr(nx * ny * nz, "floats").c_str(), nx, ny, nz, mv_tarr(nx, "floats").c_str(),
            mv_tarr(ny, "floats").c_str(), mv_tarr(nz, "floats").c_str(), ivec);
  if (!field_ok("vecmat3d", xv, yv, zv, nx, ny, nz, xp, yp, zp) || !s3::begin("vecmat3d")) return;
  // scaled so that the longest vector spans the smallest grid cell (in box units)
  long total = long(nx) * ny * nz;
  double longest = 0;
  for (long i = 0; i < total; ++i) {
    double s = std::sqrt(double(xv[i]) * xv[i] + double(yv[i]) * yv[i] + double(zv[i]) * zv[i]);
    if (std::isfinite(s)) longest = std::max(longest, s);
  }
  double cell = INFINITY;
  auto least = [&](const float *c, int n) {
    for (int i = 0; i + 1 < n; ++i) cell = std::min(cell, double(c[i + 1] - c[i]));
  };
  least(xp, nx), least(yp, ny), least(zp, nz);
  double k = longest > 0 ? cell / longest : 0;
  Rgb c = pen_rgb();
  for (int i = 0; i < nx; ++i)
    for (int j = 0; j < ny; ++j)
      for (int l = 0; l < nz; ++l) {
        long m = (long(i) * ny + j) * nz + l;
        V3 a{xp[i], yp[j], zp[l]};
        V3 b = a + V3{xv[m], yv[m], zv[m]} * k;
        s3::arrow3d(s3::user_to_box(a), s3::user_to_box(b), c, line_width(), ivec);
      }
  s3::end();
}

void stmpts3d(const float *xv, const float *yv, const float *zv, int nx, int ny, int nz, const float *xp,
              const float *yp, const float *zp, float x0, float y0, float z0, float *xray, float *yray, float *zray,
              int maxpts, int *npts) {
  mv_tracef("stmpts3d(xv=%s, yv=%s, zv=%s, nx=%d, ny=%d, nz=%d, xp=%s, yp=%s, zp=%s, x0=%g, y0=%g, z0=%g, "
            "xray=%s, yray=%s, zray=%s, maxpts=%d, npts=out)",
            mv_tarr(nx * ny * nz, "floats").c_str(), mv_tarr(nx * ny * nz, "floats").c_str(),
            mv_tarr(nx * ny * nz, "floats").c_str(), nx, ny, nz, mv_tarr(nx, "floats").c_str(),
            mv_tarr(ny, "floats").c_str(), mv_tarr(nz, "floats").c_str(), (double)x0, (double)y0, (double)z0,
            mv_tarr(maxpts, "floats out").c_str(), mv_tarr(maxpts, "floats out").c_str(),
            mv_tarr(maxpts, "floats out").c_str(), maxpts);
  if (npts) *npts = 0;
  if (!xray || !yray || !zray || !npts || maxpts < 1) {
    mv_warn("stmpts3d", "the output arrays need room for at least 1 point (maxpts = %d)", maxpts);
    return;
  }
  if (!field_ok("stmpts3d", xv, yv, zv, nx, ny, nz, xp, yp, zp)) return;
  Field f{xv, yv, zv, xp, yp, zp, nx, ny, nz};
  std::vector<V3> line = trace(f, {x0, y0, z0}, 1, size_t(maxpts));
  for (size_t i = 0; i < line.size(); ++i) xray[i] = float(line[i].x), yray[i] = float(line[i].y), zray[i] = float(line[i].z);
  *npts = int(line.size());
}

void stream3d(const float *xv, const float *yv, const float *zv, int nx, int ny, int nz, const float *xp,
              const float *yp, const float *zp, const float *xs, const float *ys, const float *zs, int n) {
  mv_tracef("stream3d(xv=%s, yv=%s, zv=%s, nx=%d, ny=%d, nz=%d, xp=%s, yp=%s, zp=%s, xs=%s, ys=%s, zs=%s, n=%d)",
            mv_tarr(nx * ny * nz, "floats").c_str(), mv_tarr(nx * ny * nz, "floats").c_str(),
            mv_tarr(nx * ny * nz, "floats").c_str(), nx, ny, nz, mv_tarr(nx, "floats").c_str(),
            mv_tarr(ny, "floats").c_str(), mv_tarr(nz, "floats").c_str(), mv_tarr(n, "floats").c_str(),
            mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), n);
  if (!field_ok("stream3d", xv, yv, zv, nx, ny, nz, xp, yp, zp)) return;
  if (!arrays_ok("stream3d", n, {xs, ys, zs}) || !s3::begin("stream3d")) return;
  Field f{xv, yv, zv, xp, yp, zp, nx, ny, nz};
  Rgb c = pen_rgb();
  size_t most = size_t(20) * (nx + ny + nz) + 200;
  for (int s = 0; s < n; ++s) {
    V3 start{xs[s], ys[s], zs[s]};
    if (!finite(start)) continue;
    for (int dir : {1, -1}) {
      std::vector<V3> line = trace(f, start, dir, most);
      std::vector<V3> box(line.size());
      for (size_t i = 0; i < line.size(); ++i) box[i] = s3::user_to_box(line[i]);
      s3::polyline3d(box, {c}, line_width());
      if (dir == 1 && box.size() > 8) {  // an arrow head half way shows the direction
        size_t h = box.size() / 2;
        V3 d = box[h + 1] - box[h - 1];
        double len = std::sqrt(s3::dot(d, d));
        if (len > 0) s3::arrow3d(box[h] - s3::unit(d) * 0.06, box[h] + s3::unit(d) * 0.06, c, line_width(), 1);
      }
    }
  }
  s3::end();
}

void setres3d(float x, float y, float z) {
  mv_tracef("setres3d(%g, %g, %g)", (double)x, (double)y, (double)z);
  if (!(x > 0) || !(y > 0) || !(z > 0) || !std::isfinite(x + y + z)) {
    mv_warn("setres3d", "sizes must be positive (got %g, %g, %g)", (double)x, (double)y, (double)z);
    return;
  }
  SolidState &s = sol();
  s.res3d[0] = x, s.res3d[1] = y, s.res3d[2] = z;
  s.autres3d[0] = s.autres3d[1] = s.autres3d[2] = 0;
}

void autres3d(int nx, int ny, int nz) {
  mv_tracef("autres3d(%d, %d, %d)", nx, ny, nz);
  if (!in_range("autres3d", "number of cells", nx, 1, 10000) || !in_range("autres3d", "number of cells", ny, 1, 10000) ||
      !in_range("autres3d", "number of cells", nz, 1, 10000))
    return;
  SolidState &s = sol();
  s.autres3d[0] = nx, s.autres3d[1] = ny, s.autres3d[2] = nz;
  s.res3d[0] = s.res3d[1] = s.res3d[2] = 0;
}

}  // extern "C"
