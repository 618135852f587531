// The standard functions: table, dispatcher and the helpers their workers share.
#pragma once
#include <cstddef>
#include <cstdint>

#include "lang/value.h"

constexpr int NSTDF = 94;

struct StdfRow {
  const char *name;
  const char *sig;
  int8_t opt;  // argument-passing flag 0, 1 or 2
};

extern const StdfRow stdf[NSTDF];

// Function numbers: positions in the table.
enum StdfNo {
  F_ABS, F_ARG, F_ARGCNT, F_ATONUM, F_BYTE, F_CATARR, F_CHAR, F_CLOCK, F_COMPLEX, F_CONJG,
  F_DALLOC, F_DATBLK, F_DATCNT, F_DATE, F_DATCLS, F_DATFIL, F_DATHDR, F_DATMAT, F_DATRAY,
  F_DATVAR, F_DOUBLE, F_FALLOC, F_FCLOSE, F_FEOF, F_FGETC, F_FGETS, F_FFLUSH, F_FLOAT, F_FOPEN,
  F_FPRINTF, F_FPUTC, F_FPUTS, F_FREAD, F_FSCANF, F_FSEEK, F_FTELL, F_FWRITE, F_GETARG,
  F_GETENV, F_GETPID, F_GETS, F_IALLOC, F_IMAG, F_INQUIRE, F_INT, F_KEYCNT, F_MAXARR, F_MINARR,
  F_NUMTOA, F_PRINTF, F_PUTS, F_RAND, F_REMOVE, F_RENAME, F_REWIND, F_SCANF, F_SHORT,
  F_SPRINTF, F_SRAND, F_SSCANF, F_STRING, F_STRLEN, F_STRLWR, F_STRREP, F_STRSTR, F_STRUPR,
  F_SUBARR, F_SUBMAT, F_SUBSTR, F_SYSTEM, F_TIME, F_TRMLEN, F_TRPMAT, F_VARCNT, F_VARDEF,
  F_VARDIM, F_VARTYP,
  F_ACOS, F_ASIN, F_ATAN, F_ATAN2, F_CEIL, F_COS, F_COSH, F_EXP, F_FLOOR, F_FMOD, F_LOG,
  F_LOG10, F_SIN, F_SINH, F_SQRT, F_TAN, F_TANH,
};

// The most storage one standard function builds for a result (DALLOC, STRREP, ...); beyond it
// the storage counts as not to be had.
constexpr size_t MAXRESULT = size_t{1} << 30;

// Replaces the argument entries from `base` to the top of the stack by the function's result.
int push_stdf(int number, int base);

// The record an argument stands for: the variable of a reference, else the entry itself.
// `type` receives its type code. None, after "Undefined identifier", for an unknown name.
VarRecord *get_varptr(int index, int *type);
// Element size for raw transfers: BYTE array 1, INT and FLOAT arrays 4, DOUBLE array 8, else 0.
int get_varbytes(int type);
// The text of a STRING or CHAR array record; none (after a message) for a CHAR array
// without its NUL, none without a message for any other type.
const char *get_text(const VarRecord *rec);
// Replaces the entries from `base` up by one INT.
void put_int(int base, int32_t value);
// Storage for `n` elements of `size` bytes, zero-filled; none after "Not enough memory" when
// n is negative or the size exceeds MAXRESULT.
void *alloc_result(int64_t n, size_t size);

double clock_stdf();
