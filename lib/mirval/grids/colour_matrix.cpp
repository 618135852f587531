// Colour-coded data on a 2-D axis system: GRAF3 and its colour bar, colour points (CURVE3,
// RPOINT ...) and whole matrices as coloured cells (CRVMAT).
#include "grids/colour_matrix.h"
#include "axes/axes.h"
#include "draw/colours.h"
#include "draw/draw.h"
#include "core/messages.h"
#include "mirval.h"
#include "axes/scaling.h"
#include "draw/text.h"
#include "maps/maps.h"
#include "core/trace.h"

#include <algorithm>
#include <climits>
#include <cmath>

namespace {

// The colour bar right of the axis system: one stripe per colour entry from the lower end of
// the Z axis to the upper one, framed, with the Z axis's ticks, labels and name beside it.
void colour_bar() {
  MirvalState &st = mirval_state();
  const GridState &g = st.grid;
  AxisExtraState &x = st.axextra;
  AxesState &ax = st.axes;
  const Rect b = ax.box;
  double w = g.bar_width;
  double gap = g.bar_gap;  // VKXBAR or SPCBAR
  if (x.bar_pos == 0) {  // RIGHT: as tall as the Y axis, the gap beside it, VKYBAR up
    colour_bar_at({b.x1 + gap, b.y0 - g.bar_shift, b.x1 + gap + w, b.y1 - g.bar_shift}, true, g.z, 3,
                  ax.axis[2].name);
    return;
  }
  if (x.bar_pos == 3) {  // LEFT: beyond the Y axis's labels and name
    double x1 = b.x0 - x.left_room - gap;
    colour_bar_at({x1 - w, b.y0, x1, b.y1}, true, g.z, 1, ax.axis[2].name);
    return;
  }
  // TOP or BOTTOM: four fifths of the X axis long, placed along it as JUSBAR says; a title
  // (above or below) makes room for it
  double len = 0.8 * (b.x1 - b.x0);
  double x0 = x.bar_just == 0 ? b.x0 : x.bar_just == 2 ? b.x1 - len : (b.x0 + b.x1 - len) / 2;
  double room = gap + w + st.text.height * 2.5;  // titles keep clear of the bar and its scale
  if (x.bar_pos == 1) {
    double y1 = b.y0 - ax.title_room - gap;
    colour_bar_at({x0, y1 - w, x0 + len, y1}, false, g.z, 2, ax.axis[2].name);
    ax.title_room += room;
  } else {
    double y0 = b.y1 + x.bottom_room + gap;
    colour_bar_at({x0, y0, x0 + len, y0 + w}, false, g.z, 0, ax.axis[2].name);
    x.bottom_room += room;
  }
}

// How far the bar with its ticks, labels and name reaches right of the axis system.
double bar_room(const AxisRange &z) {
  const MirvalState &st = mirval_state();
  const AxisSettings &s = st.axes.axis[2];
  double widest = 0;
  for (const AxisLabel &l : axis_labels(s, z)) widest = std::max(widest, text_length(l.text, l.sup, st.text.height));
  double name = s.name.empty() ? 0 : s.namdis + st.axes.hname;
  return st.grid.bar_gap + st.grid.bar_width + st.axes.ticlen_major + s.labdis + widest + name + st.text.height / 2;
}

bool colour_axis(const char *routine) {
  if (!mv_level(routine, 2, 3)) return false;
  if (mirval_state().grid.colour_axis) return true;
  mv_warn(routine, "the axis system has no Z axis (GRAF3 or GRAF3D defines one)");
  return false;
}

// A rectangle in table colour c (none for c < 0), cut to the clip rectangle.
void colour_rect(double x0, double y0, double x1, double y1, int c, const Rect &clip) {
  if (c >= 0) fill_path(fit_path(rect_path(x0, y0, x1, y1), clip, true), table_rgb(c));
}

// Colour points centred on the data, sized by SETRES or AUTRES.
template <class At>
void colour_points(const char *routine, int n, At at) {
  if (!colour_axis(routine)) return;
  if (n <= 0) {
    mv_warn(routine, "no points (n = %d)", n);
    return;
  }
  const MirvalState &st = mirval_state();
  const GridState &g = st.grid;
  const Rect &b = st.axes.box;
  double w = st.page.xres, h = st.page.yres;
  if (g.auto_nx > 0) w = (b.x1 - b.x0) / g.auto_nx, h = (b.y1 - b.y0) / g.auto_ny;
  Rect clip = g.cut_points ? user_clip() : plot_clip();
  for (int i = 0; i < n; ++i) {
    double x, y, z;
    at(i, x, y, z);
    Pt p = page_point(x, y);
    if (!std::isfinite(p.x) || !std::isfinite(p.y)) continue;
    colour_rect(p.x - w / 2, p.y - h / 2, p.x + w / 2, p.y + h / 2, z_colour(z), clip);
  }
}

// The matrix interpolated bilinearly at fractional indexes (fx, fy).
double cell_value(const float *zmat, int nx, int ny, double fx, double fy) {
  int i = std::min(static_cast<int>(fx), nx - 2), j = std::min(static_cast<int>(fy), ny - 2);
  double tx = fx - i, ty = fy - j;
  auto at = [&](int a, int k) { return double(zmat[static_cast<long>(a) * ny + k]); };
  return (1 - tx) * ((1 - ty) * at(i, j) + ty * at(i, j + 1)) + tx * ((1 - ty) * at(i + 1, j) + ty * at(i + 1, j + 1));
}

// How far adjacent colour cells overlap (plot units): enough to close the anti-aliased seam
// of raster pictures, too little to be seen.
constexpr double overlap = 2;

bool positive(const char *routine, const char *what, int v) {
  if (v > 0) return true;
  mv_warn(routine, "%s must be positive (got %d)", what, v);
  return false;
}

}  // namespace

