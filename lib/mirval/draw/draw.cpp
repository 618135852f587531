#include "draw/draw.h"
#include "draw/clip.h"
#include "output/device.h"
#include "core/messages.h"

#include <algorithm>
#include <cmath>

Rgb pen_rgb() {
  const PenState &pen = mirval_state().pen;
  return pen.fore ? fore_rgb() : pen.rgb;
}

double page_y(double y) {
  const PageState &pg = mirval_state().page;
  return pg.bottom ? pg.height - y : y;
}

Rect page_rect() {
  const PageState &pg = mirval_state().page;
  return {0, 0, double(pg.width), double(pg.height)};
}

Rect user_clip() {
  const MirvalState &st = mirval_state();
  switch (st.pen.clip) {
    case ClipMode::Axis: {
      if (st.level < 2) return page_rect();
      double g = st.axextra.grace;  // GRACE: curves may reach that far beyond the frame
      const Rect &b = st.axes.box;
      return {b.x0 - g, b.y0 - g, b.x1 + g, b.y1 + g};
    }
    case ClipMode::Window: return st.pen.window;
    default: return page_rect();
  }
}

Rect plot_clip() {
  const MirvalState &st = mirval_state();
  return st.pen.clip == ClipMode::Window ? st.pen.window : page_rect();
}

void add_item(Item it) {
  const PenState &pen = mirval_state().pen;
  it.cap = pen.cap;
  it.join = pen.join;
  // TPRINI ... TPRFIN: fills (bit 1) and lines and text (bit 2) as TPRMOD says
  const ChartState &ch = mirval_state().chart;
  if (ch.transparent) {
    bool fill = it.kind == ItemKind::Fill || it.kind == ItemKind::Cell || it.kind == ItemKind::Image;
    if (ch.tpr_targets & (fill ? 1 : 2)) it.alpha *= ch.alpha;
  }
  Scene &sc = mirval_state().scene;
  if (sc.pages.empty()) sc.pages.emplace_back();
  sc.current().items.push_back(std::move(it));
  ++sc.changes;
}

void stroke_polyline(const std::vector<Pt> &pts, const Rect &clip, Rgb rgb, double width,
                     const std::vector<double> &dash) {
  Path p;
  append_polyline(p, pts, clip);
  stroke_path(p, rgb, width, dash);
}

void stroke_polyline(const std::vector<Pt> &pts, const Rect &clip) {
  const PenState &pen = mirval_state().pen;
  stroke_polyline(pts, clip, pen_rgb(), pen.width, pen.dash);
}

// An item that draws a path in one colour.
static Item path_item(ItemKind kind, Rgb rgb, const Path &p) {
  Item it;
  it.kind = kind;
  it.rgb = rgb;
  it.path = p;
  return it;
}

void stroke_path(const Path &p, Rgb rgb, double width, const std::vector<double> &dash) {
  if (p.empty()) return;
  Item it = path_item(ItemKind::Stroke, rgb, p);
  it.width = width;
  it.dash = dash;
  add_item(std::move(it));
}

void stroke_path(const Path &p) {
  const PenState &pen = mirval_state().pen;
  stroke_path(p, pen_rgb(), pen.width, pen.dash);
}

void fill_path(const Path &p, Rgb rgb) {
  if (!p.empty()) add_item(path_item(ItemKind::Fill, rgb, p));
}

void fill_cell(const Path &p, Rgb rgb) {
  if (!p.empty()) add_item(path_item(ItemKind::Cell, rgb, p));
}

void pattern_fill(const Path &p, Rgb rgb, int pattern, float alpha) {
  if (p.empty() || pattern <= 0 || pattern > 17) return;
  const MirvalState &st = mirval_state();
  Item it = path_item(pattern == 16 ? ItemKind::Fill : ItemKind::Hatch, rgb, p);
  it.alpha = alpha;
  it.width = st.pen.width;
  it.hatch = pattern == 16 ? 0 : pattern;
  if (pattern == 17) {  // MYPAT: its lines as the pattern was when the area was drawn
    const std::array<int, 4> &u = st.chart.user_pattern;
    if (u[1] == 0) return;  // an empty pattern
    it.hatch_angle = float(u[0]), it.hatch_gap = float(120.0 / u[2]), it.hatch_cross = u[3] == 1;
  }
  add_item(std::move(it));
}

void shape_path(const Path &p) {
  pattern_fill(p, pen_rgb(), mirval_state().pen.pattern);
  stroke_path(p);
}

Path polygon_path(const std::vector<Pt> &poly, const Rect &clip) {
  Path p;
  std::vector<Pt> finite;
  for (Pt q : poly)
    if (std::isfinite(q.x) && std::isfinite(q.y)) finite.push_back(q);
  std::vector<Pt> cut = clip_polygon(finite, clip);
  if (cut.size() >= 2) append_polygon(p, cut);
  return p;
}

void append_polygon(Path &p, const std::vector<Pt> &q) {
  p.move(q[0]);
  for (size_t i = 1; i < q.size(); ++i) p.line(q[i]);
  p.close();
}

void append_polyline(Path &p, const std::vector<Pt> &pts, const Rect &clip) {
  for (const std::vector<Pt> &piece : clip_polyline(pts, clip)) {
    p.move(piece[0]);
    for (size_t i = 1; i < piece.size(); ++i) p.line(piece[i]);
  }
}

