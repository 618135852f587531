#include "solids/choice3d.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "core/trace.h"

#include <string>

int choice3d(const char *routine, const char *what, const char *c, std::initializer_list<const char *> names) {
  int k = keyword_index(c, names);
  if (k >= 0) return k;
  std::string list;
  size_t i = 0;
  for (const char *n : names) {
    if (i > 0) list += i + 1 == names.size() ? " or " : ", ";
    list += n;
    ++i;
  }
  mv_warn(routine, "unknown %s %s (%s)", what, mv_tstr(c).c_str(), list.c_str());
  return -1;
}
