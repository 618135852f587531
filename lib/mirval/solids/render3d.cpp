// The depth group: hidden-surface removal for everything drawn in 3-D on one axis system.
#include "solids/render3d.h"
#include "axes/scaling.h"
#include "core/messages.h"
#include "draw/draw.h"
#include "grids/surface.h"
#include "output/device.h"
#include "output/render.h"

#include <algorithm>
#include <cmath>

namespace s3 {

namespace {

SolidState &sol() { return mirval_state().solid; }
const Camera &cam() { return mirval_state().space.cam; }

V3 eye() { return {cam().eye[0], cam().eye[1], cam().eye[2]}; }
V3 look() { return {cam().w[0], cam().w[1], cam().w[2]}; }

// Axis scale: box units per user unit (linear axes; log axes at their point).
double axis_scale(int i) {
  const Space3D &sp = mirval_state().space;
  const AxisRange &r = sp.range[i];
  double span = r.e - r.a;
  return span != 0 ? sp.box[i] / span : 1;
}

}  // namespace

V3 transform(V3 u) {
  const SolidState &s = sol();
  return {s.m[0][0] * u.x + s.m[0][1] * u.y + s.m[0][2] * u.z + s.t[0],
          s.m[1][0] * u.x + s.m[1][1] * u.y + s.m[1][2] * u.z + s.t[1],
          s.m[2][0] * u.x + s.m[2][1] * u.y + s.m[2][2] * u.z + s.t[2]};
}

V3 transform_dir(V3 n) {
  // inverse transpose of m, as the cofactor matrix (the scale does not matter for a normal)
  const auto &m = sol().m;
  double c[3][3];
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) {
      int i1 = (i + 1) % 3, i2 = (i + 2) % 3, j1 = (j + 1) % 3, j2 = (j + 2) % 3;
      c[i][j] = m[i1][j1] * m[i2][j2] - m[i1][j2] * m[i2][j1];
    }
  return {c[0][0] * n.x + c[0][1] * n.y + c[0][2] * n.z, c[1][0] * n.x + c[1][1] * n.y + c[1][2] * n.z,
          c[2][0] * n.x + c[2][1] * n.y + c[2][2] * n.z};
}

V3 user_to_box(V3 u) {
  V3 t = transform(u);
  return {box_coord(0, t.x), box_coord(1, t.y), box_coord(2, t.z)};
}

V3 normal_to_box(V3 n) {
  V3 t = transform_dir(n);
  return unit({t.x / axis_scale(0), t.y / axis_scale(1), t.z / axis_scale(2)});
}

double box_to_user(int i, double b) {
  const Space3D &sp = mirval_state().space;
  const AxisRange &r = sp.range[i];
  double v = r.a + (b / sp.box[i] + 0.5) * (r.e - r.a);
  return r.log ? std::pow(10.0, v) : v;
}

bool raster_output() {
  const SolidState &s = sol();
  if (s.zbf_mode == 1) return true;
  if (s.zbf_mode == 2) return false;
  return is_raster(mirval_state().page.format);
}

// ---------------------------------------------------------------------------------------
// Lighting

namespace {

Rgb mul(Rgb a, Rgb b) { return {a.r * b.r, a.g * b.g, a.b * b.b}; }

// The lights as shading needs them, taken from the settings once per routine: directions of
// far lights and box positions of near ones, colours already times the material's.
struct Lighting {
  struct Source {
    bool near;          // positional: v is its box point, else the direction towards it
    V3 v, half;         // half: between v and the viewer, for far lights in the orthographic view
    Rgb diffuse, specular;
    double att[3];
  };
  bool on = false, ortho = false, positional = false;
  V3 eye, towards_viewer;  // towards_viewer: for the orthographic view
  Source src[8];
  int count = 0;
  Rgb ambient{0, 0, 0};  // every light's ambient part times the material's
  double shininess = 0;
  double cut = 0;        // a highlight below this cosine adds less than a colour step

  explicit Lighting(const SolidState &s, const Camera &c) {
    on = s.lighting, ortho = c.ortho;
    eye = {c.eye[0], c.eye[1], c.eye[2]};
    towards_viewer = V3{c.w[0], c.w[1], c.w[2]} * -1;
    shininess = s.shininess;
    cut = shininess > 0 ? std::pow(0.25 / 255, 1 / shininess) : 0;
    V3 u{c.u[0], c.u[1], c.u[2]}, v{c.v[0], c.v[1], c.v[2]};
    for (const Light &l : s.lights) {
      if (!l.on) continue;
      Source &o = src[count++];
      o.near = l.mode == 1 || l.mode == 2;
      positional = positional || o.near;
      if (o.near) {
        o.v = {l.pos[0], l.pos[1], l.pos[2]};
        if (l.mode == 2) o.v = {box_coord(0, o.v.x), box_coord(1, o.v.y), box_coord(2, o.v.z)};
      } else if (l.mode == 3) {
        double az = l.pos[0] * M_PI / 180, el = l.pos[1] * M_PI / 180;
        o.v = unit({std::cos(el) * std::sin(az), -std::cos(el) * std::cos(az), std::sin(el)});
      } else {
        o.v = unit(u * l.pos[0] + v * l.pos[1] + towards_viewer * l.pos[2]);
      }
      o.half = unit(o.v + towards_viewer);
      o.diffuse = mul(l.diffuse, s.mat_diffuse);
      o.specular = mul(l.specular, s.mat_specular);
      for (int k = 0; k < 3; ++k) o.att[k] = l.att[k];
      Rgb a = mul(l.ambient, s.mat_ambient);
      ambient = {ambient.r + a.r, ambient.g + a.g, ambient.b + a.b};
    }
  }

