// System variables: "%" variables whose values are settings of the library. They wait in
// their variables until the library is open; setvar hands them over.
#include "binding/sysvar.h"

#include "binding/tables.h"
#include "core/error.h"
#include "lang/lexer.h"
#include "lang/subscript.h"
#include "lang/value.h"
#include "mirval.h"

#include <cstring>

// The 3-D settings that fill the other two arguments of axis3d and view3d.
static float x3view = 4.0f, y3view = -5.0f, z3view = 4.0f;
static float x3len = 2.0f, y3len = 2.0f, z3len = 2.0f;

// The axis letter of a name such as "XLAB" ("x"), for the library's axis arguments.
static const char *axis_of(const char *name) {
  return name[0] == 'X' ? "x" : name[0] == 'Y' ? "y" : "z";
}

// Replaces the entry of `xyz` named by the name's first letter.
template <class T>
static void put_axis(const char *name, T &x, T &y, T &z, T value) {
  (name[0] == 'X' ? x : name[0] == 'Y' ? y : z) = value;
}

// Performs the library call of one system variable (`name` without "%").
static void apply(const char *name, const VarRecord &v) {
  const char *s = v.type == T_STRING ? v.value.str : "";
  int n = v.type == T_INT ? v.value.i : 0;
  float f = v.type == T_DOUBLE ? static_cast<float>(v.value.d) : 0.0f;
  auto is = [&](const char *what) { return std::strcmp(name, what) == 0; };
  // The per-axis rows: the same call for X, Y and Z.
  auto axis_row = [&](const char *what) { return name[0] && std::strcmp(name + 1, what) == 0; };
  if (is("CONSHD")) shdmod(s, "CONTOUR");
  else if (is("H")) height(n);
  else if (is("HNAME")) hname(n);
  else if (is("HSYMBL")) hsymbl(n);
  else if (is("HTITLE")) htitle(n);
  else if (is("INCMRK")) incmrk(n);
  else if (is("MARKER")) marker(n);
  else if (is("POLCRV")) polcrv(s);
  else if (name[0] == 'T' && name[1] >= '1' && name[1] <= '4' && !name[2]) titlin(s, name[1] - '0');
  else if (is("VTITLE")) vkytit(n);
  else if (is("X") || is("Y") || is("Z")) ::name(s, axis_of(name));
  else if (axis_row("3LEN")) {
    float xl = x3len, yl = y3len, zl = z3len;
    put_axis(name, xl, yl, zl, f);
    axis3d(xl, yl, zl);
    if (f > 0) put_axis(name, x3len, y3len, z3len, f);
  } else if (axis_row("3VIEW")) {
    put_axis(name, x3view, y3view, z3view, f);
    view3d(x3view, y3view, z3view, "ABS");
  } else if (axis_row("DIG")) digits(n, axis_of(name));
  else if (axis_row("LAB")) labels(s, axis_of(name));
  else if (is("XLEN") || is("YLEN") || is("ZLEN")) {
    int nx = 0, ny = 0, nz = 0;
    getlen(&nx, &ny, &nz);
    if (name[0] == 'Z') {
      ax3len(nx, ny, n);
    } else {
      put_axis(name, nx, ny, nz, n);
      axslen(nx, ny);
    }
  } else if (is("XPOS") || is("YPOS")) {
    int nx = 0, ny = 0, unused = 0;
    getpos(&nx, &ny);
    put_axis(name, nx, ny, unused, n);
    axspos(nx, ny);
  } else if (is("XRES") || is("YRES")) {
    int nx = 0, ny = 0, unused = 0;
    getres(&nx, &ny);
    put_axis(name, nx, ny, unused, n);
    setres(nx, ny);
  } else if (axis_row("SCL")) scale(s, axis_of(name));
  else if (axis_row("TIC")) ticks(n, axis_of(name));
}

int setvar(int index) {
  if (getlev() == 0) return 0;
  int first = index < 0 ? 0 : index, last = index < 0 ? MAXVAR - 1 : index;
  for (int i = first; i <= last; ++i) {
    const VarRecord &v = varlist[i];
    if (v.type == T_FREE || v.name[0] != '%') continue;
    int row = search_sysv(v.name + 1);
    if (row < 0) {
      char_error("Undefined system variable", v.name);
      continue;
    }
    if (check_varidx(i, sysv_type(row)) < 0) continue;
    apply(v.name + 1, v);
  }
  return 0;
}
