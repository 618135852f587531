// How curves look beyond pen and marker: the cycles that CHNCRV, CHNBAR and CHNPIE step
// through, colours per curve and per marker, gaps, user symbols and patterns, and the modes
// of lines, polygons and colours that the renderer reads when a file is written.
#include "core/keywords.h"
#include "core/messages.h"
#include "core/reset.h"
#include "core/state.h"
#include "core/trace.h"
#include "draw/colours.h"
#include "draw/draw.h"
#include "grids/colour_matrix.h"
#include "mirval.h"
#include "output/device.h"
#include "plots/charts.h"
#include "plots/curves.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace {

#define TSTR(s) mv_tstr(s).c_str()
#define TARR(n, kind) mv_tarr(n, kind).c_str()

// Entry n (1..30) of a cycle set to v within lo..hi.
void set_cycle(const char *routine, std::array<int, 30> &cycle, int n, int v, int lo, int hi) {
  if (in_range(routine, "entry", n, 1, 30) && in_range(routine, "value", v, lo, hi)) cycle[n - 1] = v;
}

// A flag that one of the 'on' keywords sets and one of the 'off' keywords clears.
void set_flag(const char *routine, const char *c, bool &flag, std::initializer_list<const char *> on,
              std::initializer_list<const char *> off) {
  if (keyword_index(c, on) >= 0) flag = true;
  else if (keyword_index(c, off) >= 0) flag = false;
  else mv_warn(routine, "unknown mode %s (%s or %s)", TSTR(c), *on.begin(), *off.begin());
}

// A mode routine (mode, keyword) whose only keyword is 'key'.
void switch_mode(const char *routine, const char *mode, const char *what, const char *key, bool &flag,
                 const char *on, const char *off) {
  if (same(what, key)) set_flag(routine, mode, flag, {on}, {off});
  else mv_warn(routine, "unknown keyword %s (%s is known)", TSTR(what), key);
}

}  // namespace