Path closed_path(const std::vector<Pt> &q) {
  Path p;
  append_polygon(p, q);
  return p;
}

Path rect_path(double x0, double y0, double x1, double y1) {
  return closed_path({{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}});
}

void arc_path(Path &p, Pt c, double a, double b, double alpha, double beta, double theta, bool start) {
  const double rad = M_PI / 180;
  double ct = std::cos(theta * rad), st = std::sin(theta * rad);
  // a point of the unturned ellipse at angle t, turned and put into page coordinates
  auto at = [&](double fx, double fy) {
    double x = a * fx, y = b * fy;
    return Pt{c.x + x * ct - y * st, c.y - (x * st + y * ct)};
  };
  if (!std::isfinite(alpha) || !std::isfinite(beta) || !std::isfinite(theta)) return;
  double span = std::clamp(beta - alpha, -360.0, 360.0);  // beyond a full turn is a full turn
  int n = std::max(1, static_cast<int>(std::ceil(std::fabs(span) / 90)));
  double step = span / n * rad, k = 4.0 / 3.0 * std::tan(step / 4);
  double t = alpha * rad;
  if (start) p.move(at(std::cos(t), std::sin(t)));
  else p.line(at(std::cos(t), std::sin(t)));
  for (int i = 0; i < n; ++i, t += step) {
    double c0 = std::cos(t), s0 = std::sin(t), c1 = std::cos(t + step), s1 = std::sin(t + step);
    p.curve(at(c0 - k * s0, s0 + k * c0), at(c1 + k * s1, s1 - k * c1), at(c1, s1));
  }
}

namespace {

// The subpaths of a path as point lists, Bezier segments flattened.
std::vector<std::vector<Pt>> flatten(const Path &p) {
  std::vector<std::vector<Pt>> out;
  size_t k = 0;
  for (SegOp op : p.ops) {
    if (op == SegOp::Move) {
      out.push_back({p.pts[k++]});
    } else if (op == SegOp::Line) {
      out.back().push_back(p.pts[k++]);
    } else if (op == SegOp::Curve) {
      Pt a = out.back().back(), b = p.pts[k], c = p.pts[k + 1], d = p.pts[k + 2];
      for (int i = 1; i <= 16; ++i) {
        double t = i / 16.0, u = 1 - t;
        double w0 = u * u * u, w1 = 3 * u * u * t, w2 = 3 * u * t * t, w3 = t * t * t;
        out.back().push_back({w0 * a.x + w1 * b.x + w2 * c.x + w3 * d.x, w0 * a.y + w1 * b.y + w2 * c.y + w3 * d.y});
      }
      k += 3;
    }
  }
  return out;
}

}  // namespace

Path fit_path(const Path &p, const Rect &clip, bool closed) {
  bool within = true;
  for (Pt q : p.pts) within = within && std::isfinite(q.x) && std::isfinite(q.y) && inside(q, clip);
  if (within) return p;
  Path out;
  for (const std::vector<Pt> &sub : flatten(p)) {
    if (closed) {
      Path piece = polygon_path(sub, clip);
      out.ops.insert(out.ops.end(), piece.ops.begin(), piece.ops.end());
      out.pts.insert(out.pts.end(), piece.pts.begin(), piece.pts.end());
      continue;
    }
    for (const std::vector<Pt> &line : clip_polyline(sub, clip)) {
      out.move(line[0]);
      for (size_t i = 1; i < line.size(); ++i) out.line(line[i]);
    }
  }
  return out;
}

bool in_range(const char *routine, const char *what, double v, double lo, double hi) {
  if (v >= lo && v <= hi) return true;
  mv_warn(routine, "%s %g out of range %g..%g", what, v, lo, hi);
  return false;
}

std::vector<Pt> simplify(const std::vector<Pt> &line, double tol, double span) {
  // the points dropped since the last kept one must all stay within tol of the straight line
  // that replaces them; runs are kept short so that the checks stay linear overall
  const size_t longest_run = 16;
  std::vector<Pt> out;
  size_t anchor = 0;  // index in 'line' of the last kept point
  auto off_line = [&](size_t from, size_t to) {
    Pt a = line[from], b = line[to];
    double dx = b.x - a.x, dy = b.y - a.y, len = std::hypot(dx, dy);
    for (size_t k = from + 1; k < to; ++k) {
      Pt p = line[k];
      double d = len > 0 ? std::fabs((p.x - a.x) * dy - (p.y - a.y) * dx) / len : std::hypot(p.x - a.x, p.y - a.y);
      double along = (p.x - a.x) * dx + (p.y - a.y) * dy;
      if (d >= tol || along < 0 || along > len * len) return true;
    }
    return false;
  };
  if (line.empty()) return out;
  out.push_back(line[0]);
  for (size_t k = 1; k < line.size(); ++k) {
    bool last = k + 1 == line.size();
    if (!last && std::hypot(line[k].x - out.back().x, line[k].y - out.back().y) < tol) continue;
    // line[k - 1] is kept when the line to line[k] would pass too far from the points before
    bool too_far = std::hypot(line[k].x - line[anchor].x, line[k].y - line[anchor].y) > span;
    if (k - 1 > anchor && (k - anchor > longest_run || too_far || off_line(anchor, k))) {
      out.push_back(line[k - 1]);
      anchor = k - 1;
    }
    if (last) out.push_back(line[k]);
  }
  return out;
}
