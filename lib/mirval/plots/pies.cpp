// Pie charts: PIEGRF draws a whole pie with labels and a legend, flat or with a 3-D look,
// segments coloured from a cycle, exploded, and shaped segment by segment by a PIECBK
// procedure; PIE draws one segment in plot coordinates.
#include "plots/charts.h"
#include "axes/scaling.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "core/state.h"
#include "core/trace.h"
#include "draw/colours.h"
#include "draw/draw.h"
#include "draw/text.h"
#include "output/device.h"
#include "mirval.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

const double RAD = M_PI / 180;

// A segment as it is drawn: the callback may change its radius, offset, label direction and
// label shift, hide it or its label.
struct Segment {
  double value = 0, percent = 0;
  double a1 = 0, a2 = 0;           // degrees, counter-clockwise
  int radius = 0, offset = 0;      // plot units
  float angle = 0;                 // direction of the offset and the label
  int vx = 0, vy = 0;              // label shift in plot units (y upwards)
  int draw = 1, label = 1;
  Rgb fill, line;
  int pattern = 16;
};

// How the pie lies on the page: centre, and the squash of a 3-D pie's ellipse.
struct View {
  Pt c;
  double k = 1;                    // vertical scale of the top face
  double thick = 0;                // height of the side walls in plot units
};

Pt on_rim(const View &v, Pt c, double r, double a) { return {c.x + r * std::cos(a * RAD), c.y - v.k * r * std::sin(a * RAD)}; }

// The top face of a segment: from its (offset) centre along the rim and back.
Path top_face(const View &v, Pt c, double r, double a1, double a2) {
  Path p;
  p.move(c);
  if (a2 - a1 >= 360 - 1e-9) {
    p = Path();
    arc_path(p, c, r, v.k * r, a1, a2, 0, true);
  } else {
    arc_path(p, c, r, v.k * r, a1, a2, 0, false);
  }
  p.close();
  return p;
}

// The outer wall of a 3-D segment over the part of its rim that faces the viewer.
void wall(const View &v, Pt c, const Segment &s, Rgb fill, bool outlined, Rgb border) {
  for (int turn = -1; turn <= 1; ++turn) {
    double lo = std::max(s.a1, 180.0 + 360 * turn), hi = std::min(s.a2, 360.0 + 360 * turn);
    if (hi - lo <= 1e-9) continue;
    Path p;
    arc_path(p, c, s.radius, v.k * s.radius, lo, hi, 0, true);
    arc_path(p, {c.x, c.y + v.thick}, s.radius, v.k * s.radius, hi, lo, 0, false);
    p.close();
    chart_area(p, fill, s.pattern, outlined, border);
  }
}

// A radial wall of a 3-D segment at angle a (seen when the segment is pulled out).
void side(const View &v, Pt c, const Segment &s, double a, Rgb fill, bool outlined, Rgb border) {
  Pt rim = on_rim(v, c, s.radius, a);
  chart_area(closed_path({c, rim, {rim.x, rim.y + v.thick}, {c.x, c.y + v.thick}}), fill, s.pattern, outlined, border);
}

std::string label_text(const Segment &s) {
  const MirvalState &st = mirval_state();
  const ChartState &ch = st.chart;
  LabelType type = LabelType::Float;
  auto it = st.axes.other_labels.find("PIE");
  if (it != st.axes.other_labels.end()) type = it->second;
  if (type == LabelType::None || same(ch.pie_label.c_str(), "NONE")) return "";
  std::string data = chart_value(s.value, type, ch.pie_digits_data);
  std::string pct = chart_value(s.percent, LabelType::Float, ch.pie_digits_percent) + "%";
  std::string t;
  if (same(ch.pie_label.c_str(), "DATA")) t = data;
  else if (same(ch.pie_label.c_str(), "BOTH")) t = data + " (" + pct + ")";
  else t = pct;
  return ch.pie_label_text.empty() ? t : ch.pie_label_text + " " + t;
}

