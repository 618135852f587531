#include "draw/colours.h"
#include "output/device.h"
#include "draw/draw.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "mirval.h"
#include "core/state.h"
#include "core/trace.h"

#include <algorithm>
#include <cmath>

namespace {

Rgb mix(Rgb a, Rgb b, double t) {
  return {float(a.r + (b.r - a.r) * t), float(a.g + (b.g - a.g) * t), float(a.b + (b.b - a.b) * t)};
}

// The colour of position t (0..1) on the scale of entries 1..254 of a named table.
Rgb scale_colour(const std::string &base, double t) {
  if (base == "RAIN") return hsv_to_rgb(260 * (1 - t), 1, 1);
  if (base == "SPEC") return hsv_to_rgb(300 * (1 - t), 1, 0.55 + 0.45 * std::min(1.0, 4 * t));
  if (base == "GREY") return {float(t), float(t), float(t)};
  // TEMP: cool blue through white to warm red
  const Rgb cold{0.23f, 0.30f, 0.75f}, mid{0.95f, 0.95f, 0.95f}, warm{0.71f, 0.02f, 0.15f};
  return t < 0.5 ? mix(cold, mid, 2 * t) : mix(mid, warm, 2 * t - 1);
}

ColourTable &table() {
  ColourState &c = mirval_state().colours;
  if (!c.loaded) {
    make_table(c.name, c.table);
    c.loaded = true;
  }
  return c.table;
}

float unit(float x) { return std::clamp(std::isfinite(x) ? x : 0.0f, 0.0f, 1.0f); }

}  // namespace

bool make_table(const std::string &name, ColourTable &t) {
  bool reversed = name.size() == 5 && name[0] == 'R';
  std::string base = reversed ? name.substr(1) : name;
  if (base != "RAIN" && base != "SPEC" && base != "GREY" && base != "TEMP") return false;
  t[0] = {0, 0, 0};
  t[255] = {1, 1, 1};
  for (int i = 1; i <= 254; ++i) {
    double pos = (i - 1) / 253.0;
    t[i] = scale_colour(base, reversed ? 1 - pos : pos);
  }
  return true;
}

Rgb table_rgb(int n) { return table()[std::clamp(n, 0, 255)]; }

int nearest_index(Rgb c) {
  const ColourTable &t = table();
  int best = 0;
  double bd = 1e9;
  for (int i = 0; i < 256; ++i) {
    double d = (t[i].r - c.r) * (t[i].r - c.r) + (t[i].g - c.g) * (t[i].g - c.g) +
               (t[i].b - c.b) * (t[i].b - c.b);
    if (d < bd) {
      bd = d;
      best = i;
    }
  }
  return best;
}

Rgb hsv_to_rgb(double h, double s, double v) {
  h = std::fmod(h, 360.0);
  if (h < 0) h += 360;
  double c = v * s, x = c * (1 - std::fabs(std::fmod(h / 60, 2.0) - 1)), m = v - c;
  double r = 0, g = 0, b = 0;
  switch (static_cast<int>(h / 60)) {
    case 0: r = c, g = x; break;
    case 1: r = x, g = c; break;
    case 2: g = c, b = x; break;
    case 3: g = x, b = c; break;
    case 4: r = x, b = c; break;
    default: r = c, b = x; break;
  }
  return {float(r + m), float(g + m), float(b + m)};
}

void rgb_to_hsv(Rgb c, double &h, double &s, double &v) {
  double mx = std::max({c.r, c.g, c.b}), mn = std::min({c.r, c.g, c.b}), d = mx - mn;
  v = mx;
  s = mx > 0 ? d / mx : 0;
  if (d == 0) h = 0;
  else if (mx == c.r) h = 60 * std::fmod((c.g - c.b) / d + 6, 6.0);
  else if (mx == c.g) h = 60 * ((c.b - c.r) / d + 2);
  else h = 60 * ((c.r - c.g) / d + 4);
}

void set_pen_rgb(Rgb c, int index) {
  PenState &pen = mirval_state().pen;
  pen.fore = false;
  pen.rgb = c;
  pen.index = index;
}

