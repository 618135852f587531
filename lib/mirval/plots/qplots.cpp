// One-call plots: each draws a complete picture with the library's own routines. Called with
// no page open it opens one and writes the file at the end (MIRINI ... MIRFIN); with a page
// open it empties that page, draws the picture on it and writes the file (SENDBF), leaving the
// page open at level 1.
#include "plots/charts.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "core/state.h"
#include "core/trace.h"
#include "mirval.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

bool data(const char *routine, const float *a, int n, int least) {
  if (!a) {
    mv_warn(routine, "no data given");
    return false;
  }
  if (n < least) {
    mv_warn(routine, "number of values %d below %d", n, least);
    return false;
  }
  for (int i = 0; i < n; ++i)
    if (std::isfinite(a[i])) return true;
  mv_warn(routine, "no finite value among %d", n);
  return false;
}

// Opens or empties the page; true when this call opened it.
bool begin() {
  if (getlev() == 0) {
    mirini();
    return true;
  }
  if (getlev() >= 2) endgrf();
  erase();
  return false;
}

void end(bool opened) {
  if (getlev() >= 2) endgrf();
  if (opened) mirfin();
  else sendbf();
}

// Axis i (0 X, 1 Y, 2 Z) from the data unless QPLSCL gave it.
void scaled(int i, const float *v, int n, float r[4]) {
  static const char *axis[3] = {"X", "Y", "Z"};
  if (mirval_state().chart.quick[i].set) {
    const QuickAxis &g = mirval_state().chart.quick[i];
    r[0] = g.a, r[1] = g.e, r[2] = g.org, r[3] = g.step;
    return;
  }
  setscl(v, n, axis[i]);
  r[0] = 0, r[1] = 1, r[2] = 0, r[3] = 1;
}

void axes2(const float *x, int nx, const float *y, int ny) {
  float rx[4], ry[4];
  scaled(0, x, nx, rx);
  scaled(1, y, ny, ry);
  graf(rx[0], rx[1], rx[2], rx[3], ry[0], ry[1], ry[2], ry[3]);
  reset("SETSCL");
  title();
}

std::vector<float> count_up(int n, float from) {
  std::vector<float> v(n);
  for (int i = 0; i < n; ++i) v[i] = from + i;
  return v;
}

// Least and greatest finite value of a matrix.
void extremes(const float *z, int n, float &lo, float &hi) {
  lo = INFINITY, hi = -INFINITY;
  for (int i = 0; i < n; ++i)
    if (std::isfinite(z[i])) lo = std::min(lo, z[i]), hi = std::max(hi, z[i]);
}

bool matrix(const char *routine, const float *z, int nx, int ny) {
  if (nx < 2 || ny < 2) {
    mv_warn(routine, "a matrix needs at least 2 x 2 values (got %d x %d)", nx, ny);
    return false;
  }
  if (static_cast<long>(nx) * ny > 100000000L) {
    mv_warn(routine, "matrix of %d x %d values too large", nx, ny);
    return false;
  }
  return data(routine, z, nx * ny, 4);
}

// QPLCLR and QPLSUR: the matrix over the grid 1..nx by 1..ny as coloured cells (GRAF3,
// CRVMAT) or as a surface (GRAF3D, SURFCE), scaled automatically or as QPLSCL says.
void matrix_plot(const float *zmat, int nx, int ny, bool surface) {
  bool opened = begin();
  std::vector<float> x = count_up(nx, 1), y = count_up(ny, 1);
  float rx[4], ry[4], rz[4];
  scaled(0, x.data(), nx, rx);
  scaled(1, y.data(), ny, ry);
  float lo, hi;
  extremes(zmat, nx * ny, lo, hi);
  std::vector<float> zr{lo, hi};
  scaled(2, zr.data(), 2, rz);
  (surface ? graf3d : graf3)(rx[0], rx[1], rx[2], rx[3], ry[0], ry[1], ry[2], ry[3], rz[0], rz[1], rz[2], rz[3]);
  reset("SETSCL");
  title();
  if (surface) surfce(x.data(), nx, y.data(), ny, zmat);
  else crvmat(zmat, nx, ny, 1, 1);
  end(opened);
}

}  // namespace

extern "C" {

void qplot(const float *xray, const float *yray, int n) {
  mv_tracef("qplot(xray=%s, yray=%s, n=%d)", mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), n);
  if (!data("qplot", xray, n, 1) || !data("qplot", yray, n, 1)) return;
  bool opened = begin();
  axes2(xray, n, yray, n);
  curve(xray, yray, n);
  end(opened);
}

void qplsca(const float *xray, const float *yray, int n) {
  mv_tracef("qplsca(xray=%s, yray=%s, n=%d)", mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), n);
  if (!data("qplsca", xray, n, 1) || !data("qplsca", yray, n, 1)) return;
  bool opened = begin();
  axes2(xray, n, yray, n);
  int keep = mirval_state().curve.incmrk;
  incmrk(-1);
  curve(xray, yray, n);
  incmrk(keep);
  end(opened);
}

