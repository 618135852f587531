// 3-D geometry: box coordinates (the AXIS3D box centred at the origin), the perspective view
// onto the page, and the back-to-front order that hides the parts of a surface behind others.
#pragma once
#include "core/state.h"

#include <utility>
#include <vector>

// The camera at 'eye' looking at the origin, with the Z direction upwards in the picture
// turned by 'vup' degrees; 'focal' plot units per unit of tangent, the origin at 'centre'.
Camera make_camera(const double eye[3], double vup, Pt centre, double focal);
// The page point of a box point; NaN when it is not in front of the eye.
Pt project(const Camera &c, const double p[3]);
// Distance of a box point from the eye along the line of sight.
double depth(const Camera &c, const double p[3]);

// The cells (i, j) of a grid whose points lie at box coordinates xs (nx) by ys (ny), in an
// order that draws every cell before the cells that can hide it from an eye at (ex, ey) in
// the grid's plane projection: rows farther from the eye first, in each row the columns
// farther from it first. Exact for surfaces over the grid (one z per point).
std::vector<std::pair<int, int>> cell_order(const std::vector<double> &xs, const std::vector<double> &ys, double ex,
                                            double ey);

// The box coordinate of a user value on axis i of the current 3-D axis system.
double box_coord(int i, double v);
// The page point of a user point on the current 3-D axis system.
Pt project_user(double x, double y, double z);
