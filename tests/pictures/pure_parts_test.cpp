// The pure parts of the engine: label steps and ranges, colour tables, clipping, curve
// interpolation, and the image encoders.
#include "draw/clip.h"
#include "draw/colours.h"
#include "plots/curves.h"
#include "draw/fonts.h"
#include "output/raster_formats.h"
#include "axes/scaling.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

TEST(LabelSteps, AreOneTwoOrFiveTimesAPowerOfTen) {
  EXPECT_DOUBLE_EQ(nice_step(0.13), 0.2);
  EXPECT_DOUBLE_EQ(nice_step(3), 5);
  EXPECT_DOUBLE_EQ(nice_step(7), 10);
  EXPECT_DOUBLE_EQ(nice_step(1), 1);
  EXPECT_DOUBLE_EQ(nice_step(2.1), 5);
  EXPECT_NEAR(nice_step(0.0011), 0.002, 1e-15);
  EXPECT_DOUBLE_EQ(nice_step(450), 500);
}

TEST(AutomaticScaling, RoundsOutwardToWholeSteps) {
  AxisRange r = auto_range(0.3, 9.7, false, 8);
  EXPECT_DOUBLE_EQ(r.a, 0);
  EXPECT_DOUBLE_EQ(r.e, 10);
  EXPECT_DOUBLE_EQ(r.step, 2);
  EXPECT_DOUBLE_EQ(r.org, 0);
  r = auto_range(-0.93, 0.98, false, 5);
  EXPECT_DOUBLE_EQ(r.a, -1);
  EXPECT_DOUBLE_EQ(r.e, 1);
  EXPECT_DOUBLE_EQ(r.step, 0.5);
}

TEST(AutomaticScaling, WidensAnEmptyRange) {
  AxisRange r = auto_range(5, 5, false, 8);
  EXPECT_LT(r.a, 5);
  EXPECT_GT(r.e, 5);
  r = auto_range(0, 0, false, 8);
  EXPECT_LT(r.a, 0);
  EXPECT_GT(r.e, 0);
}

TEST(AutomaticScaling, LogAxesUseWholeDecades) {
  AxisRange r = auto_range(0.003, 90, true, 12);
  EXPECT_TRUE(r.log);
  EXPECT_DOUBLE_EQ(r.a, -3);
  EXPECT_DOUBLE_EQ(r.e, 2);
  EXPECT_DOUBLE_EQ(r.step, 1);
  r = auto_range(1, 1e12, true, 4);
  EXPECT_DOUBLE_EQ(r.step, 3);
  EXPECT_DOUBLE_EQ(r.e, 12);
}

TEST(LabelValues, StartAtTheOriginAndStayInRange) {
  AxisRange r{0, 10, 0, 2, false};
  EXPECT_EQ(label_values(r), (std::vector<double>{0, 2, 4, 6, 8, 10}));
  AxisRange shifted{0, 10, 1, 4, false};
  EXPECT_EQ(label_values(shifted), (std::vector<double>{1, 5, 9}));
  AxisRange reversed{10, 0, 0, 5, false};
  EXPECT_EQ(label_values(reversed), (std::vector<double>{0, 5, 10}));
  AxisRange tenths{-1, 1, -1, 0.5, false};
  std::vector<double> v = label_values(tenths);
  ASSERT_EQ(v.size(), 5u);
  EXPECT_EQ(v[2], 0);
  EXPECT_FALSE(std::signbit(v[2]));
}

TEST(LabelValues, RefuseAbsurdSteps) {
  AxisRange r{0, 1, 0, 1e-9, false};
  EXPECT_TRUE(label_values(r).empty());
}

TEST(LabelDigits, AreTheFewestThatPrintEveryValue) {
  EXPECT_EQ(needed_digits({0, 2, 4}), 0);
  EXPECT_EQ(needed_digits({0, 0.5, 1}), 1);
  EXPECT_EQ(needed_digits({0.25, 0.5}), 2);
  EXPECT_EQ(needed_digits({0.001}), 3);
}