int colour_entry(const AxisRange &r, int lo, int hi, double z) {
  if (r.log) z = z > 0 ? std::log10(z) : NAN;
  if (!std::isfinite(z) || r.e == r.a) return -1;
  double f = (z - r.a) / (r.e - r.a), eps = 1e-9;
  if (f < -eps) return std::max(0, lo - 1);
  if (f > 1 + eps) return std::min(255, hi + 1);
  return std::clamp(lo + static_cast<int>(std::clamp(f, 0.0, 1.0) * (hi - lo + 1)), lo, hi);
}

int z_colour(double z) {
  const GridState &g = mirval_state().grid;
  return colour_entry(g.z, g.colour_lo, g.colour_hi, z);
}

int matrix_size(int nx, int ny) {
  long long n = static_cast<long long>(nx) * ny;
  return static_cast<int>(std::clamp(n, static_cast<long long>(INT_MIN), static_cast<long long>(INT_MAX)));
}

extern "C" {

void graf3(float xa, float xe, float xor_, float xstp, float ya, float ye, float yor, float ystp, float za,
           float ze, float zor, float zstp) {
  mv_tracef("graf3(%g, %g, %g, %g, %g, %g, %g, %g, %g, %g, %g, %g)", (double)xa, (double)xe, (double)xor_,
            (double)xstp, (double)ya, (double)ye, (double)yor, (double)ystp, (double)za, (double)ze,
            (double)zor, (double)zstp);
  if (!mv_level("graf3", 1, 1)) return;
  MirvalState &st = mirval_state();
  AxesState &ax = st.axes;
  std::array<AxisRange, 2> r;
  AxisRange z;
  if (!axis_range("graf3", 2, za, ze, zor, zstp, ax.len[1], z)) return;
  // the X axis gives way where the bar would not fit on the page beside it
  int length = ax.len[0];
  if (st.grid.bar && st.axextra.bar_pos == 0) {
    int room = static_cast<int>(std::ceil(bar_room(z)));
    length = std::clamp(st.page.width - ax.posx - room, std::min(length, 100), length);
  }
  // a bar on the left or below moves the axis system over and shortens its axis, as far as
  // the axis can give (down to 100 units)
  int shift_x = 0, lift = 0, height = ax.len[1];
  const AxisExtraState &bx = st.axextra;
  if (st.grid.bar && bx.bar_pos == 3) {
    shift_x = static_cast<int>(std::ceil(bar_room(z)));
    shift_x = std::clamp(shift_x, 0, std::max(0, length - 100));
    length -= shift_x;
  }
  if (st.grid.bar && bx.bar_pos == 2) {
    const AxisSettings &s = ax.axis[2];
    double need = st.grid.bar_gap + st.grid.bar_width + ax.ticlen_major + s.labdis + 1.5 * st.text.height +
                  (s.name.empty() ? 0 : s.namdis + ax.hname);
    lift = std::clamp(static_cast<int>(std::ceil(need)), 0, std::max(0, height - 100));
    height -= lift;
  }
  if (!axis_range("graf3", 0, xa, xe, xor_, xstp, length, r[0]) ||
      !axis_range("graf3", 1, ya, ye, yor, ystp, height, r[1]))
    return;
  std::array<int, 3> len = ax.len;
  int posx = ax.posx, posy = ax.posy;
  ax.len[0] = length, ax.len[1] = height;
  ax.posx += shift_x, ax.posy += st.page.bottom ? lift : -lift;
  axis_system(r);
  ax.len = len, ax.posx = posx, ax.posy = posy;
  st.grid.colour_axis = true;
  st.grid.z = z;
  if (st.grid.bar) colour_bar();
}

int nzposn(float z) {
  mv_tracef("nzposn(%g)", (double)z);
  if (!colour_axis("nzposn")) return 0;
  int c = z_colour(z);
  if (c < 0) mv_warn("nzposn", "%g has no place on the Z axis", (double)z);
  return std::max(c, 0);
}

void rpoint(float x, float y, float z, int nw, int nh) {
  mv_tracef("rpoint(%g, %g, %g, %d, %d)", (double)x, (double)y, (double)z, nw, nh);
  if (!colour_axis("rpoint") || !positive("rpoint", "width", nw) || !positive("rpoint", "height", nh)) return;
  Pt p = page_point(x, y);
  int c = z_colour(z);
  if (!std::isfinite(p.x) || !std::isfinite(p.y) || c < 0) return;
  Rect clip = mirval_state().grid.cut_points ? user_clip() : plot_clip();
  colour_rect(p.x - nw / 2.0, p.y - nh / 2.0, p.x + nw / 2.0, p.y + nh / 2.0, c, clip);
}

void curve3(const float *x, const float *y, const float *z, int n) {
  mv_tracef("curve3(x=%s, y=%s, z=%s, n=%d)", mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(),
            mv_tarr(n, "floats").c_str(), n);
  if (!x || !y || !z) n = 0;
  colour_points("curve3", n, [&](int i, double &px, double &py, double &pz) { px = x[i], py = y[i], pz = z[i]; });
}

void curvx3(const float *xray, float y, const float *zray, int n) {
  mv_tracef("curvx3(xray=%s, y=%g, zray=%s, n=%d)", mv_tarr(n, "floats").c_str(), (double)y,
            mv_tarr(n, "floats").c_str(), n);
  if (!xray || !zray) n = 0;
  colour_points("curvx3", n, [&](int i, double &px, double &py, double &pz) { px = xray[i], py = y, pz = zray[i]; });
}

void curvy3(float x, const float *yray, const float *zray, int n) {
  mv_tracef("curvy3(x=%g, yray=%s, zray=%s, n=%d)", (double)x, mv_tarr(n, "floats").c_str(),
            mv_tarr(n, "floats").c_str(), n);
  if (!yray || !zray) n = 0;
  colour_points("curvy3", n, [&](int i, double &px, double &py, double &pz) { px = x, py = yray[i], pz = zray[i]; });
}

// The matrix spread over the whole axis system, each gap between matrix points divided into
// ixpts x iypts cells coloured by the value interpolated at their centres.
void crvmat(const float *zmat, int nx, int ny, int ixpts, int iypts) {
  mv_tracef("crvmat(zmat=%s, nx=%d, ny=%d, ixpts=%d, iypts=%d)", mv_tarr(matrix_size(nx, ny), "floats").c_str(), nx,
            ny, ixpts, iypts);
  if (!colour_axis("crvmat")) return;
  if (!zmat || nx < 2 || ny < 2) {
    mv_warn("crvmat", "the matrix needs at least 2 x 2 points (got %d x %d)", nx, ny);
    return;
  }
  if (!positive("crvmat", "ixpts", ixpts) || !positive("crvmat", "iypts", iypts)) return;
  double cols = double(nx - 1) * ixpts, rows = double(ny - 1) * iypts;
  if (cols * rows > 2e7) {
    mv_warn("crvmat", "%g cells are too many; lower ixpts or iypts", cols * rows);
    return;
  }
  auto colour_at = [&](int c, int r) { return z_colour(cell_value(zmat, nx, ny, (c + 0.5) / ixpts, (r + 0.5) / iypts)); };
  if (map_cells("crvmat", static_cast<int>(cols), static_cast<int>(rows), colour_at)) return;
  const Rect &b = mirval_state().axes.box;
  double w = (b.x1 - b.x0) / cols, h = (b.y1 - b.y0) / rows;
  Rect clip = user_clip();
  for (int r = 0; r < rows; ++r) {
    // cells of one colour next to each other in a row make one rectangle
    int run = 0, run_colour = -1;
    for (int c = 0; c <= cols; ++c) {
      int colour = c < cols ? colour_at(c, r) : -2;
      if (c > 0 && colour == run_colour) continue;
      if (c > 0) {
        // cells reach under their right and upper neighbours, drawn later: no seams
        double right = c < cols ? overlap : 0, up = r + 1 < rows ? overlap : 0;
        colour_rect(b.x0 + run * w, b.y1 - (r + 1) * h - up, b.x0 + c * w + right, b.y1 - r * h, run_colour, clip);
      }
      run = c;
      run_colour = colour;
    }
  }
}
void colran(int n1, int n2) {
  mv_tracef("colran(%d, %d)", n1, n2);
  if (n1 < 1 || n2 > 254 || n1 >= n2) {
    mv_warn("colran", "the colours %d..%d must lie within 1..254, the first below the last", n1, n2);
    return;
  }
  mirval_state().grid.colour_lo = n1;
  mirval_state().grid.colour_hi = n2;
}

void autres(int n1, int n2) {
  mv_tracef("autres(%d, %d)", n1, n2);
  if (!positive("autres", "number of points in X", n1) || !positive("autres", "number of points in Y", n2)) return;
  mirval_state().grid.auto_nx = n1;
  mirval_state().grid.auto_ny = n2;
}

void sclpax(int iopt) {
  mv_tracef("sclpax(%d)", iopt);
  if (iopt != 0 && iopt != 1) {
    mv_warn("sclpax", "option %d is neither 0 nor 1", iopt);
    return;
  }
  mirval_state().grid.cut_points = iopt == 1;
}

void vkxbar(int n) {
  mv_tracef("vkxbar(%d)", n);
  if (in_range("vkxbar", "distance", n, -10000, 10000)) mirval_state().grid.bar_gap = n;
}

void vkybar(int n) {
  mv_tracef("vkybar(%d)", n);
  if (in_range("vkybar", "shift", n, -10000, 10000)) mirval_state().grid.bar_shift = n;
}

void widbar(int n) {
  mv_tracef("widbar(%d)", n);
  if (in_range("widbar", "width", n, 1, 10000)) mirval_state().grid.bar_width = n;
}

void nobar(void) {
  mv_tracef("nobar()");
  mirval_state().grid.bar = false;
}

}
