// The screen windows, cursor input and widgets.
#pragma once
#include "core/reset.h"

#include <memory>
#include <string>

struct WindowRuntime;  // window/runtime.h: GTK objects, widgets and open windows

// Settings of screen windows, cursor input and widgets. What lives on the screen (windows,
// widgets and their values) is in `rt`, which RESET leaves alone.
struct WindowState {
  // screen windows
  int winmod = 0;                  // WINMOD: 0 STANDARD (MIRFIN waits, then closes), 1 NONE, 2 FULL (waits, keeps)
  int winkey = 0;                  // WINKEY: 0 any key, else the one key that ends the wait
  std::string title;               // WINTIT; empty: the default title with the key help
  int wx = -1, wy = -1, ww = 0, wh = 0;  // WINDOW: place and size of the next window
  bool full = false;               // WINTYP('FULL')
  int just = 0;                    // WINJUS: 0 CENTER, 1 LEFT (upper left corner)
  std::string font = "Sans";       // WINFNT, X11FNT: font of the window's title and help
  bool store = true;               // X11MOD: keep the picture for redraws (always kept)
  std::string icon;                // WINICO
  int pagw = 0, pagh = 0;          // PAGWIN: the page's size on the screen in pixels
  int winopt_stack = 0;            // WINOPT(n, 'STACK'): cascade offset of new windows
  // cursor input
  bool csr_user = false;           // CSRUNI('USER'): user coordinates instead of plot coordinates
  int csrtyp = 0;                  // CSRTYP: 0 ARROW, 1 CROSS, 2 HAIR
  int csrmod_line = 1;             // CSRMOD('LINE'/'NOLINE', 'POLY'): draw the polygon while clicking
  std::string setcsr = "ARROW";    // SETCSR: cursor of the window while no input is asked
  // double buffering
  bool dbf_update = true;          // DBFMOD('UPDATE' / 'NOUPDATE')
  // widgets: layout of the next widgets
  int swgwth = 20;                 // SWGWTH: width of widgets in characters (< 0: pixels)
  double spc_w = 4, spc_h = 4;     // SWGSPC: spacing between widgets (pixels)
  int jus_label = 0;               // SWGJUS(.., 'LABEL'): 0 LEFT, 1 CENTER, 2 RIGHT
  std::string help;                // SWGHLP: text of the Help entry
  std::string wtitle = "mirval";   // SWGTIT: title of the main widget window
  int pos_x = -1, pos_y = -1;      // SWGPOS
  int size_w = 0, size_h = 0;      // SWGSIZ
  int nx = -1, ny = -1, nw = 0, nh = 0;  // SWGWIN: place of the next widget in a FORM base
  bool pop_ok = true, pop_quit = true, pop_help = true;  // SWGPOP: entries of the menu bar
  bool vscale = false;             // SWGTYP('VERT', 'SCALE')
  bool multi = false;              // SWGTYP('MULTI', 'LIST')
  bool list_scroll = false;        // SWGTYP('SCROLL', 'LIST')
  bool table_edit = true;          // SWGTYP('NOEDIT', 'TABLE')
  double step = 0;                 // SWGSTP: step of the next scales; 0 automatic
  double draw_ratio = 0.75;        // SWGDRW: height of drawing areas over their width
  char sep = '|';                  // SWGMIX(c, 'SEP'): separator of list items
  std::string wfont;               // SWGFNT
  int wfont_size = 0;
  int mrg_l = 6, mrg_r = 6, mrg_t = 6, mrg_b = 6;  // SWGMRG
  bool scl_value = true;           // SWGOPT('VALUE'/'NOVALUE', 'SCALE')
  bool center = false;             // SWGOPT('CENTER', 'POSITION')
  int iop_lines = 0;               // SWGIOP(n, 'LINES'): lines of the next WGSTXT
  std::shared_ptr<WindowRuntime> rt;
};

void window_reset_all(struct MirvalState &);
void window_reset_widgets(struct MirvalState &);
void window_reset_cursor(struct MirvalState &);

// RESET entries of this part (see core/reset.h).
inline const ResetEntry window_resets[] = {
    {"WINMOD WINKEY WINTIT WINDOW WINTYP WINJUS WINFNT X11FNT X11MOD WINICO PAGWIN WINOPT DBFMOD",
     window_reset_all},
    {"SWGWTH SWGSPC SWGJUS SWGHLP SWGTIT SWGPOS SWGSIZ SWGWIN SWGPOP SWGTYP SWGSTP SWGDRW SWGMIX "
     "SWGFNT SWGMRG SWGOPT SWGIOP",
     window_reset_widgets},
    {"CSRUNI CSRTYP CSRMOD SETCSR", window_reset_cursor},
    {nullptr, nullptr}};
