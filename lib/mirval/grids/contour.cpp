// Contours: level lines (CONTUR, CONMAT) with labels along them, and shaded contours
// (CONSHD) whose bands between levels take their colours from the colour table.
#include "grids/contour.h"
#include "axes/axes.h"
#include "grids/colour_matrix.h"
#include "draw/colours.h"
#include "draw/clip.h"
#include "draw/draw.h"
#include "core/messages.h"
#include "mirval.h"
#include "axes/scaling.h"
#include "draw/text.h"
#include "core/trace.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

// Cell sides: 0 lower (y[j]), 1 right (x[i+1]), 2 upper (y[j+1]), 3 left (x[i]); corner k
// starts side k: (i, j), (i+1, j), (i+1, j+1), (i, j+1).
const int corner_di[4] = {0, 1, 1, 0}, corner_dj[4] = {0, 0, 1, 1};

// Edges are numbered: first those along x, (i, j) from x[i] to x[i+1] at y[j]; then those
// along y, (i, j) from y[j] to y[j+1] at x[i].
struct Tracer {
  const GridData &g;
  double level;
  long along_x;                 // number of edges along x
  std::vector<uint8_t> used;

  Tracer(const GridData &grid, double lev)
      : g(grid), level(lev), along_x(long(grid.nx - 1) * grid.ny),
        used(along_x + long(grid.nx) * (grid.ny - 1), 0) {}

  double z(int i, int j) const { return g.z[long(i) * g.ny + j]; }
  bool above(double v) const { return v >= level; }
  bool cell(int i, int j) const {
    if (i < 0 || j < 0 || i >= g.nx - 1 || j >= g.ny - 1) return false;
    for (int k = 0; k < 4; ++k)
      if (!std::isfinite(z(i + corner_di[k], j + corner_dj[k]))) return false;
    return true;
  }
  long edge(int i, int j, int side) const {
    switch (side) {
      case 0: return long(i) * g.ny + j;
      case 2: return long(i) * g.ny + j + 1;
      case 3: return along_x + long(i) * (g.ny - 1) + j;
      default: return along_x + long(i + 1) * (g.ny - 1) + j;
    }
  }
  // The two grid points of side 'side' of cell (i, j).
  void ends(int i, int j, int side, int &i0, int &j0, int &i1, int &j1) const {
    i0 = i + corner_di[side], j0 = j + corner_dj[side];
    i1 = i + corner_di[(side + 1) % 4], j1 = j + corner_dj[(side + 1) % 4];
  }
  bool crosses(int i, int j, int side) const {
    int i0, j0, i1, j1;
    ends(i, j, side, i0, j0, i1, j1);
    double a = z(i0, j0), b = z(i1, j1);
    return std::isfinite(a) && std::isfinite(b) && above(a) != above(b);
  }
  Pt point(int i, int j, int side) const {
    int i0, j0, i1, j1;
    ends(i, j, side, i0, j0, i1, j1);
    double a = z(i0, j0), b = z(i1, j1), t = (level - a) / (b - a);
    return {g.x[i0] + t * (double(g.x[i1]) - g.x[i0]), g.y[j0] + t * (double(g.y[j1]) - g.y[j0])};
  }
  // The side a line entering cell (i, j) through side 'in' leaves by.
  int exit(int i, int j, int in) const {
    int n = 0, other = -1;
    for (int s = 0; s < 4; ++s)
      if (crosses(i, j, s)) {
        ++n;
        if (s != in) other = s;
      }
    if (n == 2) return other;
    // a saddle: the lines cut off the two corners on the other side of the mean
    double mean = 0;
    for (int k = 0; k < 4; ++k) mean += z(i + corner_di[k], j + corner_dj[k]) / 4;
    bool centre = above(mean);
    bool first_cut = above(z(i + corner_di[in], j + corner_dj[in])) != centre;
    return first_cut ? (in + 3) % 4 : (in + 1) % 4;
  }
  // Follows a line from side 'in' of cell (i, j) until it leaves the valid cells or closes.
  std::vector<Pt> walk(int i, int j, int in) {
    long start = edge(i, j, in);
    std::vector<Pt> line{point(i, j, in)};
    used[start] = 1;
    while (cell(i, j)) {
      int out = exit(i, j, in);
      long e = edge(i, j, out);
      line.push_back(point(i, j, out));
      if (used[e]) break;  // back at the start: the line is closed
      used[e] = 1;
      static const int di[4] = {0, 1, 0, -1}, dj[4] = {-1, 0, 1, 0};
      i += di[out], j += dj[out];
      in = (out + 2) % 4;
    }
    return line;
  }
};

