#include "media/formula.h"
#include "core/state.h"
#include "draw/fonts.h"
#include "media/hershey.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstring>

void Layout::add(const Layout &b, double dx, double dy) {
  for (LayGlyph g : b.glyphs) {
    g.x += dx;
    g.y += dy;
    glyphs.push_back(g);
  }
  for (LayBar r : b.bars) {
    r.x0 += dx;
    r.x1 += dx;
    r.y0 += dy;
    r.y1 += dy;
    bars.push_back(r);
  }
  for (LayLine l : b.lines) {
    for (size_t i = 0; i + 1 < l.xy.size(); i += 2) {
      l.xy[i] += dx;
      l.xy[i + 1] += dy;
    }
    lines.push_back(l);
  }
  width = std::max(width, dx + b.width);
  ascent = std::max(ascent, dy + b.ascent);
  descent = std::max(descent, b.descent - dy);
}

std::string utf8_of(unsigned cp) {
  std::string s;
  if (cp < 0x80) {
    s += static_cast<char>(cp);
  } else if (cp < 0x800) {
    s += static_cast<char>(0xC0 | (cp >> 6));
    s += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    s += static_cast<char>(0xE0 | (cp >> 12));
    s += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    s += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    s += static_cast<char>(0xF0 | (cp >> 18));
    s += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    s += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    s += static_cast<char>(0x80 | (cp & 0x3F));
  }
  return s;
}

