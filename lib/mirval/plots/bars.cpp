// Bar graphs: BARS draws bars between two value arrays (stacked bars come from running sums),
// side by side in groups, flat or with a 3-D look, labelled with their values; FBARS draws
// open/high/low/close bars; HISTOG counts data into bins for BARS.
#include "plots/charts.h"
#include "axes/scaling.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "core/state.h"
#include "core/trace.h"
#include "draw/colours.h"
#include "draw/draw.h"
#include "draw/text.h"
#include "mirval.h"

#include <algorithm>
#include <cmath>

namespace {

bool arrays(const char *routine, std::initializer_list<const float *> a, int n) {
  for (const float *p : a)
    if (!p) {
      mv_warn(routine, "an array is missing");
      return false;
    }
  if (n < 1) {
    mv_warn(routine, "number of bars %d below 1", n);
    return false;
  }
  return true;
}

// Page coordinate of a position (X of vertical bars, Y of horizontal ones) and of a value.
double pos_page(double v) { return mirval_state().chart.horizontal ? page_y_user(v) : page_x(v); }
double val_page(double v) {
  const MirvalState &st = mirval_state();
  const Rect &b = st.axes.box;
  double p = st.chart.horizontal ? page_x(v) : page_y_user(v);
  // a value a log axis cannot show (zero, say) stands at the axis's lower end
  if (!std::isfinite(p) && std::isfinite(v)) p = st.chart.horizontal ? b.x0 : b.y1;
  return p;
}

// Widths of the bars (page units along the position axis) as BARWTH and BARMOD say.
std::vector<double> bar_widths(const std::vector<double> &pos, const float *xray) {
  const MirvalState &st = mirval_state();
  const ChartState &c = st.chart;
  size_t n = pos.size();
  std::vector<double> w(n);
  std::vector<double> sorted;
  for (double p : pos)
    if (std::isfinite(p)) sorted.push_back(p);
  std::sort(sorted.begin(), sorted.end());
  double least = INFINITY;
  for (size_t i = 1; i < sorted.size(); ++i)
    if (sorted[i] - sorted[i - 1] > 1e-9) least = std::min(least, sorted[i] - sorted[i - 1]);
  const Rect &b = st.axes.box;
  double axis = c.horizontal ? b.y1 - b.y0 : b.x1 - b.x0;
  if (!std::isfinite(least)) least = axis / 8;
  for (size_t i = 0; i < n; ++i) {
    if (c.bar_width > 0) {
      w[i] = c.bar_width;
    } else if (c.bar_width < 0) {
      w[i] = std::fabs(pos_page(xray[i] - c.bar_width) - pos[i]);
    } else if (c.variable_width) {
      // 75 % of the room between the midpoints to the neighbours
      double left = INFINITY, right = INFINITY;
      for (double q : sorted) {
        if (q < pos[i] - 1e-9) left = pos[i] - q;
        if (q > pos[i] + 1e-9 && !std::isfinite(right)) right = q - pos[i];
      }
      if (!std::isfinite(left)) left = right;
      if (!std::isfinite(right)) right = left;
      w[i] = std::isfinite(left) ? 0.75 * (left + right) / 2 : 0.75 * least;
    } else {
      w[i] = 0.75 * least;
    }
    if (!std::isfinite(w[i]) || w[i] < 1) w[i] = 1;
  }
  return w;
}

// A rectangle from page corners, given as position span and value ends.
std::vector<Pt> corners(Span s, double v1, double v2) {
  if (mirval_state().chart.horizontal) return {{v1, s.lo}, {v2, s.lo}, {v2, s.hi}, {v1, s.hi}};
  return {{s.lo, v1}, {s.hi, v1}, {s.hi, v2}, {s.lo, v2}};
}

// The 3-D faces beside and above a front rectangle (page x0 < x1, y0 < y1).
void faces(double x0, double y0, double x1, double y1, double dx, double dy, Rgb side, Rgb top,
           int pattern, bool outlined, Rgb border, const Rect &clip) {
  chart_area(fit_path(closed_path({{x1, y0}, {x1 + dx, y0 - dy}, {x1 + dx, y1 - dy}, {x1, y1}}), clip, true),
             side, pattern, outlined, border);
  chart_area(fit_path(closed_path({{x0, y0}, {x0 + dx, y0 - dy}, {x1 + dx, y0 - dy}, {x1, y0}}), clip, true),
             top, pattern, outlined, border);
}

// The value of a bar written at its end (or inside it), as LABELS(.., 'BARS') and the
// 'BARS' label target ask.
void bar_label(const std::vector<Pt> &rect, double value, bool positive, double dx, double dy) {
  const MirvalState &st = mirval_state();
  auto it = st.axes.other_labels.find("BARS");
  if (it == st.axes.other_labels.end() || it->second == LabelType::None) return;
  bool hori = st.chart.horizontal;
  auto own = st.axes.other_digits.find("BARS");  // LABDIG(n, 'BARS'), else the value axis's
  int digits = own != st.axes.other_digits.end() ? own->second : st.axes.axis[hori ? 0 : 1].digits;
  std::string text = chart_value(value, it->second, digits);
  if (text.empty()) return;
  LabelTarget target;
  auto t = st.axextra.targets.find("BARS");
  if (t != st.axextra.targets.end()) target = t->second;
  Rgb rgb = target.colour >= 0 ? table_rgb(target.colour) : pen_rgb();
  double h = st.text.height, gap = 0.4 * h;
  double x0 = std::min(rect[0].x, rect[2].x), x1 = std::max(rect[0].x, rect[2].x);
  double y0 = std::min(rect[0].y, rect[2].y), y1 = std::max(rect[0].y, rect[2].y);
  std::string pos = upper(target.pos.c_str());
  Pt at;
  Just just = Just::Center;
  VAlign va = VAlign::Middle;
  if (pos == "CENTER" || pos == "CENT") {
    at = {(x0 + x1) / 2, (y0 + y1) / 2};
  } else if (pos == "INSIDE") {
    if (hori) at = {positive ? x1 - gap : x0 + gap, (y0 + y1) / 2}, just = positive ? Just::Right : Just::Left;
    else at = {(x0 + x1) / 2, positive ? y0 + gap : y1 - gap}, va = positive ? VAlign::Top : VAlign::Base;
  } else {  // 'AUTO', 'OUTSIDE': beyond the bar's end
    if (hori) at = {positive ? x1 + gap + dx : x0 - gap, (y0 + y1) / 2 - dy / 2}, just = positive ? Just::Left : Just::Right;
    else at = {(x0 + x1) / 2 + dx / 2, positive ? y0 - gap - dy : y1 + gap}, va = positive ? VAlign::Base : VAlign::Top;
  }
  std::string j = upper(target.just.c_str());
  if (j == "LEFT") just = Just::Left;
  else if (j == "RIGHT") just = Just::Right;
  else if (j == "CENT" || j == "CENTER") just = Just::Center;
  put_text(text, "", at, h, 0, just, va, rgb);
}

}  // namespace

