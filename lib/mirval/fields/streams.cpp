// Streamlines: adaptive integration through GSL's Runge-Kutta steppers (gsl_odeiv2) along the
// arc length on the page, evenly spaced start points, arrows along the lines (STREAM, STMTRI,
// STMPTS and their options), and line integral convolution textures (LICPTS, LICMOD).
#include "axes/scaling.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "core/trace.h"
#include "draw/clip.h"
#include "draw/draw.h"
#include "fields/fields.h"
#include "grids/colour_matrix.h"
#include "grids/contour.h"
#include "mirval.h"

#include <gsl/gsl_errno.h>
#include <gsl/gsl_odeiv2.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <deque>

namespace {

// Cell and share of p along a monotonic axis; false outside.
bool locate(const std::vector<double> &a, double p, int &i, double &t) {
  int n = static_cast<int>(a.size());
  if (n < 2 || !std::isfinite(p)) return false;
  bool up = a[n - 1] > a[0];
  if (up ? (p < a[0] || p > a[n - 1]) : (p > a[0] || p < a[n - 1])) return false;
  int lo = 0, hi = n - 1;
  while (hi - lo > 1) {
    int mid = (lo + hi) / 2;
    if (up ? a[mid] <= p : a[mid] >= p) lo = mid;
    else hi = mid;
  }
  i = lo;
  double d = a[lo + 1] - a[lo];
  t = d != 0 ? (p - a[lo]) / d : 0;
  return true;
}

}  // namespace

bool GridField::at(double px, double py, double &uu, double &vv) const {
  int i, j;
  double s, t;
  if (!locate(x, px, i, s) || !locate(y, py, j, t)) return false;
  auto bil = [&](const float *m) {
    long k = long(i) * ny + j;
    return (1 - s) * (1 - t) * m[k] + s * (1 - t) * m[k + ny] + (1 - s) * t * m[k + 1] + s * t * m[k + ny + 1];
  };
  uu = bil(u), vv = bil(v);
  return std::isfinite(uu) && std::isfinite(vv);
}

void TriField::build() {
  double xa = INFINITY, xb = -INFINITY, ya = INFINITY, yb = -INFINITY;
  for (size_t k = 0; k < x.size(); ++k) {
    xa = std::min(xa, x[k]), xb = std::max(xb, x[k]);
    ya = std::min(ya, y[k]), yb = std::max(yb, y[k]);
  }
  int nb = std::max(1, static_cast<int>(std::sqrt(double(tri.size()) / 2)));
  bx = by = std::min(nb, 2000);
  x0 = xa, y0 = ya;
  cw = (xb - xa) / bx, ch = (yb - ya) / by;
  if (!(cw > 0)) cw = 1;
  if (!(ch > 0)) ch = 1;
  buckets.assign(size_t(bx) * by, {});
  for (size_t k = 0; k < tri.size(); ++k) {
    double a0 = INFINITY, a1 = -INFINITY, b0 = INFINITY, b1 = -INFINITY;
    for (int c : tri[k]) a0 = std::min(a0, x[c]), a1 = std::max(a1, x[c]), b0 = std::min(b0, y[c]), b1 = std::max(b1, y[c]);
    int i0 = std::clamp(int((a0 - x0) / cw), 0, bx - 1), i1 = std::clamp(int((a1 - x0) / cw), 0, bx - 1);
    int j0 = std::clamp(int((b0 - y0) / ch), 0, by - 1), j1 = std::clamp(int((b1 - y0) / ch), 0, by - 1);
    for (int i = i0; i <= i1; ++i)
      for (int j = j0; j <= j1; ++j) buckets[size_t(j) * bx + i].push_back(static_cast<int>(k));
  }
}

bool TriField::at(double px, double py, double &uu, double &vv) const {
  if (!std::isfinite(px) || !std::isfinite(py) || buckets.empty()) return false;
  int i = int(std::floor((px - x0) / cw)), j = int(std::floor((py - y0) / ch));
  if (i == bx) i = bx - 1;
  if (j == by) j = by - 1;
  if (i < 0 || j < 0 || i >= bx || j >= by) return false;
  for (int k : buckets[size_t(j) * bx + i]) {
    const auto &t = tri[k];
    double ax = x[t[0]], ay = y[t[0]], bxx = x[t[1]], byy = y[t[1]], cx = x[t[2]], cy = y[t[2]];
    double det = (byy - cy) * (ax - cx) + (cx - bxx) * (ay - cy);
    if (det == 0) continue;
    double l0 = ((byy - cy) * (px - cx) + (cx - bxx) * (py - cy)) / det;
    double l1 = ((cy - ay) * (px - cx) + (ax - cx) * (py - cy)) / det;
    double l2 = 1 - l0 - l1;
    const double e = -1e-12;
    if (l0 < e || l1 < e || l2 < e) continue;
    uu = l0 * u[t[0]] + l1 * u[t[1]] + l2 * u[t[2]];
    vv = l0 * v[t[0]] + l1 * v[t[1]] + l2 * v[t[2]];
    return std::isfinite(uu) && std::isfinite(vv);
  }
  return false;
}

