// Surfaces on a 3-D axis system: SURFCE draws the grid with its hidden lines removed, SURSHD
// fills the cells in colours of the Z axis with hidden parts removed; both paint the cells
// back to front, each over what it hides.
#include "grids/surface.h"
#include "grids/colour_matrix.h"
#include "draw/colours.h"
#include "output/device.h"
#include "draw/draw.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "mirval.h"
#include "axes/scaling.h"
#include "core/trace.h"
#include "solids/surfaces3d.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

double dot(const double *a, const double *b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

void cross(const double *a, const double *b, double *out) {
  out[0] = a[1] * b[2] - a[2] * b[1];
  out[1] = a[2] * b[0] - a[0] * b[2];
  out[2] = a[0] * b[1] - a[1] * b[0];
}

bool normalise(double *a) {
  double n = std::sqrt(dot(a, a));
  if (!(n > 1e-12)) return false;
  for (int k = 0; k < 3; ++k) a[k] /= n;
  return true;
}

// Indexes 0..n-2 of the gaps between sorted coordinates, farthest from e first.
std::vector<int> far_first(const std::vector<double> &c, double e) {
  std::vector<int> idx(c.size() > 1 ? c.size() - 1 : 0);
  std::iota(idx.begin(), idx.end(), 0);
  auto distance = [&](int k) {
    double lo = std::min(c[k], c[k + 1]), hi = std::max(c[k], c[k + 1]);
    return e < lo ? lo - e : e > hi ? e - hi : 0.0;
  };
  std::stable_sort(idx.begin(), idx.end(), [&](int a, int b) { return distance(a) > distance(b); });
  return idx;
}

}  // namespace

Camera make_camera(const double eye[3], double vup, Pt centre, double focal) {
  Camera c;
  for (int k = 0; k < 3; ++k) c.eye[k] = eye[k], c.w[k] = -eye[k];
  if (!normalise(c.w)) c.w[0] = 0, c.w[1] = 1, c.w[2] = 0;
  const double zup[3] = {0, 0, 1}, yup[3] = {0, 1, 0};
  cross(c.w, zup, c.u);
  if (!normalise(c.u)) {  // looking straight down or up: Y is up in the picture
    cross(c.w, yup, c.u);
    normalise(c.u);
  }
  cross(c.u, c.w, c.v);
  double t = vup * M_PI / 180, ct = std::cos(t), st = std::sin(t);
  for (int k = 0; k < 3; ++k) {
    double u = c.u[k], v = c.v[k];
    c.u[k] = ct * u - st * v;
    c.v[k] = st * u + ct * v;
  }
  c.centre = centre;
  c.focal = focal;
  return c;
}

double depth(const Camera &c, const double p[3]) {
  double d[3] = {p[0] - c.eye[0], p[1] - c.eye[1], p[2] - c.eye[2]};
  return dot(d, c.w);
}

Pt project(const Camera &c, const double p[3]) {
  double d[3] = {p[0] - c.eye[0], p[1] - c.eye[1], p[2] - c.eye[2]};
  double w = c.ortho ? c.dist : dot(d, c.w);
  if (!(w > 1e-9)) return {NAN, NAN};
  return {c.centre.x + c.focal * dot(d, c.u) / w, c.centre.y - c.focal * dot(d, c.v) / w};
}

std::vector<std::pair<int, int>> cell_order(const std::vector<double> &xs, const std::vector<double> &ys, double ex,
                                            double ey) {
  std::vector<std::pair<int, int>> out;
  std::vector<int> cols = far_first(xs, ex), rows = far_first(ys, ey);
  out.reserve(cols.size() * rows.size());
  for (int j : rows)
    for (int i : cols) out.push_back({i, j});
  return out;
}

double box_coord(int i, double v) {
  const Space3D &sp = mirval_state().space;
  const AxisRange &r = sp.range[i];
  if (r.log) v = v > 0 ? std::log10(v) : NAN;
  return ((v - r.a) / (r.e - r.a) - 0.5) * sp.box[i];
}

Pt project_user(double x, double y, double z) {
  double p[3] = {box_coord(0, x), box_coord(1, y), box_coord(2, z)};
  return project(mirval_state().space.cam, p);
}

namespace {

bool surface_ok(const char *routine, const float *x, int nx, const float *y, int ny, const float *z) {
  if (!mv_level(routine, 3, 3)) return false;
  if (!x || !y || !z || nx < 2 || ny < 2) {
    mv_warn(routine, "the matrix needs at least 2 x 2 points (nx = %d, ny = %d)", nx, ny);
    return false;
  }
  return true;
}

// The grid in box coordinates, and each cell's corners on the page, drawn back to front.
struct Surface {
  int nx, ny;
  std::vector<double> bx, by, bz;  // bz[i * ny + j]
  std::vector<Pt> page;

