// Image files encoded from the rendered pixels: PPM, BMP, uncompressed TIFF and GIF.
// PNG goes through Cairo; these formats are written here so that all share one rendering.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

struct Pixels {
  int w = 0, h = 0;
  std::vector<uint8_t> rgb;  // 3 bytes per pixel, rows from the top
};

std::string encode_ppm(const Pixels &px);
std::string encode_bmp(const Pixels &px);
std::string encode_tiff(const Pixels &px);
// GIFMOD's options: the colour (0xRRGGBB) that is transparent, or -1; rows interlaced.
struct GifOptions {
  long transparent = -1;
  bool interlace = false;
};
std::string encode_gif(const Pixels &px, const GifOptions &opt = GifOptions());

// GIF's 256-colour reduction: the exact colours when there are at most 256 of them,
// otherwise a 6x6x6 colour cube and 40 greys. Returns the palette and one index per pixel.
struct Indexed {
  std::vector<uint8_t> palette;  // 3 bytes per entry, 256 entries
  std::vector<uint8_t> index;
};
Indexed quantise(const Pixels &px);
// GIF's variable-width LZW with 8-bit symbols, as the bytes of the image data (without the
// leading code size and the sub-block framing).
std::vector<uint8_t> lzw_encode(const std::vector<uint8_t> &symbols);