namespace {

struct OdeContext {
  const FieldFn *f;
  double sx, sy, dir, min_speed;
};

// The field turned into a unit speed on the page: the parameter is the arc length there.
int ode_rhs(double, const double y[], double dydt[], void *params) {
  const OdeContext *c = static_cast<const OdeContext *>(params);
  double u, v;
  if (!(*c->f)(y[0], y[1], u, v)) return GSL_EBADFUNC;
  double sp = std::hypot(u * c->sx, v * c->sy);
  if (!(sp > c->min_speed) || !std::isfinite(sp)) return GSL_EBADFUNC;
  dydt[0] = c->dir * u / sp;
  dydt[1] = c->dir * v / sp;
  return GSL_SUCCESS;
}

// Distance on the page from p to the segment a-b.
double segment_distance(Pt p, Pt a, Pt b) {
  double dx = b.x - a.x, dy = b.y - a.y, l2 = dx * dx + dy * dy;
  double t = l2 > 0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / l2, 0.0, 1.0) : 0;
  return std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy);
}

// One direction from the start; returns the points after the start.
std::vector<Pt> integrate(const FieldFn &f, double x0, double y0, const StreamOptions &o, double dir,
                          const std::function<bool(Pt, double, int)> &stop, bool *closed, size_t room) {
  std::vector<Pt> out;
  OdeContext ctx{&f, o.sx, o.sy, dir, o.min_speed};
  gsl_odeiv2_system sys{ode_rhs, nullptr, 2, &ctx};
  const gsl_odeiv2_step_type *type = o.method == 2   ? gsl_odeiv2_step_rk8pd
                                     : o.method == 1 ? gsl_odeiv2_step_rkck
                                                     : gsl_odeiv2_step_rkf45;
  gsl_odeiv2_step *step = gsl_odeiv2_step_alloc(type, 2);
  const double scale[2] = {1 / o.sx, 1 / o.sy};  // errors measured in plot units
  gsl_odeiv2_control *control = gsl_odeiv2_control_scaled_new(o.accuracy, 0, 0, 0, scale, 2);
  gsl_odeiv2_evolve *evolve = gsl_odeiv2_evolve_alloc(2);
  double y[2] = {x0, y0}, s = 0, h = o.step / 4;
  Pt start{x0 * o.sx, y0 * o.sy}, prev = start;
  double close_tol = std::min(1.0, 0.1 * o.step);
  while (out.size() < room && s < o.max_length) {
    double hh = std::min(h, o.step);
    double s_before = s;
    int status = gsl_odeiv2_evolve_apply(evolve, control, step, &sys, &s, s + o.step, &hh, y);
    if (status != GSL_SUCCESS) {
      // the step left the field or met a standstill: come closer with shorter steps
      gsl_odeiv2_evolve_reset(evolve);
      s = s_before;
      h = std::min(h, o.step) / 4;
      if (h < 1e-3) break;
      continue;
    }
    h = hh;
    Pt page{y[0] * o.sx, y[1] * o.sy};
    if (s > 10 * close_tol && segment_distance(start, prev, page) < close_tol) {
      out.push_back({x0, y0});
      if (closed) *closed = true;
      break;
    }
    out.push_back({y[0], y[1]});
    prev = page;
    if (stop && stop({y[0], y[1]}, s, static_cast<int>(dir))) break;
  }
  gsl_odeiv2_evolve_free(evolve);
  gsl_odeiv2_control_free(control);
  gsl_odeiv2_step_free(step);
  return out;
}

}  // namespace

