// Contours of a matrix as pure geometry: level lines traced through the grid cells and
// joined into polylines, and the areas between levels as polygons. Coordinates are those of
// the grid (the x and y arrays); the surface is taken as linear along the cell edges.
#pragma once
#include "draw/scene.h"

#include <array>
#include <vector>

// A matrix on a grid: z[i * ny + j] belongs to x[i], y[j]. NaN values leave holes.
struct GridData {
  const float *x = nullptr;
  int nx = 0;
  const float *y = nullptr;
  int ny = 0;
  const float *z = nullptr;
};

// The lines where the matrix crosses the level, each joined through all cells it passes in
// one linear sweep; a closed line ends on its first point. Values equal to the level count as
// above it; a cell whose corners alternate is resolved by the mean of its corners.
std::vector<std::vector<Pt>> contour_lines(const GridData &g, double level);

// For levels l[0] < l[1] < ... < l[m]: layer k (k = 0 .. m-1) is the area where
// l[k] <= z <= l[m], as disjoint polygons (whole cells of a grid row merged). Drawn from k = 0
// upwards in the colours of the bands, layers show the bands between consecutive levels
// without seams. l[0] may be -inf and l[m] +inf.
std::vector<std::vector<std::vector<Pt>>> contour_layers(const GridData &g, const std::vector<double> &l);

// The pieces of a polyline left when the arc-length intervals [a, b] are cut out of it
// (intervals sorted and disjoint).
std::vector<std::vector<Pt>> cut_gaps(const std::vector<Pt> &line, const std::vector<std::pair<double, double>> &gaps);
// The point at arc length s along a polyline.
Pt point_at(const std::vector<Pt> &line, double s);
// The corners of a label's rectangle: centre c, width w along the angle (degrees, counter-
// clockwise on the page), height h across it.
std::array<Pt, 4> label_corners(Pt c, double w, double h, double angle);
// Whether two convex quadrilaterals overlap (touching edges do not count).
bool quads_overlap(const std::array<Pt, 4> &a, const std::array<Pt, 4> &b);
// Area of a polygon (positive when counter-clockwise in a y-up system).
double polygon_area(const std::vector<Pt> &poly);

// Draws the lines of one level (grid coordinates) in the pen's style, labelled along them
// with the level's text where they are long enough; labels never overlap those already on
// the page.
void draw_level(const std::vector<std::vector<Pt>> &lines, double level);
