// Polar charts (GRAFP with its grid GRDPOL, sectors POLAR and extra radial scales YPOLAR) and
// Smith charts (GRAFR with its circles GRIDRE and GRIDIM), and the circle helpers.
#include "axes/polar.h"
#include "axes/axes.h"
#include "axes/scaling.h"
#include "core/messages.h"
#include "core/trace.h"
#include "draw/colours.h"
#include "draw/draw.h"
#include "draw/text.h"
#include "mirval.h"

#include <algorithm>
#include <cmath>
#include <vector>

bool smith_from_impedance(double r, double x, double &u, double &v) {
  double d = (r + 1) * (r + 1) + x * x;
  if (!std::isfinite(d) || d < 1e-300) return false;
  u = (r * r + x * x - 1) / d;
  v = 2 * x / d;
  if (!std::isfinite(u) || !std::isfinite(v)) {  // r or x too large to square: at the point 1
    u = 1, v = 0;
  }
  return true;
}

bool impedance_from_smith(double u, double v, double &r, double &x) {
  double d = (1 - u) * (1 - u) + v * v;
  if (!std::isfinite(d) || d < 1e-300) return false;
  r = (1 - u * u - v * v) / d;
  x = 2 * v / d;
  return std::isfinite(r) && std::isfinite(x);
}

bool circle_through(Pt a, Pt b, Pt c, Pt &centre, double &radius) {
  double bx = b.x - a.x, by = b.y - a.y, cx = c.x - a.x, cy = c.y - a.y;
  double d = 2 * (bx * cy - by * cx);
  double scale = std::max({std::fabs(bx), std::fabs(by), std::fabs(cx), std::fabs(cy)});
  if (!(std::fabs(d) > 1e-12 * scale * scale) || !std::isfinite(d)) return false;
  double b2 = bx * bx + by * by, c2 = cx * cx + cy * cy;
  double ux = (cy * b2 - by * c2) / d, uy = (bx * c2 - cx * b2) / d;
  centre = {a.x + ux, a.y + uy};
  radius = std::hypot(ux, uy);
  return std::isfinite(radius);
}

std::string chart_number(double v) {
  std::string t = number_text(v, needed_digits({v}) > 3 ? 3 : needed_digits({v}));
  if (!t.empty() && t.back() == '.') t.pop_back();
  if (!t.empty() && t[0] == '-') t.replace(0, 1, "\u2212");
  return t;
}

std::string angle_text(double degrees) { return chart_number(degrees) + "\u00b0"; }

