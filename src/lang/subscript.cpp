// Subscript checks, element access and element assignment. Subscripts count from 0 and
// arrays are row-major: the last subscript varies fastest.
#include "lang/subscript.h"

#include "binding/call.h"
#include "core/error.h"
#include "lang/lexer.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

static int extent(const VarRecord *var, int k) { return var->ndim > 1 ? var->dims[k] : var->count; }

int check_index(VarRecord *var, IndexRecord *idx) {
  int ndim = var->ndim < 1 ? 1 : var->ndim;
  if (idx->nidx != ndim) {
    char_error("Mismatch of subscripts in", var->name);
    return -1;
  }
  int64_t nsel = 1;
  for (int k = 0; k < idx->nidx; ++k) {
    int d = extent(var, k);
    int32_t &s = idx->start[k], &e = idx->end[k];
    switch (idx->kind[k]) {
      case IDX_ONE: {
        int top = (ndim == 1 && var->type == T_STRING) ? d : d - 1;
        if (s < 0 || s > top) {
          char_error("Subscript out of range in", var->name);
          return -1;
        }
        e = s;
        break;
      }
      case IDX_ALL:
        s = 0;
        e = d - 1;
        break;
      case IDX_RANGE:
        if (s < 0 || e > d - 1) {
          char_error("Subscript out of range in", var->name);
          return -1;
        }
        if (s > e) {
          char_error("Bad subscript range in", var->name);
          return -1;
        }
        break;
      default:  // open range: one dimension checks its extent, several the total count
        if (s < 0 || s > (ndim == 1 ? d : var->count) - 1) {
          char_error("Subscript out of range in", var->name);
          return -1;
        }
        e = d - 1;
        if (s > e) {  // a start beyond its own dimension selects nothing usable
          char_error("Subscript out of range in", var->name);
          return -1;
        }
        break;
    }
    nsel *= e - s + 1;
  }
  idx->nsel = static_cast<int32_t>(nsel);
  return 0;
}

static int address_of(const VarRecord *var, const int32_t *pos, int n) {
  int64_t a = 0;
  for (int k = 0; k < n; ++k) a = a * extent(var, k) + pos[k];
  return static_cast<int>(a);
}

int get_address(const VarRecord *var, const IndexRecord *idx) {
  return address_of(var, idx->start, idx->nidx);
}

static int32_t odometer[MAXIDX];

int get_permut(const VarRecord *var, const IndexRecord *idx, int k) {
  int n = idx->nidx;
  if (n == 1) return idx->start[0] + k;
  if (k == 0) {
    for (int i = 0; i < n; ++i) odometer[i] = idx->start[i];
  } else {
    for (int i = n - 1; i >= 0; --i) {
      if (++odometer[i] <= idx->end[i]) break;
      odometer[i] = idx->start[i];
    }
  }
  return address_of(var, odometer, n);
}

int push_element(VarRecord *var, IndexRecord *idx) {
  if (check_index(var, idx)) return 1;
  int t = var->type;
  if (t != T_STRING && !is_array(t)) {
    char_error("Non array variable", var->name);
    return 1;
  }
  if (idx->nsel == 1) {
    int pos = get_permut(var, idx, 0);
    StackEntry *e = push_slot();
    if (!e) return 1;
    const void *p = var->value.p;
    switch (t) {
      case T_STRING: case T_CHARR: e->type = T_INT; e->value.i = static_cast<const char *>(p)[pos]; break;
      case T_BYTER: e->type = T_BYTE; e->value.b = static_cast<const uint8_t *>(p)[pos]; break;
      case T_SHORTR: e->type = T_SHORT; e->value.s = static_cast<const int16_t *>(p)[pos]; break;
      case T_INTR: e->type = T_INT; e->value.i = static_cast<const int32_t *>(p)[pos]; break;
      case T_FLOATR: e->type = T_FLOAT; e->value.f = static_cast<const float *>(p)[pos]; break;
      case T_DOUBLER: e->type = T_DOUBLE; e->value.d = static_cast<const double *>(p)[pos]; break;
      default: std::memcpy(e->value.cx, static_cast<const float *>(p) + 2 * pos, 8); break;
    }
    if (t == T_COMPLEXR) e->type = T_COMPLEX;
    return 0;
  }
  int size = t == T_STRING ? 1 : array_size(t);
  int n = idx->nsel;
  char *data = static_cast<char *>(std::calloc(n + 1, size));
  if (!data) {
    error("Not enough memory");
    return 1;
  }
  for (int k = 0; k < n; ++k)
    std::memcpy(data + k * size, static_cast<const char *>(var->value.p) + get_permut(var, idx, k) * size, size);
  StackEntry *e = push_slot();
  if (!e) {
    std::free(data);
    return 1;
  }
  e->type = static_cast<int8_t>(t);
  e->count = n;
  e->value.p = data;
  return 0;
}