  // Whether shading needs the point itself (else any point will do).
  bool needs_point() const { return !ortho || (on && positional); }

  Rgb shade(V3 p, V3 nrm, Rgb base) const {
    V3 view = ortho ? towards_viewer : unit(eye - p);
    V3 n = unit(nrm);
    double nv = dot(n, view);
    if (nv < 0) n = n * -1, nv = -nv;  // both sides of a surface are lit as the side seen
    if (!on) {
      float f = float(0.3 + 0.7 * nv);
      return {base.r * f, base.g * f, base.b * f};
    }
    double r = ambient.r * base.r, g = ambient.g * base.g, b = ambient.b * base.b;
    for (int i = 0; i < count; ++i) {
      const Source &l = src[i];
      double att = 1;
      V3 L = l.v;
      if (l.near) {
        V3 d = l.v - p;
        double dist = std::sqrt(dot(d, d));
        L = dist > 1e-300 ? d * (1 / dist) : V3{0, 0, 1};
        double a = l.att[0] + l.att[1] * dist + l.att[2] * dist * dist;
        att = a > 1e-9 ? 1 / a : 1;
      }
      double nl = dot(n, L);
      if (nl <= 0) continue;
      r += att * nl * l.diffuse.r * base.r, g += att * nl * l.diffuse.g * base.g, b += att * nl * l.diffuse.b * base.b;
      double nh = dot(n, ortho && !l.near ? l.half : unit(L + view));
      if (nh > cut || (att > 1 && nh > 0)) {
        double sp = att * std::pow(nh, shininess);
        r += sp * l.specular.r, g += sp * l.specular.g, b += sp * l.specular.b;
      }
    }
    auto clamp = [](double v) { return float(std::min(1.0, std::max(0.0, v))); };
    return {clamp(r), clamp(g), clamp(b)};
  }
};

}  // namespace

Rgb shade(V3 p, V3 n, Rgb base) { return Lighting(sol(), cam()).shade(p, n, base); }

// ---------------------------------------------------------------------------------------
// The group

