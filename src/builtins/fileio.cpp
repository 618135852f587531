// Numbered files: eight slots, each a stream, an open mark and the class of its mode.
// The class decides which functions may use a file, so a mode's restrictions live in one place.
#include "builtins/fileio.h"

#include "builtins/stdf.h"
#include "core/error.h"
#include "core/reader.h"
#include "lang/parser.h"

#include <algorithm>
#include <cstring>

FileSlot fplist[MAXFP];

int init_io() {
  for (auto &slot : fplist) slot.open = 0;
  return 0;
}

int exit_io() {
  for (auto &slot : fplist) {
    if (slot.open == 1 && slot.fp != stdout) std::fclose(slot.fp);
    slot.open = 0;
  }
  return 0;
}

int check_fileptr(int n, const char *name) {
  if (n < 0 || n >= MAXFP) {
    char_error("Undefined file number in", name);
    return -1;
  }
  if (fplist[n].open != 1) {
    char_error("File is not open in", name);
    return -1;
  }
  return 0;
}

// The file's stream when it is open in one of the classes `a` or `b`; none after a message.
static FILE *stream(int n, const char *name, int a, int b = -1) {
  if (check_fileptr(n, name) != 0) return nullptr;
  int access = fplist[n].access;
  if (access != a && access != b) {
    char msg[48];
    std::snprintf(msg, sizeof msg, "Illegal file access in %s", name);
    error(msg);
    return nullptr;
  }
  return fplist[n].fp;
}

int fopen_stdf(const char *name, const char *mode) {
  static const struct {
    const char *text, *mode;
    uint8_t access;
  } modes[] = {{"r", "r", ACC_READ},      {"w", "w", ACC_WRITE},       {"w+", "w+", ACC_WRITE},
               {"a", "a", ACC_WRITE},     {"a+", "a+", ACC_WRITE},     {"rb", "rb", ACC_RBIN},
               {"br", "rb", ACC_RBIN},    {"r+", "r+", ACC_RPLUS},     {"r+b", "r+b", ACC_RPLUSBIN},
               {"wb", "wb", ACC_WBIN},    {"bw", "wb", ACC_WBIN},      {"ab", "ab", ACC_WBIN},
               {"ba", "ab", ACC_WBIN},    {"a+b", "a+b", ACC_WBIN}};
  int n = 0;
  while (n < MAXFP && fplist[n].open == 1) ++n;
  if (n == MAXFP) {
    error("Maximal number of open files is reachend");
    return -1;
  }
  char cmode[5] = {};
  std::strncpy(cmode, mode, 4);
  lowstr(cmode);
  int m = 0, nmodes = sizeof modes / sizeof modes[0];
  while (m < nmodes && std::strcmp(cmode, modes[m].text) != 0) ++m;
  if (m == nmodes) {
    char_error("Undefined file mode in FOPEN", cmode);
    return -1;
  }
  uint8_t access = modes[m].access;
  char prefix[5] = {};
  std::strncpy(prefix, name, 4);
  lowstr(prefix);
  FILE *f;
  if (std::strcmp(prefix, "con:") == 0) {
    // At the terminal the console is the script's own input: it may only be written.
    if (g_intact == 1 && access != ACC_WRITE) {
      char_error("Not allowed file mode in FOPEN", cmode);
      return -1;
    }
    f = access == ACC_READ || access == ACC_RBIN ? stdin : stdout;
  } else if (!(f = std::fopen(name, modes[m].mode))) {
    char_error("Open error in", name);
    return -1;
  }
  fplist[n] = {f, 1, access};
  return n;
}

int fgets_stdf(char *buf, int size, int n, int sel) {
  FILE *f = stdin;
  if (sel == 1 && !(f = stream(n, "FGETS", ACC_READ))) return -1;
  if (size < 1) return -1;
  return std::fgets(buf, size, f) ? 0 : -1;
}

int fgetc_stdf(int n) {
  FILE *f = stream(n, "FGETC", ACC_READ);
  return f ? std::fgetc(f) : -1;
}

int fread_stdf(void *data, int size, int count, int n) {
  FILE *f = stream(n, "FREAD", ACC_RBIN);
  if (!f) return -1;
  size_t got = std::fread(data, size, count, f);
  return got < 1 ? -1 : static_cast<int>(got);
}

int fwrite_stdf(const void *data, int size, int count, int n) {
  FILE *f = stream(n, "FWRITE", ACC_WBIN);
  if (!f) return -1;
  return std::fwrite(data, size, count, f) < 1 ? -1 : 0;
}

int fputs_stdf(const char *text, int n) {
  FILE *f = stream(n, "FPUTS", ACC_WRITE, ACC_RPLUS);
  return f && std::fputs(text, f) >= 0 ? 0 : -1;
}

int fputc_stdf(int c, int n) {
  FILE *f = stream(n, "FPUTC", ACC_WRITE, ACC_RPLUS);
  return f && std::fputc(c, f) != EOF ? 0 : -1;
}

