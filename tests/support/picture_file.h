// Reading PNG files and comparing pictures by their ink; shared by the picture tests and the
// gallery check, so it needs nothing but Cairo.
#pragma once
#include <string>
#include <vector>

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

// Compares two RGB pictures of the same size by their ink (pixels darker or more coloured
// than the paper): returns the share of ink pixels of either picture that have no ink
// pixel of the other within 'radius' pixels; 1 when the sizes differ or a file is unreadable.
double ink_mismatch(const std::string &png_a, const std::string &png_b, int radius);
