// Helpers of the charts: cycles, filled areas, value labels, histogram bins, bar and pie
// geometry, shielded regions; and the RESET entries of the charts' part.
#include "plots/charts.h"
#include "axes/axes.h"
#include "axes/scaling.h"
#include "core/messages.h"
#include "draw/clip.h"
#include "draw/colours.h"
#include "draw/draw.h"

#include <algorithm>
#include <cmath>

namespace {

// Eight colours that stay apart from each other on screen and in print.
const Rgb builtin[8] = {{0.12f, 0.47f, 0.71f}, {1.0f, 0.50f, 0.05f}, {0.17f, 0.63f, 0.17f},
                        {0.84f, 0.15f, 0.16f}, {0.58f, 0.40f, 0.74f}, {0.55f, 0.34f, 0.29f},
                        {0.89f, 0.47f, 0.76f}, {0.50f, 0.50f, 0.50f}};

// Whether p lies inside the polygon (even-odd rule).
bool in_polygon(Pt p, const std::vector<Pt> &poly) {
  bool in = false;
  for (size_t i = 0, j = poly.size() - 1; i < poly.size(); j = i++) {
    const Pt &a = poly[i], &b = poly[j];
    if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x) in = !in;
  }
  return in;
}

// Parameters t in (0, 1) where the segment a-b crosses the polygon's edges.
void crossings(Pt a, Pt b, const std::vector<Pt> &poly, std::vector<double> &ts) {
  double dx = b.x - a.x, dy = b.y - a.y;
  for (size_t i = 0, j = poly.size() - 1; i < poly.size(); j = i++) {
    Pt c = poly[j], d = poly[i];
    double ex = d.x - c.x, ey = d.y - c.y;
    double den = dx * ey - dy * ex;
    if (den == 0) continue;
    double t = ((c.x - a.x) * ey - (c.y - a.y) * ex) / den;
    double u = ((c.x - a.x) * dy - (c.y - a.y) * dx) / den;
    if (t > 0 && t < 1 && u >= 0 && u <= 1) ts.push_back(t);
  }
}

}  // namespace

bool bounded(const char *routine, const char *what, double x, double limit) {
  if (std::isfinite(x) && std::fabs(x) <= limit) return true;
  mv_warn(routine, "%s %g out of range", what, x);
  return false;
}

Rgb cycle_rgb(int k) {
  const ChartState &c = mirval_state().chart;
  int i = ((k % 30) + 30) % 30;
  int n = c.colour_cycle[i];
  return n >= 0 ? table_rgb(n) : builtin[i % 8];
}

int cycle_pattern(int k) { return mirval_state().chart.pattern_cycle[((k % 30) + 30) % 30]; }

int cycle_line(int k) { return mirval_state().chart.line_cycle[((k % 30) + 30) % 30]; }

Rgb shade(Rgb c, double f) {
  if (f <= 1) return {float(c.r * f), float(c.g * f), float(c.b * f)};
  double t = std::min(1.0, f - 1);
  return {float(c.r + (1 - c.r) * t), float(c.g + (1 - c.g) * t), float(c.b + (1 - c.b) * t)};
}

void chart_area(const Path &p, Rgb fill, int pattern, bool outlined, Rgb border) {
  if (p.empty()) return;
  const MirvalState &st = mirval_state();
  if (st.chart.fill) {
    pattern_fill(p, fill, pattern <= 0 ? 16 : pattern);
  }
  if ((outlined && st.chart.outline) || !st.chart.fill) stroke_path(p, outlined ? border : fill, st.pen.width, {});
}

std::string chart_value(double v, LabelType type, int digits) {
  if (type == LabelType::None || !std::isfinite(v)) return "";
  AxisSettings s;
  s.labels = type == LabelType::Log ? LabelType::Float : type;
  s.digits = digits;
  if (digits < 0) s.digits = std::min(3, needed_digits({v}));
  AxisRange r;
  r.a = r.e = r.org = v;
  std::vector<AxisLabel> l = axis_labels(s, r);
  if (l.empty()) return "";
  return l[0].sup.empty() ? l[0].text : l[0].text + "E" + l[0].sup;
}

