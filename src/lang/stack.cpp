// Binary operators of the evaluation stack.
#include "lang/stack.h"

#include "core/error.h"
#include "lang/lexer.h"
#include "lang/parser.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

// ---------------------------------------------------------------- element arithmetic

// Integer arithmetic at the width of T, wrapping; false for a zero divisor.
template <typename T>
static bool int_arith(int op, T a, T b, T *r) {
  uint32_t ua = static_cast<uint32_t>(a), ub = static_cast<uint32_t>(b);
  switch (op) {
    case '+': *r = static_cast<T>(ua + ub); return true;
    case '-': *r = static_cast<T>(ua - ub); return true;
    case '*': *r = static_cast<T>(ua * ub); return true;
    default:
      if (b == 0) return false;
      *r = static_cast<T>(static_cast<int64_t>(a) / static_cast<int64_t>(b));
      return true;
  }
}

template <typename T>
static bool float_arith(int op, T a, T b, T *r) {
  switch (op) {
    case '+': *r = a + b; return true;
    case '-': *r = a - b; return true;
    case '*': *r = a * b; return true;
    default:
      if (b == 0) return false;
      *r = a / b;
      return true;
  }
}

// Complex products and quotients are computed in double precision and stored as floats.
static bool complex_arith(int op, const float *x, const float *y, float *r) {
  double a = x[0], b = x[1], c = y[0], d = y[1];
  switch (op) {
    case '+': r[0] = x[0] + y[0]; r[1] = x[1] + y[1]; return true;
    case '-': r[0] = x[0] - y[0]; r[1] = x[1] - y[1]; return true;
    case '*':
      r[0] = static_cast<float>(a * c - b * d);
      r[1] = static_cast<float>(a * d + b * c);
      return true;
    default: {
      double den = c * c + d * d;
      if (c == 0 && d == 0) return false;
      r[0] = static_cast<float>((a * c + b * d) / den);
      r[1] = static_cast<float>((b * c - a * d) / den);
      return true;
    }
  }
}

template <typename T>
static int compare(int op, T a, T b) {
  switch (op) {
    case TK_EQ: return a == b;
    case TK_NE: return a != b;
    case TK_GE: return a >= b;
    case TK_LE: return a <= b;
    case TK_GT: return a > b;
    default: return a < b;
  }
}

static bool is_arith(int op) { return op == '+' || op == '-' || op == '*' || op == '/'; }
static bool is_compare(int op) { return op >= TK_EQ && op <= TK_LT; }
static bool is_logic(int op) { return op == TK_AND || op == TK_OR || op == TK_XOR; }

// ---------------------------------------------------------------- widening

int change_stackvar(int from, int to, int pos) {
  StackEntry &e = stacklist[pos];
  bool ok = true;
  switch (to) {
    case T_SHORT:
      if (from == T_BYTE) e.value.s = e.value.b; else ok = false;
      break;
    case T_INT:
      if (from == T_SHORT) e.value.i = e.value.s;
      else if (from == T_BYTE) e.value.i = e.value.b;
      else ok = false;
      break;
    case T_FLOAT:
      if (from == T_INT) e.value.f = static_cast<float>(e.value.i);
      else if (from == T_SHORT) e.value.f = e.value.s;
      else if (from == T_BYTE) e.value.f = e.value.b;
      else ok = false;
      break;
    case T_DOUBLE:
      if (from == T_INT) e.value.d = e.value.i;
      else if (from == T_FLOAT) e.value.d = e.value.f;
      else if (from == T_SHORT) e.value.d = e.value.s;
      else if (from == T_BYTE) e.value.d = e.value.b;
      else ok = false;
      break;
    case T_COMPLEX: {
      float re = 0;
      if (from == T_DOUBLE) re = static_cast<float>(e.value.d);
      else if (from == T_INT) re = static_cast<float>(e.value.i);
      else if (from == T_SHORT) re = e.value.s;
      else if (from == T_BYTE) re = e.value.b;
      else ok = false;
      if (ok) {
        e.value.cx[0] = re;
        e.value.cx[1] = 0;
      }
      break;
    }
    case T_STRING:
      ok = from == T_CHARR && check_crayvar(&e) == 0;
      break;
    default: ok = false;
  }
  // A refused number still takes the target's code; an owned pointer can never be faked.
  if (ok || (from <= T_COMPLEX && to <= T_COMPLEX)) e.type = static_cast<int8_t>(to);
  if (!ok) {
    error("Not allowed operands");
    return 1;
  }
  return 0;
}

