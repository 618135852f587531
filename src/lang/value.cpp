// The variable table, the evaluation stack and the label table, with the routines that
// create, find and release their entries. Lookups scan from index 0: the first match wins.
#include "lang/value.h"

#include "core/error.h"
#include "lang/lexer.h"
#include "mirval.h"

#include <cstdlib>
#include <cstring>

VarRecord varlist[MAXVAR];
StackEntry stacklist[MAXSTACK];
LabelRecord lablist[MAXLAB];
int g_nstack = 0;
int g_nlevel = 0;
int g_varhigh = 0;
unsigned g_vargen = 0;

int elem_size(int scalar_type) {
  switch (scalar_type) {
    case T_CHAR: case T_BYTE: return 1;
    case T_SHORT: return 2;
    case T_INT: case T_FLOAT: return 4;
    case T_DOUBLE: case T_COMPLEX: return 8;
    default: return 0;
  }
}

int array_size(int code) { return is_array(code) ? elem_size(code - ARRAY_OFFSET) : 0; }

void release_storage(VarRecord *rec) {
  if (rec->type > T_COMPLEX) {
    std::free(rec->value.p);
    rec->value.p = nullptr;
    if (rec->ndim > 1) {
      std::free(rec->dims);
      rec->dims = nullptr;
    }
  }
}

void set_name(VarRecord *rec, const char *name) {
  ++g_vargen;
  std::memset(rec->name, 0, sizeof rec->name);  // zero-filled: names compare as two words
  qqscpy(rec->name, name, NAMELEN);
}

int init_var() {
  for (auto &v : varlist) v.type = T_FREE;
  return 0;
}

// Record names are zero-filled (set_name): a name compares as two words.
struct NameWords {
  uint64_t w[2];
};

static NameWords words_of(const char *name) {
  NameWords n{};
  std::memcpy(n.w, name, sizeof n.w);
  return n;
}

int search_rec(const char *name) {
  size_t len = std::strlen(name);
  if (len > NAMELEN) return -1;  // no record holds a longer name
  char key[NAMELEN + 1] = {};
  std::memcpy(key, name, len);
  return search_filled(key);
}

int search_filled(const char *name) {
  NameWords k = words_of(name);
  for (int i = 0; i < g_varhigh; ++i) {
    const VarRecord &v = varlist[i];
    if (v.type == T_FREE) continue;
    if (v.level != g_nlevel && v.name[0] != '%') continue;
    NameWords n = words_of(v.name);
    if (n.w[0] == k.w[0] && n.w[1] == k.w[1]) return i;
  }
  return -1;
}

int search_var(const char *name) {
  int i = search_rec(name);
  return i >= 0 && varlist[i].type == T_REF ? varlist[i].value.ref : i;
}

int find_freevar() {
  ++g_vargen;
  for (int i = 0; i < MAXVAR; ++i) {
    if (varlist[i].type != T_FREE) continue;
    if (i >= g_varhigh) g_varhigh = i + 1;
    return i;
  }
  error("Maximal number of variables is reached");
  return -1;
}

bool dangling_ref(const VarRecord *rec) { return rec->type == T_REF && rec->value.ref < 0; }

int insert_var(VarRecord *rec, int index) {
  if (dangling_ref(rec)) return -1;
  if (search_stdf(rec->name) >= 0) {
    char_error("Reserved identifier", rec->name);
    return -1;
  }
  if (index == -1) {
    index = find_freevar();
    if (index == -1) return -1;
    set_name(&varlist[index], rec->name);
    varlist[index].level = static_cast<int8_t>(g_nlevel);
  }
  VarRecord &v = varlist[index];
  v.type = rec->type;
  v.count = rec->count;
  v.ndim = rec->ndim;
  if (rec->ndim > 1) v.dims = rec->dims;
  v.value = rec->value;
  return index;
}

int free_var(int index) {
  ++g_vargen;
  release_storage(&varlist[index]);
  varlist[index].type = T_FREE;
  return 0;
}

int free_level(int level) {
  for (int i = 0; i < g_varhigh; ++i)
    if (varlist[i].level == level) free_var(i);
  return 0;
}

char *copy_text(const char *text) {
  size_t n = std::strlen(text);
  char *p = static_cast<char *>(std::malloc(n + 1));
  if (p) std::memcpy(p, text, n + 1);
  else error("Not enough memory");
  return p;
}

int var_setstr(VarRecord *rec, const char *text) {
  char *p = copy_text(text);
  if (!p) return 1;
  rec->value.str = p;
  rec->type = T_STRING;
  rec->count = static_cast<int32_t>(std::strlen(p));
  return 0;
}

int check_crayvar(const VarRecord *rec) {
  if (rec->count >= 1 && std::memchr(rec->value.p, 0, rec->count)) return 0;
  error("Non terminated character array");
  return 1;
}

int init_lab() {
  for (auto &l : lablist) l.used = 0;
  return 0;
}

int search_label(const char *name) {
  for (int i = 0; i < MAXLAB; ++i) {
    const LabelRecord &l = lablist[i];
    if (l.used && l.level == g_nlevel && std::strcmp(l.name, name) == 0) return i;
  }
  return -1;
}

int find_freelab() {
  for (int i = 0; i < MAXLAB; ++i)
    if (!lablist[i].used) return i;
  error("Maximal number of labels is reached");
  return -1;
}

int insert_lab(const char *name) {
  int i = find_freelab();
  if (i == -1) return -1;
  qqscpy(lablist[i].name, name, NAMELEN);
  lablist[i].used = 12;
  lablist[i].level = static_cast<int8_t>(g_nlevel);
  return i;
}

int free_lab(int level) {
  for (auto &l : lablist)
    if (l.level == level) l.used = 0;
  return 0;
}

const char *get_type(int code) {
  static char buf[8];
  const char *name;
  switch (code) {
    case T_FREE: name = "FREE"; break;
    case T_CHAR: case T_CHARR: name = "CHAR"; break;
    case T_BYTE: case T_BYTER: name = "BYTE"; break;
    case T_SHORT: case T_SHORTR: name = "SHORT"; break;
    case T_INT: case T_INTR: name = "INT"; break;
    case T_FLOAT: case T_FLOATR: name = "FLOAT"; break;
    case T_DOUBLE: case T_DOUBLER: name = "DOUBLE"; break;
    case T_COMPLEX: case T_COMPLEXR: name = "COMPLEX"; break;
    case T_STRING: name = "STRING"; break;
    default: name = "NONE"; break;
  }
  qqscpy(buf, name, 7);
  return buf;
}
