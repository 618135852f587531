// The mathematical standard functions. The operand is made a DOUBLE (scalars) or a FLOAT
// array (INT arrays) first; then each function says which types it takes, where its domain
// ends and, for the complex ones, how it splits into real and imaginary parts.
#include "builtins/mathfunc.h"

#include "builtins/convert.h"
#include "builtins/stdf.h"
#include "core/error.h"
#include "lang/parser.h"

#include <cmath>

enum Domain { ANY, UNIT, POSITIVE, NONNEGATIVE };

struct MathFn {
  int number;
  double (*dfn)(double);
  float (*ffn)(float);  // single precision for FLOAT arrays; none: computed in double
  Domain domain;
  bool complex;     // takes COMPLEX values
  bool doubles;     // takes DOUBLE arrays
  bool strict;      // other types are reported, not passed over
};

static double log10_d(double x) { return std::log10(x); }

static const MathFn mathfn[] = {
    {F_ACOS, [](double x) { return std::acos(x); }, nullptr, UNIT, false, false, true},
    {F_ASIN, [](double x) { return std::asin(x); }, nullptr, UNIT, false, true, true},
    {F_ATAN, [](double x) { return std::atan(x); }, nullptr, ANY, false, true, true},
    {F_CEIL, [](double x) { return std::ceil(x); }, [](float x) { return std::ceil(x); }, ANY,
     false, true, true},
    {F_COS, [](double x) { return std::cos(x); }, [](float x) { return std::cos(x); }, ANY,
     true, true, false},
    {F_COSH, [](double x) { return std::cosh(x); }, [](float x) { return std::cosh(x); }, ANY,
     true, true, false},
    {F_EXP, [](double x) { return std::exp(x); }, [](float x) { return std::exp(x); }, ANY,
     true, true, false},
    {F_FLOOR, [](double x) { return std::floor(x); }, [](float x) { return std::floor(x); }, ANY,
     false, true, true},
    {F_LOG, [](double x) { return std::log(x); }, nullptr, POSITIVE, true, true, false},
    {F_LOG10, log10_d, nullptr, POSITIVE, true, true, false},
    {F_SIN, [](double x) { return std::sin(x); }, [](float x) { return std::sin(x); }, ANY,
     true, true, false},
    {F_SINH, [](double x) { return std::sinh(x); }, [](float x) { return std::sinh(x); }, ANY,
     true, true, false},
    {F_SQRT, [](double x) { return std::sqrt(x); }, nullptr, NONNEGATIVE, true, true, false},
    {F_TAN, [](double x) { return std::tan(x); }, [](float x) { return std::tan(x); }, ANY,
     true, true, false},
    {F_TANH, [](double x) { return std::tanh(x); }, [](float x) { return std::tanh(x); }, ANY,
     true, true, false},
};

// A NaN is inside every domain: it passes on into the mathematics function.
static bool in_domain(Domain d, double x) {
  switch (d) {
    case UNIT: return !(x < -1.0 || x > 1.0);
    case POSITIVE: return !(x <= 0.0);
    case NONNEGATIVE: return !(x < 0.0);
    default: return true;
  }
}

static const char *domain_msg(Domain d) {
  switch (d) {
    case POSITIVE: return "Non positive operand in";
    case NONNEGATIVE: return "Negative operand in";
    default: return "Operand out of range in";
  }
}

// The function of z = x + iy; false when it has no value there (TAN, TANH).
static bool complex_value(int number, float *zx, float *zy) {
  double x = *zx, y = *zy, re, im;
  switch (number) {
    case F_COS: re = std::cos(x) * std::cosh(y); im = -std::sin(x) * std::sinh(y); break;
    case F_COSH: re = std::cosh(x) * std::cos(y); im = std::sinh(x) * std::sin(y); break;
    case F_SIN: re = std::sin(x) * std::cosh(y); im = std::cos(x) * std::sinh(y); break;
    case F_SINH: re = std::sinh(x) * std::cos(y); im = std::cosh(x) * std::sin(y); break;
    case F_EXP: re = std::exp(x) * std::cos(y); im = std::exp(x) * std::sin(y); break;
    case F_TAN: case F_TANH: {
      double d = number == F_TAN ? std::cos(2 * x) + std::cosh(2 * y)
                                 : std::cosh(2 * x) + std::cos(2 * y);
      if (d == 0.0) return false;
      re = (number == F_TAN ? std::sin(2 * x) : std::sinh(2 * x)) / d;
      im = (number == F_TAN ? std::sinh(2 * y) : std::sin(2 * y)) / d;
      break;
    }
    case F_LOG: case F_LOG10:
      re = std::log(absc_stdf(*zx, *zy));
      im = arg_stdf(*zx, *zy);
      if (number == F_LOG10) {
        re /= 2.3025851;
        im /= 2.3025851;
      }
      break;
    default: csqrt_stdf(zx, zy); return true;
  }
  *zx = static_cast<float>(re);
  *zy = static_cast<float>(im);
  return true;
}

