#include "axes/scaling.h"
#include "draw/draw.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "mirval.h"
#include "core/trace.h"
#include "maps/projection.h"

#include <algorithm>
#include <cctype>
#include <cmath>

double nice_step(double raw) {
  if (!(raw > 0) || !std::isfinite(raw)) return 1;
  double p = std::pow(10.0, std::floor(std::log10(raw)));
  for (double m : {1.0, 2.0, 5.0, 10.0})
    if (m * p >= raw * (1 - 1e-9)) return m * p;
  return 10 * p;
}

AxisRange auto_range(double lo, double hi, bool log, int intervals) {
  AxisRange r;
  r.log = log;
  intervals = std::max(1, intervals);
  if (!std::isfinite(lo) || !std::isfinite(hi)) lo = hi = log ? 1 : 0;
  if (lo > hi) std::swap(lo, hi);
  if (log) {
    if (!(hi > 0)) lo = hi = 1;
    if (!(lo > 0)) lo = hi / 1000;
    r.a = std::floor(std::log10(lo) + 1e-9);
    r.e = std::ceil(std::log10(hi) - 1e-9);
    if (r.e <= r.a) r.e = r.a + 1;
    r.step = std::max(1.0, std::ceil((r.e - r.a) / intervals));
    r.e = r.a + std::ceil((r.e - r.a) / r.step) * r.step;
    r.org = r.a;
    return r;
  }
  if (hi == lo) {
    double pad = lo == 0 ? 1 : std::fabs(lo) * 0.1;
    lo -= pad;
    hi += pad;
  }
  r.step = nice_step((hi - lo) / intervals);
  r.a = std::floor(lo / r.step + 1e-9) * r.step;
  r.e = std::ceil(hi / r.step - 1e-9) * r.step;
  r.org = r.a;
  return r;
}

std::vector<double> label_values(const AxisRange &r) {
  std::vector<double> v;
  double lo = std::min(r.a, r.e), hi = std::max(r.a, r.e), step = std::fabs(r.step);
  if (!(step > 0) || !std::isfinite(step) || (hi - lo) / step > 1000) return v;
  double eps = step * 1e-6;
  for (double k = std::ceil((lo - r.org - eps) / step);; ++k) {
    double x = r.org + k * step;
    if (x > hi + eps) break;
    if (std::fabs(x) < eps) x = 0;  // no "-0" from rounding
    v.push_back(x);
  }
  return v;
}

int needed_digits(const std::vector<double> &values) {
  for (int d = 0; d < 6; ++d) {
    double f = std::pow(10.0, d);
    bool exact = true;
    for (double x : values) {
      double s = x * f;
      if (std::fabs(s - std::round(s)) > 1e-6 * std::max(1.0, std::fabs(s))) exact = false;
    }
    if (exact) return d;
  }
  return 6;
}

int axis_bits(const char *cax) {
  int bits = 0;
  if (!cax) return 0;
  for (const char *p = cax; *p; ++p) {
    char c = static_cast<char>(std::toupper(static_cast<unsigned char>(*p)));
    if (c == 'X') bits |= 1;
    else if (c == 'Y') bits |= 2;
    else if (c == 'Z') bits |= 4;
    else return 0;
  }
  return bits;
}

std::vector<float> spread_over(const AxisRange &r, int n) {
  std::vector<float> v(std::max(n, 0));
  for (int k = 0; k < n; ++k) {
    double a = r.a + (r.e - r.a) * k / std::max(n - 1, 1);
    v[k] = static_cast<float>(r.log ? std::pow(10.0, a) : a);
  }
  return v;
}

namespace {

// Position 0..1 of a user value along an axis range.
double fraction(const AxisRange &r, double v) {
  if (r.log) {
    double neg = mirval_state().axextra.neglog;  // NEGLOG: where non-positive values go
    if (!(v > 0) && neg > 0 && !std::isnan(v)) v = neg;
    v = v > 0 ? std::log10(v) : std::nan("");
  }
  return (v - r.a) / (r.e - r.a);
}

double from_fraction(const AxisRange &r, double f) {
  double v = r.a + f * (r.e - r.a);
  return r.log ? std::pow(10.0, v) : v;
}

// Applies a scaling keyword to the axes named.
void set_log(const char *routine, const char *copt, const char *cax) {
  int bits = axis_bits(cax);
  bool log = same(copt, "LOG");
  if (!log && !(same(copt, "LIN"))) {
    mv_warn(routine, "unknown scaling %s (LIN or LOG)", mv_tstr(copt).c_str());
    return;
  }
  if (!bits) {
    mv_warn(routine, "unknown axes %s", mv_tstr(cax).c_str());
    return;
  }
  for (int i = 0; i < 3; ++i)
    if (bits & (1 << i)) mirval_state().axes.axis[i].log = log;
}

bool at_axis_level(const char *routine) { return mv_level(routine, 2, 3); }

}  // namespace

Rect placed_box() {
  const MirvalState &st = mirval_state();
  const AxesState &ax = st.axes;
  const AxisExtraState &x = st.axextra;
  // AXSORG places the axis system by its centre; ORIGIN shifts every placement
  double px = ax.posx + x.origin_x, py = ax.posy + x.origin_y;
  if (x.centred) {
    px = x.centre_x + x.origin_x - ax.len[0] / 2.0;
    double cy = page_y(x.centre_y + x.origin_y);
    return {px, cy - ax.len[1] / 2.0, px + ax.len[0], cy + ax.len[1] / 2.0};
  }
  double y1 = page_y(py);
  return {px, y1 - ax.len[1], px + ax.len[0], y1};
}

