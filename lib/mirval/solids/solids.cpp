// Solids in user coordinates: spheres, cones, cylinders, disks, pikes, platonic solids,
// pyramids, cuboids, tori, tubes and triangles; user polygons with colours and normals; 3-D
// bars; recording of what is drawn into a polygon file (PLYINI, PLYFIN).
#include "core/keywords.h"
#include "core/messages.h"
#include "core/trace.h"
#include "draw/colours.h"
#include "draw/draw.h"
#include "mirval.h"
#include "solids/render3d.h"

#include <cmath>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>

using s3::V3;

namespace {

SolidState &sol() { return mirval_state().solid; }

bool finite_all(const char *routine, std::initializer_list<double> v) {
  for (double x : v)
    if (!std::isfinite(x) || std::fabs(x) > 1e30) {
      mv_warn(routine, "the values must be finite (got %g)", x);
      return false;
    }
  return true;
}

bool positive(const char *routine, const char *what, double v) {
  if (v > 0 && std::isfinite(v)) return true;
  mv_warn(routine, "%s must be positive (got %g)", what, v);
  return false;
}

// ROT3D: the solid's own rotation about its reference point, as a matrix.
void own_rotation(double r[3][3]) {
  const double *a = sol().rot;
  double m[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
  for (int axis = 0; axis < 3; ++axis) {
    double t = a[axis] * M_PI / 180, c = std::cos(t), s = std::sin(t);
    int i = (axis + 1) % 3, j = (axis + 2) % 3;
    double q[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    q[i][i] = c, q[i][j] = -s, q[j][i] = s, q[j][j] = c;
    double o[3][3];
    for (int p = 0; p < 3; ++p)
      for (int k = 0; k < 3; ++k) o[p][k] = q[p][0] * m[0][k] + q[p][1] * m[1][k] + q[p][2] * m[2][k];
    for (int p = 0; p < 3; ++p)
      for (int k = 0; k < 3; ++k) m[p][k] = o[p][k];
  }
  for (int p = 0; p < 3; ++p)
    for (int k = 0; k < 3; ++k) r[p][k] = m[p][k];
}

// A local frame: points and normals given relative to 'origin' along the axes ex, ey, ez
// (user units), turned by ROT3D, then mapped through TR3 and onto the box.
struct Frame {
  V3 origin, ex{1, 0, 0}, ey{0, 1, 0}, ez{0, 0, 1};
  double r[3][3];
  Frame(V3 o) : origin(o) { own_rotation(r); }
  V3 rot(V3 a) const {
    return {r[0][0] * a.x + r[0][1] * a.y + r[0][2] * a.z, r[1][0] * a.x + r[1][1] * a.y + r[1][2] * a.z,
            r[2][0] * a.x + r[2][1] * a.y + r[2][2] * a.z};
  }
  V3 dir(V3 a) const { return rot(ex * a.x + ey * a.y + ez * a.z); }
  Vtx3 vertex(V3 local, V3 normal, Rgb c) const {
    return s3::vertex(s3::user_to_box(origin + dir(local)), s3::normal_to_box(dir(normal)), c);
  }
};

// Frame whose ez runs from a to b.
Frame along(V3 a, V3 b) {
  Frame f(a);
  V3 d = s3::unit(b - a);
  V3 t = std::fabs(d.z) < 0.9 ? V3{0, 0, 1} : V3{1, 0, 0};
  f.ex = s3::unit(s3::cross(t, d));
  f.ey = s3::cross(d, f.ex);
  f.ez = d;
  return f;
}

// A surface of (nu + 1) x (nv + 1) points from f(u, v) in 0..1 with its normals; closed: it
// encloses a solid on its own.
void grid_mesh(const Frame &fr, int nu, int nv, const std::function<void(double, double, V3 &, V3 &)> &f, Rgb c,
               bool closed = false) {
  std::vector<V3> pts, nrm;
  pts.reserve(size_t(nu + 1) * (nv + 1)), nrm.reserve(pts.capacity());
  for (int j = 0; j <= nv; ++j)
    for (int i = 0; i <= nu; ++i) {
      V3 p, n;
      f(double(i) / nu, double(j) / nv, p, n);
      Vtx3 x = fr.vertex(p, n, c);
      pts.push_back({x.p[0], x.p[1], x.p[2]}), nrm.push_back({x.n[0], x.n[1], x.n[2]});
    }
  auto at = [&](int i, int j) { return j * (nu + 1) + i; };
  std::vector<std::array<int, 3>> tris;
  tris.reserve(size_t(nu) * nv * 2);
  for (int j = 0; j < nv; ++j)
    for (int i = 0; i < nu; ++i) {
      tris.push_back({at(i, j), at(i + 1, j), at(i + 1, j + 1)});
      tris.push_back({at(i, j), at(i + 1, j + 1), at(i, j + 1)});
    }
  s3::mesh({pts, nrm, {c}}, tris, true, closed);
}

// A flat polygon (convex) in the frame, one normal.
void flat(const Frame &fr, const std::vector<V3> &poly, V3 n, Rgb c) {
  if (poly.size() < 3) return;
  Vtx3 a = fr.vertex(poly[0], n, c);
  for (size_t i = 1; i + 1 < poly.size(); ++i) s3::triangle(a, fr.vertex(poly[i], n, c), fr.vertex(poly[i + 1], n, c));
}

// A ring (disk with a hole when r1 > 0) at height z facing 'up' (+1) or down (-1).
void ring(const Frame &fr, double r1, double r2, double z, int up, int n, int m, Rgb c) {
  grid_mesh(
      fr, n, m,
      [&](double u, double v, V3 &p, V3 &nn) {
        double a = 2 * M_PI * u * up, r = r2 + (r1 - r2) * v;
        p = {r * std::cos(a), r * std::sin(a), z};
        nn = {0, 0, double(up)};
      },
      c);
}

// A side wall of revolution from radius ra at height za to rb at zb.
void wall(const Frame &fr, double ra, double za, double rb, double zb, int n, int m, Rgb c) {
  double slope = std::atan2(ra - rb, zb - za);
  grid_mesh(
      fr, n, m,
      [&](double u, double v, V3 &p, V3 &nn) {
        double a = 2 * M_PI * u, r = ra + (rb - ra) * v, z = za + (zb - za) * v;
        p = {r * std::cos(a), r * std::sin(a), z};
        nn = {std::cos(a) * std::cos(slope), std::sin(a) * std::cos(slope), std::sin(slope)};
      },
      c);
}

bool counts(const char *routine, int n, int m, int nmin = 3) {
  if (n < nmin || n > 1000 || m < 1 || m > 1000) {
    mv_warn(routine, "resolution %d x %d out of range (%d..1000 and 1..1000)", n, m, nmin);
    return false;
  }
  return true;
}

// TUBE3D and PIKE3D: checks a solid from a to b of radius r and opens the drawing; len: how far
// apart the ends are.
bool between(const char *routine, V3 a, V3 b, float r, int n, int m, double &len) {
  mv_tracef("%s(%g, %g, %g, %g, %g, %g, %g, %d, %d)", routine, a.x, a.y, a.z, b.x, b.y, b.z, (double)r, n, m);
  if (!finite_all(routine, {a.x, a.y, a.z, b.x, b.y, b.z}) || !positive(routine, "radius", r) ||
      !counts(routine, n, m))
    return false;
  len = std::sqrt(s3::dot(b - a, b - a));
  if (!(len > 0)) {
    mv_warn(routine, "the two end points are the same");
    return false;
  }
  return s3::begin(routine);
}

}  // namespace

extern "C" {

void sphe3d(float xm, float ym, float zm, float r, int n, int m) {
  mv_tracef("sphe3d(%g, %g, %g, %g, %d, %d)", (double)xm, (double)ym, (double)zm, (double)r, n, m);
  if (!finite_all("sphe3d", {xm, ym, zm}) || !positive("sphe3d", "radius", r) || !counts("sphe3d", n, m, 3)) return;
  if (!s3::begin("sphe3d")) return;
  Frame fr({xm, ym, zm});
  grid_mesh(
      fr, n, std::max(2, m),
      [&](double u, double v, V3 &p, V3 &nn) {
        double a = 2 * M_PI * u, b = M_PI * (v - 0.5);
        nn = {std::cos(b) * std::cos(a), std::cos(b) * std::sin(a), std::sin(b)};
        p = nn * r;
      },
      pen_rgb(), true);
  s3::end();
}

void cone3d(float xm, float ym, float zm, float r, float h1, float h2, int n, int m) {
  mv_tracef("cone3d(%g, %g, %g, %g, %g, %g, %d, %d)", (double)xm, (double)ym, (double)zm, (double)r, (double)h1,
            (double)h2, n, m);
  if (!finite_all("cone3d", {xm, ym, zm}) || !positive("cone3d", "radius", r) || !positive("cone3d", "height", h1) ||
      !counts("cone3d", n, m))
    return;
  if (!(h2 > 0) || h2 > h1) h2 = h1;  // no cut, or cut beyond the tip: the whole cone
  if (!s3::begin("cone3d")) return;
  Frame fr({xm, ym, zm});
  Rgb c = pen_rgb();
  double rt = r * (1 - h2 / h1);
  wall(fr, r, 0, rt, h2, n, m, c);
  ring(fr, 0, r, 0, -1, n, 1, c);
  if (rt > 0) ring(fr, 0, rt, h2, 1, n, 1, c);
  s3::end();
}

void cyli3d(float xm, float ym, float zm, float r, float h, int n, int m) {
  mv_tracef("cyli3d(%g, %g, %g, %g, %g, %d, %d)", (double)xm, (double)ym, (double)zm, (double)r, (double)h, n, m);
  if (!finite_all("cyli3d", {xm, ym, zm}) || !positive("cyli3d", "radius", r) || !positive("cyli3d", "height", h) ||
      !counts("cyli3d", n, m))
    return;
  if (!s3::begin("cyli3d")) return;
  Frame fr({xm, ym, zm});
  Rgb c = pen_rgb();
  wall(fr, r, 0, r, h, n, m, c);
  ring(fr, 0, r, 0, -1, n, 1, c);
  ring(fr, 0, r, h, 1, n, 1, c);
  s3::end();
}

void disk3d(float xm, float ym, float zm, float r1, float r2, int n, int m) {
  mv_tracef("disk3d(%g, %g, %g, %g, %g, %d, %d)", (double)xm, (double)ym, (double)zm, (double)r1, (double)r2, n, m);
  if (!finite_all("disk3d", {xm, ym, zm}) || !positive("disk3d", "outer radius", r2) || !counts("disk3d", n, m))
    return;
  if (!(r1 >= 0) || r1 >= r2) {
    mv_warn("disk3d", "inner radius %g must lie in 0..%g", (double)r1, (double)r2);
    return;
  }
  if (!s3::begin("disk3d")) return;
  ring(Frame({xm, ym, zm}), r1, r2, 0, 1, n, m, pen_rgb());
  s3::end();
}

void tube3d(float x1, float y1, float z1, float x2, float y2, float z2, float r, int n, int m) {
  V3 a{x1, y1, z1}, b{x2, y2, z2};
  double len;
  if (!between("tube3d", a, b, r, n, m, len)) return;
  Frame fr = along(a, b);
  Rgb c = pen_rgb();
  wall(fr, r, 0, r, len, n, m, c);
  ring(fr, 0, r, 0, -1, n, 1, c);
  ring(fr, 0, r, len, 1, n, 1, c);
  s3::end();
}

void pike3d(float x1, float y1, float z1, float x2, float y2, float z2, float r, int n, int m) {
  V3 a{x1, y1, z1}, b{x2, y2, z2};
  double len;
  if (!between("pike3d", a, b, r, n, m, len)) return;
  Frame fr = along(a, b);
  Rgb c = pen_rgb();
  double head = std::min(len * 0.35, 5.0 * r), shaft = len - head;  // the head: a cone twice as wide
  wall(fr, r, 0, r, shaft, n, m, c);
  ring(fr, 0, r, 0, -1, n, 1, c);
  ring(fr, r, 2 * r, shaft, -1, n, 1, c);
  wall(fr, 2 * r, shaft, 0, len, n, 1, c);
  s3::end();
}

void torus3d(float xm, float ym, float zm, float r1, float r2, float h, float a1, float a2, int n, int m) {
  mv_tracef("torus3d(%g, %g, %g, %g, %g, %g, %g, %g, %d, %d)", (double)xm, (double)ym, (double)zm, (double)r1,
            (double)r2, (double)h, (double)a1, (double)a2, n, m);
  if (!finite_all("torus3d", {xm, ym, zm, a1, a2}) || !positive("torus3d", "outer radius", r2) ||
      !counts("torus3d", n, m, 3))
    return;
  if (!(r1 >= 0) || r1 >= r2) {
    mv_warn("torus3d", "inner radius %g must lie in 0..%g", (double)r1, (double)r2);
    return;
  }
  if (!(h > 0)) h = r2 - r1;  // a round tube
  if (a1 == a2) a1 = 0, a2 = 360;
  if (!s3::begin("torus3d")) return;
  double rc = (r1 + r2) / 2, rt = (r2 - r1) / 2, hz = h / 2;
  double b1 = a1 * M_PI / 180, b2 = a2 * M_PI / 180;
  grid_mesh(
      Frame({xm, ym, zm}), std::max(3, m), n,
      [&](double u, double v, V3 &p, V3 &nn) {
        double t = 2 * M_PI * u, a = b1 + (b2 - b1) * v;
        double rr = rc + rt * std::cos(t);
        p = {rr * std::cos(a), rr * std::sin(a), hz * std::sin(t)};
        V3 q = s3::unit({std::cos(t) / rt, 0, std::sin(t) / hz});
        nn = {q.x * std::cos(a), q.x * std::sin(a), q.z};
        if (b2 < b1) nn = nn * -1;
      },
      pen_rgb());
  s3::end();
}

void quad3d(float xm, float ym, float zm, float xl, float yl, float zl) {
  mv_tracef("quad3d(%g, %g, %g, %g, %g, %g)", (double)xm, (double)ym, (double)zm, (double)xl, (double)yl, (double)zl);
  if (!finite_all("quad3d", {xm, ym, zm}) || !positive("quad3d", "length", xl) || !positive("quad3d", "length", yl) ||
      !positive("quad3d", "length", zl))
    return;
  if (!s3::begin("quad3d")) return;
  Frame fr({xm, ym, zm});
  Rgb c = pen_rgb();
  double h[3] = {xl / 2.0, yl / 2.0, zl / 2.0};
  for (int axis = 0; axis < 3; ++axis)
    for (int s : {-1, 1}) {
      int i = (axis + 1) % 3, j = (axis + 2) % 3;
      std::vector<V3> q;
      for (auto [a, b] : {std::pair{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}) {
        double p[3];
        p[axis] = s * h[axis], p[i] = a * h[i], p[j] = s * b * h[j];
        q.push_back({p[0], p[1], p[2]});
      }
      double n[3] = {0, 0, 0};
      n[axis] = s;
      flat(fr, q, {n[0], n[1], n[2]}, c);
    }
  s3::end();
}

void pyra3d(float xm, float ym, float zm, float xl, float h1, float h2, int n) {
  mv_tracef("pyra3d(%g, %g, %g, %g, %g, %g, %d)", (double)xm, (double)ym, (double)zm, (double)xl, (double)h1,
            (double)h2, n);
  if (!finite_all("pyra3d", {xm, ym, zm}) || !positive("pyra3d", "base size", xl) ||
      !positive("pyra3d", "height", h1) || !counts("pyra3d", n, 1))
    return;
  if (n > 100) n = 100;
  if (!(h2 > 0) || h2 > h1) h2 = h1;
  if (!s3::begin("pyra3d")) return;
  Frame fr({xm, ym, zm});
  Rgb c = pen_rgb();
  double r = xl / (2 * std::sin(M_PI / n));  // base: a regular polygon with sides xl
  double rt = r * (1 - h2 / h1);
  std::vector<V3> base, top;
  for (int k = 0; k < n; ++k) {
    double a = 2 * M_PI * k / n;
    base.push_back({r * std::cos(a), r * std::sin(a), 0});
    top.push_back({rt * std::cos(a), rt * std::sin(a), h2});
  }
  std::vector<V3> down(base.rbegin(), base.rend());
  flat(fr, down, {0, 0, -1}, c);
  if (rt > 0) flat(fr, top, {0, 0, 1}, c);
  for (int k = 0; k < n; ++k) {
    int k2 = (k + 1) % n;
    V3 n1 = s3::unit(s3::cross(base[k2] - base[k], top[k] - base[k]));
    if (rt > 0) flat(fr, {base[k], base[k2], top[k2], top[k]}, n1, c);
    else flat(fr, {base[k], base[k2], {0, 0, h1}}, n1, c);
  }
  s3::end();
}

void plat3d(float xm, float ym, float zm, float xl, const char *copt) {
  mv_tracef("plat3d(%g, %g, %g, %g, %s)", (double)xm, (double)ym, (double)zm, (double)xl, mv_tstr(copt).c_str());
  if (!finite_all("plat3d", {xm, ym, zm}) || !positive("plat3d", "size", xl)) return;
  const double g = (1 + std::sqrt(5.0)) / 2;
  std::vector<V3> v;
  if (same(copt, "TETRA")) v = {{1, 1, 1}, {1, -1, -1}, {-1, 1, -1}, {-1, -1, 1}};
  else if (same(copt, "HEXA") || same(copt, "CUBE")) {
    for (int k = 0; k < 8; ++k) v.push_back({k & 1 ? 1.0 : -1.0, k & 2 ? 1.0 : -1.0, k & 4 ? 1.0 : -1.0});
  } else if (same(copt, "OCTA")) v = {{1, 0, 0}, {-1, 0, 0}, {0, 1, 0}, {0, -1, 0}, {0, 0, 1}, {0, 0, -1}};
  else if (same(copt, "ICOS")) {
    for (int a : {-1, 1})
      for (int b : {-1, 1}) {
        v.push_back({0, double(a), b * g});
        v.push_back({double(a), b * g, 0});
        v.push_back({a * g, 0, double(b)});
      }
  } else if (same(copt, "DODE")) {
    for (int k = 0; k < 8; ++k) v.push_back({k & 1 ? 1.0 : -1.0, k & 2 ? 1.0 : -1.0, k & 4 ? 1.0 : -1.0});
    for (int a : {-1, 1})
      for (int b : {-1, 1}) {
        v.push_back({0, a / g, b * g});
        v.push_back({a / g, b * g, 0});
        v.push_back({a * g, 0, b / g});
      }
  } else {
    mv_warn("plat3d", "unknown solid %s (TETRA, HEXA, OCTA, DODE or ICOS)", mv_tstr(copt).c_str());
    return;
  }
  if (!s3::begin("plat3d")) return;
  // the faces: the convex hull's planes through at least three corners
  double rmax = 0;
  for (V3 p : v) rmax = std::max(rmax, std::sqrt(s3::dot(p, p)));
  double k = xl / 2 / rmax;  // xl: the diameter of the circumscribed sphere
  Frame fr({xm, ym, zm});
  Rgb c = pen_rgb();
  size_t nv = v.size();
  std::vector<std::vector<int>> faces;
  for (size_t a = 0; a < nv; ++a)
    for (size_t b = a + 1; b < nv; ++b)
      for (size_t cc = b + 1; cc < nv; ++cc) {
        V3 n = s3::cross(v[b] - v[a], v[cc] - v[a]);
        if (s3::dot(n, n) < 1e-9) continue;
        n = s3::unit(n);
        double d = s3::dot(n, v[a]);
        if (d < 0) n = n * -1, d = -d;
        bool hull = true;
        std::vector<int> on;
        for (size_t q = 0; q < nv && hull; ++q) {
          double e = s3::dot(n, v[q]) - d;
          if (e > 1e-6) hull = false;
          else if (e > -1e-6) on.push_back(int(q));
        }
        if (!hull || on[0] != int(a) || on[1] != int(b) || on[2] != int(cc)) continue;  // each face once
        // order the face's corners around its centre
        V3 m{0, 0, 0};
        for (int q : on) m = m + v[q] * (1.0 / on.size());
        V3 e1 = s3::unit(v[on[0]] - m), e2 = s3::cross(n, e1);
        std::sort(on.begin(), on.end(), [&](int p, int q) {
          return std::atan2(s3::dot(v[p] - m, e2), s3::dot(v[p] - m, e1)) <
                 std::atan2(s3::dot(v[q] - m, e2), s3::dot(v[q] - m, e1));
        });
        std::vector<V3> poly;
        for (int q : on) poly.push_back(v[q] * k);
        flat(fr, poly, n, c);
      }
  s3::end();
}

void tria3d(const float *x, const float *y, const float *z) {
  mv_tracef("tria3d(xray=%s, yray=%s, zray=%s)", mv_tarr(3, "floats").c_str(), mv_tarr(3, "floats").c_str(),
            mv_tarr(3, "floats").c_str());
  if (!x || !y || !z) {
    mv_warn("tria3d", "three corners are needed");
    return;
  }
  if (!finite_all("tria3d", {x[0], x[1], x[2], y[0], y[1], y[2], z[0], z[1], z[2]}) || !s3::begin("tria3d")) return;
  Frame fr({0, 0, 0});
  V3 p[3] = {{x[0], y[0], z[0]}, {x[1], y[1], z[1]}, {x[2], y[2], z[2]}};
  flat(fr, {p[0], p[1], p[2]}, s3::unit(s3::cross(p[1] - p[0], p[2] - p[0])), pen_rgb());
  s3::end();
}

}  // extern "C"

namespace {

// User polygons: 'POLY' one convex polygon, 'TRI' triangles, 'QUAD' quadrilaterals, 'STRIP'
// a triangle strip, 'FAN' a triangle fan, 'LINE' the outline only.
void vertices(const char *routine, const float *x, const float *y, const float *z, const int *ic, const float *xn,
              const float *yn, const float *zn, int n, const char *copt) {
  if (!x || !y || !z || n < 1) {
    mv_warn(routine, "the number of points must be at least 1 (got %d)", n);
    return;
  }
  int kind = same(copt, "POLY")    ? 0
             : same(copt, "TRI")   ? 1
             : same(copt, "QUAD")  ? 2
             : same(copt, "STRIP") ? 3
             : same(copt, "FAN")   ? 4
             : same(copt, "LINE")  ? 5
                                   : -1;
  if (kind < 0) {
    mv_warn(routine, "unknown option %s (POLY, TRI, QUAD, STRIP, FAN or LINE)", mv_tstr(copt).c_str());
    return;
  }
  for (int k = 0; k < n; ++k) {
    if (!std::isfinite(x[k]) || !std::isfinite(y[k]) || !std::isfinite(z[k])) {
      mv_warn(routine, "point %d is not finite", k + 1);
      return;
    }
    if (ic && (ic[k] < 0 || ic[k] > 255)) {
      mv_warn(routine, "colour %d of point %d out of range 0..255", ic[k], k + 1);
      return;
    }
  }
  if (!s3::begin(routine)) return;
  Rgb pen = pen_rgb();
  std::vector<V3> bp(n);
  for (int k = 0; k < n; ++k) bp[k] = s3::user_to_box({x[k], y[k], z[k]});
  auto vtx = [&](int k, V3 face) {
    return s3::vertex(bp[k], xn ? s3::normal_to_box({xn[k], yn[k], zn[k]}) : face, ic ? table_rgb(ic[k]) : pen);
  };
  auto tri = [&](int a, int b, int c) {
    V3 f = s3::unit(s3::cross(bp[b] - bp[a], bp[c] - bp[a]));
    s3::triangle(vtx(a, f), vtx(b, f), vtx(c, f));
  };
  double width = mirval_state().pen.width;
  switch (kind) {
    case 0:
    case 4:
      for (int k = 1; k + 1 < n; ++k) tri(0, k, k + 1);
      break;
    case 1:
      for (int k = 0; k + 2 < n; k += 3) tri(k, k + 1, k + 2);
      break;
    case 2:
      for (int k = 0; k + 3 < n; k += 4) tri(k, k + 1, k + 2), tri(k, k + 2, k + 3);
      break;
    case 3:
      for (int k = 0; k + 2 < n; ++k) k % 2 ? tri(k + 1, k, k + 2) : tri(k, k + 1, k + 2);
      break;
    default:
      for (int k = 0; k < n; ++k) s3::segment(bp[k], bp[(k + 1) % n], ic ? table_rgb(ic[k]) : pen, width);
  }
  s3::end();
}

}  // namespace

extern "C" {

void vtx3d(const float *x, const float *y, const float *z, int n, const char *copt) {
  mv_tracef("vtx3d(xray=%s, yray=%s, zray=%s, n=%d, copt=%s)", mv_tarr(n, "floats").c_str(),
            mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), n, mv_tstr(copt).c_str());
  vertices("vtx3d", x, y, z, nullptr, nullptr, nullptr, nullptr, n, copt);
}

void vtxc3d(const float *x, const float *y, const float *z, const int *ic, int n, const char *copt) {
  mv_tracef("vtxc3d(xray=%s, yray=%s, zray=%s, icray=%s, n=%d, copt=%s)", mv_tarr(n, "floats").c_str(),
            mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), mv_tarr(n, "ints").c_str(), n,
            mv_tstr(copt).c_str());
  if (!ic) {
    mv_warn("vtxc3d", "the colours are missing");
    return;
  }
  vertices("vtxc3d", x, y, z, ic, nullptr, nullptr, nullptr, n, copt);
}

void vtxn3d(const float *x, const float *y, const float *z, const float *xn, const float *yn, const float *zn, int n,
            const char *copt) {
  mv_tracef("vtxn3d(xray=%s, yray=%s, zray=%s, xn=%s, yn=%s, zn=%s, n=%d, copt=%s)", mv_tarr(n, "floats").c_str(),
            mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(),
            mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), n, mv_tstr(copt).c_str());
  if (!xn || !yn || !zn) {
    mv_warn("vtxn3d", "the normals are missing");
    return;
  }
  vertices("vtxn3d", x, y, z, nullptr, xn, yn, zn, n, copt);
}

void bars3d(const float *x, const float *y, const float *z1, const float *z2, const float *xw, const float *yw,
            const int *ic, int n) {
  mv_tracef("bars3d(xray=%s, yray=%s, z1ray=%s, z2ray=%s, xwray=%s, ywray=%s, icray=%s, n=%d)",
            mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(),
            mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(),
            mv_tarr(n, "ints").c_str(), n);
  if (!x || !y || !z1 || !z2 || !xw || !yw || !ic || n < 1) {
    mv_warn("bars3d", "the number of bars must be at least 1 (got %d)", n);
    return;
  }
  if (!mv_level("bars3d", 3, 3)) return;
  MirvalState &st = mirval_state();
  PenState saved = st.pen;
  double rot[3] = {st.solid.rot[0], st.solid.rot[1], st.solid.rot[2]};
  st.solid.rot[0] = st.solid.rot[1] = st.solid.rot[2] = 0;
  bool bad = false;
  for (int k = 0; k < n; ++k) {
    double h = std::fabs(double(z2[k]) - z1[k]);
    if (!std::isfinite(x[k] + y[k] + z1[k] + z2[k] + xw[k] + yw[k]) || !(xw[k] > 0) || !(yw[k] > 0)) {
      bad = true;
      continue;
    }
    if (!(h > 0)) continue;  // a bar of height 0 is not there
    if (ic[k] >= 0 && ic[k] <= 255) {
      st.pen.fore = false, st.pen.rgb = table_rgb(ic[k]), st.pen.index = ic[k];
    } else {
      st.pen = saved;
    }
    quad3d(x[k], y[k], float((double(z1[k]) + z2[k]) / 2), xw[k], yw[k], float(h));
  }
  st.pen = saved;
  std::copy(rot, rot + 3, st.solid.rot);
  if (bad) mv_warn("bars3d", "bars with non-finite values or widths not positive were left out");
}

void plyini(const char *copt) {
  mv_tracef("plyini(%s)", mv_tstr(copt).c_str());
  int k = listed_keyword("plyini", "option", copt, {"USER", "ABS"});
  if (k < 0) return;
  SolidState &s = sol();
  s.ply_open = true;
  s.ply_user = k == 0;
  s.ply.clear();
}

void plyfin(const char *cfil, const char *copt) {
  mv_tracef("plyfin(%s, %s)", mv_tstr(cfil).c_str(), mv_tstr(copt).c_str());
  SolidState &s = sol();
  if (!s.ply_open) {
    mv_warn("plyfin", "no polygon recording is open (PLYINI)");
    return;
  }
  if (!cfil || !*cfil) {
    mv_warn("plyfin", "the file name is empty");
    return;
  }
  bool colours = same(copt, "COLOR") || same(copt, "COLOUR");
  if (!colours && !same(copt, "NONE")) {
    mv_warn("plyfin", "unknown option %s (COLOR or NONE)", mv_tstr(copt).c_str());
    return;
  }
  s.ply_open = false;
  FILE *fp = std::fopen(cfil, "w");
  if (!fp) {
    mv_error("plyfin", "cannot open %s for writing", cfil);
    s.ply.clear();
    return;
  }
  std::fprintf(fp, "ply\nformat ascii 1.0\ncomment made by libmirval\nelement vertex %zu\n", s.ply.size() * 3);
  std::fprintf(fp, "property float x\nproperty float y\nproperty float z\n");
  std::fprintf(fp, "property float nx\nproperty float ny\nproperty float nz\n");
  if (colours) std::fprintf(fp, "property uchar red\nproperty uchar green\nproperty uchar blue\n");
  std::fprintf(fp, "element face %zu\nproperty list uchar int vertex_indices\nend_header\n", s.ply.size());
  for (const Tri3 &t : s.ply)
    for (const Vtx3 &v : t.v) {
      double p[3] = {v.p[0], v.p[1], v.p[2]};
      if (s.ply_user)
        for (int k = 0; k < 3; ++k) p[k] = s3::box_to_user(k, p[k]);
      std::fprintf(fp, "%.7g %.7g %.7g %.5g %.5g %.5g", p[0], p[1], p[2], v.n[0], v.n[1], v.n[2]);
      if (colours)
        std::fprintf(fp, " %d %d %d", int(std::lround(v.c.r * 255)), int(std::lround(v.c.g * 255)),
                     int(std::lround(v.c.b * 255)));
      std::fputc('\n', fp);
    }
  for (size_t k = 0; k < s.ply.size(); ++k) std::fprintf(fp, "3 %zu %zu %zu\n", 3 * k, 3 * k + 1, 3 * k + 2);
  if (std::fclose(fp) != 0) mv_error("plyfin", "cannot write %s", cfil);
  s.ply.clear();
}

}  // extern "C"
