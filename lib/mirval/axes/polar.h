// Polar and Smith charts: the pure geometry of their grids and conversions.
#pragma once
#include "draw/scene.h"

#include <string>

// The reflection coefficient of the normalised impedance r + jx, and back. False where the
// conversion has no finite result (r + jx = -1, or a coefficient of 1).
bool smith_from_impedance(double r, double x, double &u, double &v);
bool impedance_from_smith(double u, double v, double &r, double &x);
// The circle through three points; false when they lie on one line (or coincide).
bool circle_through(Pt a, Pt b, Pt c, Pt &centre, double &radius);
// Text of an angle label such as "30°", and of a Smith chart value such as "0.5".
std::string angle_text(double degrees);
std::string chart_number(double v);
