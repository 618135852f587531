// Image files in and out through Debian's codecs (libpng, libjpeg, libtiff, giflib; BMP and
// the netpbm forms through gdk-pixbuf), SVG through librsvg and PDF pages through poppler.
#pragma once
#include "draw/scene.h"

#include <cairo.h>

#include <string>

enum class FileKind { Missing, Other, PNG, JPEG, TIFF, GIF, BMP, PPM, SVG, PDF, PS, FITS, Directory };

// The kind of a file by its first bytes (SVG: by an <svg element near the start).
FileKind file_kind(const std::string &name);
const char *kind_name(FileKind k);

// Reads a raster image file of any of the kinds above; on failure says why in err.
bool read_image(const std::string &name, RasterImage &img, std::string &err);
// The size in pixels of an image file (vector pictures: their natural size in points).
bool image_size(const std::string &name, int &w, int &h, std::string &err);
// Draws a picture file (raster, SVG or a PDF page) into a new image of w x h pixels.
bool render_picture(const std::string &name, int page, int w, int h, RasterImage &img, std::string &err);

// Writes pixels (Cairo ARGB32, premultiplied) to a file of the given kind.
bool write_image(const std::string &name, FileKind kind, const RasterImage &img, std::string &err);
// PNG bytes of an image: RGB, or RGBA when a pixel is not opaque or when asked.
std::string png_bytes(const RasterImage &img, bool alpha = false);

// Cairo's ARGB32 premultiplied pixel from straight RGBA.
inline uint32_t argb_of(unsigned r, unsigned g, unsigned b, unsigned a) {
  if (a == 255) return 0xFF000000u | (r << 16) | (g << 8) | b;
  r = (r * a + 127) / 255;
  g = (g * a + 127) / 255;
  b = (b * a + 127) / 255;
  return (a << 24) | (r << 16) | (g << 8) | b;
}
// And back: straight r, g, b, a.
void rgba_of(uint32_t p, unsigned &r, unsigned &g, unsigned &b, unsigned &a);

// The image of a Cairo image surface (ARGB32 or RGB24).
RasterImage image_of_surface(cairo_surface_t *s);