extern "C" {

void lincyc(int n, int ityp) {
  mv_tracef("lincyc(%d, %d)", n, ityp);
  set_cycle("lincyc", mirval_state().chart.line_cycle, n, ityp, 0, 7);
}

void clrcyc(int n, int iclr) {
  mv_tracef("clrcyc(%d, %d)", n, iclr);
  set_cycle("clrcyc", mirval_state().chart.colour_cycle, n, iclr, -1, 255);
}

void patcyc(int n, int ipat) {
  mv_tracef("patcyc(%d, %d)", n, ipat);
  set_cycle("patcyc", mirval_state().chart.pattern_cycle, n, ipat, 0, 17);
}

void chnatt(void) {
  mv_tracef("chnatt()");
  // the next entry now, whatever INCCRV says; later changes count on from it
  CurveState &c = mirval_state().curve;
  int every = mirval_state().chart.curve_every;
  c.changed = (c.changed / every + 1) * every;
  cycle_attributes(c.change ? c.change : 1, c.changed / every);
}

void inccrv(int n) {
  mv_tracef("inccrv(%d)", n);
  if (in_range("inccrv", "number of curves", n, 1, 1000000)) mirval_state().chart.curve_every = n;
}

void linclr(const int *nray, int n) {
  mv_tracef("linclr(nray=%s, n=%d)", TARR(n, "ints"), n);
  ChartState &c = mirval_state().chart;
  if (n == 0) {  // back to the pen's colour
    c.line_colours.clear();
    return;
  }
  if (!nray || n < 0) {
    mv_warn("linclr", "no colours (n = %d)", n);
    return;
  }
  for (int i = 0; i < n; ++i)
    if (nray[i] < 0 || nray[i] > 255) {
      mv_warn("linclr", "colour %d of element %d is outside 0..255", nray[i], i + 1);
      return;
    }
  c.line_colours.assign(nray, nray + n);
  c.line_colour_next = 0;
}

void mrkclr(int n) {
  mv_tracef("mrkclr(%d)", n);
  if (in_range("mrkclr", "colour", n, -1, 255)) mirval_state().chart.marker_colour = n;
}

void lnmlt(float x) {
  mv_tracef("lnmlt(%g)", (double)x);
  if (in_range("lnmlt", "factor", x, 0.01, 100)) mirval_state().chart.dash_scale = x;
}

void gapcrv(float x) {
  mv_tracef("gapcrv(%g)", (double)x);
  if (std::isfinite(x) && x >= 0) mirval_state().chart.gap_x = x;
  else mv_warn("gapcrv", "the distance %g is not a number of 0 or more", (double)x);
}

void gapsiz(float x, const char *c) {
  mv_tracef("gapsiz(%g, %s)", (double)x, TSTR(c));
  if (!same(c, "CURVE")) mv_warn("gapsiz", "unknown target %s (CURVE is known)", TSTR(c));
  else if (in_range("gapsiz", "gap", x, 0, 1000)) mirval_state().chart.marker_gap = x;
}

void nancrv(const char *c) {
  mv_tracef("nancrv(%s)", TSTR(c));
  set_flag("nancrv", c, mirval_state().chart.nan_gaps, {"ON", "GAP"}, {"OFF", "JOIN"});
}

void symrot(float x) {
  mv_tracef("symrot(%g)", (double)x);
  if (std::isfinite(x)) mirval_state().chart.marker_angle = std::fmod(x, 360.0);
  else mv_warn("symrot", "the angle is not a number");
}

void mysymb(const float *xray, const float *yray, int n, int isym, int iflag) {
  mv_tracef("mysymb(xray=%s, yray=%s, n=%d, isym=%d, iflag=%d)", TARR(n, "floats"), TARR(n, "floats"), n, isym,
            iflag);
  if (!in_range("mysymb", "symbol", isym, 0, 24) || !in_range("mysymb", "fill flag", iflag, 0, 1)) return;
  if (!xray || !yray || n < 2) {
    mv_warn("mysymb", "an outline needs at least 2 points (n = %d)", n);
    return;
  }
  std::vector<Pt> outline;
  for (int i = 0; i < n; ++i) {
    if (!std::isfinite(xray[i]) || !std::isfinite(yray[i]) || std::fabs(xray[i]) > 1 || std::fabs(yray[i]) > 1) {
      mv_warn("mysymb", "point %d lies outside the square -1..1", i + 1);
      return;
    }
    outline.push_back({xray[i], yray[i]});
  }
  ChartState &c = mirval_state().chart;
  c.user_symbols[isym] = outline;
  c.user_filled[isym] = iflag == 1;
}

void mypat(int iang, int itype, int idens, int icross) {
  mv_tracef("mypat(%d, %d, %d, %d)", iang, itype, idens, icross);
  if (in_range("mypat", "angle", iang, -360, 360) && in_range("mypat", "kind", itype, 0, 1) &&
      in_range("mypat", "density", idens, 1, 10) && in_range("mypat", "cross", icross, 0, 1))
    mirval_state().chart.user_pattern = {iang, itype, idens, icross};
}

void linmod(const char *c1, const char *c2) {
  mv_tracef("linmod(%s, %s)", TSTR(c1), TSTR(c2));
  switch_mode("linmod", c1, c2, "SMOOTH", mirval_state().chart.smooth, "ON", "OFF");
}

void polmod(const char *c1, const char *c2) {
  mv_tracef("polmod(%s, %s)", TSTR(c1), TSTR(c2));
  switch_mode("polmod", c1, c2, "FILL", mirval_state().chart.winding, "WINDING", "EVENODD");
}

void clrmod(const char *c) {
  mv_tracef("clrmod(%s)", TSTR(c));
  set_flag("clrmod", c, mirval_state().chart.grey, {"GREY", "GRAY"}, {"FULL", "COLOR"});
}

void noarln(void) {
  mv_tracef("noarln()");
  mirval_state().chart.arrow_lines = false;
}

void resatt(void) {
  mv_tracef("resatt()");
  for (const char *name : {"LINTYP", "COLOR", "LINWID", "THKCRV", "MARKER", "INCMRK", "HSYMBL", "CHNCRV", "LINCLR",
                           "MRKCLR", "LNMLT", "SYMROT"})
    reset_setting(name);
}

void colray(const float *zray, int *nray, int n) {
  mv_tracef("colray(zray=%s, nray=%s, n=%d)", TARR(n, "floats"), TARR(n, "ints out"), n);
  if (!mv_level("colray", 2, 3)) return;
  if (!mirval_state().grid.colour_axis) {
    mv_warn("colray", "the axis system has no Z axis (GRAF3 or GRAF3D defines one)");
    return;
  }
  if (!zray || !nray || n < 1) {
    mv_warn("colray", "no values (n = %d)", n);
    return;
  }
  // values off the Z axis keep the colours below and above it that the matrices show
  for (int i = 0; i < n; ++i) nray[i] = std::max(z_colour(zray[i]), 0);
}

void vltfil(const char *cfl, const char *cmode) {
  mv_tracef("vltfil(%s, %s)", TSTR(cfl), TSTR(cmode));
  if (!cfl || !*cfl) {
    mv_warn("vltfil", "no file name");
    return;
  }
  std::array<Rgb, 256> &table = mirval_state().colours.table;
  if (same(cmode, "SAVE")) {
    std::string text;
    char line[64];
    for (const Rgb &c : table) {
      std::snprintf(line, sizeof line, "%.6f %.6f %.6f\n", c.r, c.g, c.b);
      text += line;
    }
    if (!replace_file(cfl, text)) mv_warn("vltfil", "cannot write %s: %s", cfl, std::strerror(errno));
  } else if (same(cmode, "LOAD")) {
    FILE *f = std::fopen(cfl, "r");
    if (!f) {
      mv_warn("vltfil", "cannot read %s: %s", cfl, std::strerror(errno));
      return;
    }
    std::array<Rgb, 256> loaded{};
    int k = 0;
    for (; k < 256; ++k) {
      double r, g, b;
      if (std::fscanf(f, "%lf %lf %lf", &r, &g, &b) != 3 || !(r >= 0 && r <= 1 && g >= 0 && g <= 1 && b >= 0 && b <= 1))
        break;
      loaded[k] = {float(r), float(g), float(b)};
    }
    std::fclose(f);
    if (k < 256) mv_warn("vltfil", "%s: entry %d is missing or not three values 0..1; the table stays", cfl, k);
    else table = loaded;
  } else {
    mv_warn("vltfil", "unknown mode %s (SAVE or LOAD)", TSTR(cmode));
  }
}

}
