// Loading the plotting library when the script first needs it. The routines that only record
// something for later (the program's name, files it writes) are kept here until the library
// is there, and the level of a library not yet loaded is 0: asking for it loads nothing.
#include "binding/loader.h"
#include "mirval.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

static void *library = nullptr;
static std::string program;             // the name given to mirlog before loading
static std::vector<std::string> files;  // the names given to gfilnn before loading

template <class F>
static F routine(const char *name) {
  return reinterpret_cast<F>(mirval_routine(name));
}

// The library installed with this program (PREFIX/bin/mirzkl and PREFIX/LIBDIR), else the
// one of the build tree it was built in, else wherever the system finds it. The places are
// spelled out rather than left to the program's run path, which sanitizer builds bypass.
static void *open_library() {
  std::string self(4096, '\0');
  ssize_t n = readlink("/proc/self/exe", &self[0], self.size() - 1);
  self.resize(n > 0 ? n : 0);
  std::string beside = self.substr(0, self.rfind('/') + 1) + MIRVAL_BIN_TO_LIB "/" MIRVAL_SONAME;
  for (const std::string &path : {beside, std::string(MIRVAL_BUILD_DIR "/" MIRVAL_SONAME)})
    if (void *h = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) return h;
  return dlopen(MIRVAL_SONAME, RTLD_NOW | RTLD_LOCAL);
}

static void load() {
  library = open_library();
  if (!library) {
    std::fflush(stdout);
    std::fprintf(stderr, "mirzkl: cannot load the plotting library: %s\n", dlerror());
    std::exit(1);
  }
  if (!program.empty()) routine<decltype(&mirlog)>("mirlog")(program.c_str());
  for (const std::string &f : files) routine<decltype(&gfilnn)>("gfilnn")(f.c_str());
  files.clear();
}

void *mirval_routine(const char *name) {
  if (!library) load();
  void *f = dlsym(library, name);
  if (!f) {
    std::fflush(stdout);
    std::fprintf(stderr, "mirzkl: the plotting library has no routine %s\n", name);
    std::exit(1);
  }
  return f;
}

extern "C" {

// With tracing on, the trace starts with the program's name as before: load at once.
void mirlog(const char *name) {
  if (library) return routine<decltype(&mirlog)>("mirlog")(name);
  program = name ? name : "";
  if (std::getenv("MIRVAL_TRACE")) load();
}

void gfilnn(const char *name) {
  if (library) routine<decltype(&gfilnn)>("gfilnn")(name);
  else if (name) files.emplace_back(name);
}

int getlev(void) { return library ? routine<decltype(&getlev)>("getlev")() : 0; }

}  // extern "C"
