// Widgets: a panel built by WGINI and the WG... routines, its values (SWG... and GWG...), the
// callbacks into the script, and WGFIN's event loop. Every widget is first a record with its
// values, so that a script run without a display builds the same panel, reads the same values
// and never waits; GTK shows the records when a display can be opened.
#include "window/runtime.h"

#include "core/keywords.h"
#include "core/messages.h"
#include "core/trace.h"

#include <gdk/gdkx.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

#define TSTR(s) mv_tstr(s).c_str()
#define TARR(n, kind) mv_tarr(n, kind).c_str()

namespace {

WindowState &ws() { return mirval_state().window; }

struct Quiet {
  Quiet() { ++wrt().quiet; }
  ~Quiet() { --wrt().quiet; }
};

std::vector<std::string> split(const char *list) {
  std::vector<std::string> out;
  if (!list) return out;
  std::string cur;
  for (const char *p = list; *p; ++p) {
    if (*p == ws().sep) {
      out.push_back(cur);
      cur.clear();
    } else {
      cur += *p;
    }
  }
  out.push_back(cur);
  return out;
}

std::string fmt_float(double x, int ndig) {
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.*f", std::clamp(ndig, 0, 12), x);
  return buf;
}

bool usable(double x) { return std::isfinite(x) && std::fabs(x) < 1e30; }

bool shown() { return wrt().gtk_ok && wrt().top; }

// The container a child of base `ip` goes into.
GtkWidget *container_of(int ip) {
  Widget *p = wv_widget(ip);
  return p && p->main && (p->kind == WKind::Base) ? p->main : nullptr;
}

// A style provider that gives every node `rule`.
GtkCssProvider *provider(const std::string &rule) {
  GtkCssProvider *prov = gtk_css_provider_new();
  std::string text = "* { " + rule + " }";
  gtk_css_provider_load_from_data(prov, text.c_str(), -1, nullptr);
  return prov;
}

void css(GtkWidget *w, const std::string &rule) {
  if (!w) return;
  GtkCssProvider *prov = provider(rule);
  gtk_style_context_add_provider(gtk_widget_get_style_context(w), GTK_STYLE_PROVIDER(prov),
                                 GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
  g_object_unref(prov);
}

// Reads the value the user set from the GTK widget into the record.
void sync(Widget &w) {
  if (!w.main) return;
  switch (w.kind) {
    case WKind::Text:
    case WKind::LongText:
    case WKind::File:
      w.text = gtk_entry_get_text(GTK_ENTRY(w.main));
      break;
    case WKind::STxt: {
      GtkTextBuffer *b = gtk_text_view_get_buffer(GTK_TEXT_VIEW(w.main));
      GtkTextIter a, e;
      gtk_text_buffer_get_bounds(b, &a, &e);
      char *t = gtk_text_buffer_get_text(b, &a, &e, FALSE);
      w.text = t;
      g_free(t);
      break;
    }
    case WKind::Button:
      w.ival = gtk_toggle_button_get_active(GTK_TOGGLE_BUTTON(w.main)) ? 1 : 0;
      break;
    case WKind::Scale:
      w.fval = gtk_range_get_value(GTK_RANGE(w.main));
      break;
    case WKind::DList:
      w.ival = gtk_combo_box_get_active(GTK_COMBO_BOX(w.main)) + 1;
      break;
    case WKind::List: {
      w.ival = 0;
      std::fill(w.sel.begin(), w.sel.end(), 0);
      GList *rows = gtk_list_box_get_selected_rows(GTK_LIST_BOX(w.main));
      for (GList *l = rows; l; l = l->next) {
        int k = gtk_list_box_row_get_index(GTK_LIST_BOX_ROW(l->data));
        if (k >= 0 && k < int(w.sel.size())) w.sel[k] = 1;
        if (!w.ival || k + 1 < w.ival) w.ival = k + 1;
      }
      g_list_free(rows);
      break;
    }
    default:
      break;
  }
}

// The user changed widget `id`: its record follows, then its callbacks run.
void fire(int id) {
  Widget *w = wv_widget(id);
  if (!w) return;
  sync(*w);
  if (wrt().quiet) return;
  MvWidgetCb cb = w->cb;
  int *iray = w->cb_iray;
  MvWidgetCb2 cb2 = w->cb2;
  if (cb) cb(id, iray);
  if (cb2) cb2(id);
}

void on_changed(GtkWidget *, gpointer data) { fire(GPOINTER_TO_INT(data)); }

void on_toggled_radio(GtkToggleButton *b, gpointer data) {
  if (!gtk_toggle_button_get_active(b)) return;
  int id = GPOINTER_TO_INT(data);
  Widget *w = wv_widget(id);
  if (!w) return;
  int k = GPOINTER_TO_INT(g_object_get_data(G_OBJECT(b), "item"));
  w->ival = k;
  fire(id);
}

void on_leave(GtkWidget *, gpointer data) {
  int id = GPOINTER_TO_INT(data);
  if (Widget *w = wv_widget(id)) w->pressed = true;
  fire(id);
  wrt().leave = true;
}

void on_cmd(GtkWidget *, gpointer data) {
  int id = GPOINTER_TO_INT(data);
  Widget *w = wv_widget(id);
  if (!w) return;
  GError *err = nullptr;
  if (!w->text.empty() && !g_spawn_command_line_async(w->text.c_str(), &err)) {
    mv_warn("wgcmd", "cannot run %s: %s", w->text.c_str(), err ? err->message : "?");
    if (err) g_error_free(err);
  }
  fire(id);
}

gboolean on_key(GtkWidget *, GdkEventKey *ev, gpointer data) {
  int id = GPOINTER_TO_INT(data);
  Widget *w = wv_widget(id);
  if (!w || !w->cbk || wrt().quiet) return FALSE;
  MvWidgetKeyCb cb = w->cbk;
  cb(id, wv_key_code(ev->keyval));
  return FALSE;
}

gboolean on_draw_click(GtkWidget *, GdkEventButton *ev, gpointer data) {
  if (ev->type == GDK_BUTTON_PRESS) fire(GPOINTER_TO_INT(data));
  return FALSE;
}

void on_cell_edited(GtkCellRendererText *cell, gchar *path, gchar *text, gpointer data) {
  int id = GPOINTER_TO_INT(data);
  Widget *w = wv_widget(id);
  if (!w) return;
  int col = GPOINTER_TO_INT(g_object_get_data(G_OBJECT(cell), "col"));
  int row = std::atoi(path);
  if (row < 0 || row >= w->rows || col < 0 || col >= w->cols) return;
  w->cells[size_t(row) * w->cols + col] = text;
  GtkTreeIter it;
  if (gtk_tree_model_get_iter_from_string(GTK_TREE_MODEL(w->store), &it, path))
    gtk_list_store_set(w->store, &it, col, text, -1);
  if (wrt().quiet || !w->cb3) return;
  MvWidgetCb3 cb = w->cb3;
  cb(id, row + 1, col + 1);
}

gboolean on_table_click(GtkWidget *tv, GdkEventButton *ev, gpointer data) {
  int id = GPOINTER_TO_INT(data);
  Widget *w = wv_widget(id);
  GtkTreePath *path = nullptr;
  GtkTreeViewColumn *column = nullptr;
  if (!w || !gtk_tree_view_get_path_at_pos(GTK_TREE_VIEW(tv), int(ev->x), int(ev->y), &path, &column,
                                           nullptr, nullptr))
    return FALSE;
  int row = gtk_tree_path_get_indices(path)[0];
  int col = GPOINTER_TO_INT(g_object_get_data(G_OBJECT(column), "col"));
  gtk_tree_path_free(path);
  if (!wrt().quiet && w->cb3) {
    MvWidgetCb3 cb = w->cb3;
    cb(id, row + 1, col + 1);
  }
  return FALSE;
}

gboolean on_top_delete(GtkWidget *, GdkEvent *, gpointer) {
  wrt().leave = true;
  return TRUE;
}

void on_help(GtkWidget *, gpointer) {
  GtkWidget *d = gtk_message_dialog_new(GTK_WINDOW(wrt().top), GTK_DIALOG_MODAL, GTK_MESSAGE_INFO,
                                        GTK_BUTTONS_OK, "%s",
                                        ws().help.empty() ? "No help text was given." : ws().help.c_str());
  gtk_dialog_run(GTK_DIALOG(d));
  gtk_widget_destroy(d);
}

void on_menu_leave(GtkWidget *, gpointer) { wrt().leave = true; }

GdkPixbuf *pixbuf_of(const unsigned char *rgb, int nw, int nh) {
  GdkPixbuf *pb = gdk_pixbuf_new(GDK_COLORSPACE_RGB, FALSE, 8, nw, nh);
  int stride = gdk_pixbuf_get_rowstride(pb);
  guchar *px = gdk_pixbuf_get_pixels(pb);
  for (int y = 0; y < nh; ++y) std::memcpy(px + size_t(y) * stride, rgb + size_t(y) * nw * 3, size_t(nw) * 3);
  return pb;
}

// Places child GTK widget `g` of record `w` into its parent.
void pack(Widget &w, GtkWidget *g, bool expand) {
  w.top = g;
  Widget *p = wv_widget(w.parent);
  if (!p) return;
  if (p->kind == WKind::Pop) {
    gtk_menu_shell_append(GTK_MENU_SHELL(p->menu), g);
    return;
  }
  GtkWidget *c = container_of(w.parent);
  if (!c) return;
  if (p->layout == 2) {
    int x = w.fx >= 0 ? w.fx : ws().mrg_l, y = w.fy >= 0 ? w.fy : int(p->fval);
    if (w.fx < 0) p->fval = y + 32 + ws().spc_h;
    gtk_fixed_put(GTK_FIXED(c), g, x, y);
    if (w.fw > 0 && w.fh > 0) gtk_widget_set_size_request(g, w.fw, w.fh);
  } else {
    gtk_box_pack_start(GTK_BOX(c), g, expand, expand, 0);
  }
}

int width_px() { return ws().swgwth > 0 ? ws().swgwth * 8 : -ws().swgwth; }

// Makes the GTK side of record `id` (the panel exists).
void build(int id) {
  Widget &w = wrt().widgets[id - 1];
  Quiet q;
  gpointer d = GINT_TO_POINTER(id);
  GtkWidget *g = nullptr;
  bool expand = false;
  switch (w.kind) {
    case WKind::Base: {
      if (w.layout == 2) {
        g = gtk_fixed_new();
        w.fval = ws().mrg_t;
      } else {
        g = gtk_box_new(w.layout == 1 ? GTK_ORIENTATION_HORIZONTAL : GTK_ORIENTATION_VERTICAL,
                        int(w.layout == 1 ? ws().spc_w : ws().spc_h));
      }
      w.main = g;
      if (!w.parent) {
        gtk_widget_set_margin_start(g, ws().mrg_l);
        gtk_widget_set_margin_end(g, ws().mrg_r);
        gtk_widget_set_margin_top(g, ws().mrg_t);
        gtk_widget_set_margin_bottom(g, ws().mrg_b);
        gtk_box_pack_start(GTK_BOX(wrt().vbox), g, TRUE, TRUE, 0);
        w.top = g;
        return;
      }
      expand = true;
      break;
    }
    case WKind::Label:
      g = w.main = gtk_label_new(w.text.c_str());
      gtk_label_set_xalign(GTK_LABEL(g), ws().jus_label * 0.5f);
      break;
    case WKind::Text:
      g = w.main = gtk_entry_new();
      gtk_entry_set_text(GTK_ENTRY(g), w.text.c_str());
      gtk_entry_set_width_chars(GTK_ENTRY(g), std::max(4, ws().swgwth));
      g_signal_connect(g, "changed", G_CALLBACK(+[](GtkWidget *e, gpointer dd) {
                         if (Widget *x = wv_widget(GPOINTER_TO_INT(dd))) sync(*x);
                         (void)e;
                       }), d);
      g_signal_connect(g, "activate", G_CALLBACK(on_changed), d);
      break;
    case WKind::LongText:
    case WKind::File: {
      g = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 4);
      GtkWidget *lab = gtk_label_new(w.label.c_str());
      gtk_box_pack_start(GTK_BOX(g), lab, FALSE, FALSE, 0);
      w.main = gtk_entry_new();
      gtk_entry_set_text(GTK_ENTRY(w.main), w.text.c_str());
      gtk_box_pack_start(GTK_BOX(g), w.main, TRUE, TRUE, 0);
      if (w.kind == WKind::LongText && w.ival > 0)
        gtk_entry_set_width_chars(GTK_ENTRY(w.main), std::max(4, w.ival * std::max(4, ws().swgwth) / 50));
      g_signal_connect(w.main, "changed", G_CALLBACK(+[](GtkWidget *, gpointer dd) {
                         if (Widget *x = wv_widget(GPOINTER_TO_INT(dd))) sync(*x);
                       }), d);
      g_signal_connect(w.main, "activate", G_CALLBACK(on_changed), d);
      if (w.kind == WKind::File) {
        GtkWidget *b = gtk_button_new_with_label("\u2026");
        gtk_box_pack_start(GTK_BOX(g), b, FALSE, FALSE, 0);
        g_signal_connect(b, "clicked", G_CALLBACK(+[](GtkWidget *, gpointer dd) {
                           int wid = GPOINTER_TO_INT(dd);
                           Widget *x = wv_widget(wid);
                           if (!x) return;
                           const char *got = dwgfil(x->label.c_str(), x->text.c_str(), x->mask.c_str());
                           if (dwgerr() == 0) {
                             std::string s = got;
                             if ((x = wv_widget(wid)) && x->main) gtk_entry_set_text(GTK_ENTRY(x->main), s.c_str());
                             fire(wid);
                           }
                         }), d);
      }
      break;
    }
    case WKind::STxt: {
      g = gtk_scrolled_window_new(nullptr, nullptr);
      w.main = gtk_text_view_new();
      gtk_text_view_set_editable(GTK_TEXT_VIEW(w.main), FALSE);
      gtk_text_buffer_set_text(gtk_text_view_get_buffer(GTK_TEXT_VIEW(w.main)), w.text.c_str(), -1);
      gtk_container_add(GTK_CONTAINER(g), w.main);
      gtk_widget_set_size_request(g, width_px(), 18 * std::max(1, w.rows));
      expand = true;
      break;
    }
    case WKind::Button:
      g = w.main = gtk_check_button_new_with_label(w.label.c_str());
      gtk_toggle_button_set_active(GTK_TOGGLE_BUTTON(g), w.ival != 0);
      g_signal_connect(g, "toggled", G_CALLBACK(on_changed), d);
      break;
    case WKind::PButton:
    case WKind::PImage:
      if (w.kind == WKind::PImage && w.menu) {
        g = w.main = gtk_button_new();
        gtk_button_set_image(GTK_BUTTON(g), w.menu);
        gtk_button_set_always_show_image(GTK_BUTTON(g), TRUE);
        if (!w.label.empty()) gtk_button_set_label(GTK_BUTTON(g), w.label.c_str());
        w.menu = nullptr;
      } else {
        g = w.main = gtk_button_new_with_label(w.label.c_str());
      }
      g_signal_connect(g, "clicked", G_CALLBACK(on_changed), d);
      break;
    case WKind::Ok:
    case WKind::Quit:
      g = w.main = gtk_button_new_with_label(w.label.c_str());
      g_signal_connect(g, "clicked", G_CALLBACK(on_leave), d);
      break;
    case WKind::Cmd:
      g = w.main = gtk_button_new_with_label(w.label.c_str());
      g_signal_connect(g, "clicked", G_CALLBACK(on_cmd), d);
      break;
    case WKind::Box: {
      g = w.main = gtk_box_new(GTK_ORIENTATION_VERTICAL, 2);
      GtkWidget *first = nullptr;
      for (size_t k = 0; k < w.items.size(); ++k) {
        GtkWidget *rb = first ? gtk_radio_button_new_with_label_from_widget(GTK_RADIO_BUTTON(first), w.items[k].c_str())
                              : gtk_radio_button_new_with_label(nullptr, w.items[k].c_str());
        if (!first) first = rb;
        g_object_set_data(G_OBJECT(rb), "item", GINT_TO_POINTER(int(k) + 1));
        gtk_toggle_button_set_active(GTK_TOGGLE_BUTTON(rb), int(k) + 1 == w.ival);
        g_signal_connect(rb, "toggled", G_CALLBACK(on_toggled_radio), d);
        gtk_box_pack_start(GTK_BOX(g), rb, FALSE, FALSE, 0);
      }
      break;
    }
    case WKind::List: {
      w.main = gtk_list_box_new();
      gtk_list_box_set_selection_mode(GTK_LIST_BOX(w.main),
                                      w.rows ? GTK_SELECTION_MULTIPLE : GTK_SELECTION_SINGLE);
      for (size_t k = 0; k < w.items.size(); ++k) {
        GtkWidget *lab = gtk_label_new(w.items[k].c_str());
        gtk_label_set_xalign(GTK_LABEL(lab), 0);
        gtk_list_box_insert(GTK_LIST_BOX(w.main), lab, -1);
        if (w.sel[k]) gtk_list_box_select_row(GTK_LIST_BOX(w.main), gtk_list_box_get_row_at_index(GTK_LIST_BOX(w.main), int(k)));
      }
      g_signal_connect(w.main, "selected-rows-changed", G_CALLBACK(on_changed), d);
      if (w.cols) {  // SWGTYP('SCROLL', 'LIST')
        g = gtk_scrolled_window_new(nullptr, nullptr);
        gtk_container_add(GTK_CONTAINER(g), w.main);
        gtk_widget_set_size_request(g, width_px(), 120);
      } else {
        g = gtk_frame_new(nullptr);
        gtk_container_add(GTK_CONTAINER(g), w.main);
      }
      break;
    }
    case WKind::DList:
      g = w.main = gtk_combo_box_text_new();
      for (auto &it : w.items) gtk_combo_box_text_append_text(GTK_COMBO_BOX_TEXT(g), it.c_str());
      gtk_combo_box_set_active(GTK_COMBO_BOX(g), w.ival - 1);
      g_signal_connect(g, "changed", G_CALLBACK(on_changed), d);
      break;
    case WKind::Scale: {
      double step = w.fstep > 0 ? w.fstep : std::pow(10.0, -w.ndig);
      bool vert = w.layout == 1;
      GtkWidget *sc = gtk_scale_new_with_range(vert ? GTK_ORIENTATION_VERTICAL : GTK_ORIENTATION_HORIZONTAL,
                                               w.fmin, w.fmax, step);
      gtk_scale_set_digits(GTK_SCALE(sc), std::clamp(w.ndig, 0, 12));
      gtk_scale_set_draw_value(GTK_SCALE(sc), w.cols == 0);
      gtk_range_set_value(GTK_RANGE(sc), w.fval);
      if (vert) {
        gtk_range_set_inverted(GTK_RANGE(sc), TRUE);
        gtk_widget_set_size_request(sc, -1, 150);
      } else {
        gtk_widget_set_size_request(sc, width_px(), -1);
      }
      w.main = sc;
      g_signal_connect(sc, "value-changed", G_CALLBACK(on_changed), d);
      if (!w.label.empty()) {
        g = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0);
        GtkWidget *lab = gtk_label_new(w.label.c_str());
        gtk_label_set_xalign(GTK_LABEL(lab), 0);
        gtk_box_pack_start(GTK_BOX(g), lab, FALSE, FALSE, 0);
        gtk_box_pack_start(GTK_BOX(g), sc, TRUE, TRUE, 0);
      } else {
        g = sc;
      }
      break;
    }
    case WKind::PBar:
      g = w.main = gtk_progress_bar_new();
      gtk_progress_bar_set_show_text(GTK_PROGRESS_BAR(g), TRUE);
      gtk_progress_bar_set_fraction(GTK_PROGRESS_BAR(g),
                                    w.fmax > w.fmin ? std::clamp((w.fval - w.fmin) / (w.fmax - w.fmin), 0.0, 1.0) : 0);
      break;
    case WKind::Table: {
      std::vector<GType> types(size_t(w.cols), G_TYPE_STRING);
      w.store = gtk_list_store_newv(w.cols, types.data());
      for (int r = 0; r < w.rows; ++r) {
        GtkTreeIter it;
        gtk_list_store_append(w.store, &it);
        for (int c = 0; c < w.cols; ++c)
          gtk_list_store_set(w.store, &it, c, w.cells[size_t(r) * w.cols + c].c_str(), -1);
      }
      w.main = gtk_tree_view_new_with_model(GTK_TREE_MODEL(w.store));
      g_object_unref(w.store);
      gtk_tree_view_set_grid_lines(GTK_TREE_VIEW(w.main), GTK_TREE_VIEW_GRID_LINES_BOTH);
      for (int c = 0; c < w.cols; ++c) {
        GtkCellRenderer *cell = gtk_cell_renderer_text_new();
        g_object_set(cell, "editable", w.ndig ? FALSE : TRUE, nullptr);
        g_object_set_data(G_OBJECT(cell), "col", GINT_TO_POINTER(c));
        g_signal_connect(cell, "edited", G_CALLBACK(on_cell_edited), d);
        std::string head = std::to_string(c + 1);
        GtkTreeViewColumn *col = gtk_tree_view_column_new_with_attributes(head.c_str(), cell, "text", c, nullptr);
        gtk_tree_view_column_set_min_width(col, 60);
        g_object_set_data(G_OBJECT(col), "col", GINT_TO_POINTER(c));
        gtk_tree_view_append_column(GTK_TREE_VIEW(w.main), col);
      }
      g_signal_connect(w.main, "button-release-event", G_CALLBACK(on_table_click), d);
      g = gtk_frame_new(nullptr);
      gtk_container_add(GTK_CONTAINER(g), w.main);
      expand = true;
      break;
    }
    case WKind::Image:
      g = w.main = w.menu ? w.menu : gtk_image_new();
      w.menu = nullptr;
      if (!w.label.empty()) gtk_widget_set_tooltip_text(g, w.label.c_str());
      break;
    case WKind::Sep: {
      Widget *p = wv_widget(w.parent);
      g = w.main = gtk_separator_new(p && p->layout == 1 ? GTK_ORIENTATION_VERTICAL : GTK_ORIENTATION_HORIZONTAL);
      break;
    }
    case WKind::Draw: {
      g = w.main = gtk_drawing_area_new();
      int wd = width_px() > 0 ? std::max(200, width_px()) : 300;
      gtk_widget_set_size_request(g, wd, int(wd * ws().draw_ratio));
      gtk_widget_set_can_focus(g, TRUE);
      wv_connect_area(g, 1000 + id);
      g_signal_connect(g, "button-press-event", G_CALLBACK(on_draw_click), d);
      expand = true;
      break;
    }
    case WKind::Pop: {
      if (!wrt().menubar) return;
      GtkWidget *item = w.main;
      if (!item) item = gtk_menu_item_new_with_label(w.label.c_str());
      w.main = item;
      w.menu = gtk_menu_new();
      gtk_menu_item_set_submenu(GTK_MENU_ITEM(item), w.menu);
      gtk_menu_shell_append(GTK_MENU_SHELL(wrt().menubar), item);
      w.top = item;
      return;
    }
    case WKind::App: {
      if (!w.main) w.main = gtk_menu_item_new_with_label(w.label.c_str());
      g = w.main;
      g_signal_connect(g, "activate", G_CALLBACK(on_changed), d);
      break;
    }
  }
  if (!g) return;
  pack(w, g, expand);
  if (w.kind != WKind::App) gtk_widget_set_sensitive(g, w.active);
  g_signal_connect(g, "key-press-event", G_CALLBACK(on_key), d);
  if (wrt().in_loop || gtk_widget_get_visible(wrt().top)) gtk_widget_show_all(g);
}

