// ink_compare A.png B.png [RADIUS]: prints the share of ink of either picture with no ink of
// the other within RADIUS pixels (default 2), as ink_mismatch computes it.
#include "picture_file.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char **argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: ink_compare A.png B.png [RADIUS]\n");
    return 2;
  }
  std::printf("%.4f\n", ink_mismatch(argv[1], argv[2], argc > 3 ? std::atoi(argv[3]) : 2));
  return 0;
}