std::vector<Pt> trace_streamline(const FieldFn &f, double x0, double y0, const StreamOptions &o,
                                 const std::function<bool(Pt, double, int)> &stop, bool *closed) {
  if (closed) *closed = false;
  double u, v;
  if (!f(x0, y0, u, v)) return {};
  gsl_set_error_handler_off();
  size_t room = static_cast<size_t>(std::max(1, o.max_points - 1));
  bool loop = false;
  std::vector<Pt> fwd, back;
  if (o.direction >= 0) fwd = integrate(f, x0, y0, o, 1, stop, &loop, o.direction == 0 ? room / 2 + room % 2 : room);
  if (o.direction <= 0 && !loop) back = integrate(f, x0, y0, o, -1, stop, nullptr, room - fwd.size());
  std::vector<Pt> line(back.rbegin(), back.rend());
  line.push_back({x0, y0});
  line.insert(line.end(), fwd.begin(), fwd.end());
  if (closed) *closed = loop;
  return line;
}

namespace {

// Points of the lines drawn so far in a grid of cells DISTANCE wide (page units).
struct Occupancy {
  double x0, y0, cell;
  int nx, ny;
  struct Entry {
    double x, y, s;
    int line;
  };
  std::vector<std::vector<Entry>> cells;
  Occupancy(double xa, double ya, double w, double h, double c) : x0(xa), y0(ya), cell(c) {
    nx = std::clamp(static_cast<int>(w / c) + 1, 1, 4000);
    ny = std::clamp(static_cast<int>(h / c) + 1, 1, 4000);
    cells.resize(size_t(nx) * ny);
  }
  int ci(double x) const { return std::clamp(static_cast<int>((x - x0) / cell), 0, nx - 1); }
  int cj(double y) const { return std::clamp(static_cast<int>((y - y0) / cell), 0, ny - 1); }
  void add(double x, double y, double s, int line) { cells[size_t(cj(y)) * nx + ci(x)].push_back({x, y, s, line}); }
  // Whether a point of another line (or of this line far along it) lies within d.
  bool near(double x, double y, double d, int line, double s, double own_gap) const {
    int i0 = ci(x - d), i1 = ci(x + d), j0 = cj(y - d), j1 = cj(y + d);
    for (int j = j0; j <= j1; ++j)
      for (int i = i0; i <= i1; ++i)
        for (const Entry &e : cells[size_t(j) * nx + i]) {
          if (e.line == line && std::fabs(e.s - s) < own_gap) continue;
          if ((e.x - x) * (e.x - x) + (e.y - y) * (e.y - y) < d * d) return true;
        }
    return false;
  }
};

}  // namespace

std::vector<std::vector<Pt>> stream_lines(const FieldFn &f, double x0, double x1, double y0, double y1,
                                          const StreamOptions &o, double dsep, double dtest, int max_lines,
                                          const std::vector<Pt> &seeds) {
  std::vector<std::vector<Pt>> lines;
  if (!seeds.empty()) {
    for (Pt p : seeds) {
      if (static_cast<int>(lines.size()) >= max_lines) break;
      std::vector<Pt> l = trace_streamline(f, p.x, p.y, o, nullptr, nullptr);
      if (l.size() >= 2) lines.push_back(std::move(l));
    }
    return lines;
  }
  double xa = std::min(x0, x1) * o.sx, xb = std::max(x0, x1) * o.sx;
  double ya = std::min(y0, y1) * o.sy, yb = std::max(y0, y1) * o.sy;
  Occupancy occ(xa, ya, xb - xa, yb - ya, dsep);
  auto valid_seed = [&](double x, double y) {
    double u, v;
    if (!f(x, y, u, v) || !(std::hypot(u * o.sx, v * o.sy) > o.min_speed)) return false;
    return !occ.near(x * o.sx, y * o.sy, 0.99 * dsep, -1, 0, 0);
  };
  std::deque<Pt> queue;
  int nsx = std::max(1, static_cast<int>((xb - xa) / dsep)), nsy = std::max(1, static_cast<int>((yb - ya) / dsep));
  long scan = 0, scans = long(nsx) * nsy;
  queue.push_back({(x0 + x1) / 2, (y0 + y1) / 2});
  while (static_cast<int>(lines.size()) < max_lines) {
    Pt seed;
    bool found = false;
    while (!queue.empty() && !found) {
      seed = queue.front();
      queue.pop_front();
      found = valid_seed(seed.x, seed.y);
    }
    while (!found && scan < scans) {
      long k = scan++;
      seed = {(xa + (k % nsx + 0.5) * (xb - xa) / nsx) / o.sx, (ya + (k / nsx + 0.5) * (yb - ya) / nsy) / o.sy};
      found = valid_seed(seed.x, seed.y);
    }
    if (!found) break;
    int id = static_cast<int>(lines.size());
    std::vector<std::pair<Pt, double>> mine;
    auto stop = [&](Pt p, double s, int dir) {
      double X = p.x * o.sx, Y = p.y * o.sy, ss = dir * s;
      if (occ.near(X, Y, dtest, id, ss, 3 * dsep)) return true;
      occ.add(X, Y, ss, id);
      return false;
    };
    occ.add(seed.x * o.sx, seed.y * o.sy, 0, id);
    std::vector<Pt> l = trace_streamline(f, seed.x, seed.y, o, stop, nullptr);
    if (l.size() < 2) continue;
    // candidates beside the line, one distance away on either side
    double since = 0;
    for (size_t k = 1; k < l.size(); ++k) {
      double dx = (l[k].x - l[k - 1].x) * o.sx, dy = (l[k].y - l[k - 1].y) * o.sy, d = std::hypot(dx, dy);
      since += d;
      if (since < 0.5 * dsep || !(d > 0)) continue;
      since = 0;
      double nx = -dy / d * dsep / o.sx, ny = dx / d * dsep / o.sy;
      queue.push_back({l[k].x + nx, l[k].y + ny});
      queue.push_back({l[k].x - nx, l[k].y - ny});
    }
    lines.push_back(std::move(l));
  }
  return lines;
}

