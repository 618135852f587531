#include "draw/text.h"
#include "draw/colours.h"
#include "draw/draw.h"
#include "draw/fonts.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "mirval.h"
#include "axes/scaling.h"
#include "core/trace.h"
#include "media/formula.h"
#include "media/hershey.h"
#include "plots/charts.h"

#include <cmath>
#include <cstring>

namespace {

// Exponents are set smaller and raised by about half a capital.
constexpr double sup_scale = 0.6, sup_raise = 0.55;

void set_font(const char *family, bool bold, bool italic) {
  FontChoice &f = mirval_state().text.font;
  f = FontChoice{};
  f.family = family;
  f.bold = bold;
  f.italic = italic;
}

bool has_text(const char *routine, const char *s) {
  if (s) return true;
  mv_warn(routine, "no text given");
  return false;
}

// Text of the plot-coordinate routines: (nx, ny) names the upper edge of the capitals at
// the left, centre or right as TXTJUS says.
void message_at(const std::string &text, double x, double y) {
  const MirvalState &st = mirval_state();
  const TextState &t = st.text;
  put_text(text, "", {x, y}, t.height, t.angle, t.just, VAlign::Top, pen_rgb());
  if (!st.chart.shield_messages) return;
  // SHIELD('MESSAG', 'ON'): the text's box, turned with it, keeps later curves off
  double w = text_length(text, "", t.height);
  double x0 = t.just == Just::Left ? 0 : t.just == Just::Center ? -w / 2 : -w;
  add_shield(turned_rect({x, y}, x0, w, 1.4 * t.height, t.angle), true);
}

}  // namespace

int current_font() { return font_index(mirval_state().text.font); }

namespace {

LayoutStyle layout_style(double h) {
  const MediaState &m = mirval_state().media;
  LayoutStyle st;
  st.font = current_font();
  st.height = h;
  st.tex = m.tex;
  st.mix = m.mix;
  return st;
}

// The text and its exponent as one box.
Layout rich_layout(const std::string &text, const std::string &sup, double h) {
  Layout l = layout_lines(text, layout_style(h));
  if (!sup.empty()) {
    Layout e = layout_text(sup, layout_style(h * sup_scale));
    l.add(e, l.width, h * sup_raise);
  }
  return l;
}

// Places a laid-out text: its origin (left end of the first baseline) at o in page
// coordinates, turned by 'angle'.
void place_layout(const Layout &l, Pt o, double h, double angle, Rgb rgb) {
  const MediaState &m = mirval_state().media;
  double a = angle * M_PI / 180;
  double dx = std::cos(a), dy = -std::sin(a);
  double nx = std::sin(a), ny = std::cos(a);
  auto at = [&](double x, double y) { return Pt{o.x + dx * x - nx * y, o.y + dy * x - ny * y}; };
  auto box = [&](double x0, double y0, double x1, double y1) {
    return closed_path({at(x0, y0), at(x1, y0), at(x1, y1), at(x0, y1)});
  };
  double pad = 0.25 * h;
  if (m.text_bg >= 0 && m.text_bg < 256) {
    fill_path(box(-pad, -l.descent - pad / 2, l.width + pad, l.ascent + pad / 2), table_rgb(m.text_bg));
  }
  for (const LayGlyph &g : l.glyphs) {
    Pt p = at(g.x, g.y);
    if (g.strokes) {
      double w = std::max(h / 14, 1.0);
      for (const std::vector<double> &line : hershey_strokes(g.font, g.text, g.size)) {
        Path path;
        for (size_t k = 0; k + 1 < line.size(); k += 2) {
          Pt q = at(g.x + line[k] * m.stretch, g.y + line[k + 1]);
          if (k == 0) path.move(q);
          else path.line(q);
        }
        stroke_path(path, rgb, w, {});
      }
      continue;
    }
    Item it;
    it.kind = ItemKind::Text;
    it.rgb = rgb;
    it.font = g.font;
    it.size = g.size;
    it.angle = angle;
    it.slant = m.slant;
    it.stretch = m.stretch;
    it.text = valid_utf8(g.text);
    it.at = p;
    if (!it.text.empty()) add_item(it);
  }
  for (const LayBar &b : l.bars) fill_path(box(b.x0, b.y0, b.x1, b.y1), rgb);
  for (const LayLine &line : l.lines) {
    Path path;
    for (size_t k = 0; k + 1 < line.xy.size(); k += 2) {
      Pt q = at(line.xy[k], line.xy[k + 1]);
      if (k == 0) path.move(q);
      else path.line(q);
    }
    stroke_path(path, rgb, line.width, {});
  }
  if (m.frame > 0)
    stroke_path(box(-pad, -l.descent - pad / 2, l.width + pad, l.ascent + pad / 2), rgb, m.frame, {});
}

}  // namespace

