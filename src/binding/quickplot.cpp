// One-statement plots: the arguments are on the evaluation stack (parsed in list mode);
// the library is opened on first use and left open, so the next quick plot reuses the page.
#include "binding/quickplot.h"

#include "binding/call.h"
#include "binding/sysvar.h"
#include "builtins/stdf.h"
#include "core/error.h"
#include "lang/parser.h"
#include "lang/subscript.h"
#include "mirval.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

// Axis settings X, Y, Z kept between plots: lower end, upper end, first label, label step.
static float xa[3], xe[3], xor_[3], xstp[3];

static const char *const axis_letter[3] = {"X", "Y", "Z"};

// One argument, its variable when it names one; `isfloat` tells whether it is a FLOAT
// array. None (after "Undefined identifier") for an unknown name.
static const VarRecord *argument(int k, bool *isfloat) {
  int type;
  const VarRecord *v = get_varptr(k, &type);
  *isfloat = v && type == T_FLOATR;
  return v;
}

static const float *data(const VarRecord *v) { return static_cast<const float *>(v->value.p); }

// Checks that arguments 0..n-1 are FLOAT arrays; fills `args`. `message` names the failure.
static bool float_arrays(int n, std::vector<const VarRecord *> &args, const char *message) {
  args.assign(n, nullptr);
  for (int k = 0; k < n; ++k) {
    bool isfloat;
    args[k] = argument(k, &isfloat);
    if (!args[k]) return false;
    if (!isfloat) {
      error(message);
      return false;
    }
  }
  return true;
}

// Exactly n FLOAT arrays of one length (PLOT3 and PLOT3R share the count message).
static bool equal_arrays(int n, std::vector<const VarRecord *> &args, const char *type_msg, const char *size_msg) {
  if (g_nstack != n) {
    error("Illegal number of parameters in PLOT3");
    return false;
  }
  if (!float_arrays(n, args, type_msg)) return false;
  for (int k = 1; k < n; ++k)
    if (args[k]->count != args[0]->count) {
      error(size_msg);
      return false;
    }
  return true;
}

static int fail() {
  free_stack(0);
  return 1;
}

static void ini_plot() {
  if (getlev() > 0) {
    int code;
    int index = search_var("%ERASE");
    if (index < 0 || get_dvalue(&varlist[index], &code) == 1.0) erase();
    reset("setscl");
  } else {
    if (!g_imeta) metafl(qqwchk() ? "xwin" : "cons");
    mirini();
    complx();
    nochek();
  }
  if (getlev() > 1) endgrf();
  pagera();
}

static void fin_plot() { sendbf(); }

// Looks up a system variable of the axis, e.g. "%XMIN" for axis 0 and "MIN".
static int axis_var(int axis, const char *what, int type) {
  char name[16];
  std::snprintf(name, sizeof name, "%%%s%s", axis_letter[axis], what);
  return check_var(name, type);
}

static void set_scaling(float *range, int axis) {
  const char *letter = axis_letter[axis];
  int iauto = axis_var(axis, "AUTO", T_INT);
  if (iauto >= 0 && varlist[iauto].value.i != 0) {
    setscl(range, 2, letter);
    return;
  }
  int scl[3];
  getscl(&scl[0], &scl[1], &scl[2]);
  int imin = axis_var(axis, "MIN", T_DOUBLE), imax = axis_var(axis, "MAX", T_DOUBLE);
  int ior = axis_var(axis, "OR", T_DOUBLE), istep = axis_var(axis, "STEP", T_DOUBLE);
  if (imin >= 0 && imax >= 0 && ior >= 0 && istep >= 0) {
    xa[axis] = static_cast<float>(varlist[imin].value.d);
    xe[axis] = static_cast<float>(varlist[imax].value.d);
    xor_[axis] = static_cast<float>(varlist[ior].value.d);
    xstp[axis] = static_cast<float>(varlist[istep].value.d);
    return;
  }
  if (imin >= 0 && imax >= 0) {
    double lo = varlist[imin].value.d, hi = varlist[imax].value.d;
    if (scl[axis] != 0) {
      lo = std::pow(10.0, lo);
      hi = std::pow(10.0, hi);
    }
    range[0] = static_cast<float>(lo);
    range[1] = static_cast<float>(hi);
  }
  setscl(range, 2, letter);
}

static void data_range(const float *x, int n, float *range) {
  range[0] = qqfmin(x, n);
  range[1] = qqfmax(x, n);
}

static void graf_axes() { graf(xa[0], xe[0], xor_[0], xstp[0], xa[1], xe[1], xor_[1], xstp[1]); }
static void graf3_axes() {
  graf3(xa[0], xe[0], xor_[0], xstp[0], xa[1], xe[1], xor_[1], xstp[1], xa[2], xe[2], xor_[2], xstp[2]);
}

