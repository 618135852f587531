// Stored statements are replayed by loops, jumps and procedures, often millions of times.
// The first replay reads the statement's first two tokens once and for all; an assignment to
// a variable or to an array element is compiled besides and, while its values stay INT, FLOAT
// or DOUBLE and nothing would give a message, stores its value without the text being read
// again. Everything else (and every case the code gives up on) goes the way of exec_stmt.
#include "core/replay.h"

#include "binding/call.h"
#include "core/blocks.h"
#include "core/procedure.h"
#include "core/statement.h"
#include "builtins/stdf.h"
#include "lang/fastexpr.h"
#include "lang/lexer.h"
#include "lang/parser.h"

#include <cstring>
#include <vector>

namespace {

enum Kind : uint8_t {
  K_TEXT,     // read as text by exec_stmt
  K_WORDS,    // first word and second token known
  K_HANDLER,  // DO, WHILE, END DO, END WHILE, END: straight to the handler that takes it
  K_ASSIGN,   // NAME = expression
  K_ELEMENT,  // NAME[subscripts] = expression
  K_CALL,     // NAME = FUNCTION(parameters)
  K_HEADER,   // SUBROUTINE or FUNCTION with its formal parameters
  K_RETURN,   // RETURN expression
};

struct Stored {
  StmtExprs exprs;
  Kind kind = K_TEXT;
  char word[NAMELEN + 1];
  Tok first, second;
  int (*handler)(int, const char *);
  NameSlot target;
  ExprCode *subs = nullptr, *rhs = nullptr;  // owned by exprs
  std::unique_ptr<CallForm> call;
  std::unique_ptr<HeaderForm> header;
};

}  // namespace

static Stored *stored[MAXSTMT];
static std::vector<Stored *> retired;  // released while one of them may still be running
static int running = 0;                // nesting of exec_stored

// The single expression at (pos, history) of the statement, or null.
static ExprCode *single(Stored &s, int pos, int history) {
  ExprCode *c = s.exprs.at(pos, history);
  return c && c->nvalues == 1 ? c : nullptr;
}

static Tok token_at(const char *text, const Tok &after) {
  return quiet_tokens(text, after.end, after.iold, 1)[0];
}

// NAME = ...: compiled unless the right side is an initialiser list or a function call.
static void analyse_assign(Stored &s, const char *text) {
  Tok t = token_at(text, s.second);
  if (t.tok == '{') return;
  const char *args = std::strchr(text, '=') + 1;
  const char *after = text + t.end;
  while (*after == ' ') ++after;
  if (t.tok == TK_ID && *after == '(' && search_stdf(t.name) < 0) {  // a function call
    if (search_routine(t.name, 2) < 0 && (s.call = compile_call(t.name, args))) s.kind = K_CALL;
    return;
  }
  s.rhs = single(s, static_cast<int>(args - text), -1);
  if (s.rhs) s.kind = K_ASSIGN;
}

// SUBROUTINE, FUNCTION and RETURN read on after the first blank, as exec_zkl restarts there.
static void analyse_keyword(Stored &s, const char *text) {
  const char *p = text;
  while (*p == ' ') ++p;
  const char *blank = std::strchr(p, ' ');
  if (!blank || s.second.tok == ':' || s.second.tok == TK_END) return;
  if (std::strcmp(s.word, "RETURN") == 0) {
    s.rhs = single(s, static_cast<int>(blank + 1 - text), -1);
    if (s.rhs) s.kind = K_RETURN;
  } else if (std::strcmp(s.word, "SUBROUTINE") == 0 || std::strcmp(s.word, "FUNCTION") == 0) {
    s.header = compile_header(blank + 1);
    if (s.header) s.kind = K_HEADER;
  }
}

// NAME[i, j] = ...: single subscripts, then "=" and one expression.
static void analyse_element(Stored &s, const char *text) {
  s.subs = s.exprs.at(s.second.end, s.second.iold);
  if (!s.subs || s.subs->nvalues > MAXIDX || s.subs->next.tok != ']') return;
  Tok eq = token_at(text, s.subs->next);
  if (eq.tok != '=') return;
  s.rhs = single(s, eq.end, eq.iold);
  if (s.rhs) s.kind = K_ELEMENT;
}

