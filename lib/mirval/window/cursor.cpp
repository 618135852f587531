// Cursor input: the user clicks, drags or types in the screen window, and the script gets
// plot coordinates (or user coordinates after CSRUNI('USER')).
#include "window/runtime.h"

#include "core/keywords.h"
#include "core/messages.h"
#include "core/trace.h"

#include <cmath>

#define TSTR(s) mv_tstr(s).c_str()
#define TARR(n, kind) mv_tarr(n, kind).c_str()

namespace {

const char *cursor_name(int typ) { return typ == 1 ? "crosshair" : typ == 2 ? "cell" : "default"; }

void set_cursor(ScreenWin &s, const char *name) {
  if (!s.area) return;
  GdkWindow *gw = gtk_widget_get_window(s.area);
  if (!gw) return;
  GdkCursor *c = gdk_cursor_new_from_name(gdk_window_get_display(gw), name);
  gdk_window_set_cursor(gw, c);
  if (c) g_object_unref(c);
}

// Asks the selected window for input of `kind`; false when there is none to ask.
bool ask(const char *routine, Ask::Kind kind, int nmax = 1) {
  ScreenWin *s = wv_screen(routine);
  if (!s) return false;
  WindowRuntime &r = wrt();
  if (r.ask.kind != Ask::Idle && !r.ask.done) {
    mv_warn(routine, "the window is already waiting for input");
    return false;
  }
  r.ask = Ask{};
  r.ask.kind = kind;
  r.ask.nmax = nmax;
  r.ask_screen = s->id;
  set_cursor(*s, cursor_name(mirval_state().window.csrtyp));
  wv_wait(r.ask.done);
  if (r.screens.count(r.ask_screen)) {
    ScreenWin &t = r.screens[r.ask_screen];
    set_cursor(t, mirval_state().window.setcsr == "CROSS" ? "crosshair" : "default");
    wv_redraw(t);
  }
  r.ask.kind = Ask::Idle;
  return r.screens.count(r.ask_screen) > 0;
}

void point(size_t k, int *nx, int *ny) {
  WindowRuntime &r = wrt();
  int x = 0, y = 0;
  if (k < r.ask.pts.size() && r.screens.count(r.ask_screen)) {
    double px, py;
    wv_to_plot(r.screens[r.ask_screen], r.ask.pts[k].first, r.ask.pts[k].second, px, py);
    wv_units(px, py, x, y);
  }
  if (nx) *nx = x;
  if (ny) *ny = y;
}

void points(const char *routine, Ask::Kind kind, int *nxray, int *nyray, int nmax, int *n, int *iret) {
  if (n) *n = 0;
  if (iret) *iret = 0;
  if (!nxray || !nyray || nmax < 1) return mv_warn(routine, "maximum count %d is less than 1", nmax);
  if (!ask(routine, kind, nmax)) {
    if (iret) *iret = -1;
    return;
  }
  const Ask &a = wrt().ask;
  int got = int(std::min<size_t>(a.pts.size(), size_t(nmax)));
  for (int k = 0; k < got; ++k) point(size_t(k), &nxray[k], &nyray[k]);
  if (n) *n = got;
  if (iret) *iret = a.full ? 1 : 0;
}

}  // namespace

