// Surfaces in the depth group: lit grid surfaces (SURSHD with lighting on), surfaces of
// functions (SURFUN) and parametric ones (SURFCP), triangulated surfaces (SURTRI), surfaces
// coloured by a second matrix (SURSHC), shaded contours on a surface (CONSHD3D), and the
// surface options.
#include "solids/surfaces3d.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "core/trace.h"
#include "draw/colours.h"
#include "draw/draw.h"
#include "grids/colour_matrix.h"
#include "mirval.h"
#include "output/device.h"
#include "solids/render3d.h"

#include <algorithm>
#include <cmath>

using s3::V3;
using s3::vertex;

namespace {

SolidState &sol() { return mirval_state().solid; }

Rgb mesh_rgb() {
  int c = sol().mesh_colour;
  return c < 0 ? pen_rgb() : table_rgb(c);
}

// SETFCE: whether a triangle with box normal n (its upper side +Z) shows the side asked for.
bool face_shown(V3 centre, V3 n) {
  int f = sol().face;
  if (f == 0) return true;
  const Camera &c = mirval_state().space.cam;
  V3 view = c.ortho ? V3{-c.w[0], -c.w[1], -c.w[2]} : V3{c.eye[0], c.eye[1], c.eye[2]} - centre;
  if (n.z < 0) n = n * -1;  // the upper side
  bool top_seen = s3::dot(n, view) > 0;
  return f == 1 ? top_seen : !top_seen;
}

void tri(const Vtx3 &a, const Vtx3 &b, const Vtx3 &c, bool lit) {
  V3 pa{a.p[0], a.p[1], a.p[2]}, pb{b.p[0], b.p[1], b.p[2]}, pc{c.p[0], c.p[1], c.p[2]};
  if (sol().face && !face_shown((pa + pb + pc) * (1.0 / 3), s3::cross(pb - pa, pc - pa))) return;
  s3::triangle(a, b, c, lit);
}

}  // namespace

namespace s3 {

void grid_mesh(const std::vector<V3> &p, int nu, int nv, const std::vector<Rgb> &colours, bool lit, int lines_u,
               int lines_v, bool fill) {
  auto at = [&](int i, int j) { return size_t(i) * nv + j; };
  // per-vertex normals from the neighbours (central differences along both grid directions)
  std::vector<V3> nrm(p.size());
  for (int i = 0; i < nu; ++i)
    for (int j = 0; j < nv; ++j) {
      int i0 = std::max(0, i - 1), i1 = std::min(nu - 1, i + 1), j0 = std::max(0, j - 1), j1 = std::min(nv - 1, j + 1);
      V3 du = p[at(i1, j)] - p[at(i0, j)], dv = p[at(i, j1)] - p[at(i, j0)];
      nrm[at(i, j)] = unit(cross(du, dv));
    }
  if (fill) {
    std::vector<std::array<int, 3>> tris;
    tris.reserve(size_t(nu) * nv * 2);
    auto add = [&](size_t a, size_t b, size_t c) {
      if (!sol().face || face_shown((p[a] + p[b] + p[c]) * (1.0 / 3), cross(p[b] - p[a], p[c] - p[a])))
        tris.push_back({int(a), int(b), int(c)});
    };
    for (int i = 0; i + 1 < nu; ++i)
      for (int j = 0; j + 1 < nv; ++j) {
        size_t k00 = at(i, j), k10 = at(i + 1, j), k11 = at(i + 1, j + 1), k01 = at(i, j + 1);
        bool ok = true;
        for (size_t k : {k00, k10, k11, k01}) ok = ok && std::isfinite(p[k].x + p[k].y + p[k].z);
        if (!ok) continue;
        add(k00, k10, k11);
        add(k00, k11, k01);
      }
    mesh({p, nrm, colours}, tris, lit);
  }
  Rgb m = mesh_rgb();
  double w = mirval_state().pen.width;
  if (lines_u > 0)
    for (int i = 0; i < nu; i += lines_u)
      for (int j = 0; j + 1 < nv; ++j) segment(p[at(i, j)], p[at(i, j + 1)], m, w);
  if (lines_v > 0)
    for (int j = 0; j < nv; j += lines_v)
      for (int i = 0; i + 1 < nu; ++i) segment(p[at(i, j)], p[at(i + 1, j)], m, w);
}

bool lit_surface(const char *routine, const float *x, int nx, const float *y, int ny, const float *z,
                 const float *w) {
  if (!begin(routine)) return false;
  const MirvalState &st = mirval_state();
  std::vector<V3> p(size_t(nx) * ny);
  std::vector<Rgb> c(p.size());
  for (int i = 0; i < nx; ++i)
    for (int j = 0; j < ny; ++j) {
      size_t k = size_t(i) * ny + j;
      p[k] = user_to_box({x[i], y[j], z[k]});
      int e = z_colour(w ? w[k] : z[k]);
      if (e < 0) p[k] = {NAN, NAN, NAN};
      c[k] = table_rgb(std::max(0, std::min(255, e)));
    }
  int every = st.space.mesh ? std::max(1, st.solid.mesh_every) : 0;
  grid_mesh(p, nx, ny, c, true, every, every, true);
  end();
  return true;
}

}  // namespace s3

