// Every complete statement comes here: it is stored when constructs may replay it,
// classified by its second token and handed to the part that executes it.
#include "core/statement.h"

#include "binding/call.h"
#include "binding/quickplot.h"
#include "binding/sysvar.h"
#include "core/blocks.h"
#include "core/error.h"
#include "core/interactive.h"
#include "core/print.h"
#include "core/procedure.h"
#include "core/reader.h"
#include "core/replay.h"
#include "lang/lexer.h"
#include "lang/parser.h"
#include "lang/subscript.h"
#include "mirval.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

char *stlist[MAXSTMT];
int nstrec = 0;
int nstptr = 0;
int istopt = 0;
const char *cpstmt = "";
int iexec = 0;
int ifjmp = 0, ilbjmp = 0, ilpjmp = 0, icajmp = 0, iswjmp = 0, irtjmp = 0;

int save_stmt(const char *text) {
  if (nstrec >= MAXSTMT) {
    error("Too many statements in the statement buffer");
    return 1;
  }
  size_t n = std::strlen(text);
  if (n == 0) return 0;
  char *p = static_cast<char *>(my_malloc(n + 1));
  if (!p) return 1;
  std::memcpy(p, text, n + 1);
  stlist[nstrec++] = p;
  ++nstptr;
  return 0;
}

void release_stmts(int first) {
  forget_stored(first);
  for (int i = first; i < nstrec; ++i) {
    std::free(stlist[i]);
    stlist[i] = nullptr;
  }
  nstrec = nstptr = first;
}

int exec_stmt(const char *text) {
  cpstmt = text;
  init_lex(text);
  int tok = lexan();
  if (tok == TK_END) return 0;
  if (tok == TK_ID && std::strcmp(vlex.name, "INCLUDE") == 0) {
    if (exec_include() == 0) g_intact = 0;
    return 0;
  }
  if (istopt == 1 && nstptr == nstrec) save_stmt(text);
  char word[NAMELEN + 1];
  if (tok == TK_ID) {
    std::memcpy(word, vlex.name, sizeof word);
  } else {  // the first token's own text
    int from = 0;
    while (text[from] == ' ') ++from;
    int n = istart - from < NAMELEN ? istart - from : NAMELEN;
    std::memcpy(word, text + from, n);
    word[n] = '\0';
  }
  return run_stmt(lexan(), word);
}

int run_stmt(int tok2, const char *word) {
  if (exec_if(tok2, word) == 0 || exec_loop(tok2, word) == 0 || exec_switch(tok2, word) == 0 ||
      exec_end(tok2, word) == 0)
    return 0;
  switch_stmt(tok2, word);
  return 0;
}

int switch_stmt(int tok2, const char *word) {
  if (tok2 == ':') return exec_label(word);
  if (iexec != 0) return 0;
  switch (tok2) {
    case '(': return exec_call(word);
    case '=': return exec_assign(word);
    case '[': return exec_element(word);
    default: return exec_zkl(tok2, word);
  }
}

int exec_call(const char *word) {
  int number = search_routine(word, 1);
  if (number >= 0) {
    if (exec_par(word, number, 1) == 0) return exec_routine(word, number);
    return 1;
  }
  if (search_stdf(word) < 0) {
    char msg[64];
    std::snprintf(msg, sizeof msg, "Undefined routine %s", word);
    error(msg);
    return 1;
  }
  init_lex(cpstmt);
  parse(0);
  free_stack(0);
  return 0;
}

// Array declarations: TYPE NAME[dims] {, NAME[dims]}.
static int declare_zkl(int type) {
  for (;;) {
    if (lexan() != TK_ID) {
      error("Syntax error");
      return 1;
    }
    char name[NAMELEN + 1];
    std::memcpy(name, vlex.name, sizeof name);
    if (lexan() != '[') {
      error("Syntax error");
      return 1;
    }
    int index = search_var(name);
    if (index >= 0) {
      free_var(index);
    } else {
      index = find_freevar();
      if (index < 0) return 1;
      set_name(&varlist[index], name);
      varlist[index].level = static_cast<int8_t>(g_nlevel);
    }
    StackEntry *st = parse(0);
    if (st) alloc_stack(type, index);
    else if (!g_abort) error("Missing parameters");
    free_stack(0);
    int tok = ilex == ']' ? lexan() : ilex;
    if (tok == TK_END) return 0;
    if (tok != ',') {
      error("Syntax error");
      return 0;
    }
  }
}

static int free_zkl() {
  for (int tok = lexan(); tok != TK_END; tok = lexan()) {
    if (tok == ',') continue;
    if (tok != TK_ID) {
      error("Syntax error - Expected identifier");
      return 1;
    }
    int index = search_var(vlex.name);
    if (index >= 0) free_var(index);
    else char_error("Undefined variable", vlex.name);
  }
  return 0;
}