namespace {

uint32_t pack(Rgb c) {
  auto b = [](float v) { return uint32_t(std::min(1.0f, std::max(0.0f, v)) * 255 + 0.5f); };
  return 0xff000000u | b(c.r) << 16 | b(c.g) << 8 | b(c.b);
}

Rgb unpack(uint32_t c) { return {float(c >> 16 & 255) / 255, float(c >> 8 & 255) / 255, float(c & 255) / 255}; }

// A lit sample waits for its light (alpha 0xfe) until the routine ends, so that only what is
// seen in the end is shaded; its normal is kept meanwhile, folded onto an octahedron in 2 x 16
// bits.
const uint32_t PENDING = 0xfe000000u;

uint32_t fold(V3 n) {
  double l1 = std::fabs(n.x) + std::fabs(n.y) + std::fabs(n.z);
  if (!(l1 > 1e-300)) return 0x7fff7fffu;
  double x = n.x / l1, y = n.y / l1;
  if (n.z < 0) {
    double fx = (1 - std::fabs(y)) * (x < 0 ? -1 : 1), fy = (1 - std::fabs(x)) * (y < 0 ? -1 : 1);
    x = fx, y = fy;
  }
  auto q = [](double v) { return uint32_t((v * 0.5 + 0.5) * 65535 + 0.5); };
  return q(x) << 16 | q(y);
}

V3 unfold(uint32_t k) {
  double x = double(k >> 16) / 65535 * 2 - 1, y = double(k & 0xffff) / 65535 * 2 - 1;
  double z = 1 - std::fabs(x) - std::fabs(y);
  if (z < 0) {
    double fx = (1 - std::fabs(y)) * (x < 0 ? -1 : 1), fy = (1 - std::fabs(x)) * (y < 0 ? -1 : 1);
    x = fx, y = fy;
  }
  return {x, y, z};
}

bool group_valid(const DepthGroup &g) {
  MirvalState &st = mirval_state();
  if (!g.active || g.generation != st.solid.generation || st.scene.pages.empty()) return false;
  if (g.page != st.scene.pages.size() - 1) return false;
  const Page &pg = st.scene.current();
  if (pg.items.size() < g.start + g.count) return false;
  if (g.raster && (g.count != 1 || pg.items[g.start].image.get() != g.image.get())) return false;
  return g.raster == raster_output();
}

void new_group() {
  MirvalState &st = mirval_state();
  DepthGroup &g = st.solid.group;
  g = DepthGroup();
  g.active = true;
  g.generation = st.solid.generation;
  if (st.scene.pages.empty()) st.scene.pages.emplace_back();
  g.page = st.scene.pages.size() - 1;
  g.start = st.scene.current().items.size();
  g.raster = raster_output();
  if (!g.raster) return;
  raster_size(g.dw, g.dh);
  g.ss = st.solid.zbf_scale;
  g.W = g.dw * g.ss, g.H = g.dh * g.ss;
  g.depth.assign(size_t(g.W) * g.H, -INFINITY);
  g.colour.assign(size_t(g.W) * g.H, 0);
  g.image = std::make_shared<RasterImage>();
  g.image->w = g.dw, g.image->h = g.dh;
  g.image->argb.assign(size_t(g.dw) * g.dh, 0);
  g.image->smooth = false;
  Item it;
  it.kind = ItemKind::Image;
  it.image = g.image;
  it.at = {0, 0};
  it.end = {double(st.page.width), double(st.page.height)};
  add_item(it);
  g.count = 1;
}

Rect clip_rect() {
  const SolidState &s = sol();
  return s.clip == 0 ? page_rect() : user_clip();
}

struct ClipS {
  int x0, y0, x1, y1;  // samples x0..x1-1
};

// What a routine's raster drawing needs for every corner and sample, taken at its start.
struct Frame {
  Camera cam;
  double near_clip = 0, far_clip = 0;
  double kx = 1, ky = 1;  // samples per plot unit
  ClipS clip{0, 0, 0, 0};
};
Frame frame;

void take_frame() {
  const MirvalState &st = mirval_state();
  const DepthGroup &g = st.solid.group;
  frame.cam = cam();
  frame.near_clip = st.space.near_clip, frame.far_clip = st.space.far_clip;
  frame.kx = double(g.W) / st.page.width, frame.ky = double(g.H) / st.page.height;
  Rect r = clip_rect();
  ClipS &c = frame.clip;
  c = {int(std::floor(r.x0 * frame.kx)), int(std::floor(r.y0 * frame.ky)), int(std::ceil(r.x1 * frame.kx)),
       int(std::ceil(r.y1 * frame.ky))};
  c.x0 = std::max(0, c.x0), c.y0 = std::max(0, c.y0);
  c.x1 = std::min(g.W, c.x1), c.y1 = std::min(g.H, c.y1);
}

// Sample coordinates and depth key (greater is nearer) of a box point; false behind the eye
// or outside VCLP3D's depths.
struct SP {
  double x, y, z, q;  // q: weight for perspective-correct interpolation
};

bool to_sample(V3 p, SP &o) {
  const Frame &f = frame;
  double pp[3] = {p.x, p.y, p.z};
  double w = depth(f.cam, pp);
  if (f.near_clip > 0 && w < f.near_clip) return false;
  if (f.far_clip > 0 && w > f.far_clip) return false;
  Pt q = project(f.cam, pp);
  if (!std::isfinite(q.x) || !std::isfinite(q.y)) return false;
  o.x = q.x * f.kx;
  o.y = q.y * f.ky;
  if (f.cam.ortho) {
    o.z = -w, o.q = 1;
  } else {
    o.z = 1 / w, o.q = 1 / w;
  }
  return true;
}

// The box point seen at the centre of sample (x, y) with depth key z: to_sample undone.
V3 from_sample(int x, int y, double z) {
  const Camera &c = frame.cam;
  double w = c.ortho ? -z : 1 / z, scale = (c.ortho ? c.dist : w) / c.focal;
  double du = ((x + 0.5) / frame.kx - c.centre.x) * scale, dv = -((y + 0.5) / frame.ky - c.centre.y) * scale;
  V3 e{c.eye[0], c.eye[1], c.eye[2]}, u{c.u[0], c.u[1], c.u[2]}, v{c.v[0], c.v[1], c.v[2]}, ww{c.w[0], c.w[1], c.w[2]};
  return e + u * du + v * dv + ww * w;
}

void mark_dirty(DepthGroup &g, int x0, int y0, int x1, int y1) {
  if (g.dx0 > g.dx1) {
    g.dx0 = x0, g.dy0 = y0, g.dx1 = x1, g.dy1 = y1;
  } else {
    g.dx0 = std::min(g.dx0, x0), g.dy0 = std::min(g.dy0, y0);
    g.dx1 = std::max(g.dx1, x1), g.dy1 = std::max(g.dy1, y1);
  }
}

// Scan-converts a triangle: every sample centre inside it whose depth key is greater than the
// stored one gets shadefn(l0, l1, l2, k) (screen-space barycentric weights, sample index).
template <class F>
void raster_triangle(const SP &a, const SP &b, const SP &c, double bias, F shadefn) {
  DepthGroup &g = sol().group;
  const ClipS &cl = frame.clip;
  double area = (b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y);
  if (!(std::fabs(area) > 1e-12)) return;
  // the samples whose centres (x + 0.5, y + 0.5) lie in the bounding box
  int x0 = std::max(cl.x0, int(std::ceil(std::min({a.x, b.x, c.x}) - 0.5)));
  int x1 = std::min(cl.x1 - 1, int(std::floor(std::max({a.x, b.x, c.x}) - 0.5)));
  int y0 = std::max(cl.y0, int(std::ceil(std::min({a.y, b.y, c.y}) - 0.5)));
  int y1 = std::min(cl.y1 - 1, int(std::floor(std::max({a.y, b.y, c.y}) - 0.5)));
  if (x0 > x1 || y0 > y1) return;
  double inv = 1 / area;
  // the weights are linear in the sample's place: l = l(x0) + x * step along each row
  double s0 = -(c.y - b.y) * inv, s1 = -(a.y - c.y) * inv;
  bool any = false;
  for (int y = y0; y <= y1; ++y) {
    double py = y + 0.5, px = x0 + 0.5;
    double l0 = ((b.x - px) * (c.y - py) - (c.x - px) * (b.y - py)) * inv;
    double l1 = ((c.x - px) * (a.y - py) - (a.x - px) * (c.y - py)) * inv;
    size_t k = size_t(y) * g.W + x0;
    for (int x = x0; x <= x1; ++x, ++k, l0 += s0, l1 += s1) {
      double l2 = 1 - l0 - l1;
      if (l0 < 0 || l1 < 0 || l2 < 0) continue;
      double z = l0 * a.z + l1 * b.z + l2 * c.z;
      z += bias * std::fabs(z);
      if (!(z > g.depth[k])) continue;
      g.depth[k] = float(z);
      g.colour[k] = shadefn(l0, l1, l2, k);
      any = true;
    }
  }
  if (any) mark_dirty(g, x0, y0, x1 + 1, y1 + 1);
}

// Lights the samples that wait for it in the dirty samples.
void shade_pending() {
  DepthGroup &g = sol().group;
  if (g.dx0 > g.dx1 || g.normal.empty()) return;
  Lighting light(sol(), frame.cam);
  bool point = light.needs_point();
  for (int y = g.dy0; y < g.dy1; ++y)
    for (int x = g.dx0; x < g.dx1; ++x) {
      size_t k = size_t(y) * g.W + x;
      uint32_t c = g.colour[k];
      if ((c & 0xff000000u) != PENDING) continue;
      V3 p = point ? from_sample(x, y, g.depth[k]) : V3{};
      g.colour[k] = pack(light.shade(p, unfold(g.normal[k]), unpack(c)));
    }
}

void downsample() {
  MirvalState &st = mirval_state();
  DepthGroup &g = st.solid.group;
  if (g.dx0 > g.dx1) return;
  int s = g.ss;
  int px0 = g.dx0 / s, py0 = g.dy0 / s, px1 = std::min(g.dw, (g.dx1 + s - 1) / s), py1 = std::min(g.dh, (g.dy1 + s - 1) / s);
  uint32_t n = uint32_t(s * s);
  for (int py = py0; py < py1; ++py)
    for (int px = px0; px < px1; ++px) {
      uint32_t r = 0, gg = 0, b = 0, a = 0;
      for (int sy = 0; sy < s; ++sy)
        for (int sx = 0; sx < s; ++sx) {
          uint32_t c = g.colour[size_t(py * s + sy) * g.W + px * s + sx];
          if (!c) continue;
          a += 255, r += (c >> 16) & 255, gg += (c >> 8) & 255, b += c & 255;
        }
      g.image->argb[size_t(py) * g.dw + px] = (a / n) << 24 | (r / n) << 16 | (gg / n) << 8 | (b / n);
    }
  g.dx0 = 1, g.dx1 = 0;
  ++st.scene.changes;
}

// ---------------------------------------------------------------------------------------
// Vector outputs: a BSP tree of the polygons, lines split and hung in its leaves.

struct Poly {
  std::vector<V3> v;
  Rgb c;
  V3 n;
  double d;
  int card = -1;  // a plane of 2-D items (GRFINI): its items are drawn in its place
};

struct Line {
  V3 a, b;
  Rgb c;
  double width;
};

struct Node {
  V3 n;
  double d;
  std::vector<int> polys;
  int front = -1, back = -1;
  std::vector<int> lines_front, lines_back;
};

const double EPS = 1e-7;

bool plane_of(Poly &p) {
  V3 n{0, 0, 0};
  size_t k = p.v.size();
  for (size_t i = 0; i < k; ++i) {  // Newell's normal
    V3 a = p.v[i], b = p.v[(i + 1) % k];
    n.x += (a.y - b.y) * (a.z + b.z);
    n.y += (a.z - b.z) * (a.x + b.x);
    n.z += (a.x - b.x) * (a.y + b.y);
  }
  double len = std::sqrt(dot(n, n));
  if (!(len > 1e-14)) return false;
  p.n = n * (1 / len);
  p.d = -dot(p.n, p.v[0]);
  return true;
}

// Splits polygon p by the plane into the parts in front and behind.
void split(const Poly &p, V3 n, double d, Poly &f, Poly &b) {
  f = b = p;
  f.v.clear(), b.v.clear();
  size_t k = p.v.size();
  for (size_t i = 0; i < k; ++i) {
    V3 a = p.v[i], c = p.v[(i + 1) % k];
    double da = dot(n, a) + d, dc = dot(n, c) + d;
    if (da >= -EPS) f.v.push_back(a);
    if (da <= EPS) b.v.push_back(a);
    if ((da > EPS && dc < -EPS) || (da < -EPS && dc > EPS)) {
      V3 m = a + (c - a) * (da / (da - dc));
      f.v.push_back(m), b.v.push_back(m);
    }
  }
}

struct Bsp {
  std::vector<Poly> polys;
  std::vector<Line> lines;
  std::vector<Node> nodes;

