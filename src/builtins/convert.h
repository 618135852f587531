// Type conversions, the complex helpers, ABS and the array functions. Each worker works on
// the last argument entry `index` and leaves its result in place of the arguments.
#pragma once

// BYTE, CHAR, SHORT, INT, FLOAT and DOUBLE: `type` is the scalar code of the result.
int convert_stdf(int type, int index);
int string_stdf(int index);
int complex_stdf(int index, int nargs);
int abs_stdf(int index);

double absc_stdf(float x, float y);
double arg_stdf(float x, float y);
void csqrt_stdf(float *x, float *y);

int catarr_stdf(int index);
int subarr_stdf(int index);
int submat_stdf(int index);
int trpmat_stdf(int index);
// MAXARR (`max` true) and MINARR.
int maxarr_stdf(int index, bool max);
