// Transformations: coordinates between rectangular, polar, cylindrical and spherical systems
// (TRFCO1, TRFCO2, TRFCO3), resampled matrices (TRFMAT), and a plane transformation of plot
// coordinates built from shifts, scalings and rotations (TRFSHF, TRFSCL, TRFROT, TRFRES)
// and applied to points (TRFREL).
#include "core/keywords.h"
#include "core/messages.h"
#include "core/trace.h"
#include "draw/draw.h"
#include "fields/fields.h"
#include "grids/colour_matrix.h"
#include "mirval.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

constexpr double DEG = M_PI / 180;

// Degrees of an angle, kept exact for the quarter turns that sin and cos miss by rounding.
void sincos_deg(double a, double &s, double &c) {
  double r = std::fmod(a, 360.0);
  if (r < 0) r += 360;
  if (r == 0) s = 0, c = 1;
  else if (r == 90) s = 1, c = 0;
  else if (r == 180) s = 0, c = -1;
  else if (r == 270) s = -1, c = 0;
  else s = std::sin(a * DEG), c = std::cos(a * DEG);
}

}  // namespace

int coord_system(const char *name, int dims) {
  std::string u = upper(name);
  auto is = [&](const char *full) { return u.size() >= 4 && std::strncmp(full, u.c_str(), u.size()) == 0; };
  if (is("RECTANGULAR") || is("CARTESIAN")) return 0;
  if (dims == 2 && is("POLAR")) return 1;
  if (dims == 3 && is("CYLINDRICAL")) return 1;
  if (dims == 3 && is("SPHERICAL")) return 2;
  return -1;
}

// Polar and cylindrical: (radius, angle in degrees[, z]); spherical: (radius, azimuth in
// degrees from the x axis towards y, polar angle in degrees from the z axis).
void to_cartesian(int sys, double a, double b, double c, double &x, double &y, double &z) {
  double s, co;
  switch (sys) {
    case 1:
      sincos_deg(b, s, co);
      x = a * co, y = a * s, z = c;
      break;
    case 2: {
      double st, ct;
      sincos_deg(b, s, co);
      sincos_deg(c, st, ct);
      x = a * st * co, y = a * st * s, z = a * ct;
      break;
    }
    default: x = a, y = b, z = c;
  }
}

void from_cartesian(int sys, double x, double y, double z, double &a, double &b, double &c) {
  switch (sys) {
    case 1:
      a = std::hypot(x, y), b = std::atan2(y, x) / DEG, c = z;
      break;
    case 2:
      a = std::sqrt(x * x + y * y + z * z);
      b = std::atan2(y, x) / DEG;
      c = std::atan2(std::hypot(x, y), z) / DEG;
      break;
    default: a = x, b = y, c = z;
  }
}

std::vector<float> resample(const float *z, int nx, int ny, int nx2, int ny2) {
  std::vector<float> out(size_t(nx2) * ny2);
  for (int i = 0; i < nx2; ++i) {
    double p = nx2 > 1 ? double(i) * (nx - 1) / (nx2 - 1) : 0;
    int i0 = std::min(static_cast<int>(p), std::max(nx - 2, 0));
    double s = nx > 1 ? p - i0 : 0;
    for (int j = 0; j < ny2; ++j) {
      double q = ny2 > 1 ? double(j) * (ny - 1) / (ny2 - 1) : 0;
      int j0 = std::min(static_cast<int>(q), std::max(ny - 2, 0));
      double t = ny > 1 ? q - j0 : 0;
      auto v = [&](int a, int b) { return double(z[long(std::min(a, nx - 1)) * ny + std::min(b, ny - 1)]); };
      double r = (1 - s) * (1 - t) * v(i0, j0) + s * (1 - t) * v(i0 + 1, j0) + (1 - s) * t * v(i0, j0 + 1) +
                 s * t * v(i0 + 1, j0 + 1);
      // a NaN neighbour with no weight leaves no hole
      if (std::isnan(r)) {
        double best = NAN, w = -1;
        double ws[4] = {(1 - s) * (1 - t), s * (1 - t), (1 - s) * t, s * t};
        double vs[4] = {v(i0, j0), v(i0 + 1, j0), v(i0, j0 + 1), v(i0 + 1, j0 + 1)};
        bool hole = false;
        for (int k = 0; k < 4; ++k)
          if (ws[k] > 0 && std::isnan(vs[k])) hole = true;
          else if (ws[k] > w) w = ws[k], best = vs[k];
        r = hole ? NAN : best;
      }
      out[size_t(i) * ny2 + j] = float(r);
    }
  }
  return out;
}

namespace {

#define TARR(n, kind) mv_tarr(n, kind).c_str()

// Composes the current transformation with m (applied after it).
void compose(const double m[6]) {
  double *t = mirval_state().field.trf;
  double r[6] = {m[0] * t[0] + m[1] * t[3], m[0] * t[1] + m[1] * t[4], m[0] * t[2] + m[1] * t[5] + m[2],
                 m[3] * t[0] + m[4] * t[3], m[3] * t[1] + m[4] * t[4], m[3] * t[2] + m[4] * t[5] + m[5]};
  std::copy(r, r + 6, t);
}

// TRFCO2 and TRFCO3: the points from one system of dims dimensions into another, in place;
// z is null in 2-D.
void convert_points(const char *routine, int dims, float *x, float *y, float *z, int n, const char *cfrom,
                    const char *cto) {
  int a = coord_system(cfrom, dims), b = coord_system(cto, dims);
  if (a < 0 || b < 0) {
    mv_warn(routine, "unknown system %s (%s)", mv_tstr(a < 0 ? cfrom : cto).c_str(),
            dims == 2 ? "RECT or POLAR" : "RECT, CYLI or SPHE");
    return;
  }
  if (a == b) return;
  for (int k = 0; k < n; ++k) {
    double cx, cy, cz, p, q, r;
    to_cartesian(a, x[k], y[k], z ? z[k] : 0, cx, cy, cz);
    from_cartesian(b, cx, cy, cz, p, q, r);
    x[k] = float(p), y[k] = float(q);
    if (z) z[k] = float(r);
  }
}

}  // namespace

