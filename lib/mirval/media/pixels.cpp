// Pixels of the raster page: WPIXEL ... RPXROW, the image being made between IMGINI and
// IMGFIN, and the picture handed to the caller as PNG or PDF bytes.
#include "core/keywords.h"
#include "core/messages.h"
#include "core/trace.h"
#include "draw/colours.h"
#include "draw/draw.h"
#include "media/image_io.h"
#include "media/media.h"
#include "mirval.h"
#include "output/device.h"
#include "output/render.h"

#include <cairo-pdf.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <unordered_map>

namespace {

// The image the pixel routines address: the open IMGINI image, or the page's pixel layer
// (made on first use, on top of what is drawn so far).
RasterImage *target(const char *routine, bool writing) {
  MirvalState &st = mirval_state();
  MediaState &m = st.media;
  if (!mv_level(routine, 1, 3)) return nullptr;
  if (m.draft.open) return m.pixels.get();
  if (!writing) return nullptr;  // reading the page: its rendering
  Page &pg = st.scene.pages.empty() ? (st.scene.pages.emplace_back(), st.scene.pages.back()) : st.scene.current();
  bool on_top = m.pixels && !pg.items.empty() && pg.items.back().kind == ItemKind::Image &&
                pg.items.back().image.get() == m.pixels.get();
  if (!on_top) {
    RasterGeom g = raster_geom();
    auto layer = std::make_shared<RasterImage>();
    layer->w = g.w;
    layer->h = g.h;
    layer->smooth = false;
    layer->argb.assign(size_t(g.w) * g.h, 0);
    m.pixels = layer;
    place_image(layer, -g.dx / g.scale, -g.dy / g.scale, (g.w - g.dx) / g.scale, (g.h - g.dy) / g.scale, false);
  }
  return m.pixels.get();
}

bool rgb_mode() { return mirval_state().media.img_fmt == "RGB"; }

// How colour values become pixels: packed RGB or colour table entries, with the IMGTPR entry
// transparent inside an IMGMOD('TRANSPARENT') image. Made once per call, not per pixel.
struct PixelMap {
  bool rgb = rgb_mode();
  int transparent = -1;
  std::array<uint32_t, 256> entry{};
  PixelMap() {
    const MediaState &m = mirval_state().media;
    if (m.draft.open && m.img_mode == "TRANSPARENT") transparent = m.img_tpr;
    for (int k = 0; k < 256 && !rgb; ++k) {
      Rgb c = table_rgb(k);
      entry[k] = argb_of(unsigned(std::lround(c.r * 255)), unsigned(std::lround(c.g * 255)),
                         unsigned(std::lround(c.b * 255)), 255);
    }
  }
  uint32_t operator()(int n) const {
    if (n == transparent) return 0;
    return rgb ? 0xFF000000u | (uint32_t(n) & 0xFFFFFFu) : entry[std::clamp(n, 0, 255)];
  }
};

// And back: the colour value of a pixel; the nearest table entry is searched once per colour.
struct ValueMap {
  bool rgb = rgb_mode();
  int transparent = -1;
  std::unordered_map<uint32_t, int> seen;
  ValueMap() {
    const MediaState &m = mirval_state().media;
    if (m.draft.open) transparent = m.img_tpr;
  }
  int operator()(uint32_t p) {
    unsigned r, g, b, a;
    rgba_of(p, r, g, b, a);
    if (a == 0) {
      if (transparent >= 0) return transparent;
      r = g = b = 255;  // nothing there: the white page
    }
    uint32_t key = (r << 16) | (g << 8) | b;
    if (rgb) return int(key);
    auto hit = seen.find(key);
    return hit != seen.end() ? hit->second : seen[key] = nearest_colour(r, g, b);
  }
};

// What the routines read: the open image or the rendered page (both as large as region_ok
// allows).
const RasterImage &source() {
  const MediaState &m = mirval_state().media;
  return m.draft.open ? *m.pixels : page_pixels();
}

bool region_ok(const char *routine, int ix, int iy, int nw, int nh) {
  if (nw < 1 || nh < 1) {
    mv_warn(routine, "size %d x %d: both must be at least 1", nw, nh);
    return false;
  }
  const MediaState &m = mirval_state().media;
  int w, h;
  if (m.draft.open) {
    w = m.pixels->w;
    h = m.pixels->h;
  } else {
    RasterGeom g = raster_geom();
    w = g.w;
    h = g.h;
  }
  if (ix < 0 || iy < 0 || long(ix) + nw > w || long(iy) + nh > h) {
    mv_warn(routine, "pixels %d..%d x %d..%d lie outside the image of %d x %d", ix, ix + nw - 1, iy, iy + nh - 1, w, h);
    return false;
  }
  return true;
}

void write_block(const char *routine, const unsigned char *iray, int ix, int iy, int nw, int nh) {
  if (!iray) {
    mv_warn(routine, "no array given");
    return;
  }
  if (!mv_level(routine, 1, 3) || !region_ok(routine, ix, iy, nw, nh)) return;
  RasterImage *img = target(routine, true);
  if (!img) return;
  PixelMap map;
  for (int y = 0; y < nh; ++y) {
    uint32_t *row = &img->argb[size_t(iy + y) * img->w + ix];
    const unsigned char *in = iray + size_t(y) * nw * (map.rgb ? 3 : 1);
    for (int x = 0; x < nw; ++x)
      row[x] = map(map.rgb ? (in[3 * x] << 16) | (in[3 * x + 1] << 8) | in[3 * x + 2] : in[x]);
  }
  ++mirval_state().scene.changes;
}

void read_block(const char *routine, unsigned char *iray, int ix, int iy, int nw, int nh) {
  if (!iray) {
    mv_warn(routine, "no array given");
    return;
  }
  if (!mv_level(routine, 1, 3) || !region_ok(routine, ix, iy, nw, nh)) return;
  ValueMap map;
  bool rgb = map.rgb;
  const RasterImage &img = source();
  for (int y = 0; y < nh; ++y)
    for (int x = 0; x < nw; ++x) {
      int v = map(img.argb[size_t(iy + y) * img.w + ix + x]);
      size_t k = size_t(y) * nw + x;
      if (rgb) {
        iray[3 * k] = uint8_t(v >> 16);
        iray[3 * k + 1] = uint8_t(v >> 8);
        iray[3 * k + 2] = uint8_t(v);
      } else {
        iray[k] = uint8_t(v);
      }
    }
}

int hand_over(const char *routine, const std::string &bytes, void *iray, int nmax) {
  if (nmax < 0 || (nmax > 0 && !iray)) {
    mv_warn(routine, "nmax %d needs an array of that many bytes", nmax);
    return 0;
  }
  if (nmax == 0) return static_cast<int>(bytes.size());  // asks for the size
  if (bytes.size() > static_cast<size_t>(nmax)) {
    mv_warn(routine, "the picture needs %zu bytes, the array holds %d", bytes.size(), nmax);
    return -static_cast<int>(std::min(bytes.size(), size_t(2147483647)));
  }
  std::memcpy(iray, bytes.data(), bytes.size());
  return static_cast<int>(bytes.size());
}

}  // namespace