namespace {

constexpr double rad = M_PI / 180;

AxisExtraState &extra() { return mirval_state().axextra; }

// Page point of the polar chart at user radius r and angle a (degrees counter-clockwise).
Pt polar_point(double r, double a) {
  const AxisExtraState &x = extra();
  double rho = r / x.rmax * x.radius;
  return {x.cx + rho * std::cos(a * rad), x.cy - rho * std::sin(a * rad)};
}

// Anchor of a text placed outward from a point in direction (dx, dy) (page terms).
void outward_anchor(double dx, double dy, Just &just, VAlign &va) {
  just = dx > 0.3 ? Just::Left : dx < -0.3 ? Just::Right : Just::Center;
  va = dy > 0.3 ? VAlign::Top : dy < -0.3 ? VAlign::Base : VAlign::Middle;
}

Rgb frame_rgb() {
  int c = extra().frame_colour;
  return c >= 0 ? table_rgb(c) : pen_rgb();
}

void circle(Pt c, double r, Rgb rgb, double width) {
  Path p;
  arc_path(p, c, r, r, 0, 360, 0, true);
  p.close();
  stroke_path(fit_path(p, page_rect(), false), rgb, width, {});
}

// The disc of a polar or Smith chart: the AXSBGD background, then its rim.
void chart_disc(Pt c, double r, Rgb rgb, double width) {
  int back = mirval_state().axextra.background;
  if (back >= 0) {
    Path p;
    arc_path(p, c, r, r, 0, 360, 0, true);
    p.close();
    fill_path(p, table_rgb(back));
  }
  circle(c, r, rgb, width);
}

// Places the square axis system of a chart (the circle's box) at AXSPOS and AXSLEN: level 2.
void chart_box(double rmax) {
  MirvalState &st = mirval_state();
  Rect b = placed_box();
  double side = std::min(b.x1 - b.x0, b.y1 - b.y0);
  double cx = (b.x0 + b.x1) / 2, cy = (b.y0 + b.y1) / 2;
  st.axes.box = {cx - side / 2, cy - side / 2, cx + side / 2, cy + side / 2};
  AxisRange r;
  r.a = -rmax, r.e = rmax, r.org = 0, r.step = rmax;
  st.axes.range = {r, r};
  st.grid.colour_axis = false;
  AxisExtraState &x = st.axextra;
  x.cx = cx, x.cy = cy, x.radius = side / 2, x.rmax = rmax;
  x.bottom_room = 0;
  st.level = 2;
}

// A radial scale from the centre along angle 'a': ticks and labels at the values of 'r'
// (0 at the centre, the end value at the rim), labels on the clockwise side.
double radial_scale(const AxisRange &r, double a, const std::string &name, int ndig) {
  const MirvalState &st = mirval_state();
  const AxisExtraState &x = st.axextra;
  double h = st.text.height, width = std::max(1, st.pen.frame);
  Rgb rgb = frame_rgb();
  double ca = std::cos(a * rad), sa = -std::sin(a * rad);  // direction in page terms
  double nx = -sa, ny = ca;                                  // clockwise normal
  if (ny < -1e-9 || (std::fabs(ny) < 1e-9 && nx < 0)) nx = -nx, ny = -ny;  // labels below the ray
  Pt c{x.cx, x.cy};
  stroke_polyline({c, {c.x + x.radius * ca, c.y + x.radius * sa}}, page_rect(), rgb, width, {});
  std::vector<double> at = label_values(r);
  std::vector<double> values = at;
  int d = ndig >= 0 ? ndig : needed_digits(values);
  double tick = st.axes.ticlen_major / 2.0, reach = 0;
  Just just;
  VAlign va;
  outward_anchor(nx, ny, just, va);
  for (double v : at) {
    double f = (v - r.a) / (r.e - r.a);
    if (f < 1e-9) continue;  // the centre stays free
    Pt p{c.x + f * x.radius * ca, c.y + f * x.radius * sa};
    stroke_polyline({{p.x - nx * tick, p.y - ny * tick}, {p.x + nx * tick, p.y + ny * tick}}, page_rect(), rgb, width, {});
    std::string t = number_text(v, d);
    if (!t.empty() && t.back() == '.') t.pop_back();
    if (!t.empty() && t[0] == '-') t.replace(0, 1, "\u2212");
    double off = tick + st.axes.axis[0].labdis / 2.0;
    put_text(t, "", {p.x + nx * off, p.y + ny * off}, h, 0, just, va, rgb);
    reach = std::max(reach, off + std::fabs(nx) * text_length(t, "", h) + std::fabs(ny) * h);
  }
  if (!name.empty()) {
    Pt m{c.x + 0.5 * x.radius * ca + nx * (reach + st.axes.axis[0].namdis), c.y + 0.5 * x.radius * sa + ny * (reach + st.axes.axis[0].namdis)};
    double ang = std::atan2(-sa, ca) / rad;
    if (ang > 90) ang -= 180;
    if (ang <= -90) ang += 180;
    put_text(name, "", m, st.axes.hname, ang, Just::Center, VAlign::Top, rgb);
  }
  return reach;
}

bool finite_all(std::initializer_list<double> v) {
  for (double x : v)
    if (!std::isfinite(x) || std::fabs(x) > 1e30) return false;
  return true;
}

bool chart_is(const char *routine, int kind) {
  if (!mv_level(routine, 2, 2)) return false;
  if (extra().chart == kind) return true;
  mv_warn(routine, "the axis system is no %s (%s defines one)", kind == 1 ? "polar chart" : "Smith chart",
          kind == 1 ? "GRAFP" : "GRAFR");
  return false;
}

// A curve of the Smith chart: impedances r(t) + j x(t) for t from 0 to 1, cut to the chart.
template <class F>
void smith_curve(F f, int n, Rgb rgb, double width, const std::vector<double> &dash) {
  const AxisExtraState &x = extra();
  std::vector<Pt> pts;
  for (int k = 0; k <= n; ++k) {
    double r, im, u, v;
    f(static_cast<double>(k) / n, r, im);
    if (!smith_from_impedance(r, im, u, v)) continue;
    pts.push_back({x.cx + u * x.radius, x.cy - v * x.radius});
  }
  Rect clip = mirval_state().axes.box;
  clip.x0 -= 1, clip.y0 -= 1, clip.x1 += 1, clip.y1 += 1;
  if (pts.size() >= 2) stroke_polyline(pts, clip, rgb, width, dash);
}

// Impedances along a whole resistance (or reactance) axis from 0 to infinity: t/(1-t) spaces
// the points evenly over the chart.
double spread(double t) { return t >= 1 ? 1e12 : t / (1 - t); }

int circle_points(double radius_page, double span_deg) {
  double len = radius_page * std::fabs(span_deg) * rad;
  return std::clamp(static_cast<int>(len / std::max(1, extra().circle_step)), 16, 2000);
}

}  // namespace

