// Runs a fuzz target on saved inputs (files, or every file of the folders given), without
// the fuzzing engine: the test run replays the corpus of inputs that once failed.
#include <cstdint>
#include <cstdio>
#include <dirent.h>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

static bool replay(const std::string &path) {
  FILE *f = std::fopen(path.c_str(), "rb");
  if (!f) return false;
  std::vector<uint8_t> bytes;
  for (int c; (c = std::fgetc(f)) != EOF;) bytes.push_back(static_cast<uint8_t>(c));
  std::fclose(f);
  std::fprintf(stderr, "replaying %s\n", path.c_str());
  LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
  return true;
}

int main(int argc, char **argv) {
  int count = 0;
  for (int i = 1; i < argc; ++i) {
    std::string arg = argv[i];
    if (DIR *d = opendir(arg.c_str())) {
      std::vector<std::string> names;
      while (dirent *e = readdir(d))
        if (e->d_name[0] != '.') names.push_back(arg + "/" + e->d_name);
      closedir(d);
      for (const auto &n : names) count += replay(n);
    } else if (!replay(arg)) {
      std::fprintf(stderr, "cannot read %s\n", argv[i]);
      return 1;
    }
  }
  std::fprintf(stderr, "%d inputs replayed\n", count);
  return 0;
}
