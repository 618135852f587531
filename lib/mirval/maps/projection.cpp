#include "maps/projection.h"
#include "core/state.h"

#include <proj.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

const ProjectionInfo map_projections[] = {
    {"CYLI", "eqc", MapFamily::Cylindrical, "cylindrical equidistant (plate carrée)"},
    {"MERC", "merc", MapFamily::Cylindrical, "Mercator (latitudes cut at 85°)"},
    {"EQUA", "cea", MapFamily::Cylindrical, "Lambert's equal-area cylindrical"},
    {"MILL", "mill", MapFamily::Cylindrical, "Miller cylindrical"},
    {"MOLL", "moll", MapFamily::Pseudo, "Mollweide (equal area)"},
    {"HAMM", "hammer", MapFamily::Pseudo, "Hammer-Aitoff (equal area)"},
    {"AITO", "aitoff", MapFamily::Pseudo, "Aitoff"},
    {"WINK", "wintri", MapFamily::Pseudo, "Winkel tripel"},
    {"ROBI", "robin", MapFamily::Pseudo, "Robinson"},
    {"SANS", "sinu", MapFamily::Pseudo, "Sanson-Flamsteed (sinusoidal)"},
    {"LAMB", "lcc", MapFamily::Conic, "Lambert conformal conic"},
    {"ALBE", "aea", MapFamily::Conic, "Albers equal-area conic"},
    {"CONI", "eqdc", MapFamily::Conic, "equidistant conic"},
    {"STER", "stere", MapFamily::Azimuthal, "stereographic (polar when centred on a pole)"},
    {"ORTH", "ortho", MapFamily::Azimuthal, "orthographic (the globe as seen from afar)"},
    {"GNOM", "gnom", MapFamily::Azimuthal, "gnomonic (great circles are straight)"},
    {"AZIM", "aeqd", MapFamily::Azimuthal, "azimuthal equidistant"},
    {"USER", "", MapFamily::User, "the script's own, through SETCBK(name, 'PROJ')"},
    {nullptr, nullptr, MapFamily::User, nullptr}};

const ProjectionInfo *find_projection(const std::string &key) {
  for (const ProjectionInfo *p = map_projections; p->key; ++p)
    if (key.compare(0, 4, p->key) == 0 && key.size() >= 4) return p;
  return nullptr;
}

namespace {

// One PROJ context for the process and the transformation of the latest set-up, so that a
// script drawing map after map in one projection sets PROJ up once. Each transformation holds
// the context: it goes after the last map that uses it, in whatever order things end at exit.
struct Transformations {
  std::shared_ptr<pj_ctx> ctx;
  std::string definition;
  std::shared_ptr<PJconsts> latest;
};

std::shared_ptr<PJconsts> transformation(const std::string &def) {
  static Transformations t;
  if (t.latest && t.definition == def) return t.latest;
  if (!t.ctx) {
    t.ctx.reset(proj_context_create(), proj_context_destroy);
    proj_log_level(t.ctx.get(), PJ_LOG_NONE);
  }
  PJ *pj = proj_create(t.ctx.get(), def.c_str());
  if (!pj) return nullptr;
  std::shared_ptr<pj_ctx> ctx = t.ctx;
  t.latest.reset(pj, [ctx](PJ *p) { proj_destroy(p); });  // the one before goes with its last map
  t.definition = def;
  return t.latest;
}

std::string num(double v) {
  char b[40];
  std::snprintf(b, sizeof b, "%.10g", v);
  return b;
}

}  // namespace

// The point as PROJ takes it: radians, longitude relative to the central meridian (azimuthal
// definitions carry their centre themselves); false where no projection has a place for it.
bool MapProjection::radians(LL p, double &lam, double &phi) const {
  if (!std::isfinite(p.lon) || !std::isfinite(p.lat) || std::fabs(p.lat) > 90.0001) return false;
  double l = p.lon;
  if (info->family != MapFamily::Azimuthal) {
    l = std::fmod(p.lon - region.lon0 + 180, 360);
    if (l < 0) l += 360;
    l -= 180;
    if (p.lon - region.lon0 >= 180 - 1e-9 && l < 0) l = 180;  // the eastern edge stays east
  }
  lam = proj_torad(l);
  phi = proj_torad(std::clamp(p.lat, -lat_limit, lat_limit));
  return true;
}

