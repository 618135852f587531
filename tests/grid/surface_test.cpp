// 3-D: the view, the back-to-front order that removes hidden parts, and pictures of grid
// and shaded surfaces.
#include "grid_support.h"
#include "mirval.h"
#include "core/state.h"
#include "grids/surface.h"

#include <cmath>
#include <map>
#include <vector>

TEST(Camera, ProjectsTheLineOfSightOntoTheCentre) {
  double eye[3] = {0, -10, 0};
  Camera c = make_camera(eye, 0, {100, 200}, 50);
  double origin[3] = {0, 0, 0}, right[3] = {1, 0, 0}, up[3] = {0, 0, 1}, behind[3] = {0, -11, 0};
  Pt o = project(c, origin), r = project(c, right), u = project(c, up);
  EXPECT_NEAR(o.x, 100, 1e-9);
  EXPECT_NEAR(o.y, 200, 1e-9);
  EXPECT_NEAR(r.x, 105, 1e-9);  // 50 plot units per unit of tangent, 10 units away
  EXPECT_NEAR(u.y, 195, 1e-9);  // Z upwards on the page, whose y runs down
  EXPECT_TRUE(std::isnan(project(c, behind).x));
  // turned by VUP3D 90 degrees, Z points to the left
  Camera t = make_camera(eye, 90, {100, 200}, 50);
  EXPECT_NEAR(project(t, up).x, 95, 1e-9);
}

TEST(CellOrder, CellsThatCanHideOthersComeLater) {
  std::vector<double> xs{-1, -0.5, 0, 0.5, 1}, ys{-1, -0.5, 0, 0.5, 1};
  // the eye in front (low y) and right of the grid
  auto order = cell_order(xs, ys, 0.3, -5);
  ASSERT_EQ(order.size(), 16u);
  std::map<std::pair<int, int>, size_t> when;
  for (size_t k = 0; k < order.size(); ++k) when[order[k]] = k;
  // a cell nearer the eye in both directions is drawn after every cell behind it
  for (auto [a, ka] : when)
    for (auto [b, kb] : when)
      if (a.second < b.second && std::abs(a.first - 2) <= std::abs(b.first - 2)) {
        EXPECT_GT(ka, kb);
      }
  // the row nearest the eye comes last, ending with the column under it
  EXPECT_EQ(order.back(), std::make_pair(2, 0));
}

namespace {

// A low plain behind a high wall: seen from the front and a little above, the wall hides the
// middle of the plain.
struct WallSurface {
  int n = 21;
  std::vector<float> x, y, z;
  WallSurface() {
    for (int i = 0; i < n; ++i) x.push_back(float(i)), y.push_back(float(i));
    for (int i = 0; i < n; ++i)
      for (int j = 0; j < n; ++j) z.push_back(j == 3 || j == 4 ? 10.f : 0.f);
  }
};

}  // namespace

TEST_F(GridTest, SurfaceHidesItsLinesBehindAWall) {
  open("wall.png");
  view3d(0, -8, 1.5, "ABS");
  name("X", "X");
  name("Y", "Y");
  name("Z", "Z");
  graf3d(0, 20, 0, 5, 0, 20, 0, 5, 0, 10, 0, 2);
  EXPECT_EQ(getlev(), 3);
  WallSurface w;
  surfce(w.x.data(), w.n, w.y.data(), w.n, w.z.data());
  finish();
  Picture p = read_png("wall.png");
  ASSERT_GT(p.w, 0);
  Pt hidden = project_user(10.5, 12.5, 0);  // a point of the plain behind the wall
  Pt wall_top = project_user(10.5, 3.5, 10);
  Pt wall_foot = project_user(10.5, 3, 0);
  ASSERT_LT(wall_top.y, hidden.y);  // the plain's point lies within the wall's picture
  ASSERT_GT(wall_foot.y, hidden.y);
  // no line crosses the wall's face where the plain's grid would show through
  int dark = 0;
  for (int dy = -8; dy <= 8; ++dy) {
    Pixel q = p.at(int(hidden.x * 0.4), int(hidden.y * 0.4) + dy);
    dark += q.r < 200;
  }
  EXPECT_EQ(dark, 0);
}

TEST_F(GridTest, SurfacePicture) {
  open("surface.png");
  titlin("A grid surface", 1);
  name("X axis", "X");
  name("Y axis", "Y");
  name("Z axis", "Z");
  graf3d(-3, 3, -3, 1, -3, 3, -3, 1, -1, 1, -1, 0.5);
  title();
  const int n = 31;
  std::vector<float> x, y, z;
  for (int i = 0; i < n; ++i) x.push_back(-3 + 6.f * i / (n - 1)), y.push_back(x.back());
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) z.push_back(float(std::sin(x[i]) * std::cos(y[j])));
  surclr(50, 250);
  surfce(x.data(), n, y.data(), n, z.data());
  box3d();
  finish();
}

TEST_F(GridTest, ShadedSurfacePicture) {
  open("surshd.png");
  titlin("A shaded surface", 1);
  name("X axis", "X");
  name("Y axis", "Y");
  name("Z axis", "Z");
  graf3d(-3, 3, -3, 1, -3, 3, -3, 1, -1, 1, -1, 0.5);
  grid3d(1, 1, "BACK");
  title();
  const int n = 41;
  std::vector<float> x, y, z;
  for (int i = 0; i < n; ++i) x.push_back(-3 + 6.f * i / (n - 1)), y.push_back(x.back());
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) z.push_back(float(std::exp(-(x[i] * x[i] + y[j] * y[j]) / 3) * 2 - 1));
  surmsh("ON");
  surshd(x.data(), n, y.data(), n, z.data());
  finish();
}

TEST_F(GridTest, SurfaceBadArgumentsDrawNothing) {
  open("bad.svg");
  float v[4] = {0, 1, 2, 3};
  surfce(v, 2, v, 2, v);  // no 3-D axis system yet
  graf3d(0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 0, 1);
  size_t before = mirval_state().scene.current().items.size();
  surfce(v, 1, v, 4, v);
  surshd(nullptr, 2, v, 2, v);
  surmat(v, 2, 2, 0, 1);
  survis("SIDEWAYS");
  EXPECT_EQ(mirval_state().scene.current().items.size(), before);
  endgrf();
  view3d(0.1f, 0.1f, 0.1f, "ABS");
  graf3d(0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 0, 1);  // the eye inside the box
  EXPECT_EQ(getlev(), 1);
}
