// SVG structure: small plots rendered to SVG must hold their axis lines, ticks and curves at
// the plot coordinates the settings ask for (strokes keep plot units under the page's scale),
// and the texts the page draws.
#include "mirval.h"
#include "picture_support.h"
#include "core/state.h"
#include "draw/text.h"

#include <cmath>

namespace {

class SvgTest : public PictureTest {
 protected:
  // Opens an SVG page; the test draws, then strokes() writes and parses the file.
  void open() {
    metafl("SVG");
    setfil("plot.svg");
    mirini();
  }
  std::vector<SvgStroke> strokes() {
    sendbf();
    svg_ = read_file("plot.svg");
    return svg_strokes(svg_);
  }
  std::string svg_;
};

const std::string minus = "\u2212";

bool contains(const std::vector<std::string> &v, const std::string &s) {
  return std::find(v.begin(), v.end(), s) != v.end();
}

// Characters of the texts: Cairo places one glyph for each, blanks included.
int glyphs(const std::vector<std::string> &texts) {
  int n = 0;
  for (const std::string &t : texts)
    for (unsigned char c : t) n += (c & 0xC0) != 0x80;
  return n;
}

}  // namespace

TEST_F(SvgTest, AxisLinesAndTicksSitAtTheirPlotCoordinates) {
  open();
  graf(0, 10, 0, 2, -1, 1, -1, 0.5);
  auto s = strokes();
  EXPECT_TRUE(has_line(s, 450, 1800, 2650, 1800));  // lower X axis
  EXPECT_TRUE(has_line(s, 450, 600, 450, 1800));    // left Y axis
  EXPECT_TRUE(has_line(s, 450, 600, 2650, 600));    // upper X axis
  EXPECT_TRUE(has_line(s, 2650, 600, 2650, 1800));  // right Y axis
  EXPECT_TRUE(has_line(s, 890, 1800, 890, 1824));   // major tick at x = 2, outwards
  EXPECT_TRUE(has_line(s, 670, 1800, 670, 1816));   // minor tick at x = 1
  EXPECT_TRUE(has_line(s, 450, 1500, 426, 1500));   // major tick at y = -0.5
  EXPECT_EQ(getlev(), 2);
}

TEST_F(SvgTest, AxisSystemFollowsAxsposAndAxslen) {
  axspos(300, 1500);
  axslen(1000, 500);
  open();
  graf(0, 1, 0, 0.5, 0, 1, 0, 0.5);
  auto s = strokes();
  EXPECT_TRUE(has_line(s, 300, 1500, 1300, 1500));
  EXPECT_TRUE(has_line(s, 300, 1000, 300, 1500));
}

TEST_F(SvgTest, LabelsAndNamesAreTheTextsOfThePage) {
  open();
  name("Time in s", "X");
  name("Voltage", "Y");
  graf(0, 10, 0, 2, -1, 1, -1, 0.5);
  auto texts = page_texts();
  for (const char *l : {"0", "2", "4", "6", "8", "10", "0.5", "1.0", "Time in s", "Voltage"})
    EXPECT_TRUE(contains(texts, l)) << l;
  EXPECT_TRUE(contains(texts, minus + "0.5"));
  EXPECT_TRUE(contains(texts, minus + "1.0"));
  strokes();
  // every character of those texts is one glyph in the file
  size_t uses = 0;
  for (size_t at = svg_.find("<use"); at != std::string::npos; at = svg_.find("<use", at + 1)) ++uses;
  EXPECT_EQ(uses, size_t(glyphs(texts)));
}

TEST_F(SvgTest, LabelsNeverOverlap) {
  open();
  graf(0, 10, 0, 0.1f, 0, 1, 0, 0.01f);
  std::vector<std::pair<double, double>> spans;  // x extents of the lower labels
  const Rect &box = mirval_state().axes.box;
  double last_y = -1;
  for (const Item &it : mirval_state().scene.current().items) {
    if (it.kind != ItemKind::Text) continue;
    if (it.at.y > box.y1 + 24) {  // below the ticks: the X labels
      double w = text_length(it.text, "", 36);
      spans.push_back({it.at.x, it.at.x + w});
    } else if (it.at.x < box.x0) {
      if (last_y >= 0) {
        EXPECT_GT(last_y - it.at.y, 36);  // rows upwards, a capital apart
      }
      last_y = it.at.y;
    }
  }
  ASSERT_GT(spans.size(), 3u);
  for (size_t i = 1; i < spans.size(); ++i) EXPECT_LT(spans[i - 1].second, spans[i].first);
}