extern "C" {

void grafp(float xe, float xor_, float xstp, float yor, float ystp) {
  mv_tracef("grafp(%g, %g, %g, %g, %g)", (double)xe, (double)xor_, (double)xstp, (double)yor, (double)ystp);
  if (!mv_level("grafp", 1, 1)) return;
  if (!finite_all({xe, xor_, xstp, yor, ystp})) {
    mv_warn("grafp", "arguments must be finite numbers below 1e30");
    return;
  }
  if (!(xe > 0)) {
    mv_warn("grafp", "the radius %g must be positive", (double)xe);
    return;
  }
  double rstep = xstp, astep = ystp;
  if (!(rstep > 0) || xe / rstep > 1000) {
    mv_warn("grafp", "radius step %g does not fit the radius %g; a step is chosen", (double)xstp, (double)xe);
    rstep = nice_step(xe / 5);
  }
  if (!(astep > 0) || astep > 360 || 360 / astep > 360) {
    mv_warn("grafp", "angle step %g is not in 1..360 degrees; 30 is used", (double)ystp);
    astep = 30;
  }
  MirvalState &st = mirval_state();
  AxisExtraState &x = st.axextra;
  chart_box(xe);
  x.chart = 1;
  x.rorg = xor_, x.rstep = rstep, x.aorg = std::fmod(yor, 360.0), x.astep = astep;
  st.axes.range[0].step = st.axes.range[1].step = rstep;
  double width = std::max(1, st.pen.frame), h = st.text.height;
  Rgb rgb = frame_rgb();
  Pt c{x.cx, x.cy};
  chart_disc(c, x.radius, rgb, width);
  // angle ticks and labels round the rim
  double tick = st.axes.ticlen_major, off = tick + st.axes.axis[1].labdis;
  int n = static_cast<int>(std::floor(360 / astep + 1e-9));
  for (int k = 0; k < n; ++k) {
    double a = x.aorg + k * astep;
    double dx = std::cos(a * rad), dy = -std::sin(a * rad);
    stroke_polyline({{c.x + x.radius * dx, c.y + x.radius * dy}, {c.x + (x.radius + tick) * dx, c.y + (x.radius + tick) * dy}},
                    page_rect(), rgb, width, {});
    Just just;
    VAlign va;
    outward_anchor(dx, dy, just, va);
    double shown = std::fmod(a, 360.0);
    if (shown < 0) shown += 360;
    if (std::fabs(shown - 360) < 1e-6) shown = 0;
    put_text(angle_text(shown), "", {c.x + (x.radius + off) * dx, c.y + (x.radius + off) * dy}, h, 0, just, va, rgb);
  }
  // the radius scale along the first angle
  AxisRange rr;
  rr.a = 0, rr.e = xe, rr.org = xor_, rr.step = rstep;
  radial_scale(rr, x.aorg, st.axes.axis[0].name, st.axes.axis[0].digits);
  st.axes.title_room = (x.cy - x.radius) - (st.axes.box.y0) + off + h;
  x.bottom_room = off + h;
}

void grdpol(int n1, int n2) {
  mv_tracef("grdpol(%d, %d)", n1, n2);
  if (!chart_is("grdpol", 1)) return;
  if (!in_range("grdpol", "number of circles", n1, 0, 100) || !in_range("grdpol", "number of lines", n2, 0, 100)) return;
  const AxisExtraState &x = extra();
  Pt c{x.cx, x.cy};
  if (n1 > 0) {
    AxisRange r;
    r.a = 0, r.e = x.rmax, r.org = x.rorg, r.step = x.rstep / n1;
    for (double v : label_values(r)) {
      if (v <= 1e-9 * x.rmax || v >= x.rmax * (1 - 1e-9)) continue;  // the rim is there already
      Path p;
      double rho = v / x.rmax * x.radius;
      arc_path(p, c, rho, rho, 0, 360, 0, true);
      p.close();
      stroke_path(p);
    }
  }
  if (n2 > 0) {
    double step = x.astep / n2;
    int n = static_cast<int>(std::floor(360 / step + 1e-9));
    for (int k = 0; k < n; ++k) stroke_polyline({c, polar_point(x.rmax, x.aorg + k * step)}, page_rect());
  }
}

// A sector of a rose diagram: radius r0 to r1 between the angles a0 and a1 (degrees), each
// side drawn in by 'gap' degrees; shaded as SHDPAT says and outlined.
void polar(float x1, float x2, float x3, float x4, float x5) {
  mv_tracef("polar(%g, %g, %g, %g, %g)", (double)x1, (double)x2, (double)x3, (double)x4, (double)x5);
  if (!chart_is("polar", 1)) return;
  if (!finite_all({x1, x2, x3, x4, x5})) {
    mv_warn("polar", "arguments must be finite numbers below 1e30");
    return;
  }
  double r0 = std::min(x1, x2), r1 = std::max(x1, x2);
  if (r0 < 0) {
    mv_warn("polar", "radius %g is negative", r0);
    return;
  }
  double a0 = x3 + x5, a1 = x4 - x5;
  if (!(a1 > a0) || a1 - a0 > 360) {
    mv_warn("polar", "angles %g to %g (gap %g) leave no sector", (double)x3, (double)x4, (double)x5);
    return;
  }
  const AxisExtraState &x = extra();
  r1 = std::min(r1, x.rmax * 4);  // far beyond the rim is cut anyway
  Path p;
  Pt c{x.cx, x.cy};
  double rho0 = r0 / x.rmax * x.radius, rho1 = r1 / x.rmax * x.radius;
  arc_path(p, c, rho1, rho1, a0, a1, 0, true);
  if (rho0 > 0) arc_path(p, c, rho0, rho0, a1, a0, 0, false);
  else p.line(c);
  p.close();
  Rect clip = mirval_state().axes.box;
  shape_path(fit_path(p, clip, true));
}

// A second radial scale (such as decibels beside linear units) from the centre to the rim
// along the angle n (degrees): value a at the centre, b at the rim.
void ypolar(float x1, float x2, float x3, float x4, const char *c, int n) {
  mv_tracef("ypolar(%g, %g, %g, %g, %s, %d)", (double)x1, (double)x2, (double)x3, (double)x4, mv_tstr(c).c_str(), n);
  if (!chart_is("ypolar", 1)) return;
  if (!finite_all({x1, x2, x3, x4}) || x1 == x2) {
    mv_warn("ypolar", "the scale %g to %g is empty or not finite", (double)x1, (double)x2);
    return;
  }
  if (!in_range("ypolar", "angle", n, -3600, 3600)) return;
  AxisRange r;
  r.a = x1, r.e = x2, r.org = x3, r.step = std::fabs(x4);
  if (!(r.step > 0) || std::fabs(x2 - x1) / r.step > 1000) {
    mv_warn("ypolar", "step %g does not fit the scale; a step is chosen", (double)x4);
    AxisRange a = auto_range(x1, x2, false, 5);
    r.step = a.step, r.org = std::ceil(std::min(x1, x2) / a.step) * a.step;
  }
  std::string name = c ? c : "";
  name.erase(name.find_last_not_of(' ') + 1);
  radial_scale(r, n, name, mirval_state().axes.axis[1].digits);
}

// A Smith chart: the unit circle of reflection coefficients with circles of the constant
// resistances zre and arcs of the constant reactances +-zimg, labelled.
void grafr(const float *zre, const float *zimg, int n) {
  mv_tracef("grafr(zre=%s, zimg=%s, n=%d)", mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), n);
  if (!mv_level("grafr", 1, 1)) return;
  if (!zre || !zimg || n < 1) {
    mv_warn("grafr", "no grid values (n = %d)", n);
    return;
  }
  if (n > 1000) {
    mv_warn("grafr", "%d grid values are too many (at most 1000)", n);
    return;
  }
  MirvalState &st = mirval_state();
  AxisExtraState &x = st.axextra;
  chart_box(1);
  x.chart = 2;
  st.axes.range[0].step = st.axes.range[1].step = 0.5;
  double width = std::max(1, st.pen.frame), h = st.text.height * 0.8;
  Rgb rgb = frame_rgb();
  Pt c{x.cx, x.cy};
  chart_disc(c, x.radius, rgb, width);
  stroke_polyline({{c.x - x.radius, c.y}, {c.x + x.radius, c.y}}, page_rect(), rgb, width, {});
  double thin = std::max(1.0, width / 2);
  Rgb grid = rgb;
  for (int i = 0; i < n; ++i) {
    double r = zre[i];
    if (!std::isfinite(r) || r <= 0 || r > 1e6) continue;
    circle({c.x + r / (1 + r) * x.radius, c.y}, x.radius / (1 + r), grid, thin);
    // the value where the circle meets the real axis, just above it
    double u = (r - 1) / (r + 1);
    put_text(chart_number(r), "", {c.x + u * x.radius - h * 0.2, c.y - h * 0.3}, h, 90, Just::Left, VAlign::Base, rgb);
  }
  for (int i = 0; i < n; ++i) {
    double xi = std::fabs(zimg[i]);
    if (!std::isfinite(xi) || xi <= 0 || xi > 1e6) continue;
    for (int sign : {1, -1}) {
      double im = sign * xi;
      smith_curve([&](double t, double &r, double &xx) { r = spread(t), xx = im; }, circle_points(x.radius, 360), grid,
                  thin, {});
      double u, v;
      smith_from_impedance(0, im, u, v);
      double dx = u, dy = -v;
      Just just;
      VAlign va;
      outward_anchor(dx, dy, just, va);
      double off = st.axes.axis[1].labdis;
      std::string t = (sign > 0 ? "j" : "\u2212j") + chart_number(xi);
      put_text(t, "", {c.x + (x.radius + off) * dx, c.y + (x.radius + off) * dy}, h, 0, just, va, rgb);
    }
  }
  st.axes.title_room = st.axes.axis[1].labdis + h;
  x.bottom_room = st.axes.axis[1].labdis + h;
}

