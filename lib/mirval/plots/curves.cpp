#include "plots/curves.h"
#include "draw/clip.h"
#include "draw/draw.h"
#include "core/keywords.h"
#include "draw/markers.h"
#include "core/messages.h"
#include "mirval.h"
#include "draw/pen.h"
#include "axes/scaling.h"
#include "core/trace.h"
#include "draw/colours.h"
#include "plots/charts.h"

#include <algorithm>
#include <cmath>

namespace {

// Second derivatives of a natural spline through (t[i], v[i]).
std::vector<double> spline_moments(const std::vector<double> &t, const std::vector<double> &v) {
  size_t n = t.size();
  std::vector<double> m(n, 0), c(n, 0), d(n, 0);
  for (size_t i = 1; i + 1 < n; ++i) {
    double h0 = t[i] - t[i - 1], h1 = t[i + 1] - t[i];
    double rhs = 6 * ((v[i + 1] - v[i]) / h1 - (v[i] - v[i - 1]) / h0);
    double diag = 2 * (h0 + h1) - h0 * c[i - 1];
    c[i] = h1 / diag;
    d[i] = (rhs - h0 * d[i - 1]) / diag;
  }
  for (size_t i = n - 1; i-- > 1;) m[i] = d[i] - c[i] * m[i + 1];
  return m;
}

bool finite(Pt p) { return std::isfinite(p.x) && std::isfinite(p.y); }

// Runs of finite points.
std::vector<std::vector<Pt>> runs(const std::vector<Pt> &pts) {
  std::vector<std::vector<Pt>> out(1);
  for (Pt p : pts) {
    if (finite(p)) out.back().push_back(p);
    else if (!out.back().empty()) out.emplace_back();
  }
  if (out.back().empty()) out.pop_back();
  return out;
}

const Rgb cycle_colours[8] = {{0, 0, 0},       {0.85f, 0, 0}, {0, 0.6f, 0},       {0, 0, 0.9f},
                              {0.8f, 0, 0.8f}, {0, 0.7f, 0.7f}, {1, 0.5f, 0},     {0.5f, 0.3f, 0.1f}};

}  // namespace

void cycle_attributes(int how, int k) {
  MirvalState &st = mirval_state();
  if (how & 1) {
    int n = st.chart.colour_cycle[k % 30];
    st.pen.fore = n < 0 && k % 8 == 0;
    st.pen.rgb = n >= 0 ? table_rgb(n) : cycle_colours[k % 8];
    st.pen.index = n;
  }
  if (how & 2) set_line_style(st.chart.line_cycle[k % 30]);
}

// CHNCRV: after every INCCRV curves the next entry of the cycles.
void change_attributes(int how) {
  CurveState &c = mirval_state().curve;
  int every = mirval_state().chart.curve_every;
  if (how && ++c.changed % every == 0) cycle_attributes(how, c.changed / every);
}

namespace {

// The pieces of a curve's line: NaN points break it (or, with NANCRV('OFF'), are left out),
// and so do neighbours farther apart in X than GAPCRV says, and a map's seam and edge.
std::vector<Pt> gapped(const float *x, const float *y, const std::vector<Pt> &pts) {
  const ChartState &c = mirval_state().chart;
  std::vector<Pt> out;
  const Pt gap{NAN, NAN};
  for (size_t i = 0; i < pts.size(); ++i) {
    if (!finite(pts[i]) && !c.nan_gaps) continue;
    if (c.gap_x > 0 && !out.empty() && finite(out.back()) && finite(pts[i]) && i > 0 &&
        std::fabs(double(x[i]) - x[i - 1]) > c.gap_x)
      out.push_back(gap);
    if (i > 0)
      for (Pt q : page_cut(x[i - 1], y[i - 1], x[i], y[i])) out.push_back(q);
    out.push_back(pts[i]);
  }
  return out;
}

// A straight line from a to b that stops 'gap' short of both ends (none when they are closer).
std::vector<Pt> shortened(Pt a, Pt b, double gap) {
  double d = std::hypot(b.x - a.x, b.y - a.y);
  if (d <= 2 * gap) return {};
  double f = gap / d;
  return {{a.x + f * (b.x - a.x), a.y + f * (b.y - a.y)}, {b.x - f * (b.x - a.x), b.y - f * (b.y - a.y)}};
}

bool in_range(const AxisRange &r, double v) {
  if (r.log) {
    if (!(v > 0)) return false;
    v = std::log10(v);
  }
  double eps = 1e-9 * std::fabs(r.e - r.a);
  return v >= std::min(r.a, r.e) - eps && v <= std::max(r.a, r.e) + eps;
}

}  // namespace

