// Scanning tokens and classifying names.
#include "lang/lexer.h"

#include "binding/tables.h"
#include "builtins/stdf.h"
#include "core/error.h"
#include "mirval.h"

#include <bitset>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <unordered_map>

const char *clex = "";
int istart = 0;
int iold = -1;
int ilex = -1;
VarRecord vlex;
char clexbf[160];
bool lex_quiet = false;

const char *const czkl[32] = {
    "BREAK", "BYTE",     "CALL",   "CHAR",   "COMPLEX", "CONTINUE", "CONSHADE", "CONTOUR",
    "DOUBLE", "EXIT",    "EXTERN", "FLOAT",  "FREE",    "FUNCTION", "GOTO",     "HELP",
    "INT",   "LIST",     "LOGOFF", "LOGON",  "PLOT",    "PLOT3",    "PLOT3R",   "PRINT",
    "PRINTL", "RETURN",  "SCATTR", "SHORT",  "SUBROUTINE", "SURF3", "SURFACE",  "SURSHADE",
};

void init_lex(const char *text) {
  clex = text;
  istart = 0;
  iold = -1;
}

static void syntax_error() {
  if (!lex_quiet) error("Syntax error");
}

LexState save_lex() {
  LexState s{clex, istart, iold, ilex, vlex, {}};
  std::memcpy(s.buf, clexbf, sizeof clexbf);
  return s;
}

void restore_lex(const LexState &s) {
  clex = s.clex;
  istart = s.istart;
  iold = s.iold;
  ilex = s.ilex;
  vlex = s.vlex;
  std::memcpy(clexbf, s.buf, sizeof clexbf);
}

