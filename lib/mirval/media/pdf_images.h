// Large images in PDF files. Cairo compresses every image stream at zlib's default level,
// which takes most of the time of a picture with a large image; instead Cairo draws a tiny
// stand-in that names the image, and qpdf puts the image in its place, compressed fast.
#pragma once
#include "draw/scene.h"

#include <cairo.h>

#include <map>
#include <string>
#include <vector>

struct PdfImages {
  std::vector<const RasterImage *> images;  // in the order of their numbers
  std::map<const RasterImage *, int> number;
  // A new surface to draw in place of an image worth replacing (2 x 2 pixels that name it),
  // or null: the image is drawn itself.
  cairo_surface_t *stand_in(const RasterImage &img);
  // Puts the images in place of their stand-ins in a finished PDF file; false when that
  // failed, leaving the file as it was.
  bool put_into(std::string &pdf) const;
};
