// The depth group decides what is in front in raster and vector outputs alike; lights light
// the side of a sphere that faces them; iso-surfaces are closed and face outwards.
#include "core/state.h"
#include "library_test.h"
#include "mirval.h"
#include "solids/iso.h"

#include <librsvg/rsvg.h>

#include <cmath>
#include <cstring>
#include <map>
#include <string>
#include <utility>

namespace {

class SolidsTest : public LibraryTest {};

// A PNG (or, for a .svg name, SVG) page with a 3-D axis system seen from the front (-Y)
// without perspective, so that box points map straight onto the page; mode: the depth
// group's (ZBFMOD).
void front_view(const char *file, const char *mode) {
  metafl(std::strstr(file, ".svg") ? "SVG" : "PNG");
  setfil(file);
  mirini();
  zbfmod(mode);
  proj3d("ORTHO");
  view3d(0, -8, 0, "ABS");
  graf3d(-1, 1, -1, 0.5, -1, 1, -1, 0.5, -1, 1, -1, 0.5);
}

// Two spheres that cut each other, the nearer one drawn first.
void two_spheres(const char *file, const char *mode) {
  front_view(file, mode);
  color("BLUE");
  sphe3d(0.3f, -0.4f, 0, 0.5f, 40, 20);  // nearer the eye
  color("RED");
  sphe3d(-0.3f, 0, 0, 0.5f, 40, 20);
}

// An SVG file drawn by librsvg at the size of the PNG pages (1188 x 840) on white paper, as
// a viewer shows it; returns the name of the PNG written.
std::string svg_as_png(const std::string &svg) {
  std::string png = svg + ".png";
  cairo_surface_t *s = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 1188, 840);
  cairo_t *cr = cairo_create(s);
  cairo_set_source_rgb(cr, 1, 1, 1);
  cairo_paint(cr);
  RsvgHandle *h = rsvg_handle_new_from_file(svg.c_str(), nullptr);
  RsvgRectangle viewport{0, 0, 1188, 840};
  EXPECT_TRUE(h && rsvg_handle_render_document(h, cr, &viewport, nullptr)) << svg;
  if (h) g_object_unref(h);
  cairo_destroy(cr);
  cairo_surface_write_to_png(s, png.c_str());
  cairo_surface_destroy(s);
  return png;
}

void check_front(const char *mode, const char *file = "solids.png") {
  two_spheres(file, mode);
  float px, py;
  rel3pt(0, 0, 0, &px, &py);
  float lx, ly, rx, ry;
  rel3pt(-0.6f, 0, 0, &lx, &ly);
  rel3pt(0.6f, 0, 0, &rx, &ry);
  mirfin();
  Picture p = read_png(std::strstr(file, ".svg") ? svg_as_png(file) : file);
  ASSERT_GT(p.w, 0);
  Pixel mid = p.at(int(px * 0.4), int(py * 0.4));
  EXPECT_GT(mid.b, mid.r + 40) << mode << ": where they overlap the nearer (blue) sphere is in front";
  Pixel left = p.at(int(lx * 0.4), int(ly * 0.4)), right = p.at(int(rx * 0.4), int(ry * 0.4));
  EXPECT_GT(left.r, left.b + 40) << mode;
  EXPECT_GT(right.b, right.r + 40) << mode;
}

TEST_F(SolidsTest, DepthBufferShowsTheNearerSphere) { check_front("RASTER"); }

TEST_F(SolidsTest, PolygonOrderShowsTheNearerSphere) { check_front("VECTOR"); }
TEST_F(SolidsTest, SvgPolygonOrderShowsTheNearerSphere) { check_front("VECTOR", "solids.svg"); }

TEST_F(SolidsTest, SvgKeepsPolygons) {
  metafl("SVG");
  setfil("solids.svg");
  mirini();
  view3d(0, -8, 0, "ABS");
  graf3d(-1, 1, -1, 0.5, -1, 1, -1, 0.5, -1, 1, -1, 0.5);
  sphe3d(0, 0, 0, 0.5f, 12, 6);
  mirfin();
  std::string s = read_file("solids.svg");
  EXPECT_EQ(s.find("<image"), std::string::npos) << "vector output stays vector";
  EXPECT_GT(count(s, "<path"), 60);
}

