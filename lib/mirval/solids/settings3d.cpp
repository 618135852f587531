// Lights and material, the depth buffer's switches, views, object transformations and the
// conversions between user, box and page coordinates of a 3-D axis system.
#include "axes/scaling.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "core/trace.h"
#include "draw/colours.h"
#include "draw/draw.h"
#include "grids/surface.h"
#include "mirval.h"
#include "solids/render3d.h"

#include <cmath>
#include <cstring>

using s3::V3;

namespace {

SolidState &sol() { return mirval_state().solid; }

bool light_id(const char *routine, int id) {
  if (id >= 1 && id <= 8) return true;
  mv_warn(routine, "light number %d out of range 1..8", id);
  return false;
}

bool finite3(const char *routine, double a, double b, double c) {
  if (std::isfinite(a) && std::isfinite(b) && std::isfinite(c) && std::fabs(a) < 1e30 && std::fabs(b) < 1e30 &&
      std::fabs(c) < 1e30)
    return true;
  mv_warn(routine, "the values must be finite (got %g, %g, %g)", a, b, c);
  return false;
}

// Which of a light's or the material's three colours a keyword names; null when none.
Rgb *colour_part(const char *c, Rgb &ambient, Rgb &diffuse, Rgb &specular) {
  if (same(c, "AMBIENT")) return &ambient;
  if (same(c, "DIFFUSE")) return &diffuse;
  if (same(c, "SPECULAR")) return &specular;
  return nullptr;
}

// LITOP3 and MATOP3: the named colour of the three becomes the fractions r, g, b.
void set_colour3(const char *routine, float r, float g, float b, const char *c, Rgb &ambient, Rgb &diffuse,
                 Rgb &specular) {
  Rgb *part = colour_part(c, ambient, diffuse, specular);
  if (!part) {
    mv_warn(routine, "unknown option %s (AMBIENT, DIFFUSE or SPECULAR)", mv_tstr(c).c_str());
    return;
  }
  if (!(r >= 0 && r <= 1 && g >= 0 && g <= 1 && b >= 0 && b <= 1)) {
    mv_warn(routine, "colour fractions must lie in 0..1 (got %g, %g, %g)", (double)r, (double)g, (double)b);
    return;
  }
  *part = Rgb{r, g, b};
}

void multiply(double a[3][3], const double b[3][3]) {  // a = b * a
  double r[3][3];
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) r[i][j] = b[i][0] * a[0][j] + b[i][1] * a[1][j] + b[i][2] * a[2][j];
  std::memcpy(a, r, sizeof r);
}

// Applies the linear map b after the current transformation (also to its shift).
void after(const double b[3][3]) {
  SolidState &s = sol();
  multiply(s.m, b);
  double t[3];
  for (int i = 0; i < 3; ++i) t[i] = b[i][0] * s.t[0] + b[i][1] * s.t[1] + b[i][2] * s.t[2];
  std::memcpy(s.t, t, sizeof t);
}

void rotation(int axis, double deg, double r[3][3]) {
  double a = deg * M_PI / 180, c = std::cos(a), s = std::sin(a);
  int i = (axis + 1) % 3, j = (axis + 2) % 3;
  for (int p = 0; p < 3; ++p)
    for (int q = 0; q < 3; ++q) r[p][q] = p == q;
  r[i][i] = c, r[i][j] = -s, r[j][i] = s, r[j][j] = c;
}

bool projected(const char *routine, float x, float y, float z, Pt &p) {
  if (!mv_level(routine, 3, 3)) return false;
  p = project_user(x, y, z);
  if (std::isfinite(p.x) && std::isfinite(p.y)) return true;
  mv_warn(routine, "the point (%g, %g, %g) is not in front of the eye", (double)x, (double)y, (double)z);
  return false;
}

}  // namespace