int plot_zkl(int mode) {
  int n = g_nstack;
  std::vector<const VarRecord *> a;
  if (n == 0 || n % 2 != 0) {
    error("Missing parameters in PLOT");
    return fail();
  }
  if (!float_arrays(n, a, "Parameters in PLOT must be floatingpoint arrays")) return fail();
  for (int k = 0; k < n; k += 2)
    if (a[k]->count != a[k + 1]->count) {
      error("Mismatch of arry sizes in PLOT");
      return fail();
    }
  ini_plot();
  if (mode == 1) {
    incmrk(0);
  } else {
    incmrk(-1);
    marker(3);
    hsymbl(10);
  }
  setvar(-1);
  for (int axis = 0; axis < 2; ++axis) {  // the range over every array of the axis
    float range[2] = {0, 0};
    bool first = true;
    for (int k = axis; k < n; k += 2) {
      if (a[k]->count <= 0) continue;  // an empty array has no values to range over
      float r[2];
      data_range(data(a[k]), a[k]->count, r);
      if (first || r[0] < range[0]) range[0] = r[0];
      if (first || r[1] > range[1]) range[1] = r[1];
      first = false;
    }
    set_scaling(range, axis);
  }
  graf_axes();
  title();
  for (int k = 0; k < n; k += 2) {
    int count = a[k]->count;
    if (mode == 2 && count <= 0) continue;
    curve(data(a[k]), data(a[k + 1]), count);
  }
  fin_plot();
  free_stack(0);
  return 0;
}

int plot3_zkl() {
  std::vector<const VarRecord *> a;
  if (!equal_arrays(3, a, "Parameters in PLOT3 must be floatingpoint arrays", "Mismatch of array sizes in PLOT3"))
    return fail();
  ini_plot();
  setvar(-1);
  for (int axis = 0; axis < 3; ++axis) {
    float range[2];
    data_range(data(a[axis]), a[axis]->count, range);
    set_scaling(range, axis);
  }
  graf3_axes();
  title();
  curve3(data(a[0]), data(a[1]), data(a[2]), a[0]->count);
  fin_plot();
  free_stack(0);
  return 0;
}

int plot3r_zkl() {
  std::vector<const VarRecord *> a;
  if (!equal_arrays(5, a, "Parameters in PLOT3R must be floatingpoint arrays", "Mismatch of array sizes in PLOT3R"))
    return fail();
  int n = a[0]->count;
  // X from both XA and XE, Y from both YA and YE, Z from Z.
  float range[3][2];
  for (int axis = 0; axis < 2; ++axis) {
    float r1[2], r2[2];
    data_range(data(a[2 * axis]), n, r1);
    data_range(data(a[2 * axis + 1]), n, r2);
    range[axis][0] = r1[0] < r2[0] ? r1[0] : r2[0];
    range[axis][1] = r1[1] > r2[1] ? r1[1] : r2[1];
  }
  data_range(data(a[4]), n, range[2]);
  ini_plot();
  setvar(-1);
  for (int axis = 0; axis < 3; ++axis) set_scaling(range[axis], axis);
  graf3_axes();
  title();
  clpbor("axis");
  for (int i = 0; i < n; ++i) {
    int x1 = nxposn(data(a[0])[i]), x2 = nxposn(data(a[1])[i]);
    int y1 = nyposn(data(a[2])[i]), y2 = nyposn(data(a[3])[i]);
    int colour = nzposn(data(a[4])[i]);
    recfll(x1 < x2 ? x1 : x2, y1 < y2 ? y1 : y2, std::abs(x2 - x1) + 1, std::abs(y2 - y1) + 1, colour);
  }
  clpbor("page");
  box2d();
  fin_plot();
  free_stack(0);
  return 0;
}

// The matrix argument and the optional X and Y arrays of the grid plots.
struct Grid {
  const VarRecord *z = nullptr;
  int nx = 0, ny = 0;
  std::vector<float> x, y;  // the coordinates, given or generated
};

static bool grid_matrix(const char *what, Grid &g) {
  char msg[80];
  if (g_nstack == 0) {
    std::snprintf(msg, sizeof msg, "Missing parameters in %s", what);
    error(msg);
    return false;
  }
  bool isfloat;
  g.z = argument(0, &isfloat);
  if (!g.z) return false;
  if (!isfloat) {
    std::snprintf(msg, sizeof msg, "Parameter 1 must be a floatingpoint array in %s", what);
    error(msg);
    return false;
  }
  if (g.z->ndim != 2) {
    std::snprintf(msg, sizeof msg, "A two-dimensional array must be passed to %s", what);
    error(msg);
    return false;
  }
  g.nx = g.z->dims[0];
  g.ny = g.z->dims[1];
  return true;
}

// Argument k as the coordinates of one grid direction of `n` points (any number: n < 0).
static bool grid_axis(int k, int n, const char *what, std::vector<float> &out) {
  char msg[80];
  bool isfloat;
  const VarRecord *v = argument(k, &isfloat);
  if (!v) return false;
  if (!isfloat) {
    std::snprintf(msg, sizeof msg, "Parameter %d must be a floatingpoint array in %s", k + 1, what);
    error(msg);
    return false;
  }
  if (n >= 0 && v->count != n) {
    std::snprintf(msg, sizeof msg, "Dimension mismatch in %s", what);
    error(msg);
    return false;
  }
  out.assign(data(v), data(v) + v->count);
  return true;
}

