// ScreenWin windows: GTK started on first need, the windows that show the retained page, their
// keys (PNG, PDF, zoom), MIRFIN's wait, several windows and double buffering.
#include "window/runtime.h"
#include "window/screen.h"

#include "core/keywords.h"
#include "core/messages.h"
#include "core/trace.h"
#include "output/device.h"

#include <cairo-pdf.h>
#include <gdk/gdkx.h>

#include <dlfcn.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <map>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

#define TSTR(s) mv_tstr(s).c_str()

namespace {

const char *key_help = "P: PNG  D: PDF  drag: zoom  U: unzoom  other key or click: continue";

// Which screen window draws into which GTK drawing area.
ScreenWin *screen_of_area(GtkWidget *area) {
  for (auto &kv : wrt().screens)
    if (kv.second.area == area) return &kv.second;
  return nullptr;
}

// Screen window `id`, or null once it is gone.
ScreenWin *screen(int id) {
  auto it = wrt().screens.find(id);
  return it == wrt().screens.end() ? nullptr : &it->second;
}

// Whether window `id` waits for input; `pointer`: for input the pointer gives (a wait for any
// key or click takes the click at the release).
bool asking(int id, bool pointer) {
  const Ask &a = wrt().ask;
  return a.kind != Ask::Idle && !(pointer && a.kind == Ask::Any) && !a.done && wrt().ask_screen == id;
}

// What an input event finds: the window it came to (null once it is gone) and whether that
// window waits for the input.
struct Event {
  int id;
  ScreenWin *s;
  bool asked;
};

Event event_of(gpointer data, bool pointer) {
  int id = GPOINTER_TO_INT(data);
  return {id, screen(id), asking(id, pointer)};
}

int free_name(std::string &name, const char *ext) {
  for (int k = 1; k < 10000; ++k) {
    name = "mirval_window_" + std::to_string(k) + "." + ext;
    if (access(name.c_str(), F_OK) != 0) return k;
  }
  return 0;
}

cairo_status_t append(void *closure, const unsigned char *data, unsigned int n) {
  static_cast<std::string *>(closure)->append(reinterpret_cast<const char *>(data), n);
  return CAIRO_STATUS_SUCCESS;
}

bool save_bytes(const std::string &name, const std::string &bytes) {
  FILE *fp = std::fopen(name.c_str(), "wb");
  if (!fp) return false;
  bool ok = std::fwrite(bytes.data(), 1, bytes.size(), fp) == bytes.size();
  return std::fclose(fp) == 0 && ok;
}

// The part of the page a window shows: all of it, or the zoomed rectangle.
void shown_part(const ScreenWin &s, double &x0, double &y0, double &x1, double &y1) {
  x0 = s.zoomed ? s.zx0 : 0;
  y0 = s.zoomed ? s.zy0 : 0;
  x1 = s.zoomed ? s.zx1 : s.pw;
  y1 = s.zoomed ? s.zy1 : s.ph;
}

// REVSCR: the picture in reverse colours.
void reverse(cairo_t *cr) {
  cairo_set_operator(cr, CAIRO_OPERATOR_DIFFERENCE);
  cairo_set_source_rgb(cr, 1, 1, 1);
  cairo_paint(cr);
}

// Writes the picture shown, zoom included: PNG at the window's size, PDF at the page's scale.
void write_shown(ScreenWin &s, bool pdf) {
  int w, h;
  wv_area_size(s, w, h);
  std::string name, bytes;
  free_name(name, pdf ? "pdf" : "png");
  double x0, y0, x1, y1;
  shown_part(s, x0, y0, x1, y1);
  cairo_surface_t *surf;
  View v;
  if (pdf) {
    double k = 72.0 / 254.0;  // points per plot unit (0.1 mm)
    w = int(std::lround((x1 - x0) * k));
    h = int(std::lround((y1 - y0) * k));
    surf = cairo_pdf_surface_create_for_stream(append, &bytes, w, h);
    v.scale = k;
    v.dx = -x0 * k;
    v.dy = -y0 * k;
    v.background = s.back;
  } else {
    surf = cairo_image_surface_create(CAIRO_FORMAT_RGB24, w, h);
    v = wv_view(s, w, h);
  }
  cairo_t *cr = cairo_create(surf);
  render_page(cr, s.page, v);
  if (s.reverse) reverse(cr);
  cairo_destroy(cr);
  if (pdf) cairo_surface_finish(surf);
  else cairo_surface_write_to_png_stream(surf, append, &bytes);
  cairo_surface_destroy(surf);
  if (!save_bytes(name, bytes)) {
    mv_error("window", "cannot write %s", name.c_str());
    return;
  }
  mv_note("wrote %s (%s, %d x %d)", name.c_str(), pdf ? "PDF" : "PNG", w, h);
}

gboolean on_draw(GtkWidget *area, cairo_t *cr, gpointer) {
  ScreenWin *s = screen_of_area(area);
  int w = gtk_widget_get_allocated_width(area), h = gtk_widget_get_allocated_height(area);
  if (!s || !s->has_page) {
    cairo_set_source_rgb(cr, 1, 1, 1);
    cairo_paint(cr);
    return TRUE;
  }
  render_page(cr, s->page, wv_view(*s, w, h));
  ++s->drawn;
  // what the user is marking: the points asked for, a zoom or cursor rectangle
  WindowRuntime &r = wrt();
  cairo_set_source_rgb(cr, 1, 0, 0);
  cairo_set_line_width(cr, 1);
  if (r.ask_screen == s->id && !r.ask.done && !r.ask.pts.empty()) {
    const auto &p = r.ask.pts;
    bool lines = r.ask.kind == Ask::Move || r.ask.kind == Ask::Line ||
                 (r.ask.kind == Ask::Points && mirval_state().window.csrmod_line);
    for (size_t i = 0; i < p.size(); ++i) {
      if (lines) {
        if (i == 0) cairo_move_to(cr, p[i].first + 0.5, p[i].second + 0.5);
        else cairo_line_to(cr, p[i].first + 0.5, p[i].second + 0.5);
      } else {
        cairo_rectangle(cr, p[i].first - 2, p[i].second - 2, 5, 5);
      }
    }
    if (r.ask.kind == Ask::Rect && p.size() == 2) {
      cairo_new_path(cr);
      double x0 = std::min(p[0].first, p[1].first), y0 = std::min(p[0].second, p[1].second);
      cairo_rectangle(cr, x0 + 0.5, y0 + 0.5, std::fabs(p[1].first - p[0].first),
                      std::fabs(p[1].second - p[0].second));
    }
    cairo_stroke(cr);
  }
  if (s->dragging) {
    double x0 = std::min(s->ax, s->bx), y0 = std::min(s->ay, s->by);
    cairo_rectangle(cr, x0 + 0.5, y0 + 0.5, std::fabs(s->bx - s->ax), std::fabs(s->by - s->ay));
    cairo_stroke(cr);
  }
  if (s->reverse) reverse(cr);
  return TRUE;
}

bool key_ends_wait(int code) {
  int want = mirval_state().window.winkey;
  return want == 0 || want == code || (want < 128 && code < 128 && std::toupper(want) == std::toupper(code));
}

gboolean on_key(GtkWidget *w, GdkEventKey *ev, gpointer data) {
  auto [id, s, asked] = event_of(data, false);
  if (!s || s->widget > 0) return FALSE;  // drawing areas of a panel: their own key callbacks
  WindowRuntime &r = wrt();
  int code = wv_key_code(ev->keyval);
  if (asked && (r.ask.kind == Ask::Key || (r.ask.kind == Ask::Point && r.ask.nmax == 1))) {
    r.ask.key = code;
    r.ask.done = true;
    return TRUE;
  }
  if (asked && (r.ask.kind == Ask::Points || r.ask.kind == Ask::Move)) {
    if (code == 13 || code == 27) r.ask.done = true;
    return TRUE;
  }
  if (code == 'p' || code == 'P') {
    write_shown(*s, false);
  } else if (code == 'd' || code == 'D') {
    write_shown(*s, true);
  } else if (code == 'u' || code == 'U') {
    s->zoomed = false;
    gtk_widget_queue_draw(s->area);
  } else if (asked && r.ask.kind == Ask::Any && key_ends_wait(code)) {
    r.ask.key = code;
    r.ask.done = true;
  }
  (void)w;
  return TRUE;
}

gboolean on_press(GtkWidget *, GdkEventButton *ev, gpointer data) {
  auto [id, s, asked] = event_of(data, true);
  if (!s || ev->type != GDK_BUTTON_PRESS) return FALSE;
  WindowRuntime &r = wrt();
  if (asked) {
    Ask &a = r.ask;
    a.x = ev->x;
    a.y = ev->y;
    if (a.kind == Ask::Points) {
      if (ev->button != 1) {
        a.done = true;
      } else if (int(a.pts.size()) < a.nmax) {
        a.pts.emplace_back(ev->x, ev->y);
        if (int(a.pts.size()) == a.nmax) a.full = a.done = true;
      }
    } else if (a.kind == Ask::Move || a.kind == Ask::Line || a.kind == Ask::Rect) {
      a.pts.assign(1, {ev->x, ev->y});
      if (a.kind != Ask::Move) a.pts.emplace_back(ev->x, ev->y);
    } else if (a.kind == Ask::Point) {
      a.key = -int(ev->button);
      a.pts.assign(1, {ev->x, ev->y});
      a.done = true;
    }
    gtk_widget_queue_draw(s->area);
    return TRUE;
  }
  if (s->widget > 0) return FALSE;
  s->dragging = ev->button == 1;
  s->ax = s->bx = ev->x;
  s->ay = s->by = ev->y;
  return TRUE;
}

gboolean on_motion(GtkWidget *, GdkEventMotion *ev, gpointer data) {
  auto [id, s, asked] = event_of(data, true);
  if (!s) return FALSE;
  WindowRuntime &r = wrt();
  bool down = ev->state & GDK_BUTTON1_MASK;
  if (asked) r.ask.x = ev->x, r.ask.y = ev->y;
  if (asked && down && !r.ask.pts.empty()) {
    Ask &a = r.ask;
    if (a.kind == Ask::Move) {
      if (int(a.pts.size()) < a.nmax) a.pts.emplace_back(ev->x, ev->y);
      else a.full = a.done = true;
    } else if (a.kind == Ask::Line || a.kind == Ask::Rect) {
      a.pts.back() = {ev->x, ev->y};
    }
    gtk_widget_queue_draw(s->area);
  } else if (s->dragging) {
    s->bx = ev->x;
    s->by = ev->y;
    gtk_widget_queue_draw(s->area);
  }
  return TRUE;
}

gboolean on_release(GtkWidget *, GdkEventButton *ev, gpointer data) {
  auto [id, s, asked] = event_of(data, true);
  if (!s) return FALSE;
  WindowRuntime &r = wrt();
  if (asked) {
    Ask &a = r.ask;
    if ((a.kind == Ask::Move || a.kind == Ask::Line || a.kind == Ask::Rect) && !a.pts.empty()) {
      if (a.kind != Ask::Move) a.pts.back() = {ev->x, ev->y};
      a.done = true;
    }
    gtk_widget_queue_draw(s->area);
    return TRUE;
  }
  if (!s->dragging) return FALSE;
  s->dragging = false;
  s->bx = ev->x;
  s->by = ev->y;
  if (std::fabs(s->bx - s->ax) > 5 && std::fabs(s->by - s->ay) > 5) {
    double x0, y0, x1, y1;
    wv_to_plot(*s, std::min(s->ax, s->bx), std::min(s->ay, s->by), x0, y0);
    wv_to_plot(*s, std::max(s->ax, s->bx), std::max(s->ay, s->by), x1, y1);
    s->zoomed = true;
    s->zx0 = x0, s->zy0 = y0, s->zx1 = x1, s->zy1 = y1;
  } else if (r.ask.kind == Ask::Any && asking(id, false)) {
    r.ask.key = -int(ev->button);
    r.ask.done = true;
  }
  gtk_widget_queue_draw(s->area);
  return TRUE;
}

void forget_screen(int id) {
  WindowRuntime &r = wrt();
  r.screens.erase(id);
  if (r.ask_screen == id) r.ask.done = true;
  if (r.cur == id) r.cur = 0;
}

gboolean on_delete(GtkWidget *win, GdkEvent *, gpointer data) {
  int id = GPOINTER_TO_INT(data);
  forget_screen(id);
  gtk_widget_destroy(win);
  return TRUE;
}

gboolean on_configure(GtkWidget *win, GdkEventConfigure *ev, gpointer data) {
  WindowRuntime &r = wrt();
  int id = GPOINTER_TO_INT(data);
  static std::map<int, std::array<int, 4>> last;
  std::array<int, 4> now{ev->x, ev->y, ev->width, ev->height};
  auto &l = last[id];
  bool resized = l[2] != now[2] || l[3] != now[3];
  if (l == now) return FALSE;
  l = now;
  if (r.wincb && (r.wincb_mode == 0 || resized)) r.wincb(id, ev->x, ev->y, ev->width, ev->height);
  (void)win;
  return FALSE;
}

std::string window_title(int id) {
  const WindowState &ws = mirval_state().window;
  if (!ws.title.empty()) return ws.title;
  std::string t = "mirval";
  if (id > 1) t += " " + std::to_string(id);
  return t + " \u2014 " + key_help;
}

// The size and background of the page the window shows.
void take_page(ScreenWin &s) {
  const PageState &pg = mirval_state().page;
  s.pw = pg.width;
  s.ph = pg.height;
  s.back = back_rgb();
}

// Whether numbered window `n` is open (drawing areas of a panel are not); a warning when not.
bool numbered(const char *routine, int n) {
  ScreenWin *s = screen(n);
  if (s && s->widget == 0) return true;
  mv_warn(routine, "window %d is not open", n);
  return false;
}

// Opens screen window `id`; false when there is no display.
bool open_screen(int id) {
  WindowRuntime &r = wrt();
  if (!wv_gtk()) return false;
  const WindowState &ws = mirval_state().window;
  ScreenWin &s = r.screens[id];
  s.id = id;
  take_page(s);
  if (r.draw_target > 0) {
    Widget *w = wv_widget(r.draw_target);
    if (w && w->kind == WKind::Draw && w->main) {
      s.widget = w->id;
      s.area = w->main;
      return true;
    }
  }
  int w, h;
  raster_size(w, h);
  if (ws.pagw > 0) w = ws.pagw, h = ws.pagh;
  if (ws.ww > 0) w = ws.ww, h = ws.wh;
  s.win = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  gtk_window_set_title(GTK_WINDOW(s.win), window_title(id).c_str());
  gtk_window_set_default_size(GTK_WINDOW(s.win), w, h);
  if (ws.wx >= 0) {
    int off = ws.winopt_stack * (id - 1);
    gtk_window_move(GTK_WINDOW(s.win), ws.wx + off, ws.wy + off);
  }
  if (!ws.icon.empty()) gtk_window_set_icon_from_file(GTK_WINDOW(s.win), ws.icon.c_str(), nullptr);
  s.area = gtk_drawing_area_new();
  gtk_widget_set_size_request(s.area, 16, 16);
  gtk_container_add(GTK_CONTAINER(s.win), s.area);
  wv_connect_area(s.area, id);
  g_signal_connect(s.win, "key-press-event", G_CALLBACK(on_key), GINT_TO_POINTER(id));
  g_signal_connect(s.win, "delete-event", G_CALLBACK(on_delete), GINT_TO_POINTER(id));
  g_signal_connect(s.win, "configure-event", G_CALLBACK(on_configure), GINT_TO_POINTER(id));
  if (ws.full) gtk_window_fullscreen(GTK_WINDOW(s.win));
  gtk_widget_show_all(s.win);
  return true;
}

void close_screen(int id) {
  WindowRuntime &r = wrt();
  auto it = r.screens.find(id);
  if (it == r.screens.end()) return;
  GtkWidget *win = it->second.win;
  forget_screen(id);
  if (win) gtk_widget_destroy(win);
  wv_pump();
}

// The page being drawn goes to the selected window.
void show_current() {
  ScreenWin *s = wv_current();
  MirvalState &st = mirval_state();
  if (!s || st.scene.pages.empty()) return;
  s->page = st.scene.pages.back();
  s->has_page = true;
  ++s->frame;
  // waits for the frame to be painted, so that what the window shows is the picture handed
  // over; a hidden window never paints, hence the time limit
  if (s->area && gtk_widget_get_mapped(s->area)) {
    int id = s->id, before = s->drawn;
    gtk_widget_queue_draw(s->area);
    gint64 end = g_get_monotonic_time() + 200000;
    for (ScreenWin *t = s; t && t->drawn == before && g_get_monotonic_time() < end; t = screen(id))
      if (!g_main_context_iteration(nullptr, FALSE)) g_usleep(500);
  }
  wv_pump();
}

bool wait_any(int id) {
  WindowRuntime &r = wrt();
  if (r.send_mb) {
    r.send_mb = false;
    return true;
  }
  if (!r.screens.count(id) || r.screens[id].widget > 0) return false;
  r.ask = Ask{};
  r.ask.kind = Ask::Any;
  r.ask_screen = id;
  wv_wait(r.ask.done);
  r.ask.kind = Ask::Idle;
  return true;
}

int showing = 0;  // the screen the open page goes to; 0: a file

// NXPIXL, NYPIXL: a plot coordinate in pixels of the selected window, or of the picture's
// raster size while no window shows it.
int to_pixel(int c, bool vertical) {
  int w, h;
  ScreenWin *s = wv_current();
  if (s && s->area) {
    wv_area_size(*s, w, h);
    View v = wv_view(*s, w, h);
    return int(std::floor(c * v.scale + (vertical ? v.dy : v.dx)));
  }
  raster_size(w, h);
  const PageState &pg = mirval_state().page;
  double k = std::min(double(w) / pg.width, double(h) / pg.height);
  return int(std::floor(c * k + (vertical ? (h - pg.height * k) / 2 : (w - pg.width * k) / 2)));
}

// At the end of the program: the windows go, and Pango lets go of its Cairo fonts, so that
// the library's own clean-up of Cairo's font caches finds them unused.
void release_gtk() {
  if (screen_active()) screen_at_exit();
  // held while they go: a window takes its pop-up menus with it, further down the list
  GList *tops = gtk_window_list_toplevels();
  for (GList *l = tops; l; l = l->next) g_object_ref(l->data);
  for (GList *l = tops; l; l = l->next) gtk_widget_destroy(GTK_WIDGET(l->data));
  g_list_free_full(tops, g_object_unref);
  while (g_main_context_iteration(nullptr, FALSE)) {
  }
  pango_cairo_font_map_set_default(nullptr);
}

}  // namespace

