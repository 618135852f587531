// Arrows and vector fields: single arrows (VECTOR, RLVEC), fields of arrows at points
// (VECFLD), on a grid (VECMAT) and between point pairs (FIELD), their options (VECOPT,
// VECCLR) and wind barbs (WINDBR, RLWIND).
#include "axes/scaling.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "core/trace.h"
#include "draw/clip.h"
#include "draw/colours.h"
#include "draw/draw.h"
#include "fields/fields.h"
#include "grids/colour_matrix.h"
#include "maps/projection.h"
#include "mirval.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace {

#define TARR(n, kind) mv_tarr(n, kind).c_str()

ArrowForm form_of(const char *routine, int ivec) {
  ArrowForm f;
  if (!arrow_form(ivec, f)) mv_warn(routine, "unknown arrow form ivec = %d; 1 is used", ivec);
  return f;
}

// One arrow in page coordinates in the pen's colour.
void one_arrow(Pt a, Pt b, const ArrowForm &f, const Rect &clip) {
  Path lines, fills;
  double len = std::hypot(b.x - a.x, b.y - a.y);
  arrow_geometry(a, b, f, head_length(f, len), mirval_state().field.vec_angle, lines, fills, clip);
  if (!lines.empty()) stroke_path(lines);
  if (!fills.empty()) fill_path(fills, pen_rgb());
}

// Page directions of user x and y: +1 where the axis runs right or up.
void axis_signs(double &sx, double &sy) {
  const MirvalState &st = mirval_state();
  sx = st.axes.range[0].e >= st.axes.range[0].a ? 1 : -1;
  sy = st.axes.range[1].e >= st.axes.range[1].a ? 1 : -1;
}

// On a map a vector's components point east and north where it stands, and the projection
// turns those directions: the components become the page's right and up at that place (in
// the axis directions draw_field applies). Unchanged where the directions are not defined.
void turn_on_map(double lon, double lat, Pt at, double &u, double &v) {
  auto towards = [&](double dlon, double dlat) {  // unit page direction, from the nearer side
    Pt f = page_point(lon + dlon, lat + dlat), b = page_point(lon - dlon, lat - dlat);
    Pt df{f.x - at.x, f.y - at.y}, db{at.x - b.x, at.y - b.y};
    double lf = std::hypot(df.x, df.y), lb = std::hypot(db.x, db.y);
    Pt d = std::isfinite(lf) && !(lb < lf) ? df : db;
    double l = std::hypot(d.x, d.y);
    return l > 0 && std::isfinite(l) ? Pt{d.x / l, d.y / l} : Pt{NAN, NAN};
  };
  Pt e = towards(1e-3, 0), n = towards(0, 1e-3);
  if (!std::isfinite(e.x + e.y + n.x + n.y)) return;
  double sx, sy;
  axis_signs(sx, sy);
  double px = u * e.x + v * n.x, py = u * e.y + v * n.y;  // page y runs down
  u = sx * px;
  v = -sy * py;
}

