// Axis options: the kind of axis system (AXSTYP, AX2GRF, NOGRAF), its background and
// placement (AXSBGD, NOBGD, AXSORG, AXSERS), colours and ends (AXCLRS, AXENDS), label numbers
// (INTAX, SCLFAC, SCLMOD, SETEXP, SETBAS), log axes (LOGTIC, NEGLOG), ticks (TICMOD), lines
// through the origin (CROSS, XCROSS, YCROSS), and the margins and colour range of data
// (GRACE, ZSCALE).
#include "axes/axes.h"
#include "axes/scaling.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "core/trace.h"
#include "draw/colours.h"
#include "draw/draw.h"
#include "mirval.h"

#include <algorithm>
#include <cmath>

namespace {

AxisExtraState &extra() { return mirval_state().axextra; }

// The axis line through the user origin, with ticks on both sides at the labels.
void cross_line(int axis) {
  const MirvalState &st = mirval_state();
  const AxesState &ax = st.axes;
  const AxisRange &other = ax.range[1 - axis];
  double zero = other.log ? 1 : 0;
  if (!other.log && (zero < std::min(other.a, other.e) || zero > std::max(other.a, other.e))) return;
  const Rect &b = ax.box;
  double at = axis == 0 ? page_y_user(zero) : page_x(zero);
  if (!std::isfinite(at)) return;
  double width = std::max(1, st.pen.frame), t = ax.ticlen_major / 2.0;
  Rgb rgb = pen_rgb();
  if (axis == 0) stroke_polyline({{b.x0, at}, {b.x1, at}}, b, rgb, width, {});
  else stroke_polyline({{at, b.y0}, {at, b.y1}}, b, rgb, width, {});
  for (double v : label_values(ax.range[axis])) {
    double u = ax.range[axis].log ? std::pow(10.0, v) : v;
    double p = axis == 0 ? page_x(u) : page_y_user(u);
    if (!std::isfinite(p)) continue;
    if (axis == 0) stroke_polyline({{p, at - t}, {p, at + t}}, b, rgb, width, {});
    else stroke_polyline({{at - t, p}, {at + t, p}}, b, rgb, width, {});
  }
}

}  // namespace

void for_forms(const char *routine, const char *cax, const std::function<void(AxisForm &)> &f) {
  int bits = axis_bits(cax);
  if (!bits) {
    mv_warn(routine, "unknown axes %s", mv_tstr(cax).c_str());
    return;
  }
  for (int i = 0; i < 3; ++i)
    if (bits & (1 << i)) f(extra().form[i]);
}

