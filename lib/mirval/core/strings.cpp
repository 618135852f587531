// Text helpers shared with the calling program. They need nothing else of the library, so a
// program that loads the library only when it draws (mirzkl) compiles this file in as well.
#include "mirval.h"

#include <algorithm>
#include <cstring>

extern "C" {

void upstr(char *text) {
  if (!text) return;
  for (; *text; ++text)
    if (*text >= 'a' && *text <= 'z') *text = static_cast<char>(*text - 'a' + 'A');
}

// Copies at most max characters and always terminates: dst must hold max + 1 bytes.
void qqscpy(char *dst, const char *src, int max) {
  if (!dst) return;
  int n = 0;
  if (src)
    for (; n < max && src[n]; ++n) dst[n] = src[n];
  dst[n] = '\0';
}

// Appends so that the result holds at most max characters (dst holds max + 1 bytes); a dst
// already longer is cut too.
void qqscat(char *dst, const char *src, int max) {
  if (!dst) return;
  int n = std::min(static_cast<int>(std::strlen(dst)), std::max(max, 0));
  if (src)
    for (; n < max && *src; ++n) dst[n] = *src++;
  dst[n] = '\0';
}

int trmlen(const char *text) {
  if (!text) return 0;
  int n = static_cast<int>(std::strlen(text));
  while (n > 0 && text[n - 1] == ' ') --n;
  return n;
}

}  // extern "C"
