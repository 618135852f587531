// Values, variables and labels: the one value record and the three fixed tables built on it.
#pragma once
#include <cstdint>

enum TypeCode : int8_t {
  T_FREE = 0, T_REF = 1,
  T_CHAR = 5, T_BYTE = 6, T_SHORT = 7, T_INT = 8, T_FLOAT = 9, T_DOUBLE = 10, T_COMPLEX = 11,
  T_STRING = 12,
  T_CHARR = 13, T_BYTER = 14, T_SHORTR = 15, T_INTR = 16, T_FLOATR = 17, T_DOUBLER = 18,
  T_COMPLEXR = 19,
};
constexpr int ARRAY_OFFSET = 8;  // array code = scalar code + 8

constexpr int MAXVAR = 500;
constexpr int MAXSTACK = 50;
constexpr int MAXLAB = 100;
constexpr int NAMELEN = 15;

union Value {
  int8_t c;
  uint8_t b;
  int16_t s;
  int32_t i;
  float f;
  double d;
  float cx[2];
  char *str;
  void *p;
  int32_t ref;
};

struct VarRecord {
  char name[NAMELEN + 1];
  int8_t type;
  int8_t level;
  uint8_t ndim;
  int32_t count;
  int32_t *dims;  // owned, only when ndim > 1
  Value value;
};
using StackEntry = VarRecord;

struct LabelRecord {
  int32_t stmt;
  int8_t level;
  uint8_t used;
  uint8_t iflev;
  uint8_t ilplev;
  uint8_t iswlev;
  uint8_t iexec;
  char name[NAMELEN + 1];
};

extern VarRecord varlist[MAXVAR];
extern StackEntry stacklist[MAXSTACK];
extern LabelRecord lablist[MAXLAB];
extern int g_nstack;
extern int g_nlevel;

int init_var();
int search_var(const char *name);
// The record that answers to the name (a reference itself, not followed), or -1.
int search_rec(const char *name);
// search_rec for a name zero-filled to its NAMELEN + 1 bytes.
int search_filled(const char *name);
// Records from g_varhigh on have never been taken. g_vargen changes whenever a record is
// taken, named or freed: until then a name found stays found in the same record.
extern int g_varhigh;
extern unsigned g_vargen;
int find_freevar();
// A reference to a name that is no variable (what a failed call leaves, after its message):
// no record may keep one, so it is stored nowhere.
bool dangling_ref(const VarRecord *rec);
int insert_var(VarRecord *rec, int index);
int free_var(int index);
int free_level(int level);
// A malloc copy of text; null, after "Not enough memory", when there is no room.
char *copy_text(const char *text);
int var_setstr(VarRecord *rec, const char *text);
int check_crayvar(const VarRecord *rec);
int init_lab();
int search_label(const char *name);
int find_freelab();
int insert_lab(const char *name);
int free_lab(int level);
const char *get_type(int code);

inline bool is_array(int type) { return type >= T_CHARR && type <= T_COMPLEXR; }
// A number cut to an INT as the machine's conversion does it: toward zero, and the least INT
// for NaN and for values outside the INT range (so that no value is ever undefined).
inline int32_t to_int32(double v) { return v > -2147483649.0 && v < 2147483648.0 ? static_cast<int32_t>(v) : INT32_MIN; }
// Element size in bytes of a scalar type code.
int elem_size(int scalar_type);
// Element size of an array code; 0 for a non-array code.
int array_size(int code);
// Releases what a record owns (string, array data, dims) without touching its type.
void release_storage(VarRecord *rec);
// Bounded name copy into a record (at most 15 characters).
void set_name(VarRecord *rec, const char *name);
