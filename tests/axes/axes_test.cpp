// Stand-alone axes and colour bars, date and user labels, the axis options and the coordinate
// and page helpers.
#include "axes_support.h"
#include "mirval.h"

#include <algorithm>
#include <cmath>

namespace {

bool has_line(const std::string &svg, double x0, double y0, double x1, double y1) {
  for (const auto &p : svg_stroke_paths(svg))
    if (p.size() == 4 && std::fabs(p[0] - x0) < 0.5 && std::fabs(p[1] - y0) < 0.5 && std::fabs(p[2] - x1) < 0.5 &&
        std::fabs(p[3] - y1) < 0.5)
      return true;
  return false;
}

}  // namespace

TEST_F(AxesTest, YaxisGivesASecondAxisOnTheRight) {
  open("second.svg");
  graf(0, 10, 0, 2, 0, 100, 0, 20);
  size_t before = texts().size();
  yaxis(32, 212, 50, 50, 1200, "Fahrenheit", 1, 2650, 1800);
  std::vector<const Item *> t = texts();
  std::vector<std::string> added;
  for (size_t k = before; k < t.size(); ++k) added.push_back(t[k]->text);
  EXPECT_EQ(added, (std::vector<std::string>{"50", "100", "150", "200", "Fahrenheit"}));
  // "100" at its value: 1800 - (100 - 32) / 180 * 1200, right of the axis
  const Item *l = t[before + 1];
  EXPECT_GT(l->at.x, 2650);
  double y = 1800 - (100 - 32) / 180.0 * 1200;
  EXPECT_NEAR(l->at.y, y + 36 * 0.5, 20);  // text baseline below the middle
  std::string svg = finish();
  EXPECT_TRUE(has_line(svg, 2650, 600, 2650, 1800) || has_line(svg, 2650, 1800, 2650, 600));
  // the ticks point right, from the axis line
  EXPECT_TRUE(has_line(svg, 2650, y, 2674, y));
}

TEST_F(AxesTest, XaxisAnywhereAboveOrBelow) {
  open("xaxis.svg");
  xaxis(0, 1, 0, 0.25, 1000, "Fraction", 0, 500, 500);
  const Item *half = text_item("0.50");
  ASSERT_NE(half, nullptr);
  EXPECT_NEAR(centre_x(half), 1000, 3);  // centred under the value
  EXPECT_GT(half->at.y, 500);
  size_t before = texts().size();
  xaxis(0, 1, 0, 0.25, 1000, "", 1, 500, 1500);
  EXPECT_LT(texts()[before]->at.y, 1500);  // labels above
  xaxlg(0, 3, 0, 1, 1000, "", 0, 500, 1000);
  std::string svg = finish();
  EXPECT_TRUE(has_line(svg, 500, 500, 1500, 500));
  EXPECT_TRUE(has_line(svg, 500, 1500, 1500, 1500));
  EXPECT_TRUE(has_line(svg, 500, 1000, 1500, 1000));
  EXPECT_EQ(getlev(), 1);
}

TEST_F(AxesTest, ZaxisDrawsAColourBarPlacedByHand) {
  open("zaxis.svg");
  graf(0, 10, 0, 2, 0, 5, 0, 1);
  zscale(-1, 1);
  size_t before = items().size();
  frmbar(3);
  zaxis(-1, 1, -1, 0.5, 1000, "Z", 0, 0, 2700, 1700);
  int fills = 0;
  bool frame = false;
  for (size_t k = before; k < items().size(); ++k) {
    const Item &it = items()[k];
    if (it.kind == ItemKind::Fill) {
      if (fills == 0) {  // the lowest stripe, colour 1, at the lower end
        EXPECT_NEAR(it.path.pts[0].x, 2700, 1e-9);
        EXPECT_NEAR(it.path.pts[0].y, 1700, 1e-9);
      }
      ++fills;
    }
    if (it.kind == ItemKind::Stroke && it.width == 3 && it.path.pts.size() == 5) frame = true;
  }
  EXPECT_EQ(fills, 254);
  EXPECT_TRUE(frame);
  for (const char *t : {"\u22121.0", "\u22120.5", "0.0", "0.5", "1.0", "Z"}) EXPECT_NE(text_item(t), nullptr) << t;
  EXPECT_GT(text_item("0.0")->at.x, 2700 + 85);
  // ZSCALE gives a plain axis system colours: 0 is in the middle of the table
  EXPECT_EQ(nzposn(1), 254);
  std::string err = stderr_of([] {
    zaxis(0, 1, 0, 1, 0, "", 0, 0, 100, 100);
    zaxis(0, 1, 0, 1, 100, "", 0, 2, 100, 100);
    zaxlg(1, 1, 0, 1, 100, "", 0, 0, 100, 100);
  });
  expect_all_in(err, {"zaxis: axis length", "zaxis: direction 2", "zaxlg: axis range 1 to 1 is empty"});
  finish();
}

