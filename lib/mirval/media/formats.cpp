// Settings of output formats and devices. Those of formats this library writes take effect
// (PNG, GIF, TIFF, PDF, PS); those of formats it does not write (CGM, WMF, HPGL, hardware
// plotters) are kept under their names, so that a script that sets them runs unchanged.
#include "core/keywords.h"
#include "core/messages.h"
#include "core/reset.h"
#include "core/state.h"
#include "core/trace.h"
#include "draw/draw.h"
#include "media/image_io.h"
#include "media/media.h"
#include "mirval.h"
#include "output/device.h"

#include <cairo-ps.h>

#include <cstring>

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

void keep(const char *format, const char *key, const std::string &value) {
  mirval_state().media.formats[std::string(format) + "." + key] = value;
}

bool one_of(const char *c, std::initializer_list<const char *> words) { return keyword_index(c, words) >= 0; }

// Whether c is one of the words; otherwise one warning that lists them.
bool choice(const char *routine, const char *what, const char *c, std::initializer_list<const char *> words) {
  return listed_keyword(routine, what, c, words) >= 0;
}

// RESOLUTION of TIFMOD and BMPMOD: n dots per inch or per cm, kept per inch.
void keep_resolution(const char *routine, const char *format, int n, const char *unit) {
  if (choice(routine, "unit", unit, {"INCH", "CM"}) && in_range(routine, "resolution", n, 1, 100000))
    keep(format, "RESOLUTION", std::to_string(same(unit, "CM") ? int(std::lround(n * 2.54)) : n));
}

// The background colour as 0xRRGGBB, the pixels that transparent PNG and GIF files leave out.
uint32_t back_rgb24() {
  Rgb b = back_rgb();
  return (uint32_t(std::lround(b.r * 255)) << 16) | (uint32_t(std::lround(b.g * 255)) << 8) |
         uint32_t(std::lround(b.b * 255));
}

// A setting (value, key) whose key is one of 'keys' and, for keys in 'onoff', whose value is
// ON or OFF.
void keyed(const char *routine, const char *format, const char *value, const char *key,
           std::initializer_list<const char *> keys, std::initializer_list<const char *> onoff) {
  if (!one_of(key, keys)) {
    mv_warn(routine, "unknown option %s (%s)", mv_tstr(key).c_str(), word_list(keys).c_str());
    return;
  }
  if (one_of(key, onoff) && !one_of(value, {"ON", "OFF"})) {
    mv_warn(routine, "%s takes ON or OFF, not %s", upper(key).c_str(), mv_tstr(value).c_str());
    return;
  }
  if (!value) {
    mv_warn(routine, "no value given");
    return;
  }
  keep(format, upper(key).c_str(), one_of(key, onoff) ? upper(value) : std::string(value));
}

}  // namespace

void media_reset_formats(MirvalState &st) {
  restore<&MirvalState::media, &MediaState::formats, &MediaState::bookmarks, &MediaState::timing>(st);
}