Histogram histogram_bins(const std::vector<double> &data, int maxbins) {
  Histogram h;
  std::vector<double> v;
  for (double x : data)
    if (std::isfinite(x)) v.push_back(x);
  if (v.empty() || maxbins < 1) return h;
  auto [lo_it, hi_it] = std::minmax_element(v.begin(), v.end());
  double lo = *lo_it, hi = *hi_it;
  int nb;
  if (hi == lo) {
    h.step = lo == 0 ? 1 : nice_step(std::fabs(lo) / 10);
    h.start = lo - h.step / 2;
    nb = 1;
  } else {
    int target = static_cast<int>(std::ceil(std::log2(double(v.size())))) + 1;
    h.step = nice_step((hi - lo) / target);
    for (;;) {
      h.start = std::floor(lo / h.step + 1e-9) * h.step;
      nb = std::max(1, static_cast<int>(std::ceil((hi - h.start) / h.step - 1e-9)));
      if (nb <= maxbins) break;
      h.step = nice_step(h.step * 1.01);
    }
  }
  h.counts.assign(nb, 0);
  for (double x : v) {
    int i = static_cast<int>(std::floor((x - h.start) / h.step + 1e-9));
    ++h.counts[std::clamp(i, 0, nb - 1)];
  }
  return h;
}

Span bar_span(double p, double width, int n, double gap, int k, int align) {
  n = std::max(1, n);
  double bar = n > 1 ? (width - (n - 1) * gap) / n : width;
  if (bar < 1) bar = 1;
  double total = n * bar + (n - 1) * gap;
  double start = align == 1 ? p : align == 2 ? p - total : p - total / 2;
  double lo = start + k * (bar + gap);
  return {lo, lo + bar};
}

std::vector<Span> pie_angles(const std::vector<double> &values, double rotation) {
  double total = 0;
  for (double v : values)
    if (std::isfinite(v) && v > 0) total += v;
  std::vector<Span> out;
  double a = rotation;
  for (double v : values) {
    double share = total > 0 && std::isfinite(v) && v > 0 ? v / total : 0;
    out.push_back({a, a + 360 * share});
    a += 360 * share;
  }
  return out;
}

bool shielded(Pt p) {
  const ChartState &c = mirval_state().chart;
  for (const ShieldRegion &r : c.shields)
    if (r.visible && (r.automatic || c.shield_user) && in_polygon(p, r.poly)) return true;
  return false;
}

std::vector<std::vector<Pt>> unshielded(const std::vector<Pt> &line) {
  const ChartState &c = mirval_state().chart;
  bool any = false;
  for (const ShieldRegion &r : c.shields) any = any || (r.visible && (r.automatic || c.shield_user));
  if (!any) return {line};
  std::vector<std::vector<Pt>> out(1);
  auto keep = [&](Pt p) { out.back().push_back(p); };
  auto cut = [&] {
    if (out.back().size() >= 2) out.emplace_back();
    else out.back().clear();
  };
  for (size_t i = 0; i + 1 < line.size(); ++i) {
    Pt a = line[i], b = line[i + 1];
    std::vector<double> ts{0, 1};
    for (const ShieldRegion &r : c.shields)
      if (r.visible && (r.automatic || c.shield_user)) crossings(a, b, r.poly, ts);
    std::sort(ts.begin(), ts.end());
    for (size_t k = 0; k + 1 < ts.size(); ++k) {
      double t0 = ts[k], t1 = ts[k + 1];
      if (t1 - t0 < 1e-12) continue;
      Pt m{a.x + (b.x - a.x) * (t0 + t1) / 2, a.y + (b.y - a.y) * (t0 + t1) / 2};
      Pt p0{a.x + (b.x - a.x) * t0, a.y + (b.y - a.y) * t0}, p1{a.x + (b.x - a.x) * t1, a.y + (b.y - a.y) * t1};
      if (shielded(m)) {
        cut();
        continue;
      }
      if (out.back().empty()) keep(p0);
      keep(p1);
    }
  }
  if (out.back().size() < 2) out.pop_back();
  if (line.size() == 1 && !shielded(line[0])) out.push_back(line);
  return out;
}

