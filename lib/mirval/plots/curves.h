// Curves: the interpolation between data points (POLCRV) as pure functions on page points.
#pragma once
#include "draw/scene.h"
#include "core/state.h"

#include <vector>

// A natural cubic spline through the points, parametrised by chord length, with 'per'
// points for each gap between two data points.
std::vector<Pt> spline_points(const std::vector<Pt> &pts, int per);
// The polylines that connect the points as the interpolation wants; NaN points split them.
// 'base' is the page y that STEM and BARS start from.
std::vector<std::vector<Pt>> connect_points(const std::vector<Pt> &pts, Interp how, double base);
// CHNCRV's change after a curve (also CHNATT's): how, bit 1 the colour, bit 2 the line style.
void change_attributes(int how);