// Arrows of the vectors (u, v) at page points; 'spacing' is the distance between neighbouring
// points on the page, from which the automatic length is taken. Grouped by colour, so that
// each colour is one stroke and one fill.
void draw_field(const std::vector<Pt> &at, const std::vector<double> &u, const std::vector<double> &v,
                double spacing, const ArrowForm &f) {
  const MirvalState &st = mirval_state();
  const FieldState &fs = st.field;
  double sx, sy;
  axis_signs(sx, sy);
  size_t n = at.size();
  std::vector<double> m(n, NAN);
  double top = 0, least = INFINITY;
  for (size_t k = 0; k < n; ++k) {
    if (!std::isfinite(u[k]) || !std::isfinite(v[k]) || !std::isfinite(at[k].x) || !std::isfinite(at[k].y)) continue;
    m[k] = std::hypot(u[k], v[k]);
    top = std::max(top, m[k]);
    least = std::min(least, m[k]);
  }
  if (!(top > 0) || !std::isfinite(top)) return;
  double longest = fs.vec_length > 0 ? fs.vec_length : 0.9 * spacing;
  double scale = fs.vec_scale > 0 ? fs.vec_scale : longest / top;
  Rect clip = user_clip();
  std::map<int, std::pair<Path, Path>> groups;  // colour (-1 the pen) -> lines, fills
  for (size_t k = 0; k < n; ++k) {
    if (!(m[k] > 0)) continue;
    double len = fs.vec_uniform ? (fs.vec_scale > 0 ? fs.vec_scale * top : longest) : scale * m[k];
    double dx = sx * u[k] / m[k] * len, dy = -sy * v[k] / m[k] * len;
    Pt a{at[k].x - fs.vec_position * dx, at[k].y - fs.vec_position * dy};
    Pt b{a.x + dx, a.y + dy};
    int c = -1;
    if (fs.vec_colour >= 0) c = fs.vec_colour;
    else if (fs.vec_colour == -2) c = value_colour(m[k], least, top);
    auto &g = groups[c];
    arrow_geometry(a, b, f, head_length(f, len), fs.vec_angle, g.first, g.second, clip);
  }
  for (auto &g : groups) {
    Rgb rgb = g.first < 0 ? pen_rgb() : table_rgb(g.first);
    const PenState &pen = st.pen;
    if (!g.second.first.empty()) stroke_path(g.second.first, rgb, pen.width, pen.dash);
    if (!g.second.second.empty()) fill_path(g.second.second, rgb);
  }
}

// A wind barb at page point p: staff of length len towards where the wind comes from
// (degrees clockwise from north), pennants for 50 knots, barbs for 10 and half barbs for 5 at
// its far end on the clockwise side; a circle for calm.
void barb(double speed, Pt p, double len, double dir, const Rect &clip) {
  Path lines, fills;
  if (speed < 2.5) {
    Path c;
    arc_path(c, p, 0.12 * len, 0.12 * len, 0, 360, 0, true);
    c.close();
    stroke_path(fit_path(c, clip, true));
    return;
  }
  double a = dir * M_PI / 180;
  Pt d{std::sin(a), -std::cos(a)};  // north is up on the page
  Pt right{-d.y, d.x};
  Pt tip{p.x + len * d.x, p.y + len * d.y};
  append_polyline(lines, {p, tip}, clip);
  int rest = static_cast<int>(std::lround(speed / 5)) * 5;
  int pennants = rest / 50, full = rest % 50 / 10, half = rest % 10 / 5;
  double bl = 0.4 * len, gap = 0.12 * len, at = 0;
  double c60 = std::cos(M_PI / 3), s60 = std::sin(M_PI / 3);
  auto on_staff = [&](double s) { return Pt{tip.x - s * d.x, tip.y - s * d.y}; };
  for (int k = 0; k < pennants; ++k) {
    Pt q0 = on_staff(at), q1 = on_staff(at + gap);
    Pt apex{q1.x + bl * right.x, q1.y + bl * right.y};
    std::vector<Pt> cut = clip_polygon({q0, apex, q1}, clip);
    if (cut.size() >= 3) append_polygon(fills, cut);
    at += gap * 1.1;
  }
  if (pennants && (full || half)) at += 0.3 * gap;
  if (!pennants && !full && half) at = gap;  // a lone half barb stands off the tip
  for (int k = 0; k < full + half; ++k) {
    double l = k < full ? bl : bl / 2;
    Pt q = on_staff(at);
    Pt e{q.x + l * (c60 * d.x + s60 * right.x), q.y + l * (c60 * d.y + s60 * right.y)};
    append_polyline(lines, {q, e}, clip);
    at += gap;
  }
  stroke_path(lines);
  if (!fills.empty()) fill_path(fills, pen_rgb());
}

bool barb_args(const char *routine, double speed, int len, double dir) {
  if (!std::isfinite(speed) || speed < 0 || speed > 1000) {
    mv_warn(routine, "the speed %g is not a number of knots from 0 to 1000", speed);
    return false;
  }
  if (!std::isfinite(dir) || std::fabs(dir) > 1e6) {
    mv_warn(routine, "the direction %g is not an angle", dir);
    return false;
  }
  return in_range(routine, "length", len, 1, 100000);
}

}  // namespace

