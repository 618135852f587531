// mirzkl: runs a ZKL script given on the command line, or reads statements at the prompt.
#include "builtins/fileio.h"
#include "core/datafile.h"
#include "core/reader.h"
#include "lang/value.h"
#include "mirval.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

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
  init_lab();
  init_io();
  std::memset(ilabop, 0, sizeof ilabop);
  fpin[0] = fp;
  nfpin = 1;
  exec_file();
  if (fp && fp != stdin) std::fclose(fp);
  if (iverb) prtver();
  std::fflush(stdout);
  return 0;
}
