// Times the grid routines on large matrices, as the quick plots call them: contour lines and
// shaded contours of a 1000 x 1000 matrix, a shaded surface of 200 x 200, each written to PNG.
// Usage: grids_bench [n_contour] [n_surface]
#include "mirval.h"

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

struct Matrix {
  std::vector<float> x, y, z;
};

Matrix make(int n) {
  Matrix m;
  for (int i = 0; i < n; ++i) m.x.push_back(float(i)), m.y.push_back(float(i));
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) {
      double u = 6.0 * i / n, v = 6.0 * j / n;
      m.z.push_back(float(std::sin(u) * std::cos(v) + 0.3 * std::sin(3 * u + v)));
    }
  return m;
}

template <class F>
void timed(const char *what, F f) {
  auto t0 = std::chrono::steady_clock::now();
  f();
  double s = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
  std::printf("%-28s %8.3f s\n", what, s);
}

void open(const char *file, bool colour) {
  metafl("PNG");
  setfil(file);
  errmod("ALL", "OFF");
  mirini();
  if (colour) axslen(1800, 1200);
}

}  // namespace

int main(int argc, char **argv) {
  int n = argc > 1 ? std::atoi(argv[1]) : 1000, ns = argc > 2 ? std::atoi(argv[2]) : 200;
  Matrix m = make(n);
  std::vector<float> lev;
  for (int k = 0; k < 10; ++k) lev.push_back(-1.3f + 2.6f * k / 9);
  timed("contour, 10 levels", [&] {
    open("bench-contour.png", false);
    graf(0, float(n - 1), 0, float(n / 5), 0, float(n - 1), 0, float(n / 5));
    labels("FLOAT", "CONTOUR");
    height(25);
    for (float l : lev) contur(m.x.data(), n, m.y.data(), n, m.z.data(), l);
    mirfin();
  });
  timed("shaded contour, 10 levels", [&] {
    open("bench-conshd.png", true);
    graf3(0, float(n - 1), 0, float(n / 5), 0, float(n - 1), 0, float(n / 5), -1.3f, 1.3f, -1.3f, 0.5f);
    conshd(m.x.data(), n, m.y.data(), n, m.z.data(), lev.data(), int(lev.size()));
    mirfin();
  });
  Matrix s = make(ns);
  timed("shaded surface", [&] {
    open("bench-surshd.png", false);
    graf3d(0, float(ns - 1), 0, float(ns / 5), 0, float(ns - 1), 0, float(ns / 5), -1.3f, 1.3f, -1.3f, 0.5f);
    surshd(s.x.data(), ns, s.y.data(), ns, s.z.data());
    mirfin();
  });
  return 0;
}
