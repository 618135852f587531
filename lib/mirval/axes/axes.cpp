// 2-D axis systems: GRAF places and draws one (axis lines, ticks, labels, names), TITLE puts
// the title lines above it; the settings routines prepare the next one.
#include "axes/axes.h"
#include "draw/draw.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "mirval.h"
#include "axes/scaling.h"
#include "draw/text.h"
#include "core/trace.h"
#include "axes/date_labels.h"
#include "draw/colours.h"
#include <cctype>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

// A typographic minus sign in place of the hyphen that printf writes.
std::string minus(std::string t) {
  if (!t.empty() && t[0] == '-') t.replace(0, 1, "\u2212");
  return t;
}

// v with d decimals, without the point that 0 decimals would leave.
std::string fixed(double v, int d) {
  std::string t = number_text(v, d);
  if (t.back() == '.') t.pop_back();
  return t;
}

// A number as NUMODE wants it: decimal sign, thousands separator, plus sign.
std::string dress(std::string t) {
  const AxisExtraState &x = mirval_state().axextra;
  size_t start = !t.empty() && t[0] == '-' ? 1 : 0;
  size_t point = t.find('.');
  size_t int_end = point == std::string::npos ? t.size() : point;
  if (point != std::string::npos) t[point] = x.decimal;
  size_t digits_end = int_end;
  while (digits_end > start && !std::isdigit(static_cast<unsigned char>(t[digits_end - 1]))) --digits_end;
  if (!x.group.empty())
    for (long k = static_cast<long>(digits_end) - 3; k > static_cast<long>(start); k -= 3) t.insert(k, x.group);
  if (x.plus && start == 0 && !t.empty() && t != "0" && std::isdigit(static_cast<unsigned char>(t[0])) &&
      std::strtod(t.c_str(), nullptr) != 0)
    t = "+" + t;
  return t;
}

struct Label {
  double at;  // axis units (exponents on log axes)
  std::string text, sup;
};

// Which per-axis forms apply: the axis index, or -1 for labels that are not an axis's.
int forms_of(int axis) { return axis >= 0 && axis < 3 ? axis : -1; }

// The positions of date labels: calendar months or years, or whole weeks, when LABMOD asks.
std::vector<double> date_positions(const AxisRange &r, const AxisForm &f) {
  const AxisExtraState &x = mirval_state().axextra;
  long base = days_from_civil(x.base_day, x.base_month, x.base_year);
  double lo = std::min(r.a, r.e), hi = std::max(r.a, r.e);
  if (!(hi - lo < 3.6e6)) return {};
  std::vector<double> out;
  if (f.date_step >= 3) {
    // every 1, 2, 3 or 6 months (or 1, 2, 5, 10 ... years) so that about eight labels remain
    double span = hi - lo, unit = f.date_step == 3 ? 30.44 : 365.25;
    int every = 1;
    for (int e : {1, 2, 3, 6, 12, 24, 60, 120, 240, 600})
      if ((f.date_step == 4 || e <= 6) && span / (unit * e) <= 12.5) {
        every = e;
        break;
      } else {
        every = e;
      }
    if (f.date_step == 3 && every > 6) every = 6;
    for (long d : calendar_steps(static_cast<long>(std::ceil(lo)) + base, static_cast<long>(std::floor(hi)) + base,
                                 f.date_step, every))
      out.push_back(static_cast<double>(d - base));
    return out;
  }
  if (f.date_step == 2) {  // Mondays
    long first = static_cast<long>(std::ceil(lo));
    while (weekday(first + base) != 1) ++first;
    long stride = std::max(1L, static_cast<long>(std::ceil((hi - lo) / 7 / 10)));
    for (long d = first; d <= hi; d += 7 * stride) out.push_back(static_cast<double>(d));
    return out;
  }
  return label_values(r);
}