void solid_reset_lights(MirvalState &s) {
  s.solid.lighting = SolidState().lighting;
  s.solid.lights = default_lights();
}
void solid_reset_material(MirvalState &s) {
  SolidState d;
  s.solid.mat_ambient = d.mat_ambient, s.solid.mat_diffuse = d.mat_diffuse, s.solid.mat_specular = d.mat_specular;
  s.solid.shininess = d.shininess;
}
void solid_reset_zbuffer(MirvalState &s) {
  SolidState d;
  s.solid.zbf_mode = d.zbf_mode, s.solid.zbf_scale = d.zbf_scale, s.solid.hide = d.hide, s.solid.clip = d.clip;
}
void solid_reset_transform(MirvalState &s) {
  SolidState d;
  std::memcpy(s.solid.m, d.m, sizeof d.m);
  std::memcpy(s.solid.t, d.t, sizeof d.t);
  std::memcpy(s.solid.rot, d.rot, sizeof d.rot);
}
void solid_reset_view(MirvalState &s) {
  Space3D d;
  s.space.ortho = d.ortho;
  std::memcpy(s.space.focus, d.focus, sizeof d.focus);
  s.space.focus_user = d.focus_user, s.space.vscale = d.vscale;
  s.space.near_clip = d.near_clip, s.space.far_clip = d.far_clip;
}
void solid_reset_marks(MirvalState &s) {
  SolidState d;
  s.solid.hsym = d.hsym, s.solid.thick = d.thick;
}
void solid_reset_surface(MirvalState &s) {
  SolidState d;
  s.solid.surface_mode = d.surface_mode, s.solid.face = d.face, s.solid.mesh_colour = d.mesh_colour;
  s.solid.mesh_every = d.mesh_every, s.solid.sursze_set = d.sursze_set, s.solid.shlsur = d.shlsur;
}
void solid_reset_other(MirvalState &s) {
  SolidState d;
  std::memcpy(s.solid.res3d, d.res3d, sizeof d.res3d);
  std::memcpy(s.solid.autres3d, d.autres3d, sizeof d.autres3d);
  s.solid.label3d = d.label3d, s.solid.flab3d = d.flab3d;
}

