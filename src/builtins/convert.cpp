// Conversions between the value types, complex numbers, ABS and the array functions.
// Every element goes through a double on its way: that is exact for every type up to INT
// and lets one range test serve all conversions.
#include "builtins/convert.h"

#include "binding/call.h"
#include "builtins/stdf.h"
#include "core/error.h"
#include "lang/parser.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

static bool is_number(int type) { return type >= T_CHAR && type <= T_COMPLEX; }

static double scalar_value(const VarRecord *v) {
  switch (v->type) {
    case T_CHAR: return v->value.c;
    case T_BYTE: return v->value.b;
    case T_SHORT: return v->value.s;
    case T_INT: return v->value.i;
    case T_FLOAT: return v->value.f;
    case T_DOUBLE: return v->value.d;
    case T_COMPLEX: return v->value.cx[0];
    default: return 0.0;
  }
}

// Element i of array storage of code `type`; a STRING reads as a CHAR array, a COMPLEX
// element by its real part.
static double elem_value(int type, const void *p, int32_t i) {
  switch (type) {
    case T_STRING: case T_CHARR: return static_cast<const int8_t *>(p)[i];
    case T_BYTER: return static_cast<const uint8_t *>(p)[i];
    case T_SHORTR: return static_cast<const int16_t *>(p)[i];
    case T_INTR: return static_cast<const int32_t *>(p)[i];
    case T_FLOATR: return static_cast<const float *>(p)[i];
    case T_DOUBLER: return static_cast<const double *>(p)[i];
    case T_COMPLEXR: return static_cast<const float *>(p)[2 * i];
    default: return 0.0;
  }
}

constexpr double FLOAT_MAX = 3.4e38;

static bool out_of_float(double x) { return x < -FLOAT_MAX || x > FLOAT_MAX; }

// Stores x as element i of storage of scalar type `type`; false, storing nothing, when x lies
// outside the type's range. Integer types take the value truncated toward zero, so the
// range applies to what is stored (BYTE(255.9) is 255); a NaN fits no integer type.
static bool put_elem(int type, void *p, int32_t i, double x) {
  if (type == T_DOUBLE) {
    static_cast<double *>(p)[i] = x;
    return true;
  }
  if (type == T_FLOAT) {
    if (out_of_float(x)) return false;
    static_cast<float *>(p)[i] = static_cast<float>(x);
    return true;
  }
  double t = std::trunc(x);
  switch (type) {
    case T_BYTE:
      if (!(t >= 0.0 && t <= 255.0)) return false;
      static_cast<uint8_t *>(p)[i] = static_cast<uint8_t>(t);
      return true;
    case T_CHAR:
      if (!(t >= -128.0 && t <= 127.0)) return false;
      static_cast<int8_t *>(p)[i] = static_cast<int8_t>(t);
      return true;
    case T_SHORT:
      if (!(t >= -32768.0 && t <= 32767.0)) return false;
      static_cast<int16_t *>(p)[i] = static_cast<int16_t>(t);
      return true;
    default:
      if (!(t >= -2147483648.0 && t <= 2147483647.0)) return false;
      static_cast<int32_t *>(p)[i] = static_cast<int32_t>(t);
      return true;
  }
}

static void type_error(const char *what, int type) {
  std::string msg = std::string(what) + " " + get_type(type);
  error(msg.c_str());
}

// A copy of the extents of `src` when it has several dimensions; none otherwise.
static int32_t *copy_dims(const VarRecord *src) {
  if (src->ndim < 2) return nullptr;
  int32_t *dims = static_cast<int32_t *>(my_malloc(src->ndim * sizeof(int32_t)));
  if (dims) std::memcpy(dims, src->dims, src->ndim * sizeof(int32_t));
  return dims;
}