double text_length(const std::string &text, const std::string &sup, double h) {
  if (rich_text(text) || rich_text(sup)) return rich_layout(text, sup, h).width;
  int font = current_font();
  double size = font_size(font, h);
  double w = text_width(font, size, text);
  if (!sup.empty()) w += text_width(font, size * sup_scale, sup);
  return w;
}

void put_text(const std::string &text, const std::string &sup, Pt at, double h, double angle,
              Just just, VAlign valign, Rgb rgb) {
  // far beyond the page a position means nothing and would overflow the renderer
  if ((text.empty() && sup.empty()) || !(std::fabs(at.x) < 1e7) || !(std::fabs(at.y) < 1e7)) return;
  if (rich_text(text) || rich_text(sup)) {
    Layout l = rich_layout(text, sup, h);
    double a = angle * M_PI / 180;
    double dx = std::cos(a), dy = -std::sin(a), nx = std::sin(a), ny = std::cos(a);
    double along = just == Just::Left ? 0 : just == Just::Center ? -l.width / 2 : -l.width;
    // formulas taller than a capital hang below the anchor instead of reaching above it
    double top = std::max(h, l.ascent - 0.05 * h);
    double down = valign == VAlign::Top ? top : valign == VAlign::Middle ? (top + h) / 4 : 0;
    place_layout(l, {at.x + dx * along + nx * down, at.y + dy * along + ny * down}, h, angle, rgb);
    return;
  }
  int font = current_font();
  double size = font_size(font, h), w = text_length(text, sup, h);
  double a = angle * M_PI / 180;
  double dx = std::cos(a), dy = -std::sin(a);   // along the text
  double nx = std::sin(a), ny = std::cos(a);    // from the capitals' top towards the baseline
  double along = just == Just::Left ? 0 : just == Just::Center ? -w / 2 : -w;
  double down = valign == VAlign::Top ? h : valign == VAlign::Middle ? h / 2 : 0;
  Item it;
  it.kind = ItemKind::Text;
  it.rgb = rgb;
  it.font = font;
  it.size = size;
  it.angle = angle;
  it.text = valid_utf8(text);
  it.at = {at.x + dx * along + nx * down, at.y + dy * along + ny * down};
  Pt base = it.at;
  if (!text.empty()) add_item(it);
  if (!sup.empty()) {
    double adv = text_width(font, size, text);
    it.text = valid_utf8(sup);
    it.size = size * sup_scale;
    it.at = {base.x + dx * adv - nx * h * sup_raise, base.y + dy * adv - ny * h * sup_raise};
    add_item(it);
  }
}

void set_just(const char *routine, const char *c, Just &j) {
  if (same(c, "LEFT")) j = Just::Left;
  else if (same(c, "CENT") || same(c, "CENTER")) j = Just::Center;
  else if (same(c, "RIGHT")) j = Just::Right;
  else mv_warn(routine, "unknown justification %s", mv_tstr(c).c_str());
}

std::string number_text(double x, int ndig) {
  char buf[128];
  fcha(static_cast<float>(x), ndig, buf);
  return buf;
}

