// Pictures of the field routines: arrows as long as their magnitudes say (read back from SVG),
// wind barbs with the right number of pennants and barbs, streamlines, triangulated contours
// and filled bands that land where they must, and bad arguments that draw nothing.
#include "core/state.h"
#include "fields/fields.h"
#include "library_test.h"
#include "mirval.h"

#include <cctype>
#include <cmath>
#include <cstdlib>
#include <random>
#include <sstream>
#include <vector>

namespace {

class FieldPicture : public PageTest {
 protected:
  size_t items() const { return mirval_state().scene.pages.empty() ? 0 : mirval_state().scene.current().items.size(); }
};

// The subpaths of the path elements of an SVG file, in points: each a list of "M/L" points.
std::vector<std::vector<Pt>> svg_subpaths(const std::string &svg) {
  std::vector<std::vector<Pt>> out;
  for (size_t at = svg.find(" d=\""); at != std::string::npos; at = svg.find(" d=\"", at + 4)) {
    size_t end = svg.find('"', at + 4);
    std::istringstream in(svg.substr(at + 4, end - at - 4));
    std::string op;
    while (in >> op) {
      if (op == "M") out.emplace_back();
      if (op == "M" || op == "L") {
        Pt p;
        in >> p.x >> p.y;
        if (!out.empty()) out.back().push_back(p);
      } else if (op == "C") {
        Pt a, b, c;
        in >> a.x >> a.y >> b.x >> b.y >> c.x >> c.y;
        if (!out.empty()) out.back().push_back(c);
      }
    }
  }
  return out;
}

constexpr double PT = 1;  // Cairo's SVG keeps plot units, scaled by the file's transform

}  // namespace

TEST_F(FieldPicture, ArrowLengthsFollowTheMagnitudes) {
  open("arrows.svg");
  graf(0, 10, 0, 2, 0, 10, 0, 2);
  float xp[4] = {1, 1, 1, 1}, yp[4] = {2, 4, 6, 8}, u[4] = {1, 2, 3, 4}, v[4] = {0, 0, 0, 0};
  vecopt(100, "SCALE");
  vecfld(u, v, xp, yp, 4, 2);  // open heads: the shafts are whole
  std::string svg = finish();
  std::vector<double> lengths;
  for (const auto &s : svg_subpaths(svg))
    if (s.size() == 2 && std::fabs(s[0].y - s[1].y) < 1e-3 && std::fabs(s[0].x - 670) < 0.01)
      lengths.push_back((s[1].x - s[0].x) / PT);  // the arrows start at x = 1 (670 plot units)
  std::sort(lengths.begin(), lengths.end());
  // the axis system's own horizontal lines are longer than 1000 units
  while (!lengths.empty() && lengths.back() > 1000) lengths.pop_back();
  ASSERT_EQ(lengths.size(), 4u) << svg.substr(0, 400);
  for (int k = 0; k < 4; ++k) EXPECT_NEAR(lengths[k], 100.0 * (k + 1), 0.05);
}

TEST_F(FieldPicture, AutomaticScaleFitsTheGridAndUniformArrows) {
  open("vecmat.svg");
  graf(0, 4, 0, 1, 0, 4, 0, 1);
  const int n = 5;
  float xp[n], yp[n], u[n * n], v[n * n];
  for (int i = 0; i < n; ++i) xp[i] = yp[i] = float(i);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) u[i * n + j] = float(i + 1), v[i * n + j] = 0;
  vecmat(u, v, n, n, xp, yp, 2);
  std::string svg = finish();
  vecmat(u, v, n, n, xp, yp, 1);  // filled heads wholly outside are left out, not broken
  // the longest arrow is 0.9 of the 300 plot units between grid points (Y: 1200 / 4)
  double top = 0;
  int shafts = 0;
  for (const auto &s : svg_subpaths(svg))
    if (s.size() == 2 && std::fabs(s[0].y - s[1].y) < 1e-3 && s[1].x - s[0].x > 30 * PT &&
        s[1].x - s[0].x < 1000 * PT) {  // neither ticks nor the axis lines
      top = std::max(top, (s[1].x - s[0].x) / PT);
      ++shafts;
    }
  // the column at x = 4 points out of the axis system and is cut away; the longest arrow
  // left (u = 4 of 5) is 4/5 of 270
  EXPECT_EQ(shafts, 20);
  EXPECT_NEAR(top, 216, 0.05);
}

