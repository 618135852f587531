// Maps: cutting at the seam and the region, positions against PROJ's command-line tool, the
// shoreline segments against ncdump, and pictures of filled land.
#include "library_test.h"
#include "axes/scaling.h"
#include "core/state.h"
#include "draw/colours.h"
#include "grids/colour_matrix.h"
#include "maps/geometry.h"
#include "maps/maps.h"
#include "maps/projection.h"
#include "mirval.h"

#include <cmath>
#include <cstdio>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace {

class MapTest : public LibraryTest {};

std::string run(const std::string &cmd) {
  std::string out;
  FILE *p = popen(cmd.c_str(), "r");
  if (!p) return out;
  char buf[4096];
  size_t n;
  while ((n = fread(buf, 1, sizeof buf, p)) > 0) out.append(buf, n);
  pclose(p);
  return out;
}

// Projected metres of points by PROJ's own 'proj' program.
std::vector<std::pair<double, double>> proj_cli(const std::string &def, const std::vector<LL> &pts) {
  {
    std::ofstream f("points.txt");
    for (LL p : pts) f << p.lon << " " << p.lat << "\n";
  }
  std::istringstream in(run("proj -f %.6f " + def + " < points.txt"));
  std::vector<std::pair<double, double>> out;
  double x, y;
  while (in >> x >> y) out.push_back({x, y});
  return out;
}

void open_page() {
  metafl("SVG");
  setfil("map.svg");
  errmod("ALL", "OFF");
  mirini();
}

struct Extent {
  double x0 = 1e300, x1 = -1e300, y0 = 1e300, y1 = -1e300;
};

Extent extent_of(const std::vector<std::pair<double, double>> &xy) {
  Extent e;
  for (auto &p : xy)
    e.x0 = std::min(e.x0, p.first), e.x1 = std::max(e.x1, p.first), e.y0 = std::min(e.y0, p.second),
    e.y1 = std::max(e.y1, p.second);
  return e;
}

// Where the points belong on the page by PROJ's numbers: the map sits centred in the axis
// rectangle 450..2650 x 600..1800, its extent scaled to fit.
std::vector<Pt> proj_page(const std::string &def, const std::vector<LL> &pts, const Extent &e, double lon0) {
  std::vector<LL> shifted = pts;
  for (LL &p : shifted) p.lon -= lon0;
  auto got = proj_cli(def, shifted);
  std::vector<Pt> out;
  double s = std::min(2200 / (e.x1 - e.x0), 1200 / (e.y1 - e.y0));
  double bx0 = 1550 - (e.x1 - e.x0) * s / 2, by1 = 1200 + (e.y1 - e.y0) * s / 2;
  for (auto &g : got) out.push_back({bx0 + (g.first - e.x0) * s, by1 - (g.second - e.y0) * s});
  return out;
}

// Our page position of every point against the same points placed from PROJ's numbers: the
// extent and placement follow from PROJ's corners, so a difference means a wrong projection.
void expect_positions(const std::string &def, const std::vector<LL> &pts, const std::vector<LL> &extent_pts,
                      double lon0) {
  std::vector<LL> ext = extent_pts;
  for (LL &p : ext) p.lon -= lon0;
  auto ex = proj_cli(def, ext);
  ASSERT_EQ(ex.size(), extent_pts.size());
  Extent e = extent_of(ex);
  std::vector<Pt> want = proj_page(def, pts, e, lon0);
  ASSERT_EQ(want.size(), pts.size());
  const AxesState &ax = mirval_state().axes;
  double s = std::min(2200 / (e.x1 - e.x0), 1200 / (e.y1 - e.y0));
  EXPECT_NEAR(ax.box.x0, 1550 - (e.x1 - e.x0) * s / 2, 1.0);
  EXPECT_NEAR(ax.box.y1, 1200 + (e.y1 - e.y0) * s / 2, 1.0);
  for (size_t i = 0; i < pts.size(); ++i) {
    Pt q = page_point(pts[i].lon, pts[i].lat);
    EXPECT_NEAR(q.x, want[i].x, 1.0) << "point " << i;
    EXPECT_NEAR(q.y, want[i].y, 1.0) << "point " << i;
    // the position functions give the same plot coordinates
    float px, py;
    pos2pt(pts[i].lon, pts[i].lat, &px, &py);
    if (def.find("merc") != std::string::npos) {  // exact through x and y alone on cylinders
      EXPECT_NEAR(px, q.x, 1.0);
      EXPECT_NEAR(py, q.y, 1.0);
    }
  }
}

