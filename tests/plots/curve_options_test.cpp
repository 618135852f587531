// Curve options: cycles, colours per curve and marker, gaps, user symbols and patterns, the
// modes the renderer reads, moves and draws, and their bad arguments.
#include "draw/colours.h"
#include "plots_support.h"
#include "mirval.h"

#include <cmath>
#include <fstream>

namespace {

void axes() { graf(0, 10, 0, 2, 0, 10, 0, 2); }

// The items of a kind added since 'from' items of that kind were there.
std::vector<const Item *> since(const std::vector<const Item *> &all, size_t from) {
  return {all.begin() + static_cast<long>(std::min(from, all.size())), all.end()};
}

// The longest step in X between neighbouring points of the strokes after the first 'from'.
double longest_step(const std::vector<const Item *> &all, size_t from) {
  double longest = 0;
  for (const Item *it : since(all, from))
    for (size_t k = 1; k < it->path.pts.size(); ++k)
      if (it->path.ops[k] == SegOp::Line) longest = std::max(longest, std::fabs(it->path.pts[k].x - it->path.pts[k - 1].x));
  return longest;
}

bool same_rgb(Rgb a, Rgb b) { return std::fabs(a.r - b.r) < 1e-6 && std::fabs(a.g - b.g) < 1e-6 && std::fabs(a.b - b.b) < 1e-6; }

}  // namespace

TEST_F(PlotsTest, ColourAndLineCyclesStepAfterIncCrvCurves) {
  open("cycles.svg");
  axes();
  clrcyc(2, 50);  // the second curve's colour is table entry 50
  lincyc(2, 2);   // and its line style dashed
  chncrv("BOTH");
  inccrv(2);      // but only every second curve changes
  float x[2] = {1, 9}, y[2] = {1, 9};
  size_t before = items(ItemKind::Stroke).size();
  curve(x, y, 2);
  curve(x, y, 2);
  curve(x, y, 2);
  std::vector<const Item *> s = since(items(ItemKind::Stroke), before);
  ASSERT_EQ(s.size(), 3u);
  EXPECT_TRUE(same_rgb(s[0]->rgb, s[1]->rgb));  // INCCRV 2: the first two alike
  EXPECT_TRUE(same_rgb(s[2]->rgb, table_rgb(50)));
  EXPECT_TRUE(s[0]->dash.empty());
  EXPECT_FALSE(s[2]->dash.empty());
  finish();
}

TEST_F(PlotsTest, ChnattChangesTheColourAtOnce) {
  open("chnatt.svg");
  axes();
  clrcyc(2, 200);
  chnatt();
  float x[2] = {1, 9}, y[2] = {1, 9};
  size_t before = items(ItemKind::Stroke).size();
  curve(x, y, 2);
  EXPECT_TRUE(same_rgb(since(items(ItemKind::Stroke), before)[0]->rgb, table_rgb(200)));
  finish();
}

TEST_F(PlotsTest, LinclrGivesEachCurveItsColourAndMrkclrTheMarkers) {
  open("linclr.svg");
  axes();
  int c[2] = {30, 180};
  linclr(c, 2);
  mrkclr(90);
  incmrk(1);
  marker(16);  // filled squares: Fill items
  float x[2] = {1, 9}, y[2] = {1, 9};
  size_t strokes = items(ItemKind::Stroke).size(), fills = items(ItemKind::Fill).size();
  curve(x, y, 2);
  curve(x, y, 2);
  curve(x, y, 2);
  std::vector<const Item *> s = since(items(ItemKind::Stroke), strokes), f = since(items(ItemKind::Fill), fills);
  ASSERT_EQ(s.size(), 3u);
  EXPECT_TRUE(same_rgb(s[0]->rgb, table_rgb(30)));
  EXPECT_TRUE(same_rgb(s[1]->rgb, table_rgb(180)));
  EXPECT_TRUE(same_rgb(s[2]->rgb, table_rgb(30)));
  ASSERT_EQ(f.size(), 6u);
  for (const Item *m : f) EXPECT_TRUE(same_rgb(m->rgb, table_rgb(90)));
  int bad[1] = {300};
  linclr(bad, 1);  // outside the table: the colours stay
  EXPECT_EQ(mirval_state().chart.line_colours.size(), 2u);
  finish();
}

