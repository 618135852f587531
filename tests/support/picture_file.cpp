#include "picture_file.h"

#include <cairo.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

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

namespace {

struct Ink {
  int w = 0, h = 0;
  std::vector<char> on;
};

Ink ink_of(const std::string &png) {
  Picture p = read_png(png);
  Ink ink{p.w, p.h, {}};
  for (const Pixel &px : p.px) ink.on.push_back(std::min({px.r, px.g, px.b}) < 160);
  return ink;
}

// Share of the ink of a that has no ink of b nearby.
double unmatched(const Ink &a, const Ink &b, int radius) {
  long total = 0, lost = 0;
  for (int y = 0; y < a.h; ++y)
    for (int x = 0; x < a.w; ++x) {
      if (!a.on[y * a.w + x]) continue;
      ++total;
      bool found = false;
      for (int dy = -radius; dy <= radius && !found; ++dy)
        for (int dx = -radius; dx <= radius && !found; ++dx) {
          int u = x + dx, v = y + dy;
          found = u >= 0 && v >= 0 && u < b.w && v < b.h && b.on[v * b.w + u];
        }
      lost += !found;
    }
  return total ? double(lost) / total : 0;
}

}  // namespace

double ink_mismatch(const std::string &png_a, const std::string &png_b, int radius) {
  Ink a = ink_of(png_a), b = ink_of(png_b);
  if (a.w == 0 || a.w != b.w || a.h != b.h) return 1;
  return std::max(unmatched(a, b, radius), unmatched(b, a, radius));
}
