// Polar and Smith charts: where their rims, rings, spokes and labels lie, the sectors of rose
// diagrams, and what bad arguments get.
#include "axes_support.h"
#include "mirval.h"

#include <algorithm>
#include <cmath>

namespace {

// Half the width and height of the bounding box of a list of coordinates x y x y ...
void half_box(const std::vector<double> &v, double &cx, double &cy, double &rx, double &ry) {
  double x0 = 1e9, x1 = -1e9, y0 = 1e9, y1 = -1e9;
  for (size_t k = 0; k + 1 < v.size(); k += 2) {
    x0 = std::min(x0, v[k]), x1 = std::max(x1, v[k]);
    y0 = std::min(y0, v[k + 1]), y1 = std::max(y1, v[k + 1]);
  }
  cx = (x0 + x1) / 2, cy = (y0 + y1) / 2, rx = (x1 - x0) / 2, ry = (y1 - y0) / 2;
}

// The radii of the circles (closed curved paths) of an SVG file centred at (cx, cy).
std::vector<double> ring_radii(const std::string &svg, double cx, double cy) {
  std::vector<double> out;
  for (const auto &p : svg_stroke_paths(svg)) {
    if (p.size() < 20) continue;
    double x, y, rx, ry;
    half_box(p, x, y, rx, ry);
    if (std::fabs(x - cx) < 0.5 && std::fabs(y - cy) < 0.5 && std::fabs(rx - ry) < 0.5) out.push_back(rx);
  }
  std::sort(out.begin(), out.end());
  return out;
}

}  // namespace

TEST_F(AxesTest, GrafpDrawsARimWithAngleLabelsAndARadiusScale) {
  open("polar.svg");
  axspos(450, 1900);
  axslen(1600, 1600);
  grafp(10, 0, 2, 0, 30);
  EXPECT_EQ(getlev(), 2);
  // the chart is centred in the axis system: (1250, 1100), radius 800
  EXPECT_NEAR(xposn(0), 1250, 1e-6);
  EXPECT_NEAR(yposn(0), 1100, 1e-6);
  EXPECT_NEAR(xposn(10), 2050, 1e-6);
  EXPECT_NEAR(yposn(10), 300, 1e-6);
  for (int a = 0; a < 360; a += 30) EXPECT_NE(text_item(std::to_string(a) + "\u00b0"), nullptr) << a;
  EXPECT_EQ(text_item("360\u00b0"), nullptr);
  for (const char *r : {"2", "4", "6", "8", "10"}) EXPECT_NE(text_item(r), nullptr) << r;
  // the label 90 degrees stands above the rim, 0 degrees right of it
  EXPECT_LT(text_item("90\u00b0")->at.y, 300);
  EXPECT_GT(text_item("0\u00b0")->at.x, 2050);
  // the radius labels below the ray at angle 0, at their radius
  const Item *four = text_item("4");
  EXPECT_GT(four->at.y, 1100);
  grdpol(2, 1);
  std::string svg = finish();
  std::vector<double> radii = ring_radii(svg, 1250, 1100);
  // rings every radius step / 2 (40 plot units per unit): 40, 80 ... 760, and the rim 800
  ASSERT_EQ(radii.size(), 10u);
  for (size_t k = 0; k < radii.size(); ++k) EXPECT_NEAR(radii[k], 80.0 * (k + 1), 0.5) << k;
}

