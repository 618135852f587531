#include "grid_support.h"
#include "mirval.h"

#include <cctype>
#include <cstdlib>

void GridTest::open(const std::string &file) {
  file_ = file;
  std::string ext = file.substr(file.rfind('.') + 1);
  for (char &c : ext) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  metafl(ext.c_str());
  setfil(file.c_str());
  mirini();
}

std::string GridTest::finish() {
  sendbf();
  const char *keep = std::getenv("MIRVAL_GRID_KEEP");
  if (keep && *keep) {
    const ::testing::TestInfo *t = ::testing::UnitTest::GetInstance()->current_test_info();
    std::string cmd = "cp '" + file_ + "' '" + keep + "/" + t->name() + "-" + file_ + "'";
    EXPECT_EQ(std::system(cmd.c_str()), 0);
  }
  return read_file(file_);
}
