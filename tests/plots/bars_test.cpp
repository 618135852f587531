// Bar graphs and histograms: bars stand between their values, groups sit side by side, the
// legend shows patches; histogram bins are round and their counts right.
#include "plots/charts.h"
#include "draw/colours.h"
#include "plots_support.h"
#include "mirval.h"

#include <algorithm>
#include <cmath>
#include <regex>

namespace {

// The filled items' bounding boxes, in drawing order.
struct Box {
  double x0, y0, x1, y1;
};
Box bounds(const Item &it) {
  Box b{1e9, 1e9, -1e9, -1e9};
  for (Pt p : it.path.pts) b = {std::min(b.x0, p.x), std::min(b.y0, p.y), std::max(b.x1, p.x), std::max(b.y1, p.y)};
  return b;
}

}  // namespace

TEST(Histogram, BinsAreRoundAndCountEveryValue) {
  std::vector<double> v;
  for (int i = 0; i <= 100; ++i) v.push_back(i);  // 101 values 0..100: 8 bins wanted
  Histogram h = histogram_bins(v, 101);
  EXPECT_DOUBLE_EQ(h.step, 20);  // (100 - 0) / 8 = 12.5 rounds up to 20
  EXPECT_DOUBLE_EQ(h.start, 0);
  ASSERT_EQ(h.counts.size(), 5u);
  EXPECT_EQ(h.counts, (std::vector<int>{20, 20, 20, 20, 21}));  // 100 joins the last bin
}

TEST(Histogram, HalfOpenBinsAndLeftOutValues) {
  Histogram h = histogram_bins({0.5, 1.0, 1.5, 2.0, 2.0, 3.9, NAN, INFINITY}, 8);
  // 6 finite values: 4 bins wanted, (3.9 - 0.5) / 4 = 0.85 rounds to 1, starting at 0
  EXPECT_DOUBLE_EQ(h.step, 1);
  EXPECT_DOUBLE_EQ(h.start, 0);
  EXPECT_EQ(h.counts, (std::vector<int>{1, 2, 2, 1}));
}

TEST(Histogram, OneValueAndTooFewBins) {
  Histogram one = histogram_bins({7, 7, 7}, 3);
  ASSERT_EQ(one.counts.size(), 1u);
  EXPECT_EQ(one.counts[0], 3);
  EXPECT_LT(one.start, 7);
  EXPECT_GT(one.start + one.step, 7);
  Histogram few = histogram_bins({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}, 2);
  EXPECT_LE(few.counts.size(), 2u);
  int total = 0;
  for (int c : few.counts) total += c;
  EXPECT_EQ(total, 16);
  EXPECT_TRUE(histogram_bins({NAN}, 5).counts.empty());
}

TEST(BarSpan, GroupsShareTheWidth) {
  Span a = bar_span(100, 90, 3, 0, 0, 0), c = bar_span(100, 90, 3, 0, 2, 0);
  EXPECT_DOUBLE_EQ(a.lo, 55);
  EXPECT_DOUBLE_EQ(a.hi, 85);
  EXPECT_DOUBLE_EQ(c.lo, 115);
  EXPECT_DOUBLE_EQ(c.hi, 145);
  Span g = bar_span(100, 100, 2, 10, 1, 0);  // bars of 45 with a gap of 10
  EXPECT_DOUBLE_EQ(g.lo, 105);
  EXPECT_DOUBLE_EQ(g.hi, 150);
  Span s = bar_span(100, 40, 1, 0, 0, 1), e = bar_span(100, 40, 1, 0, 0, 2);
  EXPECT_DOUBLE_EQ(s.lo, 100);
  EXPECT_DOUBLE_EQ(e.hi, 100);
}

TEST_F(PlotsTest, BarEdgesLieAtTheirDataValuesInSvg) {
  open("bars.svg");
  // X 0..4 over 2200 units from 450, Y 0..10 over 1200 units up from 1800
  graf(0, 4, 0, 1, 0, 10, 0, 2);
  float x[3] = {1, 2, 3}, y1[3] = {0, 0, 0}, y2[3] = {5, 2.5, 10};
  barwth(100);
  bars(x, y1, y2, 3);
  std::vector<const Item *> fills = items(ItemKind::Fill);
  ASSERT_EQ(fills.size(), 3u);
  for (int i = 0; i < 3; ++i) {
    Box b = bounds(*fills[i]);
    EXPECT_NEAR(b.x0, 450 + 550 * x[i] - 50, 1e-6);
    EXPECT_NEAR(b.x1, 450 + 550 * x[i] + 50, 1e-6);
    EXPECT_NEAR(b.y0, 1800 - 120 * y2[i], 1e-6);
    EXPECT_NEAR(b.y1, 1800, 1e-6);
  }
  std::string svg = finish();
  // the file holds each bar as a filled path through its four corners, in plot units
  std::regex path(R"re(<path style="[^"]*fill-rule:evenodd;fill:rgb\([^"]*" d="M ([0-9.]+) ([0-9.]+) L ([0-9.]+) ([0-9.]+) L ([0-9.]+) ([0-9.]+) L ([0-9.]+) ([0-9.]+) Z)re");
  std::vector<double> tops;
  for (auto m = std::sregex_iterator(svg.begin(), svg.end(), path); m != std::sregex_iterator(); ++m) {
    double xa = std::stod((*m)[1]), xb = std::stod((*m)[3]);
    if (std::fabs(xb - xa - 100) < 0.5) tops.push_back(std::min(std::stod((*m)[2]), std::stod((*m)[6])));
  }
  ASSERT_EQ(tops.size(), 3u) << svg.substr(0, 3000);
  EXPECT_NEAR(tops[0], 1200, 0.5);
  EXPECT_NEAR(tops[1], 1500, 0.5);
  EXPECT_NEAR(tops[2], 600, 0.5);
}

