// 3-D axis systems: GRAF3D places the AXIS3D box in the axis region, seen from VIEW3D, and
// draws its three labelled axes along the box edges nearest the eye; BOX3D and GRID3D add the
// box's edges and grid lines on its back walls and floor.
#include "axes/axes.h"
#include "draw/draw.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "mirval.h"
#include "axes/scaling.h"
#include "grids/surface.h"
#include "draw/text.h"
#include "core/trace.h"

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

void grow(Rect &r, const Rect &by) {
  r = {std::min(r.x0, by.x0), std::min(r.y0, by.y0), std::max(r.x1, by.x1), std::max(r.y1, by.y1)};
}

Rect around(Pt c, double w, double h) { return {c.x - w / 2, c.y - h / 2, c.x + w / 2, c.y + h / 2}; }

// A label or name centred at 'at'; 'room' is the rectangle it covers.
struct AxisText {
  std::string text, sup;
  Pt at;
  double h, angle;
  Rect room;
};

// The axes' lines and texts for the current camera, laid out before anything is drawn so that
// GRAF3D can fit the whole picture into the axis region.
struct AxesPicture {
  std::vector<std::pair<Pt, Pt>> lines;
  std::vector<AxisText> texts;
  Rect box;     // the box's corners alone: what grows with the camera's focal length
  Rect extent;  // the box with every line and text
  double gap;   // the least room between two texts

  bool free(const Rect &r) const {
    for (const AxisText &t : texts) {
      const Rect &q = t.room;
      if (r.x0 < q.x1 + gap && q.x0 < r.x1 + gap && r.y0 < q.y1 + gap && q.y0 < r.y1 + gap) return false;
    }
    return true;
  }
  void add_line(Pt a, Pt b) {
    lines.push_back({a, b});
    grow(extent, {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)});
  }
  // Puts a text down at the first place, moving outwards by steps of 'step' at most 'most',
  // where it keeps clear of the texts already there; false when there is no such place.
  bool place(AxisText t, Pt out = {}, double step = 1, double most = 0) {
    for (double shift = 0; shift <= most; shift += step) {
      Pt c{t.at.x + out.x * shift, t.at.y + out.y * shift};
      Rect r = t.room;
      r = {r.x0 + c.x - t.at.x, r.y0 + c.y - t.at.y, r.x1 + c.x - t.at.x, r.y1 + c.y - t.at.y};
      if (!free(r)) continue;
      t.at = c, t.room = r;
      texts.push_back(t);
      grow(extent, r);
      return true;
    }
    return false;
  }
};

// One axis on the page: its line from a to e, the outward direction, and the labels that keep
// apart from each other, the one at zero first.
struct AxisPlace {
  int i;
  Pt a, e, out;
  double reach;   // from the line to the labels' near side
  double beyond;  // from the line to the far side of the labels put down
  std::vector<AxisText> labels;
  size_t zeros;   // how many of them (0 or 1) stand at zero
};

// Axis i through box point 'from' along its direction; its ticks and labels go outwards (the
// page direction that box direction 'out' takes). Labels are thinned to every k-th step
// counted from zero, so that the round values stay, with the least k that keeps them apart;
// the first and last join where they fit.
AxisPlace lay_axis(AxesPicture &pic, int i, const double from[3], const double out[3]) {
  MirvalState &st = mirval_state();
  const AxisSettings &s = st.axes.axis[i];
  const AxisRange &r = st.space.range[i];
  double h = st.text.height;
  auto point = [&](double v) {  // box point of axis value v (axis units)
    double p[3] = {from[0], from[1], from[2]};
    p[i] = ((v - r.a) / (r.e - r.a) - 0.5) * st.space.box[i];
    return at(p[0], p[1], p[2]);
  };
  AxisPlace ax{i, point(r.a), point(r.e), {}, 0, 0, {}, 0};
  ax.out = unit(at(from[0], from[1], from[2]), at(from[0] + out[0], from[1] + out[1], from[2] + out[2]));
  double tick = st.axes.ticlen_major;
  ax.reach = ax.beyond = tick + s.labdis;
  pic.add_line(ax.a, ax.e);
  std::vector<AxisText> all;
  std::vector<double> steps;  // each label's value in label steps from zero
  if (st.solid.label3d == "NONE") return ax;
  for (const AxisLabel &l : axis_labels(s, r)) {
    Pt p = point(l.at);
    pic.add_line(p, {p.x + ax.out.x * tick, p.y + ax.out.y * tick});
    double w = text_length(l.text, l.sup, h);
    // half the label's extent along the outward direction keeps it clear of the ticks
    double off = ax.reach + std::fabs(ax.out.x) * w / 2 + std::fabs(ax.out.y) * h / 2;
    Pt c{p.x + ax.out.x * off, p.y + ax.out.y * off};
    all.push_back({l.text, l.sup, c, h, 0, around(c, w, h)});
    steps.push_back(r.step != 0 ? std::round(l.at / r.step) : double(all.size()));
  }
  for (int k = 1; k <= int(all.size()); ++k) {
    AxesPicture alone{{}, {}, {}, {}, pic.gap};
    std::vector<size_t> kept;
    for (size_t n = 0; n < all.size(); ++n)
      if (std::fmod(steps[n], k) == 0) kept.push_back(n);
    bool apart = true;
    for (size_t n : kept) apart = apart && alone.place(all[n]);
    if (!apart) continue;
    for (size_t n : {size_t(0), all.size() - 1})
      if (std::fmod(steps[n], k) != 0 && alone.place(all[n])) kept.push_back(n);
    auto zero = std::stable_partition(kept.begin(), kept.end(), [&](size_t n) { return steps[n] == 0; });
    ax.zeros = zero - kept.begin();
    for (size_t n : kept) ax.labels.push_back(all[n]);
    break;
  }
  return ax;
}