namespace {

// A surface of points computed per grid point, with its lines every 'lu'-th / 'lv'-th grid
// line: filled in the background colour (or lit in the pen's colour when lighting is on) so
// that it hides what lies behind, as SUROPT asks.
void function_surface(const std::vector<V3> &p, int nu, int nv, int lu, int lv) {
  const SolidState &s = sol();
  bool fill = s.surface_mode != 1, lines = s.surface_mode != 2;
  Rgb c = s.lighting ? pen_rgb() : back_rgb();
  s3::grid_mesh(p, nu, nv, {c}, s.lighting, lines ? lu : 0, lines ? lv : 0, fill);
}

// The grid points of an axis range a..e with step d (at most 2000 points).
bool steps(const char *routine, double a, double e, double d, std::vector<double> &out) {
  if (!std::isfinite(a) || !std::isfinite(e) || !std::isfinite(d) || !(d > 0) || a == e) {
    mv_warn(routine, "step %g must be positive and the range %g..%g not empty", d, a, e);
    return false;
  }
  double lo = std::min(a, e), hi = std::max(a, e);
  double n = std::floor((hi - lo) / d + 1e-9);
  if (n > 2000) {
    mv_warn(routine, "step %g gives more than 2000 points over %g..%g", d, lo, hi);
    return false;
  }
  out.clear();
  for (int k = 0; k <= int(n); ++k) out.push_back(lo + k * d);
  if (hi - out.back() > 1e-9 * (hi - lo)) out.push_back(hi);
  return out.size() >= 2;
}

bool grid_args(const char *routine, const float *x, int nx, const float *y, int ny, const float *z) {
  if (!x || !y || !z || nx < 2 || ny < 2) {
    mv_warn(routine, "the matrix needs at least 2 x 2 points (nx = %d, ny = %d)", nx, ny);
    return false;
  }
  return mv_level(routine, 3, 3);
}

// Cuts polygon q (box points with values f) to the values lo..hi.
void band(const std::vector<V3> &q, const std::vector<double> &f, double lo, double hi, std::vector<V3> &out) {
  std::vector<V3> a;
  std::vector<double> fa;
  auto clip = [](const std::vector<V3> &in, const std::vector<double> &fin, double lim, int sgn, std::vector<V3> &o,
                 std::vector<double> &fo) {
    o.clear(), fo.clear();
    size_t n = in.size();
    for (size_t i = 0; i < n; ++i) {
      size_t j = (i + 1) % n;
      double di = sgn * (fin[i] - lim), dj = sgn * (fin[j] - lim);
      if (di >= 0) o.push_back(in[i]), fo.push_back(fin[i]);
      if ((di >= 0) != (dj >= 0)) {
        double t = di / (di - dj);
        o.push_back(in[i] + (in[j] - in[i]) * t), fo.push_back(fin[i] + (fin[j] - fin[i]) * t);
      }
    }
  };
  clip(q, f, lo, 1, a, fa);
  std::vector<double> fo;
  if (a.size() >= 3) clip(a, fa, hi, -1, out, fo);
  else out.clear();
}

}  // namespace

