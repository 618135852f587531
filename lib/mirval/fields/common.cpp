// What the field routines share: arrow shapes, colours of values,
// argument checks and the RESET entries of the field settings.
#include "axes/axes.h"
#include "axes/scaling.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "core/trace.h"
#include "draw/clip.h"
#include "draw/colours.h"
#include "draw/draw.h"
#include "draw/text.h"
#include "fields/fields.h"
#include "grids/colour_matrix.h"
#include "grids/contour.h"

#include <algorithm>
#include <cmath>

// ---- RESET -------------------------------------------------------------------------------

namespace {
const FieldState fresh{};
}

void field_reset_vecopt(MirvalState &s) {
  FieldState &f = s.field;
  f.vec_scale = fresh.vec_scale, f.vec_length = fresh.vec_length, f.vec_head = fresh.vec_head;
  f.vec_angle = fresh.vec_angle, f.vec_position = fresh.vec_position, f.vec_uniform = fresh.vec_uniform;
}
void field_reset_vecclr(MirvalState &s) { s.field.vec_colour = fresh.vec_colour; }
void field_reset_stmmod(MirvalState &s) {
  FieldState &f = s.field;
  f.stm_arrows = fresh.stm_arrows, f.stm_direction = fresh.stm_direction, f.stm_method = fresh.stm_method;
}
void field_reset_stmopt(MirvalState &s) {
  FieldState &f = s.field;
  f.stm_points = fresh.stm_points, f.stm_arrow_every = fresh.stm_arrow_every;
  f.stm_lines = fresh.stm_lines, f.stm_head = fresh.stm_head;
}
void field_reset_stmval(MirvalState &s) {
  FieldState &f = s.field;
  f.stm_distance = fresh.stm_distance, f.stm_test = fresh.stm_test, f.stm_accuracy = fresh.stm_accuracy;
  f.stm_step = fresh.stm_step, f.stm_speed = fresh.stm_speed;
}
void field_reset_starts(MirvalState &s) {
  s.field.starts_plot.clear();
  s.field.starts_user.clear();
}
void field_reset_licmod(MirvalState &s) {
  FieldState &f = s.field;
  f.lic_filter = fresh.lic_filter, f.lic_length = fresh.lic_length, f.lic_normalize = fresh.lic_normalize;
}
void field_reset_splmod(MirvalState &s) {
  s.field.spl_order = fresh.spl_order;
  s.field.spl_points = fresh.spl_points;
}
void field_reset_mdfmat(MirvalState &s) {
  FieldState &f = s.field;
  f.mdf_passes = fresh.mdf_passes, f.mdf_radius = fresh.mdf_radius, f.mdf_weight = fresh.mdf_weight;
}
void field_reset_shdfac(MirvalState &s) { s.field.shd_factor = fresh.shd_factor; }
void field_reset_shdcha(MirvalState &s) {
  s.field.shd_change = false;
  s.field.shd_count = 0;
}
void field_reset_trf(MirvalState &s) { std::copy(fresh.trf, fresh.trf + 6, s.field.trf); }

// ---- arrows ------------------------------------------------------------------------------

bool arrow_form(int ivec, ArrowForm &f) {
  f = ArrowForm{};
  if (ivec < 0 || ivec > 999) return false;
  int head = ivec % 10, where = ivec / 10 % 10;
  if (head > 4 || where > 2) return false;
  f.head = head, f.where = where, f.size = ivec / 100;
  return true;
}

double head_length(const ArrowForm &f, double len) {
  if (f.size > 0) return 10.0 * f.size;
  double h = mirval_state().field.vec_head;
  if (h > 0) return h;
  return std::min(30.0, 0.35 * len);
}