// Label texts: linear axes share one number of decimals, log axes show each power exactly.
std::vector<Label> make_labels(const AxisSettings &s, const AxisRange &r, int axis = -1) {
  std::vector<Label> out;
  if (s.labels == LabelType::None) return out;
  const AxisExtraState &x = mirval_state().axextra;
  int fi = forms_of(axis);
  AxisForm plain;
  const AxisForm &form = fi >= 0 ? x.form[fi] : plain;
  std::vector<double> at = s.labels == LabelType::Date ? date_positions(r, form) : label_values(r);
  double factor = fi >= 0 && (x.factor_axes & (1 << fi)) ? x.factor : 1;
  std::vector<double> values;
  for (double v : at) values.push_back((r.log ? std::pow(10.0, v) : v) * factor);
  if (x.integer && fi >= 0 && !r.log) {  // INTAX: whole numbers only
    std::vector<double> a2, v2;
    for (size_t i = 0; i < at.size(); ++i)
      if (std::fabs(values[i] - std::round(values[i])) < 1e-6 * std::max(1.0, std::fabs(values[i])))
        a2.push_back(at[i]), v2.push_back(std::round(values[i]));
    at = a2, values = v2;
  }
  int common = s.digits >= 0 ? s.digits : needed_digits(values);
  long base = days_from_civil(x.base_day, x.base_month, x.base_year);
  bool seconds = false;
  for (double v : values) seconds = seconds || std::fabs(std::remainder(v, 60)) > 1e-6;
  for (size_t i = 0; i < at.size(); ++i) {
    double v = values[i];
    Label l{at[i], "", ""};
    LabelType type = s.labels;
    if (type == LabelType::Float && x.auto_numbers && v != 0 && (std::fabs(v) >= 1e6 || std::fabs(v) < 1e-3))
      type = LabelType::Exp;
    switch (type) {
      case LabelType::Float:
      case LabelType::Map:  // degrees with N, S, E and W on map axis systems only
        l.text = dress(fixed(v, r.log && s.digits < 0 ? needed_digits({v}) : common));
        break;
      case LabelType::Log:
        l.text = "10";
        l.sup = fixed(at[i], needed_digits({at[i]}));
        break;
      case LabelType::Exp:
      case LabelType::Fexp: {
        int e = v == 0 ? 0 : static_cast<int>(std::floor(std::log10(std::fabs(v)) + 1e-9));
        double m = v / std::pow(10.0, e);
        std::string mant = dress(fixed(m, s.digits >= 0 ? s.digits : needed_digits({m})));
        if (v == 0 && !x.zero_label && fi >= 0) continue;
        if (s.labels == LabelType::Fexp) {
          char buf[16];
          std::snprintf(buf, sizeof buf, "E%+03d", e);
          l.text = mant + buf;
        } else if (v == 0) {
          l.text = "0";
        } else {
          l.text = mant + "\u00d710";
          l.sup = std::to_string(e);
        }
        break;
      }
      case LabelType::Date: {
        DateForm f{form.year, form.month, form.weekday, form.date_step};
        l.text = date_text(base + std::lround(v), f);
        break;
      }
      case LabelType::Time: l.text = time_text(v, seconds); break;
      case LabelType::MyLab: {
        auto it = form.mylab.find(static_cast<int>(i) + 1);
        l.text = it != form.mylab.end() ? it->second : dress(fixed(v, common));
        break;
      }
      case LabelType::None: break;
    }
    if (type != LabelType::MyLab && type != LabelType::Date) {
      l.text = minus(l.text);
      l.sup = minus(l.sup);
    }
    out.push_back(l);
  }
  // AXENDS: labels at the ends of the axis left out
  if (fi >= 0 && !out.empty()) {
    double eps = std::fabs(r.e - r.a) * 1e-9;
    if (!(form.ends & 1) && std::fabs(out.front().at - std::min(r.a, r.e)) <= eps) out.erase(out.begin());
    if (!out.empty() && !(form.ends & 2) && std::fabs(out.back().at - std::max(r.a, r.e)) <= eps) out.pop_back();
  }
  return out;
}

// Positions of the minor ticks (axis units).
std::vector<double> minor_values(const AxisSettings &s, const AxisRange &r) {
  std::vector<double> out;
  double lo = std::min(r.a, r.e), hi = std::max(r.a, r.e), step = std::fabs(r.step);
  if (r.log) {
    int mode = mirval_state().axextra.logtic;
    if (mode == 3) return out;
    bool decades = std::fabs(step - 1) < 1e-9 && std::fabs(r.org - std::round(r.org)) < 1e-9;
    for (double d = std::floor(lo); d <= hi; ++d)
      if (decades || mode == 1 || mode == 2) {
        for (int m = 2; m <= 9; ++m) {
          if (mode == 2 && m != 2 && m != 5) continue;
          double v = d + std::log10(m);
          if (v >= lo && v <= hi) out.push_back(v);
        }
      } else if (std::fabs(std::remainder(d - r.org, step)) > 1e-9 && d >= lo) {
        out.push_back(d);
      }
    return out;
  }
  if (s.ticks < 2) return out;
  AxisRange fine = r;
  fine.step = step / s.ticks;
  for (double v : label_values(fine))
    if (std::fabs(std::remainder(v - r.org, step)) > fine.step * 1e-3) out.push_back(v);
  return out;
}

// Page position of an axis value along axis i (x for 0, y for 1).
double along(int i, double v) {
  const AxesState &ax = mirval_state().axes;
  const AxisRange &r = ax.range[i];
  double f = (v - r.a) / (r.e - r.a);
  return i == 0 ? ax.box.x0 + f * (ax.box.x1 - ax.box.x0) : ax.box.y1 - f * (ax.box.y1 - ax.box.y0);
}