// Scalars of every numeric type become DOUBLE; with `arrays`, an INT array becomes FLOAT.
static void to_double(StackEntry &e, bool arrays) {
  if (e.type >= T_CHAR && e.type <= T_DOUBLE) {
    double x;
    switch (e.type) {
      case T_CHAR: x = e.value.c; break;
      case T_BYTE: x = e.value.b; break;
      case T_SHORT: x = e.value.s; break;
      case T_INT: x = e.value.i; break;
      case T_FLOAT: x = e.value.f; break;
      default: x = e.value.d; break;
    }
    e.value.d = x;
    e.type = T_DOUBLE;
  } else if (arrays && e.type == T_INTR) {
    int32_t *a = static_cast<int32_t *>(e.value.p);
    float *f = static_cast<float *>(e.value.p);
    for (int32_t i = 0; i < e.count; ++i) f[i] = static_cast<float>(a[i]);
    e.type = T_FLOATR;
  }
}

static int one_arg(const MathFn &f, StackEntry &e) {
  const char *name = stdf[f.number].name;
  bool failed = false;
  switch (e.type) {
    case T_DOUBLE:
      if (!in_domain(f.domain, e.value.d)) {
        char_error(domain_msg(f.domain), name);
        return 1;
      }
      e.value.d = f.dfn(e.value.d);
      return 0;
    case T_FLOATR: {
      float *a = static_cast<float *>(e.value.p);
      for (int32_t i = 0; i < e.count; ++i) {
        if (!in_domain(f.domain, a[i])) failed = true;
        else a[i] = f.ffn ? f.ffn(a[i]) : static_cast<float>(f.dfn(a[i]));
      }
      break;
    }
    case T_DOUBLER: {
      if (!f.doubles) break;
      double *a = static_cast<double *>(e.value.p);
      for (int32_t i = 0; i < e.count; ++i) {
        if (!in_domain(f.domain, a[i])) failed = true;
        else a[i] = f.dfn(a[i]);
      }
      break;
    }
    case T_COMPLEX:
      if (!f.complex) break;
      if (!complex_value(f.number, &e.value.cx[0], &e.value.cx[1])) {
        char_error("Operand out of range in", name);
        return 1;
      }
      return 0;
    case T_COMPLEXR: {
      if (!f.complex) break;
      // An element without a value is left as it was; the others are computed.
      float *z = static_cast<float *>(e.value.p);
      for (int32_t i = 0; i < e.count; ++i) {
        float x = z[2 * i], y = z[2 * i + 1];
        if (!complex_value(f.number, &x, &y)) {
          failed = true;
          continue;
        }
        z[2 * i] = x;
        z[2 * i + 1] = y;
      }
      if (failed) {
        char_error("Operand out of range in", name);
        return 1;
      }
      return 0;
    }
    default: break;
  }
  bool taken = e.type == T_FLOATR || (e.type == T_DOUBLER && f.doubles) ||
               ((e.type == T_COMPLEX || e.type == T_COMPLEXR) && f.complex);
  if (!taken) {
    if (f.strict) char_error("Not allowed data type in", name);
    return 0;
  }
  if (failed) {
    char_error(domain_msg(f.domain), name);
    return 1;
  }
  return 0;
}

static double atan2_value(double y, double x) { return y == 0.0 && x == 0.0 ? 0.0 : std::atan2(y, x); }
static double fmod_value(double a, double b) { return b == 0.0 ? 0.0 : std::fmod(a, b); }

// ATAN2 (y, x) and FMOD (a, b): the result replaces the first argument.
static int two_args(int number, int base) {
  StackEntry &a = stacklist[base], &b = stacklist[base + 1];
  bool atan = number == F_ATAN2;
  if (a.type != b.type) {
    error(atan ? "Different data types in ATAN2" : "Different data types in FMOD");
    return 1;
  }
  double (*fn)(double, double) = atan ? atan2_value : fmod_value;
  // The second argument's count rules, but never beyond the first array.
  int32_t n = b.count < a.count ? b.count : a.count;
  switch (a.type) {
    case T_DOUBLE: a.value.d = fn(a.value.d, b.value.d); break;
    case T_FLOATR: {
      float *p = static_cast<float *>(a.value.p);
      const float *q = static_cast<const float *>(b.value.p);
      for (int32_t i = 0; i < n; ++i) p[i] = static_cast<float>(fn(p[i], q[i]));
      break;
    }
    case T_DOUBLER: {
      double *p = static_cast<double *>(a.value.p);
      const double *q = static_cast<const double *>(b.value.p);
      for (int32_t i = 0; i < n; ++i) p[i] = fn(p[i], q[i]);
      break;
    }
    default: error(atan ? "Not allowed data type in ATAN2" : "Not allowed data types in FMOD");
  }
  free_stack(base + 1);
  return 0;
}

int math_stdf(int number, int base) {
  StackEntry &last = stacklist[g_nstack - 1];
  to_double(last, true);
  if (number == F_ATAN2 || number == F_FMOD) {
    to_double(stacklist[base], false);
    return two_args(number, base);
  }
  for (const MathFn &f : mathfn)
    if (f.number == number) return one_arg(f, last);
  return 0;
}

bool quiet_math(int number, double *x) {
  for (const MathFn &f : mathfn) {
    if (f.number != number) continue;
    if (!in_domain(f.domain, *x)) return false;
    *x = f.dfn(*x);
    return true;
  }
  return false;
}
