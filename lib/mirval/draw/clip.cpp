#include "draw/clip.h"

#include <cmath>

bool inside(Pt p, const Rect &r) { return p.x >= r.x0 && p.x <= r.x1 && p.y >= r.y0 && p.y <= r.y1; }

namespace {

// Liang-Barsky: cuts the segment a-b to the rectangle; false when nothing is left.
bool clip_segment(Pt &a, Pt &b, const Rect &r) {
  double t0 = 0, t1 = 1, dx = b.x - a.x, dy = b.y - a.y;
  const double p[4] = {-dx, dx, -dy, dy};
  const double q[4] = {a.x - r.x0, r.x1 - a.x, a.y - r.y0, r.y1 - a.y};
  for (int i = 0; i < 4; ++i) {
    if (p[i] == 0) {
      if (q[i] < 0) return false;
      continue;
    }
    double t = q[i] / p[i];
    if (p[i] < 0) {
      if (t > t1) return false;
      if (t > t0) t0 = t;
    } else {
      if (t < t0) return false;
      if (t < t1) t1 = t;
    }
  }
  Pt a0 = a;
  if (t1 < 1) b = {a0.x + t1 * dx, a0.y + t1 * dy};
  if (t0 > 0) a = {a0.x + t0 * dx, a0.y + t0 * dy};
  return true;
}

bool finite(Pt p) { return std::isfinite(p.x) && std::isfinite(p.y); }

}  // namespace

std::vector<std::vector<Pt>> clip_polyline(const std::vector<Pt> &line, const Rect &r) {
  std::vector<std::vector<Pt>> out;
  std::vector<Pt> cur;
  auto flush = [&] {
    if (cur.size() >= 2) out.push_back(cur);
    cur.clear();
  };
  if (line.size() == 1 && finite(line[0]) && inside(line[0], r)) out.push_back(line);
  for (size_t i = 1; i < line.size(); ++i) {
    Pt a = line[i - 1], b = line[i];
    if (!finite(a) || !finite(b) || !clip_segment(a, b, r)) {
      flush();
      continue;
    }
    if (cur.empty() || cur.back().x != a.x || cur.back().y != a.y) {
      flush();
      cur.push_back(a);
    }
    cur.push_back(b);
    // a segment that leaves the rectangle ends the piece
    if (b.x != line[i].x || b.y != line[i].y) flush();
  }
  flush();
  return out;
}

std::vector<Pt> clip_polygon(const std::vector<Pt> &poly, const Rect &r) {
  std::vector<Pt> cur = poly;
  for (int edge = 0; edge < 4 && !cur.empty(); ++edge) {
    auto in = [&](Pt p) {
      switch (edge) {
        case 0: return p.x >= r.x0;
        case 1: return p.x <= r.x1;
        case 2: return p.y >= r.y0;
        default: return p.y <= r.y1;
      }
    };
    auto cut = [&](Pt a, Pt b) {
      double t = edge == 0   ? (r.x0 - a.x) / (b.x - a.x)
                 : edge == 1 ? (r.x1 - a.x) / (b.x - a.x)
                 : edge == 2 ? (r.y0 - a.y) / (b.y - a.y)
                             : (r.y1 - a.y) / (b.y - a.y);
      return Pt{a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)};
    };
    std::vector<Pt> next;
    for (size_t i = 0; i < cur.size(); ++i) {
      Pt a = cur[(i + cur.size() - 1) % cur.size()], b = cur[i];
      if (in(b)) {
        if (!in(a)) next.push_back(cut(a, b));
        next.push_back(b);
      } else if (in(a)) {
        next.push_back(cut(a, b));
      }
    }
    cur.swap(next);
  }
  return cur;
}
