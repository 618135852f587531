// Images on maps, the map's legend plate (scale bar and north arrow) and stand-alone map axes.
#include "maps/maps.h"
#include "maps/projection.h"
#include "axes/scaling.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "core/state.h"
#include "core/trace.h"
#include "draw/colours.h"
#include "draw/draw.h"
#include "draw/text.h"
#include "media/image_io.h"
#include "mirval.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>

namespace {

MapState &ms() { return mirval_state().map; }

const MapProjection *need_map(const char *routine) {
  if (!mv_level(routine, 2, 2)) return nullptr;
  const MapProjection *m = current_map();
  if (!m) mv_warn(routine, "no map axis system in force (GRAFMP)");
  return m;
}

// A map axis: ticks where the meridians (or parallels) meet the map's lower (left) edge.
void map_axis(const char *routine, bool xaxis, float a, float e, float org, float step, const char *name,
              int nlab, int npos) {
  const MapProjection *m = need_map(routine);
  if (!m) return;
  for (float v : {a, e, org, step})
    if (!std::isfinite(v) || std::fabs(v) > 1e6) {
      mv_warn(routine, "value %g is not usable", (double)v);
      return;
    }
  if (!(step > 0) || a == e || (e - a) / step > 1000) {
    mv_warn(routine, "step %g does not fit the range %g..%g", (double)step, (double)a, (double)e);
    return;
  }
  if (nlab < 0 || nlab > 1) {
    mv_warn(routine, "label switch %d not 0 or 1", nlab);
    return;
  }
  MirvalState &st = mirval_state();
  const Rect &box = st.axes.box;
  const Region &r = m->region;
  double h = st.text.height, tick = st.axes.ticlen_major;
  Rgb rgb = pen_rgb();
  double line = xaxis ? (npos > 0 ? page_y(npos) : box.y1) : (npos > 0 ? npos : box.x0);
  Path p;
  if (xaxis) p.move({box.x0, line}), p.line({box.x1, line});
  else p.move({line, box.y0}), p.line({line, box.y1});
  double lo = std::min(a, e), hi = std::max(a, e), eps = step * 1e-6;
  double reach = 0;
  for (double k = std::ceil((lo - org - eps) / step); k <= std::floor((hi - org + eps) / step); ++k) {
    double v = org + k * step;
    Pt q = xaxis ? m->page({v, r.cap ? r.lat0 : r.lat_a}) : m->page({r.cap ? r.lon0 : r.lon_a, v});
    double at = xaxis ? q.x : q.y;
    if (!std::isfinite(at) || (xaxis ? at < box.x0 - 0.5 || at > box.x1 + 0.5 : at < box.y0 - 0.5 || at > box.y1 + 0.5))
      continue;
    if (xaxis) {
      p.move({at, line}), p.line({at, line + tick});
      if (nlab) put_text(map_label(v, true), "", {at, line + tick + h * 0.4}, h, 0, Just::Center, VAlign::Top, rgb);
    } else {
      p.move({line, at}), p.line({line - tick, at});
      if (nlab) {
        std::string t = map_label(v, false);
        put_text(t, "", {line - tick - h * 0.4, at}, h, 0, Just::Right, VAlign::Middle, rgb);
        reach = std::max(reach, text_length(t, "", h));
      }
    }
  }
  stroke_path(p, rgb, st.pen.width, {});
  std::string title = name ? name : "";
  title.erase(title.find_last_not_of(' ') + 1);
  if (title.empty()) return;
  double hn = st.axes.hname;
  if (xaxis)
    put_text(title, "", {(box.x0 + box.x1) / 2, line + tick + h * (nlab ? 1.8 : 0.4)}, hn, 0, Just::Center, VAlign::Top, rgb);
  else
    put_text(title, "", {line - tick - reach - h * 1.2, (box.y0 + box.y1) / 2}, hn, 90, Just::Center, VAlign::Base, rgb);
}

}  // namespace