bool MapProjection::forward(LL p, double &X, double &Y) const {
  if (user) {
    if (!std::isfinite(p.lon) || !std::isfinite(p.lat) || std::fabs(p.lat) > 90.0001) return false;
    float x = static_cast<float>(p.lon), y = static_cast<float>(p.lat);
    user(&x, &y);
    X = x, Y = y;
    return std::isfinite(X) && std::isfinite(Y) && std::fabs(X) < 1e15 && std::fabs(Y) < 1e15;
  }
  PJ_COORD c = proj_coord(0, 0, 0, 0);
  if (!radians(p, c.lp.lam, c.lp.phi)) return false;
  proj_errno_reset(pj);
  PJ_COORD r = proj_trans(pj, PJ_FWD, c);
  if (proj_errno(pj) || !std::isfinite(r.xy.x) || !std::isfinite(r.xy.y) || r.xy.x == HUGE_VAL)
    return false;
  X = r.xy.x, Y = r.xy.y;
  return true;
}

void MapProjection::pages(const LLine &pts, std::vector<Pt> &out) const {
  out.resize(pts.size());
  if (pts.empty()) return;
  if (user) {
    for (size_t i = 0; i < pts.size(); ++i) out[i] = page(pts[i]);
    return;
  }
  // one call for the whole line: PROJ's per-call set-up costs more than the formula
  static thread_local std::vector<PJ_COORD> c;
  c.resize(pts.size());
  for (size_t i = 0; i < pts.size(); ++i) {
    c[i] = proj_coord(0, 0, 0, 0);
    if (!radians(pts[i], c[i].lp.lam, c[i].lp.phi)) c[i].lp.lam = HUGE_VAL;
  }
  proj_trans_generic(pj, PJ_FWD, &c[0].lp.lam, sizeof(PJ_COORD), c.size(), &c[0].lp.phi,
                     sizeof(PJ_COORD), c.size(), nullptr, 0, 0, nullptr, 0, 0);
  for (size_t i = 0; i < pts.size(); ++i) {
    double X = c[i].xy.x, Y = c[i].xy.y;
    bool ok = std::isfinite(X) && std::isfinite(Y) && X != HUGE_VAL && Y != HUGE_VAL;
    out[i] = ok ? Pt{ox + (X - X0) * scale, oy - (Y - Y0) * scale} : Pt{NAN, NAN};
  }
}

bool MapProjection::inverse(double X, double Y, LL &p) const {
  if (user || !pj) return false;
  proj_errno_reset(pj);
  PJ_COORD r = proj_trans(pj, PJ_INV, proj_coord(X, Y, 0, 0));
  if (proj_errno(pj) || !std::isfinite(r.lp.lam) || !std::isfinite(r.lp.phi) || r.lp.lam == HUGE_VAL)
    return false;
  p.lon = proj_todeg(r.lp.lam) + (info->family == MapFamily::Azimuthal ? 0 : region.lon0);
  p.lat = proj_todeg(r.lp.phi);
  // a point the projection folds back onto itself lies outside the map
  double X2, Y2;
  if (!forward(p, X2, Y2)) return false;
  return std::hypot(X2 - X, Y2 - Y) < 1e-6 * std::max(1.0, std::max(X1 - X0, Y1 - Y0));
}

Pt MapProjection::page(LL p) const {
  double X, Y;
  if (!forward(p, X, Y)) return {NAN, NAN};
  return {ox + (X - X0) * scale, oy - (Y - Y0) * scale};
}

bool MapProjection::unpage(Pt q, LL &p) const {
  if (!(scale > 0)) return false;
  return inverse(X0 + (q.x - ox) / scale, Y0 + (oy - q.y) / scale, p);
}