TEST_F(AxesTest, GrdpolSpokesAndPolarSectors) {
  open("rose.svg");
  axspos(450, 1900);
  axslen(1600, 1600);
  grafp(4, 0, 1, 90, 45);
  EXPECT_NE(text_item("90\u00b0"), nullptr);
  EXPECT_NE(text_item("315\u00b0"), nullptr);
  size_t before = items().size();
  grdpol(0, 2);  // a spoke every 22.5 degrees
  int spokes = 0;
  for (size_t k = before; k < items().size(); ++k)
    if (items()[k].kind == ItemKind::Stroke) {
      const Item &it = items()[k];
      ASSERT_EQ(it.path.pts.size(), 2u);
      EXPECT_NEAR(std::hypot(it.path.pts[1].x - 1250, it.path.pts[1].y - 1100), 800, 1e-6);
      ++spokes;
    }
  EXPECT_EQ(spokes, 16);
  shdpat(16);
  before = items().size();
  polar(1, 3, 0, 90, 5);  // radius 1..3 between 5 and 85 degrees
  bool filled = false;
  for (size_t k = before; k < items().size(); ++k)
    if (items()[k].kind == ItemKind::Fill) {
      filled = true;
      for (const Pt &p : items()[k].path.pts) {
        double r = std::hypot(p.x - 1250, p.y - 1100);
        EXPECT_GT(r, 200 - 1);
        EXPECT_LT(r, 690);  // Bezier control points stand a little outside 600
        EXPECT_LE(p.y, 1100 + 1e-6);  // the upper right quarter
        EXPECT_GE(p.x, 1250 - 1e-6);
      }
    }
  EXPECT_TRUE(filled);
  finish();
}

TEST_F(AxesTest, YpolarAddsASecondRadialScale) {
  open("ypolar.svg");
  grafp(1, 0, 0.25, 0, 45);
  ypolar(-40, 0, -40, 10, "dB", 90);
  for (const char *t : {"\u221230", "\u221220", "\u221210", "0", "dB"}) EXPECT_NE(text_item(t), nullptr) << t;
  // along the upward ray: "-20" halfway between the centre and the rim
  const Item *mid = text_item("\u221220");
  const AxisExtraState &x = mirval_state().axextra;
  EXPECT_NEAR(mid->at.y, x.cy - x.radius / 2, 40);
  finish();
}

TEST_F(AxesTest, PolarRoutinesWantAPolarChart) {
  open("notpolar.svg");
  std::string err = stderr_of([] { grdpol(1, 1); });
  EXPECT_NE(err.find("grdpol"), std::string::npos);
  graf(0, 1, 0, 1, 0, 1, 0, 1);
  err = stderr_of([] {
    grdpol(1, 1);
    polar(0, 1, 0, 90, 0);
    gridre(1, -1, 1, 10);
  });
  expect_all_in(err, {"grdpol: the axis system is no polar chart",
                      "polar: the axis system is no polar chart",
                      "gridre: the axis system is no Smith chart"});
  endgrf();
  err = stderr_of([] {
    grafp(-1, 0, 1, 0, 30);
    grafp(NAN, 0, 1, 0, 30);
  });
  expect_all_in(err, {"grafp: the radius -1 must be positive", "grafp: arguments must be finite numbers"});
  EXPECT_EQ(getlev(), 1);
  err = stderr_of([] { grafp(5, 0, 0, 0, 0); });  // steps chosen
  expect_all_in(err, {"radius step 0", "angle step 0"});
  EXPECT_EQ(getlev(), 2);
  err = stderr_of([] {
    polar(1, 2, 50, 40, 0);
    ypolar(1, 1, 0, 1, "x", 0);
    grdpol(-1, 1000);
  });
  expect_all_in(err, {"polar: angles 50 to 40", "ypolar: the scale 1 to 1", "grdpol"});
  finish();
}