extern "C" {

void surfun(MvSurfaceFn fn, int ixpts, float xdel, int iypts, float ydel) {
  mv_tracef("surfun(fn=callback, ixpts=%d, xdel=%g, iypts=%d, ydel=%g)", ixpts, (double)xdel, iypts, (double)ydel);
  if (!mv_level("surfun", 3, 3)) return;
  if (!fn) {
    mv_warn("surfun", "the function is missing");
    return;
  }
  if (ixpts < 0 || iypts < 0 || (ixpts == 0 && iypts == 0) || ixpts > 10000 || iypts > 10000) {
    mv_warn("surfun", "line steps must be non-negative and not both 0 (got %d, %d)", ixpts, iypts);
    return;
  }
  const MirvalState &st = mirval_state();
  const SolidState &s = st.solid;
  const Space3D &sp = st.space;
  double xa = s.sursze_set ? s.sursze[0] : sp.range[0].a, xe = s.sursze_set ? s.sursze[1] : sp.range[0].e;
  double ya = s.sursze_set ? s.sursze[2] : sp.range[1].a, ye = s.sursze_set ? s.sursze[3] : sp.range[1].e;
  if (sp.range[0].log) xa = std::pow(10.0, xa), xe = std::pow(10.0, xe);
  if (sp.range[1].log) ya = std::pow(10.0, ya), ye = std::pow(10.0, ye);
  std::vector<double> xs, ys;
  if (!steps("surfun", xa, xe, xdel, xs) || !steps("surfun", ya, ye, ydel, ys)) return;
  // every value first, in grid order, so that the callbacks come in a predictable order
  std::vector<V3> p(xs.size() * ys.size());
  for (size_t i = 0; i < xs.size(); ++i)
    for (size_t j = 0; j < ys.size(); ++j) {
      float z = fn(float(xs[i]), float(ys[j]));
      p[i * ys.size() + j] = std::isfinite(z) ? s3::user_to_box({xs[i], ys[j], z}) : V3{NAN, NAN, NAN};
    }
  if (!s3::begin("surfun")) return;
  function_surface(p, int(xs.size()), int(ys.size()), ixpts, iypts);
  s3::end();
}

void surfcp(MvParamSurfaceFn fn, float a1, float a2, float astp, float b1, float b2, float bstp) {
  mv_tracef("surfcp(fn=callback, a1=%g, a2=%g, astp=%g, b1=%g, b2=%g, bstp=%g)", (double)a1, (double)a2,
            (double)astp, (double)b1, (double)b2, (double)bstp);
  if (!mv_level("surfcp", 3, 3)) return;
  if (!fn) {
    mv_warn("surfcp", "the function is missing");
    return;
  }
  std::vector<double> as, bs;
  if (!steps("surfcp", a1, a2, astp, as) || !steps("surfcp", b1, b2, bstp, bs)) return;
  std::vector<V3> p(as.size() * bs.size());
  for (size_t i = 0; i < as.size(); ++i)
    for (size_t j = 0; j < bs.size(); ++j) {
      float x = fn(float(as[i]), float(bs[j]), 1);
      float y = fn(float(as[i]), float(bs[j]), 2);
      float z = fn(float(as[i]), float(bs[j]), 3);
      p[i * bs.size() + j] = std::isfinite(x + y + z) ? s3::user_to_box({x, y, z}) : V3{NAN, NAN, NAN};
    }
  if (!s3::begin("surfcp")) return;
  function_surface(p, int(as.size()), int(bs.size()), 1, 1);
  s3::end();
}

void sursze(float xa, float xe, float ya, float ye) {
  mv_tracef("sursze(%g, %g, %g, %g)", (double)xa, (double)xe, (double)ya, (double)ye);
  if (!std::isfinite(xa + xe + ya + ye) || xa == xe || ya == ye) {
    mv_warn("sursze", "the ranges must be finite and not empty (got %g..%g, %g..%g)", (double)xa, (double)xe,
            (double)ya, (double)ye);
    return;
  }
  SolidState &s = sol();
  s.sursze[0] = xa, s.sursze[1] = xe, s.sursze[2] = ya, s.sursze[3] = ye;
  s.sursze_set = true;
}

void suropt(const char *c) {
  mv_tracef("suropt(%s)", mv_tstr(c).c_str());
  int m = listed_keyword("suropt", "option", c, {"BOTH", "LINES", "FILL"});
  if (m >= 0) sol().surface_mode = m;
}

void setfce(const char *c) {
  mv_tracef("setfce(%s)", mv_tstr(c).c_str());
  int m = listed_keyword("setfce", "side", c, {"ALL", "TOP", "BOTTOM"});
  if (m >= 0) sol().face = m;
}

void mshclr(int n) {
  mv_tracef("mshclr(%d)", n);
  if (in_range("mshclr", "colour", n, -1, 255)) sol().mesh_colour = n;
}

void mshcrv(int n) {
  mv_tracef("mshcrv(%d)", n);
  if (in_range("mshcrv", "step", n, 1, 10000)) sol().mesh_every = n;
}

void shlsur(void) {
  mv_tracef("shlsur()");
  sol().shlsur = true;
}

void surtri(const float *x, const float *y, const float *z, int n, const int *i1, const int *i2, const int *i3,
            int ntri) {
  mv_tracef("surtri(xray=%s, yray=%s, zray=%s, n=%d, i1ray=%s, i2ray=%s, i3ray=%s, ntri=%d)",
            mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), mv_tarr(n, "floats").c_str(), n,
            mv_tarr(ntri, "ints").c_str(), mv_tarr(ntri, "ints").c_str(), mv_tarr(ntri, "ints").c_str(), ntri);
  if (!x || !y || !z || !i1 || !i2 || !i3 || n < 3 || ntri < 1) {
    mv_warn("surtri", "at least 3 points and 1 triangle are needed (n = %d, ntri = %d)", n, ntri);
    return;
  }
  // corners count from 1, as the triangulation routines give them
  for (int t = 0; t < ntri; ++t)
    for (int k : {i1[t], i2[t], i3[t]})
      if (k < 1 || k > n) {
        mv_warn("surtri", "triangle %d names point %d outside 1..%d", t + 1, k, n);
        return;
      }
  if (!s3::begin("surtri")) return;
  std::vector<V3> p(n), nrm(n, V3{0, 0, 0});
  std::vector<Rgb> c(n);
  for (int k = 0; k < n; ++k) {
    p[k] = s3::user_to_box({x[k], y[k], z[k]});
    int e = z_colour(z[k]);
    c[k] = table_rgb(std::max(0, std::min(255, e)));
  }
  for (int t = 0; t < ntri; ++t) {
    V3 f = s3::cross(p[i2[t] - 1] - p[i1[t] - 1], p[i3[t] - 1] - p[i1[t] - 1]);
    if (f.z < 0) f = f * -1;  // the upper side, whatever the corners' order
    for (int k : {i1[t], i2[t], i3[t]}) nrm[k - 1] = nrm[k - 1] + f;
  }
  for (int t = 0; t < ntri; ++t) {
    int a = i1[t] - 1, b = i2[t] - 1, cc = i3[t] - 1;
    tri(vertex(p[a], nrm[a], c[a]), vertex(p[b], nrm[b], c[b]), vertex(p[cc], nrm[cc], c[cc]), sol().lighting);
  }
  s3::end();
}

