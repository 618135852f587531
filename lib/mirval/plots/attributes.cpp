// Transparency of everything drawn between TPRINI and TPRFIN, filling and outlining of
// chart areas, colour numbers of RGB colours, and moves and draws in plot coordinates.
#include "plots/charts.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "core/state.h"
#include "core/trace.h"
#include "draw/colours.h"
#include "draw/draw.h"
#include "mirval.h"

#include <algorithm>
#include <cmath>

namespace {

int byte(float x) { return static_cast<int>(std::lround(std::clamp(std::isfinite(x) ? x : 0.0f, 0.0f, 1.0f) * 255)); }

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
  if (!std::isfinite(x1) || !std::isfinite(x2)) {
    mv_warn("xmove", "coordinates must be finite");
    return;
  }
  ChartState &c = mirval_state().chart;
  c.pen_at = {x1, page_y(x2)};
  c.pen_set = true;
}

void xdraw(float x1, float x2) {
  mv_tracef("xdraw(%g, %g)", (double)x1, (double)x2);
  if (!mv_level("xdraw", 1, 3)) return;
  if (!std::isfinite(x1) || !std::isfinite(x2)) {
    mv_warn("xdraw", "coordinates must be finite");
    return;
  }
  ChartState &c = mirval_state().chart;
  Pt to{x1, page_y(x2)};
  if (c.pen_set) stroke_polyline({c.pen_at, to}, plot_clip());
  c.pen_at = to;
  c.pen_set = true;
}

}
