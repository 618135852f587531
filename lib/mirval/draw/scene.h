// The drawing model: every page is a list of items in page coordinates (plot units, origin at
// the upper left corner, y downwards). Routines append items; every output replays them
// through Cairo, so a file can be written again complete at any time.
#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

struct Rgb {
  float r = 0, g = 0, b = 0;
};

struct Pt {
  double x = 0, y = 0;
};

enum class SegOp : uint8_t { Move, Line, Curve, Close };

// Move/line/curve path; a Curve segment uses three points (two controls and the end).
struct Path {
  std::vector<SegOp> ops;
  std::vector<Pt> pts;
  void move(Pt p);
  void line(Pt p);
  void curve(Pt c1, Pt c2, Pt p);
  void close();
  bool empty() const { return ops.empty(); }
};

// Pixels placed on the page: image files, pictures of the depth buffer, textures. Cairo's
// ARGB32 layout (premultiplied alpha, one uint32_t a pixel, rows top to bottom).
struct RasterImage {
  int w = 0, h = 0;
  std::vector<uint32_t> argb;
  bool smooth = true;         // interpolate when scaled; false keeps pixels square
};

// Cell: a fill that meets its neighbours edge to edge (surface cells): drawn without seams.
enum class ItemKind : uint8_t { Stroke, Fill, Cell, Hatch, Text, Image };
// Line ends: Auto is round for solid lines and cut for dashes.
enum class Cap : uint8_t { Auto, Round, Cut, Long };
enum class Join : uint8_t { Round, Sharp, Trunc };

struct Item {
  ItemKind kind = ItemKind::Stroke;
  Rgb rgb;
  float alpha = 1;            // opacity of every kind, 0..1
  Path path;                  // Stroke, Fill, Hatch
  double width = 1;           // Stroke and Hatch lines, plot units
  std::vector<double> dash;   // Stroke
  Cap cap = Cap::Auto;        // Stroke
  Join join = Join::Round;    // Stroke
  int hatch = 0;              // Hatch pattern 1..15, or 17 the user's (MYPAT) below
  float hatch_angle = 0, hatch_gap = 0;  // pattern 17: direction (degrees) and distance of lines
  bool hatch_cross = false;   // pattern 17: a second set of lines at right angles
  // Text: the run starts on its baseline at 'at', rotated by 'angle' degrees counter-clockwise
  std::string text;
  int font = 0;               // index into the font table (fonts.h)
  double size = 0;            // font size in plot units
  Pt at;
  double angle = 0;
  double slant = 0;           // Text: letters leaned by this many degrees (CHAANG)
  double stretch = 1;         // Text: widths scaled by this factor (CHAWTH)
  // Image: 'image' fills the rectangle from 'at' (upper left) to 'end' (lower right)
  std::shared_ptr<const RasterImage> image;
  Pt end;
};

struct Page {
  std::vector<Item> items;
};

struct Scene {
  std::vector<Page> pages;    // NEWPAG starts another one
  Page &current() { return pages.back(); }
  // Counts every change, so that a file already written with the same picture (SENDBF, then
  // the end of the program) is not rendered again.
  unsigned long changes = 0;
  unsigned long written = ~0ul;  // `changes` when the file was last written
  int written_w = 0, written_h = 0;
};
