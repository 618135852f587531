// Layout of rich texts: TeX-style formulas between '$' signs (TEXMOD), instruction characters
// that switch alphabets and raise or lower characters (MIXALF), national shift characters
// (EUSHFT), character spacing and stroke fonts. A text becomes a box of glyph runs, bars and
// strokes measured from the left end of its baseline, y upwards, in plot units.
#pragma once
#include <string>
#include <vector>

struct LayGlyph {
  std::string text;   // UTF-8
  int font = 0;       // font table index; for stroke fonts the stroke set (1 simplex, 2 gothic)
  bool strokes = false;
  double size = 0;    // font size (outline) or capital height (strokes), plot units
  double x = 0, y = 0;  // left end of the baseline
};

struct LayBar {       // a filled rectangle: fraction bars, overlines
  double x0 = 0, y0 = 0, x1 = 0, y1 = 0;
};

struct LayLine {      // an open polyline of the given width: root signs, stroke-font glyphs
  std::vector<double> xy;
  double width = 1;
};

struct Layout {
  std::vector<LayGlyph> glyphs;
  std::vector<LayBar> bars;
  std::vector<LayLine> lines;
  double width = 0, ascent = 0, descent = 0;
  // Appends b with its origin at (dx, dy); the box grows to hold it.
  void add(const Layout &b, double dx, double dy);
};

// What the layout needs to know besides the text.
struct LayoutStyle {
  int font = 0;          // upright font of the text
  double height = 36;    // capital height, plot units
  bool tex = false, mix = false;
};

// Whether a text needs more than a plain run in the current settings.
bool rich_text(const std::string &text);
// Lays out a text (one line) with the current settings of MediaState.
Layout layout_text(const std::string &text, const LayoutStyle &style);
// Multi-line texts: lines split at '\n', LINESP apart; line 1 on the baseline.
Layout layout_lines(const std::string &text, const LayoutStyle &style);

// Unicode of a TeX command name such as "alpha" or "leq"; empty when unknown.
std::string tex_symbol(const std::string &name);
// The Greek letter that a Latin letter stands for in the GREEK alphabet (a -> alpha ...).
std::string greek_of(char c);
// The character that 'shift' followed by c gives in a national alphabet; empty if none.
std::string nation_letter(const std::string &nation, char c);
// UTF-8 encoding of one code point.
std::string utf8_of(unsigned cp);
