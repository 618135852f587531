// Image files in and out: reading pictures onto the page (RPNG ... RIMAGE, GRFIMG, INCFIL),
// writing the page or a part of it (WIMAGE, WTIFF, EXPIMG), and file facts (FILSIZ, FILTYP).
#include "core/keywords.h"
#include "core/messages.h"
#include "core/reset.h"
#include "core/trace.h"
#include "draw/colours.h"
#include "draw/draw.h"
#include "media/image_io.h"
#include "media/media.h"
#include "mirval.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace {

// RPNG ... RIMAGE: reads an image and puts it on the page with its upper left corner at
// TIFORG, one image pixel to one pixel of the raster page.
void read_onto_page(const char *routine, const char *name, FileKind want) {
  mv_tracef("%s(%s)", routine, mv_tstr(name).c_str());
  if (!mv_level(routine, 1, 3) || !has_file(routine, name)) return;
  FileKind k = file_kind(name);
  if (want != FileKind::Other && k != want && k != FileKind::Missing) {
    mv_warn(routine, "%s is a %s file, not %s", name, kind_name(k), kind_name(want));
    return;
  }
  auto img = std::make_shared<RasterImage>();
  std::string err;
  if (!read_image(name, *img, err)) {
    mv_warn(routine, "cannot read %s: %s", name, err.c_str());
    return;
  }
  img->smooth = false;
  const MediaState &m = mirval_state().media;
  RasterGeom g = raster_geom();
  // TIFORG is in plot coordinates; the pixel grid of the page starts at -d/scale
  double px = std::round(g.dx + m.tiforg_x * g.scale), py = std::round(g.dy + m.tiforg_y * g.scale);
  double x0 = (px - g.dx) / g.scale, y0 = (py - g.dy) / g.scale;
  place_image(img, x0, y0, x0 + img->w / g.scale, y0 + img->h / g.scale, false);
}

// The part of the raster page that WIMAGE and WTIFF write: TIFWIN, or all of it.
RasterImage page_part(const char *routine, bool &ok) {
  const RasterImage &all = page_pixels();
  const int *w = mirval_state().media.tifwin;
  ok = true;
  if (w[2] <= 0 || w[3] <= 0) return all;
  int x0 = std::clamp(w[0], 0, all.w - 1), y0 = std::clamp(w[1], 0, all.h - 1);
  int ww = std::min(w[2], all.w - x0), hh = std::min(w[3], all.h - y0);
  if (ww < 1 || hh < 1) {
    mv_warn(routine, "the TIFWIN window lies outside the page");
    ok = false;
    return RasterImage{};
  }
  RasterImage part;
  part.w = ww;
  part.h = hh;
  part.argb.resize(size_t(ww) * hh);
  for (int y = 0; y < hh; ++y)
    std::memcpy(&part.argb[size_t(y) * ww], &all.argb[size_t(y0 + y) * all.w + x0], size_t(ww) * 4);
  return part;
}

FileKind kind_of_word(const char *c) {
  if (same(c, "PNG")) return FileKind::PNG;
  if (same(c, "TIFF") || same(c, "TIF")) return FileKind::TIFF;
  if (same(c, "GIF")) return FileKind::GIF;
  if (same(c, "BMP")) return FileKind::BMP;
  if (same(c, "PPM")) return FileKind::PPM;
  if (same(c, "JPEG") || same(c, "JPG")) return FileKind::JPEG;
  return FileKind::Other;
}

FileKind kind_of_name(const std::string &name) {
  size_t dot = name.rfind('.'), slash = name.rfind('/');
  if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) return FileKind::PNG;
  FileKind k = kind_of_word(name.c_str() + dot + 1);
  return k == FileKind::Other ? FileKind::PNG : k;
}

void write_page(const char *routine, const char *name, FileKind kind) {
  if (!mv_level(routine, 1, 3) || !has_file(routine, name)) return;
  bool ok;
  RasterImage img = page_part(routine, ok);
  if (!ok) return;
  std::string err;
  if (!write_image(name, kind, img, err)) mv_warn(routine, "cannot write %s: %s", name, err.c_str());
}