std::vector<Pt> spline_points(const std::vector<Pt> &pts, int per) {
  std::vector<Pt> p;
  for (Pt q : pts)
    if (p.empty() || q.x != p.back().x || q.y != p.back().y) p.push_back(q);
  if (p.size() < 3) return p;
  std::vector<double> t(p.size(), 0), x, y;
  for (size_t i = 1; i < p.size(); ++i) t[i] = t[i - 1] + std::hypot(p[i].x - p[i - 1].x, p[i].y - p[i - 1].y);
  for (Pt q : p) x.push_back(q.x), y.push_back(q.y);
  std::vector<double> mx = spline_moments(t, x), my = spline_moments(t, y);
  auto eval = [&](const std::vector<double> &v, const std::vector<double> &m, size_t i, double s) {
    double h = t[i + 1] - t[i], a = (t[i + 1] - s) / h, b = (s - t[i]) / h;
    return a * v[i] + b * v[i + 1] + ((a * a * a - a) * m[i] + (b * b * b - b) * m[i + 1]) * h * h / 6;
  };
  std::vector<Pt> out{p[0]};
  for (size_t i = 0; i + 1 < p.size(); ++i)
    for (int k = 1; k <= per; ++k) {
      double s = t[i] + (t[i + 1] - t[i]) * k / per;
      out.push_back({eval(x, mx, i, s), eval(y, my, i, s)});
    }
  return out;
}

std::vector<std::vector<Pt>> connect_points(const std::vector<Pt> &pts, Interp how, double base) {
  std::vector<std::vector<Pt>> out;
  for (const std::vector<Pt> &run : runs(pts)) {
    switch (how) {
      case Interp::Linear: out.push_back(simplify(run, POLYLINE_TOLERANCE, 5.0)); break;
      case Interp::Spline: out.push_back(spline_points(run, 16)); break;
      case Interp::Step:
      case Interp::Stairs: {
        std::vector<Pt> line{run[0]};
        for (size_t i = 1; i < run.size(); ++i) {
          line.push_back(how == Interp::Step ? Pt{run[i].x, run[i - 1].y} : Pt{run[i - 1].x, run[i].y});
          line.push_back(run[i]);
        }
        out.push_back(line);
        break;
      }
      case Interp::Stem:
        for (Pt q : run) out.push_back({{q.x, base}, q});
        break;
      case Interp::Bars: {
        double gap = INFINITY;
        for (size_t i = 1; i < run.size(); ++i)
          if (run[i].x != run[i - 1].x) gap = std::min(gap, std::fabs(run[i].x - run[i - 1].x));
        double half = std::isfinite(gap) ? 0.4 * gap : 20;
        for (Pt q : run)
          out.push_back({{q.x - half, base}, {q.x - half, q.y}, {q.x + half, q.y}, {q.x + half, base}, {q.x - half, base}});
        break;
      }
    }
  }
  return out;
}

