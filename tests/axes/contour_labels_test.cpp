// Labels of neighbouring contour lines keep clear of each other, also in a narrow minimum
// where the lines crowd together.
#include "axes_support.h"
#include "draw/text.h"
#include "grids/contour.h"
#include "mirval.h"

#include <cmath>
#include <vector>

namespace {

// n by n values of f over the square from -1 to 1.
struct Grid {
  int n;
  std::vector<float> x, z;
};

Grid square_grid(int n, float (*f)(float, float)) {
  Grid g{n, std::vector<float>(n), std::vector<float>(n * n)};
  for (int i = 0; i < n; ++i) g.x[i] = -1 + 2.0f * i / (n - 1);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) g.z[i * n + j] = f(g.x[i], g.x[j]);
  return g;
}

// Every contour label of the page as its turned rectangle (text width by capital height).
std::vector<std::array<Pt, 4>> label_boxes() {
  std::vector<std::array<Pt, 4>> out;
  for (const Item *t : texts()) {
    double w = text_length(t->text, "", 36);
    double a = t->angle * M_PI / 180;
    // the run starts on its baseline: its middle lies half a width along and half a height up
    Pt c{t->at.x + std::cos(a) * w / 2 - std::sin(a) * 18, t->at.y - std::sin(a) * w / 2 - std::cos(a) * 18};
    out.push_back(label_corners(c, w, 36, t->angle));
  }
  return out;
}

}  // namespace

TEST_F(AxesTest, LabelsOfCrowdedLevelsNeverOverlap) {
  open("crowded.svg");
  Grid g = square_grid(81, [](float x, float y) { return float(1 - std::exp(-(x * x + y * y) / 0.05)); });
  axslen(1200, 1200);
  graf(-1, 1, -1, 0.5, -1, 1, -1, 0.5);
  labels("FLOAT", "CONTOUR");
  size_t before = texts().size();
  for (float level : {0.25f, 0.35f, 0.5f, 0.6f, 0.75f, 0.85f}) contur(g.x.data(), g.n, g.x.data(), g.n, g.z.data(), level);
  std::vector<std::array<Pt, 4>> boxes = label_boxes();
  boxes.erase(boxes.begin(), boxes.begin() + before);  // the axis labels
  ASSERT_GE(boxes.size(), 5u);                         // the levels keep their labels
  for (size_t a = 0; a < boxes.size(); ++a)
    for (size_t b = a + 1; b < boxes.size(); ++b)
      EXPECT_FALSE(quads_overlap(boxes[a], boxes[b])) << texts()[before + a]->text << " and " << texts()[before + b]->text;
  finish();
}

TEST_F(AxesTest, ANewAxisSystemForgetsTheLabelsOfTheLastOne) {
  open("again.svg");
  Grid g = square_grid(21, [](float x, float) { return x; });
  labels("FLOAT", "CONTOUR");
  graf(-1, 1, -1, 0.5, -1, 1, -1, 0.5);
  size_t before = texts().size();
  contur(g.x.data(), g.n, g.x.data(), g.n, g.z.data(), 0);
  size_t first = texts().size() - before;
  endgrf();
  erase();
  graf(-1, 1, -1, 0.5, -1, 1, -1, 0.5);
  before = texts().size();
  contur(g.x.data(), g.n, g.x.data(), g.n, g.z.data(), 0);
  EXPECT_EQ(texts().size() - before, first);
  EXPECT_GE(first, 1u);
  finish();
}