const std::vector<LL> cities = {{2.35, 48.86}, {-74.0, 40.71}, {139.69, 35.69}, {151.21, -33.87},
                                {-58.38, -34.60}, {37.62, 55.76}, {-0.13, 51.51}, {18.42, -33.92}};

}  // namespace

TEST(MapGeometry, LinesAreCutAtTheSeam) {
  Region r;
  std::vector<LLine> pieces = cut_line({{170, 10}, {-170, 20}}, r);
  ASSERT_EQ(pieces.size(), 2u);
  EXPECT_DOUBLE_EQ(pieces[0].back().lon, 180);
  EXPECT_NEAR(pieces[0].back().lat, 15, 1e-9);
  EXPECT_DOUBLE_EQ(pieces[1].front().lon, -180);
  EXPECT_NEAR(pieces[1].front().lat, 15, 1e-9);
}

TEST(MapGeometry, PolygonAcrossTheDatelineBecomesTwoClosedParts) {
  Region r;
  std::vector<LLine> parts = cut_polygon({{170, -10}, {-170, -10}, {-170, 10}, {170, 10}}, r, 5);
  ASSERT_EQ(parts.size(), 2u);
  for (const LLine &p : parts) {
    double lo = 1e9, hi = -1e9;
    for (LL q : p) lo = std::min(lo, q.lon), hi = std::max(hi, q.lon);
    EXPECT_NEAR(hi - lo, 10, 1e-9);  // each half is 10 degrees wide, never 340
    EXPECT_GE(lo, -180);
    EXPECT_LE(hi, 180);
  }
}

TEST(MapGeometry, PolygonAroundThePoleIsClosedOverIt) {
  Region r;
  LLine ring;
  for (int lon = -180; lon < 180; lon += 10) ring.push_back({double(lon), -70});
  std::vector<LLine> parts = cut_polygon(ring, r, 5);
  ASSERT_EQ(parts.size(), 1u);
  double lowest = 0;
  for (LL q : parts[0]) lowest = std::min(lowest, q.lat);
  EXPECT_DOUBLE_EQ(lowest, -90);
}

TEST(MapGeometry, CapKeepsTheNearSide) {
  Region r;
  r.cap = true, r.lon0 = 0, r.lat0 = 0, r.cap_deg = 90;
  std::vector<LLine> pieces = cut_line({{0, 0}, {60, 0}, {120, 0}, {180, 0}}, r);
  ASSERT_EQ(pieces.size(), 1u);
  EXPECT_NEAR(pieces[0].back().lon, 90, 1e-6);
}

TEST(MapGeometry, GreatCircleRunsOverThePoleRegion) {
  LLine g = great_circle({0, 60}, {180, 60}, 1);
  double top = 0;
  for (LL p : g) top = std::max(top, p.lat);
  EXPECT_NEAR(top, 90, 1.0);
  EXPECT_NEAR(angular_distance({0, 0}, {90, 0}), 90, 1e-9);
}

TEST_F(MapTest, RobinsonPositionsAgreeWithProj) {
  open_page();
  projct("ROBI");
  grafmp(-180, 180, -180, 60, -90, 90, -90, 30);
  expect_positions("+proj=robin +R=6371000 +lon_0=0", cities, {{-180, 0}, {180, 0}, {0, -90}, {0, 90}}, 0);
  mirfin();
}

