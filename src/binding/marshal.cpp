// The argument cursor of one library call, and the writing back of its outputs.
#include "binding/marshal.h"

#include "core/error.h"
#include "lang/subscript.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

constexpr int TEXTLEN = 256;  // text outputs without a size: the library writes at most 80

bool Marshal::next(const char *want) {
  size_t n = std::strcspn(code, ",");
  size_t keep = n < sizeof cur - 1 ? n : sizeof cur - 1;
  std::memcpy(cur, code, keep);
  cur[keep] = '\0';
  code += code[n] ? n + 1 : n;
  ++pos;
  return is(want);
}

bool Marshal::is(const char *want) const { return std::strcmp(cur, want) == 0; }

// Remembers what the argument at this position hands the library, for the size rule.
static void note(Marshal &m, long long n) {
  if (m.pos >= 0 && m.pos < MAXPAR) m.given[m.pos] = n;
}

int Marshal::integer() {
  int n = ni < MAXPAR ? ipar[ni++] : 0;
  note(*this, n);
  return n;
}

float Marshal::real() { return nx < MAXPAR ? xpar[nx++] : 0.0f; }

void *Marshal::pointer() {
  note(*this, ns < MAXPAR ? ccnt[ns] : 0);
  return ns < MAXPAR ? cpar[ns++] : nullptr;
}

const char *Marshal::text() {
  long long size = ns < MAXPAR ? cbytes[ns] : 0;
  const char *p = static_cast<const char *>(pointer());
  return p && size > 0 && std::memchr(p, 0, static_cast<size_t>(size)) ? p : "";
}

void *Marshal::bytes() {
  void *p = pointer();
  const VarRecord *r = record();
  bool wide = r->type == T_INTR || r->type == T_FLOATR;  // four bytes an element
  if (p && r->value.p == p && wide) note(*this, 4LL * r->count);
  return p;
}

short *Marshal::shorts() {
  VarRecord *r = record();
  note(*this, r->count);
  return static_cast<short *>(r->value.p);
}

VarRecord *Marshal::record() {
  int p = pos < MAXPAR ? pos : MAXPAR - 1;
  return idxpar[p] >= 0 ? &varlist[idxpar[p]] : &stacklist[p];
}

void Marshal::mismatch() {
  if (!failed) std::printf(" >>>> Binding of %s does not fit its argument codes\n", name);
  failed = true;
}

void Marshal::check_sizes() {
  if (failed || sizes_fit(rule, given, MAXPAR)) return;
  char msg[64];
  std::snprintf(msg, sizeof msg, "Array too small in %s", name);
  error(msg);
  failed = true;
}

// The element count named by the next word of `sizes`: 0 for a scalar, -1 after a report.
static int32_t next_size(const char *&sizes) {
  if (!sizes) return 0;
  while (*sizes == ' ') ++sizes;
  if (!*sizes || *sizes == '-') {
    if (*sizes) ++sizes;
    return 0;
  }
  long long count = 1;
  bool positive = true;
  for (;;) {
    int k = *sizes++ - '0';
    positive = positive && ipar[k] > 0;
    count *= ipar[k];
    if (*sizes != '*') break;
    ++sizes;
  }
  if (!positive || count > INT32_MAX) {
    error("Non positive parameter");
    return -1;
  }
  return static_cast<int32_t>(count);
}

void *Marshal::output(OutKind scalar, OutKind array, int elem) {
  if (failed) return nullptr;  // one report per call
  int32_t count = next_size(sizes);
  if (count < 0 || nout >= MAXPAR) {
    failed = true;
    return nullptr;
  }
  OutArg &o = out[nout++];
  o = OutArg{count ? array : scalar, idxpar[pos < MAXPAR ? pos : MAXPAR - 1], 0, 0, nullptr, count};
  note(*this, 1);
  if (o.kind == OUT_FLOAT) return &o.f;
  if (o.kind == OUT_INT) return &o.i;
  size_t n = o.kind == OUT_TEXT ? static_cast<size_t>(count ? count : TEXTLEN) + 1 : count;
  note(*this, n);
  o.data = my_calloc(n, elem);
  failed = !o.data;
  return o.data;
}

void Marshal::write_back() {
  for (int k = 0; k < nout; ++k) {
    OutArg &o = out[k];
    switch (o.kind) {
      case OUT_FLOAT: store_double(o.var, o.f); break;
      case OUT_INT: store_int(o.var, o.i); break;
      case OUT_TEXT: store_text(o.var, static_cast<char *>(o.data)); break;
      case OUT_FARRAY: case OUT_IARRAY: {
        VarRecord &v = varlist[o.var];
        release_storage(&v);
        v.type = o.kind == OUT_FARRAY ? T_FLOATR : T_INTR;
        v.count = o.count;
        v.ndim = 1;
        v.value.p = o.data;
        o.data = nullptr;
        break;
      }
    }
  }
  discard();
}

void Marshal::discard() {
  for (int k = 0; k < nout; ++k) {
    std::free(out[k].data);
    out[k].data = nullptr;
  }
  nout = 0;
}

void store_double(int var, double value) {
  if (var < 0) return;
  VarRecord &v = varlist[var];
  release_storage(&v);
  v.type = T_DOUBLE;
  v.count = 1;
  v.ndim = 1;
  v.value.d = value;
}

void store_int(int var, int32_t value) {
  if (var < 0) return;
  VarRecord &v = varlist[var];
  // A text or an array holds storage in its value: an integer must not overwrite it.
  if (v.type >= T_STRING) {
    check_varidx(var, T_INT);
    return;
  }
  v.value.i = value;
}

void store_text(int var, const char *text) {
  if (var < 0) return;
  VarRecord &v = varlist[var];
  release_storage(&v);
  v.type = T_INT;  // nothing owned until the text is in place
  v.count = 1;
  v.ndim = 1;
  v.value.i = 0;
  var_setstr(&v, text ? text : "");
}