TEST_F(AxesTest, DateLabelsOnMonths) {
  open("dates.svg");
  basdat(1, 1, 2024);
  EXPECT_EQ(incdat(1, 3, 2024), 60);
  int d, m, y;
  trfdat(366, &d, &m, &y);
  EXPECT_EQ(d * 10000 + m * 100 + y - 2025, 10100);
  EXPECT_EQ(nwkday(1, 1, 2024), 1);
  labels("DATE", "X");
  labmod("STEP", "MONTH", "X");
  labmod("MONTH", "SHORT", "X");
  axslen(2400, 1200);
  graf(0, 366, 0, 30, 0, 1, 0, 1);
  std::vector<std::string> t = text_strings();
  for (const char *mon : {"Jan 2024", "Mar 2024", "Jul 2024", "Jan 2025"})
    EXPECT_NE(std::find(t.begin(), t.end(), mon), t.end()) << mon;
  // March begins on day 60
  EXPECT_NEAR(centre_x(text_item("Mar 2024")), 450 + 60 / 366.0 * 2400, 3);
  finish();
}

TEST_F(AxesTest, DateLabelsEveryWeekWithWeekdays) {
  open("weeks.svg");
  basdat(1, 1, 2024);  // a Monday
  labels("DATE", "X");
  labmod("STEP", "WEEK", "X");
  labmod("DAYS", "SHORT", "X");
  labmod("YEAR", "NONE", "X");
  graf(0, 28, 0, 7, 0, 1, 0, 1);
  std::vector<std::string> t = text_strings();
  for (const char *s : {"Mon 01.01", "Mon 08.01", "Mon 29.01"}) EXPECT_NE(std::find(t.begin(), t.end(), s), t.end()) << s;
  std::string err = stderr_of([] {
    basdat(30, 2, 2024);
    labmod("STEP", "FORTNIGHT", "X");
    EXPECT_EQ(incdat(31, 11, 2024), 0);
  });
  expect_all_in(err, {"basdat: 30.2.2024 is no date", "labmod: unknown date step \"FORTNIGHT\"",
                      "incdat: 31.11.2024 is no date"});
  finish();
}

TEST_F(AxesTest, TimeLabels) {
  open("time.svg");
  labels("TIME", "X");
  graf(0, 86400, 0, 21600, 0, 1, 0, 1);
  std::vector<std::string> t = text_strings();
  for (const char *s : {"00:00", "06:00", "12:00", "18:00"}) EXPECT_NE(std::find(t.begin(), t.end(), s), t.end()) << s;
  finish();
}

TEST_F(AxesTest, UserLabelsAndNumberForms) {
  open("mylab.svg");
  labels("MYLAB", "X");
  mylab("Low", 1, "X");
  mylab("Mid", 2, "X");
  mylab("High", 3, "X");
  addlab("Limit", 2.5f, 2, "Y");
  numode("COMMA", "POINT", "PLUS", "NONE");
  graf(1, 3, 1, 1, 0, 5000, 0, 1000);
  std::vector<std::string> t = text_strings();
  for (const char *s : {"Low", "Mid", "High", "Limit", "+1.000", "+5.000", "0"})
    EXPECT_NE(std::find(t.begin(), t.end(), s), t.end()) << s;
  endgrf();
  reset("NUMODE");
  reset("LABELS");
  intax();
  sclfac(1000);
  sclmod("Y");
  axends("NONE", "X");
  graf(0, 2, 0, 0.5, 0, 0.004, 0, 0.001);
  t = text_strings();
  EXPECT_NE(std::find(t.begin(), t.end(), "4"), t.end());      // 0.004 shown as 4
  EXPECT_EQ(std::find(t.begin(), t.end(), "0.5"), t.end());   // INTAX: whole numbers only
  EXPECT_NE(std::find(t.begin(), t.end(), "1"), t.end());
  finish();
}

TEST_F(AxesTest, AxisOptionsChangeTheSides) {
  open("options.svg");
  axsbgd(3);
  axstyp("OPEN");
  ticmod("NONE", "XY");
  axclrs(2, "LINE", "X");
  graf(0, 10, 0, 2, 0, 10, 0, 2);
  // background first, then only two axis lines without ticks
  ASSERT_GE(items().size(), 3u);
  EXPECT_EQ(items()[0].kind, ItemKind::Fill);
  int strokes = 0;
  for (const Item &it : items())
    if (it.kind == ItemKind::Stroke) ++strokes;
  EXPECT_EQ(strokes, 2);
  endgrf();
  erase();
  reset("ALL");
  axstyp("CROSS");
  graf(-5, 5, -5, 1, -5, 5, -5, 1);
  std::string svg = finish();
  EXPECT_TRUE(has_line(svg, 450, 1200, 2650, 1200));  // the X axis through y = 0
  EXPECT_TRUE(has_line(svg, 1550, 600, 1550, 1800));  // the Y axis through x = 0
}

TEST_F(AxesTest, NografDefinesWithoutDrawing) {
  open("nograf.svg");
  nograf();
  EXPECT_EQ(getblk(), 1);
  graf(0, 1, 0, 1, 0, 1, 0, 1);
  EXPECT_EQ(getlev(), 2);
  EXPECT_TRUE(items().empty());
  EXPECT_EQ(getblk(), 0);
  cross();
  EXPECT_FALSE(items().empty());
  finish();
}

