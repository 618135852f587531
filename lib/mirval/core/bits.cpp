// Bit fields and byte order of integers, for data read from foreign files.
#include "core/messages.h"
#include "mirval.h"
#include "core/trace.h"

#include <algorithm>
#include <cstdint>

namespace {

// Bit positions count from the least significant bit (0); the field must fit both words.
bool valid_field(const char *routine, int width, int nbits, int from, int to) {
  if (nbits < 1 || nbits > width) {
    mv_warn(routine, "nbits = %d must lie in 1..%d", nbits, width);
    return false;
  }
  if (from < 0 || from + nbits > width || to < 0 || to + nbits > width) {
    mv_warn(routine, "bits %d and %d with nbits = %d do not fit %d bits", from, to, nbits, width);
    return false;
  }
  return true;
}

uint32_t transfer(uint32_t out, uint32_t in, int nbits, int from, int to) {
  uint32_t mask = nbits >= 32 ? ~0u : (1u << nbits) - 1;
  return (out & ~(mask << to)) | (((in >> from) & mask) << to);
}

// Reverses the bytes of each of the n integers.
template <typename T>
void swap_bytes(const char *routine, T *iray, int n) {
  if (!iray || n < 0) {
    mv_warn(routine, "no array or n = %d below 0", n);
    return;
  }
  for (int i = 0; i < n; ++i) {
    unsigned char *b = reinterpret_cast<unsigned char *>(iray + i);
    std::reverse(b, b + sizeof(T));
  }
}

}  // namespace

extern "C" {

short bitsi2(int nbits, short mher, int iher, short mhin, int ihin) {
  mv_tracef("bitsi2(%d, %d, %d, %d, %d)", nbits, mher, iher, mhin, ihin);
  if (!valid_field("bitsi2", 16, nbits, iher, ihin)) return mhin;
  return static_cast<short>(transfer(static_cast<uint16_t>(mhin), static_cast<uint16_t>(mher), nbits, iher, ihin));
}

int bitsi4(int nbits, int mher, int iher, int mhin, int ihin) {
  mv_tracef("bitsi4(%d, %d, %d, %d, %d)", nbits, mher, iher, mhin, ihin);
  if (!valid_field("bitsi4", 32, nbits, iher, ihin)) return mhin;
  return static_cast<int>(transfer(static_cast<uint32_t>(mhin), static_cast<uint32_t>(mher), nbits, iher, ihin));
}

void swapi2(short *iray, int n) {
  mv_tracef("swapi2(iray=%s, n=%d)", mv_tarr(n, "shorts").c_str(), n);
  swap_bytes("swapi2", iray, n);
}

void swapi4(int *iray, int n) {
  mv_tracef("swapi4(iray=%s, n=%d)", mv_tarr(n, "ints").c_str(), n);
  swap_bytes("swapi4", iray, n);
}

}  // extern "C"
