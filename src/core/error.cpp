// Error reports: with the record number and file name while a script runs, short at the
// prompt, and copied into the session log as comments so that the log stays a script.
#include "core/error.h"

#include "core/reader.h"

#include <cstdio>
#include <string>

static void report(const std::string &text) {
  std::fflush(stdout);
  if (g_intact == 1) {
    std::printf(" >>>> %s\n", text.c_str());
  } else {
    int level = nfpin > 0 ? nfpin - 1 : 0;
    std::printf(" >>>> %s in record %d (%s)\n", text.c_str(), nrec + 1, cinp[level]);
  }
  if (ilog == 1 && fplog) std::fprintf(fplog, " // >>>> %s\n", text.c_str());
}

int error(const char *msg) {
  report(msg);
  return 0;
}

int char_error(const char *msg, const char *text) {
  report(std::string(msg) + " " + text);
  return 0;
}

int c_error(const char *msg, int c) {
  report(std::string(msg) + " '" + static_cast<char>(c) + "'");
  return 0;
}
