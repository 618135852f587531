// The numerics under the field routines: Delaunay triangles have empty circumcircles,
// streamlines of a rigid rotation close on themselves, contours of scattered samples of a
// paraboloid are circles, fits and splines meet exact values, clipped polygons keep the
// right areas, coordinate transformations come back exactly.
#include "fields/fields.h"
#include "grids/contour.h"
#include "library_test.h"
#include "mirval.h"

#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

namespace {

struct Cloud {
  std::vector<float> x, y;
};

Cloud random_points(int n, unsigned seed, double lo = -1, double hi = 1) {
  std::mt19937 gen(seed);
  std::uniform_real_distribution<double> d(lo, hi);
  Cloud c;
  for (int k = 0; k < n; ++k) c.x.push_back(float(d(gen))), c.y.push_back(float(d(gen)));
  return c;
}

// Whether point d lies strictly inside the circle through a, b, c (counter-clockwise),
// beyond a tolerance relative to the triangle's size.
double incircle(double ax, double ay, double bx, double by, double cx, double cy, double dx, double dy) {
  double adx = ax - dx, ady = ay - dy, bdx = bx - dx, bdy = by - dy, cdx = cx - dx, cdy = cy - dy;
  return (adx * adx + ady * ady) * (bdx * cdy - cdx * bdy) - (bdx * bdx + bdy * bdy) * (adx * cdy - cdx * ady) +
         (cdx * cdx + cdy * cdy) * (adx * bdy - bdx * ady);
}

// Maximum distance from the circle of radius r of the points of the lines.
double worst_radius_error(const std::vector<std::vector<Pt>> &lines, double r) {
  double worst = 0;
  for (const auto &l : lines)
    for (Pt p : l) worst = std::max(worst, std::fabs(std::hypot(p.x, p.y) - r));
  return worst;
}

}  // namespace

TEST(Delaunay, EveryCircumcircleIsEmpty) {
  Cloud c = random_points(400, 7);
  auto tri = delaunay(c.x.data(), c.y.data(), 400);
  // Euler: 2n - 2 - h triangles for n points with h on the hull
  ASSERT_GT(tri.size(), 700u);
  ASSERT_LT(tri.size(), 798u);
  for (const auto &t : tri) {
    double ax = c.x[t[0]], ay = c.y[t[0]], bx = c.x[t[1]], by = c.y[t[1]], cx = c.x[t[2]], cy = c.y[t[2]];
    ASSERT_GT((bx - ax) * (cy - ay) - (cx - ax) * (by - ay), 0) << "counter-clockwise";
    for (int k = 0; k < 400; ++k) {
      if (k == t[0] || k == t[1] || k == t[2]) continue;
      EXPECT_LE(incircle(ax, ay, bx, by, cx, cy, c.x[k], c.y[k]), 1e-9) << "point " << k << " inside a circumcircle";
    }
  }
}

TEST(Delaunay, SquareGridAndDegenerateInput) {
  std::vector<float> x, y;
  for (int i = 0; i < 5; ++i)
    for (int j = 0; j < 5; ++j) x.push_back(float(i)), y.push_back(float(j));
  auto tri = delaunay(x.data(), y.data(), 25);
  EXPECT_EQ(tri.size(), 32u);  // cocircular corners still give two triangles per cell
  double area = 0;
  for (const auto &t : tri)
    area += 0.5 * ((x[t[1]] - x[t[0]]) * (y[t[2]] - y[t[0]]) - (x[t[2]] - x[t[0]]) * (y[t[1]] - y[t[0]]));
  EXPECT_NEAR(area, 16, 1e-9);
  std::vector<float> lx{0, 1, 2, 3}, ly{0, 1, 2, 3};
  std::string why;
  EXPECT_TRUE(delaunay(lx.data(), ly.data(), 4, &why).empty());
  EXPECT_FALSE(why.empty());
  std::vector<float> dx{0, 1, 0, 0, 1}, dy{0, 0, 1, 0, 0};  // duplicates are dropped
  EXPECT_EQ(delaunay(dx.data(), dy.data(), 5).size(), 1u);
}

