#include "render.h"
#include "fonts.h"

#include <algorithm>
#include <cmath>

namespace {

void set_path(cairo_t *cr, const Path &p) {
  cairo_new_path(cr);
  size_t k = 0;
  for (SegOp op : p.ops) {
    switch (op) {
      case SegOp::Move: cairo_move_to(cr, p.pts[k].x, p.pts[k].y); ++k; break;
      case SegOp::Line: cairo_line_to(cr, p.pts[k].x, p.pts[k].y); ++k; break;
      case SegOp::Curve:
        cairo_curve_to(cr, p.pts[k].x, p.pts[k].y, p.pts[k + 1].x, p.pts[k + 1].y,
                       p.pts[k + 2].x, p.pts[k + 2].y);
        k += 3;
        break;
      case SegOp::Close: cairo_close_path(cr); break;
    }
  }
}

void set_width(cairo_t *cr, double width, const View &v) {
  cairo_set_line_width(cr, std::max(width, v.min_width / v.scale));
}

// Hatch patterns 1..15: direction of the lines in degrees, their distance in plot units,
// and whether a second set crosses them at right angles.
struct Hatch {
  double angle, gap;
  bool cross;
};
const Hatch hatches[15] = {{45, 30, false},  {135, 30, false}, {45, 30, true},  {0, 30, false},
                           {90, 30, false},  {0, 30, true},    {45, 15, false}, {135, 15, false},
                           {45, 15, true},   {0, 15, false},   {90, 15, false}, {0, 15, true},
                           {45, 60, false},  {135, 60, false}, {45, 60, true}};

void hatch_lines(cairo_t *cr, double angle, double gap, double x0, double y0, double x1, double y1) {
  double cx = (x0 + x1) / 2, cy = (y0 + y1) / 2;
  double r = std::hypot(x1 - x0, y1 - y0) / 2 + gap;
  double a = angle * M_PI / 180, ux = std::cos(a), uy = -std::sin(a);
  for (double d = -std::floor(r / gap) * gap; d <= r; d += gap) {
    double px = cx - uy * d, py = cy + ux * d;
    cairo_move_to(cr, px - ux * r, py - uy * r);
    cairo_line_to(cr, px + ux * r, py + uy * r);
  }
}

void draw_hatch(cairo_t *cr, const Item &it, const View &v) {
  const Hatch &h = hatches[std::clamp(it.hatch, 1, 15) - 1];
  cairo_save(cr);
  set_path(cr, it.path);
  cairo_set_fill_rule(cr, CAIRO_FILL_RULE_EVEN_ODD);
  double x0, y0, x1, y1;
  cairo_path_extents(cr, &x0, &y0, &x1, &y1);
  cairo_clip(cr);
  hatch_lines(cr, h.angle, h.gap, x0, y0, x1, y1);
  if (h.cross) hatch_lines(cr, h.angle + 90, h.gap, x0, y0, x1, y1);
  set_width(cr, it.width, v);
  cairo_stroke(cr);
  cairo_restore(cr);
}

void set_ends(cairo_t *cr, const Item &it) {
  bool round = it.cap == Cap::Round || (it.cap == Cap::Auto && it.dash.empty());
  cairo_set_line_cap(cr, round ? CAIRO_LINE_CAP_ROUND : it.cap == Cap::Long ? CAIRO_LINE_CAP_SQUARE : CAIRO_LINE_CAP_BUTT);
  cairo_set_line_join(cr, it.join == Join::Round   ? CAIRO_LINE_JOIN_ROUND
                          : it.join == Join::Sharp ? CAIRO_LINE_JOIN_MITER
                                                   : CAIRO_LINE_JOIN_BEVEL);
}

void draw_text(cairo_t *cr, const Item &it) {
  cairo_save(cr);
  cairo_translate(cr, it.at.x, it.at.y);
  cairo_rotate(cr, -it.angle * M_PI / 180);
  font_select(cr, it.font, it.size);
  cairo_move_to(cr, 0, 0);
  cairo_show_text(cr, it.text.c_str());
  cairo_restore(cr);
}

}  // namespace

void render_page(cairo_t *cr, const Page &page, const View &v) {
  cairo_save(cr);
  cairo_set_source_rgb(cr, v.background.r, v.background.g, v.background.b);
  cairo_paint(cr);
  cairo_translate(cr, v.dx, v.dy);
  cairo_scale(cr, v.scale, v.scale);
  for (const Item &it : page.items) {
    cairo_set_source_rgb(cr, it.rgb.r, it.rgb.g, it.rgb.b);
    switch (it.kind) {
      case ItemKind::Stroke:
        set_path(cr, it.path);
        set_width(cr, it.width, v);
        cairo_set_dash(cr, it.dash.data(), static_cast<int>(it.dash.size()), 0);
        set_ends(cr, it);
        cairo_stroke(cr);
        break;
      case ItemKind::Fill:
        set_path(cr, it.path);
        cairo_set_fill_rule(cr, CAIRO_FILL_RULE_EVEN_ODD);
        cairo_fill(cr);
        break;
      case ItemKind::Cell:
        // Anti-aliased edges of cells that meet let the background through: pixels are
        // filled crisp, vector files get a hairline outline in the cell's own colour.
        set_path(cr, it.path);
        cairo_set_fill_rule(cr, CAIRO_FILL_RULE_EVEN_ODD);
        if (v.raster) {
          cairo_set_antialias(cr, CAIRO_ANTIALIAS_NONE);
          cairo_fill(cr);
          cairo_set_antialias(cr, CAIRO_ANTIALIAS_DEFAULT);
        } else {
          cairo_fill_preserve(cr);
          set_width(cr, 1, v);
          cairo_set_dash(cr, nullptr, 0, 0);
          cairo_stroke(cr);
        }
        break;
      case ItemKind::Hatch: draw_hatch(cr, it, v); break;
      case ItemKind::Text: draw_text(cr, it); break;
    }
  }
  cairo_restore(cr);
}