TEST_F(MapTest, MercatorEuropePositionsAgreeWithProj) {
  open_page();
  projct("MERC");
  grafmp(-20, 40, -20, 10, 35, 70, 35, 5);
  expect_positions("+proj=merc +R=6371000 +lon_0=0", {{2.35, 48.86}, {-0.13, 51.51}, {13.40, 52.52}, {-20, 35}, {40, 70}},
                   {{-20, 35}, {40, 70}}, 10);
  mirfin();
}

TEST_F(MapTest, LambertConicPositionsAgreeWithProj) {
  open_page();
  projct("LAMB");
  mapref(40, 60);
  grafmp(-20, 40, -20, 10, 35, 70, 35, 5);
  std::vector<LL> ext;
  for (int i = 0; i <= 90; ++i)
    for (int j = 0; j <= 45; ++j) ext.push_back({-20 + 60.0 * i / 90, 35 + 35.0 * j / 45});
  expect_positions("+proj=lcc +R=6371000 +lat_1=40 +lat_2=60 +lat_0=52.5 +lon_0=0",
                   {{2.35, 48.86}, {13.40, 52.52}, {30.52, 50.45}}, ext, 10);
  mirfin();
}

TEST_F(MapTest, PolarStereographicPositionsAgreeWithProj) {
  open_page();
  projct("STER");
  grafmp(-180, 180, -180, 30, 50, 90, 50, 10);
  // the map is the disc down to 50 degrees north
  expect_positions("+proj=stere +R=6371000 +lat_0=90 +lon_0=0 +lat_ts=90", {{-21.9, 64.1}, {10.75, 59.91}, {-150, 70}, {0, 90}},
                   {{90, 50}, {-90, 50}, {0, 50}, {180, 50}}, 0);
  mirfin();
}

namespace {

// CURVE's markers at the cities, in red on a white page: each must sit where PROJ puts the
// city, and POS2PT must give the same place.
void expect_city_markers(const std::string &def, const std::vector<LL> &pts, const Extent &e, double lon0) {
  std::vector<Pt> want = proj_page(def, pts, e, lon0);
  ASSERT_EQ(want.size(), pts.size());
  std::vector<float> x, y;
  for (LL p : pts) x.push_back(p.lon), y.push_back(p.lat);
  color("RED");
  incmrk(-1);
  marker(21);
  hsymbl(40);
  curve(x.data(), y.data(), static_cast<int>(x.size()));
  for (size_t i = 0; i < pts.size(); ++i) {
    float px, py;
    pos2pt(x[i], y[i], &px, &py);
    EXPECT_NEAR(px, want[i].x, 1.0) << "city " << i;
    EXPECT_NEAR(py, want[i].y, 1.0) << "city " << i;
  }
  mirfin();
  Picture pic = read_png("cities.png");
  ASSERT_GT(pic.w, 0);
  for (size_t i = 0; i < want.size(); ++i) {
    Pixel c = pic.at(static_cast<int>(want[i].x * pic.w / 2970), static_cast<int>(want[i].y * pic.h / 2100));
    EXPECT_TRUE(c.r > 200 && c.g < 60 && c.b < 60) << "city " << i << ": " << c.r << " " << c.g << " " << c.b;
  }
}

void open_png(const char *file) {
  metafl("PNG");
  setfil(file);
  errmod("ALL", "OFF");
  mirini();
}

}  // namespace

TEST_F(MapTest, CurveMarkersLandWhereProjPutsTheCitiesInRobinson) {
  open_png("cities.png");
  projct("ROBI");
  grafmp(-180, 180, -180, 60, -90, 90, -90, 30);
  auto ex = proj_cli("+proj=robin +R=6371000 +lon_0=0", {{-180, 0}, {180, 0}, {0, -90}, {0, 90}});
  expect_city_markers("+proj=robin +R=6371000 +lon_0=0", cities, extent_of(ex), 0);
}

