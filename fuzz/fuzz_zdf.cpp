// Data files: the input is a ".zdf" file that a script reads in every way.
#include "harness.h"

#include <cstdint>

static const char *const script =
    "%ZKL\n"
    "N = DATFIL('in.zdf')\nN = DATHDR()\nN = DATCNT('ROWS')\nN = DATCNT('COLUMNS')\n"
    "N = DATCNT('BLOCKS')\nA = DATMAT()\nB = DATRAY(1)\nB = DATRAY(2)\nV = DATVAR('X')\n"
    "W = DATVAR('NAME')\nN = DATBLK(2)\nA = DATMAT()\nN = DATBLK(1)\nLIST\nN = DATCLS()\n";

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  run_fuzz_script({{"fuzz.zkl", script}, {"in.zdf", std::string(reinterpret_cast<const char *>(data), size)}});
  return 0;
}