TEST(AxisLetters, ParseAnyCombination) {
  EXPECT_EQ(axis_bits("X"), 1);
  EXPECT_EQ(axis_bits("yx"), 3);
  EXPECT_EQ(axis_bits("XYZ"), 7);
  EXPECT_EQ(axis_bits("CONTOUR"), 0);
  EXPECT_EQ(axis_bits(nullptr), 0);
}

TEST(ColourTables, RainbowRunsFromVioletBlueToRed) {
  ColourTable t;
  ASSERT_TRUE(make_table("RAIN", t));
  EXPECT_EQ(t[0].r + t[0].g + t[0].b, 0);
  EXPECT_EQ(t[255].r + t[255].g + t[255].b, 3);
  EXPECT_GT(t[1].b, 0.9);
  EXPECT_GT(t[1].r, t[1].g);  // violet-blue
  EXPECT_GT(t[254].r, 0.99);
  EXPECT_LT(t[254].g, 0.05);
}

TEST(ColourTables, ReversedFormsMirrorTheScale) {
  ColourTable t, r;
  for (const char *name : {"RAIN", "SPEC", "GREY", "TEMP"}) {
    ASSERT_TRUE(make_table(name, t));
    ASSERT_TRUE(make_table(std::string("R") + name, r));
    for (int i = 1; i <= 254; ++i) {
      EXPECT_FLOAT_EQ(t[i].r, r[255 - i].r) << name << " " << i;
      EXPECT_FLOAT_EQ(t[i].b, r[255 - i].b) << name << " " << i;
    }
  }
  EXPECT_FALSE(make_table("PLAID", t));
}

TEST(ColourTables, GreyRisesAndTempIsWhiteInTheMiddle) {
  ColourTable t;
  ASSERT_TRUE(make_table("GREY", t));
  for (int i = 1; i < 255; ++i) EXPECT_LE(t[i].r, t[i + 1].r);
  ASSERT_TRUE(make_table("TEMP", t));
  EXPECT_GT(t[127].r + t[127].g + t[127].b, 2.7);
  EXPECT_GT(t[1].b, t[1].r);
  EXPECT_GT(t[254].r, t[254].b);
}

TEST(Hsv, ConvertsBothWays) {
  Rgb c = hsv_to_rgb(120, 1, 1);
  EXPECT_FLOAT_EQ(c.g, 1);
  EXPECT_FLOAT_EQ(c.r, 0);
  for (double h : {0.0, 45.0, 200.0, 330.0}) {
    Rgb q = hsv_to_rgb(h, 0.5, 0.8);
    double hh, s, v;
    rgb_to_hsv(q, hh, s, v);
    EXPECT_NEAR(hh, h, 1e-4);
    EXPECT_NEAR(s, 0.5, 1e-6);
    EXPECT_NEAR(v, 0.8, 1e-6);
  }
}

TEST(Clipping, CutsSegmentsAtTheRectangle) {
  Rect r{0, 0, 10, 10};
  auto pieces = clip_polyline({{-5, 5}, {5, 5}, {15, 5}}, r);
  ASSERT_EQ(pieces.size(), 1u);
  ASSERT_EQ(pieces[0].size(), 3u);
  EXPECT_DOUBLE_EQ(pieces[0][0].x, 0);
  EXPECT_DOUBLE_EQ(pieces[0][2].x, 10);
}

TEST(Clipping, SplitsALineThatLeavesAndReturns) {
  Rect r{0, 0, 10, 10};
  auto pieces = clip_polyline({{2, 2}, {2, 20}, {8, 20}, {8, 2}}, r);
  ASSERT_EQ(pieces.size(), 2u);
  EXPECT_DOUBLE_EQ(pieces[0][1].y, 10);
  EXPECT_DOUBLE_EQ(pieces[1][0].y, 10);
  EXPECT_TRUE(clip_polyline({{20, 20}, {30, 30}}, r).empty());
}

TEST(Clipping, DropsPointsThatAreNotNumbers) {
  Rect r{0, 0, 10, 10};
  auto pieces = clip_polyline({{1, 1}, {2, 2}, {NAN, 3}, {4, 4}, {5, 5}}, r);
  EXPECT_EQ(pieces.size(), 2u);
}

