// The bridge between script values and library calls: the user signature of the given
// arguments, its comparison with a routine's declared signature, and the sorting of the
// argument values into the integer, float and pointer lists.
#include "binding/call.h"

#include "core/error.h"
#include "lang/lexer.h"
#include "lang/parser.h"
#include "mirval.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

int idxpar[MAXPAR];
int ipar[MAXPAR];
float xpar[MAXPAR];
void *cpar[MAXPAR];
int ccnt[MAXPAR];
long long cbytes[MAXPAR];
int nipar = 0, nxpar = 0, nspar = 0, npar = 0;

// The class letters of one value's type.
static const char *type_class(int type) {
  switch (type) {
    case T_CHAR: return "C";
    case T_BYTE: return "B";
    case T_SHORT: return "H";
    case T_INT: return "I";
    case T_FLOAT: return "F";
    case T_DOUBLE: return "D";
    case T_STRING: case T_CHARR: return "S";
    case T_BYTER: return "BR";
    case T_SHORTR: return "HR";
    case T_INTR: return "IR";
    case T_FLOATR: return "FR";
    case T_DOUBLER: return "DR";
    default: return "?";
  }
}

const char *get_stackstr(int first) {
  static std::string user;
  user.clear();
  npar = 0;
  for (int k = first; k < g_nstack; ++k) {
    const StackEntry &e = stacklist[k];
    int pos = k - first;
    if (pos < MAXPAR) {
      idxpar[pos] = e.type == T_REF ? e.value.ref : -1;
      ipar[pos] = 0;
    }
    if (!user.empty()) user += ',';
    if (e.type == T_REF) user += e.value.ref < 0 ? "U" : type_class(varlist[e.value.ref].type);
    else user += type_class(e.type);
    ++npar;
  }
  return user.c_str();
}

// The stack entry of argument `argc` of the call whose arguments begin at `first` is
// given as a floating value: an INT becomes DOUBLE. A variable is read, never changed.
static void widen_to_double(int first, int argc) {
  int k = first + argc;
  if (k >= g_nstack) return;
  StackEntry &e = stacklist[k];
  if (e.type == T_INT) {
    e.value.d = e.value.i;
    e.type = T_DOUBLE;
  } else if (e.type == T_REF && e.value.ref >= 0 && varlist[e.value.ref].type == T_INT) {
    double d = varlist[e.value.ref].value.i;
    std::memset(&e.value, 0, sizeof e.value);
    e.value.d = d;
    e.type = T_DOUBLE;
  }
}

static int stack_base = 0;  // first argument entry of the call being compared

int cmp_parstr(const char *declared, const char *user, const char *name) {
  if (!*declared && !*user) return 0;
  size_t ulen = std::strlen(user), dlen = std::strlen(declared);
  std::string out;
  size_t j = 0;
  int argc = 0;
  auto at = [&](size_t p) { return p < ulen ? user[p] : '\0'; };
  auto is_var = [&]() { return argc < MAXPAR && idxpar[argc] >= 0; };
  for (size_t i = 0; i < dlen; ++i) {
    char dc = declared[i];
    bool have = j < ulen;
    char uc = at(j);
    if (dc < '*' || dc > 'X') {  // codes outside the set are compared as they stand
      if (have) out += uc;
      ++j;
      continue;
    }
    switch (dc) {
      case ',':
        if (have) out += uc;
        ++argc;
        ++j;
        break;
      case '.':
        return 0;
      case '*':
        if (have) out += '*';
        ++j;
        if (at(j) == 'R') ++j;
        break;
      case 'A':
        if (have) out += at(j + 1) == 'R' ? 'A' : uc;
        ++j;
        break;
      case 'U':
        if (have) {
          if (is_var()) {
            out += 'U';
            if (at(j + 1) == 'R') ++j;
          } else {
            out += uc;
          }
        }
        ++j;
        break;
      case 'V':
        if (have) {
          if (is_var()) {
            out += 'V';
            ipar[argc] = -1;
            if (at(j + 1) == 'R') ++j;
          } else {
            out += uc;
          }
        }
        ++j;
        break;
      case 'X': {
        // The class examined stands at the X's own position in the declared text.
        char c = at(i);
        if (c == 'F' || c == 'D') {
          out += 'X';
        } else if (c == 'I') {
          out += 'X';
          widen_to_double(stack_base, argc);
        } else if (have) {
          out += uc;
        }
        ++j;
        break;
      }
      default:
        if (have) out += uc;
        ++j;
        break;
    }
  }
  if (out == declared) return 0;
  error("Parameter mismatch");
  std::printf("      User   : %s (%s)\n", name, user);
  std::printf("      Correct: %s (%s)\n", name, declared);
  return 1;
}

int check_args(const char *declared, int first, const char *name) {
  stack_base = first;
  return cmp_parstr(declared ? declared : "", get_stackstr(first), name);
}

