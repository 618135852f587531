// Formatted output and input. A specification is "%", any of "-", "." and digits, and a
// conversion letter; the functions check each one against its argument and hand a rebuilt
// specification to the C library. Output walks the format twice, so that a faulty call
// writes nothing: once to check, once to write.
#include "builtins/format.h"

#include "builtins/fileio.h"
#include "builtins/stdf.h"
#include "core/error.h"
#include "core/reader.h"
#include "lang/parser.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

// Literal text between two specifications, and a field width or precision, may not exceed
// these; longer ones are refused with a message rather than flooding the output.
constexpr size_t MAXFMTTEXT = 1024;
constexpr int MAXFIELD = 1024;

static const char *const fmtname[] = {"PRINTF", "FPRINTF", "SCANF", "FSCANF"};

struct Spec {
  std::string flags;  // the characters between "%" and the letter
  char letter;        // as written; '\0' when the format ends first
  int width;          // the digits before any "."; -1 when there are none
  int ndots;
  bool too_wide;      // a width or precision beyond MAXFIELD
};

// Reads the conversion that starts at fmt[i] == '%'; `i` moves past it.
static Spec read_spec(const std::string &fmt, size_t &i) {
  Spec s{"", '\0', -1, 0, false};
  int run = -1;  // value of the digit run being read
  for (++i; i < fmt.size() && std::strchr("-.0123456789", fmt[i]); ++i) {
    char c = fmt[i];
    s.flags += c;
    if (std::isdigit(static_cast<unsigned char>(c))) {
      run = std::min((run < 0 ? 0 : run) * 10 + (c - '0'), MAXFIELD + 1);
      if (run > MAXFIELD) s.too_wide = true;
      if (s.ndots == 0) s.width = run;
    } else {
      run = -1;
      if (c == '.') ++s.ndots;
    }
  }
  if (i < fmt.size()) s.letter = fmt[i++];
  return s;
}

// Reports `msg` followed by the function's name.
static int fail(const char *msg, const char *name, int result) {
  char_error(msg, name);
  return result;
}

// The text of a format or string argument; `ok` is false for another type, and the result
// none also after "Non terminated character array".
static const char *text_arg(int index, bool *ok) {
  int type;
  const VarRecord *v = get_varptr(index, &type);
  *ok = v && (type == T_STRING || type == T_CHARR);
  return *ok ? get_text(v) : nullptr;
}

// Where the second walk of an output function writes.
struct Output {
  FILE *fp;           // the stream, or none to collect in `text`
  std::string text;
  void put(const std::string &piece) {
    if (fp) std::fwrite(piece.data(), 1, piece.size(), fp);
    else text += piece;
  }
};

template <typename T>
static std::string format_value(const std::string &cfmt, T value) {
  int n = std::snprintf(nullptr, 0, cfmt.c_str(), value);
  if (n <= 0) return "";
  std::vector<char> buf(static_cast<size_t>(n) + 1);
  std::snprintf(buf.data(), buf.size(), cfmt.c_str(), value);
  return std::string(buf.data(), static_cast<size_t>(n));
}

