// 0 square, 1 circle, 2 triangle, 3 plus, 4 cross, 5 diamond, 6 triangle down, 7 square with
// cross, 8 asterisk, 9 diamond with plus, 10 circle with plus, 11 two triangles, 12 square
// with plus, 13 circle with cross, 14 circle with dot, 15 star; filled: 16 square, 17 triangle,
// 18 diamond, 19 triangle down, 20 star, 21 circle; 22 dot, 23 hexagon, 24 filled hexagon.
#include "draw/markers.h"
#include "draw/clip.h"
#include "draw/draw.h"
#include "core/messages.h"
#include "mirval.h"
#include "axes/scaling.h"
#include "core/state.h"
#include "core/trace.h"

#include <cmath>

namespace {

// Shapes on a unit square (-1..1, y upwards), scaled and placed by the caller.
struct Shape {
  Path path;
  Pt c;
  double r;
  double ca = 1, sa = 0;  // SYMROT: turned counter-clockwise
  Pt at(double x, double y) const { return {c.x + r * (x * ca - y * sa), c.y - r * (x * sa + y * ca)}; }
  void polygon(std::initializer_list<Pt> pts) {
    bool first = true;
    for (Pt p : pts) {
      if (first) path.move(at(p.x, p.y));
      else path.line(at(p.x, p.y));
      first = false;
    }
    path.close();
  }
  void segment(double x0, double y0, double x1, double y1) {
    path.move(at(x0, y0));
    path.line(at(x1, y1));
  }
  void circle(double k) { arc_path(path, c, r * k, r * k, 0, 360, 0, true), path.close(); }
  void square() { polygon({{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}); }
  void triangle(double s) { polygon({{-1, -0.8 * s}, {1, -0.8 * s}, {0, 1 * s}}); }
  void diamond() { polygon({{0, -1}, {1, 0}, {0, 1}, {-1, 0}}); }
  void plus(double k) { segment(-k, 0, k, 0), segment(0, -k, 0, k); }
  void cross(double k) { segment(-k, -k, k, k), segment(-k, k, k, -k); }
  void star() {
    Path &p = path;
    for (int i = 0; i < 10; ++i) {
      double a = M_PI / 2 + i * M_PI / 5, k = i % 2 ? 0.45 : 1.05;
      Pt q = at(k * std::cos(a), k * std::sin(a));
      if (i == 0) p.move(q);
      else p.line(q);
    }
    p.close();
  }
  void hexagon() {
    for (int i = 0; i < 6; ++i) {
      Pt q = at(std::cos(i * M_PI / 3), std::sin(i * M_PI / 3));
      if (i == 0) path.move(q);
      else path.line(q);
    }
    path.close();
  }
};

}  // namespace

void draw_marker(int n, Pt c, double size, Rgb rgb, double width) {
  const ChartState &opt = mirval_state().chart;
  double a = opt.marker_angle * M_PI / 180;
  Shape s{Path{}, c, size / 2, std::cos(a), std::sin(a)};
  bool filled = (n >= 16 && n <= 22) || n == 24;
  const std::vector<Pt> *own = n >= 0 && n < marker_count && !opt.user_symbols[n].empty() ? &opt.user_symbols[n] : nullptr;
  if (own) {  // MYSYMB: the user's outline in the symbol's square
    for (size_t k = 0; k < own->size(); ++k) {
      Pt q = s.at((*own)[k].x, (*own)[k].y);
      if (k == 0) s.path.move(q);
      else s.path.line(q);
    }
    if (opt.user_filled[n]) s.path.close();
    filled = opt.user_filled[n];
  } else switch (n) {
    case 0: case 16: s.r *= 0.85, s.square(); break;
    case 1: case 21: s.circle(1); break;
    case 2: case 17: s.triangle(1); break;
    case 3: s.plus(1); break;
    case 4: s.cross(0.8); break;
    case 5: case 18: s.diamond(); break;
    case 6: case 19: s.triangle(-1); break;
    case 7: s.r *= 0.85, s.square(), s.cross(1); break;
    case 8: s.plus(1), s.cross(0.72); break;
    case 9: s.diamond(), s.plus(1); break;
    case 10: s.circle(1), s.plus(1); break;
    case 11: s.triangle(1), s.triangle(-1); break;
    case 12: s.r *= 0.85, s.square(), s.plus(1); break;
    case 13: s.circle(1), s.cross(0.707); break;
    case 14: s.circle(1); break;  // the dot is filled below
    case 15: case 20: s.star(); break;
    case 22: s.circle(0.3); break;
    default: s.hexagon(); break;
  }
  if (filled) {
    fill_path(s.path, rgb);
    return;
  }
  stroke_path(s.path, rgb, width, {});
  if (n == 14 && !own) {
    Shape dot{Path{}, c, size / 2};
    dot.circle(0.2);
    fill_path(dot.path, rgb);
  }
}

extern "C" {

void marker(int nsym) {
  mv_tracef("marker(%d)", nsym);
  if (nsym < 0 || nsym >= marker_count)
    mv_warn("marker", "symbol %d out of range 0..%d", nsym, marker_count - 1);
  else mirval_state().curve.marker = nsym;
}

void hsymbl(int nhsym) {
  set_number("hsymbl", "size", nhsym, 1, 10000, mirval_state().curve.hsymbl);
}

void symbol(int nsym, int nx, int ny) {
  mv_tracef("symbol(%d, %d, %d)", nsym, nx, ny);
  if (!mv_level("symbol", 1, 3)) return;
  if (nsym < 0 || nsym >= marker_count) {
    mv_warn("symbol", "symbol %d out of range 0..%d", nsym, marker_count - 1);
    return;
  }
  const MirvalState &st = mirval_state();
  draw_marker(nsym, {double(nx), page_y(ny)}, st.curve.hsymbl, pen_rgb(), st.pen.width);
}

void getsym(int *nsym, int *nhsym) {
  mv_tracef("getsym(nsym=out, nhsym=out)");
  if (nsym) *nsym = mirval_state().curve.marker;
  if (nhsym) *nhsym = mirval_state().curve.hsymbl;
}

void rlsymb(int n, float x1, float x2) {
  mv_tracef("rlsymb(%d, %g, %g)", n, (double)x1, (double)x2);
  if (!mv_level("rlsymb", 2, 3)) return;
  if (n < 0 || n >= marker_count) {
    mv_warn("rlsymb", "symbol %d out of range 0..%d", n, marker_count - 1);
    return;
  }
  const MirvalState &st = mirval_state();
  Pt c = page_point(x1, x2);
  if (std::isfinite(c.x) && std::isfinite(c.y) && inside(c, user_clip()))
    draw_marker(n, c, st.curve.hsymbl, pen_rgb(), st.pen.width);
}

}