// The label of a segment: outside the rim with a line to it (PIEVEC), or inside the segment
// when the 'PIE' label target says 'INSIDE' or 'CENTER'.
void draw_label(const View &v, Pt c, const Segment &s) {
  const MirvalState &st = mirval_state();
  const ChartState &ch = st.chart;
  std::string text = label_text(s);
  if (text.empty() || !s.label) return;
  LabelTarget target;
  auto t = st.axextra.targets.find("PIE");
  if (t != st.axextra.targets.end()) target = t->second;
  Rgb rgb = target.colour >= 0 ? table_rgb(target.colour) : pen_rgb();
  double h = st.text.height, a = s.angle;
  std::string pos = upper(target.pos.c_str());
  Pt at;
  Just just = Just::Center;
  if (pos == "INSIDE" || pos == "CENTER" || pos == "CENT") {
    at = on_rim(v, c, 0.62 * s.radius, a);
  } else {
    double len = ch.pie_vector_len > 0 ? ch.pie_vector_len : std::max(1.2 * h, 0.12 * s.radius);
    Pt rim = on_rim(v, c, s.radius, a);
    if (v.k < 1 && std::sin(a * RAD) < 0) rim.y += v.thick;  // the front rim is the wall's lower edge
    Pt end{rim.x + len * std::cos(a * RAD), rim.y - len * std::sin(a * RAD)};
    bool right = std::cos(a * RAD) >= -1e-9;
    if (ch.pie_vectors && !same(ch.pie_vector_shape.c_str(), "NONE")) {
      Pt mid{rim.x + 0.15 * len * std::cos(a * RAD), rim.y - 0.15 * len * std::sin(a * RAD)};
      stroke_polyline({mid, end, {end.x + (right ? 0.5 : -0.5) * h, end.y}}, page_rect(), rgb, st.pen.width, {});
      if (same(ch.pie_vector_shape.c_str(), "ARROW")) {
        double dx = std::cos(a * RAD), dy = -std::sin(a * RAD), w = 0.3 * h;
        fill_path(closed_path({mid, {mid.x + 2 * w * dx - w * dy, mid.y + 2 * w * dy + w * dx},
                               {mid.x + 2 * w * dx + w * dy, mid.y + 2 * w * dy - w * dx}}), rgb);
      }
      end.x += (right ? 0.8 : -0.8) * h;
    } else {
      end.x += (right ? 0.3 : -0.3) * h;
    }
    at = end;
    just = std::fabs(std::cos(a * RAD)) < 0.05 ? Just::Center : right ? Just::Left : Just::Right;
  }
  at.x += s.vx;
  at.y -= s.vy;
  std::string j = upper(target.just.c_str());
  if (j == "LEFT") just = Just::Left;
  else if (j == "RIGHT") just = Just::Right;
  else if (j == "CENT" || j == "CENTER") just = Just::Center;
  put_text(text, "", at, h, 0, just, VAlign::Middle, rgb);
}

// Segments of the values with their colours, angles and the callback's changes.
std::vector<Segment> segments(const float *xray, int n, int radius) {
  ChartState &ch = mirval_state().chart;
  std::vector<double> values(xray, xray + n);
  std::vector<Span> ang = pie_angles(values, ch.pie_rotation);
  double total = 0;
  for (double x : values)
    if (std::isfinite(x) && x > 0) total += x;
  std::vector<Segment> out;
  for (int i = 0; i < n; ++i) {
    Segment s;
    s.value = values[i];
    s.percent = total > 0 && std::isfinite(values[i]) && values[i] > 0 ? 100 * values[i] / total : 0;
    s.a1 = ang[i].lo;
    s.a2 = ang[i].hi;
    s.radius = radius;
    s.offset = ch.explode_all ? static_cast<int>(std::lround(0.1 * radius)) : 0;
    s.angle = float((s.a1 + s.a2) / 2);
    if (!ch.pie_fill.empty() && ch.pie_fill[i % ch.pie_fill.size()] >= 0) s.fill = table_rgb(ch.pie_fill[i % ch.pie_fill.size()]);
    else s.fill = (ch.pie_change & 1) ? cycle_rgb(i) : pen_rgb();
    s.pattern = (ch.pie_change & 2) ? cycle_pattern(i) : mirval_state().pen.pattern == 0 ? 16 : mirval_state().pen.pattern;
    s.line = ch.pie_border >= 0 ? table_rgb(ch.pie_border) : pen_rgb();
    if (!ch.pie_line.empty() && ch.pie_line[i % ch.pie_line.size()] >= 0) s.line = table_rgb(ch.pie_line[i % ch.pie_line.size()]);
    if (ch.pie_callback && s.a2 > s.a1) {
      ch.pie_callback(i + 1, float(s.value), float(s.percent), &s.radius, &s.offset, &s.angle, &s.vx, &s.vy, &s.draw, &s.label);
      if (s.radius < 0 || s.radius > 100000) s.radius = radius;
      if (std::abs(s.offset) > 100000) s.offset = 0;
      if (!std::isfinite(s.angle)) s.angle = float((s.a1 + s.a2) / 2);
      s.vx = std::clamp(s.vx, -100000, 100000);
      s.vy = std::clamp(s.vy, -100000, 100000);
    }
    out.push_back(s);
  }
  return out;
}