void MapProjection::place(double x0, double y0, double x1, double y1, double &bx0, double &by0,
                          double &bx1, double &by1) {
  double w = std::max(X1 - X0, 1e-12), h = std::max(Y1 - Y0, 1e-12);
  scale = std::min((x1 - x0) / w, (y1 - y0) / h);
  bx0 = (x0 + x1) / 2 - w * scale / 2;
  bx1 = bx0 + w * scale;
  by1 = (y0 + y1) / 2 + h * scale / 2;
  by0 = by1 - h * scale;
  ox = bx0;
  oy = by1;
}

std::vector<std::vector<Pt>> MapProjection::page_lines(const LLine &line) const {
  std::vector<std::vector<Pt>> out;
  std::vector<Pt> q;
  for (const LLine &piece : cut_line(line, region)) {
    pages(piece, q);
    std::vector<Pt> cur;
    for (Pt p : q) {
      if (std::isfinite(p.x) && std::isfinite(p.y)) {
        cur.push_back(p);
      } else {
        if (cur.size() > 1) out.push_back(cur);
        cur.clear();
      }
    }
    if (cur.size() > 1) out.push_back(std::move(cur));
  }
  return out;
}

std::vector<std::vector<Pt>> MapProjection::page_polygons(const LLine &poly, double step) const {
  std::vector<std::vector<Pt>> out;
  std::vector<Pt> q;
  for (const LLine &piece : cut_polygon(poly, region, step)) {
    pages(piece, q);
    q.erase(std::remove_if(q.begin(), q.end(), [](Pt p) { return !std::isfinite(p.x) || !std::isfinite(p.y); }),
            q.end());
    if (q.size() > 2) out.push_back(std::move(q));
  }
  return out;
}

std::vector<Pt> MapProjection::outline() const {
  LLine ring;
  const Region &r = region;
  if (r.cap) {
    double c = r.cap_deg;
    // the cap's edge: walk around the centre at angular distance c
    double la = r.lat0 * M_PI / 180, lo = r.lon0 * M_PI / 180, d = c * M_PI / 180;
    for (int k = 0; k < 360; ++k) {
      double az = k * M_PI / 180;
      double lat = std::asin(std::sin(la) * std::cos(d) + std::cos(la) * std::sin(d) * std::cos(az));
      double lon = lo + std::atan2(std::sin(az) * std::sin(d) * std::cos(la),
                                   std::cos(d) - std::sin(la) * std::sin(lat));
      if (std::fabs(std::cos(la)) < 1e-9) lon = lo + az;  // around a pole every azimuth is a meridian
      // just inside, so that the projection has a place for it
      ring.push_back({lon * 180 / M_PI, lat * 180 / M_PI});
    }
    std::vector<Pt> out;
    LL centre{r.lon0, r.lat0};
    for (LL p : ring) {
      Pt q = page(p);
      if (!std::isfinite(q.x)) {
        // at the exact horizon some projections have no place: step inwards a little
        LLine g = great_circle(p, centre, 0.05);
        q = page(g.size() > 1 ? g[1] : p);
      }
      if (std::isfinite(q.x) && std::isfinite(q.y)) out.push_back(q);
    }
    return out;
  }
  int n = 180;
  for (int k = 0; k <= n; ++k) ring.push_back({r.lon_a + (r.lon_e - r.lon_a) * k / n, r.lat_a});
  for (int k = 1; k <= n / 2; ++k) ring.push_back({r.lon_e, r.lat_a + (r.lat_e - r.lat_a) * k / (n / 2)});
  for (int k = 1; k <= n; ++k) ring.push_back({r.lon_e - (r.lon_e - r.lon_a) * k / n, r.lat_e});
  for (int k = 1; k < n / 2; ++k) ring.push_back({r.lon_a, r.lat_e - (r.lat_e - r.lat_a) * k / (n / 2)});
  std::vector<Pt> out;
  for (LL p : ring) {
    Pt q = page(p);
    if (std::isfinite(q.x) && std::isfinite(q.y)) out.push_back(q);
  }
  return out;
}