extern "C" {

void color(const char *cname) {
  mv_tracef("color(%s)", mv_tstr(cname).c_str());
  struct Named {
    const char *name;
    Rgb rgb;
  };
  static const Named names[] = {{"BLACK", {0, 0, 0}},     {"WHITE", {1, 1, 1}},
                                {"RED", {1, 0, 0}},       {"GREEN", {0, 0.8f, 0}},
                                {"BLUE", {0, 0, 1}},      {"CYAN", {0, 0.8f, 0.8f}},
                                {"MAGENTA", {1, 0, 1}},   {"YELLOW", {1, 0.85f, 0}},
                                {"ORANGE", {1, 0.5f, 0}}, {"GRAY", {0.5f, 0.5f, 0.5f}},
                                {"GREY", {0.5f, 0.5f, 0.5f}}};
  if (same(cname, "FORE")) {
    mirval_state().pen.fore = true;
    mirval_state().pen.index = -1;
    return;
  }
  if (same(cname, "BACK")) {
    set_pen_rgb(back_rgb(), -1);
    return;
  }
  for (const Named &n : names)
    if (same(cname, n.name)) {
      set_pen_rgb(n.rgb, -1);
      return;
    }
  mv_warn("color", "unknown colour %s", mv_tstr(cname).c_str());
}

void setrgb(float r, float g, float b) {
  mv_tracef("setrgb(%g, %g, %g)", (double)r, (double)g, (double)b);
  set_pen_rgb({unit(r), unit(g), unit(b)}, -1);
}

void setclr(int ncol) {
  mv_tracef("setclr(%d)", ncol);
  if (ncol < 0 || ncol > 255) {
    mv_warn("setclr", "colour number %d out of range 0..255", ncol);
    return;
  }
  set_pen_rgb(table_rgb(ncol), ncol);
}

void setvlt(const char *cvlt) {
  mv_tracef("setvlt(%s)", mv_tstr(cvlt).c_str());
  std::string name = upper(cvlt);
  ColourState &c = mirval_state().colours;
  if (!make_table(name, c.table)) {
    mv_warn("setvlt", "unknown colour table %s", mv_tstr(cvlt).c_str());
    return;
  }
  c.name = name;
  c.loaded = true;
}

void myvlt(const float *r, const float *g, const float *b, int n) {
  mv_tracef("myvlt(r=%s, g=%s, b=%s, n=%d)", mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(),
            mv_tarr(n, "floats").c_str(), n);
  if (!r || !g || !b || n <= 0) {
    mv_warn("myvlt", "no colours given (n = %d)", n);
    return;
  }
  if (n > 256) mv_warn("myvlt", "only the first 256 of %d colours are used", n);
  ColourTable &t = table();
  for (int i = 0; i < std::min(n, 256); ++i) t[i] = {unit(r[i]), unit(g[i]), unit(b[i])};
  mirval_state().colours.name = "USER";
}

int getclr(void) {
  mv_tracef("getclr()");
  const PenState &pen = mirval_state().pen;
  return pen.index >= 0 ? pen.index : nearest_index(pen_rgb());
}

void getrgb(float *r, float *g, float *b) {
  mv_tracef("getrgb(r=out, g=out, b=out)");
  Rgb c = pen_rgb();
  if (r) *r = c.r;
  if (g) *g = c.g;
  if (b) *b = c.b;
}

void setind(int n, float x1, float x2, float x3) {
  mv_tracef("setind(%d, %g, %g, %g)", n, (double)x1, (double)x2, (double)x3);
  if (n < 0 || n > 255) {
    mv_warn("setind", "index %d out of range 0..255", n);
    return;
  }
  table()[n] = {unit(x1), unit(x2), unit(x3)};
}

void getind(int index, float *r, float *g, float *b) {
  mv_tracef("getind(index=%d, r=out, g=out, b=out)", index);
  if (index < 0 || index > 255) mv_warn("getind", "index %d out of range 0..255", index);
  Rgb c = table_rgb(index);
  if (r) *r = c.r;
  if (g) *g = c.g;
  if (b) *b = c.b;
}

void hsvrgb(float h, float s, float v, float *r, float *g, float *b) {
  mv_tracef("hsvrgb(h=%g, s=%g, v=%g, r=out, g=out, b=out)", (double)h, (double)s, (double)v);
  Rgb c = hsv_to_rgb(std::isfinite(h) ? h : 0, unit(s), unit(v));
  if (r) *r = c.r;
  if (g) *g = c.g;
  if (b) *b = c.b;
}

void rgbhsv(float r, float g, float b, float *h, float *s, float *v) {
  mv_tracef("rgbhsv(r=%g, g=%g, b=%g, h=out, s=out, v=out)", (double)r, (double)g, (double)b);
  double hh, ss, vv;
  rgb_to_hsv({unit(r), unit(g), unit(b)}, hh, ss, vv);
  if (h) *h = float(hh);
  if (s) *s = float(ss);
  if (v) *v = float(vv);
}

const char *getvlt(void) {
  mv_tracef("getvlt()");
  return mirval_state().colours.name.c_str();
}

}
