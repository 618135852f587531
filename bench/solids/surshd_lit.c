/* SURSHD of a 1000 x 1000 matrix with lighting on, to PNG (timed beside gnuplot's pm3d by run.sh). */
#include <math.h>
#include <stdlib.h>
#include "mirval.h"

int main(void) {
  const int n = 1000;
  float *x = malloc(n * sizeof *x), *y = malloc(n * sizeof *y), *z = malloc((size_t)n * n * sizeof *z);
  for (int i = 0; i < n; ++i) x[i] = y[i] = -3 + 6.0f * i / (n - 1);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) z[(size_t)i * n + j] = sinf(x[i] * 2) * cosf(y[j] * 2) * expf(-(x[i] * x[i] + y[j] * y[j]) / 6);
  metafl("PNG");
  setfil("surshd_lit.png");
  mirini();
  light("ON");
  graf3d(-3, 3, -3, 1, -3, 3, -3, 1, -1, 1, -1, 0.5);
  surshd(x, n, y, n, z);
  mirfin();
  free(x), free(y), free(z);
  return 0;
}