// Makes entry `e` the array `data` of code `type`, shaped like `src`: the entry itself when
// it came by value (its old storage is released, its extents kept) or the variable it refers to.
static void put_array(StackEntry &e, const VarRecord *src, int type, void *data, int32_t count) {
  uint8_t ndim = src->type == T_STRING || src->ndim < 1 ? 1 : src->ndim;
  int32_t *dims = nullptr;
  if (src == &e) {
    if (ndim > 1) dims = e.dims;
    if (e.type > T_COMPLEX) std::free(e.value.p);
  } else if (ndim > 1) {
    dims = copy_dims(src);
    if (!dims) ndim = 1;
  }
  e.type = static_cast<int8_t>(type);
  e.count = count;
  e.ndim = ndim;
  e.dims = dims;
  e.value.p = data;
}

static void put_scalar(StackEntry &e, int type, const Value &v) {
  if (e.type > T_COMPLEX) release_storage(&e);
  e.type = static_cast<int8_t>(type);
  e.count = 1;
  e.ndim = 0;
  e.dims = nullptr;
  e.value = v;
}

static void put_string(StackEntry &e, char *text, int32_t n) {
  if (e.type > T_COMPLEX) release_storage(&e);
  e.type = T_STRING;
  e.count = n;
  e.ndim = 1;
  e.dims = nullptr;
  e.value.str = text;
}

// An array passed by reference becomes the stack's own copy.
static int copy_array(StackEntry &e, const VarRecord *src) {
  size_t bytes = static_cast<size_t>(src->count) * array_size(src->type);
  void *data = my_malloc(bytes);
  if (!data) return 1;
  std::memcpy(data, src->value.p, bytes);
  put_array(e, src, src->type, data, src->count);
  return 0;
}

int convert_stdf(int type, int index) {
  StackEntry &e = stacklist[index];
  int from;
  const VarRecord *src = get_varptr(index, &from);
  if (!src) return 1;
  if (is_number(from) || (from == T_STRING && src->count == 1)) {
    double x = from == T_STRING ? static_cast<int8_t>(src->value.str[0]) : scalar_value(src);
    Value v{};
    if (!put_elem(type, &v, 0, x)) type_error("Overflow in routine", type);
    put_scalar(e, type, v);
    return 0;
  }
  if (from != T_STRING && !is_array(from)) {
    type_error("Not allowed operands in", type);
    return 1;
  }
  int atype = type + ARRAY_OFFSET;
  if (from == atype) return e.type == T_REF ? copy_array(e, src) : 0;
  int32_t n = src->count;
  void *data = alloc_result(n, elem_size(type));
  if (!data) return 1;
  bool overflow = false;
  for (int32_t i = 0; i < n; ++i) {
    if (put_elem(type, data, i, elem_value(from, src->value.p, i))) continue;
    // FLOAT names every element that does not fit; the others report once.
    if (type == T_FLOAT) type_error("Overflow in routine", type);
    else overflow = true;
  }
  if (overflow) type_error("Overflow in routine", type);
  put_array(e, src, atype, data, n);
  return 0;
}

int string_stdf(int index) {
  StackEntry &e = stacklist[index];
  int from;
  const VarRecord *src = get_varptr(index, &from);
  if (!src) return 1;
  if (from == T_STRING && e.type != T_REF) return 0;
  char *text;
  int32_t n;
  if (is_number(from)) {
    n = 1;
    text = static_cast<char *>(my_calloc(2, 1));
    if (!text) return 1;
    if (!put_elem(T_CHAR, text, 0, scalar_value(src))) {
      error("Overflow in routine STRING");
      text[0] = ' ';
    }
  } else if (from == T_STRING) {
    n = src->count;
    text = static_cast<char *>(my_malloc(static_cast<size_t>(n) + 1));
    if (!text) return 1;
    std::memcpy(text, src->value.str, static_cast<size_t>(n) + 1);
  } else if (is_array(from)) {
    n = src->count;
    text = static_cast<char *>(alloc_result(static_cast<int64_t>(n) + 1, 1));
    if (!text) return 1;
    bool overflow = false;
    for (int32_t i = 0; i < n; ++i)
      if (!put_elem(T_CHAR, text, i, elem_value(from, src->value.p, i))) overflow = true;
    if (overflow) error("Overflow in routine STRING");
  } else {
    error("Not allowed operands in STRING");
    return 1;
  }
  put_string(e, text, n);
  return 0;
}