  void build(std::vector<int> all) {
    if (all.empty()) return;
    std::vector<std::pair<int, std::vector<int>>> work;
    nodes.emplace_back();
    work.push_back({0, std::move(all)});
    while (!work.empty()) {
      auto [id, list] = std::move(work.back());
      work.pop_back();
      const Poly &sp = polys[list[0]];
      V3 n = sp.n;
      double d = sp.d;
      nodes[id].n = n, nodes[id].d = d;
      nodes[id].polys.push_back(list[0]);
      std::vector<int> fl, bl;
      for (size_t i = 1; i < list.size(); ++i) {
        int pi = list[i];
        bool front = false, back = false;
        for (const V3 &v : polys[pi].v) {
          double dv = dot(n, v) + d;
          front = front || dv > EPS;
          back = back || dv < -EPS;
        }
        if (!front && !back) nodes[id].polys.push_back(pi);
        else if (!back) fl.push_back(pi);
        else if (!front) bl.push_back(pi);
        else {
          Poly f, b;
          split(polys[pi], n, d, f, b);
          if (f.v.size() >= 3) polys.push_back(f), fl.push_back(int(polys.size()) - 1);
          if (b.v.size() >= 3) polys.push_back(b), bl.push_back(int(polys.size()) - 1);
        }
      }
      if (!fl.empty()) {
        nodes.emplace_back();
        nodes[id].front = int(nodes.size()) - 1;
        work.push_back({nodes[id].front, std::move(fl)});
      }
      if (!bl.empty()) {
        nodes.emplace_back();
        nodes[id].back = int(nodes.size()) - 1;
        work.push_back({nodes[id].back, std::move(bl)});
      }
    }
  }

