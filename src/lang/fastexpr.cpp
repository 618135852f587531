// Compiling expressions of stored statements, and running the code. The compiler follows the
// parser's grammar token by token, so the code computes what the parser would; it refuses
// every statement the parser would answer with a message.
#include "lang/fastexpr.h"

#include "builtins/mathfunc.h"
#include "builtins/stdf.h"
#include "lang/lexer.h"
#include "lang/parser.h"

#include <cstring>

StmtExprs *g_stmt_exprs = nullptr;

enum Op : uint8_t { OP_INT, OP_DOUBLE, OP_VAR, OP_ELEM, OP_BINARY, OP_NEG, OP_NOT, OP_POW, OP_MATH };

// ---------------------------------------------------------------- names

// Both names are zero-filled to their 16 bytes (set_name and the slots fill them).
static bool same_name(const char *a, const char *b) {
  uint64_t x[2], y[2];
  std::memcpy(x, a, sizeof x);
  std::memcpy(y, b, sizeof y);
  return x[0] == y[0] && x[1] == y[1];
}

NameSlot make_slot(const char *name) {
  NameSlot s{};
  std::memcpy(s.name, name, std::strlen(name));  // zero-filled beyond the name
  s.rec = s.index = -1;
  return s;
}

int slot_var(NameSlot &s) {
  if (s.gen == g_vargen && s.level == g_nlevel && s.rec >= 0) {
    const VarRecord &r = varlist[s.rec];
    if (r.type != T_FREE && (r.level == g_nlevel || r.name[0] == '%') &&
        same_name(r.name, s.name) &&
        (r.type == T_REF ? r.value.ref == s.index : s.rec == s.index))
      return s.index;
  }
  s.rec = search_filled(s.name);
  s.index = s.rec < 0 ? -1 : varlist[s.rec].type == T_REF ? varlist[s.rec].value.ref : s.rec;
  s.gen = g_vargen;
  s.level = g_nlevel;
  return s.index;
}

// ---------------------------------------------------------------- tokens

std::vector<Tok> quiet_tokens(const char *text, int pos, int iold_at, int max) {
  LexState saved = save_lex();
  lex_quiet = true;
  clex = text;
  istart = pos;
  iold = iold_at;
  std::vector<Tok> toks;
  while (static_cast<int>(toks.size()) < max) {
    Tok t{};
    t.tok = lexan();
    t.end = istart;
    t.iold = iold;
    std::memcpy(t.name, vlex.name, sizeof t.name);
    if (t.tok == TK_INT) t.i = vlex.value.i;
    if (t.tok == TK_FLOAT) t.d = vlex.value.d;
    toks.push_back(t);
    if (t.tok == TK_END || t.tok == TK_ERR) break;
  }
  lex_quiet = false;
  restore_lex(saved);
  return toks;
}

void lexed(const Tok &t) {
  if (t.tok == TK_ID) std::memcpy(vlex.name, t.name, sizeof vlex.name);
  if (t.tok == TK_INT || t.tok == TK_FLOAT) {
    vlex.count = 1;
    vlex.ndim = 1;
    vlex.type = t.tok == TK_INT ? T_INT : T_DOUBLE;
    if (t.tok == TK_INT) vlex.value.i = t.i;
    else vlex.value.d = t.d;
  }
}

// ---------------------------------------------------------------- compiling

// Bounds well inside the parser's own (50 stack entries, 200 nested expressions): code that
// keeps to them can never meet the parser's overflow messages.
constexpr int CODE_STACK = 40;
constexpr int CODE_DEPTH = 100;
constexpr int MAXTOKENS = 1100;  // more than a statement of 1024 characters can hold

namespace {

struct Compiler {
  std::vector<Tok> t;
  size_t k = 0;
  ExprCode *c;
  int sp = 0, depth = 0;
  bool ok = true;

  int cur() const { return t[k].tok; }
  void next() {
    if (k + 1 < t.size()) ++k;
    else ok = false;  // the text ran out of tokens that were read: refuse
  }
  void emit(uint8_t op, int32_t i = 0, double d = 0, int slot = 0, int n = 0) {
    c->code.push_back(Insn{op, static_cast<uint8_t>(n), static_cast<int16_t>(slot), i, d});
  }
  void push() {
    if (++sp > CODE_STACK) ok = false;
  }
  int name_slot(const char *name) {
    for (size_t i = 0; i < c->names.size(); ++i)
      if (std::strcmp(c->names[i].name, name) == 0) return static_cast<int>(i);
    c->names.push_back(make_slot(name));
    return static_cast<int>(c->names.size()) - 1;
  }

