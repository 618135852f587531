// 2-D drawing on a plane in 3-D space (GRFINI, GRFFIN): the page is laid onto a plane of the
// box, so that a 2-D axis system with its curves, texts and fills stands among the solids and
// is hidden where they are in front of it. Between the two calls the level is that of a page,
// so that 2-D axis systems can be made; GRFFIN takes the items drawn meanwhile, maps them
// point by point onto the plane (straight lines stay straight, texts keep their shape as far
// as the view lets them) and hands them to the depth group.
#include "core/messages.h"
#include "core/trace.h"
#include "grids/surface.h"
#include "mirval.h"
#include "solids/render3d.h"

#include <cmath>

using s3::V3;

namespace {

SolidState &sol() { return mirval_state().solid; }

// Box point of a page point: the page's lower left corner lies on plane[0], its lower right
// on plane[1] and its upper right on plane[2].
V3 on_plane(Pt q) {
  const MirvalState &st = mirval_state();
  const double(*c)[3] = st.solid.plane;
  double s = q.x / st.page.width, t = 1 - q.y / st.page.height;
  V3 a{c[0][0], c[0][1], c[0][2]}, b{c[1][0], c[1][1], c[1][2]}, e{c[2][0], c[2][1], c[2][2]};
  return a + (b - a) * s + (e - b) * t;
}

Pt seen(Pt q) {
  V3 p = on_plane(q);
  double b[3] = {p.x, p.y, p.z};
  return project(mirval_state().space.cam, b);
}

// A text run keeps its baseline and letter shapes as the plane's view near its start bends
// them: the run's frame (size, turn, lean and width of letters) is carried through the
// mapping's derivative there.
void map_text(Item &it) {
  double h = std::max(it.size, 1e-3);
  Pt o = seen(it.at), ex = seen({it.at.x + h, it.at.y}), ey = seen({it.at.x, it.at.y + h});
  double j[2][2] = {{(ex.x - o.x) / h, (ey.x - o.x) / h}, {(ex.y - o.y) / h, (ey.y - o.y) / h}};
  // the run's frame on the page (y downwards): turn by -angle, then lean and width
  double a = -it.angle * M_PI / 180, ca = std::cos(a), sa = std::sin(a), tn = std::tan(it.slant * M_PI / 180);
  double r[2][2] = {{ca, -sa}, {sa, ca}}, u[2][2] = {{it.stretch, -tn}, {0, 1}}, f[2][2], g[2][2];
  for (int i = 0; i < 2; ++i)
    for (int k = 0; k < 2; ++k) f[i][k] = r[i][0] * u[0][k] + r[i][1] * u[1][k];
  for (int i = 0; i < 2; ++i)
    for (int k = 0; k < 2; ++k) g[i][k] = j[i][0] * f[0][k] + j[i][1] * f[1][k];
  // split the mapped frame again into a turn and an upper triangle
  double turn = std::atan2(g[1][0], g[0][0]), ct = std::cos(turn), st = std::sin(turn);
  double u00 = ct * g[0][0] + st * g[1][0], u01 = ct * g[0][1] + st * g[1][1], u11 = -st * g[0][1] + ct * g[1][1];
  double k = std::fabs(u11);
  if (!(k > 1e-6) || !std::isfinite(o.x) || !std::isfinite(o.y)) {
    it.text.clear();  // seen edge on or behind the eye
    return;
  }
  it.at = o;
  it.size *= k;
  it.angle = -turn * 180 / M_PI;
  it.stretch = u00 / k;
  it.slant = std::max(-80.0, std::min(80.0, std::atan(-u01 / k) * 180 / M_PI));
}

// The item on the plane; false when it cannot be shown there.
bool map_item(Item &it) {
  if (it.kind == ItemKind::Image) return false;  // pictures stay flat: not carried over
  if (it.kind == ItemKind::Text) {
    map_text(it);
    return !it.text.empty();
  }
  for (Pt &q : it.path.pts) {
    q = seen(q);
    if (!std::isfinite(q.x) || !std::isfinite(q.y)) return false;
  }
  return true;
}

}  // namespace

extern "C" {

void grfini(float x1, float y1, float z1, float x2, float y2, float z2, float x3, float y3, float z3) {
  mv_tracef("grfini(%g, %g, %g, %g, %g, %g, %g, %g, %g)", (double)x1, (double)y1, (double)z1, (double)x2, (double)y2,
            (double)z2, (double)x3, (double)y3, (double)z3);
  if (!mv_level("grfini", 3, 3)) return;
  const float p[3][3] = {{x1, y1, z1}, {x2, y2, z2}, {x3, y3, z3}};
  for (const float *q : p)
    if (!std::isfinite(q[0]) || !std::isfinite(q[1]) || !std::isfinite(q[2]) ||
        std::fabs(q[0]) + std::fabs(q[1]) + std::fabs(q[2]) > 1e30) {
      mv_warn("grfini", "the corners must be finite (got %g, %g, %g)", (double)q[0], (double)q[1], (double)q[2]);
      return;
    }
  V3 a{x1, y1, z1}, b{x2, y2, z2}, c{x3, y3, z3};
  V3 n = s3::cross(b - a, c - b);
  if (!(s3::dot(n, n) > 1e-12 * s3::dot(b - a, b - a) * s3::dot(c - b, c - b))) {
    mv_warn("grfini", "the three corners lie on one line");
    return;
  }
  MirvalState &st = mirval_state();
  SolidState &s = st.solid;
  for (int i = 0; i < 3; ++i)
    for (int k = 0; k < 3; ++k) s.plane[i][k] = p[i][k];
  if (st.scene.pages.empty()) st.scene.pages.emplace_back();
  s.plane_page = st.scene.pages.size() - 1;
  s.plane_mark = st.scene.current().items.size();
  const Rect &r = st.axes.box;
  s.plane_box[0] = r.x0, s.plane_box[1] = r.y0, s.plane_box[2] = r.x1, s.plane_box[3] = r.y1;
  s.plane_on = true;
  st.level = 1;
}

void grffin(void) {
  mv_tracef("grffin()");
  MirvalState &st = mirval_state();
  SolidState &s = st.solid;
  if (!s.plane_on) {
    mv_warn("grffin", "no plane is open (GRFINI)");
    return;
  }
  if (!mv_level("grffin", 1, 2)) return;
  s.plane_on = false;
  st.level = 3;
  Rect &r = st.axes.box;
  r = {s.plane_box[0], s.plane_box[1], s.plane_box[2], s.plane_box[3]};
  if (st.scene.pages.size() != s.plane_page + 1) return;  // a new page since: nothing to carry
  std::vector<Item> &items = st.scene.current().items;
  if (items.size() <= s.plane_mark) return;
  std::vector<Item> drawn(std::make_move_iterator(items.begin() + long(s.plane_mark)), std::make_move_iterator(items.end()));
  items.resize(s.plane_mark);
  ++st.scene.changes;
  std::vector<Item> mapped;
  for (Item &it : drawn)
    if (map_item(it)) mapped.push_back(std::move(it));
  V3 corner[4];
  for (int k = 0; k < 3; ++k) corner[k] = {s.plane[k][0], s.plane[k][1], s.plane[k][2]};
  corner[3] = corner[0] + corner[2] - corner[1];
  if (!s3::begin("grffin")) return;
  s3::card(corner, std::move(mapped));
  s3::end();
}

int getplv(void) {
  mv_tracef("getplv()");
  return sol().plane_on ? 1 : 0;
}

}  // extern "C"
