// Shielded regions: rectangles, circles, ellipses, pie slices and polygons of the page (and
// the boxes of legends and messages, when SHIELD says so) that lines drawn later leave out.
// CURVE's lines and markers, XDRAW, CONNPT and RLCONN respect them.
#include "axes/scaling.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "core/state.h"
#include "core/trace.h"
#include "draw/draw.h"
#include "mirval.h"
#include "plots/charts.h"

#include <algorithm>
#include <cmath>

namespace {

#define TSTR(s) mv_tstr(s).c_str()

bool sizes_ok(const char *routine, double a, double b) {
  if (std::isfinite(a) && std::isfinite(b) && a > 0 && b > 0) return true;
  mv_warn(routine, "sizes must be positive (%g, %g)", a, b);
  return false;
}

// The regions SHLDEL and SHLVIS name: one by its number, or all for 0.
template <class Act>
void each_region(const char *routine, int id, Act act) {
  std::vector<ShieldRegion> &all = mirval_state().chart.shields;
  bool found = id == 0;
  for (ShieldRegion &r : all)
    if (id == 0 || r.id == id) act(r), found = true;
  if (!found) mv_warn(routine, "there is no shielded region %d", id);
}

// A rectangle with its upper left corner at (nx, ny), turned counter-clockwise about it.
void add_rect(const char *routine, int nx, int ny, int nw, int nh, float angle) {
  if (!sizes_ok(routine, nw, nh)) return;
  if (!std::isfinite(angle)) {
    mv_warn(routine, "the angle is not a number");
    return;
  }
  add_shield(turned_rect({double(nx), page_y(ny)}, 0, nw, nh, angle), false);
}

}  // namespace

extern "C" {

void shield(const char *c1, const char *c2) {
  mv_tracef("shield(%s, %s)", TSTR(c1), TSTR(c2));
  ChartState &c = mirval_state().chart;
  bool on = same(c2, "ON"), off = same(c2, "OFF"), del = same(c2, "DELETE");
  if (!on && !off && !del) {
    mv_warn("shield", "unknown mode %s (ON, OFF or DELETE)", TSTR(c2));
    return;
  }
  bool legend = same(c1, "LEGEND"), messages = same(c1, "MESSAG"), user = same(c1, "USER"), all = same(c1, "ALL");
  if (!legend && !messages && !user && !all) {
    mv_warn("shield", "unknown kind %s (LEGEND, MESSAG, USER or ALL)", TSTR(c1));
    return;
  }
  if (del) {  // the regions of that kind go
    auto gone = [&](const ShieldRegion &r) { return all || (r.automatic ? !user : user); };
    c.shields.erase(std::remove_if(c.shields.begin(), c.shields.end(), gone), c.shields.end());
    return;
  }
  if (legend || all) c.shield_legend = on;
  if (messages || all) c.shield_messages = on;
  if (user || all) c.shield_user = on;
}

void shlrec(int nx, int ny, int nw, int nh) {
  mv_tracef("shlrec(%d, %d, %d, %d)", nx, ny, nw, nh);
  add_rect("shlrec", nx, ny, nw, nh, 0);
}

void shlrct(int nx, int ny, int nw, int nh, float angle) {
  mv_tracef("shlrct(%d, %d, %d, %d, %g)", nx, ny, nw, nh, (double)angle);
  add_rect("shlrct", nx, ny, nw, nh, angle);
}

void shlcir(int nx, int ny, int nr) {
  mv_tracef("shlcir(%d, %d, %d)", nx, ny, nr);
  if (sizes_ok("shlcir", nr, nr)) add_shield(ellipse_polygon({double(nx), page_y(ny)}, nr, nr, 0), false);
}

void shlell(int nx, int ny, int na, int nb, float angle) {
  mv_tracef("shlell(%d, %d, %d, %d, %g)", nx, ny, na, nb, (double)angle);
  if (sizes_ok("shlell", na, nb) && std::isfinite(angle))
    add_shield(ellipse_polygon({double(nx), page_y(ny)}, na, nb, angle), false);
}

void shlpie(int nx, int ny, int nr, float a1, float a2) {
  mv_tracef("shlpie(%d, %d, %d, %g, %g)", nx, ny, nr, (double)a1, (double)a2);
  if (!sizes_ok("shlpie", nr, nr)) return;
  if (!std::isfinite(a1) || !std::isfinite(a2) || a2 <= a1) {
    mv_warn("shlpie", "the end angle %g must follow the start angle %g", (double)a2, (double)a1);
    return;
  }
  add_shield(slice_polygon({double(nx), page_y(ny)}, nr, a1, a2), false);
}

void shlpol(const int *nxray, const int *nyray, int n) {
  mv_tracef("shlpol(nxray=%s, nyray=%s, n=%d)", mv_tarr(n, "ints").c_str(), mv_tarr(n, "ints").c_str(), n);
  if (!nxray || !nyray || n < 3) {
    mv_warn("shlpol", "a polygon needs at least 3 corners (n = %d)", n);
    return;
  }
  std::vector<Pt> poly;
  for (int i = 0; i < n; ++i) poly.push_back({double(nxray[i]), page_y(nyray[i])});
  add_shield(poly, false);
}

void shldel(int id) {
  mv_tracef("shldel(%d)", id);
  std::vector<ShieldRegion> &all = mirval_state().chart.shields;
  each_region("shldel", id, [](ShieldRegion &r) { r.id = -1; });
  all.erase(std::remove_if(all.begin(), all.end(), [](const ShieldRegion &r) { return r.id < 0; }), all.end());
}

void shlvis(int id, const char *c) {
  mv_tracef("shlvis(%d, %s)", id, TSTR(c));
  bool on = same(c, "ON");
  if (!on && !same(c, "OFF")) {
    mv_warn("shlvis", "unknown mode %s (ON or OFF)", TSTR(c));
    return;
  }
  each_region("shlvis", id, [on](ShieldRegion &r) { r.visible = on; });
}

}