int change_scavar(int type, int pos) {
  StackEntry &e = stacklist[pos];
  switch (type) {
    case T_BYTE: e.value.i = e.value.b; e.type = T_INT; return T_INT;
    case T_SHORT: e.value.i = e.value.s; e.type = T_INT; return T_INT;
    case T_FLOAT: e.value.d = e.value.f; e.type = T_DOUBLE; return T_DOUBLE;
    default: return type;
  }
}

// Reads element i of an array of scalar type `t` as double.
static double elem_double(const void *p, int t, int i) {
  switch (t) {
    case T_BYTE: return static_cast<const uint8_t *>(p)[i];
    case T_SHORT: return static_cast<const int16_t *>(p)[i];
    case T_INT: return static_cast<const int32_t *>(p)[i];
    case T_FLOAT: return static_cast<const float *>(p)[i];
    case T_DOUBLE: return static_cast<const double *>(p)[i];
    default: return 0;
  }
}

static bool array_widens(int from, int to) {
  switch (to) {
    case T_SHORTR: return from == T_BYTER;
    case T_INTR: return from == T_SHORTR || from == T_BYTER;
    case T_FLOATR: return from >= T_BYTER && from <= T_INTR;
    case T_DOUBLER: return from >= T_BYTER && from <= T_FLOATR;
    case T_COMPLEXR: return from >= T_BYTER && from <= T_DOUBLER;
    default: return false;
  }
}

int change_arrvar(int from, int to, StackEntry *entry) {
  if (!array_widens(from, to)) {
    error("Not allowed operands");
    return 1;
  }
  int n = entry->count > 0 ? entry->count : 0;
  void *q = std::calloc(n ? n : 1, array_size(to));
  if (!q) {
    error("Not enough memory");
    return 1;
  }
  int sf = from - ARRAY_OFFSET;
  for (int i = 0; i < n; ++i) {
    double v = elem_double(entry->value.p, sf, i);
    switch (to) {
      case T_SHORTR: static_cast<int16_t *>(q)[i] = static_cast<int16_t>(to_int32(v)); break;
      case T_INTR: static_cast<int32_t *>(q)[i] = to_int32(v); break;
      case T_FLOATR: static_cast<float *>(q)[i] = static_cast<float>(v); break;
      case T_DOUBLER: static_cast<double *>(q)[i] = v; break;
      default: static_cast<float *>(q)[2 * i] = static_cast<float>(v); break;
    }
  }
  std::free(entry->value.p);
  entry->value.p = q;
  entry->type = static_cast<int8_t>(to);
  return 0;
}

// ---------------------------------------------------------------- scalars

static void release_and_pop() {
  release_storage(&stacklist[g_nstack - 1]);
  pop_stack();
}

// A division by zero in a scalar operation: the upper entry goes, the lower stays.
static int divided_by_zero() {
  error("Divide by zero");
  pop_stack();
  return 1;
}

// "%" and the logical operators need INT operands: the upper entry goes, the lower stays.
static int refuse_integer_op(int op) {
  error(op == '%' ? "Modulo operands must be of type integer" : "AND operands must be of type INT");
  pop_stack();
  return 1;
}

