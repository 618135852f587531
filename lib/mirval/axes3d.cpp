// 3-D axis systems: GRAF3D places the AXIS3D box in the axis region, seen from VIEW3D, and
// draws its three labelled axes along the box edges nearest the eye; BOX3D and GRID3D add the
// box's edges and grid lines on its back walls and floor.
#include "axes.h"
#include "draw.h"
#include "keywords.h"
#include "messages.h"
#include "mirval.h"
#include "scaling.h"
#include "surface.h"
#include "text.h"
#include "trace.h"

#include <algorithm>
#include <cmath>

namespace {

// The eye in box coordinates, as VIEW3D gives it: 'ABS' box coordinates, 'USER' user
// coordinates, 'ANGLE' azimuth (from the front, -Y, towards +X), elevation and distance.
void eye_point(double eye[3]) {
  const Space3D &sp = mirval_state().space;
  const float *v = sp.view;
  if (sp.view_mode == "USER") {
    for (int k = 0; k < 3; ++k) eye[k] = box_coord(k, v[k]);
  } else if (sp.view_mode == "ANGLE") {
    double az = v[0] * M_PI / 180, el = v[1] * M_PI / 180;
    eye[0] = v[2] * std::cos(el) * std::sin(az);
    eye[1] = -v[2] * std::cos(el) * std::cos(az);
    eye[2] = v[2] * std::sin(el);
  } else {
    for (int k = 0; k < 3; ++k) eye[k] = v[k];
  }
}

double half(int k) { return mirval_state().space.box[k] / 2; }

// Which end of each horizontal box direction is nearer the eye (-1 or +1).
void near_sides(int &sx, int &sy) {
  const Camera &c = mirval_state().space.cam;
  sx = c.eye[0] >= 0 ? 1 : -1;
  sy = c.eye[1] >= 0 ? 1 : -1;
}

Pt at(double x, double y, double z) {
  double p[3] = {x, y, z};
  return project(mirval_state().space.cam, p);
}

Pt unit(Pt a, Pt b) {
  double d = std::hypot(b.x - a.x, b.y - a.y);
  return d > 0 ? Pt{(b.x - a.x) / d, (b.y - a.y) / d} : Pt{0, 1};
}

// Axis i drawn through box point 'from' along its direction; ticks, labels and name go
// outwards (the page direction that box direction 'out' takes). 'extent' grows to cover them.
void draw_axis(int i, const double from[3], const double out[3], Rect &extent) {
  MirvalState &st = mirval_state();
  const AxisSettings &s = st.axes.axis[i];
  const AxisRange &r = st.space.range[i];
  Rgb rgb = pen_rgb();
  double width = std::max(1, st.pen.frame), h = st.text.height;
  auto point = [&](double v) {  // box point of axis value v (axis units)
    double p[3] = {from[0], from[1], from[2]};
    p[i] = ((v - r.a) / (r.e - r.a) - 0.5) * st.space.box[i];
    return at(p[0], p[1], p[2]);
  };
  Pt a = point(r.a), e = point(r.e);
  Pt centre = at(from[0], from[1], from[2]);
  Pt outward = unit(centre, at(from[0] + out[0], from[1] + out[1], from[2] + out[2]));
  Rect page = page_rect();
  stroke_polyline({a, e}, page, rgb, width, {});
  auto grow = [&](Pt p) {
    extent.x0 = std::min(extent.x0, p.x), extent.x1 = std::max(extent.x1, p.x);
    extent.y0 = std::min(extent.y0, p.y), extent.y1 = std::max(extent.y1, p.y);
  };
  grow(a), grow(e);
  double tick = st.axes.ticlen_major, reach = tick + s.labdis;
  double widest = 0;
  Pt last{NAN, NAN};
  for (const AxisLabel &l : axis_labels(s, r)) {
    Pt p = point(l.at);
    stroke_polyline({p, {p.x + outward.x * tick, p.y + outward.y * tick}}, page, rgb, width, {});
    double w = text_length(l.text, l.sup, h);
    // half the label's extent along the outward direction keeps it clear of the ticks
    double off = reach + std::fabs(outward.x) * w / 2 + std::fabs(outward.y) * h / 2;
    Pt c{p.x + outward.x * off, p.y + outward.y * off};
    if (std::isfinite(last.x) && std::fabs(c.x - last.x) < w + 0.6 * h && std::fabs(c.y - last.y) < 1.4 * h) continue;
    put_text(l.text, l.sup, c, h, 0, Just::Center, VAlign::Middle, rgb);
    grow({c.x - w / 2, c.y - h}), grow({c.x + w / 2, c.y + h});
    widest = std::max(widest, std::fabs(outward.x) * w + std::fabs(outward.y) * h);
    last = c;
  }
  if (s.name.empty()) return;
  double angle = i == 2 ? 90 : 0, hn = st.axes.hname, wn = text_length(s.name, "", hn);
  double across = i == 2 ? std::fabs(outward.x) * hn + std::fabs(outward.y) * wn
                         : std::fabs(outward.x) * wn + std::fabs(outward.y) * hn;
  double off = reach + widest + s.namdis + across / 2;
  Pt mid{(a.x + e.x) / 2 + outward.x * off, (a.y + e.y) / 2 + outward.y * off};
  put_text(s.name, "", mid, hn, angle, Just::Center, VAlign::Middle, rgb);
  grow({mid.x - across / 2, mid.y - hn}), grow({mid.x + across / 2, mid.y + hn});
}

// The three axes: X and Y along the lower edges that meet at the corner nearest the eye, Z
// up the vertical edge at the other end of the X axis.
Rect draw_axes() {
  int sx, sy;
  near_sides(sx, sy);
  double hx = half(0), hy = half(1), hz = half(2);
  Rect extent{INFINITY, INFINITY, -INFINITY, -INFINITY};
  for (int k = 0; k < 8; ++k) {
    Pt c = at((k & 1 ? 1 : -1) * hx, (k & 2 ? 1 : -1) * hy, (k & 4 ? 1 : -1) * hz);
    extent = {std::min(extent.x0, c.x), std::min(extent.y0, c.y), std::max(extent.x1, c.x), std::max(extent.y1, c.y)};
  }
  const double x_from[3] = {0, sy * hy, -hz}, x_out[3] = {0, double(sy), 0};
  const double y_from[3] = {sx * hx, 0, -hz}, y_out[3] = {double(sx), 0, 0};
  const double z_from[3] = {-sx * hx, sy * hy, 0}, z_out[3] = {-sx * 0.7, sy * 0.7, 0};
  draw_axis(0, x_from, x_out, extent);
  draw_axis(1, y_from, y_out, extent);
  draw_axis(2, z_from, z_out, extent);
  return extent;
}

// Lines across one wall of the box: the wall where box axis 'fixed' is at 'side', lines at
// the grid values of axis 'along' running in the direction of axis 'across'.
void wall_lines(int fixed, double side, int along, int across, int n) {
  if (n <= 0) return;
  const Space3D &sp = mirval_state().space;
  AxisRange fine = sp.range[along];
  fine.step = std::fabs(fine.step) / n;
  for (double v : label_values(fine)) {
    double p[3], q[3];
    p[fixed] = q[fixed] = side;
    p[along] = q[along] = ((v - fine.a) / (fine.e - fine.a) - 0.5) * sp.box[along];
    p[across] = -half(across), q[across] = half(across);
    stroke_polyline({project(sp.cam, p), project(sp.cam, q)}, user_clip());
  }
}

}  // namespace