// A circle of constant resistance zre from the reactance zim1 to zim2 in n points.
void gridre(float x1, float x2, float x3, int n) {
  mv_tracef("gridre(%g, %g, %g, %d)", (double)x1, (double)x2, (double)x3, n);
  if (!chart_is("gridre", 2)) return;
  if (!finite_all({x1, x2, x3}) || x1 < 0) {
    mv_warn("gridre", "resistance %g and reactances %g, %g must be finite, the resistance not negative", (double)x1,
            (double)x2, (double)x3);
    return;
  }
  if (!in_range("gridre", "number of points", n, 2, 100000)) return;
  const PenState &pen = mirval_state().pen;
  smith_curve([&](double t, double &r, double &xx) { r = x1, xx = x2 + t * (x3 - x2); }, n - 1, pen_rgb(), pen.width, pen.dash);
}

// An arc of constant reactance zim from the resistance zre1 to zre2 in n points.
void gridim(float x1, float x2, float x3, int n) {
  mv_tracef("gridim(%g, %g, %g, %d)", (double)x1, (double)x2, (double)x3, n);
  if (!chart_is("gridim", 2)) return;
  if (!finite_all({x1, x2, x3}) || x2 < 0 || x3 < 0) {
    mv_warn("gridim", "reactance %g and resistances %g, %g must be finite, the resistances not negative", (double)x1,
            (double)x2, (double)x3);
    return;
  }
  if (!in_range("gridim", "number of points", n, 2, 100000)) return;
  const PenState &pen = mirval_state().pen;
  smith_curve([&](double t, double &r, double &xx) { r = x2 + t * (x3 - x2), xx = x1; }, n - 1, pen_rgb(), pen.width, pen.dash);
}