void make_top() {
  WindowRuntime &r = wrt();
  r.top = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  gtk_window_set_title(GTK_WINDOW(r.top), ws().wtitle.c_str());
  if (ws().size_w > 0) gtk_window_set_default_size(GTK_WINDOW(r.top), ws().size_w, ws().size_h);
  if (ws().pos_x >= 0) gtk_window_move(GTK_WINDOW(r.top), ws().pos_x, ws().pos_y);
  else if (ws().center) gtk_window_set_position(GTK_WINDOW(r.top), GTK_WIN_POS_CENTER);
  g_signal_connect(r.top, "delete-event", G_CALLBACK(on_top_delete), nullptr);
  // the main widget's key callback hears every key typed into the panel
  g_signal_connect(r.top, "key-press-event", G_CALLBACK(on_key), GINT_TO_POINTER(r.main));
  r.vbox = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0);
  gtk_container_add(GTK_CONTAINER(r.top), r.vbox);
  if (ws().pop_ok || ws().pop_quit || ws().pop_help) {
    r.menubar = gtk_menu_bar_new();
    gtk_box_pack_start(GTK_BOX(r.vbox), r.menubar, FALSE, FALSE, 0);
    GtkWidget *file = gtk_menu_item_new_with_label("File");
    GtkWidget *menu = gtk_menu_new();
    gtk_menu_item_set_submenu(GTK_MENU_ITEM(file), menu);
    auto entry = [&](const char *name, GCallback cb) {
      GtkWidget *it = gtk_menu_item_new_with_label(name);
      g_signal_connect(it, "activate", cb, nullptr);
      gtk_menu_shell_append(GTK_MENU_SHELL(menu), it);
    };
    if (ws().pop_help) entry("Help", G_CALLBACK(on_help));
    if (ws().pop_ok) entry("OK", G_CALLBACK(on_menu_leave));
    if (ws().pop_quit) entry("Quit", G_CALLBACK(on_menu_leave));
    gtk_menu_shell_append(GTK_MENU_SHELL(r.menubar), file);
  }
  if (!ws().wfont.empty() || ws().wfont_size > 0) {
    std::string rule;
    if (!ws().wfont.empty()) rule += "font-family: \"" + ws().wfont + "\"; ";
    if (ws().wfont_size > 0) rule += "font-size: " + std::to_string(ws().wfont_size) + "px;";
    GtkCssProvider *prov = provider(rule);
    gtk_style_context_add_provider_for_screen(gdk_screen_get_default(), GTK_STYLE_PROVIDER(prov),
                                              GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
    g_object_unref(prov);
  }
}

