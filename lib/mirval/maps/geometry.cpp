#include "maps/geometry.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double RAD = M_PI / 180;

struct V3 {
  double x = 0, y = 0, z = 0;
};
V3 to3(LL p) {
  double cl = std::cos(p.lat * RAD);
  return {cl * std::cos(p.lon * RAD), cl * std::sin(p.lon * RAD), std::sin(p.lat * RAD)};
}
LL to_ll(V3 v) {
  double h = std::hypot(v.x, v.y);
  return {std::atan2(v.y, v.x) / RAD, std::atan2(v.z, h) / RAD};
}
double dot(V3 a, V3 b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
V3 lerp(V3 a, V3 b, double t) { return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t, a.z + (b.z - a.z) * t}; }
V3 unit(V3 v) {
  double n = std::sqrt(dot(v, v));
  return n > 0 ? V3{v.x / n, v.y / n, v.z / n} : V3{0, 0, 1};
}
V3 cross(V3 a, V3 b) { return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x}; }

double delta(double d) {
  d = std::fmod(d + 180, 360);
  if (d < 0) d += 360;
  return d - 180;
}

// Longitude differences beyond this much are taken as a jump across the seam.
bool finite(LL p) { return std::isfinite(p.lon) && std::isfinite(p.lat); }

// Liang-Barsky: the part of segment a-b inside the box, as parameters t0..t1.
bool clip_segment(LL a, LL b, const Region &r, double &t0, double &t1) {
  t0 = 0, t1 = 1;
  double dx = b.lon - a.lon, dy = b.lat - a.lat;
  double p[4] = {-dx, dx, -dy, dy};
  double q[4] = {a.lon - r.lon_a, r.lon_e - a.lon, a.lat - r.lat_a, r.lat_e - a.lat};
  for (int i = 0; i < 4; ++i) {
    if (p[i] == 0) {
      if (q[i] < 0) return false;
      continue;
    }
    double t = q[i] / p[i];
    if (p[i] < 0) t0 = std::max(t0, t);
    else t1 = std::min(t1, t);
  }
  return t0 <= t1;
}

LL at(LL a, LL b, double t) { return {a.lon + (b.lon - a.lon) * t, a.lat + (b.lat - a.lat) * t}; }

bool in_box(LL p, const Region &r) {
  return p.lon >= r.lon_a && p.lon <= r.lon_e && p.lat >= r.lat_a && p.lat <= r.lat_e;
}

void box_pieces(const LLine &piece, const Region &r, std::vector<LLine> &out) {
  // most lines lie wholly inside: nothing to cut
  if (std::all_of(piece.begin(), piece.end(), [&](LL p) { return in_box(p, r); })) {
    out.push_back(piece);
    return;
  }
  LLine cur;
  for (size_t i = 0; i + 1 < piece.size(); ++i) {
    double t0, t1;
    if (!clip_segment(piece[i], piece[i + 1], r, t0, t1)) {
      if (cur.size() > 1) out.push_back(cur);
      cur.clear();
      continue;
    }
    LL p0 = at(piece[i], piece[i + 1], t0), p1 = at(piece[i], piece[i + 1], t1);
    if (cur.empty() || t0 > 0) {
      if (cur.size() > 1) out.push_back(cur);
      cur = {p0};
    }
    cur.push_back(p1);
    if (t1 < 1) {
      if (cur.size() > 1) out.push_back(cur);
      cur.clear();
    }
  }
  if (cur.size() > 1) out.push_back(cur);
}

// Where along a-b (both as unit vectors, a inside) the cap's edge lies.
double cap_crossing(V3 a, V3 b, V3 c, double cmin) {
  double lo = 0, hi = 1;
  for (int k = 0; k < 40; ++k) {
    double m = (lo + hi) / 2;
    if (dot(unit(lerp(a, b, m)), c) >= cmin) lo = m;
    else hi = m;
  }
  return lo;
}

// Clips a polygon of unit vectors to the cap; points on the cap's edge are marked.
struct CapPt {
  V3 v;
  bool edge = false;
};

std::vector<CapPt> clip_cap(const std::vector<V3> &poly, V3 c, double cmin) {
  std::vector<CapPt> out;
  size_t n = poly.size();
  for (size_t i = 0; i < n; ++i) {
    V3 a = poly[i], b = poly[(i + 1) % n];
    bool ina = dot(a, c) >= cmin, inb = dot(b, c) >= cmin;
    if (ina) out.push_back({a, false});
    if (ina != inb) {
      double t = ina ? cap_crossing(a, b, c, cmin) : 1 - cap_crossing(b, a, c, cmin);
      out.push_back({unit(lerp(a, b, t)), true});
    }
  }
  return out;
}

}  // namespace

double wrap_lon(double lon, double lon0) { return lon0 + delta(lon - lon0); }

