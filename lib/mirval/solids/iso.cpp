// Iso-surfaces of data on a 3-D grid: every grid cell cut into six tetrahedra around its main
// diagonal (the same way in every cell, so that neighbours share their cuts and the surface
// has no cracks), each tetrahedron cut by the level. Corners on the grid's edges are shared,
// so the mesh is closed where the surface does not leave the grid, and every triangle faces
// towards greater values.
#include "solids/iso.h"
#include "core/messages.h"
#include "core/trace.h"
#include "draw/draw.h"
#include "mirval.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace s3 {

IsoMesh iso_surface(const float *x, int nx, const float *y, int ny, const float *z, int nz, const float *w,
                    double level) {
  IsoMesh m;
  auto gidx = [&](int i, int j, int k) { return (long(i) * ny + j) * nz + k; };
  std::unordered_map<unsigned long long, int> made;  // grid edge -> corner
  auto corner = [&](long a, long b) {
    if (a > b) std::swap(a, b);
    unsigned long long key = (unsigned long long)a * 7ull * (unsigned long long)(long(nx) * ny * nz) + (unsigned long long)b;
    auto it = made.find(key);
    if (it != made.end()) return it->second;
    auto pos = [&](long g) {
      int k = int(g % nz), j = int((g / nz) % ny), i = int(g / (long(ny) * nz));
      return V3{x[i], y[j], z[k]};
    };
    double wa = w[a], wb = w[b];
    double t = wa != wb ? (level - wa) / (wb - wa) : 0.5;
    t = std::min(1.0, std::max(0.0, t));
    V3 pa = pos(a), pb = pos(b);
    m.p.push_back(pa + (pb - pa) * t);
    int id = int(m.p.size()) - 1;
    made.emplace(key, id);
    return id;
  };
  // the cube's corners: bit 0 x, bit 1 y, bit 2 z; six tetrahedra around the diagonal 0-7
  static const int tet[6][4] = {{0, 1, 3, 7}, {0, 3, 2, 7}, {0, 2, 6, 7}, {0, 6, 4, 7}, {0, 4, 5, 7}, {0, 5, 1, 7}};
  for (int i = 0; i + 1 < nx; ++i)
    for (int j = 0; j + 1 < ny; ++j)
      for (int k = 0; k + 1 < nz; ++k) {
        long g[8];
        double v[8];
        bool finite = true, above = false, below = false;
        for (int c = 0; c < 8; ++c) {
          g[c] = gidx(i + (c & 1), j + (c >> 1 & 1), k + (c >> 2 & 1));
          v[c] = w[g[c]];
          finite = finite && std::isfinite(v[c]);
          (v[c] > level ? above : below) = true;
        }
        if (!finite || !above || !below) continue;
        for (const int *t : tet) {
          std::vector<int> in, out;  // corners below and above the level
          for (int c = 0; c < 4; ++c) (v[t[c]] > level ? out : in).push_back(t[c]);
          if (in.empty() || out.empty()) continue;
          std::vector<int> tri;
          auto add = [&](int a, int b, int c) {
            // face towards greater values: from the corners below to those above
            V3 pa = m.p[a], pb = m.p[b], pc = m.p[c];
            V3 lo{0, 0, 0}, hi{0, 0, 0};
            for (int q : in) {
              int ii = q & 1, jj = q >> 1 & 1, kk = q >> 2 & 1;
              lo = lo + V3{x[i + ii], y[j + jj], z[k + kk]} * (1.0 / in.size());
            }
            for (int q : out) {
              int ii = q & 1, jj = q >> 1 & 1, kk = q >> 2 & 1;
              hi = hi + V3{x[i + ii], y[j + jj], z[k + kk]} * (1.0 / out.size());
            }
            if (dot(cross(pb - pa, pc - pa), hi - lo) < 0) std::swap(b, c);
            if (a == b || b == c || a == c) return;
            m.tri.push_back({a, b, c});
          };
          if (in.size() == 1 || out.size() == 1) {
            int apex = in.size() == 1 ? in[0] : out[0];
            const std::vector<int> &rest = in.size() == 1 ? out : in;
            add(corner(g[apex], g[rest[0]]), corner(g[apex], g[rest[1]]), corner(g[apex], g[rest[2]]));
          } else {  // two and two: a quadrilateral
            int a = corner(g[in[0]], g[out[0]]), b = corner(g[in[0]], g[out[1]]);
            int c = corner(g[in[1]], g[out[1]]), d = corner(g[in[1]], g[out[0]]);
            add(a, b, c);
            add(a, c, d);
          }
        }
      }
  return m;
}

}  // namespace s3

