// Transparency reaches the items and the files; NOFILL and NOLINE shape chart areas; colour
// numbers of RGB colours; moves and draws.
#include "plots/charts.h"
#include "draw/colours.h"
#include "plots_support.h"
#include "mirval.h"

TEST_F(PlotsTest, TransparencyGivesItemsAndFilesTheirOpacity) {
  open("tpr.svg");
  graf(0, 4, 0, 1, 0, 10, 0, 2);
  float x[1] = {2}, z[1] = {0}, y[1] = {5};
  tprini();
  tprval(0.25);
  bars(x, z, y, 1);
  tprfin();
  bars(x, z, y, 1);
  std::vector<const Item *> f = items(ItemKind::Fill);
  ASSERT_EQ(f.size(), 2u);
  EXPECT_FLOAT_EQ(f[0]->alpha, 0.25f);
  EXPECT_FLOAT_EQ(f[1]->alpha, 1.0f);
  std::string svg = finish();
  EXPECT_NE(svg.find("opacity:0.25"), std::string::npos);
}

TEST_F(PlotsTest, TransparencyInPngBlendsWithTheBackground) {
  open("tpr.png");
  setrgb(0, 0, 1);
  tprini();
  tprval(0.5);
  shdpat(16);
  rectan(100, 100, 400, 400);
  finish();
  Picture p = read_png("tpr.png");
  ASSERT_GT(p.w, 0);
  Pixel c = p.at(120, 120);  // page (300, 300) at 0.4 pixel per unit
  EXPECT_NEAR(c.b, 255, 3);
  EXPECT_NEAR(c.r, 128, 6);
}

TEST_F(PlotsTest, TprmodLeavesLinesOpaque) {
  open("tprmod.svg");
  tprini();
  tprmod("LINE", "OFF");
  shdpat(16);
  rectan(100, 100, 400, 400);
  EXPECT_FLOAT_EQ(items(ItemKind::Fill)[0]->alpha, 0.5f);
  EXPECT_FLOAT_EQ(items(ItemKind::Stroke)[0]->alpha, 1.0f);
  tprval(2);  // out of range: kept
  EXPECT_FLOAT_EQ(mirval_state().chart.alpha, 0.5f);
  finish();
}

TEST_F(PlotsTest, NofillLeavesBarsHollow) {
  open("nofill.svg");
  graf(0, 4, 0, 1, 0, 10, 0, 2);
  float x[1] = {2}, z[1] = {0}, y[1] = {5};
  nofill();
  bars(x, z, y, 1);
  EXPECT_TRUE(items(ItemKind::Fill).empty());
  EXPECT_EQ(items(ItemKind::Stroke).size() > 0, true);
  finish();
}

TEST(ColourNumbers, IndrgbAndIntrgb) {
  reset("ALL");
  EXPECT_EQ(indrgb(0, 0, 0), 0);
  EXPECT_EQ(indrgb(1, 1, 1), 255);
  EXPECT_EQ(intrgb(1, 0.5f, 0), (255 << 16) | (128 << 8));
  EXPECT_EQ(intrgb(NAN, 2, -1), 255 << 8);
}

TEST_F(PlotsTest, XmoveAndXdrawDrawFromPointToPoint) {
  open("xdraw.svg");
  xmove(100, 200);
  xdraw(300, 200);
  xdraw(300, 400);
  std::vector<const Item *> s = items(ItemKind::Stroke);
  ASSERT_EQ(s.size(), 2u);
  EXPECT_DOUBLE_EQ(s[1]->path.pts[0].x, 300);
  EXPECT_DOUBLE_EQ(s[1]->path.pts[1].y, 400);
  finish();
}