namespace {

struct Sym {
  const char *name;
  unsigned cp;
};
const Sym symbols[] = {
    {"alpha", 0x3B1},   {"beta", 0x3B2},     {"gamma", 0x3B3},    {"delta", 0x3B4},
    {"epsilon", 0x3B5}, {"varepsilon", 0x3B5}, {"zeta", 0x3B6},   {"eta", 0x3B7},
    {"theta", 0x3B8},   {"vartheta", 0x3D1}, {"iota", 0x3B9},     {"kappa", 0x3BA},
    {"lambda", 0x3BB},  {"mu", 0x3BC},       {"nu", 0x3BD},       {"xi", 0x3BE},
    {"omicron", 0x3BF}, {"pi", 0x3C0},       {"varpi", 0x3D6},    {"rho", 0x3C1},
    {"sigma", 0x3C3},   {"varsigma", 0x3C2}, {"tau", 0x3C4},      {"upsilon", 0x3C5},
    {"phi", 0x3C6},     {"varphi", 0x3D5},   {"chi", 0x3C7},      {"psi", 0x3C8},
    {"omega", 0x3C9},   {"Gamma", 0x393},    {"Delta", 0x394},    {"Theta", 0x398},
    {"Lambda", 0x39B},  {"Xi", 0x39E},       {"Pi", 0x3A0},       {"Sigma", 0x3A3},
    {"Upsilon", 0x3A5}, {"Phi", 0x3A6},      {"Psi", 0x3A8},      {"Omega", 0x3A9},
    {"infty", 0x221E},  {"pm", 0xB1},        {"mp", 0x2213},      {"times", 0xD7},
    {"div", 0xF7},      {"cdot", 0x22C5},    {"leq", 0x2264},     {"le", 0x2264},
    {"geq", 0x2265},    {"ge", 0x2265},      {"neq", 0x2260},     {"ne", 0x2260},
    {"approx", 0x2248}, {"sim", 0x223C},     {"simeq", 0x2243},   {"equiv", 0x2261},
    {"propto", 0x221D}, {"partial", 0x2202}, {"nabla", 0x2207},   {"rightarrow", 0x2192},
    {"to", 0x2192},     {"leftarrow", 0x2190}, {"Rightarrow", 0x21D2}, {"Leftarrow", 0x21D0},
    {"leftrightarrow", 0x2194}, {"Leftrightarrow", 0x21D4}, {"uparrow", 0x2191},
    {"downarrow", 0x2193}, {"in", 0x2208},   {"notin", 0x2209},   {"subset", 0x2282},
    {"supset", 0x2283}, {"cup", 0x222A},     {"cap", 0x2229},     {"forall", 0x2200},
    {"exists", 0x2203}, {"emptyset", 0x2205}, {"circ", 0x2218},   {"bullet", 0x2219},
    {"star", 0x22C6},   {"ast", 0x2217},     {"hbar", 0x210F},    {"ell", 0x2113},
    {"Re", 0x211C},     {"Im", 0x2111},      {"aleph", 0x2135},   {"angle", 0x2220},
    {"perp", 0x22A5},   {"parallel", 0x2225}, {"ll", 0x226A},     {"gg", 0x226B},
    {"cdots", 0x22EF},  {"ldots", 0x2026},   {"dots", 0x2026},    {"prime", 0x2032},
    {"degree", 0xB0},   {"langle", 0x27E8},  {"rangle", 0x27E9},  {"lfloor", 0x230A},
    {"rfloor", 0x230B}, {"lceil", 0x2308},   {"rceil", 0x2309},   {"wedge", 0x2227},
    {"vee", 0x2228},    {"neg", 0xAC},       {"oplus", 0x2295},   {"otimes", 0x2297},
    {"sum", 0x2211},    {"prod", 0x220F},    {"int", 0x222B},     {"iint", 0x222C},
    {"oint", 0x222E},   {"coprod", 0x2210},  {"bigcup", 0x22C3},  {"bigcap", 0x22C2},
    {"AA", 0xC5},       {"sqrt", 0x221A},    {"odot", 0x2299},    {"dagger", 0x2020},
};

bool is_big_op(const std::string &n) {
  return n == "sum" || n == "prod" || n == "coprod" || n == "bigcup" || n == "bigcap" || n == "int" ||
         n == "iint" || n == "oint";
}
bool is_integral(const std::string &n) { return n == "int" || n == "iint" || n == "oint"; }
// Operators written as words in upright letters.
bool is_function_name(const std::string &n) {
  static const char *names[] = {"sin",  "cos", "tan", "cot", "sec", "csc", "arcsin", "arccos", "arctan",
                                "sinh", "cosh", "tanh", "exp", "log", "ln", "lg", "lim", "max", "min",
                                "sup", "inf", "det", "dim", "ker", "arg", "deg", "gcd", "Pr", "mod"};
  for (const char *s : names)
    if (n == s) return true;
  return false;
}
bool is_relation(unsigned cp) {
  return cp == '=' || cp == '<' || cp == '>' || cp == 0x2264 || cp == 0x2265 || cp == 0x2260 ||
         cp == 0x2248 || cp == 0x223C || cp == 0x2243 || cp == 0x2261 || cp == 0x221D || cp == 0x2192 ||
         cp == 0x2190 || cp == 0x21D2 || cp == 0x21D0 || cp == 0x2194 || cp == 0x21D4 || cp == 0x2208 ||
         cp == 0x2209 || cp == 0x2282 || cp == 0x2283 || cp == 0x226A || cp == 0x226B;
}
bool is_binary(unsigned cp) {
  return cp == '+' || cp == 0x2212 || cp == 0xB1 || cp == 0x2213 || cp == 0xD7 || cp == 0xF7 || cp == 0x22C5 ||
         cp == 0x2229 || cp == 0x222A || cp == 0x2218 || cp == 0x2295 || cp == 0x2297 || cp == 0x2227 || cp == 0x2228;
}

const char *greek_lower = "abgdezhqiklmnxoprstufcyw";
const unsigned greek_lower_cp[] = {0x3B1, 0x3B2, 0x3B3, 0x3B4, 0x3B5, 0x3B6, 0x3B7, 0x3B8, 0x3B9, 0x3BA, 0x3BB, 0x3BC,
                                   0x3BD, 0x3BE, 0x3BF, 0x3C0, 0x3C1, 0x3C3, 0x3C4, 0x3C5, 0x3C6, 0x3C7, 0x3C8, 0x3C9};

// Symbols of the SYMBOL alphabet, by the key that gives them.
struct KeySym {
  char key;
  unsigned cp;
};
const KeySym symbol_keys[] = {{'<', 0x2264}, {'>', 0x2265}, {'=', 0x2260}, {'~', 0x2248}, {'+', 0xB1},
                              {'*', 0xD7},   {'.', 0x22C5}, {'o', 0xB0},   {'8', 0x221E}, {'d', 0x2202},
                              {'D', 0x2207}, {'S', 0x2211}, {'P', 0x220F}, {'I', 0x222B}, {'r', 0x2192},
                              {'l', 0x2190}, {'u', 0x2191}, {'v', 0x2193}, {'s', 0x221A}, {'e', 0x2208},
                              {'A', 0x2200}, {'E', 0x2203}, {'h', 0x210F}, {'-', 0x2212}, {'/', 0xF7},
                              {'p', 0x221D}, {'a', 0x2220}, {'q', 0x2261}, {'c', 0x2218}, {'x', 0x2297}};

struct NationRow {
  const char *nation;
  const char *keys;
  unsigned cps[12];
};
const NationRow nations[] = {
    {"GERMAN", "aouAOUs", {0xE4, 0xF6, 0xFC, 0xC4, 0xD6, 0xDC, 0xDF}},
    {"FRENCH", "eaiouc", {0xE9, 0xE0, 0xEE, 0xF4, 0xF9, 0xE7}},
    {"SPANISH", "nNaeiou?!", {0xF1, 0xD1, 0xE1, 0xE9, 0xED, 0xF3, 0xFA, 0xBF, 0xA1}},
    {"DANISH", "aoeAOE", {0xE5, 0xF8, 0xE6, 0xC5, 0xD8, 0xC6}},
    {"ACUTE", "aeiouyAEIOUY", {0xE1, 0xE9, 0xED, 0xF3, 0xFA, 0xFD, 0xC1, 0xC9, 0xCD, 0xD3, 0xDA, 0xDD}},
    {"GRAVE", "aeiouAEIOU", {0xE0, 0xE8, 0xEC, 0xF2, 0xF9, 0xC0, 0xC8, 0xCC, 0xD2, 0xD9}},
    {"CIRCUM", "aeiouAEIOU", {0xE2, 0xEA, 0xEE, 0xF4, 0xFB, 0xC2, 0xCA, 0xCE, 0xD4, 0xDB}},
};

// Decodes one UTF-8 character at s[i]; advances i.
unsigned next_cp(const std::string &s, size_t &i) {
  unsigned char c = static_cast<unsigned char>(s[i]);
  size_t len = c < 0x80 ? 1 : (c >> 5) == 6 ? 2 : (c >> 4) == 14 ? 3 : (c >> 3) == 30 ? 4 : 1;
  if (i + len > s.size()) len = 1;
  unsigned cp = len == 1 ? c : len == 2 ? (c & 0x1F) : len == 3 ? (c & 0x0F) : (c & 0x07);
  for (size_t k = 1; k < len; ++k) cp = (cp << 6) | (static_cast<unsigned char>(s[i + k]) & 0x3F);
  i += len;
  return cp;
}

// Fonts of the layout: the text's font and its italic and bold relatives.
struct Faces {
  int upright = 0, italic = 0, bold = 0;
};

Faces faces_of(int font) {
  Faces f;
  f.upright = font;
  const FontTable &t = mirval_state().fonts;
  FontChoice c = font >= 0 && font < static_cast<int>(t.choices.size()) ? t.choices[font] : FontChoice{};
  FontChoice i = c, b = c;
  i.italic = true;
  i.file.clear();
  b.bold = true;
  b.file.clear();
  f.italic = font_index(i);
  f.bold = font_index(b);
  return f;
}

// One run of characters in one font at capital height h.
Layout run(const std::string &text, int font, double h, int strokes) {
  Layout l;
  if (text.empty()) return l;
  const MediaState &m = mirval_state().media;
  LayGlyph g;
  g.font = strokes ? strokes : font;
  g.strokes = strokes != 0;
  g.size = strokes ? h : font_size(font, h);
  auto advance = [&](const std::string &s) {
    return strokes ? hershey_width(strokes, s, h) : text_width(font, g.size, s);
  };
  if (m.spacing != 0 || m.fixed > 0) {
    double x = 0;
    for (size_t i = 0; i < text.size();) {
      size_t j = i;
      next_cp(text, j);
      g.text = text.substr(i, j - i);
      double w = advance(g.text);
      if (m.fixed > 0) {
        g.x = x + (m.fixed * h - w) / 2;
        x += m.fixed * h;
      } else {
        g.x = x;
        x += w + m.spacing * h;
      }
      l.glyphs.push_back(g);
      i = j;
    }
    l.width = m.fixed > 0 ? x : x - m.spacing * h;
  } else {
    g.text = text;
    l.glyphs.push_back(g);
    l.width = advance(text);
  }
  l.width *= m.stretch;
  for (LayGlyph &q : l.glyphs) q.x *= m.stretch;
  l.ascent = 1.05 * h;
  l.descent = 0.28 * h;
  return l;
}

// ---- TeX-style formulas ----

struct Scripts {
  Layout sup, sub;
  bool has_sup = false, has_sub = false;
};

struct TexParser {
  const std::string &s;
  size_t i = 0;
  Faces faces;
  const MediaState &m;