// Standard output stays open for the interpreter's own output; standard input does not.
int fclose_stdf(int n) {
  if (check_fileptr(n, "FCLOSE") != 0) return -1;
  if (fplist[n].fp != stdout) std::fclose(fplist[n].fp);
  fplist[n].open = 0;
  return 0;
}

int fflush_stdf(int n) {
  if (check_fileptr(n, "FFLUSH") != 0) return -1;
  return std::fflush(fplist[n].fp);
}

int rewind_stdf(int n) {
  if (check_fileptr(n, "REWIND") != 0) return -1;
  std::rewind(fplist[n].fp);
  return 0;
}

int ftell_stdf(int n) {
  if (check_fileptr(n, "FTELL") != 0) return -1;
  return static_cast<int>(std::ftell(fplist[n].fp));
}

int fseek_stdf(int n, int offset) {
  if (check_fileptr(n, "FSEEK") != 0) return -1;
  if (offset < 0) {
    error("Negative offset in FSEEK");
    return -1;
  }
  return std::fseek(fplist[n].fp, offset, SEEK_SET) == 0 ? 0 : -1;
}

int feof_stdf(int n) {
  if (check_fileptr(n, "FEOF") != 0) return -1;
  return std::feof(fplist[n].fp) ? 1 : 0;
}

// The INT value of argument `index`, by value or through a variable; false if it is none.
static bool int_arg(int index, int32_t *value) {
  int type;
  const VarRecord *v = get_varptr(index, &type);
  if (!v || type != T_INT) return false;
  *value = v->value.i;
  return true;
}

// What FGETS or GETS may write into a variable: a STRING has room for its text and NUL.
static int32_t capacity(const VarRecord *v) { return v->type == T_STRING ? v->count + 1 : v->count; }

// GETS: one line of standard input, without its line end, cut to the variable's room.
static int gets_line(VarRecord *v) {
  if (g_intact == 1) {
    error("GETS cannot be used in interactive mode");
    return -1;
  }
  char *data = static_cast<char *>(v->value.p);
  char line[RECLEN + 1];
  bool got = fgets_stdf(line, sizeof line, 0, 0) == 0;
  if (capacity(v) < 1) return got ? 0 : -1;
  if (!got) {
    data[0] = '\0';
    return -1;
  }
  line[std::strcspn(line, "\n")] = '\0';
  size_t room = v->count > 0 ? static_cast<size_t>(v->count) - 1 : 0;
  size_t len = std::min(std::strlen(line), room);
  std::memcpy(data, line, len);
  data[len] = '\0';
  return 0;
}

int fgets_args(int base, int sel) {
  VarRecord *v = nullptr;
  int type;
  int32_t size = 0, n = 0;
  if (stacklist[base].type != T_REF) {
    error(sel == 1 ? "A CHAR array must be passed to FGETS" : "A CHAR array must be passed to GETS");
  } else if ((v = get_varptr(base, &type)) && sel == 1) {
    if (!int_arg(base + 1, &size) || !int_arg(base + 2, &n)) {
      v = nullptr;
    } else if (size > v->count) {
      error("Not enough array elements in FGETS");
      v = nullptr;
    }
  }
  if (!v) {
    put_int(base, -1);
    return 1;
  }
  int result = sel == 1 ? fgets_stdf(static_cast<char *>(v->value.p), size, n, 1) : gets_line(v);
  // A STRING keeps its length in step with its text.
  if (v->type == T_STRING) v->count = static_cast<int32_t>(std::strlen(v->value.str));
  put_int(base, result);
  return 0;
}

int fraw_args(int base, bool write) {
  const char *name = write ? "FWRITE" : "FREAD";
  char msg[64];
  int32_t n = 0, count = 0;
  int type;
  const VarRecord *a = nullptr;
  bool ok = int_arg(base + 2, &n) && int_arg(base + 1, &count) && (a = get_varptr(base, &type));
  int size = 0;
  if (ok) {
    switch (type) {
      case T_CHARR: case T_BYTER: size = 1; break;
      case T_SHORTR: size = 2; break;
      case T_INTR: case T_FLOATR: size = 4; break;
      case T_DOUBLER: size = 8; break;
      default: break;
    }
    if (count <= 0) std::snprintf(msg, sizeof msg, "Non positive value in %s paramter 2", name);
    else if (a->count < count) std::snprintf(msg, sizeof msg, "Not enough array elements in %s", name);
    else if (size == 0) std::snprintf(msg, sizeof msg, "Parameter 1 in %s must be an array", name);
    else msg[0] = '\0';
    if (msg[0]) {
      error(msg);
      ok = false;
    }
  }
  int result = -1;
  if (ok) {
    result = write ? fwrite_stdf(a->value.p, size, count, n)
                   : fread_stdf(a->value.p, size, count, n);
  }
  put_int(base, result);
  return ok ? 0 : 1;
}