// A polygon of a cell with the matrix values at its corners, cut to value >= lo and <= hi.
struct VPt {
  double x, y, v;
};

std::vector<VPt> cut(const std::vector<VPt> &poly, double bound, bool keep_above) {
  std::vector<VPt> out;
  for (size_t k = 0; k < poly.size(); ++k) {
    const VPt &a = poly[k], &b = poly[(k + 1) % poly.size()];
    bool in_a = keep_above ? a.v >= bound : a.v <= bound;
    bool in_b = keep_above ? b.v >= bound : b.v <= bound;
    if (in_a) out.push_back(a);
    if (in_a != in_b) {
      double t = (bound - a.v) / (b.v - a.v);
      out.push_back({a.x + t * (b.x - a.x), a.y + t * (b.y - a.y), bound});
    }
  }
  return out;
}

void add_polygon(std::vector<std::vector<Pt>> &to, const std::vector<VPt> &poly) {
  if (poly.size() < 3) return;
  std::vector<Pt> p;
  for (const VPt &q : poly) p.push_back({q.x, q.y});
  to.push_back(std::move(p));
}

// Whether the corners alternate about the bound, so that a cut of the quadrilateral would
// join corners across the cell.
bool saddle(const VPt *c, double bound) {
  bool a0 = c[0].v >= bound, a1 = c[1].v >= bound, a2 = c[2].v >= bound, a3 = c[3].v >= bound;
  return a0 == a2 && a1 == a3 && a0 != a1;
}

// The part of cell c (corners counter-clockwise) between lo and hi: a saddle cell is cut as
// four triangles about its centre, so that the bands agree with the level lines.
void cut_cell(const VPt *c, double lo, double hi, std::vector<std::vector<Pt>> &to) {
  if (saddle(c, lo) || saddle(c, hi)) {
    VPt m{0, 0, 0};
    for (int k = 0; k < 4; ++k) m.x += c[k].x / 4, m.y += c[k].y / 4, m.v += c[k].v / 4;
    for (int k = 0; k < 4; ++k) add_polygon(to, cut(cut({c[k], c[(k + 1) % 4], m}, lo, true), hi, false));
    return;
  }
  add_polygon(to, cut(cut({c[0], c[1], c[2], c[3]}, lo, true), hi, false));
}

}  // namespace

std::vector<std::vector<Pt>> contour_lines(const GridData &g, double level) {
  std::vector<std::vector<Pt>> out;
  if (g.nx < 2 || g.ny < 2 || !std::isfinite(level)) return out;
  Tracer t(g, level);
  // open lines first, from edges with a valid cell on one side only; then the closed ones
  for (int pass = 0; pass < 2; ++pass)
    for (int i = 0; i < g.nx; ++i)
      for (int j = 0; j < g.ny; ++j)
        for (int side : {0, 3}) {  // the edges along x and along y that start at (i, j)
          int ci = side == 0 ? i : i - 1, cj = side == 0 ? j - 1 : j;  // the cell on the other side
          int inside_side = side, outside_side = (side + 2) % 4;
          if ((side == 0 && i >= g.nx - 1) || (side == 3 && j >= g.ny - 1)) continue;
          if (t.used[t.edge(i, j, side)] || !t.crosses(i, j, side)) continue;
          bool here = t.cell(i, j), there = t.cell(ci, cj);
          if (pass == 0 && here != there) {
            out.push_back(here ? t.walk(i, j, inside_side) : t.walk(ci, cj, outside_side));
          } else if (pass == 1 && here && there) {
            out.push_back(t.walk(i, j, inside_side));
          }
        }
  return out;
}