// A new widget record under parent `ip`; -1 (with a warning) when the parent cannot hold it:
// menu entries go into pop-up menus, everything else into bases.
int add(const char *routine, int ip, WKind kind) {
  WindowRuntime &r = wrt();
  bool menu_parent = kind == WKind::App;
  if (!r.main) {
    mv_warn(routine, "WGINI must be called first");
    return -1;
  }
  Widget *p = wv_widget(ip);
  bool ok = p && (menu_parent ? p->kind == WKind::Pop : p->kind == WKind::Base);
  if (!ok) {
    mv_warn(routine, "parent %d is not %s", ip, menu_parent ? "a pop-up menu (WGPOP)" : "a base widget (WGINI, WGBAS)");
    return -1;
  }
  Widget w;
  w.id = int(r.widgets.size()) + 1;
  w.parent = ip;
  w.kind = kind;
  if (p->layout == 2 && !menu_parent) {
    w.fx = ws().nx, w.fy = ws().ny, w.fw = ws().nw, w.fh = ws().nh;
  }
  r.widgets.push_back(w);
  return w.id;
}

// Adds widget `kind` under `ip`, lets `set` fill its record and shows it while the panel is
// on the screen; the new id, or -1.
template <class Set>
int make(const char *routine, int ip, WKind kind, Set set) {
  int id = add(routine, ip, kind);
  if (id < 0) return -1;
  set(*wv_widget(id));
  if (shown()) build(id);
  return id;
}

void nothing(Widget &) {}

// The text of an argument the script may leave out.
const char *str(const char *c) { return c ? c : ""; }

// WGINI and WGBAS: VERT, HORI or FORM.
int layout_of(const char *routine, const char *c) {
  int layout = same(c, "VERT") ? 0 : same(c, "HORI") ? 1 : same(c, "FORM") ? 2 : -1;
  if (layout >= 0) return layout;
  mv_warn(routine, "unknown layout %s (VERT, HORI or FORM): VERT is used", TSTR(c));
  return 0;
}

// Pop-up menus hang from the main widget's menu bar.
bool on_main(const char *routine, int ip) {
  if (ip == wrt().main) return true;
  mv_warn(routine, "pop-up menus belong to the main widget %d, not to %d", wrt().main, ip);
  return false;
}

// Widget `id`, or null with a warning for `routine`.
Widget *widget_of(const char *routine, int id) {
  Widget *w = wv_widget(id);
  if (!w) mv_warn(routine, "there is no widget %d", id);
  return w;
}

Widget *need(const char *routine, int id, std::initializer_list<WKind> kinds) {
  Widget *w = widget_of(routine, id);
  if (!w) return nullptr;
  for (WKind k : kinds)
    if (w->kind == k) return w;
  mv_warn(routine, "widget %d is not of the kind this routine handles", id);
  return nullptr;
}

bool text_ok(const char *routine, const char *s, const char *what) {
  if (!s) {
    mv_warn(routine, "%s is missing", what);
    return false;
  }
  return true;
}

void drop_gtk() {
  WindowRuntime &r = wrt();
  for (Widget &w : r.widgets) {
    sync(w);
    w.top = w.main = w.menu = nullptr;
    w.store = nullptr;
  }
  for (auto it = r.screens.begin(); it != r.screens.end();)
    if (it->second.widget > 0) {
      if (r.cur == it->first) r.cur = 0;
      it = r.screens.erase(it);
    } else {
      ++it;
    }
  if (r.top) gtk_widget_destroy(r.top);
  r.top = r.vbox = r.menubar = nullptr;
  r.draw_target = 0;
  wv_pump();
}