  TexParser(const std::string &text, Faces f) : s(text), faces(f), m(mirval_state().media) {}

  void skip_blanks() {
    while (i < s.size() && s[i] == ' ') ++i;
  }

  std::string command() {  // after the backslash
    size_t j = i;
    if (j < s.size() && std::isalpha(static_cast<unsigned char>(s[j]))) {
      while (j < s.size() && std::isalpha(static_cast<unsigned char>(s[j]))) ++j;
    } else if (j < s.size()) {
      ++j;
    }
    std::string name = s.substr(i, j - i);
    i = j;
    return name;
  }

  // A group {...} or a single atom, at capital height h.
  Layout argument(double h) {
    skip_blanks();
    if (i < s.size() && s[i] == '{') {
      ++i;
      Layout l = list(h, '}');
      if (i < s.size() && s[i] == '}') ++i;
      return l;
    }
    return atom(h);
  }

  std::string raw_group() {
    skip_blanks();
    if (i < s.size() && s[i] == '{') {
      size_t depth = 1, j = i + 1;
      while (j < s.size() && depth) {
        if (s[j] == '{') ++depth;
        else if (s[j] == '}') --depth;
        ++j;
      }
      std::string in = s.substr(i + 1, j - i - 1 - (depth == 0 ? 1 : 0));
      i = j;
      return in;
    }
    if (i < s.size()) return std::string(1, s[i++]);
    return "";
  }