TEST_F(PlotsTest, GroupedBarsStandSideBySideAndStackedBarsOnEachOther) {
  open("groups.svg");
  graf(0, 4, 0, 1, 0, 10, 0, 2);
  float x[2] = {1, 2}, zero[2] = {0, 0}, a[2] = {3, 4}, b[2] = {5, 6};
  bargrp(2, 0);
  barwth(200);
  bars(x, zero, a, 2);
  bars(x, zero, b, 2);
  std::vector<const Item *> f = items(ItemKind::Fill);
  ASSERT_EQ(f.size(), 4u);
  EXPECT_NEAR(bounds(*f[0]).x0, 1000 - 100, 1e-6);  // first of the group: left half
  EXPECT_NEAR(bounds(*f[0]).x1, 1000, 1e-6);
  EXPECT_NEAR(bounds(*f[2]).x0, 1000, 1e-6);        // second: right half
  EXPECT_NEAR(bounds(*f[2]).x1, 1100, 1e-6);
  // stacked: a then a + b from a upwards
  reset("BARGRP");
  float top[2] = {8, 10};
  bars(x, a, top, 2);
  Box s = bounds(*items(ItemKind::Fill)[4]);
  EXPECT_NEAR(s.y1, 1800 - 120 * 3, 1e-6);
  EXPECT_NEAR(s.y0, 1800 - 120 * 8, 1e-6);
  finish();
}

TEST_F(PlotsTest, ThreeDBarsHaveASideAndATop) {
  open("bars3d.svg");
  graf(0, 4, 0, 1, 0, 10, 0, 2);
  float x[1] = {2}, y1[1] = {0}, y2[1] = {5};
  bartyp("3DVERT");
  barwth(100);
  baropt(0.5, 45);
  barclr(50, 60, 70);
  bars(x, y1, y2, 1);
  std::vector<const Item *> f = items(ItemKind::Fill);
  ASSERT_EQ(f.size(), 3u);
  Box side = bounds(*f[1]), top = bounds(*f[2]);
  double d = 50 * std::cos(M_PI / 4);
  EXPECT_NEAR(side.x0, 1600, 1e-6);
  EXPECT_NEAR(side.x1, 1600 + d, 1e-6);
  EXPECT_NEAR(top.y0, 1200 - d, 1e-6);
  EXPECT_NEAR(f[1]->rgb.r, table_rgb(60).r, 1e-6);
  finish();
}

TEST_F(PlotsTest, HorizontalBarsRunAlongX) {
  open("hbars.svg");
  graf(0, 10, 0, 2, 0, 4, 0, 1);
  float y[1] = {2}, a[1] = {0}, b[1] = {5};
  bartyp("HORI");
  barwth(60);
  bars(y, a, b, 1);
  Box r = bounds(*items(ItemKind::Fill)[0]);
  EXPECT_NEAR(r.x0, 450, 1e-6);
  EXPECT_NEAR(r.x1, 450 + 1100, 1e-6);
  EXPECT_NEAR(r.y0, 1200 - 30, 1e-6);
  EXPECT_NEAR(r.y1, 1200 + 30, 1e-6);
  finish();
}

TEST_F(PlotsTest, BarsCarryTheirValuesWhenAsked) {
  open("labels.svg");
  graf(0, 4, 0, 1, 0, 10, 0, 2);
  float x[3] = {1, 2, 3}, y1[3] = {0, 0, 2}, y2[3] = {5, 2.5, 9};
  labels("FLOAT", "BARS");
  bars(x, y1, y2, 3);
  std::vector<std::string> t = texts();
  for (const char *want : {"5", "2.5", "7"}) EXPECT_NE(std::find(t.begin(), t.end(), want), t.end()) << want;
  labdig(2, "BARS");  // the bars' own decimals, whatever the Y axis has
  bars(x, y1, y2, 3);
  t = texts();
  for (const char *want : {"5.00", "2.50", "7.00"}) EXPECT_NE(std::find(t.begin(), t.end(), want), t.end()) << want;
  finish();
}