extern "C" {

void bars(const float *xray, const float *y1ray, const float *y2ray, int n) {
  mv_tracef("bars(xray=%s, y1ray=%s, y2ray=%s, n=%d)", mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(),
            mv_tarr(n, "floats").c_str(), n);
  if (!mv_level("bars", 2, 3) || !arrays("bars", {xray, y1ray, y2ray}, n)) return;
  MirvalState &st = mirval_state();
  ChartState &c = st.chart;
  std::vector<double> pos(n);
  int skipped = 0;
  for (int i = 0; i < n; ++i) {
    pos[i] = std::isfinite(xray[i]) && std::isfinite(y1ray[i]) && std::isfinite(y2ray[i]) ? pos_page(xray[i]) : NAN;
    if (!std::isfinite(pos[i])) ++skipped;
  }
  if (skipped) mv_warn("bars", "%d of %d bars have values that cannot be shown and are left out", skipped, n);
  std::vector<double> width = bar_widths(pos, xray);
  double gap_share = c.group_gap < 0 ? -c.group_gap : 0;
  int k = c.group_next % std::max(1, c.group_n);
  // colour and pattern: BARCLR, else the CHNBAR cycle, else the pen and SHDPAT
  int cycle = c.bar_changed;
  Rgb front = c.bar_front >= 0 ? table_rgb(c.bar_front) : (c.bar_change & 1) ? cycle_rgb(cycle) : pen_rgb();
  int pattern = (c.bar_change & 2) ? cycle_pattern(cycle) : st.pen.pattern == 0 ? 16 : st.pen.pattern;
  Rgb side = c.bar_side >= 0 ? table_rgb(c.bar_side) : shade(front, 0.7);
  Rgb top = c.bar_top >= 0 ? table_rgb(c.bar_top) : shade(front, 1.3);
  bool outlined = c.bar_border != -2;
  Rgb border = c.bar_border >= 0 ? table_rgb(c.bar_border) : pen_rgb();
  Rect clip = user_clip();
  for (int i = 0; i < n; ++i) {
    if (!std::isfinite(pos[i])) continue;
    double gap = c.group_gap >= 0 ? c.group_gap : gap_share * width[i] / std::max(1, c.group_n);
    Span s = bar_span(pos[i], width[i], c.group_n, gap, k, c.bar_align);
    double v1 = val_page(y1ray[i]), v2 = val_page(y2ray[i]);
    std::vector<Pt> rect = corners(s, v1, v2);
    double x0 = std::min(rect[0].x, rect[2].x), x1 = std::max(rect[0].x, rect[2].x);
    double y0 = std::min(rect[0].y, rect[2].y), y1 = std::max(rect[0].y, rect[2].y);
    double dx = 0, dy = 0;
    if (c.bar3d) {
      double d = c.depth * (s.hi - s.lo);
      dx = d * std::cos(c.depth_angle * M_PI / 180);
      dy = d * std::sin(c.depth_angle * M_PI / 180);
    }
    chart_area(fit_path(closed_path(rect), clip, true), front, pattern, outlined, border);
    if (c.bar3d) faces(x0, y0, x1, y1, dx, dy, side, top, pattern, outlined, border, clip);
    bar_label(rect, double(y2ray[i]) - y1ray[i], y2ray[i] >= y1ray[i], dx, dy);
  }
  CurveLook look;
  look.rgb = border;
  look.width = st.pen.width;
  look.pattern = pattern;
  look.fill = front;
  look.outlined = outlined;
  st.legend.curves.push_back(look);
  c.group_next = (c.group_next + 1) % std::max(1, c.group_n);
  if (c.bar_change) ++c.bar_changed;
}

void bargrp(int n, float x) {
  mv_tracef("bargrp(%d, %g)", n, (double)x);
  if (!in_range("bargrp", "number of bars", n, 1, 1000)) return;
  if (!std::isfinite(x) || x > 10000 || x < -0.9) {
    mv_warn("bargrp", "gap %g out of range -0.9..10000", (double)x);
    return;
  }
  ChartState &c = mirval_state().chart;
  c.group_n = n;
  c.group_gap = x;
  c.group_next = 0;
}

void barwth(float x) {
  mv_tracef("barwth(%g)", (double)x);
  if (bounded("barwth", "width", x, 1e6)) mirval_state().chart.bar_width = x;
}

void barpos(const char *c) {
  mv_tracef("barpos(%s)", mv_tstr(c).c_str());
  int a = same(c, "CENTER") || same(c, "CENT") ? 0 : same(c, "START") ? 1 : same(c, "END") ? 2 : -1;
  if (a < 0) mv_warn("barpos", "unknown position %s", mv_tstr(c).c_str());
  else mirval_state().chart.bar_align = a;
}

void bartyp(const char *c) {
  mv_tracef("bartyp(%s)", mv_tstr(c).c_str());
  static const char *names[] = {"VERT", "HORI", "3DVERT", "3DHORI"};
  for (int i = 0; i < 4; ++i)
    if (same(c, names[i])) {
      mirval_state().chart.horizontal = i % 2 == 1;
      mirval_state().chart.bar3d = i >= 2;
      return;
    }
  mv_warn("bartyp", "unknown bar type %s", mv_tstr(c).c_str());
}

void barclr(int n1, int n2, int n3) {
  mv_tracef("barclr(%d, %d, %d)", n1, n2, n3);
  for (int n : {n1, n2, n3})
    if (!in_range("barclr", "colour", n, -1, 255)) return;
  ChartState &c = mirval_state().chart;
  c.bar_front = n1;
  c.bar_side = n2;
  c.bar_top = n3;
}

void barbor(int n) {
  mv_tracef("barbor(%d)", n);
  if (in_range("barbor", "colour", n, -2, 255)) mirval_state().chart.bar_border = n;
}

void barmod(const char *c1, const char *c2) {
  mv_tracef("barmod(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  if (!same(c2, "WIDTH")) {
    mv_warn("barmod", "unknown setting %s", mv_tstr(c2).c_str());
    return;
  }
  if (same(c1, "FIXED")) mirval_state().chart.variable_width = false;
  else if (same(c1, "VARIABLE")) mirval_state().chart.variable_width = true;
  else mv_warn("barmod", "unknown mode %s", mv_tstr(c1).c_str());
}

void baropt(float x1, float x2) {
  mv_tracef("baropt(%g, %g)", (double)x1, (double)x2);
  if (!in_range("baropt", "depth", x1, 0, 10) || !in_range("baropt", "angle", x2, 0, 90)) return;
  mirval_state().chart.depth = x1;
  mirval_state().chart.depth_angle = x2;
}

void chnbar(const char *c) {
  mv_tracef("chnbar(%s)", mv_tstr(c).c_str());
  int k = keyword("chnbar", "option", c, {"NONE", "COLOR", "PATTERN", "BOTH"});
  if (k >= 0) mirval_state().chart.bar_change = k, mirval_state().chart.bar_changed = 0;
}

void fbars(const float *xray, const float *y1ray, const float *y2ray, const float *y3ray, const float *y4ray, int n) {
  mv_tracef("fbars(xray=%s, y1ray=%s, y2ray=%s, y3ray=%s, y4ray=%s, n=%d)", mv_tarr(n, "floats").c_str(),
            mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(),
            mv_tarr(n, "floats").c_str(), n);
  if (!mv_level("fbars", 2, 3) || !arrays("fbars", {xray, y1ray, y2ray, y3ray, y4ray}, n)) return;
  MirvalState &st = mirval_state();
  bool hori = st.chart.horizontal;
  st.chart.horizontal = false;  // open/high/low/close bars stand upright
  std::vector<double> pos(n);
  for (int i = 0; i < n; ++i) pos[i] = page_x(xray[i]);
  std::vector<double> width = bar_widths(pos, xray);
  Rect clip = user_clip();
  for (int i = 0; i < n; ++i) {
    double x = pos[i], o = page_y_user(y1ray[i]), hi = page_y_user(y2ray[i]), lo = page_y_user(y3ray[i]),
           cl = page_y_user(y4ray[i]);
    if (!std::isfinite(x) || !std::isfinite(o) || !std::isfinite(hi) || !std::isfinite(lo) || !std::isfinite(cl)) continue;
    double t = width[i] / 2;
    stroke_polyline({{x, lo}, {x, hi}}, clip);
    stroke_polyline({{x - t, o}, {x, o}}, clip);
    stroke_polyline({{x, cl}, {x + t, cl}}, clip);
  }
  st.chart.horizontal = hori;
}

void histog(const float *xray, int n, float *xhray, float *yhray, int *nh) {
  mv_tracef("histog(xray=%s, n=%d, xhray=%s, yhray=%s, nh=out)", mv_tarr(n, "floats").c_str(), n,
            mv_tarr(n, "floats out").c_str(), mv_tarr(n, "floats out").c_str());
  if (nh) *nh = 0;
  if (!xray || !xhray || !yhray || !nh) {
    mv_warn("histog", "an array is missing");
    return;
  }
  if (n < 1) {
    mv_warn("histog", "number of values %d below 1", n);
    return;
  }
  std::vector<double> data(xray, xray + n);
  int bad = 0;
  for (double v : data) bad += !std::isfinite(v);
  if (bad == n) {
    mv_warn("histog", "no finite value among %d", n);
    return;
  }
  if (bad) mv_warn("histog", "%d values that are not finite are left out", bad);
  Histogram h = histogram_bins(data, n);
  for (size_t i = 0; i < h.counts.size(); ++i) {
    xhray[i] = float(h.start + (i + 0.5) * h.step);
    yhray[i] = float(h.counts[i]);
  }
  *nh = static_cast<int>(h.counts.size());
}

}
