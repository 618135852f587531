// Where GRAF3's colour bar goes: POSBAR's side, JUSBAR's place along the X axis, SPCBAR's gap.
#include "plots_support.h"
#include "mirval.h"

#include <algorithm>

namespace {

// The extent of the Fill items added after the first 'from' (the bar's stripes).
Rect fills_extent(const std::vector<const Item *> &all, size_t from) {
  Rect r{1e9, 1e9, -1e9, -1e9};
  for (size_t k = from; k < all.size(); ++k)
    for (Pt p : all[k]->path.pts)
      r.x0 = std::min(r.x0, p.x), r.y0 = std::min(r.y0, p.y), r.x1 = std::max(r.x1, p.x), r.y1 = std::max(r.y1, p.y);
  return r;
}

}  // namespace

class ColourBarTest : public PlotsTest {
 protected:
  // The bar's extent and the axis box when GRAF3 draws with these settings.
  std::pair<Rect, Rect> draw(const char *pos, const char *just, int space) {
    open("bar.svg");
    posbar(pos);
    jusbar(just);
    spcbar(space);
    graf3(0, 1, 0, 0.5, 0, 1, 0, 0.5, 0, 1, 0, 0.5);
    std::vector<const Item *> f = items(ItemKind::Fill);
    std::pair<Rect, Rect> out{fills_extent(f, 0), mirval_state().axes.box};
    finish();
    return out;
  }
};

TEST_F(ColourBarTest, RightIsTheDefaultAndSpcbarSetsTheGap) {
  auto [bar, box] = draw("RIGHT", "CENTER", 120);
  EXPECT_NEAR(bar.x0, box.x1 + 120, 1.5);
  EXPECT_NEAR(bar.y1, box.y1, 1.5);
}

TEST_F(ColourBarTest, BottomBarLiesBelowTheLabelsStartingWhereJusbarSays) {
  auto [bar, box] = draw("BOTTOM", "START", 85);
  EXPECT_GT(bar.y0, box.y1 + 85);  // below the X axis's labels as well
  EXPECT_NEAR(bar.x0, box.x0, 1.5);
  EXPECT_NEAR(bar.x1 - bar.x0, 0.8 * (box.x1 - box.x0), 1.5);
  EXPECT_LT(bar.y1 - bar.y0, 100);  // lying down: as thick as WIDBAR
}

TEST_F(ColourBarTest, TopBarEndsAtTheRightEndWithJusbarEnd) {
  auto [bar, box] = draw("TOP", "END", 85);
  EXPECT_LT(bar.y1, box.y0 - 85 + 1.5);
  EXPECT_NEAR(bar.x1, box.x1, 1.5);
}

TEST_F(ColourBarTest, LeftBarLiesBeyondTheYLabels) {
  auto [bar, box] = draw("LEFT", "CENTER", 85);
  EXPECT_LT(bar.x1, box.x0 - 85);
  EXPECT_NEAR(bar.y1, box.y1, 1.5);
}

TEST_F(ColourBarTest, UnknownPlacesAreRefused) {
  posbar("MIDDLE");
  jusbar("SIDEWAYS");
  EXPECT_EQ(mirval_state().axextra.bar_pos, 0);
  EXPECT_EQ(mirval_state().axextra.bar_just, 1);
}