extern "C" {

void height(int nhchar) {
  set_number("height", "height", nhchar, 1, 10000, mirval_state().text.height);
}

int gethgt(void) {
  mv_tracef("gethgt()");
  return mirval_state().text.height;
}

void angle(int ngrad) {
  mv_tracef("angle(%d)", ngrad);
  mirval_state().text.angle = ngrad;
}

void txtjus(const char *c) {
  mv_tracef("txtjus(%s)", mv_tstr(c).c_str());
  set_just("txtjus", c, mirval_state().text.just);
}

void messag(const char *cstr, int nx, int ny) {
  mv_tracef("messag(%s, %d, %d)", mv_tstr(cstr).c_str(), nx, ny);
  if (!mv_level("messag", 1, 3) || !has_text("messag", cstr)) return;
  message_at(cstr, nx, page_y(ny));
}

void number(float x, int ndig, int nx, int ny) {
  mv_tracef("number(%g, %d, %d, %d)", (double)x, ndig, nx, ny);
  if (!mv_level("number", 1, 3)) return;
  message_at(number_text(x, ndig), nx, page_y(ny));
}

void rlmess(const char *c, float x1, float x2) {
  mv_tracef("rlmess(%s, %g, %g)", mv_tstr(c).c_str(), (double)x1, (double)x2);
  if (!mv_level("rlmess", 2, 3) || !has_text("rlmess", c)) return;
  Pt p = page_point(x1, x2);
  message_at(c, p.x, p.y);
}

void rlnumb(float x1, int n, float x2, float x3) {
  mv_tracef("rlnumb(%g, %d, %g, %g)", (double)x1, n, (double)x2, (double)x3);
  if (!mv_level("rlnumb", 2, 3)) return;
  Pt p = page_point(x2, x3);
  message_at(number_text(x1, n), p.x, p.y);
}

int nlmess(const char *cstr) {
  mv_tracef("nlmess(%s)", mv_tstr(cstr).c_str());
  if (!cstr) return 0;
  return static_cast<int>(std::lround(text_length(cstr, "", mirval_state().text.height)));
}

int nlnumb(float x, int ndig) {
  mv_tracef("nlnumb(%g, %d)", (double)x, ndig);
  return static_cast<int>(std::lround(text_length(number_text(x, ndig), "", mirval_state().text.height)));
}

// The font routines differ only in the family, weight and slant they choose.
#define FONT_ROUTINE(name, family, bold, italic) \
  void name(void) { \
    mv_tracef(#name "()"); \
    set_font(family, bold, italic); \
  }

FONT_ROUTINE(simplx, "DejaVu Sans", false, false)
FONT_ROUTINE(complx, "DejaVu Serif", false, false)
FONT_ROUTINE(duplx, "DejaVu Sans", true, false)
FONT_ROUTINE(triplx, "DejaVu Serif", true, false)
FONT_ROUTINE(helve, "Helvetica", false, false)
FONT_ROUTINE(helves, "Helvetica", false, true)
FONT_ROUTINE(helvet, "Helvetica", true, false)
FONT_ROUTINE(serif, "Times", false, false)
#undef FONT_ROUTINE

// PostScript names such as "Times-BoldItalic" or "Helvetica-Oblique".
void psfont(const char *c) {
  mv_tracef("psfont(%s)", mv_tstr(c).c_str());
  if (!c || !*c) {
    mv_warn("psfont", "no font name given");
    return;
  }
  std::string name = c, style;
  size_t dash = name.find('-');
  if (dash != std::string::npos) {
    style = name.substr(dash + 1);
    name.resize(dash);
  }
  auto has = [&](const char *w) { return strcasestr(style.c_str(), w) != nullptr; };
  set_font(name.c_str(), has("Bold") || has("Demi"), has("Italic") || has("Oblique"));
}

// A TrueType or OpenType file; a name that is no file is taken as a family name.
void ttfont(const char *c) {
  mv_tracef("ttfont(%s)", mv_tstr(c).c_str());
  if (!c || !*c) {
    mv_warn("ttfont", "no font given");
    return;
  }
  std::string name = c;
  size_t slash = name.rfind('/'), dot = name.rfind('.');
  std::string family = name.substr(slash == std::string::npos ? 0 : slash + 1);
  if (dot != std::string::npos && (slash == std::string::npos || dot > slash))
    family.resize(family.size() - (name.size() - dot));
  set_font(family.c_str(), false, false);
  mirval_state().text.font.file = name;
}

int getang(void) {
  mv_tracef("getang()");
  return static_cast<int>(std::lround(mirval_state().text.angle));
}

}