// One walk of an output format over the values from `first` (there are `nvals`). Without
// `out` it only checks; SPRINTF's rules add the check of a second "." in a specification.
// Returns the length of the output as SPRINTF counts it, or -1 after a message.
static long walk_output(const std::string &fmt, int first, int nvals, const char *name,
                        bool sprintf_rules, Output *out) {
  std::string pending;
  long length = 0;
  int k = 0;
  auto flush = [&]() {
    if (out) out->put(pending);
    length += static_cast<long>(pending.size());
    pending.clear();
  };
  for (size_t i = 0; i < fmt.size();) {
    if (fmt[i] == '\\' && i + 1 < fmt.size() && fmt[i + 1] == 'n') {
      flush();
      pending = "\n";
      flush();
      i += 2;
      continue;
    }
    if (fmt[i] != '%') {
      pending += fmt[i++];
      if (pending.size() > MAXFMTTEXT) return fail("Format text too long in", name, -1);
      continue;
    }
    Spec s = read_spec(fmt, i);
    char letter = static_cast<char>(std::tolower(static_cast<unsigned char>(s.letter)));
    if (!std::strchr("cdioxefs", letter) || letter == '\0' || (sprintf_rules && s.ndots > 1))
      return fail("Syntax error in format specification in", name, -1);
    if (s.too_wide) return fail("Field width too large in", name, -1);
    if (++k > nvals) return fail("More format specifications than variables in", name, -1);
    int type;
    const VarRecord *v = get_varptr(first + k - 1, &type);
    if (!v) return -1;
    std::string cfmt = "%" + s.flags, piece;
    long counted = -1;
    if (std::strchr("cdiox", letter)) {
      int32_t iv;
      switch (type) {
        case T_CHAR: iv = v->value.c; break;
        case T_BYTE: iv = v->value.b; break;
        case T_SHORT: iv = v->value.s; break;
        case T_INT: iv = v->value.i; break;
        default: return fail("Parameter mismatch in", name, -1);
      }
      cfmt += letter == 'c' ? 'c' : s.letter;
      piece = format_value(cfmt, iv);
    } else if (letter == 'e' || letter == 'f') {
      double dv;
      switch (type) {
        case T_INT: dv = v->value.i; break;
        case T_FLOAT: dv = v->value.f; break;
        case T_DOUBLE: dv = v->value.d; break;
        default: return fail("Parameter mismatch in", name, -1);
      }
      cfmt += letter == 'e' ? std::string("l") + s.letter : std::string("lf");
      piece = format_value(cfmt, dv);
    } else {
      if (type != T_STRING && type != T_CHARR) return fail("Parameter mismatch in", name, -1);
      const char *text = get_text(v);
      if (!text) return -1;
      piece = format_value(cfmt + "s", text);
      counted = std::max<long>(s.width, static_cast<long>(std::strlen(text)));
    }
    flush();
    if (out) out->put(piece);
    length += counted >= 0 ? counted : static_cast<long>(piece.size());
  }
  flush();
  if (k < nvals) return fail("More variables than format specifications in", name, -1);
  return length;
}

// The INT that argument `index` holds, as a value or as a variable.
static bool int_arg(int index, int32_t *value) {
  int type;
  const VarRecord *v = get_varptr(index, &type);
  if (!v || type != T_INT) return false;
  *value = v->value.i;
  return true;
}

int fprintf_stdf(int sel, int base) {
  const char *name = fmtname[sel];
  int nargs = g_nstack - base;
  if (nargs < 1 + sel) return fail("Missing parameters in", name, -1);
  FILE *fp = stdout;
  if (sel == 1) {
    int32_t n;
    if (!int_arg(base, &n)) {
      error("File number in FPRINTF must be an integer");
      return -1;
    }
    if (check_fileptr(n, "FPRINTF") != 0) return -1;
    if (fplist[n].access != ACC_WRITE && fplist[n].access != ACC_RPLUS) {
      error("Illegal file access in FPRINTF");
      return -1;
    }
    fp = fplist[n].fp;
  }
  bool ok;
  const char *text = text_arg(base + sel, &ok);
  if (!ok) return fail("Format specifier must be a string in", name, -1);
  if (!text) return -1;
  std::string fmt = text;
  int first = base + sel + 1, nvals = g_nstack - first;
  if (walk_output(fmt, first, nvals, name, false, nullptr) < 0) return -1;
  Output out{fp, ""};
  walk_output(fmt, first, nvals, name, false, &out);
  return 0;
}