extern "C" {

void vector(int nx1, int ny1, int nx2, int ny2, int ivec) {
  mv_tracef("vector(%d, %d, %d, %d, %d)", nx1, ny1, nx2, ny2, ivec);
  if (!mv_level("vector", 1, 3)) return;
  ArrowForm f = form_of("vector", ivec);
  one_arrow({double(nx1), page_y(ny1)}, {double(nx2), page_y(ny2)}, f, plot_clip());
}

void rlvec(float x1, float y1, float x2, float y2, int ivec) {
  mv_tracef("rlvec(%g, %g, %g, %g, %d)", (double)x1, (double)y1, (double)x2, (double)y2, ivec);
  if (!mv_level("rlvec", 2, 3)) return;
  ArrowForm f = form_of("rlvec", ivec);
  Pt a = page_point(x1, y1), b = page_point(x2, y2);
  if (!std::isfinite(a.x + a.y + b.x + b.y)) {
    mv_warn("rlvec", "a point is not a number or has no place on a log axis");
    return;
  }
  one_arrow(a, b, f, user_clip());
}

void vecfld(const float *xv, const float *yv, const float *xp, const float *yp, int n, int ivec) {
  mv_tracef("vecfld(xv=%s, yv=%s, xp=%s, yp=%s, n=%d, ivec=%d)", TARR(n, "floats"), TARR(n, "floats"),
            TARR(n, "floats"), TARR(n, "floats"), n, ivec);
  if (!mv_level("vecfld", 2, 3) || !arrays_ok("vecfld", n, 1, {xv, yv, xp, yp})) return;
  ArrowForm f = form_of("vecfld", ivec);
  std::vector<Pt> at(n);
  std::vector<double> u(xv, xv + n), v(yv, yv + n);
  for (int k = 0; k < n; ++k) {
    at[k] = page_point(xp[k], yp[k]);
    if (current_map()) turn_on_map(xp[k], yp[k], at[k], u[k], v[k]);
  }
  const Rect &box = mirval_state().axes.box;
  double spacing = std::sqrt((box.x1 - box.x0) * (box.y1 - box.y0) / n);
  draw_field(at, u, v, std::min(spacing, 0.25 * std::min(box.x1 - box.x0, box.y1 - box.y0)), f);
}

void vecmat(const float *xv, const float *yv, int nx, int ny, const float *xp, const float *yp, int ivec) {
  mv_tracef("vecmat(xv=%s, yv=%s, nx=%d, ny=%d, xp=%s, yp=%s, ivec=%d)", TARR(matrix_size(nx, ny), "floats"),
            TARR(matrix_size(nx, ny), "floats"), nx, ny, TARR(nx, "floats"), TARR(ny, "floats"), ivec);
  if (!mv_level("vecmat", 2, 3) || !arrays_ok("vecmat", nx, 1, {xv, yv, xp, yp}) ||
      !arrays_ok("vecmat", ny, 1, {xv}))
    return;
  if (long(nx) * ny > 25000000L) {
    mv_warn("vecmat", "the matrix of %d x %d vectors is too large", nx, ny);
    return;
  }
  ArrowForm f = form_of("vecmat", ivec);
  long total = long(nx) * ny;
  std::vector<Pt> at(total);
  std::vector<double> u(xv, xv + total), v(yv, yv + total);
  for (int i = 0; i < nx; ++i)
    for (int j = 0; j < ny; ++j) {
      long k = long(i) * ny + j;
      at[k] = page_point(xp[i], yp[j]);
      if (current_map()) turn_on_map(xp[i], yp[j], at[k], u[k], v[k]);
    }
  const Rect &box = mirval_state().axes.box;
  double spacing = INFINITY;
  if (nx > 1) spacing = std::fabs(page_x(xp[nx - 1]) - page_x(xp[0])) / (nx - 1);
  if (ny > 1) spacing = std::min(spacing, std::fabs(page_y_user(yp[ny - 1]) - page_y_user(yp[0])) / (ny - 1));
  if (!(spacing > 0) || !std::isfinite(spacing)) spacing = 0.1 * std::min(box.x1 - box.x0, box.y1 - box.y0);
  draw_field(at, u, v, spacing, f);
}

void field(const float *x1ray, const float *y1ray, const float *x2ray, const float *y2ray, int n, int ivec) {
  mv_tracef("field(x1ray=%s, y1ray=%s, x2ray=%s, y2ray=%s, n=%d, ivec=%d)", TARR(n, "floats"), TARR(n, "floats"),
            TARR(n, "floats"), TARR(n, "floats"), n, ivec);
  if (!mv_level("field", 2, 3) || !arrays_ok("field", n, 1, {x1ray, y1ray, x2ray, y2ray})) return;
  ArrowForm f = form_of("field", ivec);
  const MirvalState &st = mirval_state();
  Rect clip = user_clip();
  std::map<int, std::pair<Path, Path>> groups;
  double least = INFINITY, top = 0;
  std::vector<double> len(n, NAN);
  for (int k = 0; k < n; ++k) {
    Pt a = page_point(x1ray[k], y1ray[k]), b = page_point(x2ray[k], y2ray[k]);
    len[k] = std::hypot(b.x - a.x, b.y - a.y);
    if (std::isfinite(len[k])) least = std::min(least, len[k]), top = std::max(top, len[k]);
  }
  for (int k = 0; k < n; ++k) {
    if (!std::isfinite(len[k])) continue;
    Pt a = page_point(x1ray[k], y1ray[k]), b = page_point(x2ray[k], y2ray[k]);
    int c = st.field.vec_colour >= 0 ? st.field.vec_colour
            : st.field.vec_colour == -2 ? value_colour(len[k], least, top) : -1;
    auto &g = groups[c];
    arrow_geometry(a, b, f, head_length(f, len[k]), st.field.vec_angle, g.first, g.second, clip);
  }
  for (auto &g : groups) {
    Rgb rgb = g.first < 0 ? pen_rgb() : table_rgb(g.first);
    if (!g.second.first.empty()) stroke_path(g.second.first, rgb, st.pen.width, st.pen.dash);
    if (!g.second.second.empty()) fill_path(g.second.second, rgb);
  }
}

void vecopt(float x, const char *c) {
  mv_tracef("vecopt(%g, %s)", (double)x, mv_tstr(c).c_str());
  if (!std::isfinite(x)) {
    mv_warn("vecopt", "the value %g is not a number", (double)x);
    return;
  }
  if (same(c, "UNIFORM")) {
    mirval_state().field.vec_uniform = x != 0;
    return;
  }
  set_option<double>("vecopt", c, x,
                     {{"SCALE", "scale", 0, 1e9, &FieldState::vec_scale},
                      {"LENGTH", "length", 0, 100000, &FieldState::vec_length},
                      {"HEAD", "head length", 0, 10000, &FieldState::vec_head},
                      {"SIZE", "head length", 0, 10000, &FieldState::vec_head},
                      {"ANGLE", "head angle", 5, 80, &FieldState::vec_angle},
                      {"POSITION", "position", 0, 1, &FieldState::vec_position}});
}

void vecclr(int n) {
  mv_tracef("vecclr(%d)", n);
  if (n < -2 || n > 255) {
    mv_warn("vecclr", "the colour %d is outside -2..255", n);
    return;
  }
  mirval_state().field.vec_colour = n;
}

void windbr(float x1, int n1, int n2, int n3, float x2) {
  mv_tracef("windbr(%g, %d, %d, %d, %g)", (double)x1, n1, n2, n3, (double)x2);
  if (!mv_level("windbr", 1, 3) || !barb_args("windbr", x1, n3, x2)) return;
  barb(x1, {double(n1), page_y(n2)}, n3, x2, plot_clip());
}

void rlwind(float x1, float x2, float x3, int n, float x4) {
  mv_tracef("rlwind(%g, %g, %g, %d, %g)", (double)x1, (double)x2, (double)x3, n, (double)x4);
  if (!mv_level("rlwind", 2, 3) || !barb_args("rlwind", x1, n, x4)) return;
  Pt p = page_point(x2, x3);
  if (!std::isfinite(p.x + p.y)) {
    mv_warn("rlwind", "the point is not a number or has no place on a log axis");
    return;
  }
  Rect clip = user_clip();
  if (!inside(p, clip)) return;
  barb(x1, p, n, x4, clip);
}

}