void qplcrv(const float *xray, const float *yray, int n, const char *copt) {
  mv_tracef("qplcrv(xray=%s, yray=%s, n=%d, copt=%s)", mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), n,
            mv_tstr(copt).c_str());
  bool first = same(copt, "FIRST"), next = same(copt, "NEXT"), last = same(copt, "LAST"), one = same(copt, "ONE");
  if (!first && !next && !last && !one) {
    mv_warn("qplcrv", "unknown option %s", mv_tstr(copt).c_str());
    return;
  }
  if (!data("qplcrv", xray, n, 1) || !data("qplcrv", yray, n, 1)) return;
  if ((next || last) && (!mirval_state().chart.quick_curves || getlev() < 2)) {
    mv_warn("qplcrv", "no plot begun with 'FIRST'");
    return;
  }
  if (first || one) {
    mirval_state().chart.quick_opened = begin();
    axes2(xray, n, yray, n);
    chncrv("COLOR");
    mirval_state().chart.quick_curves = true;
  }
  curve(xray, yray, n);
  if (last || one) {
    chncrv("NONE");
    mirval_state().chart.quick_curves = false;
    end(mirval_state().chart.quick_opened);
  }
}

void qplbar(const float *xray, int n) {
  mv_tracef("qplbar(xray=%s, n=%d)", mv_tarr(n, "floats").c_str(), n);
  if (!data("qplbar", xray, n, 1)) return;
  bool opened = begin();
  std::vector<float> pos = count_up(n, 1), zero(n, 0.0f);
  std::vector<float> ends{0.5f, n + 0.5f};
  float lo, hi;
  extremes(xray, n, lo, hi);
  std::vector<float> values{std::min(0.0f, lo), std::max(0.0f, hi)};
  float rx[4] = {0.5f, n + 0.5f, 1, float(std::max(1.0, std::ceil(n / 10.0)))}, ry[4];
  const QuickAxis &gx = mirval_state().chart.quick[0];
  if (gx.set) rx[0] = gx.a, rx[1] = gx.e, rx[2] = gx.org, rx[3] = gx.step;
  scaled(1, values.data(), 2, ry);
  graf(rx[0], rx[1], rx[2], rx[3], ry[0], ry[1], ry[2], ry[3]);
  reset("SETSCL");
  title();
  // bars in the first colour of the chart cycle unless the pen has a colour of its own
  ChartState &c = mirval_state().chart;
  int keep_change = c.bar_change, keep_changed = c.bar_changed;
  if (mirval_state().pen.fore && c.bar_front < 0) c.bar_change |= 1, c.bar_changed = 0;
  bars(pos.data(), zero.data(), xray, n);
  c.bar_change = keep_change, c.bar_changed = keep_changed;
  end(opened);
}

void qplpie(const float *xray, int n) {
  mv_tracef("qplpie(xray=%s, n=%d)", mv_tarr(n, "floats").c_str(), n);
  if (!data("qplpie", xray, n, 1)) return;
  bool opened = begin();
  piegrf("", 0, xray, n);
  title();
  end(opened);
}

void qplclr(const float *zmat, int nx, int ny) {
  mv_tracef("qplclr(zmat=%s, nx=%d, ny=%d)", mv_tarr(nx * ny, "floats").c_str(), nx, ny);
  if (matrix("qplclr", zmat, nx, ny)) matrix_plot(zmat, nx, ny, false);
}

void qplcon(const float *zmat, int nx, int ny, int nlev) {
  mv_tracef("qplcon(zmat=%s, nx=%d, ny=%d, nlev=%d)", mv_tarr(nx * ny, "floats").c_str(), nx, ny, nlev);
  if (!matrix("qplcon", zmat, nx, ny)) return;
  if (nlev < 1 || nlev > 1000) {
    mv_warn("qplcon", "number of levels %d out of range 1..1000", nlev);
    return;
  }
  bool opened = begin();
  std::vector<float> x = count_up(nx, 1), y = count_up(ny, 1);
  axes2(x.data(), nx, y.data(), ny);
  float lo, hi;
  extremes(zmat, nx * ny, lo, hi);
  for (int i = 0; i < nlev; ++i) {
    // levels inside the range, not on its ends
    float z = lo + (hi - lo) * (i + 1) / (nlev + 1);
    contur(x.data(), nx, y.data(), ny, zmat, z);
  }
  end(opened);
}

void qplsur(const float *zmat, int nx, int ny) {
  mv_tracef("qplsur(zmat=%s, nx=%d, ny=%d)", mv_tarr(nx * ny, "floats").c_str(), nx, ny);
  if (matrix("qplsur", zmat, nx, ny)) matrix_plot(zmat, nx, ny, true);
}

void qplscl(float x1, float x2, float x3, float x4, const char *c) {
  mv_tracef("qplscl(%g, %g, %g, %g, %s)", (double)x1, (double)x2, (double)x3, (double)x4, mv_tstr(c).c_str());
  int i = same(c, "X") ? 0 : same(c, "Y") ? 1 : same(c, "Z") ? 2 : -1;
  if (i < 0) {
    mv_warn("qplscl", "unknown axis %s", mv_tstr(c).c_str());
    return;
  }
  for (float v : {x1, x2, x3, x4})
    if (!std::isfinite(v)) {
      mv_warn("qplscl", "values must be finite");
      return;
    }
  if (x1 == x2 || x4 == 0) {
    mv_warn("qplscl", "an empty range or a zero step (%g to %g by %g)", (double)x1, (double)x2, (double)x4);
    return;
  }
  mirval_state().chart.quick[i] = {true, x1, x2, x3, x4};
}

}

