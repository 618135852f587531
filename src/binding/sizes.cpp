// The size rules of the routines and functions that take arrays with counts, and their check.
#include "binding/sizes.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

struct SizeRow {
  const char *name;
  const char *rule;
};

// A rule is one or more clauses separated by blanks. A clause "LIST>=NEED" says that each
// argument of LIST (argument numbers from 1, separated by commas) must hold at least NEED
// elements; NEED is a product of factors joined by "*", each the value of the integer
// argument it numbers, or "#k" for a fixed count k. "1,2>=3" is curve(x, y, n); "5>=2*4" is the
// nx * ny matrix of conshd. Elements count in the C type of the argument (bytes for the
// untyped buffers of READFL and the like). A clause with a factor below 1 is skipped: the
// library warns about such a count itself. Outputs that the binding allocates are named too,
// which keeps their allocation to the routine's contract. Rows with checks of their own
// (CSRMOV, CSRPOL, CSRPTS, RPIXLS, RPXROW, the legend and item lists) have no rule; nor do
// arrays without a count (SWGCB) or whose size the library does not define (WGIMG and the
// other widget images). Sorted by name.
const SizeRow rows[] = {
    {"AREAF", "1,2>=3"},
    {"BARS", "1,2,3>=4"},
    {"BARS3D", "1,2,3,4,5,6,7>=8"},
    {"BEZIER", "1,2>=3 4,5>=6"},
    {"COLRAY", "1,2>=3"},
    {"CONCLR", "1>=2"},
    {"CONCRV", "1,2>=3"},
    {"CONFLL", "1,2,3>=4 5,6,7>=8 9>=10"},
    {"CONMAT", "1>=2*3"},
    {"CONPTS", "1>=2 3>=4 5>=2*4 7,8>=9 10>=11"},
    {"CONSHD", "1>=2 3>=4 5>=2*4 6>=7"},
    {"CONSHD2", "1,2,3>=4*5 6>=7"},
    {"CONSHD3D", "1>=2 3>=4 5>=2*4 6>=7"},
    {"CONTRI", "1,2,3>=4 5,6,7>=8"},
    {"CONTUR", "1>=2 3>=4 5>=2*4"},
    {"CONTUR2", "1,2,3>=4*5"},
    {"CRVMAT", "1>=2*3"},
    {"CRVQDR", "1,2,3>=4"},
    {"CRVT3D", "1,2,3,4,5>=6"},
    {"CRVTRI", "1,2,3>=4 5,6,7>=8"},
    {"CURV3D", "1,2,3>=4"},
    {"CURV4D", "1,2,3,4>=5"},
    {"CURVE", "1,2>=3"},
    {"CURVE3", "1,2,3>=4"},
    {"CURVMP", "1,2>=3"},
    {"CURVX3", "1,3>=4"},
    {"CURVY3", "2,3>=4"},
    {"ERRBAR", "1,2,3,4>=5"},
    {"FBARS", "1,2,3,4,5>=6"},
    {"FIELD", "1,2,3,4>=5"},
    {"FIELD3D", "1,2,3,4,5,6>=7"},
    {"FITSIMG", "1>=2"},
    {"GETMAT", "1,2,3>=4 5,9,10>=6*7"},
    {"GRAFR", "1,2>=3"},
    {"GWGTBL", "2>=3"},
    {"HISTOG", "1,3,4>=2"},
    {"INTUTF", "1>=2"},
    {"ISOPTS", "1>=2 3>=4 5>=6 7>=2*4*6 9,10,11>=12"},
    {"LDIMG", "2>=3"},
    {"LEGSEL", "1>=2"},
    {"LICPTS", "1,2,5,6,7>=3*4"},
    {"LINCLR", "1>=2"},
    {"LINFIT", "1,2>=3"},
    {"MYLINE", "1>=2"},
    {"MYSYMB", "1,2>=3"},
    {"MYVLT", "1,2,3>=4"},
    {"PDFBUF", "1>=2"},
    {"PIECLR", "1,2>=3"},
    {"PIEGRF", "3>=4"},
    {"POLCLP", "1,2>=3 4,5>=6"},
    {"QPLBAR", "1>=2"},
    {"QPLCLR", "1>=2*3"},
    {"QPLCON", "1>=2*3"},
    {"QPLCRV", "1,2>=3"},
    {"QPLOT", "1,2>=3"},
    {"QPLPIE", "1>=2"},
    {"QPLSCA", "1,2>=3"},
    {"QPLSUR", "1>=2*3"},
    {"RBFPNG", "1>=2"},
    {"READFL", "2>=3"},
    {"RLAREA", "1,2>=3"},
    {"SETSCL", "1>=2"},
    {"SHDAFR", "1,3>=4"},  // the second array is copied, as far as it goes
    {"SHDASI", "1,3>=4"},
    {"SHDAUS", "1,3>=4"},
    {"SHDCRV", "1,2>=3 4,5>=6"},
    {"SHDEUR", "1,3>=4"},
    {"SHDNOR", "1,3>=4"},
    {"SHDSOU", "1,3>=4"},
    {"SHDUSA", "1,3>=4"},
    {"SHLPOL", "1,2>=3"},
    {"SORTR1", "1>=2"},
    {"SORTR2", "1,2>=3"},
    {"SPLINE", "1,2,4,5>=3"},
    {"STMPTS", "1,2>=3*4 5>=3 6>=4 9,10>=11"},
    {"STMPTS3D", "1,2,3>=4*5*6 7>=4 8>=5 9>=6 13,14,15>=16"},
    {"STMTRI", "1,2,3,4>=5 6,7,8>=9 10,11>=12"},
    {"STREAM", "1,2>=3*4 5>=3 6>=4 7,8>=9"},
    {"STREAM3D", "1,2,3>=4*5*6 7>=4 8>=5 9>=6 10,11,12>=13"},
    {"SURFCE", "1>=2 3>=4 5>=2*4"},
    {"SURISO", "1>=2 3>=4 5>=6 7>=2*4*6"},
    {"SURMAT", "1>=2*3"},
    {"SURSHC", "1>=2 3>=4 5,6>=2*4"},
    {"SURSHD", "1>=2 3>=4 5>=2*4"},
    {"SURTRI", "1,2,3>=4 5,6,7>=8"},
    {"SWAPI2", "1>=2"},
    {"SWAPI4", "1>=2"},
    {"SWGRAY", "1>=2"},
    {"SWGTBL", "2>=3"},
    {"TRFCO1", "1>=2"},
    {"TRFCO2", "1,2>=3"},
    {"TRFCO3", "1,2,3>=4"},
    {"TRFMAT", "1>=2*3 4>=5*6"},
    {"TRFREL", "1,2>=3"},
    {"TRIA3D", "1,2,3>=#3"},
    {"TRIANG", "1,2>=3 4,5,6>=7"},
    {"TRIFLC", "1,2,3>=4"},
    {"TRIFLL", "1,2>=#3"},
    {"TRIPTS", "1,2,3>=4 5,6,7>=8 10,11>=12 13>=14"},
    {"TXTURE", "1>=2*3"},
    {"UTFINT", "2>=3"},
    {"VECF3D", "1,2,3,4,5,6>=7"},
    {"VECFLD", "1,2,3,4>=5"},
    {"VECMAT", "1,2>=3*4 5>=3 6>=4"},
    {"VECMAT3D", "1,2,3>=4*5*6 7>=4 8>=5 9>=6"},
    {"VTX3D", "1,2,3>=4"},
    {"VTXC3D", "1,2,3,4>=5"},
    {"VTXN3D", "1,2,3,4,5,6>=7"},
    {"WPIXLS", "1>=4*5"},
    {"WPXROW", "1>=4"},
    {"WRITFL", "2>=3"},
    {"ZBFTRI", "1,2,3,4>=#3"},
};