TEST_F(PlotsTest, LnmltStretchesDashes) {
  open("lnmlt.svg");
  axes();
  dash();
  std::vector<double> plain = mirval_state().pen.dash;
  lnmlt(3);
  float x[2] = {1, 9}, y[2] = {1, 9};
  size_t before = items(ItemKind::Stroke).size();
  curve(x, y, 2);
  const Item *s = since(items(ItemKind::Stroke), before)[0];
  ASSERT_EQ(s->dash.size(), plain.size());
  EXPECT_DOUBLE_EQ(s->dash[0], 3 * plain[0]);
  lnmlt(0);  // kept
  EXPECT_DOUBLE_EQ(mirval_state().chart.dash_scale, 3);
  finish();
}

TEST_F(PlotsTest, GapcrvBreaksTheLineWhereXJumps) {
  open("gapcrv.svg");
  axes();
  float x[5] = {1, 2, 3, 7, 8}, y[5] = {1, 2, 3, 4, 5};
  double unit = (mirval_state().axes.box.x1 - mirval_state().axes.box.x0) / 10;
  size_t before = items(ItemKind::Stroke).size();
  curve(x, y, 5);
  EXPECT_NEAR(longest_step(items(ItemKind::Stroke), before), 4 * unit, 1e-6);
  gapcrv(2);
  before = items(ItemKind::Stroke).size();
  curve(x, y, 5);
  EXPECT_NEAR(longest_step(items(ItemKind::Stroke), before), unit, 1e-6);  // not from 3 to 7
  finish();
}

TEST_F(PlotsTest, NancrvOffJoinsTheNeighboursOfNaN) {
  open("nancrv.svg");
  axes();
  nochek();
  float x[3] = {1, 5, 9}, y[3] = {1, NAN, 9};
  double unit = (mirval_state().axes.box.x1 - mirval_state().axes.box.x0) / 10;
  size_t before = items(ItemKind::Stroke).size();
  curve(x, y, 3);
  EXPECT_EQ(longest_step(items(ItemKind::Stroke), before), 0);  // two lone points
  nancrv("OFF");
  before = items(ItemKind::Stroke).size();
  curve(x, y, 3);
  EXPECT_NEAR(longest_step(items(ItemKind::Stroke), before), 8 * unit, 1e-6);  // (1,1) to (9,9)
  finish();
}

TEST_F(PlotsTest, GapsizStopsLinesShortOfMarkers) {
  open("gapsiz.svg");
  axes();
  incmrk(1);
  gapsiz(20, "CURVE");
  float x[2] = {0, 10}, y[2] = {5, 5};
  size_t before = items(ItemKind::Stroke).size();
  curve(x, y, 2);
  const Item *s = nullptr;
  for (const Item *it : since(items(ItemKind::Stroke), before))
    if (it->path.pts.size() == 2 && it->path.pts[0].y == it->path.pts[1].y) s = it;
  ASSERT_NE(s, nullptr);
  const Rect &b = mirval_state().axes.box;
  EXPECT_NEAR(s->path.pts[0].x, b.x0 + 20, 1e-6);
  EXPECT_NEAR(s->path.pts[1].x, b.x1 - 20, 1e-6);
  finish();
}