extern "C" {

void csrpt1(int *nx, int *ny) {
  mv_tracef("csrpt1(nx=out, ny=out)");
  if (nx) *nx = 0;
  if (ny) *ny = 0;
  if (ask("csrpt1", Ask::Point, 2)) point(0, nx, ny);
}

int csrpos(int *nx, int *ny) {
  mv_tracef("csrpos(nx=%d, ny=%d)", nx ? *nx : 0, ny ? *ny : 0);
  ScreenWin *s = wv_screen("csrpos");
  if (!s) return 0;
  // the pointer starts where the script says
  if (nx && ny && s->area && gtk_widget_get_window(s->area)) {
    int w, h;
    wv_area_size(*s, w, h);
    View v = wv_view(*s, w, h);
    int px = int(*nx * v.scale + v.dx), py = int(*ny * v.scale + v.dy);
    if (px >= 0 && py >= 0 && px < w && py < h) {
      GdkWindow *gw = gtk_widget_get_window(s->area);
      int ox, oy;
      gdk_window_get_origin(gw, &ox, &oy);
      GdkSeat *seat = gdk_display_get_default_seat(gdk_window_get_display(gw));
      if (GdkDevice *p = seat ? gdk_seat_get_pointer(seat) : nullptr)
        gdk_device_warp(p, gdk_window_get_screen(gw), ox + px, oy + py);
    }
  }
  if (!ask("csrpos", Ask::Point, 1)) return 0;
  WindowRuntime &r = wrt();
  if (r.ask.pts.empty()) r.ask.pts.emplace_back(r.ask.x, r.ask.y);
  point(0, nx, ny);
  return r.ask.key < 0 ? -r.ask.key : r.ask.key;
}

int csrkey(void) {
  mv_tracef("csrkey()");
  if (!ask("csrkey", Ask::Key)) return 0;
  return wrt().ask.key;
}

void csrpts(int *nxray, int *nyray, int nmax, int *n, int *iret) {
  mv_tracef("csrpts(nxray=%s, nyray=%s, nmax=%d, n=out, iret=out)", TARR(nmax, "ints out"), TARR(nmax, "ints out"), nmax);
  points("csrpts", Ask::Points, nxray, nyray, nmax, n, iret);
}

void csrpol(int *nxray, int *nyray, int nmax, int *n, int *iret) {
  mv_tracef("csrpol(nxray=%s, nyray=%s, nmax=%d, n=out, iret=out)", TARR(nmax, "ints out"), TARR(nmax, "ints out"), nmax);
  WindowState &ws = mirval_state().window;
  int keep = ws.csrmod_line;
  ws.csrmod_line = 1;  // a polygon is always shown as one
  points("csrpol", Ask::Points, nxray, nyray, nmax, n, iret);
  ws.csrmod_line = keep;
}

void csrmov(int *nxray, int *nyray, int nmax, int *n, int *iret) {
  mv_tracef("csrmov(nxray=%s, nyray=%s, nmax=%d, n=out, iret=out)", TARR(nmax, "ints out"), TARR(nmax, "ints out"), nmax);
  points("csrmov", Ask::Move, nxray, nyray, nmax, n, iret);
}

void csrlin(int *nx1, int *ny1, int *nx2, int *ny2) {
  mv_tracef("csrlin(nx1=out, ny1=out, nx2=out, ny2=out)");
  bool ok = ask("csrlin", Ask::Line);
  point(ok ? 0 : ~size_t(0), nx1, ny1);
  point(ok ? 1 : ~size_t(0), nx2, ny2);
}

void csrrec(int *nx1, int *ny1, int *nx2, int *ny2) {
  mv_tracef("csrrec(nx1=out, ny1=out, nx2=out, ny2=out)");
  bool ok = ask("csrrec", Ask::Rect);
  int x1, y1, x2, y2;
  point(ok ? 0 : ~size_t(0), &x1, &y1);
  point(ok ? 1 : ~size_t(0), &x2, &y2);
  // the upper left corner first
  if (nx1) *nx1 = std::min(x1, x2);
  if (nx2) *nx2 = std::max(x1, x2);
  bool up = mirval_state().window.csr_user || mirval_state().page.bottom;
  if (ny1) *ny1 = up ? std::max(y1, y2) : std::min(y1, y2);
  if (ny2) *ny2 = up ? std::min(y1, y2) : std::max(y1, y2);
}

void csrmod(const char *cmod, const char *ckey) {
  mv_tracef("csrmod(%s, %s)", TSTR(cmod), TSTR(ckey));
  if (!same(ckey, "POINTS") && !same(ckey, "POLY")) return mv_warn("csrmod", "unknown option %s (POINTS or POLY)", TSTR(ckey));
  if (same(cmod, "LINE")) mirval_state().window.csrmod_line = 1;
  else if (same(cmod, "NOLINE") || same(cmod, "MARK")) mirval_state().window.csrmod_line = 0;
  else mv_warn("csrmod", "unknown mode %s (LINE or NOLINE)", TSTR(cmod));
}

void csrtyp(const char *c) {
  mv_tracef("csrtyp(%s)", TSTR(c));
  if (same(c, "ARROW")) mirval_state().window.csrtyp = 0;
  else if (same(c, "CROSS")) mirval_state().window.csrtyp = 1;
  else if (same(c, "HAIR")) mirval_state().window.csrtyp = 2;
  else mv_warn("csrtyp", "unknown cursor %s (ARROW, CROSS or HAIR)", TSTR(c));
}

void csruni(const char *c) {
  mv_tracef("csruni(%s)", TSTR(c));
  if (same(c, "PLOT")) mirval_state().window.csr_user = false;
  else if (same(c, "USER")) mirval_state().window.csr_user = true;
  else mv_warn("csruni", "unknown units %s (PLOT or USER)", TSTR(c));
}

void setcsr(const char *c) {
  mv_tracef("setcsr(%s)", TSTR(c));
  const char *name = same(c, "ARROW") ? "default" : same(c, "CROSS") ? "crosshair" : same(c, "WAIT") ? "wait" : nullptr;
  if (!name) return mv_warn("setcsr", "unknown cursor %s (ARROW, CROSS or WAIT)", TSTR(c));
  mirval_state().window.setcsr = upper(c);
  if (ScreenWin *s = wv_current()) {
    set_cursor(*s, name);
    wv_pump();
  }
}

}  // extern "C"

void window_reset_cursor(MirvalState &st) {
  WindowState fresh;
  st.window.csr_user = fresh.csr_user;
  st.window.csrtyp = fresh.csrtyp;
  st.window.csrmod_line = fresh.csrmod_line;
  st.window.setcsr = fresh.setcsr;
}