// Draws the pie of the values centred at c with radius r; returns the segments drawn.
std::vector<Segment> draw_pie(Pt c, int radius, const float *xray, int n) {
  const ChartState &ch = mirval_state().chart;
  std::vector<Segment> segs = segments(xray, n, radius);
  View v;
  v.c = c;
  if (ch.pie3d) {
    v.k = std::sin(ch.pie_tilt * RAD);
    v.thick = ch.pie_height * radius * std::cos(ch.pie_tilt * RAD);
  }
  bool outlined = ch.pie_border != -2;
  // back segments first, so that nearer walls cover farther ones
  std::vector<size_t> order(segs.size());
  for (size_t i = 0; i < order.size(); ++i) order[i] = i;
  if (ch.pie3d)
    std::stable_sort(order.begin(), order.end(), [&](size_t a, size_t b) {
      return std::sin(segs[a].angle * RAD) > std::sin(segs[b].angle * RAD);
    });
  for (size_t i : order) {
    const Segment &s = segs[i];
    if (!s.draw || s.a2 <= s.a1) continue;
    Pt sc{c.x + s.offset * std::cos(s.angle * RAD), c.y - v.k * s.offset * std::sin(s.angle * RAD)};
    // a pulled-out segment shows its cut faces
    if (ch.pie3d && s.offset != 0 && s.a2 - s.a1 < 360)
      for (double a : {s.a1, s.a2}) side(v, sc, s, a, shade(s.fill, 0.6), outlined, s.line);
    if (ch.pie3d) wall(v, sc, s, shade(s.fill, 0.7), outlined, s.line);
    chart_area(top_face(v, sc, s.radius, s.a1, s.a2), s.fill, s.pattern, outlined, s.line);
  }
  for (const Segment &s : segs) {
    if (!s.draw || s.a2 <= s.a1) continue;
    Pt sc{c.x + s.offset * std::cos(s.angle * RAD), c.y - v.k * s.offset * std::sin(s.angle * RAD)};
    draw_label(v, sc, s);
  }
  return segs;
}

// Legend lines of a PIEGRF text: nlin lines of equal length in cstr.
std::vector<std::string> legend_lines(const char *cstr, int nlin) {
  std::vector<std::string> out;
  if (!cstr || nlin < 1) return out;
  size_t len = std::strlen(cstr), each = len / nlin;
  if (each == 0) return out;
  for (int i = 0; i < nlin; ++i) {
    std::string t(cstr + i * each, each);
    t.erase(t.find_last_not_of(' ') + 1);
    out.push_back(t);
  }
  return out;
}

}  // namespace