TEST_F(FieldPicture, WindBarbsCountPennantsAndBarbs) {
  open("barb.svg");
  size_t before = items();
  windbr(65, 1000, 1000, 200, 270);  // 65 knots from the west: 1 pennant, 1 barb, 1 half barb
  ASSERT_EQ(items(), before + 2);
  const Item &lines = mirval_state().scene.current().items[before];
  const Item &fills = mirval_state().scene.current().items[before + 1];
  int moves = 0;
  for (SegOp op : lines.path.ops) moves += op == SegOp::Move;
  EXPECT_EQ(moves, 3);  // staff, barb, half barb
  EXPECT_EQ(fills.kind, ItemKind::Fill);
  // the staff points west, to where the wind comes from
  EXPECT_NEAR(lines.path.pts[1].x, 800, 1e-9);
  EXPECT_NEAR(lines.path.pts[1].y, 1000, 1e-9);
  // barbs stand on the clockwise side: for a staff pointing west, upwards on the page
  for (Pt p : fills.path.pts) EXPECT_LE(p.y, 1000 + 1e-9);
  before = items();
  windbr(1, 500, 500, 200, 0);  // calm: a circle only
  EXPECT_EQ(items(), before + 1);
  windbr(NAN, 500, 500, 200, 0);
  windbr(10, 500, 500, 0, 0);
  EXPECT_EQ(items(), before + 1);
  finish();
}

TEST_F(FieldPicture, StreamlinesOfARotationStayOnCircles) {
  open("stream.svg");
  axspos(400, 1900);
  axslen(1600, 1600);
  graf(-2, 2, -2, 1, -2, 2, -2, 1);
  const int n = 21;
  float xp[n], yp[n], u[n * n], v[n * n];
  for (int i = 0; i < n; ++i) xp[i] = yp[i] = float(-2 + 4.0 * i / (n - 1));
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) u[i * n + j] = -yp[j], v[i * n + j] = xp[i];
  float xs[3] = {0.5f, 1.0f, 1.5f}, ys[3] = {0, 0, 0};
  size_t before = items();
  stream(u, v, n, n, xp, yp, xs, ys, 3);
  ASSERT_EQ(items(), before + 2);  // the lines, then the arrow heads
  const Item &lines = mirval_state().scene.current().items[before];
  // centre of the axis system on the page and plot units per user unit
  double cx = 400 + 800, cy = 1900 - 800, s = 400;
  int moves = 0;
  for (size_t k = 0; k < lines.path.pts.size(); ++k) {
    Pt p = lines.path.pts[k];
    double r = std::hypot(p.x - cx, p.y - cy) / s;
    double nearest = std::min({std::fabs(r - 0.5), std::fabs(r - 1.0), std::fabs(r - 1.5)});
    EXPECT_LT(nearest * s, 0.5) << "off its circle by more than half a plot unit";
  }
  for (SegOp op : lines.path.ops) moves += op == SegOp::Move;
  EXPECT_EQ(moves, 3);
  finish();
}

TEST_F(FieldPicture, AutomaticStreamlinesCoverTheField) {
  open("streams.png");
  graf(0, 1, 0, 0.2, 0, 1, 0, 0.2);
  const int n = 30;
  std::vector<float> xp(n), yp(n), u(n * n), v(n * n);
  for (int i = 0; i < n; ++i) xp[i] = yp[i] = float(i) / (n - 1);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) u[i * n + j] = std::sin(3 * yp[j]) + 0.3f, v[i * n + j] = std::cos(3 * xp[i]);
  size_t before = items();
  stream(u.data(), v.data(), n, n, xp.data(), yp.data(), nullptr, nullptr, 0);
  ASSERT_EQ(items(), before + 2);
  finish();
  // no hole: every 100 x 100 pixel square of the axis system holds line pixels
  Picture p = read_png("streams.png");
  ASSERT_GT(p.w, 0);
  int x0 = int(450 * 0.4) + 4, x1 = int(2650 * 0.4) - 4, y0 = int(600 * 0.4) + 4, y1 = int(1800 * 0.4) - 4;
  for (int bx = x0; bx + 100 <= x1; bx += 100)
    for (int by = y0; by + 100 <= y1; by += 100) {
      int dark = 0;
      for (int x = bx; x < bx + 100; ++x)
        for (int y = by; y < by + 100; ++y) dark += p.at(x, y).r < 128;
      EXPECT_GT(dark, 60) << "square at " << bx << ", " << by;
    }
}

