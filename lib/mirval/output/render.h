// Replays a page of the drawing model through Cairo.
#pragma once
#include "draw/scene.h"

#include <cairo.h>

struct PdfImages;

struct View {
  double scale = 1;        // device units per plot unit
  double dx = 0, dy = 0;   // device offset of the page's upper left corner
  double min_width = 0;    // thinnest line in device units
  Rgb background{1, 1, 1};
  bool raster = false;     // pixels: cells are filled without anti-aliasing
  bool clear = false;      // the background is left clear (pictures laid over others)
  PdfImages *pdf_images = nullptr;  // PDF: large images are drawn as stand-ins noted here
};

void render_page(cairo_t *cr, const Page &page, const View &view);
