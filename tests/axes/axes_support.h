// Helpers of the axes tests: the texts and strokes of the page (pages are written as PageTest
// writes them).
#pragma once
#include "core/state.h"
#include "library_test.h"

#include <string>
#include <vector>

using AxesTest = PageTest;

const std::vector<Item> &items();
// The text items of the current page, and the first one with this text (null when none).
std::vector<const Item *> texts();
const Item *text_item(const std::string &t);
// The middle of an upright text item along its baseline.
double centre_x(const Item *t);
// Every text of the current page, in order.
std::vector<std::string> text_strings();
// The coordinates of the SVG paths drawn without fill, one list per path.
std::vector<std::vector<double>> svg_stroke_paths(const std::string &svg);
// Standard error of the code run by f.
template <class F>
std::string stderr_of(F f) {
  ::testing::internal::CaptureStderr();
  f();
  return ::testing::internal::GetCapturedStderr();
}
