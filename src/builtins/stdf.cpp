// The standard-function dispatcher, and the functions small enough to live in it: strings,
// environment, time, allocation, complex parts and the questions about variables.
#include "builtins/stdf.h"

#include "binding/call.h"
#include "builtins/convert.h"
#include "builtins/fileio.h"
#include "builtins/format.h"
#include "builtins/mathfunc.h"
#include "core/datafile.h"
#include "core/error.h"
#include "core/procedure.h"
#include "core/reader.h"
#include "lang/parser.h"
#include "mirval.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>

VarRecord *get_varptr(int index, int *type) {
  StackEntry *e = &stacklist[index];
  if (e->type != T_REF) {
    *type = e->type;
    return e;
  }
  if (e->value.ref < 0) {
    char_error("Undefined identifier", e->name);
    return nullptr;
  }
  VarRecord *v = &varlist[e->value.ref];
  *type = v->type;
  return v;
}

int get_varbytes(int type) {
  switch (type) {
    case T_BYTER: return 1;
    case T_INTR: case T_FLOATR: return 4;
    case T_DOUBLER: return 8;
    default: return 0;
  }
}

const char *get_text(const VarRecord *rec) {
  if (rec->type == T_STRING) return rec->value.str;
  if (rec->type == T_CHARR && check_crayvar(rec) == 0) return static_cast<char *>(rec->value.p);
  return nullptr;
}

void put_int(int base, int32_t value) {
  free_stack(base);
  push_int(value);
}

void *alloc_result(int64_t n, size_t size) {
  if (n < 0 || static_cast<uint64_t>(n) > MAXRESULT / size) {
    error("Not enough memory");
    return nullptr;
  }
  return my_calloc(static_cast<size_t>(n), size);
}

// The text of argument `index`, a value or a variable passed by reference.
static const char *arg_text(int index) {
  int type;
  const VarRecord *rec = get_varptr(index, &type);
  return rec ? get_text(rec) : nullptr;
}

// A text argument that cannot be read (reported already) makes the call yield -1.
static int text_failed(int base) {
  put_int(base, -1);
  return 1;
}

// Replaces the entries from `base` up by a STRING that takes over `text` of `n` characters.
static void put_owned_str(int base, char *text, int32_t n) {
  free_stack(base);
  push_owned_str(text, n);
}

static void put_str(int base, const std::string &text) {
  free_stack(base);
  push_str(text.c_str());
}

double clock_stdf() {
  static bool started = false;
  static double previous = 0.0;
  // The processor time as the platform's clock counts it: microseconds in 32 bits.
  double now = static_cast<uint32_t>(std::clock()) / 1000000.0;
  double seconds = started ? now - previous : 0.0;
  started = true;
  previous = now;
  return seconds;
}

static int arg_fn(int index) {
  StackEntry &e = stacklist[index];
  if (e.type == T_COMPLEX) {
    e.value.d = arg_stdf(e.value.cx[0], e.value.cx[1]);
    e.type = T_DOUBLE;
  } else if (e.type == T_COMPLEXR) {
    // A double takes the 8 bytes of the complex element it replaces.
    float *z = static_cast<float *>(e.value.p);
    double *d = static_cast<double *>(e.value.p);
    for (int i = 0; i < e.count; ++i) d[i] = arg_stdf(z[2 * i], z[2 * i + 1]);
    e.type = T_DOUBLER;
  } else {
    error("Parameter in ARG must be of type COMPLEX");
  }
  return 0;
}

static int conjg_fn(int index) {
  StackEntry &e = stacklist[index];
  if (e.type == T_COMPLEX) {
    e.value.cx[1] = -e.value.cx[1];
  } else if (e.type == T_COMPLEXR) {
    float *z = static_cast<float *>(e.value.p);
    for (int i = 0; i < e.count; ++i) z[2 * i + 1] = -z[2 * i + 1];
  } else {
    error("Parameter in CONJG must be of type COMPLEX");
  }
  return 0;
}

static int imag_fn(int index) {
  int type;
  VarRecord *src = get_varptr(index, &type);
  if (!src) return 1;
  StackEntry &e = stacklist[index];
  if (type == T_COMPLEX) {
    e.value.f = e.value.cx[1];
    e.type = T_FLOAT;
    return 0;
  }
  if (type != T_COMPLEXR) {
    error("Parameter in IMAG must be of type COMPLEX");
    return 0;
  }
  float *im = static_cast<float *>(alloc_result(src->count, sizeof(float)));
  if (!im) return 1;
  const float *z = static_cast<const float *>(src->value.p);
  for (int i = 0; i < src->count; ++i) im[i] = z[2 * i + 1];
  int32_t *dims = nullptr;
  if (src->ndim > 1) {
    dims = static_cast<int32_t *>(my_malloc(src->ndim * sizeof(int32_t)));
    if (!dims) {
      std::free(im);
      return 1;
    }
    std::memcpy(dims, src->dims, src->ndim * sizeof(int32_t));
  }
  StackEntry result = *src;
  result.type = T_FLOATR;
  result.value.p = im;
  result.dims = dims;
  if (e.type != T_REF) release_storage(&e);
  e = result;
  return 0;
}