RasterGeom raster_geom() {
  const MirvalState &st = mirval_state();
  RasterGeom g;
  raster_size(g.w, g.h);
  g.scale = std::min(double(g.w) / st.page.width, double(g.h) / st.page.height);
  g.dx = (g.w - st.page.width * g.scale) / 2;
  g.dy = (g.h - st.page.height * g.scale) / 2;
  return g;
}

const RasterImage &page_pixels() {
  MirvalState &st = mirval_state();
  MediaState &m = st.media;
  RasterGeom g = raster_geom();
  if (m.rendered && m.rendered_changes == st.scene.changes && m.rendered->w == g.w && m.rendered->h == g.h &&
      m.rendered_pages == st.scene.pages.size())
    return *m.rendered;
  cairo_surface_t *s = cairo_image_surface_create(CAIRO_FORMAT_RGB24, g.w, g.h);
  cairo_t *cr = cairo_create(s);
  View v;
  v.scale = g.scale;
  v.dx = g.dx;
  v.dy = g.dy;
  v.min_width = 1;
  v.background = back_rgb();
  v.raster = true;
  if (!st.scene.pages.empty()) render_page(cr, st.scene.pages.back(), v);
  else {
    cairo_set_source_rgb(cr, v.background.r, v.background.g, v.background.b);
    cairo_paint(cr);
  }
  cairo_destroy(cr);
  m.rendered = std::make_shared<RasterImage>(image_of_surface(s));
  cairo_surface_destroy(s);
  m.rendered_changes = st.scene.changes;
  m.rendered_pages = st.scene.pages.size();
  return *m.rendered;
}

