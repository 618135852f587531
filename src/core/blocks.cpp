// Block statements. Blocks work by two means only: skip mode (statements are read and
// tracked but not executed while iexec, the sum of the jump flags, is non-zero) and replay
// (stored statements run again when nstptr moves back in the statement buffer).
#include "core/blocks.h"

#include "core/error.h"
#include "core/reader.h"
#include "core/statement.h"
#include "lang/lexer.h"
#include "lang/parser.h"
#include "mirval.h"

#include <cstring>

constexpr int MAXNEST = 8;  // open IF, loop and SWITCH blocks, each

int iflev = 0, ilplev = 0, iswlev = 0;

struct IfRecord {
  uint8_t ilplev, iswlev;
};
static IfRecord iflist[MAXNEST];
static int ifind[MAXNEST];
static int ivalue[MAXNEST];

struct DoRecord {
  int var;        // loop variable (index in varlist)
  int restart;    // buffer index where an iteration restarts
  bool isdouble;  // a DOUBLE loop keeps end and step as doubles
  int32_t iend, istep;
  double dend, dstep;
  uint8_t iflev, iswlev;
  uint8_t skipped;  // opened in skip mode
  bool is_while;
};
static DoRecord dolist[MAXNEST];

struct SwitchRecord {
  int32_t value;
  uint8_t iflev, ilplev;
  uint8_t skipped;  // opened in skip mode: its CASE lines decide nothing
};
static SwitchRecord swlist[MAXNEST];

static int ilplev1 = 0;    // target loop of a pending loop jump
static int icontinue = 0;  // pending loop jump: 1 CONTINUE, 2 BREAK
static int iswopt = 0;     // the construct most recently started was a SWITCH
static int iswlev1 = 0;    // SWITCH level targeted by a BREAK
static char cjump[NAMELEN + 1];
static int iflev_old, ilplev_old, iswlev_old;

static bool is_word(const char *word, const char *w) { return word[0] == w[0] && std::strcmp(word, w) == 0; }

bool is_block_word(const char *word) {
  static const char *const words[] = {"IF", "ELSEIF", "ELSE", "ENDIF", "DO", "WHILE", "SWITCH", "CASE", "DEFAULT"};
  for (const char *w : words)
    if (is_word(word, w)) return true;
  return false;
}

// "END IF", "END DO" ...: the statement's second token is the word.
static bool end_of(int tok2, const char *word, const char *what) {
  return is_word(word, "END") && tok2 == TK_ID && is_word(vlex.name, what);
}

static bool replaying() { return nstptr < nstrec; }

// Moves the replay pointer to buffer index `target`.
static void jump_to(int target, bool replay) { nstptr = replay ? target - 1 : target; }

// The position just after the ")" that balances the first "(" of the statement, or -1.
static int balancing_paren(const char *text) {
  const char *open = std::strchr(text, '(');
  if (!open) return -1;
  int depth = 0;
  char quote = 0;
  for (const char *p = open; *p; ++p) {
    if (quote) {
      if (*p == quote) quote = 0;
    } else if (*p == '\'' || *p == '"') {
      quote = *p;
    } else if (*p == '(') {
      ++depth;
    } else if (*p == ')' && --depth == 0) {
      return static_cast<int>(p - text) + 1;
    }
  }
  return -1;
}

// Evaluates the condition after the first "(" of the statement; the lexer is left on the
// token after it. 0 or 1 as the condition's truth, -1 when it is no INT (the statement then
// has no further effect).
static int condition() {
  const char *open = std::strchr(cpstmt, '(');
  init_lex(open ? open + 1 : "");
  int value = -1;
  if (parse(0) && g_nstack > 0) {
    if (stacklist[0].type != T_INT) error("Non integer value of logical expression");
    else value = stacklist[0].value.i != 0;
  }
  free_stack(0);
  if (ilex == ')') ilex = lexan();
  return value;
}

static void check_if_levels(int level) {
  if (iflist[level].ilplev != ilplev) error("Overlapping IF and Loop constructs");
  if (iflist[level].iswlev != iswlev) error("Overlapping IF and SWITCH constructs");
}

static void update_ifjmp() {
  int sum = 0;
  for (int i = 0; i < iflev; ++i) sum += ivalue[i];
  ifjmp = sum != iflev ? 1 : 0;
  iexec = calc_exec();
}

