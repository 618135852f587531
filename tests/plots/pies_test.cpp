// Pie charts: segment angles are shares of the total, exploded and 3-D pies, labels, the
// legend, and a callback that reshapes segments.
#include "plots/charts.h"
#include "plots_support.h"
#include "mirval.h"

#include <algorithm>
#include <cmath>

namespace {

// The angle (degrees, counter-clockwise, 0..360) of a page point seen from c.
double angle_of(Pt c, Pt p) {
  double a = std::atan2(c.y - p.y, p.x - c.x) * 180 / M_PI;
  return a < 0 ? a + 360 : a;
}

std::vector<int> seen_segments;
void reshape(int iseg, float, float xper, int *nrad, int *noff, float *, int *, int *, int *idrw, int *) {
  seen_segments.push_back(iseg);
  if (iseg == 2) *noff = 100;        // pull the second segment out
  if (iseg == 3) *nrad = *nrad / 2;  // shrink the third
  if (xper < 5) *idrw = 0;           // leave out tiny ones
}

}  // namespace

TEST(PieAngles, SharesOfTheTotal) {
  std::vector<Span> a = pie_angles({1, 2, 3, 6}, 90);
  ASSERT_EQ(a.size(), 4u);
  EXPECT_DOUBLE_EQ(a[0].lo, 90);
  EXPECT_DOUBLE_EQ(a[0].hi, 120);
  EXPECT_DOUBLE_EQ(a[1].hi, 180);
  EXPECT_DOUBLE_EQ(a[2].hi, 270);
  EXPECT_DOUBLE_EQ(a[3].hi, 450);
  std::vector<Span> b = pie_angles({1, -1, NAN, 1}, 0);
  EXPECT_DOUBLE_EQ(b[1].hi - b[1].lo, 0);
  EXPECT_DOUBLE_EQ(b[2].hi - b[2].lo, 0);
  EXPECT_DOUBLE_EQ(b[3].hi, 360);
}

TEST_F(PlotsTest, SegmentAnglesAreProportionalToTheData) {
  open("pie.svg");
  float v[4] = {10, 20, 30, 40};
  pielab("", "NONE");
  piegrf("", 0, v, 4);
  std::vector<const Item *> f = items(ItemKind::Fill);
  ASSERT_EQ(f.size(), 4u);
  Pt c = f[0]->path.pts[0];
  double start = 90;
  for (int i = 0; i < 4; ++i) {
    const std::vector<Pt> &p = f[i]->path.pts;
    EXPECT_NEAR(p[0].x, c.x, 1e-6);
    double a1 = angle_of(c, p[1]), a2 = angle_of(c, p.back());
    double want1 = std::fmod(start, 360.0), want2 = std::fmod(start + 3.6 * v[i], 360.0);
    EXPECT_NEAR(a1, want1, 1e-6) << i;
    EXPECT_NEAR(std::fmod(a2 + 360 - want2, 360.0) < 180 ? std::fmod(a2 + 360 - want2, 360.0) : 360 - std::fmod(a2 + 360 - want2, 360.0), 0, 1e-6) << i;
    start += 3.6 * v[i];
  }
  finish();
}

TEST_F(PlotsTest, PieLabelsShowPercentagesAndTheLegendItsPatches) {
  open("pielab.svg");
  float v[3] = {1, 1, 2};
  char buf[3 * 6 + 1];
  legini(buf, 3, 6);
  leglin(buf, "alpha", 1);
  leglin(buf, "beta", 2);
  leglin(buf, "gamma", 3);
  piegrf(buf, 3, v, 3);
  std::vector<std::string> t = texts();
  for (const char *want : {"25.0%", "50.0%", "alpha", "beta", "gamma"})
    EXPECT_NE(std::find(t.begin(), t.end(), want), t.end()) << want;
  // three segments, the legend's background and three patches in the segments' colours
  std::vector<const Item *> f = items(ItemKind::Fill);
  ASSERT_EQ(f.size(), 7u);
  for (int i = 0; i < 3; ++i) EXPECT_NEAR(f[4 + i]->rgb.b, f[i]->rgb.b, 1e-6);
  pielab("Share", "BOTH");
  pieval(0, "PERCENT");
  erase();
  piegrf("", 0, v, 3);
  t = texts();
  EXPECT_NE(std::find(t.begin(), t.end(), "Share 2 (50%)"), t.end());
  finish();
}

TEST_F(PlotsTest, ExplodedAnd3DPies) {
  open("pie3d.svg");
  float v[2] = {1, 3};
  pielab("", "NONE");
  piegrf("", 0, v, 2);
  Pt flat = items(ItemKind::Fill)[0]->path.pts[0];
  erase();
  pieexp();
  piegrf("", 0, v, 2);
  std::vector<const Item *> f = items(ItemKind::Fill);
  ASSERT_EQ(f.size(), 2u);
  // each segment moved out along its middle direction
  EXPECT_GT(std::hypot(f[0]->path.pts[0].x - f[1]->path.pts[0].x, f[0]->path.pts[0].y - f[1]->path.pts[0].y), 10);
  erase();
  reset("PIEEXP");
  pietyp("3D");
  piegrf("", 0, v, 2);
  // walls below the tops: more filled areas, and the tops are flattened ellipses
  f = items(ItemKind::Fill);
  EXPECT_GT(f.size(), 2u);
  double top = 1e9, bottom = -1e9, left = 1e9, right = -1e9;
  for (const Item *it : f)
    for (Pt p : it->path.pts) top = std::min(top, p.y), bottom = std::max(bottom, p.y), left = std::min(left, p.x), right = std::max(right, p.x);
  EXPECT_LT(bottom - top, right - left);
  EXPECT_NE(flat.x, 0);
  finish();
}

TEST_F(PlotsTest, TheCallbackReshapesSegments) {
  open("piecbk.svg");
  float v[4] = {30, 30, 38, 2};
  seen_segments.clear();
  pielab("", "NONE");
  piecbk(reshape);
  piegrf("", 0, v, 4);
  EXPECT_EQ(seen_segments, (std::vector<int>{1, 2, 3, 4}));
  std::vector<const Item *> f = items(ItemKind::Fill);
  ASSERT_EQ(f.size(), 3u);  // the 2 % segment is left out
  Pt c = f[0]->path.pts[0];
  double r0 = std::hypot(f[0]->path.pts[1].x - c.x, f[0]->path.pts[1].y - c.y);
  Pt c1 = f[1]->path.pts[0];
  EXPECT_NEAR(std::hypot(c1.x - c.x, c1.y - c.y), 100, 1e-6);
  double r2 = std::hypot(f[2]->path.pts[1].x - f[2]->path.pts[0].x, f[2]->path.pts[1].y - f[2]->path.pts[0].y);
  EXPECT_NEAR(r2, std::floor(r0 / 2), 1);
  finish();
}

TEST_F(PlotsTest, BadPieArgumentsDrawNothing) {
  open("badpie.svg");
  size_t before = mirval_state().scene.current().items.size();
  float v[2] = {-1, 0};
  piegrf("", 0, v, 2);
  piegrf("", 0, v, 0);
  piegrf("", 0, nullptr, 3);
  pie(100, 100, 0, 0, 90);
  pie(100, 100, 50, NAN, 90);
  pietyp("4D");
  EXPECT_EQ(mirval_state().scene.current().items.size(), before);
  EXPECT_FALSE(mirval_state().chart.pie3d);
  finish();
}
