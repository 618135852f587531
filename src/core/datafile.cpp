// Data files: one open at a time. Record 1 is "%ZKL-ASC"; an optional "%HEADER" section
// holds free text and NAME = value definitions; each "%DATA" block holds its column count
// and then numbers row by row, up to the next "%DATA", a "%END" or the end of the file.
// The messages of data files are printed as they stand, without a script record number.
#include "core/datafile.h"

#include "builtins/stdf.h"
#include "core/reader.h"
#include "lang/lexer.h"
#include "mirval.h"

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

constexpr int DATRECLEN = 511;  // characters of one record

static int idatfl = 0;
static FILE *fptr = nullptr;
static char cdatfl[PATHLEN + 1];
static int iblock = 1;
static int ncols = 0, nrows = 0, ndata = 0;
static char crec[DATRECLEN + 1];
static int nlen = 0;       // characters in crec (a NUL byte does not end a record)
static int nrecd = 0;      // number of the record in crec
static bool toolong = false;

// Reads the next record into crec, without its line end; false at the end of the file.
// Characters beyond DATRECLEN are dropped and mark the record as too long.
static bool read_rec() {
  int c;
  nlen = 0;
  toolong = false;
  while ((c = getc_unlocked(fptr)) != EOF && c != '\n') {  // one reader: no locking per character
    if (nlen < DATRECLEN) crec[nlen++] = static_cast<char>(c);
    else toolong = true;
  }
  crec[nlen] = '\0';
  if (c == EOF && nlen == 0 && !toolong) return false;
  ++nrecd;
  return true;
}

// Keywords are compared in upper case.
static bool begins(const char *key) {
  for (int i = 0; key[i]; ++i)
    if (i >= nlen || std::toupper(static_cast<unsigned char>(crec[i])) != key[i]) return false;
  return true;
}

static bool is_comment() { return nlen >= 2 && crec[0] == '/' && crec[1] == '/'; }

static void restart() {
  std::rewind(fptr);
  nrecd = 0;
  read_rec();
}

static bool open_check() {
  if (idatfl) return true;
  std::printf(" >>>> Missing routine DATFIL\n");
  return false;
}

// Positions the file after the "%DATA" record of the selected block; false after a message.
static bool find_block() {
  restart();
  int n = 0;
  while (read_rec())
    if (begins("%DATA") && ++n == iblock) return true;
  if (n == 0) std::printf(" >>>> Missing '%s' in data file %s\n", "%DATA", cdatfl);
  else std::printf(" >>>> Cannot find block %d in data file %s\n", iblock, cdatfl);
  return false;
}

// The next record of the block that is no comment: 1, 0 at the block's end, -1 for a
// "%" record that neither ends a block nor starts one.
static int next_data_rec() {
  while (read_rec()) {
    if (is_comment()) continue;
    if (crec[0] != '%') return 1;
    return begins("%END") || begins("%DATA") ? 0 : -1;
  }
  return 0;
}

static bool is_numch(char c) {
  return std::isdigit(static_cast<unsigned char>(c)) || std::strchr(".-+Ee", c) != nullptr;
}

// Hands the text of every number of the record in crec to `take`, in order. A number ends
// at a separator ("," blank, carriage return, "//") or at the end of the record. With
// `strict`, any other character stops the walk with false.
template <typename F>
static bool each_number(bool strict, F take) {
  for (int i = 0; i < nlen;) {
    char c = crec[i];
    if (c == '/' && i + 1 < nlen && crec[i + 1] == '/') break;
    if (is_numch(c)) {
      int start = i;
      while (i < nlen && is_numch(crec[i])) ++i;
      take(crec + start, i - start);
    } else if (c == ',' || c == ' ' || c == '\r' || !strict) {
      ++i;
    } else {
      return false;
    }
  }
  return true;
}