// ---- GTK and the display ----

WindowRuntime &wrt() {
  auto &p = mirval_state().window.rt;
  if (!p) p = std::make_shared<WindowRuntime>();
  return *p;
}

bool wv_display() {
  if (wrt().gtk_ok) return true;
  const char *d = std::getenv("DISPLAY");
  if (!d || !*d) return false;
  // Asks the X library directly: starting GTK only to learn this would cost every run.
  static void *lib = dlopen("libX11.so.6", RTLD_LAZY | RTLD_LOCAL);
  if (!lib) return false;
  using OpenFn = void *(*)(const char *);
  using CloseFn = int (*)(void *);
  auto open = reinterpret_cast<OpenFn>(dlsym(lib, "XOpenDisplay"));
  auto close = reinterpret_cast<CloseFn>(dlsym(lib, "XCloseDisplay"));
  if (!open || !close) return false;
  // a busy server now and then refuses one connection: a refusal is believed the third time
  for (int attempt = 0; attempt < 3; ++attempt) {
    if (void *dpy = open(d)) {
      close(dpy);
      return true;
    }
    g_usleep(20000);
  }
  return false;
}

bool wv_gtk() {
  WindowRuntime &r = wrt();
  if (r.gtk_tried) return r.gtk_ok;
  r.gtk_tried = true;
  if (!wv_display()) return false;
  setenv("NO_AT_BRIDGE", "1", 0);  // no accessibility bus: nothing to wait for at start
  for (int attempt = 0; attempt < 3 && !r.gtk_ok; ++attempt) {
    r.gtk_ok = gtk_init_check(nullptr, nullptr);
    if (!r.gtk_ok) g_usleep(20000);
  }
  if (r.gtk_ok) std::atexit(release_gtk);
  return r.gtk_ok;
}

