// Modal dialogs: a message, a yes/no question, a choice from a list, a line of text and a file.
// Without a display each says so once and returns the default it was given.
#include "window/runtime.h"

#include "core/keywords.h"
#include "core/messages.h"
#include "core/trace.h"

#include <cstdio>
#include <set>
#include <string>
#include <vector>

#define TSTR(s) mv_tstr(s).c_str()

namespace {

bool can_show(const char *routine) {
  if (wv_gtk()) return true;
  static std::set<std::string> warned;
  if (warned.insert(routine).second)
    mv_warn(routine, "no display can be opened: the dialog is not shown and its default is returned");
  wrt().last_dialog = 1;
  return false;
}

GtkWindow *parent() { return wrt().top ? GTK_WINDOW(wrt().top) : nullptr; }

// Runs a dialog and returns its response. What the script printed so far is shown first: it is
// often the question's context.
int run(GtkWidget *d) {
  gtk_container_set_border_width(GTK_CONTAINER(d), 6);
  gtk_window_set_position(GTK_WINDOW(d), GTK_WIN_POS_CENTER);
  gtk_widget_show_all(d);
  std::fflush(stdout);
  int resp = gtk_dialog_run(GTK_DIALOG(d));
  bool answered = resp == GTK_RESPONSE_OK || resp == GTK_RESPONSE_YES || resp == GTK_RESPONSE_NO ||
                  resp == GTK_RESPONSE_ACCEPT;
  wrt().last_dialog = answered ? 0 : 1;
  return resp;
}

bool accepted(GtkWidget *d) {
  int resp = run(d);
  return resp == GTK_RESPONSE_OK || resp == GTK_RESPONSE_ACCEPT;
}

void finish(GtkWidget *d) {
  gtk_widget_destroy(d);
  wv_pump();
}

void message(const char *routine, const char *c, const char *title) {
  if (!c || !*c) return mv_warn(routine, "empty message");
  if (!can_show(routine)) return;
  std::string t = c;
  for (char &ch : t)
    if (ch == '|') ch = '\n';
  GtkWidget *d = gtk_message_dialog_new(parent(), GTK_DIALOG_MODAL, GTK_MESSAGE_INFO, GTK_BUTTONS_OK, "%s", t.c_str());
  gtk_window_set_title(GTK_WINDOW(d), title);
  run(d);
  wrt().last_dialog = 0;  // a message is seen however it is closed
  finish(d);
}

// A dialog with Cancel and OK, titled and headed by `clab` when given; returns its content area.
GtkWidget *ask(const char *clab, const char *fallback, GtkWidget *&d) {
  d = gtk_dialog_new_with_buttons(clab && *clab ? clab : fallback, parent(), GTK_DIALOG_MODAL, "Cancel",
                                  GTK_RESPONSE_CANCEL, "OK", GTK_RESPONSE_OK, nullptr);
  gtk_dialog_set_default_response(GTK_DIALOG(d), GTK_RESPONSE_OK);
  GtkWidget *area = gtk_dialog_get_content_area(GTK_DIALOG(d));
  gtk_box_set_spacing(GTK_BOX(area), 6);
  if (clab && *clab) gtk_box_pack_start(GTK_BOX(area), gtk_label_new(clab), FALSE, FALSE, 0);
  return area;
}

std::vector<std::string> items_of(const char *list) {
  std::vector<std::string> out;
  std::string cur;
  for (const char *p = list; *p; ++p) {
    if (*p == mirval_state().window.sep) out.push_back(cur), cur.clear();
    else cur += *p;
  }
  out.push_back(cur);
  return out;
}

}  // namespace