TEST_F(PlotsTest, SymrotTurnsMarkersAndMysymbReplacesThem) {
  open("symbols.svg");
  hsymbl(100);
  symrot(45);
  shdpat(0);
  symbol(0, 500, 500);  // a square turned by 45 degrees: a corner straight above the centre
  const Item *sq = items(ItemKind::Stroke).back();
  double top = 1e9;
  for (Pt p : sq->path.pts) top = std::min(top, p.y);
  EXPECT_NEAR(top, 500 - 0.85 * 50 * std::sqrt(2.0), 1e-6);
  symrot(0);
  float ox[3] = {-1, 1, 0}, oy[3] = {-1, -1, 1};
  mysymb(ox, oy, 3, 5, 1);  // symbol 5 becomes a filled triangle
  size_t fills = items(ItemKind::Fill).size();
  symbol(5, 800, 500);
  ASSERT_EQ(items(ItemKind::Fill).size(), fills + 1);
  const Item *tri = items(ItemKind::Fill).back();
  EXPECT_EQ(tri->path.pts.size(), 3u);
  EXPECT_NEAR(tri->path.pts[2].y, 450, 1e-6);  // (0, 1): half the symbol size above
  float far[2] = {0, 2}, y2[2] = {0, 0};
  mysymb(far, y2, 2, 6, 0);  // outside the square: refused
  EXPECT_TRUE(mirval_state().chart.user_symbols[6].empty());
  reset("MYSYMB");
  EXPECT_TRUE(mirval_state().chart.user_symbols[5].empty());
  finish();
}

TEST_F(PlotsTest, MypatGivesPattern17ItsLines) {
  open("mypat.svg");
  mypat(30, 1, 4, 1);
  shdpat(17);
  rectan(100, 100, 400, 400);
  std::vector<const Item *> h = items(ItemKind::Hatch);
  ASSERT_EQ(h.size(), 1u);
  EXPECT_EQ(h[0]->hatch, 17);
  EXPECT_FLOAT_EQ(h[0]->hatch_angle, 30);
  EXPECT_FLOAT_EQ(h[0]->hatch_gap, 30);
  EXPECT_TRUE(h[0]->hatch_cross);
  mypat(30, 1, 11, 0);  // density outside 1..10: kept
  EXPECT_EQ(mirval_state().chart.user_pattern[2], 4);
  finish();
}

TEST_F(PlotsTest, LinmodOffDrawsRasterLinesWithoutGreyEdges) {
  auto grey_pixels = [&](bool smooth) {
    open(smooth ? "smooth.png" : "crisp.png");
    if (!smooth) linmod("OFF", "SMOOTH");
    linwid(3);
    line(100, 100, 2800, 1900);  // a slanted line
    finish();
    Picture p = read_png(smooth ? "smooth.png" : "crisp.png");
    int grey = 0;
    for (const Pixel &px : p.px) grey += px.r > 20 && px.r < 235;
    reset("LINMOD");
    return grey;
  };
  EXPECT_GT(grey_pixels(true), 100);
  EXPECT_EQ(grey_pixels(false), 0);
}

TEST_F(PlotsTest, ClrmodGreyWritesGreyLevels) {
  open("grey.png");
  clrmod("GREY");
  setrgb(1, 0, 0);
  shdpat(16);
  rectan(100, 100, 400, 400);
  finish();
  Picture p = read_png("grey.png");
  Pixel c = p.at(100, 100);
  EXPECT_EQ(c.r, c.g);
  EXPECT_EQ(c.g, c.b);
  EXPECT_NEAR(c.r, 76, 2);  // the luminance of pure red
}

TEST_F(PlotsTest, PolmodWindingFillsTheInnerPartOfAWoundPolygon) {
  auto centre = [&](bool winding) {
    open("wound.png");
    if (winding) polmod("WINDING", "FILL");
    // a square drawn twice around: even-odd leaves it empty, winding fills it
    float x[8] = {1, 9, 9, 1, 1, 9, 9, 1}, y[8] = {1, 1, 9, 9, 1, 1, 9, 9};
    axes();
    shdpat(16);
    rlarea(x, y, 8);
    finish();
    Picture p = read_png("wound.png");
    const Rect &b = mirval_state().axes.box;
    Pixel c = p.at(int((b.x0 + b.x1) / 2 * 0.4), int((b.y0 + b.y1) / 2 * 0.4));
    reset("POLMOD");
    return c.r;
  };
  EXPECT_GT(centre(false), 200);
  EXPECT_LT(centre(true), 50);
}

