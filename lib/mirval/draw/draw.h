// Drawing with the current pen: the routines of every concern turn their geometry into
// items of the current page through these helpers.
#pragma once
#include <cmath>
#include "draw/scene.h"
#include "core/state.h"
#include "core/trace.h"

#include <vector>

Rgb pen_rgb();
// Page y of a plot y (PAGORG('BOTTOM') counts from the lower edge) and back.
double page_y(double y);
Rect page_rect();
// Where drawing in user coordinates is cut: the axis system, a window or the page.
Rect user_clip();
// Where drawing in plot coordinates is cut: the CLPWIN window or the page.
Rect plot_clip();

// Appends an item to the current page; strokes take the pen's line ends and joins.
void add_item(Item it);
// Strokes a polyline with the pen (or the given width and pattern), cut to the rectangle.
void stroke_polyline(const std::vector<Pt> &pts, const Rect &clip);
void stroke_polyline(const std::vector<Pt> &pts, const Rect &clip, Rgb rgb, double width,
                     const std::vector<double> &dash);
void stroke_path(const Path &p);
void stroke_path(const Path &p, Rgb rgb, double width, const std::vector<double> &dash);
// Fills a path in one colour.
void fill_path(const Path &p, Rgb rgb);
// A cell of a surface or matrix that meets its neighbours without seams.
void fill_cell(const Path &p, Rgb rgb);
// Fills a closed path solid (pattern 16) or hatches it (1..15, or 17 the MYPAT pattern);
// pattern 0 leaves it empty.
void pattern_fill(const Path &p, Rgb rgb, int pattern, float alpha = 1);
// A closed shape as SHDPAT wants it: hatched or filled in the pen colour, then outlined.
void shape_path(const Path &p);
// Polygons cut to a rectangle, as paths.
Path polygon_path(const std::vector<Pt> &poly, const Rect &clip);
// Appends q as one closed part of p.
void append_polygon(Path &p, const std::vector<Pt> &q);
// Appends the pieces of a polyline that lie inside the rectangle as open parts of p.
void append_polyline(Path &p, const std::vector<Pt> &pts, const Rect &clip);
Path closed_path(const std::vector<Pt> &q);
Path rect_path(double x0, double y0, double x1, double y1);
// An ellipse arc around c with half axes a, b from alpha to beta degrees (counter-clockwise),
// the whole figure turned by theta; as Bezier segments appended to p.
void arc_path(Path &p, Pt c, double a, double b, double alpha, double beta, double theta, bool start);
// A path as it may be drawn inside a rectangle: unchanged when it lies within, otherwise
// flattened and cut (closed shapes as polygons, open ones as polylines).
Path fit_path(const Path &p, const Rect &clip, bool closed);
// Checks a size or count against its range lo..hi; otherwise warns, naming the routine and
// the argument, and returns false. Sizes are capped so that no setting can push coordinates
// beyond what the renderer can hold.
bool in_range(const char *routine, const char *what, double v, double lo, double hi);
// A routine that sets one whole number: the call traced, the number checked as in_range
// does and kept in 'to'.
template <class T>
void set_number(const char *routine, const char *what, int v, double lo, double hi, T &to) {
  mv_tracef("%s(%d)", routine, v);
  if (in_range(routine, what, v, lo, hi)) to = v;
}

// The polyline without points closer than tol to the previous kept point and without the
// inner points of runs that stay within tol of a straight line. A run never spans more than
// `span` plot units, so that sparse data keep every point and only dense data are thinned.
std::vector<Pt> simplify(const std::vector<Pt> &line, double tol, double span = INFINITY);
// Finer than a raster pixel and than print can show.
constexpr double POLYLINE_TOLERANCE = 0.3;