TEST_F(MapTest, CurveMarkersLandWhereProjPutsTheCitiesOnAnOrthographicGlobe) {
  open_png("cities.png");
  projct("ORTH");
  mappol(40, 40);
  grafmp(-180, 180, -180, 30, -90, 90, -90, 30);
  // the globe's disc: the sphere's radius every way from the centre
  const double R = 6371000;
  Extent disc{-R, R, -R, R};
  expect_city_markers("+proj=ortho +R=6371000 +lat_0=40 +lon_0=40",
                      {{2.35, 48.86}, {37.62, 55.76}, {31.24, 30.04}, {77.21, 28.61}, {36.82, -1.29}, {-0.13, 51.51}},
                      disc, 0);
}

TEST_F(MapTest, CurveAcrossTheDatelineIsCutAtTheEdge) {
  open_png("dateline.png");
  projct("ROBI");
  grafmp(-180, 180, -180, 60, -90, 90, -90, 30);
  float x[2] = {170, -170}, y[2] = {0, 0};
  color("RED");
  linwid(10);
  curve(x, y, 2);
  Pt east = page_point(178, 0), west = page_point(-178, 0), centre = page_point(0, 0), mid = page_point(-90, 0);
  mirfin();
  Picture pic = read_png("dateline.png");
  ASSERT_GT(pic.w, 0);
  auto at = [&](Pt p) { return pic.at(static_cast<int>(p.x * pic.w / 2970), static_cast<int>(p.y * pic.h / 2100)); };
  for (Pt in : {east, west}) EXPECT_GT(at(in).r - at(in).g, 150);
  for (Pt out : {centre, mid}) EXPECT_GT(at(out).g, 200);  // no streak across the map
}

TEST_F(MapTest, GraticuleLabelsFollowTheLabelType) {
  labels("MAP", "X");
  EXPECT_EQ(map_label(-30, true), "30\u00b0W");
  EXPECT_EQ(map_label(200, true), "160\u00b0W");
  EXPECT_EQ(map_label(180, true), "180\u00b0");
  EXPECT_EQ(map_label(-30, false), "\u221230");  // Y keeps the plain numbers
  labels("MAP", "Y");
  EXPECT_EQ(map_label(-45, false), "45\u00b0S");
  EXPECT_EQ(map_label(0, false), "0\u00b0");
  labels("NONE", "X");
  EXPECT_EQ(map_label(30, true), "");
  reset("ALL");
  EXPECT_EQ(map_label(30, true), "30");
}

TEST_F(MapTest, WorldDrawsEverySegmentOfTheShorelineFile) {
  const char *file = "/usr/share/gmt-gshhg/binned_GSHHS_c.nc";
  if (!file_exists(file)) GTEST_SKIP() << "gmt-gshhg-low not installed";
  // ncdump's own reading: segments that are not the alternative Antarctic line
  std::string flags = run(std::string("ncdump -v Embedded_ANT_flag ") + file);
  flags = flags.substr(flags.find("Embedded_ANT_flag =") + 19);
  int zeros = 0;
  std::istringstream in(flags);
  std::string tok;
  while (std::getline(in, tok, ',')) {
    std::istringstream t(tok);
    int v;
    if (t >> v && v == 0) ++zeros;
  }
  std::string total = run(std::string("ncdump -v N_segments_in_file ") + file);
  ASSERT_NE(total.find("N_segments_in_file = 2258"), std::string::npos);
  open_page();
  mapopt("CRUDE", "RESOLUTION");
  projct("CYLI");
  grafmp(-180, 180, -180, 60, -90, 90, -90, 30);
  world();
  EXPECT_EQ(map_world_segments(), zeros);
  EXPECT_GT(zeros, 2000);
  mirfin();
}