namespace {

// Appends a polygon cut to the rectangle; nothing when nothing of it is left.
void add_cut(Path &p, const std::vector<Pt> &poly, const Rect &clip) {
  std::vector<Pt> cut = clip_polygon(poly, clip);
  if (cut.size() >= 3) append_polygon(p, cut);
}

// A head with its tip at 'tip', pointing along the unit vector (dx, dy).
void head_at(Pt tip, double dx, double dy, const ArrowForm &f, double h, double angle, Path &lines, Path &fills,
             const Rect &clip) {
  double a = angle * M_PI / 180, c = std::cos(a), s = std::sin(a);
  double hl = h / std::max(c, 0.2);
  // the two back corners: the direction turned by +-angle, backwards from the tip
  Pt l{tip.x - hl * (c * dx - s * dy), tip.y - hl * (s * dx + c * dy)};
  Pt r{tip.x - hl * (c * dx + s * dy), tip.y - hl * (-s * dx + c * dy)};
  switch (f.head) {
    case 1: add_cut(fills, {tip, l, r}, clip); break;
    case 2: append_polyline(lines, {l, tip, r}, clip); break;
    case 3: append_polyline(lines, {tip, l, r, tip}, clip); break;
    case 4: {
      Pt notch{tip.x - 0.65 * h * dx, tip.y - 0.65 * h * dy};
      add_cut(fills, {tip, l, notch, r}, clip);
      break;
    }
    default: break;
  }
}

}  // namespace

void arrow_geometry(Pt a, Pt b, const ArrowForm &f, double head, double angle, Path &lines, Path &fills,
                    const Rect &clip) {
  double dx = b.x - a.x, dy = b.y - a.y, len = std::hypot(dx, dy);
  if (!(len > 0) || !std::isfinite(len)) return;
  dx /= len, dy /= len;
  head = std::min(head, 0.9 * len / (f.where == 2 ? 2 : 1));
  // the shaft stops short of filled heads so that their tips stay sharp
  Pt s0 = a, s1 = b;
  bool at_end = f.head && f.where != 1, at_start = f.head && f.where >= 1;
  double cut = (f.head == 1 || f.head == 4) ? 0.5 * head : 0;
  if (at_end) s1 = {b.x - cut * dx, b.y - cut * dy};
  if (at_start) s0 = {a.x + cut * dx, a.y + cut * dy};
  if (mirval_state().chart.arrow_lines) append_polyline(lines, {s0, s1}, clip);  // NOARLN: heads alone
  if (at_end) head_at(b, dx, dy, f, head, angle, lines, fills, clip);
  if (at_start) head_at(a, -dx, -dy, f, head, angle, lines, fills, clip);
}

// ---- colours of values ----------------------------------------------------------

int value_colour(double z, double lo, double hi) {
  const GridState &g = mirval_state().grid;
  if (!std::isfinite(z)) return -1;
  if (g.colour_axis) return z_colour(z);
  int span = g.colour_hi - g.colour_lo;
  double t = hi > lo ? (z - lo) / (hi - lo) : 0.5;
  t = std::clamp(t, 0.0, 1.0);
  return g.colour_lo + static_cast<int>(std::lround(t * span));
}

// ---- checks ------------------------------------------------------------------------------

template <class T>
void set_option(const char *routine, const char *c, double x, std::initializer_list<FieldOption<T>> options) {
  for (const FieldOption<T> &o : options)
    if (same(c, o.key)) {
      if (in_range(routine, o.what, x, o.lo, o.hi)) mirval_state().field.*o.to = T(x);
      return;
    }
  mv_warn(routine, "unknown option %s", mv_tstr(c).c_str());
}
template void set_option(const char *, const char *, double, std::initializer_list<FieldOption<int>>);
template void set_option(const char *, const char *, double, std::initializer_list<FieldOption<double>>);

bool arrays_ok(const char *routine, int n, int least, std::initializer_list<const void *> arrays) {
  for (const void *a : arrays)
    if (!a) {
      mv_warn(routine, "an array is missing");
      return false;
    }
  if (n < least) {
    mv_warn(routine, "a count of %d is below %d", n, least);
    return false;
  }
  if (n > 100000000) {
    mv_warn(routine, "a count of %d is too large", n);
    return false;
  }
  return true;
}

bool finite_all(const float *a, int n) {
  for (int i = 0; i < n; ++i)
    if (!std::isfinite(a[i])) return false;
  return true;
}