TEST(Streamlines, RigidRotationClosesOnItself) {
  // u = -y, v = x on a grid: bilinear interpolation is exact, so the lines are circles
  const int n = 21;
  std::vector<float> xp(n), yp(n), u(n * n), v(n * n);
  for (int i = 0; i < n; ++i) xp[i] = yp[i] = float(-2 + 4.0 * i / (n - 1));
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) u[i * n + j] = -yp[j], v[i * n + j] = xp[i];
  for (float r : {0.5f, 1.0f, 1.7f}) {
    std::vector<float> xs(3000), ys(3000);
    int np = 0;
    stmpts(u.data(), v.data(), n, n, xp.data(), yp.data(), r, 0.0f, xs.data(), ys.data(), 3000, &np);
    ASSERT_GT(np, 20) << r;
    EXPECT_EQ(xs[0], xs[np - 1]) << "closed at radius " << r;
    EXPECT_EQ(ys[0], ys[np - 1]);
    double worst = 0, turn = 0;
    for (int k = 0; k < np; ++k) {
      worst = std::max(worst, double(std::fabs(std::hypot(xs[k], ys[k]) - r)));
      if (k) turn += std::remainder(std::atan2(ys[k], xs[k]) - std::atan2(ys[k - 1], xs[k - 1]), 2 * M_PI);
    }
    EXPECT_LT(worst, 1e-5 * r) << r;
    EXPECT_NEAR(turn, 2 * M_PI, 1e-6) << "one turn, counter-clockwise";
  }
}

TEST(Streamlines, LoopsCloseAtLooseAndTightTolerances) {
  // one and a half turns asked for: the line closes after one and stays on its circle
  GridField g;
  const int n = 11;
  std::vector<float> u(n * n), v(n * n);
  for (int i = 0; i < n; ++i) g.x.push_back(-1 + 0.2 * i), g.y.push_back(-1 + 0.2 * i);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) u[i * n + j] = float(-g.y[j]), v[i * n + j] = float(g.x[i]);
  g.u = u.data(), g.v = v.data(), g.nx = g.ny = n;
  FieldFn f = [&g](double x, double y, double &a, double &b) { return g.at(x, y, a, b); };
  StreamOptions o;
  o.sx = o.sy = 500, o.direction = 1, o.max_points = 100000;
  o.max_length = 2 * M_PI * 0.8 * 500 * 1.5;
  double gap[2];
  int k = 0;
  for (double acc : {1e-1, 1e-9}) {
    o.accuracy = acc;
    bool closed = false;
    auto l = trace_streamline(f, 0.8, 0, o, nullptr, &closed);
    EXPECT_TRUE(closed);
    double worst = 0;
    for (Pt p : l) worst = std::max(worst, std::fabs(std::hypot(p.x, p.y) - 0.8));
    gap[k++] = worst;
  }
  EXPECT_LT(gap[0], 1e-5);
  EXPECT_LT(gap[1], 1e-7);
}

TEST(Streamlines, EvenSpacingFillsTheField) {
  // a uniform flow: parallel lines one distance apart, none closer than the test share
  GridField g;
  std::vector<float> u(4, 1.0f), v(4, 0.0f);
  g.x = {0, 1}, g.y = {0, 1}, g.u = u.data(), g.v = v.data(), g.nx = g.ny = 2;
  FieldFn f = [&g](double x, double y, double &a, double &b) { return g.at(x, y, a, b); };
  StreamOptions o;
  o.sx = o.sy = 1000;
  auto lines = stream_lines(f, 0, 1, 0, 1, o, 50, 25, 1000, {});
  ASSERT_GE(lines.size(), 19u);
  ASSERT_LE(lines.size(), 21u);
  std::vector<double> ys;
  for (const auto &l : lines) {
    EXPECT_NEAR(l.front().x, 0, 1e-3);
    EXPECT_NEAR(l.back().x, 1, 1e-3);
    ys.push_back(l.front().y);
  }
  std::sort(ys.begin(), ys.end());
  for (size_t k = 1; k < ys.size(); ++k) EXPECT_NEAR(ys[k] - ys[k - 1], 0.05, 0.002);
}

