// The trace: one line per public call. MIRVAL_TRACE is set before any test runs, because
// the library opens the trace once, at its first traced call.
#include "mirval.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

const fs::path trace_file = [] {
  fs::path p = fs::temp_directory_path() / ("mirval-trace-" + std::to_string(getpid()) + ".txt");
  setenv("MIRVAL_TRACE", p.c_str(), 1);
  return p;
}();

class RemoveTraceFile : public testing::Environment {
  void TearDown() override { fs::remove(trace_file); }
};
testing::Environment *const remove_trace = testing::AddGlobalTestEnvironment(new RemoveTraceFile);

std::vector<std::string> lines_of(const fs::path &file) {
  std::ifstream in(file);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

// The trace lines written since the last call.
std::vector<std::string> new_lines() {
  static size_t seen = 0;
  std::vector<std::string> all = lines_of(trace_file);
  std::vector<std::string> fresh(all.begin() + std::min(seen, all.size()), all.end());
  seen = all.size();
  return fresh;
}

}  // namespace

TEST(Trace, ArraysScalarsAndTexts) {
  new_lines();
  float x[100] = {}, y[100] = {};
  metafl("PNG");
  graf(0, 10, 0, 2, -1, 1, -1, 0.5f);
  curve(x, y, 100);
  EXPECT_EQ(new_lines(), (std::vector<std::string>{"metafl(\"PNG\")", "graf(0, 10, 0, 2, -1, 1, -1, 0.5)",
                                                   "curve(x=[100 floats], y=[100 floats], n=100)"}));
}

TEST(Trace, OutputsAndNullTexts) {
  new_lines();
  float xp, yp;
  char buf[81];
  abs3pt(1, 2, 3, &xp, &yp);
  intcha(42, buf);
  titlin(nullptr, 1);
  EXPECT_EQ(new_lines(), (std::vector<std::string>{"abs3pt(x=1, y=2, z=3, xp=out, yp=out)",
                                                   "intcha(n=42, cstr=out)", "titlin(NULL, 1)"}));
}

TEST(Trace, HelpersWorkingForTheInterpreterStayQuiet) {
  new_lines();
  char buf[81] = "abc";
  upstr(buf);
  fcha(1.5f, 1, buf);
  trmlen(buf);
  getlev();
  float a[] = {1, 2};
  sortr1(a, 2, "A");
  EXPECT_EQ(new_lines(), (std::vector<std::string>{"sortr1(xray=[2 floats], n=2, copt=\"A\")"}));
}

// mirval_call_all calls every routine and function once and names each traced call on
// standard output; the trace must show the same calls in the same order. It runs without a
// display, in a directory of its own for the files it writes; leaks are left to the tests of
// the single routines (font caches outlive the program by design).
TEST(Trace, EveryRoutineOnceInOrder) {
  fs::path dir = fs::temp_directory_path() / ("mirval-call-all-" + std::to_string(getpid()));
  fs::create_directories(dir);
  fs::path trace = dir / "trace.txt";
  std::string cmd = "cd '" + dir.string() + "' && env -u DISPLAY ASAN_OPTIONS=detect_leaks=0 MIRVAL_TRACE='" + trace.string() + "' '" +
                    MIRVAL_CALL_ALL + "' 2>stderr.txt";
  FILE *p = popen(cmd.c_str(), "r");
  ASSERT_NE(p, nullptr);
  std::vector<std::string> names;
  char line[256];
  while (std::fgets(line, sizeof line, p)) names.emplace_back(line, std::strcspn(line, "\n"));
  EXPECT_EQ(pclose(p), 0) << "see " << (dir / "stderr.txt");
  // every table routine and function but upstr, getlev and fcha, and mirlog and gfilnn
  EXPECT_EQ(names.size(), 794u);
  std::vector<std::string> traced = lines_of(trace);
  // routines that call others (the one-call plots) trace those calls too, after their own line
  ASSERT_GE(traced.size(), names.size());
  size_t j = 0;
  for (size_t i = 0; i < names.size(); ++i, ++j) {
    while (j < traced.size() && traced[j].rfind(names[i] + "(", 0) != 0) ++j;
    ASSERT_LT(j, traced.size()) << "call " << i << ": " << names[i] << " not traced in order";
  }
  fs::remove_all(dir);
}
