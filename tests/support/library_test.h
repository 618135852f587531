// Helpers shared by the library's picture and grid tests: a temporary working directory with
// the library back at its defaults, and reading the files it writes.
#pragma once
#include "picture_file.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

// Each test runs in a fresh temporary directory with the library closed and reset.
class LibraryTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;
  std::string dir_, old_dir_;
};

// A test that draws one page into a file: open() chooses the format by the file's extension
// and opens the page; finish() writes it and returns its bytes, keeping a copy in the folder
// MIRVAL_TEST_KEEP names (so that a person can look at the pictures).
class PageTest : public LibraryTest {
 protected:
  void open(const std::string &file);
  std::string finish();
  std::string file_;
};

std::string read_file(const std::string &name);
bool file_exists(const std::string &name);
// Fails for each of the parts that the text (say, captured warnings) does not contain.
inline void expect_all_in(const std::string &text, std::initializer_list<const char *> parts) {
  for (const char *p : parts) EXPECT_NE(text.find(p), std::string::npos) << p << " is not in:\n" << text;
}
// How often 'what' stands in 'text', without overlaps.
int count(const std::string &text, const std::string &what);
