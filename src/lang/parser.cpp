// Grammar, loosest binding first: expr (&& ||), term_rel (comparisons), term_add (+ -),
// term_mul (* / %), term_unary (- + !), factor (primary [** term_unary]).
#include "lang/parser.h"

#include "builtins/stdf.h"
#include "core/error.h"
#include "lang/fastexpr.h"
#include "lang/lexer.h"
#include "lang/stack.h"
#include "lang/subscript.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

int ipopt = 0;
IndexRecord idxr, idxl;
bool g_abort = false;

// Deeper nesting than this cannot come from a sensible statement; it would only exhaust
// the machine's own stack.
constexpr int MAXDEPTH = 200;
static int depth = 0;

static void expr();
static void term_unary();

static void give_up(const char *msg) {
  if (!g_abort) error(msg);
  g_abort = true;
}

StackEntry *push_slot() {
  if (g_nstack >= MAXSTACK) {
    give_up("Expression too complex - evaluation stack overflow");
    return nullptr;
  }
  StackEntry *e = &stacklist[g_nstack++];
  std::memset(e, 0, sizeof *e);
  e->ndim = 1;
  e->count = 1;
  return e;
}

template <typename T>
static int push_number(int type, T Value::*field, T value) {
  StackEntry *e = push_slot();
  if (!e) return 1;
  e->type = type;
  e->value.*field = value;
  return 0;
}

int push_int(int32_t value) { return push_number(T_INT, &Value::i, value); }

int push_double(double value) { return push_number(T_DOUBLE, &Value::d, value); }

int push_owned_str(char *text, int32_t n) {
  StackEntry *e = push_slot();
  if (!e) {
    std::free(text);
    return 1;
  }
  e->type = T_STRING;
  e->count = n;
  e->value.str = text;
  return 0;
}

int push_str(const char *text) {
  char *p = copy_text(text);
  return p ? push_owned_str(p, static_cast<int32_t>(std::strlen(p))) : 1;
}

int push_var(const VarRecord *rec) {
  if (rec->type < T_CHAR || rec->type > T_COMPLEXR) {
    error("Not allowed operand");
    return 1;
  }
  void *data = nullptr;
  int32_t *dims = nullptr;
  if (rec->type == T_STRING) {
    data = std::malloc(rec->count + 1);
    if (data) std::memcpy(data, rec->value.str, rec->count + 1);
  } else if (is_array(rec->type)) {
    size_t bytes = static_cast<size_t>(rec->count > 0 ? rec->count : 0) * array_size(rec->type);
    data = std::malloc(bytes ? bytes : 1);
    if (data && bytes) std::memcpy(data, rec->value.p, bytes);
    if (data && rec->ndim > 1) {
      dims = static_cast<int32_t *>(std::malloc(rec->ndim * sizeof(int32_t)));
      if (dims) {
        std::memcpy(dims, rec->dims, rec->ndim * sizeof(int32_t));
      } else {
        std::free(data);
        data = nullptr;
      }
    }
  }
  if (rec->type >= T_STRING && !data) {
    error("Not enough memory");
    return 1;
  }
  StackEntry *e = push_slot();
  if (!e) {
    std::free(data);
    std::free(dims);
    return 1;
  }
  e->type = rec->type;
  e->count = rec->count;
  if (rec->type == T_CHAR) {
    e->type = T_INT;
    e->value.i = rec->value.c;
  } else if (rec->type >= T_STRING) {
    e->value.p = data;
    if (is_array(rec->type)) e->ndim = rec->ndim;
    e->dims = dims;
  } else {
    e->value = rec->value;
  }
  return 0;
}

int push_index(int index) {
  // The name, for an index of -1, is written by the caller into the slot before the push;
  // keep it across the clearing of the slot.
  char name[NAMELEN + 1] = {};
  if (g_nstack < MAXSTACK) std::memcpy(name, stacklist[g_nstack].name, sizeof name);
  StackEntry *e = push_slot();
  if (!e) return 1;
  std::memcpy(e->name, name, sizeof name);
  e->type = T_REF;
  e->value.ref = index;
  return 0;
}

static int push_name_ref(const char *name, int index) {
  if (g_nstack < MAXSTACK) {
    std::memset(stacklist[g_nstack].name, 0, NAMELEN + 1);
    if (index == -1) set_name(&stacklist[g_nstack], name);
  }
  return push_index(index);
}

int pop_stack() {
  if (--g_nstack < 0) {
    error("Negative stack counter");
    g_nstack = 0;
  }
  return 0;
}

int free_stack(int mark) {
  for (int i = mark; i < g_nstack; ++i) release_storage(&stacklist[i]);
  // a mark above the top (a function whose arguments an error already took) brings back
  // entries whose storage is gone: they return as INT 0, never as their old arrays
  for (int i = g_nstack; i < mark && i < MAXSTACK; ++i) {
    stacklist[i].type = T_INT, stacklist[i].count = 1, stacklist[i].ndim = 1;
    stacklist[i].dims = nullptr, stacklist[i].value.p = nullptr;
  }
  g_nstack = mark;
  return 0;
}