extern "C" {

void curve(const float *x, const float *y, int n) {
  mv_tracef("curve(x=%s, y=%s, n=%d)", mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), n);
  if (!mv_level("curve", 2, 3)) return;
  if (!x || !y || n <= 0) {
    mv_warn("curve", "no points (n = %d)", n);
    return;
  }
  MirvalState &st = mirval_state();
  const AxesState &ax = st.axes;
  std::vector<Pt> pts(n);
  int outside = 0;
  for (int i = 0; i < n; ++i) {
    pts[i] = page_point(x[i], y[i]);
    if (!in_range(ax.range[0], x[i]) || !in_range(ax.range[1], y[i])) ++outside;
  }
  if (outside && st.curve.check)
    mv_warn("curve", "%d of %d points lie outside the axis system", outside, n);
  ChartState &opt = st.chart;
  if (!opt.line_colours.empty()) {  // LINCLR: each curve its colour, in turn
    int k = opt.line_colours[opt.line_colour_next++ % opt.line_colours.size()];
    st.pen.fore = false, st.pen.rgb = table_rgb(k), st.pen.index = k;
  }
  Rect clip = user_clip();
  Rgb rgb = pen_rgb(), mrgb = opt.marker_colour >= 0 ? table_rgb(opt.marker_colour) : rgb;
  const CurveState &c = st.curve;
  double width = st.pen.width * st.pen.thick;
  std::vector<double> dash = st.pen.dash;
  for (double &d : dash) d *= opt.dash_scale;
  auto stroke = [&](const std::vector<Pt> &line) {
    for (const std::vector<Pt> &piece : unshielded(line)) stroke_polyline(piece, clip, rgb, width, dash);
  };
  if (c.incmrk >= 0) {
    double base = ax.box.y1;
    const AxisRange &ry = ax.range[1];
    if (!ry.log && 0 >= std::min(ry.a, ry.e) && 0 <= std::max(ry.a, ry.e)) base = page_y_user(0);
    for (const std::vector<Pt> &line : connect_points(gapped(x, y, pts), c.interp, base)) {
      if (c.interp == Interp::Bars) shape_path(polygon_path(line, clip));
      else if (opt.marker_gap > 0 && c.incmrk == 1 && c.interp == Interp::Linear)
        for (size_t k = 1; k < line.size(); ++k) stroke(shortened(line[k - 1], line[k], opt.marker_gap));
      else stroke(line);
    }
  }
  if (c.incmrk != 0) {
    int every = std::abs(c.incmrk);
    for (int i = 0; i < n; i += every)
      if (finite(pts[i]) && inside(pts[i], clip) && !shielded(pts[i]))
        draw_marker(c.marker, pts[i], c.hsymbl, mrgb, st.pen.width);
  }
  CurveLook look;
  look.rgb = rgb;
  look.width = width;
  look.dash = dash;
  look.incmrk = c.incmrk;
  look.marker = c.marker;
  look.marker_rgb = mrgb;
  look.marker_own = opt.marker_colour >= 0;
  st.legend.curves.push_back(look);
  change_attributes(c.change);
}

void incmrk(int nmrk) {
  mv_tracef("incmrk(%d)", nmrk);
  mirval_state().curve.incmrk = nmrk;
}

void polcrv(const char *cpol) {
  mv_tracef("polcrv(%s)", mv_tstr(cpol).c_str());
  static const struct {
    const char *name;
    Interp how;
  } modes[] = {{"LINEAR", Interp::Linear}, {"STEP", Interp::Step}, {"STAIRS", Interp::Stairs},
               {"BARS", Interp::Bars},     {"STEM", Interp::Stem}, {"SPLINE", Interp::Spline}};
  for (const auto &m : modes)
    if (same(cpol, m.name)) {
      mirval_state().curve.interp = m.how;
      return;
    }
  mv_warn("polcrv", "unknown interpolation %s", mv_tstr(cpol).c_str());
}

void nochek(void) {
  mv_tracef("nochek()");
  mirval_state().curve.check = false;
}

void chncrv(const char *c) {
  mv_tracef("chncrv(%s)", mv_tstr(c).c_str());
  int k = keyword("chncrv", "option", c, {"NONE", "COLOR", "LINE", "BOTH"});
  if (k >= 0) mirval_state().curve.change = k, mirval_state().curve.changed = 0;
}

void errbar(const float *xray, const float *yray, const float *e1ray, const float *e2ray, int n) {
  mv_tracef("errbar(xray=%s, yray=%s, e1ray=%s, e2ray=%s, n=%d)", mv_tarr(n, "floats").c_str(),
            mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), n);
  if (!mv_level("errbar", 2, 3)) return;
  if (!xray || !yray || !e1ray || !e2ray || n <= 0) {
    mv_warn("errbar", "no points (n = %d)", n);
    return;
  }
  const MirvalState &st = mirval_state();
  Rect clip = user_clip();
  double half = st.curve.hsymbl / 2.0;
  for (int i = 0; i < n; ++i) {
    // the bar from y - e1 to y + e2, with a cross line at each end (on a map along the meridian)
    Pt lo = page_point(xray[i], yray[i] - e1ray[i]), hi = page_point(xray[i], yray[i] + e2ray[i]);
    stroke_polyline({lo, hi}, clip);
    for (Pt end : {lo, hi}) stroke_polyline({{end.x - half, end.y}, {end.x + half, end.y}}, clip);
    Pt c = page_point(xray[i], yray[i]);
    if (finite(c) && inside(c, clip)) draw_marker(st.curve.marker, c, st.curve.hsymbl, pen_rgb(), st.pen.width);
  }
  // the legend shows the series by its marker and colour
  CurveLook look;
  look.rgb = pen_rgb();
  look.width = st.pen.width;
  look.incmrk = -1;
  look.marker = st.curve.marker;
  mirval_state().legend.curves.push_back(look);
}

}