int add_shield(const std::vector<Pt> &poly, bool automatic) {
  ChartState &c = mirval_state().chart;
  ShieldRegion r;
  r.id = c.shield_next++;
  r.poly = poly;
  r.automatic = automatic;
  c.shields.push_back(r);
  return r.id;
}

std::vector<Pt> turned_rect(Pt at, double x0, double w, double h, double angle) {
  double a = angle * M_PI / 180, ca = std::cos(a), sa = std::sin(a);
  std::vector<Pt> out;
  for (Pt q : {Pt{x0, 0}, Pt{x0 + w, 0}, Pt{x0 + w, h}, Pt{x0, h}})
    out.push_back({at.x + q.x * ca + q.y * sa, at.y - q.x * sa + q.y * ca});
  return out;
}

std::vector<Pt> ellipse_polygon(Pt c, double a, double b, double theta) {
  std::vector<Pt> out;
  double t = theta * M_PI / 180, ct = std::cos(t), st = std::sin(t);
  for (int i = 0; i < 72; ++i) {
    double u = i * M_PI / 36, x = a * std::cos(u), y = b * std::sin(u);
    out.push_back({c.x + x * ct - y * st, c.y - (x * st + y * ct)});
  }
  return out;
}

std::vector<Pt> slice_polygon(Pt c, double r, double a1, double a2) {
  std::vector<Pt> out{c};
  int n = std::max(2, static_cast<int>(std::ceil(std::fabs(a2 - a1) / 5)));
  for (int i = 0; i <= n; ++i) {
    double a = (a1 + (a2 - a1) * i / n) * M_PI / 180;
    out.push_back({c.x + r * std::cos(a), c.y - r * std::sin(a)});
  }
  return out;
}

namespace {
const ChartState chart0;
}

