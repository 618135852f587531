// Helpers of the picture tests: reading SVG strokes and page texts, and comparing pictures.
#pragma once
#include "library_test.h"

#include <string>
#include <vector>

using PictureTest = LibraryTest;

// A stroked path of an SVG file: its points in plot units (the renderer draws strokes in
// plot units and gives the scale as the transform).
struct SvgStroke {
  std::string style;
  std::vector<std::pair<double, double>> pts;
  size_t segments = 0;  // number of 'L' and 'C' commands
};
std::vector<SvgStroke> svg_strokes(const std::string &svg);
// Whether a stroke goes straight from (x0, y0) to (x1, y1), within 0.1 plot units.
bool has_line(const std::vector<SvgStroke> &strokes, double x0, double y0, double x1, double y1);

// Texts of the current page, in drawing order.
std::vector<std::string> page_texts();
// A legend of the first two curves (LEGINI, LEGLIN, LEGEND at position pos) with lines of
// nmaxln characters; returns the lines as LEGLIN left them.
std::string two_line_legend(const char *first, const char *second, int nmaxln, int pos);
