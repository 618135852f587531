// Callbacks from the library into script procedures. Registration keeps the procedure's name
// and hands the library a trampoline; when the library calls it, the procedure runs as a new
// procedure level through the reader, synchronously, and its results go back to the library.
#include "binding/callback.h"

#include "binding/call.h"
#include "core/error.h"
#include "core/procedure.h"
#include "core/reader.h"
#include "core/statement.h"
#include "lang/parser.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

char *wgcb[MAXWIDGET];
char cfunc[CBNAMELEN + 1], cpiecb[CBNAMELEN + 1], cprjcb[CBNAMELEN + 1], cwincb[CBNAMELEN + 1];

void reg_widget(int id, const char *name) {
  if (id < 1 || id > MAXWIDGET) return;
  char *copy = copy_text(name);
  if (!copy) return;
  std::free(wgcb[id - 1]);
  wgcb[id - 1] = copy;
}

void reg_callback(char *slot, const char *name) { qqscpy(slot, name, CBNAMELEN); }

// The argument stack and parameter lists of the library call that is waiting for the
// callback; the procedure's own statements use them too.
struct CallState {
  std::vector<StackEntry> stack;
  int idx[MAXPAR], ip[MAXPAR], cc[MAXPAR], ni, nx, ns, np;
  long long cb[MAXPAR];
  float xp[MAXPAR];
  void *cp[MAXPAR];

  void save() {
    stack.assign(stacklist, stacklist + g_nstack);
    g_nstack = 0;
    lists(true);
  }
  void restore() {
    free_stack(0);
    std::copy(stack.begin(), stack.end(), stacklist);
    g_nstack = static_cast<int>(stack.size());
    lists(false);
  }
  // Copies the parameter lists from the globals into this record, or back.
  void lists(bool saving) {
    auto copy = [saving](auto &mine, auto &global) {
      if (saving) std::memcpy(&mine, &global, sizeof mine);
      else std::memcpy(&global, &mine, sizeof mine);
    };
    copy(idx, idxpar), copy(ip, ipar), copy(cc, ccnt), copy(cb, cbytes), copy(xp, xpar), copy(cp, cpar);
    copy(ni, nipar), copy(nx, nxpar), copy(ns, nspar), copy(np, npar);
  }
};

// One positional parameter "$k": its type and value, and, after the run, the record it used.
struct Param {
  int8_t type;
  Value value;
  int rec = -1;
};

static Param int_param(int32_t v) {
  Param p{T_INT, {}};
  p.value.i = v;
  return p;
}

static Param float_param(float v) {
  Param p{T_FLOAT, {}};
  p.value.f = v;
  return p;
}

// Runs procedure `name` as a new level of `kind` with `params` as "$1", "$2", ...; 0 when
// it ran, 1 when it could not start.
static int run_proc(const char *name, int kind, Param *params, int n) {
  if (g_nlevel >= MAXLEVEL) {
    error("Too many nested procedure calls (at most 8 levels)");
    return 1;
  }
  int level = g_nlevel + 1;
  for (int k = 0; k < n; ++k) {
    int index = find_freevar();
    if (index < 0) {
      while (k > 0) free_var(params[--k].rec);
      return 1;
    }
    VarRecord &v = varlist[index];
    char pname[NAMELEN + 1];
    std::snprintf(pname, sizeof pname, "$%d", k + 1);
    set_name(&v, pname);
    v.level = static_cast<int8_t>(level);
    v.type = params[k].type;
    v.count = 1;
    v.ndim = 1;
    v.value = params[k].value;
    params[k].rec = index;
  }
  usrproc.first = n ? params[0].rec : -1;
  usrproc.last = n ? params[n - 1].rec : -1;
  char file[20];
  qqscpy(file, name, 19);
  qqscat(file, ".zkl", 19);
  if (nstptr == nstrec && push_procedure(file) != 0) {
    for (int k = 0; k < n; ++k) free_var(params[k].rec);
    return 1;
  }
  qqscpy(usrproc.name, name, NAMELEN);
  upstr(usrproc.name);
  enter_level(kind, n, 0, -1);
  CallState state;
  state.save();
  exec_file();
  state.restore();
  return 0;
}

