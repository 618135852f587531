// Sorting of float arrays in place, ascending or descending, stable for equal keys.
#include "core/messages.h"
#include "mirval.h"
#include "core/trace.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

namespace {

// The direction from the option 'A' (ascending) or 'D' (descending); 0 after a warning.
char direction(const char *routine, const char *copt) {
  char c = copt ? static_cast<char>(*copt & ~0x20) : 0;
  if (c == 'A' || c == 'D') return c;
  mv_warn(routine, "option %s must be 'A' or 'D'", mv_tstr(copt).c_str());
  return 0;
}

// NaN values go to the end in either direction, so that the order stays well defined.
bool before(float a, float b, char dir) {
  if (std::isnan(a)) return false;
  if (std::isnan(b)) return true;
  return dir == 'A' ? a < b : a > b;
}

bool valid_count(const char *routine, int n) {
  if (n >= 1) return true;
  mv_warn(routine, "n = %d must be at least 1", n);
  return false;
}

}  // namespace

extern "C" {

void sortr1(float *xray, int n, const char *copt) {
  mv_tracef("sortr1(xray=%s, n=%d, copt=%s)", mv_tarr(n, "floats").c_str(), n, mv_tstr(copt).c_str());
  char dir = direction("sortr1", copt);
  if (!dir || !valid_count("sortr1", n) || !xray) return;
  std::stable_sort(xray, xray + n, [dir](float a, float b) { return before(a, b, dir); });
}

void sortr2(float *xray, float *yray, int n, const char *copt) {
  mv_tracef("sortr2(xray=%s, yray=%s, n=%d, copt=%s)", mv_tarr(n, "floats").c_str(),
            mv_tarr(n, "floats").c_str(), n, mv_tstr(copt).c_str());
  char dir = direction("sortr2", copt);
  if (!dir || !valid_count("sortr2", n) || !xray || !yray) return;
  std::vector<int> order(n);
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return before(xray[a], xray[b], dir); });
  std::vector<float> x(xray, xray + n), y(yray, yray + n);
  for (int i = 0; i < n; ++i) {
    xray[i] = x[order[i]];
    yray[i] = y[order[i]];
  }
}

}  // extern "C"