static int if_statement() {
  if (iflev >= MAXNEST) {
    error("Max. number of nested IF statements is reached");
    return 0;
  }
  iflist[iflev] = {static_cast<uint8_t>(ilplev), static_cast<uint8_t>(iswlev)};
  if (iexec != 0) {
    int end = balancing_paren(cpstmt);
    if (end < 0) {
      error("Syntax error");
      return 0;
    }
    init_lex(cpstmt + end);
    if (lexan() != TK_END) return 0;  // a one-line IF while skipping
    ifind[iflev] = ivalue[iflev] = 1;
    ++iflev;
  } else {
    int value = condition();
    if (value < 0) return 0;
    if (ilex != TK_END) {  // a one-line IF: the rest is a statement of its own
      if (value == 0) return 0;
      int end = balancing_paren(cpstmt);
      if (end < 0) return 0;
      char word[NAMELEN + 1];
      if (ilex == TK_ID) std::memcpy(word, vlex.name, sizeof word);
      else word[0] = '\0';
      int tok2 = lexan();
      cpstmt += end;
      switch_stmt(tok2, word);
      return 0;
    }
    ifind[iflev] = ivalue[iflev] = value;
    ++iflev;
  }
  check_if_levels(iflev - 1);
  update_ifjmp();
  return 0;
}

static int elseif_statement(const char *word) {
  if (iflev == 0) {
    char msg[64];
    std::snprintf(msg, sizeof msg, "Missing IF statement before %s", word);
    error(msg);
    return 0;
  }
  int level = iflev - 1;
  if (ifind[level] == 1) {
    ivalue[level] = 0;
  } else {
    int value = condition();
    if (value < 0) return 0;
    ivalue[level] = value;
    if (value) ifind[level] = 1;
    if (ilex != TK_END) error("Expected end of line");
  }
  check_if_levels(level);
  update_ifjmp();
  return 0;
}

static int else_statement(int tok2) {
  if (iflev == 0) {
    error("Missing IF statement before ELSE");
    return 0;
  }
  if (tok2 != TK_END) {
    error("Expected IF or End of Line");
    return 0;
  }
  ivalue[iflev - 1] = !ifind[iflev - 1];
  check_if_levels(iflev - 1);
  update_ifjmp();
  return 0;
}

static int endif_statement() {
  if (--iflev < 0) {
    error("Missing IF statement before END IF");
    iflev = 0;
  } else {
    check_if_levels(iflev);
  }
  update_ifjmp();
  return 0;
}

int exec_if(int tok2, const char *word) {
  if (is_word(word, "IF")) return if_statement();
  if (is_word(word, "ELSEIF")) return elseif_statement("ELSEIF");
  if (is_word(word, "ELSE")) {
    if (tok2 == TK_ID && is_word(vlex.name, "IF")) return elseif_statement("ELSE IF");
    return else_statement(tok2);
  }
  if (is_word(word, "ENDIF") || end_of(tok2, word, "IF")) return endif_statement();
  return 1;
}

// ---------------------------------------------------------------- loops

// Opens the bookkeeping of a new loop level; false when the nesting limit is reached.
static bool open_loop() {
  if (ilplev >= MAXNEST) {
    error("Max. number of nested loops is reached");
    return false;
  }
  DoRecord &d = dolist[ilplev];
  d.iflev = static_cast<uint8_t>(iflev);
  d.iswlev = static_cast<uint8_t>(iswlev);
  d.skipped = 1;
  d.is_while = false;
  if (iexec != 0) {
    ++ilplev;
    return false;
  }
  return true;
}

static double var_double(const VarRecord &v) { return v.type == T_DOUBLE ? v.value.d : v.value.i; }