int sprintf_stdf(int base) {
  const char *name = "SPRINTF";
  if (g_nstack - base < 2) return fail("Missing parameters in", name, -1);
  const StackEntry &t = stacklist[base];
  if (t.type != T_REF || t.value.ref < 0 || varlist[t.value.ref].type != T_CHARR) {
    error("Parameter 1 in SPRINTF must be a character array");
    return -1;
  }
  VarRecord &target = varlist[t.value.ref];
  bool ok;
  const char *text = text_arg(base + 1, &ok);
  if (!ok) return fail("Format specifier must be a string in", name, -1);
  if (!text) return -1;
  std::string fmt = text;
  int first = base + 2, nvals = g_nstack - first;
  long length = walk_output(fmt, first, nvals, name, true, nullptr);
  if (length < 0) return -1;
  if (target.count <= length) {
    error("Not enough memory in parameter 1 in SPRINTF");
    return -1;
  }
  Output out{nullptr, ""};
  walk_output(fmt, first, nvals, name, true, &out);
  // Values may be the target itself: it is written only when everything has been read.
  size_t n = std::min(out.text.size(), static_cast<size_t>(target.count) - 1);
  std::memcpy(target.value.p, out.text.data(), n);
  static_cast<char *>(target.value.p)[n] = '\0';
  return 0;
}

// Where input comes from: a text read word by word (SSCANF) or a stream.
struct Input {
  const char *text;
  FILE *fp;
  template <typename T>
  int scan(const std::string &cfmt, T *target) const {
    return text ? std::sscanf(text, cfmt.c_str(), target)
                : std::fscanf(fp, cfmt.c_str(), target);
  }
};

// The variable argument `index` names, made when it does not exist yet.
static int target_var(int index) {
  StackEntry &e = stacklist[index];
  if (e.value.ref >= 0) return e.value.ref;
  int v = search_var(e.name);  // made already by an earlier specification of the same call
  if (v < 0 && (v = find_freevar()) >= 0) {
    VarRecord &r = varlist[v];
    set_name(&r, e.name);
    r.level = static_cast<int8_t>(g_nlevel);
    r.type = T_INT;
    r.count = 1;
    r.ndim = 1;
    r.value.i = 0;
  }
  e.value.ref = v;
  return v;
}

static void set_scalar(VarRecord &v, int type, const Value &value) {
  release_storage(&v);
  v.type = static_cast<int8_t>(type);
  v.count = 1;
  v.ndim = 1;
  v.value = value;
}

// Reads one value for specification `s` (letter already folded) into variable `var`. Returns
// what the C library returned: 1 on success, 0 when nothing matched, EOF at the end; -2 after
// a message of its own.
static int scan_one(const Input &in, const Spec &s, char letter, int var, const char *name) {
  VarRecord &v = varlist[var];
  std::string width = s.width > 0 ? std::to_string(s.width) : "";
  Value value{};
  int r;
  switch (letter) {
    case 'c': {
      char c;
      if ((r = in.scan("%c", &c)) == 1) value.i = static_cast<unsigned char>(c);
      if (r == 1) set_scalar(v, T_INT, value);
      return r;
    }
    case 'd': case 'i':
      if ((r = in.scan("%" + width + "d", &value.i)) == 1) set_scalar(v, T_INT, value);
      return r;
    case 'e': case 'f':
      if ((r = in.scan("%" + width + "lf", &value.d)) == 1) set_scalar(v, T_DOUBLE, value);
      return r;
    default: {
      if (v.type != T_CHARR) return fail("A character array must be used in", name, -2);
      // The word is read into a buffer sized by the array, then copied with its NUL.
      int room = std::max(1, v.count - 1);
      if (s.width > 0) room = std::min(room, s.width);
      std::vector<char> word(static_cast<size_t>(room) + 1);
      if ((r = in.scan("%" + std::to_string(room) + "s", word.data())) == 1 && v.count > 0) {
        size_t n = std::min(std::strlen(word.data()), static_cast<size_t>(v.count) - 1);
        std::memcpy(v.value.p, word.data(), n);
        static_cast<char *>(v.value.p)[n] = '\0';
      }
      return r;
    }
  }
}

// The checks of a specification of an input format; 0, or the result after a message.
static int check_input_spec(const Spec &s, char letter, int k, int nvars, int index,
                            const char *name) {
  if (letter == '\0' || !std::strchr("cdiefs", letter))
    return fail("Syntax error in format specification in", name, 0);
  if (s.too_wide) return fail("Field width too large in", name, 0);
  if (k > nvars) return fail("More format specifications than variables in", name, 0);
  if (stacklist[index].type != T_REF) return fail("Variables must be used in", name, 0);
  return 1;
}