std::vector<double> lic_texture(const float *u, const float *v, int nx, int ny, const std::vector<double> &t,
                                double len, int filter) {
  std::vector<double> out(size_t(nx) * ny, 0);
  auto dir = [&](double pi, double pj, double &du, double &dv) {
    if (pi < 0 || pj < 0 || pi > nx - 1 || pj > ny - 1) return false;
    int i = std::min(static_cast<int>(pi), nx - 2 < 0 ? 0 : nx - 2), j = std::min(static_cast<int>(pj), ny - 2 < 0 ? 0 : ny - 2);
    double s = nx > 1 ? pi - i : 0, r = ny > 1 ? pj - j : 0;
    auto bil = [&](const float *m) {
      long k = long(i) * ny + j;
      double a = m[k], b = nx > 1 ? m[k + ny] : a, c = ny > 1 ? m[k + 1] : a, d = (nx > 1 && ny > 1) ? m[k + ny + 1] : a;
      return (1 - s) * (1 - r) * a + s * (1 - r) * b + (1 - s) * r * c + s * r * d;
    };
    du = bil(u), dv = bil(v);
    double m = std::hypot(du, dv);
    if (!(m > 0) || !std::isfinite(m)) return false;
    du /= m, dv /= m;
    return true;
  };
  int steps = std::max(1, static_cast<int>(std::lround(len)));
  auto weight = [&](int k) { return filter == 1 ? 0.5 * (1 + std::cos(M_PI * k / (steps + 1))) : 1.0; };
  for (int i = 0; i < nx; ++i)
    for (int j = 0; j < ny; ++j) {
      double sum = t[size_t(i) * ny + j] * weight(0), wsum = weight(0);
      for (int sgn = -1; sgn <= 1; sgn += 2) {
        double pi = i, pj = j;
        for (int k = 1; k <= steps; ++k) {
          double du, dv, eu, ev;
          if (!dir(pi, pj, du, dv)) break;
          // midpoint step of one cell
          if (!dir(pi + sgn * 0.5 * du, pj + sgn * 0.5 * dv, eu, ev)) break;
          pi += sgn * eu, pj += sgn * ev;
          int ii = static_cast<int>(std::lround(pi)), jj = static_cast<int>(std::lround(pj));
          if (ii < 0 || jj < 0 || ii >= nx || jj >= ny) break;
          double w = weight(k);
          sum += w * t[size_t(ii) * ny + jj];
          wsum += w;
        }
      }
      out[size_t(i) * ny + j] = sum / wsum;
    }
  return out;
}

