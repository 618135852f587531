// Callbacks from the library into script procedures: the registered procedure names, the
// trampolines handed to the library, and the call_... routines that run a procedure as a new
// procedure level while the library waits.
#pragma once
#include "mirval.h"

constexpr int MAXWIDGET = 200;  // widget ids 1..200 keep a procedure name
constexpr int CBNAMELEN = 40;   // other callback procedure names

extern char *wgcb[MAXWIDGET];
extern char cfunc[CBNAMELEN + 1], cpiecb[CBNAMELEN + 1], cprjcb[CBNAMELEN + 1],
    cwincb[CBNAMELEN + 1];

// Keeps a private copy of `name` for widget `id` (ids outside 1..200 keep nothing).
void reg_widget(int id, const char *name);
// Keeps `name` (at most 40 characters) in one of the single callback slots.
void reg_callback(char *slot, const char *name);

extern "C" {
void callbck(int id, int *iray);
void callbck2(int id);
void callbck3(int id, int a, int b);
void callbck4(int id, int a);
float funcbck(float x, float y);
float func2bck(float x, float y, int i);
void zkl_piecbk(int iseg, float xdat, float xper, int *nrad, int *noff, float *angle, int *nvx,
                int *nvy, int *idrw, int *ilab);
void zkl_prjcbk(float *x, float *y);
void zkl_wincbk(int id, int nx, int ny, int nw, int nh);
}

int call_bck(int id, const char *name, int var);
int call_bck2(int id, const char *name);
int call_bck3(int id, const char *name, int a, int b);
int call_bck4(int id, const char *name, int a);
double call_funcbck(const char *name, float x, float y);
double call_func2bck(const char *name, float x, float y, int i);
int call_piecbk(const char *name, int iseg, float xdat, float xper, int *nrad, int *noff,
                float *angle, int *nvx, int *nvy, int *idrw, int *ilab);
int call_prjcbk(const char *name, float *x, float *y);
int call_wincbk(const char *name, int id, int nx, int ny, int nw, int nh);