static void generate(std::vector<float> &out, int n, float offset) {
  out.resize(n > 0 ? n : 0);
  for (int i = 0; i < n; ++i) out[i] = static_cast<float>(i) + offset;
}

int contour_zkl(int shaded) {
  const char *what = shaded ? "CONSHADE" : "CONTOUR";
  Grid g;
  if (!grid_matrix(what, g)) return fail();
  int nargs = g_nstack;
  std::vector<float> levels;
  if (nargs >= 3) {
    if (!grid_axis(1, g.nx, what, g.x) || !grid_axis(2, g.ny, what, g.y)) return fail();
  } else {
    generate(g.x, g.nx, 0);
    generate(g.y, g.ny, 0);
  }
  int klev = nargs == 2 ? 1 : nargs >= 4 ? 3 : -1;
  if (klev > 0) {
    if (!grid_axis(klev, -1, what, levels)) return fail();
  } else {
    int count = g.z->count;
    float zmin = qqfmin(data(g.z), count), zmax = qqfmax(data(g.z), count);
    levels.resize(10);
    for (int i = 0; i < 10; ++i) levels[i] = zmin + static_cast<float>(i) * (zmax - zmin) / 9.0f;
  }
  ini_plot();
  labels("float", "contour");
  setvar(-1);
  float range[2];
  data_range(g.x.data(), g.nx, range);
  set_scaling(range, 0);
  data_range(g.y.data(), g.ny, range);
  set_scaling(range, 1);
  graf_axes();
  title();
  if (shaded) {
    conshd(g.x.data(), g.nx, g.y.data(), g.ny, data(g.z), levels.data(), static_cast<int>(levels.size()));
  } else {
    int h = gethgt();
    height(25);
    for (float level : levels) contur(g.x.data(), g.nx, g.y.data(), g.ny, data(g.z), level);
    height(h);
  }
  fin_plot();
  free_stack(0);
  return 0;
}

int surf3_zkl(int mode) {
  static const char *const names[3] = {"SURF3", "SURFACE", "SURSHADE"};
  const char *what = names[mode];
  Grid g;
  if (!grid_matrix(what, g)) return fail();
  // SURF3 draws cells around their centres; the surfaces go through the grid points.
  float offset = mode == 0 ? 0.5f : 0.0f;
  float range[3][2];
  if (g_nstack >= 2) {
    if (!grid_axis(1, g.nx, what, g.x)) return fail();
    data_range(g.x.data(), g.nx, range[0]);
  } else {
    generate(g.x, g.nx, offset);
    range[0][0] = 0;
    range[0][1] = static_cast<float>(mode == 0 ? g.nx : g.nx - 1);
  }
  if (g_nstack >= 3) {
    if (!grid_axis(2, g.ny, what, g.y)) return fail();
    data_range(g.y.data(), g.ny, range[1]);
  } else {
    generate(g.y, g.ny, offset);
    range[1][0] = 0;
    range[1][1] = static_cast<float>(mode == 0 ? g.ny : g.ny - 1);
  }
  data_range(data(g.z), g.z->count, range[2]);
  ini_plot();
  setvar(-1);
  for (int axis = 0; axis < 3; ++axis) set_scaling(range[axis], axis);
  if (mode != 0) {
    noclip();
    graf3d(xa[0], xe[0], xor_[0], xstp[0], xa[1], xe[1], xor_[1], xstp[1], xa[2], xe[2], xor_[2], xstp[2]);
    title();
    if (mode == 1) surfce(g.x.data(), g.nx, g.y.data(), g.ny, data(g.z));
    else surshd(g.x.data(), g.nx, g.y.data(), g.ny, data(g.z));
    reset("noclip");
  } else {
    graf3_axes();
    title();
    int colour = getclr();
    sclpax(0);
    // A cell is as wide as the distance to its right neighbour (the last one: its left),
    // measured in plot coordinates for every point, the neighbour first.
    auto extent = [](const std::vector<float> &c, int i, int (*posn)(float)) {
      int n = static_cast<int>(c.size());
      if (n < 2) return 1;
      int neighbour = posn(c[i + 1 < n ? i + 1 : i - 1]);
      int own = posn(c[i]);
      return std::abs(neighbour - own) + 1;
    };
    const float *z = data(g.z);
    for (int i = 0; i < g.nx; ++i)
      for (int j = 0; j < g.ny; ++j) {
        int w = extent(g.x, i, nxposn);
        int h = extent(g.y, j, nyposn);
        rpoint(g.x[i], g.y[j], z[i * g.ny + j], w, h);
      }
    sclpax(1);
    setclr(colour);
  }
  fin_plot();
  free_stack(0);
  return 0;
}