// Every m-th label, with m from 1, 2, 5, 10, 20 ... the least that keeps neighbours apart by
// 'gap'; the labels kept are whole multiples of the wider step where the axis has them.
std::vector<const Label *> thinned(const std::vector<Label> &labels, const AxisRange &r, int axis,
                                   double h, double gap, bool upright) {
  std::vector<double> pos, size;
  for (const Label &l : labels) {
    pos.push_back(along(axis, l.at));
    size.push_back((axis == 0) == upright ? text_length(l.text, l.sup, h) : h);
  }
  auto fits = [&](size_t stride, size_t first) {
    for (size_t i = first; i + stride < labels.size(); i += stride)
      if (std::fabs(pos[i + stride] - pos[i]) < (size[i] + size[i + stride]) / 2 + gap) return false;
    return true;
  };
  size_t stride = 1, first = 0;
  for (double scale = 1; stride < labels.size(); scale *= 10) {
    bool done = false;
    for (double m : {1.0, 2.0, 5.0}) {
      stride = static_cast<size_t>(m * scale);
      double wide = std::fabs(r.step) * stride;
      first = 0;
      for (size_t i = 0; i < std::min(stride, labels.size()); ++i)
        if (std::fabs(std::remainder(labels[i].at, wide)) < wide * 1e-6) first = i;
      if (fits(stride, first)) {
        done = true;
        break;
      }
    }
    if (done) break;
  }
  std::vector<const Label *> out;
  for (size_t i = first; i < labels.size(); i += stride) out.push_back(&labels[i]);
  return out;
}

// A label with its exponent as SETEXP and SETBAS size and raise it.
void put_label(const Label &l, Pt at, double h, double angle, Just just, VAlign va, Rgb rgb) {
  const AxisExtraState &x = mirval_state().axextra;
  if (l.sup.empty() || (x.exp_size == 0.6 && x.exp_raise == 0.55)) {
    put_text(l.text, l.sup, at, h, angle, just, va, rgb);
    return;
  }
  double wb = text_length(l.text, "", h), we = text_length(l.sup, "", h * x.exp_size), w = wb + we;
  double start = just == Just::Left ? 0 : just == Just::Center ? -w / 2 : -w;
  double shift = va == VAlign::Top ? h : va == VAlign::Middle ? h / 2 : 0;
  double c = std::cos(angle * M_PI / 180), s = std::sin(angle * M_PI / 180);
  // baseline start, then along the text direction (c, -s) and up (-s, -c) in page terms
  Pt base{at.x + start * c - s * shift, at.y - start * s + c * shift};
  put_text(l.text, "", base, h, angle, Just::Left, VAlign::Base, rgb);
  Pt e{base.x + wb * c - s * h * x.exp_raise, base.y - wb * s - c * h * x.exp_raise};
  put_text(l.sup, "", e, h * x.exp_size, angle, Just::Left, VAlign::Base, rgb);
}

// The forms of the axis drawn by draw_side: the X or Y axis, or the Z axis of a colour bar.
int side_form[2] = {0, 1};

