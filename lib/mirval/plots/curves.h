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
// Sets the pen to entry k of the cycles (CLRCYC, LINCYC): bit 1 of 'how' the colour, bit 2
// the line style.
void cycle_attributes(int how, int k);
// CHNCRV's change after a curve.
void change_attributes(int how);
