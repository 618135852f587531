// Commands for the user at the prompt: HELP, LIST, LOGON, LOGOFF and EXIT. A session log
// holds the typed records and errors as comments, so the log itself runs as a script.
#include "core/interactive.h"

#include "binding/call.h"
#include "builtins/fileio.h"
#include "core/datafile.h"
#include "core/error.h"
#include "core/reader.h"
#include "lang/lexer.h"
#include "lang/parser.h"
#include "mirval.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

static char clog[PATHLEN + 1];

int help_zkl() {
  if (g_intact != 1) return 0;
  const char *dsp = getdsp();
  if (dsp && std::strcmp(dsp, "XWIN") == 0) {
    syscll("zklhelp");
    return 0;
  }
  static const char *const commands[] = {"mirman", "zklman", "mirhlp ?", "zklhlp ?"};
  for (;;) {
    std::printf("\n                   ZKL Online Help\n \n");
    std::printf("           1: MIRVAL Manual\n");
    std::printf("           2: ZKL Manual\n");
    std::printf("           3: Alphabetical List of MIRVAL Routines\n");
    std::printf("           4: Alphabetical List of ZKL Routines\n");
    std::printf("           5: EXIT\n\n");
    std::printf("           Option: ");
    std::fflush(stdout);
    char line[40];
    if (!std::fgets(line, sizeof line, stdin)) return 0;  // no more input: leave the menu
    int option = std::atoi(line);
    if (option < 1 || option > 5) {
      error("Not allowed option");
      continue;
    }
    if (option < 5) syscll(commands[option - 1]);
    return 0;
  }
}

static void list_var(const char *name, const VarRecord &own) {
  const VarRecord &v = own.type == T_REF ? varlist[own.value.ref] : own;
  std::printf(" Name : %-8s, Type : %-8s, Count: %d", name, get_type(v.type), v.count);
  switch (v.type) {
    case T_CHAR: std::printf(", Value: %c\n", v.value.c); break;
    case T_BYTE: std::printf(", Value: %d\n", v.value.b); break;
    case T_SHORT: std::printf(", Value: %d\n", v.value.s); break;
    case T_INT: std::printf(", Value: %d\n", v.value.i); break;
    case T_FLOAT: std::printf(", Value: %f\n", v.value.f); break;
    case T_DOUBLE: std::printf(", Value: %lf\n", v.value.d); break;
    case T_COMPLEX: std::printf(", Value: (%f,%f)\n", v.value.cx[0], v.value.cx[1]); break;
    case T_STRING:
      std::printf(",");
      if (std::strlen(v.value.str) < 26) std::printf(" Value: %s\n", v.value.str);
      else std::printf("\n");
      break;
    case T_CHARR: {
      const char *c = static_cast<const char *>(v.value.p);
      int n = 0;
      while (n < v.count && c[n]) ++n;
      if (n < 26) std::printf(", Value: %.*s\n", n, c);
      else std::printf("\n");
      break;
    }
    default:
      if (!is_array(v.type)) break;  // nothing more, not even a line end
      if (v.ndim < 2) {
        std::printf("\n");
        break;
      }
      std::printf(", Dim: [");
      for (int k = 0; k < v.ndim; ++k) std::printf(k ? ",%d" : "%d", v.dims[k]);
      std::printf("]\n");
      break;
  }
}

int list_zkl() {
  int tok = lexan();
  if (tok == TK_UMINUS || tok == TK_END) {
    int mode = 0;  // 0 all, 1 system names, 2 user names
    if (tok == TK_UMINUS) {
      lexan();
      if (std::strcmp(vlex.name, "S") == 0) {
        mode = 1;
      } else if (std::strcmp(vlex.name, "U") == 0) {
        mode = 2;
      } else {
        char_error("Undefined LIST option", vlex.name);
        return 1;
      }
    }
    for (const VarRecord &v : varlist) {
      if (v.type == T_FREE || v.level != g_nlevel) continue;
      bool system = v.name[0] == '%';
      if ((mode == 1 && !system) || (mode == 2 && system)) continue;
      list_var(v.name, v);
    }
    return 0;
  }
  for (; tok != TK_END; tok = lexan()) {
    if (tok == ',') continue;
    if (tok != TK_ID) {
      error("Syntax error - Expected identifier");
      return 1;
    }
    int index = search_var(vlex.name);
    if (index < 0) char_error("Undefined variable", vlex.name);
    else list_var(vlex.name, varlist[index]);
  }
  return 0;
}

int logon_zkl() {
  if (g_intact != 1) return 0;
  if (!parse_text_param("Missing file parameter in LOGON", "Parameter mismatch in LOGON")) return 1;
  qqscpy(clog, stacklist[0].value.str, PATHLEN);
  free_stack(0);
  gfilnn(clog);
  if (ilog == 1 && fplog) std::fclose(fplog);
  ilog = 0;
  fplog = std::fopen(clog, "w");
  if (!fplog) {
    char_error("Cannot open file", clog);
    return 1;
  }
  std::fprintf(fplog, "%%ZKL\n// ZKL Log File, %s, %s\n", dddate(), ddtime());
  ilog = 1;
  return 0;
}

int logoff_zkl() {
  if (g_intact != 1) return 0;
  if (ilog == 1 && fplog) std::fclose(fplog);
  fplog = nullptr;
  ilog = 0;
  return 0;
}

int exit_zkl() {
  if (ilog == 1 && fplog) std::fclose(fplog);
  ilog = 0;
  datcls();
  exit_io();
  std::fflush(stdout);
  std::exit(0);
}