TEST_F(PlotsTest, TheLegendShowsAPatchForEachBarSeries) {
  open("legpat.svg");
  graf(0, 4, 0, 1, 0, 10, 0, 2);
  float x[2] = {1, 2}, z[2] = {0, 0}, a[2] = {3, 4};
  chnbar("COLOR");
  bars(x, z, a, 2);
  bars(x, z, a, 2);
  size_t before = items(ItemKind::Fill).size();
  char buf[2 * 10 + 1];
  legini(buf, 2, 10);
  leglin(buf, "one", 1);
  leglin(buf, "two", 2);
  legend(buf, 7);
  std::vector<const Item *> f = items(ItemKind::Fill);
  // the box's background and one patch per series, in the colours of the bars
  ASSERT_EQ(f.size(), before + 3);
  EXPECT_NEAR(f[before + 1]->rgb.r, f[0]->rgb.r, 1e-6);
  EXPECT_NEAR(f[before + 2]->rgb.g, f[2]->rgb.g, 1e-6);
  EXPECT_NE(f[0]->rgb.g, f[2]->rgb.g);
  finish();
}

TEST_F(PlotsTest, LegpatGivesALineItsLookAndLegselPicksLines) {
  open("legsel.svg");
  char buf[3 * 8 + 1];
  legini(buf, 3, 8);
  leglin(buf, "a", 1);
  leglin(buf, "b", 2);
  leglin(buf, "c", 3);
  legpat(-1, 1, -1, 30, 5, 2);  // line 2: a patch hatched with pattern 5 in colour 30
  int sel[2] = {2, 3};
  legsel(sel, 2);
  legend(buf, 3);
  std::vector<std::string> t = texts();
  EXPECT_EQ(std::count(t.begin(), t.end(), "a"), 0);
  EXPECT_EQ(std::count(t.begin(), t.end(), "b"), 1);
  std::vector<const Item *> h = items(ItemKind::Hatch);
  ASSERT_EQ(h.size(), 1u);
  EXPECT_EQ(h[0]->hatch, 5);
  // two columns make the box wider and lower
  int w1 = nxlegn(buf), h1 = nylegn(buf);
  legtbl(2, "COLUMNS");
  EXPECT_GT(nxlegn(buf), w1);
  EXPECT_LT(nylegn(buf), h1);
  finish();
}

TEST_F(PlotsTest, AnErrbarSeriesShowsItsMarkerInTheLegend) {
  open("errleg.svg");
  graf(0, 4, 0, 1, 0, 10, 0, 2);
  float x[2] = {1, 2}, y[2] = {3, 4}, e[2] = {1, 1};
  color("RED");
  marker(21);
  errbar(x, y, e, e, 2);
  color("FORE");
  char buf[9];
  legini(buf, 1, 8);
  leglin(buf, "data", 1);
  size_t before = mirval_state().scene.current().items.size();
  legend(buf, 7);
  // the sample is the red filled circle, not a black line
  bool red_marker = false, black_line = false;
  const auto &all = mirval_state().scene.current().items;
  for (size_t i = before; i < all.size(); ++i) {
    const Item &it = all[i];
    if (it.kind == ItemKind::Fill && it.rgb.r == 1 && it.rgb.g == 0) red_marker = true;
    if (it.kind == ItemKind::Stroke && it.path.pts.size() == 2 && it.rgb.r == 0 && it.path.pts[0].y == it.path.pts[1].y)
      black_line = true;
  }
  EXPECT_TRUE(red_marker);
  EXPECT_FALSE(black_line);
  finish();
}

TEST_F(PlotsTest, HistogFillsItsArrays) {
  float data[10] = {1, 2, 2, 3, 3, 3, 4, 4, 4, 4}, xh[10], yh[10];
  int nh = -1;
  histog(data, 10, xh, yh, &nh);
  // 10 values: 5 bins wanted, (4 - 1) / 5 = 0.6 rounds to 1
  ASSERT_EQ(nh, 3);
  EXPECT_FLOAT_EQ(xh[0], 1.5f);
  EXPECT_FLOAT_EQ(yh[0], 1);
  EXPECT_FLOAT_EQ(yh[1], 2);
  EXPECT_FLOAT_EQ(yh[2], 7);  // 3 and 4: the last bin holds its upper edge
  histog(data, 0, xh, yh, &nh);
  EXPECT_EQ(nh, 0);
}

TEST_F(PlotsTest, BadBarArgumentsDrawNothing) {
  open("bad.svg");
  graf(0, 4, 0, 1, 0, 10, 0, 2);
  size_t before = mirval_state().scene.current().items.size();
  float x[1] = {1}, y[1] = {2};
  bars(x, y, y, 0);
  bars(nullptr, y, y, 1);
  bartyp("SIDEWAYS");
  bargrp(0, 0);
  EXPECT_EQ(mirval_state().scene.current().items.size(), before);
  EXPECT_FALSE(mirval_state().chart.horizontal);
  finish();
}