// A page-filling blue fill laid with GRFINI on the back wall (box y = 1) seen from the front,
// a red sphere in front of the wall and a green one behind it: the wall hides the green one
// and the red one hides the wall, in raster and vector outputs alike.
void check_wall(const char *mode) {
  front_view("wall.png", mode);
  color("RED");
  sphe3d(0.4f, 0, 0, 0.3f, 30, 15);
  grfini(-1, 1, -1, 1, 1, -1, 1, 1, 1);
  EXPECT_EQ(getlev(), 1) << "2-D axis systems can be made on the plane";
  int w, h;
  getpag(&w, &h);
  color("BLUE");
  recfll(0, 0, w, h, getclr());
  grffin();
  EXPECT_EQ(getlev(), 3);
  color("GREEN");
  sphe3d(-0.4f, 1.5f, 0, 0.3f, 30, 15);
  float rx, ry, gx, gy, wx, wy;
  rel3pt(0.4f, 0, 0, &rx, &ry);
  rel3pt(-0.4f, 1, 0, &gx, &gy);
  rel3pt(0, 1, 0.7f, &wx, &wy);
  mirfin();
  Picture p = read_png("wall.png");
  ASSERT_GT(p.w, 0);
  Pixel red = p.at(int(rx * 0.4), int(ry * 0.4)), hidden = p.at(int(gx * 0.4), int(gy * 0.4));
  Pixel wall = p.at(int(wx * 0.4), int(wy * 0.4));
  EXPECT_GT(red.r, red.b + 40) << mode << ": the sphere in front of the wall is seen";
  EXPECT_GT(hidden.b, hidden.g + 100) << mode << ": the wall hides the sphere behind it";
  EXPECT_GT(wall.b, 200) << mode;
  EXPECT_LT(wall.r + wall.g, 60) << mode;
}

TEST_F(SolidsTest, PlaneHidesAndIsHiddenInTheDepthBuffer) { check_wall("RASTER"); }

TEST_F(SolidsTest, PlaneHidesAndIsHiddenInPolygonOrder) { check_wall("VECTOR"); }

TEST_F(SolidsTest, PlaneCarriesThePageCornersOntoItsCorners) {
  metafl("SVG");
  setfil("plane.svg");
  mirini();
  graf3d(-1, 1, -1, 0.5, -1, 1, -1, 0.5, -1, 1, -1, 0.5);
  grfini(-1, 1, -1, 1, 1, -1, 1, 1, 1);
  int w, h;
  getpag(&w, &h);
  color("BLUE");
  line(0, h, w, 0);  // the page's lower left to its upper right corner
  line(0, 0, w, h);  // upper left to lower right
  grffin();
  float c[4][2];
  const float corners[4][3] = {{-1, 1, -1}, {1, 1, 1}, {-1, 1, 1}, {1, 1, -1}};
  for (int k = 0; k < 4; ++k) rel3pt(corners[k][0], corners[k][1], corners[k][2], &c[k][0], &c[k][1]);
  std::vector<std::vector<Pt>> lines;
  for (const Item &it : mirval_state().scene.current().items)
    if (it.kind == ItemKind::Stroke && it.rgb.b == 1 && it.rgb.r == 0) lines.push_back(it.path.pts);
  mirfin();
  ASSERT_EQ(lines.size(), 2u);
  for (int k = 0; k < 2; ++k) {
    ASSERT_GE(lines[k].size(), 2u);
    const Pt &a = lines[k].front(), &b = lines[k].back();
    EXPECT_NEAR(a.x, c[2 * k][0], 0.5);
    EXPECT_NEAR(a.y, c[2 * k][1], 0.5);
    EXPECT_NEAR(b.x, c[2 * k + 1][0], 0.5);
    EXPECT_NEAR(b.y, c[2 * k + 1][1], 0.5);
  }
  std::string s = read_file("plane.svg");
  EXPECT_EQ(s.find("<image"), std::string::npos) << "the plane stays vector";
}