static int do_statement(int tok2) {
  if (!open_loop()) return 0;
  DoRecord &d = dolist[ilplev];
  if (tok2 != TK_ID) {
    error("Syntax error - expected loop variable");
    return 0;
  }
  int index = search_var(vlex.name);
  if (index >= 0) {
    free_var(index);
  } else {
    index = find_freevar();
    if (index < 0) return 0;
    set_name(&varlist[index], vlex.name);
    varlist[index].level = static_cast<int8_t>(g_nlevel);
  }
  const char *eq = std::strchr(cpstmt, '=');
  if (!eq) {
    error("Missing '=' in DO loop");
    return 0;
  }
  init_lex(eq + 1);
  parse(0);
  if (g_nstack < 2 || g_nstack > 3) {
    error("Syntax error in DO statement");
    free_stack(0);
    return 0;
  }
  bool isdouble = false;
  for (int k = 0; k < g_nstack; ++k) {
    int t = stacklist[k].type;
    if (t != T_INT && t != T_DOUBLE) {
      error("DO expressions must be of type INT or DOUBLE");
      free_stack(0);
      return 0;
    }
    isdouble = isdouble || t == T_DOUBLE;
  }
  VarRecord &v = varlist[index];
  v.level = static_cast<int8_t>(g_nlevel);
  v.count = 1;
  v.ndim = 1;
  d.isdouble = isdouble;
  bool skip;
  if (isdouble) {
    double start = var_double(stacklist[0]);
    d.dend = var_double(stacklist[1]);
    d.dstep = g_nstack == 3 ? var_double(stacklist[2]) : 1.0;
    v.type = T_DOUBLE;
    v.value.d = start;
    skip = d.dstep > 0 ? start > d.dend : start < d.dend;
  } else {
    int32_t start = stacklist[0].value.i;
    d.iend = stacklist[1].value.i;
    d.istep = g_nstack == 3 ? stacklist[2].value.i : 1;
    v.type = T_INT;
    v.value.i = start;
    skip = d.istep >= 1 ? start > d.iend : start < d.iend;
  }
  free_stack(0);
  d.var = index;
  d.restart = replaying() ? nstptr + 1 : nstrec;
  d.skipped = 0;
  istopt = 1;
  iswopt = 0;
  ilplev1 = ilplev;
  ++ilplev;
  if (skip) ilpjmp = 1;
  iexec = calc_exec();
  return 0;
}

// The INT in parentheses after WHILE or SWITCH; false (after its message) when the head is
// faulty: the construct then stays unopened.
static bool head_value(int tok2, const char *what, int32_t *value) {
  if (tok2 != '(') {
    error("Syntax error - expected '('");
    return false;
  }
  parse(0);
  char msg[64];
  bool ok = false;
  if (g_nstack != 1) {
    std::snprintf(msg, sizeof msg, "Syntax error in %s statement", what);
    error(msg);
  } else if (stacklist[0].type != T_INT) {
    std::snprintf(msg, sizeof msg, "Expression in %s statement must be of type INT", what);
    error(msg);
  } else {
    *value = stacklist[0].value.i;
    ok = true;
  }
  free_stack(0);
  return ok;
}

static int while_statement(int tok2) {
  if (!open_loop()) return 0;
  DoRecord &d = dolist[ilplev];
  int32_t value;
  d.is_while = true;
  if (!head_value(tok2, "WHILE", &value)) return 0;
  d.skipped = 0;
  if (replaying()) {
    d.restart = nstptr;
  } else {
    if (istopt == 0) {
      istopt = 1;
      save_stmt(cpstmt);
    }
    d.restart = nstrec - 1;
  }
  iswopt = 0;
  ilplev1 = ilplev;
  ++ilplev;
  if (value == 0) ilpjmp = 1;
  iexec = calc_exec();
  return 0;
}

static bool labels_open() {
  for (int l = 0; l <= g_nlevel && l < 8; ++l)
    if (ilabop[l]) return true;
  return false;
}

// The outermost loop has ended: its statements leave the buffer unless a label holds them.
static void release_loops(bool replay) {
  if (istopt == 1 && !labels_open()) {
    release_stmts(dolist[0].restart);
    if (replay) nstptr = nstrec - 1;
    istopt = 0;
  }
}

static void leave_loop(int level, bool replay) {
  const DoRecord &d = dolist[level];
  if (d.iflev != iflev) error("Overlapping IF and Loop contructs");
  if (d.iswlev != iswlev) error("Overlapping SWITCH and Loop contructs");
  --ilplev;
  if (ilplev == 0) release_loops(replay);
}

// Advances the DO loop variable; true while the loop goes on.
static bool next_iteration(DoRecord &d) {
  VarRecord &v = varlist[d.var];
  // a body that freed or declared its loop variable anew has ended the loop: its storage is
  // no number any more
  if (v.type != (d.isdouble ? T_DOUBLE : T_INT)) return false;
  if (d.isdouble) {
    v.value.d += d.dstep;
    return d.dstep > 0 ? v.value.d <= d.dend : v.value.d >= d.dend;
  }
  v.value.i = static_cast<int32_t>(static_cast<uint32_t>(v.value.i) + static_cast<uint32_t>(d.istep));
  return d.istep >= 1 ? v.value.i <= d.iend : v.value.i >= d.iend;
}

