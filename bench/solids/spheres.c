/* 1000 lit spheres to PNG. */
#include "mirval.h"

int main(void) {
  metafl("PNG");
  setfil("spheres.png");
  mirini();
  light("ON");
  graf3d(0, 10, 0, 2, 0, 10, 0, 2, 0, 10, 0, 2);
  for (int k = 0; k < 1000; ++k) {
    setclr(1 + (k * 37) % 253);
    sphe3d(0.5f + k % 10, 0.5f + (k / 10) % 10, 0.5f + k / 100, 0.35f, 24, 12);
  }
  mirfin();
  return 0;
}