TEST_F(MapTest, FilledLandIsWhereTheContinentsAre) {
  metafl("PNG");
  setfil("land.png");
  errmod("ALL", "OFF");
  mirini();
  projct("ROBI");
  grafmp(-180, 180, -180, 60, -90, 90, -90, 30);
  color("GREEN");
  shdmap("LAND");
  color("FORE");
  world();
  double px, py;
  ASSERT_TRUE(map_user_point(20, 5, px, py));  // central Africa
  Pt africa{px, py};
  ASSERT_TRUE(map_user_point(-140, 0, px, py));  // the Pacific
  Pt pacific{px, py};
  ASSERT_TRUE(map_user_point(-100, 40, px, py));  // North America
  Pt america{px, py};
  ASSERT_TRUE(map_user_point(-30, -20, px, py));  // South Atlantic
  Pt atlantic{px, py};
  mirfin();
  Picture pic = read_png("land.png");
  ASSERT_GT(pic.w, 0);
  auto at = [&](Pt p) { return pic.at(static_cast<int>(p.x * pic.w / 2970), static_cast<int>(p.y * pic.h / 2100)); };
  for (Pt land : {africa, america}) {
    Pixel c = at(land);
    EXPECT_TRUE(c.g > 150 && c.r < 100 && c.b < 100) << c.r << " " << c.g << " " << c.b;
  }
  for (Pt sea : {pacific, atlantic}) {
    Pixel c = at(sea);
    EXPECT_TRUE(c.r > 200 && c.g > 200 && c.b > 200) << c.r << " " << c.g << " " << c.b;
  }
}

TEST_F(MapTest, PolygonAcrossTheDatelineLeavesNoStreak) {
  {
    std::ofstream f("square.txt");
    f << "# lon lat\n170 -20\n-170 -20\n-170 20\n170 20\n";
  }
  metafl("PNG");
  setfil("streak.png");
  errmod("ALL", "OFF");
  mirini();
  projct("MOLL");
  grafmp(-180, 180, -180, 60, -90, 90, -90, 30);
  mapfil("square.txt", "FILL");
  color("RED");
  world();
  double px, py;
  map_user_point(0, 0, px, py);
  Pt centre{px, py};
  map_user_point(176, 0, px, py);
  Pt east{px, py};
  map_user_point(-176, 0, px, py);
  Pt west{px, py};
  map_user_point(90, 10, px, py);
  Pt between{px, py};
  mirfin();
  Picture pic = read_png("streak.png");
  ASSERT_GT(pic.w, 0);
  auto at = [&](Pt p) { return pic.at(static_cast<int>(p.x * pic.w / 2970), static_cast<int>(p.y * pic.h / 2100)); };
  for (Pt in : {east, west}) EXPECT_GT(at(in).r - at(in).g, 150);
  for (Pt out : {centre, between}) EXPECT_GT(at(out).g, 200);
}

TEST_F(MapTest, BadArgumentsAreRefused) {
  open_page();
  projct("NOPE");
  EXPECT_EQ(mirval_state().map.proj, "CYLI");
  grafmp(0, 0, 0, 10, 0, 10, 0, 10);
  EXPECT_EQ(getlev(), 1);
  grafmp(-10, 10, -10, 10, -100, 10, 0, 10);
  EXPECT_EQ(getlev(), 1);
  grafmp(NAN, 10, -10, 10, 0, 10, 0, 10);
  EXPECT_EQ(getlev(), 1);
  world();  // no map: a warning only
  grafmp(-10, 10, -10, 10, 0, 10, 0, 10);
  EXPECT_EQ(getlev(), 2);
  float x[2] = {0, NAN}, y[2] = {0, 5};
  curvmp(x, y, 0);
  curvmp(x, y, 2);
  int a[1] = {999}, b[1] = {16}, c[1] = {3};
  shdeur(a, b, c, 1);
  shdeur(a, b, c, -1);
  gridmp(0, 1);
  mpaepl(-5);
  mapimg("missing.png", -10, 10, 0, 10, 0, 0);
  mirfin();
  EXPECT_GT(read_file("map.svg").size(), 100u);
}

TEST_F(MapTest, ResetRestoresTheMapSettings) {
  projct("ORTH");
  mapsph(1000);
  mapopt("ON", "RIVERS");
  reset("ALL");
  EXPECT_EQ(mirval_state().map.proj, "CYLI");
  EXPECT_EQ(mirval_state().map.radius, 6371000);
  EXPECT_FALSE(mirval_state().map.rivers);
}