extern "C" {

void dwgmsg(const char *c) {
  mv_tracef("dwgmsg(%s)", TSTR(c));
  message("dwgmsg", c, "Message");
}

void msgbox(const char *c) {
  mv_tracef("msgbox(%s)", TSTR(c));
  message("msgbox", c, mirval_state().window.wtitle.c_str());
}

int dwgbut(const char *c, int ival) {
  mv_tracef("dwgbut(%s, %d)", TSTR(c), ival);
  if (ival != 0 && ival != 1) {
    mv_warn("dwgbut", "default %d is not 0 or 1: 0 is used", ival);
    ival = 0;
  }
  if (!c || !*c) {
    mv_warn("dwgbut", "empty question");
    return ival;
  }
  if (!can_show("dwgbut")) return ival;
  GtkWidget *d = gtk_message_dialog_new(parent(), GTK_DIALOG_MODAL, GTK_MESSAGE_QUESTION, GTK_BUTTONS_YES_NO, "%s", c);
  gtk_window_set_title(GTK_WINDOW(d), "Question");
  gtk_dialog_set_default_response(GTK_DIALOG(d), ival ? GTK_RESPONSE_YES : GTK_RESPONSE_NO);
  int resp = run(d);
  finish(d);
  return resp == GTK_RESPONSE_YES ? 1 : resp == GTK_RESPONSE_NO ? 0 : ival;
}

int dwglis(const char *clab, const char *clis, int isel) {
  mv_tracef("dwglis(%s, %s, %d)", TSTR(clab), TSTR(clis), isel);
  if (!clis || !*clis) {
    mv_warn("dwglis", "empty list of items");
    return isel;
  }
  std::vector<std::string> items = items_of(clis);
  if (isel < 1 || isel > int(items.size())) {
    mv_warn("dwglis", "selected item %d out of range 1..%zu: 1 is used", isel, items.size());
    isel = 1;
  }
  if (!can_show("dwglis")) return isel;
  GtkWidget *d;
  GtkWidget *area = ask(clab, "Choose", d);
  GtkWidget *combo = gtk_combo_box_text_new();
  for (auto &it : items) gtk_combo_box_text_append_text(GTK_COMBO_BOX_TEXT(combo), it.c_str());
  gtk_combo_box_set_active(GTK_COMBO_BOX(combo), isel - 1);
  gtk_box_pack_start(GTK_BOX(area), combo, FALSE, FALSE, 0);
  int out = isel;
  if (accepted(d)) out = gtk_combo_box_get_active(GTK_COMBO_BOX(combo)) + 1;
  finish(d);
  return out;
}

const char *dwgtxt(const char *clab, const char *cstr) {
  mv_tracef("dwgtxt(%s, %s)", TSTR(clab), TSTR(cstr));
  static std::string out;
  out = cstr ? cstr : "";
  if (!can_show("dwgtxt")) return out.c_str();
  GtkWidget *d;
  GtkWidget *area = ask(clab, "Text", d);
  GtkWidget *entry = gtk_entry_new();
  gtk_entry_set_text(GTK_ENTRY(entry), out.c_str());
  gtk_entry_set_activates_default(GTK_ENTRY(entry), TRUE);
  gtk_box_pack_start(GTK_BOX(area), entry, FALSE, FALSE, 0);
  if (accepted(d)) out = gtk_entry_get_text(GTK_ENTRY(entry));
  finish(d);
  return out.c_str();
}

const char *dwgfil(const char *clab, const char *cfile, const char *cmask) {
  mv_tracef("dwgfil(%s, %s, %s)", TSTR(clab), TSTR(cfile), TSTR(cmask));
  static std::string out;
  out = cfile ? cfile : "";
  if (!can_show("dwgfil")) return out.c_str();
  GtkWidget *d = gtk_file_chooser_dialog_new(clab && *clab ? clab : "File", parent(), GTK_FILE_CHOOSER_ACTION_OPEN,
                                             "Cancel", GTK_RESPONSE_CANCEL, "OK", GTK_RESPONSE_ACCEPT, nullptr);
  if (!out.empty()) gtk_file_chooser_set_filename(GTK_FILE_CHOOSER(d), out.c_str());
  if (cmask && *cmask) {
    GtkFileFilter *f = gtk_file_filter_new();
    gtk_file_filter_add_pattern(f, cmask);
    gtk_file_filter_set_name(f, cmask);
    gtk_file_chooser_add_filter(GTK_FILE_CHOOSER(d), f);
  }
  if (accepted(d)) {
    char *name = gtk_file_chooser_get_filename(GTK_FILE_CHOOSER(d));
    if (name) out = name;
    g_free(name);
  }
  finish(d);
  return out.c_str();
}

int dwgerr(void) {
  mv_tracef("dwgerr()");
  return wrt().last_dialog;
}

}  // extern "C"
