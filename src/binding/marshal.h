// Filling the C parameters of one library routine or function from the parameter lists of
// the current call. The C parameter types come from the library's own declarations: each type
// takes its value from the list that its argument code names, so a binding whose declared
// codes and C types disagree cannot pass unnoticed.
#pragma once
#include "binding/call.h"
#include "binding/sizes.h"
#include "lang/value.h"

#include <cstdint>
#include <tuple>

enum OutKind { OUT_FLOAT, OUT_INT, OUT_TEXT, OUT_FARRAY, OUT_IARRAY };

// An output argument: received into `f`, `i` or `data` and written back after the call.
struct OutArg {
  OutKind kind;
  int var;
  float f;
  int32_t i;
  void *data;  // arrays and texts, owned until written back
  int32_t count;
};

struct Marshal {
  const char *name;   // upper-case routine name, for messages
  const char *code;   // declared codes not yet used
  const char *sizes;  // output array sizes, one word per U: "-" scalar, "k" or "k*l" I inputs
  const char *rule;   // what the arrays must hold (sizes.h), or null
  char cur[4] = "";   // the code of the argument being filled
  int pos = -1;       // its position
  int ni = 0, nx = 0, ns = 0;  // entries used of ipar, xpar, cpar
  int nout = 0;
  OutArg out[MAXPAR];
  // What each argument hands the library: the elements of an array, the value of an integer.
  long long given[MAXPAR] = {};
  bool failed = false;

  Marshal(const char *n, const char *c, const char *s = nullptr)
      : name(n), code(c), sizes(s), rule(size_rule(n)) {}
  // Moves to the next argument code; false when it is not `want`.
  bool next(const char *want);
  bool is(const char *want) const;
  int integer();
  float real();
  void *pointer();
  // The next pointer as a text; "" when its storage holds no NUL (an earlier output
  // variable can take a text's place in the list, and the library must not read past it).
  const char *text();
  void *bytes();      // an untyped array: its size counts bytes
  short *shorts();    // a SHORT array, read through the argument
  // The record of the argument at this position (its variable, or the stack entry).
  VarRecord *record();
  // A place for the output at this position; null after a reported failure.
  void *output(OutKind scalar, OutKind array, int elem);
  // Marks a binding whose declared codes and C types disagree.
  void mismatch();
  // Refuses the call, with "Array too small in NAME", when an array is shorter than the rule
  // of the routine asks for.
  void check_sizes();
  // Writes the outputs back into their variables, or drops them after a failure.
  void write_back();
  void discard();
};

template <class T> struct Arg;
template <> struct Arg<int> {
  static int take(Marshal &m) { return m.next("I") ? m.integer() : (m.mismatch(), 0); }
};
template <> struct Arg<float> {
  static float take(Marshal &m) {
    return m.next("X") || m.is("F") ? m.real() : (m.mismatch(), 0.0f);
  }
};
template <> struct Arg<short> {  // SHORT values are read from the argument itself
  static short take(Marshal &m) { return m.next("H") ? m.record()->value.s : (m.mismatch(), 0); }
};
template <> struct Arg<const char *> {
  static const char *take(Marshal &m) {
    return m.next("S") ? m.text() : (m.mismatch(), nullptr);
  }
};
template <> struct Arg<char *> {  // a text output, or a text the routine changes in place
  static char *take(Marshal &m) {
    if (m.next("U")) return static_cast<char *>(m.output(OUT_TEXT, OUT_TEXT, 1));
    if (m.is("S")) return static_cast<char *>(m.pointer());
    if (m.is("V")) return m.record()->value.str;
    m.mismatch();
    return nullptr;
  }
};
template <> struct Arg<const float *> {
  static const float *take(Marshal &m) {
    return m.next("FR") ? static_cast<const float *>(m.pointer()) : (m.mismatch(), nullptr);
  }
};
template <> struct Arg<float *> {
  static float *take(Marshal &m) {
    if (m.next("FR")) return static_cast<float *>(m.pointer());
    if (m.is("U")) return static_cast<float *>(m.output(OUT_FLOAT, OUT_FARRAY, 4));
    m.mismatch();
    return nullptr;
  }
};
template <> struct Arg<const int *> {
  static const int *take(Marshal &m) {
    return m.next("IR") ? static_cast<const int *>(m.pointer()) : (m.mismatch(), nullptr);
  }
};
template <> struct Arg<int *> {
  static int *take(Marshal &m) {
    if (m.next("IR")) return static_cast<int *>(m.pointer());
    if (m.is("U")) return static_cast<int *>(m.output(OUT_INT, OUT_IARRAY, 4));
    m.mismatch();
    return nullptr;
  }
};
template <> struct Arg<const unsigned char *> {
  static const unsigned char *take(Marshal &m) {
    return m.next("BR") ? static_cast<const unsigned char *>(m.pointer()) : (m.mismatch(), nullptr);
  }
};
template <> struct Arg<unsigned char *> {
  static unsigned char *take(Marshal &m) {
    return m.next("BR") ? static_cast<unsigned char *>(m.pointer()) : (m.mismatch(), nullptr);
  }
};
template <> struct Arg<short *> {  // SHORT arrays are not sorted: read through the argument
  static short *take(Marshal &m) {
    return m.next("HR") ? m.shorts() : (m.mismatch(), nullptr);
  }
};
template <> struct Arg<void *> {
  static void *take(Marshal &m) { return m.next("AR") ? m.bytes() : (m.mismatch(), nullptr); }
};
template <> struct Arg<const void *> {
  static const void *take(Marshal &m) { return m.next("AR") ? m.bytes() : (m.mismatch(), nullptr); }
};

// The C arguments of `fn`, taken in order (a braced list is evaluated left to right).
template <class R, class... P>
std::tuple<P...> gather(R (*)(P...), Marshal &m) {
  std::tuple<P...> args{Arg<P>::take(m)...};
  if (*m.code) m.mismatch();  // more declared codes than C parameters
  m.check_sizes();
  return args;
}

// Output values into variables. A float becomes a DOUBLE; an integer goes into the value and
// the variable keeps its type, which must be a scalar one; a text becomes a STRING.
void store_double(int var, double value);
void store_int(int var, int32_t value);
void store_text(int var, const char *text);

// Calls `F` with the arguments of the current call and writes its outputs back; 0 done,
// 1 failed (the routine is not called).
template <auto F>
int plain(Marshal &m) {
  auto args = gather(F, m);
  if (m.failed) {
    m.discard();
    return 1;
  }
  std::apply(F, args);
  m.write_back();
  return 0;
}
