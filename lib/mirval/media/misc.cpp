// The remaining routines of media/: timing, releasing memory, contour colours, the library's
// environment and its emblem.
#include "core/messages.h"
#include "core/state.h"
#include "core/trace.h"
#include "draw/draw.h"
#include "draw/text.h"
#include "mirval.h"

#include <cctype>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>

namespace {

void report_time() {
  const MediaState &m = mirval_state().media;
  if (!m.timing) return;
  double used = double(std::clock()) / CLOCKS_PER_SEC - m.timing_start;
  mv_note("processor time used: %.3f s", used);
}

}  // namespace

extern "C" {

// TIMOPT: the processor time used from here to the end of the program is reported on the
// message line when the program ends.
void timopt(void) {
  mv_tracef("timopt()");
  MediaState &m = mirval_state().media;
  if (!m.timing) std::atexit(report_time);
  m.timing = true;
  m.timing_start = double(std::clock()) / CLOCKS_PER_SEC;
}

// DELGLB: drops what the library keeps only to be faster (the rendered page, closed pixel
// layers); settings and the picture stay.
void delglb(void) {
  mv_tracef("delglb()");
  MediaState &m = mirval_state().media;
  m.rendered.reset();
  m.rendered_changes = ~0ul;
  if (!m.draft.open) m.pixels.reset();
}

// FREEPTR: releases memory the library handed out; texts returned by the library's functions
// live in the library and need no release, so this only drops the caches like DELGLB.
void freeptr(void) {
  mv_tracef("freeptr()");
  MediaState &m = mirval_state().media;
  m.rendered.reset();
  m.rendered_changes = ~0ul;
}

void conclr(const int *nray, int n) {
  mv_tracef("conclr(nray=%s, n=%d)", mv_tarr(n, "ints").c_str(), n);
  if (!nray || n < 1) {
    mv_warn("conclr", "n %d is below 1", n);
    return;
  }
  if (n > 10000) {
    mv_warn("conclr", "n %d is more than 10000 colours", n);
    return;
  }
  std::vector<int> c(nray, nray + n);
  for (int k = 0; k < n; ++k)
    if (c[k] < 0 || c[k] > 255) {
      mv_warn("conclr", "nray[%d] = %d lies outside 0..255", k, c[k]);
      return;
    }
  mirval_state().media.contour_colours = c;
}

// MIRENV('NAME=value'): sets a variable of the library's environment, such as
// MIRVAL_HERSHEY_DIR (the stroke fonts) or MIRVAL_TRACE.
void mirenv(const char *c) {
  mv_tracef("mirenv(%s)", mv_tstr(c).c_str());
  const char *eq = c ? std::strchr(c, '=') : nullptr;
  if (!eq || eq == c) {
    mv_warn("mirenv", "expected NAME=value, not %s", mv_tstr(c).c_str());
    return;
  }
  std::string name(c, eq - c);
  for (char ch : name)
    if (!(std::isalnum(static_cast<unsigned char>(ch)) || ch == '_')) {
      mv_warn("mirenv", "%s is no variable name", name.c_str());
      return;
    }
  setenv(name.c_str(), eq + 1, 1);
}

// The library's emblem: a rounded tile holding a rising bar chart under a curve, with the
// name below when the option is 'TEXT'. (nx, ny) is the upper left corner, n the tile's size.
void mpslogo(int n1, int n2, int n3, const char *c) {
  mv_tracef("mpslogo(%d, %d, %d, %s)", n1, n2, n3, mv_tstr(c).c_str());
  if (!mv_level("mpslogo", 1, 3)) return;
  if (!in_range("mpslogo", "size", n3, 10, 20000)) return;
  bool text = c && (std::strcmp(c, "TEXT") == 0 || std::strcmp(c, "text") == 0);
  bool grey = c && (std::strcmp(c, "GREY") == 0 || std::strcmp(c, "grey") == 0);
  if (c && *c && !text && !grey && std::strcmp(c, "COLOR") != 0 && std::strcmp(c, "color") != 0) {
    mv_warn("mpslogo", "unknown option %s (COLOR, GREY or TEXT)", c);
    return;
  }
  double x = n1, y = page_y(n2), s = n3;
  if (mirval_state().page.bottom) y -= s;
  auto P = [&](double u, double v) { return Pt{x + u * s, y + v * s}; };
  Rgb tile = grey ? Rgb{0.25f, 0.25f, 0.25f} : Rgb{0.11f, 0.23f, 0.42f};
  Rgb bars[3] = {{0.38f, 0.70f, 0.86f}, {0.98f, 0.74f, 0.22f}, {0.90f, 0.36f, 0.29f}};
  if (grey) bars[0] = {0.6f, 0.6f, 0.6f}, bars[1] = {0.8f, 0.8f, 0.8f}, bars[2] = {0.7f, 0.7f, 0.7f};
  // tile with rounded corners
  Path t;
  double r = 0.16;
  t.move(P(r, 0));
  t.line(P(1 - r, 0));
  arc_path(t, P(1 - r, r), r * s, r * s, 90, 0, 0, false);
  t.line(P(1, 1 - r));
  arc_path(t, P(1 - r, 1 - r), r * s, r * s, 0, -90, 0, false);
  t.line(P(r, 1));
  arc_path(t, P(r, 1 - r), r * s, r * s, -90, -180, 0, false);
  t.line(P(0, r));
  arc_path(t, P(r, r), r * s, r * s, 180, 90, 0, false);
  t.close();
  fill_path(t, tile);
  // three bars rising to the right
  const double hb[3] = {0.28, 0.44, 0.62};
  for (int k = 0; k < 3; ++k) {
    double u0 = 0.17 + k * 0.24, u1 = u0 + 0.17;
    fill_path(rect_path(P(u0, 0).x, P(0, 0.84 - hb[k]).y, P(u1, 0).x, P(0, 0.84).y), bars[k]);
  }
  // a curve sweeping over them
  Path w;
  w.move(P(0.12, 0.62));
  w.curve(P(0.35, 0.60), P(0.55, 0.12), P(0.88, 0.16));
  stroke_path(w, Rgb{1, 1, 1}, std::max(1.0, 0.045 * s), {});
  if (text) {
    double h = 0.22 * s;
    put_text("mirval", "", P(0.5, 1.12), h, 0, Just::Center, VAlign::Top, tile);
  }
}

}