// The raw 32-bit values the procedure left in its parameter records.
static int32_t int_result(const Param &p) { return varlist[p.rec].value.i; }
static float float_result(const Param &p) { return varlist[p.rec].value.f; }

int call_bck(int id, const char *name, int var) {
  Param p[2] = {int_param(id), int_param(0)};
  if (var >= 0 && var < MAXVAR && varlist[var].type != T_FREE) {
    p[1].type = T_REF;
    p[1].value.ref = var;
  }
  return run_proc(name, 2, p, 2);
}

int call_bck2(int id, const char *name) {
  Param p[1] = {int_param(id)};
  return run_proc(name, 2, p, 1);
}

int call_bck3(int id, const char *name, int a, int b) {
  Param p[3] = {int_param(id), int_param(a), int_param(b)};
  return run_proc(name, 2, p, 3);
}

int call_bck4(int id, const char *name, int a) {
  Param p[2] = {int_param(id), int_param(a)};
  return run_proc(name, 2, p, 2);
}

double call_funcbck(const char *name, float x, float y) {
  Param p[2] = {float_param(x), float_param(y)};
  return run_proc(name, 3, p, 2) ? 1.0 : xcbret;
}

double call_func2bck(const char *name, float x, float y, int i) {
  Param p[3] = {float_param(x), float_param(y), int_param(i)};
  return run_proc(name, 3, p, 3) ? 1.0 : xcbret;
}

int call_piecbk(const char *name, int iseg, float xdat, float xper, int *nrad, int *noff,
                float *angle, int *nvx, int *nvy, int *idrw, int *ilab) {
  Param p[10] = {int_param(iseg), float_param(xdat), float_param(xper), int_param(*nrad),
                 int_param(*noff), float_param(*angle), int_param(*nvx), int_param(*nvy),
                 int_param(*idrw), int_param(*ilab)};
  if (run_proc(name, 2, p, 10)) return 1;
  *nrad = int_result(p[3]);
  *noff = int_result(p[4]);
  *angle = float_result(p[5]);
  *nvx = int_result(p[6]);
  *nvy = int_result(p[7]);
  *idrw = int_result(p[8]);
  *ilab = int_result(p[9]);
  return 0;
}

int call_prjcbk(const char *name, float *x, float *y) {
  Param p[2] = {float_param(*x), float_param(*y)};
  if (run_proc(name, 2, p, 2)) return 1;
  *x = float_result(p[0]);
  *y = float_result(p[1]);
  return 0;
}

int call_wincbk(const char *name, int id, int nx, int ny, int nw, int nh) {
  Param p[5] = {int_param(id), int_param(nx), int_param(ny), int_param(nw), int_param(nh)};
  return run_proc(name, 2, p, 5);
}

// The name kept for a widget; null for ids without one.
static const char *widget_proc(int id) {
  return id >= 1 && id <= MAXWIDGET ? wgcb[id - 1] : nullptr;
}

extern "C" {

// The integer array is the one recorded for the third argument of the latest library call.
void callbck(int id, int *) {
  if (const char *name = widget_proc(id)) call_bck(id, name, idxpar[2]);
}

void callbck2(int id) {
  if (const char *name = widget_proc(id)) call_bck2(id, name);
}

void callbck3(int id, int a, int b) {
  if (const char *name = widget_proc(id)) call_bck3(id, name, a, b);
}

void callbck4(int id, int a) {
  if (const char *name = widget_proc(id)) call_bck4(id, name, a);
}

float funcbck(float x, float y) { return static_cast<float>(call_funcbck(cfunc, x, y)); }

float func2bck(float x, float y, int i) { return static_cast<float>(call_func2bck(cfunc, x, y, i)); }

void zkl_piecbk(int iseg, float xdat, float xper, int *nrad, int *noff, float *angle, int *nvx,
                int *nvy, int *idrw, int *ilab) {
  call_piecbk(cpiecb, iseg, xdat, xper, nrad, noff, angle, nvx, nvy, idrw, ilab);
}

void zkl_prjcbk(float *x, float *y) { call_prjcbk(cprjcb, x, y); }

void zkl_wincbk(int id, int nx, int ny, int nw, int nh) {
  call_wincbk(cwincb, id, nx, ny, nw, nh);
}
}
