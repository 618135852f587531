/* The README's C example: a curve written to a PNG file. */
#include <mirval.h>

int main(void) {
  float x[3] = {0, 1, 2}, y[3] = {0, 1, 0};
  metafl("PNG");
  mirini();
  graf(0, 2, 0, 0.5, 0, 1, 0, 0.2);
  curve(x, y, 3);
  mirfin();
  return 0;
}