std::vector<std::vector<std::vector<Pt>>> contour_layers(const GridData &g, const std::vector<double> &l) {
  size_t m = l.empty() ? 0 : l.size() - 1;
  std::vector<std::vector<std::vector<Pt>>> layers(m);
  if (m == 0 || g.nx < 2 || g.ny < 2) return layers;
  double top = l[m];
  auto z = [&](int i, int j) { return double(g.z[long(i) * g.ny + j]); };
  std::vector<int> run(m, -1);  // per layer: the first cell of the row's current run of whole cells
  for (int j = 0; j + 1 < g.ny; ++j) {
    double y0 = g.y[j], y1 = g.y[j + 1];
    auto flush = [&](size_t k, int end) {
      if (run[k] < 0) return;
      double x0 = g.x[run[k]], x1 = g.x[end];
      layers[k].push_back({{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}});
      run[k] = -1;
    };
    for (int i = 0; i + 1 < g.nx; ++i) {
      VPt c[4];
      double lo = INFINITY, hi = -INFINITY;
      for (int k = 0; k < 4; ++k) {
        int a = i + corner_di[k], b = j + corner_dj[k];
        c[k] = {double(g.x[a]), double(g.y[b]), z(a, b)};
        lo = std::min(lo, c[k].v), hi = std::max(hi, c[k].v);
      }
      bool valid = std::isfinite(lo) && std::isfinite(hi);
      for (size_t k = 0; k < m; ++k) {
        bool whole = valid && lo >= l[k] && hi <= top;
        if (whole) {
          if (run[k] < 0) run[k] = i;
          continue;
        }
        flush(k, i);
        if (valid && hi >= l[k] && lo <= top) cut_cell(c, l[k], top, layers[k]);
      }
    }
    for (size_t k = 0; k < m; ++k) flush(k, g.nx - 1);
  }
  return layers;
}

Pt point_at(const std::vector<Pt> &line, double s) {
  for (size_t k = 1; k < line.size(); ++k) {
    double d = std::hypot(line[k].x - line[k - 1].x, line[k].y - line[k - 1].y);
    if (s <= d && d > 0) return {line[k - 1].x + (line[k].x - line[k - 1].x) * s / d, line[k - 1].y + (line[k].y - line[k - 1].y) * s / d};
    s -= d;
  }
  return line.empty() ? Pt{} : line.back();
}

std::vector<std::vector<Pt>> cut_gaps(const std::vector<Pt> &line, const std::vector<std::pair<double, double>> &gaps) {
  std::vector<double> at(line.size(), 0);
  for (size_t k = 1; k < line.size(); ++k) at[k] = at[k - 1] + std::hypot(line[k].x - line[k - 1].x, line[k].y - line[k - 1].y);
  std::vector<std::vector<Pt>> out;
  size_t k = 0;
  auto keep = [&](double a, double b) {
    if (b <= a) return;
    std::vector<Pt> piece{point_at(line, a)};
    while (k < line.size() && at[k] <= a) ++k;
    for (; k < line.size() && at[k] < b; ++k) piece.push_back(line[k]);
    piece.push_back(point_at(line, b));
    out.push_back(std::move(piece));
  };
  double from = 0;
  for (const auto &gap : gaps) {
    keep(from, gap.first);
    from = gap.second;
  }
  if (!line.empty()) keep(from, at.back());
  return out;
}

std::array<Pt, 4> label_corners(Pt c, double w, double h, double angle) {
  double ca = std::cos(angle * M_PI / 180), sa = -std::sin(angle * M_PI / 180);  // page y down
  double ux = ca * w / 2, uy = sa * w / 2, vx = -sa * h / 2, vy = ca * h / 2;
  return {Pt{c.x - ux - vx, c.y - uy - vy}, Pt{c.x + ux - vx, c.y + uy - vy}, Pt{c.x + ux + vx, c.y + uy + vy},
          Pt{c.x - ux + vx, c.y - uy + vy}};
}