template <typename T>
static int int_scalar(int op, T *a, T b, StackEntry &l, bool is_int) {
  if (is_arith(op)) {
    if (!int_arith(op, *a, b, a)) return divided_by_zero();
  } else if (!is_compare(op) && !is_int) {
    return refuse_integer_op(op);
  } else if (op == '%') {
    if (b == 0) return divided_by_zero();
    *a = static_cast<T>(static_cast<int64_t>(*a) % static_cast<int64_t>(b));
  } else if (is_compare(op)) {
    l.value.i = compare(op, *a, b);
    l.type = T_INT;
  } else {
    bool x = *a != 0, y = b != 0;
    l.value.i = op == TK_AND ? (x && y) : op == TK_OR ? (x || y) : (x != y);
  }
  pop_stack();
  return 0;
}

template <typename T>
static int float_scalar(int op, T *a, T b, StackEntry &l) {
  if (is_arith(op)) {
    if (!float_arith(op, *a, b, a)) return divided_by_zero();
  } else if (is_compare(op)) {
    l.value.i = compare(op, *a, b);
    l.type = T_INT;
  } else {
    return refuse_integer_op(op);
  }
  pop_stack();
  return 0;
}

static int complex_scalar(int op, StackEntry &l, StackEntry &u) {
  if (is_arith(op)) {
    float r[2];
    if (!complex_arith(op, l.value.cx, u.value.cx, r)) return divided_by_zero();
    l.value.cx[0] = r[0];
    l.value.cx[1] = r[1];
  } else if (is_compare(op)) {
    bool same = l.value.cx[0] == u.value.cx[0] && l.value.cx[1] == u.value.cx[1];
    l.value.i = op == TK_EQ ? same : op == TK_NE ? !same : 0;
    l.type = T_INT;
  } else {
    return refuse_integer_op(op);
  }
  pop_stack();
  return 0;
}

static int string_scalar(int op, StackEntry &l, StackEntry &u) {
  if (op == '+') {
    size_t n1 = std::strlen(l.value.str), n2 = std::strlen(u.value.str);
    char *p = static_cast<char *>(std::malloc(n1 + n2 + 1));
    if (!p) {
      error("Not enough memory");
      return 1;
    }
    std::memcpy(p, l.value.str, n1);
    std::memcpy(p + n1, u.value.str, n2 + 1);
    std::free(l.value.str);
    std::free(u.value.str);
    l.value.str = p;
    l.type = T_STRING;
    l.count = static_cast<int32_t>(n1 + n2);
    l.ndim = 1;
    pop_stack();
    return 0;
  }
  if (is_compare(op)) {
    int c = std::strcmp(l.value.str, u.value.str);
    std::free(l.value.str);
    std::free(u.value.str);
    l.value.i = compare(op, c, 0);
    l.type = T_INT;
    l.count = 1;
    l.ndim = 1;
    pop_stack();
    return 0;
  }
  if (is_arith(op)) {
    error("Not allowed operands");
    return 1;
  }
  release_storage(&u);
  return refuse_integer_op(op);
}

int exec_stack(int op) {
  if (g_nstack < 2) {
    error("Too few stack elements");
    return 1;
  }
  if (!is_arith(op) && !is_compare(op) && !is_logic(op) && op != '%') {
    std::printf("Not allowed Stack operation %d\n", op);
    return 1;
  }
  StackEntry &l = stacklist[g_nstack - 2];
  StackEntry &u = stacklist[g_nstack - 1];
  if (l.type > T_CHARR || u.type > T_CHARR) {
    array_stack(op, &l, &u, l.type, u.type);
    return 0;
  }
  int type = l.type;
  if (l.type == u.type) {
    if (type == T_CHARR) {
      if (check_crayvar(&l) || check_crayvar(&u)) return 1;
      type = T_STRING;
    }
  } else if (l.type < u.type) {
    if (change_stackvar(l.type, u.type, g_nstack - 2)) return 1;
    type = u.type;
  } else {
    if (change_stackvar(u.type, l.type, g_nstack - 1)) return 1;
  }
  switch (type) {
    case T_BYTE: return int_scalar<uint8_t>(op, &l.value.b, u.value.b, l, false);
    case T_SHORT: return int_scalar<int16_t>(op, &l.value.s, u.value.s, l, false);
    case T_INT: return int_scalar<int32_t>(op, &l.value.i, u.value.i, l, true);
    case T_FLOAT: return float_scalar<float>(op, &l.value.f, u.value.f, l);
    case T_DOUBLE: return float_scalar<double>(op, &l.value.d, u.value.d, l);
    case T_COMPLEX: return complex_scalar(op, l, u);
    case T_STRING: return string_scalar(op, l, u);
    default:
      error("Not allowed operands");
      return 1;
  }
}