void wv_pump() {
  if (!wrt().gtk_ok) return;
  while (gtk_events_pending()) gtk_main_iteration_do(FALSE);
}

void wv_wait(const bool &done) {
  if (!wrt().gtk_ok) return;
  std::fflush(stdout);  // what the script printed is seen while it waits for the user
  while (!done) g_main_context_iteration(nullptr, TRUE);
}

ScreenWin *wv_current() { return screen(wrt().cur); }

ScreenWin *wv_screen(const char *routine) {
  ScreenWin *s = wv_current();
  if (!s) {
    mv_warn(routine, "no screen window is open (METAFL('XWIN') and MIRINI need a display)");
    return nullptr;
  }
  return s;
}

View wv_view(const ScreenWin &s, int w, int h) {
  double x0, y0, x1, y1;
  shown_part(s, x0, y0, x1, y1);
  double zw = std::max(1e-9, x1 - x0), zh = std::max(1e-9, y1 - y0);
  View v;
  v.scale = std::min(w / zw, h / zh);
  bool left = mirval_state().window.just == 1 && !s.zoomed;
  v.dx = (left ? 0 : (w - zw * v.scale) / 2) - x0 * v.scale;
  v.dy = (left ? 0 : (h - zh * v.scale) / 2) - y0 * v.scale;
  v.min_width = 1;
  v.background = s.back;
  v.raster = true;
  return v;
}