TEST(Clipping, CutsPolygons) {
  Rect r{0, 0, 10, 10};
  std::vector<Pt> cut = clip_polygon({{-10, -10}, {20, -10}, {20, 20}, {-10, 20}}, r);
  double area = 0;
  for (size_t i = 0; i < cut.size(); ++i) {
    Pt a = cut[i], b = cut[(i + 1) % cut.size()];
    area += a.x * b.y - b.x * a.y;
  }
  EXPECT_DOUBLE_EQ(std::fabs(area) / 2, 100);
  EXPECT_TRUE(clip_polygon({{20, 20}, {30, 20}, {30, 30}}, r).empty());
}

TEST(Splines, PassThroughTheDataPoints) {
  std::vector<Pt> pts{{0, 0}, {100, 50}, {200, -20}, {300, 80}};
  std::vector<Pt> s = spline_points(pts, 8);
  ASSERT_EQ(s.size(), 1 + 3 * 8u);
  for (size_t i = 0; i < pts.size(); ++i) {
    EXPECT_NEAR(s[i * 8].x, pts[i].x, 1e-9);
    EXPECT_NEAR(s[i * 8].y, pts[i].y, 1e-9);
  }
}

TEST(Splines, KeepStraightLinesStraight) {
  std::vector<Pt> s = spline_points({{0, 0}, {10, 10}, {20, 20}, {30, 30}}, 5);
  for (Pt p : s) EXPECT_NEAR(p.x, p.y, 1e-9);
}

TEST(Interpolation, StepsGoAcrossThenUp) {
  auto lines = connect_points({{0, 0}, {10, 5}}, Interp::Step, 0);
  ASSERT_EQ(lines.size(), 1u);
  ASSERT_EQ(lines[0].size(), 3u);
  EXPECT_DOUBLE_EQ(lines[0][1].x, 10);
  EXPECT_DOUBLE_EQ(lines[0][1].y, 0);
  lines = connect_points({{0, 0}, {10, 5}}, Interp::Stairs, 0);
  EXPECT_DOUBLE_EQ(lines[0][1].x, 0);
  EXPECT_DOUBLE_EQ(lines[0][1].y, 5);
}

TEST(Interpolation, StemsStandOnTheBase) {
  auto lines = connect_points({{0, 3}, {10, 5}, {20, 7}}, Interp::Stem, 100);
  ASSERT_EQ(lines.size(), 3u);
  for (const auto &l : lines) EXPECT_DOUBLE_EQ(l[0].y, 100);
}

TEST(Interpolation, GapsSplitTheCurve) {
  auto lines = connect_points({{0, 0}, {1, 1}, {NAN, 2}, {3, 3}, {4, 4}}, Interp::Linear, 0);
  EXPECT_EQ(lines.size(), 2u);
}

TEST(Utf8, LatinOneBytesBecomeCharacters) {
  EXPECT_EQ(valid_utf8("abc"), "abc");
  EXPECT_EQ(valid_utf8("\xe4"), "\xc3\xa4");  // a-umlaut given in Latin-1
  EXPECT_EQ(valid_utf8("\xc3\xa4"), "\xc3\xa4");
  EXPECT_EQ(valid_utf8("a\tb"), "a b");
}