TEST_F(AxesTest, GrafrDrawsASmithChart) {
  open("smith.svg");
  axspos(450, 1900);
  axslen(1600, 1600);
  float re[] = {0.2f, 0.5f, 1, 2, 5};
  float im[] = {0.2f, 0.5f, 1, 2, 5};
  grafr(re, im, 5);
  EXPECT_EQ(getlev(), 2);
  for (const char *t : {"0.2", "0.5", "1", "2", "5", "j0.2", "\u2212j0.2", "j1", "\u2212j5"})
    EXPECT_NE(text_item(t), nullptr) << t;
  // "j1" stands above the top of the rim, where the reactance arc of 1 meets it
  const Item *j1 = text_item("j1");
  EXPECT_NEAR(centre_x(j1), 1250, 8);  // the chart labels are smaller than 36
  EXPECT_LT(j1->at.y, 300);
  // "j0.5" at 2 atan(0.5) from the left end of the real axis: Γ = (-0.6, 0.8)
  const Item *j05 = text_item("j0.5");
  EXPECT_LT(j05->at.x, 1250 - 0.6 * 800);
  EXPECT_LT(j05->at.y, 1100 - 0.8 * 800);
  // user coordinates are reflection coefficients: -1..1 over the rim
  EXPECT_NEAR(xposn(-1), 450, 1e-6);
  EXPECT_NEAR(xposn(1), 2050, 1e-6);
  float u, v;
  getrco(1, 1, &u, &v);  // z = 1 + j: (0.2, 0.4)
  EXPECT_NEAR(u, 0.2, 1e-6);
  EXPECT_NEAR(v, 0.4, 1e-6);
  float r, x;
  getico(u, v, &r, &x);
  EXPECT_NEAR(r, 1, 1e-5);
  EXPECT_NEAR(x, 1, 1e-5);
  size_t before = items().size();
  gridre(1, -1, 1, 50);  // part of the circle of resistance 1
  ASSERT_EQ(items().size(), before + 1);
  for (const Pt &p : items().back().path.pts) EXPECT_NEAR(std::hypot(p.x - 1650, p.y - 1100), 400, 1e-3);
  gridim(1, 0, 10, 50);
  for (const Pt &p : items().back().path.pts) EXPECT_NEAR(std::hypot(p.x - 2050, p.y - 300), 800, 1e-3);
  std::string svg = finish();
  // the resistance circles: centre r/(1+r), radius 1/(1+r) of the rim's 800
  for (double rr : {0.2, 0.5, 1.0, 2.0, 5.0}) {
    std::vector<double> radii = ring_radii(svg, 1250 + rr / (1 + rr) * 800, 1100);
    ASSERT_FALSE(radii.empty()) << rr;
    EXPECT_NEAR(radii.back(), 800 / (1 + rr), 0.5) << rr;
  }
  std::vector<double> rim = ring_radii(svg, 1250, 1100);
  ASSERT_EQ(rim.size(), 1u);
  EXPECT_NEAR(rim[0], 800, 0.5);
}

TEST_F(AxesTest, SmithChartBadArguments) {
  open("smithbad.svg");
  float re[] = {NAN, -1, 1};
  std::string err = stderr_of([&] { grafr(re, re, 0); });
  EXPECT_NE(err.find("grafr: no grid values (n = 0)"), std::string::npos) << err;
  grafr(re, re, 3);  // the NaN and negative values are left out
  EXPECT_NE(text_item("1"), nullptr);
  EXPECT_EQ(text_item("\u22121"), nullptr);
  float a, b;
  err = stderr_of([&] {
    getico(1, 0, &a, &b);
    gridre(NAN, 0, 1, 10);
    gridim(1, 0, 1, 1);
  });
  EXPECT_EQ(a, 0);
  expect_all_in(err, {"getico: reflection coefficient 1 + j0 has no finite impedance", "gridre", "gridim"});
  float xm, ym, r;
  err = stderr_of([&] { circ3p(0, 0, 1, 1, 2, 2, &xm, &ym, &r); });
  EXPECT_NE(err.find("circ3p: the three points lie on one line"), std::string::npos);
  EXPECT_EQ(r, 0);
  circ3p(0, 0, 4, 0, 0, 4, &xm, &ym, &r);
  EXPECT_FLOAT_EQ(xm, 2);
  EXPECT_FLOAT_EQ(ym, 2);
  EXPECT_FLOAT_EQ(r, std::sqrt(8.0f));
  finish();
}