void surshc(const float *x, int nx, const float *y, int ny, const float *z, const float *w) {
  mv_tracef("surshc(xray=%s, nx=%d, yray=%s, ny=%d, zmat=%s, wmat=%s)", mv_tarr(nx, "floats").c_str(), nx,
            mv_tarr(ny, "floats").c_str(), ny, mv_tarr(matrix_size(nx, ny), "floats").c_str(),
            mv_tarr(matrix_size(nx, ny), "floats").c_str());
  if (!grid_args("surshc", x, nx, y, ny, z)) return;
  if (!w) {
    mv_warn("surshc", "the colour matrix is missing");
    return;
  }
  s3::lit_surface("surshc", x, nx, y, ny, z, w);
}

void conshd3d(const float *x, int nx, const float *y, int ny, const float *z, const float *zlev, int nlev) {
  mv_tracef("conshd3d(xray=%s, nx=%d, yray=%s, ny=%d, zmat=%s, zlev=%s, nlev=%d)", mv_tarr(nx, "floats").c_str(), nx,
            mv_tarr(ny, "floats").c_str(), ny, mv_tarr(matrix_size(nx, ny), "floats").c_str(),
            mv_tarr(nlev, "floats").c_str(), nlev);
  if (!grid_args("conshd3d", x, nx, y, ny, z)) return;
  if (!zlev || nlev < 1 || nlev > 1000) {
    mv_warn("conshd3d", "the number of levels must lie in 1..1000 (got %d)", nlev);
    return;
  }
  std::vector<double> lev;
  for (int k = 0; k < nlev; ++k) {
    if (!std::isfinite(zlev[k]) || (k > 0 && !(zlev[k] > zlev[k - 1]))) {
      mv_warn("conshd3d", "levels must be finite and increase (level %d)", k + 1);
      return;
    }
    lev.push_back(zlev[k]);
  }
  if (!s3::begin("conshd3d")) return;
  // each cell's two triangles cut into the bands between levels; band k in the colour of the
  // Z axis at its lower level (below the first level: not drawn)
  std::vector<V3> p(size_t(nx) * ny), nrm(p.size());
  for (int i = 0; i < nx; ++i)
    for (int j = 0; j < ny; ++j) p[size_t(i) * ny + j] = s3::user_to_box({x[i], y[j], z[size_t(i) * ny + j]});
  for (int i = 0; i < nx; ++i)
    for (int j = 0; j < ny; ++j) {
      int i0 = std::max(0, i - 1), i1 = std::min(nx - 1, i + 1), j0 = std::max(0, j - 1), j1 = std::min(ny - 1, j + 1);
      nrm[size_t(i) * ny + j] = s3::unit(s3::cross(p[size_t(i1) * ny + j] - p[size_t(i0) * ny + j],
                                                   p[size_t(i) * ny + j1] - p[size_t(i) * ny + j0]));
    }
  std::vector<Rgb> colours;
  for (int k = 0; k < nlev; ++k) {
    int e = z_colour(lev[k]);
    colours.push_back(table_rgb(std::max(0, std::min(255, e))));
  }
  bool lit = sol().lighting;
  for (int i = 0; i + 1 < nx; ++i)
    for (int j = 0; j + 1 < ny; ++j) {
      size_t k[4] = {size_t(i) * ny + j, size_t(i + 1) * ny + j, size_t(i + 1) * ny + j + 1, size_t(i) * ny + j + 1};
      for (int half = 0; half < 2; ++half) {
        size_t t[3] = {k[0], k[1 + half], k[2 + half]};
        std::vector<V3> q;
        std::vector<double> f;
        V3 n{0, 0, 0};
        bool ok = true;
        for (size_t m : t) {
          q.push_back(p[m]), f.push_back(z[m]), n = n + nrm[m];
          ok = ok && std::isfinite(z[m]) && std::isfinite(p[m].x + p[m].y + p[m].z);
        }
        if (!ok) continue;
        for (int b = 0; b < nlev; ++b) {
          double lo = lev[b], hi = b + 1 < nlev ? lev[b + 1] : INFINITY;
          std::vector<V3> piece;
          band(q, f, lo, hi, piece);
          for (size_t m = 1; m + 1 < piece.size(); ++m)
            tri(vertex(piece[0], n, colours[b]), vertex(piece[m], n, colours[b]), vertex(piece[m + 1], n, colours[b]),
                lit);
        }
      }
    }
  s3::end();
}

}  // extern "C"
