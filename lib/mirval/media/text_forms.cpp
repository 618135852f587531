// Formulas, alphabets and the form of characters: the settings that every text routine
// honours through the layout of media/formula.cpp.
#include "core/keywords.h"
#include "core/messages.h"
#include "core/reset.h"
#include "core/state.h"
#include "core/trace.h"
#include "draw/draw.h"
#include "media/formula.h"
#include "media/hershey.h"
#include "mirval.h"

#include <cmath>
#include <cstring>

namespace {

bool finite_in(const char *routine, const char *what, double x, double lo, double hi) {
  if (std::isfinite(x) && x >= lo && x <= hi) return true;
  mv_warn(routine, "%s %g lies outside %g..%g", what, x, lo, hi);
  return false;
}

// The routines that set one number of the character form: the value, or one warning.
void set_number(const char *routine, const char *what, float x, double lo, double hi, double MediaState::*field) {
  mv_tracef("%s(%g)", routine, (double)x);
  if (finite_in(routine, what, x, lo, hi)) mirval_state().media.*field = x;
}

void set_entry(const char *routine, const char *what, int n, int lo, int hi, int MediaState::*field) {
  mv_tracef("%s(%d)", routine, n);
  if (n < lo || n > hi) mv_warn(routine, "%s %d lies outside %d..%d", what, n, lo, hi);
  else mirval_state().media.*field = n;
}

// HWFONT and GOTHIC: stroke set k, when its font files are there.
void set_strokes(const char *routine, int k) {
  mv_tracef("%s()", routine);
  if (!hershey_available(k)) mv_warn(routine, "the stroke font files are missing: outline fonts stay");
  else mirval_state().media.stroke_font = k;
}

bool on_off(const char *routine, const char *c, bool &flag) {
  if (same(c, "ON")) flag = true;
  else if (same(c, "OFF")) flag = false;
  else {
    mv_warn(routine, "unknown mode %s (ON or OFF)", mv_tstr(c).c_str());
    return false;
  }
  return true;
}

const char *alphabets[] = {"STANDARD", "GREEK", "ITALIC", "BOLD", "SYMBOL", "SCRIPT"};

bool known_alphabet(const char *c) {
  for (const char *a : alphabets)
    if (same(c, a)) return true;
  return false;
}

// The default instruction characters of NEWMIX and MIXALF.
void default_mix(MediaState &m) {
  m.sup = '^';
  m.sub = '[';
  m.res = ']';
  m.shifts = {};
  m.shifts[0] = {"GREEK", '{', '}'};
}

thread_local std::string result;  // text results of the getters stay valid until the next call

}  // namespace

void media_reset_tex(MirvalState &st) {
  restore<&MirvalState::media, &MediaState::tex, &MediaState::tex_style, &MediaState::tex_italic,
          &MediaState::tex_scale, &MediaState::tex_raise, &MediaState::tex_lower>(st);
}

void media_reset_mix(MirvalState &st) {
  restore<&MirvalState::media, &MediaState::mix, &MediaState::mix_legend, &MediaState::base,
          &MediaState::sup, &MediaState::sub, &MediaState::res, &MediaState::shifts, &MediaState::nation>(st);
}

void media_reset_chars(MirvalState &st) {
  restore<&MirvalState::media, &MediaState::slant, &MediaState::stretch, &MediaState::spacing,
          &MediaState::fixed, &MediaState::line_spacing, &MediaState::text_bg, &MediaState::frame,
          &MediaState::codes, &MediaState::stroke_font, &MediaState::unit, &MediaState::units>(st);
}