int insert_element(VarRecord *var, int pos, const StackEntry *value) {
  int vt = value->type;
  bool small_int = vt == T_INT || vt == T_BYTE || vt == T_SHORT;
  int64_t iv = vt == T_INT ? value->value.i : vt == T_BYTE ? value->value.b : vt == T_SHORT ? value->value.s : 0;
  bool number = small_int || vt == T_FLOAT || vt == T_DOUBLE;
  double dv = vt == T_FLOAT ? value->value.f : vt == T_DOUBLE ? value->value.d : static_cast<double>(iv);
  void *p = var->value.p;
  switch (var->type) {
    case T_STRING: case T_CHARR: case T_BYTER:
      if (!small_int) break;
      static_cast<uint8_t *>(p)[pos] = static_cast<uint8_t>(iv);
      return 0;
    case T_SHORTR:
      if (!small_int) break;
      static_cast<int16_t *>(p)[pos] = static_cast<int16_t>(vt == T_BYTE ? value->value.b : iv);
      return 0;
    case T_INTR:
      if (!number) {
        error("Illegal expression value");
        return 0;
      }
      static_cast<int32_t *>(p)[pos] = small_int ? static_cast<int32_t>(iv) : to_int32(dv);
      return 0;
    case T_FLOATR:
      if (!number) {
        error("Illegal expression value");
        return 0;
      }
      static_cast<float *>(p)[pos] = static_cast<float>(dv);
      return 0;
    case T_DOUBLER:
      if (!number) {
        error("Illegal expression value");
        return 0;
      }
      static_cast<double *>(p)[pos] = dv;
      return 0;
    case T_COMPLEXR:
      if (vt != T_COMPLEX) break;
      std::memcpy(static_cast<float *>(p) + 2 * pos, value->value.cx, 8);
      return 0;
    default:
      char_error("Non array variable", var->name);
      return 0;
  }
  error("Illegal expression value - use conversion function");
  return 0;
}

// Element k of an array value as a scalar stack entry, for insert_element.
static StackEntry element_value(const StackEntry *arr, int k) {
  StackEntry e;
  std::memset(&e, 0, sizeof e);
  const void *p = arr->value.p;
  switch (arr->type) {
    case T_STRING: case T_CHARR: e.type = T_INT; e.value.i = static_cast<const char *>(p)[k]; break;
    case T_BYTER: e.type = T_BYTE; e.value.b = static_cast<const uint8_t *>(p)[k]; break;
    case T_SHORTR: e.type = T_SHORT; e.value.s = static_cast<const int16_t *>(p)[k]; break;
    case T_INTR: e.type = T_INT; e.value.i = static_cast<const int32_t *>(p)[k]; break;
    case T_FLOATR: e.type = T_FLOAT; e.value.f = static_cast<const float *>(p)[k]; break;
    case T_DOUBLER: e.type = T_DOUBLE; e.value.d = static_cast<const double *>(p)[k]; break;
    default: e.type = T_COMPLEX; std::memcpy(e.value.cx, static_cast<const float *>(p) + 2 * k, 8); break;
  }
  return e;
}

