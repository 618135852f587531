// Writes the stand-ins through which mirzkl reaches the plotting library: one C function for
// every routine declared in mirval.h, with the routine's own prototype, that finds the real
// routine in the library (loaded on the first call) and passes its arguments on. Routines
// named after the output file are left out: the program defines those itself.
// Usage: stubgen mirval.h OUT.cpp [NAME...]
#include <cctype>
#include <fstream>
#include <iostream>
#include <set>
#include <sstream>
#include <string>

// The identifier that ends `text` (a parameter's or routine's name).
static std::string last_name(const std::string &text) {
  size_t end = text.find_last_not_of(" \t");
  if (end == std::string::npos) return "";
  size_t begin = end + 1;
  while (begin > 0 && (std::isalnum(static_cast<unsigned char>(text[begin - 1])) || text[begin - 1] == '_'))
    --begin;
  return text.substr(begin, end + 1 - begin);
}

int main(int argc, char **argv) {
  if (argc < 3) {
    std::cerr << "usage: stubgen mirval.h OUT.cpp [NAME...]\n";
    return 2;
  }
  std::ifstream in(argv[1]);
  if (!in) {
    std::cerr << "stubgen: cannot read " << argv[1] << "\n";
    return 1;
  }
  std::set<std::string> own(argv + 3, argv + argc);
  std::ostringstream out;
  out << "// Made by stubgen from mirval.h at build time: do not edit.\n"
         "#include \"binding/loader.h\"\n#include \"mirval.h\"\n\nextern \"C\" {\n";
  int count = 0;
  std::string line;
  while (std::getline(in, line)) {
    // Declarations start in the first column with a lower-case type; typedefs are skipped.
    if (line.empty() || !std::islower(static_cast<unsigned char>(line[0])) || line.rfind("typedef", 0) == 0)
      continue;
    size_t open = line.find('('), close = line.find(");");
    if (open == std::string::npos || close == std::string::npos || close < open) continue;
    std::string name = last_name(line.substr(0, open));
    if (name.empty() || own.count(name)) continue;
    std::string args, params = line.substr(open + 1, close - open - 1);
    if (params != "void") {
      std::istringstream parts(params);
      std::string part;
      while (std::getline(parts, part, ',')) args += (args.empty() ? "" : ", ") + last_name(part);
    }
    out << line.substr(0, close + 1) << " {\n  static const auto f = reinterpret_cast<decltype(&" << name
        << ")>(mirval_routine(\"" << name << "\"));\n  return f(" << args << ");\n}\n";
    ++count;
  }
  out << "}  // extern \"C\"\n";
  if (count == 0) {
    std::cerr << "stubgen: no routines found in " << argv[1] << "\n";
    return 1;
  }
  std::ofstream(argv[2]) << out.str();
  return 0;
}
