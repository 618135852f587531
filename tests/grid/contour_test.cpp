// Contours: level lines of known surfaces lie where they must and join into whole lines;
// shaded layers cover the areas between levels; pictures of both.
#include "grids/contour.h"
#include "draw/draw.h"
#include "grid_support.h"
#include "mirval.h"
#include "core/state.h"

#include <cmath>
#include <vector>

namespace {

// z = f(x, y) on an n x n grid over [lo, hi]^2.
struct Sampled {
  std::vector<float> x, y, z;
  GridData grid() const { return {x.data(), int(x.size()), y.data(), int(y.size()), z.data()}; }
};

template <class F>
Sampled sample(int n, double lo, double hi, F f) {
  Sampled s;
  for (int i = 0; i < n; ++i) s.x.push_back(float(lo + (hi - lo) * i / (n - 1)));
  s.y = s.x;
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) s.z.push_back(float(f(s.x[i], s.y[j])));
  return s;
}

bool closed(const std::vector<Pt> &l) { return l.size() > 2 && l.front().x == l.back().x && l.front().y == l.back().y; }

double total_area(const std::vector<std::vector<Pt>> &polys) {
  double a = 0;
  for (const auto &p : polys) a += std::fabs(polygon_area(p));
  return a;
}

}  // namespace

TEST(ContourLines, CirclesOfAParaboloidAreClosedAndRound) {
  Sampled s = sample(41, -2, 2, [](double x, double y) { return x * x + y * y; });
  double h = 4.0 / 40;
  for (double r : {0.5, 1.0, 1.5, 1.9}) {
    auto lines = contour_lines(s.grid(), r * r);
    ASSERT_EQ(lines.size(), 1u) << r;
    EXPECT_TRUE(closed(lines[0])) << r;
    EXPECT_GT(lines[0].size(), 8u);
    for (Pt p : lines[0]) EXPECT_NEAR(std::hypot(p.x, p.y), r, h * h / r) << r;
  }
}

TEST(ContourLines, LinesThatLeaveTheGridAreOpenAndWhole) {
  // circles about a corner: one open arc per level from one side to the other
  Sampled s = sample(30, 0, 1, [](double x, double y) { return x * x + y * y; });
  auto lines = contour_lines(s.grid(), 0.25);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_FALSE(closed(lines[0]));
  Pt a = lines[0].front(), b = lines[0].back();
  EXPECT_NEAR(std::min(a.x, b.x), 0, 1e-6);
  EXPECT_NEAR(std::min(a.y, b.y), 0, 1e-6);
  EXPECT_NEAR(std::max(a.x, b.x), 0.5, 1e-3);  // x^2 taken as linear along a cell's edge
}

TEST(ContourLines, SeveralRingsAndSaddlesJoinConsistently) {
  Sampled s = sample(60, 0, 4 * M_PI, [](double x, double y) { return std::sin(x) * std::sin(y); });
  auto lines = contour_lines(s.grid(), 0.5);
  // sin x sin y has 8 hills in [0, 4 pi]^2, each ringed at 0.5; the saddles between them
  // stay below the level
  int rings = 0;
  for (auto &l : lines) rings += closed(l);
  EXPECT_EQ(rings, 8);
  EXPECT_EQ(lines.size(), 8u);
}

TEST(ContourLines, HolesEndTheLines) {
  Sampled s = sample(21, -1, 1, [](double x, double) { return x; });
  s.z[10 * 21 + 10] = NAN;
  auto lines = contour_lines(s.grid(), 0.05);
  EXPECT_EQ(lines.size(), 2u);  // the line x = 0.05 is broken where the hole is
  EXPECT_TRUE(contour_lines(s.grid(), NAN).empty());
}

TEST(ContourLayers, RampBandsCoverTheirShare) {
  Sampled s = sample(17, 0, 1, [](double x, double y) { return x + 0 * y; });
  std::vector<double> l{0, 0.25, 0.5, 0.75, 1};
  auto layers = contour_layers(s.grid(), l);
  ASSERT_EQ(layers.size(), 4u);
  for (size_t k = 0; k < 4; ++k) EXPECT_NEAR(total_area(layers[k]), 1 - 0.25 * k, 1e-5) << k;
  // whole cells merge along rows: far fewer polygons than cells
  EXPECT_LT(layers[0].size(), 40u);
}

TEST(ContourLayers, DiagonalRampAndOutsideBands) {
  Sampled s = sample(33, 0, 1, [](double x, double y) { return x + y; });
  std::vector<double> l{-INFINITY, 0.5, 1.0, 1.5, INFINITY};
  auto layers = contour_layers(s.grid(), l);
  ASSERT_EQ(layers.size(), 4u);
  EXPECT_NEAR(total_area(layers[0]), 1, 1e-5);
  EXPECT_NEAR(total_area(layers[1]), 1 - 0.125, 1e-5);
  EXPECT_NEAR(total_area(layers[2]), 0.5, 1e-5);
  EXPECT_NEAR(total_area(layers[3]), 0.125, 1e-5);
}