extern "C" {

void trfco1(float *xray, int n, const char *cfrom, const char *cto) {
  mv_tracef("trfco1(xray=%s, n=%d, cfrom=%s, cto=%s)", TARR(n, "floats"), n, mv_tstr(cfrom).c_str(), mv_tstr(cto).c_str());
  if (!arrays_ok("trfco1", n, 1, {xray})) return;
  auto unit = [](const char *c) { return same(c, "DEGREES") ? 0 : same(c, "RADIANS") ? 1 : -1; };
  int a = unit(cfrom), b = unit(cto);
  if (a < 0 || b < 0) {
    mv_warn("trfco1", "unknown unit %s (DEGREES or RADIANS)", mv_tstr(a < 0 ? cfrom : cto).c_str());
    return;
  }
  if (a == b) return;
  for (int k = 0; k < n; ++k) xray[k] = float(a == 0 ? xray[k] * DEG : xray[k] / DEG);
}

void trfco2(float *xray, float *yray, int n, const char *cfrom, const char *cto) {
  mv_tracef("trfco2(xray=%s, yray=%s, n=%d, cfrom=%s, cto=%s)", TARR(n, "floats"), TARR(n, "floats"), n,
            mv_tstr(cfrom).c_str(), mv_tstr(cto).c_str());
  if (arrays_ok("trfco2", n, 1, {xray, yray})) convert_points("trfco2", 2, xray, yray, nullptr, n, cfrom, cto);
}

void trfco3(float *xray, float *yray, float *zray, int n, const char *cfrom, const char *cto) {
  mv_tracef("trfco3(xray=%s, yray=%s, zray=%s, n=%d, cfrom=%s, cto=%s)", TARR(n, "floats"), TARR(n, "floats"),
            TARR(n, "floats"), n, mv_tstr(cfrom).c_str(), mv_tstr(cto).c_str());
  if (arrays_ok("trfco3", n, 1, {xray, yray, zray})) convert_points("trfco3", 3, xray, yray, zray, n, cfrom, cto);
}

void trfmat(const float *zmat, int nx, int ny, float *zmat2, int nx2, int ny2) {
  mv_tracef("trfmat(zmat=%s, nx=%d, ny=%d, zmat2=%s, nx2=%d, ny2=%d)", TARR(matrix_size(nx, ny), "floats"), nx, ny,
            TARR(matrix_size(nx2, ny2), "floats out"), nx2, ny2);
  if (!zmat || !zmat2) {
    mv_warn("trfmat", "a matrix is missing");
    return;
  }
  if (nx < 1 || ny < 1 || nx2 < 1 || ny2 < 1 || long(nx) * ny > 25000000L || long(nx2) * ny2 > 25000000L) {
    mv_warn("trfmat", "the sizes %d x %d and %d x %d must lie within 1 x 1 and 5000 x 5000", nx, ny, nx2, ny2);
    return;
  }
  std::vector<float> r = resample(zmat, nx, ny, nx2, ny2);
  std::copy(r.begin(), r.end(), zmat2);
}

void trfrel(float *xray, float *yray, int n) {
  mv_tracef("trfrel(xray=%s, yray=%s, n=%d)", TARR(n, "floats"), TARR(n, "floats"), n);
  if (!arrays_ok("trfrel", n, 1, {xray, yray})) return;
  const double *t = mirval_state().field.trf;
  for (int k = 0; k < n; ++k) {
    double x = xray[k], y = yray[k];
    xray[k] = float(t[0] * x + t[1] * y + t[2]);
    yray[k] = float(t[3] * x + t[4] * y + t[5]);
  }
}

void trfres(void) {
  mv_tracef("trfres()");
  field_reset_trf(mirval_state());
}

void trfrot(float x, int n1, int n2) {
  mv_tracef("trfrot(%g, %d, %d)", (double)x, n1, n2);
  if (!std::isfinite(x) || std::fabs(x) > 1e6) {
    mv_warn("trfrot", "the angle %g is not a number of degrees", (double)x);
    return;
  }
  // counter-clockwise on the page, whose y axis points down
  double s, c;
  sincos_deg(x, s, c);
  double m[6] = {c, s, n1 - c * n1 - s * n2, -s, c, n2 + s * n1 - c * n2};
  compose(m);
}

void trfscl(float x1, float x2) {
  mv_tracef("trfscl(%g, %g)", (double)x1, (double)x2);
  if (!std::isfinite(x1) || !std::isfinite(x2) || x1 == 0 || x2 == 0 || std::fabs(x1) > 1e6 || std::fabs(x2) > 1e6) {
    mv_warn("trfscl", "the factors %g, %g must be numbers other than 0", (double)x1, (double)x2);
    return;
  }
  double m[6] = {x1, 0, 0, 0, x2, 0};
  compose(m);
}

void trfshf(int n1, int n2) {
  mv_tracef("trfshf(%d, %d)", n1, n2);
  if (!in_range("trfshf", "shift", n1, -1000000, 1000000) || !in_range("trfshf", "shift", n2, -1000000, 1000000)) return;
  double m[6] = {1, 0, double(n1), 0, 1, double(n2)};
  compose(m);
}

}