// Puts the axis' labels from..to down where they keep clear of every text already there, and
// leaves the others out: a label moved off its tick could be read as one of the other axis.
void place_labels(AxesPicture &pic, AxisPlace &ax, size_t from, size_t to) {
  for (size_t n = from; n < to; ++n) {
    const AxisText &t = ax.labels[n];
    if (!pic.place(t)) {
      // FLAB3D: the labels where the axes meet stay even where they come close
      if (!mirval_state().solid.flab3d || n != 0) continue;
      pic.texts.push_back(t);
      grow(pic.extent, t.room);
    }
    double across = std::fabs(ax.out.x) * (t.room.x1 - t.room.x0) + std::fabs(ax.out.y) * (t.room.y1 - t.room.y0);
    ax.beyond = std::max(ax.beyond, ax.reach + across);
  }
}

// The axis name beyond the labels, parallel to X and Y, upright along Z; it moves further out
// until it keeps clear of every label.
void lay_name(AxesPicture &pic, const AxisPlace &ax) {
  const MirvalState &st = mirval_state();
  const AxisSettings &s = st.axes.axis[ax.i];
  if (s.name.empty()) return;
  double hn = st.axes.hname, wn = text_length(s.name, "", hn);
  double w = ax.i == 2 ? hn : wn, h = ax.i == 2 ? wn : hn;
  double across = std::fabs(ax.out.x) * w + std::fabs(ax.out.y) * h;
  double off = ax.beyond + s.namdis + across / 2;
  Pt mid{(ax.a.x + ax.e.x) / 2 + ax.out.x * off, (ax.a.y + ax.e.y) / 2 + ax.out.y * off};
  AxisText t{s.name, "", mid, hn, ax.i == 2 ? 90.0 : 0.0, around(mid, w, h)};
  if (!pic.place(t, ax.out, hn / 4, 10 * hn)) {
    pic.texts.push_back(t);
    grow(pic.extent, t.room);
  }
}

// The three axes: X and Y along the lower edges that meet at the corner nearest the eye, Z
// up the vertical edge at the other end of the X axis. Where labels of two axes meet at a
// corner, one gives way: the labels at zero go down first, then those of Z (the shortest
// list), X and Y; names come last and give way to all labels.
AxesPicture lay_axes() {
  int sx, sy;
  near_sides(sx, sy);
  double hx = half(0), hy = half(1), hz = half(2);
  AxesPicture pic{{}, {}, {INFINITY, INFINITY, -INFINITY, -INFINITY}, {}, 0.5 * mirval_state().text.height};
  for (int k = 0; k < 8; ++k) {
    Pt c = at((k & 1 ? 1 : -1) * hx, (k & 2 ? 1 : -1) * hy, (k & 4 ? 1 : -1) * hz);
    grow(pic.box, {c.x, c.y, c.x, c.y});
  }
  pic.extent = pic.box;
  const double x_from[3] = {0, sy * hy, -hz}, x_out[3] = {0, double(sy), 0};
  const double y_from[3] = {sx * hx, 0, -hz}, y_out[3] = {double(sx), 0, 0};
  const double z_from[3] = {-sx * hx, sy * hy, 0}, z_out[3] = {-sx * 0.7, sy * 0.7, 0};
  AxisPlace axes[3] = {lay_axis(pic, 2, z_from, z_out), lay_axis(pic, 0, x_from, x_out),
                       lay_axis(pic, 1, y_from, y_out)};
  for (AxisPlace &ax : axes) place_labels(pic, ax, 0, ax.zeros);
  for (AxisPlace &ax : axes) place_labels(pic, ax, ax.zeros, ax.labels.size());
  for (const AxisPlace &ax : axes) lay_name(pic, ax);
  return pic;
}

void draw_axes(const AxesPicture &pic) {
  const MirvalState &st = mirval_state();
  Rgb rgb = pen_rgb();
  double width = std::max(1, st.pen.frame);
  for (auto [a, b] : pic.lines) stroke_polyline({a, b}, page_rect(), rgb, width, {});
  for (const AxisText &t : pic.texts) put_text(t.text, t.sup, t.at, t.h, t.angle, Just::Center, VAlign::Middle, rgb);
}