// Draws one side of the axis system (0 lower, 1 left, 2 upper, 3 right) and returns how far
// its ticks, labels and name reach out from the axis line.
double draw_side(int side) {
  MirvalState &st = mirval_state();
  const AxesState &ax = st.axes;
  int mode = ax.sides[side];
  if (mode == 0) return 0;
  int axis = side % 2;
  int fi = side_form[axis];
  const AxisForm &form = st.axextra.form[fi];
  const AxisSettings &s = ax.axis[axis];
  const AxisRange &r = ax.range[axis];
  const Rect &b = ax.box;
  auto part_rgb = [&](int k) { return form.colour[k] >= 0 ? table_rgb(form.colour[k]) : pen_rgb(); };
  Rgb rgb = part_rgb(0);
  double width = std::max(1, st.pen.frame);
  // the axis line, and the outward normal (ox, oy)
  double line = side == 0 ? b.y1 : side == 1 ? b.x0 : side == 2 ? b.y0 : b.x1;
  double ox = side == 1 ? -1 : side == 3 ? 1 : 0, oy = side == 0 ? 1 : side == 2 ? -1 : 0;
  auto point = [&](double pos, double out) {
    return axis == 0 ? Pt{pos, line + oy * out} : Pt{line + ox * out, pos};
  };
  Rect page = page_rect();
  if (axis == 0) stroke_polyline({{b.x0, line}, {b.x1, line}}, page, rgb, width, {});
  else stroke_polyline({{line, b.y0}, {line, b.y1}}, page, rgb, width, {});
  if (mode == 1) return 0;

  double reach = 0;
  rgb = part_rgb(1);
  auto ticks = [&](const std::vector<double> &at, double len) {
    double from = s.ticpos == 0 ? 0 : s.ticpos == 1 ? -len : -len / 2;
    double to = s.ticpos == 0 ? len : s.ticpos == 1 ? 0 : len / 2;
    for (double v : at)
      stroke_polyline({point(along(axis, v), from), point(along(axis, v), to)}, page, rgb, width, {});
    reach = std::max(reach, to);
  };
  std::vector<Label> labels = make_labels(s, r, fi);
  if (form.ticmode >= 1) {
    std::vector<double> major = s.labels == LabelType::Date ? date_positions(r, form) : label_values(r);
    ticks(major, ax.ticlen_major);
  }
  std::vector<double> minor = minor_values(s, r);
  double length = axis == 0 ? b.x1 - b.x0 : b.y1 - b.y0, span = std::fabs(r.e - r.a);
  // minor ticks closer than 8 plot units would only blacken the axis
  if (form.ticmode >= 2 && s.labels != LabelType::Date &&
      (minor.size() < 2 || length * std::fabs(minor[1] - minor[0]) / span >= 8))
    ticks(minor, ax.ticlen_minor);
  // ADDLAB: labels (and ticks) of the user's own at given values
  std::vector<Label> added;
  for (const ExtraLabel &e : form.added) {
    double v = r.log ? (e.value > 0 ? std::log10(e.value) : NAN) : e.value;
    if (!(v >= std::min(r.a, r.e) - 1e-9 * span && v <= std::max(r.a, r.e) + 1e-9 * span)) continue;
    if (e.tick > 0) ticks({v}, e.tick == 2 ? ax.ticlen_major : ax.ticlen_minor);
    added.push_back({v, e.text, ""});
  }
  if (mode == 2) return reach;

  rgb = part_rgb(2);
  double h = st.text.height, extent = reach + s.labdis, widest = 0;
  bool upright = !form.vertical;
  // LABPOS('CENTER'): each label in the middle of its step
  double shift = form.between ? std::fabs(r.step) / 2 : 0;
  if (form.between && !labels.empty() && labels.back().at + shift > std::max(r.a, r.e) + 1e-9 * span) labels.pop_back();
  for (Label &l : labels) l.at += shift;
  std::vector<const Label *> shown = thinned(labels, r, axis, h, axis == 0 ? 1.2 * h : 0.6 * h, upright);
  for (const Label &l : added) shown.push_back(&l);
  // the width of the label column, for justification of Y labels
  double column = 0;
  for (const Label *l : shown) column = std::max(column, text_length(l->text, l->sup, h));
  for (const Label *l : shown) {
    Pt at = point(along(axis, l->at), extent);
    double angle = 0;
    Just just;
    VAlign va;
    double size;
    if (axis == 0 && upright) {
      just = Just::Center;
      va = side == 0 ? VAlign::Top : VAlign::Base;
      size = h;
    } else if (axis == 0) {  // vertical labels read upwards, ending at the axis
      angle = 90;
      just = side == 0 ? Just::Right : Just::Left;
      va = VAlign::Middle;
      size = text_length(l->text, l->sup, h);
    } else if (!upright) {  // Y labels turned, centred on their value
      angle = 90;
      just = Just::Center;
      va = side == 1 ? VAlign::Base : VAlign::Top;
      size = h;
    } else {
      // LABJUS: 1 LEFT and 2 RIGHT within the label column, 3 OUTWARDS, 4 INWARDS
      int j = form.label_just;
      bool left = side == 1 ? (j == 1 || j == 3) : !(j == 2 || j == 3);
      if (j == 0) left = side == 3;
      if (left && side == 1) at = point(along(axis, l->at), extent + column);
      if (!left && side == 3) at = point(along(axis, l->at), extent + column);
      just = left ? Just::Left : Just::Right;
      va = VAlign::Middle;
      size = column;
    }
    put_label(*l, at, h, angle, just, va, rgb);
    widest = std::max(widest, size);
  }
  extent += widest;
  if (mode == 3 || s.name.empty()) return extent;

  rgb = part_rgb(3);
  double lo = axis == 0 ? b.x0 : b.y1, hi = axis == 0 ? b.x1 : b.y0;
  double mid = form.name_just == 0 ? lo : form.name_just == 2 ? hi : (lo + hi) / 2;
  Pt at = point(mid, extent + s.namdis);
  bool reversed = axis == 1 && st.axextra.y_name_reversed;
  double angle = axis == 0 ? 0 : reversed ? -90 : 90;
  VAlign va = side == 0 || side == 3 ? VAlign::Top : VAlign::Base;
  if (reversed) va = va == VAlign::Top ? VAlign::Base : VAlign::Top;
  Just nj = form.name_just == 0 ? Just::Left : form.name_just == 2 ? Just::Right : Just::Center;
  if (reversed && nj != Just::Center) nj = nj == Just::Left ? Just::Right : Just::Left;
  put_text(s.name, "", at, ax.hname, angle, nj, va, rgb);
  return extent + s.namdis + ax.hname;
}

// The decimal number a float argument stands for (0.1f is meant as 0.1), so that label
// positions do not drift over many steps.
double decimal(float f) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%.7g", (double)f);
  return std::strtod(buf, nullptr);
}

// How many label steps automatic scaling aims at: readable spacing, at most eight (decades on
// log axes need less room).
int target_intervals(int axis, double length, bool log) {
  double room = log ? 100 : axis == 0 ? 180 : 120;
  return std::clamp(static_cast<int>(length / room), 1, log ? 12 : 8);
}