double page_x(double x) {
  double px, py;  // on a map: along the central parallel, exact for cylindrical maps
  if (const MapProjection *m = current_map()) return map_user_point(x, (m->region.lat_a + m->region.lat_e) / 2, px, py), px;
  const AxesState &ax = mirval_state().axes;
  return ax.box.x0 + fraction(ax.range[0], x) * (ax.box.x1 - ax.box.x0);
}

double page_y_user(double y) {
  double px, py;  // on a map: along the central meridian
  if (const MapProjection *m = current_map()) return map_user_point(m->region.lon0, y, px, py), py;
  const AxesState &ax = mirval_state().axes;
  return ax.box.y1 - fraction(ax.range[1], y) * (ax.box.y1 - ax.box.y0);
}

Pt page_point(double x, double y) {
  Pt p;
  if (map_user_point(x, y, p.x, p.y)) return p;
  return {page_x(x), page_y_user(y)};
}

std::vector<Pt> page_cut(double xa, double ya, double xb, double yb) {
  return current_map() ? map_cut(xa, ya, xb, yb) : std::vector<Pt>{};
}

Pt user_point(double px, double py) {
  Pt u;
  if (map_page_to_user(px, py, u.x, u.y)) return u;
  return {user_x(px), user_y(py)};
}

double user_x(double px) {
  const AxesState &ax = mirval_state().axes;
  return from_fraction(ax.range[0], (px - ax.box.x0) / (ax.box.x1 - ax.box.x0));
}

double user_y(double py) {
  const AxesState &ax = mirval_state().axes;
  return from_fraction(ax.range[1], (ax.box.y1 - py) / (ax.box.y1 - ax.box.y0));
}

extern "C" {

void setscl(const float *xray, int n, const char *cax) {
  mv_tracef("setscl(xray=%s, n=%d, cax=%s)", mv_tarr(n, "floats").c_str(), n, mv_tstr(cax).c_str());
  int bits = axis_bits(cax);
  if (!bits) {
    mv_warn("setscl", "unknown axes %s", mv_tstr(cax).c_str());
    return;
  }
  if (!xray || n <= 0) {
    mv_warn("setscl", "no data (n = %d)", n);
    return;
  }
  double lo = INFINITY, hi = -INFINITY, pos = INFINITY;
  for (int i = 0; i < n; ++i) {
    double v = xray[i];
    if (!std::isfinite(v)) continue;
    lo = std::min(lo, v);
    hi = std::max(hi, v);
    if (v > 0) pos = std::min(pos, v);
  }
  if (!std::isfinite(lo)) {
    mv_warn("setscl", "no finite values in the data");
    return;
  }
  for (int i = 0; i < 3; ++i)
    if (bits & (1 << i)) {
      AxisSettings &s = mirval_state().axes.axis[i];
      s.autoscale = true;
      s.data_min = lo;
      s.data_max = hi;
      s.data_minpos = pos;
    }
}

void axsscl(const char *copt, const char *cax) {
  mv_tracef("axsscl(%s, %s)", mv_tstr(copt).c_str(), mv_tstr(cax).c_str());
  set_log("axsscl", copt, cax);
}

void scale(const char *copt, const char *cax) {
  mv_tracef("scale(%s, %s)", mv_tstr(copt).c_str(), mv_tstr(cax).c_str());
  set_log("scale", copt, cax);
}

void getscl(int *ixscl, int *iyscl, int *izscl) {
  mv_tracef("getscl(ixscl=out, iyscl=out, izscl=out)");
  const AxesState &ax = mirval_state().axes;
  if (ixscl) *ixscl = ax.axis[0].log;
  if (iyscl) *iyscl = ax.axis[1].log;
  if (izscl) *izscl = ax.axis[2].log;
}

int nxposn(float x) {
  mv_tracef("nxposn(%g)", (double)x);
  if (!at_axis_level("nxposn")) return 0;
  double p = page_x(x);
  return std::isfinite(p) ? static_cast<int>(std::lround(std::clamp(p, -1e9, 1e9))) : 0;
}

int nyposn(float y) {
  mv_tracef("nyposn(%g)", (double)y);
  if (!at_axis_level("nyposn")) return 0;
  double p = page_y(page_y_user(y));
  return std::isfinite(p) ? static_cast<int>(std::lround(std::clamp(p, -1e9, 1e9))) : 0;
}

double xposn(float x) {
  mv_tracef("xposn(%g)", (double)x);
  return at_axis_level("xposn") ? page_x(x) : 0;
}

double yposn(float y) {
  mv_tracef("yposn(%g)", (double)y);
  return at_axis_level("yposn") ? page_y(page_y_user(y)) : 0;
}

double xinvrs(int nx) {
  mv_tracef("xinvrs(%d)", nx);
  return at_axis_level("xinvrs") ? user_x(nx) : 0;
}

double yinvrs(int ny) {
  mv_tracef("yinvrs(%d)", ny);
  return at_axis_level("yinvrs") ? user_y(page_y(ny)) : 0;
}

}