void getrco(float x, float y, float *xp, float *yp) {
  mv_tracef("getrco(x=%g, y=%g, xp=out, yp=out)", (double)x, (double)y);
  double u = 0, v = 0;
  if (!std::isfinite(x) || !std::isfinite(y) || !smith_from_impedance(x, y, u, v)) {
    mv_warn("getrco", "impedance %g + j%g has no reflection coefficient", (double)x, (double)y);
    u = v = 0;
  }
  if (xp) *xp = static_cast<float>(u);
  if (yp) *yp = static_cast<float>(v);
}

void getico(float x, float y, float *xp, float *yp) {
  mv_tracef("getico(x=%g, y=%g, xp=out, yp=out)", (double)x, (double)y);
  double r = 0, im = 0;
  if (!std::isfinite(x) || !std::isfinite(y) || !impedance_from_smith(x, y, r, im) || std::fabs(r) > 3e38 ||
      std::fabs(im) > 3e38) {
    mv_warn("getico", "reflection coefficient %g + j%g has no finite impedance", (double)x, (double)y);
    r = im = 0;
  }
  if (xp) *xp = static_cast<float>(r);
  if (yp) *yp = static_cast<float>(im);
}

void circ3p(float x1, float y1, float x2, float y2, float x3, float y3, float *xm, float *ym, float *r) {
  mv_tracef("circ3p(x1=%g, y1=%g, x2=%g, y2=%g, x3=%g, y3=%g, xm=out, ym=out, r=out)", (double)x1, (double)y1,
            (double)x2, (double)y2, (double)x3, (double)y3);
  Pt c;
  double rr = 0;
  if (!circle_through({x1, y1}, {x2, y2}, {x3, y3}, c, rr) || std::fabs(c.x) > 3e38 || std::fabs(c.y) > 3e38 ||
      rr > 3e38) {
    mv_warn("circ3p", "the three points lie on one line; no circle passes through them");
    c = {0, 0}, rr = 0;
  }
  if (xm) *xm = static_cast<float>(c.x);
  if (ym) *ym = static_cast<float>(c.y);
  if (r) *r = static_cast<float>(rr);
}

void circsp(int n) {
  set_number("circsp", "spacing", n, 1, 1000, extra().circle_step);
}

}  // extern "C"