extern "C" {

void mapimg(const char *c, float x1, float x2, float x3, float x4, float x5, float x6) {
  mv_tracef("mapimg(%s, %g, %g, %g, %g, %g, %g)", mv_tstr(c).c_str(), (double)x1, (double)x2, (double)x3,
            (double)x4, (double)x5, (double)x6);
  const MapProjection *m = need_map("mapimg");
  if (!m) return;
  for (float v : {x1, x2, x3, x4, x5, x6})
    if (!std::isfinite(v) || std::fabs(v) > 1e6) {
      mv_warn("mapimg", "value %g is not usable", (double)v);
      return;
    }
  if (x1 == x2 || x3 == x4 || std::fabs(x3) > 90 || std::fabs(x4) > 90) {
    mv_warn("mapimg", "the image's range %g..%g, %g..%g is empty or beyond the globe", (double)x1, (double)x2,
            (double)x3, (double)x4);
    return;
  }
  if (m->user) {
    mv_warn("mapimg", "images need a projection that can be inverted; 'USER' cannot");
    return;
  }
  std::string name = c ? c : "";
  name.erase(name.find_last_not_of(' ') + 1);
  if (name.empty()) {
    mv_warn("mapimg", "no file name given");
    return;
  }
  RasterImage src;
  std::string err;
  if (!read_image(name, src, err) || src.w < 1 || src.h < 1) {
    mv_warn("mapimg", "cannot read the image %s%s%s", name.c_str(), err.empty() ? "" : ": ", err.c_str());
    return;
  }
  MirvalState &st = mirval_state();
  const Rect &box = st.axes.box;
  double cell = x5 > 0 ? std::clamp<double>(x5, 0.5, 100) : 2.5;
  double alpha = x6 > 0 && x6 <= 1 ? x6 : 1;
  int w = std::clamp(static_cast<int>(std::ceil((box.x1 - box.x0) / cell)), 1, 4000);
  int h = std::clamp(static_cast<int>(std::ceil((box.y1 - box.y0) / cell)), 1, 4000);
  auto img = std::make_shared<RasterImage>();
  img->w = w, img->h = h;
  img->argb.assign(static_cast<size_t>(w) * h, 0);
  double la = std::min(x1, x2), le = std::max(x1, x2), pa = std::min(x3, x4), pe = std::max(x3, x4);
  bool flip_x = x1 > x2, flip_y = x3 > x4;
  for (int j = 0; j < h; ++j)
    for (int i = 0; i < w; ++i) {
      Pt q{box.x0 + (i + 0.5) * (box.x1 - box.x0) / w, box.y0 + (j + 0.5) * (box.y1 - box.y0) / h};
      LL p;
      if (!m->unpage(q, p)) continue;
      if (cut_line({p, p}, m->region).empty()) continue;
      double lon = p.lon;
      while (lon < la) lon += 360;
      while (lon > le) lon -= 360;
      if (lon < la || p.lat < pa || p.lat > pe) continue;
      double u = (lon - la) / (le - la), v = (pe - p.lat) / (pe - pa);
      if (flip_x) u = 1 - u;
      if (flip_y) v = 1 - v;
      int sx = std::clamp(static_cast<int>(u * src.w), 0, src.w - 1), sy = std::clamp(static_cast<int>(v * src.h), 0, src.h - 1);
      img->argb[static_cast<size_t>(j) * w + i] = src.argb[static_cast<size_t>(sy) * src.w + sx];
    }
  Item it;
  it.kind = ItemKind::Image;
  it.image = img;
  it.at = {box.x0, box.y0};
  it.end = {box.x1, box.y1};
  it.alpha = static_cast<float>(alpha);
  add_item(std::move(it));
}

void mpaepl(int n) {
  mv_tracef("mpaepl(%d)", n);
  const MapProjection *m = need_map("mpaepl");
  if (!m) return;
  if (n < 0 || n > 100000) {
    mv_warn("mpaepl", "scale length %d out of range 0..100000 km", n);
    return;
  }
  MirvalState &st = mirval_state();
  const MapState &s = ms();
  const Rect &box = st.axes.box;
  // the scale at the map's centre, along its parallel
  LL c{m->region.lon0, m->region.cap ? m->region.lat0 : (m->region.lat_a + m->region.lat_e) / 2};
  LL east = c;
  east.lon += 0.01;
  Pt p0 = m->page(c), p1 = m->page(east);
  double km = 2 * M_PI * s.radius / 1000 * 0.01 / 360 * std::cos(c.lat * M_PI / 180);
  double per_km = std::hypot(p1.x - p0.x, p1.y - p0.y) / std::max(km, 1e-9);
  if (!std::isfinite(per_km) || per_km <= 0) {
    mv_warn("mpaepl", "the map has no usable scale at its centre");
    return;
  }
  double len_km = n > 0 ? n : nice_step((box.x1 - box.x0) * 0.2 / per_km);
  if (n == 0) {
    while (len_km * per_km > (box.x1 - box.x0) * 0.3 && len_km > 1e-6) len_km /= 2;
  }
  double bar = len_km * per_km;
  double hgt = s.plate_size;
  if (bar > 20000) {
    mv_warn("mpaepl", "a scale of %d km does not fit the page", n);
    return;
  }
  char t[64];
  std::snprintf(t, sizeof t, "%g km", len_km);
  double tw = text_length(t, "", hgt);
  double pw = std::max(bar, 4 * hgt) + hgt + tw / 2 + 5 * hgt, ph = 4.2 * hgt;
  double x0 = s.plate_x >= 0 ? s.plate_x : box.x1 - pw - hgt * 0.5;
  double y0 = s.plate_y >= 0 ? page_y(s.plate_y) : box.y1 - ph - hgt * 0.5;
  Rgb fg = s.plate_fg >= 0 ? table_rgb(s.plate_fg) : pen_rgb();
  Rgb bg = s.plate_bg >= 0 ? table_rgb(s.plate_bg) : (st.page.reverse ? Rgb{0, 0, 0} : Rgb{1, 1, 1});
  fill_path(rect_path(x0, y0, x0 + pw, y0 + ph), bg);
  stroke_path(rect_path(x0, y0, x0 + pw, y0 + ph), fg, std::max(1.0, st.pen.width), {});
  // scale bar: two halves, one filled
  double bx = x0 + hgt, by = y0 + ph - 1.4 * hgt, bh = hgt * 0.45;
  fill_path(rect_path(bx, by, bx + bar / 2, by + bh), fg);
  stroke_path(rect_path(bx, by, bx + bar, by + bh), fg, std::max(1.0, st.pen.width), {});
  put_text("0", "", {bx, by - hgt * 0.3}, hgt, 0, Just::Center, VAlign::Base, fg);
  put_text(t, "", {bx + bar, by - hgt * 0.3}, hgt, 0, Just::Center, VAlign::Base, fg);
  // north arrow: towards the pole as the projection shows it at the centre, turned by MPLANG
  LL north = c;
  north.lat = std::min(89.999, c.lat + 0.01);
  Pt pn = m->page(north);
  double ang = std::atan2(-(pn.y - p0.y), pn.x - p0.x);
  if (!std::isfinite(ang)) ang = M_PI / 2;
  ang += s.plate_angle * M_PI / 180;
  Pt ac{x0 + pw - 2 * hgt, y0 + ph * 0.5};
  double al = hgt * 1.5;
  Pt tip{ac.x + std::cos(ang) * al, ac.y - std::sin(ang) * al};
  Pt tail{ac.x - std::cos(ang) * al, ac.y + std::sin(ang) * al};
  Pt l{ac.x - std::sin(ang) * al * 0.35, ac.y - std::cos(ang) * al * 0.35};
  Pt r{ac.x + std::sin(ang) * al * 0.35, ac.y + std::cos(ang) * al * 0.35};
  Path arrow;
  arrow.move(tip), arrow.line(l), arrow.line(tail), arrow.line(r), arrow.close();
  Path half;
  half.move(tip), half.line(l), half.line(tail), half.close();
  fill_path(half, fg);
  stroke_path(arrow, fg, std::max(1.0, st.pen.width), {});
  put_text("N", "", {tip.x + std::cos(ang) * hgt * 0.8, tip.y - std::sin(ang) * hgt * 0.8}, hgt, 0, Just::Center,
           VAlign::Middle, fg);
}

void mplang(float x) {
  mv_tracef("mplang(%g)", (double)x);
  if (!std::isfinite(x) || std::fabs(x) > 360) {
    mv_warn("mplang", "angle %g out of range -360..360", (double)x);
    return;
  }
  ms().plate_angle = x;
}

void mplclr(int n1, int n2) {
  mv_tracef("mplclr(%d, %d)", n1, n2);
  if (n1 < -1 || n1 > 255 || n2 < -1 || n2 > 255) {
    mv_warn("mplclr", "colours %d, %d out of range -1..255", n1, n2);
    return;
  }
  ms().plate_bg = n1, ms().plate_fg = n2;
}

void mplpos(int n1, int n2) {
  mv_tracef("mplpos(%d, %d)", n1, n2);
  if (n1 < -1 || n2 < -1 || n1 > 100000 || n2 > 100000) {
    mv_warn("mplpos", "position %d, %d out of range (-1 for the default)", n1, n2);
    return;
  }
  ms().plate_x = n1, ms().plate_y = n2;
}

void mplsiz(int n) {
  mv_tracef("mplsiz(%d)", n);
  if (in_range("mplsiz", "height", n, 1, 1000)) ms().plate_size = n;
}

void xaxmap(float x1, float x2, float x3, float x4, const char *c, int n1, int n2) {
  mv_tracef("xaxmap(%g, %g, %g, %g, %s, %d, %d)", (double)x1, (double)x2, (double)x3, (double)x4,
            mv_tstr(c).c_str(), n1, n2);
  map_axis("xaxmap", true, x1, x2, x3, x4, c, n1, n2);
}

void yaxmap(float x1, float x2, float x3, float x4, const char *c, int n1, int n2) {
  mv_tracef("yaxmap(%g, %g, %g, %g, %s, %d, %d)", (double)x1, (double)x2, (double)x3, (double)x4,
            mv_tstr(c).c_str(), n1, n2);
  map_axis("yaxmap", false, x1, x2, x3, x4, c, n1, n2);
}

}  // extern "C"
