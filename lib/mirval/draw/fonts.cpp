#include "draw/fonts.h"
#include "core/state.h"

#include <cairo-ft.h>
#include <fontconfig/fontconfig.h>

#include <sys/stat.h>

namespace {

bool same(const FontChoice &a, const FontChoice &b) {
  return a.family == b.family && a.bold == b.bold && a.italic == b.italic && a.file == b.file;
}

bool is_file(const std::string &name) {
  struct stat st;
  return stat(name.c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

cairo_font_face_t *make_face(const FontChoice &choice) {
  if (!choice.file.empty() && is_file(choice.file)) {
    FcPattern *pat = FcPatternCreate();
    FcPatternAddString(pat, FC_FILE, reinterpret_cast<const FcChar8 *>(choice.file.c_str()));
    FcPatternAddInteger(pat, FC_INDEX, 0);
    cairo_font_face_t *face = cairo_ft_font_face_create_for_pattern(pat);
    FcPatternDestroy(pat);
    return face;
  }
  return cairo_toy_font_face_create(choice.family.c_str(),
                                    choice.italic ? CAIRO_FONT_SLANT_ITALIC : CAIRO_FONT_SLANT_NORMAL,
                                    choice.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
}

cairo_t *measuring_context() {
  FontTable &t = mirval_state().fonts;
  if (!t.measure) {
    t.scratch = cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1);
    t.measure = cairo_create(t.scratch);
  }
  return t.measure;
}

}  // namespace

FontTable::~FontTable() {
  for (cairo_font_face_t *f : faces) cairo_font_face_destroy(f);
  if (measure) cairo_destroy(measure);
  if (scratch) cairo_surface_destroy(scratch);
  // the program ends: let Cairo and fontconfig drop their font caches, so that leak checkers
  // see a clean exit
  cairo_debug_reset_static_data();
  FcFini();
}

int font_index(const FontChoice &choice) {
  FontTable &t = mirval_state().fonts;
  for (size_t i = 0; i < t.choices.size(); ++i)
    if (same(t.choices[i], choice)) return static_cast<int>(i);
  t.choices.push_back(choice);
  t.faces.push_back(make_face(choice));
  int font = static_cast<int>(t.choices.size() - 1);
  cairo_t *cr = measuring_context();
  font_select(cr, font, 1000);
  cairo_text_extents_t e;
  cairo_text_extents(cr, "H", &e);
  t.cap.push_back(e.height > 0 ? e.height / 1000 : 0.73);
  return font;
}

cairo_font_face_t *font_face(int font) { return mirval_state().fonts.faces.at(font); }

void font_select(cairo_t *cr, int font, double size) {
  cairo_set_font_face(cr, font_face(font));
  cairo_set_font_size(cr, size);
  cairo_font_options_t *opt = cairo_font_options_create();
  cairo_font_options_set_hint_metrics(opt, CAIRO_HINT_METRICS_OFF);
  cairo_font_options_set_hint_style(opt, CAIRO_HINT_STYLE_NONE);
  cairo_set_font_options(cr, opt);
  cairo_font_options_destroy(opt);
}

double font_size(int font, double height) { return height / mirval_state().fonts.cap.at(font); }

double text_width(int font, double size, const std::string &text) {
  cairo_t *cr = measuring_context();
  font_select(cr, font, size);
  cairo_text_extents_t e;
  cairo_text_extents(cr, valid_utf8(text).c_str(), &e);
  return e.x_advance;
}

// Bytes that do not form UTF-8 are taken as Latin-1 characters.
std::string valid_utf8(const std::string &text) {
  std::string out;
  size_t i = 0, n = text.size();
  while (i < n) {
    unsigned char c = static_cast<unsigned char>(text[i]);
    size_t len = c < 0x80 ? 1 : (c >> 5) == 6 ? 2 : (c >> 4) == 14 ? 3 : (c >> 3) == 30 ? 4 : 0;
    bool ok = len > 0 && i + len <= n;
    for (size_t k = 1; ok && k < len; ++k)
      ok = (static_cast<unsigned char>(text[i + k]) & 0xC0) == 0x80;
    if (ok && c >= 0x20) {
      out.append(text, i, len);
      i += len;
    } else if (c >= 0x80) {
      out += static_cast<char>(0xC0 | (c >> 6));
      out += static_cast<char>(0x80 | (c & 0x3F));
      ++i;
    } else {
      out += c == '\t' ? ' ' : '?';
      ++i;
    }
  }
  return out;
}
