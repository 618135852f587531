#include "core/messages.h"
#include "core/state.h"
#include "core/trace.h"

#include <cstdarg>
#include <cstdio>

namespace {

FILE *message_stream() {
  MessageState &m = mirval_state().msg;
  if (m.to_file && m.fp) return m.fp;
  return stderr;
}

void vline(const char *kind, const char *routine, const char *fmt, va_list ap) {
  FILE *fp = message_stream();
  std::fprintf(fp, "mirval: %s: %s: ", kind, routine);
  mv_vline(fp, fmt, ap);
}

}  // namespace

void mv_warn(const char *routine, const char *fmt, ...) {
  if (!mirval_state().msg.warnings) return;
  va_list ap;
  va_start(ap, fmt);
  vline("warning", routine, fmt, ap);
  va_end(ap);
}

void mv_error(const char *routine, const char *fmt, ...) {
  va_list ap;
  va_start(ap, fmt);
  vline("error", routine, fmt, ap);
  va_end(ap);
}

void mv_note(const char *fmt, ...) {
  if (!mirval_state().msg.warnings) return;
  FILE *fp = message_stream();
  std::fputs("mirval: ", fp);
  va_list ap;
  va_start(ap, fmt);
  mv_vline(fp, fmt, ap);
  va_end(ap);
}

bool mv_level(const char *routine, int lo, int hi) {
  int lev = mirval_state().level;
  if (lev >= lo && lev <= hi) return true;
  mv_warn(routine, "not allowed at level %d (needs level %d to %d)", lev, lo, hi);
  return false;
}