TEST_F(SvgTest, CurveHasOneSegmentPerPointPair) {
  open();
  graf(0, 10, 0, 2, -1, 1, -1, 0.5);
  float x[100], y[100];
  for (int i = 0; i < 100; ++i) x[i] = i * 0.1f, y[i] = std::sin(x[i]);
  color("RED");
  curve(x, y, 100);
  int red = 0;
  for (const SvgStroke &s : strokes())
    if (s.style.find("stroke:rgb(100%,0%,0%)") != std::string::npos) {
      ++red;
      EXPECT_EQ(s.segments, 99u);
      EXPECT_NEAR(s.pts[0].first, 450, 0.1);
      EXPECT_NEAR(s.pts[0].second, 1200, 0.1);
      EXPECT_NEAR(s.pts[10].first, 450 + 220, 0.1);  // x = 1
    }
  EXPECT_EQ(red, 1);
}

TEST_F(SvgTest, CurvesAreClippedAtTheAxisSystem) {
  open();
  graf(0, 10, 0, 2, 0, 10, 0, 2);
  float x[2] = {-5, 15}, y[2] = {5, 5};
  color("BLUE");
  curve(x, y, 2);
  noclip();
  color("GREEN");
  curve(x, y, 2);
  for (const SvgStroke &s : strokes()) {
    if (s.style.find("stroke:rgb(0%,0%,100%)") != std::string::npos) {
      ASSERT_EQ(s.pts.size(), 2u);
      EXPECT_NEAR(s.pts[0].first, 450, 0.1);
      EXPECT_NEAR(s.pts[1].first, 2650, 0.1);
    }
    if (s.style.find("stroke:rgb(0%,80%,0%)") != std::string::npos) {
      ASSERT_EQ(s.pts.size(), 2u);
      EXPECT_NEAR(s.pts[0].first, 450 - 1100, 0.1);  // the page is the only limit
    }
  }
}

TEST_F(SvgTest, LogAxesPlaceDecadesEvenly) {
  axsscl("LOG", "Y");
  labels("LOG", "Y");
  open();
  graf(0, 10, 0, 2, 0, 3, 0, 1);
  float x[2] = {0, 10}, y[2] = {100, 100};
  color("RED");
  curve(x, y, 2);
  auto texts = page_texts();
  EXPECT_EQ(std::count(texts.begin(), texts.end(), "10"), 4 + 1);  // four powers, and x = 10
  EXPECT_TRUE(contains(texts, "3"));
  bool found = false;
  for (const SvgStroke &s : strokes())
    if (s.style.find("stroke:rgb(100%,0%,0%)") != std::string::npos) {
      EXPECT_NEAR(s.pts[0].second, 1800 - 1200 * 2 / 3.0, 0.1);
      found = true;
    }
  EXPECT_TRUE(found);
}

TEST_F(SvgTest, AutomaticScalingRoundsToLabelSteps) {
  float x[3] = {0.3f, 4, 9.7f}, y[3] = {-0.93f, 0.1f, 0.98f};
  setscl(x, 3, "X");
  setscl(y, 3, "Y");
  open();
  graf(100, 200, 100, 50, 100, 200, 100, 50);  // replaced by the data's ranges
  const AxesState &ax = mirval_state().axes;
  EXPECT_DOUBLE_EQ(ax.range[0].a, 0);
  EXPECT_DOUBLE_EQ(ax.range[0].e, 10);
  EXPECT_DOUBLE_EQ(ax.range[1].a, -1);
  EXPECT_DOUBLE_EQ(ax.range[1].e, 1);
  EXPECT_TRUE(contains(page_texts(), "10"));
}

TEST_F(SvgTest, PageOriginAtTheBottomCountsUpwards) {
  pagorg("BOTTOM");
  open();
  line(100, 100, 200, 100);
  EXPECT_TRUE(has_line(strokes(), 100, 2000, 200, 2000));
}

TEST_F(SvgTest, TitleSitsAboveTheAxisSystem) {
  titlin("Main title", 1);
  titlin("Second line", 2);
  open();
  graf(0, 10, 0, 2, 0, 10, 0, 2);
  title();
  double main_y = 0, second_y = 0;
  for (const Item &it : mirval_state().scene.current().items) {
    if (it.text == "Main title") main_y = it.at.y;
    if (it.text == "Second line") second_y = it.at.y;
  }
  EXPECT_LT(second_y, 600 - 24);
  EXPECT_LT(main_y, second_y - 44);
}