  Layout glyph(unsigned cp, double h) {
    bool letter = (cp < 0x80 && std::isalpha(static_cast<int>(cp))) || (cp >= 0x3B1 && cp <= 0x3C9);
    int font = letter && m.tex_italic ? faces.italic : faces.upright;
    if (cp == '-') cp = 0x2212;
    Layout l = run(utf8_of(cp), font, h, 0);
    double pad = is_relation(cp) ? 0.28 * h : is_binary(cp) ? 0.22 * h : cp == ',' ? 0.0 : 0;
    if (pad > 0) {
      Layout b;
      b.add(l, pad, 0);
      b.width += pad;
      return b;
    }
    if (cp == ',') l.width += 0.2 * h;
    return l;
  }

  Layout fraction(double h) {
    double hs = h * 0.8;
    Layout num = argument(hs), den = argument(hs);
    double gap = 0.18 * h, axis = 0.45 * h, bar = std::max(0.06 * h, 0.5), pad = 0.12 * h;
    double w = std::max(num.width, den.width) + 2 * pad;
    Layout l;
    l.add(num, (w - num.width) / 2, axis + bar / 2 + gap + num.descent);
    l.add(den, (w - den.width) / 2, axis - bar / 2 - gap - den.ascent);
    l.bars.push_back({0, axis - bar / 2, w, axis + bar / 2});
    l.width = w + 0.1 * h;
    return l;
  }

