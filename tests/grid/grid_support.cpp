#include "grid_support.h"
#include "mirval.h"

#include <cairo.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <unistd.h>

void GridTest::SetUp() {
  char buf[4096];
  old_dir_ = getcwd(buf, sizeof buf) ? buf : ".";
  char tmpl[] = "/tmp/mirval-grid-XXXXXX";
  ASSERT_NE(mkdtemp(tmpl), nullptr);
  dir_ = tmpl;
  ASSERT_EQ(chdir(dir_.c_str()), 0);
  if (getlev() > 0) mirfin();
  errmod("ALL", "ON");
  reset("ALL");
}

void GridTest::TearDown() {
  if (getlev() > 0) mirfin();
  ASSERT_EQ(chdir(old_dir_.c_str()), 0);
  std::string cmd = "rm -rf '" + dir_ + "'";
  ASSERT_EQ(std::system(cmd.c_str()), 0);
}

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

std::string read_file(const std::string &name) {
  std::ifstream in(name, std::ios::binary);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

int count(const std::string &text, const std::string &what) {
  int n = 0;
  for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + what.size())) ++n;
  return n;
}

Picture read_png(const std::string &name) {
  Picture p;
  cairo_surface_t *s = cairo_image_surface_create_from_png(name.c_str());
  if (cairo_surface_status(s) == CAIRO_STATUS_SUCCESS) {
    p.w = cairo_image_surface_get_width(s);
    p.h = cairo_image_surface_get_height(s);
    int stride = cairo_image_surface_get_stride(s);
    const unsigned char *data = cairo_image_surface_get_data(s);
    for (int y = 0; y < p.h; ++y)
      for (int x = 0; x < p.w; ++x) {
        uint32_t v;
        std::memcpy(&v, data + y * stride + 4 * x, 4);
        p.px.push_back({int((v >> 16) & 255), int((v >> 8) & 255), int(v & 255)});
      }
  }
  cairo_surface_destroy(s);
  return p;
}
