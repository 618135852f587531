// Drawing in 3-D with hidden parts removed: the depth group of the current 3-D axis system.
// Raster outputs rasterise triangles and lines with a depth per sample into an image on the
// page; vector outputs keep the primitives and write them as polygons ordered by a BSP tree,
// split where they cross, so that the picture stays vector.
#pragma once
#include "core/state.h"

#include <array>
#include <cmath>
#include <vector>

namespace s3 {

struct V3 {
  double x = 0, y = 0, z = 0;
};
inline V3 operator+(V3 a, V3 b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
inline V3 operator-(V3 a, V3 b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
inline V3 operator*(V3 a, double s) { return {a.x * s, a.y * s, a.z * s}; }
inline double dot(V3 a, V3 b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline V3 cross(V3 a, V3 b) { return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x}; }
inline V3 unit(V3 a) {
  double n = std::sqrt(dot(a, a));
  return n > 1e-300 ? a * (1 / n) : V3{0, 0, 1};
}

// User point (after the TR3 transformation) to box coordinates, and a normal given in user
// coordinates to a unit normal in box coordinates.
V3 user_to_box(V3 u);
V3 normal_to_box(V3 n);
// The transformation alone (user to user).
V3 transform(V3 u);
V3 transform_dir(V3 n);  // for normals: the inverse transpose
// Box coordinates back to user coordinates (the axes' mapping, without the transformation).
double box_to_user(int i, double b);

// Whether the current output is a raster one (or ZBFMOD forces the choice).
bool raster_output();

// Starts drawing for a routine: checks the level (3) and makes the depth group ready.
bool begin(const char *routine);
// Ends a routine's drawing: raster pictures are brought up to date, vector items redone.
void end();

// A corner of a triangle: box point, box normal and colour.
inline Vtx3 vertex(V3 p, V3 n, Rgb c) {
  Vtx3 v;
  v.p[0] = p.x, v.p[1] = p.y, v.p[2] = p.z;
  v.n[0] = n.x, v.n[1] = n.y, v.n[2] = n.z;
  v.c = c;
  return v;
}
// A triangle in box coordinates with a normal and colour per corner; lit: shaded by the
// lights (or the soft light from the eye while lighting is off).
void triangle(const Vtx3 &a, const Vtx3 &b, const Vtx3 &c, bool lit = true, float alpha = 1);
// The corners of a mesh: box points, normals, and colours (one for all when c holds one).
struct Corners {
  const std::vector<V3> &p, &n;
  const std::vector<Rgb> &c;
  Vtx3 operator[](size_t i) const { return vertex(p[i], n[i], c[c.size() > 1 ? i : 0]); }
};
// Triangles over shared corners (indices into v), each corner projected once; closed: they
// enclose a solid and their normals point out of it.
void mesh(const Corners &v, const std::vector<std::array<int, 3>> &tris, bool lit = true, bool closed = false);
// 2-D items already mapped through the plane with box corners corner[0..3] (GRFFIN): shown
// where nothing nearer is.
void card(const V3 corner[4], std::vector<Item> items);
// A line in box coordinates, width in plot units, drawn over surfaces it lies on.
void segment(V3 a, V3 b, Rgb c, double width);
// A filled convex polygon facing the viewer at the depth of box point p (markers): page
// offsets from p's page point.
void billboard(V3 p, const std::vector<Pt> &offsets, Rgb c);
// An outline facing the viewer at the depth of p.
void billboard_line(V3 p, const std::vector<Pt> &offsets, bool closed, Rgb c, double width);

// The colour of a lit point in box coordinates with normal n (any length, either side).
Rgb shade(V3 p, V3 n, Rgb base);

// Erases what the group drew (ZBFERS) or only forgets the depths (ZBFRES).
void erase_group();
void reset_depths();

}  // namespace s3