void wv_area_size(const ScreenWin &s, int &w, int &h) {
  w = s.area ? std::max(1, gtk_widget_get_allocated_width(s.area)) : 1;
  h = s.area ? std::max(1, gtk_widget_get_allocated_height(s.area)) : 1;
}

void wv_to_plot(const ScreenWin &s, double px, double py, double &x, double &y) {
  int w, h;
  wv_area_size(s, w, h);
  View v = wv_view(s, w, h);
  x = (px - v.dx) / v.scale;
  y = (py - v.dy) / v.scale;
}

void wv_units(double x, double y, int &ix, int &iy) {
  const MirvalState &st = mirval_state();
  ix = int(std::lround(x));
  iy = int(std::lround(y));
  if (st.window.csr_user && st.level >= 2) {
    ix = int(std::lround(xinvrs(ix)));
    iy = int(std::lround(yinvrs(iy)));
  } else if (st.page.bottom) {
    iy = st.page.height - iy;
  }
}

int wv_key_code(guint keyval) {
  if (keyval == GDK_KEY_Return || keyval == GDK_KEY_KP_Enter) return 13;
  if (keyval == GDK_KEY_Escape) return 27;
  if (keyval == GDK_KEY_BackSpace) return 8;
  if (keyval == GDK_KEY_Tab) return 9;
  guint32 u = gdk_keyval_to_unicode(keyval);
  return u ? int(u) : int(keyval);
}