// One part of a complex number; a value beyond the float range leaves the part as it is.
static void set_part(float *part, double x, const char *msg) {
  if (out_of_float(x)) error(msg);
  else *part = static_cast<float>(x);
}

int complex_stdf(int index, int nargs) {
  int first = index - nargs + 1;
  int ta, tb = 0;
  const VarRecord *a = get_varptr(first, &ta);
  if (!a) return 1;
  const VarRecord *b = nullptr;
  if (nargs == 2 && !(b = get_varptr(index, &tb))) return 1;
  // Scalars count as DOUBLE when the types of two arguments are compared.
  auto widened = [](int t) { return t >= T_CHAR && t <= T_DOUBLE ? T_DOUBLE : t; };
  if (b && widened(ta) != widened(tb)) {
    error("Parameters in COMPLEX must have identical types");
    return 1;
  }
  StackEntry &e = stacklist[first];
  if (ta == T_COMPLEX || ta == T_COMPLEXR) {
    if (b) {
      error("Bad number of parameters in COMPLEX");
      return 1;
    }
    return e.type == T_REF ? copy_array(e, a) : 0;
  }
  if (ta >= T_CHAR && ta <= T_DOUBLE) {
    Value v{};
    set_part(&v.cx[0], scalar_value(a), "Overflow in parameter 1 of routine COMPLEX");
    if (b) set_part(&v.cx[1], scalar_value(b), "Overflow in parameter 2 of routine COMPLEX");
    free_stack(first + 1);
    put_scalar(e, T_COMPLEX, v);
    return 0;
  }
  if (ta < T_CHARR || ta > T_DOUBLER) {
    error("Not allowed operands in COMPLEX");
    return 1;
  }
  int32_t n = a->count;
  float *z = static_cast<float *>(alloc_result(n, 2 * sizeof(float)));
  if (!z) return 1;
  for (int32_t i = 0; i < n; ++i) {
    set_part(&z[2 * i], elem_value(ta, a->value.p, i), "Overflow in routine COMPLEX");
    // A shorter second array leaves the imaginary parts beyond it 0.
    if (b && i < b->count)
      set_part(&z[2 * i + 1], elem_value(tb, b->value.p, i), "Overflow in routine COMPLEX");
  }
  free_stack(first + 1);
  put_array(e, a, T_COMPLEXR, z, n);
  return 0;
}

double absc_stdf(float x, float y) {
  double dx = x, dy = y;
  return std::sqrt(dx * dx + dy * dy);
}

double arg_stdf(float x, float y) {
  if (y == 0.0f) return x >= 0.0f ? 0.0 : 3.141592654;
  return std::atan2(static_cast<double>(y), static_cast<double>(x));
}

// The principal root, scaled so that neither square overflows.
void csqrt_stdf(float *x, float *y) {
  double re = *x, im = *y;
  if (re == 0.0 && im == 0.0) {  // 0, also for zeros with a minus sign
    *x = *y = 0.0f;
    return;
  }
  double a = std::fabs(re), b = std::fabs(im), t, w;
  if (a >= b) {
    t = b / a;
    w = std::sqrt(a) * std::sqrt((1.0 + std::sqrt(1.0 + t * t)) / 2.0);
  } else {
    t = a / b;
    w = std::sqrt(b) * std::sqrt((t + std::sqrt(1.0 + t * t)) / 2.0);
  }
  if (re >= 0.0) {
    *x = static_cast<float>(w);
    *y = static_cast<float>(im / (2.0 * w));
  } else {
    double v = im >= 0.0 ? w : -w;
    *x = static_cast<float>(im / (2.0 * v));
    *y = static_cast<float>(v);
  }
}