  double side_of_eye(const Node &nd) const {
    if (cam().ortho) return -dot(nd.n, look());
    return dot(nd.n, eye()) + nd.d;
  }

  void insert_line(int li) {
    std::vector<std::pair<int, int>> work{{0, li}};
    while (!work.empty()) {
      auto [id, l] = work.back();
      work.pop_back();
      Node &nd = nodes[id];
      double da = dot(nd.n, lines[l].a) + nd.d, db = dot(nd.n, lines[l].b) + nd.d;
      bool eye_front = side_of_eye(nd) >= 0;
      auto put = [&](int line, bool front) {
        int child = front ? nd.front : nd.back;
        if (child >= 0) work.push_back({child, line});
        else (front ? nd.lines_front : nd.lines_back).push_back(line);
      };
      bool fa = da > EPS, ba = da < -EPS, fb = db > EPS, bb = db < -EPS;
      if ((fa && bb) || (ba && fb)) {
        V3 m = lines[l].a + (lines[l].b - lines[l].a) * (da / (da - db));
        Line second = lines[l];
        second.a = m;
        lines[l].b = m;
        lines.push_back(second);
        int l2 = int(lines.size()) - 1;
        put(l, fa);
        put(l2, fb);
      } else if (fa || fb) {
        put(l, true);
      } else if (ba || bb) {
        put(l, false);
      } else {
        put(l, eye_front);  // on the plane: drawn over the polygon seen
      }
    }
  }

  // Back to front: calls poly(i) and line(i) in drawing order.
  template <class P, class L>
  void walk(P poly, L line) const {
    if (nodes.empty()) {
      for (size_t i = 0; i < lines.size(); ++i) line(int(i));
      return;
    }
    // actions: node to expand (kind 0), polygons of a node (1), lines of a leaf side (2, 3)
    std::vector<std::pair<int, int>> todo{{0, 0}};
    while (!todo.empty()) {
      auto [kind, id] = todo.back();
      todo.pop_back();
      const Node &nd = nodes[id];
      if (kind == 1) {
        for (int p : nd.polys) poly(p);
        continue;
      }
      if (kind == 2) {
        for (int l : nd.lines_front) line(l);
        continue;
      }
      if (kind == 3) {
        for (int l : nd.lines_back) line(l);
        continue;
      }
      bool eye_front = side_of_eye(nd) >= 0;
      auto far_side = [&, node = id](bool front) -> std::pair<int, int> {
        int child = front ? nd.front : nd.back;
        return child >= 0 ? std::pair<int, int>{0, child} : std::pair<int, int>{front ? 2 : 3, node};
      };
      // pushed in reverse: far side, the node's polygons, near side
      todo.push_back(far_side(eye_front));
      todo.push_back({1, id});
      todo.push_back(far_side(!eye_front));
    }
  }
};

// The largest number of polygons ordered by the tree; beyond it they are sorted by depth.
const size_t BSP_LIMIT = 20000;

void rebuild_vector() {
  MirvalState &st = mirval_state();
  DepthGroup &g = st.solid.group;
  Bsp t;
  t.polys.reserve(g.tris.size());
  Lighting light(st.solid, cam());
  // the cards first: as the tree's top planes they are cut by nothing
  for (size_t i = 0; i < g.cards.size(); ++i) {
    Poly p;
    for (const double *c : g.cards[i].c) p.v.push_back({c[0], c[1], c[2]});
    p.card = int(i);
    if (plane_of(p)) t.polys.push_back(std::move(p));
  }
  std::vector<char> card_drawn(g.cards.size());
  for (const Tri3 &tr : g.tris) {
    Poly p;
    V3 c{0, 0, 0}, n{0, 0, 0};
    float r = 0, gg = 0, b = 0;
    for (const Vtx3 &v : tr.v) {
      V3 q{v.p[0], v.p[1], v.p[2]};
      p.v.push_back(q);
      c = c + q * (1.0 / 3);
      n = n + V3{v.n[0], v.n[1], v.n[2]};
      r += v.c.r / 3, gg += v.c.g / 3, b += v.c.b / 3;
    }
    if (!plane_of(p)) continue;
    if (dot(n, n) < 1e-20) n = p.n;
    p.c = tr.lit ? light.shade(c, n, {r, gg, b}) : Rgb{r, gg, b};
    t.polys.push_back(std::move(p));
  }
  for (const Seg3 &s : g.segs) t.lines.push_back({{s.a[0], s.a[1], s.a[2]}, {s.b[0], s.b[1], s.b[2]}, s.c, s.width});
  std::vector<Item> items;
  Rect clip = clip_rect();
  auto page_pt = [&](V3 v, Pt &out) {
    double p[3] = {v.x, v.y, v.z};
    double w = depth(cam(), p);
    if (st.space.near_clip > 0 && w < st.space.near_clip) return false;
    if (st.space.far_clip > 0 && w > st.space.far_clip) return false;
    out = project(cam(), p);
    return std::isfinite(out.x) && std::isfinite(out.y);
  };
  auto emit_poly = [&](int i) {
    const Poly &p = t.polys[i];
    if (p.card >= 0) {
      if (!card_drawn[p.card]) items.insert(items.end(), g.cards[p.card].items.begin(), g.cards[p.card].items.end());
      card_drawn[p.card] = true;
      return;
    }
    std::vector<Pt> q(p.v.size());
    for (size_t k = 0; k < p.v.size(); ++k)
      if (!page_pt(p.v[k], q[k])) return;
    Path path = fit_path(closed_path(q), clip, true);
    if (path.empty()) return;
    Item it;
    it.kind = ItemKind::Cell;
    it.rgb = p.c;
    it.path = std::move(path);
    items.push_back(std::move(it));
  };
  auto emit_line = [&](int i) {
    const Line &l = t.lines[i];
    Pt a, b;
    if (!page_pt(l.a, a) || !page_pt(l.b, b)) return;
    Path path;
    append_polyline(path, {a, b}, clip);
    if (path.empty()) return;
    Item it;
    it.kind = ItemKind::Stroke;
    it.rgb = l.c;
    it.width = l.width;
    it.cap = Cap::Round;
    it.path = std::move(path);
    items.push_back(std::move(it));
  };
  if (st.solid.hide && t.polys.size() <= BSP_LIMIT) {
    std::vector<int> all(t.polys.size());
    for (size_t i = 0; i < all.size(); ++i) all[i] = int(i);
    t.build(all);
    if (!t.nodes.empty())
      for (size_t i = 0; i < t.lines.size(); ++i) t.insert_line(int(i));
    t.walk(emit_poly, emit_line);
  } else {
    // depth order of centres, farthest first (or as drawn when NOHIDE is in force)
    std::vector<std::pair<double, int>> order;  // index >= 0 polygon, < 0 line -(i+1)
    auto w_of = [](V3 v) {
      double p[3] = {v.x, v.y, v.z};
      return depth(cam(), p);
    };
    for (size_t i = 0; i < t.polys.size(); ++i) {
      V3 c{0, 0, 0};
      for (V3 v : t.polys[i].v) c = c + v * (1.0 / t.polys[i].v.size());
      order.push_back({st.solid.hide ? w_of(c) : 0, int(i)});
    }
    for (size_t i = 0; i < t.lines.size(); ++i)
      order.push_back({st.solid.hide ? w_of((t.lines[i].a + t.lines[i].b) * 0.5) : 0, -int(i) - 1});
    std::stable_sort(order.begin(), order.end(), [](auto &a, auto &b) { return a.first > b.first; });
    for (auto [w, i] : order) i >= 0 ? emit_poly(i) : emit_line(-i - 1);
  }
  Page &pg = st.scene.pages[g.page];
  pg.items.erase(pg.items.begin() + long(g.start), pg.items.begin() + long(g.start + g.count));
  pg.items.insert(pg.items.begin() + long(g.start), std::make_move_iterator(items.begin()),
                  std::make_move_iterator(items.end()));
  g.count = items.size();
  ++st.scene.changes;
}

bool dirty_vector = false;

}  // namespace