TEST_F(PlotsTest, NoarlnDrawsArrowHeadsWithoutShafts) {
  open("noarln.svg");
  vector(100, 500, 900, 500, 1211);
  size_t with_shaft = items(ItemKind::Stroke).size();
  noarln();
  vector(100, 800, 900, 800, 1211);
  size_t total = items(ItemKind::Stroke).size();
  double longest = 0;
  for (const Item *it : since(items(ItemKind::Stroke), with_shaft))
    for (size_t k = 1; k < it->path.pts.size(); ++k)
      longest = std::max(longest, std::fabs(it->path.pts[k].x - it->path.pts[k - 1].x));
  EXPECT_LE(total, 2 * with_shaft);
  EXPECT_LT(longest, 400);  // nothing spans the 800 units of the shaft
  finish();
}

TEST_F(PlotsTest, ResattRestoresCurveAttributes) {
  dash();
  linwid(5);
  marker(7);
  mrkclr(40);
  resatt();
  EXPECT_TRUE(mirval_state().pen.dash.empty());
  EXPECT_DOUBLE_EQ(mirval_state().pen.width, 1);
  EXPECT_EQ(mirval_state().curve.marker, 0);
  EXPECT_EQ(mirval_state().chart.marker_colour, -1);
}

TEST_F(PlotsTest, ColrayGivesTheColoursOfTheZAxis) {
  open("colray.svg");
  graf3(0, 1, 0, 1, 0, 1, 0, 1, 0, 100, 0, 50);
  float z[3] = {0, 100, 1000};
  int n[3] = {-9, -9, -9};
  colray(z, n, 3);
  EXPECT_EQ(n[0], 1);
  EXPECT_EQ(n[1], 254);
  EXPECT_EQ(n[2], 255);  // above the axis
  finish();
}

TEST_F(PlotsTest, VltfilSavesAndLoadsTheColourTable) {
  setvlt("GREY");
  vltfil("grey.vlt", "SAVE");
  Rgb saved = mirval_state().colours.table[100];
  setvlt("RAIN");
  EXPECT_FALSE(same_rgb(mirval_state().colours.table[100], saved));
  vltfil("grey.vlt", "LOAD");
  EXPECT_NEAR(mirval_state().colours.table[100].r, saved.r, 1e-6);
  std::ofstream("short.vlt") << "0 0 0\n1 1 1\n";
  vltfil("short.vlt", "LOAD");  // too few entries: the table stays
  EXPECT_NEAR(mirval_state().colours.table[100].r, saved.r, 1e-6);
  vltfil("missing/none.vlt", "LOAD");
  EXPECT_FALSE(file_exists("grey.vlt.part"));
}

TEST_F(PlotsTest, ConnptAndRlconnDrawFromTheCurrentPoint) {
  open("connpt.svg");
  axes();
  size_t before = items(ItemKind::Stroke).size();
  xmove(100, 100);
  connpt(500, 100);
  rlconn(5, 5);
  std::vector<const Item *> s = since(items(ItemKind::Stroke), before);
  ASSERT_EQ(s.size(), 2u);
  EXPECT_NEAR(s[0]->path.pts.back().x, 500, 1e-6);
  const Rect &b = mirval_state().axes.box;
  EXPECT_NEAR(s[1]->path.pts.back().x, (b.x0 + b.x1) / 2, 1e-6);
  connpt(NAN, 3);  // refused, the point stays
  EXPECT_EQ(since(items(ItemKind::Stroke), before).size(), 2u);
  finish();
}

TEST_F(PlotsTest, GraceLetsCurvesReachBeyondTheFrame) {
  open("grace.svg");
  axes();
  const Rect b = mirval_state().axes.box;
  float x[2] = {0, 10.2f}, y[2] = {5, 5};  // 0.2 units (44 plot units) past the right end
  size_t before = items(ItemKind::Stroke).size();
  curve(x, y, 2);
  EXPECT_NEAR(since(items(ItemKind::Stroke), before)[0]->path.pts.back().x, b.x1, 1e-6);
  grace(100);
  before = items(ItemKind::Stroke).size();
  curve(x, y, 2);
  EXPECT_NEAR(since(items(ItemKind::Stroke), before)[0]->path.pts.back().x, b.x1 + 44, 1e-3);  // a float 10.2
  finish();
}
