// Helpers of the grid tests: each test runs in a fresh temporary directory with the library
// closed and reset; pictures can be kept for a person to look at (MIRVAL_GRID_KEEP=dir).
#pragma once
#include <gtest/gtest.h>

#include <string>

class GridTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;
  // Opens a page writing the given file (format from its extension).
  void open(const std::string &file);
  // Writes the file now and copies it to MIRVAL_GRID_KEEP when that is set.
  std::string finish();
  std::string dir_, old_dir_, file_;
};

std::string read_file(const std::string &name);
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
Picture read_png(const std::string &name);