template <typename T>
static void abs_all(void *p, int32_t n) {
  T *a = static_cast<T *>(p);
  for (int32_t i = 0; i < n; ++i)
    if (a[i] < 0) a[i] = static_cast<T>(-a[i]);
}

static int32_t abs_int(int32_t v) {
  return v < 0 ? static_cast<int32_t>(0u - static_cast<uint32_t>(v)) : v;
}

int abs_stdf(int index) {
  StackEntry &e = stacklist[index];
  switch (e.type) {
    case T_CHAR: case T_CHARR: break;
    case T_SHORT: e.value.s = static_cast<int16_t>(e.value.s < 0 ? -e.value.s : e.value.s); break;
    case T_INT: e.value.i = abs_int(e.value.i); break;
    case T_FLOAT: if (e.value.f < 0) e.value.f = -e.value.f; break;
    case T_DOUBLE: if (e.value.d < 0) e.value.d = -e.value.d; break;
    case T_COMPLEX:
      e.value.d = absc_stdf(e.value.cx[0], e.value.cx[1]);
      e.type = T_DOUBLE;
      break;
    case T_SHORTR: abs_all<int16_t>(e.value.p, e.count); break;
    case T_INTR: {
      int32_t *a = static_cast<int32_t *>(e.value.p);
      for (int32_t i = 0; i < e.count; ++i) a[i] = abs_int(a[i]);
      break;
    }
    case T_FLOATR: abs_all<float>(e.value.p, e.count); break;
    case T_DOUBLER: abs_all<double>(e.value.p, e.count); break;
    case T_COMPLEXR: {
      // A modulus takes the 8 bytes of the complex element it replaces.
      float *z = static_cast<float *>(e.value.p);
      double *d = static_cast<double *>(e.value.p);
      for (int32_t i = 0; i < e.count; ++i) d[i] = absc_stdf(z[2 * i], z[2 * i + 1]);
      e.type = T_DOUBLER;
      break;
    }
    default: error("Not allowed parameter in ABS"); break;
  }
  return 0;
}

// Gives entry `e` new element storage of `count` elements as a one-dimensional array.
static void replace_data(StackEntry &e, void *data, int32_t count) {
  release_storage(&e);
  e.value.p = data;
  e.count = count;
  e.ndim = 1;
  e.dims = nullptr;
}

int catarr_stdf(int index) {
  StackEntry &a = stacklist[index - 1], &b = stacklist[index];
  int size = get_varbytes(a.type);
  if (a.type != b.type) {
    error("Arrays must have identical types in CATARR");
  } else if (size == 0) {
    error("Parameters in CATARR must be arrays");
  } else {
    int64_t n = static_cast<int64_t>(a.count) + b.count;
    char *data = static_cast<char *>(alloc_result(n, size));
    if (data) {
      std::memcpy(data, a.value.p, static_cast<size_t>(a.count) * size);
      std::memcpy(data + static_cast<size_t>(a.count) * size, b.value.p,
                  static_cast<size_t>(b.count) * size);
      replace_data(a, data, static_cast<int32_t>(n));
    }
  }
  free_stack(index);
  return 0;
}

// The extracted part is one-dimensional: the extents of the whole would no longer fit it.
int subarr_stdf(int base) {
  StackEntry &a = stacklist[base];
  const StackEntry &s = stacklist[base + 1], &c = stacklist[base + 2];
  int size = get_varbytes(a.type);
  if (s.type != T_INT || c.type != T_INT) {
    error("Index parameters in SUBARR must be integers");
  } else if (size == 0) {
    error("Parameter 1 in SUBARR must be an array");
  } else if (s.value.i < 0 || s.value.i >= a.count) {
    error("Parameter 2 is out of range in SUBARR");
  } else if (c.value.i < 0) {
    error("Parameter 3 is negative in SUBARR");
  } else {
    int32_t start = s.value.i, n = c.value.i;
    // A request that reaches the end yields one element fewer than remain.
    if (static_cast<int64_t>(start) + n >= a.count) n = a.count - start - 1;
    char *data = static_cast<char *>(alloc_result(n, size));
    if (data) {
      std::memcpy(data, static_cast<char *>(a.value.p) + static_cast<size_t>(start) * size,
                  static_cast<size_t>(n) * size);
      replace_data(a, data, n);
    }
  }
  free_stack(base + 1);
  return 0;
}

