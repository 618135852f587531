// Converts a true-colour window dump of xwd into PNG (through Cairo); with three more arguments
// R G B (0..255) it prints how many pixels lie within 60 of that colour. The screen tests look
// at windows this way.
#include <cairo.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <vector>

static uint32_t be32(const unsigned char *p) { return uint32_t(p[0]) << 24 | uint32_t(p[1]) << 16 | uint32_t(p[2]) << 8 | p[3]; }

static int shift_of(uint32_t mask) {
  int s = 0;
  while (mask && !(mask & 1)) mask >>= 1, ++s;
  return s;
}

int main(int argc, char **argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: xwd2png IN.xwd OUT.png\n");
    return 2;
  }
  std::ifstream in(argv[1], std::ios::binary);
  std::vector<unsigned char> d((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (d.size() < 100) return std::fprintf(stderr, "xwd2png: short file\n"), 1;
  uint32_t h[25];
  for (int i = 0; i < 25; ++i) h[i] = be32(&d[size_t(i) * 4]);
  uint32_t header = h[0], format = h[2], w = h[4], ht = h[5], order = h[7], bpp = h[11], bpl = h[12];
  uint32_t rmask = h[14], gmask = h[15], bmask = h[16], ncolors = h[19];
  if (format != 2 || (bpp != 32 && bpp != 24) || w == 0 || ht == 0 || w > 10000 || ht > 10000)
    return std::fprintf(stderr, "xwd2png: only true-colour ZPixmap dumps\n"), 1;
  size_t off = header + size_t(ncolors) * 12;
  if (d.size() < off + size_t(bpl) * ht) return std::fprintf(stderr, "xwd2png: truncated\n"), 1;
  cairo_surface_t *s = cairo_image_surface_create(CAIRO_FORMAT_RGB24, int(w), int(ht));
  unsigned char *px = cairo_image_surface_get_data(s);
  int stride = cairo_image_surface_get_stride(s);
  int rs = shift_of(rmask), gs = shift_of(gmask), bs = shift_of(bmask);
  for (uint32_t y = 0; y < ht; ++y)
    for (uint32_t x = 0; x < w; ++x) {
      const unsigned char *p = &d[off + size_t(y) * bpl + size_t(x) * (bpp / 8)];
      uint32_t v = order == 0 ? (uint32_t(p[0]) | uint32_t(p[1]) << 8 | uint32_t(p[2]) << 16 | (bpp == 32 ? uint32_t(p[3]) << 24 : 0))
                              : (bpp == 32 ? be32(p) : uint32_t(p[0]) << 16 | uint32_t(p[1]) << 8 | p[2]);
      uint32_t r = (v & rmask) >> rs, g = (v & gmask) >> gs, b = (v & bmask) >> bs;
      uint32_t out = 0xff000000u | r << 16 | g << 8 | b;
      *reinterpret_cast<uint32_t *>(px + size_t(y) * stride + size_t(x) * 4) = out;
    }
  cairo_surface_mark_dirty(s);
  if (argc >= 6) {
    long want[3] = {std::atol(argv[3]), std::atol(argv[4]), std::atol(argv[5])}, n = 0;
    for (uint32_t y = 0; y < ht; ++y)
      for (uint32_t x = 0; x < w; ++x) {
        uint32_t v = *reinterpret_cast<uint32_t *>(px + size_t(y) * stride + size_t(x) * 4);
        long c[3] = {long(v >> 16 & 255), long(v >> 8 & 255), long(v & 255)};
        if (std::labs(c[0] - want[0]) + std::labs(c[1] - want[1]) + std::labs(c[2] - want[2]) <= 60) ++n;
      }
    std::printf("%ld\n", n);
  }
  int rc = cairo_surface_write_to_png(s, argv[2]) == CAIRO_STATUS_SUCCESS ? 0 : 1;
  cairo_surface_destroy(s);
  return rc;
}