const ResetEntry chart_resets[] = {
    {"BARWTH", [](MirvalState &s) { s.chart.bar_width = chart0.bar_width; }},
    {"BARGRP", [](MirvalState &s) { s.chart.group_n = chart0.group_n, s.chart.group_gap = chart0.group_gap, s.chart.group_next = 0; }},
    {"BARPOS", [](MirvalState &s) { s.chart.bar_align = chart0.bar_align; }},
    {"BARTYP", [](MirvalState &s) { s.chart.horizontal = chart0.horizontal, s.chart.bar3d = chart0.bar3d; }},
    {"BARCLR", [](MirvalState &s) { s.chart.bar_front = s.chart.bar_side = s.chart.bar_top = -1; }},
    {"BARBOR", [](MirvalState &s) { s.chart.bar_border = chart0.bar_border; }},
    {"BARMOD", [](MirvalState &s) { s.chart.variable_width = chart0.variable_width; }},
    {"BAROPT", [](MirvalState &s) { s.chart.depth = chart0.depth, s.chart.depth_angle = chart0.depth_angle; }},
    {"CHNBAR", [](MirvalState &s) { s.chart.bar_change = chart0.bar_change, s.chart.bar_changed = 0; }},
    {"PIETYP", [](MirvalState &s) { s.chart.pie3d = chart0.pie3d; }},
    {"PIEOPT", [](MirvalState &s) { s.chart.pie_height = chart0.pie_height, s.chart.pie_tilt = chart0.pie_tilt; }},
    {"PIEEXP", [](MirvalState &s) { s.chart.explode_all = chart0.explode_all; }},
    {"PIELAB", [](MirvalState &s) { s.chart.pie_label = chart0.pie_label, s.chart.pie_label_text = chart0.pie_label_text; }},
    {"PIEVAL", [](MirvalState &s) { s.chart.pie_digits_data = chart0.pie_digits_data, s.chart.pie_digits_percent = chart0.pie_digits_percent; }},
    {"PIEVEC", [](MirvalState &s) { s.chart.pie_vectors = chart0.pie_vectors, s.chart.pie_vector_len = chart0.pie_vector_len, s.chart.pie_vector_shape = chart0.pie_vector_shape; }},
    {"PIECLR", [](MirvalState &s) { s.chart.pie_fill.clear(), s.chart.pie_line.clear(); }},
    {"PIEBOR", [](MirvalState &s) { s.chart.pie_border = chart0.pie_border; }},
    {"PIEROT", [](MirvalState &s) { s.chart.pie_rotation = chart0.pie_rotation; }},
    {"CHNPIE", [](MirvalState &s) { s.chart.pie_change = chart0.pie_change; }},
    {"PIECBK", [](MirvalState &s) { s.chart.pie_callback = nullptr; }},
    {"LINCYC", [](MirvalState &s) { s.chart.line_cycle = chart0.line_cycle; }},
    {"CLRCYC", [](MirvalState &s) { s.chart.colour_cycle = chart0.colour_cycle; }},
    {"PATCYC", [](MirvalState &s) { s.chart.pattern_cycle = chart0.pattern_cycle; }},
    {"INCCRV", [](MirvalState &s) { s.chart.curve_every = chart0.curve_every; }},
    {"LINCLR", [](MirvalState &s) { s.chart.line_colours.clear(), s.chart.line_colour_next = 0; }},
    {"MRKCLR", [](MirvalState &s) { s.chart.marker_colour = chart0.marker_colour; }},
    {"LNMLT", [](MirvalState &s) { s.chart.dash_scale = chart0.dash_scale; }},
    {"GAPCRV", [](MirvalState &s) { s.chart.gap_x = chart0.gap_x; }},
    {"NANCRV", [](MirvalState &s) { s.chart.nan_gaps = chart0.nan_gaps; }},
    {"GAPSIZ", [](MirvalState &s) { s.chart.marker_gap = chart0.marker_gap; }},
    {"SYMROT", [](MirvalState &s) { s.chart.marker_angle = chart0.marker_angle; }},
    {"MYSYMB", [](MirvalState &s) { s.chart.user_symbols = chart0.user_symbols, s.chart.user_filled = chart0.user_filled; }},
    {"MYPAT", [](MirvalState &s) { s.chart.user_pattern = chart0.user_pattern; }},
    {"LINMOD", [](MirvalState &s) { s.chart.smooth = chart0.smooth; }},
    {"POLMOD", [](MirvalState &s) { s.chart.winding = chart0.winding; }},
    {"CLRMOD", [](MirvalState &s) { s.chart.grey = chart0.grey; }},
    {"NOFILL", [](MirvalState &s) { s.chart.fill = chart0.fill; }},
    {"NOLINE", [](MirvalState &s) { s.chart.outline = chart0.outline; }},
    {"NOARLN", [](MirvalState &s) { s.chart.arrow_lines = chart0.arrow_lines; }},
    {"SHIELD", [](MirvalState &s) { s.chart.shield_legend = chart0.shield_legend, s.chart.shield_messages = chart0.shield_messages, s.chart.shield_user = chart0.shield_user; }},
    {"SHLDEL SHLREC SHLRCT SHLCIR SHLELL SHLPIE SHLPOL", [](MirvalState &s) { s.chart.shields.clear(), s.chart.shield_next = 1; }},
    {"TPRINI TPRFIN", [](MirvalState &s) { s.chart.transparent = chart0.transparent; }},
    {"QPLSCL", [](MirvalState &s) { s.chart.quick = chart0.quick; }},
    {"TPRVAL", [](MirvalState &s) { s.chart.alpha = chart0.alpha; }},
    {"TPRMOD", [](MirvalState &s) { s.chart.tpr_targets = chart0.tpr_targets; }},
    {nullptr, nullptr}};