// True for a two-dimensional array whose extents account for all its elements.
static bool is_matrix(const StackEntry &m) {
  return m.ndim == 2 && get_varbytes(m.type) != 0 &&
         static_cast<int64_t>(m.dims[0]) * m.dims[1] == m.count;
}

int submat_stdf(int base) {
  StackEntry &m = stacklist[base];
  const StackEntry &cols = stacklist[base + 1];
  int status = 0;
  if (!is_matrix(m)) {
    error("Parameter 1 in SUBMAT must be a two-dimensional array");
  } else if (cols.type != T_INTR) {
    error("Parameter 2 in SUBMAT must be an integer array");
    status = 1;
  } else {
    int size = get_varbytes(m.type);
    int32_t rows = m.dims[0], nc = m.dims[1], k = cols.count;
    const int32_t *col = static_cast<const int32_t *>(cols.value.p);
    bool valid = true;
    for (int32_t j = 0; j < k; ++j) valid = valid && col[j] >= 0 && col[j] < nc;
    char *data = nullptr;
    if (!valid) error("Undefined column numbers in SUBMAT");
    else data = static_cast<char *>(alloc_result(static_cast<int64_t>(rows) * k, size));
    if (data) {
      const char *from = static_cast<const char *>(m.value.p);
      for (int32_t r = 0; r < rows; ++r)
        for (int32_t j = 0; j < k; ++j)
          std::memcpy(data + (static_cast<size_t>(r) * k + j) * size,
                      from + (static_cast<size_t>(r) * nc + col[j]) * size, size);
      std::free(m.value.p);
      m.value.p = data;
      m.count = rows * k;
      m.dims[1] = k;
    }
  }
  free_stack(base + 1);
  return status;
}

int trpmat_stdf(int index) {
  StackEntry &m = stacklist[index];
  if (!is_matrix(m)) {
    error("Parameter in TRPMAT must be a two-dimensional array");
    return 1;
  }
  int size = get_varbytes(m.type);
  int32_t r = m.dims[0], c = m.dims[1];
  char *data = static_cast<char *>(alloc_result(m.count, size));
  if (!data) return 1;
  const char *from = static_cast<const char *>(m.value.p);
  for (int32_t i = 0; i < r; ++i)
    for (int32_t j = 0; j < c; ++j)
      std::memcpy(data + (static_cast<size_t>(j) * r + i) * size,
                  from + (static_cast<size_t>(i) * c + j) * size, size);
  std::free(m.value.p);
  m.value.p = data;
  m.dims[0] = c;
  m.dims[1] = r;
  return 0;
}

int maxarr_stdf(int index, bool max) {
  StackEntry &e = stacklist[index];
  int type;
  const VarRecord *a = get_varptr(index, &type);
  if (!a) return 1;
  bool integral = type == T_BYTER || type == T_SHORTR || type == T_INTR;
  if ((!integral && type != T_FLOATR && type != T_DOUBLER) || a->count < 1) {
    error(max ? "Illegal parameter in MAXARR" : "Illegal parameter in MINARR");
    return 1;
  }
  double best = elem_value(type, a->value.p, 0);
  for (int32_t i = 1; i < a->count; ++i) {
    double x = elem_value(type, a->value.p, i);
    if (max ? x > best : x < best) best = x;
  }
  Value v{};
  if (integral) v.i = static_cast<int32_t>(best);
  else v.d = best;
  put_scalar(e, integral ? T_INT : T_DOUBLE, v);
  return 0;
}