bool begin(const char *routine) {
  if (!mv_level(routine, 3, 3)) return false;
  if (!group_valid(sol().group)) new_group();
  if (sol().group.raster) take_frame();
  return true;
}

void end() {
  DepthGroup &g = sol().group;
  if (!g.active) return;
  if (g.raster) shade_pending(), downsample();
  else if (dirty_vector) rebuild_vector();
  dirty_vector = false;
}

namespace {

// Keeps a triangle for the polygon file and the vector outputs; false when it has a corner
// that is not finite.
bool keep(const Vtx3 &a, const Vtx3 &b, const Vtx3 &c, bool lit, float alpha) {
  SolidState &s = sol();
  for (const Vtx3 *v : {&a, &b, &c})
    for (int k = 0; k < 3; ++k)
      if (!std::isfinite(v->p[k])) return false;
  bool ply = s.ply_open && s.ply.size() < 20000000;
  if (!ply && s.group.raster) return true;
  Tri3 t;
  t.v[0] = a, t.v[1] = b, t.v[2] = c;
  t.lit = lit, t.alpha = alpha;
  if (ply) s.ply.push_back(t);
  if (!s.group.raster) s.group.tris.push_back(t), dirty_vector = true;
  return true;
}

// A triangle whose corners are already on the sample grid.
void raster(const Vtx3 &a, const Vtx3 &b, const Vtx3 &c, const SP s[3], bool lit) {
  DepthGroup &g = sol().group;
  const Vtx3 *v[3] = {&a, &b, &c};
  // whether the corners differ at all: flat triangles need no per-sample work
  bool same_colour = true, same_normal = true;
  for (int k = 1; k < 3; ++k) {
    same_colour = same_colour && v[k]->c.r == a.c.r && v[k]->c.g == a.c.g && v[k]->c.b == a.c.b;
    same_normal = same_normal && v[k]->n[0] == a.n[0] && v[k]->n[1] == a.n[1] && v[k]->n[2] == a.n[2];
  }
  auto weights = [&](double l0, double l1, double l2, double w[3]) {  // perspective-correct
    w[0] = l0 * s[0].q, w[1] = l1 * s[1].q, w[2] = l2 * s[2].q;
    double sum = w[0] + w[1] + w[2];
    w[0] /= sum, w[1] /= sum, w[2] /= sum;
  };
  auto colour = [&](const double w[3]) {
    return pack({float(w[0] * a.c.r + w[1] * b.c.r + w[2] * c.c.r), float(w[0] * a.c.g + w[1] * b.c.g + w[2] * c.c.g),
                 float(w[0] * a.c.b + w[1] * b.c.b + w[2] * c.c.b)});
  };
  uint32_t flat = pack(a.c);
  if (!lit) {
    raster_triangle(s[0], s[1], s[2], 0, [&](double l0, double l1, double l2, size_t) {
      if (same_colour) return flat;
      double w[3];
      weights(l0, l1, l2, w);
      return colour(w);
    });
    return;
  }
  if (g.normal.empty()) g.normal.assign(g.colour.size(), 0);
  uint32_t flat_normal = fold({a.n[0], a.n[1], a.n[2]});
  raster_triangle(s[0], s[1], s[2], 0, [&](double l0, double l1, double l2, size_t k) {
    if (same_colour && same_normal) {
      g.normal[k] = flat_normal;
      return (flat & 0xffffff) | PENDING;
    }
    double w[3];
    weights(l0, l1, l2, w);
    g.normal[k] = same_normal ? flat_normal
                              : fold({w[0] * a.n[0] + w[1] * b.n[0] + w[2] * c.n[0], w[0] * a.n[1] + w[1] * b.n[1] + w[2] * c.n[1],
                                      w[0] * a.n[2] + w[1] * b.n[2] + w[2] * c.n[2]});
    return ((same_colour ? flat : colour(w)) & 0xffffff) | PENDING;
  });
}

}  // namespace