// Character classes of the plain ASCII letters and digits (a name is never more).
static bool is_alpha(int c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
static bool is_digit(int c) { return c >= '0' && c <= '9'; }
static bool is_name_char(int c) { return is_alpha(c) || is_digit(c) || c == '_'; }

// Reads letters, digits and "_" from the current position into vlex.name, upper case,
// keeping at most 15 characters (the first `have` are already there).
static void scan_name(int have) {
  int n = have;
  while (is_name_char(static_cast<unsigned char>(clex[istart]))) {
    char c = clex[istart++];
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    if (n < NAMELEN) vlex.name[n++] = c;
  }
  vlex.name[n] = '\0';
}

static int scan_number() {
  constexpr int NUMLEN = 80;  // longer number texts are cut here
  char text[NUMLEN + 1];
  int n = 0, points = 0;
  bool hex = false, exponent = false;
  for (;;) {
    int c = static_cast<unsigned char>(clex[istart]);
    bool take = false;
    if (c == '.') {
      ++points;
      take = true;
    } else if (c == 'x' || c == 'X') {
      hex = true;
      take = true;
    } else if (!hex && (c == 'e' || c == 'E')) {
      exponent = true;
      take = true;
      if (n < NUMLEN) text[n++] = static_cast<char>(c);
      ++istart;
      c = static_cast<unsigned char>(clex[istart]);
      if (c == '+' || c == '-') {
        if (n < NUMLEN) text[n++] = static_cast<char>(c);
        ++istart;
      }
      continue;
    } else if (std::isxdigit(c)) {
      take = true;
    }
    if (!take) break;
    if (n < NUMLEN) text[n++] = static_cast<char>(c);
    ++istart;
  }
  text[n] = '\0';
  vlex.count = 1;
  vlex.ndim = 1;
  if (points > 0 || exponent) {
    if ((points > 1 && !exponent) || hex) {
      syntax_error();
      return iold = TK_ERR;
    }
    vlex.type = T_DOUBLE;
    vlex.value.d = std::atof(text);
    return iold = TK_FLOAT;
  }
  vlex.type = T_INT;
  vlex.value.i = static_cast<int32_t>(std::strtoll(text, nullptr, hex ? 16 : 10));
  return iold = TK_INT;
}

static int scan_string(char quote) {
  ++istart;
  int n = 0;
  while (clex[istart] && clex[istart] != quote) {
    if (n < STRLIT_MAX) clexbf[n++] = clex[istart];
    ++istart;
  }
  clexbf[n] = '\0';
  if (!clex[istart]) {  // the reader hands over closed quotes; be safe anyway
    syntax_error();
    return iold = TK_ERR;
  }
  ++istart;
  vlex.type = T_STRING;
  vlex.count = n;
  vlex.ndim = 1;
  vlex.value.str = clexbf;
  return iold = TK_STR;
}

// A two-character operator when `second` follows directly, else the one-character token.
static int pair(char second, int both, int single) {
  if (clex[istart] == second) {
    ++istart;
    return iold = both;
  }
  return iold = single;
}

int lexan() {
  while (clex[istart] == ' ') ++istart;
  int c = static_cast<unsigned char>(clex[istart]);
  if (c == '\0') return TK_END;
  if (is_alpha(c)) {
    scan_name(0);
    return iold = TK_ID;
  }
  if (is_digit(c) || c == '.') return scan_number();
  if (c == '\'' || c == '"') return scan_string(static_cast<char>(c));
  ++istart;
  switch (c) {
    case '%':
      if (iold != TK_INT && iold != TK_ID && is_alpha(static_cast<unsigned char>(clex[istart]))) {
        vlex.name[0] = '%';
        scan_name(1);
        return iold = TK_ID;
      }
      return iold = '%';
    case '+': {
      bool binary = iold == TK_INT || iold == TK_FLOAT || iold == TK_ID || iold == TK_STR ||
                    iold == ')' || iold == ']';
      return iold = binary ? static_cast<int>('+') : static_cast<int>(TK_UPLUS);
    }
    case '-': {
      bool binary = iold == TK_INT || iold == TK_FLOAT || iold == TK_ID || iold == ')' || iold == ']';
      return iold = binary ? static_cast<int>('-') : static_cast<int>(TK_UMINUS);
    }
    case '*': return pair('*', TK_POW, '*');
    case '=': return pair('=', TK_EQ, '=');
    case '!': return pair('=', TK_NE, '!');
    case '<': return pair('=', TK_LE, TK_LT);
    case '>': return pair('=', TK_GE, TK_GT);
    case '&': return pair('&', TK_AND, '&');
    case '|': return pair('|', TK_OR, '|');
    case '#': case '$': case '(': case ')': case ',': case '/': case ':':
    case '[': case ']': case '{': case '}':
      return iold = c;
    default:
      syntax_error();
      return iold = TK_ERR;
  }
}

int lookup() {
  int i = istart;
  while (clex[i] == ' ') ++i;
  return static_cast<unsigned char>(clex[i]);
}

int match(int expected) {
  if (ilex != expected) {
    c_error("Syntax error - Expected", expected);
  } else if (expected != TK_END) {
    ilex = lexan();
  }
  return 0;
}

// The tables are searched often (every name in an expression): each is hashed once, the
// first row of a name winning as in a linear scan. Most names looked up are the script's own;
// one whose first letter and length no row has is refused before any hashing.
struct NameIndex {
  std::unordered_map<std::string_view, int> rows;
  std::bitset<256 * 32> shapes;
};

static size_t shape(std::string_view name) {
  return static_cast<unsigned char>(name[0]) * 32 + (name.size() < 32 ? name.size() : 31);
}

template <typename Row>
static NameIndex build_index(const Row *rows, int n) {
  NameIndex index;
  for (int i = n - 1; i >= 0; --i) {
    std::string_view name = rows[i].name;
    index.rows[name] = i;
    if (!name.empty()) index.shapes.set(shape(name));
  }
  return index;
}

static int find_name(const NameIndex &index, const char *text) {
  std::string_view name = text;
  if (name.empty() || !index.shapes.test(shape(name))) return -1;
  auto it = index.rows.find(name);
  return it == index.rows.end() ? -1 : it->second;
}

int search_zkl(const char *name) {
  struct Row {
    const char *name;
  };
  static const NameIndex index = [] {
    Row rows[32];
    for (int i = 0; i < 32; ++i) rows[i].name = czkl[i];
    return build_index(rows, 32);
  }();
  return find_name(index, name);
}

int search_stdf(const char *name) {
  static const NameIndex index = build_index(stdf, NSTDF);
  return find_name(index, name);
}

int search_routine(const char *name, int kind) {
  static const NameIndex routines = build_index(cray, NROUTINE);
  static const NameIndex functions = build_index(cfray, NFUNCTION);
  if (kind == 1) return find_name(routines, name);
  if (kind == 2) return find_name(functions, name);
  return -1;
}

int search_sysv(const char *name) {
  static const NameIndex index = build_index(sysv, NSYSV);
  return find_name(index, name);
}
int sysv_type(int index) { return sysv[index].type; }
int stdf_opt(int index) { return stdf[index].opt; }
const char *stdf_name(int index) { return stdf[index].name; }

const char *get_parstr(int index, int kind) {
  if (index < 0) return nullptr;
  if (kind == 1 && index < NROUTINE) return cray[index].sig;
  if (kind == 2 && index < NFUNCTION) return cfray[index].sig;
  if (kind == 3 && index < NSTDF) return stdf[index].sig;
  return nullptr;
}

// `piece` holds up to 1024 characters plus the terminator; `keyname` 15 plus the terminator.
int get_parexpr(const char *text, int first, char *piece, char *keyname) {
  static const char *pos = "";
  static int counter = 0;
  if (first == 1) {
    const char *open = std::strchr(text, '(');
    pos = open ? open + 1 : text + std::strlen(text);
    counter = 1;
  }
  int n = 0;
  keyname[0] = '\0';
  char quote = 0;
  for (;; ++pos) {
    char c = *pos;
    if (c == '\0') {
      piece[n] = '\0';
      return 0;
    }
    if (quote) {
      if (c == quote) quote = 0;
    } else if (c == '\'' || c == '"') {
      quote = c;
    } else if (c == ')' || c == ',') {
      ++pos;
      piece[n] = '\0';
      if (c == ')' && n == 0 && counter == 1) return 0;
      ++counter;
      return 1;
    } else if (c == '=') {
      piece[n] = '\0';
      qqscpy(keyname, piece, NAMELEN);
      n = 0;
      continue;
    }
    if (n < 1024) piece[n++] = c;
  }
}
