// Stand-alone axes anywhere on the page (XAXIS, YAXIS and their log forms) and colour bars
// placed by hand (ZAXIS, ZAXLG) with their frame and placement settings.
#include "axes/axes.h"
#include "axes/scaling.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "core/trace.h"
#include "draw/colours.h"
#include "draw/draw.h"
#include "draw/text.h"
#include "mirval.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace {

// Draws one side of a temporary axis system made of the box, with axis 'axis' (0 along x,
// 1 along y) taking range r, name and the settings and forms of axis 'form'.
void draw_alone(const Rect &box, int side, int form, const AxisRange &r, const std::string &name) {
  AxesState &ax = mirval_state().axes;
  AxesState saved = ax;
  int axis = side % 2;
  ax.box = box;
  ax.range[axis] = r;
  ax.axis[axis] = saved.axis[form];
  ax.axis[axis].name = name;
  ax.sides[side] = 4;
  axis_side(side, form);
  ax = saved;
}

}  // namespace

// A colour bar in the rectangle: stripes of the COLRAN entries along it, a frame (FRMBAR,
// FRMCLR) and the scale r on the given side (0 lower, 1 left, 2 upper, 3 right) with its name.
void colour_bar_at(const Rect &bar, bool vertical, const AxisRange &r, int side, const std::string &name) {
  const MirvalState &st = mirval_state();
  const AxisExtraState &x = st.axextra;
  const GridState &g = st.grid;
  int n = g.colour_hi - g.colour_lo + 1;
  double len = vertical ? bar.y1 - bar.y0 : bar.x1 - bar.x0, d = len / n;
  bool up = r.e > r.a;  // the lowest colour sits at the end with the lower value
  for (int k = 0; k < n; ++k) {
    int entry = up ? g.colour_lo + k : g.colour_hi - k;
    // each stripe reaches into the next one, which covers it again: no seams in raster pictures
    double s0 = k * d, s1 = k + 1 < n ? (k + 1.5) * d : len;
    Path p = vertical ? rect_path(bar.x0, bar.y1 - s0, bar.x1, bar.y1 - s1) : rect_path(bar.x0 + s0, bar.y0, bar.x0 + s1, bar.y1);
    fill_path(fit_path(p, page_rect(), true), table_rgb(entry));
  }
  if (x.bar_frame > 0) {
    Rgb frgb = x.frame_colour >= 0 ? table_rgb(x.frame_colour) : pen_rgb();
    stroke_polyline({{bar.x0, bar.y0}, {bar.x1, bar.y0}, {bar.x1, bar.y1}, {bar.x0, bar.y1}, {bar.x0, bar.y0}},
                    page_rect(), frgb, x.bar_frame, {});
  }
  // the scale's own line would cover the frame: it is the frame
  int frame = mirval_state().pen.frame;
  mirval_state().pen.frame = std::max(1, x.bar_frame);
  draw_alone(bar, side, 2, r, name);
  mirval_state().pen.frame = frame;
}

