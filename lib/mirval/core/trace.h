// Tracing of public routines: with MIRVAL_TRACE set to a file name (or "-" for standard
// error) every public routine writes one line with its arguments, in call order.
#pragma once
#include <cstdarg>
#include <cstdio>
#include <string>

bool mv_tracing();
// Writes one trace line (a newline is added) when tracing is on; printf-style.
void mv_tracef(const char *fmt, ...) __attribute__((format(printf, 1, 2)));
// Argument pieces for trace lines: "[100 floats]", a quoted string "\"PNG\"" (or NULL).
std::string mv_tarr(int n, const char *kind);
std::string mv_tstr(const char *s);
// Ends a line of a trace or message: the formatted text, a newline, and a flush, so that
// lines stand in call order even when the program dies next.
void mv_vline(FILE *fp, const char *fmt, va_list ap);