  Layout root(double h) {
    Layout index;
    skip_blanks();
    bool has_index = false;
    if (i < s.size() && s[i] == '[') {
      size_t end = s.find(']', i);
      if (end != std::string::npos) {
        std::string in = s.substr(i + 1, end - i - 1);
        i = end + 1;
        TexParser p(in, faces);
        index = p.list(h * 0.55, 0);
        has_index = true;
      }
    }
    Layout body = argument(h);
    double top = body.ascent + 0.15 * h, bottom = -std::max(body.descent, 0.1 * h);
    double lw = std::max(0.07 * h, 0.6);
    double hook = 0.75 * h;
    double lead = has_index ? std::max(0.0, index.width - 0.3 * h) : 0;
    Layout l;
    LayLine sign;
    sign.width = lw;
    sign.xy = {lead, 0.45 * h, lead + 0.18 * h, 0.55 * h, lead + 0.42 * h, bottom, lead + hook, top,
               lead + hook + body.width + 0.15 * h, top};
    l.lines.push_back(sign);
    if (has_index) l.add(index, 0, 0.65 * h);
    l.add(body, lead + hook + 0.08 * h, 0);
    l.width = lead + hook + body.width + 0.25 * h;
    l.ascent = std::max(l.ascent, top + lw);
    l.descent = std::max(l.descent, -bottom + lw);
    return l;
  }

  Layout accent(const std::string &name, double h) {
    Layout body = argument(h);
    Layout l;
    l.add(body, 0, 0);
    double top = body.ascent + 0.1 * h;
    if (name == "bar" || name == "overline") {
      double t = std::max(0.06 * h, 0.5);
      l.bars.push_back({0.05 * h, top, body.width - 0.02 * h, top + t});
      l.ascent = top + t;
      return l;
    }
    unsigned cp = name == "hat" ? 0x2C6 : name == "tilde" ? 0x2DC : name == "vec" ? 0x2192 : name == "dot" ? 0x2D9 : 0xA8;
    double hs = name == "vec" ? 0.6 * h : h;
    Layout a = run(utf8_of(cp), faces.upright, hs, 0);
    double lift = name == "vec" ? top + 0.05 * h : top - 0.55 * h;
    l.add(a, (body.width - a.width) / 2 + (m.tex_italic ? 0.08 * h : 0), lift);
    l.ascent = std::max(l.ascent, top + 0.35 * h);
    return l;
  }