  // One of the one-argument mathematics functions: NAME ( expression ).
  void math(int number) {
    next();
    if (!ok || cur() != '(') return void(ok = false);
    next();
    if (!ok || cur() == ')') return void(ok = false);
    expr();
    if (!ok || cur() != ')') return void(ok = false);
    next();
    emit(OP_MATH, number);
  }

  // NAME [ i, j, ... ]: single subscripts only.
  void element(int slot) {
    int n = 0, base = sp;
    do {
      next();
      if (!ok || cur() == '*' || cur() == ':' || n == MAXIDX) return void(ok = false);
      expr();
      if (!ok || cur() == ':') return void(ok = false);
      ++n;
    } while (cur() == ',');
    if (cur() != ']') return void(ok = false);
    next();
    emit(OP_ELEM, 0, 0, slot, n);
    sp = base;
    push();
  }

  void primary() {
    switch (cur()) {
      case TK_INT: emit(OP_INT, t[k].i); push(); next(); return;
      case TK_FLOAT: emit(OP_DOUBLE, 0, t[k].d); push(); next(); return;
      case '(':
        next();
        expr();
        if (ok && cur() != ')') ok = false;
        if (ok) next();
        return;
      case TK_ID: break;
      default: ok = false; return;
    }
    int number = search_stdf(t[k].name);
    if (number >= 0) {
      double probe = 0.5;  // inside every function's domain: only the table's functions answer
      if (quiet_math(number, &probe)) math(number);
      else ok = false;
      return;
    }
    int slot = name_slot(t[k].name);
    next();
    if (!ok) return;
    if (cur() == '[') return element(slot);
    emit(OP_VAR, 0, 0, slot);
    push();
  }

  void term_unary() {
    int op = cur();
    if (op == TK_UMINUS || op == TK_UPLUS || op == '!') {
      next();
      if (!ok) return;
      term_unary();
      if (op != TK_UPLUS) emit(op == '!' ? OP_NOT : OP_NEG);
      return;
    }
    primary();
    if (ok && cur() == TK_POW) {
      next();
      if (!ok) return;
      term_unary();
      emit(OP_POW);
      --sp;
    }
  }

  // A run of one level's binary operators; `level` 0 is the loosest.
  void binary(int level) {
    static const int ops[4][4] = {{TK_AND, TK_OR}, {TK_EQ, TK_NE, TK_GE, TK_LE}, {'+', '-'}, {'*', '/', '%'}};
    auto below = [&] { level == 3 ? term_unary() : binary(level + 1); };
    auto is_op = [&](int tok) {
      if (level == 1) return tok >= TK_EQ && tok <= TK_LT;
      for (int op : ops[level])
        if (op && op == tok) return true;
      return false;
    };
    below();
    while (ok && is_op(cur())) {
      int op = cur();
      next();
      if (!ok) return;
      below();
      emit(OP_BINARY, op);
      --sp;
    }
  }

  void expr() {
    if (++depth > CODE_DEPTH) ok = false;
    if (ok) binary(0);
    --depth;
  }
};

}  // namespace

ExprCode *compile_expr(const char *text, int pos, int iold_at) {
  Compiler cc;
  cc.t = quiet_tokens(text, pos, iold_at, MAXTOKENS);
  if (cc.t.empty() || cc.cur() == TK_END) return nullptr;
  cc.c = new ExprCode{};
  cc.c->nvalues = 0;
  for (;;) {
    cc.expr();
    if (!cc.ok) break;
    ++cc.c->nvalues;
    if (cc.cur() != ',') break;
    cc.next();
  }
  int end = cc.ok ? cc.cur() : TK_ERR;
  if (end != ']' && end != ')' && end != ':' && end != TK_END) {
    delete cc.c;
    return nullptr;
  }
  cc.c->next = cc.t[cc.k];
  return cc.c;
}

// ---------------------------------------------------------------- running

static int extent(const VarRecord &v, int k) { return v.ndim > 1 ? v.dims[k] : v.count; }

bool element_at(const VarRecord &v, const Scalar *subs, int n, int64_t *pos) {
  if (v.type != T_INTR && v.type != T_FLOATR && v.type != T_DOUBLER) return false;
  if (n != (v.ndim < 1 ? 1 : v.ndim)) return false;
  *pos = 0;
  for (int k = 0; k < n; ++k) {
    if (subs[k].type != T_INT) return false;
    int32_t s = subs[k].value.i, d = extent(v, k);
    if (s < 0 || s > d - 1) return false;
    *pos = *pos * d + s;
  }
  return true;
}