std::string page_png_bytes() { return png_bytes(page_pixels()); }

std::string page_pdf_bytes() { return vector_file(Format::PDF); }

void place_image(std::shared_ptr<const RasterImage> img, double x0, double y0, double x1, double y1, bool smooth,
                 bool behind, float alpha) {
  MirvalState &st = mirval_state();
  if (!smooth && img->smooth) {
    auto copy = std::make_shared<RasterImage>(*img);
    copy->smooth = false;
    img = copy;
  }
  Item it;
  it.kind = ItemKind::Image;
  it.image = std::move(img);
  it.at = {x0, y0};
  it.end = {x1, y1};
  it.alpha = alpha;
  if (!behind) {
    add_item(it);
    return;
  }
  Scene &sc = st.scene;
  if (sc.pages.empty()) sc.pages.emplace_back();
  sc.current().items.insert(sc.current().items.begin(), std::move(it));
  ++sc.changes;
}

int nearest_colour(unsigned r, unsigned g, unsigned b) {
  table_rgb(0);  // loads the default table on first use
  const auto &t = mirval_state().colours.table;
  int best = 0;
  double bd = 1e30;
  for (int k = 0; k < 256; ++k) {
    double dr = t[k].r * 255 - r, dg = t[k].g * 255 - g, db = t[k].b * 255 - b;
    double d = dr * dr + dg * dg + db * db;
    if (d < bd) {
      bd = d;
      best = k;
    }
  }
  return best;
}

bool given(const char *routine, const char *c, const char *what) {
  if (c && *c) return true;
  mv_warn(routine, "no %s given", what);
  return false;
}

bool has_file(const char *routine, const char *name) { return given(routine, name, "file name"); }

void pdf_extras(cairo_surface_t *surface) {
  const MediaState &m = mirval_state().media;
  auto opt = [&](const char *key) {
    auto it = m.formats.find(key);
    return it == m.formats.end() ? std::string() : it->second;
  };
  std::string title = opt("PDF.TITLE"), author = opt("PDF.AUTHOR"), subject = opt("PDF.SUBJECT");
  if (!title.empty()) cairo_pdf_surface_set_metadata(surface, CAIRO_PDF_METADATA_TITLE, title.c_str());
  if (!author.empty()) cairo_pdf_surface_set_metadata(surface, CAIRO_PDF_METADATA_AUTHOR, author.c_str());
  if (!subject.empty()) cairo_pdf_surface_set_metadata(surface, CAIRO_PDF_METADATA_SUBJECT, subject.c_str());
  std::string version = opt("PDF.VERSION");
  if (version == "1.4") cairo_pdf_surface_restrict_to_version(surface, CAIRO_PDF_VERSION_1_4);
  else if (version == "1.5") cairo_pdf_surface_restrict_to_version(surface, CAIRO_PDF_VERSION_1_5);
  int parent = CAIRO_PDF_OUTLINE_ROOT;
  for (const auto &bm : m.bookmarks) {
    std::string link = "page=" + bm.second;
    bool child = !bm.second.empty() && bm.second.back() == '+';
    if (child) link.pop_back();
    int id = cairo_pdf_surface_add_outline(surface, child ? parent : CAIRO_PDF_OUTLINE_ROOT, bm.first.c_str(),
                                           link.c_str(), CAIRO_PDF_OUTLINE_FLAG_OPEN);
    if (!child) parent = id;
  }
}

bool pdf_has_extras() {
  const MediaState &m = mirval_state().media;
  return !m.bookmarks.empty() || m.formats.count("PDF.TITLE") || m.formats.count("PDF.AUTHOR") ||
         m.formats.count("PDF.SUBJECT") || m.formats.count("PDF.VERSION");
}