// DALLOC, FALLOC, IALLOC: element i holds i, so the array doubles as an index ramp.
static int alloc_fn(int type, int index) {
  StackEntry &e = stacklist[index];
  int32_t n = e.value.i;
  void *p = alloc_result(n, array_size(type));
  if (!p) return 0;
  for (int32_t i = 0; i < n; ++i) {
    if (type == T_DOUBLER) static_cast<double *>(p)[i] = i;
    else if (type == T_FLOATR) static_cast<float *>(p)[i] = static_cast<float>(i);
    else static_cast<int32_t *>(p)[i] = i;
  }
  release_storage(&e);  // an array argument's copy gives way to the result
  e.type = static_cast<int8_t>(type);
  e.count = n;
  e.ndim = 1;
  e.value.p = p;
  return 0;
}

static int atonum_fn(int base) {
  const char *s = arg_text(base);
  if (!s) return text_failed(base);
  if (std::strchr(s, '.')) {
    double d = std::atof(s);
    free_stack(base);
    push_double(d);
  } else {
    put_int(base, std::atoi(s));
  }
  return 0;
}

static int getarg_fn(int base) {
  int32_t n = stacklist[base].value.i;
  std::string text;
  if (n <= 0) {
    error("Non positive parameter in GETARG");
  } else {
    char name[NAMELEN + 1];
    std::snprintf(name, sizeof name, "%cARG%d", '%', n);
    int index = search_var(name);
    if (index >= 0 && varlist[index].type == T_STRING) text = varlist[index].value.str;
  }
  put_str(base, text);
  return 0;
}

// STRLWR and STRUPR fold the argument's own copy.
static int fold_fn(int base, bool upper) {
  char *s = const_cast<char *>(arg_text(base));
  if (!s) return text_failed(base);
  if (upper) upstr(s);
  else lowstr(s);
  return 0;
}

static int strrep_fn(int base) {
  const char *s = arg_text(base);
  if (!s) return text_failed(base);
  int32_t n = stacklist[base + 1].value.i;
  size_t len = std::strlen(s);
  if (n <= 0 || len == 0) {
    put_str(base, "");
    return 0;
  }
  char *text = static_cast<char *>(alloc_result(static_cast<int64_t>(len) * n + 1, 1));
  if (!text) return 1;
  for (int32_t i = 0; i < n; ++i) std::memcpy(text + i * len, s, len);
  put_owned_str(base, text, static_cast<int32_t>(len * n));
  return 0;
}

static int strstr_fn(int base) {
  const char *s = arg_text(base), *t = arg_text(base + 1);
  if (!s || !t) return text_failed(base);
  const char *hit = std::strstr(s, t);
  put_int(base, hit ? static_cast<int32_t>(hit - s) : -1);
  return 0;
}

static int substr_fn(int base) {
  const char *s = arg_text(base);
  if (!s) return text_failed(base);
  int32_t p = stacklist[base + 1].value.i, n = stacklist[base + 2].value.i;
  int32_t len = static_cast<int32_t>(std::strlen(s));
  if (p < 0 || p >= len) {
    char_error("Parameter 2 out of range", "SUBSTR");
    return 0;
  }
  if (n <= 0) {
    char_error("Non positive value of parameter 3", "SUBSTR");
    return 0;
  }
  put_str(base, std::string(s + p, n < len - p ? n : len - p));
  return 0;
}

static int numtoa_fn(int base) {
  const StackEntry &x = stacklist[base];
  float v = x.type == T_FLOAT ? x.value.f : static_cast<float>(x.value.d);
  char buf[80];
  fcha(v, stacklist[base + 1].value.i, buf);
  put_str(base, buf);
  return 0;
}