// The range GRAF draws for axis i: automatic scaling replaces the given one.
bool settle_range(const char *routine, int i, float a, float e, float org, float step, double length,
                  AxisRange &r) {
  const AxisSettings &s = mirval_state().axes.axis[i];
  const char *letter = i == 0 ? "X" : i == 1 ? "Y" : "Z";
  if (s.autoscale) {
    double lo = s.log && s.data_min <= 0 ? s.data_minpos : s.data_min;
    double h = mirval_state().text.height;
    for (int n = target_intervals(i, length, s.log); n >= 1; --n) {
      r = auto_range(lo, s.data_max, s.log, n);
      if (mirval_state().axextra.integer && !r.log && r.step < 1) {  // INTAX: whole steps
        r.step = 1;
        r.a = std::floor(r.a), r.e = std::ceil(r.e), r.org = r.a;
      }
      if (i == 1 || r.log) break;
      double widest = 0;
      for (const Label &l : make_labels(s, r)) widest = std::max(widest, text_length(l.text, l.sup, h));
      if (length * r.step / (r.e - r.a) >= widest + 1.5 * h) break;
    }
    return true;
  }
  if (!std::isfinite(a) || !std::isfinite(e) || !std::isfinite(double(e) - a) || a == e) {
    mv_warn(routine, "%s axis range %g to %g is empty", letter, (double)a, (double)e);
    return false;
  }
  r.log = s.log;
  r.a = decimal(a);
  r.e = decimal(e);
  r.org = std::isfinite(org) ? decimal(org) : r.a;
  r.step = std::fabs(decimal(step));
  if (!(r.step > 0) || !std::isfinite(r.step) || std::fabs(e - a) / r.step > 1000) {
    mv_warn(routine, "%s label step %g does not fit the range; a step is chosen", letter, (double)step);
    AxisRange auto_r = auto_range(a, e, false, target_intervals(i, length, false));
    r.step = auto_r.step;
    r.org = std::ceil(std::min(a, e) / r.step - 1e-9) * r.step;
  }
  return true;
}

// The axes a routine's axis argument names, with a warning when there are none.
int axes_of(const char *routine, const char *cax) {
  int bits = axis_bits(cax);
  if (!bits) mv_warn(routine, "unknown axes %s", mv_tstr(cax).c_str());
  return bits;
}

template <class F>
void for_axes(const char *routine, const char *cax, F f) {
  int bits = axes_of(routine, cax);
  for (int i = 0; i < 3; ++i)
    if (bits & (1 << i)) f(mirval_state().axes.axis[i]);
}

// Lines at values of one axis across the axis system.
void across(int axis, const std::vector<double> &at) {
  const Rect &b = mirval_state().axes.box;
  for (double v : at) {
    double p = along(axis, v);
    if (axis == 0) stroke_polyline({{p, b.y0}, {p, b.y1}}, b);
    else stroke_polyline({{b.x0, p}, {b.x1, p}}, b);
  }
}

// Positions of grid lines: n per label step.
std::vector<double> grid_values(int axis, int n) {
  const MirvalState &st = mirval_state();
  const AxisRange &r = st.axes.range[axis];
  if (n <= 0) return {};
  if (r.log) {
    std::vector<double> at = label_values(r);
    if (n > 1) {
      std::vector<double> minor = minor_values(st.axes.axis[axis], r);
      at.insert(at.end(), minor.begin(), minor.end());
    }
    return at;
  }
  AxisRange fine = r;
  fine.step = std::fabs(r.step) / n;
  return label_values(fine);
}

// The line where the other axis has the value 0, when it lies inside.
void zero_line(int axis) {
  const AxisRange &other = mirval_state().axes.range[1 - axis];
  if (other.log || 0 < std::min(other.a, other.e) || 0 > std::max(other.a, other.e)) return;
  across(1 - axis, {0.0});
}

struct LabelName {
  const char *name;
  LabelType type;
};
const LabelName label_names[] = {{"FLOAT", LabelType::Float}, {"EXP", LabelType::Exp},
                                 {"FEXP", LabelType::Fexp},   {"LOG", LabelType::Log},
                                 {"NONE", LabelType::None},   {"DATE", LabelType::Date},
                                 {"TIME", LabelType::Time},   {"MYLAB", LabelType::MyLab},
                                 {"MAP", LabelType::Map}};

const char *label_name(LabelType t) {
  for (const LabelName &n : label_names)
    if (n.type == t) return n.name;
  return "";
}

}  // namespace

std::vector<AxisLabel> axis_labels(const AxisSettings &s, const AxisRange &r) {
  std::vector<AxisLabel> out;
  for (const Label &l : make_labels(s, r)) out.push_back({l.at, l.text, l.sup});
  return out;
}

bool axis_range(const char *routine, int i, float a, float e, float org, float step, double length,
                AxisRange &r) {
  return settle_range(routine, i, a, e, org, step, length, r);
}