bool quads_overlap(const std::array<Pt, 4> &a, const std::array<Pt, 4> &b) {
  // separating axes: the edge normals of both
  for (const std::array<Pt, 4> *q : {&a, &b})
    for (int k = 0; k < 4; ++k) {
      Pt p = (*q)[k], r = (*q)[(k + 1) % 4];
      double nx = r.y - p.y, ny = p.x - r.x;
      double amin = INFINITY, amax = -INFINITY, bmin = INFINITY, bmax = -INFINITY;
      for (const Pt &v : a) amin = std::min(amin, v.x * nx + v.y * ny), amax = std::max(amax, v.x * nx + v.y * ny);
      for (const Pt &v : b) bmin = std::min(bmin, v.x * nx + v.y * ny), bmax = std::max(bmax, v.x * nx + v.y * ny);
      double eps = 1e-9 * (std::fabs(nx) + std::fabs(ny));
      if (amax <= bmin + eps || bmax <= amin + eps) return false;
    }
  return true;
}

double polygon_area(const std::vector<Pt> &poly) {
  double a = 0;
  for (size_t k = 0; k < poly.size(); ++k) {
    const Pt &p = poly[k], &q = poly[(k + 1) % poly.size()];
    a += p.x * q.y - q.x * p.y;
  }
  return a / 2;
}

namespace {

// Checks a routine's grid; warns naming the argument at fault.
bool grid_ok(const char *routine, const GridData &g) {
  if (!g.x || !g.y || !g.z) {
    mv_warn(routine, "no data given");
    return false;
  }
  if (g.nx < 2 || g.ny < 2) {
    mv_warn(routine, "the matrix needs at least 2 x 2 points (nx = %d, ny = %d)", g.nx, g.ny);
    return false;
  }
  return true;
}

// Grid coordinates to page coordinates of the current axis system.
std::vector<Pt> to_page(const std::vector<Pt> &line) {
  std::vector<Pt> out;
  out.reserve(line.size());
  for (Pt p : line) out.push_back(page_point(p.x, p.y));
  return out;
}


}  // namespace

// The text on the lines of a level (and its raised exponent), or an empty text when
// LABELS(..., 'CONTOUR') asks for none.
static AxisLabel level_text(double level) {
  const MirvalState &st = mirval_state();
  if (!st.grid.label_text.empty()) return {level, st.grid.label_text, ""};
  auto it = st.axes.other_labels.find("CONTOUR");
  if (it == st.axes.other_labels.end() || it->second == LabelType::None) return {level, "", ""};
  AxisSettings s = st.axes.axis[2];
  s.labels = it->second;
  // automatic decimals: exact values as they are, others to three significant digits
  if (s.digits < 0 && level != 0)
    s.digits = std::min(needed_digits({level}), std::max(0, 2 - static_cast<int>(std::floor(std::log10(std::fabs(level))))));
  AxisRange r;
  r.a = r.e = r.org = level;
  std::vector<AxisLabel> l = axis_labels(s, r);
  return l.empty() ? AxisLabel{level, "", ""} : l[0];
}