  Surface(const float *x, int nx_, const float *y, int ny_, const float *z) : nx(nx_), ny(ny_) {
    for (int i = 0; i < nx; ++i) bx.push_back(box_coord(0, x[i]));
    for (int j = 0; j < ny; ++j) by.push_back(box_coord(1, y[j]));
    const Camera &cam = mirval_state().space.cam;
    for (int i = 0; i < nx; ++i)
      for (int j = 0; j < ny; ++j) {
        bz.push_back(box_coord(2, z[long(i) * ny + j]));
        double p[3] = {bx[i], by[j], bz.back()};
        page.push_back(project(cam, p));
      }
  }
  // The cell's corners on the page counter-clockwise in the grid; false where one is missing.
  bool corners(int i, int j, std::vector<Pt> &q) const {
    long k[4] = {long(i) * ny + j, long(i + 1) * ny + j, long(i + 1) * ny + j + 1, long(i) * ny + j + 1};
    q.clear();
    for (long n : k) {
      if (!std::isfinite(page[n].x) || !std::isfinite(page[n].y)) return false;
      q.push_back(page[n]);
    }
    return true;
  }
  // Whether the upper side of the cell (the one facing +Z) faces the eye.
  bool top_visible(int i, int j) const {
    const Camera &cam = mirval_state().space.cam;
    auto at = [&](int a, int b, double *p) { p[0] = bx[a], p[1] = by[b], p[2] = bz[long(a) * ny + b]; };
    double p00[3], p10[3], p11[3], p01[3], d1[3], d2[3], n[3], view[3];
    at(i, j, p00), at(i + 1, j, p10), at(i + 1, j + 1, p11), at(i, j + 1, p01);
    for (int k = 0; k < 3; ++k) d1[k] = p11[k] - p00[k], d2[k] = p01[k] - p10[k];
    cross(d1, d2, n);
    // the grid's own orientation decides which side is the upper one
    double orient = (bx[i + 1] - bx[i]) * (by[j + 1] - by[j]);
    for (int k = 0; k < 3; ++k) view[k] = cam.eye[k] - (p00[k] + p11[k]) / 2;
    return dot(n, view) * orient > 0;
  }
  std::vector<std::pair<int, int>> order() const {
    const Camera &cam = mirval_state().space.cam;
    return cell_order(bx, by, cam.eye[0], cam.eye[1]);
  }
};

Rgb side_colour(int entry) { return entry < 0 ? pen_rgb() : table_rgb(entry); }

// Draws the grid surface: every cell filled with the background, over what it hides, and
// outlined in the colour of the side that faces the eye (SURCLR) when SURVIS shows that side.
void grid_surface(const Surface &s) {
  const MirvalState &st = mirval_state();
  const Space3D &sp = st.space;
  Rect clip = user_clip();
  bool show_top = sp.visible != "BOTTOM", show_bottom = sp.visible != "TOP";
  Rgb top = side_colour(sp.top), bottom = side_colour(sp.bottom), paper = back_rgb();
  std::vector<Pt> q;
  for (auto [i, j] : s.order()) {
    if (!s.corners(i, j, q)) continue;
    Path p = fit_path(closed_path(q), clip, true);
    fill_path(p, paper);
    bool up = s.top_visible(i, j);
    if (up ? show_top : show_bottom) stroke_path(p, up ? top : bottom, st.pen.width, st.pen.dash);
  }
}

// Fills every cell in the colour of its mean Z value, back to front; SURMSH adds the grid.
void shaded_surface(const Surface &s) {
  const MirvalState &st = mirval_state();
  Rect clip = user_clip();
  std::vector<Pt> q;
  for (auto [i, j] : s.order()) {
    if (!s.corners(i, j, q)) continue;
    double z = 0;
    for (long k : {long(i) * s.ny + j, long(i + 1) * s.ny + j, long(i + 1) * s.ny + j + 1, long(i) * s.ny + j + 1})
      z += s.bz[k] / 4;
    const Space3D &sp = st.space;
    const AxisRange &r = sp.range[2];
    double user = r.a + (z / sp.box[2] + 0.5) * (r.e - r.a);  // back to axis units
    int c = colour_entry(AxisRange{r.a, r.e, r.a, 1, false}, st.grid.colour_lo, st.grid.colour_hi, user);
    if (c < 0) continue;
    Path cell = fit_path(closed_path(q), clip, true);
    fill_cell(cell, table_rgb(c));
    if (sp.mesh) stroke_path(cell, pen_rgb(), st.pen.width, st.pen.dash);
  }
}

}  // namespace