TEST_F(SolidsTest, LitSphereIsBrightestTowardsTheLight) {
  front_view("lit.png", "AUTO");
  light("ON");
  litpos(1, 0.6f, -1, 0.5f, "ABS");  // far up and to the right in front
  litopt(1, 0, "SPECULAR");
  litopt(1, 0, "AMBIENT");
  color("WHITE");
  sphe3d(0, 0, 0, 0.8f, 60, 30);
  float cx, cy, ex, ey;
  rel3pt(0, 0, 0, &cx, &cy);
  rel3pt(0.8f, 0, 0, &ex, &ey);
  mirfin();
  Picture p = read_png("lit.png");
  ASSERT_GT(p.w, 0);
  double r = (ex - cx) * 0.4;
  int bx = 0, by = 0, best = -1;
  for (int y = int(cy * 0.4 - r); y < int(cy * 0.4 + r); ++y)
    for (int x = int(cx * 0.4 - r); x < int(cx * 0.4 + r); ++x) {
      Pixel q = p.at(x, y);
      if (std::hypot(x - cx * 0.4, y - cy * 0.4) > r * 0.95) continue;
      int v = q.r + q.g + q.b;
      if (v > best) best = v, bx = x, by = y;
    }
  // the normal towards the light: the light's direction from the centre, seen from the front
  double lx = 0.6, ly = -1, lz = 0.5, n = std::sqrt(lx * lx + ly * ly + lz * lz);
  double wx = cx * 0.4 + r * lx / n, wy = cy * 0.4 - r * lz / n;
  EXPECT_LT(std::hypot(bx - wx, by - wy), r * 0.12) << "peak at " << bx << "," << by << " expected " << wx << "," << wy;
  Pixel dark = p.at(int(cx * 0.4 - r * 0.7), int(cy * 0.4 + r * 0.5));
  EXPECT_LT(dark.r + dark.g + dark.b, best / 4) << "the side away from the light is dark";
}

TEST(IsoSurface, SphereIsClosedOrientedAndWithinACell) {
  const int n = 21;
  float c[n];
  for (int i = 0; i < n; ++i) c[i] = -1 + 2.0f * i / (n - 1);
  std::vector<float> w(size_t(n) * n * n);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j)
      for (int k = 0; k < n; ++k) w[(size_t(i) * n + j) * n + k] = c[i] * c[i] + c[j] * c[j] + c[k] * c[k];
  const double r = 0.71, cell = 2.0 / (n - 1);
  s3::IsoMesh m = s3::iso_surface(c, n, c, n, c, n, w.data(), r * r);
  ASSERT_GT(m.tri.size(), 500u);
  for (const s3::V3 &p : m.p) EXPECT_LT(std::fabs(std::sqrt(s3::dot(p, p)) - r), cell);
  // closed: every directed edge is met once, and its reverse once
  std::map<std::pair<int, int>, int> edges;
  for (auto &t : m.tri)
    for (int k = 0; k < 3; ++k) ++edges[{t[k], t[(k + 1) % 3]}];
  for (auto &[e, times] : edges) {
    EXPECT_EQ(times, 1);
    EXPECT_EQ(edges.count({e.second, e.first}), 1u) << "edge " << e.first << "-" << e.second << " open";
  }
  // oriented: every triangle faces outwards (towards greater values)
  for (auto &t : m.tri) {
    s3::V3 f = s3::cross(m.p[t[1]] - m.p[t[0]], m.p[t[2]] - m.p[t[0]]);
    s3::V3 mid = (m.p[t[0]] + m.p[t[1]] + m.p[t[2]]) * (1.0 / 3);
    EXPECT_GT(s3::dot(f, mid), 0);
  }
}

TEST_F(SolidsTest, BadArgumentsDoNothing) {
  metafl("PNG");
  setfil("bad.png");
  mirini();
  sphe3d(0, 0, 0, 1, 10, 10);  // level 1: refused
  graf3d(-1, 1, -1, 0.5, -1, 1, -1, 0.5, -1, 1, -1, 0.5);
  sphe3d(0, 0, 0, -1, 10, 10);
  sphe3d(0, 0, 0, NAN, 10, 10);
  sphe3d(0, 0, 0, 1, 0, 10);
  cone3d(0, 0, 0, 1, 1, 1, 100000, 3);
  curv3d(nullptr, nullptr, nullptr, 3);
  float x[1] = {0};
  curv3d(x, x, x, 0);
  litmod(9, "ON");
  light("MAYBE");
  vtx3d(x, x, x, 1, "NOPE");
  int ntri = 5;
  isopts(x, 1, x, 1, x, 1, x, 0, x, x, x, 0, &ntri);
  EXPECT_EQ(ntri, 0);
  mirfin();
  EXPECT_TRUE(file_exists("bad.png"));
}

}  // namespace