namespace {

#define TARR(n, kind) mv_tarr(n, kind).c_str()

// Plot units per user unit of the current axis system along x and y.
void page_scales(double xa, double xb, double ya, double yb, double &sx, double &sy) {
  sx = std::fabs(page_x(xb) - page_x(xa)) / std::fabs(xb - xa);
  sy = std::fabs(page_y_user(yb) - page_y_user(ya)) / std::fabs(yb - ya);
  if (!(sx > 0) || !std::isfinite(sx)) sx = 1;
  if (!(sy > 0) || !std::isfinite(sy)) sy = 1;
}

StreamOptions options_of(double sx, double sy, double top_speed) {
  const FieldState &fs = mirval_state().field;
  StreamOptions o;
  o.sx = sx, o.sy = sy;
  o.step = fs.stm_step;
  o.accuracy = fs.stm_accuracy;
  o.method = fs.stm_method;
  o.max_points = fs.stm_points;
  o.direction = fs.stm_direction;
  o.min_speed = fs.stm_speed * top_speed;
  return o;
}

bool monotonic(const float *a, int n) {
  if (!finite_all(a, n)) return false;
  bool up = a[n - 1] > a[0];
  for (int k = 1; k < n; ++k)
    if (up ? !(a[k] > a[k - 1]) : !(a[k] < a[k - 1])) return false;
  return true;
}

bool grid_field_ok(const char *routine, const float *xv, const float *yv, int nx, int ny, const float *xp,
                   const float *yp) {
  if (!xv || !yv || !xp || !yp) {
    mv_warn(routine, "an array is missing");
    return false;
  }
  if (nx < 2 || ny < 2 || long(nx) * ny > 25000000L) {
    mv_warn(routine, "the grid needs 2 x 2 to 5000 x 5000 points (nx = %d, ny = %d)", nx, ny);
    return false;
  }
  if (!monotonic(xp, nx)) {
    mv_warn(routine, "the grid's x values (xp) must rise or fall strictly");
    return false;
  }
  if (!monotonic(yp, ny)) {
    mv_warn(routine, "the grid's y values (yp) must rise or fall strictly");
    return false;
  }
  return true;
}

double top_speed(const float *u, const float *v, long n) {
  double top = 0;
  for (long k = 0; k < n; ++k) {
    double m = std::hypot(u[k], v[k]);
    if (std::isfinite(m)) top = std::max(top, m);
  }
  return top;
}

// Start points of STRTPT and RLSTRT in user coordinates, used once.
std::vector<Pt> take_starts() {
  FieldState &fs = mirval_state().field;
  std::vector<Pt> out;
  for (Pt p : fs.starts_plot) out.push_back({user_x(p.x), user_y(page_y(p.y))});
  out.insert(out.end(), fs.starts_user.begin(), fs.starts_user.end());
  fs.starts_plot.clear();
  fs.starts_user.clear();
  return out;
}

// The lines in the pen, with arrow heads along them pointing with the field.
void draw_streamlines(const std::vector<std::vector<Pt>> &lines) {
  const MirvalState &st = mirval_state();
  const FieldState &fs = st.field;
  Rect clip = user_clip();
  Path strokes, heads;
  ArrowForm form;
  double head = fs.stm_head, every = fs.stm_arrow_every;
  for (const std::vector<Pt> &user_line : lines) {
    std::vector<Pt> line;
    line.reserve(user_line.size());
    for (Pt p : user_line) line.push_back(page_point(p.x, p.y));
    line = simplify(line, POLYLINE_TOLERANCE);
    append_polyline(strokes, line, clip);
    if (!fs.stm_arrows || every <= 0 || line.size() < 2) continue;
    double length = 0;
    for (size_t k = 1; k < line.size(); ++k) length += std::hypot(line[k].x - line[k - 1].x, line[k].y - line[k - 1].y);
    std::vector<double> at;
    if (length >= every)
      for (double s = every / 2; s < length; s += every) at.push_back(s);
    else if (length > 3 * head)
      at.push_back(length / 2);
    for (double s : at) {
      Pt b = point_at(line, s + head / 2), a = point_at(line, s - head / 2);
      double dx = b.x - a.x, dy = b.y - a.y, d = std::hypot(dx, dy);
      if (!(d > 0.2 * head)) continue;
      Pt tip{a.x + dx / d * head, a.y + dy / d * head};
      Path dummy;
      arrow_geometry(a, tip, form, head, 22, dummy, heads, clip);
    }
  }
  stroke_path(strokes);
  if (!heads.empty()) fill_path(heads, pen_rgb());
}

}  // namespace

