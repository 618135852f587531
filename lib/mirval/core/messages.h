// The library's own messages: one line each on standard error (or the ERRFIL file),
// "mirval: warning: ROUTINE: text" and "mirval: error: ROUTINE: text".
#pragma once

void mv_warn(const char *routine, const char *fmt, ...) __attribute__((format(printf, 2, 3)));
void mv_error(const char *routine, const char *fmt, ...) __attribute__((format(printf, 2, 3)));
// Informational line such as "mirval: wrote FILE (FORMAT, W x H)"; silenced like warnings.
void mv_note(const char *fmt, ...) __attribute__((format(printf, 1, 2)));
// Checks that the library level lies in lo..hi; otherwise warns and returns false.
bool mv_level(const char *routine, int lo, int hi);