TEST(ScatteredContours, ParaboloidCirclesTightenWithMorePoints) {
  double errors[2];
  int k = 0;
  for (int n : {2000, 20000}) {
    Cloud c = random_points(n, 11);
    std::vector<float> z(n);
    for (int i = 0; i < n; ++i) z[i] = c.x[i] * c.x[i] + c.y[i] * c.y[i];
    auto tri = delaunay(c.x.data(), c.y.data(), n);
    double worst = 0;
    for (double r : {0.3, 0.6, 0.9}) {
      auto lines = tri_contours(c.x.data(), c.y.data(), z.data(), tri, r * r);
      ASSERT_EQ(lines.size(), 1u) << n << " " << r;
      EXPECT_EQ(lines[0].front().x, lines[0].back().x) << "closed";
      worst = std::max(worst, worst_radius_error(lines, r));
    }
    errors[k++] = worst;
  }
  EXPECT_LT(errors[0], 0.01);
  EXPECT_LT(errors[1], 0.5 * errors[0]);
}

TEST(ScatteredContours, BandsOfATriangleCoverItsArea) {
  Pt p[3] = {{0, 0}, {1, 0}, {0, 1}};
  double z[3] = {0, 1, 1};
  double total = 0;
  for (double lo : {0.0, 0.25, 0.5, 0.75}) total += std::fabs(polygon_area(tri_band(p, z, lo, lo + 0.25)));
  EXPECT_NEAR(total, 0.5, 1e-12);
  EXPECT_NEAR(std::fabs(polygon_area(tri_band(p, z, 0.5, 1))), 0.5 * 0.75, 1e-12);  // the part z >= 0.5
  EXPECT_TRUE(tri_band(p, z, 2, 3).empty());
}

TEST(ScatteredGrid, LinearDataComeBackExactly) {
  Cloud c = random_points(300, 3, 0, 10);
  std::vector<float> z(300);
  for (int i = 0; i < 300; ++i) z[i] = 2 * c.x[i] - 3 * c.y[i] + 1;
  std::vector<double> gx, gy;
  for (int i = 0; i <= 20; ++i) gx.push_back(0.5 * i), gy.push_back(0.5 * i);
  std::vector<float> zm, inside;
  std::vector<int> count;
  grid_scattered(c.x.data(), c.y.data(), z.data(), 300, gx, gy, -999, zm, &count, &inside);
  int in = 0, sum = 0;
  for (int i = 0; i <= 20; ++i)
    for (int j = 0; j <= 20; ++j) {
      size_t k = size_t(i) * 21 + j;
      sum += count[k];
      if (inside[k]) {
        ++in;
        EXPECT_NEAR(zm[k], 2 * gx[i] - 3 * gy[j] + 1, 1e-3);
      } else {
        EXPECT_EQ(zm[k], -999);
      }
    }
  EXPECT_GT(in, 300);  // most of the square lies inside the points' hull
  EXPECT_EQ(sum, 300);
}

TEST(Fits, LeastSquaresLineMeetsExactValues) {
  std::vector<float> x{1, 2, 3, 4, 5}, y{2, 4, 5, 4, 5};
  double a, b, r;
  ASSERT_TRUE(fit_line(x.data(), y.data(), 5, a, b, r));
  EXPECT_NEAR(a, 0.6, 1e-12);
  EXPECT_NEAR(b, 2.2, 1e-12);
  EXPECT_NEAR(r, 0.6 / std::sqrt(0.6), 1e-12);  // r = sxy / sqrt(sxx syy) = 6 / sqrt(10 * 6)
  std::vector<float> ly{-1, 1.5f, 4, 6.5f, 9};  // y = 2.5 x - 3.5 exactly
  ASSERT_TRUE(fit_line(x.data(), ly.data(), 5, a, b, r));
  EXPECT_DOUBLE_EQ(a, 2.5);
  EXPECT_DOUBLE_EQ(b, -3.5);
  EXPECT_NEAR(r, 1, 1e-12);
  float fa, fb, fr;
  linfit(x.data(), ly.data(), 5, &fa, &fb, &fr, "NONE");
  EXPECT_EQ(fa, 2.5f);
  EXPECT_EQ(fb, -3.5f);
  std::vector<float> same{3, 3, 3};
  EXPECT_FALSE(fit_line(same.data(), y.data(), 3, a, b, r));
}

