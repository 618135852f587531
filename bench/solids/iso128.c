/* Iso-surface of a 128^3 volume to PNG. */
#include <stdlib.h>
#include "mirval.h"

int main(void) {
  const int n = 128;
  float c[128];
  float *w = malloc((size_t)n * n * n * sizeof *w);
  for (int i = 0; i < n; ++i) c[i] = -1 + 2.0f * i / (n - 1);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j)
      for (int k = 0; k < n; ++k) w[((size_t)i * n + j) * n + k] = c[i] * c[i] + c[j] * c[j] * 2 + c[k] * c[k] * 3;
  metafl("PNG");
  setfil("iso128.png");
  mirini();
  light("ON");
  graf3d(-1, 1, -1, 0.5, -1, 1, -1, 0.5, -1, 1, -1, 0.5);
  color("CYAN");
  suriso(c, n, c, n, c, n, w, 0.8f);
  mirfin();
  free(w);
  return 0;
}