template <typename T>
static void negate_all(void *p, int n) {
  T *a = static_cast<T *>(p);
  for (int i = 0; i < n; ++i) a[i] = static_cast<T>(-a[i]);
}

// Floating values change sign by their sign bit, so -0.0 and the sign of a NaN follow.
static void flip_float(float *f, int n) {
  for (int i = 0; i < n; ++i) f[i] = -f[i];
}

int neg_stack(int pos) {
  StackEntry &e = stacklist[pos];
  switch (e.type) {
    case T_BYTE: e.value.b = static_cast<uint8_t>(-e.value.b); break;
    case T_SHORT: e.value.s = static_cast<int16_t>(-e.value.s); break;
    case T_INT: e.value.i = static_cast<int32_t>(0u - static_cast<uint32_t>(e.value.i)); break;
    case T_FLOAT: e.value.f = -e.value.f; break;
    case T_DOUBLE: e.value.d = -e.value.d; break;
    case T_COMPLEX: flip_float(e.value.cx, 2); break;
    case T_BYTER: negate_all<uint8_t>(e.value.p, e.count); break;
    case T_SHORTR: negate_all<int16_t>(e.value.p, e.count); break;
    case T_INTR: {
      uint32_t *a = static_cast<uint32_t *>(e.value.p);
      for (int i = 0; i < e.count; ++i) a[i] = 0u - a[i];
      break;
    }
    case T_FLOATR: flip_float(static_cast<float *>(e.value.p), e.count); break;
    case T_DOUBLER: negate_all<double>(e.value.p, e.count); break;
    case T_COMPLEXR: flip_float(static_cast<float *>(e.value.p), 2 * e.count); break;
    default: error("Not allowed operands"); return 1;
  }
  return 0;
}

int unary_stack(int op) {
  if (g_nstack < 1) return 1;
  StackEntry &top = stacklist[g_nstack - 1];
  switch (op) {
    case TK_UMINUS: return neg_stack(g_nstack - 1);
    case TK_UPLUS: return 0;
    case '!':
      if (top.type != T_INT) {
        error("NOT operand must be of type integer");
        return 1;
      }
      top.value.i = top.value.i == 0;
      return 0;
    default:
      std::printf("Not allowed stack operation %d\n", op);
      return 1;
  }
}

// Evaluates one subscript into entry k; 1 when it is not an INT.
static int index_value(int32_t *out) {
  int mark = g_nstack;
  expr();
  if (g_abort) {  // what the given-up expression left on the stack goes with it
    free_stack(mark);
    return 1;
  }
  if (g_nstack <= mark || stacklist[g_nstack - 1].type != T_INT) {
    free_stack(mark);
    return 1;
  }
  *out = stacklist[g_nstack - 1].value.i;
  free_stack(mark);  // the number is taken; nothing of the expression stays behind
  return 0;
}

int set_index(IndexRecord *rec, int k) {
  if (ilex == '*') {
    rec->kind[k] = IDX_ALL;
    ilex = lexan();
    return 0;
  }
  if (ilex == ':') {
    rec->start[k] = 0;
  } else {
    if (index_value(&rec->start[k])) return 1;
    rec->kind[k] = IDX_ONE;
    rec->end[k] = rec->start[k];
    if (ilex != ':') return 0;
  }
  ilex = lexan();
  if (ilex == ',' || ilex == ']') {
    rec->kind[k] = IDX_OPEN;
    return 0;
  }
  if (index_value(&rec->end[k])) return 1;
  rec->kind[k] = IDX_RANGE;
  return 0;
}

// Reads the subscripts after "[" into `rec`; false when the expression is given up.
static bool read_subscripts(IndexRecord *rec) {
  int k = 0;
  do {
    if (k == MAXIDX) {
      give_up("Too many subscripts (at most 8)");
      return false;
    }
    ilex = lexan();
    int mark = g_nstack;
    if (set_index(rec, k)) {
      free_stack(mark);
      give_up("Subscripts must be of type integer");
      return false;
    }
    free_stack(mark);
    ++k;
  } while (ilex == ',');
  rec->nidx = static_cast<uint8_t>(k);
  return true;
}

static void call_stdf(int number) {
  ilex = lexan();
  match('(');
  int base = g_nstack;
  if (ilex != ')') {
    ipopt = stdf_opt(number);
    expr();
    while (ilex == ',' && !g_abort) {
      ilex = lexan();
      expr();
    }
    ipopt = 0;
  }
  if (g_abort) return;
  match(')');
  push_stdf(number, base);
}