double angular_distance(LL a, LL b) {
  double d = std::clamp(dot(to3(a), to3(b)), -1.0, 1.0);
  return std::acos(d) / RAD;
}

LLine great_circle(LL a, LL b, double step) {
  V3 p = to3(a), q = to3(b);
  double ang = angular_distance(a, b);
  int n = std::max(1, static_cast<int>(std::ceil(ang / std::max(step, 1e-3))));
  n = std::min(n, 10000);
  LLine out;
  out.reserve(n + 1);
  out.push_back(a);
  double w = ang * RAD, s = std::sin(w);
  for (int k = 1; k < n; ++k) {
    double t = double(k) / n;
    V3 v = s > 1e-12 ? V3{(std::sin((1 - t) * w) * p.x + std::sin(t * w) * q.x) / s,
                          (std::sin((1 - t) * w) * p.y + std::sin(t * w) * q.y) / s,
                          (std::sin((1 - t) * w) * p.z + std::sin(t * w) * q.z) / s}
                     : unit(lerp(p, q, t));
    out.push_back(to_ll(v));
  }
  out.push_back(b);
  return out;
}

std::vector<LLine> cut_line(const LLine &line, const Region &r) {
  std::vector<LLine> out;
  if (r.cap) {
    V3 c = to3({r.lon0, r.lat0});
    double cmin = std::cos(r.cap_deg * RAD);
    LLine cur;
    for (size_t i = 0; i < line.size(); ++i) {
      if (!finite(line[i])) {
        if (cur.size() > 1) out.push_back(cur);
        cur.clear();
        continue;
      }
      V3 v = to3(line[i]);
      bool in = dot(v, c) >= cmin;
      if (i > 0 && finite(line[i - 1])) {
        V3 u = to3(line[i - 1]);
        bool was = dot(u, c) >= cmin;
        if (was && !in) cur.push_back(to_ll(unit(lerp(u, v, cap_crossing(u, v, c, cmin)))));
        if (!was && in) cur = {to_ll(unit(lerp(u, v, 1 - cap_crossing(v, u, c, cmin))))};
      }
      if (in) cur.push_back(line[i]);
      else {
        if (cur.size() > 1) out.push_back(cur);
        cur.clear();
      }
    }
    if (cur.size() > 1) out.push_back(cur);
    return out;
  }
  // split at the seam, then cut to the box
  std::vector<LLine> pieces;
  LLine cur;
  cur.reserve(line.size());
  for (size_t i = 0; i < line.size(); ++i) {
    if (!finite(line[i])) {
      if (!cur.empty()) pieces.push_back(std::move(cur));
      cur.clear();
      continue;
    }
    LL p{wrap_lon(line[i].lon, r.lon0), line[i].lat};
    if (!cur.empty()) {
      LL q = cur.back();
      double u = q.lon + delta(p.lon - q.lon);  // p continued from q
      if (u > r.lon0 + 180 || u < r.lon0 - 180) {
        double seam = u > q.lon ? r.lon0 + 180 : r.lon0 - 180;
        double t = u != q.lon ? (seam - q.lon) / (u - q.lon) : 0;
        double lat = q.lat + (p.lat - q.lat) * t;
        cur.push_back({seam, lat});
        pieces.push_back(std::move(cur));
        cur = {{seam > r.lon0 ? seam - 360 : seam + 360, lat}};
      } else {
        p.lon = u;  // 180 and -180 are the same meridian: stay on the side the line came from
      }
    }
    cur.push_back(p);
  }
  if (!cur.empty()) pieces.push_back(std::move(cur));
  for (const LLine &piece : pieces) {
    if (piece.size() == 1) continue;
    box_pieces(piece, r, out);
  }
  return out;
}

namespace {

LLine densify(const LLine &poly, double step) {
  LLine out;
  size_t n = poly.size();
  out.reserve(n + n / 4);
  for (size_t i = 0; i < n; ++i) {
    LL a = poly[i], b = poly[(i + 1) % n];
    out.push_back(a);
    double d = std::max(std::fabs(b.lon - a.lon), std::fabs(b.lat - a.lat));
    int k = static_cast<int>(std::min(1000.0, std::ceil(d / step)));
    for (int j = 1; j < k; ++j) out.push_back(at(a, b, double(j) / k));
  }
  return out;
}

// Sutherland-Hodgman against one side of the box: keep where sign * (coord - v) >= 0.
LLine clip_side(const LLine &poly, bool lon, double v, double sign) {
  LLine out;
  size_t n = poly.size();
  for (size_t i = 0; i < n; ++i) {
    LL a = poly[i], b = poly[(i + 1) % n];
    double fa = sign * ((lon ? a.lon : a.lat) - v), fb = sign * ((lon ? b.lon : b.lat) - v);
    if (fa >= 0) out.push_back(a);
    if ((fa >= 0) != (fb >= 0)) {
      LL p = at(a, b, fa / (fa - fb));
      if (lon) p.lon = v;
      else p.lat = v;
      out.push_back(p);
    }
  }
  return out;
}

}  // namespace