TEST_F(AxesTest, CoordinateHelpersAndGetters) {
  open("coords.svg");
  graf(0, 10, 0, 2, 0, 100, 0, 20);
  float x, y;
  pos2pt(5, 50, &x, &y);
  EXPECT_FLOAT_EQ(x, 1550);
  EXPECT_FLOAT_EQ(y, 1200);
  EXPECT_DOUBLE_EQ(x2dpos(10, 0), 2650);
  EXPECT_DOUBLE_EQ(y2dpos(10, 0), 1800);
  pt2pos(1550, 1200, &x, &y);
  EXPECT_FLOAT_EQ(x, 5);
  EXPECT_FLOAT_EQ(y, 50);
  float a, b, o, s;
  int nd;
  gaxpar(0.13f, 9.7f, "EXTEND", "X", &a, &b, &o, &s, &nd);
  EXPECT_FLOAT_EQ(a, 0);
  EXPECT_FLOAT_EQ(b, 10);
  EXPECT_FLOAT_EQ(s, 2);
  EXPECT_EQ(nd, 0);
  gaxpar(0.13f, 0.97f, "NOEXTEND", "Y", &a, &b, &o, &s, &nd);
  EXPECT_FLOAT_EQ(a, 0.13f);
  EXPECT_FLOAT_EQ(o, 0.2f);
  EXPECT_EQ(nd, 1);
  int n1, n2, n3;
  getran(&n1, &n2);
  EXPECT_EQ(n1 * 1000 + n2, 1254);
  getvk(&n1, &n2, &n3);
  EXPECT_EQ(n2, 85);
  getscm(&n1, &n2, &n3);
  EXPECT_EQ(n1 + n2 + n3, 0);
  EXPECT_EQ(getdfl(), 0);
  EXPECT_GT(getver(), 1);
  std::string err = stderr_of([&] { gaxpar(0, 1, "WIDE", "X", &a, &b, &o, &s, &nd); });
  EXPECT_NE(err.find("gaxpar: unknown option \"WIDE\""), std::string::npos) << err;
  endgrf();
  origin(100, -50);
  getor(&n1, &n2);
  EXPECT_EQ(n1 * 1000 + n2, 100 * 1000 - 50);
  graf(0, 10, 0, 2, 0, 100, 0, 20);
  EXPECT_DOUBLE_EQ(x2dpos(0, 0), 550);
  EXPECT_DOUBLE_EQ(y2dpos(0, 0), 1750);
  endgrf();
  reset("ORIGIN");
  axsorg(1485, 1050);
  graf(0, 10, 0, 2, 0, 100, 0, 20);
  EXPECT_DOUBLE_EQ(x2dpos(5, 50), 1485);
  EXPECT_DOUBLE_EQ(y2dpos(5, 50), 1050);
  finish();
}

TEST_F(AxesTest, PageHelpers) {
  pagmod("PORT");
  int w, h;
  getpag(&w, &h);
  EXPECT_EQ(w * 10000 + h, 2100 * 10000 + 2970);
  open("header.svg");
  paghdr("Run 7", "draft", 4, 0);
  ASSERT_FALSE(texts().empty());
  const Item *t = texts().back();
  EXPECT_EQ(t->text.rfind("Run 7", 0), 0u) << t->text;
  EXPECT_NE(t->text.find("page 1"), std::string::npos);
  EXPECT_LT(t->at.x, 100);
  EXPECT_GT(t->at.y, 2900);
  std::string err = stderr_of([] { paghdr("", "", 7, 0); });
  EXPECT_NE(err.find("paghdr: corner"), std::string::npos) << err;
  finish();
}

TEST_F(AxesTest, SettingsWarnAndReset) {
  std::string err = stderr_of([] {
    axstyp("ROUND");
    labpos("TICKS", "Q");
    labjus("UP", "X");
    numode("COMMA", "COMMA", "NONE", "NONE");
    sclfac(0);
    neglog(-1);
    mylab("x", 0, "X");
    addlab("x", NAN, 0, "X");
    labclr(300, "X");
  });
  for (const char *w : {"axstyp: unknown axis type \"ROUND\"", "labpos: unknown axes \"Q\"", "labjus: unknown justification",
                        "numode: the thousands separator", "sclfac: factor 0", "neglog: value -1", "mylab: label number",
                        "addlab: position nan", "labclr: colour"})
    EXPECT_NE(err.find(w), std::string::npos) << w << "\n" << err;
  labpos("INSIDE", "BARS");
  labclr(4, "PIE");
  EXPECT_EQ(mirval_state().axextra.targets["BARS"].pos, "INSIDE");
  EXPECT_EQ(mirval_state().axextra.targets["PIE"].colour, 4);
  reset("LABPOS");
  EXPECT_TRUE(mirval_state().axextra.targets.empty());
  intax();
  reset("INTAX");
  EXPECT_FALSE(mirval_state().axextra.integer);
}
