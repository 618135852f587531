#include "core/session.h"

#include "builtins/fileio.h"
#include "core/blocks.h"
#include "core/datafile.h"
#include "core/interactive.h"
#include "core/reader.h"
#include "core/replay.h"
#include "core/statement.h"
#include "lang/parser.h"
#include "lang/value.h"
#include "mirval.h"

#include <cstring>

void run_file(FILE *script) {
  init_lab();
  init_io();
  std::memset(ilabop, 0, sizeof ilabop);
  fp = script;
  fpin[0] = fp;
  nfpin = 1;
  exec_file();
  if (fp && fp != stdin) std::fclose(fp);
  fp = nullptr;
  nfpin = 0;
}

void reset_interp() {
  if (ilog == 1 && fplog) std::fclose(fplog);
  fplog = nullptr;
  ilog = 0;
  datcls();
  exit_io();
  reset_reader();
  free_stack(0);
  for (int i = 0; i < MAXVAR; ++i)
    if (varlist[i].type != T_FREE) free_var(i);
  reset_replay();
  release_stmts(0);
  init_lab();
  reset_blocks();
  g_nlevel = 0;
  istopt = iexec = 0;
  ifjmp = ilbjmp = ilpjmp = icajmp = iswjmp = irtjmp = 0;
  g_abort = false;
  if (getlev() != 0) mirfin();
}