void wv_redraw(ScreenWin &s) {
  if (s.area) gtk_widget_queue_draw(s.area);
}

void wv_connect_area(GtkWidget *area, int id) {
  gtk_widget_add_events(area, GDK_BUTTON_PRESS_MASK | GDK_BUTTON_RELEASE_MASK |
                                  GDK_POINTER_MOTION_MASK | GDK_KEY_PRESS_MASK);
  g_signal_connect(area, "draw", G_CALLBACK(on_draw), nullptr);
  g_signal_connect(area, "button-press-event", G_CALLBACK(on_press), GINT_TO_POINTER(id));
  g_signal_connect(area, "button-release-event", G_CALLBACK(on_release), GINT_TO_POINTER(id));
  g_signal_connect(area, "motion-notify-event", G_CALLBACK(on_motion), GINT_TO_POINTER(id));
}

// ---- the page's side ----

bool screen_begin() {
  WindowRuntime &r = wrt();
  showing = 0;
  if (r.draw_target > 0) {
    Widget *w = wv_widget(r.draw_target);
    if (!w || w->kind != WKind::Draw || !w->main || !wv_gtk()) return false;
    int id = 1000 + w->id;  // drawing areas of a panel sit beside the numbered windows
    for (auto &kv : r.screens)
      if (kv.second.widget == w->id) id = kv.first;
    r.screens.erase(id);
    if (!open_screen(id)) return false;
    r.cur = showing = id;
    return true;
  }
  if (!wv_display()) return false;
  int id = r.cur > 0 && r.cur < 1000 ? r.cur : 1;
  if (!r.screens.count(id) && !open_screen(id)) return false;
  ScreenWin &s = r.screens[id];
  take_page(s);
  s.zoomed = false;
  r.cur = showing = id;
  wv_pump();
  return true;
}

bool screen_active() { return showing > 0 && mirval_state().level > 0; }

void screen_update() {
  if (!screen_active()) return;
  if (wrt().dbf) return;  // DBFFIN shows the finished frame
  show_current();
}

void screen_finish() {
  WindowRuntime &r = wrt();
  show_current();
  int id = showing;
  showing = 0;
  ScreenWin *s = wv_current();
  if (!s || s->widget > 0) return;
  int mode = mirval_state().window.winmod;
  if (mode == 1) return;  // NONE: the window stays while the program goes on
  wait_any(id);
  if (mode == 0) {
    std::vector<int> ids;
    for (auto &kv : r.screens)
      if (kv.second.widget == 0) ids.push_back(kv.first);
    for (int k : ids) close_screen(k);
  }
}