// Draws the lines of one level in the pen's style, with labels along them: every CONMOD
// spacing, on lines long enough, turned along the line and kept upright, in a gap CONGAP wide.
void draw_level(const std::vector<std::vector<Pt>> &lines, double level) {
  MirvalState &st = mirval_state();
  GridState &g = st.grid;
  if (g.label_page != st.scene.pages.size()) g.label_boxes.clear(), g.label_page = st.scene.pages.size();
  Rect clip = user_clip();
  AxisLabel label = level_text(level);
  const std::string &text = label.text;
  double h = st.text.height, width = text.empty() ? 0 : text_length(text, label.sup, h) + 2 * g.label_gap * h;
  Path path;  // all lines of the level make one stroke
  for (const std::vector<Pt> &grid_line : lines) {
    std::vector<Pt> line = simplify(to_page(grid_line), POLYLINE_TOLERANCE);
    double length = 0;
    for (size_t k = 1; k < line.size(); ++k) length += std::hypot(line[k].x - line[k - 1].x, line[k].y - line[k - 1].y);
    if (text.empty() || length < g.label_least * width) {
      append_polyline(path, line, clip);
      continue;
    }
    double per = length / (g.label_every * width);
    if (!(per >= 0)) {  // a line without a length (points off a log axis): no labels
      append_polyline(path, line, clip);
      continue;
    }
    int n = static_cast<int>(std::clamp(per, 1.0, 100000.0));
    std::vector<std::pair<double, double>> gaps;
    // a line that turns sharply under the label would cross it
    Rect room{clip.x0 + h, clip.y0 + h, clip.x1 - h, clip.y1 - h};  // labels keep off the frame
    for (int k = 0; k < n; ++k) {
      double want = (k + 0.5) * length / n, slack = length / n / 2 - width / 2;
      // the place asked for first, then places further along the line either way, so that
      // the label keeps clear of the labels already there (of this and other levels)
      for (int t = 0; t <= 8; ++t) {
        double s = want + (t % 2 ? 1 : -1) * ((t + 1) / 2) * std::max(slack, 0.0) / 4;
        if (t > 0 && slack <= 0) break;
        if (s - width / 2 < 0 || s + width / 2 > length) continue;
        Pt a = point_at(line, s - width / 2), b = point_at(line, s + width / 2);
        Pt c = point_at(line, s);
        if (std::hypot(b.x - a.x, b.y - a.y) < 0.8 * width || !inside(a, room) || !inside(b, room)) continue;
        double angle = std::atan2(a.y - b.y, b.x - a.x) * 180 / M_PI;
        if (angle > 90) angle -= 180;
        if (angle <= -90) angle += 180;
        std::array<Pt, 4> box = label_corners(c, width, 1.5 * h, angle);
        bool clear = true;
        for (const std::array<Pt, 4> &other : g.label_boxes)
          if (quads_overlap(box, other)) {
            clear = false;
            break;
          }
        if (!clear) continue;
        put_text(text, label.sup, c, h, angle, Just::Center, VAlign::Middle, pen_rgb());
        gaps.push_back({s - width / 2, s + width / 2});
        g.label_boxes.push_back(box);
        break;
      }
    }
    std::sort(gaps.begin(), gaps.end());
    for (const std::vector<Pt> &piece : cut_gaps(line, gaps)) append_polyline(path, piece, clip);
  }
  stroke_path(path);
}

namespace {

void contour_at(const char *routine, const GridData &g, float zlev) {
  if (!mv_level(routine, 2, 2) || !grid_ok(routine, g)) return;
  if (!std::isfinite(zlev)) {
    mv_warn(routine, "the level %g is not a number", (double)zlev);
    return;
  }
  draw_level(contour_lines(g, zlev), zlev);
}

}  // namespace