extern "C" {

// PNGMOD('ON', 'TRANSPARENT'): pixels of the background colour are transparent in PNG files.
// PNGMOD('ON', 'ALPHA'): PNG files hold an opacity channel (RGBA) even when all is opaque.
void pngmod(const char *c1, const char *c2) {
  mv_tracef("pngmod(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  keyed("pngmod", "PNG", c1, c2, {"TRANSPARENT", "ALPHA"}, {"TRANSPARENT", "ALPHA"});
}

void gifmod(const char *c1, const char *c2) {
  mv_tracef("gifmod(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  keyed("gifmod", "GIF", c1, c2, {"TRANSPARENT", "INTERLACE"}, {"TRANSPARENT", "INTERLACE"});
}

// TIFMOD(n, 'INCH' or 'CM', 'RESOLUTION'): n dots per inch or per cm;
// TIFMOD(0, 'NONE', 'LZW', 'DEFLATE' or 'PACKBITS', 'COMPRESSION').
void tifmod(int n, const char *c1, const char *c2) {
  mv_tracef("tifmod(%d, %s, %s)", n, mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  if (same(c2, "RESOLUTION")) {
    keep_resolution("tifmod", "TIFF", n, c1);
  } else if (same(c2, "COMPRESSION")) {
    if (choice("tifmod", "compression", c1, {"NONE", "LZW", "DEFLATE", "PACKBITS"}))
      keep("TIFF", "COMPRESSION", upper(c1));
  } else {
    mv_warn("tifmod", "unknown option %s (RESOLUTION or COMPRESSION)", mv_tstr(c2).c_str());
  }
}

// PDFMOD(value, key): TITLE, AUTHOR, SUBJECT texts; VERSION 1.4 or 1.5; COMPRESSION ON/OFF
// (Cairo compresses PDF streams always; OFF is kept only).
void pdfmod(const char *c1, const char *c2) {
  mv_tracef("pdfmod(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  if (same(c2, "VERSION") && !choice("pdfmod", "version", c1, {"1.4", "1.5"})) return;
  keyed("pdfmod", "PDF", c1, c2, {"TITLE", "AUTHOR", "SUBJECT", "VERSION", "COMPRESSION"}, {"COMPRESSION"});
}

// PDFMRK(text, 'PAGE'): an outline entry for the current page; PDFMRK(text, 'SUB'): an entry
// one level below the last 'PAGE' entry, also pointing at the current page.
void pdfmrk(const char *c1, const char *c2) {
  mv_tracef("pdfmrk(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  if (!given("pdfmrk", c1, "bookmark text") || !choice("pdfmrk", "kind", c2, {"PAGE", "SUB"})) return;
  MirvalState &st = mirval_state();
  if (!mv_level("pdfmrk", 1, 3)) return;
  size_t page = st.scene.pages.empty() ? 1 : st.scene.pages.size();
  std::string at = std::to_string(page);
  if (same(c2, "SUB")) at += "+";
  st.media.bookmarks.push_back({valid_utf8(c1), at});
  ++st.scene.changes;  // the file must be written again to hold it
}

// PSMODE: the PostScript level, the sheet's orientation, colour or grey; each kept apart.
void psmode(const char *c) {
  mv_tracef("psmode(%s)", mv_tstr(c).c_str());
  static const struct {
    const char *word, *key;
  } modes[] = {{"LEVEL2", "LEVEL"},          {"LEVEL3", "LEVEL"}, {"PORTRAIT", "ORIENTATION"},
               {"LANDSCAPE", "ORIENTATION"}, {"COLOR", "COLOUR"}, {"GREY", "COLOUR"}};
  for (const auto &m : modes)
    if (same(c, m.word)) {
      keep("PS", m.key, m.word);
      return;
    }
  mv_warn("psmode", "unknown mode %s (LEVEL2, LEVEL3, PORTRAIT, LANDSCAPE, COLOR or GREY)", mv_tstr(c).c_str());
}

void psmeta(const char *c1, const char *c2) {
  mv_tracef("psmeta(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  keyed("psmeta", "PS", c1, c2, {"TITLE", "CREATOR", "FOR"}, {});
}

void cgmbgd(float x1, float x2, float x3) {
  mv_tracef("cgmbgd(%g, %g, %g)", (double)x1, (double)x2, (double)x3);
  for (float v : {x1, x2, x3})
    if (!(v >= 0 && v <= 1)) {
      mv_warn("cgmbgd", "colour parts must lie in 0..1");
      return;
    }
  char buf[64];
  std::snprintf(buf, sizeof buf, "%g %g %g", (double)x1, (double)x2, (double)x3);
  keep("CGM", "BACKGROUND", buf);
}

void cgmpic(const char *c) {
  mv_tracef("cgmpic(%s)", mv_tstr(c).c_str());
  if (given("cgmpic", c, "picture name")) keep("CGM", "PICTURE", c);
}

void cgmver(int n) {
  mv_tracef("cgmver(%d)", n);
  if (in_range("cgmver", "version", n, 1, 4)) keep("CGM", "VERSION", std::to_string(n));
}

void wmfmod(const char *c1, const char *c2) {
  mv_tracef("wmfmod(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  keyed("wmfmod", "WMF", c1, c2, {"STANDARD", "PLACEABLE", "SCALE", "FONT"}, {});
}

void hpgmod(const char *c1, const char *c2) {
  mv_tracef("hpgmod(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  keyed("hpgmod", "HPGL", c1, c2, {"PEN", "MODE", "PAGE"}, {});
}

void hwmode(const char *c1, const char *c2) {
  mv_tracef("hwmode(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  keyed("hwmode", "HW", c1, c2, {"LINE", "SHADING", "FONT"}, {"LINE", "SHADING", "FONT"});
}

void hworig(int n1, int n2) {
  mv_tracef("hworig(%d, %d)", n1, n2);
  if (std::abs(n1) > 100000 || std::abs(n2) > 100000) {
    mv_warn("hworig", "origin %d, %d lies far outside the page", n1, n2);
    return;
  }
  keep("HW", "ORIGIN", std::to_string(n1) + " " + std::to_string(n2));
}

void hwpage(int n1, int n2) {
  mv_tracef("hwpage(%d, %d)", n1, n2);
  if (in_range("hwpage", "width", n1, 1, 100000) && in_range("hwpage", "height", n2, 1, 100000))
    keep("HW", "PAGE", std::to_string(n1) + " " + std::to_string(n2));
}

void hwscal(float x) {
  mv_tracef("hwscal(%g)", (double)x);
  if (!(x > 0 && x <= 100)) {
    mv_warn("hwscal", "scale %g lies outside 0..100", (double)x);
    return;
  }
  char buf[32];
  std::snprintf(buf, sizeof buf, "%g", (double)x);
  keep("HW", "SCALE", buf);
}

void bmpmod(int n, const char *c1, const char *c2) {
  mv_tracef("bmpmod(%d, %s, %s)", n, mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  if (same(c2, "RESOLUTION")) {
    keep_resolution("bmpmod", "BMP", n, c1);
  } else if (same(c2, "DEPTH")) {
    if (n != 1 && n != 4 && n != 8 && n != 24) mv_warn("bmpmod", "depth %d is not 1, 4, 8 or 24", n);
    else keep("BMP", "DEPTH", std::to_string(n));
  } else {
    mv_warn("bmpmod", "unknown option %s (RESOLUTION or DEPTH)", mv_tstr(c2).c_str());
  }
}

void bmpfnt(const char *c) {
  mv_tracef("bmpfnt(%s)", mv_tstr(c).c_str());
  if (given("bmpfnt", c, "font name")) keep("BMP", "FONT", c);
}

void bufmod(const char *c1, const char *c2) {
  mv_tracef("bufmod(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  keyed("bufmod", "BUFFER", c1, c2, {"FLUSH", "SIZE"}, {"FLUSH"});
}

void symfil(const char *c1, const char *c2) {
  mv_tracef("symfil(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  if (given("symfil", c1, "device") && choice("symfil", "mode", c2, {"DELETE", "KEEP"}))
    keep("SYMFIL", upper(c2).c_str(), c1);
}

}

// The value a format setting holds, or an empty text (for the outputs and the tests).
std::string media_format_setting(const char *format, const char *key) {
  const auto &f = mirval_state().media.formats;
  auto it = f.find(std::string(format) + "." + key);
  return it == f.end() ? std::string() : it->second;
}

std::string png_file(cairo_surface_t *page) {
  bool transparent = media_format_setting("PNG", "TRANSPARENT") == "ON";
  RasterImage img = image_of_surface(page);
  if (transparent) {
    uint32_t bg = 0xFF000000u | back_rgb24();
    for (uint32_t &p : img.argb)
      if (p == bg) p = 0;
  }
  // an opacity channel only when asked (PNGMOD): opaque pages are RGB
  return png_bytes(img, transparent || media_format_setting("PNG", "ALPHA") == "ON");
}

GifOptions gif_options() {
  GifOptions opt;
  opt.interlace = media_format_setting("GIF", "INTERLACE") == "ON";
  if (media_format_setting("GIF", "TRANSPARENT") == "ON") opt.transparent = back_rgb24();
  return opt;
}

void ps_options(cairo_surface_t *surface) {
  std::string level = media_format_setting("PS", "LEVEL");
  if (!level.empty())
    cairo_ps_surface_restrict_to_level(surface, level == "LEVEL2" ? CAIRO_PS_LEVEL_2 : CAIRO_PS_LEVEL_3);
  // Cairo writes its own %%Creator line: PSMETA's CREATOR is only kept
  for (const char *key : {"TITLE", "FOR"}) {
    std::string value = media_format_setting("PS", key);
    if (value.empty()) continue;
    std::string line = std::string("%%") + (key[0] == 'T' ? "Title: " : "For: ") + value;
    for (char &ch : line)
      if (ch == '\n' || ch == '\r') ch = ' ';
    cairo_ps_surface_dsc_comment(surface, line.c_str());
  }
}

bool ps_turned(double w, double h) {
  std::string o = media_format_setting("PS", "ORIENTATION");
  return (o == "PORTRAIT" && w > h) || (o == "LANDSCAPE" && h > w);
}