static int vardim_fn(int base) {
  int ktype;
  const VarRecord *kv = get_varptr(base + 1, &ktype);
  int32_t k = 1;
  if (kv && ktype == T_INT) k = kv->value.i;
  else error("Parameter 2 in vardim must be an integer");
  free_stack(base + 1);
  const StackEntry &v = stacklist[base];
  const char *fault = v.type != T_REF ? "Parameter 1 in vardim must be a variable"
                      : k <= 0         ? "Parameter 2 in vardim must be greater than 0"
                                       : nullptr;
  if (fault) {
    error(fault);
    put_int(base, -1);
    return 1;
  }
  int32_t result = -1;
  if (v.value.ref >= 0) {
    const VarRecord &var = varlist[v.value.ref];
    if (var.ndim < k) result = 0;
    else if (var.ndim > 1) result = var.dims[k - 1];
    else result = var.count;
  }
  put_int(base, result);
  return 0;
}

// DATMAT and DATRAY: the block's values as a FLOAT matrix or one column.
static int datray_fn(int base, int col, bool matrix) {
  int rows = 0, cols = 0;
  float *data = get_datray(col, &rows, &cols);
  if (!data) {
    put_int(base, -1);
    return 1;
  }
  int32_t *dims = nullptr;
  if (matrix) {
    dims = static_cast<int32_t *>(my_malloc(2 * sizeof(int32_t)));
    if (!dims) {
      std::free(data);
      put_int(base, -1);
      return 1;
    }
    dims[0] = rows;
    dims[1] = cols;
  }
  free_stack(base);
  StackEntry *e = push_slot();
  if (!e) {
    std::free(data);
    std::free(dims);
    return 1;
  }
  e->type = T_FLOATR;
  e->value.p = data;
  e->count = matrix ? rows * cols : rows;
  if (matrix) {
    e->ndim = 2;
    e->dims = dims;
  }
  return 0;
}

static int datvar_fn(int base) {
  const char *s = arg_text(base);
  if (!s) return text_failed(base);
  std::string name = s;
  free_stack(base);
  StackEntry *e = push_slot();
  if (!e) return 1;
  if (datvar(name.c_str(), e) != 0) {
    e->type = T_INT;
    e->value.i = -1;
    return 1;
  }
  return 0;
}

// Functions whose only work is on a text argument and whose result is an INT.
static int text_int_fn(int number, int base) {
  const char *s = arg_text(base);
  if (!s) return text_failed(base);
  int32_t r = 0;
  switch (number) {
    case F_DATCNT: r = datcnt(s); break;
    case F_DATFIL: r = datfil(s, 1); break;
    case F_FOPEN: {
      const char *mode = arg_text(base + 1);
      if (!mode) return text_failed(base);
      r = fopen_stdf(s, mode);
      break;
    }
    case F_FPUTS: r = fputs_stdf(s, stacklist[base + 1].value.i); break;
    case F_INQUIRE: {
      FILE *f = std::fopen(s, "r");
      r = f != nullptr;
      if (f) std::fclose(f);
      break;
    }
    case F_PUTS: {
      int status = std::puts(s);
      r = status < 0 ? status : 0;
      break;
    }
    case F_REMOVE:
      if (std::remove(s) != 0) {
        char_error("Cannot remove file", s);
        r = -1;
      }
      break;
    case F_RENAME: {
      const char *to = arg_text(base + 1);
      if (!to) return text_failed(base);
      if (std::rename(s, to) != 0) {
        char_error("Cannot rename file", s);
        r = -1;
      }
      break;
    }
    case F_STRLEN: r = static_cast<int32_t>(std::strlen(s)); break;
    case F_SYSTEM: {
      int status = syscll(s);
      r = status == 0 || status == 1 ? status : -1;
      break;
    }
    default: r = trmlen(s); break;
  }
  put_int(base, r);
  return 0;
}

// The file functions whose arguments are all INT; each takes them by position, as declared.
static int fileno_fn(int number, int base) {
  int32_t n = stacklist[base].value.i;
  int32_t r;
  switch (number) {
    case F_FCLOSE: r = fclose_stdf(n); break;
    case F_FEOF: r = feof_stdf(n); break;
    case F_FGETC: r = fgetc_stdf(n); break;
    case F_FFLUSH: r = fflush_stdf(n); break;
    case F_FTELL: r = ftell_stdf(n); break;
    case F_REWIND: r = rewind_stdf(n); break;
    case F_FSEEK: r = fseek_stdf(n, stacklist[base + 1].value.i); break;
    default: r = fputc_stdf(n, stacklist[base + 1].value.i); break;
  }
  put_int(base, r);
  return 0;
}

