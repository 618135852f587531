#include "output/render.h"
#include "draw/fonts.h"
#include "core/state.h"
#include "media/pdf_images.h"

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

// Line width in device units. In pixels a line is a whole number of them, and thin lines
// grow by a pixel per plot unit of width until the page's own scale makes them wider, so
// that LINWID(2) or THKCRV(2) is visibly thicker than a default line at any raster size.
double device_width(double width, const View &v) {
  double w = std::max(width * v.scale, v.min_width);
  if (!v.raster) return w;
  w = std::max(w, std::min(width, 1 / v.scale) * v.min_width);
  return std::max(1.0, std::round(w));
}

void set_width(cairo_t *cr, double width, const View &v) {
  cairo_set_line_width(cr, device_width(width, v) / v.scale);
}

// Horizontal and vertical segments of a raster stroke are moved onto the pixel grid, so that
// a line of n pixels covers exactly n rows or columns in the pen colour instead of smearing
// into half-grey neighbours. Diagonal segments and curves keep their positions.
Path snapped(const Path &p, double px_width, const View &v) {
  Path out = p;
  size_t n = p.pts.size();
  if (p.ops.size() != n) return out;  // curves or closes: leave the path as it is
  auto grid = [&](double c, double off) {
    double d = c * v.scale + off;
    double s = static_cast<long>(px_width) % 2 ? std::floor(d) + 0.5 : std::round(d);
    return (s - off) / v.scale;
  };
  for (size_t i = 1; i < n; ++i) {
    if (p.ops[i] != SegOp::Line) continue;
    const Pt &a = p.pts[i - 1], &b = p.pts[i];
    if (a.y == b.y) out.pts[i - 1].y = out.pts[i].y = grid(a.y, v.dy);
    else if (a.x == b.x) out.pts[i - 1].x = out.pts[i].x = grid(a.x, v.dx);
  }
  return out;
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
  Hatch h = it.hatch == 17 ? Hatch{it.hatch_angle, it.hatch_gap, it.hatch_cross} : hatches[std::clamp(it.hatch, 1, 15) - 1];
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
  if (it.slant != 0 || it.stretch != 1) {
    cairo_matrix_t m;
    cairo_matrix_init(&m, it.stretch, 0, -std::tan(it.slant * M_PI / 180), 1, 0, 0);
    cairo_transform(cr, &m);
  }
  font_select(cr, it.font, it.size);
  cairo_move_to(cr, 0, 0);
  cairo_show_text(cr, it.text.c_str());
  cairo_restore(cr);
}

}  // namespace

void draw_image(cairo_t *cr, const Item &it, const View &v) {
  const RasterImage &im = *it.image;
  if (im.w <= 0 || im.h <= 0 || im.argb.size() < static_cast<size_t>(im.w) * im.h) return;
  cairo_surface_t *s = v.pdf_images ? v.pdf_images->stand_in(im) : nullptr;
  int w = s ? cairo_image_surface_get_width(s) : im.w, h = s ? cairo_image_surface_get_height(s) : im.h;
  if (!s)
    s = cairo_image_surface_create_for_data(reinterpret_cast<unsigned char *>(const_cast<uint32_t *>(im.argb.data())),
                                            CAIRO_FORMAT_ARGB32, im.w, im.h, im.w * 4);
  cairo_save(cr);
  cairo_translate(cr, it.at.x, it.at.y);
  cairo_scale(cr, (it.end.x - it.at.x) / w, (it.end.y - it.at.y) / h);
  cairo_set_source_surface(cr, s, 0, 0);
  cairo_pattern_set_filter(cairo_get_source(cr), im.smooth ? CAIRO_FILTER_GOOD : CAIRO_FILTER_NEAREST);
  // Padding keeps scaled edges from fading on raster pages; vector files would get a padded
  // copy of the whole image instead, so there the image goes in as it is.
  cairo_surface_type_t t = cairo_surface_get_type(cairo_get_target(cr));
  bool vector = t == CAIRO_SURFACE_TYPE_PDF || t == CAIRO_SURFACE_TYPE_PS || t == CAIRO_SURFACE_TYPE_SVG;
  cairo_pattern_set_extend(cairo_get_source(cr), vector ? CAIRO_EXTEND_NONE : CAIRO_EXTEND_PAD);
  cairo_rectangle(cr, 0, 0, w, h);
  cairo_clip(cr);
  cairo_paint_with_alpha(cr, it.alpha);
  cairo_restore(cr);
  cairo_surface_destroy(s);
}

void render_page(cairo_t *cr, const Page &page, const View &v) {
  cairo_save(cr);
  cairo_set_source_rgb(cr, v.background.r, v.background.g, v.background.b);
  if (!v.clear) cairo_paint(cr);
  cairo_translate(cr, v.dx, v.dy);
  cairo_scale(cr, v.scale, v.scale);
  // the modes of LINMOD, POLMOD and CLRMOD hold for the whole picture
  const ChartState &mode = mirval_state().chart;
  for (const Item &it : page.items) {
    Rgb c = it.rgb;
    if (mode.grey) c.r = c.g = c.b = 0.299f * c.r + 0.587f * c.g + 0.114f * c.b;
    cairo_set_source_rgba(cr, c.r, c.g, c.b, it.alpha);
    switch (it.kind) {
      case ItemKind::Stroke:
        set_path(cr, v.raster ? snapped(it.path, device_width(it.width, v), v) : it.path);
        set_width(cr, it.width, v);
        cairo_set_dash(cr, it.dash.data(), static_cast<int>(it.dash.size()), 0);
        set_ends(cr, it);
        if (v.raster && !mode.smooth) cairo_set_antialias(cr, CAIRO_ANTIALIAS_NONE);
        cairo_stroke(cr);
        cairo_set_antialias(cr, CAIRO_ANTIALIAS_DEFAULT);
        break;
      case ItemKind::Fill:
        set_path(cr, it.path);
        cairo_set_fill_rule(cr, mode.winding ? CAIRO_FILL_RULE_WINDING : CAIRO_FILL_RULE_EVEN_ODD);
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
      case ItemKind::Image:
        if (it.image) draw_image(cr, it, v);
        break;
    }
  }
  cairo_restore(cr);
}
