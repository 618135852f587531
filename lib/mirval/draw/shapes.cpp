// Lines, rectangles, circles, ellipses, arcs, sectors, points and filled areas, in plot
// coordinates and (the RL forms) in user coordinates.
#include "draw/colours.h"
#include "draw/draw.h"
#include "core/messages.h"
#include "mirval.h"
#include "axes/scaling.h"
#include "core/state.h"
#include "core/trace.h"
#include "maps/projection.h"

#include <algorithm>
#include <cmath>

namespace {

bool colour_number(const char *routine, int ncol) {
  if (ncol >= -1 && ncol <= 255) return true;
  mv_warn(routine, "colour number %d out of range -1..255", ncol);
  return false;
}

// A closed shape: filled or hatched as SHDPAT says, then outlined.
void shape(const Path &p, const Rect &clip) { shape_path(fit_path(p, clip, true)); }

// A rectangle filled in table colour ncol (-1: the current colour).
void filled_rect(double x0, double y0, double x1, double y1, int ncol, const Rect &clip) {
  fill_path(fit_path(rect_path(x0, y0, x1, y1), clip, true), ncol < 0 ? pen_rgb() : table_rgb(ncol));
}

// A rectangle whose corners are rounded by nround tenths of half its shorter side (0..9).
Path round_rect_path(double x0, double y0, double x1, double y1, int nround) {
  if (x0 > x1) std::swap(x0, x1);
  if (y0 > y1) std::swap(y0, y1);
  double r = std::min(x1 - x0, y1 - y0) / 2 * nround / 10.0;
  Path p;
  arc_path(p, {x1 - r, y0 + r}, r, r, 0, 90, 0, true);
  arc_path(p, {x0 + r, y0 + r}, r, r, 90, 180, 0, false);
  arc_path(p, {x0 + r, y1 - r}, r, r, 180, 270, 0, false);
  arc_path(p, {x1 - r, y1 - r}, r, r, 270, 360, 0, false);
  p.close();
  return p;
}

bool roundness(const char *routine, int n) { return in_range(routine, "roundness", n, 0, 9); }

void ellipse(Pt c, double a, double b, const Rect &clip) {
  Path p;
  arc_path(p, c, a, b, 0, 360, 0, true);
  p.close();
  shape(p, clip);
}

void arc(Pt c, double a, double b, double alpha, double beta, double theta, const Rect &clip) {
  Path p;
  arc_path(p, c, a, b, alpha, beta, theta, true);
  stroke_path(fit_path(p, clip, false));
}

// The ring sector between radii r1 and r2 from alpha to beta degrees, filled in colour ncol
// (-1: outline only) and outlined in the current colour.
void sector_at(Pt c, double r1, double r2, double alpha, double beta, int ncol, const Rect &clip) {
  Path p;
  arc_path(p, c, r2, r2, alpha, beta, 0, true);
  if (r1 > 0) arc_path(p, c, r1, r1, beta, alpha, 0, false);
  else p.line(c);
  p.close();
  Path fit = fit_path(p, clip, true);
  if (ncol >= 0) fill_path(fit, table_rgb(ncol));
  stroke_path(fit);
}

// On a map axis system x and y are longitude and latitude and go through the projection
// together (page_point); the lines between them are cut at the map's seam and edge.
std::vector<Pt> user_points(const float *x, const float *y, int n) {
  std::vector<Pt> pts;
  for (int i = 0; i < n; ++i) pts.push_back(page_point(x[i], y[i]));
  return pts;
}

std::vector<Pt> user_line(double xa, double ya, double xb, double yb) {
  std::vector<Pt> pts{page_point(xa, ya)};
  for (Pt q : page_cut(xa, ya, xb, yb)) pts.push_back(q);
  pts.push_back(page_point(xb, yb));
  return pts;
}

// Page distance from user point (x, y) to the point dx, dy away from it: a radius along the
// user X axis (dy = 0) or Y axis (dx = 0); on a map, measured where the shape stands.
double user_radius(double x, double y, double dx, double dy) {
  Pt c = page_point(x, y), e = page_point(x + dx, y + dy);
  return std::hypot(e.x - c.x, e.y - c.y);
}

// A rectangle of user coordinates from its upper left corner: on a map its sides follow the
// parallels and meridians, so they are drawn through points along them.
Path user_rect(double x, double y, double w, double h) {
  if (!current_map()) return rect_path(page_x(x), page_y_user(y), page_x(x + w), page_y_user(y - h));
  const int steps = 32;
  const double cx[] = {x, x + w, x + w, x, x}, cy[] = {y, y, y - h, y - h, y};
  std::vector<Pt> pts;
  for (int side = 0; side < 4; ++side)
    for (int k = 0; k < steps; ++k) {
      double f = double(k) / steps;
      pts.push_back(page_point(cx[side] + f * (cx[side + 1] - cx[side]), cy[side] + f * (cy[side + 1] - cy[side])));
    }
  return polygon_path(pts, user_clip());
}

bool drawing(const char *routine) { return mv_level(routine, 1, 3); }
bool user_drawing(const char *routine) { return mv_level(routine, 2, 3); }

// Whether both coordinate arrays are there with points enough for an area; otherwise warns.
bool area_given(const char *routine, bool arrays, int n) {
  if (arrays && n >= 3) return true;
  mv_warn(routine, "an area needs at least 3 points (got %d)", n);
  return false;
}

}  // namespace