int push_stdf(int number, int base) {
  const StdfRow &row = stdf[number];
  if (check_args(row.sig, base, row.name)) return 1;
  if (number >= F_ACOS) return math_stdf(number, base);
  int last = g_nstack - 1;
  switch (number) {
    case F_ABS: return abs_stdf(last);
    case F_ARG: return arg_fn(last);
    case F_ARGCNT: put_int(base, proc_argcnt()); return 0;
    case F_KEYCNT: put_int(base, proc_keycnt()); return 0;
    case F_ATONUM: return atonum_fn(base);
    case F_BYTE: return convert_stdf(T_BYTE, last);
    case F_CHAR: return convert_stdf(T_CHAR, last);
    case F_SHORT: return convert_stdf(T_SHORT, last);
    case F_INT: return convert_stdf(T_INT, last);
    case F_FLOAT: return convert_stdf(T_FLOAT, last);
    case F_DOUBLE: return convert_stdf(T_DOUBLE, last);
    case F_STRING: return string_stdf(last);
    case F_COMPLEX: {
      int nargs = g_nstack - base;
      if (nargs < 1 || nargs > 2) {
        error("Bad number of parameters in COMPLEX");
        return 1;
      }
      return complex_stdf(last, nargs);
    }
    case F_CATARR: return catarr_stdf(last);
    case F_SUBARR: return subarr_stdf(base);
    case F_SUBMAT: return submat_stdf(base);
    case F_TRPMAT: return trpmat_stdf(last);
    case F_MAXARR: return maxarr_stdf(last, true);
    case F_MINARR: return maxarr_stdf(last, false);
    case F_CLOCK: free_stack(base); push_double(clock_stdf()); return 0;
    case F_CONJG: return conjg_fn(last);
    case F_DALLOC: return alloc_fn(T_DOUBLER, base);
    case F_FALLOC: return alloc_fn(T_FLOATR, base);
    case F_IALLOC: return alloc_fn(T_INTR, base);
    case F_DATBLK: put_int(base, datblk(stacklist[base].value.i)); return 0;
    case F_DATCLS: put_int(base, datcls()); return 0;
    case F_DATHDR: put_int(base, dathdr()); return 0;
    case F_DATMAT: return datray_fn(base, 0, true);
    case F_DATRAY: return datray_fn(base, stacklist[base].value.i, false);
    case F_DATVAR: return datvar_fn(base);
    case F_DATE: put_str(base, dddate()); return 0;
    case F_TIME: put_str(base, ddtime()); return 0;
    case F_FCLOSE: case F_FEOF: case F_FGETC: case F_FFLUSH: case F_FTELL: case F_REWIND:
    case F_FSEEK: case F_FPUTC:
      return fileno_fn(number, base);
    case F_FGETS: return fgets_args(base, 1);
    case F_GETS: return fgets_args(base, 0);
    case F_FREAD: return fraw_args(base, false);
    case F_FWRITE: return fraw_args(base, true);
    case F_PRINTF: put_int(base, fprintf_stdf(0, base)); return 0;
    case F_FPRINTF: put_int(base, fprintf_stdf(1, base)); return 0;
    case F_SPRINTF: put_int(base, sprintf_stdf(base)); return 0;
    case F_SCANF: put_int(base, fscanf_stdf(0, base)); return 0;
    case F_FSCANF: put_int(base, fscanf_stdf(1, base)); return 0;
    case F_SSCANF: put_int(base, sscanf_stdf(base)); return 0;
    case F_GETARG: return getarg_fn(base);
    case F_GETENV: {
      const char *s = arg_text(base);
      if (!s) return text_failed(base);
      const char *value = std::getenv(s);
      put_str(base, value ? value : "");
      return 0;
    }
    case F_GETPID: put_int(base, static_cast<int32_t>(getpid())); return 0;
    case F_IMAG: return imag_fn(last);
    case F_NUMTOA: return numtoa_fn(base);
    case F_RAND: free_stack(base); push_double(std::rand() / 2147483647.0); return 0;
    case F_SRAND: std::srand(static_cast<unsigned>(stacklist[base].value.i)); free_stack(base); return 0;
    case F_STRLWR: return fold_fn(base, false);
    case F_STRUPR: return fold_fn(base, true);
    case F_STRREP: return strrep_fn(base);
    case F_STRSTR: return strstr_fn(base);
    case F_SUBSTR: return substr_fn(base);
    case F_VARCNT: case F_VARDEF: {
      int index = stacklist[base].value.ref;
      if (number == F_VARDEF) put_int(base, index >= 0);
      else put_int(base, index >= 0 ? varlist[index].count : -1);
      return 0;
    }
    case F_VARDIM: return vardim_fn(base);
    case F_VARTYP: {
      int index = stacklist[base].value.ref;
      put_str(base, get_type(index >= 0 ? int{varlist[index].type} : int{T_REF}));
      return 0;
    }
    default: return text_int_fn(number, base);  // the rest take a text and yield an INT
  }
}
