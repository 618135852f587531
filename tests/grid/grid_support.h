// Helpers of the grid tests: pictures can be kept for a person to look at (MIRVAL_GRID_KEEP=dir).
#pragma once
#include "library_test.h"

#include <string>

class GridTest : public LibraryTest {
 protected:
  // Opens a page writing the given file (format from its extension).
  void open(const std::string &file);
  // Writes the file now and copies it to MIRVAL_GRID_KEEP when that is set.
  std::string finish();
  std::string file_;
};
