// Date and time texts. SOURCE_DATE_EPOCH, when set to a number of seconds, stands for "now"
// (in UTC), so that outputs carrying a date can be reproduced byte for byte.
#include "mirval.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace {

std::tm now() {
  std::tm tm{};
  const char *epoch = std::getenv("SOURCE_DATE_EPOCH");
  if (epoch && *epoch) {
    char *end;
    errno = 0;
    long long t = std::strtoll(epoch, &end, 10);
    std::time_t tt = static_cast<std::time_t>(t);
    if (!*end && errno == 0 && t >= 0 && gmtime_r(&tt, &tm)) return tm;
  }
  std::time_t tt = std::time(nullptr);
  localtime_r(&tt, &tm);
  return tm;
}

}  // namespace

extern "C" {

const char *dddate(void) {
  static char text[32];
  std::tm tm = now();
  std::snprintf(text, sizeof text, "%02d.%02d.%04d", tm.tm_mday, tm.tm_mon + 1, tm.tm_year + 1900);
  return text;
}

const char *ddtime(void) {
  static char text[32];
  std::tm tm = now();
  std::snprintf(text, sizeof text, "%02d:%02d:%02d", tm.tm_hour, tm.tm_min, tm.tm_sec);
  return text;
}

}  // extern "C"