TEST_F(SvgTest, LegendShowsEachCurveBesideItsText) {
  open();
  graf(0, 10, 0, 2, 0, 10, 0, 2);
  float x[2] = {0, 10}, y[2] = {2, 8};
  color("RED");
  curve(x, y, 2);
  color("BLUE");
  curve(x, y, 2);
  color("FORE");
  EXPECT_EQ(two_line_legend("rising", "also rising", 12, 7), "rising      also rising ");
  auto texts = page_texts();
  EXPECT_TRUE(contains(texts, "rising"));
  EXPECT_TRUE(contains(texts, "also rising"));
  EXPECT_TRUE(contains(texts, "Legend"));
  int red = 0;
  for (const SvgStroke &s : strokes())
    if (s.style.find("stroke:rgb(100%,0%,0%)") != std::string::npos) ++red;
  EXPECT_EQ(red, 2);  // the curve and its sample
}

TEST_F(SvgTest, DashedStylesReachTheFile) {
  open();
  dash();
  line(100, 100, 900, 100);
  auto s = strokes();
  ASSERT_TRUE(has_line(s, 100, 100, 900, 100));
  EXPECT_NE(svg_.find("stroke-dasharray:30,15"), std::string::npos);
}

TEST_F(SvgTest, ShadingPatternsFillOrHatch) {
  open();
  shdpat(16);
  color("RED");
  rectan(100, 100, 200, 100);
  shdpat(3);
  color("BLUE");
  rectan(400, 100, 200, 100);
  strokes();
  EXPECT_NE(svg_.find("fill-rule:evenodd;fill:rgb(100%,0%,0%)"), std::string::npos);
  EXPECT_NE(svg_.find("clip-path"), std::string::npos);  // hatching is clipped to the shape
}

TEST_F(SvgTest, MarkersOnlyDrawOneSymbolPerPoint) {
  open();
  graf(0, 10, 0, 2, 0, 10, 0, 2);
  float x[5] = {1, 3, 5, 7, 9}, y[5] = {1, 3, 5, 7, 9};
  incmrk(-1);
  marker(21);
  color("RED");
  curve(x, y, 5);
  strokes();
  size_t fills = 0;
  for (size_t at = svg_.find("fill:rgb(100%,0%,0%)"); at != std::string::npos;
       at = svg_.find("fill:rgb(100%,0%,0%)", at + 1))
    ++fills;
  EXPECT_EQ(fills, 5u);
}

TEST_F(SvgTest, FontsComeFromFilesOrFamilies) {
  int plain = nlmess("Width of this text");
  duplx();
  int bold = nlmess("Width of this text");
  EXPECT_GT(bold, plain);
  ttfont("/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf");
  EXPECT_NEAR(nlmess("Width of this text"), bold, 2);
  psfont("Courier");
  EXPECT_EQ(nlmess("iiii"), nlmess("MMMM"));  // a fixed-width family
  height(72);
  simplx();
  EXPECT_NEAR(nlmess("Width of this text"), 2 * plain, 2);
}

TEST_F(SvgTest, ErrorBarsSpanTheirErrors) {
  open();
  graf(0, 10, 0, 2, 0, 10, 0, 2);
  float x[1] = {5}, y[1] = {5}, lo[1] = {1}, hi[1] = {2};
  hsymbl(40);
  errbar(x, y, lo, hi, 1);
  auto s = strokes();
  EXPECT_TRUE(has_line(s, 1550, 1320, 1550, 960));  // y from 4 to 7
  EXPECT_TRUE(has_line(s, 1530, 960, 1570, 960));   // the upper cross line
}

TEST_F(SvgTest, CenterTitjusAndLabdisPlaceTheParts) {
  axslen(1000, 1000);
  center();
  int nx, ny;
  getpos(&nx, &ny);
  EXPECT_EQ(nx, 985);
  EXPECT_EQ(ny, 1550);
  titjus("LEFT");
  titlin("Left", 1);
  labdis(50, "X");
  open();
  graf(0, 10, 0, 2, 0, 10, 0, 2);
  title();
  double title_x = 0, label_y = 0;
  for (const Item &it : mirval_state().scene.current().items) {
    if (it.text == "Left") title_x = it.at.x;
    if (it.text == "4" && it.at.y > 1550) label_y = it.at.y;  // the X label, below the axis
  }
  EXPECT_DOUBLE_EQ(title_x, 985);
  EXPECT_NEAR(label_y, 1550 + 24 + 50 + 36, 1e-9);  // ticks, LABDIS, then the capitals
}
