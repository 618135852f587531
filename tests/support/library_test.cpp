#include "library_test.h"
#include "mirval.h"

#include <cctype>
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

void PageTest::open(const std::string &file) {
  file_ = file;
  std::string ext = file.substr(file.rfind('.') + 1);
  for (char &c : ext) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  metafl(ext.c_str());
  setfil(file.c_str());
  mirini();
}

std::string PageTest::finish() {
  sendbf();
  const char *keep = std::getenv("MIRVAL_TEST_KEEP");
  if (keep && *keep) {
    const ::testing::TestInfo *t = ::testing::UnitTest::GetInstance()->current_test_info();
    std::string cmd = "cp '" + file_ + "' '" + keep + "/" + t->name() + "-" + file_ + "'";
    EXPECT_EQ(std::system(cmd.c_str()), 0);
  }
  return read_file(file_);
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