// ---------------------------------------------------------------- arrays

// Combines element i of `a` (array type t) with the double/complex value on the right or
// left, writing into `a`. `left` tells whether the scalar stands on the left of op.
template <typename T>
static bool int_elems(int op, T *a, int n, int32_t s, bool left) {
  for (int i = 0; i < n; ++i) {
    T x = left ? static_cast<T>(s) : a[i], y = left ? a[i] : static_cast<T>(s);
    if (!int_arith(op, x, y, &a[i])) return false;
  }
  return true;
}

template <typename T>
static bool float_elems(int op, T *a, int n, double s, bool left) {
  for (int i = 0; i < n; ++i) {
    double r, x = left ? s : a[i], y = left ? a[i] : s;
    if (!float_arith(op, x, y, &r)) return false;
    a[i] = static_cast<T>(r);
  }
  return true;
}

static bool complex_elems(int op, float *a, int n, const float *s, bool left) {
  for (int i = 0; i < n; ++i) {
    float r[2];
    if (!complex_arith(op, left ? s : a + 2 * i, left ? a + 2 * i : s, r)) return false;
    a[2 * i] = r[0];
    a[2 * i + 1] = r[1];
  }
  return true;
}

// Array `arr` with scalar `sca`; the result is written into the array's storage.
static int array_scalar(int op, StackEntry *arr, StackEntry *sca, bool scalar_left) {
  int stype = change_scavar(sca->type, static_cast<int>(sca - stacklist));
  int n = arr->count > 0 ? arr->count : 0;
  bool ok = true, accepted = true;
  switch (arr->type) {
    case T_BYTER:
      if (stype == T_INT) ok = int_elems(op, static_cast<uint8_t *>(arr->value.p), n, sca->value.i, scalar_left);
      else accepted = false;
      break;
    case T_SHORTR:
      if (stype == T_INT) ok = int_elems(op, static_cast<int16_t *>(arr->value.p), n, sca->value.i, scalar_left);
      else accepted = false;
      break;
    case T_INTR:
      if (stype == T_INT) {
        ok = int_elems(op, static_cast<int32_t *>(arr->value.p), n, sca->value.i, scalar_left);
      } else if (stype == T_DOUBLE) {
        // INT elements with a floating scalar become FLOAT elements in the same storage.
        int32_t *ia = static_cast<int32_t *>(arr->value.p);
        float *fa = static_cast<float *>(arr->value.p);
        for (int i = 0; i < n; ++i) fa[i] = static_cast<float>(ia[i]);
        arr->type = T_FLOATR;
        ok = float_elems(op, fa, n, sca->value.d, scalar_left);
      } else {
        accepted = false;
      }
      break;
    case T_FLOATR:
    case T_DOUBLER: {
      double s;
      if (stype == T_INT) s = sca->value.i;
      else if (stype == T_DOUBLE) s = sca->value.d;
      else { accepted = false; break; }
      ok = arr->type == T_FLOATR ? float_elems(op, static_cast<float *>(arr->value.p), n, s, scalar_left)
                                 : float_elems(op, static_cast<double *>(arr->value.p), n, s, scalar_left);
      break;
    }
    case T_COMPLEXR: {
      float s[2] = {0, 0};
      if (stype == T_INT) s[0] = static_cast<float>(sca->value.i);
      else if (stype == T_DOUBLE) s[0] = static_cast<float>(sca->value.d);
      else if (stype == T_COMPLEX) { s[0] = sca->value.cx[0]; s[1] = sca->value.cx[1]; }
      else { accepted = false; break; }
      ok = complex_elems(op, static_cast<float *>(arr->value.p), n, s, scalar_left);
      break;
    }
    default: accepted = false;
  }
  if (!accepted) {
    error("Illegal Operands");
    return 1;
  }
  if (!ok) {
    error("Divide by zero");
    return 1;
  }
  return 0;
}