static int end_loop(bool is_while) {
  bool replay = replaying();
  if (ilplev == 0) {
    if (is_while) error("Missing WHILE statement before END WHILE");
    else if (!replay) error("Missing DO statement before END DO");
    return 0;
  }
  int level = ilplev - 1;
  DoRecord &d = dolist[level];
  if (icontinue != 0) {
    if (ilplev1 != level) {
      leave_loop(level, replay);
      return 0;
    }
    ilpjmp = 0;
    iexec = calc_exec();
    bool is_break = icontinue == 2;
    icontinue = 0;
    if (is_break) {
      leave_loop(level, replay);
      return 0;
    }
  }
  if (d.skipped) {
    --ilplev;
    return 0;
  }
  if (ilpjmp) {
    if (ilplev1 == level) {
      ilpjmp = 0;
      iexec = calc_exec();
    }
    leave_loop(level, replay);
    return 0;
  }
  if (iexec != 0) {
    leave_loop(level, replay);
    return 0;
  }
  if (is_while) {
    --ilplev;
    jump_to(d.restart, replay);
    return 0;
  }
  if (next_iteration(d)) {
    jump_to(d.restart, replay);
    return 0;
  }
  leave_loop(level, replay);
  return 0;
}

bool is_loop_statement(int tok2, const char *word, const char *name) {
  bool end = is_word(word, "END") && tok2 == TK_ID && (is_word(name, "DO") || is_word(name, "WHILE"));
  return end || is_word(word, "DO") || is_word(word, "WHILE");
}

int exec_loop(int tok2, const char *word) {
  if (is_word(word, "DO")) return do_statement(tok2);
  if (is_word(word, "WHILE")) return while_statement(tok2);
  if (end_of(tok2, word, "DO")) return end_loop(false);
  if (end_of(tok2, word, "WHILE")) return end_loop(true);
  return 1;
}

int break_zkl() {
  if (ilplev == 0 && iswlev == 0) {
    error("BREAK must be used in a loop or SWITCH construct");
    return 1;
  }
  if (iswopt == 1) {
    iswlev1 = iswlev;
    iswjmp = 1;
  } else {
    icontinue = 2;
    ilplev1 = ilplev - 1;
    ilpjmp = 1;
  }
  iexec = calc_exec();
  return 0;
}

int continue_zkl() {
  if (ilplev == 0) {
    error("CONTINUE must be used in a loop construct");
    return 1;
  }
  icontinue = 1;
  ilplev1 = ilplev - 1;
  ilpjmp = 1;
  iexec = calc_exec();
  return 0;
}

// ---------------------------------------------------------------- SWITCH

static int switch_statement(int tok2) {
  if (iswlev >= MAXNEST) {
    error("Max. number of nested SWITCH statements is reached");
    return 0;
  }
  SwitchRecord &s = swlist[iswlev];
  s.iflev = static_cast<uint8_t>(iflev);
  s.ilplev = static_cast<uint8_t>(ilplev);
  s.skipped = 1;
  if (iexec != 0) {
    ++iswlev;
    return 0;
  }
  iswopt = 1;
  int32_t value;
  if (!head_value(tok2, "SWITCH", &value)) return 0;
  s.value = value;
  s.skipped = 0;
  ++iswlev;
  icajmp = 1;
  iexec = calc_exec();
  return 0;
}

// CASE value: and DEFAULT: both end in ":" and the end of the statement.
static void case_tail(int tok, const char *what) {
  char msg[64];
  if (tok != ':') {
    std::snprintf(msg, sizeof msg, "Expected ':' in %s statement", what);
    error(msg);
    return;
  }
  if (lexan() != TK_END) {
    std::snprintf(msg, sizeof msg, "Expected end of line in %s statement", what);
    error(msg);
  }
}

static int case_statement(int tok2) {
  if (iswlev == 0) {
    error("CASE must be used in a SWITCH construct");
    return 0;
  }
  int sign = 1;
  int tok = tok2;
  if (tok == TK_UMINUS || tok == '-') {  // after the word CASE the lexer sees a binary minus
    sign = -1;
    tok = lexan();
  }
  if (tok != TK_INT) {
    error("The CASE parameter must be an INT constant");
    return 0;
  }
  const SwitchRecord &s = swlist[iswlev - 1];
  if (!s.skipped && sign * vlex.value.i == s.value) {
    icajmp = 0;
    iexec = calc_exec();
  }
  case_tail(lexan(), "CASE");
  return 0;
}

static int default_statement(int tok2) {
  if (iswlev == 0) {
    error("DEFAULT must be used in a SWITCH construct");
    return 0;
  }
  if (!swlist[iswlev - 1].skipped) {
    icajmp = 0;
    iexec = calc_exec();
  }
  case_tail(tok2, "DEFAULT");
  return 0;
}