static char fold(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

// Moves past one blank-separated word: fields of SSCANF are taken word by word.
static size_t skip_word(const std::string &text, size_t pos) {
  while (pos < text.size() && text[pos] == ' ') ++pos;
  while (pos < text.size() && text[pos] != ' ') ++pos;
  return pos;
}

int sscanf_stdf(int base) {
  const char *name = "SSCANF";
  int nargs = g_nstack - base;
  if (nargs < 3) return fail("Missing parameters in", name, 0);
  bool ok;
  const char *p = text_arg(base, &ok);
  if (!ok) {
    error("Parameter 1 in SSCANF must be a string");
    return 0;
  }
  if (!p) return -1;
  std::string text = p;  // a variable read into may be the text itself
  if (!(p = text_arg(base + 1, &ok))) {
    if (ok) return -1;
    return fail("Format specifier must be a string in", name, 0);
  }
  std::string fmt = p;
  int nvars = nargs - 2, k = 0;
  size_t pos = 0;
  for (size_t i = 0; i < fmt.size();) {
    if (fmt[i] != '%') {
      ++i;
      continue;
    }
    Spec s = read_spec(fmt, i);
    char letter = fold(s.letter);
    int index = base + 2 + k;
    int status = check_input_spec(s, letter, k + 1, nvars, index, name);
    if (status != 1) return status;
    ++k;
    int var = target_var(index);
    if (var < 0) return 0;
    if (k > 1) pos = skip_word(text, pos);
    int r = scan_one(Input{text.c_str() + pos, nullptr}, s, letter, var, name);
    if (r == -2) return 0;
    if (r == EOF) return fail("End of string is reached in", name, -1);
    if (r == 0) return fail("Read error in", name, 0);
  }
  if (k < nvars) return fail("More variables than format specifications in", name, 0);
  return nvars;
}

int fscanf_stdf(int sel, int base) {
  const char *name = fmtname[2 + sel];
  int nargs = g_nstack - base;
  if (nargs < 2 + sel) return fail("Missing parameters in", name, 0);
  FILE *fp = stdin;
  if (sel == 1) {
    int32_t n;
    if (!int_arg(base, &n)) {
      error("File number in FSCANF must be an integer");
      return 0;
    }
    if (check_fileptr(n, "FSCANF") != 0) return 0;
    if (fplist[n].access != ACC_READ) {
      error("Illegal file access in FSCANF");
      return 0;
    }
    fp = fplist[n].fp;
  } else if (g_intact == 1) {
    error("SCANF cannot be used in interactive mode");
    return -1;
  }
  bool ok;
  const char *p = text_arg(base + sel, &ok);
  if (!ok) return fail("Format specifier must be a string in", name, 0);
  if (!p) return -1;
  std::string fmt = p;
  long mark = std::ftell(fp);
  int first = base + sel + 1, nvars = g_nstack - first, k = 0;
  for (size_t i = 0; i < fmt.size();) {
    if (fmt[i] != '%') {
      ++i;
      continue;
    }
    Spec s = read_spec(fmt, i);
    int status = check_input_spec(s, fold(s.letter), k + 1, nvars, first + k, name);
    if (status != 1) return status;
    ++k;
  }
  if (k < nvars) return fail("More variables than format specifications in", name, 0);
  k = 0;
  for (size_t i = 0; i < fmt.size();) {
    if (fmt[i] != '%') {
      ++i;
      continue;
    }
    Spec s = read_spec(fmt, i);
    int var = target_var(first + k++);
    if (var < 0) return 0;
    int r = scan_one(Input{nullptr, fp}, s, fold(s.letter), var, name);
    if (r == -2) return 0;
    if (r == EOF) return -1;
    if (r == 0) {
      std::fseek(fp, mark, SEEK_SET);
      return fail("Read error in", name, 0);
    }
  }
  return nvars;
}