long long number(const char *&p) {
  long long n = 0;
  while (*p >= '0' && *p <= '9') n = n * 10 + (*p++ - '0');
  return n;
}

// What argument `k` (from 1) gives; 0 for a number outside the call.
long long given_at(long long k, const long long *given, int nargs) {
  return k >= 1 && k <= nargs ? given[k - 1] : 0;
}

// The elements a clause needs: the product of its factors, 0 when one is below 1. No array
// holds more than INT32_MAX elements, so the product stops growing there.
long long need(const char *&p, const long long *given, int nargs) {
  long long n = 1;
  do {
    bool fixed = *p == '#';
    if (fixed) ++p;
    long long f = fixed ? number(p) : given_at(number(p), given, nargs);
    n = f < 1 ? 0 : std::min(n * f, INT32_MAX + 1LL);
  } while (*p == '*' && *++p);
  return n;
}

}  // namespace

const char *size_rule(const char *name) {
  auto less = [](const SizeRow &row, const char *key) { return std::strcmp(row.name, key) < 0; };
  const SizeRow *end = rows + sizeof rows / sizeof *rows;
  const SizeRow *row = std::lower_bound(rows, end, name, less);
  return row != end && std::strcmp(row->name, name) == 0 ? row->rule : nullptr;
}

bool sizes_fit(const char *rule, const long long *given, int nargs) {
  for (const char *p = rule ? rule : ""; *p; p += std::strspn(p, " ")) {
    const char *list = p;
    p += std::strcspn(p, ">");
    p += std::strspn(p, ">=");
    long long n = need(p, given, nargs);
    while (n > 0 && *list >= '0' && *list <= '9') {
      if (given_at(number(list), given, nargs) < n) return false;
      if (*list == ',') ++list;
    }
    p += std::strcspn(p, " ");
  }
  return true;
}