int op_scaarr(int op, int, int, StackEntry *lower, StackEntry *upper, int) {
  if (array_scalar(op, upper, lower, true)) return 1;
  // The array's storage and shape move down into the lower slot.
  *lower = *upper;
  upper->type = T_INT;
  upper->ndim = 1;
  return 0;
}

int op_arrsca(int op, int, int, StackEntry *lower, StackEntry *upper, int) {
  return array_scalar(op, lower, upper, false);
}

template <typename T>
static bool arr_arr(int op, T *a, const T *b, int n) {
  for (int i = 0; i < n; ++i)
    if (!(std::is_floating_point<T>::value ? float_arith(op, a[i], b[i], &a[i]) : int_arith(op, a[i], b[i], &a[i])))
      return false;
  return true;
}

int op_arrarr(int op, int ltype, int utype, StackEntry *lower, StackEntry *upper, int count) {
  if (ltype < utype) {
    if (change_arrvar(ltype, utype, lower)) return 1;
  } else if (utype < ltype) {
    if (change_arrvar(utype, ltype, upper)) return 1;
  }
  bool ok;
  void *a = lower->value.p, *b = upper->value.p;
  switch (lower->type) {
    case T_BYTER: ok = arr_arr(op, static_cast<uint8_t *>(a), static_cast<uint8_t *>(b), count); break;
    case T_SHORTR: ok = arr_arr(op, static_cast<int16_t *>(a), static_cast<int16_t *>(b), count); break;
    case T_INTR: ok = arr_arr(op, static_cast<int32_t *>(a), static_cast<int32_t *>(b), count); break;
    case T_FLOATR: ok = arr_arr(op, static_cast<float *>(a), static_cast<float *>(b), count); break;
    case T_DOUBLER: ok = arr_arr(op, static_cast<double *>(a), static_cast<double *>(b), count); break;
    case T_COMPLEXR: {
      ok = true;
      float *x = static_cast<float *>(a), *y = static_cast<float *>(b);
      for (int i = 0; i < count && ok; ++i) ok = complex_arith(op, x + 2 * i, y + 2 * i, x + 2 * i);
      break;
    }
    default:
      error("Not allowed operands");
      return 1;
  }
  if (!ok) {
    error("Divide by zero");
    release_and_pop();
    return 1;
  }
  return 0;
}

int array_stack(int op, StackEntry *lower, StackEntry *upper, int ltype, int utype) {
  if (!is_arith(op)) {
    c_error("Not allowed array operand", op);
    return 1;
  }
  if (op == '-') {
    if (neg_stack(g_nstack - 1)) return 1;
    op = '+';
  }
  int status;
  if (is_array(ltype) && is_array(utype)) {
    if (lower->count != upper->count) {
      error("Different dimension in array operands");
      release_and_pop();
      return 1;
    }
    status = op_arrarr(op, ltype, utype, lower, upper, lower->count);
  } else if (is_array(ltype)) {
    status = op_arrsca(op, ltype, utype, lower, upper, lower->count);
  } else {
    status = op_scaarr(op, ltype, utype, lower, upper, upper->count);
  }
  if (status) return 1;
  release_and_pop();
  if (lower->ndim <= 1) lower->ndim = 1;
  return 0;
}