std::vector<LLine> cut_polygon(const LLine &in, const Region &r, double step) {
  std::vector<LLine> out;
  LLine poly;
  for (LL p : in)
    if (finite(p)) poly.push_back(p);
  if (poly.size() > 1 && poly.front().lon == poly.back().lon && poly.front().lat == poly.back().lat)
    poly.pop_back();
  if (poly.size() < 3) return out;
  step = std::max(step, 0.01);
  if (r.cap) {
    V3 c = to3({r.lon0, r.lat0});
    double cmin = std::cos(r.cap_deg * RAD);
    std::vector<V3> v;
    for (LL p : poly) v.push_back(to3(p));
    std::vector<CapPt> cut = clip_cap(v, c, cmin);
    if (cut.size() < 3) return out;
    // an orthonormal frame of the cap's plane, for walking along its edge
    V3 e1 = unit(cross(c, std::fabs(c.z) < 0.9 ? V3{0, 0, 1} : V3{1, 0, 0})), e2 = cross(c, e1);
    double rad = std::sqrt(std::max(0.0, 1 - cmin * cmin));
    LLine res;
    size_t n = cut.size();
    for (size_t i = 0; i < n; ++i) {
      CapPt a = cut[i], b = cut[(i + 1) % n];
      res.push_back(to_ll(a.v));
      if (a.edge && b.edge) {
        double ta = std::atan2(dot(a.v, e2), dot(a.v, e1)), tb = std::atan2(dot(b.v, e2), dot(b.v, e1));
        double d = tb - ta;
        while (d > M_PI) d -= 2 * M_PI;
        while (d < -M_PI) d += 2 * M_PI;
        int k = static_cast<int>(std::ceil(std::fabs(d) / RAD / step));
        for (int j = 1; j < k; ++j) {
          double t = ta + d * j / k;
          V3 p{cmin * c.x + rad * (std::cos(t) * e1.x + std::sin(t) * e2.x),
               cmin * c.y + rad * (std::cos(t) * e1.y + std::sin(t) * e2.y),
               cmin * c.z + rad * (std::cos(t) * e1.z + std::sin(t) * e2.z)};
          res.push_back(to_ll(p));
        }
      } else {
        double ang = std::acos(std::clamp(dot(a.v, b.v), -1.0, 1.0)) / RAD;
        int k = static_cast<int>(std::min(1000.0, std::ceil(ang / step)));
        for (int j = 1; j < k; ++j) res.push_back(to_ll(unit(lerp(a.v, b.v, double(j) / k))));
      }
    }
    out.push_back(res);
    return out;
  }
  // continuous longitudes
  LLine u(poly.size());
  u[0] = {wrap_lon(poly[0].lon, r.lon0), poly[0].lat};
  double mean_lat = poly[0].lat;
  for (size_t i = 1; i < poly.size(); ++i) {
    u[i] = {u[i - 1].lon + delta(poly[i].lon - poly[i - 1].lon), poly[i].lat};
    mean_lat += poly[i].lat;
  }
  mean_lat /= poly.size();
  double net = u.back().lon + delta(poly[0].lon - poly.back().lon) - u[0].lon;
  if (std::fabs(net) > 180) {  // around a pole: close over it
    double pole = mean_lat >= 0 ? 90 : -90;
    u.push_back({u[0].lon + net, u[0].lat});
    u.push_back({u[0].lon + net, pole});
    u.push_back({u[0].lon, pole});
  }
  double lo = INFINITY, hi = -INFINITY, south = INFINITY, north = -INFINITY;
  for (LL p : u) {
    lo = std::min(lo, p.lon), hi = std::max(hi, p.lon);
    south = std::min(south, p.lat), north = std::max(north, p.lat);
  }
  double a = std::max(r.lon_a, r.lon0 - 180), e = std::min(r.lon_e, r.lon0 + 180);
  bool lat_inside = south >= r.lat_a && north <= r.lat_e;
  for (int k = -2; k <= 2; ++k) {
    double s = 360.0 * k;
    if (hi + s <= a + 1e-9 || lo + s >= e - 1e-9) continue;
    LLine q = u;
    for (LL &p : q) p.lon += s;
    if (lat_inside && lo + s >= a && hi + s <= e) {  // wholly inside: nothing to cut
      out.push_back(densify(q, step));
      continue;
    }
    q = clip_side(q, true, a, 1);
    if (q.size() >= 3) q = clip_side(q, true, e, -1);
    if (q.size() >= 3) q = clip_side(q, false, r.lat_a, 1);
    if (q.size() >= 3) q = clip_side(q, false, r.lat_e, -1);
    if (q.size() >= 3) out.push_back(densify(q, step));
  }
  return out;
}
