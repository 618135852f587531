// The help programs that the HELP statement starts. One source, five programs, told apart
// by HELP_PROGRAM:
//   mirman, zklman     the library reference / the language guide through $PAGER
//   mirhlp NAME|?      one routine's entry, or all routine names
//   zklhlp NAME|?      one statement's or standard function's entry, or all names
//   zklhelp            a window with a searchable list when a display exists, else a menu
// They read the docs installed with mirzkl, or the source tree's docs when run from a build.
#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#ifdef HELP_WINDOW
#include <gtk/gtk.h>
#endif

namespace {

bool is_dir(const std::string &p) {
  struct stat st;
  return stat(p.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

std::string exe_dir() {
  char buf[4096];
  ssize_t n = readlink("/proc/self/exe", buf, sizeof buf - 1);
  if (n <= 0) return "";
  buf[n] = '\0';
  std::string p = buf;
  size_t slash = p.rfind('/');
  return slash == std::string::npos ? "." : p.substr(0, slash);
}

// Where the docs are: $MIRZKL_DOCDIR; the source tree's when this program is the one in the
// build tree; the installed ones beside the program (PREFIX/bin -> PREFIX/share/doc/mirzkl);
// the install directory this program was built for.
std::string docs_dir() {
  const char *env = std::getenv("MIRZKL_DOCDIR");
  if (env && *env && is_dir(env)) return env;
  std::string here = exe_dir();
  if (here == HELP_BUILD_DIR && is_dir(HELP_SOURCE_DOCS)) return HELP_SOURCE_DOCS;
  std::string beside = here + "/../share/doc/mirzkl";
  if (is_dir(beside)) return beside;
  if (is_dir(HELP_INSTALL_DOCS)) return HELP_INSTALL_DOCS;
  if (is_dir(HELP_SOURCE_DOCS)) return HELP_SOURCE_DOCS;
  return "";
}

std::string read_text(const std::string &name) {
  std::ifstream in(name);
  std::stringstream ss;
  ss << in.rdbuf();
  return ss.str();
}

std::vector<std::string> lines_of(const std::string &text) {
  std::vector<std::string> out;
  std::stringstream ss(text);
  for (std::string l; std::getline(ss, l);) out.push_back(l);
  return out;
}

std::string upper(std::string s) {
  for (char &c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return s;
}

std::string trim(const std::string &s) {
  size_t a = s.find_first_not_of(" \t"), b = s.find_last_not_of(" \t");
  return a == std::string::npos ? "" : s.substr(a, b - a + 1);
}

// Entries by name, in the order found.
using Entries = std::map<std::string, std::string>;

// The library reference: '### NAME' headings in reference/*.md, each entry up to the next heading.
Entries library_entries(const std::string &docs) {
  Entries e;
  std::string dir = docs + "/reference";
  DIR *d = opendir(dir.c_str());
  if (!d) return e;
  std::vector<std::string> files;
  while (dirent *de = readdir(d)) {
    std::string n = de->d_name;
    if (n.size() > 3 && n.compare(n.size() - 3, 3, ".md") == 0) files.push_back(dir + "/" + n);
  }
  closedir(d);
  std::sort(files.begin(), files.end());
  for (const std::string &f : files) {
    std::vector<std::string> ls = lines_of(read_text(f));
    for (size_t i = 0; i < ls.size(); ++i) {
      if (ls[i].compare(0, 4, "### ") != 0) continue;
      std::string name = upper(trim(ls[i].substr(4)));
      std::string body = ls[i] + "\n";
      for (size_t k = i + 1; k < ls.size() && ls[k].compare(0, 1, "#") != 0; ++k) body += ls[k] + "\n";
      while (body.size() > 1 && body[body.size() - 1] == '\n' && body[body.size() - 2] == '\n') body.pop_back();
      if (!e.count(name)) e[name] = body;
    }
  }
  return e;
}

std::vector<std::string> cells_of(const std::string &row) {
  std::vector<std::string> cells;
  std::string cur;
  bool tick = false;
  for (size_t i = 1; i < row.size(); ++i) {
    char c = row[i];
    if (c == '`') tick = !tick;
    if (c == '|' && !tick) {
      cells.push_back(trim(cur));
      cur.clear();
    } else {
      cur += c;
    }
  }
  return cells;
}

// The language: the standard functions' tables of functions.md and the statements' table of
// the language guide, one entry per name that a row shows in back-quotes.
Entries language_entries(const std::string &docs) {
  Entries e;
  for (const char *file : {"language-guide.md", "functions.md"}) {
    std::vector<std::string> ls = lines_of(read_text(docs + "/" + file));
    std::vector<std::string> header;
    std::string section;
    for (const std::string &l : ls) {
      if (l.compare(0, 3, "## ") == 0) section = l.substr(3);
      if (l.empty() || l[0] != '|') {
        header.clear();
        continue;
      }
      std::vector<std::string> cells = cells_of(l);
      if (header.empty()) {
        header = cells;
        continue;
      }
      if (cells.empty() || cells[0].find("---") != std::string::npos) continue;
      // every `NAME...` in the first cell that starts with a capital word names an entry
      const std::string &first = cells[0];
      for (size_t at = first.find('`'); at != std::string::npos; at = first.find('`', at)) {
        size_t end = first.find('`', at + 1);
        if (end == std::string::npos) break;
        std::string code = first.substr(at + 1, end - at - 1);
        at = end + 1;
        size_t n = 0;
        while (n < code.size() && (std::isupper(static_cast<unsigned char>(code[n])) || std::isdigit(static_cast<unsigned char>(code[n])) ||
                                   (n > 0 && code[n] == '_')))
          ++n;
        if (n < 2 || (n < code.size() && std::isalpha(static_cast<unsigned char>(code[n])))) continue;
        std::string name = code.substr(0, n);
        std::string body = "### " + name + "\n`" + code + "`";
        if (!section.empty()) body += " · " + section;
        body += "\n";
        for (size_t k = 1; k < cells.size() && k < header.size(); ++k)
          if (!cells[k].empty()) body += header[k] + ": " + cells[k] + "\n";
        if (cells.size() == 2 && header.size() >= 2 && header[1] == "meaning") body = "### " + name + "\n`" + code + "`: " + cells[1] + "\n";
        if (!e.count(name)) e[name] = body;
        else if (e[name].find("`" + code + "`") == std::string::npos) e[name] += "`" + code + "`\n";
      }
    }
  }
  // names a paragraph of functions.md lists in back-quotes without a table row of their own
  std::vector<std::string> ls = lines_of(read_text(docs + "/functions.md"));
  std::string section, para;
  auto take = [&]() {
    for (size_t at = para.find('`'); at != std::string::npos; at = para.find('`', at)) {
      size_t end = para.find('`', at + 1);
      if (end == std::string::npos) break;
      std::string code = para.substr(at + 1, end - at - 1);
      at = end + 1;
      size_t n = 0;
      while (n < code.size() && (std::isupper(static_cast<unsigned char>(code[n])) || std::isdigit(static_cast<unsigned char>(code[n])))) ++n;
      if (n < 2 || (n < code.size() && code[n] != '(')) continue;
      std::string name = code.substr(0, n);
      if (!e.count(name)) e[name] = "### " + name + "\n" + section + "\n" + para + "\n";
    }
    para.clear();
  };
  for (const std::string &l : ls) {
    if (l.compare(0, 3, "## ") == 0) {
      take();
      section = l.substr(3);
    } else if (l.empty() || l[0] == '|' || l[0] == '#') {
      take();
    } else {
      para += (para.empty() ? "" : "\n") + l;
    }
  }
  take();
  return e;
}

void list_names(const Entries &e) {
  int col = 0;
  for (const auto &kv : e) {
    std::printf("%-12s", kv.first.c_str());
    if (++col == 6) {
      std::printf("\n");
      col = 0;
    }
  }
  if (col) std::printf("\n");
}

int lookup(const char *prog, const Entries &e, const char *arg) {
  if (std::strcmp(arg, "?") == 0) {
    list_names(e);
    return 0;
  }
  auto it = e.find(upper(arg));
  if (it == e.end()) {
    std::fprintf(stderr, "%s: no entry for %s (%s ? lists all names)\n", prog, arg, prog);
    return 1;
  }
  std::fputs(it->second.c_str(), stdout);
  return 0;
}

// A text through the pager when standard output is a terminal.
int page_text(const std::string &text) {
  if (!isatty(STDOUT_FILENO)) {
    std::fputs(text.c_str(), stdout);
    return 0;
  }
  const char *pager = std::getenv("PAGER");
  std::string cmd = pager && *pager ? pager : "less";
  std::fflush(stdout);
  FILE *p = popen(cmd.c_str(), "w");
  if (!p) {
    std::fputs(text.c_str(), stdout);
    return 0;
  }
  std::fputs(text.c_str(), p);
  int rc = pclose(p);
  if (rc != 0 && cmd == "less") {  // no pager here: the text itself
    std::fputs(text.c_str(), stdout);
  }
  return 0;
}

std::string manual(const std::string &docs, bool library) {
  std::string text;
  if (library) {
    text = read_text(docs + "/library-reference.md");
    std::string dir = docs + "/reference";
    std::vector<std::string> files;
    if (DIR *d = opendir(dir.c_str())) {
      while (dirent *de = readdir(d)) {
        std::string n = de->d_name;
        if (n.size() > 3 && n.compare(n.size() - 3, 3, ".md") == 0) files.push_back(dir + "/" + n);
      }
      closedir(d);
    }
    std::sort(files.begin(), files.end());
    for (const std::string &f : files) text += "\n" + read_text(f);
  } else {
    text = read_text(docs + "/language-guide.md") + "\n" + read_text(docs + "/functions.md");
  }
  return text;
}

// The text menu, as the HELP statement shows it, running the sibling programs.
int text_menu() {
  static const char *const commands[] = {"mirman", "zklman", "mirhlp ?", "zklhlp ?"};
  for (;;) {
    std::printf("\n                   ZKL Online Help\n \n");
    std::printf("           1: MIRVAL Manual\n           2: ZKL Manual\n");
    std::printf("           3: Alphabetical List of MIRVAL Routines\n");
    std::printf("           4: Alphabetical List of ZKL Routines\n           5: EXIT\n\n");
    std::printf("           Option: ");
    std::fflush(stdout);
    char line[40];
    if (!std::fgets(line, sizeof line, stdin)) return 0;
    int option = std::atoi(line);
    if (option < 1 || option > 5) {
      std::printf("Not allowed option\n");
      continue;
    }
    if (option < 5) {
      std::fflush(stdout);
      int rc = std::system(commands[option - 1]);
      (void)rc;
    }
    return 0;
  }
}

#ifdef HELP_WINDOW
struct Window {
  Entries all;
  GtkWidget *list = nullptr, *search = nullptr;
  GtkTextBuffer *text = nullptr;
};

void show_row(GtkListBox *, GtkListBoxRow *row, gpointer data) {
  Window *w = static_cast<Window *>(data);
  if (!row) return;
  const char *name = static_cast<const char *>(g_object_get_data(G_OBJECT(row), "name"));
  auto it = w->all.find(name ? name : "");
  gtk_text_buffer_set_text(w->text, it == w->all.end() ? "" : it->second.c_str(), -1);
}

gboolean keep_row(GtkListBoxRow *row, gpointer data) {
  Window *w = static_cast<Window *>(data);
  std::string want = upper(gtk_entry_get_text(GTK_ENTRY(w->search)));
  const char *name = static_cast<const char *>(g_object_get_data(G_OBJECT(row), "name"));
  return want.empty() || (name && std::string(name).find(want) != std::string::npos);
}

void refilter(GtkSearchEntry *, gpointer data) {
  gtk_list_box_invalidate_filter(GTK_LIST_BOX(static_cast<Window *>(data)->list));
}

int window(const std::string &docs) {
  Window w;
  w.all = library_entries(docs);
  for (auto &kv : language_entries(docs))
    if (!w.all.count(kv.first)) w.all[kv.first] = kv.second;
  GtkWidget *win = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  gtk_window_set_title(GTK_WINDOW(win), "ZKL and MIRVAL help");
  gtk_window_set_default_size(GTK_WINDOW(win), 900, 600);
  g_signal_connect(win, "destroy", G_CALLBACK(gtk_main_quit), nullptr);
  GtkWidget *paned = gtk_paned_new(GTK_ORIENTATION_HORIZONTAL);
  GtkWidget *left = gtk_box_new(GTK_ORIENTATION_VERTICAL, 4);
  w.search = gtk_search_entry_new();
  gtk_box_pack_start(GTK_BOX(left), w.search, FALSE, FALSE, 0);
  GtkWidget *scroll = gtk_scrolled_window_new(nullptr, nullptr);
  w.list = gtk_list_box_new();
  for (const auto &kv : w.all) {
    GtkWidget *label = gtk_label_new(kv.first.c_str());
    gtk_label_set_xalign(GTK_LABEL(label), 0);
    GtkWidget *row = gtk_list_box_row_new();
    gtk_container_add(GTK_CONTAINER(row), label);
    g_object_set_data_full(G_OBJECT(row), "name", g_strdup(kv.first.c_str()), g_free);
    gtk_container_add(GTK_CONTAINER(w.list), row);
  }
  gtk_list_box_set_filter_func(GTK_LIST_BOX(w.list), keep_row, &w, nullptr);
  g_signal_connect(w.list, "row-selected", G_CALLBACK(show_row), &w);
  g_signal_connect(w.search, "search-changed", G_CALLBACK(refilter), &w);
  gtk_container_add(GTK_CONTAINER(scroll), w.list);
  gtk_box_pack_start(GTK_BOX(left), scroll, TRUE, TRUE, 0);
  gtk_widget_set_size_request(left, 220, -1);
  GtkWidget *view = gtk_text_view_new();
  gtk_text_view_set_editable(GTK_TEXT_VIEW(view), FALSE);
  gtk_text_view_set_wrap_mode(GTK_TEXT_VIEW(view), GTK_WRAP_WORD);
  gtk_text_view_set_monospace(GTK_TEXT_VIEW(view), TRUE);
  w.text = gtk_text_view_get_buffer(GTK_TEXT_VIEW(view));
  GtkWidget *right = gtk_scrolled_window_new(nullptr, nullptr);
  gtk_container_add(GTK_CONTAINER(right), view);
  gtk_paned_pack1(GTK_PANED(paned), left, FALSE, FALSE);
  gtk_paned_pack2(GTK_PANED(paned), right, TRUE, FALSE);
  gtk_container_add(GTK_CONTAINER(win), paned);
  gtk_widget_show_all(win);
  gtk_main();
  return 0;
}
#endif

}  // namespace

int main(int argc, char **argv) {
  const char *prog = HELP_PROGRAM;
  std::string docs = docs_dir();
  if (docs.empty()) {
    std::fprintf(stderr, "%s: cannot find the mirzkl documentation (set MIRZKL_DOCDIR)\n", prog);
    return 1;
  }
  if (std::strcmp(prog, "mirhlp") == 0 || std::strcmp(prog, "zklhlp") == 0) {
    if (argc < 2) {
      std::fprintf(stderr, "usage: %s NAME, or %s ? for all names\n", prog, prog);
      return 2;
    }
    Entries e = prog[0] == 'm' ? library_entries(docs) : language_entries(docs);
    int rc = 0;
    for (int i = 1; i < argc; ++i) rc |= lookup(prog, e, argv[i]);
    return rc;
  }
  if (std::strcmp(prog, "mirman") == 0) return page_text(manual(docs, true));
  if (std::strcmp(prog, "zklman") == 0) return page_text(manual(docs, false));
#ifdef HELP_WINDOW
  const char *d = std::getenv("DISPLAY");
  if (d && *d && gtk_init_check(&argc, &argv)) return window(docs);
#endif
  return text_menu();
}
