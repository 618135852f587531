// Numbers as texts: the fixed-decimals formatter shared by the interpreter and the text
// routines, and the lengths of its results.
#include "mirval.h"
#include "core/trace.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>

namespace {

// More decimals say nothing about a float and would let the text outgrow 80 characters.
constexpr int kMaxDecimals = 30;

// x with ndig decimals; ndig = 0 gives the integer and a point, ndig < 0 the rounded integer.
// Halves round away from zero, and a value that prints as zero carries no minus sign.
std::string number_text(float x, int ndig) {
  double v = x;
  if (!std::isfinite(v)) return std::isnan(v) ? "nan" : (v < 0 ? "-inf" : "inf");
  if (ndig > kMaxDecimals) ndig = kMaxDecimals;
  char buf[80];
  if (ndig <= 0)
    std::snprintf(buf, sizeof buf, ndig == 0 ? "%.0f." : "%.0f", std::round(v));
  else
    std::snprintf(buf, sizeof buf, "%.*f", ndig, v);
  if (buf[0] == '-' && std::strspn(buf + 1, "0.") == std::strlen(buf + 1)) return buf + 1;
  return buf;
}

int copy_out(const std::string &text, char *cstr) {
  if (cstr) std::memcpy(cstr, text.c_str(), text.size() + 1);
  return static_cast<int>(text.size());
}

}  // namespace

extern "C" {

int fcha(float x, int ndig, char *cstr) { return copy_out(number_text(x, ndig), cstr); }

int flen(float x, int ndig) {
  mv_tracef("flen(%g, %d)", static_cast<double>(x), ndig);
  return static_cast<int>(number_text(x, ndig).size());
}

int intcha(int n, char *cstr) {
  mv_tracef("intcha(n=%d, cstr=out)", n);
  return copy_out(std::to_string(n), cstr);
}

int intlen(int n) {
  mv_tracef("intlen(%d)", n);
  return static_cast<int>(std::to_string(n).size());
}

// NaN elements are passed over, so one gap in the data does not spoil a range.
float qqfmin(const float *xray, int n) {
  if (!xray) return 0;
  float m = xray[0];
  for (int i = 1; i < n; ++i) m = std::fmin(m, xray[i]);
  return m;
}

float qqfmax(const float *xray, int n) {
  if (!xray) return 0;
  float m = xray[0];
  for (int i = 1; i < n; ++i) m = std::fmax(m, xray[i]);
  return m;
}

}  // extern "C"
