// What lives on the screen: GTK, the screen windows and the widgets. GTK is started only when
// a window or a widget is really shown and a display can be opened, never at program start.
#pragma once
#include "core/state.h"
#include "draw/scene.h"
#include "mirval.h"
#include "output/render.h"

#include <gtk/gtk.h>

#include <map>
#include <string>
#include <vector>

enum class WKind {
  Base, Label, Text, LongText, STxt, Button, PButton, Box, List, DList, Scale, PBar, Table, File,
  Image, PImage, Sep, Draw, Ok, Quit, Cmd, Pop, App
};

struct Widget {
  int id = 0, parent = 0;
  WKind kind = WKind::Base;
  int layout = 0;                  // bases: 0 VERT, 1 HORI, 2 FORM
  std::string label;
  std::vector<std::string> items;  // lists, boxes
  int ival = 0;                    // button state, selected item (1-based), status
  std::vector<int> sel;            // multiple list selection: 0/1 per item
  double fval = 0, fmin = 0, fmax = 1, fstep = 0;  // scales, progress bars
  int ndig = 0;
  std::string text;                // text fields, file fields, commands
  std::string mask;                // file fields: the pattern
  int rows = 0, cols = 0;          // tables
  std::vector<std::string> cells;
  bool active = true, visible = true;
  int fx = -1, fy = -1, fw = 0, fh = 0;  // place in a FORM base
  // callbacks
  MvWidgetCb cb = nullptr;
  int *cb_iray = nullptr;
  MvWidgetCb2 cb2 = nullptr;
  MvWidgetCb3 cb3 = nullptr;
  MvWidgetKeyCb cbk = nullptr;
  // GTK
  GtkWidget *top = nullptr;        // the outermost GTK widget made for it
  GtkWidget *main = nullptr;       // the GTK widget that holds its value
  GtkWidget *menu = nullptr;       // pop-up menus
  GtkListStore *store = nullptr;   // tables
  bool pressed = false;            // OK and QUIT: pressed to leave WGFIN
};

struct ScreenWin {
  int id = 0;
  GtkWidget *win = nullptr, *area = nullptr;
  int widget = 0;                  // > 0: draws into this WGDRAW widget
  Page page;
  bool has_page = false;
  int pw = 2970, ph = 2100;        // page size in plot units
  Rgb back{1, 1, 1};
  bool reverse = false;            // REVSCR
  bool zoomed = false;
  double zx0 = 0, zy0 = 0, zx1 = 0, zy1 = 0;  // zoomed page rectangle
  bool dragging = false;
  double ax = 0, ay = 0, bx = 0, by = 0;      // drag rectangle in pixels
  int frame = 0;                   // pictures shown so far
  int drawn = 0;                   // times painted
};

// One request for input from a screen window.
struct Ask {
  enum Kind { Idle, Any, Key, Point, Points, Move, Line, Rect } kind = Idle;
  bool done = false;
  int key = 0;                     // key code, or -button for mouse buttons
  double x = 0, y = 0;             // last point in pixels
  std::vector<std::pair<double, double>> pts;  // pixels
  int nmax = 0;
  bool full = false;
};

struct WindowRuntime {
  bool gtk_tried = false, gtk_ok = false;
  bool wgini_warned = false;
  // widgets
  std::vector<Widget> widgets;     // id n at n - 1
  int main = 0;                    // the WGINI widget
  GtkWidget *top = nullptr;        // its window
  GtkWidget *vbox = nullptr;       // menu bar and content
  GtkWidget *menubar = nullptr;
  bool in_loop = false, leave = false;
  int quiet = 0;                   // > 0: values set by the program, callbacks stay silent
  int last_dialog = 0;             // DWGERR: 0 OK, 1 cancelled or not shown
  int current_base = 0;            // where WGIMG, WGICON and WGPIMG put their widgets
  // screen windows
  std::map<int, ScreenWin> screens;
  int cur = 0;                     // the selected window (WINID); 0 none
  int draw_target = 0;             // SETXID(id, 'WIDGET'): the next window is this widget
  Ask ask;
  int ask_screen = 0;
  bool send_mb = false;            // SENDMB: the next wait for a click ends at once
  bool dbf = false;                // between DBFINI and DBFFIN
  MvWindowCb wincb = nullptr;
  int wincb_mode = 0;              // 0 ALL, 1 SIZE
  bool exit_hook = false;
};

WindowRuntime &wrt();
// GTK, started on first need; false (without messages) when no display can be opened.
bool wv_gtk();
// Whether an X display can be opened, without starting GTK.
bool wv_display();
// Runs the pending events of the screen without waiting.
void wv_pump();
// Runs events until `done` turns true or no window is left to wait on.
void wv_wait(const bool &done);
Widget *wv_widget(int id);
// The selected screen window, or null.
ScreenWin *wv_current();
// The screen window that input routines talk to, or null with a warning for `routine`.
ScreenWin *wv_screen(const char *routine);
// The view that fits the screen's page, or its zoomed part, into w x h pixels.
View wv_view(const ScreenWin &s, int w, int h);
// Pixel position in a screen's area -> plot coordinates.
void wv_to_plot(const ScreenWin &s, double px, double py, double &x, double &y);
void wv_area_size(const ScreenWin &s, int &w, int &h);
// Plot coordinates -> the script's cursor units (CSRUNI).
void wv_units(double x, double y, int &ix, int &iy);
// Key code handed to the script: the character, Return 13, Escape 27, otherwise GDK's value.
int wv_key_code(guint keyval);
void wv_redraw(ScreenWin &s);
// Connects the input events of a drawing area (screen windows, WGDRAW widgets).
void wv_connect_area(GtkWidget *area, int screen_id);