int set_mirpar() {
  nipar = nxpar = nspar = 0;
  std::memset(xpar, 0, sizeof xpar);
  std::memset(cpar, 0, sizeof cpar);
  std::memset(ccnt, 0, sizeof ccnt);
  std::memset(cbytes, 0, sizeof cbytes);
  for (int k = 0; k < npar && k < MAXPAR; ++k) {
    if (ipar[k] == -1) continue;
    const StackEntry &e = stacklist[k];
    const VarRecord *v = &e;
    if (e.type == T_REF) {
      int index = e.value.ref;
      if (index < 0) {
        index = find_freevar();
        if (index < 0) return 1;
        VarRecord &n = varlist[index];
        set_name(&n, e.name);
        n.type = T_INT;
        n.count = 1;
        n.ndim = 1;
        n.level = static_cast<int8_t>(g_nlevel);
        n.value.i = 0;
        idxpar[k] = index;
        continue;  // a new output variable takes no place in the lists
      }
      v = &varlist[index];
    }
    switch (v->type) {
      case T_BYTE: ipar[nipar++] = v->value.b; break;
      case T_INT: ipar[nipar++] = v->value.i; break;
      case T_FLOAT: xpar[nxpar++] = v->value.f; break;
      case T_DOUBLE: xpar[nxpar++] = static_cast<float>(v->value.d); break;
      case T_STRING: case T_CHARR: case T_BYTER: case T_INTR: case T_FLOATR:
        ccnt[nspar] = v->count;
        cbytes[nspar] = v->type == T_STRING ? v->count + 1LL : static_cast<long long>(v->count) * array_size(v->type);
        cpar[nspar++] = v->value.p;
        break;
      default: break;
    }
  }
  return 0;
}

int exec_par(const char *name, int number, int kind) {
  const char *declared = get_parstr(number, kind);
  if (lookup() == ')') {
    g_nstack = 0;
  } else if (!parse(1) && g_abort) {
    return 1;
  }
  if (check_args(declared, 0, name) || set_mirpar()) {
    free_stack(0);
    return 1;
  }
  return 0;
}

// The value of an integer entry; false for any other type.
static bool integer_value(const StackEntry *e, int32_t &v) {
  switch (e->type) {
    case T_CHAR: v = e->value.c; return true;
    case T_BYTE: v = e->value.b; return true;
    case T_SHORT: v = e->value.s; return true;
    case T_INT: v = e->value.i; return true;
    default: return false;
  }
}

int32_t get_ivalue(const StackEntry *e, int *code) {
  int32_t v;
  if (!integer_value(e, v)) return 0;
  *code = T_INT;
  return v;
}

double get_dvalue(const StackEntry *e, int *code) {
  int32_t i;
  double v;
  if (integer_value(e, i)) v = i;
  else if (e->type == T_FLOAT) v = e->value.f;
  else if (e->type == T_DOUBLE) v = e->value.d;
  else return 0.0;
  *code = T_DOUBLE;
  return v;
}

int find_idtype(const char *word, int isarray) {
  static const struct {
    const char *name;
    int type;
  } types[] = {{"INT", T_INT}, {"FLOAT", T_FLOAT}, {"DOUBLE", T_DOUBLE}, {"BYTE", T_BYTE},
               {"STRING", T_STRING}, {"CHAR", T_CHAR}, {"SHORT", T_SHORT}, {"COMPLEX", T_COMPLEX}};
  for (const auto &t : types)
    if (std::strcmp(word, t.name) == 0)
      return isarray && t.type != T_STRING ? t.type + ARRAY_OFFSET : t.type;
  return -1;
}

int get_idtype(const char *word, int isarray) {
  int code = find_idtype(word, isarray);
  if (code < 0) char_error("Undefined type", word);
  return code;
}

void *my_malloc(size_t n) {
  void *p = std::malloc(n ? n : 1);
  if (!p) error("Not enough memory");
  return p;
}

// The memory the system can back (its commit limit): calloc's pages are only promised, so
// a larger request would succeed here and fail when the script first touches it.
static size_t commit_limit() {
  static size_t limit = 0;
  if (limit == 0) {
    limit = SIZE_MAX;
    if (FILE *f = std::fopen("/proc/meminfo", "r")) {
      char line[128];
      unsigned long long kb;
      while (std::fgets(line, sizeof line, f))
        if (std::sscanf(line, "CommitLimit: %llu kB", &kb) == 1) limit = static_cast<size_t>(kb) * 1024;
      std::fclose(f);
    }
  }
  return limit;
}

void *my_calloc(size_t n, size_t size) {
  if (n == 0) n = 1;
  if (size == 0) size = 1;
  void *p = n <= commit_limit() / size ? std::calloc(n, size) : nullptr;
  if (!p) error("Not enough memory");
  return p;
}

int syscll(const char *command) {
  std::fflush(stdout);
  return std::system(command);
}