void triangle(const Vtx3 &a, const Vtx3 &b, const Vtx3 &c, bool lit, float alpha) {
  DepthGroup &g = sol().group;
  if (!g.active || !keep(a, b, c, lit, alpha) || !g.raster) return;
  SP s[3];
  auto on = [](const Vtx3 &v, SP &o) { return to_sample({v.p[0], v.p[1], v.p[2]}, o); };
  if (on(a, s[0]) && on(b, s[1]) && on(c, s[2])) raster(a, b, c, s, lit);
}

void mesh(const Corners &v, const std::vector<std::array<int, 3>> &tris, bool lit, bool closed) {
  DepthGroup &g = sol().group;
  if (!g.active) return;
  std::vector<SP> s(g.raster ? v.p.size() : 0);
  for (size_t i = 0; i < s.size(); ++i)
    if (!to_sample(v.p[i], s[i])) s[i].q = NAN;  // not seen: its triangles are left out
  // the far side of a closed solid seen from outside is hidden by its near side: it is
  // skipped, unless the near planes cut the solid open or the eye is inside
  std::vector<char> front(closed && g.raster && !(frame.near_clip > 0) ? tris.size() : 0);
  bool outside = false;
  const Camera &cm = frame.cam;
  for (size_t i = 0; i < front.size(); ++i) {
    const auto &t = tris[i];
    V3 pa = v.p[t[0]], f = cross(v.p[t[1]] - pa, v.p[t[2]] - pa), out = v.n[t[0]] + v.n[t[1]] + v.n[t[2]];
    V3 to_eye = cm.ortho ? V3{-cm.w[0], -cm.w[1], -cm.w[2]} : V3{cm.eye[0], cm.eye[1], cm.eye[2]} - pa;
    front[i] = (dot(f, to_eye) > 0) == (dot(f, out) > 0);
    outside = outside || front[i];
  }
  for (size_t i = 0; i < tris.size(); ++i) {
    const auto &t = tris[i];
    Vtx3 a = v[t[0]], b = v[t[1]], c = v[t[2]];
    if (!keep(a, b, c, lit, 1) || !g.raster || (outside && !front[i])) continue;
    const SP corners[3] = {s[t[0]], s[t[1]], s[t[2]]};
    if (std::isnan(corners[0].q + corners[1].q + corners[2].q)) continue;
    raster(a, b, c, corners, lit);
  }
}

namespace {

// Lays the card's items into the samples: drawn by Cairo on a clear picture of the sample
// grid, each inked sample put at the plane's depth where nothing nearer is.
void raster_card(const V3 corner[4], std::vector<Item> items) {
  DepthGroup &g = sol().group;
  SP s[3];
  for (int k = 0; k < 3; ++k)
    if (!to_sample(corner[k], s[k])) return;
  // a plane's depth key is linear in the sample's place: z = A x + B y + C
  double det = (s[1].x - s[0].x) * (s[2].y - s[0].y) - (s[2].x - s[0].x) * (s[1].y - s[0].y);
  if (!(std::fabs(det) > 1e-9)) return;  // seen edge on
  double A = ((s[1].z - s[0].z) * (s[2].y - s[0].y) - (s[2].z - s[0].z) * (s[1].y - s[0].y)) / det;
  double B = ((s[2].z - s[0].z) * (s[1].x - s[0].x) - (s[1].z - s[0].z) * (s[2].x - s[0].x)) / det;
  double C = s[0].z - A * s[0].x - B * s[0].y;
  cairo_surface_t *surf = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, g.W, g.H);
  cairo_t *cr = cairo_create(surf);
  Page pg;
  pg.items = std::move(items);
  View v;
  v.scale = frame.kx, v.raster = true, v.clear = true;
  render_page(cr, pg, v);
  cairo_destroy(cr);
  cairo_surface_flush(surf);
  const uint32_t *px = reinterpret_cast<const uint32_t *>(cairo_image_surface_get_data(surf));
  int stride = cairo_image_surface_get_stride(surf) / 4;
  uint32_t back = pack(back_rgb());
  const ClipS &cl = frame.clip;
  for (int y = cl.y0; y < cl.y1 && px; ++y)
    for (int x = cl.x0; x < cl.x1; ++x) {
      uint32_t t = px[size_t(y) * stride + x], a = t >> 24;
      size_t k = size_t(y) * g.W + x;
      double z = A * (x + 0.5) + B * (y + 0.5) + C;
      if (!a || !(z > g.depth[k])) continue;
      uint32_t under = g.colour[k] ? g.colour[k] : back, out = 0xff000000u;
      for (int sh = 0; sh < 24; sh += 8)  // premultiplied ink over what lies below
        out |= std::min(255u, (t >> sh & 255) + ((under >> sh & 255) * (255 - a) + 127) / 255) << sh;
      g.colour[k] = out;
      if (a >= 128) g.depth[k] = float(z);
    }
  cairo_surface_destroy(surf);
  mark_dirty(g, cl.x0, cl.y0, cl.x1, cl.y1);
}

}  // namespace

