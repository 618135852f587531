// 3-D axis systems on the page: texts of different axes keep apart where the axes meet, and
// the picture fills the axis region.
#include "draw/fonts.h"
#include "grid_support.h"
#include "mirval.h"
#include "axes/scaling.h"
#include "core/state.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace {

// The rectangle a text item covers from its baseline up to its capitals' top; axis texts are
// upright or turned by 90 degrees, where this is exact.
Rect text_room(const Item &it) {
  double w = text_width(it.font, it.size, it.text), h = it.size * mirval_state().fonts.cap.at(it.font);
  double a = it.angle * M_PI / 180;
  Pt along{std::cos(a) * w, -std::sin(a) * w}, up{-std::sin(a) * h, -std::cos(a) * h};
  Rect r{it.at.x, it.at.y, it.at.x, it.at.y};
  for (Pt c : {along, up, Pt{along.x + up.x, along.y + up.y}})
    r = {std::min(r.x0, it.at.x + c.x), std::min(r.y0, it.at.y + c.y), std::max(r.x1, it.at.x + c.x),
         std::max(r.y1, it.at.y + c.y)};
  return r;
}

// The texts that the page received from item 'from' on.
std::vector<const Item *> texts_since(size_t from) {
  std::vector<const Item *> out;
  const std::vector<Item> &items = mirval_state().scene.current().items;
  for (size_t k = from; k < items.size(); ++k)
    if (items[k].kind == ItemKind::Text) out.push_back(&items[k]);
  return out;
}

// A 3-D axis system with names on every axis and a title, as the quick plots draw it.
void axes_with_title() {
  titlin("Texts of a 3-D page", 1);
  name("Column", "X");
  name("Row", "Y");
  name("Height", "Z");
  graf3d(0, 40, 0, 10, 0, 40, 0, 10, -0.5f, 1, -0.5f, 0.25f);
  title();
}

}  // namespace

TEST_F(GridTest, TextsOfA3DPageNeverOverlap) {
  open("texts3d.svg");
  std::vector<std::vector<float>> views;  // azimuth, elevation in degrees
  for (float az = 0; az < 360; az += 30)
    for (float el : {10.f, 30.f, 55.f}) views.push_back({az, el});
  for (const auto &v : views) {
    view3d(v[0], v[1], 7, "ANGLE");
    size_t from = mirval_state().scene.current().items.size();
    axes_with_title();
    std::vector<const Item *> texts = texts_since(from);
    ASSERT_GE(texts.size(), 8u);
    for (size_t i = 0; i < texts.size(); ++i)
      for (size_t j = i + 1; j < texts.size(); ++j) {
        Rect a = text_room(*texts[i]), b = text_room(*texts[j]);
        bool apart = a.x1 <= b.x0 || b.x1 <= a.x0 || a.y1 <= b.y0 || b.y1 <= a.y0;
        EXPECT_TRUE(apart) << "'" << texts[i]->text << "' and '" << texts[j]->text << "' meet seen from azimuth "
                           << v[0] << ", elevation " << v[1];
      }
    endgrf();
  }
  finish();
}

TEST_F(GridTest, A3DPictureFillsTheAxisRegion) {
  open("fill3d.svg");
  axes_with_title();
  Rect region = placed_box(), picture = mirval_state().axes.box;
  const double slack = 2;  // plot units
  // across, the picture keeps to the region and fills it, centred; a region wider than the
  // box's picture grows upwards and downwards on the page for it, as far as the page allows
  EXPECT_GE(picture.x0, region.x0 - slack);
  EXPECT_LE(picture.x1, region.x1 + slack);
  EXPECT_GE(picture.y0, 0);
  EXPECT_LE(picture.y1, mirval_state().page.height);
  bool fills_width = picture.x1 - picture.x0 > 0.97 * (region.x1 - region.x0);
  bool fills_page = picture.y1 - picture.y0 > 0.85 * mirval_state().page.height;
  EXPECT_TRUE(fills_width || fills_page) << picture.x0 << " " << picture.y0 << " " << picture.x1 << " " << picture.y1;
  EXPECT_GT(picture.y1 - picture.y0, region.y1 - region.y0) << "the default region is too flat for a box";
  EXPECT_NEAR((picture.x0 + picture.x1) / 2, (region.x0 + region.x1) / 2, 0.02 * (region.x1 - region.x0));
  // the title stays above the picture
  for (const Item *t : texts_since(0)) {
    if (t->text == "Texts of a 3-D page") {
      EXPECT_LT(t->at.y, picture.y0);
      EXPECT_GT(t->at.y - t->size, 0) << "the title stays on the page";
    }
  }
  finish();
}