  // An atom, and the scripts that follow it.
  Layout atom(double h) {
    skip_blanks();
    if (i >= s.size()) return Layout{};
    char c = s[i];
    if (c == '{') {
      return argument(h);
    }
    if (c == '\\') {
      ++i;
      std::string name = command();
      if (name == "frac" || name == "dfrac" || name == "tfrac") return fraction(h);
      if (name == "sqrt") return root(h);
      if (name == "hat" || name == "bar" || name == "overline" || name == "vec" || name == "dot" ||
          name == "ddot" || name == "tilde")
        return accent(name, h);
      if (name == "mathrm" || name == "text" || name == "rm" || name == "mathbf" || name == "textbf") {
        bool bold = name == "mathbf" || name == "textbf";
        std::string in = name == "rm" ? std::string() : raw_group();
        if (name == "text") return run(in, faces.upright, h, 0);
        TexParser p(in, faces);
        Faces f = faces;
        f.italic = bold ? faces.bold : faces.upright;
        f.upright = bold ? faces.bold : faces.upright;
        p.faces = f;
        return p.list(h, 0);
      }
      if (name == "left" || name == "right" || name == "big" || name == "Big" || name == "displaystyle") return Layout{};
      if (name == "," || name == ":" || name == ";" || name == " " || name == "quad" || name == "qquad" || name == "!") {
        Layout sp;
        sp.width = name == "quad" ? h * 1.4 : name == "qquad" ? h * 2.8 : name == "!" ? -0.15 * h : 0.25 * h;
        return sp;
      }
      if (name == "{" || name == "}" || name == "$" || name == "%" || name == "#" || name == "&" || name == "_" ||
          name == "\\")
        return run(name == "\\" ? " " : name, faces.upright, h, 0);
      if (is_function_name(name)) {
        Layout w = run(name, faces.upright, h, 0);
        Layout b;
        b.add(w, 0.08 * h, 0);
        b.width += 0.16 * h;
        return b;
      }
      std::string sym = tex_symbol(name);
      if (sym.empty()) return run("\\" + name, faces.upright, h, 0);  // shown as written
      size_t k = 0;
      return glyph(next_cp(sym, k), h);
    }
    unsigned cp = next_cp(s, i);
    return glyph(cp, h);
  }

  // The superscript and subscript after a nucleus, in either order; primes join the
  // nucleus when one is given (big operators take none).
  Scripts scripts(double h, Layout *primed) {
    Scripts sc;
    for (int round = 0; round < 2; ++round) {
      skip_blanks();
      if (i < s.size() && s[i] == '^' && !sc.has_sup) {
        ++i;
        sc.sup = argument(h * m.tex_scale);
        sc.has_sup = true;
      } else if (i < s.size() && s[i] == '_' && !sc.has_sub) {
        ++i;
        sc.sub = argument(h * m.tex_scale);
        sc.has_sub = true;
      } else if (primed && i < s.size() && s[i] == '\'') {
        ++i;
        Layout p = run(utf8_of(0x2032), faces.upright, h, 0);
        primed->add(p, primed->width + 0.02 * h, 0);
        --round;
      }
    }
    return sc;
  }

  // Big operators: larger, limits above and below (integrals: at the side).
  Layout big_operator(const std::string &name, double h) {
    size_t k = 0;
    std::string sym = tex_symbol(name);
    unsigned cp = next_cp(sym, k);
    bool integral = is_integral(name);
    double hb = integral ? 1.6 * h : 1.35 * h;
    Layout op = run(utf8_of(cp), faces.upright, hb, 0);
    double shift = -0.3 * h;  // centre the operator on the axis
    auto [sup, sub, has_sup, has_sub] = scripts(h, nullptr);
    Layout l;
    if (integral) {
      l.add(op, 0, shift);
      double x = op.width + 0.05 * h;
      double right = x;
      if (has_sup) {
        l.add(sup, x + 0.1 * h, shift + op.ascent - sup.ascent * 0.6);
        right = std::max(right, x + 0.1 * h + sup.width);
      }
      if (has_sub) {
        l.add(sub, x - 0.2 * h, shift - op.descent + 0.1 * h);
        right = std::max(right, x - 0.2 * h + sub.width);
      }
      l.width = right + 0.15 * h;
      return l;
    }
    double w = std::max({op.width, sup.width, sub.width});
    l.add(op, (w - op.width) / 2, shift);
    if (has_sup) l.add(sup, (w - sup.width) / 2, shift + op.ascent * 0.9 + sup.descent + 0.1 * h);
    if (has_sub) l.add(sub, (w - sub.width) / 2, shift - op.descent - sub.ascent - 0.05 * h);
    l.width = w + 0.15 * h;
    return l;
  }