// ---------------------------------------------------------------- powers

int32_t ipower(int32_t b, int32_t n) {
  if (n == 0 || b == 1) return 1;
  if (n < 0) return 0;
  // Square-and-multiply gives the same wrapped product as n - 1 multiplications.
  uint32_t result = 1, base = static_cast<uint32_t>(b);
  for (uint32_t e = static_cast<uint32_t>(n); e; e >>= 1) {
    if (e & 1) result *= base;
    base *= base;
  }
  return static_cast<int32_t>(result);
}

double dpower(double b, int32_t n) {
  if (n == 0) return 1.0;
  if (b == 0.0 && n < 0) {
    error("Negative exponent with base zero");
    return b;
  }
  return std::pow(b, n);
}

double power(double b, double x) {
  if (x == 0.0) return 1.0;
  if (b == 0.0 && x < 0) {
    error("Negative exponent with base zero");
    return b;
  }
  if (b < 0) {
    error("Negative base with non integer exponent");
    return b;
  }
  return std::pow(b, x);
}

static bool power_operand(int t) { return t == T_INT || t == T_FLOAT || t == T_DOUBLE; }

// One power by the table: INT base with INT exponent stays INT; otherwise the result has
// the base's type, an INT base taking a floating exponent's type.
static int power_type(int bt, int et) { return bt == T_INT ? et : bt; }

static double power_value(int bt, double b, int et, double e, int32_t *iresult) {
  if (bt == T_INT && et == T_INT) {
    *iresult = ipower(static_cast<int32_t>(b), static_cast<int32_t>(e));
    return *iresult;
  }
  if (et == T_INT) return dpower(b, static_cast<int32_t>(e));
  return power(b, e);
}

static double scalar_double(const StackEntry &e) {
  switch (e.type) {
    case T_INT: return e.value.i;
    case T_FLOAT: return e.value.f;
    default: return e.value.d;
  }
}

static void store_elem(void *p, int t, int i, double v, int32_t iv) {
  switch (t) {
    case T_INT: static_cast<int32_t *>(p)[i] = iv; break;
    case T_FLOAT: static_cast<float *>(p)[i] = static_cast<float>(v); break;
    default: static_cast<double *>(p)[i] = v; break;
  }
}

int exp_stack() {
  if (g_nstack < 2) {
    error("Too few stack elements");
    return 1;
  }
  StackEntry &b = stacklist[g_nstack - 2];
  StackEntry &e = stacklist[g_nstack - 1];
  bool barr = is_array(b.type), earr = is_array(e.type);
  if (barr && earr && b.count != e.count) {
    error("Different dimension in array operands");
    release_and_pop();
    return 1;
  }
  int bt = barr ? b.type - ARRAY_OFFSET : b.type;
  int et = earr ? e.type - ARRAY_OFFSET : e.type;
  if (!power_operand(bt) || !power_operand(et)) {
    error("Not allowed operands in exponentiation");
    release_and_pop();
    return 1;
  }
  if (!barr && !earr) {
    int32_t iv = 0;
    double v = power_value(bt, scalar_double(b), et, scalar_double(e), &iv);
    int rt = power_type(bt, et);
    if (rt == T_INT) b.value.i = iv;
    else if (rt == T_FLOAT) b.value.f = static_cast<float>(v);
    else b.value.d = v;
    b.type = static_cast<int8_t>(rt);
    pop_stack();
    return 0;
  }
  // Arrays: a scalar base takes the exponent array's type and shape; otherwise the table.
  const StackEntry &shape = barr ? b : e;
  int n = shape.count > 0 ? shape.count : 0;
  int rt = barr ? power_type(bt, et) : et;
  void *out = std::calloc(n ? n : 1, elem_size(rt));
  if (!out) {
    error("Not enough memory");
    release_and_pop();
    return 1;
  }
  for (int i = 0; i < n; ++i) {
    double x = barr ? elem_double(b.value.p, bt, i) : scalar_double(b);
    double y = earr ? elem_double(e.value.p, et, i) : scalar_double(e);
    int32_t iv = 0;
    double v = power_value(bt, x, et, y, &iv);
    store_elem(out, rt, i, v, rt == T_INT && !(bt == T_INT && et == T_INT) ? to_int32(v) : iv);
  }
  int ndim = shape.ndim;
  int32_t *dims = nullptr;
  if (ndim > 1) {
    dims = static_cast<int32_t *>(std::malloc(ndim * sizeof(int32_t)));
    if (!dims) {
      std::free(out);
      error("Not enough memory");
      release_and_pop();
      return 1;
    }
    std::memcpy(dims, shape.dims, ndim * sizeof(int32_t));
  }
  release_storage(&b);
  release_and_pop();
  b.type = static_cast<int8_t>(rt + ARRAY_OFFSET);
  b.count = n;
  b.ndim = static_cast<uint8_t>(ndim > 1 ? ndim : 1);
  b.dims = dims;
  b.value.p = out;
  return 0;
}

