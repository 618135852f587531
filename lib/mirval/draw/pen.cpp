#include "draw/pen.h"
#include "draw/draw.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "mirval.h"
#include "core/state.h"
#include "core/trace.h"

#include <cmath>

namespace {

// On and off lengths in plot units for LINTYP 0..7.
const std::vector<double> patterns[8] = {{},           {4, 12},          {30, 15},         {45, 12, 4, 12},
                                         {45, 12, 15, 12}, {4, 30},      {60, 20},         {100, 25}};

void style_routine(const char *routine, int style) {
  mv_tracef("%s()", routine);
  set_line_style(style);
}

}  // namespace

void set_line_style(int style) {
  PenState &pen = mirval_state().pen;
  pen.style = style;
  pen.dash = patterns[style];
}

extern "C" {

void solid(void) { style_routine("solid", 0); }
void dot(void) { style_routine("dot", 1); }
void dash(void) { style_routine("dash", 2); }
void chndot(void) { style_routine("chndot", 3); }
void chndsh(void) { style_routine("chndsh", 4); }
void dotl(void) { style_routine("dotl", 5); }
void dashm(void) { style_routine("dashm", 6); }
void dashl(void) { style_routine("dashl", 7); }

void lintyp(int ntyp) {
  mv_tracef("lintyp(%d)", ntyp);
  if (ntyp < 0 || ntyp > 7) mv_warn("lintyp", "line type %d out of range 0..7", ntyp);
  else set_line_style(ntyp);
}

void myline(const int *nray, int n) {
  mv_tracef("myline(nray=%s, n=%d)", mv_tarr(n, "ints").c_str(), n);
  if (!nray || n <= 0 || n > 10) {
    mv_warn("myline", "a pattern needs 1 to 10 lengths (got %d)", n);
    return;
  }
  std::vector<double> dash;
  bool any = false;
  for (int i = 0; i < n; ++i) {
    if (!in_range("myline", "length", nray[i], 0, 10000)) return;
    any = any || nray[i] > 0;
    dash.push_back(nray[i]);
  }
  if (!any) {
    mv_warn("myline", "all lengths of the pattern are zero");
    return;
  }
  PenState &pen = mirval_state().pen;
  pen.style = -1;
  pen.dash = n == 1 ? std::vector<double>{dash[0], dash[0]} : dash;
}

void linwid(int nwidth) {
  set_number("linwid", "width", nwidth, 1, 10000, mirval_state().pen.width);
}

void penwid(float xwidth) {
  mv_tracef("penwid(%g)", (double)xwidth);
  if (in_range("penwid", "width", xwidth, 0.01, 10000)) mirval_state().pen.width = xwidth;
}

void thkcrv(int n) {
  set_number("thkcrv", "thickness", n, 1, 100, mirval_state().pen.thick);
}

void clpbor(const char *copt) {
  mv_tracef("clpbor(%s)", mv_tstr(copt).c_str());
  PenState &pen = mirval_state().pen;
  if (same(copt, "AXIS")) pen.clip = ClipMode::Axis;
  else if (same(copt, "PAGE")) pen.clip = ClipMode::Page;
  else mv_warn("clpbor", "unknown option %s", mv_tstr(copt).c_str());
}

void clpwin(int n1, int n2, int n3, int n4) {
  mv_tracef("clpwin(%d, %d, %d, %d)", n1, n2, n3, n4);
  if (n3 <= 0 || n4 <= 0) {
    mv_warn("clpwin", "width and height must be positive (got %d, %d)", n3, n4);
    return;
  }
  PenState &pen = mirval_state().pen;
  double top = page_y(n2);  // (n1, n2) is the upper left corner
  pen.window = {double(n1), top, double(n1) + n3, top + n4};
  pen.clip = ClipMode::Window;
}

void noclip(void) {
  mv_tracef("noclip()");
  mirval_state().pen.clip = ClipMode::Page;
}

void getclp(int *nx, int *ny, int *nw, int *nh) {
  mv_tracef("getclp(nx=out, ny=out, nw=out, nh=out)");
  const Rect &w = mirval_state().pen.window;
  if (nx) *nx = static_cast<int>(w.x0);
  if (ny) *ny = static_cast<int>(page_y(w.y0));
  if (nw) *nw = static_cast<int>(w.x1 - w.x0);
  if (nh) *nh = static_cast<int>(w.y1 - w.y0);
}

int getlin(void) {
  mv_tracef("getlin()");
  return static_cast<int>(std::lround(mirval_state().pen.width));
}

int gettyp(void) {
  mv_tracef("gettyp()");
  return mirval_state().pen.style;
}

int getpat(void) {
  mv_tracef("getpat()");
  return mirval_state().pen.pattern;
}

void lncap(const char *c) {
  mv_tracef("lncap(%s)", mv_tstr(c).c_str());
  int k = keyword("lncap", "line end", c, {"ROUND", "CUT", "LONG"});
  if (k >= 0) mirval_state().pen.cap = Cap(k + 1);  // after Cap::Auto
}

void lnjoin(const char *c) {
  mv_tracef("lnjoin(%s)", mv_tstr(c).c_str());
  int k = keyword("lnjoin", "line join", c, {"ROUND", "SHARP", "TRUNC"});
  if (k >= 0) mirval_state().pen.join = Join(k);
}

}