extern "C" {

void wpixel(int n1, int n2, int n3) {
  mv_tracef("wpixel(%d, %d, %d)", n1, n2, n3);
  if (!mv_level("wpixel", 1, 3) || !region_ok("wpixel", n1, n2, 1, 1)) return;
  if (!rgb_mode() && (n3 < 0 || n3 > 255)) {
    mv_warn("wpixel", "colour %d lies outside 0..255", n3);
    return;
  }
  RasterImage *img = target("wpixel", true);
  if (!img) return;
  img->argb[size_t(n2) * img->w + n1] = PixelMap()(n3);
  ++mirval_state().scene.changes;
}

void rpixel(int ix, int iy, int *iclr) {
  mv_tracef("rpixel(ix=%d, iy=%d, iclr=out)", ix, iy);
  if (iclr) *iclr = 0;
  if (!iclr) {
    mv_warn("rpixel", "no output given");
    return;
  }
  if (!mv_level("rpixel", 1, 3) || !region_ok("rpixel", ix, iy, 1, 1)) return;
  const RasterImage &img = source();
  *iclr = ValueMap()(img.argb[size_t(iy) * img.w + ix]);
}

void wpixls(const unsigned char *iray, int ix, int iy, int nw, int nh) {
  mv_tracef("wpixls(iray=%s, ix=%d, iy=%d, nw=%d, nh=%d)", mv_tarr(nw * nh, "bytes").c_str(), ix, iy, nw, nh);
  write_block("wpixls", iray, ix, iy, nw, nh);
}

void rpixls(unsigned char *iray, int ix, int iy, int nw, int nh) {
  mv_tracef("rpixls(iray=out, ix=%d, iy=%d, nw=%d, nh=%d)", ix, iy, nw, nh);
  read_block("rpixls", iray, ix, iy, nw, nh);
}

void wpxrow(const unsigned char *iray, int ix, int iy, int n) {
  mv_tracef("wpxrow(iray=%s, ix=%d, iy=%d, n=%d)", mv_tarr(n, "bytes").c_str(), ix, iy, n);
  write_block("wpxrow", iray, ix, iy, n, 1);
}

void rpxrow(unsigned char *iray, int ix, int iy, int n) {
  mv_tracef("rpxrow(iray=out, ix=%d, iy=%d, n=%d)", ix, iy, n);
  read_block("rpxrow", iray, ix, iy, n, 1);
}

void imgsiz(int n1, int n2) {
  mv_tracef("imgsiz(%d, %d)", n1, n2);
  if ((n1 == 0 && n2 == 0) || (in_range("imgsiz", "width", n1, 1, 16384) && in_range("imgsiz", "height", n2, 1, 16384))) {
    mirval_state().media.img_w = n1;
    mirval_state().media.img_h = n2;
  }
}

void imgbox(int n1, int n2, int n3, int n4) {
  mv_tracef("imgbox(%d, %d, %d, %d)", n1, n2, n3, n4);
  if ((n3 == 0 && n4 == 0) || (in_range("imgbox", "width", n3, 1, 100000) && in_range("imgbox", "height", n4, 1, 100000))) {
    int *b = mirval_state().media.img_box;
    b[0] = n1, b[1] = n2, b[2] = n3, b[3] = n4;
  }
}

void imgclp(int n1, int n2, int n3, int n4) {
  mv_tracef("imgclp(%d, %d, %d, %d)", n1, n2, n3, n4);
  if (n1 < 0 || n2 < 0 || n3 < 0 || n4 < 0) {
    mv_warn("imgclp", "the region %d, %d, %d, %d has negative parts", n1, n2, n3, n4);
    return;
  }
  int *b = mirval_state().media.img_clip;
  b[0] = n1, b[1] = n2, b[2] = n3, b[3] = n4;
}

void imgfmt(const char *c) {
  mv_tracef("imgfmt(%s)", mv_tstr(c).c_str());
  if (same(c, "INDEX") || same(c, "RGB")) mirval_state().media.img_fmt = upper(c);
  else mv_warn("imgfmt", "unknown format %s (INDEX or RGB)", mv_tstr(c).c_str());
}

void imgmod(const char *c) {
  mv_tracef("imgmod(%s)", mv_tstr(c).c_str());
  if (same(c, "SOLID") || same(c, "TRANSPARENT")) mirval_state().media.img_mode = upper(c);
  else mv_warn("imgmod", "unknown mode %s (SOLID or TRANSPARENT)", mv_tstr(c).c_str());
}

void imgtpr(int n) {
  mv_tracef("imgtpr(%d)", n);
  if (n < -1 || n > 255) mv_warn("imgtpr", "colour %d lies outside -1..255", n);
  else mirval_state().media.img_tpr = n;
}

void imgini(void) {
  mv_tracef("imgini()");
  if (!mv_level("imgini", 1, 3)) return;
  MirvalState &st = mirval_state();
  MediaState &m = st.media;
  if (m.draft.open) {
    mv_warn("imgini", "an image is already open: IMGFIN ends it first");
    return;
  }
  RasterGeom g = raster_geom();
  ImageDraft d;
  d.open = true;
  if (m.img_box[2] > 0 && m.img_box[3] > 0) {
    d.x0 = m.img_box[0];
    d.y0 = m.img_box[1];
    d.w = m.img_box[2];
    d.h = m.img_box[3];
  } else {
    d.w = st.page.width;
    d.h = st.page.height;
  }
  int pw = m.img_w > 0 ? m.img_w : std::max(1, int(std::lround(d.w * g.scale)));
  int ph = m.img_h > 0 ? m.img_h : std::max(1, int(std::lround(d.h * g.scale)));
  auto img = std::make_shared<RasterImage>();
  img->w = pw;
  img->h = ph;
  img->smooth = false;
  bool clear = m.img_mode == "TRANSPARENT";
  uint32_t bg = 0xFF000000u;
  Rgb b = back_rgb();
  bg |= (uint32_t(std::lround(b.r * 255)) << 16) | (uint32_t(std::lround(b.g * 255)) << 8) | uint32_t(std::lround(b.b * 255));
  img->argb.assign(size_t(pw) * ph, clear ? 0u : bg);
  m.pixels = img;
  m.draft = d;
}

void imgfin(void) {
  mv_tracef("imgfin()");
  MediaState &m = mirval_state().media;
  if (!m.draft.open) {
    mv_warn("imgfin", "no image is open (IMGINI)");
    return;
  }
  std::shared_ptr<RasterImage> img = m.pixels;
  ImageDraft d = m.draft;
  m.draft = ImageDraft{};
  m.pixels.reset();
  if (mirval_state().level < 1) return;
  double x0 = d.x0, y0 = d.y0, x1 = d.x0 + d.w, y1 = d.y0 + d.h;
  const int *c = m.img_clip;
  if (c[2] > 0 && c[3] > 0) {  // keep only that region of the image, at its place in the box
    int cx = std::min(c[0], img->w - 1), cy = std::min(c[1], img->h - 1);
    int cw = std::min(c[2], img->w - cx), ch = std::min(c[3], img->h - cy);
    auto part = std::make_shared<RasterImage>();
    part->w = cw;
    part->h = ch;
    part->smooth = false;
    part->argb.resize(size_t(cw) * ch);
    for (int y = 0; y < ch; ++y)
      std::memcpy(&part->argb[size_t(y) * cw], &img->argb[size_t(cy + y) * img->w + cx], size_t(cw) * 4);
    double sx = d.w / double(img->w), sy = d.h / double(img->h);
    x0 = d.x0 + cx * sx;
    y0 = d.y0 + cy * sy;
    x1 = x0 + cw * sx;
    y1 = y0 + ch * sy;
    img = part;
  }
  place_image(img, x0, y0, x1, y1, false);
}

int rbfpng(void *iray, int nmax) {
  mv_tracef("rbfpng(iray=%s, nmax=%d)", mv_tarr(nmax, "bytes out").c_str(), nmax);
  if (!mv_level("rbfpng", 1, 3)) return 0;
  return hand_over("rbfpng", page_png_bytes(), iray, nmax);
}

int pdfbuf(void *iray, int nmax) {
  mv_tracef("pdfbuf(iray=%s, nmax=%d)", mv_tarr(nmax, "bytes out").c_str(), nmax);
  if (!mv_level("pdfbuf", 1, 3)) return 0;
  return hand_over("pdfbuf", page_pdf_bytes(), iray, nmax);
}

}