// ---------------------------------------------------------------- quiet scalars

static void widen(Scalar &s, int to) {
  if (s.type == T_INT) {
    if (to == T_FLOAT) s.value.f = static_cast<float>(s.value.i);
    else s.value.d = s.value.i;
  } else {
    s.value.d = s.value.f;
  }
  s.type = to;
}

template <typename T>
static bool quiet_float(int op, T *a, T b, Scalar &l) {
  if (is_arith(op)) return float_arith(op, *a, b, a);
  if (!is_compare(op)) return false;
  l.value.i = compare(op, *a, b);
  l.type = T_INT;
  return true;
}

bool quiet_binary(int op, Scalar &l, Scalar u) {
  if (l.type < u.type) widen(l, u.type);
  else if (u.type < l.type) widen(u, l.type);
  if (l.type == T_FLOAT) return quiet_float<float>(op, &l.value.f, u.value.f, l);
  if (l.type == T_DOUBLE) return quiet_float<double>(op, &l.value.d, u.value.d, l);
  int32_t *a = &l.value.i, b = u.value.i;
  if (is_arith(op)) return int_arith(op, *a, b, a);
  if (op == '%') {
    if (b == 0) return false;
    *a = static_cast<int32_t>(static_cast<int64_t>(*a) % static_cast<int64_t>(b));
  } else if (is_compare(op)) {
    *a = compare(op, *a, b);
  } else {
    bool x = *a != 0, y = b != 0;
    *a = op == TK_AND ? (x && y) : op == TK_OR ? (x || y) : (x != y);
  }
  return true;
}

bool quiet_power(Scalar &b, Scalar e) {
  double x = b.type == T_INT ? b.value.i : b.type == T_FLOAT ? b.value.f : b.value.d;
  double y = e.type == T_INT ? e.value.i : e.type == T_FLOAT ? e.value.f : e.value.d;
  bool ints = b.type == T_INT && e.type == T_INT;
  // where dpower and power would report
  if (!ints && y != 0 && ((x == 0.0 && y < 0) || (e.type != T_INT && x < 0))) return false;
  int32_t iv = 0;
  double v = power_value(b.type, x, e.type, y, &iv);
  int rt = power_type(b.type, e.type);
  if (rt == T_INT) b.value.i = iv;
  else if (rt == T_FLOAT) b.value.f = static_cast<float>(v);
  else b.value.d = v;
  b.type = rt;
  return true;
}

void quiet_neg(Scalar &s) {
  if (s.type == T_INT) s.value.i = static_cast<int32_t>(0u - static_cast<uint32_t>(s.value.i));
  else if (s.type == T_FLOAT) s.value.f = -s.value.f;
  else s.value.d = -s.value.d;
}