extern "C" {

void axstyp(const char *c) {
  mv_tracef("axstyp(%s)", mv_tstr(c).c_str());
  int k = keyword("axstyp", "axis type", c, {"RECT", "CROSS", "OPEN"});
  if (k >= 0) extra().axis_type = k;
}

void axsbgd(int n) {
  set_number("axsbgd", "colour", n, -1, 255, extra().background);
}

void nobgd(void) {
  mv_tracef("nobgd()");
  extra().background = -1;
}

// AXENDS('NONE'|'FIRST'|'LAST'|'BOTH', axes): which ends of the axes keep their labels.
void axends(const char *c1, const char *c2) {
  mv_tracef("axends(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  int k = keyword("axends", "option", c1, {"NONE", "FIRST", "LAST", "BOTH"});
  if (k >= 0) for_forms("axends", c2, [&](AxisForm &f) { f.ends = k; });
}

void axsorg(int n1, int n2) {
  mv_tracef("axsorg(%d, %d)", n1, n2);
  if (!in_range("axsorg", "position", n1, -100000, 100000) || !in_range("axsorg", "position", n2, -100000, 100000)) return;
  AxisExtraState &x = extra();
  x.centred = true;
  x.centre_x = n1, x.centre_y = n2;
}

// Erases the area of the current axis system: everything drawn there so far is covered.
void axsers(void) {
  mv_tracef("axsers()");
  if (!mv_level("axsers", 2, 3)) return;
  const MirvalState &st = mirval_state();
  const Rect &b = st.axes.box;
  fill_path(rect_path(b.x0, b.y0, b.x1, b.y1), st.page.reverse ? Rgb{0, 0, 0} : Rgb{1, 1, 1});
}

void ax2grf(void) {
  mv_tracef("ax2grf()");
  extra().all_labelled = true;
}

// AXCLRS(colour, 'LINE'|'TICKS'|'LABELS'|'NAME'|'ALL', axes); -1 the pen's colour.
void axclrs(int n, const char *c1, const char *c2) {
  mv_tracef("axclrs(%d, %s, %s)", n, mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  if (!in_range("axclrs", "colour", n, -1, 255)) return;
  int k = keyword("axclrs", "part", c1, {"LINE", "TICKS", "LABELS", "NAME", "ALL"});
  if (k < 0) return;
  for_forms("axclrs", c2, [&](AxisForm &f) {
    for (int i = 0; i < 4; ++i)
      if (k == 4 || k == i) f.colour[i] = n;
  });
}

void intax(void) {
  mv_tracef("intax()");
  extra().integer = true;
}

void logtic(const char *c) {
  mv_tracef("logtic(%s)", mv_tstr(c).c_str());
  int k = keyword("logtic", "option", c, {"AUTO", "FULL", "FIRST", "NONE"});
  if (k >= 0) extra().logtic = k;
}

void neglog(float x) {
  mv_tracef("neglog(%g)", (double)x);
  if (!(x >= 0) || !(x < 1e30)) {
    mv_warn("neglog", "value %g must be positive (0 turns it off)", (double)x);
    return;
  }
  extra().neglog = x;
}

// TICMOD('NONE'|'MAJOR'|'ALL', axes): which ticks the axes get.
void ticmod(const char *c1, const char *c2) {
  mv_tracef("ticmod(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  int k = keyword("ticmod", "option", c1, {"NONE", "MAJOR", "ALL"});
  if (k >= 0) for_forms("ticmod", c2, [&](AxisForm &f) { f.ticmode = k; });
}

void setexp(float x) {
  mv_tracef("setexp(%g)", (double)x);
  if (in_range("setexp", "exponent size", x, 0.1, 2)) extra().exp_size = x;
}

void setbas(float x) {
  mv_tracef("setbas(%g)", (double)x);
  if (in_range("setbas", "exponent raise", x, -1, 2)) extra().exp_raise = x;
}

void sclfac(float x) {
  mv_tracef("sclfac(%g)", (double)x);
  if (!std::isfinite(x) || x == 0 || std::fabs(x) > 1e30 || std::fabs(x) < 1e-30) {
    mv_warn("sclfac", "factor %g must be a finite number other than 0", (double)x);
    return;
  }
  extra().factor = x;
}

// SCLMOD(axes): the axes whose labels SCLFAC scales ('NONE' for none).
void sclmod(const char *c) {
  mv_tracef("sclmod(%s)", mv_tstr(c).c_str());
  if (same(c, "NONE")) {
    extra().factor_axes = 0;
    return;
  }
  int bits = axis_bits(c);
  if (!bits) mv_warn("sclmod", "unknown axes %s", mv_tstr(c).c_str());
  else extra().factor_axes = bits;
}

void cross(void) { axis_lines("cross", 2, -1, cross_line); }
void xcross(void) { axis_lines("xcross", 2, 0, cross_line); }
void ycross(void) { axis_lines("ycross", 2, 1, cross_line); }

void nograf(void) {
  mv_tracef("nograf()");
  extra().nograf = true;
}

void grace(int n) {
  set_number("grace", "margin", n, 0, 10000, extra().grace);
}

// The Z range that colour-coded data take (CURVE3, CRVMAT ...) after a plain GRAF, so that a
// colour bar placed by hand (ZAXIS) belongs to them.
void zscale(float x1, float x2) {
  mv_tracef("zscale(%g, %g)", (double)x1, (double)x2);
  if (!mv_level("zscale", 2, 2)) return;
  if (!std::isfinite(x1) || !std::isfinite(x2) || x1 == x2 || std::fabs(x1) > 1e30 || std::fabs(x2) > 1e30) {
    mv_warn("zscale", "range %g to %g is empty or not finite", (double)x1, (double)x2);
    return;
  }
  MirvalState &st = mirval_state();
  AxisRange z;
  z.log = st.axes.axis[2].log;
  if (z.log && (x1 <= 0 || x2 <= 0)) {
    mv_warn("zscale", "a log Z axis needs positive values, not %g to %g", (double)x1, (double)x2);
    return;
  }
  z.a = z.log ? std::log10(x1) : x1;
  z.e = z.log ? std::log10(x2) : x2;
  z.org = z.a, z.step = std::fabs(z.e - z.a);
  st.grid.z = z;
  st.grid.colour_axis = true;
  st.axextra.zscale_lo = x1, st.axextra.zscale_hi = x2;
}

}  // extern "C"
