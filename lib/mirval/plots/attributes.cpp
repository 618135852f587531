// Transparency of everything drawn between TPRINI and TPRFIN, filling and outlining of
// chart areas, colour numbers of RGB colours, and moves and draws in plot and user coordinates.
#include "plots/charts.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "core/state.h"
#include "core/trace.h"
#include "draw/colours.h"
#include "draw/draw.h"
#include "axes/scaling.h"
#include "mirval.h"

#include <algorithm>
#include <cmath>

namespace {

int byte(float x) { return static_cast<int>(std::lround(std::clamp(std::isfinite(x) ? x : 0.0f, 0.0f, 1.0f) * 255)); }

bool finite_point(const char *routine, float x, float y) {
  if (std::isfinite(x) && std::isfinite(y)) return true;
  mv_warn(routine, "coordinates must be finite");
  return false;
}

// XDRAW, CONNPT and RLCONN: a line in the pen's style from the current point (XMOVE or the
// last such line) to 'to', leaving out shielded regions; the first call only sets the point.
void line_to(Pt to, const Rect &clip) {
  ChartState &c = mirval_state().chart;
  if (c.pen_set)
    for (const std::vector<Pt> &piece : unshielded({c.pen_at, to})) stroke_polyline(piece, clip);
  c.pen_at = to;
  c.pen_set = true;
}

}  // namespace

extern "C" {

void tprini(void) {
  mv_tracef("tprini()");
  mirval_state().chart.transparent = true;
}

void tprfin(void) {
  mv_tracef("tprfin()");
  mirval_state().chart.transparent = false;
}

void tprval(float x) {
  mv_tracef("tprval(%g)", (double)x);
  if (in_range("tprval", "opacity", x, 0, 1)) mirval_state().chart.alpha = x;
}

void tprmod(const char *c1, const char *c2) {
  mv_tracef("tprmod(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  int bits = same(c1, "FILL") ? 1 : same(c1, "LINE") ? 2 : same(c1, "ALL") ? 3 : 0;
  bool on = same(c2, "ON");
  if (!bits) mv_warn("tprmod", "unknown target %s", mv_tstr(c1).c_str());
  else if (!on && !same(c2, "OFF")) mv_warn("tprmod", "unknown mode %s", mv_tstr(c2).c_str());
  else if (on) mirval_state().chart.tpr_targets |= bits;
  else mirval_state().chart.tpr_targets &= ~bits;
}

void nofill(void) {
  mv_tracef("nofill()");
  mirval_state().chart.fill = false;
}

void noline(const char *c) {
  mv_tracef("noline(%s)", mv_tstr(c).c_str());
  if (same(c, "ON")) mirval_state().chart.outline = false;
  else if (same(c, "OFF")) mirval_state().chart.outline = true;
  else mv_warn("noline", "unknown mode %s", mv_tstr(c).c_str());
}

int indrgb(float r, float g, float b) {
  mv_tracef("indrgb(%g, %g, %g)", (double)r, (double)g, (double)b);
  return nearest_index({byte(r) / 255.0f, byte(g) / 255.0f, byte(b) / 255.0f});
}

int intrgb(float r, float g, float b) {
  mv_tracef("intrgb(%g, %g, %g)", (double)r, (double)g, (double)b);
  return (byte(r) << 16) | (byte(g) << 8) | byte(b);
}

void xmove(float x1, float x2) {
  mv_tracef("xmove(%g, %g)", (double)x1, (double)x2);
  if (!finite_point("xmove", x1, x2)) return;
  ChartState &c = mirval_state().chart;
  c.pen_at = {x1, page_y(x2)};
  c.pen_set = true;
}

void xdraw(float x1, float x2) {
  mv_tracef("xdraw(%g, %g)", (double)x1, (double)x2);
  if (mv_level("xdraw", 1, 3) && finite_point("xdraw", x1, x2)) line_to({x1, page_y(x2)}, plot_clip());
}

void connpt(float x, float y) {
  mv_tracef("connpt(%g, %g)", (double)x, (double)y);
  if (mv_level("connpt", 1, 3) && finite_point("connpt", x, y)) line_to({x, page_y(y)}, plot_clip());
}

void rlconn(float x, float y) {
  mv_tracef("rlconn(%g, %g)", (double)x, (double)y);
  if (!mv_level("rlconn", 2, 3) || !finite_point("rlconn", x, y)) return;
  Pt to = page_point(x, y);
  if (std::isfinite(to.x) && std::isfinite(to.y)) line_to(to, user_clip());
  else mv_warn("rlconn", "(%g, %g) has no place on the axes", (double)x, (double)y);
}

}