TEST(Fits, SplinePassesThroughItsPoints) {
  std::vector<float> x{0, 1, 2, 3, 4, 5}, y{0, 2, 1, 3, 0, 1};
  std::vector<Pt> s;
  ASSERT_TRUE(spline_curve(x.data(), y.data(), 6, 3, 21, s));  // 4 samples per gap
  ASSERT_EQ(s.size(), 21u);
  for (int k = 0; k < 6; ++k) {
    EXPECT_NEAR(s[4 * k].x, x[k], 1e-12);
    EXPECT_NEAR(s[4 * k].y, y[k], 1e-12);
  }
  // a closed parametric curve: a square's corners in order, back to the start
  std::vector<float> cx{0, 1, 1, 0, 0}, cy{0, 0, 1, 1, 0};
  ASSERT_TRUE(spline_curve(cx.data(), cy.data(), 5, 3, 41, s));
  for (int k = 0; k < 5; ++k) {
    EXPECT_NEAR(s[10 * k].x, cx[k], 1e-12);
    EXPECT_NEAR(s[10 * k].y, cy[k], 1e-12);
  }
  // through the public routine: as many points as the outputs hold
  std::vector<float> xs(6), ys(6);
  int m = 0;
  spline(x.data(), y.data(), 6, xs.data(), ys.data(), &m);
  EXPECT_EQ(m, 6);
  EXPECT_FLOAT_EQ(xs[5], 5);
  EXPECT_FLOAT_EQ(ys[5], 1);
  int i1, i2, i3;
  getsp2(&i1, &i2, &i3);
  EXPECT_EQ(i1, 6);
  EXPECT_EQ(i2, 6);
  EXPECT_EQ(i3, 5);
}

TEST(Fits, BezierCurve) {
  std::vector<float> x{0, 1, 2}, y{0, 2, 0};
  auto c = bezier_curve(x.data(), y.data(), 3, 5);
  ASSERT_EQ(c.size(), 5u);
  EXPECT_DOUBLE_EQ(c[0].x, 0);
  EXPECT_DOUBLE_EQ(c[4].x, 2);
  EXPECT_DOUBLE_EQ(c[2].x, 1);
  EXPECT_DOUBLE_EQ(c[2].y, 1);  // 2 t (1 - t) * 2 at t = 1/2
  EXPECT_DOUBLE_EQ(c[1].y, 0.75);
}

TEST(Clipping, ClippedAreas) {
  std::vector<Pt> square{{0, 0}, {4, 0}, {4, 4}, {0, 4}};
  EXPECT_DOUBLE_EQ(polygon_area(clip_half(square, 0, 1)), 12);
  EXPECT_DOUBLE_EQ(polygon_area(clip_half(square, 1, 1)), 4);
  EXPECT_DOUBLE_EQ(polygon_area(clip_half(square, 2, 3)), 4);
  EXPECT_DOUBLE_EQ(polygon_area(clip_half(square, 3, 3)), 12);
  EXPECT_TRUE(clip_half(square, 0, 5).empty());
  // a triangle cut through its middle keeps a quarter of its area above the cut
  std::vector<Pt> tri{{0, 0}, {2, 0}, {1, 2}};
  EXPECT_DOUBLE_EQ(polygon_area(clip_half(tri, 2, 1)), 0.5);
  // a square cut by a diamond inscribed in it: half remains
  std::vector<Pt> diamond{{2, 0}, {4, 2}, {2, 4}, {0, 2}};
  EXPECT_NEAR(polygon_area(clip_convex(square, diamond)), 8, 1e-12);
  // the library routine, a rectangle from four edges
  std::vector<float> x{-1, 3, 3, -1}, y{-1, -1, 3, 3}, xo(16), yo(16);
  int n = 0;
  polclp(x.data(), y.data(), 4, xo.data(), yo.data(), 16, &n, 0.5f, "LEFT");
  std::vector<Pt> out;
  for (int k = 0; k < n; ++k) out.push_back({xo[k], yo[k]});
  EXPECT_DOUBLE_EQ(polygon_area(out), 2.5 * 4);
}