// Restarts the lexer after the first blank that follows a non-blank character.
static void restart_after_keyword() {
  const char *p = cpstmt;
  while (*p == ' ') ++p;
  const char *blank = std::strchr(p, ' ');
  if (blank) init_lex(blank + 1);
}

int exec_zkl(int tok2, const char *word) {
  int key = search_zkl(word);
  if (key < 0) {
    char_error("Undefined command", word);
    return 1;
  }
  if (tok2 != TK_END) restart_after_keyword();
  switch (key) {
    case 0: return break_zkl();
    case 1: return declare_zkl(T_BYTER);
    case 2: return call_zkl(1, nullptr);
    case 3: return declare_zkl(T_CHARR);
    case 4: return declare_zkl(T_COMPLEXR);
    case 5: return continue_zkl();
    case 6: parse(1); return contour_zkl(1);
    case 7: parse(1); return contour_zkl(0);
    case 8: return declare_zkl(T_DOUBLER);
    case 9: return exit_zkl();
    case 10: return extern_zkl();
    case 11: return declare_zkl(T_FLOATR);
    case 12: return free_zkl();
    case 13: return subr_zkl(2);
    case 14: return goto_zkl();
    case 15: return help_zkl();
    case 16: return declare_zkl(T_INTR);
    case 17: return list_zkl();
    case 18: return logoff_zkl();
    case 19: return logon_zkl();
    case 20: parse(1); return plot_zkl(1);
    case 21: parse(1); return plot3_zkl();
    case 22: parse(1); return plot3r_zkl();
    case 23: parse(0); return print_zkl();
    case 24: parse(0); return printl_zkl();
    case 25: return return_zkl();
    case 26: parse(1); return plot_zkl(2);
    case 27: return declare_zkl(T_SHORTR);
    case 28: return subr_zkl(1);
    case 29: parse(1); return surf3_zkl(0);
    case 30: parse(1); return surf3_zkl(1);
    default: parse(1); return surf3_zkl(2);
  }
}

// Stores the first value of the stack in variable `index` (-1: a new one named `name`);
// the rest of the stack is released. Returns the variable's index or -1.
static int store_value(const char *name, int index) {
  if (g_nstack == 0) return -1;
  free_stack(1);
  StackEntry &v = stacklist[0];
  if (dangling_ref(&v)) {  // the old value stays
    free_stack(0);
    return -1;
  }
  int result;
  if (index >= 0) {
    release_storage(&varlist[index]);
    result = insert_var(&v, index);
    if (result < 0) varlist[index].type = T_FREE;
  } else {
    set_name(&v, name);
    result = insert_var(&v, -1);
  }
  if (result < 0) free_stack(0);
  g_nstack = 0;
  return result;
}

int exec_assign(const char *name) {
  if (name[0] == '%' && search_sysv(name + 1) < 0) {
    char_error("Undefined system variable", name);
    return 1;
  }
  int index = search_var(name);
  int tok = lexan();
  int result = -1;
  if (tok == '{') {
    if (index >= 0) free_var(index);
    result = exec_init(name, index);
  } else if (tok == TK_ID && lookup() == '(' && search_stdf(vlex.name) < 0) {
    char fname[NAMELEN + 1];
    std::memcpy(fname, vlex.name, sizeof fname);
    int number = search_routine(fname, 2);
    if (number >= 0) {
      lexan();  // the "(": the arguments follow
      if (exec_par(fname, number, 2)) return 1;
    }
    // The old value may be an argument of the call (S = ITMSTR(S, 1)): its record is free
    // for the result at once, its storage is released after the call.
    VarRecord old{};
    if (index >= 0) {
      old = varlist[index];
      varlist[index].type = T_FREE;
    }
    result = find_freevar();
    if (result < 0) {
      release_storage(&old);
      free_stack(0);
      return 1;
    }
    set_name(&varlist[result], name);
    varlist[result].level = static_cast<int8_t>(g_nlevel);
    varlist[result].ndim = 1;
    if (number >= 0) {
      exec_function(fname, number, result);
      release_storage(&old);
    } else {
      release_storage(&old);
      varlist[result].type = T_INT;
      varlist[result].count = 1;
      varlist[result].value.i = 0;
      set_result_var(result);
      return call_zkl(2, fname) ? 1 : 0;
    }
  } else {
    const char *eq = std::strchr(cpstmt, '=');
    init_lex(eq ? eq + 1 : "");
    if (parse(0)) result = store_value(name, index);
    else free_stack(0);
  }
  if (name[0] == '%' && result >= 0) setvar(result);
  return result < 0;
}

int exec_end(int tok2, const char *word) {
  if (tok2 != TK_END || std::strcmp(word, "END") != 0) return 1;
  end_zkl();
  if (irtjmp == 1) {
    irtjmp = 0;
    iexec = calc_exec();
  }
  return 0;
}