extern "C" {

void line(int nx1, int ny1, int nx2, int ny2) {
  mv_tracef("line(%d, %d, %d, %d)", nx1, ny1, nx2, ny2);
  if (drawing("line")) stroke_polyline({{double(nx1), page_y(ny1)}, {double(nx2), page_y(ny2)}}, plot_clip());
}

void rline(float x1, float y1, float x2, float y2) {
  mv_tracef("rline(%g, %g, %g, %g)", (double)x1, (double)y1, (double)x2, (double)y2);
  if (user_drawing("rline"))
    stroke_polyline(user_line(x1, y1, x2, y2), user_clip());
}

void rectan(int nx, int ny, int nw, int nh) {
  mv_tracef("rectan(%d, %d, %d, %d)", nx, ny, nw, nh);
  if (!drawing("rectan")) return;
  double y = page_y(ny), y1 = mirval_state().page.bottom ? y - nh : y + nh;
  shape(rect_path(nx, y, double(nx) + nw, y1), plot_clip());
}

void rlrec(float x1, float x2, float x3, float x4) {
  mv_tracef("rlrec(%g, %g, %g, %g)", (double)x1, (double)x2, (double)x3, (double)x4);
  if (!user_drawing("rlrec")) return;
  shape(user_rect(x1, x2, x3, x4), user_clip());
}

void recfll(int nx, int ny, int nw, int nh, int ncol) {
  mv_tracef("recfll(%d, %d, %d, %d, %d)", nx, ny, nw, nh, ncol);
  if (!drawing("recfll") || !colour_number("recfll", ncol)) return;
  double y = page_y(ny), y1 = mirval_state().page.bottom ? y - nh : y + nh;
  filled_rect(nx, y, double(nx) + nw, y1, ncol, plot_clip());
}

void circle(int nx, int ny, int nr) {
  mv_tracef("circle(%d, %d, %d)", nx, ny, nr);
  if (drawing("circle")) ellipse({double(nx), page_y(ny)}, nr, nr, plot_clip());
}

void rlcirc(float x1, float x2, float x3) {
  mv_tracef("rlcirc(%g, %g, %g)", (double)x1, (double)x2, (double)x3);
  if (!user_drawing("rlcirc")) return;
  double r = user_radius(x1, x2, x3, 0);
  ellipse(page_point(x1, x2), r, r, user_clip());
}

void ellips(int nx, int ny, int na, int nb) {
  mv_tracef("ellips(%d, %d, %d, %d)", nx, ny, na, nb);
  if (drawing("ellips")) ellipse({double(nx), page_y(ny)}, na, nb, plot_clip());
}

void rlell(float x1, float x2, float x3, float x4) {
  mv_tracef("rlell(%g, %g, %g, %g)", (double)x1, (double)x2, (double)x3, (double)x4);
  if (!user_drawing("rlell")) return;
  ellipse(page_point(x1, x2), user_radius(x1, x2, x3, 0), user_radius(x1, x2, 0, x4), user_clip());
}

void arcell(int n1, int n2, int n3, int n4, float x1, float x2, float x3) {
  mv_tracef("arcell(%d, %d, %d, %d, %g, %g, %g)", n1, n2, n3, n4, (double)x1, (double)x2, (double)x3);
  if (drawing("arcell")) arc({double(n1), page_y(n2)}, n3, n4, x1, x2, x3, plot_clip());
}

void rlarc(float x1, float x2, float x3, float x4, float x5, float x6, float x7) {
  mv_tracef("rlarc(%g, %g, %g, %g, %g, %g, %g)", (double)x1, (double)x2, (double)x3, (double)x4,
            (double)x5, (double)x6, (double)x7);
  if (!user_drawing("rlarc")) return;
  arc(page_point(x1, x2), user_radius(x1, x2, x3, 0), user_radius(x1, x2, 0, x4), x5, x6, x7, user_clip());
}

void sector(int nx, int ny, int nr1, int nr2, float alpha, float beta, int ncol) {
  mv_tracef("sector(%d, %d, %d, %d, %g, %g, %d)", nx, ny, nr1, nr2, (double)alpha, (double)beta, ncol);
  if (drawing("sector") && colour_number("sector", ncol))
    sector_at({double(nx), page_y(ny)}, nr1, nr2, alpha, beta, ncol, plot_clip());
}

void rlsec(float x1, float x2, float x3, float x4, float x5, float x6, int n) {
  mv_tracef("rlsec(%g, %g, %g, %g, %g, %g, %d)", (double)x1, (double)x2, (double)x3, (double)x4,
            (double)x5, (double)x6, n);
  if (user_drawing("rlsec") && colour_number("rlsec", n))
    sector_at(page_point(x1, x2), user_radius(x1, x2, x3, 0), user_radius(x1, x2, x4, 0), x5, x6, n, user_clip());
}

void point(int nx, int ny, int nb, int nh, int ncol) {
  mv_tracef("point(%d, %d, %d, %d, %d)", nx, ny, nb, nh, ncol);
  if (!drawing("point") || !colour_number("point", ncol)) return;
  double y = page_y(ny);
  filled_rect(nx - nb / 2.0, y - nh / 2.0, nx + nb / 2.0, y + nh / 2.0, ncol, plot_clip());
}

void rlpoin(float x1, float x2, int n1, int n2, int n3) {
  mv_tracef("rlpoin(%g, %g, %d, %d, %d)", (double)x1, (double)x2, n1, n2, n3);
  if (!user_drawing("rlpoin") || !colour_number("rlpoin", n3)) return;
  Pt c = page_point(x1, x2);
  filled_rect(c.x - n1 / 2.0, c.y - n2 / 2.0, c.x + n1 / 2.0, c.y + n2 / 2.0, n3, user_clip());
}

void areaf(const int *nxray, const int *nyray, int n) {
  mv_tracef("areaf(nxray=%s, nyray=%s, n=%d)", mv_tarr(n, "ints").c_str(), mv_tarr(n, "ints").c_str(), n);
  if (!drawing("areaf") || !area_given("areaf", nxray && nyray, n)) return;
  std::vector<Pt> pts;
  for (int i = 0; i < n; ++i) pts.push_back({double(nxray[i]), page_y(nyray[i])});
  shape_path(polygon_path(pts, plot_clip()));
}

void rlarea(const float *xray, const float *yray, int n) {
  mv_tracef("rlarea(xray=%s, yray=%s, n=%d)", mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), n);
  if (!user_drawing("rlarea") || !area_given("rlarea", xray && yray, n)) return;
  shape_path(polygon_path(user_points(xray, yray, n), user_clip()));
}