void axis_system(const std::array<AxisRange, 2> &r) {
  MirvalState &st = mirval_state();
  AxesState &ax = st.axes;
  AxisExtraState &x = st.axextra;
  ax.range = r;
  ax.box = placed_box();
  st.grid.colour_axis = false;
  st.grid.label_boxes.clear();
  x.chart = 0;
  x.bottom_room = x.left_room = 0;
  ax.title_room = 0;
  st.level = 2;
  if (x.nograf) {  // NOGRAF: this one axis system is drawn without axes
    x.nograf = false;
    return;
  }
  if (x.background >= 0) fill_path(rect_path(ax.box.x0, ax.box.y0, ax.box.x1, ax.box.y1), table_rgb(x.background));
  std::array<int, 4> saved = ax.sides;
  if (x.all_labelled) ax.sides = {std::max(ax.sides[0], 3), std::max(ax.sides[1], 3), std::max(ax.sides[2], 3), std::max(ax.sides[3], 3)};
  if (x.axis_type == 2) ax.sides[2] = ax.sides[3] = 0;  // AXSTYP('OPEN')
  if (x.right_labels) std::swap(ax.sides[1], ax.sides[3]);
  if (x.axis_type == 1) {
    // AXSTYP('CROSS'): the two axes pass through the user origin (or the nearest edge)
    Rect b = ax.box;
    double y0 = std::clamp(page_y_user(r[1].log ? 1 : 0), b.y0, b.y1);
    double x0 = std::clamp(page_x(r[0].log ? 1 : 0), b.x0, b.x1);
    if (!std::isfinite(y0)) y0 = b.y1;
    if (!std::isfinite(x0)) x0 = b.x0;
    ax.box = {b.x0, b.y0, b.x1, y0};
    draw_side(0);
    ax.box = {x0, b.y0, b.x1, b.y1};
    draw_side(1);
    ax.box = b;
  } else {
    for (int side = 0; side < 4; ++side) {
      double reach = draw_side(side);
      if (side == 2) ax.title_room = reach;
      if (side == 0) x.bottom_room = reach;
      if (side == 1) x.left_room = reach;
    }
  }
  ax.sides = saved;
}

double axis_side(int side) { return draw_side(side); }

double axis_side(int side, int form) {
  int saved = side_form[side % 2];
  side_form[side % 2] = form;
  double reach = draw_side(side);
  side_form[side % 2] = saved;
  return reach;
}

std::vector<AxisLabel> axis_labels(const AxisSettings &s, const AxisRange &r, int form) {
  std::vector<AxisLabel> out;
  for (const Label &l : make_labels(s, r, form)) out.push_back({l.at, l.text, l.sup});
  return out;
}

void axis_lines(const char *routine, int top, int axis, void (*line)(int)) {
  mv_tracef("%s()", routine);
  if (!mv_level(routine, 2, top)) return;
  for (int i = 0; i < 2; ++i)
    if (axis < 0 || axis == i) line(i);
}

