// Helpers shared by the library's picture and grid tests: a temporary working directory with
// the library back at its defaults, and reading the files it writes.
#pragma once
#include "picture_file.h"

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