extern "C" {

void stream(const float *xv, const float *yv, int nx, int ny, const float *xp, const float *yp, const float *xs,
            const float *ys, int n) {
  mv_tracef("stream(xv=%s, yv=%s, nx=%d, ny=%d, xp=%s, yp=%s, xs=%s, ys=%s, n=%d)",
            TARR(matrix_size(nx, ny), "floats"), TARR(matrix_size(nx, ny), "floats"), nx, ny, TARR(nx, "floats"),
            TARR(ny, "floats"), TARR(n, "floats"), TARR(n, "floats"), n);
  if (!mv_level("stream", 2, 3) || !grid_field_ok("stream", xv, yv, nx, ny, xp, yp)) return;
  if (n < 0 || (n > 0 && (!xs || !ys))) {
    mv_warn("stream", "the start points are missing or n = %d is negative", n);
    return;
  }
  GridField g;
  g.x.assign(xp, xp + nx), g.y.assign(yp, yp + ny);
  g.u = xv, g.v = yv, g.nx = nx, g.ny = ny;
  FieldFn f = [&g](double x, double y, double &u, double &v) { return g.at(x, y, u, v); };
  double sx, sy;
  page_scales(xp[0], xp[nx - 1], yp[0], yp[ny - 1], sx, sy);
  double top = top_speed(xv, yv, long(nx) * ny);
  std::vector<Pt> seeds = take_starts();
  for (int k = 0; k < n; ++k)
    if (std::isfinite(xs[k]) && std::isfinite(ys[k])) seeds.push_back({xs[k], ys[k]});
  if (!(top > 0)) {
    mv_warn("stream", "the field is zero everywhere");
    return;
  }
  const FieldState &fs = mirval_state().field;
  StreamOptions o = options_of(sx, sy, top);
  draw_streamlines(stream_lines(f, xp[0], xp[nx - 1], yp[0], yp[ny - 1], o, fs.stm_distance,
                                fs.stm_test * fs.stm_distance, fs.stm_lines, seeds));
}

void stmtri(const float *xv, const float *yv, const float *xp, const float *yp, int n, const int *i1ray,
            const int *i2ray, const int *i3ray, int ntri, const float *xs, const float *ys, int nray) {
  mv_tracef("stmtri(xv=%s, yv=%s, xp=%s, yp=%s, n=%d, i1ray=%s, i2ray=%s, i3ray=%s, ntri=%d, xs=%s, ys=%s, nray=%d)",
            TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n, TARR(ntri, "ints"),
            TARR(ntri, "ints"), TARR(ntri, "ints"), ntri, TARR(nray, "floats"), TARR(nray, "floats"), nray);
  if (!mv_level("stmtri", 2, 3) || !arrays_ok("stmtri", n, 3, {xv, yv, xp, yp}) ||
      !arrays_ok("stmtri", ntri, 1, {i1ray, i2ray, i3ray}))
    return;
  if (nray < 0 || (nray > 0 && (!xs || !ys))) {
    mv_warn("stmtri", "the start points are missing or nray = %d is negative", nray);
    return;
  }
  TriField t;
  t.x.assign(xp, xp + n), t.y.assign(yp, yp + n), t.u.assign(xv, xv + n), t.v.assign(yv, yv + n);
  for (int k = 0; k < ntri; ++k) {
    int a = i1ray[k], b = i2ray[k], c = i3ray[k];
    if (a < 0 || b < 0 || c < 0 || a >= n || b >= n || c >= n) {
      mv_warn("stmtri", "triangle %d has a corner outside 0..%d", k, n - 1);
      return;
    }
    t.tri.push_back({a, b, c});
  }
  if (!finite_all(xp, n) || !finite_all(yp, n)) {
    mv_warn("stmtri", "a point (xp, yp) is not a number");
    return;
  }
  t.build();
  double xa = *std::min_element(xp, xp + n), xb = *std::max_element(xp, xp + n);
  double ya = *std::min_element(yp, yp + n), yb = *std::max_element(yp, yp + n);
  if (!(xb > xa) || !(yb > ya)) {
    mv_warn("stmtri", "the points span no area");
    return;
  }
  double sx, sy;
  page_scales(xa, xb, ya, yb, sx, sy);
  double top = top_speed(xv, yv, n);
  if (!(top > 0)) {
    mv_warn("stmtri", "the field is zero everywhere");
    return;
  }
  std::vector<Pt> seeds = take_starts();
  for (int k = 0; k < nray; ++k)
    if (std::isfinite(xs[k]) && std::isfinite(ys[k])) seeds.push_back({xs[k], ys[k]});
  FieldFn f = [&t](double x, double y, double &u, double &v) { return t.at(x, y, u, v); };
  const FieldState &fs = mirval_state().field;
  draw_streamlines(stream_lines(f, xa, xb, ya, yb, options_of(sx, sy, top), fs.stm_distance,
                                fs.stm_test * fs.stm_distance, fs.stm_lines, seeds));
}

void stmpts(const float *xv, const float *yv, int nx, int ny, const float *xp, const float *yp, float x0, float y0,
            float *xray, float *yray, int maxpts, int *npts) {
  mv_tracef("stmpts(xv=%s, yv=%s, nx=%d, ny=%d, xp=%s, yp=%s, x0=%g, y0=%g, xray=%s, yray=%s, maxpts=%d, npts=out)",
            TARR(matrix_size(nx, ny), "floats"), TARR(matrix_size(nx, ny), "floats"), nx, ny, TARR(nx, "floats"),
            TARR(ny, "floats"), (double)x0, (double)y0, TARR(maxpts, "floats out"), TARR(maxpts, "floats out"),
            maxpts);
  if (npts) *npts = 0;
  if (!xray || !yray || !npts || maxpts < 2) {
    mv_warn("stmpts", "the outputs are missing or maxpts = %d is below 2", maxpts);
    return;
  }
  if (!grid_field_ok("stmpts", xv, yv, nx, ny, xp, yp)) return;
  GridField g;
  g.x.assign(xp, xp + nx), g.y.assign(yp, yp + ny);
  g.u = xv, g.v = yv, g.nx = nx, g.ny = ny;
  FieldFn f = [&g](double x, double y, double &u, double &v) { return g.at(x, y, u, v); };
  double sx, sy;
  if (mirval_state().level == 2) {
    page_scales(xp[0], xp[nx - 1], yp[0], yp[ny - 1], sx, sy);
  } else {  // without an axis system the grid counts as 1000 units each way
    sx = 1000 / std::fabs(double(xp[nx - 1]) - xp[0]);
    sy = 1000 / std::fabs(double(yp[ny - 1]) - yp[0]);
  }
  double top = top_speed(xv, yv, long(nx) * ny);
  if (!std::isfinite(x0) || !std::isfinite(y0)) {
    mv_warn("stmpts", "the start point is not a number");
    return;
  }
  StreamOptions o = options_of(sx, sy, top);
  o.max_points = maxpts;
  std::vector<Pt> l = trace_streamline(f, x0, y0, o, nullptr, nullptr);
  if (l.size() < 2) {
    mv_warn("stmpts", "the start point (%g, %g) lies outside the field or where it vanishes", (double)x0, (double)y0);
    return;
  }
  int m = static_cast<int>(std::min<size_t>(l.size(), size_t(maxpts)));
  for (int k = 0; k < m; ++k) xray[k] = float(l[k].x), yray[k] = float(l[k].y);
  *npts = m;
}

void strtpt(float x1, float x2) {
  mv_tracef("strtpt(%g, %g)", (double)x1, (double)x2);
  if (!std::isfinite(x1) || !std::isfinite(x2) || std::fabs(x1) > 1e6 || std::fabs(x2) > 1e6) {
    mv_warn("strtpt", "the point (%g, %g) is not a plot coordinate", (double)x1, (double)x2);
    return;
  }
  mirval_state().field.starts_plot.push_back({x1, x2});
}

void rlstrt(float x1, float x2) {
  mv_tracef("rlstrt(%g, %g)", (double)x1, (double)x2);
  if (!std::isfinite(x1) || !std::isfinite(x2)) {
    mv_warn("rlstrt", "the point (%g, %g) is not a number", (double)x1, (double)x2);
    return;
  }
  mirval_state().field.starts_user.push_back({x1, x2});
}

void stmmod(const char *c1, const char *c2) {
  mv_tracef("stmmod(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  FieldState &fs = mirval_state().field;
  int k;
  if (same(c2, "ARROWS")) {
    if ((k = keyword_index(c1, {"ON", "OFF"})) >= 0) fs.stm_arrows = k == 0;
    else mv_warn("stmmod", "unknown mode %s for ARROWS", mv_tstr(c1).c_str());
  } else if (same(c2, "INTEGRATION")) {
    if ((k = keyword_index(c1, {"BOTH", "FORWARD", "BACKWARD"})) >= 0) fs.stm_direction = k == 2 ? -1 : k;
    else mv_warn("stmmod", "unknown mode %s for INTEGRATION", mv_tstr(c1).c_str());
  } else if (same(c2, "METHOD")) {
    if ((k = keyword_index(c1, {"RKF45", "RKCK", "RK8PD"})) >= 0) fs.stm_method = k;
    else mv_warn("stmmod", "unknown method %s", mv_tstr(c1).c_str());
  } else {
    mv_warn("stmmod", "unknown option %s", mv_tstr(c2).c_str());
  }
}

void stmopt(int n, const char *c) {
  mv_tracef("stmopt(%d, %s)", n, mv_tstr(c).c_str());
  set_option<int>("stmopt", c, n,
                  {{"POINTS", "points", 2, 10000000, &FieldState::stm_points},
                   {"ARROWS", "arrow distance", 0, 100000, &FieldState::stm_arrow_every},
                   {"LINES", "lines", 1, 1000000, &FieldState::stm_lines},
                   {"HEAD", "head length", 1, 10000, &FieldState::stm_head}});
}

void stmval(float x, const char *c) {
  mv_tracef("stmval(%g, %s)", (double)x, mv_tstr(c).c_str());
  set_option<double>("stmval", c, x,
                     {{"DISTANCE", "distance", 2, 100000, &FieldState::stm_distance},
                      {"TEST", "test share", 0.05, 1, &FieldState::stm_test},
                      {"ACCURACY", "accuracy", 1e-12, 0.1, &FieldState::stm_accuracy},
                      {"STEP", "step", 0.01, 10000, &FieldState::stm_step},
                      {"SPEED", "speed share", 0, 1, &FieldState::stm_speed}});
}

void licmod(const char *c1, const char *c2) {
  mv_tracef("licmod(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  FieldState &fs = mirval_state().field;
  int k;
  if (same(c2, "FILTER")) {
    if ((k = keyword_index(c1, {"BOX", "HANNING"})) >= 0) fs.lic_filter = k;
    else mv_warn("licmod", "unknown filter %s", mv_tstr(c1).c_str());
  } else if (same(c2, "NORMALIZE")) {
    if ((k = keyword_index(c1, {"ON", "OFF"})) >= 0) fs.lic_normalize = k == 0;
    else mv_warn("licmod", "unknown mode %s for NORMALIZE", mv_tstr(c1).c_str());
  } else if (same(c2, "LENGTH")) {
    char *end = nullptr;
    double v = c1 ? std::strtod(c1, &end) : NAN;
    while (end && *end == ' ') ++end;
    if (!c1 || end == c1 || (end && *end) || !std::isfinite(v)) mv_warn("licmod", "the length %s is no number", mv_tstr(c1).c_str());
    else if (in_range("licmod", "length", v, 1, 1000)) fs.lic_length = v;
  } else {
    mv_warn("licmod", "unknown option %s", mv_tstr(c2).c_str());
  }
}

void licpts(const float *xv, const float *yv, int nx, int ny, const int *itmat, int *iwmat, float *wmat) {
  mv_tracef("licpts(xv=%s, yv=%s, nx=%d, ny=%d, itmat=%s, iwmat=%s, wmat=%s)", TARR(matrix_size(nx, ny), "floats"),
            TARR(matrix_size(nx, ny), "floats"), nx, ny, TARR(matrix_size(nx, ny), "ints"),
            TARR(matrix_size(nx, ny), "ints out"), TARR(matrix_size(nx, ny), "floats out"));
  if (!xv || !yv || !itmat || !iwmat || !wmat) {
    mv_warn("licpts", "an array is missing");
    return;
  }
  if (nx < 2 || ny < 2 || long(nx) * ny > 16000000L) {
    mv_warn("licpts", "the field needs 2 x 2 to 4000 x 4000 points (nx = %d, ny = %d)", nx, ny);
    return;
  }
  const FieldState &fs = mirval_state().field;
  size_t total = size_t(nx) * ny;
  std::vector<double> t(itmat, itmat + total);
  bool flat = std::all_of(t.begin(), t.end(), [&](double v) { return v == t[0]; });
  if (flat) {  // no texture given: white noise that is the same in every run
    uint32_t s = 2463534242u;
    for (double &v : t) {
      s ^= s << 13, s ^= s >> 17, s ^= s << 5;
      v = s % 256;
    }
  }
  std::vector<double> w = lic_texture(xv, yv, nx, ny, t, fs.lic_length, fs.lic_filter);
  double lo = INFINITY, hi = -INFINITY;
  for (double v : w) lo = std::min(lo, v), hi = std::max(hi, v);
  for (size_t k = 0; k < total; ++k) {
    double v = w[k];
    if (fs.lic_normalize) v = hi > lo ? (v - lo) / (hi - lo) * 255 : 128;
    wmat[k] = float(v);
    iwmat[k] = static_cast<int>(std::lround(v));
  }
}

}