int insert_array(VarRecord *var, IndexRecord *idx, const StackEntry *value) {
  if (!is_array(var->type)) {
    char_error("Non array variable", var->name);
    return 1;
  }
  for (int k = 0; k < idx->nsel; ++k) {
    StackEntry e = element_value(value, k);
    int vt = e.type;
    bool small_int = vt == T_INT || vt == T_BYTE || vt == T_SHORT;
    bool refused = ((var->type == T_CHARR || var->type == T_BYTER || var->type == T_SHORTR) && !small_int) ||
                   (var->type == T_COMPLEXR && vt != T_COMPLEX) ||
                   (var->type >= T_INTR && var->type <= T_DOUBLER && vt == T_COMPLEX);
    insert_element(var, get_permut(var, idx, k), &e);
    if (refused) return 1;
  }
  return 0;
}

int check_varidx(int index, int type) {
  VarRecord &v = varlist[index];
  if (type == T_DOUBLE && (v.type == T_INT || v.type == T_FLOAT)) {
    v.value.d = v.type == T_INT ? v.value.i : v.value.f;
    v.type = T_DOUBLE;
  }
  if (v.type == type) return index;
  char msg[80];
  std::snprintf(msg, sizeof msg, "Variable %s must be of type %s", v.name, get_type(type));
  error(msg);
  return -1;
}

int check_var(const char *name, int type) {
  int i = search_var(name);
  return i < 0 ? -1 : check_varidx(i, type);
}

int alloc_stack(int type, int index) {
  if (g_nstack == 0) {
    error("Missing parameters");
    return 1;
  }
  int64_t count = 1;
  for (int k = 0; k < g_nstack; ++k) {
    if (stacklist[k].type != T_INT) {
      error("Dimension parameter must be of type integer");
      return 1;
    }
    count *= stacklist[k].value.i;
    if (count > INT32_MAX || count < INT32_MIN) count = -1;  // no array this large can exist
  }
  VarRecord &v = varlist[index];
  int32_t *dims = nullptr;
  if (g_nstack > 1) {
    dims = static_cast<int32_t *>(std::malloc(g_nstack * sizeof(int32_t)));
    if (!dims) {
      error("Not enough memory");
      return 1;
    }
    for (int k = 0; k < g_nstack; ++k) dims[k] = stacklist[k].value.i;
  }
  void *data = count >= 0 ? my_calloc(count, array_size(type)) : nullptr;
  if (!data) {
    std::free(dims);
    if (count < 0) error("Not enough memory");
    return 1;
  }
  v.dims = dims;
  v.value.p = data;
  v.type = static_cast<int8_t>(type);
  v.count = static_cast<int32_t>(count);
  v.ndim = static_cast<uint8_t>(g_nstack);
  return 0;
}

int exec_element(const char *name) {
  int index = search_var(name);
  if (index < 0) {
    char_error("Undefined variable", name);
    return 1;
  }
  // The lexer stands on "["; the subscripts follow.
  IndexRecord *idx = parse_idx();
  if (!idx) return 1;
  VarRecord *var = &varlist[index];
  if (check_index(var, idx)) return 1;
  IndexRecord sel = *idx;  // the right side may use subscripts of its own
  StackEntry *st = parse(0);
  if (!st || g_nstack == 0) {
    free_stack(0);
    return 1;
  }
  const StackEntry *value = &stacklist[0];
  bool many = (value->type == T_STRING || is_array(value->type)) && value->count > 1;
  if (sel.nsel == 1) {
    insert_element(var, get_address(var, &sel), value);
  } else if (many) {
    if (value->count != sel.nsel) error("Mismatch of arrays");
    else insert_array(var, &sel, value);
  } else {
    for (int k = 0; k < sel.nsel; ++k) insert_element(var, get_permut(var, &sel, k), value);
  }
  free_stack(0);
  return 0;
}
