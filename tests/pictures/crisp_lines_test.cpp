// Raster pictures: thin horizontal and vertical lines cover whole pixels in the pen colour,
// and wider pens give visibly wider strokes.
#include "mirval.h"
#include "picture_support.h"

#include <algorithm>

namespace {

class CrispTest : public PictureTest {};

bool is_black(Pixel p) { return p.r == 0 && p.g == 0 && p.b == 0; }
bool is_white(Pixel p) { return p.r == 255 && p.g == 255 && p.b == 255; }

// Rows of column x between y0 and y1 that hold any ink.
int inked_rows(const Picture &pic, int x, int y0, int y1) {
  int n = 0;
  for (int y = y0; y <= y1; ++y) n += !is_white(pic.at(x, y));
  return n;
}

TEST_F(CrispTest, AxisFrameIsOnePixelRowOfForeground) {
  metafl("PNG");
  mirini();
  graf(0, 10, 0, 2, 0, 10, 0, 2);
  endgrf();
  mirfin();
  Picture pic = read_png("mirval.png");
  ASSERT_EQ(pic.w, 1188);
  // The lower side of the default axis system lies at plot y 1800, i.e. pixel row 720;
  // halfway between two ticks every pixel of its column is paper but for one black row.
  int x = static_cast<int>((450 + 2200 * 0.55) * 0.4);
  int black = 0, grey = 0, row = -1;
  for (int y = 700; y < 740; ++y) {
    Pixel p = pic.at(x, y);
    if (is_black(p)) ++black, row = y;
    else if (!is_white(p)) ++grey;
  }
  EXPECT_EQ(black, 1);
  EXPECT_EQ(grey, 0);
  EXPECT_NEAR(row, 720, 1);
}

TEST_F(CrispTest, StrokesGrowWithThkcrv) {
  metafl("PNG");
  mirini();
  graf(0, 10, 0, 2, 0, 10, 0, 2);
  float x[2] = {0, 10}, y1[2] = {3, 3}, y2[2] = {7, 7};
  curve(x, y1, 2);
  thkcrv(2);
  curve(x, y2, 2);
  thkcrv(4);
  float y3[2] = {5, 5};
  curve(x, y3, 2);
  endgrf();
  mirfin();
  Picture pic = read_png("mirval.png");
  ASSERT_EQ(pic.w, 1188);
  int col = static_cast<int>((450 + 2200 * 0.5) * 0.4);
  auto row_of = [](double v) { return static_cast<int>((1800 - 1200 * v / 10) * 0.4); };
  int one = inked_rows(pic, col, row_of(3) - 6, row_of(3) + 6);
  int two = inked_rows(pic, col, row_of(7) - 6, row_of(7) + 6);
  int four = inked_rows(pic, col, row_of(5) - 6, row_of(5) + 6);
  EXPECT_EQ(one, 1);
  EXPECT_GT(two, one);
  EXPECT_GT(four, two);
}

}  // namespace
