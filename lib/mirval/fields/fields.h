// Vector fields, streamlines, triangulated data, fits and transformations: the pure parts
// (geometry and numerics, testable without a page) and the drawing helpers the routines share.
#pragma once
#include "core/state.h"
#include "draw/scene.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

// ---- arrows ----------------------------------------------------------------------------
// An arrow form from a VECTOR-style code: units digit the head (0 none, 1 filled, 2 open,
// 3 outlined, 4 swept), tens digit where (0 end, 1 start, 2 both ends), hundreds digit the
// head length in tens of plot units (0 automatic).
struct ArrowForm {
  int head = 1, where = 0, size = 0;
};
// Splits a code; false (and the default form) for a code outside 0..999.
bool arrow_form(int ivec, ArrowForm &f);
// Shaft and head of an arrow from a to b in page coordinates: the shaft goes into 'lines';
// filled heads into 'fills', open and outlined heads into 'lines'.
void arrow_geometry(Pt a, Pt b, const ArrowForm &f, double head, double angle_deg, Path &lines, Path &fills,
                    const Rect &clip);
// Head length of an arrow of length len: the given one, else the VECOPT one, else automatic.
double head_length(const ArrowForm &f, double len);

// ---- streamlines -----------------------------------------------------------------------
// A field that can be sampled at a point of user coordinates; false outside it or where it
// has no value.
using FieldFn = std::function<bool(double x, double y, double &u, double &v)>;

// Bilinear field on a rectilinear grid (u[i * ny + j] at x[i], y[j], either axis ascending or
// descending).
struct GridField {
  std::vector<double> x, y;
  const float *u = nullptr, *v = nullptr;
  int nx = 0, ny = 0;
  bool at(double px, double py, double &uu, double &vv) const;
};

// Linear field on triangles (the corners carry the vectors), found through a bucket grid.
struct TriField {
  std::vector<double> x, y, u, v;
  std::vector<std::array<int, 3>> tri;
  double x0 = 0, y0 = 0, cw = 1, ch = 1;
  int bx = 1, by = 1;
  std::vector<std::vector<int>> buckets;
  void build();
  bool at(double px, double py, double &uu, double &vv) const;
};

struct StreamOptions {
  double sx = 1, sy = 1;          // plot units per user unit along x and y
  double step = 8;                // longest step, plot units
  double accuracy = 1e-6;         // relative error bound
  int method = 0;                 // 0 RKF45, 1 RKCK, 2 RK8PD
  int max_points = 5000;
  int direction = 0;              // 0 both ways, 1 forward, -1 backward
  double min_speed = 0;           // stop below this speed
  double max_length = 1e9;        // plot units
};

// One streamline through (x0, y0) in user coordinates, integrated adaptively (GSL) along its
// arc length on the page. 'stop' (may be empty) is asked at every new point with the point
// and the arc length from the start; true ends that direction. The line is ordered along the
// field; 'closed' says that it came back to its start, whose point then ends it again.
std::vector<Pt> trace_streamline(const FieldFn &f, double x0, double y0, const StreamOptions &o,
                                 const std::function<bool(Pt, double, int)> &stop, bool *closed);

// Evenly spaced streamlines (automatic start points) over the user rectangle [x0, x1] x [y0, y1];
// 'seeds' given are used instead when not empty.
std::vector<std::vector<Pt>> stream_lines(const FieldFn &f, double x0, double x1, double y0, double y1,
                                          const StreamOptions &o, double dsep, double dtest, int max_lines,
                                          const std::vector<Pt> &seeds);

// Line integral convolution of texture t (nx * ny values) along the grid field: the mean of
// the texture over +-len cells along each streamline (box or Hanning kernel).
std::vector<double> lic_texture(const float *u, const float *v, int nx, int ny, const std::vector<double> &t,
                                double len, int filter);

// ---- triangulation and contours of scattered data ---------------------------------------
// Delaunay triangles (counter-clockwise corner indexes from 0) of n points through Qhull;
// empty when fewer than three points do not lie on one line. 'error' gets Qhull's complaint.
std::vector<std::array<int, 3>> delaunay(const float *x, const float *y, int n, std::string *error = nullptr);
// The contour lines at 'level' of values z given at the corners of triangles, joined through
// shared edges; closed lines end on their first point.
std::vector<std::vector<Pt>> tri_contours(const float *x, const float *y, const float *z,
                                          const std::vector<std::array<int, 3>> &tri, double level);
// The part of a triangle (corners p, values z) where lo <= z <= hi, as a polygon (may be empty).
std::vector<Pt> tri_band(const Pt p[3], const double z[3], double lo, double hi);
// Values of scattered points on a grid (x[i], y[j]): linear on the Delaunay triangles,
// 'outside' beyond them. Also how many data points lie nearest to each grid point and the
// distance from each grid point to its nearest data point.
void grid_scattered(const float *x, const float *y, const float *z, int n, const std::vector<double> &gx,
                    const std::vector<double> &gy, double outside, std::vector<float> &zmat,
                    std::vector<int> *count, std::vector<float> *dist);

// ---- fits and curves ---------------------------------------------------------------------
// The least squares line y = a x + b and the correlation coefficient r (GSL); false for fewer
// than two points or points with one x.
bool fit_line(const float *x, const float *y, int n, double &a, double &b, double &r);
// An interpolating spline (order 1 linear, 3 cubic) through the points sampled at m points:
// over x when x rises strictly, otherwise over the chord length as a parametric curve.
bool spline_curve(const float *x, const float *y, int n, int order, int m, std::vector<Pt> &out);
// The Bezier curve of the control points at m parameters from 0 to 1.
std::vector<Pt> bezier_curve(const float *x, const float *y, int n, int m);
// Cuts a polygon at one edge: keeps x >= v ('LEFT'), x <= v ('RIGHT'), y >= v ('BOTTOM'),
// y <= v ('TOP'); edge is 0..3 in that order.
std::vector<Pt> clip_half(const std::vector<Pt> &poly, int edge, double v);
// A polygon cut to a convex polygon (counter-clockwise or clockwise).
std::vector<Pt> clip_convex(const std::vector<Pt> &poly, const std::vector<Pt> &window);

// ---- transformations ---------------------------------------------------------------------
// Coordinate systems of TRFCO2/TRFCO3: 0 rectangular, 1 polar (2-D) / cylindrical (3-D),
// 2 spherical; -1 unknown.
int coord_system(const char *name, int dims);
void to_cartesian(int sys, double a, double b, double c, double &x, double &y, double &z);
void from_cartesian(int sys, double x, double y, double z, double &a, double &b, double &c);
// Bilinear resampling of an nx x ny matrix onto nx2 x ny2 points over the same extent.
std::vector<float> resample(const float *z, int nx, int ny, int nx2, int ny2);

// ---- drawing helpers ----------------------------------------------------------------------
// Table colour of value z among [lo, hi]: the Z axis of GRAF3 when there is one, otherwise
// spread over the COLRAN entries.
int value_colour(double z, double lo, double hi);
// Checks an array argument and a count; warns naming the routine.
bool arrays_ok(const char *routine, int n, int least, std::initializer_list<const void *> arrays);
bool finite_all(const float *a, int n);
// One numeric option of a field routine: its keyword, what a warning calls it, its range and
// where it is kept.
template <class T>
struct FieldOption {
  const char *key, *what;
  double lo, hi;
  T FieldState::*to;
};
// Keeps x in the option the keyword c names when x lies in its range; warns about an unknown
// option.
template <class T>
void set_option(const char *routine, const char *c, double x, std::initializer_list<FieldOption<T>> options);
