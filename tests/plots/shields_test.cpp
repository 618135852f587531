// Shielded regions keep curves, markers and draws out; legends and messages shield
// themselves when asked; regions are switched off and deleted by number.
#include "plots/charts.h"
#include "plots_support.h"
#include "mirval.h"

#include <cmath>

namespace {

// Whether any stroked point or segment midpoint of the page lies strictly inside the rectangle.
bool ink_inside(const std::vector<const Item *> &strokes, double x0, double y0, double x1, double y1) {
  auto in = [&](Pt p) { return p.x > x0 + 1e-6 && p.x < x1 - 1e-6 && p.y > y0 + 1e-6 && p.y < y1 - 1e-6; };
  for (const Item *it : strokes)
    for (size_t k = 0; k < it->path.pts.size(); ++k) {
      if (in(it->path.pts[k])) return true;
      if (k > 0 && it->path.ops[k] == SegOp::Line) {
        Pt a = it->path.pts[k - 1], b = it->path.pts[k];
        if (in({(a.x + b.x) / 2, (a.y + b.y) / 2})) return true;
      }
    }
  return false;
}

void diagonal() {
  float x[2] = {0, 10}, y[2] = {0, 10};
  curve(x, y, 2);
}

}  // namespace

TEST_F(PlotsTest, ACurveLeavesAShieldedRectangleOut) {
  open("shield.svg");
  graf(0, 10, 0, 2, 0, 10, 0, 2);
  const Rect b = mirval_state().axes.box;
  double cx = (b.x0 + b.x1) / 2, cy = (b.y0 + b.y1) / 2;
  shlrec(int(cx - 100), int(cy - 100), 200, 200);
  size_t before = items(ItemKind::Stroke).size();
  diagonal();
  std::vector<const Item *> all = items(ItemKind::Stroke);
  std::vector<const Item *> s(all.begin() + static_cast<long>(before), all.end());
  ASSERT_FALSE(s.empty());
  EXPECT_FALSE(ink_inside(s, cx - 100, cy - 100, cx + 100, cy + 100));
  // the line still runs up to the region's edge
  int on_edge = 0;
  for (const Item *it : s)
    for (Pt p : it->path.pts) on_edge += std::fabs(std::fabs(p.x - cx) - 100) < 1e-6 || std::fabs(std::fabs(p.y - cy) - 100) < 1e-6;
  EXPECT_EQ(on_edge, 2);
  std::string svg = finish();
  EXPECT_FALSE(svg.empty());
}

TEST_F(PlotsTest, ShlvisOffLetsLinesThroughAndShldelRemoves) {
  open("shlvis.svg");
  graf(0, 10, 0, 2, 0, 10, 0, 2);
  const Rect b = mirval_state().axes.box;
  double cx = (b.x0 + b.x1) / 2, cy = (b.y0 + b.y1) / 2;
  shlcir(int(cx), int(cy), 100);  // region 1
  shlvis(1, "OFF");
  size_t before = items(ItemKind::Stroke).size();
  diagonal();
  std::vector<const Item *> all = items(ItemKind::Stroke);
  EXPECT_TRUE(ink_inside({all.begin() + static_cast<long>(before), all.end()}, cx - 50, cy - 50, cx + 50, cy + 50));
  shlvis(1, "ON");
  before = items(ItemKind::Stroke).size();
  diagonal();
  all = items(ItemKind::Stroke);
  EXPECT_FALSE(ink_inside({all.begin() + static_cast<long>(before), all.end()}, cx - 50, cy - 50, cx + 50, cy + 50));
  shldel(1);
  EXPECT_TRUE(mirval_state().chart.shields.empty());
  shldel(7);  // no such region: a warning, nothing else
  shield("USER", "OFF");
  shlrec(0, 0, 10, 10);
  EXPECT_FALSE(shielded({5, 5}));  // kept but suspended
  shield("USER", "ON");
  EXPECT_TRUE(shielded({5, 5}));
  shield("USER", "DELETE");
  EXPECT_TRUE(mirval_state().chart.shields.empty());
  finish();
}

TEST_F(PlotsTest, MessagesAndLegendsShieldThemselvesWhenAsked) {
  open("shield_msg.svg");
  shield("MESSAG", "ON");
  messag("Hello", 1000, 1000);
  ASSERT_EQ(mirval_state().chart.shields.size(), 1u);
  EXPECT_TRUE(shielded({1010, 1010}));
  EXPECT_FALSE(shielded({990, 1010}));  // left of a left-justified text
  shield("MESSAG", "OFF");
  messag("Quiet", 1000, 1500);
  EXPECT_EQ(mirval_state().chart.shields.size(), 1u);
  graf(0, 10, 0, 2, 0, 10, 0, 2);
  shield("LEGEND", "ON");
  char buf[2 * 8 + 1];
  legini(buf, 2, 8);
  leglin(buf, "first", 1);
  legend(buf, 3);
  EXPECT_EQ(mirval_state().chart.shields.size(), 2u);
  shield("LEGEND", "DELETE");
  EXPECT_TRUE(mirval_state().chart.shields.empty());
  finish();
}

TEST_F(PlotsTest, ShieldRoutinesRefuseBadArguments) {
  shlrec(0, 0, -5, 10);
  shlcir(0, 0, 0);
  shlell(0, 0, 10, 10, NAN);
  shlpie(0, 0, 10, 90, 10);
  int x[2] = {0, 1}, y[2] = {0, 1};
  shlpol(x, y, 2);
  shield("NONE", "ON");
  shield("USER", "MAYBE");
  shlvis(0, "HALF");
  EXPECT_TRUE(mirval_state().chart.shields.empty());
  shlell(500, 500, 100, 50, 30);
  shlpie(800, 800, 100, 0, 90);
  int px[3] = {0, 100, 0}, py[3] = {0, 0, 100};
  shlpol(px, py, 3);
  EXPECT_EQ(mirval_state().chart.shields.size(), 3u);
  EXPECT_TRUE(shielded({850, 780}));  // inside the quarter above and right of its centre
  EXPECT_FALSE(shielded({750, 820}));
}
