// The mathematical standard functions ACOS ... TANH on scalars, arrays and complex values.
#pragma once

int math_stdf(int number, int base);