namespace {

// The range of a stand-alone axis: ends a and b, labels from orig in steps (exponents on log
// axes). False, after a warning, when it cannot be drawn.
bool stand_range(const char *routine, float a, float b, float orig, float step, bool log, AxisRange &r) {
  if (!std::isfinite(a) || !std::isfinite(b) || !std::isfinite(double(b) - a) || a == b || std::fabs(a) > 1e30 ||
      std::fabs(b) > 1e30) {
    mv_warn(routine, "axis range %g to %g is empty, not finite or too large", (double)a, (double)b);
    return false;
  }
  if (log && (std::fabs(a) > 300 || std::fabs(b) > 300)) {
    mv_warn(routine, "exponents %g to %g are out of range", (double)a, (double)b);
    return false;
  }
  r.log = log;
  r.a = a, r.e = b;
  r.org = std::isfinite(orig) ? orig : a;
  r.step = std::fabs(step);
  if (!(r.step > 0) || !std::isfinite(r.step) || std::fabs(double(b) - a) / r.step > 1000) {
    mv_warn(routine, "label step %g does not fit the range; a step is chosen", (double)step);
    AxisRange auto_r = auto_range(a, b, false, 5);
    r.step = log ? 1 : auto_r.step;
    r.org = std::ceil(std::min(a, b) / r.step - 1e-9) * r.step;
  }
  return true;
}

bool length_ok(const char *routine, int nl) { return in_range(routine, "axis length", nl, 1, 100000); }

// XAXIS, YAXIS and their logarithmic forms: an axis of length nl from (nx, ny), its lower
// left end, labelled below or left (it = 0) or above or right (it = 1).
void line_axis(const char *routine, bool vertical, float a, float b, float orig, float step, int nl,
               const char *cstr, int it, int nx, int ny, bool log) {
  mv_tracef("%s(%g, %g, %g, %g, %d, %s, %d, %d, %d)", routine, (double)a, (double)b, (double)orig, (double)step,
            nl, mv_tstr(cstr).c_str(), it, nx, ny);
  if (!mv_level(routine, 1, 3) || !length_ok(routine, nl)) return;
  if (it != 0 && it != 1) {
    mv_warn(routine, "label side %d must be 0 (%s) or 1 (%s)", it, vertical ? "left" : "below",
            vertical ? "right" : "above");
    return;
  }
  AxisRange r;
  if (!stand_range(routine, a, b, orig, step, log, r)) return;
  const AxisExtraState &x = mirval_state().axextra;
  double px = nx + x.origin_x, py = page_y(ny + x.origin_y);
  if (vertical) draw_alone({px, py - nl, px, py}, it == 0 ? 1 : 3, 1, r, trimmed(cstr));
  else draw_alone({px, py, px + nl, py}, it == 0 ? 0 : 2, 0, r, trimmed(cstr));
}

// A colour bar of length nl from (nx, ny), its lower left corner: colour stripes of the
// COLRAN entries, a frame (FRMBAR, FRMCLR) and the Z scale beside it.
void z_axis(const char *routine, float a, float b, float orig, float step, int nl, const char *cstr, int it, int ndir,
            int nx, int ny, bool log) {
  mv_tracef("%s(%g, %g, %g, %g, %d, %s, %d, %d, %d, %d)", routine, (double)a, (double)b, (double)orig,
            (double)step, nl, mv_tstr(cstr).c_str(), it, ndir, nx, ny);
  if (!mv_level(routine, 1, 3) || !length_ok(routine, nl)) return;
  if (it != 0 && it != 1) {
    mv_warn(routine, "label side %d must be 0 or 1", it);
    return;
  }
  if (ndir != 0 && ndir != 1) {
    mv_warn(routine, "direction %d must be 0 (vertical) or 1 (horizontal)", ndir);
    return;
  }
  AxisRange r;
  if (!stand_range(routine, a, b, orig, step, log, r)) return;
  const MirvalState &st = mirval_state();
  const AxisExtraState &x = st.axextra;
  double w = st.grid.bar_width, px = nx + x.origin_x, py = page_y(ny + x.origin_y);
  bool vertical = ndir == 0;
  Rect bar = vertical ? Rect{px, py - nl, px + w, py} : Rect{px, py - w, px + nl, py};
  colour_bar_at(bar, vertical, r, vertical ? (it == 0 ? 3 : 1) : (it == 0 ? 0 : 2), trimmed(cstr));
}

}  // namespace

extern "C" {

// The linear and logarithmic forms differ only in their names and the flag they pass on.
#define LINE_AXIS(name, vertical, log) \
  void name(float a, float b, float orig, float step, int nl, const char *cstr, int it, int nx, int ny) { \
    line_axis(#name, vertical, a, b, orig, step, nl, cstr, it, nx, ny, log); \
  }
#define Z_AXIS(name, log) \
  void name(float a, float b, float orig, float step, int nl, const char *cstr, int it, int ndir, int nx, int ny) { \
    z_axis(#name, a, b, orig, step, nl, cstr, it, ndir, nx, ny, log); \
  }

LINE_AXIS(xaxis, false, false)
LINE_AXIS(yaxis, true, false)
LINE_AXIS(xaxlg, false, true)
LINE_AXIS(yaxlg, true, true)
Z_AXIS(zaxis, false)
Z_AXIS(zaxlg, true)
#undef LINE_AXIS
#undef Z_AXIS

void posbar(const char *c) {
  mv_tracef("posbar(%s)", mv_tstr(c).c_str());
  int k = keyword_index(c, {"RIGHT", "TOP", "BOTTOM", "LEFT"});
  if (k >= 0) mirval_state().axextra.bar_pos = k;
  else mv_warn("posbar", "unknown position %s (RIGHT, TOP, BOTTOM or LEFT)", mv_tstr(c).c_str());
}

void jusbar(const char *c) {
  mv_tracef("jusbar(%s)", mv_tstr(c).c_str());
  int k = keyword_index(c, {"START", "CENTER", "END"});
  if (k >= 0) mirval_state().axextra.bar_just = k;
  else mv_warn("jusbar", "unknown justification %s (START, CENTER or END)", mv_tstr(c).c_str());
}

void spcbar(int n) {
  set_number("spcbar", "space", n, -10000, 10000, mirval_state().grid.bar_gap);  // VKXBAR's gap
}

void frmbar(int n) {
  set_number("frmbar", "thickness", n, 0, 1000, mirval_state().axextra.bar_frame);
}

void frmclr(int n) {
  set_number("frmclr", "colour", n, -1, 255, mirval_state().axextra.frame_colour);
}

}  // extern "C"