extern "C" {

void graf3d(float xa, float xe, float xor_, float xstp, float ya, float ye, float yor, float ystp, float za, float ze,
            float zor, float zstp) {
  mv_tracef("graf3d(%g, %g, %g, %g, %g, %g, %g, %g, %g, %g, %g, %g)", (double)xa, (double)xe, (double)xor_,
            (double)xstp, (double)ya, (double)ye, (double)yor, (double)ystp, (double)za, (double)ze, (double)zor,
            (double)zstp);
  if (!mv_level("graf3d", 1, 1)) return;
  MirvalState &st = mirval_state();
  Space3D &sp = st.space;
  const float given[3][4] = {{xa, xe, xor_, xstp}, {ya, ye, yor, ystp}, {za, ze, zor, zstp}};
  std::array<AxisRange, 3> r;
  for (int i = 0; i < 3; ++i)  // an axis as long as the box side would be on the page
    if (!axis_range("graf3d", i, given[i][0], given[i][1], given[i][2], given[i][3], 300.0 * sp.box[i], r[i])) return;
  sp.range = r;
  Rect region = placed_box();
  double eye[3];
  eye_point(eye);
  double eye_distance = std::sqrt(eye[0] * eye[0] + eye[1] * eye[1] + eye[2] * eye[2]);
  double box_radius = std::sqrt(sp.box[0] * sp.box[0] + sp.box[1] * sp.box[1] + sp.box[2] * sp.box[2]) / 2;
  if (!(eye_distance > box_radius)) {
    mv_warn("graf3d", "the view point (%g, %g, %g) lies inside the box", eye[0], eye[1], eye[2]);
    return;
  }
  double focal = std::min(region.x1 - region.x0, region.y1 - region.y0) / 2 / std::tan(sp.vang * M_PI / 360);
  sp.cam = make_camera(eye, sp.vup, {(region.x0 + region.x1) / 2, (region.y0 + region.y1) / 2}, focal);
  st.axes.box = region;
  st.axes.box = draw_axes();
  st.axes.title_room = 0;
  st.grid.colour_axis = true;
  st.grid.z = r[2];
  st.level = 3;
}

void box3d(void) {
  mv_tracef("box3d()");
  if (!mv_level("box3d", 3, 3)) return;
  // the twelve edges, less the three that meet at the corner hidden behind the box
  const Camera &c = mirval_state().space.cam;
  double h[3] = {half(0), half(1), half(2)};
  int hidden[3];
  for (int k = 0; k < 3; ++k) hidden[k] = c.eye[k] >= 0 ? -1 : 1;
  bool outside = std::fabs(c.eye[0]) > h[0] || std::fabs(c.eye[1]) > h[1] || std::fabs(c.eye[2]) > h[2];
  for (int axis = 0; axis < 3; ++axis)
    for (int s1 : {-1, 1})
      for (int s2 : {-1, 1}) {
        int o1 = (axis + 1) % 3, o2 = (axis + 2) % 3;
        if (outside && s1 == hidden[o1] && s2 == hidden[o2]) continue;
        double p[3], q[3];
        p[o1] = q[o1] = s1 * h[o1];
        p[o2] = q[o2] = s2 * h[o2];
        p[axis] = -h[axis], q[axis] = h[axis];
        stroke_polyline({project(c, p), project(c, q)}, page_rect());
      }
}

void grid3d(int n1, int n2, const char *c) {
  mv_tracef("grid3d(%d, %d, %s)", n1, n2, mv_tstr(c).c_str());
  if (!mv_level("grid3d", 3, 3)) return;
  if (!in_range("grid3d", "number of lines", n1, 0, 100) || !in_range("grid3d", "number of lines", n2, 0, 100)) return;
  bool all = same(c, "ALL"), back = all || same(c, "BACK"), bottom = all || same(c, "BOTTOM");
  if (!back && !bottom) {
    mv_warn("grid3d", "unknown walls %s (ALL, BACK or BOTTOM)", mv_tstr(c).c_str());
    return;
  }
  int sx, sy;
  near_sides(sx, sy);
  if (bottom) {
    wall_lines(2, -half(2), 0, 1, n1);
    wall_lines(2, -half(2), 1, 0, n2);
  }
  if (back) {
    wall_lines(1, -sy * half(1), 0, 2, n1);  // the wall behind, across X
    wall_lines(1, -sy * half(1), 2, 0, n2);
    wall_lines(0, -sx * half(0), 1, 2, n1);  // the wall behind, across Y
    wall_lines(0, -sx * half(0), 2, 1, n2);
  }
}

void vang3d(float x) {
  mv_tracef("vang3d(%g)", (double)x);
  if (in_range("vang3d", "view angle", x, 1, 170)) mirval_state().space.vang = x;
}

void vup3d(float x) {
  mv_tracef("vup3d(%g)", (double)x);
  if (in_range("vup3d", "angle", x, -360, 360)) mirval_state().space.vup = x;
}

}