  // A list of atoms with their scripts, up to 'end' (0: the end of the text).
  Layout list(double h, char end) {
    Layout l;
    double x = 0;
    while (true) {
      skip_blanks();
      if (i >= s.size() || (end && s[i] == end)) break;
      if (s[i] == '}') {  // a stray closing brace
        ++i;
        continue;
      }
      Layout nucleus;
      // big operators take their limits themselves
      if (s[i] == '\\') {
        size_t save = i;
        ++i;
        std::string name = command();
        if (is_big_op(name)) {
          nucleus = big_operator(name, h);
          l.add(nucleus, x, 0);
          x += nucleus.width;
          continue;
        }
        i = save;
      }
      if (s[i] == '^' || s[i] == '_') {
        nucleus = Layout{};  // scripts without a base
      } else {
        nucleus = atom(h);
      }
      auto [sup, sub, has_sup, has_sub] = scripts(h, &nucleus);
      l.add(nucleus, x, 0);
      double w = nucleus.width;
      double sx = x + w + 0.04 * h;
      double right = x + w;
      if (has_sup) {
        double raise = std::max(m.tex_raise * h, nucleus.ascent - 0.45 * h) + (has_sub ? 0.1 * h : 0);
        l.add(sup, sx, raise);
        right = std::max(right, sx + sup.width);
      }
      if (has_sub) {
        double lower = std::max(m.tex_lower * h, nucleus.descent) + (has_sup ? 0.1 * h : 0);
        l.add(sub, sx, -lower);
        right = std::max(right, sx + sub.width);
      }
      x = right + ((has_sup || has_sub) ? 0.05 * h : 0);
      l.width = std::max(l.width, x);
    }
    l.width = x;
    if (l.ascent == 0) l.ascent = 1.05 * h;
    return l;
  }
};

std::string alphabet_char(const std::string &alph, unsigned cp) {
  if (cp >= 0x80) return utf8_of(cp);
  if (alph == "GREEK") {
    std::string g = greek_of(static_cast<char>(cp));
    if (!g.empty()) return g;
  } else if (alph == "SYMBOL") {
    for (const KeySym &k : symbol_keys)
      if (k.key == static_cast<char>(cp)) return utf8_of(k.cp);
  }
  return utf8_of(cp);
}

// Plain text with instruction characters, national shifts and the base alphabet.
Layout mixed(const std::string &s, const Faces &faces, double h, bool mix) {
  const MediaState &m = mirval_state().media;
  Layout l;
  double x = 0;
  int level = 0;  // 1 raised, -1 lowered
  std::string alph = m.base;
  std::string pending;
  int strokes = m.stroke_font;
  auto font_of = [&](const std::string &a) {
    return a == "ITALIC" || a == "SCRIPT" ? faces.italic : a == "BOLD" ? faces.bold : faces.upright;
  };
  std::string pending_alph = alph;
  int pending_level = 0;
  auto flush = [&]() {
    if (pending.empty()) return;
    double hh = pending_level ? h * m.tex_scale : h;
    double dy = pending_level > 0 ? m.tex_raise * h : pending_level < 0 ? -m.tex_lower * h : 0;
    Layout r = run(pending, font_of(pending_alph), hh, strokes);
    l.add(r, x, dy);
    x += r.width;
    pending.clear();
  };
  for (size_t i = 0; i < s.size();) {
    char c = s[i];
    if (mix && c != 0 && (c == m.sup || c == m.sub || c == m.res)) {
      flush();
      level = c == m.sup ? 1 : c == m.sub ? -1 : 0;
      ++i;
      pending_level = level;
      continue;
    }
    bool shifted = false;
    if (mix) {
      for (const MixShift &sh : m.shifts) {
        if (sh.on && c == sh.on && alph != sh.alphabet) {
          flush();
          alph = sh.alphabet;
          shifted = true;
          break;
        }
        if (sh.off && c == sh.off && alph == sh.alphabet) {
          flush();
          alph = m.base;
          shifted = true;
          break;
        }
      }
    }
    if (shifted) {
      ++i;
      pending_alph = alph;
      continue;
    }
    bool national = false;
    for (const auto &kv : m.nation) {
      if (c == kv.second && i + 1 < s.size()) {
        std::string t = nation_letter(kv.first, s[i + 1]);
        if (!t.empty()) {
          pending += t;
          i += 2;
          national = true;
          break;
        }
      }
    }
    if (national) continue;
    unsigned cp = next_cp(s, i);
    pending += alphabet_char(alph, cp);
  }
  flush();
  l.width = std::max(l.width, x);
  if (l.ascent == 0) l.ascent = 1.05 * h;
  return l;
}

}  // namespace