extern "C" {

// ---- lights and material ----

void light(const char *c) {
  mv_tracef("light(%s)", mv_tstr(c).c_str());
  int k = listed_keyword("light", "option", c, {"ON", "OFF"});
  if (k >= 0) sol().lighting = k == 0;
}

void litmod(int id, const char *c) {
  mv_tracef("litmod(%d, %s)", id, mv_tstr(c).c_str());
  if (!light_id("litmod", id)) return;
  int k = listed_keyword("litmod", "option", c, {"ON", "OFF"});
  if (k >= 0) sol().lights[id - 1].on = k == 0;
}

void litpos(int id, float x, float y, float z, const char *c) {
  mv_tracef("litpos(%d, %g, %g, %g, %s)", id, (double)x, (double)y, (double)z, mv_tstr(c).c_str());
  if (!light_id("litpos", id) || !finite3("litpos", x, y, z)) return;
  int mode = same(c, "ABS") ? 1 : same(c, "USER") ? 2 : same(c, "ANGLE") ? 3 : same(c, "VIEW") ? 0 : -1;
  if (mode < 0) {
    mv_warn("litpos", "unknown option %s (ABS, USER, ANGLE or VIEW)", mv_tstr(c).c_str());
    return;
  }
  if (mode == 0 && x == 0 && y == 0 && z == 0) {
    mv_warn("litpos", "a direction needs a non-zero vector");
    return;
  }
  Light &l = sol().lights[id - 1];
  l.mode = mode;
  l.pos[0] = x, l.pos[1] = y, l.pos[2] = z;
}

void litopt(int id, float x, const char *c) {
  mv_tracef("litopt(%d, %g, %s)", id, (double)x, mv_tstr(c).c_str());
  if (!light_id("litopt", id)) return;
  if (!(x >= 0) || !(x <= 1e6)) {
    mv_warn("litopt", "value %g must be non-negative", (double)x);
    return;
  }
  Light &l = sol().lights[id - 1];
  if (Rgb *part = colour_part(c, l.ambient, l.diffuse, l.specular)) {
    *part = Rgb{x, x, x};
  } else if (same(c, "CONSTANT")) {
    l.att[0] = x;
  } else if (same(c, "LINEAR")) {
    l.att[1] = x;
  } else if (same(c, "QUADRATIC")) {
    l.att[2] = x;
  } else {
    mv_warn("litopt", "unknown option %s (AMBIENT, DIFFUSE, SPECULAR, CONSTANT, LINEAR, QUADRATIC)",
            mv_tstr(c).c_str());
  }
}

void litop3(int id, float r, float g, float b, const char *c) {
  mv_tracef("litop3(%d, %g, %g, %g, %s)", id, (double)r, (double)g, (double)b, mv_tstr(c).c_str());
  if (!light_id("litop3", id)) return;
  Light &l = sol().lights[id - 1];
  set_colour3("litop3", r, g, b, c, l.ambient, l.diffuse, l.specular);
}

void matopt(float x, const char *c) {
  mv_tracef("matopt(%g, %s)", (double)x, mv_tstr(c).c_str());
  if (same(c, "EXPONENT") || same(c, "SHININESS")) {
    if (in_range("matopt", "exponent", x, 0, 1000)) sol().shininess = x;
    return;
  }
  SolidState &s = sol();
  Rgb *part = colour_part(c, s.mat_ambient, s.mat_diffuse, s.mat_specular);
  if (!part) {
    mv_warn("matopt", "unknown option %s (AMBIENT, DIFFUSE, SPECULAR or EXPONENT)", mv_tstr(c).c_str());
    return;
  }
  if (in_range("matopt", "fraction", x, 0, 1)) *part = Rgb{x, x, x};
}

void matop3(float r, float g, float b, const char *c) {
  mv_tracef("matop3(%g, %g, %g, %s)", (double)r, (double)g, (double)b, mv_tstr(c).c_str());
  SolidState &s = sol();
  set_colour3("matop3", r, g, b, c, s.mat_ambient, s.mat_diffuse, s.mat_specular);
}

int getlit(float xp, float yp, float zp, float xn, float yn, float zn) {
  mv_tracef("getlit(%g, %g, %g, %g, %g, %g)", (double)xp, (double)yp, (double)zp, (double)xn, (double)yn,
            (double)zn);
  if (!mv_level("getlit", 3, 3)) return -1;
  if (!finite3("getlit", xp, yp, zp) || !finite3("getlit", xn, yn, zn)) return -1;
  if (xn == 0 && yn == 0 && zn == 0) {
    mv_warn("getlit", "the normal must not be zero");
    return -1;
  }
  V3 p = s3::user_to_box({xp, yp, zp}), n = s3::normal_to_box({xn, yn, zn});
  Rgb c = s3::shade(p, n, pen_rgb());
  auto b = [](float v) { return int(std::lround(v * 255)); };
  return b(c.r) << 16 | b(c.g) << 8 | b(c.b);
}

// ---- the depth buffer ----

int zbfini(void) {
  mv_tracef("zbfini()");
  if (!s3::begin("zbfini")) return 1;
  sol().zbf_session = true;
  return 0;
}

void zbffin(void) {
  mv_tracef("zbffin()");
  if (!sol().zbf_session) {
    mv_warn("zbffin", "no depth buffer is open (ZBFINI)");
    return;
  }
  sol().zbf_session = false;
  s3::end();
}

void zbfmod(const char *c) {
  mv_tracef("zbfmod(%s)", mv_tstr(c).c_str());
  int m = listed_keyword("zbfmod", "option", c, {"AUTO", "RASTER", "VECTOR"});
  if (m >= 0) sol().zbf_mode = m;
}

void zbfscl(float x) {
  mv_tracef("zbfscl(%g)", (double)x);
  if (in_range("zbfscl", "samples per pixel", x, 1, 4)) sol().zbf_scale = int(std::lround(x));
}

void zbfres(void) {
  mv_tracef("zbfres()");
  if (mv_level("zbfres", 3, 3)) s3::reset_depths();
}

void zbfers(void) {
  mv_tracef("zbfers()");
  if (mv_level("zbfers", 3, 3)) s3::erase_group();
}

void zbflin(float x1, float y1, float z1, float x2, float y2, float z2) {
  mv_tracef("zbflin(%g, %g, %g, %g, %g, %g)", (double)x1, (double)y1, (double)z1, (double)x2, (double)y2, (double)z2);
  if (!finite3("zbflin", x1, y1, z1) || !finite3("zbflin", x2, y2, z2) || !s3::begin("zbflin")) return;
  s3::segment(s3::user_to_box({x1, y1, z1}), s3::user_to_box({x2, y2, z2}), pen_rgb(), mirval_state().pen.width);
  s3::end();
}

void zbftri(const float *x, const float *y, const float *z, const int *ic) {
  mv_tracef("zbftri(xray=%s, yray=%s, zray=%s, icray=%s)", mv_tarr(3, "floats").c_str(), mv_tarr(3, "floats").c_str(),
            mv_tarr(3, "floats").c_str(), mv_tarr(3, "ints").c_str());
  if (!x || !y || !z || !ic) {
    mv_warn("zbftri", "three corners and three colours are needed");
    return;
  }
  for (int k = 0; k < 3; ++k) {
    if (!finite3("zbftri", x[k], y[k], z[k])) return;
    if (ic[k] < 0 || ic[k] > 255) {
      mv_warn("zbftri", "colour %d out of range 0..255", ic[k]);
      return;
    }
  }
  if (!s3::begin("zbftri")) return;
  V3 p[3];
  for (int k = 0; k < 3; ++k) p[k] = s3::user_to_box({x[k], y[k], z[k]});
  V3 n = s3::unit(s3::cross(p[1] - p[0], p[2] - p[0]));
  auto v = [&](int k) { return s3::vertex(p[k], n, table_rgb(ic[k])); };
  s3::triangle(v(0), v(1), v(2), sol().lighting);
  s3::end();
}

void nohide(void) {
  mv_tracef("nohide()");
  sol().hide = false;
}

void clip3d(const char *c) {
  mv_tracef("clip3d(%s)", mv_tstr(c).c_str());
  int m = listed_keyword("clip3d", "option", c, {"NONE", "2D", "3D"});
  if (m >= 0) sol().clip = m;
}

// ---- views ----

void proj3d(const char *c) {
  mv_tracef("proj3d(%s)", mv_tstr(c).c_str());
  if (same(c, "PERSPECTIVE") || same(c, "PERSP")) mirval_state().space.ortho = false;
  else if (same(c, "ORTHO") || same(c, "ORTHOGRAPHIC")) mirval_state().space.ortho = true;
  else mv_warn("proj3d", "unknown projection %s (PERSPECTIVE or ORTHO)", mv_tstr(c).c_str());
}

void vfoc3d(float x, float y, float z, const char *c) {
  mv_tracef("vfoc3d(%g, %g, %g, %s)", (double)x, (double)y, (double)z, mv_tstr(c).c_str());
  if (!finite3("vfoc3d", x, y, z)) return;
  int k = listed_keyword("vfoc3d", "option", c, {"ABS", "USER"});
  if (k < 0) return;
  Space3D &sp = mirval_state().space;
  sp.focus[0] = x, sp.focus[1] = y, sp.focus[2] = z;
  sp.focus_user = k == 1;
}

void vscl3d(float x) {
  mv_tracef("vscl3d(%g)", (double)x);
  if (in_range("vscl3d", "scale", x, 0.01, 100)) mirval_state().space.vscale = x;
}

void vclp3d(float xnear, float xfar) {
  mv_tracef("vclp3d(%g, %g)", (double)xnear, (double)xfar);
  if (!(xnear >= 0) || !(xfar >= 0) || !std::isfinite(xnear) || !std::isfinite(xfar) || (xfar > 0 && xfar <= xnear)) {
    mv_warn("vclp3d", "distances must be non-negative and the far one beyond the near one (got %g, %g)",
            (double)xnear, (double)xfar);
    return;
  }
  mirval_state().space.near_clip = xnear;
  mirval_state().space.far_clip = xfar;
}

// ---- object transformations ----

void tr3res(void) {
  mv_tracef("tr3res()");
  solid_reset_transform(mirval_state());
}

void tr3shf(float x, float y, float z) {
  mv_tracef("tr3shf(%g, %g, %g)", (double)x, (double)y, (double)z);
  if (!finite3("tr3shf", x, y, z)) return;
  SolidState &s = sol();
  s.t[0] += x, s.t[1] += y, s.t[2] += z;
}

void tr3scl(float x, float y, float z) {
  mv_tracef("tr3scl(%g, %g, %g)", (double)x, (double)y, (double)z);
  if (!finite3("tr3scl", x, y, z)) return;
  if (x == 0 || y == 0 || z == 0) {
    mv_warn("tr3scl", "scale factors must not be zero (got %g, %g, %g)", (double)x, (double)y, (double)z);
    return;
  }
  const double m[3][3] = {{x, 0, 0}, {0, y, 0}, {0, 0, z}};
  after(m);
}

void tr3rot(float a, float b, float c) {
  mv_tracef("tr3rot(%g, %g, %g)", (double)a, (double)b, (double)c);
  if (!finite3("tr3rot", a, b, c)) return;
  double r[3][3];
  rotation(0, a, r), after(r);
  rotation(1, b, r), after(r);
  rotation(2, c, r), after(r);
}

void tr3axs(float x, float y, float z, float a) {
  mv_tracef("tr3axs(%g, %g, %g, %g)", (double)x, (double)y, (double)z, (double)a);
  if (!finite3("tr3axs", x, y, z) || !std::isfinite(a)) return;
  V3 k = {x, y, z};
  double len = std::sqrt(s3::dot(k, k));
  if (!(len > 0)) {
    mv_warn("tr3axs", "the axis must not be zero");
    return;
  }
  k = k * (1 / len);
  double t = a * M_PI / 180, c = std::cos(t), s = std::sin(t), v = 1 - c;
  const double r[3][3] = {{c + k.x * k.x * v, k.x * k.y * v - k.z * s, k.x * k.z * v + k.y * s},
                          {k.y * k.x * v + k.z * s, c + k.y * k.y * v, k.y * k.z * v - k.x * s},
                          {k.z * k.x * v - k.y * s, k.z * k.y * v + k.x * s, c + k.z * k.z * v}};
  after(r);
}

void rot3d(float a, float b, float c) {
  mv_tracef("rot3d(%g, %g, %g)", (double)a, (double)b, (double)c);
  if (!finite3("rot3d", a, b, c)) return;
  SolidState &s = sol();
  s.rot[0] = a, s.rot[1] = b, s.rot[2] = c;
}

// ---- positions ----

}  // extern "C"

