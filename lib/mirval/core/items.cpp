// Item lists: the texts of a list widget or a menu held in one string, items separated
// by '|'. An empty string is an empty list; items count from 1.
#include "core/messages.h"
#include "mirval.h"
#include "core/trace.h"

#include <cstring>
#include <string>

namespace {

// The text of clis followed by cstr as a new item.
std::string appended(const char *clis, const char *cstr) {
  std::string s = clis;
  if (!s.empty()) s += '|';
  return s + (cstr ? cstr : "");
}

int count_items(const char *clis) {
  if (!clis || !*clis) return 0;
  int n = 1;
  for (const char *p = clis; *p; ++p) n += *p == '|';
  return n;
}

}  // namespace

extern "C" {

// clis must have room for the new item and its separator.
void itmcat(char *clis, const char *cstr) {
  mv_tracef("itmcat(clis=%s, cstr=%s)", mv_tstr(clis).c_str(), mv_tstr(cstr).c_str());
  if (!clis) return;
  std::string s = appended(clis, cstr);
  std::memcpy(clis, s.c_str(), s.size() + 1);
}

// nmax is the size of the buffer clis: the list is cut to nmax - 1 characters.
void itmncat(char *clis, int nmax, const char *cstr) {
  mv_tracef("itmncat(clis=%s, nmax=%d, cstr=%s)", mv_tstr(clis).c_str(), nmax, mv_tstr(cstr).c_str());
  if (!clis) return;
  if (nmax < 1) {
    mv_warn("itmncat", "nmax = %d must be at least 1", nmax);
    return;
  }
  std::string s = appended(clis, cstr).substr(0, nmax - 1);
  std::memcpy(clis, s.c_str(), s.size() + 1);
}

int itmcnt(const char *clis) {
  mv_tracef("itmcnt(%s)", mv_tstr(clis).c_str());
  return count_items(clis);
}

// The text of item nlis; empty, with a warning, when the list has no such item.
const char *itmstr(const char *clis, int nlis) {
  mv_tracef("itmstr(%s, %d)", mv_tstr(clis).c_str(), nlis);
  static std::string item;
  int n = count_items(clis);
  if (nlis < 1 || nlis > n) {
    mv_warn("itmstr", "item %d is not in a list of %d", nlis, n);
    return "";
  }
  const char *p = clis;
  for (int i = 1; i < nlis; ++i) p = std::strchr(p, '|') + 1;
  item.assign(p, std::strcspn(p, "|"));
  return item.c_str();
}

}  // extern "C"