// Counts the selected block: its columns, rows and numbers. 0, or 1 after a message.
static int get_datacount() {
  if (!find_block()) return 1;
  ncols = nrows = ndata = 0;
  int r = next_data_rec();
  if (r == 1) {
    ncols = std::atoi(crec);
    while ((r = next_data_rec()) == 1) {
      if (toolong) {
        std::printf(" >>>> Record too long in data file %s in record %d\n", cdatfl, nrecd);
        return 1;
      }
      if (!each_number(true, [](const char *, int) { ++ndata; })) {
        r = -1;
        break;
      }
    }
  }
  if (r == -1) {
    std::printf(" >>>> Syntax error in data file %s in record %d\n", cdatfl, nrecd);
    return 1;
  }
  if (ncols < 1) {
    std::printf(" >>>> Bad number of columns %d in data file %s\n", ncols, cdatfl);
    return 1;
  }
  if (ndata % ncols != 0) {
    std::printf(" >>>> Count error\n");
    return 1;
  }
  nrows = ndata / ncols;
  return 0;
}

// A DATFIL in a script always replaces the file given on the command line, so the mode
// (0 from the command line, 1 from a script) changes nothing.
int datfil(const char *name, int) {
  datcls();
  qqscpy(cdatfl, name, PATHLEN);
  add_extension(cdatfl, PATHLEN, ".zdf");
  fptr = std::fopen(cdatfl, "r");
  const char *dir = std::getenv("ZKL_DATA");
  if (!fptr && dir) {
    std::string path = std::string(dir) + "/" + name;
    qqscpy(cdatfl, path.c_str(), PATHLEN);
    add_extension(cdatfl, PATHLEN, ".zdf");
    fptr = std::fopen(cdatfl, "r");
  }
  if (!fptr) {
    std::printf(" >>>> Open error in file %s\n", cdatfl);
    return -1;
  }
  nrecd = 0;
  int status = 0;
  if (!read_rec() || !begins("%ZKL-ASC")) {
    std::printf(" >>>> Not allowed file format in %s\n", cdatfl);
    status = -1;
  } else if (get_datacount() != 0) {
    status = -1;
  }
  if (status != 0) {
    std::fclose(fptr);
    fptr = nullptr;
    return status;
  }
  idatfl = 1;
  return 0;
}

int datblk(int n) {
  if (n == iblock) return 0;
  if (n < 1) {
    std::printf(" >>>> Not allowed parameter %d in DATBLK\n", n);
    return -1;
  }
  int old[4] = {iblock, ncols, nrows, ndata};
  iblock = n;
  if (idatfl && get_datacount() != 0) {
    iblock = old[0];
    ncols = old[1];
    nrows = old[2];
    ndata = old[3];
    return -1;
  }
  return 0;
}

int datcnt(const char *option) {
  if (!open_check()) return 0;
  char key[4] = {};
  std::strncpy(key, option, 3);
  upstr(key);
  if (std::strcmp(key, "ROW") == 0) return nrows;
  if (std::strcmp(key, "COL") == 0) return ncols;
  if (std::strcmp(key, "BLO") == 0) {
    restart();
    int n = 0;
    while (read_rec()) n += begins("%DATA");
    return n;
  }
  std::printf(" >>>> Undefined parameter %s in datcnt\n", option);
  return 0;
}

int dathdr() {
  if (!open_check()) return -1;
  restart();
  bool header = false;
  while (read_rec() && !begins("%DATA")) {
    if (begins("%HEADER")) {
      header = true;
    } else if (header && crec[0] != '%') {
      std::fwrite(crec, 1, nlen, stdout);
      std::putchar('\n');
    }
  }
  if (!header) {
    std::printf(" >>>> No header found in %s\n", cdatfl);
    return -1;
  }
  return 0;
}

