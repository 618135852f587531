// Pieces of 3-D curves and vectors in the depth group, shared by the routines that draw them.
#pragma once
#include "solids/render3d.h"

#include <vector>

namespace s3 {

// Marker n of the 2-D symbols at box point p, facing the viewer, HSYM3D (or HSYMBL) large.
void marker3d(int n, V3 p, Rgb c);
// A polyline in box coordinates, segment i in colours[i] (the last colour for the rest).
void polyline3d(const std::vector<V3> &pts, const std::vector<Rgb> &colours, double width);
// A vector from a to b (box coordinates); ivec 0 a plain line, otherwise with a cone head.
void arrow3d(V3 a, V3 b, Rgb c, double width, int ivec);

}  // namespace s3
