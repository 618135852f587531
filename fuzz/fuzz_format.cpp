// Formatted input and output: the first line is a format, the second the argument list, the
// rest the text that the scan functions read.
#include "harness.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const char *p = reinterpret_cast<const char *>(data);
  std::string format = '"' + take_line(p, size, "\"") + '"';
  std::string args = take_line(p, size);
  if (!args.empty()) args = ", " + args;
  std::string text(p, size);
  std::string call = format + args + ")\n";
  std::string script =
      "%ZKL\nI = 7\nX = 2.5\nD = DOUBLE(1.25)\nS = 'text'\nC = CHAR(65)\nH = SHORT(2)\n"
      "CHAR CB[40]\nINT IA[3]\nFLOAT FA[3]\n"
      "N = PRINTF(" + call + "N = SPRINTF(CB, " + call + "PRINT CB\n"
      "F = FOPEN('in.txt', 'r')\nN = FSCANF(F, " + call + "N = FCLOSE(F)\n"
      "T = FOPEN('in.txt', 'r')\nL = FGETS(CB, 40, T)\nN = SSCANF(CB, " + call +
      "N = SCANF(" + call + "G = FOPEN('out.txt', 'w')\nN = FPRINTF(G, " + call + "LIST\n";
  run_fuzz_script({{"fuzz.zkl", script}, {"in.txt", text}});
  return 0;
}
