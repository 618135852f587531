// Colour cells on maps: a matrix spread over the map's longitude and latitude range, each
// cell the projected outline of its corners.
#include "maps/maps.h"
#include "maps/projection.h"
#include "core/messages.h"
#include "core/state.h"
#include "draw/colours.h"
#include "draw/draw.h"

#include <algorithm>
#include <cmath>

namespace {

// Where a point lies well within what the map shows, so that its cell needs no cutting.
bool within(const Region &r, LL p) {
  constexpr double eps = 1e-9;
  if (r.cap) return angular_distance(p, {r.lon0, r.lat0}) < r.cap_deg - eps;
  return p.lat >= r.lat_a - eps && p.lat <= r.lat_e + eps && p.lon >= r.lon_a - eps && p.lon <= r.lon_e + eps;
}

// Where the points of a stretch of cells lie: ky + 1 lines of width points, from the lower
// edge up, kx points to a cell along a line.
struct Grid {
  int width, kx, ky;
  size_t at(int i, int j) const { return static_cast<size_t>(j) * width + i; }
};

// The outline of cells c0 to c1 of the stretch: along the lower edge, up the right side, back
// along the upper edge and down the left side.
template <class T>
std::vector<T> outline(const std::vector<T> &pts, const Grid &g, int c0, int c1) {
  std::vector<T> out;
  for (int i = c0 * g.kx; i <= c1 * g.kx; ++i) out.push_back(pts[g.at(i, 0)]);
  for (int j = 1; j <= g.ky; ++j) out.push_back(pts[g.at(c1 * g.kx, j)]);
  for (int i = c1 * g.kx - 1; i >= c0 * g.kx; --i) out.push_back(pts[g.at(i, g.ky)]);
  for (int j = g.ky - 1; j >= 1; --j) out.push_back(pts[g.at(c0 * g.kx, j)]);
  return out;
}

// Large cells get points along their edges, so that they follow the curved graticule.
int divisions(double degrees) { return std::clamp(static_cast<int>(std::ceil(std::fabs(degrees) / 2)), 1, 16); }

// A row is projected in stretches of this many cells, so that long rows need little memory.
constexpr int STRETCH = 4096;
// At most this many points are projected for one matrix: a few seconds' work.
constexpr double MAX_POINTS = 2e7;

}  // namespace

bool map_cells(const char *routine, int cols, int rows, const std::function<int(int, int)> &colour) {
  const MapProjection *m = current_map();
  if (!m) return false;
  const AxesState &ax = mirval_state().axes;
  const AxisRange &rx = ax.range[0], &ry = ax.range[1];
  double dlon = (rx.e - rx.a) / cols, dlat = (ry.e - ry.a) / rows;
  int kx = divisions(dlon), ky = divisions(dlat);
  double points = double(rows) * (ky + 1) * (double(cols) * kx + 1);
  if (points > MAX_POINTS) {
    mv_warn(routine, "%g points to project are too many for a map; lower ixpts or iypts", points);
    return true;
  }
  Rect clip = user_clip();
  LLine ll;
  std::vector<Pt> page;
  for (int r = 0; r < rows; ++r)
    for (int s0 = 0; s0 < cols; s0 += STRETCH) {
      int n = std::min(STRETCH, cols - s0);
      Grid g{n * kx + 1, kx, ky};
      ll.resize(g.at(0, ky + 1));
      for (int j = 0; j <= ky; ++j)
        for (int i = 0; i < g.width; ++i)
          ll[g.at(i, j)] = {rx.a + (s0 + double(i) / kx) * dlon, ry.a + (r + double(j) / ky) * dlat};
      m->pages(ll, page);
      // cells of one colour next to each other make one outline
      int run = 0, run_colour = colour(s0, r);
      for (int c = 1; c <= n; ++c) {
        int next = c < n ? colour(s0 + c, r) : -2;
        if (next == run_colour) continue;
        if (run_colour >= 0) {
          LLine cell = outline(ll, g, run, c);
          std::vector<Pt> q = outline(page, g, run, c);
          bool whole = std::all_of(cell.begin(), cell.end(), [&](LL p) { return within(m->region, p); }) &&
                       std::all_of(q.begin(), q.end(), [](Pt p) { return std::isfinite(p.x) && std::isfinite(p.y); });
          Path path;
          if (whole) append_polygon(path, q);
          else  // across the seam or the map's edge: cut like any polygon
            for (const std::vector<Pt> &part : m->page_polygons(cell)) append_polygon(path, part);
          fill_cell(fit_path(path, clip, true), table_rgb(run_colour));
        }
        run = c;
        run_colour = next;
      }
    }
  return true;
}