extern "C" {

void piegrf(const char *cstr, int nlin, const float *xray, int n) {
  mv_tracef("piegrf(cstr=%s, nlin=%d, xray=%s, n=%d)", mv_tstr(cstr).c_str(), nlin, mv_tarr(n, "floats").c_str(), n);
  if (!mv_level("piegrf", 1, 3)) return;
  if (n < 1) {
    mv_warn("piegrf", "number of values %d below 1", n);
    return;
  }
  if (!xray) {
    mv_warn("piegrf", "no values given");
    return;
  }
  if (nlin < 0) {
    mv_warn("piegrf", "number of legend lines %d below 0", nlin);
    return;
  }
  double total = 0;
  int bad = 0;
  for (int i = 0; i < n; ++i) {
    if (std::isfinite(xray[i]) && xray[i] > 0) total += xray[i];
    else if (!(xray[i] == 0)) ++bad;
  }
  if (bad) mv_warn("piegrf", "%d values that are negative or not finite get no segment", bad);
  if (!(total > 0)) {
    mv_warn("piegrf", "no positive value to share out");
    return;
  }
  MirvalState &st = mirval_state();
  Rect box = st.level >= 2 ? st.axes.box : placed_box();
  std::vector<std::string> lines = legend_lines(cstr, nlin);
  double h = st.text.height;
  // the legend at the right edge of the axis region, the pie in the room left of it
  double legend_w = 0, legend_h = 0;
  if (!lines.empty()) {
    double widest = 0;
    for (const std::string &l : lines) widest = std::max(widest, text_length(l, "", h));
    legend_w = 1.2 * h + st.legend.sample * h + st.legend.gap * h + widest;
    legend_h = 1.2 * h + h + (std::min<int>(lines.size(), n) - 1) * h * (1 + st.legend.spacing);
  }
  double room_w = box.x1 - box.x0 - (legend_w > 0 ? legend_w + 2 * h : 0);
  double room_h = box.y1 - box.y0;
  double extra = st.chart.pie3d ? st.chart.pie_height * std::cos(st.chart.pie_tilt * RAD) : 0;
  double k = st.chart.pie3d ? std::sin(st.chart.pie_tilt * RAD) : 1;
  // labels need about six characters beside the pie and two lines above and below
  double radius = std::min((room_w - 12 * h) / 2, (room_h - 5 * h) / (2 * k + extra));
  if (st.chart.explode_all) radius /= 1.1;
  if (radius < 10) radius = std::min(room_w, room_h) / 3;
  Pt c{box.x0 + room_w / 2, (box.y0 + box.y1) / 2 - extra * radius / 2};
  std::vector<Segment> segs = draw_pie(c, static_cast<int>(std::lround(radius)), xray, n);
  if (lines.empty()) return;
  // the legend: a patch of each segment's colour beside its text
  LegendState keep = st.legend;
  LegendState &lg = st.legend;
  std::string buf;
  int m = std::min<int>(lines.size(), n);
  size_t w = 1;
  for (int i = 0; i < m; ++i) w = std::max(w, lines[i].size());
  lg.lines = m;
  lg.chars = static_cast<int>(w);
  for (int i = 0; i < m; ++i) {
    std::string t = lines[i];
    t.resize(w, ' ');
    buf += t;
    CurveLook look;
    look.pattern = segs[i].pattern;
    look.fill = segs[i].fill;
    look.rgb = segs[i].line;
    look.outlined = st.chart.pie_border != -2;
    lg.given[i + 1] = look;
  }
  lg.title.clear();
  lg.selected.clear();
  lg.placed = true;
  lg.x = static_cast<int>(std::lround(box.x1 - legend_w));
  lg.y = static_cast<int>(std::lround(page_y((box.y0 + box.y1) / 2 - legend_h / 2)));
  legend(buf.data(), 3);
  st.legend = keep;
}

void pie(int nx, int ny, int nr, float a1, float a2) {
  mv_tracef("pie(%d, %d, %d, %g, %g)", nx, ny, nr, (double)a1, (double)a2);
  if (!mv_level("pie", 1, 3) || !in_range("pie", "radius", nr, 1, 100000)) return;
  if (!std::isfinite(a1) || !std::isfinite(a2)) {
    mv_warn("pie", "angles must be finite");
    return;
  }
  const MirvalState &st = mirval_state();
  View v;
  Path p = top_face(v, {double(nx), page_y(ny)}, nr, a1, a1 + std::clamp(double(a2) - a1, -360.0, 360.0));
  chart_area(fit_path(p, plot_clip(), true), pen_rgb(), st.pen.pattern, true, pen_rgb());
}

void pietyp(const char *c) {
  mv_tracef("pietyp(%s)", mv_tstr(c).c_str());
  if (same(c, "2D")) mirval_state().chart.pie3d = false;
  else if (same(c, "3D")) mirval_state().chart.pie3d = true;
  else mv_warn("pietyp", "unknown type %s", mv_tstr(c).c_str());
}

void pieexp(void) {
  mv_tracef("pieexp()");
  mirval_state().chart.explode_all = true;
}

void pielab(const char *c1, const char *c2) {
  mv_tracef("pielab(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  static const char *kinds[] = {"NONE", "DATA", "PERCENT", "BOTH"};
  for (const char *k : kinds)
    if (same(c2, k)) {
      std::string t = c1 ? c1 : "";
      t.erase(t.find_last_not_of(' ') + 1);
      mirval_state().chart.pie_label = k;
      mirval_state().chart.pie_label_text = t;
      return;
    }
  mv_warn("pielab", "unknown label contents %s", mv_tstr(c2).c_str());
}

void pieval(float x, const char *c) {
  mv_tracef("pieval(%g, %s)", (double)x, mv_tstr(c).c_str());
  if (!in_range("pieval", "decimals", x, -1, 6)) return;
  int d = static_cast<int>(std::lround(x));
  if (same(c, "DATA")) mirval_state().chart.pie_digits_data = d;
  else if (same(c, "PERCENT")) mirval_state().chart.pie_digits_percent = d;
  else mv_warn("pieval", "unknown value %s", mv_tstr(c).c_str());
}

void pieopt(float x1, float x2) {
  mv_tracef("pieopt(%g, %g)", (double)x1, (double)x2);
  if (!in_range("pieopt", "thickness", x1, 0, 2) || !in_range("pieopt", "view angle", x2, 10, 90)) return;
  mirval_state().chart.pie_height = x1;
  mirval_state().chart.pie_tilt = x2;
}

void pievec(int n, const char *c) {
  mv_tracef("pievec(%d, %s)", n, mv_tstr(c).c_str());
  if (!in_range("pievec", "length", n, 0, 10000)) return;
  if (!same(c, "LINE") && !same(c, "ARROW") && !same(c, "NONE")) {
    mv_warn("pievec", "unknown line %s", mv_tstr(c).c_str());
    return;
  }
  ChartState &ch = mirval_state().chart;
  ch.pie_vector_len = n;
  ch.pie_vector_shape = upper(c);
  ch.pie_vectors = !same(c, "NONE");
}

void pieclr(const int *nc1ray, const int *nc2ray, int n) {
  mv_tracef("pieclr(nc1ray=%s, nc2ray=%s, n=%d)", mv_tarr(n, "ints").c_str(), mv_tarr(n, "ints").c_str(), n);
  if (!nc1ray || !nc2ray || n < 1) {
    mv_warn("pieclr", "no colours given (n = %d)", n);
    return;
  }
  for (int i = 0; i < n; ++i)
    if (!in_range("pieclr", "colour", nc1ray[i], -1, 255) || !in_range("pieclr", "colour", nc2ray[i], -1, 255)) return;
  ChartState &ch = mirval_state().chart;
  ch.pie_fill.assign(nc1ray, nc1ray + n);
  ch.pie_line.assign(nc2ray, nc2ray + n);
}

void piebor(int n) {
  mv_tracef("piebor(%d)", n);
  if (in_range("piebor", "colour", n, -2, 255)) mirval_state().chart.pie_border = n;
}

void pierot(float x) {
  mv_tracef("pierot(%g)", (double)x);
  if (bounded("pierot", "angle", x, 36000)) mirval_state().chart.pie_rotation = x;
}

void chnpie(const char *c) {
  mv_tracef("chnpie(%s)", mv_tstr(c).c_str());
  int k = keyword("chnpie", "option", c, {"NONE", "COLOR", "PATTERN", "BOTH"});
  if (k >= 0) mirval_state().chart.pie_change = k;
}

void piecbk(MvPieCb cb) {
  mv_tracef("piecbk(cb=callback)");
  mirval_state().chart.pie_callback = cb;
}

}
