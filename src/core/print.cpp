// PRINT writes values in a table: numbers in fields of 15 characters, four to a line;
// strings, characters and complex values on lines of their own. PRINTL writes one line.
#include "core/print.h"

#include "binding/call.h"
#include "lang/parser.h"

#include <cmath>
#include <cstdio>

static bool exponent_form(double x) {
  double a = std::fabs(x);
  return (a > 0 && a < 1e-6) || std::isnan(x) || a > 1e6;
}

static void print_float(double x, bool table) {
  if (table) std::printf(exponent_form(x) ? "%15le " : "%15lf ", x);
  else std::printf(exponent_form(x) ? "%le " : "%lf ", x);
}

// Element i of a numeric array as printed: BYTE and SHORT arrays show the unsigned byte
// at the element's index of the storage.
static void print_element(const StackEntry &e, int i, bool table) {
  const void *p = e.value.p;
  switch (e.type) {
    case T_INTR: std::printf(table ? "%15d " : "%d ", static_cast<const int32_t *>(p)[i]); break;
    case T_FLOATR: print_float(static_cast<const float *>(p)[i], table); break;
    case T_DOUBLER: print_float(static_cast<const double *>(p)[i], table); break;
    default: std::printf(table ? "%15d " : "%d ", static_cast<const uint8_t *>(p)[i]); break;
  }
}

static void print_chars(const StackEntry &e) {
  const char *c = static_cast<const char *>(e.value.p);
  for (int i = 0; i < e.count && c[i]; ++i) std::putchar(c[i]);
}

int print_zkl() {
  int n = 0;
  bool open = false;
  int last = 0;
  auto close_line = [&]() {
    if (open) std::putchar('\n');
    open = false;
  };
  for (int k = 0; k < g_nstack; ++k) {
    const StackEntry &e = stacklist[k];
    int code = e.type;
    last = 0;
    if (code >= T_CHAR && code <= T_INT) {
      int32_t v = get_ivalue(&e, &code);
      std::printf("%15d ", v);
    } else if (code == T_FLOAT || code == T_DOUBLE) {
      print_float(get_dvalue(&e, &code), true);
    } else if (code == T_COMPLEX) {
      close_line();
      std::printf("     (%f, %f)\n", e.value.cx[0], e.value.cx[1]);
      n = 0;
      continue;
    } else if (code == T_STRING) {
      close_line();
      std::printf("     %s\n", e.value.str);
      n = 0;
      continue;
    } else if (code == T_CHARR) {
      close_line();
      std::printf("     ");
      print_chars(e);
      std::putchar('\n');
      n = 0;
      continue;
    } else if (code == T_COMPLEXR) {
      close_line();
      const float *c = static_cast<const float *>(e.value.p);
      for (int i = 0; i < e.count; ++i) std::printf("     (%f, %f)\n", c[2 * i], c[2 * i + 1]);
      n = 0;
      continue;
    } else if (is_array(code)) {
      close_line();
      for (int i = 0; i < e.count; ++i) {
        print_element(e, i, true);
        if (i % 4 == 3 || i == e.count - 1) std::putchar('\n');
      }
      ++n;
      continue;
    } else {
      continue;
    }
    // An INT or DOUBLE scalar.
    last = 1;
    open = true;
    if (++n % 4 == 0) {
      std::putchar('\n');
      open = false;
    }
  }
  if (last && n % 4 != 0) std::putchar('\n');
  free_stack(0);
  return 0;
}

int printl_zkl() {
  for (int k = 0; k < g_nstack; ++k) {
    const StackEntry &e = stacklist[k];
    int code = e.type;
    if (code >= T_CHAR && code <= T_INT) {
      std::printf("%d ", get_ivalue(&e, &code));
    } else if (code == T_FLOAT || code == T_DOUBLE) {
      print_float(get_dvalue(&e, &code), false);
    } else if (code == T_COMPLEX) {
      std::printf("%f %f ", e.value.cx[0], e.value.cx[1]);
    } else if (code == T_STRING) {
      std::printf("%s ", e.value.str);
    } else if (code == T_CHARR) {
      print_chars(e);
      std::putchar(' ');
    } else if (code == T_COMPLEXR) {
      const float *c = static_cast<const float *>(e.value.p);
      for (int i = 0; i < e.count; ++i) std::printf("%f %f ", c[2 * i], c[2 * i + 1]);
    } else if (is_array(code)) {
      for (int i = 0; i < e.count; ++i) print_element(e, i, false);
    }
  }
  std::putchar('\n');
  free_stack(0);
  return 0;
}