extern "C" {

void graf(float xa, float xe, float xor_, float xstp, float ya, float ye, float yor, float ystp) {
  mv_tracef("graf(%g, %g, %g, %g, %g, %g, %g, %g)", (double)xa, (double)xe, (double)xor_,
            (double)xstp, (double)ya, (double)ye, (double)yor, (double)ystp);
  if (!mv_level("graf", 1, 1)) return;
  const AxesState &ax = mirval_state().axes;
  std::array<AxisRange, 2> r;
  if (settle_range("graf", 0, xa, xe, xor_, xstp, ax.len[0], r[0]) &&
      settle_range("graf", 1, ya, ye, yor, ystp, ax.len[1], r[1]))
    axis_system(r);
}

void endgrf(void) {
  mv_tracef("endgrf()");
  if (!mv_level("endgrf", 2, 3)) return;
  mirval_state().level = 1;
}

void title(void) {
  mv_tracef("title()");
  if (!mv_level("title", 2, 3)) return;
  const AxesState &ax = mirval_state().axes;
  double h = ax.htitle;
  double x = ax.title_just == Just::Left ? ax.box.x0 : ax.title_just == Just::Right ? ax.box.x1 : (ax.box.x0 + ax.box.x1) / 2;
  bool below = mirval_state().axextra.title_pos == 1;  // TITPOS('BELOW')
  double y = ax.box.y0 - ax.title_room - 0.8 * h - ax.vkytit;
  if (below) y = ax.box.y1 + mirval_state().axextra.bottom_room + 1.8 * h + ax.vkytit;
  for (int k = 0; k < 4; ++k) {
    int i = below ? k : 3 - k;
    if (ax.title[i].empty()) continue;
    put_text(ax.title[i], "", {x, y}, h, 0, ax.title_just, VAlign::Base, pen_rgb());
    y += below ? 1.6 * h : -1.6 * h;
  }
}

void titlin(const char *cstr, int nlin) {
  mv_tracef("titlin(%s, %d)", mv_tstr(cstr).c_str(), nlin);
  if (nlin < 1 || nlin > 4) {
    mv_warn("titlin", "line number %d out of range 1..4", nlin);
    return;
  }
  mirval_state().axes.title[nlin - 1] = trimmed(cstr);
}

void htitle(int nhtit) {
  set_number("htitle", "height", nhtit, 1, 10000, mirval_state().axes.htitle);
}

void hname(int nhname) {
  set_number("hname", "height", nhname, 1, 10000, mirval_state().axes.hname);
}

void vkytit(int nvfu) {
  set_number("vkytit", "distance", nvfu, -10000, 10000, mirval_state().axes.vkytit);
}

void axspos(int nxa, int nya) {
  mv_tracef("axspos(%d, %d)", nxa, nya);
  mirval_state().axes.posx = nxa;
  mirval_state().axes.posy = nya;
}

void axslen(int nxl, int nyl) {
  mv_tracef("axslen(%d, %d)", nxl, nyl);
  if (!in_range("axslen", "length", nxl, 1, 100000) || !in_range("axslen", "length", nyl, 1, 100000)) return;
  mirval_state().axes.len[0] = nxl;
  mirval_state().axes.len[1] = nyl;
}

void ax3len(int nxl, int nyl, int nzl) {
  mv_tracef("ax3len(%d, %d, %d)", nxl, nyl, nzl);
  for (int n : {nxl, nyl, nzl})
    if (!in_range("ax3len", "length", n, 1, 100000)) return;
  mirval_state().axes.len = {nxl, nyl, nzl};
}

void getpos(int *nxa, int *nya) {
  mv_tracef("getpos(nxa=out, nya=out)");
  put_out({{nxa, mirval_state().axes.posx}, {nya, mirval_state().axes.posy}});
}

void getlen(int *nxl, int *nyl, int *nzl) {
  mv_tracef("getlen(nxl=out, nyl=out, nzl=out)");
  const std::array<int, 3> &len = mirval_state().axes.len;
  put_out({{nxl, len[0]}, {nyl, len[1]}, {nzl, len[2]}});
}

void labels(const char *copt, const char *cax) {
  mv_tracef("labels(%s, %s)", mv_tstr(copt).c_str(), mv_tstr(cax).c_str());
  for (const LabelName &t : label_names)
    if (same(copt, t.name)) {
      if (axis_bits(cax)) {
        for_axes("labels", cax, [&](AxisSettings &s) { s.labels = t.type; });
      } else if (cax && *cax) {
        mirval_state().axes.other_labels[upper(cax)] = t.type;
      } else {
        mv_warn("labels", "no axes given");
      }
      return;
    }
  mv_warn("labels", "unknown label type %s", mv_tstr(copt).c_str());
}

void digits(int ndig, const char *cax) {
  mv_tracef("digits(%d, %s)", ndig, mv_tstr(cax).c_str());
  if (ndig < -1) mv_warn("digits", "number of decimals %d below -1", ndig);
  else for_axes("digits", cax, [&](AxisSettings &s) { s.digits = ndig; });
}

void labdig(int n, const char *c) {
  mv_tracef("labdig(%d, %s)", n, mv_tstr(c).c_str());
  if (n < -1) mv_warn("labdig", "number of decimals %d below -1", n);
  else if (!axis_bits(c) && c && *c) mirval_state().axes.other_digits[upper(c)] = n;  // 'BARS' ...
  else for_axes("labdig", c, [&](AxisSettings &s) { s.digits = n; });
}

void ticks(int ntics, const char *cax) {
  mv_tracef("ticks(%d, %s)", ntics, mv_tstr(cax).c_str());
  if (in_range("ticks", "number of ticks", ntics, 0, 100)) for_axes("ticks", cax, [&](AxisSettings &s) { s.ticks = ntics; });
}

void ticlen(int n1, int n2) {
  mv_tracef("ticlen(%d, %d)", n1, n2);
  if (!in_range("ticlen", "length", n1, 0, 10000) || !in_range("ticlen", "length", n2, 0, 10000)) return;
  mirval_state().axes.ticlen_major = n1;
  mirval_state().axes.ticlen_minor = n2;
}

void ticpos(const char *c1, const char *c2) {
  mv_tracef("ticpos(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  int pos = same(c1, "LABELS") ? 0 : same(c1, "REVERS") ? 1 : same(c1, "CENTER") ? 2 : -1;
  if (pos < 0) mv_warn("ticpos", "unknown position %s", mv_tstr(c1).c_str());
  else for_axes("ticpos", c2, [&](AxisSettings &s) { s.ticpos = pos; });
}

void name(const char *cstr, const char *cax) {
  mv_tracef("name(%s, %s)", mv_tstr(cstr).c_str(), mv_tstr(cax).c_str());
  std::string t = trimmed(cstr);
  for_axes("name", cax, [&](AxisSettings &s) { s.name = t; });
}

void namdis(int n, const char *c) {
  mv_tracef("namdis(%d, %s)", n, mv_tstr(c).c_str());
  if (in_range("namdis", "distance", n, 0, 10000)) for_axes("namdis", c, [&](AxisSettings &s) { s.namdis = n; });
}

void setgrf(const char *c1, const char *c2, const char *c3, const char *c4) {
  mv_tracef("setgrf(%s, %s, %s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str(), mv_tstr(c3).c_str(),
            mv_tstr(c4).c_str());
  static const char *modes[] = {"NONE", "LINE", "TICKS", "LABELS", "NAME"};
  const char *given[] = {c1, c2, c3, c4};
  std::array<int, 4> sides{};
  for (int i = 0; i < 4; ++i) {
    sides[i] = -1;
    for (int m = 0; m < 5; ++m)
      if (same(given[i], modes[m])) sides[i] = m;
    if (sides[i] < 0) {
      mv_warn("setgrf", "unknown option %s", mv_tstr(given[i]).c_str());
      return;
    }
  }
  mirval_state().axes.sides = sides;
}

void frame(int n) {
  set_number("frame", "thickness", n, 0, 1000, mirval_state().pen.frame);
}

void box2d(void) {
  mv_tracef("box2d()");
  if (!mv_level("box2d", 2, 3)) return;
  const MirvalState &st = mirval_state();
  const Rect &b = st.axes.box;
  if (st.pen.frame == 0) return;
  stroke_polyline({{b.x0, b.y0}, {b.x1, b.y0}, {b.x1, b.y1}, {b.x0, b.y1}, {b.x0, b.y0}}, page_rect(),
                  pen_rgb(), st.pen.frame, {});
}

void grid(int n1, int n2) {
  mv_tracef("grid(%d, %d)", n1, n2);
  if (!mv_level("grid", 2, 3)) return;
  if (!in_range("grid", "number of lines", n1, 0, 100) || !in_range("grid", "number of lines", n2, 0, 100)) return;
  across(0, grid_values(0, n1));
  across(1, grid_values(1, n2));
}

void axgit(void) { axis_lines("axgit", 3, -1, zero_line); }
void xaxgit(void) { axis_lines("xaxgit", 3, 0, zero_line); }
void yaxgit(void) { axis_lines("yaxgit", 3, 1, zero_line); }

void getgrf(float *a, float *e, float *orig, float *step, const char *cax) {
  mv_tracef("getgrf(a=out, e=out, orig=out, step=out, cax=%s)", mv_tstr(cax).c_str());
  int bits = axis_bits(cax);
  if (!mv_level("getgrf", 2, 3)) return;
  const MirvalState &st = mirval_state();
  bool space = st.level == 3;  // a 3-D axis system keeps its own ranges, Z included
  if (bits != 1 && bits != 2 && !(space && bits == 4)) {
    mv_warn("getgrf", "one of the axes X or Y%s must be named, not %s", space ? " or Z" : "",
            mv_tstr(cax).c_str());
    return;
  }
  int axis = bits == 4 ? 2 : bits - 1;
  const AxisRange &r = space ? st.space.range[axis] : st.axes.range[axis];
  put_out({{a, static_cast<float>(r.a)}, {e, static_cast<float>(r.e)}, {orig, static_cast<float>(r.org)},
           {step, static_cast<float>(r.step)}});
}

void getdig(int *nxdig, int *nydig, int *nzdig) {
  mv_tracef("getdig(nxdig=out, nydig=out, nzdig=out)");
  const auto &a = mirval_state().axes.axis;
  put_out({{nxdig, a[0].digits}, {nydig, a[1].digits}, {nzdig, a[2].digits}});
}

void gettic(int *nxtic, int *nytic, int *nztic) {
  mv_tracef("gettic(nxtic=out, nytic=out, nztic=out)");
  const auto &a = mirval_state().axes.axis;
  put_out({{nxtic, a[0].ticks}, {nytic, a[1].ticks}, {nztic, a[2].ticks}});
}

void gettcl(int *nmaj, int *nmin) {
  mv_tracef("gettcl(nmaj=out, nmin=out)");
  put_out({{nmaj, mirval_state().axes.ticlen_major}, {nmin, mirval_state().axes.ticlen_minor}});
}

void getlab(char *cxlab, char *cylab, char *czlab) {
  mv_tracef("getlab(cxlab=out, cylab=out, czlab=out)");
  char *out[3] = {cxlab, cylab, czlab};
  for (int i = 0; i < 3; ++i)
    if (out[i]) std::strcpy(out[i], label_name(mirval_state().axes.axis[i].labels));
}

int gethnm(void) {
  mv_tracef("gethnm()");
  return mirval_state().axes.hname;
}

void titjus(const char *c) {
  mv_tracef("titjus(%s)", mv_tstr(c).c_str());
  set_just("titjus", c, mirval_state().axes.title_just);
}

void labdis(int n, const char *c) {
  mv_tracef("labdis(%d, %s)", n, mv_tstr(c).c_str());
  if (in_range("labdis", "distance", n, 0, 10000)) for_axes("labdis", c, [&](AxisSettings &s) { s.labdis = n; });
}

// Places the next axis system in the middle of the page.
void center(void) {
  mv_tracef("center()");
  MirvalState &st = mirval_state();
  AxesState &ax = st.axes;
  ax.posx = (st.page.width - ax.len[0]) / 2;
  int lower = (st.page.height + ax.len[1]) / 2;  // lower edge, counted from the top
  ax.posy = st.page.bottom ? st.page.height - lower : lower;
}

}