TEST(Simplify, MergesNearAndCollinearPoints) {
  std::vector<Pt> line{{0, 0}, {1, 0}, {1.01, 0}, {2, 0.001}, {3, 0}, {3, 1}, {3, 2}};
  auto s = simplify(line, 0.1);
  ASSERT_EQ(s.size(), 3u);
  EXPECT_EQ(s[1].x, 3);
  EXPECT_EQ(s[1].y, 0);
}

TEST(CutGaps, LeavesTheLineOutsideTheGaps) {
  std::vector<Pt> line{{0, 0}, {10, 0}, {10, 10}};
  auto pieces = cut_gaps(line, {{2, 4}, {9, 12}});
  ASSERT_EQ(pieces.size(), 3u);
  EXPECT_EQ(pieces[0].back().x, 2);
  EXPECT_EQ(pieces[1].front().x, 4);
  EXPECT_EQ(pieces[1].back().x, 9);
  EXPECT_EQ(pieces[2].front().y, 2);
  EXPECT_EQ(pieces[2].back().y, 10);
}

TEST_F(GridTest, ConturDrawsClosedLinesAndLabels) {
  open("contur.svg");
  graf(-2, 2, -2, 1, -2, 2, -2, 1);
  Sampled s = sample(41, -2, 2, [](double x, double y) { return x * x + y * y; });
  labels("FLOAT", "CONTOUR");
  height(25);
  size_t before = mirval_state().scene.current().items.size();
  contur(s.x.data(), 41, s.y.data(), 41, s.z.data(), 1);
  const auto &items = mirval_state().scene.current().items;
  int texts = 0, strokes = 0, moves = 0;
  for (size_t k = before; k < items.size(); ++k) {
    const Item &it = items[k];
    if (it.kind == ItemKind::Text) {
      EXPECT_EQ(it.text, "1");
      ++texts;
    }
    if (it.kind != ItemKind::Stroke) continue;
    ++strokes;
    for (SegOp op : it.path.ops) moves += op == SegOp::Move;
    // radius 1 is an ellipse of half axes 550 and 300 plot units about (1550, 1200)
    for (const Pt &p : it.path.pts) EXPECT_NEAR(std::hypot((p.x - 1550) / 550, (p.y - 1200) / 300), 1, 0.01);
  }
  EXPECT_EQ(strokes, 1);              // all lines of a level in one stroke
  EXPECT_GE(texts, 4);                // labels along the ring
  EXPECT_EQ(moves, texts + 1);        // the ring cut once per label (its start lies between two)
  finish();
}

TEST_F(GridTest, ContourBadArgumentsDrawNothing) {
  open("bad.svg");
  graf(0, 1, 0, 1, 0, 1, 0, 1);
  size_t before = mirval_state().scene.current().items.size();
  float v[4] = {0, 1, 2, 3};
  contur(v, 1, v, 4, v, 0.5);
  contur(nullptr, 2, v, 2, v, 0.5);
  contur(v, 2, v, 2, v, NAN);
  conshd(v, 2, v, 2, v, v, 1);
  conshd(v, 2, v, 2, v, v, -1);
  conmat(v, 0, 0, 1);
  congap(-1);
  EXPECT_EQ(mirval_state().scene.current().items.size(), before);
}

TEST_F(GridTest, ContourPicture) {
  open("contour.png");
  titlin("Contours of sin x cos y", 1);
  graf(0, 6, 0, 1, 0, 6, 0, 1);
  title();
  const int n = 61;
  Sampled s = sample(n, 0, 6, [](double x, double y) { return std::sin(x) * std::cos(y); });
  labels("FLOAT", "CONTOUR");
  height(25);
  for (int k = -4; k <= 4; ++k) {
    if (k < 0) dash(); else solid();
    contur(s.x.data(), n, s.y.data(), n, s.z.data(), k * 0.2f);
  }
  finish();
}

TEST_F(GridTest, ShadedContourPicture) {
  open("conshd.png");
  axslen(1800, 1200);
  titlin("Shaded contours", 1);
  name("Z", "Z");
  graf3(0, 6, 0, 1, 0, 6, 0, 1, -1, 1, -1, 0.5);
  title();
  const int n = 61;
  Sampled s = sample(n, 0, 6, [](double x, double y) { return std::sin(x) * std::cos(y); });
  std::vector<float> lev;
  for (int k = 0; k <= 10; ++k) lev.push_back(-1 + 0.2f * k);
  conshd(s.x.data(), n, s.y.data(), n, s.z.data(), lev.data(), int(lev.size()));
  for (float l : lev) contur(s.x.data(), n, s.y.data(), n, s.z.data(), l);
  finish();
  Picture p = read_png("conshd.png");
  ASSERT_GT(p.w, 0);
  // at (1.5, 0) sin x cos y is near 1: red; at (4.7, 0) near -1: violet-blue
  Pixel hi = p.at(int((450 + 1.5 / 6 * 1800) * 0.4), int((1800 - 10) * 0.4));
  Pixel lo = p.at(int((450 + 4.7 / 6 * 1800) * 0.4), int((1800 - 10) * 0.4));
  EXPECT_GT(hi.r, 200);
  EXPECT_LT(hi.b, 80);
  EXPECT_GT(lo.b, 200);
  EXPECT_LT(lo.g, 80);
}
