// mirzkl: runs a ZKL script given on the command line, or reads statements at the prompt.
#include "core/datafile.h"
#include "core/reader.h"
#include "core/session.h"
#include "lang/value.h"
#include "mirval.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char **argv) {
  mirlog("zkl");
  init_var();
  if (argc == 1) {
    iactive = g_intact = 1;
    fp = stdin;
  } else {
    if (getlis(argc, argv) != 0) return 1;
    if (!iinp && iverb) {
      prtver();
      return 0;
    }
  }
  if (g_idata && datfil(g_cdata, 0) != 0) return 1;
  if (!iactive) {
    fp = open_file(cinp[0]);
    if (!fp) {
      if (iverb) prtver();
      return 0;
    }
  } else {
    std::printf("MIRZKL %s, Copyright (C) 2026 The MIRZKL developers\n", ZKL_VERSION);
  }
  run_file(fp);
  if (iverb) prtver();
  std::fflush(stdout);
  return 0;
}