void card(const V3 corner[4], std::vector<Item> items) {
  DepthGroup &g = sol().group;
  if (!g.active || items.empty()) return;
  if (g.raster) {
    raster_card(corner, std::move(items));
    return;
  }
  Card3 c;
  for (int k = 0; k < 4; ++k) c.c[k][0] = corner[k].x, c.c[k][1] = corner[k].y, c.c[k][2] = corner[k].z;
  c.items = std::move(items);
  g.cards.push_back(std::move(c));
  dirty_vector = true;
}

void segment(V3 a, V3 b, Rgb c, double width) {
  DepthGroup &g = sol().group;
  if (!g.active) return;
  if (!std::isfinite(a.x + a.y + a.z + b.x + b.y + b.z)) return;
  if (!g.raster) {
    Seg3 s;
    s.a[0] = a.x, s.a[1] = a.y, s.a[2] = a.z;
    s.b[0] = b.x, s.b[1] = b.y, s.b[2] = b.z;
    s.c = c, s.width = width;
    g.segs.push_back(s);
    dirty_vector = true;
    return;
  }
  SP p, q;
  if (!to_sample(a, p) || !to_sample(b, q)) return;
  double hw = std::max(0.5 * g.ss, width * frame.kx / 2);
  double dx = q.x - p.x, dy = q.y - p.y, len = std::hypot(dx, dy);
  double nx = len > 0 ? -dy / len * hw : hw, ny = len > 0 ? dx / len * hw : 0;
  double ex = len > 0 ? dx / len * hw * 0.5 : 0, ey = len > 0 ? dy / len * hw * 0.5 : 0;
  SP c0{p.x + nx - ex, p.y + ny - ey, p.z, 1}, c1{p.x - nx - ex, p.y - ny - ey, p.z, 1};
  SP c2{q.x - nx + ex, q.y - ny + ey, q.z, 1}, c3{q.x + nx + ex, q.y + ny + ey, q.z, 1};
  uint32_t col = pack(c);
  auto fn = [col](double, double, double, size_t) { return col; };
  raster_triangle(c0, c1, c2, 2e-3, fn);
  raster_triangle(c0, c2, c3, 2e-3, fn);
}

void billboard(V3 p, const std::vector<Pt> &offsets, Rgb c) {
  // polygon in the plane through p facing the viewer, scaled so that offsets are plot units
  const Camera &cm = cam();
  double pp[3] = {p.x, p.y, p.z};
  double w = cm.ortho ? cm.dist : depth(cm, pp);
  if (!(w > 0) || offsets.size() < 3) return;
  double k = w / cm.focal;
  V3 u{cm.u[0], cm.u[1], cm.u[2]}, v{cm.v[0], cm.v[1], cm.v[2]}, n = look() * -1;
  auto at = [&](Pt o) {
    Vtx3 x;
    V3 q = p + u * (o.x * k) - v * (o.y * k);
    x.p[0] = q.x, x.p[1] = q.y, x.p[2] = q.z;
    x.n[0] = n.x, x.n[1] = n.y, x.n[2] = n.z;
    x.c = c;
    return x;
  };
  Vtx3 first = at(offsets[0]);
  for (size_t i = 1; i + 1 < offsets.size(); ++i) triangle(first, at(offsets[i]), at(offsets[i + 1]), false);
}

void billboard_line(V3 p, const std::vector<Pt> &offsets, bool closed, Rgb c, double width) {
  const Camera &cm = cam();
  double pp[3] = {p.x, p.y, p.z};
  double w = cm.ortho ? cm.dist : depth(cm, pp);
  if (!(w > 0) || offsets.size() < 2) return;
  double k = w / cm.focal;
  V3 u{cm.u[0], cm.u[1], cm.u[2]}, v{cm.v[0], cm.v[1], cm.v[2]};
  auto at = [&](Pt o) { return p + u * (o.x * k) - v * (o.y * k); };
  for (size_t i = 0; i + 1 < offsets.size(); ++i) segment(at(offsets[i]), at(offsets[i + 1]), c, width);
  if (closed) segment(at(offsets.back()), at(offsets[0]), c, width);
}

void erase_group() {
  MirvalState &st = mirval_state();
  DepthGroup &g = st.solid.group;
  if (!group_valid(g)) return;
  if (g.raster) {
    std::fill(g.depth.begin(), g.depth.end(), -INFINITY);
    std::fill(g.colour.begin(), g.colour.end(), 0u);
    std::fill(g.image->argb.begin(), g.image->argb.end(), 0u);
    ++st.scene.changes;
  } else {
    g.tris.clear(), g.segs.clear(), g.cards.clear();
    dirty_vector = true;
    rebuild_vector();
    dirty_vector = false;
  }
}

void reset_depths() {
  MirvalState &st = mirval_state();
  DepthGroup &g = st.solid.group;
  if (!group_valid(g)) return;
  if (g.raster) {
    std::fill(g.depth.begin(), g.depth.end(), -INFINITY);
  } else {
    // what was drawn stays as it is; later primitives go over it
    g = DepthGroup();
  }
}

}  // namespace s3