extern "C" {

void texmod(const char *c) {
  mv_tracef("texmod(%s)", mv_tstr(c).c_str());
  on_off("texmod", c, mirval_state().media.tex);
}

void texopt(const char *c1, const char *c2) {
  mv_tracef("texopt(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  MediaState &m = mirval_state().media;
  if (same(c2, "STYLE")) {
    if (same(c1, "TEXT") || same(c1, "DISPLAY")) m.tex_style = upper(c1);
    else mv_warn("texopt", "unknown style %s (TEXT or DISPLAY)", mv_tstr(c1).c_str());
  } else if (same(c2, "ITALIC")) {
    on_off("texopt", c1, m.tex_italic);
  } else {
    mv_warn("texopt", "unknown option %s (STYLE or ITALIC)", mv_tstr(c2).c_str());
  }
}

void texval(float x, const char *c) {
  mv_tracef("texval(%g, %s)", (double)x, mv_tstr(c).c_str());
  MediaState &m = mirval_state().media;
  if (same(c, "SCRIPT")) {
    if (finite_in("texval", "script size", x, 0.3, 1)) m.tex_scale = x;
  } else if (same(c, "RAISE")) {
    if (finite_in("texval", "raise", x, 0, 2)) m.tex_raise = x;
  } else if (same(c, "LOWER")) {
    if (finite_in("texval", "lowering", x, 0, 2)) m.tex_lower = x;
  } else {
    mv_warn("texval", "unknown option %s (SCRIPT, RAISE or LOWER)", mv_tstr(c).c_str());
  }
}

void mixalf(void) {
  mv_tracef("mixalf()");
  mirval_state().media.mix = true;
}

void newmix(void) {
  mv_tracef("newmix()");
  MediaState &m = mirval_state().media;
  default_mix(m);
  m.mix = true;
}

void mixleg(void) {
  mv_tracef("mixleg()");
  MediaState &m = mirval_state().media;
  m.mix_legend = true;
  m.mix = true;
}

void miralf(void) {
  mv_tracef("miralf()");
  MediaState &m = mirval_state().media;
  m.base = "STANDARD";
  m.mix = false;
  m.mix_legend = false;
  m.stroke_font = 0;
}

void setmix(const char *c1, const char *c2) {
  mv_tracef("setmix(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  if (!c1 || std::strlen(c1) != 1 || c1[0] == ' ') {
    mv_warn("setmix", "the instruction character must be one printable character");
    return;
  }
  MediaState &m = mirval_state().media;
  if (same(c2, "SUP")) m.sup = c1[0];
  else if (same(c2, "SUB")) m.sub = c1[0];
  else if (same(c2, "RES")) m.res = c1[0];
  else mv_warn("setmix", "unknown function %s (SUP, SUB or RES)", mv_tstr(c2).c_str());
}

void smxalf(const char *c1, const char *c2, const char *c3, int n) {
  mv_tracef("smxalf(%s, %s, %s, %d)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str(), mv_tstr(c3).c_str(), n);
  if (n < 1 || n > 6) {
    mv_warn("smxalf", "slot %d lies outside 1..6", n);
    return;
  }
  if (!known_alphabet(c1)) {
    mv_warn("smxalf", "unknown alphabet %s", mv_tstr(c1).c_str());
    return;
  }
  if (!c2 || !c3 || std::strlen(c2) != 1 || std::strlen(c3) != 1) {
    mv_warn("smxalf", "the shift characters must be one character each");
    return;
  }
  mirval_state().media.shifts[n - 1] = {upper(c1), c2[0], c3[0]};
}

void basalf(const char *c) {
  mv_tracef("basalf(%s)", mv_tstr(c).c_str());
  if (!known_alphabet(c)) {
    mv_warn("basalf", "unknown alphabet %s", mv_tstr(c).c_str());
    return;
  }
  mirval_state().media.base = upper(c);
}

const char *getalf(void) {
  mv_tracef("getalf()");
  result = mirval_state().media.base;
  return result.c_str();
}

const char *getmix(const char *c) {
  mv_tracef("getmix(%s)", mv_tstr(c).c_str());
  const MediaState &m = mirval_state().media;
  char ch = same(c, "SUP") ? m.sup : same(c, "SUB") ? m.sub : same(c, "RES") ? m.res : 0;
  if (!ch) {
    mv_warn("getmix", "unknown function %s (SUP, SUB or RES)", mv_tstr(c).c_str());
    result.clear();
  } else {
    result.assign(1, ch);
  }
  return result.c_str();
}

const char *gmxalf(const char *copt, char *c1, char *c2) {
  mv_tracef("gmxalf(copt=%s, c1=out, c2=out)", mv_tstr(copt).c_str());
  if (c1) *c1 = '\0';
  if (c2) *c2 = '\0';
  result.clear();
  const MediaState &m = mirval_state().media;
  for (size_t k = 0; k < m.shifts.size(); ++k) {
    if (m.shifts[k].on && same(copt, m.shifts[k].alphabet.c_str())) {
      if (c1) c1[0] = m.shifts[k].on, c1[1] = '\0';
      if (c2) c2[0] = m.shifts[k].off, c2[1] = '\0';
      result = m.shifts[k].alphabet;
      return result.c_str();
    }
  }
  if (!known_alphabet(copt)) mv_warn("gmxalf", "unknown alphabet %s", mv_tstr(copt).c_str());
  return result.c_str();
}

void hwfont(void) { set_strokes("hwfont", 1); }
void gothic(void) { set_strokes("gothic", 2); }

void chaang(float x) { set_number("chaang", "angle", x, -60, 60, &MediaState::slant); }
void chawth(float x) { set_number("chawth", "width factor", x, 0.1, 10, &MediaState::stretch); }
void chaspc(float x) { set_number("chaspc", "spacing", x, -1, 10, &MediaState::spacing); }
void fixspc(float x) { set_number("fixspc", "advance", x, 0, 10, &MediaState::fixed); }
void linesp(float x) { set_number("linesp", "line spacing", x, 0.5, 10, &MediaState::line_spacing); }
void txtbgd(int n) { set_entry("txtbgd", "colour", n, -1, 255, &MediaState::text_bg); }
void frmess(int n) { set_entry("frmess", "frame", n, 0, 100, &MediaState::frame); }

void chacod(const char *c) {
  mv_tracef("chacod(%s)", mv_tstr(c).c_str());
  if (same(c, "STANDARD") || same(c, "ISO1") || same(c, "UTF8"))
    mirval_state().media.codes = upper(c);
  else
    mv_warn("chacod", "unknown coding %s (STANDARD, ISO1 or UTF8)", mv_tstr(c).c_str());
}

void eushft(const char *c1, const char *c2) {
  mv_tracef("eushft(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  if (nation_letter(upper(c1), 'a').empty()) {
    mv_warn("eushft", "unknown alphabet %s (GERMAN, FRENCH, SPANISH, DANISH, ACUTE, GRAVE or CIRCUM)",
            mv_tstr(c1).c_str());
    return;
  }
  if (!c2 || std::strlen(c2) != 1 || c2[0] == ' ') {
    mv_warn("eushft", "the shift character must be one printable character");
    return;
  }
  mirval_state().media.nation[upper(c1)] = c2[0];
}

const char *getshf(const char *c) {
  mv_tracef("getshf(%s)", mv_tstr(c).c_str());
  const auto &n = mirval_state().media.nation;
  auto it = n.find(upper(c));
  result = it == n.end() ? std::string() : std::string(1, it->second);
  return result.c_str();
}

void utfint(const char *cstr, int *iray, int nmax, int *nl) {
  mv_tracef("utfint(cstr=%s, iray=%s, nmax=%d, nl=out)", mv_tstr(cstr).c_str(), mv_tarr(nmax, "ints out").c_str(), nmax);
  if (nl) *nl = 0;
  if (!cstr || !iray || nmax < 1) {
    mv_warn("utfint", nmax < 1 ? "nmax %d is below 1" : "no text or no array given", nmax);
    return;
  }
  std::string s = valid_utf8(cstr);
  int n = 0;
  for (size_t i = 0; i < s.size() && n < nmax;) {
    unsigned char c = static_cast<unsigned char>(s[i]);
    size_t len = c < 0x80 ? 1 : (c >> 5) == 6 ? 2 : (c >> 4) == 14 ? 3 : 4;
    unsigned cp = len == 1 ? c : len == 2 ? (c & 0x1F) : len == 3 ? (c & 0x0F) : (c & 0x07);
    for (size_t k = 1; k < len && i + k < s.size(); ++k) cp = (cp << 6) | (static_cast<unsigned char>(s[i + k]) & 0x3F);
    iray[n++] = static_cast<int>(cp);
    i += len;
  }
  if (nl) *nl = n;
}

void intutf(const int *iray, int nray, char *cstr, int nmax, int *nl) {
  mv_tracef("intutf(iray=%s, nray=%d, cstr=out, nmax=%d, nl=out)", mv_tarr(nray, "ints").c_str(), nray, nmax);
  if (nl) *nl = 0;
  if (cstr && nmax > 0) *cstr = '\0';
  if (!iray || !cstr || nray < 1 || nmax < 1) {
    mv_warn("intutf", nray < 1 ? "nray %d is below 1" : nmax < 1 ? "nmax %d is below 1" : "no array given",
            nray < 1 ? nray : nmax);
    return;
  }
  std::string out;
  for (int k = 0; k < nray; ++k) {
    unsigned cp = static_cast<unsigned>(iray[k]);
    if (iray[k] <= 0 || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) {
      mv_warn("intutf", "iray[%d] = %d is no character", k, iray[k]);
      cp = '?';
    }
    std::string ch = utf8_of(cp);
    if (out.size() + ch.size() > static_cast<size_t>(nmax - 1)) break;  // room for the terminator
    out += ch;
  }
  std::memcpy(cstr, out.c_str(), out.size() + 1);
  if (nl) *nl = static_cast<int>(out.size());
}

void unit(int n) {
  mv_tracef("unit(%d)", n);
  if (n < 0) {
    mv_warn("unit", "unit %d is negative", n);
    return;
  }
  MirvalState &st = mirval_state();
  st.media.unit = n;
  st.msg.warnings = n != 0;
}

int getuni(void) {
  mv_tracef("getuni()");
  return mirval_state().media.unit;
}

void units(const char *c) {
  mv_tracef("units(%s)", mv_tstr(c).c_str());
  if (same(c, "MM") || same(c, "CM") || same(c, "INCH") || same(c, "POINTS") || same(c, "PIXEL"))
    mirval_state().media.units = upper(c);
  else
    mv_warn("units", "unknown unit %s (MM, CM, INCH, POINTS or PIXEL)", mv_tstr(c).c_str());
}

int getwid(void) {
  mv_tracef("getwid()");
  return static_cast<int>(std::lround(mirval_state().pen.width));
}

// TXTMOD and TXTOPT: the same switches for C programs that do not call TEXMOD by name.
void txtmod(const char *c) {
  mv_tracef("txtmod(%s)", mv_tstr(c).c_str());
  if (same(c, "TEX")) mirval_state().media.tex = true;
  else if (same(c, "MIX")) mirval_state().media.mix = true;
  else if (same(c, "PLAIN") || same(c, "OFF")) {
    mirval_state().media.tex = false;
    mirval_state().media.mix = false;
  } else {
    mv_warn("txtmod", "unknown mode %s (TEX, MIX or PLAIN)", mv_tstr(c).c_str());
  }
}

void txtopt(const char *c1, const char *c2) {
  mv_tracef("txtopt(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  if (same(c2, "TEX")) on_off("txtopt", c1, mirval_state().media.tex);
  else if (same(c2, "MIX")) on_off("txtopt", c1, mirval_state().media.mix);
  else mv_warn("txtopt", "unknown option %s (TEX or MIX)", mv_tstr(c2).c_str());
}

}
