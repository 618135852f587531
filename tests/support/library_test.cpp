#include "library_test.h"
#include "mirval.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

void LibraryTest::SetUp() {
  char buf[4096];
  old_dir_ = getcwd(buf, sizeof buf) ? buf : ".";
  char tmpl[] = "/tmp/mirval-test-XXXXXX";
  ASSERT_NE(mkdtemp(tmpl), nullptr);
  dir_ = tmpl;
  ASSERT_EQ(chdir(dir_.c_str()), 0);
  if (getlev() > 0) mirfin();
  errmod("ALL", "ON");
  reset("ALL");
}

void LibraryTest::TearDown() {
  if (getlev() > 0) mirfin();
  ASSERT_EQ(chdir(old_dir_.c_str()), 0);
  std::string cmd = "rm -rf '" + dir_ + "'";
  ASSERT_EQ(std::system(cmd.c_str()), 0);
}

std::string read_file(const std::string &name) {
  std::ifstream in(name, std::ios::binary);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

bool file_exists(const std::string &name) {
  struct stat st;
  return stat(name.c_str(), &st) == 0;
}

int count(const std::string &text, const std::string &what) {
  int n = 0;
  for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + what.size())) ++n;
  return n;
}