static void primary() {
  switch (ilex) {
    case TK_INT: case TK_FLOAT: case TK_STR:
      push_var(&vlex);
      ilex = lexan();
      return;
    case '(':
      ilex = lexan();
      expr();
      if (!g_abort) match(')');
      return;
    case TK_ID: break;
    default:
      error("Syntax error");
      return;
  }
  char name[NAMELEN + 1];
  std::memcpy(name, vlex.name, sizeof name);
  int number = search_stdf(name);
  if (number >= 0) {
    call_stdf(number);
    return;
  }
  int index = search_var(name);
  if (index >= 0) {
    ilex = lexan();
    if (ilex == '[') {
      IndexRecord rec;  // own record: a subscript may hold another subscripted element
      if (!read_subscripts(&rec)) return;
      match(']');
      idxr = rec;
      push_element(&varlist[index], &idxr);
    } else if (ipopt == 2 || (ipopt == 1 && varlist[index].type >= T_STRING)) {
      push_name_ref(name, index);
    } else {
      push_var(&varlist[index]);
    }
    return;
  }
  if (ipopt != 0) {
    push_name_ref(name, -1);
    ilex = lexan();
    return;
  }
  char_error("Undefined identifier", name);
  ilex = lexan();
}

static void factor() {
  primary();
  if (ilex == TK_POW && !g_abort) {
    ilex = lexan();
    term_unary();
    if (!g_abort) exp_stack();
  }
}

static void term_unary() {
  if (ilex == TK_UMINUS || ilex == TK_UPLUS || ilex == '!') {
    int op = ilex;
    ilex = lexan();
    term_unary();
    if (!g_abort) unary_stack(op);
    return;
  }
  factor();
}

static void term_mul() {
  term_unary();
  while (!g_abort && (ilex == '*' || ilex == '/' || ilex == '%')) {
    int op = ilex;
    ilex = lexan();
    term_unary();
    if (!g_abort) exec_stack(op);
  }
}

static void term_add() {
  term_mul();
  while (!g_abort && (ilex == '+' || ilex == '-')) {
    int op = ilex;
    ilex = lexan();
    term_mul();
    if (!g_abort) exec_stack(op);
  }
}

static bool is_relation(int t) { return t >= TK_EQ && t <= TK_LT; }

static void term_rel() {
  term_add();
  while (!g_abort && is_relation(ilex)) {
    int op = ilex;
    ilex = lexan();
    term_add();
    if (!g_abort) exec_stack(op);
  }
}

static void expr() {
  if (++depth > MAXDEPTH) {
    give_up("Expression nested too deeply");
    --depth;
    return;
  }
  term_rel();
  while (!g_abort && (ilex == TK_AND || ilex == TK_OR)) {
    int op = ilex;
    ilex = lexan();
    term_rel();
    if (!g_abort) exec_stack(op);
  }
  --depth;
}

StackEntry *parse(int mode) {
  g_nstack = 0;
  ipopt = 0;
  g_abort = false;
  depth = 0;
  if (mode == 0)
    if (StackEntry *compiled = parse_compiled()) return compiled;
  ilex = lexan();
  if (ilex == TK_END) return nullptr;
  for (;;) {
    int c = lookup();
    if (mode == 1 && ilex == TK_ID && (c == 0 || c == ',' || c == ')' || c == ':')) {
      push_name_ref(vlex.name, search_var(vlex.name));
      ilex = lexan();
    } else {
      expr();
    }
    if (g_abort) {
      free_stack(0);
      ipopt = 0;
      return nullptr;
    }
    if (ilex != ',') break;
    ilex = lexan();
  }
  if (ilex != ']' && ilex != ')' && ilex != ':' && ilex != TK_END)
    error("Syntax error - Expected end of line");
  return stacklist;
}

IndexRecord *parse_idx() {
  ipopt = 0;
  g_abort = false;
  depth = 0;
  ilex = lexan();
  if (ilex == TK_END) return nullptr;
  int k = 0;
  for (;;) {
    if (k == MAXIDX) {
      error("Too many subscripts (at most 8)");
      return nullptr;
    }
    g_nstack = 0;
    if (set_index(&idxl, k)) {
      if (!g_abort) error("Subscripts must be of type integer");
      free_stack(0);
      return nullptr;
    }
    ++k;
    if (ilex != ',') break;
    ilex = lexan();
  }
  g_nstack = 0;
  match(']');
  if (ilex != '=') {
    c_error("Syntax error - Expected", '=');
    return nullptr;
  }
  idxl.nidx = static_cast<uint8_t>(k);
  return &idxl;
}

bool parse_text_param(const char *missing, const char *not_text) {
  parse(0);
  if (g_nstack == 0) {
    error(missing);
    return false;
  }
  if (stacklist[0].type != T_STRING) {
    error(not_text);
    free_stack(0);
    return false;
  }
  return true;
}
