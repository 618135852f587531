// The mathematical standard functions ACOS ... TANH on scalars, arrays and complex values.
#pragma once

int math_stdf(int number, int base);
// A one-argument function of the table on a DOUBLE, computed as math_stdf does; false (and x
// unchanged) for another function or outside its domain, where math_stdf would report.
bool quiet_math(int number, double *x);