std::shared_ptr<MapProjection> make_projection(const std::string &key, double lon_a, double lon_e,
                                               double lat_a, double lat_e, float ref1, float ref2,
                                               float pole_lon, float pole_lat, double radius,
                                               void (*user)(float *, float *), std::string &err) {
  const ProjectionInfo *info = find_projection(key);
  if (!info) {
    err = "unknown projection";
    return nullptr;
  }
  auto m = std::make_shared<MapProjection>();
  m->info = info;
  Region &r = m->region;
  if (lon_e < lon_a) std::swap(lon_a, lon_e);
  if (lat_e < lat_a) std::swap(lat_a, lat_e);
  lat_a = std::max(lat_a, -90.0), lat_e = std::min(lat_e, 90.0);
  if (lon_e - lon_a > 360) lon_e = lon_a + 360;
  r.lon0 = (lon_a + lon_e) / 2;
  r.lon_a = lon_a, r.lon_e = lon_e, r.lat_a = lat_a, r.lat_e = lat_e;
  if (std::string(info->proj) == "merc") {
    m->lat_limit = 89.5;
    r.lat_a = std::max(r.lat_a, -85.0);
    r.lat_e = std::min(r.lat_e, 85.0);
  }
  double lat_mid = (lat_a + lat_e) / 2;
  std::string def = "+proj=" + std::string(info->proj) + " +R=" + num(radius);
  switch (info->family) {
    case MapFamily::User:
      if (!user) {
        err = "no projection procedure registered (SETCBK with 'PROJ')";
        return nullptr;
      }
      m->user = user;
      break;
    case MapFamily::Conic: {
      double p1 = std::isfinite(ref1) ? ref1 : lat_a + (lat_e - lat_a) / 6;
      double p2 = std::isfinite(ref2) ? ref2 : lat_e - (lat_e - lat_a) / 6;
      if (std::fabs(p1 + p2) < 1e-6) p2 += 1;  // parallels symmetric about the equator make no cone
      def += " +lat_1=" + num(p1) + " +lat_2=" + num(p2) + " +lat_0=" + num(lat_mid);
      break;
    }
    case MapFamily::Azimuthal: {
      bool full_lon = lon_e - lon_a >= 359.999;
      double clon = std::isfinite(pole_lon) ? pole_lon : r.lon0;
      double clat = std::isfinite(pole_lat) ? pole_lat
                    : full_lon && lat_e >= 90 && lat_a > -90 ? 90
                    : full_lon && lat_a <= -90 && lat_e < 90 ? -90
                                                             : lat_mid;
      r.lon0 = clon, r.lat0 = clat;
      r.cap = true;
      // the cap reaches as far as the range does, within what the projection can show
      double reach = 0;
      for (int i = 0; i <= 36; ++i)
        for (int j = 0; j <= 18; ++j) {
          LL p{lon_a + (lon_e - lon_a) * i / 36, lat_a + (lat_e - lat_a) * j / 18};
          reach = std::max(reach, angular_distance(p, {clon, clat}));
        }
      std::string pr = info->proj;
      double limit = pr == "ortho" ? 90 : pr == "gnom" ? 60 : pr == "stere" ? 130 : 179;
      r.cap_deg = std::clamp(reach, 1.0, limit);
      def += " +lat_0=" + num(clat) + " +lon_0=" + num(clon);
      if (pr == "stere" && std::fabs(std::fabs(clat) - 90) < 1e-9) def += " +lat_ts=" + num(clat);
      break;
    }
    default:
      if (std::string(info->proj) == "eqc" || std::string(info->proj) == "cea") def += " +lat_ts=0";
      break;
  }
  m->definition = info->family == MapFamily::User ? "user" : def;
  if (!user || info->family != MapFamily::User) {
    m->user = nullptr;
    m->transform = transformation(def);
    m->pj = m->transform.get();
    if (!m->pj) {
      err = std::string("PROJ refuses \"") + def + "\"";
      return nullptr;
    }
  }
  // the extent: every point of the region that has a place
  double x0 = INFINITY, x1 = -INFINITY, y0 = INFINITY, y1 = -INFINITY;
  auto take = [&](LL p) {
    double X, Y;
    if (!m->forward(p, X, Y)) return;
    x0 = std::min(x0, X), x1 = std::max(x1, X), y0 = std::min(y0, Y), y1 = std::max(y1, Y);
  };
  if (r.cap) {
    m->X0 = 0, m->Y0 = 0, m->scale = 1, m->ox = 0, m->oy = 0;
    for (Pt q : m->outline()) {
      double X = q.x, Y = -q.y;
      x0 = std::min(x0, X), x1 = std::max(x1, X), y0 = std::min(y0, Y), y1 = std::max(y1, Y);
    }
    take({r.lon0, r.lat0});
  } else {
    int ni = user ? 36 : 90, nj = user ? 18 : 45;
    for (int i = 0; i <= ni; ++i)
      for (int j = 0; j <= nj; ++j) {
        if (user && i != 0 && i != ni && j != 0 && j != nj && (i % 6 || j % 6)) continue;
        take({r.lon_a + (r.lon_e - r.lon_a) * i / ni, r.lat_a + (r.lat_e - r.lat_a) * j / nj});
      }
    // the equator too: pseudo-cylindrical maps are widest there, and the grid may miss it
    if (r.lat_a < 0 && r.lat_e > 0)
      for (int i = 0; i <= ni; ++i) take({r.lon_a + (r.lon_e - r.lon_a) * i / ni, 0});
  }
  if (!(x1 > x0) || !(y1 > y0)) {
    err = "the range has no extent in this projection";
    return nullptr;
  }
  m->X0 = x0, m->X1 = x1, m->Y0 = y0, m->Y1 = y1;
  return m;
}