// Sets the camera so that the picture with its labels and names fills the region as far as
// the box's proportions allow, centred in it. The labels keep their size while the box's
// picture scales about the camera's centre, so their margins barely change: a few rounds
// settle the thinning of labels that the scale decides. VANG3D's angle other than its
// default shows the box larger or smaller than that.
void fit_camera(Camera &cam, const Rect &region) {
  double zoom = std::tan(Space3D().vang * M_PI / 360) / std::tan(mirval_state().space.vang * M_PI / 360);
  for (int round = 0; round < 3; ++round) {
    AxesPicture pic = lay_axes();
    const Rect &b = pic.box, &e = pic.extent;
    double mx = (b.x0 - e.x0) + (e.x1 - b.x1), my = (b.y0 - e.y0) + (e.y1 - b.y1);
    double s = zoom * std::min((region.x1 - region.x0 - mx) / (b.x1 - b.x0), (region.y1 - region.y0 - my) / (b.y1 - b.y0));
    if (!(s > 0) || !std::isfinite(s)) return;  // labels alone larger than the region
    Pt c = cam.centre;
    double ex = c.x + s * ((b.x0 + b.x1) / 2 - c.x) + ((e.x1 - b.x1) - (b.x0 - e.x0)) / 2;
    double ey = c.y + s * ((b.y0 + b.y1) / 2 - c.y) + ((e.y1 - b.y1) - (b.y0 - e.y0)) / 2;
    cam.focal *= s;
    cam.centre = {c.x + (region.x0 + region.x1) / 2 - ex, c.y + (region.y0 + region.y1) / 2 - ey};
  }
}

// The region a 3-D picture may fill. A box seen in perspective is about as high as it is wide,
// so in a region wider than that the picture would leave most of it empty: the region grows
// upwards and downwards, centred where it was, as far as the width asks for and the page
// allows (keeping room above for the title lines), so that the picture fills the region's
// width as a 2-D axis system does.
Rect grown_region(Rect region) {
  const MirvalState &st = mirval_state();
  AxesPicture pic = lay_axes();
  const Rect &e = pic.extent;
  double ew = e.x1 - e.x0, eh = e.y1 - e.y0, rw = region.x1 - region.x0, rh = region.y1 - region.y0;
  if (!(ew > 0) || !(eh > 0) || !(rw > 0) || !(rh > 0)) return region;
  double want = rw * eh / ew;
  if (want <= rh) return region;
  int lines = 0;
  for (const std::string &t : st.axes.title) lines += !t.empty();
  double top = 40 + (lines ? (lines * 1.6 + 0.5) * st.axes.htitle + st.axes.vkytit : 0);
  double bottom = st.page.height - 40;
  if (region.y0 < top || region.y1 > bottom) return region;  // placed off the usual page area
  double h = std::min(want, bottom - top), mid = (region.y0 + region.y1) / 2;
  double y0 = std::min(std::max(top, mid - h / 2), bottom - h);
  return {region.x0, y0, region.x1, y0 + h};
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
  // VFOC3D: the camera looks at the focus instead of the box centre
  double focus[3];
  for (int k = 0; k < 3; ++k) focus[k] = sp.focus_user ? box_coord(k, sp.focus[k]) : sp.focus[k];
  double rel[3] = {eye[0] - focus[0], eye[1] - focus[1], eye[2] - focus[2]};
  if (!std::isfinite(rel[0] + rel[1] + rel[2]) || !(std::sqrt(rel[0] * rel[0] + rel[1] * rel[1] + rel[2] * rel[2]) > 1e-9)) {
    for (int k = 0; k < 3; ++k) focus[k] = 0, rel[k] = eye[k];
  }
  auto make = [&](const Rect &reg) {
    double focal = std::min(reg.x1 - reg.x0, reg.y1 - reg.y0) / 2 / std::tan(sp.vang * M_PI / 360);
    Camera c = make_camera(rel, sp.vup, {(reg.x0 + reg.x1) / 2, (reg.y0 + reg.y1) / 2}, focal);
    for (int k = 0; k < 3; ++k) c.eye[k] = eye[k];
    c.ortho = sp.ortho;
    c.dist = std::sqrt(rel[0] * rel[0] + rel[1] * rel[1] + rel[2] * rel[2]);
    return c;
  };
  sp.cam = make(region);
  region = grown_region(region);
  sp.cam = make(region);
  fit_camera(sp.cam, region);
  if (sp.vscale != 1) {
    sp.cam.focal *= sp.vscale;
    Pt c = sp.cam.centre, m{(region.x0 + region.x1) / 2, (region.y0 + region.y1) / 2};
    sp.cam.centre = {m.x + (c.x - m.x) * sp.vscale, m.y + (c.y - m.y) * sp.vscale};
  }
  ++st.solid.generation;
  AxesPicture pic = lay_axes();
  draw_axes(pic);
  st.axes.box = pic.extent;
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
