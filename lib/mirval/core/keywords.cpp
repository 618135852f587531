#include "core/keywords.h"
#include "core/messages.h"
#include "core/trace.h"

#include <cctype>
#include <strings.h>

bool same(const char *a, const char *b) { return a && strcasecmp(a, b) == 0; }

int keyword_index(const char *a, std::initializer_list<const char *> names) {
  int k = 0;
  for (const char *n : names) {
    if (same(a, n)) return k;
    ++k;
  }
  return -1;
}

int keyword(const char *routine, const char *what, const char *a, std::initializer_list<const char *> names) {
  int k = keyword_index(a, names);
  if (k < 0) mv_warn(routine, "unknown %s %s", what, mv_tstr(a).c_str());
  return k;
}

int listed_keyword(const char *routine, const char *what, const char *a, std::initializer_list<const char *> names) {
  int k = keyword_index(a, names);
  if (k < 0) mv_warn(routine, "unknown %s %s (%s)", what, mv_tstr(a).c_str(), word_list(names, " or ").c_str());
  return k;
}

std::string word_list(std::initializer_list<const char *> words, const char *last) {
  std::string s;
  size_t k = 0;
  for (const char *w : words) {
    if (k++) s += k == words.size() ? last : ", ";
    s += w;
  }
  return s;
}

std::string trimmed(const char *s) {
  std::string t = s ? s : "";
  t.erase(t.find_last_not_of(' ') + 1);
  return t;
}

std::string upper(const char *s) {
  std::string u = s ? s : "";
  for (char &c : u) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return u;
}
