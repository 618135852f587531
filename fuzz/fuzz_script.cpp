// The reader and the statements: the input is a script after its header record.
#include "harness.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  run_fuzz_script({{"fuzz.zkl", "%ZKL\n" + std::string(reinterpret_cast<const char *>(data), size)}});
  return 0;
}
