// Helpers shared by the routines of media/: the raster page, its rendered pixels, and
// placing images on the page.
#pragma once
#include "core/state.h"
#include "draw/scene.h"
#include "output/raster_formats.h"

#include <cairo.h>

#include <memory>
#include <string>

// How the page maps onto the raster image of the PNG and other pixel outputs.
struct RasterGeom {
  int w = 0, h = 0;
  double scale = 1, dx = 0, dy = 0;  // pixel = d + plot unit * scale
};
RasterGeom raster_geom();
// The current page rendered at the raster size (kept until the page changes).
const RasterImage &page_pixels();
// The whole file as PNG or PDF bytes, as MIRFIN would write them (PDF: every page).
std::string page_png_bytes();
std::string page_pdf_bytes();
// Places an image on the current page into a box of plot units; 'behind' puts it under
// everything drawn so far.
void place_image(std::shared_ptr<const RasterImage> img, double x0, double y0, double x1, double y1,
                 bool smooth, bool behind = false, float alpha = 1);
// The colour table entry nearest to a colour.
int nearest_colour(unsigned r, unsigned g, unsigned b);
// Checks a text argument: not null and not empty; otherwise warns "no WHAT given".
bool given(const char *routine, const char *c, const char *what);
bool has_file(const char *routine, const char *name);  // given(routine, name, "file name")
// PDF outline entries of PDFMRK and the options of PDFMOD, added to a PDF surface.
void pdf_extras(cairo_surface_t *surface);
// The outline entries as they stand: is there anything to add.
bool pdf_has_extras();
// What PNGMOD, GIFMOD, PSMODE and PSMETA ask of the files this library writes.
std::string png_file(cairo_surface_t *page);
GifOptions gif_options();
// PostScript level and header comments, set on a new PS or EPS surface.
void ps_options(cairo_surface_t *surface);
// PSMODE('PORTRAIT') or ('LANDSCAPE'): whether a page of w x h goes onto the sheet turned.
bool ps_turned(double w, double h);