void set_cells(Widget &w, int row, int col, const std::string &v) {
  auto put = [&](int rr, int cc) {
    w.cells[size_t(rr) * w.cols + cc] = v;
    if (w.store) {
      GtkTreeIter it;
      if (gtk_tree_model_iter_nth_child(GTK_TREE_MODEL(w.store), &it, nullptr, rr))
        gtk_list_store_set(w.store, &it, cc, v.c_str(), -1);
    }
  };
  for (int rr = 0; rr < w.rows; ++rr)
    for (int cc = 0; cc < w.cols; ++cc)
      if ((row == 0 || row == rr + 1) && (col == 0 || col == cc + 1)) put(rr, cc);
}

bool cell_ok(const char *routine, Widget &w, int row, int col, bool whole) {
  int lo = whole ? 0 : 1;
  if (row < lo || row > w.rows || col < lo || col > w.cols) {
    mv_warn(routine, "cell %d, %d outside the table of %d x %d", row, col, w.rows, w.cols);
    return false;
  }
  return true;
}

// A text field's value set by the program: no callback runs.
void set_entry(Widget &w, std::string text) {
  Quiet q;
  w.text = text;
  if (w.main) gtk_entry_set_text(GTK_ENTRY(w.main), text.c_str());
}

// The text of widget `id` as the user left it, kept in `out`; empty (with a warning) for other
// kinds.
const char *text_of(std::string &out, const char *routine, int id, std::initializer_list<WKind> kinds) {
  out.clear();
  if (Widget *w = need(routine, id, kinds)) {
    sync(*w);
    out = w->text;
  }
  return out.c_str();
}

// The number at the start of text field `id`, its integer part for `whole`; 0 (with a warning)
// when it holds none.
double entry_number(const char *routine, int id, bool whole) {
  Widget *w = need(routine, id, {WKind::Text, WKind::LongText});
  if (!w) return 0;
  sync(*w);
  const char *t = w->text.c_str();
  char *end = nullptr;
  double v = whole ? double(std::clamp<long>(std::strtol(t, &end, 10), -2147483647L, 2147483647L))
                   : std::strtod(t, &end);
  if (end == t || !std::isfinite(v)) {
    mv_warn(routine, "text \"%s\" of widget %d is not %s: 0", t, id, whole ? "an integer" : "a number");
    return 0;
  }
  return v;
}

// Widget `id` with its callback cleared for a new registration. One procedure per widget: the
// caller keeps one name for each widget, so any registration replaces the earlier one.
Widget *callback_of(const char *routine, int id) {
  Widget *w = widget_of(routine, id);
  if (!w) return nullptr;
  w->cb = nullptr, w->cb_iray = nullptr, w->cb2 = nullptr, w->cb3 = nullptr, w->cbk = nullptr;
  return w;
}

}  // namespace

Widget *wv_widget(int id) {
  WindowRuntime &r = wrt();
  if (id < 1 || id > int(r.widgets.size())) return nullptr;
  return &r.widgets[id - 1];
}