namespace {

// The filled cells of the page, in drawing order.
std::vector<const Item *> cells() {
  std::vector<const Item *> out;
  for (const Item &it : mirval_state().scene.current().items)
    if (it.kind == ItemKind::Cell) out.push_back(&it);
  return out;
}

bool same_colour(Rgb a, Rgb b) { return a.r == b.r && a.g == b.g && a.b == b.b; }

bool has_point(const Path &p, Pt q) {
  for (Pt a : p.pts)
    if (std::hypot(a.x - q.x, a.y - q.y) < 0.01) return true;
  return false;
}

// A 3 x 3 matrix z = i + 2j spread over the map: its four cells have the values 1.5, 2.5,
// 3.5 and 4.5 at their centres, each its own colour on the Z range 1..5.
void four_cells() {
  float z[9];
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) z[i * 3 + j] = float(i + 2 * j);
  zscale(1, 5);
  crvmat(z, 3, 3, 1, 1);
}

}  // namespace

TEST_F(MapTest, ColourMatrixCellsAreTheProjectedOutlinesOfTheirCorners) {
  open_page();
  projct("ROBI");
  grafmp(-180, 180, -180, 60, -90, 90, -90, 30);
  four_cells();
  std::vector<const Item *> got = cells();
  ASSERT_EQ(got.size(), 4u);
  for (int r = 0; r < 2; ++r)
    for (int c = 0; c < 2; ++c) {
      const Item &it = *got[r * 2 + c];
      EXPECT_TRUE(same_colour(it.rgb, table_rgb(z_colour(c + 2 * r + 1.5)))) << c << " " << r;
      double lon = -180 + 180 * c, lat = -90 + 90 * r;
      // the corners, and points along the curved meridians and the parallels between them
      for (LL p : {LL{lon, lat}, LL{lon + 180, lat}, LL{lon, lat + 90}, LL{lon + 180, lat + 90},
                   LL{lon, lat + 45}, LL{lon + 90, lat}})
        EXPECT_TRUE(has_point(it.path, page_point(p.lon, p.lat))) << c << " " << r << ": " << p.lon << " " << p.lat;
    }
  mirfin();
}

TEST_F(MapTest, ColourMatrixCellAcrossTheDatelineStaysInOnePiece) {
  open_page();
  projct("ROBI");
  grafmp(-170, 190, -170, 60, -90, 90, -90, 30);
  // 20-degree columns from -170: the last cell, 170..190, straddles 180 and has its own value
  const int nx = 19, ny = 3;
  float z[nx * ny];
  for (int i = 0; i < nx; ++i)
    for (int j = 0; j < ny; ++j) z[i * ny + j] = i >= 17 ? 4.f : 1.f;
  zscale(0, 5);
  crvmat(z, nx, ny, 1, 1);
  Rgb last = table_rgb(z_colour(4));
  double centre = page_point(10, 0).x;
  int found = 0;
  for (const Item *it : cells()) {
    if (!same_colour(it->rgb, last)) continue;
    ++found;
    EXPECT_TRUE(has_point(it->path, page_point(190, 0)));
    for (Pt p : it->path.pts) EXPECT_GT(p.x, centre) << "a streak to the west";
  }
  EXPECT_EQ(found, 2);  // one cell in each of the two rows
  mirfin();
}

TEST_F(MapTest, ColourMatrixOnAGlobeKeepsToTheNearSide) {
  open_page();
  projct("ORTH");
  mappol(0, 0);
  grafmp(-180, 180, -180, 30, -90, 90, -90, 30);
  four_cells();
  Pt c = page_point(0, 0), east = page_point(90, 0);
  double radius = east.x - c.x;
  ASSERT_GT(radius, 100);
  std::vector<const Item *> got = cells();
  EXPECT_EQ(got.size(), 4u);  // the four cells meet at the centre of the disc
  for (const Item *it : got)
    for (Pt p : it->path.pts) EXPECT_LT(std::hypot(p.x - c.x, p.y - c.y), radius + 1);
  mirfin();
}