void pagera(void) {
  mv_tracef("pagera()");
  if (!drawing("pagera")) return;
  const MirvalState &st = mirval_state();
  if (st.pen.frame == 0) return;
  // inset by half a line, and by at least a raster pixel, so that no output cuts it off
  double w = st.page.width, h = st.page.height, f = std::max(st.pen.frame, 3) / 2.0;
  stroke_polyline({{f, f}, {w - f, f}, {w - f, h - f}, {f, h - f}, {f, f}}, page_rect(), pen_rgb(),
                  st.pen.frame, {});
}

void pagfll(int n) {
  mv_tracef("pagfll(%d)", n);
  if (!drawing("pagfll") || !colour_number("pagfll", n)) return;
  const PageState &pg = mirval_state().page;
  filled_rect(0, 0, pg.width, pg.height, n, page_rect());
}

void shdpat(int n) {
  mv_tracef("shdpat(%d)", n);
  if (n < 0 || n > 17) mv_warn("shdpat", "pattern %d out of range 0..17", n);
  else mirval_state().pen.pattern = n;
}

void rndrec(int n1, int n2, int n3, int n4, int n5) {
  mv_tracef("rndrec(%d, %d, %d, %d, %d)", n1, n2, n3, n4, n5);
  if (!drawing("rndrec") || !roundness("rndrec", n5)) return;
  double y = page_y(n2), y1 = mirval_state().page.bottom ? y - n4 : y + n4;
  shape(round_rect_path(n1, y, double(n1) + n3, y1, n5), plot_clip());
}

void rlrnd(float x1, float x2, float x3, float x4, int n) {
  mv_tracef("rlrnd(%g, %g, %g, %g, %d)", (double)x1, (double)x2, (double)x3, (double)x4, n);
  if (!user_drawing("rlrnd") || !roundness("rlrnd", n)) return;
  Pt a = page_point(x1, x2), b = page_point(x1 + x3, x2 - x4);
  shape(round_rect_path(a.x, a.y, b.x, b.y, n), user_clip());
}

}