namespace {

bool iso_args(const char *routine, const float *x, int nx, const float *y, int ny, const float *z, int nz,
              const float *w, float level) {
  if (!x || !y || !z || !w || nx < 2 || ny < 2 || nz < 2 || double(nx) * ny * nz > 3e8) {
    mv_warn(routine, "the grid needs at least 2 x 2 x 2 points (got %d x %d x %d)", nx, ny, nz);
    return false;
  }
  if (!std::isfinite(level)) {
    mv_warn(routine, "the level must be finite");
    return false;
  }
  for (auto [c, n] : {std::pair{x, nx}, {y, ny}, {z, nz}})
    for (int i = 0; i + 1 < n; ++i)
      if (!(c[i + 1] > c[i])) {
        mv_warn(routine, "grid coordinates must increase");
        return false;
      }
  return true;
}

}  // namespace

extern "C" {

void suriso(const float *x, int nx, const float *y, int ny, const float *z, int nz, const float *w, float wlev) {
  mv_tracef("suriso(xray=%s, nx=%d, yray=%s, ny=%d, zray=%s, nz=%d, wmat=%s, wlev=%g)", mv_tarr(nx, "floats").c_str(),
            nx, mv_tarr(ny, "floats").c_str(), ny, mv_tarr(nz, "floats").c_str(), nz,
            mv_tarr(nx * ny * nz, "floats").c_str(), (double)wlev);
  if (!iso_args("suriso", x, nx, y, ny, z, nz, w, wlev) || !s3::begin("suriso")) return;
  s3::IsoMesh m = s3::iso_surface(x, nx, y, ny, z, nz, w, wlev);
  std::vector<s3::V3> p(m.p.size()), n(m.p.size(), s3::V3{0, 0, 0});
  for (size_t i = 0; i < p.size(); ++i) p[i] = s3::user_to_box(m.p[i]);
  for (auto &t : m.tri) {
    s3::V3 f = s3::cross(p[t[1]] - p[t[0]], p[t[2]] - p[t[0]]);
    for (int c : t) n[c] = n[c] + f;
  }
  s3::mesh({p, n, {pen_rgb()}}, m.tri);
  s3::end();
}

void isopts(const float *x, int nx, const float *y, int ny, const float *z, int nz, const float *w, float wlev,
            float *xtri, float *ytri, float *ztri, int maxtri, int *ntri) {
  mv_tracef("isopts(xray=%s, nx=%d, yray=%s, ny=%d, zray=%s, nz=%d, wmat=%s, wlev=%g, xtri=%s, ytri=%s, ztri=%s, "
            "maxtri=%d, ntri=out)",
            mv_tarr(nx, "floats").c_str(), nx, mv_tarr(ny, "floats").c_str(), ny, mv_tarr(nz, "floats").c_str(), nz,
            mv_tarr(nx * ny * nz, "floats").c_str(), (double)wlev, mv_tarr(maxtri, "floats out").c_str(),
            mv_tarr(maxtri, "floats out").c_str(), mv_tarr(maxtri, "floats out").c_str(), maxtri);
  if (ntri) *ntri = 0;
  if (!xtri || !ytri || !ztri || !ntri || maxtri < 3) {
    mv_warn("isopts", "the output arrays need room for at least one triangle (maxtri = %d)", maxtri);
    return;
  }
  if (!iso_args("isopts", x, nx, y, ny, z, nz, w, wlev)) return;
  s3::IsoMesh m = s3::iso_surface(x, nx, y, ny, z, nz, w, wlev);
  size_t room = size_t(maxtri) / 3, n = std::min(room, m.tri.size());
  if (m.tri.size() > room)
    mv_warn("isopts", "room for %zu of %zu triangles: the rest are left out", room, m.tri.size());
  for (size_t t = 0; t < n; ++t)
    for (int c = 0; c < 3; ++c) {
      const s3::V3 &p = m.p[m.tri[t][c]];
      xtri[3 * t + c] = float(p.x), ytri[3 * t + c] = float(p.y), ztri[3 * t + c] = float(p.z);
    }
  *ntri = int(n);
}

}  // extern "C"