void screen_at_exit() {
  static bool done = false;  // GTK's own end and the page's end both ask
  if (done) return;
  done = true;
  WindowRuntime &r = wrt();
  r.wincb = nullptr;  // the script has ended: nothing to call back
  show_current();
  int id = showing;
  if (mirval_state().window.winmod == 1) return;
  if (r.screens.count(id) && r.screens[id].widget == 0) {
    mv_note("the picture stays on the screen until a key or a click in its window");
    wait_any(id);
  }
}

// ---- routines ----

extern "C" {

int qqwchk(void) { return wv_display() ? 1 : 0; }

void winmod(const char *cmod) {
  mv_tracef("winmod(%s)", TSTR(cmod));
  WindowState &ws = mirval_state().window;
  if (same(cmod, "STANDARD") || same(cmod, "AUTO")) ws.winmod = 0;
  else if (same(cmod, "NONE")) ws.winmod = 1;
  else if (same(cmod, "FULL")) ws.winmod = 2;
  else mv_warn("winmod", "unknown mode %s (STANDARD, NONE or FULL)", TSTR(cmod));
}

void winkey(const char *c) {
  mv_tracef("winkey(%s)", TSTR(c));
  WindowState &ws = mirval_state().window;
  if (same(c, "ANY")) ws.winkey = 0;
  else if (same(c, "RETURN") || same(c, "ENTER")) ws.winkey = 13;
  else if (same(c, "ESCAPE")) ws.winkey = 27;
  else if (same(c, "SPACE")) ws.winkey = ' ';
  else if (c && std::strlen(c) == 1 && std::isgraph(static_cast<unsigned char>(c[0])) &&
           !std::strchr("pPdDuU", c[0]))
    ws.winkey = c[0];
  else mv_warn("winkey", "unknown key %s (ANY, RETURN, ESCAPE, SPACE or one character other than P, D, U)", TSTR(c));
}

void wintit(const char *c) {
  mv_tracef("wintit(%s)", TSTR(c));
  WindowState &ws = mirval_state().window;
  ws.title = c ? c : "";
  if (ScreenWin *s = wv_current())
    if (s->win) gtk_window_set_title(GTK_WINDOW(s->win), window_title(s->id).c_str());
}

void window(int nx, int ny, int nw, int nh) {
  mv_tracef("window(%d, %d, %d, %d)", nx, ny, nw, nh);
  if (nx < 0 || ny < 0 || nw < 1 || nh < 1 || nx > 30000 || ny > 30000 || nw > 8000 || nh > 8000) {
    mv_warn("window", "place %d, %d or size %d x %d out of range", nx, ny, nw, nh);
    return;
  }
  WindowState &ws = mirval_state().window;
  ws.wx = nx, ws.wy = ny, ws.ww = nw, ws.wh = nh;
  if (ScreenWin *s = wv_current())
    if (s->win) {
      gtk_window_move(GTK_WINDOW(s->win), nx, ny);
      gtk_window_resize(GTK_WINDOW(s->win), nw, nh);
      wv_pump();
    }
}

void wintyp(const char *c) {
  mv_tracef("wintyp(%s)", TSTR(c));
  if (same(c, "FULL")) mirval_state().window.full = true;
  else if (same(c, "NORMAL") || same(c, "STANDARD")) mirval_state().window.full = false;
  else mv_warn("wintyp", "unknown type %s (NORMAL or FULL)", TSTR(c));
}

void winjus(const char *c) {
  mv_tracef("winjus(%s)", TSTR(c));
  if (same(c, "CENTER") || same(c, "CENTRE")) mirval_state().window.just = 0;
  else if (same(c, "LEFT") || same(c, "UPPER")) mirval_state().window.just = 1;
  else mv_warn("winjus", "unknown alignment %s (CENTER or LEFT)", TSTR(c));
}

void winfnt(const char *c) {
  mv_tracef("winfnt(%s)", TSTR(c));
  if (!c || !*c) {
    mv_warn("winfnt", "empty font name");
    return;
  }
  mirval_state().window.font = c;
}

void x11fnt(const char *c1, const char *c2) {
  mv_tracef("x11fnt(%s, %s)", TSTR(c1), TSTR(c2));
  if (!c1 || !*c1) {
    mv_warn("x11fnt", "empty font name");
    return;
  }
  if (!same(c2, "STANDARD") && !same(c2, "NONE") && !same(c2, "AUTO")) {
    mv_warn("x11fnt", "unknown option %s (STANDARD or NONE)", TSTR(c2));
    return;
  }
  mirval_state().window.font = c1;
}

void x11mod(const char *c) {
  mv_tracef("x11mod(%s)", TSTR(c));
  if (same(c, "STORE") || same(c, "AUTO")) mirval_state().window.store = true;
  else if (same(c, "NOSTORE")) mirval_state().window.store = false;
  else mv_warn("x11mod", "unknown mode %s (STORE, NOSTORE or AUTO)", TSTR(c));
}

void winico(const char *c) {
  mv_tracef("winico(%s)", TSTR(c));
  if (!c || !*c || access(c, R_OK) != 0) {
    mv_warn("winico", "cannot read icon file %s", TSTR(c));
    return;
  }
  mirval_state().window.icon = c;
}

void winopt(int n, const char *c) {
  mv_tracef("winopt(%d, %s)", n, TSTR(c));
  if (!same(c, "STACK")) {
    mv_warn("winopt", "unknown option %s (STACK)", TSTR(c));
    return;
  }
  if (n < 0 || n > 500) {
    mv_warn("winopt", "offset %d out of range 0..500", n);
    return;
  }
  mirval_state().window.winopt_stack = n;
}

void pagwin(int nw, int nh) {
  mv_tracef("pagwin(%d, %d)", nw, nh);
  if (nw < 1 || nh < 1 || nw > 8000 || nh > 8000) {
    mv_warn("pagwin", "size %d x %d out of range 1..8000", nw, nh);
    return;
  }
  mirval_state().window.pagw = nw;
  mirval_state().window.pagh = nh;
}

void opnwin(int n) {
  mv_tracef("opnwin(%d)", n);
  if (!mv_level("opnwin", 1, 3)) return;
  if (n < 1 || n > 32) {
    mv_warn("opnwin", "window number %d out of range 1..32", n);
    return;
  }
  WindowRuntime &r = wrt();
  if (!screen_active()) {
    mv_warn("opnwin", "the picture goes to a file, not to screen windows");
    return;
  }
  show_current();  // the picture so far stays in the window it was drawn for
  MirvalState &st = mirval_state();
  if (!r.screens.count(n) && !open_screen(n)) return;
  r.cur = showing = n;
  st.scene.current().items.clear();
  ++st.scene.changes;
  wv_pump();
}

void selwin(int n) {
  mv_tracef("selwin(%d)", n);
  WindowRuntime &r = wrt();
  if (!numbered("selwin", n)) return;
  MirvalState &st = mirval_state();
  if (screen_active()) show_current();
  r.cur = n;
  if (screen_active()) {
    showing = n;
    st.scene.current() = r.screens[n].page;
    ++st.scene.changes;
  }
}

void clswin(int n) {
  mv_tracef("clswin(%d)", n);
  WindowRuntime &r = wrt();
  if (!numbered("clswin", n)) return;
  bool was = r.cur == n;
  close_screen(n);
  if (was) {
    for (auto &kv : r.screens)
      if (kv.second.widget == 0) {
        r.cur = kv.first;
        break;
      }
    if (screen_active()) {
      MirvalState &st = mirval_state();
      if (r.cur) {
        showing = r.cur;
        st.scene.current() = r.screens[r.cur].page;
      } else {
        st.scene.current().items.clear();
      }
      ++st.scene.changes;
    }
  }
}

int winid(void) {
  mv_tracef("winid()");
  return wrt().cur < 1000 ? wrt().cur : 0;
}

void hidwin(int n, const char *c) {
  mv_tracef("hidwin(%d, %s)", n, TSTR(c));
  WindowRuntime &r = wrt();
  bool hide = same(c, "HIDE"), show = same(c, "SHOW");
  if (!hide && !show) {
    mv_warn("hidwin", "unknown option %s (HIDE or SHOW)", TSTR(c));
    return;
  }
  if (!numbered("hidwin", n)) return;
  if (hide) gtk_widget_hide(r.screens[n].win);
  else gtk_widget_show_all(r.screens[n].win);
  wv_pump();
}

void getwin(int *nx, int *ny, int *nw, int *nh) {
  mv_tracef("getwin(nx=out, ny=out, nw=out, nh=out)");
  const WindowState &ws = mirval_state().window;
  int x = std::max(0, ws.wx), y = std::max(0, ws.wy), w = ws.ww, h = ws.wh;
  if (w <= 0) raster_size(w, h);
  ScreenWin *s = wv_current();
  if (s && s->win) {
    gtk_window_get_position(GTK_WINDOW(s->win), &x, &y);
    gtk_window_get_size(GTK_WINDOW(s->win), &w, &h);
  }
  if (nx) *nx = x;
  if (ny) *ny = y;
  if (nw) *nw = w;
  if (nh) *nh = h;
}

void getscr(int *nwpix, int *nhpix) {
  mv_tracef("getscr(nwpix=out, nhpix=out)");
  int w = 0, h = 0;
  if (wv_gtk()) {
    GdkScreen *scr = gdk_screen_get_default();
    GdkRectangle g{};
    GdkMonitor *m = gdk_display_get_primary_monitor(gdk_display_get_default());
    if (!m) m = gdk_display_get_monitor(gdk_display_get_default(), 0);
    if (m) gdk_monitor_get_geometry(m, &g);
    w = g.width, h = g.height;
    (void)scr;
  } else {
    mv_warn("getscr", "no display can be opened: the size is 0 x 0");
  }
  if (nwpix) *nwpix = w;
  if (nhpix) *nhpix = h;
}

const char *getdsp(void) {
  mv_tracef("getdsp()");
  static std::string name;
  const char *d = std::getenv("DISPLAY");
  name = d && wv_display() ? d : "";
  return name.c_str();
}

int getxid(const char *c) {
  mv_tracef("getxid(%s)", TSTR(c));
  if (!same(c, "WINDOW") && !same(c, "PIXMAP") && !same(c, "WIDGET")) {
    mv_warn("getxid", "unknown option %s (WINDOW, PIXMAP or WIDGET)", TSTR(c));
    return 0;
  }
  if (same(c, "PIXMAP")) return 0;  // the picture is kept as a scene, not as a pixmap
  ScreenWin *s = wv_current();
  if (!s || !s->area) return 0;
  GdkWindow *gw = gtk_widget_get_window(s->win ? s->win : s->area);
  if (!gw || !GDK_IS_X11_WINDOW(gw)) return 0;
  return int(gdk_x11_window_get_xid(gw));
}

void setxid(int n, const char *c) {
  mv_tracef("setxid(%d, %s)", n, TSTR(c));
  WindowRuntime &r = wrt();
  if (same(c, "NONE")) {
    r.draw_target = 0;
  } else if (same(c, "WIDGET")) {
    Widget *w = wv_widget(n);
    if (!w || w->kind != WKind::Draw) {
      mv_warn("setxid", "widget %d is not a drawing area (WGDRAW)", n);
      return;
    }
    r.draw_target = n;
  } else if (same(c, "WINDOW")) {
    // X ids of our own drawing areas (GWGXID) are understood; other programs' windows are not
    for (const Widget &w : r.widgets)
      if (w.kind == WKind::Draw && w.main && gtk_widget_get_window(w.main) &&
          int(gdk_x11_window_get_xid(gtk_widget_get_window(w.main))) == n) {
        r.draw_target = w.id;
        return;
      }
    mv_warn("setxid", "window id %d is not a drawing area of this program", n);
  } else {
    mv_warn("setxid", "unknown option %s (WIDGET, WINDOW or NONE)", TSTR(c));
  }
}

int nxpixl(int ix, int iy) {
  mv_tracef("nxpixl(%d, %d)", ix, iy);
  return to_pixel(ix, false);
}

int nypixl(int ix, int iy) {
  mv_tracef("nypixl(%d, %d)", ix, iy);
  return to_pixel(iy, true);
}

void revscr(void) {
  mv_tracef("revscr()");
  ScreenWin *s = wv_screen("revscr");
  if (!s) return;
  s->reverse = !s->reverse;
  wv_redraw(*s);
  wv_pump();
}

void doevnt(void) {
  mv_tracef("doevnt()");
  wv_pump();
}

void sendmb(void) {
  mv_tracef("sendmb()");
  WindowRuntime &r = wrt();
  if (r.ask.kind != Ask::Idle && !r.ask.done) {
    r.ask.key = -1;
    r.ask.done = true;
  } else {
    r.send_mb = true;
  }
}

void wincbk(MvWindowCb cb, const char *copt) {
  mv_tracef("wincbk(cb=callback, copt=%s)", TSTR(copt));
  WindowRuntime &r = wrt();
  if (same(copt, "NONE")) {
    r.wincb = nullptr;
    return;
  }
  int mode = 0;
  if (same(copt, "SIZE")) mode = 1;
  else if (copt && *copt && !same(copt, "ALL") && !same(copt, "STANDARD"))
    mv_warn("wincbk", "unknown option %s (ALL, SIZE or NONE): ALL is used", TSTR(copt));
  r.wincb = cb;
  r.wincb_mode = mode;
}

int dbfini(void) {
  mv_tracef("dbfini()");
  if (!mv_level("dbfini", 1, 3)) return -1;
  if (!screen_active()) {
    mv_warn("dbfini", "the picture goes to a file: there is nothing to buffer");
    return -1;
  }
  wrt().dbf = true;
  return 0;
}

void dbffin(void) {
  mv_tracef("dbffin()");
  WindowRuntime &r = wrt();
  if (!r.dbf) {
    mv_warn("dbffin", "DBFINI was not called");
    return;
  }
  r.dbf = false;
  if (mirval_state().window.dbf_update && screen_active()) show_current();
}

void dbfmod(const char *c) {
  mv_tracef("dbfmod(%s)", TSTR(c));
  if (same(c, "UPDATE")) mirval_state().window.dbf_update = true;
  else if (same(c, "NOUPDATE")) mirval_state().window.dbf_update = false;
  else mv_warn("dbfmod", "unknown mode %s (UPDATE or NOUPDATE)", TSTR(c));
}

}  // extern "C"

void window_reset_all(MirvalState &st) {
  auto rt = st.window.rt;
  WindowState fresh;
  WindowState &ws = st.window;
  ws.winmod = fresh.winmod, ws.winkey = fresh.winkey, ws.title = fresh.title;
  ws.wx = fresh.wx, ws.wy = fresh.wy, ws.ww = fresh.ww, ws.wh = fresh.wh;
  ws.full = fresh.full, ws.just = fresh.just, ws.font = fresh.font, ws.store = fresh.store;
  ws.icon = fresh.icon, ws.pagw = fresh.pagw, ws.pagh = fresh.pagh;
  ws.winopt_stack = fresh.winopt_stack, ws.dbf_update = fresh.dbf_update;
}
