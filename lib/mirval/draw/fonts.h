// Outline fonts found through fontconfig, and text measurement. Every text run refers to
// a font by its index in the font table; the same faces serve measuring and rendering.
#pragma once
#include <cairo.h>

#include <string>
#include <vector>

struct FontChoice {
  std::string family = "DejaVu Sans";
  bool bold = false;
  bool italic = false;
  std::string file;  // a font file given to TTFONT; empty: choose by family
};

struct FontTable {
  std::vector<FontChoice> choices;
  std::vector<cairo_font_face_t *> faces;
  std::vector<double> cap;       // capital height per unit of font size
  cairo_surface_t *scratch = nullptr;
  cairo_t *measure = nullptr;    // a context for measuring only
  FontTable() = default;
  FontTable(const FontTable &) = delete;
  FontTable &operator=(const FontTable &) = delete;
  ~FontTable();
};

// The index of the font in the table, adding it on first use.
int font_index(const FontChoice &choice);
cairo_font_face_t *font_face(int font);
// Selects the font on a context; scale-independent metrics so that all outputs agree.
void font_select(cairo_t *cr, int font, double size);
// The font size whose capital letters are 'height' plot units tall.
double font_size(int font, double height);
// Advance width of a UTF-8 text in plot units.
double text_width(int font, double size, const std::string &text);
// Replaces bytes that are not valid UTF-8 by '?' so that Cairo never refuses a text.
std::string valid_utf8(const std::string &text);