extern "C" {

int wgini(const char *c) {
  mv_tracef("wgini(%s)", TSTR(c));
  WindowRuntime &r = wrt();
  int layout = layout_of("wgini", c);
  if (r.in_loop) {
    mv_warn("wgini", "a panel is running (WGFIN): it is replaced only after it ends");
    return -1;
  }
  if (r.top) drop_gtk();
  r.widgets.clear();
  r.leave = false;
  Widget w;
  w.id = 1;
  w.kind = WKind::Base;
  w.layout = layout;
  r.widgets.push_back(w);
  r.main = 1;
  r.current_base = 1;
  if (wv_gtk()) {
    make_top();
    build(1);
  } else if (!r.wgini_warned) {
    r.wgini_warned = true;
    mv_warn("wgini", "no display can be opened: the widgets are not shown and WGFIN returns at once");
  }
  return 1;
}

int wgbas(int ip, const char *c) {
  mv_tracef("wgbas(%d, %s)", ip, TSTR(c));
  int layout = layout_of("wgbas", c);
  return make("wgbas", ip, WKind::Base, [&](Widget &w) {
    w.layout = layout;
    wrt().current_base = w.id;
  });
}

int wglab(int ip, const char *c) {
  mv_tracef("wglab(%d, %s)", ip, TSTR(c));
  return make("wglab", ip, WKind::Label, [&](Widget &w) { w.text = str(c); });
}

int wgtxt(int ip, const char *c) {
  mv_tracef("wgtxt(%d, %s)", ip, TSTR(c));
  return make("wgtxt", ip, WKind::Text, [&](Widget &w) { w.text = str(c); });
}

int wgltxt(int ip, const char *clab, const char *ctext, int nwth) {
  mv_tracef("wgltxt(%d, %s, %s, %d)", ip, TSTR(clab), TSTR(ctext), nwth);
  if (nwth < 1 || nwth > 100) {
    mv_warn("wgltxt", "width %d out of range 1..100 (percent): 50 is used", nwth);
    nwth = 50;
  }
  return make("wgltxt", ip, WKind::LongText, [&](Widget &w) {
    w.label = str(clab);
    w.text = str(ctext);
    w.ival = nwth;
  });
}

int wgstxt(int ip, int nsize, int nmax) {
  mv_tracef("wgstxt(%d, %d, %d)", ip, nsize, nmax);
  if (nsize < 1 || nsize > 200) {
    mv_warn("wgstxt", "number of lines %d out of range 1..200: 5 is used", nsize);
    nsize = 5;
  }
  if (nmax < 0) {
    mv_warn("wgstxt", "line limit %d is negative: no limit", nmax);
    nmax = 0;
  }
  return make("wgstxt", ip, WKind::STxt, [&](Widget &w) {
    w.rows = ws().iop_lines > 0 ? ws().iop_lines : nsize;
    w.cols = nmax;
  });
}

int wgfil(int ip, const char *clab, const char *cfile, const char *cmask) {
  mv_tracef("wgfil(%d, %s, %s, %s)", ip, TSTR(clab), TSTR(cfile), TSTR(cmask));
  return make("wgfil", ip, WKind::File, [&](Widget &w) {
    w.label = str(clab);
    w.text = str(cfile);
    w.mask = cmask ? cmask : "*";
  });
}

int wgbut(int ip, const char *c, int ival) {
  mv_tracef("wgbut(%d, %s, %d)", ip, TSTR(c), ival);
  if (ival != 0 && ival != 1) {
    mv_warn("wgbut", "state %d is not 0 or 1: 0 is used", ival);
    ival = 0;
  }
  return make("wgbut", ip, WKind::Button, [&](Widget &w) {
    w.label = str(c);
    w.ival = ival;
  });
}

int wgpbut(int ip, const char *c) {
  mv_tracef("wgpbut(%d, %s)", ip, TSTR(c));
  return make("wgpbut", ip, WKind::PButton, [&](Widget &w) { w.label = str(c); });
}

int wgok(int ip) {
  mv_tracef("wgok(%d)", ip);
  return make("wgok", ip, WKind::Ok, [](Widget &w) { w.label = "OK"; });
}

int wgquit(int ip) {
  mv_tracef("wgquit(%d)", ip);
  return make("wgquit", ip, WKind::Quit, [](Widget &w) { w.label = "Quit"; });
}

int wgcmd(int ip, const char *clab, const char *cmd) {
  mv_tracef("wgcmd(%d, %s, %s)", ip, TSTR(clab), TSTR(cmd));
  if (!cmd || !*cmd) {
    mv_warn("wgcmd", "empty command");
    return -1;
  }
  return make("wgcmd", ip, WKind::Cmd, [&](Widget &w) {
    w.label = str(clab);
    w.text = cmd;
  });
}

static int list_widget(const char *routine, int ip, const char *clis, int isel, WKind kind) {
  if (!clis || !*clis) {
    mv_warn(routine, "empty list of items");
    return -1;
  }
  std::vector<std::string> items = split(clis);
  if (isel < 0 || isel > int(items.size()) || (isel == 0 && kind != WKind::List)) {
    mv_warn(routine, "selected item %d out of range 1..%zu: 1 is used", isel, items.size());
    isel = 1;
  }
  return make(routine, ip, kind, [&](Widget &w) {
    w.items = items;
    w.ival = isel;
    w.sel.assign(items.size(), 0);
    if (isel > 0) w.sel[size_t(isel) - 1] = 1;
    if (kind == WKind::List) {
      w.rows = ws().multi ? 1 : 0;
      w.cols = ws().list_scroll ? 1 : 0;
    }
  });
}

int wglis(int ip, const char *clis, int isel) {
  mv_tracef("wglis(%d, %s, %d)", ip, TSTR(clis), isel);
  return list_widget("wglis", ip, clis, isel, WKind::List);
}

int wgdlis(int ip, const char *clis, int isel) {
  mv_tracef("wgdlis(%d, %s, %d)", ip, TSTR(clis), isel);
  return list_widget("wgdlis", ip, clis, isel, WKind::DList);
}

int wgbox(int ip, const char *clis, int isel) {
  mv_tracef("wgbox(%d, %s, %d)", ip, TSTR(clis), isel);
  return list_widget("wgbox", ip, clis, isel, WKind::Box);
}

int wgscl(int ip, const char *clab, float xmin, float xmax, float xval, int ndez) {
  mv_tracef("wgscl(%d, %s, %g, %g, %g, %d)", ip, TSTR(clab), (double)xmin, (double)xmax, (double)xval, ndez);
  if (!usable(xmin) || !usable(xmax) || !usable(xval) || xmin >= xmax) {
    mv_warn("wgscl", "range %g..%g or value %g is not usable", (double)xmin, (double)xmax, (double)xval);
    return -1;
  }
  if (ndez < 0 || ndez > 10) {
    mv_warn("wgscl", "decimals %d out of range 0..10: 0 is used", ndez);
    ndez = 0;
  }
  return make("wgscl", ip, WKind::Scale, [&](Widget &w) {
    w.label = str(clab);
    w.fmin = xmin, w.fmax = xmax, w.fval = std::clamp<double>(xval, xmin, xmax);
    w.ndig = ndez;
    w.fstep = ws().step;
    w.layout = ws().vscale ? 1 : 0;
    w.cols = ws().scl_value ? 0 : 1;
  });
}

int wgpbar(int ip, float xmin, float xmax, float xstp) {
  mv_tracef("wgpbar(%d, %g, %g, %g)", ip, (double)xmin, (double)xmax, (double)xstp);
  if (!usable(xmin) || !usable(xmax) || !usable(xstp) || xmin >= xmax || xstp < 0) {
    mv_warn("wgpbar", "range %g..%g or step %g is not usable", (double)xmin, (double)xmax, (double)xstp);
    return -1;
  }
  return make("wgpbar", ip, WKind::PBar,
              [&](Widget &w) { w.fmin = xmin, w.fmax = xmax, w.fval = xmin, w.fstep = xstp; });
}

int wgtbl(int ip, int nrows, int ncols) {
  mv_tracef("wgtbl(%d, %d, %d)", ip, nrows, ncols);
  if (nrows < 1 || ncols < 1 || nrows > 10000 || ncols > 100) {
    mv_warn("wgtbl", "table size %d x %d out of range (1..10000 rows, 1..100 columns)", nrows, ncols);
    return -1;
  }
  return make("wgtbl", ip, WKind::Table, [&](Widget &w) {
    w.rows = nrows, w.cols = ncols;
    w.cells.assign(size_t(nrows) * ncols, "");
    w.ndig = ws().table_edit ? 0 : 1;
  });
}

int wgsep(int ip) {
  mv_tracef("wgsep(%d)", ip);
  return make("wgsep", ip, WKind::Sep, nothing);
}

int wgdraw(int ip) {
  mv_tracef("wgdraw(%d)", ip);
  return make("wgdraw", ip, WKind::Draw, nothing);
}

int wgpop(int ip, const char *c) {
  mv_tracef("wgpop(%d, %s)", ip, TSTR(c));
  if (!on_main("wgpop", ip)) return -1;
  return make("wgpop", ip, WKind::Pop, [&](Widget &w) { w.label = str(c); });
}

int wgapp(int ip, const char *c) {
  mv_tracef("wgapp(%d, %s)", ip, TSTR(c));
  return make("wgapp", ip, WKind::App, [&](Widget &w) { w.label = str(c); });
}

static bool image_ok(const char *routine, const unsigned char *iray, int nw, int nh) {
  if (!iray || nw < 1 || nh < 1 || nw > 4096 || nh > 4096) {
    mv_warn(routine, "image size %d x %d out of range 1..4096 (or no pixels)", nw, nh);
    return false;
  }
  return true;
}

static GtkWidget *image_of(const unsigned char *iray, int nw, int nh) {
  if (!wrt().gtk_ok) return nullptr;
  GdkPixbuf *pb = pixbuf_of(iray, nw, nh);
  GtkWidget *img = gtk_image_new_from_pixbuf(pb);
  g_object_unref(pb);
  return img;
}

static GtkWidget *icon_of(const char *file, int nw, int nh) {
  if (!wrt().gtk_ok) return nullptr;
  GdkPixbuf *pb = gdk_pixbuf_new_from_file_at_scale(file, nw, nh, TRUE, nullptr);
  if (!pb) return nullptr;
  GtkWidget *img = gtk_image_new_from_pixbuf(pb);
  g_object_unref(pb);
  return img;
}

static int image_widget(const char *routine, WKind kind, const char *label, GtkWidget *img) {
  int id = make(routine, wrt().current_base, kind, [&](Widget &w) {
    w.label = str(label);
    w.menu = img;
  });
  if (id < 0 && img) gtk_widget_destroy(img);
  return id;
}

int wgimg(const char *copt, const unsigned char *iray, int nw, int nh) {
  mv_tracef("wgimg(copt=%s, iray=[bytes], nw=%d, nh=%d)", TSTR(copt), nw, nh);
  if (!image_ok("wgimg", iray, nw, nh)) return -1;
  return image_widget("wgimg", WKind::Image, copt, image_of(iray, nw, nh));
}

int wgpimg(const char *copt, const unsigned char *iray, int nw, int nh) {
  mv_tracef("wgpimg(copt=%s, iray=[bytes], nw=%d, nh=%d)", TSTR(copt), nw, nh);
  if (!image_ok("wgpimg", iray, nw, nh)) return -1;
  return image_widget("wgpimg", WKind::PImage, copt, image_of(iray, nw, nh));
}

static bool icon_ok(const char *routine, int nw, int nh, const char *file) {
  if (nw < 1 || nh < 1 || nw > 4096 || nh > 4096) {
    mv_warn(routine, "icon size %d x %d out of range 1..4096", nw, nh);
    return false;
  }
  if (!file || access(file, R_OK) != 0) {
    mv_warn(routine, "cannot read icon file %s", TSTR(file));
    return false;
  }
  return true;
}

int wgicon(const char *clab, int nw, int nh, const char *cfile) {
  mv_tracef("wgicon(%s, %d, %d, %s)", TSTR(clab), nw, nh, TSTR(cfile));
  if (!icon_ok("wgicon", nw, nh, cfile)) return -1;
  return image_widget("wgicon", WKind::Image, clab, icon_of(cfile, nw, nh));
}

int wgpicon(const char *clab, int nw, int nh, const char *cfile) {
  mv_tracef("wgpicon(%s, %d, %d, %s)", TSTR(clab), nw, nh, TSTR(cfile));
  if (!icon_ok("wgpicon", nw, nh, cfile)) return -1;
  return image_widget("wgpicon", WKind::PImage, clab, icon_of(cfile, nw, nh));
}

// WGPOPB and WGAPPB: a menu entry that shows an image instead of a label.
static void image_entry(Widget &w, const unsigned char *iray, int nw, int nh) {
  if (!shown()) return;
  w.main = gtk_menu_item_new();
  gtk_container_add(GTK_CONTAINER(w.main), image_of(iray, nw, nh));
}

int wgpopb(int ip, const unsigned char *iray, int nw, int nh) {
  mv_tracef("wgpopb(ip=%d, iray=[bytes], nw=%d, nh=%d)", ip, nw, nh);
  if (!image_ok("wgpopb", iray, nw, nh) || !on_main("wgpopb", ip)) return -1;
  return make("wgpopb", ip, WKind::Pop, [&](Widget &w) { image_entry(w, iray, nw, nh); });
}

int wgappb(int ip, const unsigned char *iray, int nw, int nh) {
  mv_tracef("wgappb(ip=%d, iray=[bytes], nw=%d, nh=%d)", ip, nw, nh);
  if (!image_ok("wgappb", iray, nw, nh)) return -1;
  return make("wgappb", ip, WKind::App, [&](Widget &w) { image_entry(w, iray, nw, nh); });
}

// WGFIN and REAWGT: the panel goes on the screen, the widgets the script hid staying hidden;
// false when there is none to show.
static bool show_panel(const char *routine) {
  WindowRuntime &r = wrt();
  if (!r.main) {
    mv_warn(routine, "WGINI was not called");
    return false;
  }
  if (!shown()) return false;  // no display: nothing to show or wait for
  gtk_widget_show_all(r.top);
  for (Widget &w : r.widgets)
    if (!w.visible && w.top) gtk_widget_hide(w.top);
  return true;
}

void wgfin(void) {
  mv_tracef("wgfin()");
  WindowRuntime &r = wrt();
  if (r.in_loop) {  // only a panel made by WGINI runs
    mv_warn("wgfin", "the panel is already running");
    return;
  }
  if (!show_panel("wgfin")) return;
  r.in_loop = true;
  r.leave = false;
  wv_wait(r.leave);
  r.in_loop = false;
  drop_gtk();
}

void reawgt(void) {
  mv_tracef("reawgt()");
  WindowRuntime &r = wrt();
  if (!show_panel("reawgt")) return;
  // the panel is on the screen with its final sizes before the script draws into it
  gint64 end = g_get_monotonic_time() + 500000;
  while (!gtk_widget_get_mapped(r.top) && g_get_monotonic_time() < end)
    if (!g_main_context_iteration(nullptr, FALSE)) g_usleep(1000);
  wv_pump();
}

void sendok(void) {
  mv_tracef("sendok()");
  wrt().leave = true;
}

int gwggui(void) {
  mv_tracef("gwggui()");
  return wv_gtk() ? 1 : 0;
}

// ---- values ----

void swgtxt(int id, const char *c) {
  mv_tracef("swgtxt(%d, %s)", id, TSTR(c));
  Widget *w = need("swgtxt", id, {WKind::Text, WKind::LongText, WKind::STxt, WKind::Label, WKind::File,
                                  WKind::PButton, WKind::Button});
  if (!w || !text_ok("swgtxt", c, "text")) return;
  Quiet q;
  if (w->kind == WKind::STxt) {
    // scrolled texts collect lines, keeping the newest
    if (!w->text.empty()) w->text += "\n";
    w->text += c;
    if (w->cols > 0) {
      int lines = int(std::count(w->text.begin(), w->text.end(), '\n')) + 1;
      while (lines-- > w->cols) w->text.erase(0, w->text.find('\n') + 1);
    }
    if (w->main) {
      GtkTextBuffer *b = gtk_text_view_get_buffer(GTK_TEXT_VIEW(w->main));
      gtk_text_buffer_set_text(b, w->text.c_str(), -1);
      GtkTextIter e;
      gtk_text_buffer_get_end_iter(b, &e);
      gtk_text_view_scroll_to_iter(GTK_TEXT_VIEW(w->main), &e, 0, FALSE, 0, 0);
    }
  } else if (w->kind == WKind::Label) {
    w->text = c;
    if (w->main) gtk_label_set_text(GTK_LABEL(w->main), c);
  } else if (w->kind == WKind::PButton || w->kind == WKind::Button) {
    w->label = c;
    if (w->main) gtk_button_set_label(GTK_BUTTON(w->main), c);
  } else {
    set_entry(*w, c);
  }
  wv_pump();
}

const char *gwgtxt(int id) {
  mv_tracef("gwgtxt(%d)", id);
  static std::string out;
  return text_of(out, "gwgtxt", id, {WKind::Text, WKind::LongText, WKind::STxt, WKind::Label, WKind::File});
}

void swgfil(int id, const char *c) {
  mv_tracef("swgfil(%d, %s)", id, TSTR(c));
  Widget *w = need("swgfil", id, {WKind::File});
  if (w && text_ok("swgfil", c, "file name")) set_entry(*w, c);
}

const char *gwgfil(int id) {
  mv_tracef("gwgfil(%d)", id);
  static std::string out;
  return text_of(out, "gwgfil", id, {WKind::File});
}

void swgint(int id, int n) {
  mv_tracef("swgint(%d, %d)", id, n);
  if (Widget *w = need("swgint", id, {WKind::Text, WKind::LongText})) set_entry(*w, std::to_string(n));
}

int gwgint(int id) {
  mv_tracef("gwgint(%d)", id);
  return int(entry_number("gwgint", id, true));
}

void swgflt(int id, float x, int ndig) {
  mv_tracef("swgflt(%d, %g, %d)", id, (double)x, ndig);
  Widget *w = need("swgflt", id, {WKind::Text, WKind::LongText});
  if (!w) return;
  if (!std::isfinite(x) || ndig < 0 || ndig > 12) {
    mv_warn("swgflt", "value %g or decimals %d not usable", (double)x, ndig);
    return;
  }
  set_entry(*w, fmt_float(x, ndig));
}

double gwgflt(int id) {
  mv_tracef("gwgflt(%d)", id);
  return entry_number("gwgflt", id, false);
}

void swgbut(int id, int ival) {
  mv_tracef("swgbut(%d, %d)", id, ival);
  Widget *w = need("swgbut", id, {WKind::Button});
  if (!w) return;
  if (ival != 0 && ival != 1) {
    mv_warn("swgbut", "state %d is not 0 or 1", ival);
    return;
  }
  Quiet q;
  w->ival = ival;
  if (w->main) gtk_toggle_button_set_active(GTK_TOGGLE_BUTTON(w->main), ival);
}

int gwgbut(int id) {
  mv_tracef("gwgbut(%d)", id);
  Widget *w = need("gwgbut", id, {WKind::Button, WKind::Ok, WKind::Quit});
  if (!w) return 0;
  if (w->kind != WKind::Button) return w->pressed ? 1 : 0;
  sync(*w);
  return w->ival;
}

static void select_item(const char *routine, int id, int isel, std::initializer_list<WKind> kinds) {
  Widget *w = need(routine, id, kinds);
  if (!w) return;
  if (isel < (w->kind == WKind::List ? 0 : 1) || isel > int(w->items.size())) {
    mv_warn(routine, "item %d out of range 1..%zu", isel, w->items.size());
    return;
  }
  Quiet q;
  w->ival = isel;
  std::fill(w->sel.begin(), w->sel.end(), 0);
  if (isel > 0) w->sel[size_t(isel) - 1] = 1;
  if (!w->main) return;
  if (w->kind == WKind::DList) {
    gtk_combo_box_set_active(GTK_COMBO_BOX(w->main), isel - 1);
  } else if (w->kind == WKind::List) {
    gtk_list_box_unselect_all(GTK_LIST_BOX(w->main));
    if (isel > 0)
      gtk_list_box_select_row(GTK_LIST_BOX(w->main), gtk_list_box_get_row_at_index(GTK_LIST_BOX(w->main), isel - 1));
  } else {
    GList *kids = gtk_container_get_children(GTK_CONTAINER(w->main));
    if (GList *k = g_list_nth(kids, guint(isel - 1)))
      gtk_toggle_button_set_active(GTK_TOGGLE_BUTTON(k->data), TRUE);
    g_list_free(kids);
  }
}

void swglis(int id, int isel) {
  mv_tracef("swglis(%d, %d)", id, isel);
  select_item("swglis", id, isel, {WKind::List, WKind::DList});
}

int gwglis(int id) {
  mv_tracef("gwglis(%d)", id);
  Widget *w = need("gwglis", id, {WKind::List, WKind::DList});
  if (!w) return 0;
  sync(*w);
  return w->ival;
}

void swgbox(int id, int isel) {
  mv_tracef("swgbox(%d, %d)", id, isel);
  select_item("swgbox", id, isel, {WKind::Box});
}

int gwgbox(int id) {
  mv_tracef("gwgbox(%d)", id);
  Widget *w = need("gwgbox", id, {WKind::Box});
  return w ? w->ival : 0;
}

void swgscl(int id, float x) {
  mv_tracef("swgscl(%d, %g)", id, (double)x);
  Widget *w = need("swgscl", id, {WKind::Scale});
  if (!w) return;
  if (!std::isfinite(x) || x < w->fmin || x > w->fmax) {
    mv_warn("swgscl", "value %g outside the scale's range %g..%g", (double)x, w->fmin, w->fmax);
    return;
  }
  Quiet q;
  w->fval = x;
  if (w->main) gtk_range_set_value(GTK_RANGE(w->main), x);
}

double gwgscl(int id) {
  mv_tracef("gwgscl(%d)", id);
  Widget *w = need("gwgscl", id, {WKind::Scale});
  if (!w) return 0;
  sync(*w);
  // the value as shown, with the scale's decimals
  double k = std::pow(10.0, w->ndig);
  return std::round(w->fval * k) / k;
}

void swgval(int id, float x) {
  mv_tracef("swgval(%d, %g)", id, (double)x);
  Widget *w = need("swgval", id, {WKind::PBar, WKind::Scale});
  if (!w) return;
  if (!std::isfinite(x)) {
    mv_warn("swgval", "value is not a number");
    return;
  }
  Quiet q;
  w->fval = std::clamp<double>(x, w->fmin, w->fmax);
  if (w->main && w->kind == WKind::PBar)
    gtk_progress_bar_set_fraction(GTK_PROGRESS_BAR(w->main), (w->fval - w->fmin) / (w->fmax - w->fmin));
  else if (w->main)
    gtk_range_set_value(GTK_RANGE(w->main), w->fval);
  wv_pump();
}

void swgatt(int id, const char *cval, const char *copt) {
  mv_tracef("swgatt(%d, %s, %s)", id, TSTR(cval), TSTR(copt));
  Widget *w = widget_of("swgatt", id);
  if (!w) return;
  Quiet q;
  if (same(copt, "STATUS")) {
    if (same(cval, "ACTIVE") || same(cval, "ON")) w->active = true;
    else if (same(cval, "INACTIVE") || same(cval, "OFF")) w->active = false;
    else return mv_warn("swgatt", "unknown status %s (ACTIVE or INACTIVE)", TSTR(cval));
    if (w->top) gtk_widget_set_sensitive(w->top, w->active);
  } else if (same(copt, "VISIBLE")) {
    if (same(cval, "ON") || same(cval, "VISIBLE")) w->visible = true;
    else if (same(cval, "OFF") || same(cval, "INVISIBLE")) w->visible = false;
    else return mv_warn("swgatt", "unknown visibility %s (ON or OFF)", TSTR(cval));
    if (w->top) gtk_widget_set_visible(w->top, w->visible);
  } else if (same(copt, "LIST")) {
    if (w->kind != WKind::List && w->kind != WKind::DList)
      return mv_warn("swgatt", "widget %d is not a list", id);
    if (!cval || !*cval) return mv_warn("swgatt", "empty list of items");
    w->items = split(cval);
    w->sel.assign(w->items.size(), 0);
    w->ival = w->kind == WKind::List ? 0 : 1;
    if (w->kind == WKind::DList) w->sel[0] = 1;
    if (w->main && w->kind == WKind::DList) {
      gtk_combo_box_text_remove_all(GTK_COMBO_BOX_TEXT(w->main));
      for (auto &it : w->items) gtk_combo_box_text_append_text(GTK_COMBO_BOX_TEXT(w->main), it.c_str());
      gtk_combo_box_set_active(GTK_COMBO_BOX(w->main), 0);
    } else if (w->main) {
      GList *kids = gtk_container_get_children(GTK_CONTAINER(w->main));
      for (GList *k = kids; k; k = k->next) gtk_widget_destroy(GTK_WIDGET(k->data));
      g_list_free(kids);
      for (auto &it : w->items) {
        GtkWidget *lab = gtk_label_new(it.c_str());
        gtk_label_set_xalign(GTK_LABEL(lab), 0);
        gtk_list_box_insert(GTK_LIST_BOX(w->main), lab, -1);
      }
      gtk_widget_show_all(w->main);
    }
  } else {
    mv_warn("swgatt", "unknown attribute %s (STATUS, VISIBLE or LIST)", TSTR(copt));
  }
}

int gwgatt(int id, const char *copt) {
  mv_tracef("gwgatt(%d, %s)", id, TSTR(copt));
  Widget *w = widget_of("gwgatt", id);
  if (!w) return 0;
  if (same(copt, "STATUS")) return w->active ? 1 : 0;
  if (same(copt, "VISIBLE")) return w->visible ? 1 : 0;
  if (same(copt, "LIST") || same(copt, "NUMBER")) return int(w->items.size());
  mv_warn("gwgatt", "unknown attribute %s (STATUS, VISIBLE or LIST)", TSTR(copt));
  return 0;
}

static void colour(const char *routine, int id, float r, float g, float b, bool back) {
  Widget *w = widget_of(routine, id);
  if (!w) return;
  if (!(r >= 0 && r <= 1 && g >= 0 && g <= 1 && b >= 0 && b <= 1))
    return mv_warn(routine, "colour %g, %g, %g outside 0..1", (double)r, (double)g, (double)b);
  char rule[128];
  std::snprintf(rule, sizeof rule, "%s: rgb(%d,%d,%d);", back ? "background-color" : "color",
                int(r * 255 + 0.5), int(g * 255 + 0.5), int(b * 255 + 0.5));
  if (back) css(w->top, std::string(rule) + " background-image: none;");
  css(w->main, std::string(rule) + (back ? " background-image: none;" : ""));
}

void swgbgd(int id, float r, float g, float b) {
  mv_tracef("swgbgd(%d, %g, %g, %g)", id, (double)r, (double)g, (double)b);
  colour("swgbgd", id, r, g, b, true);
}

void swgfgd(int id, float r, float g, float b) {
  mv_tracef("swgfgd(%d, %g, %g, %g)", id, (double)r, (double)g, (double)b);
  colour("swgfgd", id, r, g, b, false);
}

void swgclr(float r, float g, float b, const char *copt) {
  mv_tracef("swgclr(%g, %g, %g, %s)", (double)r, (double)g, (double)b, TSTR(copt));
  bool back = same(copt, "BACK") || same(copt, "BACKGROUND");
  bool fore = same(copt, "FORE") || same(copt, "FOREGROUND");
  if (!back && !fore) return mv_warn("swgclr", "unknown option %s (BACK or FORE)", TSTR(copt));
  if (!wrt().main) return mv_warn("swgclr", "WGINI must be called first");
  colour("swgclr", wrt().main, r, g, b, back);
  if (back && wrt().top) colour("swgclr", wrt().main, r, g, b, true), css(wrt().top, "");
}

void swgfoc(int id) {
  mv_tracef("swgfoc(%d)", id);
  Widget *w = widget_of("swgfoc", id);
  if (w && w->main) gtk_widget_grab_focus(w->main);
}

void swgsiz(int nw, int nh) {
  mv_tracef("swgsiz(%d, %d)", nw, nh);
  if (nw < 1 || nh < 1 || nw > 8000 || nh > 8000) return mv_warn("swgsiz", "size %d x %d out of range 1..8000", nw, nh);
  ws().size_w = nw, ws().size_h = nh;
  if (wrt().top) gtk_window_resize(GTK_WINDOW(wrt().top), nw, nh);
}

void swgpos(int nx, int ny) {
  mv_tracef("swgpos(%d, %d)", nx, ny);
  if (nx < 0 || ny < 0 || nx > 30000 || ny > 30000) return mv_warn("swgpos", "place %d, %d out of range", nx, ny);
  ws().pos_x = nx, ws().pos_y = ny;
  if (wrt().top) gtk_window_move(GTK_WINDOW(wrt().top), nx, ny);
}

void swgwin(int nx, int ny, int nw, int nh) {
  mv_tracef("swgwin(%d, %d, %d, %d)", nx, ny, nw, nh);
  if (nx < 0 || ny < 0 || nw < 1 || nh < 1 || nx > 8000 || ny > 8000 || nw > 8000 || nh > 8000)
    return mv_warn("swgwin", "place %d, %d or size %d x %d out of range", nx, ny, nw, nh);
  ws().nx = nx, ws().ny = ny, ws().nw = nw, ws().nh = nh;
}

void gwgsiz(int id, int *nw, int *nh) {
  mv_tracef("gwgsiz(id=%d, nw=out, nh=out)", id);
  int w = 0, h = 0;
  Widget *x = widget_of("gwgsiz", id);
  if (x && x->top && gtk_widget_get_realized(x->top)) {
    w = gtk_widget_get_allocated_width(x->kind == WKind::Draw ? x->main : x->top);
    h = gtk_widget_get_allocated_height(x->kind == WKind::Draw ? x->main : x->top);
  } else if (x && x->fw > 0) {
    w = x->fw, h = x->fh;
  }
  if (nw) *nw = w;
  if (nh) *nh = h;
}

int gwgxid(int id) {
  mv_tracef("gwgxid(%d)", id);
  Widget *w = widget_of("gwgxid", id);
  if (!w) return 0;
  GtkWidget *g = w->kind == WKind::Draw ? w->main : w->top;
  if (!g || !gtk_widget_get_realized(g)) return 0;
  GdkWindow *gw = gtk_widget_get_window(g);
  return gw && GDK_IS_X11_WINDOW(gw) ? int(gdk_x11_window_get_xid(gw)) : 0;
}

// ---- tables ----

void swgtbl(int id, const float *xray, int n, int ndig, int idx, const char *copt) {
  mv_tracef("swgtbl(id=%d, xray=%s, n=%d, ndig=%d, idx=%d, copt=%s)", id, TARR(n, "floats"), n, ndig, idx, TSTR(copt));
  Widget *w = need("swgtbl", id, {WKind::Table});
  if (!w) return;
  bool row = same(copt, "ROW"), col = same(copt, "COLUMN");
  if (!row && !col) return mv_warn("swgtbl", "unknown option %s (ROW or COLUMN)", TSTR(copt));
  int lim = row ? w->cols : w->rows;
  if (!xray || n < 1) return mv_warn("swgtbl", "count %d is less than 1", n);
  if (ndig < -1 || ndig > 12) return mv_warn("swgtbl", "decimals %d out of range -1..12", ndig);
  if (idx < 1 || idx > (row ? w->rows : w->cols)) return mv_warn("swgtbl", "%s %d out of range", row ? "row" : "column", idx);
  for (int k = 0; k < std::min(n, lim); ++k) {
    std::string v = !std::isfinite(xray[k]) ? "" : ndig < 0 ? std::to_string(std::lround(xray[k])) : fmt_float(xray[k], ndig);
    set_cells(*w, row ? idx : k + 1, row ? k + 1 : idx, v);
  }
}

void gwgtbl(int id, float *xray, int n, int idx, const char *copt) {
  mv_tracef("gwgtbl(id=%d, xray=%s, n=%d, idx=%d, copt=%s)", id, TARR(n, "floats out"), n, idx, TSTR(copt));
  Widget *w = need("gwgtbl", id, {WKind::Table});
  if (!w || !xray || n < 1) {
    if (w) mv_warn("gwgtbl", "count %d is less than 1", n);
    return;
  }
  bool row = same(copt, "ROW"), col = same(copt, "COLUMN");
  if (!row && !col) return mv_warn("gwgtbl", "unknown option %s (ROW or COLUMN)", TSTR(copt));
  if (idx < 1 || idx > (row ? w->rows : w->cols)) return mv_warn("gwgtbl", "%s %d out of range", row ? "row" : "column", idx);
  int lim = row ? w->cols : w->rows;
  for (int k = 0; k < n; ++k) {
    if (k >= lim) {
      xray[k] = 0;
      continue;
    }
    const std::string &s = row ? w->cells[size_t(idx - 1) * w->cols + k] : w->cells[size_t(k) * w->cols + idx - 1];
    xray[k] = float(std::strtod(s.c_str(), nullptr));
  }
}

static void table_set(const char *routine, int id, const std::string &v, int row, int col, const char *copt) {
  Widget *w = need(routine, id, {WKind::Table});
  if (!w || !cell_ok(routine, *w, row, col, true)) return;
  if (same(copt, "VALUE")) {
    set_cells(*w, row, col, v);
  } else if (same(copt, "EDIT") || same(copt, "NOEDIT")) {
    // whole tables only: GTK cells share one editable flag per column
    w->ndig = same(copt, "EDIT") ? 0 : 1;
    if (w->main) {
      GList *cols = gtk_tree_view_get_columns(GTK_TREE_VIEW(w->main));
      for (GList *c = cols; c; c = c->next) {
        GList *cells = gtk_cell_layout_get_cells(GTK_CELL_LAYOUT(c->data));
        for (GList *k = cells; k; k = k->next) g_object_set(k->data, "editable", w->ndig ? FALSE : TRUE, nullptr);
        g_list_free(cells);
      }
      g_list_free(cols);
    }
  } else {
    mv_warn(routine, "unknown option %s (VALUE, EDIT or NOEDIT)", TSTR(copt));
  }
}

void swgtbf(int id, float x, int ndig, int row, int col, const char *copt) {
  mv_tracef("swgtbf(%d, %g, %d, %d, %d, %s)", id, (double)x, ndig, row, col, TSTR(copt));
  if (!std::isfinite(x) || ndig < 0 || ndig > 12) return mv_warn("swgtbf", "value %g or decimals %d not usable", (double)x, ndig);
  table_set("swgtbf", id, fmt_float(x, ndig), row, col, copt);
}

void swgtbi(int id, int n, int row, int col, const char *copt) {
  mv_tracef("swgtbi(%d, %d, %d, %d, %s)", id, n, row, col, TSTR(copt));
  table_set("swgtbi", id, std::to_string(n), row, col, copt);
}

void swgtbs(int id, const char *c, int row, int col, const char *copt) {
  mv_tracef("swgtbs(%d, %s, %d, %d, %s)", id, TSTR(c), row, col, TSTR(copt));
  if (!text_ok("swgtbs", c, "text")) return;
  table_set("swgtbs", id, c, row, col, copt);
}

static const std::string *cell(const char *routine, int id, int row, int col) {
  Widget *w = need(routine, id, {WKind::Table});
  if (!w || !cell_ok(routine, *w, row, col, false)) return nullptr;
  return &w->cells[size_t(row - 1) * w->cols + col - 1];
}

double gwgtbf(int id, int row, int col) {
  mv_tracef("gwgtbf(%d, %d, %d)", id, row, col);
  const std::string *s = cell("gwgtbf", id, row, col);
  return s ? std::strtod(s->c_str(), nullptr) : 0.0;
}

int gwgtbi(int id, int row, int col) {
  mv_tracef("gwgtbi(%d, %d, %d)", id, row, col);
  const std::string *s = cell("gwgtbi", id, row, col);
  return s ? int(std::strtol(s->c_str(), nullptr, 10)) : 0;
}

const char *gwgtbs(int id, int row, int col) {
  mv_tracef("gwgtbs(%d, %d, %d)", id, row, col);
  static std::string out;
  const std::string *s = cell("gwgtbs", id, row, col);
  out = s ? *s : "";
  return out.c_str();
}

// ---- callbacks ----

void swgcb(int id, MvWidgetCb cb, int *iray) {
  mv_tracef("swgcb(id=%d, cb=callback, iray=[ints])", id);
  if (Widget *w = callback_of("swgcb", id)) w->cb = cb, w->cb_iray = iray;
}

void swgcb2(int id, MvWidgetCb2 cb) {
  mv_tracef("swgcb2(id=%d, cb=callback)", id);
  if (Widget *w = callback_of("swgcb2", id)) w->cb2 = cb;
}

void swgcb3(int id, MvWidgetCb3 cb) {
  mv_tracef("swgcb3(id=%d, cb=callback)", id);
  Widget *w = wv_widget(id);
  if (w && w->kind != WKind::Table) return mv_warn("swgcb3", "widget %d is not a table (WGTBL)", id);
  if ((w = callback_of("swgcb3", id))) w->cb3 = cb;
}

void swgcbk(int id, MvWidgetKeyCb cb) {
  mv_tracef("swgcbk(id=%d, cb=callback)", id);
  if (Widget *w = callback_of("swgcbk", id)) w->cbk = cb;
}

// ---- settings of the next widgets ----

void swgwth(int n) {
  mv_tracef("swgwth(%d)", n);
  if (n == 0 || n > 500 || n < -4000) return mv_warn("swgwth", "width %d out of range (1..500 characters, -1..-4000 pixels)", n);
  ws().swgwth = n;
}

void swgspc(float xw, float xh) {
  mv_tracef("swgspc(%g, %g)", (double)xw, (double)xh);
  if (!(xw >= 0 && xw <= 200 && xh >= 0 && xh <= 200)) return mv_warn("swgspc", "spacing %g, %g out of range 0..200", (double)xw, (double)xh);
  ws().spc_w = xw, ws().spc_h = xh;
}

void swgjus(const char *cjus, const char *cwidget) {
  mv_tracef("swgjus(%s, %s)", TSTR(cjus), TSTR(cwidget));
  if (!same(cwidget, "LABEL")) return mv_warn("swgjus", "unknown widget kind %s (LABEL)", TSTR(cwidget));
  if (same(cjus, "LEFT")) ws().jus_label = 0;
  else if (same(cjus, "CENTER") || same(cjus, "CENTRE")) ws().jus_label = 1;
  else if (same(cjus, "RIGHT")) ws().jus_label = 2;
  else mv_warn("swgjus", "unknown justification %s (LEFT, CENTER or RIGHT)", TSTR(cjus));
}

void swghlp(const char *c) {
  mv_tracef("swghlp(%s)", TSTR(c));
  if (!text_ok("swghlp", c, "help text")) return;
  // '|' starts a new line, as in the lists
  std::string t = c;
  std::replace(t.begin(), t.end(), ws().sep, '\n');
  ws().help = t;
}

void swgtit(const char *c) {
  mv_tracef("swgtit(%s)", TSTR(c));
  if (!text_ok("swgtit", c, "title")) return;
  ws().wtitle = c;
  if (wrt().top) gtk_window_set_title(GTK_WINDOW(wrt().top), c);
}

void swgpop(const char *c) {
  mv_tracef("swgpop(%s)", TSTR(c));
  WindowState &s = ws();
  if (same(c, "NOOK")) s.pop_ok = false;
  else if (same(c, "OK")) s.pop_ok = true;
  else if (same(c, "NOQUIT")) s.pop_quit = false;
  else if (same(c, "QUIT")) s.pop_quit = true;
  else if (same(c, "NOHELP")) s.pop_help = false;
  else if (same(c, "HELP")) s.pop_help = true;
  else mv_warn("swgpop", "unknown option %s (OK, NOOK, QUIT, NOQUIT, HELP, NOHELP)", TSTR(c));
}

void swgtyp(const char *ctyp, const char *cwidget) {
  mv_tracef("swgtyp(%s, %s)", TSTR(ctyp), TSTR(cwidget));
  WindowState &s = ws();
  if (same(cwidget, "SCALE") && (same(ctyp, "VERT") || same(ctyp, "HORI"))) s.vscale = same(ctyp, "VERT");
  else if (same(cwidget, "LIST") && (same(ctyp, "MULTI") || same(ctyp, "SINGLE"))) s.multi = same(ctyp, "MULTI");
  else if (same(cwidget, "LIST") && (same(ctyp, "SCROLL") || same(ctyp, "NOSCROLL"))) s.list_scroll = same(ctyp, "SCROLL");
  else if (same(cwidget, "TABLE") && (same(ctyp, "EDIT") || same(ctyp, "NOEDIT"))) s.table_edit = same(ctyp, "EDIT");
  else mv_warn("swgtyp", "unknown type %s for %s", TSTR(ctyp), TSTR(cwidget));
}

void swgstp(float x) {
  mv_tracef("swgstp(%g)", (double)x);
  if (!(x >= 0) || !usable(x)) return mv_warn("swgstp", "step %g is not usable", (double)x);
  ws().step = x;
}

void swgdrw(float x) {
  mv_tracef("swgdrw(%g)", (double)x);
  if (!(x > 0.05 && x <= 10)) return mv_warn("swgdrw", "height factor %g out of range 0.05..10", (double)x);
  ws().draw_ratio = x;
}

void swgmix(const char *c1, const char *c2) {
  mv_tracef("swgmix(%s, %s)", TSTR(c1), TSTR(c2));
  if (!same(c2, "SEP")) return mv_warn("swgmix", "unknown option %s (SEP)", TSTR(c2));
  if (!c1 || std::strlen(c1) != 1) return mv_warn("swgmix", "separator must be one character, not %s", TSTR(c1));
  ws().sep = c1[0];
}

void swgfnt(const char *c, int n) {
  mv_tracef("swgfnt(%s, %d)", TSTR(c), n);
  if (!c || !*c) return mv_warn("swgfnt", "empty font name");
  if (n < 0 || n > 200) return mv_warn("swgfnt", "size %d out of range 0..200 (0: the desktop's)", n);
  ws().wfont = same(c, "STANDARD") ? "" : c;
  ws().wfont_size = n;
}

void swgmrg(int n, const char *c) {
  mv_tracef("swgmrg(%d, %s)", n, TSTR(c));
  if (n < 0 || n > 500) return mv_warn("swgmrg", "margin %d out of range 0..500", n);
  WindowState &s = ws();
  if (same(c, "LEFT")) s.mrg_l = n;
  else if (same(c, "RIGHT")) s.mrg_r = n;
  else if (same(c, "TOP")) s.mrg_t = n;
  else if (same(c, "BOTTOM")) s.mrg_b = n;
  else if (same(c, "ALL")) s.mrg_l = s.mrg_r = s.mrg_t = s.mrg_b = n;
  else mv_warn("swgmrg", "unknown side %s (LEFT, RIGHT, TOP, BOTTOM or ALL)", TSTR(c));
}

void swgopt(const char *cval, const char *copt) {
  mv_tracef("swgopt(%s, %s)", TSTR(cval), TSTR(copt));
  WindowState &s = ws();
  if (same(copt, "POSITION") && (same(cval, "CENTER") || same(cval, "STANDARD"))) s.center = same(cval, "CENTER");
  else if (same(copt, "SCALE") && (same(cval, "VALUE") || same(cval, "NOVALUE"))) s.scl_value = same(cval, "VALUE");
  else mv_warn("swgopt", "unknown option %s for %s", TSTR(cval), TSTR(copt));
}

void swgiop(int n, const char *c) {
  mv_tracef("swgiop(%d, %s)", n, TSTR(c));
  if (!same(c, "LINES")) return mv_warn("swgiop", "unknown option %s (LINES)", TSTR(c));
  if (n < 0 || n > 200) return mv_warn("swgiop", "lines %d out of range 0..200", n);
  ws().iop_lines = n;
}

void swgray(const float *xray, int n, const char *copt) {
  mv_tracef("swgray(xray=%s, n=%d, copt=%s)", TARR(n, "floats"), n, TSTR(copt));
  if (!same(copt, "SCALE")) return mv_warn("swgray", "unknown option %s (SCALE)", TSTR(copt));
  if (!xray || n < 1 || n > 1000) return mv_warn("swgray", "count %d out of range 1..1000", n);
  // marks on the latest scale
  for (auto it = wrt().widgets.rbegin(); it != wrt().widgets.rend(); ++it)
    if (it->kind == WKind::Scale) {
      if (it->main)
        for (int k = 0; k < n; ++k)
          if (std::isfinite(xray[k])) gtk_scale_add_mark(GTK_SCALE(it->main), xray[k], GTK_POS_BOTTOM, nullptr);
      return;
    }
  mv_warn("swgray", "there is no scale (WGSCL) to mark");
}

}  // extern "C"