namespace {

// Page point of a user point: plot coordinates (ABS3PT, PAGORG honoured) and box coordinates.
bool abs_point(const char *routine, float x, float y, float z, float &xp, float &yp) {
  xp = yp = 0;
  if (!mv_level(routine, 3, 3) || !finite3(routine, x, y, z)) return false;
  double p[3] = {x, y, z};
  Pt q = project(mirval_state().space.cam, p);
  if (!std::isfinite(q.x)) {
    mv_warn(routine, "the point (%g, %g, %g) is not in front of the eye", (double)x, (double)y, (double)z);
    return false;
  }
  xp = float(q.x), yp = float(page_y(q.y));
  return true;
}

bool rel_point(const char *routine, float x, float y, float z, float &xp, float &yp) {
  xp = yp = 0;
  Pt q;
  if (!finite3(routine, x, y, z) || !projected(routine, x, y, z, q)) return false;
  xp = float(q.x), yp = float(page_y(q.y));
  return true;
}

// ABS3PT and REL3PT: the page point given back where the caller has room for it.
void give_point(bool (*point)(const char *, float, float, float, float &, float &), const char *routine, float x,
                float y, float z, float *xp, float *yp) {
  float a, b;
  point(routine, x, y, z, a, b);
  if (xp) *xp = a;
  if (yp) *yp = b;
}

bool box_point(const char *routine, float x, float y, float z, float out[3]) {
  out[0] = out[1] = out[2] = 0;
  if (!mv_level(routine, 3, 3) || !finite3(routine, x, y, z)) return false;
  for (int k = 0; k < 3; ++k) out[k] = float(box_coord(k, k == 0 ? x : k == 1 ? y : z));
  return true;
}

}  // namespace

