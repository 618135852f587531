// Colour-coded data: the mapping of values onto the colour table, GRAF3 with its colour bar,
// colour points and matrices.
#include "grids/colour_matrix.h"
#include "grid_support.h"
#include "mirval.h"
#include "core/state.h"

#include <cmath>
#include <vector>

TEST(ColourEntry, SpreadsTheAxisOverTheColourRange) {
  AxisRange r;
  r.a = 0, r.e = 10;
  EXPECT_EQ(colour_entry(r, 1, 254, 0), 1);
  EXPECT_EQ(colour_entry(r, 1, 254, 10), 254);
  EXPECT_EQ(colour_entry(r, 1, 254, 5), 128);
  EXPECT_EQ(colour_entry(r, 1, 254, -1), 0);     // below: the entry under the range
  EXPECT_EQ(colour_entry(r, 1, 254, 11), 255);   // above: the entry over it
  EXPECT_EQ(colour_entry(r, 1, 254, NAN), -1);
  EXPECT_EQ(colour_entry(r, 50, 60, 5), 55);
}

TEST(ColourEntry, LogAxesPlaceExponents) {
  AxisRange r;
  r.a = 0, r.e = 4, r.log = true;
  EXPECT_EQ(colour_entry(r, 1, 100, 100), 51);
  EXPECT_EQ(colour_entry(r, 1, 100, -5), -1);
}

TEST_F(GridTest, Graf3DrawsAColourBarWithZLabels) {
  open("graf3.svg");
  axslen(1800, 1200);
  name("Z values", "Z");
  graf3(0, 10, 0, 2, 0, 5, 0, 1, -1, 1, -1, 0.5);
  EXPECT_EQ(getlev(), 2);
  EXPECT_EQ(nzposn(-1), 1);
  EXPECT_EQ(nzposn(1), 254);
  std::vector<std::string> texts;
  int fills = 0;
  for (const Item &it : mirval_state().scene.current().items) {
    if (it.kind == ItemKind::Text) texts.push_back(it.text);
    if (it.kind == ItemKind::Fill) ++fills;
  }
  EXPECT_EQ(fills, 254);  // one stripe per colour
  for (const char *t : {"\u22121.0", "\u22120.5", "0.0", "0.5", "1.0", "Z values"})
    EXPECT_NE(std::find(texts.begin(), texts.end(), t), texts.end()) << t;
  // the stripes lie right of the axis system at VKXBAR, WIDBAR
  const Item &first = *std::find_if(mirval_state().scene.current().items.begin(),
                                    mirval_state().scene.current().items.end(),
                                    [](const Item &it) { return it.kind == ItemKind::Fill; });
  EXPECT_NEAR(first.path.pts[0].x, 450 + 1800 + 85, 1e-9);
  EXPECT_NEAR(first.path.pts[1].x, 450 + 1800 + 170, 1e-9);
  finish();
}

TEST_F(GridTest, TheXAxisGivesWayToABarThatWouldLeaveThePage) {
  open("fit.svg");
  name("Z values", "Z");
  graf3(0, 10, 0, 2, 0, 5, 0, 1, -1, 1, -1, 0.5);  // the default X length 2200 leaves no room
  EXPECT_LT(mirval_state().axes.box.x1, 450 + 2200);
  double right = 0;
  for (const Item &it : mirval_state().scene.current().items)
    for (const Pt &p : it.path.pts) right = std::max(right, p.x);
  EXPECT_LT(right, 2970);
  int len[3];
  getlen(&len[0], &len[1], &len[2]);
  EXPECT_EQ(len[0], 2200);  // the setting itself stays
}

TEST_F(GridTest, NobarLeavesTheBarOut) {
  open("nobar.svg");
  nobar();
  graf3(0, 10, 0, 2, 0, 5, 0, 1, -1, 1, -1, 0.5);
  for (const Item &it : mirval_state().scene.current().items) EXPECT_NE(it.kind, ItemKind::Fill);
}

TEST_F(GridTest, ColourRoutinesNeedAZAxis) {
  open("plain.svg");
  graf(0, 10, 0, 2, 0, 5, 0, 1);
  float x = 1, y = 1, z = 1;
  size_t before = mirval_state().scene.current().items.size();
  curve3(&x, &y, &z, 1);
  rpoint(1, 1, 1, 10, 10);
  EXPECT_EQ(nzposn(1), 0);
  EXPECT_EQ(mirval_state().scene.current().items.size(), before);
}

TEST_F(GridTest, BadArgumentsDrawNothing) {
  open("bad.svg");
  graf3(0, 10, 0, 2, 0, 5, 0, 1, -1, 1, -1, 0.5);
  size_t before = mirval_state().scene.current().items.size();
  float v[4] = {1, 2, NAN, 4};
  curve3(v, v, v, 0);
  curve3(v, v, v, -3);
  curve3(nullptr, v, v, 2);
  rpoint(1, 1, 1, -5, 10);
  rpoint(1, 1, NAN, 5, 10);
  crvmat(v, 1, 4, 1, 1);
  crvmat(v, 2, 2, 0, 1);
  crvmat(v, 100000, 100000, 1, 1);
  colran(0, 300);
  widbar(-4);
  EXPECT_EQ(mirval_state().scene.current().items.size(), before);
}

TEST_F(GridTest, ColourPointsAndMatrixPicture) {
  open("points.png");
  axslen(1800, 1200);
  titlin("Colour points and a matrix", 1);
  name("X", "X");
  name("Y", "Y");
  name("Z", "Z");
  graf3(0, 10, 0, 2, 0, 10, 0, 2, 0, 2, 0, 0.5);
  const int n = 20;
  std::vector<float> z(n * n);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) z[i * n + j] = float(1 + std::sin(i * 0.3) * std::cos(j * 0.3));
  crvmat(z.data(), n, n, 4, 4);
  setres(40, 40);
  std::vector<float> px, py, pz;
  for (int k = 0; k < 10; ++k) px.push_back(k + 0.5f), py.push_back(9.5f - k), pz.push_back(k * 0.2f);
  curve3(px.data(), py.data(), pz.data(), 10);
  title();
  finish();
  Picture p = read_png("points.png");
  ASSERT_GT(p.w, 0);
  // the bar's top is red, its bottom violet-blue (the default table)
  int bx = int((450 + 1800 + 85 + 42) * 0.4);
  Pixel top = p.at(bx, int(605 * 0.4)), bottom = p.at(bx, int(1795 * 0.4));
  EXPECT_GT(top.r, 200);
  EXPECT_LT(top.b, 60);
  EXPECT_GT(bottom.b, 200);
  EXPECT_LT(bottom.g, 60);
}
