// Helpers shared by the library's picture and grid tests: a temporary working directory with
// the library back at its defaults, and reading the files it writes.
#pragma once
#include <gtest/gtest.h>

#include <string>
#include <vector>

// Each test runs in a fresh temporary directory with the library closed and reset.
class LibraryTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;
  std::string dir_, old_dir_;
};

std::string read_file(const std::string &name);
bool file_exists(const std::string &name);
// How often 'what' stands in 'text', without overlaps.
int count(const std::string &text, const std::string &what);

// A pixel of a PNG file, 0..255 per channel.
struct Pixel {
  int r = 0, g = 0, b = 0;
};
struct Picture {
  int w = 0, h = 0;
  std::vector<Pixel> px;
  Pixel at(int x, int y) const { return px[static_cast<size_t>(y) * w + x]; }
};
// An empty picture when the file is missing or no PNG.
Picture read_png(const std::string &name);