TEST_F(MapTest, ColourMatrixNeedsAZRangeOnAMap) {
  open_page();
  projct("ROBI");
  grafmp(-180, 180, -180, 60, -90, 90, -90, 30);
  float z[4] = {1, 2, 3, 4};
  crvmat(z, 2, 2, 1, 1);  // no ZSCALE yet: a warning
  EXPECT_TRUE(cells().empty());
  zscale(1, 4);
  crvmat(z, 2, 2, 1, 1);
  EXPECT_FALSE(cells().empty());
  mirfin();
}

TEST_F(MapTest, ErrorBarsRunAlongTheMeridian) {
  open_page();
  projct("ROBI");
  grafmp(-180, 180, -180, 60, -90, 90, -90, 30);
  float x[1] = {150}, y[1] = {60}, e1[1] = {5}, e2[1] = {10};
  size_t before = mirval_state().scene.current().items.size();
  errbar(x, y, e1, e2, 1);
  Pt lo = page_point(150, 55), hi = page_point(150, 70);
  const std::vector<Item> &items = mirval_state().scene.current().items;
  bool bar = false;
  for (size_t i = before; i < items.size(); ++i)
    bar |= items[i].kind == ItemKind::Stroke && has_point(items[i].path, lo) && has_point(items[i].path, hi);
  EXPECT_TRUE(bar);
  // far from the central meridian the projected bar is well away from the plain scaling's
  EXPECT_GT(std::fabs(lo.x - page_x(150)), 50);
  mirfin();
}

TEST_F(MapTest, OneTransformationServesMapsOfOneSetUp) {
  open_page();
  projct("MOLL");
  grafmp(-180, 180, -180, 60, -90, 90, -90, 30);
  std::weak_ptr<PJconsts> first = mirval_state().map.active->transform;
  endgrf();
  grafmp(-180, 180, -180, 60, -90, 90, -90, 30);
  EXPECT_EQ(mirval_state().map.active->transform, first.lock());  // the same set-up: not made again
  endgrf();
  projct("ROBI");
  grafmp(-180, 180, -180, 60, -90, 90, -90, 30);
  EXPECT_NE(mirval_state().map.active->transform, nullptr);
  EXPECT_TRUE(first.expired());  // the Mollweide one went with its last map
  mirfin();
}

TEST_F(MapTest, ColourMatrixTooFineForAMapIsRefused) {
  open_page();
  projct("ROBI");
  grafmp(-180, 180, -180, 60, -90, 90, -90, 30);
  zscale(0, 1);
  // ten million cells, each a whole meridian tall: far too many points to project
  std::vector<float> z(1000001 * 2, 0.5f);
  crvmat(z.data(), 1000001, 2, 10, 1);
  EXPECT_TRUE(cells().empty());
  mirfin();
}

namespace {

// The stroked items drawn since `before` that pass within 0.01 units of every point given.
bool stroke_through(size_t before, std::initializer_list<Pt> pts) {
  const std::vector<Item> &items = mirval_state().scene.current().items;
  for (size_t i = before; i < items.size(); ++i) {
    bool all = items[i].kind == ItemKind::Stroke;
    for (Pt q : pts) all = all && has_point(items[i].path, q);
    if (all) return true;
  }
  return false;
}

// The middle of the bounding box of the last item drawn.
Pt last_item_centre() {
  const Path &p = mirval_state().scene.current().items.back().path;
  double x0 = 1e30, x1 = -1e30, y0 = 1e30, y1 = -1e30;
  for (Pt a : p.pts) x0 = std::min(x0, a.x), x1 = std::max(x1, a.x), y0 = std::min(y0, a.y), y1 = std::max(y1, a.y);
  return {(x0 + x1) / 2, (y0 + y1) / 2};
}

}  // namespace