bool near_page(const char *routine, int n1, int n2) {
  if (std::abs(n1) <= 100000 && std::abs(n2) <= 100000) return true;
  mv_warn(routine, "position %d, %d lies far outside the page", n1, n2);
  return false;
}

// TIFWIN, FILBOX and FILWIN: a box, or 0 size for all; a window of pixels starts at 0, 0.
void set_box(const char *routine, int *box, bool window, int n1, int n2, int n3, int n4) {
  mv_tracef("%s(%d, %d, %d, %d)", routine, n1, n2, n3, n4);
  if (window && (n1 < 0 || n2 < 0)) {
    mv_warn(routine, "the window starts at %d, %d: pixels count from 0", n1, n2);
    return;
  }
  if (n3 == 0 && n4 == 0) {
    box[0] = n1, box[1] = n2, box[2] = 0, box[3] = 0;
    return;
  }
  if (!in_range(routine, "width", n3, 1, 100000) || !in_range(routine, "height", n4, 1, 100000) ||
      !near_page(routine, n1, n2))
    return;
  box[0] = n1, box[1] = n2, box[2] = n3, box[3] = n4;
}

// Grey or black and white forms of placed pictures (FILCLR).
void recolour(RasterImage &img, const std::string &mode) {
  if (mode == "COLOR") return;
  for (uint32_t &p : img.argb) {
    unsigned r, g, b, a;
    rgba_of(p, r, g, b, a);
    unsigned y = (299 * r + 587 * g + 114 * b + 500) / 1000;
    if (mode == "BW") y = y >= 128 ? 255 : 0;
    p = argb_of(y, y, y, a);
  }
}

}  // namespace

void media_reset_images(MirvalState &st) {
  restore<&MirvalState::media, &MediaState::tiforg_x, &MediaState::tiforg_y, &MediaState::tifwin,
          &MediaState::img_w, &MediaState::img_h, &MediaState::img_box, &MediaState::img_clip,
          &MediaState::img_fmt, &MediaState::img_mode, &MediaState::img_tpr, &MediaState::fil_box,
          &MediaState::fil_win, &MediaState::fil_clr, &MediaState::fil_opt>(st);
}

