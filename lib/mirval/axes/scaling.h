// Scaling: the label steps and ranges that automatic scaling chooses, and the mapping
// between user coordinates and the page.
#pragma once
#include "core/state.h"

#include <string>
#include <vector>

// The smallest step of 1, 2 or 5 times a power of ten that is at least 'raw'.
double nice_step(double raw);
// Range, first label and step for data from lo to hi, with at most 'intervals' label steps,
// rounded outward to whole steps. Log axes work in exponents and take positive data.
AxisRange auto_range(double lo, double hi, bool log, int intervals);
// The label positions of an axis (in axis units: exponents on log axes).
std::vector<double> label_values(const AxisRange &r);
// Decimals that print every value exactly (at most 6).
int needed_digits(const std::vector<double> &values);
// Axis letters of a routine's axis argument: bit 0 X, bit 1 Y, bit 2 Z; 0 when none.
int axis_bits(const char *cax);

// n user values spread evenly over an axis range from end to end (on log axes evenly in the
// exponent), such as the grid points of a matrix that covers the whole axis.
std::vector<float> spread_over(const AxisRange &r, int n);

// The rectangle on the page that AXSPOS and AXSLEN give the next axis system.
Rect placed_box();

// Page coordinates of user values on the current axis system (NaN where a log axis has no
// place for the value) and back.
double page_x(double x);
double page_y_user(double y);
// Both at once: on a map axis system (GRAFMP) x and y are longitude and latitude, and the
// projection needs the two together.
Pt page_point(double x, double y);
// The page points to put between two neighbouring user points of a line, so that it is cut
// where it leaves a map (at the seam opposite its centre or at its edge) and enters it again:
// NaN between the pieces. Nothing off maps and for lines that stay on the map.
std::vector<Pt> page_cut(double xa, double ya, double xb, double yb);
// User coordinates of a page point: on a map through the inverse projection (NaN off the map).
Pt user_point(double px, double py);
double user_x(double px);
double user_y(double py);