static Stored *analyse(const char *text) {
  Stored *s = new Stored;
  s->exprs.text = text;
  s->exprs.len = static_cast<int>(std::strlen(text));
  std::vector<Tok> t = quiet_tokens(text, 0, -1, 2);
  if (t.size() < 2) return s;  // empty or faulty: exec_stmt says so
  s->first = t[0];
  s->second = t[1];
  for (const Tok &k : t)
    if (k.tok == TK_ERR || k.tok == TK_STR) return s;
  if (t[0].tok == TK_ID) {
    if (std::strcmp(t[0].name, "INCLUDE") == 0) return s;
    std::memcpy(s->word, t[0].name, sizeof s->word);
  } else {  // the first token's own text
    int from = 0;
    while (text[from] == ' ') ++from;
    int n = t[0].end - from < NAMELEN ? t[0].end - from : NAMELEN;
    std::memcpy(s->word, text + from, n);
    s->word[n] = '\0';
  }
  s->kind = K_WORDS;
  // the handlers before these in run_stmt pass them on
  s->handler = is_loop_statement(t[1].tok, s->word, t[1].name) ? exec_loop
               : t[1].tok == TK_END && std::strcmp(s->word, "END") == 0 ? exec_end
                                                                        : nullptr;
  if (s->handler) s->kind = K_HANDLER;
  if (t[0].tok != TK_ID || is_block_word(s->word)) return s;
  s->target = make_slot(s->word);
  if (t[1].tok == '=' && s->word[0] != '%') analyse_assign(*s, text);
  else if (t[1].tok == '[') analyse_element(*s, text);
  else analyse_keyword(*s, text);
  return s;
}

// The lexer as exec_stmt leaves it after the first two tokens.
static void restore_lexer(const Stored &s, const char *text) {
  cpstmt = text;
  clex = text;
  istart = s.second.end;
  iold = s.second.iold;
  lexed(s.first);
  lexed(s.second);
}

// exec_stmt after its first two tokens.
static void run_words(const Stored &s, const char *text) {
  restore_lexer(s, text);
  run_stmt(s.second.tok, s.word);
}

// The value stored as an assignment stores it: the variable's old storage goes.
static void assign(VarRecord &v, const Scalar &value) {
  release_storage(&v);
  v.type = static_cast<int8_t>(value.type);
  v.count = 1;
  v.ndim = 1;
  v.value = value.value;
}

// An element written as insert_element writes an INT, FLOAT or DOUBLE value.
static void put_element(VarRecord &v, int64_t pos, const Scalar &x) {
  double d = x.type == T_INT ? x.value.i : x.type == T_FLOAT ? x.value.f : x.value.d;
  if (v.type == T_INTR)
    static_cast<int32_t *>(v.value.p)[pos] = x.type == T_INT ? x.value.i : to_int32(d);
  else if (v.type == T_FLOATR)
    static_cast<float *>(v.value.p)[pos] = static_cast<float>(d);
  else
    static_cast<double *>(v.value.p)[pos] = d;
}

// The compiled statement; false when it must be read as text.
static bool run_compiled(Stored &s) {
  Scalar value[MAXSTACK];
  switch (s.kind) {
    case K_CALL: return run_call(*s.call, s.target);
    case K_HEADER: return run_header(*s.header);
    case K_RETURN: return eval_expr(*s.rhs, value) && run_return(value[0]);
    default: break;
  }
  int index = slot_var(s.target);
  if (index < 0) return false;
  VarRecord &v = varlist[index];
  if (s.kind == K_ASSIGN) {
    if (!eval_expr(*s.rhs, value)) return false;
    assign(v, value[0]);
    return true;
  }
  Scalar subs[MAXSTACK];
  int64_t pos;
  if (!eval_expr(*s.subs, subs) || !element_at(v, subs, s.subs->nvalues, &pos) || !eval_expr(*s.rhs, value))
    return false;
  put_element(v, pos, value[0]);
  return true;
}

static void run(Stored &s, const char *text) {
  switch (s.kind) {
    case K_TEXT: exec_stmt(text); return;
    case K_WORDS: run_words(s, text); return;
    case K_HANDLER:
      restore_lexer(s, text);
      s.handler(s.second.tok, s.word);
      return;
    default:
      if (iexec != 0) {  // skipped, as switch_stmt skips it
        cpstmt = text;
        return;
      }
      if (run_compiled(s)) cpstmt = text;
      else run_words(s, text);
  }
}

static void purge() {
  for (Stored *s : retired) delete s;
  retired.clear();
}

void exec_stored(int k) {
  const char *text = stlist[k];
  if (!stored[k]) stored[k] = analyse(text);
  Stored *s = stored[k];
  StmtExprs *outer = g_stmt_exprs;
  g_stmt_exprs = &s->exprs;
  ++running;
  run(*s, text);
  --running;
  g_stmt_exprs = outer;
  if (running == 0 && !retired.empty()) purge();
}

void forget_stored(int first) {
  for (int i = first; i < nstrec; ++i) {
    if (!stored[i]) continue;
    stored[i]->exprs.dead = true;
    retired.push_back(stored[i]);
    stored[i] = nullptr;
  }
  if (running == 0) purge();
}

void reset_replay() {
  running = 0;
  g_stmt_exprs = nullptr;
  purge();
}
