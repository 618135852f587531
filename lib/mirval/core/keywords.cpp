#include "core/keywords.h"

#include <cctype>
#include <strings.h>

bool same(const char *a, const char *b) { return a && strcasecmp(a, b) == 0; }

std::string upper(const char *s) {
  std::string u = s ? s : "";
  for (char &c : u) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return u;
}
