#include "plots_support.h"
#include "mirval.h"

#include <cctype>
#include <cstdlib>

void PlotsTest::open(const std::string &file) {
  file_ = file;
  std::string ext = file.substr(file.rfind('.') + 1);
  for (char &c : ext) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  metafl(ext.c_str());
  setfil(file.c_str());
  mirini();
}

std::string PlotsTest::finish() {
  sendbf();
  const char *keep = std::getenv("MIRVAL_PLOTS_KEEP");
  if (keep && *keep) {
    const ::testing::TestInfo *t = ::testing::UnitTest::GetInstance()->current_test_info();
    std::string cmd = "cp '" + file_ + "' '" + keep + "/" + t->name() + "-" + file_ + "'";
    EXPECT_EQ(std::system(cmd.c_str()), 0);
  }
  return read_file(file_);
}

std::vector<const Item *> PlotsTest::items(ItemKind kind) const {
  std::vector<const Item *> out;
  for (const Item &it : mirval_state().scene.current().items)
    if (it.kind == kind) out.push_back(&it);
  return out;
}

std::vector<std::string> PlotsTest::texts() const {
  std::vector<std::string> out;
  for (const Item *it : items(ItemKind::Text)) out.push_back(it->text);
  return out;
}