extern "C" {

void contur(const float *xray, int nx, const float *yray, int ny, const float *zmat, float zlev) {
  mv_tracef("contur(xray=%s, nx=%d, yray=%s, ny=%d, zmat=%s, zlev=%g)", mv_tarr(nx, "floats").c_str(), nx,
            mv_tarr(ny, "floats").c_str(), ny, mv_tarr(matrix_size(nx, ny), "floats").c_str(), (double)zlev);
  contour_at("contur", {xray, nx, yray, ny, zmat}, zlev);
}

void conmat(const float *zmat, int nx, int ny, float zlev) {
  mv_tracef("conmat(zmat=%s, nx=%d, ny=%d, zlev=%g)", mv_tarr(matrix_size(nx, ny), "floats").c_str(), nx, ny,
            (double)zlev);
  if (!mv_level("conmat", 2, 2)) return;
  const AxesState &ax = mirval_state().axes;
  std::vector<float> x = spread_over(ax.range[0], nx), y = spread_over(ax.range[1], ny);
  contour_at("conmat", {x.data(), nx, y.data(), ny, zmat}, zlev);
}

// The bands between consecutive levels, filled in colours of the Z axis (after GRAF3) or
// spread evenly over the COLRAN entries; SHDMOD(..., 'CONTOUR') adds the areas below the
// first level ('LOWER'), above the last ('UPPER') or both ('BOTH').
void conshd(const float *xray, int nx, const float *yray, int ny, const float *zmat, const float *zlev, int nlev) {
  mv_tracef("conshd(xray=%s, nx=%d, yray=%s, ny=%d, zmat=%s, zlev=%s, nlev=%d)", mv_tarr(nx, "floats").c_str(), nx,
            mv_tarr(ny, "floats").c_str(), ny, mv_tarr(matrix_size(nx, ny), "floats").c_str(),
            mv_tarr(nlev, "floats").c_str(), nlev);
  GridData g{xray, nx, yray, ny, zmat};
  if (!mv_level("conshd", 2, 2) || !grid_ok("conshd", g)) return;
  if (!zlev || nlev < 2) {
    mv_warn("conshd", "at least two levels are needed (nlev = %d)", nlev);
    return;
  }
  std::vector<double> l;
  for (int k = 0; k < nlev; ++k)
    if (std::isfinite(zlev[k])) l.push_back(zlev[k]);
  std::sort(l.begin(), l.end());
  l.erase(std::unique(l.begin(), l.end()), l.end());
  if (l.size() < 2) {
    mv_warn("conshd", "the levels need at least two different finite values");
    return;
  }
  const MirvalState &st = mirval_state();
  auto mode = st.space.shading.find("CONTOUR");
  std::string m = mode == st.space.shading.end() ? "INNER" : mode->second;
  bool lower = m == "LOWER" || m == "BOTH", upper = m == "UPPER" || m == "BOTH";
  if (!lower && !upper && m != "INNER") mv_warn("conshd", "unknown shading mode %s; INNER is used", m.c_str());
  std::vector<double> mid;  // a value inside each band, for its colour
  for (size_t k = 0; k + 1 < l.size(); ++k) mid.push_back((l[k] + l[k + 1]) / 2);
  if (lower) l.insert(l.begin(), -INFINITY), mid.insert(mid.begin(), l[1]);
  if (upper) l.push_back(INFINITY), mid.push_back(l[l.size() - 2]);
  const GridState &gs = st.grid;
  Rect clip = user_clip();
  std::vector<std::vector<std::vector<Pt>>> layers = contour_layers(g, l);
  for (size_t k = 0; k < layers.size(); ++k) {
    int span = gs.colour_hi - gs.colour_lo + 1;
    int c = gs.colour_axis ? z_colour(mid[k])
                           : gs.colour_lo + std::min(span - 1, static_cast<int>((k + 0.5) * span / layers.size()));
    if (c < 0) continue;
    Path p;
    for (const std::vector<Pt> &poly : layers[k]) {
      std::vector<Pt> cut = clip_polygon(to_page(poly), clip);
      if (cut.size() >= 3) append_polygon(p, cut);
    }
    fill_path(p, table_rgb(c));
  }
}

void congap(float x) {
  mv_tracef("congap(%g)", (double)x);
  if (in_range("congap", "gap", x, 0, 10)) mirval_state().grid.label_gap = x;
}

void conmod(float x1, float x2) {
  mv_tracef("conmod(%g, %g)", (double)x1, (double)x2);
  if (!in_range("conmod", "label spacing", x1, 1, 1000) || !in_range("conmod", "shortest labelled line", x2, 0, 1000))
    return;
  mirval_state().grid.label_every = x1;
  mirval_state().grid.label_least = x2;
}

void conlab(const char *c) {
  mv_tracef("conlab(%s)", mv_tstr(c).c_str());
  std::string t = c ? c : "";
  t.erase(t.find_last_not_of(' ') + 1);
  mirval_state().grid.label_text = t;
}

}