const MapProjection *current_map() {
  const MirvalState &st = mirval_state();
  const MapState &m = st.map;
  if (st.level != 2 || !m.active) return nullptr;
  // another axis system since GRAFMP means the map is no longer in force
  const Rect &b = st.axes.box;
  if (b.x0 != m.box[0] || b.y0 != m.box[1] || b.x1 != m.box[2] || b.y1 != m.box[3] ||
      st.axes.range[0].a != m.range_a || st.axes.range[0].e != m.range_e)
    return nullptr;
  return m.active.get();
}

bool map_user_point(double lon, double lat, double &px, double &py) {
  const MapProjection *m = current_map();
  if (!m) return false;
  Pt q{NAN, NAN};
  if (!cut_line({{lon, lat}, {lon, lat}}, m->region).empty()) q = m->page({lon, lat});
  px = q.x, py = q.y;
  return true;
}

bool map_page_to_user(double px, double py, double &lon, double &lat) {
  const MapProjection *m = current_map();
  if (!m) return false;
  LL p;
  if (m->unpage({px, py}, p)) lon = p.lon, lat = p.lat;
  else lon = lat = NAN;
  return true;
}

std::vector<Pt> map_cut(double lon_a, double lat_a, double lon_b, double lat_b) {
  const MapProjection *m = current_map();
  std::vector<Pt> out;
  if (!m || !std::isfinite(lon_a) || !std::isfinite(lat_a) || !std::isfinite(lon_b) || !std::isfinite(lat_b))
    return out;
  LL a{lon_a, lat_a}, b{lon_b, lat_b};
  std::vector<LLine> pieces = cut_line({a, b}, m->region);
  // cut_line brings longitudes next to the centre: 190 and -170 are one point
  auto same = [](LL p, LL q) { return std::fabs(wrap_lon(p.lon - q.lon, 0)) < 1e-9 && std::fabs(p.lat - q.lat) < 1e-9; };
  if (pieces.size() == 1 && same(pieces[0].front(), a) && same(pieces[0].back(), b)) return out;
  const Pt gap{NAN, NAN};
  if (pieces.empty()) out.push_back(gap);
  for (size_t k = 0; k < pieces.size(); ++k) {
    if (k > 0 || !same(pieces[k].front(), a)) out.push_back(gap), out.push_back(m->page(pieces[k].front()));
    if (k + 1 < pieces.size() || !same(pieces[k].back(), b)) out.push_back(m->page(pieces[k].back())), out.push_back(gap);
  }
  return out;
}