extern "C" {

void rpng(const char *c) { read_onto_page("rpng", c, FileKind::PNG); }
void rppm(const char *c) { read_onto_page("rppm", c, FileKind::PPM); }
void rtiff(const char *c) { read_onto_page("rtiff", c, FileKind::TIFF); }
void rgif(const char *c) { read_onto_page("rgif", c, FileKind::GIF); }
void rbmp(const char *c) { read_onto_page("rbmp", c, FileKind::BMP); }
void rimage(const char *c) { read_onto_page("rimage", c, FileKind::Other); }

void wimage(const char *c) {
  mv_tracef("wimage(%s)", mv_tstr(c).c_str());
  write_page("wimage", c, c ? kind_of_name(c) : FileKind::PNG);
}

void wtiff(const char *c) {
  mv_tracef("wtiff(%s)", mv_tstr(c).c_str());
  write_page("wtiff", c, FileKind::TIFF);
}

void expimg(const char *c1, const char *c2) {
  mv_tracef("expimg(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  FileKind k = kind_of_word(c2);
  if (k == FileKind::Other) {
    mv_warn("expimg", "unknown format %s (PNG, TIFF, GIF, BMP, PPM or JPEG)", mv_tstr(c2).c_str());
    return;
  }
  write_page("expimg", c1, k);
}

void tiforg(int n1, int n2) {
  mv_tracef("tiforg(%d, %d)", n1, n2);
  if (!near_page("tiforg", n1, n2)) return;
  mirval_state().media.tiforg_x = n1;
  mirval_state().media.tiforg_y = n2;
}

void tifwin(int n1, int n2, int n3, int n4) { set_box("tifwin", mirval_state().media.tifwin, true, n1, n2, n3, n4); }

void grfimg(const char *c) {
  mv_tracef("grfimg(%s)", mv_tstr(c).c_str());
  if (!mv_level("grfimg", 2, 2) || !has_file("grfimg", c)) return;
  const Rect &b = mirval_state().axes.box;
  RasterGeom g = raster_geom();
  int w = std::max(1, int(std::lround((b.x1 - b.x0) * g.scale * 2)));
  int h = std::max(1, int(std::lround((b.y1 - b.y0) * g.scale * 2)));
  auto img = std::make_shared<RasterImage>();
  std::string err;
  if (!render_picture(c, 1, std::min(w, 8192), std::min(h, 8192), *img, err)) {
    mv_warn("grfimg", "cannot read %s: %s", c, err.c_str());
    return;
  }
  // behind the axis system: under everything drawn so far on the page
  place_image(img, b.x0, b.y0, b.x1, b.y1, true, true);
}

// A texture: a smooth random pattern of colour table entries 1..254, the same every time.
void txture(int *itmat, int nx, int ny) {
  mv_tracef("txture(itmat=%s, nx=%d, ny=%d)", mv_tarr(nx * ny, "ints out").c_str(), nx, ny);
  if (!itmat || nx < 1 || ny < 1 || long(nx) * ny > (1L << 26)) {
    mv_warn("txture", "size %d x %d: both must be at least 1, and an array given", nx, ny);
    return;
  }
  // value noise on a coarse lattice, interpolated smoothly, over four octaves
  auto lattice = [](int i, int j) {
    unsigned h = unsigned(i) * 374761393u + unsigned(j) * 668265263u;
    h = (h ^ (h >> 13)) * 1274126177u;
    return double((h ^ (h >> 16)) & 0xFFFF) / 65535.0;
  };
  auto smooth = [&](double x, double y) {
    int i = int(std::floor(x)), j = int(std::floor(y));
    double fx = x - i, fy = y - j;
    fx = fx * fx * (3 - 2 * fx);
    fy = fy * fy * (3 - 2 * fy);
    double a = lattice(i, j), b = lattice(i + 1, j), c = lattice(i, j + 1), d = lattice(i + 1, j + 1);
    return (a * (1 - fx) + b * fx) * (1 - fy) + (c * (1 - fx) + d * fx) * fy;
  };
  double cell = std::max(4.0, std::min(nx, ny) / 6.0);
  for (int y = 0; y < ny; ++y)
    for (int x = 0; x < nx; ++x) {
      double v = 0, amp = 0.5, f = 1 / cell, sum = 0;
      for (int o = 0; o < 4; ++o) {
        v += amp * smooth(x * f, y * f);
        sum += amp;
        amp /= 2;
        f *= 2;
      }
      itmat[size_t(y) * nx + x] = 1 + int(std::lround(v / sum * 253));
    }
}

void filbox(int n1, int n2, int n3, int n4) { set_box("filbox", mirval_state().media.fil_box, false, n1, n2, n3, n4); }
void filwin(int n1, int n2, int n3, int n4) { set_box("filwin", mirval_state().media.fil_win, true, n1, n2, n3, n4); }

void filclr(const char *c) {
  mv_tracef("filclr(%s)", mv_tstr(c).c_str());
  if (same(c, "COLOR") || same(c, "COLOUR")) mirval_state().media.fil_clr = "COLOR";
  else if (same(c, "GREY") || same(c, "GRAY")) mirval_state().media.fil_clr = "GREY";
  else if (same(c, "BW")) mirval_state().media.fil_clr = "BW";
  else mv_warn("filclr", "unknown mode %s (COLOR, GREY or BW)", mv_tstr(c).c_str());
}

// FILOPT(value, key): 'ASPECT' ON/OFF keeps the picture's proportions (default ON),
// 'PAGE' n the page of a PDF file, 'FRAME' n a frame of n plot units around the box.
void filopt(const char *c1, const char *c2) {
  mv_tracef("filopt(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  MediaState &m = mirval_state().media;
  if (same(c2, "ASPECT")) {
    if (same(c1, "ON") || same(c1, "OFF")) m.fil_opt["ASPECT"] = upper(c1);
    else mv_warn("filopt", "ASPECT takes ON or OFF, not %s", mv_tstr(c1).c_str());
  } else if (same(c2, "PAGE") || same(c2, "FRAME")) {
    char *end = nullptr;
    long n = c1 ? std::strtol(c1, &end, 10) : -1;
    if (!c1 || end == c1 || *end || n < (same(c2, "PAGE") ? 1 : 0) || n > 10000)
      mv_warn("filopt", "%s takes a number, not %s", upper(c2).c_str(), mv_tstr(c1).c_str());
    else
      m.fil_opt[upper(c2)] = std::to_string(n);
  } else {
    mv_warn("filopt", "unknown option %s (ASPECT, PAGE or FRAME)", mv_tstr(c2).c_str());
  }
}

void incfil(const char *c) {
  mv_tracef("incfil(%s)", mv_tstr(c).c_str());
  if (!mv_level("incfil", 1, 3) || !has_file("incfil", c)) return;
  MirvalState &st = mirval_state();
  const MediaState &m = st.media;
  double bx, by, bw, bh;
  if (m.fil_box[2] > 0 && m.fil_box[3] > 0) {
    bx = m.fil_box[0], by = page_y(m.fil_box[1]), bw = m.fil_box[2], bh = m.fil_box[3];
    if (st.page.bottom) by -= bh;
  } else if (st.level >= 2) {
    bx = st.axes.box.x0, by = st.axes.box.y0, bw = st.axes.box.x1 - st.axes.box.x0, bh = st.axes.box.y1 - st.axes.box.y0;
  } else {
    bx = 0, by = 0, bw = st.page.width, bh = st.page.height;
  }
  int nw = 0, nh = 0;
  std::string err;
  if (!image_size(c, nw, nh, err)) {
    mv_warn("incfil", "cannot read %s: %s", c, err.c_str());
    return;
  }
  auto opt = [&](const char *k, const char *d) {
    auto it = m.fil_opt.find(k);
    return it == m.fil_opt.end() ? std::string(d) : it->second;
  };
  // the window of the picture, in its own pixels
  double wx = 0, wy = 0, ww = nw, wh = nh;
  if (m.fil_win[2] > 0 && m.fil_win[3] > 0) {
    wx = std::min<double>(m.fil_win[0], nw - 1);
    wy = std::min<double>(m.fil_win[1], nh - 1);
    ww = std::min<double>(m.fil_win[2], nw - wx);
    wh = std::min<double>(m.fil_win[3], nh - wy);
  }
  double x0 = bx, y0 = by, w = bw, h = bh;
  if (opt("ASPECT", "ON") == "ON") {  // the largest box of the picture's proportions, centred
    double k = std::min(bw / ww, bh / wh);
    w = ww * k;
    h = wh * k;
    x0 = bx + (bw - w) / 2;
    y0 = by + (bh - h) / 2;
  }
  RasterGeom g = raster_geom();
  // drawn finer than the raster page so that vector outputs stay sharp
  double px_per_unit = std::max(g.scale * 2, 0.6);
  double full_w = w * nw / ww * px_per_unit, full_h = h * nh / wh * px_per_unit;
  double shrink = std::min(1.0, 8192.0 / std::max(full_w, full_h));
  int rw = std::max(1, int(std::lround(full_w * shrink))), rh = std::max(1, int(std::lround(full_h * shrink)));
  RasterImage whole;
  if (!render_picture(c, std::atoi(opt("PAGE", "1").c_str()), rw, rh, whole, err)) {
    mv_warn("incfil", "cannot draw %s: %s", c, err.c_str());
    return;
  }
  auto part = std::make_shared<RasterImage>();
  int cx = int(std::lround(wx / nw * rw)), cy = int(std::lround(wy / nh * rh));
  part->w = std::max(1, std::min(rw - cx, int(std::lround(ww / nw * rw))));
  part->h = std::max(1, std::min(rh - cy, int(std::lround(wh / nh * rh))));
  part->argb.resize(size_t(part->w) * part->h);
  for (int y = 0; y < part->h; ++y)
    std::memcpy(&part->argb[size_t(y) * part->w], &whole.argb[size_t(cy + y) * rw + cx], size_t(part->w) * 4);
  recolour(*part, m.fil_clr);
  place_image(part, x0, y0, x0 + w, y0 + h, true);
  int frame = std::atoi(opt("FRAME", "0").c_str());
  if (frame > 0) stroke_path(rect_path(x0, y0, x0 + w, y0 + h), pen_rgb(), frame, {});
}

// The pixels of an image file as entries of the colour table 0..ncolor-1, rows from the top;
// returns the number of pixels (width x height), or -1.
int ldimg(const char *cfil, short *iray, int nmax, int ncolor) {
  mv_tracef("ldimg(cfil=%s, iray=%s, nmax=%d, ncolor=%d)", mv_tstr(cfil).c_str(), mv_tarr(nmax, "shorts out").c_str(), nmax, ncolor);
  if (!has_file("ldimg", cfil)) return -1;
  if (!iray || nmax < 1) {
    mv_warn("ldimg", "nmax %d: an array of at least 1 element is needed", nmax);
    return -1;
  }
  if (ncolor < 2 || ncolor > 256) {
    mv_warn("ldimg", "ncolor %d lies outside 2..256", ncolor);
    return -1;
  }
  RasterImage img;
  std::string err;
  if (!read_image(cfil, img, err)) {
    mv_warn("ldimg", "cannot read %s: %s", cfil, err.c_str());
    return -1;
  }
  long n = long(img.w) * img.h;
  if (n > nmax) {
    mv_warn("ldimg", "the image has %ld pixels, the array holds %d", n, nmax);
    return -1;
  }
  table_rgb(0);  // loads the default table on first use
  const auto &t = mirval_state().colours.table;
  for (long i = 0; i < n; ++i) {
    unsigned r, g, b, a;
    rgba_of(img.argb[i], r, g, b, a);
    int best = 0;
    double bd = 1e30;
    for (int k = 0; k < ncolor; ++k) {
      double dr = t[k].r * 255 - r, dg = t[k].g * 255 - g, db = t[k].b * 255 - b;
      double d = dr * dr + dg * dg + db * db;
      if (d < bd) bd = d, best = k;
    }
    iray[i] = short(best);
  }
  return int(n);
}

int filsiz(const char *cfil, int *nw, int *nh) {
  mv_tracef("filsiz(cfil=%s, nw=out, nh=out)", mv_tstr(cfil).c_str());
  if (nw) *nw = 0;
  if (nh) *nh = 0;
  if (!has_file("filsiz", cfil)) return -1;
  int w, h;
  std::string err;
  if (!image_size(cfil, w, h, err)) {
    mv_warn("filsiz", "cannot read %s: %s", cfil, err.c_str());
    return -1;
  }
  if (nw) *nw = w;
  if (nh) *nh = h;
  return 0;
}

int filtyp(const char *c) {
  mv_tracef("filtyp(%s)", mv_tstr(c).c_str());
  if (!has_file("filtyp", c)) return -1;
  switch (file_kind(c)) {
    case FileKind::Missing: return -1;
    case FileKind::Other: return 0;
    case FileKind::PNG: return 1;
    case FileKind::JPEG: return 2;
    case FileKind::TIFF: return 3;
    case FileKind::GIF: return 4;
    case FileKind::BMP: return 5;
    case FileKind::PPM: return 6;
    case FileKind::SVG: return 7;
    case FileKind::PDF: return 8;
    case FileKind::PS: return 9;
    case FileKind::FITS: return 10;
    case FileKind::Directory: return 11;
  }
  return 0;
}

}
