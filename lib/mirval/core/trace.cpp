#include "core/trace.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

// The trace stream, opened on first use; null when tracing is off.
FILE *trace_stream() {
  static bool opened = false;
  static FILE *fp = nullptr;
  if (!opened) {
    opened = true;
    const char *name = std::getenv("MIRVAL_TRACE");
    if (name && *name) fp = std::strcmp(name, "-") == 0 ? stderr : std::fopen(name, "w");
  }
  return fp;
}

}  // namespace

bool mv_tracing() { return trace_stream() != nullptr; }

void mv_tracef(const char *fmt, ...) {
  FILE *fp = trace_stream();
  if (!fp) return;
  va_list ap;
  va_start(ap, fmt);
  mv_vline(fp, fmt, ap);
  va_end(ap);
}

void mv_vline(FILE *fp, const char *fmt, va_list ap) {
  std::vfprintf(fp, fmt, ap);
  std::fputc('\n', fp);
  std::fflush(fp);
}

std::string mv_tarr(int n, const char *kind) { return "[" + std::to_string(n) + " " + kind + "]"; }

std::string mv_tstr(const char *s) { return s ? "\"" + std::string(s) + "\"" : "NULL"; }