// The element the n subscripts on top of `st` select, pushed in their place.
static bool load_element(const VarRecord &v, Scalar *st, int n) {
  int64_t pos;
  if (!element_at(v, st, n, &pos)) return false;
  Scalar &e = st[0];
  e.value = Value{};
  if (v.type == T_INTR) e.value.i = static_cast<const int32_t *>(v.value.p)[pos];
  else if (v.type == T_FLOATR) e.value.f = static_cast<const float *>(v.value.p)[pos];
  else e.value.d = static_cast<const double *>(v.value.p)[pos];
  e.type = v.type - ARRAY_OFFSET;
  return true;
}

static bool load_var(const VarRecord &v, Scalar &s) {
  s.value = v.value;
  switch (v.type) {
    case T_INT: case T_FLOAT: case T_DOUBLE: s.type = v.type; return true;
    case T_CHAR: s.type = T_INT; s.value.i = v.value.c; return true;
    default: return false;
  }
}

bool eval_expr(ExprCode &c, Scalar *st) {
  int sp = 0;
  for (const Insn &in : c.code) {
    switch (in.op) {
      case OP_INT:
        st[sp].type = T_INT;
        st[sp].value = Value{};
        st[sp++].value.i = in.i;
        break;
      case OP_DOUBLE:
        st[sp].type = T_DOUBLE;
        st[sp++].value.d = in.d;
        break;
      case OP_VAR: {
        int index = slot_var(c.names[in.slot]);
        if (index < 0 || !load_var(varlist[index], st[sp++])) return false;
        break;
      }
      case OP_ELEM: {
        int index = slot_var(c.names[in.slot]);
        sp -= in.n;
        if (index < 0 || !load_element(varlist[index], st + sp, in.n)) return false;
        ++sp;
        break;
      }
      case OP_BINARY: {
        --sp;
        Scalar &l = st[sp - 1];
        const Scalar &u = st[sp];
        if (l.type == T_INT && u.type == T_INT && (in.i == '+' || in.i == '-' || in.i == '*')) {
          uint32_t a = static_cast<uint32_t>(l.value.i), b = static_cast<uint32_t>(u.value.i);
          l.value.i = static_cast<int32_t>(in.i == '+' ? a + b : in.i == '-' ? a - b : a * b);
        } else if (!quiet_binary(in.i, l, u)) {
          return false;
        }
        break;
      }
      case OP_NEG: quiet_neg(st[sp - 1]); break;
      case OP_NOT:
        if (st[sp - 1].type != T_INT) return false;
        st[sp - 1].value.i = st[sp - 1].value.i == 0;
        break;
      case OP_POW:
        --sp;
        if (!quiet_power(st[sp - 1], st[sp])) return false;
        break;
      default: {  // OP_MATH
        Scalar &s = st[sp - 1];
        double x = s.type == T_INT ? s.value.i : s.type == T_FLOAT ? s.value.f : s.value.d;
        if (!quiet_math(in.i, &x)) return false;
        s.type = T_DOUBLE;
        s.value.d = x;
        break;
      }
    }
  }
  return true;
}

// ---------------------------------------------------------------- stored statements

ExprCode *StmtExprs::at(int pos, int iold_at) {
  for (const Entry &e : entries)
    if (e.pos == pos && e.iold == iold_at) return e.code;
  ExprCode *code = compile_expr(text, pos, iold_at);
  entries.push_back(Entry{pos, iold_at, code});
  return code;
}

StmtExprs::~StmtExprs() {
  for (const Entry &e : entries) delete e.code;
}

StackEntry *parse_compiled() {
  StmtExprs *s = g_stmt_exprs;
  if (!s || s->dead) return nullptr;
  const char *at = clex + istart;
  if (at < s->text || at > s->text + s->len) return nullptr;
  ExprCode *c = s->at(static_cast<int>(at - s->text), iold);
  Scalar values[MAXSTACK];
  if (!c || !eval_expr(*c, values)) return nullptr;
  for (int i = 0; i < c->nvalues; ++i) {
    StackEntry *e = push_slot();
    e->type = static_cast<int8_t>(values[i].type);
    e->value = values[i].value;
  }
  // the lexer stops on the token after the list, as the parser leaves it
  const Tok &n = c->next;
  istart = static_cast<int>(s->text + n.end - clex);
  iold = n.iold;
  ilex = n.tok;
  lexed(n);
  return stacklist;
}