extern "C" {

void surfce(const float *xray, int nx, const float *yray, int ny, const float *zmat) {
  mv_tracef("surfce(xray=%s, nx=%d, yray=%s, ny=%d, zmat=%s)", mv_tarr(nx, "floats").c_str(), nx,
            mv_tarr(ny, "floats").c_str(), ny, mv_tarr(matrix_size(nx, ny), "floats").c_str());
  if (!surface_ok("surfce", xray, nx, yray, ny, zmat)) return;
  if (mirval_state().solid.shlsur) {  // SHLSUR: the surface joins the depth group and hides what comes later
    if (!s3::begin("surfce")) return;
    std::vector<s3::V3> p(size_t(nx) * ny);
    for (int i = 0; i < nx; ++i)
      for (int j = 0; j < ny; ++j) p[size_t(i) * ny + j] = s3::user_to_box({xray[i], yray[j], zmat[size_t(i) * ny + j]});
    s3::grid_mesh(p, nx, ny, {back_rgb()}, false, 1, 1, true);
    s3::end();
    return;
  }
  grid_surface(Surface(xray, nx, yray, ny, zmat));
}

void surshd(const float *xray, int nx, const float *yray, int ny, const float *zmat) {
  mv_tracef("surshd(xray=%s, nx=%d, yray=%s, ny=%d, zmat=%s)", mv_tarr(nx, "floats").c_str(), nx,
            mv_tarr(ny, "floats").c_str(), ny, mv_tarr(matrix_size(nx, ny), "floats").c_str());
  if (!surface_ok("surshd", xray, nx, yray, ny, zmat)) return;
  // with lighting on the surface is lit and smooth, hidden parts removed by the depth group
  if (mirval_state().solid.lighting) s3::lit_surface("surshd", xray, nx, yray, ny, zmat, nullptr);
  else shaded_surface(Surface(xray, nx, yray, ny, zmat));
}

// The grid surface of a matrix spread over the X and Y ranges, every ixpts-th line along X
// and every iypts-th along Y.
void surmat(const float *zmat, int nx, int ny, int ixpts, int iypts) {
  mv_tracef("surmat(zmat=%s, nx=%d, ny=%d, ixpts=%d, iypts=%d)", mv_tarr(matrix_size(nx, ny), "floats").c_str(), nx,
            ny, ixpts, iypts);
  const Space3D &sp = mirval_state().space;
  std::vector<float> x = spread_over(sp.range[0], nx), y = spread_over(sp.range[1], ny);
  if (!surface_ok("surmat", x.data(), nx, y.data(), ny, zmat)) return;
  if (ixpts < 1 || iypts < 1) {
    mv_warn("surmat", "steps must be positive (got %d, %d)", ixpts, iypts);
    return;
  }
  std::vector<float> xs, ys, zs;
  std::vector<int> is, js;
  for (int i = 0; i < nx; i += ixpts) is.push_back(i);
  for (int j = 0; j < ny; j += iypts) js.push_back(j);
  if (is.back() != nx - 1) is.push_back(nx - 1);
  if (js.back() != ny - 1) js.push_back(ny - 1);
  for (int i : is) xs.push_back(x[i]);
  for (int j : js) ys.push_back(y[j]);
  for (int i : is)
    for (int j : js) zs.push_back(zmat[long(i) * ny + j]);
  grid_surface(Surface(xs.data(), int(xs.size()), ys.data(), int(ys.size()), zs.data()));
}

void surclr(int n1, int n2) {
  mv_tracef("surclr(%d, %d)", n1, n2);
  if (!in_range("surclr", "colour", n1, -1, 255) || !in_range("surclr", "colour", n2, -1, 255)) return;
  mirval_state().space.top = n1;
  mirval_state().space.bottom = n2;
}

void surmsh(const char *c) {
  mv_tracef("surmsh(%s)", mv_tstr(c).c_str());
  std::string s = upper(c);
  if (s == "ON" || s == "OFF") mirval_state().space.mesh = s == "ON";
  else mv_warn("surmsh", "unknown option %s (ON or OFF)", mv_tstr(c).c_str());
}

void survis(const char *c) {
  mv_tracef("survis(%s)", mv_tstr(c).c_str());
  std::string s = upper(c);
  if (s == "TOP" || s == "BOTTOM" || s == "BOTH") mirval_state().space.visible = s;
  else mv_warn("survis", "unknown side %s (TOP, BOTTOM or BOTH)", mv_tstr(c).c_str());
}

}