TEST_F(FieldPicture, TriangulatedContoursAndBands) {
  open("contri.svg");
  graf(-1, 1, -1, 0.5, -1, 1, -1, 0.5);
  std::mt19937 gen(4);
  std::uniform_real_distribution<float> d(-1, 1);
  const int n = 500;
  std::vector<float> x(n), y(n), z(n);
  for (int k = 0; k < n; ++k) x[k] = d(gen), y[k] = d(gen), z[k] = x[k] * x[k] + y[k] * y[k];
  std::vector<int> i1(3 * n), i2(3 * n), i3(3 * n);
  int nt = 0;
  triang(x.data(), y.data(), n, i1.data(), i2.data(), i3.data(), 3 * n, &nt);
  ASSERT_GT(nt, 900);
  size_t before = items();
  float lev[3] = {0.25f, 0.5f, 1.0f};
  confll(x.data(), y.data(), z.data(), n, i1.data(), i2.data(), i3.data(), nt, lev, 3);
  ASSERT_EQ(items(), before + 2);  // two layers
  contri(x.data(), y.data(), z.data(), n, i1.data(), i2.data(), i3.data(), nt, 0.25f);
  ASSERT_EQ(items(), before + 3);
  const Item &line = mirval_state().scene.current().items.back();
  // the circle of radius 0.5 about the axis system's centre (1100 units across: 550 per unit... )
  const Rect &box = mirval_state().axes.box;
  double cx = (box.x0 + box.x1) / 2, cy = (box.y0 + box.y1) / 2, sx = (box.x1 - box.x0) / 2, sy = (box.y1 - box.y0) / 2;
  for (Pt p : line.path.pts) EXPECT_NEAR(std::hypot((p.x - cx) / sx, (p.y - cy) / sy), 0.5, 0.02);
  // tripts gives the same line
  std::vector<float> xo(2000), yo(2000);
  std::vector<int> counts(10);
  int nl = 0;
  tripts(x.data(), y.data(), z.data(), n, i1.data(), i2.data(), i3.data(), nt, 0.25f, xo.data(), yo.data(), 2000,
         counts.data(), 10, &nl);
  ASSERT_EQ(nl, 1);
  EXPECT_EQ(xo[0], xo[counts[0] - 1]);
  finish();
}

TEST_F(FieldPicture, GetmatGivesAMatrixForTheGridRoutines) {
  open("getmat.svg");
  graf(0, 10, 0, 2, 0, 10, 0, 2);
  std::mt19937 gen(8);
  std::uniform_real_distribution<float> d(-1, 11);
  const int n = 400, m = 11;
  std::vector<float> x(n), y(n), z(n), zm(m * m), w(m * m);
  std::vector<int> im(m * m);
  for (int k = 0; k < n; ++k) x[k] = d(gen), y[k] = d(gen), z[k] = x[k] + 2 * y[k];
  getmat(x.data(), y.data(), z.data(), n, zm.data(), m, m, -1, im.data(), w.data());
  for (int i = 0; i < m; ++i)
    for (int j = 0; j < m; ++j) {
      EXPECT_EQ(w[i * m + j], 1.0f);
      EXPECT_NEAR(zm[i * m + j], i + 2 * j, 1e-3);
    }
  finish();
}

TEST_F(FieldPicture, BadArgumentsDrawNothing) {
  open("bad.svg");
  graf(0, 1, 0, 1, 0, 1, 0, 1);
  size_t before = items();
  float a[4] = {0, 1, 0, 1}, nanv[4] = {NAN, NAN, NAN, NAN};
  int ia[4] = {0, 1, 2, 7};
  vecfld(a, a, a, a, 0, 1);
  vecfld(nullptr, a, a, a, 4, 1);
  vecmat(a, a, 2, -2, a, a, 1);
  vecfld(nanv, nanv, a, a, 4, 1);
  field(a, a, a, a, -1, 1);
  float zero[4] = {0, 0, 0, 0};
  stream(zero, zero, 2, 2, a, a, nullptr, nullptr, 0);  // a field with no speed: warned
  stream(a, a, 1, 2, a, a, nullptr, nullptr, 0);
  float down[2] = {1, 0}, same2[2] = {1, 1};
  stream(a, a, 2, 2, same2, down, nullptr, nullptr, 0);
  contri(a, a, a, 4, ia, ia, ia, 1, 0.5f);
  contri(a, a, a, 4, ia, ia, ia, 4, 0.5f);  // the corner 7 is out of range
  confll(a, a, a, 4, ia, ia, ia, 1, a, 1);
  crvtri(a, a, a, 2, ia, ia, ia, 1);
  trifll(nanv, a);
  triflc(a, a, ia, 2);
  shdcrv(a, a, 1, a, a, 1);
  concrv(a, a, 1, 0.5f);
  contur2(a, a, a, 1, 1, 0);
  conshd2(a, a, a, 2, 2, a, 1);
  crvqdr(a, a, a, 3);
  rlvec(NAN, 0, 1, 1, 1);
  rlwind(10, 0.5f, 0.5f, -5, 0);
  EXPECT_EQ(items(), before);
  int nt = 99;
  triang(a, a, 2, ia, ia, ia, 4, &nt);
  EXPECT_EQ(nt, 0);
  float b[4];
  int nb = 9;
  polclp(a, a, 4, b, b, 4, &nb, 0, "MIDDLE");
  EXPECT_EQ(nb, 0);
  spline(a, a, 1, b, b, &nb);
  EXPECT_EQ(nb, 0);
  stmpts(a, a, 2, 2, a, a, 0.5f, 0.5f, b, b, 1, &nb);
  EXPECT_EQ(nb, 0);
  finish();
}
