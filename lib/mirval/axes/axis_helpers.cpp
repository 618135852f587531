// Coordinate helpers (POS2PT, PT2POS, X2DPOS, Y2DPOS), page helpers (PAGHDR, PAGMOD, ORIGIN)
// and getters of axis and colour bar settings.
#include "axes/axes.h"
#include "axes/scaling.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "core/trace.h"
#include "draw/draw.h"
#include "draw/text.h"
#include "mirval.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>

namespace {

AxisExtraState &extra() { return mirval_state().axextra; }

// Plot coordinates of a user point of the current axis system; false where it has none.
bool user_to_plot(double x, double y, double &px, double &py) {
  Pt p = page_point(x, y);
  px = p.x;
  py = page_y(p.y);
  return std::isfinite(px) && std::isfinite(py);
}

float clamp_float(double v) { return static_cast<float>(std::clamp(v, -3e38, 3e38)); }

}  // namespace

extern "C" {

void pos2pt(float x, float y, float *xp, float *yp) {
  mv_tracef("pos2pt(x=%g, y=%g, xp=out, yp=out)", (double)x, (double)y);
  double px = 0, py = 0;
  if (mv_level("pos2pt", 2, 2) && !user_to_plot(x, y, px, py)) {
    mv_warn("pos2pt", "the point (%g, %g) has no place on the axis system", (double)x, (double)y);
    px = py = 0;
  }
  put_out({{xp, clamp_float(px)}, {yp, clamp_float(py)}});
}

void pt2pos(float x, float y, float *xp, float *yp) {
  mv_tracef("pt2pos(x=%g, y=%g, xp=out, yp=out)", (double)x, (double)y);
  double ux = 0, uy = 0;
  if (mv_level("pt2pos", 2, 2)) {
    Pt u = user_point(x, page_y(y));
    ux = u.x;
    uy = u.y;
    if (!std::isfinite(ux) || !std::isfinite(uy)) {
      mv_warn("pt2pos", "the plot point (%g, %g) has no user coordinates", (double)x, (double)y);
      ux = uy = 0;
    }
  }
  put_out({{xp, clamp_float(ux)}, {yp, clamp_float(uy)}});
}

double x2dpos(float x, float y) {
  mv_tracef("x2dpos(%g, %g)", (double)x, (double)y);
  double px = 0, py = 0;
  if (!mv_level("x2dpos", 2, 2)) return 0;
  return user_to_plot(x, y, px, py) ? px : 0;
}

double y2dpos(float x, float y) {
  mv_tracef("y2dpos(%g, %g)", (double)x, (double)y);
  double px = 0, py = 0;
  if (!mv_level("y2dpos", 2, 2)) return 0;
  return user_to_plot(x, y, px, py) ? py : 0;
}

// A header line in a corner of the page: text c1, the program, date, time and page number,
// text c2. Corner n1: 1 upper left, 2 upper right, 3 lower right, 4 lower left; n2: 0 along
// the upper or lower edge, 1 along the left or right edge.
void paghdr(const char *c1, const char *c2, int n1, int n2) {
  mv_tracef("paghdr(%s, %s, %d, %d)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str(), n1, n2);
  if (!mv_level("paghdr", 1, 3)) return;
  if (!in_range("paghdr", "corner", n1, 0, 4) || !in_range("paghdr", "direction", n2, 0, 1)) return;
  MirvalState &st = mirval_state();
  AxisExtraState &x = st.axextra;
  x.header_corner = n1;
  x.header_before = trimmed(c1), x.header_after = trimmed(c2);
  if (n1 == 0) return;
  std::string prog = st.program;
  std::string text = x.header_before;
  auto add = [&](const std::string &t) {
    if (t.empty()) return;
    if (!text.empty()) text += "  ";
    text += t;
  };
  add(prog);
  add(std::string(dddate()) + " " + ddtime());
  add("page " + std::to_string(st.scene.pages.size()));
  add(x.header_after);
  double h = std::max(12, st.text.height * 2 / 3), m = h;
  double w = st.page.width, ht = st.page.height;
  bool right = n1 == 2 || n1 == 3, lower = n1 == 3 || n1 == 4;
  Pt at{right ? w - m : m, lower ? ht - m : m};
  if (n2 == 0) {
    put_text(text, "", at, h, 0, right ? Just::Right : Just::Left, lower ? VAlign::Base : VAlign::Top, pen_rgb());
  } else {
    // along the side, reading upwards, from the corner towards the middle
    double angle = 90;
    Just j = lower ? Just::Left : Just::Right;
    put_text(text, "", at, h, angle, j, right ? VAlign::Base : VAlign::Top, pen_rgb());
  }
  x.header_height = static_cast<int>(h);
}

// PAGMOD('LAND'|'PORT'|'NONE'): turns the page to landscape or portrait before MIRINI.
void pagmod(const char *c) {
  mv_tracef("pagmod(%s)", mv_tstr(c).c_str());
  if (!mv_level("pagmod", 0, 0)) return;
  int k = same(c, "NONE") ? 0 : same(c, "LAND") ? 1 : same(c, "PORT") ? 2 : -1;
  if (k < 0) {
    mv_warn("pagmod", "unknown page mode %s", mv_tstr(c).c_str());
    return;
  }
  PageState &p = mirval_state().page;
  if ((k == 1 && p.width < p.height) || (k == 2 && p.width > p.height)) std::swap(p.width, p.height);
  extra().page_mode = k;
}

// Shifts where axis systems and stand-alone axes are placed by (nx0, ny0) plot units.
void origin(int nx0, int ny0) {
  mv_tracef("origin(%d, %d)", nx0, ny0);
  if (!in_range("origin", "shift", nx0, -100000, 100000) || !in_range("origin", "shift", ny0, -100000, 100000)) return;
  extra().origin_x = nx0, extra().origin_y = ny0;
}

void getor(int *nx0, int *ny0) {
  mv_tracef("getor(nx0=out, ny0=out)");
  put_out({{nx0, extra().origin_x}, {ny0, extra().origin_y}});
}

// The axis parameters automatic scaling chooses for data from v1 to v2 on the axis named:
// 'EXTEND' rounds the ends outward to whole label steps, 'NOEXTEND' keeps them.
void gaxpar(float v1, float v2, const char *copt, const char *cax, float *a, float *b, float *orig, float *step,
            int *ndig) {
  mv_tracef("gaxpar(v1=%g, v2=%g, copt=%s, cax=%s, a=out, b=out, orig=out, step=out, ndig=out)", (double)v1, (double)v2,
            mv_tstr(copt).c_str(), mv_tstr(cax).c_str());
  float out[4] = {0, 0, 0, 0};
  int digits = 0;
  auto give = [&]() {
    if (a) *a = out[0];
    if (b) *b = out[1];
    if (orig) *orig = out[2];
    if (step) *step = out[3];
    if (ndig) *ndig = digits;
  };
  int bits = axis_bits(cax);
  int ext = same(copt, "EXTEND") ? 1 : same(copt, "NOEXTEND") ? 0 : -1;
  if (ext < 0) mv_warn("gaxpar", "unknown option %s", mv_tstr(copt).c_str());
  else if (bits != 1 && bits != 2 && bits != 4) mv_warn("gaxpar", "one of the axes X, Y or Z must be named, not %s", mv_tstr(cax).c_str());
  else if (!std::isfinite(v1) || !std::isfinite(v2) || std::fabs(v1) > 1e30 || std::fabs(v2) > 1e30)
    mv_warn("gaxpar", "values %g and %g must be finite", (double)v1, (double)v2);
  else {
    int i = bits == 4 ? 2 : bits - 1;
    const AxesState &ax = mirval_state().axes;
    bool log = ax.axis[i].log;
    if (log && !(std::max(v1, v2) > 0)) {
      mv_warn("gaxpar", "a log axis needs positive values");
      give();
      return;
    }
    double room = log ? 100 : i == 0 ? 180 : 120;
    int n = std::clamp(static_cast<int>(ax.len[i] / room), 1, log ? 12 : 8);
    AxisRange r = auto_range(v1, v2, log, n);
    double lo = std::min(v1, v2), hi = std::max(v1, v2);
    if (ext == 0 && !log) {
      r.a = lo, r.e = hi;
      r.org = std::ceil(lo / r.step - 1e-9) * r.step;
    }
    if (v1 > v2) std::swap(r.a, r.e);
    out[0] = static_cast<float>(r.a), out[1] = static_cast<float>(r.e);
    out[2] = static_cast<float>(r.org), out[3] = static_cast<float>(v1 > v2 && !log ? -r.step : r.step);
    digits = log ? 0 : needed_digits({r.org, r.step});
  }
  give();
}

// 1 when the next axis system is drawn without axes (NOGRAF), else 0.
int getblk(void) {
  mv_tracef("getblk()");
  return extra().nograf ? 1 : 0;
}

// The direction of plot y: 0 downwards from the upper edge, 1 upwards from the lower edge.
int getdfl(void) {
  mv_tracef("getdfl()");
  return mirval_state().page.bottom ? 1 : 0;
}

void getran(int *nca, int *nce) {
  mv_tracef("getran(nca=out, nce=out)");
  put_out({{nca, mirval_state().grid.colour_lo}, {nce, mirval_state().grid.colour_hi}});
}

// Scaling modes: 1 where SETSCL lets the data choose the axis range, else 0.
void getscm(int *ixscm, int *iyscm, int *izscm) {
  mv_tracef("getscm(ixscm=out, iyscm=out, izscm=out)");
  const auto &a = mirval_state().axes.axis;
  put_out({{ixscm, a[0].autoscale}, {iyscm, a[1].autoscale}, {izscm, a[2].autoscale}});
}

// The library's version as major.minor.
double getver(void) {
  mv_tracef("getver()");
  return 11.6;
}

void getvk(int *nytit, int *nxbar, int *nybar) {
  mv_tracef("getvk(nytit=out, nxbar=out, nybar=out)");
  const MirvalState &st = mirval_state();
  put_out({{nytit, st.axes.vkytit}, {nxbar, st.grid.bar_gap}, {nybar, st.grid.bar_shift}});
}

}  // extern "C"