namespace {

Pixels sample_pixels(int w, int h) {
  Pixels px;
  px.w = w;
  px.h = h;
  for (int y = 0; y < h; ++y)
    for (int x = 0; x < w; ++x) {
      px.rgb.push_back(uint8_t(x * 255 / std::max(1, w - 1)));
      px.rgb.push_back(uint8_t(y * 255 / std::max(1, h - 1)));
      px.rgb.push_back(uint8_t((x * y) % 256));
    }
  return px;
}

// A GIF LZW decoder, enough to check the encoder.
std::vector<uint8_t> lzw_decode(const std::vector<uint8_t> &data) {
  std::vector<std::vector<uint8_t>> dict;
  auto init = [&] {
    dict.clear();
    for (int i = 0; i < 256; ++i) dict.push_back({uint8_t(i)});
    dict.push_back({});
    dict.push_back({});
  };
  init();
  std::vector<uint8_t> out, prev;
  size_t bit = 0;
  int width = 9;
  bool first = true;
  while (bit + width <= data.size() * 8) {
    int code = 0;
    for (int i = 0; i < width; ++i, ++bit) code |= ((data[bit / 8] >> (bit % 8)) & 1) << i;
    if (code == 256) {
      init();
      width = 9;
      first = true;
      continue;
    }
    if (code == 257) break;
    std::vector<uint8_t> entry;
    if (code < int(dict.size())) entry = dict[code];
    else {
      entry = prev;
      entry.push_back(prev[0]);
    }
    out.insert(out.end(), entry.begin(), entry.end());
    if (!first && dict.size() < 4096) {
      std::vector<uint8_t> added = prev;
      added.push_back(entry[0]);
      dict.push_back(added);
    }
    if (dict.size() == (1u << width) && width < 12) ++width;
    first = false;
    prev = entry;
  }
  return out;
}

}  // namespace

TEST(RasterFormats, PpmAndBmpHaveTheirHeaders) {
  Pixels px = sample_pixels(3, 2);
  std::string ppm = encode_ppm(px);
  EXPECT_EQ(ppm.substr(0, 11), "P6\n3 2\n255\n");
  EXPECT_EQ(ppm.size(), 11u + 18);
  std::string bmp = encode_bmp(px);
  EXPECT_EQ(bmp.substr(0, 2), "BM");
  EXPECT_EQ(bmp.size(), 54u + 2 * 12);  // rows of 9 bytes padded to 12
  // the first stored row is the bottom one, in BGR order
  EXPECT_EQ(uint8_t(bmp[54 + 2]), px.rgb[9]);
}

TEST(RasterFormats, TiffHoldsTheImageUncompressed) {
  Pixels px = sample_pixels(5, 4);
  std::string tif = encode_tiff(px);
  EXPECT_EQ(tif.substr(0, 4), std::string("II*\0", 4));
  EXPECT_EQ(tif.substr(tif.size() - px.rgb.size()), std::string(px.rgb.begin(), px.rgb.end()));
}

TEST(RasterFormats, LzwRoundTrips) {
  for (size_t n : {size_t(0), size_t(1), size_t(2), size_t(300), size_t(70000)}) {
    std::vector<uint8_t> sym;
    for (size_t i = 0; i < n; ++i) sym.push_back(uint8_t((i * 7 + i / 13) % 256));
    EXPECT_EQ(lzw_decode(lzw_encode(sym)), sym) << n;
  }
  std::vector<uint8_t> flat(100000, 3);
  EXPECT_EQ(lzw_decode(lzw_encode(flat)), flat);
}

TEST(RasterFormats, FewColoursAreKeptExactly) {
  Pixels px;
  px.w = 4;
  px.h = 1;
  px.rgb = {255, 255, 255, 0, 0, 0, 255, 0, 0, 255, 255, 255};
  Indexed ix = quantise(px);
  for (int i = 0; i < 4; ++i)
    for (int c = 0; c < 3; ++c) EXPECT_EQ(ix.palette[3 * ix.index[i] + c], px.rgb[3 * i + c]);
  EXPECT_EQ(ix.index[0], ix.index[3]);
}

TEST(RasterFormats, ManyColoursComeClose) {
  Pixels px = sample_pixels(64, 64);
  Indexed ix = quantise(px);
  // never farther than the colour cube's half step in every channel
  for (size_t i = 0; i < ix.index.size(); ++i) {
    int d2 = 0;
    for (int c = 0; c < 3; ++c) {
      int d = ix.palette[3 * ix.index[i] + c] - px.rgb[3 * i + c];
      d2 += d * d;
    }
    EXPECT_LE(d2, 3 * 25 * 25);
  }
  std::string gif = encode_gif(px);
  EXPECT_EQ(gif.substr(0, 6), "GIF89a");
  EXPECT_EQ(gif.back(), ';');
}