void window_reset_widgets(MirvalState &st) {
  WindowState fresh;
  WindowState &s = st.window;
  s.swgwth = fresh.swgwth, s.spc_w = fresh.spc_w, s.spc_h = fresh.spc_h, s.jus_label = fresh.jus_label;
  s.help = fresh.help, s.wtitle = fresh.wtitle, s.pos_x = fresh.pos_x, s.pos_y = fresh.pos_y;
  s.size_w = fresh.size_w, s.size_h = fresh.size_h, s.nx = fresh.nx, s.ny = fresh.ny, s.nw = fresh.nw, s.nh = fresh.nh;
  s.pop_ok = fresh.pop_ok, s.pop_quit = fresh.pop_quit, s.pop_help = fresh.pop_help;
  s.vscale = fresh.vscale, s.multi = fresh.multi, s.list_scroll = fresh.list_scroll, s.table_edit = fresh.table_edit;
  s.step = fresh.step, s.draw_ratio = fresh.draw_ratio, s.sep = fresh.sep, s.wfont = fresh.wfont;
  s.wfont_size = fresh.wfont_size, s.mrg_l = fresh.mrg_l, s.mrg_r = fresh.mrg_r, s.mrg_t = fresh.mrg_t;
  s.mrg_b = fresh.mrg_b, s.scl_value = fresh.scl_value, s.center = fresh.center, s.iop_lines = fresh.iop_lines;
}
