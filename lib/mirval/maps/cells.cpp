// Colour cells on maps: a matrix spread over the map's longitude and latitude range, each
// cell the projected outline of its corners.
#include "maps/maps.h"
#include "maps/projection.h"
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

// The outline of the cells from column c0 to c1 of a row whose points (k + 1 lines of
// cols * k + 1, from the row's lower edge up) are in 'at': along the lower edge, up the
// right side, back along the upper edge and down the left side.
template <class T>
std::vector<T> outline(const std::vector<T> &at, int width, int k, int c0, int c1) {
  std::vector<T> out;
  for (int i = c0 * k; i <= c1 * k; ++i) out.push_back(at[i]);
  for (int j = 1; j <= k; ++j) out.push_back(at[j * width + c1 * k]);
  for (int i = c1 * k - 1; i >= c0 * k; --i) out.push_back(at[k * width + i]);
  for (int j = k - 1; j >= 1; --j) out.push_back(at[j * width + c0 * k]);
  return out;
}

}  // namespace

bool map_cells(int cols, int rows, const std::function<int(int, int)> &colour) {
  const MapProjection *m = current_map();
  if (!m) return false;
  const AxesState &ax = mirval_state().axes;
  const AxisRange &rx = ax.range[0], &ry = ax.range[1];
  double dlon = (rx.e - rx.a) / cols, dlat = (ry.e - ry.a) / rows;
  // large cells get points along their edges, so that they follow the curved graticule
  int k = std::clamp(static_cast<int>(std::ceil(std::max(std::fabs(dlon), std::fabs(dlat)) / 2)), 1, 16);
  int width = cols * k + 1;
  Rect clip = user_clip();
  LLine ll((k + 1) * static_cast<size_t>(width));
  std::vector<Pt> page;
  for (int r = 0; r < rows; ++r) {
    for (int j = 0; j <= k; ++j)
      for (int i = 0; i < width; ++i) ll[j * width + i] = {rx.a + i * dlon / k, ry.a + (r + double(j) / k) * dlat};
    m->pages(ll, page);
    // cells of one colour next to each other in a row make one outline
    int run = 0, run_colour = colour(0, r);
    for (int c = 1; c <= cols; ++c) {
      int next = c < cols ? colour(c, r) : -2;
      if (next == run_colour) continue;
      if (run_colour >= 0) {
        LLine cell = outline(ll, width, k, run, c);
        std::vector<Pt> q = outline(page, width, k, run, c);
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