std::string tex_symbol(const std::string &name) {
  for (const Sym &s : symbols)
    if (name == s.name) return utf8_of(s.cp);
  return "";
}

std::string greek_of(char c) {
  const char *p = std::strchr(greek_lower, std::tolower(static_cast<unsigned char>(c)));
  if (!p || !c || !std::isalpha(static_cast<unsigned char>(c))) return "";
  unsigned cp = greek_lower_cp[p - greek_lower];
  if (std::isupper(static_cast<unsigned char>(c))) cp -= 0x20;
  if (cp == 0x3A2) cp = 0x3A3;  // there is no capital final sigma
  return utf8_of(cp);
}

std::string nation_letter(const std::string &nation, char c) {
  for (const NationRow &r : nations) {
    if (nation != r.nation) continue;
    const char *p = std::strchr(r.keys, c);
    if (p && c) return utf8_of(r.cps[p - r.keys]);
  }
  return "";
}

bool rich_text(const std::string &text) {
  const MediaState &m = mirval_state().media;
  if (m.slant != 0 || m.stretch != 1 || m.spacing != 0 || m.fixed > 0 || m.stroke_font || !m.nation.empty() ||
      m.base != "STANDARD" || m.text_bg >= 0 || m.frame > 0)
    return true;
  if (text.find('\n') != std::string::npos) return true;
  if (m.tex && text.find('$') != std::string::npos) return true;
  return m.mix;
}

Layout layout_text(const std::string &text, const LayoutStyle &st) {
  Faces faces = faces_of(st.font);
  double h = st.height;
  if (!st.tex || text.find('$') == std::string::npos) return mixed(text, faces, h, st.mix);
  // text and formulas alternate at every '$' that is not escaped
  Layout l;
  double x = 0;
  bool math = false;
  std::string piece;
  auto emit = [&](bool as_math) {
    if (piece.empty()) return;
    Layout b;
    if (as_math) {
      TexParser p(piece, faces);
      b = p.list(h, 0);
    } else {
      b = mixed(piece, faces, h, st.mix);
    }
    l.add(b, x, 0);
    x += b.width;
    piece.clear();
  };
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && i + 1 < text.size() && text[i + 1] == '$') {
      piece += math ? "\\$" : "$";
      ++i;
      continue;
    }
    if (text[i] == '$') {
      emit(math);
      math = !math;
      continue;
    }
    piece += text[i];
  }
  emit(math);
  l.width = x;
  if (l.ascent == 0) l.ascent = 1.05 * h;
  if (l.descent == 0) l.descent = 0.28 * h;
  return l;
}

Layout layout_lines(const std::string &text, const LayoutStyle &st) {
  if (text.find('\n') == std::string::npos) return layout_text(text, st);
  const MediaState &m = mirval_state().media;
  Layout l;
  double y = 0;
  size_t at = 0;
  while (true) {
    size_t nl = text.find('\n', at);
    std::string line = text.substr(at, nl == std::string::npos ? std::string::npos : nl - at);
    l.add(layout_text(line, st), 0, y);
    if (nl == std::string::npos) break;
    y -= m.line_spacing * st.height;
    at = nl + 1;
  }
  return l;
}