static int endswitch_statement() {
  if (--iswlev < 0) {
    error("Missing SWITCH statement before END SWITCH");
    iswlev = 0;
    return 0;
  }
  const SwitchRecord &s = swlist[iswlev];
  if (!s.skipped) icajmp = 0;
  if (iswjmp && iswlev1 == iswlev + 1) iswjmp = 0;
  iexec = calc_exec();
  if (s.iflev != iflev) error("Overlapping SWITCH and IF contructs");
  if (s.ilplev != ilplev) error("Overlapping SWITCH and Loop contructs");
  return 0;
}

int exec_switch(int tok2, const char *word) {
  if (is_word(word, "SWITCH")) return switch_statement(tok2);
  if (is_word(word, "CASE")) return case_statement(tok2);
  if (is_word(word, "DEFAULT")) return default_statement(tok2);
  if (end_of(tok2, word, "SWITCH")) return endswitch_statement();
  return 1;
}

// ---------------------------------------------------------------- labels and GOTO

// Reports a jump into a block deeper than where the jump started; true if there was one.
static bool illegal_jump(const LabelRecord &l, int iflv, int ilplv, int iswlv) {
  bool bad = false;
  if (l.iflev > iflv) bad = true, error("Illegal jump into an IF construct");
  if (l.ilplev > ilplv) bad = true, error("Illegal jump into a Loop construct");
  if (l.iswlev > iswlv) bad = true, error("Illegal jump into a SWITCH construct");
  return bad;
}

int exec_label(const char *name) {
  bool replay = replaying();
  int index = search_label(name);
  if (index >= 0 && !replay) {
    char_error("Multiple defined label", name);
    return 1;
  }
  if (index < 0) {
    index = insert_lab(name);
    if (index < 0) return 1;
  }
  if (g_nlevel < 8) ilabop[g_nlevel] = 1;
  if (istopt == 0) {
    istopt = 1;
    save_stmt(cpstmt);
  }
  LabelRecord &l = lablist[index];
  l.stmt = replay ? nstptr : nstrec - 1;
  l.iflev = static_cast<uint8_t>(iflev);
  l.ilplev = static_cast<uint8_t>(ilplev);
  l.iswlev = static_cast<uint8_t>(iswlev);
  if (ilbjmp == 1 && std::strcmp(cjump, name) == 0) {
    ilbjmp = 0;
    iexec = calc_exec();
    illegal_jump(l, iflev_old, ilplev_old, iswlev_old);
  }
  l.iexec = static_cast<uint8_t>(iexec);
  return 0;
}

int goto_zkl() {
  if (lexan() != TK_ID) {
    error("Expected label");
    return 1;
  }
  char name[NAMELEN + 1];
  std::memcpy(name, vlex.name, sizeof name);
  int index = search_label(name);
  if (index >= 0) {
    const LabelRecord &l = lablist[index];
    if (illegal_jump(l, iflev, ilplev, iswlev)) return 1;
    jump_to(l.stmt, replaying());
    iflev = l.iflev;
    ilplev = l.ilplev;
    iswlev = l.iswlev;
    iexec = l.iexec;
  } else {
    ilbjmp = 1;
    iflev_old = iflev;
    ilplev_old = ilplev;
    iswlev_old = iswlev;
    qqscpy(cjump, name, NAMELEN);
    iexec = calc_exec();
  }
  if (lexan() != TK_END) error("Expected end of statement");
  return 0;
}

const char *pending_label() { return ilbjmp == 1 ? cjump : nullptr; }

void close_blocks(int nif, int nloop, int nswitch) {
  if (iflev > nif) {
    error("Missing END IF");
    iflev = nif;
    update_ifjmp();
  }
  if (ilplev > nloop) {
    error(dolist[ilplev - 1].is_while ? "Missing END WHILE" : "Missing END DO");
    ilplev = nloop;
    if (ilplev1 >= nloop) ilpjmp = icontinue = 0;
    if (ilplev == 0) release_loops(replaying());
  }
  if (iswlev > nswitch) {
    error("Missing END SWITCH");
    iswlev = nswitch;
    if (iswlev1 > nswitch) iswjmp = 0;
    icajmp = 0;
  }
  iexec = calc_exec();
}

void reset_blocks() {
  iflev = ilplev = iswlev = 0;
  ilplev1 = icontinue = iswopt = iswlev1 = 0;
}
