#include "media/hershey.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

struct Glyph {
  int left = 0, right = 0;
  std::vector<std::vector<std::pair<int, int>>> strokes;
};

struct Set {
  bool loaded = false, ok = false;
  std::array<Glyph, 96> glyphs;  // ASCII 32..127
};

const char *file_of(int set) {
  return set == 2 ? "gothgbt.jhf" : "futural.jhf";
}

// Glyph files: a 5-character number, a 3-character count of coordinate pairs (the first pair
// being the left and right edges), then the pairs as letters around 'R'; " R" lifts the pen.
// Long glyphs continue on the next line.
void load(int set, Set &s) {
  s.loaded = true;
  std::string dir = std::getenv("MIRVAL_HERSHEY_DIR") ? std::getenv("MIRVAL_HERSHEY_DIR") : "/usr/share/hershey-fonts";
  std::string name = dir + "/" + file_of(set);
  FILE *fp = std::fopen(name.c_str(), "r");
  if (!fp) return;
  std::string data;
  char buf[4096];
  size_t n;
  while ((n = std::fread(buf, 1, sizeof buf, fp)) > 0) data.append(buf, n);
  std::fclose(fp);
  size_t i = 0;
  int k = 0;
  auto skip_newlines = [&]() {
    while (i < data.size() && (data[i] == '\n' || data[i] == '\r')) ++i;
  };
  while (k < 96) {
    skip_newlines();
    if (i + 8 > data.size()) break;
    int count = std::atoi(data.substr(i + 5, 3).c_str());
    i += 8;
    std::string pairs;
    while (static_cast<int>(pairs.size()) < 2 * count && i < data.size()) {
      if (data[i] != '\n' && data[i] != '\r') pairs += data[i];
      ++i;
    }
    if (static_cast<int>(pairs.size()) < 2 * count || count < 1) break;
    Glyph &g = s.glyphs[k++];
    g.left = pairs[0] - 'R';
    g.right = pairs[1] - 'R';
    g.strokes.emplace_back();
    for (int p = 1; p < count; ++p) {
      char a = pairs[2 * p], b = pairs[2 * p + 1];
      if (a == ' ' && b == 'R') {
        g.strokes.emplace_back();
        continue;
      }
      g.strokes.back().push_back({a - 'R', b - 'R'});
    }
  }
  s.ok = k == 96;
}

Set &get(int set) {
  static Set sets[3];
  Set &s = sets[set == 2 ? 2 : 1];
  if (!s.loaded) load(set == 2 ? 2 : 1, s);
  return s;
}

const Glyph *glyph_of(Set &s, unsigned char c) {
  if (!s.ok) return nullptr;
  if (c < 32 || c > 127) c = '?';
  return &s.glyphs[c - 32];
}

// Capital letters reach from -12 to +9 in glyph units.
constexpr double cap_units = 21;
constexpr double base_units = 9;

}  // namespace

bool hershey_available(int set) { return get(set).ok; }

double hershey_width(int set, const std::string &text, double h) {
  Set &s = get(set);
  double w = 0;
  for (unsigned char c : text) {
    if ((c & 0xC0) == 0x80) continue;  // continuation bytes of UTF-8 count once
    const Glyph *g = glyph_of(s, c);
    w += g ? g->right - g->left : 16;
  }
  return w * h / cap_units;
}

std::vector<std::vector<double>> hershey_strokes(int set, const std::string &text, double h) {
  Set &s = get(set);
  std::vector<std::vector<double>> out;
  double k = h / cap_units, x = 0;
  for (unsigned char c : text) {
    if ((c & 0xC0) == 0x80) continue;
    const Glyph *g = glyph_of(s, c);
    if (!g) continue;
    for (const auto &st : g->strokes) {
      if (st.size() < 2) continue;
      std::vector<double> line;
      for (auto [px, py] : st) {
        line.push_back(x + (px - g->left) * k);
        line.push_back((base_units - py) * k);
      }
      out.push_back(std::move(line));
    }
    x += (g->right - g->left) * k;
  }
  return out;
}
