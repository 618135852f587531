// Surfaces drawn into the depth group, shared with the grid surfaces of grids/surface.cpp.
#pragma once
#include "solids/render3d.h"

#include <vector>

namespace s3 {

// A grid of nu x nv box points p[i * nv + j] as triangles with smooth normals, coloured per
// point (or all in colours[0]), lit or as given; lines every lines_u-th / lines_v-th grid line
// (0 none) in the mesh colour; fill false draws the lines alone.
void grid_mesh(const std::vector<V3> &p, int nu, int nv, const std::vector<Rgb> &colours, bool lit, int lines_u,
               int lines_v, bool fill);
// SURSHD with lighting on, and SURSHC: the surface z over x, y coloured by the Z axis colour of
// w (z when w is null), lit, hidden parts removed. False when the level is wrong.
bool lit_surface(const char *routine, const float *x, int nx, const float *y, int ny, const float *z, const float *w);

}  // namespace s3