extern "C" {

void abs3pt(float x, float y, float z, float *xp, float *yp) {
  mv_tracef("abs3pt(x=%g, y=%g, z=%g, xp=out, yp=out)", (double)x, (double)y, (double)z);
  give_point(abs_point, "abs3pt", x, y, z, xp, yp);
}

void rel3pt(float x, float y, float z, float *xp, float *yp) {
  mv_tracef("rel3pt(x=%g, y=%g, z=%g, xp=out, yp=out)", (double)x, (double)y, (double)z);
  give_point(rel_point, "rel3pt", x, y, z, xp, yp);
}

void pos3pt(float x, float y, float z, float *xp, float *yp, float *zp) {
  mv_tracef("pos3pt(x=%g, y=%g, z=%g, xp=out, yp=out, zp=out)", (double)x, (double)y, (double)z);
  float o[3];
  box_point("pos3pt", x, y, z, o);
  if (xp) *xp = o[0];
  if (yp) *yp = o[1];
  if (zp) *zp = o[2];
}

#define CONV(NAME, FN, K)                                               \
  double NAME(float x, float y, float z) {                              \
    mv_tracef(#NAME "(%g, %g, %g)", (double)x, (double)y, (double)z);   \
    float o[3];                                                         \
    FN(#NAME, x, y, z, o[0], o[1]);                                     \
    return o[K];                                                        \
  }
CONV(x3dabs, abs_point, 0)
CONV(y3dabs, abs_point, 1)
CONV(x3drel, rel_point, 0)
CONV(y3drel, rel_point, 1)
#undef CONV

double x3dpos(float x, float y, float z) {
  mv_tracef("x3dpos(%g, %g, %g)", (double)x, (double)y, (double)z);
  float o[3];
  box_point("x3dpos", x, y, z, o);
  return o[0];
}
double y3dpos(float x, float y, float z) {
  mv_tracef("y3dpos(%g, %g, %g)", (double)x, (double)y, (double)z);
  float o[3];
  box_point("y3dpos", x, y, z, o);
  return o[1];
}
double z3dpos(float x, float y, float z) {
  mv_tracef("z3dpos(%g, %g, %g)", (double)x, (double)y, (double)z);
  float o[3];
  box_point("z3dpos", x, y, z, o);
  return o[2];
}

}  // extern "C"

extern "C" {

void labl3d(const char *c) {
  mv_tracef("labl3d(%s)", mv_tstr(c).c_str());
  if (listed_keyword("labl3d", "option", c, {"HORI", "NONE"}) >= 0) sol().label3d = upper(c);
}

void flab3d(void) {
  mv_tracef("flab3d()");
  sol().flab3d = true;
}

}  // extern "C"
