#include "harness.h"

#include "core/reader.h"
#include "core/session.h"

#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <ftw.h>
#include <sys/stat.h>
#include <unistd.h>

constexpr long BUDGET = 4000;  // statements one input may execute

static std::jmp_buf escape;
static bool running = false;
static long executed = 0;

// Linked with --wrap for these symbols: they see every call the interpreter makes.
extern "C" {
int __real__Z9exec_stmtPKc(const char *text);
void __real__Z11exec_storedi(int k);
[[noreturn]] void __real_exit(int status);
FILE *__real_fopen(const char *path, const char *mode);
int __real_remove(const char *path);
int __real_rename(const char *from, const char *to);

int __wrap__Z9exec_stmtPKc(const char *text) {
  if (running && ++executed > BUDGET) return 0;
  return __real__Z9exec_stmtPKc(text);
}

// Statements replayed from the buffer count too: a loop that never ends must end here.
void __wrap__Z11exec_storedi(int k) {
  if (running && ++executed > BUDGET) return;
  __real__Z11exec_storedi(k);
}

[[noreturn]] void __wrap_exit(int status) {
  if (running) std::longjmp(escape, 1);
  __real_exit(status);
}

int __wrap_system(const char *) { return -1; }

// Scripts write, remove and rename only in the scratch folder; the fuzzing engine writes the
// inputs that fail below FUZZ_OUT, also while a script runs.
static bool engine_path(const char *path) {
  const char *out = std::getenv("FUZZ_OUT");
  return out && *out == '/' && std::strncmp(path, out, std::strlen(out)) == 0 && !std::strstr(path, "..");
}
FILE *__wrap_fopen(const char *path, const char *mode) {
  if (running && std::strpbrk(mode, "wa+") && std::strchr(path, '/') && !engine_path(path)) return nullptr;
  return __real_fopen(path, mode);
}
int __wrap_remove(const char *path) { return running && std::strchr(path, '/') ? -1 : __real_remove(path); }
int __wrap_rename(const char *from, const char *to) {
  return running && (std::strchr(from, '/') || std::strchr(to, '/')) ? -1 : __real_rename(from, to);
}
}

static char scratch[4096];  // the scratch folder's full path, removed when the program ends

static int remove_entry(const char *path, const struct stat *, int, struct FTW *) { return std::remove(path); }

static void remove_scratch() {
  if (chdir("/") == 0) nftw(scratch, remove_entry, 16, FTW_DEPTH | FTW_PHYS);
}

static void enter_scratch() {
  static bool inside = false;
  if (inside) {
    DIR *d = opendir(".");
    while (dirent *e = d ? readdir(d) : nullptr)
      if (e->d_type == DT_REG) unlink(e->d_name);
    if (d) closedir(d);
    return;
  }
  // Deep below a private folder of the working folder: a relative path in a script does not
  // reach out easily.
  char dir[] = "zklfuzz.XXXXXX";
  if (!mkdtemp(dir) || chdir(dir) != 0 || !getcwd(scratch, sizeof scratch)) std::abort();
  std::atexit(remove_scratch);
  for (int i = 0; i < 8; ++i)
    if (mkdir("d", 0700) != 0 || chdir("d") != 0) std::abort();
  inside = true;
}

void run_fuzz_script(std::initializer_list<std::pair<const char *, std::string>> files) {
  enter_scratch();
  for (const auto &[name, text] : files) {
    FILE *f = __real_fopen(name, "wb");
    if (!f) std::abort();
    std::fwrite(text.data(), 1, text.size(), f);
    std::fclose(f);
  }
  std::strcpy(cinp[0], files.begin()->first);
  executed = 0;
  running = true;
  if (setjmp(escape) == 0) {
    if (FILE *script = open_file(files.begin()->first)) run_file(script);
  }
  running = false;
  reset_interp();
}

std::string take_line(const char *&data, size_t &size, const char *drop) {
  std::string line;
  while (size > 0 && *data != '\n') {
    if (*data != '\r' && *data != '\0' && !std::strchr(drop, *data)) line += *data;
    ++data, --size;
  }
  if (size > 0) ++data, --size;
  return line;
}
