// Expressions: the input's first line is evaluated over variables of every type and printed.
#include "harness.h"

#include <cstdint>

static const char *const prelude =
    "%ZKL\n"
    "I = 7\nX = 2.5\nD = DOUBLE(1.25)\nS = 'text'\nZ = COMPLEX(1.0, -2.0)\n"
    "C = CHAR(65)\nB = BYTE(3)\nH = SHORT(-4)\n"
    "INT IA[3]\nFLOAT FA[2, 3]\nDOUBLE DA[4]\nCOMPLEX CA[2]\nCHAR CB[8]\nSHORT SA[2]\nBYTE BA[2]\n"
    "CB = 'abc'\nIA = {1, 2, 3}\n";

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const char *p = reinterpret_cast<const char *>(data);
  std::string expr = take_line(p, size);
  run_fuzz_script({{"fuzz.zkl", std::string(prelude) + "R = " + expr + "\nPRINT R\nLIST\n"}});
  return 0;
}