// The definition's value after "=", read as a constant of the language. The lexer is shared
// with the expression being evaluated, so its state is put back afterwards.
static int header_value(const char *text, StackEntry *e) {
  bool neg = *text == '-', sign = neg || *text == '+';
  if (sign) ++text;
  LexState saved = save_lex();
  char c = *text;
  int tok = std::isdigit(static_cast<unsigned char>(c)) || c == '.' || c == '\'' || c == '"'
                ? (init_lex(text), lexan())
                : TK_ERR;
  int status = 0;
  if (tok == TK_INT) {
    e->type = T_INT;
    e->value.i = neg ? static_cast<int32_t>(0u - static_cast<uint32_t>(vlex.value.i)) : vlex.value.i;
  } else if (tok == TK_FLOAT) {
    e->type = T_DOUBLE;
    e->value.d = neg ? -vlex.value.d : vlex.value.d;
  } else if (tok == TK_STR && !sign) {
    status = var_setstr(e, clexbf);
  } else {
    std::printf(" >>>> Syntax error in record %d (%s)\n", nrecd, cdatfl);
    status = 1;
  }
  restore_lex(saved);
  return status;
}

static std::string upper(std::string s) {
  for (char &c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return s;
}

int datvar(const char *name, StackEntry *e) {
  if (!open_check()) return 1;
  std::string want = upper(name);
  restart();
  bool header = false;
  while (read_rec() && !begins("%DATA")) {
    if (begins("%HEADER")) {
      header = true;
      continue;
    }
    if (!header || crec[0] == '%' || is_comment()) continue;
    // Blanks go, except inside quotes; "//" outside quotes ends the record.
    std::string text;
    char quote = 0;
    for (int i = 0; i < nlen; ++i) {
      char c = crec[i];
      if (quote) {
        text += c;
        if (c == quote) quote = 0;
      } else if (c == '/' && i + 1 < nlen && crec[i + 1] == '/') {
        break;
      } else if (!std::strchr(" \t\r\n", c)) {
        if (c == '\'' || c == '"') quote = c;
        text += c;
      }
    }
    if (text.empty()) continue;
    if (quote || !std::isalpha(static_cast<unsigned char>(text[0]))) {
      std::printf(" >>>> Syntax error in record %d (%s)\n", nrecd, cdatfl);
      continue;
    }
    size_t j = 0;
    while (j < text.size() && (std::isalnum(static_cast<unsigned char>(text[j])) || text[j] == '_'))
      ++j;
    if (j == text.size() || text[j] != '=') {
      std::printf(" >>>> Expected '=' in record %d (%s)\n", nrecd, cdatfl);
      continue;
    }
    if (upper(text.substr(0, j)) == want) return header_value(text.c_str() + j + 1, e);
  }
  if (header) std::printf(" >>>> %s is not defined in %s\n", want.c_str(), cdatfl);
  else std::printf(" >>>> No header found in %s\n", cdatfl);
  return 1;
}

float *get_datray(int col, int *rows, int *cols) {
  if (!open_check()) return nullptr;
  int64_t n = col == 0 ? static_cast<int64_t>(nrows) * ncols : nrows;
  float *data = static_cast<float *>(alloc_result(n, sizeof(float)));
  if (!data) return nullptr;
  if (!find_block()) {
    std::free(data);
    return nullptr;
  }
  // Positions never go beyond the storage, even if the file has changed since it was counted.
  int64_t k = 0;
  auto take = [&](const char *text, int len) {
    char num[DATRECLEN + 1];
    std::memcpy(num, text, len);
    num[len] = '\0';
    int64_t pos = col == 0 ? k : (k % ncols + 1 == col ? k / ncols : -1);
    if (pos >= 0 && pos < n) data[pos] = static_cast<float>(std::atof(num));
    ++k;
  };
  if (next_data_rec() == 1)
    while (next_data_rec() == 1) each_number(false, take);
  *rows = nrows;
  *cols = ncols;
  return data;
}

int datcls() {
  if (!idatfl) return -1;
  std::fclose(fptr);
  fptr = nullptr;
  idatfl = 0;
  return 0;
}