TEST(Transformations, RoundTripsAreExactToRounding) {
  std::mt19937 gen(5);
  std::uniform_real_distribution<float> d(-100, 100);
  const int n = 1000;
  std::vector<float> x(n), y(n), z(n);
  for (int k = 0; k < n; ++k) x[k] = d(gen), y[k] = d(gen), z[k] = d(gen);
  auto close = [](float a, float b, float scale) { return std::fabs(a - b) <= 8 * std::numeric_limits<float>::epsilon() * scale; };
  std::vector<float> a = x, b = y, c = z;
  trfco2(a.data(), b.data(), n, "RECT", "POLAR");
  trfco2(a.data(), b.data(), n, "POLAR", "RECT");
  for (int k = 0; k < n; ++k) {
    float s = std::hypot(x[k], y[k]);
    EXPECT_TRUE(close(a[k], x[k], s) && close(b[k], y[k], s)) << k;
  }
  for (const char *sys : {"CYLI", "SPHE"}) {
    a = x, b = y, c = z;
    trfco3(a.data(), b.data(), c.data(), n, "RECT", sys);
    trfco3(a.data(), b.data(), c.data(), n, sys, "RECT");
    for (int k = 0; k < n; ++k) {
      float s = std::sqrt(x[k] * x[k] + y[k] * y[k] + z[k] * z[k]);
      EXPECT_TRUE(close(a[k], x[k], s) && close(b[k], y[k], s) && close(c[k], z[k], s)) << sys << " " << k;
    }
  }
  // quarter turns are exact
  float r[2] = {2, 3}, phi[2] = {90, 180};
  trfco2(r, phi, 2, "POLAR", "RECT");
  EXPECT_EQ(r[0], 0);
  EXPECT_EQ(phi[0], 2);
  EXPECT_EQ(r[1], -3);
  EXPECT_EQ(phi[1], 0);
  float deg[2] = {180, 45};
  trfco1(deg, 2, "DEGREES", "RADIANS");
  EXPECT_FLOAT_EQ(deg[0], float(M_PI));
  trfco1(deg, 2, "RADIANS", "DEGREES");
  EXPECT_FLOAT_EQ(deg[1], 45);
}

TEST(Transformations, PlotCoordinatesAndMatrices) {
  trfres();
  trfshf(100, 50);
  trfrot(90, 0, 0);  // a quarter turn counter-clockwise on the page (y down)
  trfscl(2, 2);
  float x[1] = {10}, y[1] = {0};
  trfrel(x, y, 1);
  // shift: (110, 50); turn: (50, -110); scale: (100, -220)
  EXPECT_FLOAT_EQ(x[0], 100);
  EXPECT_FLOAT_EQ(y[0], -220);
  trfres();
  trfrel(x, y, 1);
  EXPECT_FLOAT_EQ(x[0], 100);
  std::vector<float> m{0, 1, 2, 3};  // 2 x 2: z = 2 i + j
  std::vector<float> r(9);
  trfmat(m.data(), 2, 2, r.data(), 3, 3);
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) EXPECT_FLOAT_EQ(r[i * 3 + j], 2 * (i / 2.0f) + j / 2.0f);
}

TEST(Lic, ConvolutionSmoothsAlongTheField) {
  const int nx = 40, ny = 30;
  std::vector<float> u(nx * ny, 1), v(nx * ny, 0);
  std::vector<double> t(nx * ny);
  std::mt19937 gen(1);
  for (double &a : t) a = gen() % 256;
  auto out = lic_texture(u.data(), v.data(), nx, ny, t, 8, 0);
  // along x (the field) the texture is smoothed, along y it keeps its noise
  auto rough = [&](const std::vector<double> &m, int di, int dj) {
    double s = 0;
    for (int i = 10; i < 30; ++i)
      for (int j = 5; j < 25; ++j) s += std::fabs(m[(i + di) * ny + j + dj] - m[i * ny + j]);
    return s;
  };
  EXPECT_LT(rough(out, 1, 0), 0.3 * rough(t, 1, 0));
  EXPECT_GT(rough(out, 0, 1), 2 * rough(out, 1, 0));
}