// Lines, rectangles, circles, points and areas given in user coordinates stand on a map where
// the projection puts their longitude and latitude together, not where plain scaling would.
TEST_F(MapTest, UserShapesStandWhereTheProjectionPutsThem) {
  open_page();
  projct("ROBI");
  grafmp(-180, 180, -180, 60, -90, 90, -90, 30);
  size_t before = mirval_state().scene.current().items.size();
  rline(150, 60, 170, 40);
  EXPECT_TRUE(stroke_through(before, {page_point(150, 60), page_point(170, 40)}));
  before = mirval_state().scene.current().items.size();
  rlrec(140, 70, 20, 10);  // its sides follow the parallels and meridians
  EXPECT_TRUE(stroke_through(before, {page_point(140, 70), page_point(160, 70), page_point(160, 60), page_point(140, 60)}));
  float ax[3] = {100, 120, 110}, ay[3] = {-40, -40, -20};
  before = mirval_state().scene.current().items.size();
  rlarea(ax, ay, 3);
  EXPECT_TRUE(stroke_through(before, {page_point(100, -40), page_point(120, -40), page_point(110, -20)}));
  for (auto draw : {+[] { rlcirc(150, 60, 5); }, +[] { rlell(150, 60, 5, 3); }, +[] { rlpoin(150, 60, 20, 20, 1); }}) {
    draw();
    Pt c = last_item_centre(), want = page_point(150, 60);
    EXPECT_NEAR(c.x, want.x, 1.0);
    EXPECT_NEAR(c.y, want.y, 1.0);
    EXPECT_GT(std::fabs(c.x - page_x(150)), 50);  // plain scaling would put it elsewhere
  }
  // a line over the dateline is cut at the map's edge instead of crossing the whole map
  before = mirval_state().scene.current().items.size();
  rline(170, 0, -170, 0);
  EXPECT_FALSE(stroke_through(before, {page_point(0, 0)}));
  const std::vector<Item> &items = mirval_state().scene.current().items;
  for (size_t i = before; i < items.size(); ++i)
    for (Pt a : items[i].path.pts) EXPECT_GT(std::fabs(a.x - page_point(0, 0).x), 500);
  mirfin();
}

// An eastward vector on a map points along the parallel where it stands, a northward one
// along the meridian: away from an orthographic globe's centre both are turned on the page.
TEST_F(MapTest, VectorsPointEastAndNorthWhereTheyStand) {
  open_page();
  projct("ORTH");
  mappol(0, 40);
  grafmp(-180, 180, -180, 30, -90, 90, -90, 30);
  const float lon = 50, lat = 55;
  float xp[1] = {lon}, yp[1] = {lat};
  for (int north = 0; north < 2; ++north) {
    float u[1] = {north ? 0.f : 1.f}, v[1] = {north ? 1.f : 0.f};
    size_t before = mirval_state().scene.current().items.size();
    vecfld(u, v, xp, yp, 1, 1);
    const std::vector<Item> &items = mirval_state().scene.current().items;
    const Item *shaft = nullptr;
    for (size_t i = before; i < items.size(); ++i)
      if (items[i].kind == ItemKind::Stroke) shaft = &items[i];
    ASSERT_TRUE(shaft && shaft->path.pts.size() >= 2);
    Pt a = shaft->path.pts[0], b = shaft->path.pts[1];
    Pt f = north ? page_point(lon, lat + 1) : page_point(lon + 1, lat);
    Pt r = north ? page_point(lon, lat - 1) : page_point(lon - 1, lat);
    double want = std::atan2(f.y - r.y, f.x - r.x), got = std::atan2(b.y - a.y, b.x - a.x);
    EXPECT_NEAR(std::remainder(got - want, 2 * M_PI), 0, 0.02) << (north ? "north" : "east");
    // the projection really turns them away from the page's right and up
    EXPECT_GT(std::fabs(std::remainder(want - (north ? -M_PI / 2 : 0), 2 * M_PI)), 0.2);
  }
  mirfin();
}
