// Iso-surfaces of data on a 3-D grid, as a shared-corner triangle mesh in user coordinates.
#pragma once
#include "solids/render3d.h"

#include <array>
#include <vector>

namespace s3 {

struct IsoMesh {
  std::vector<V3> p;                   // corners
  std::vector<std::array<int, 3>> tri; // counter-clockwise seen from the side of greater values
};

// The surface w = level of w given at x (nx) by y (ny) by z (nz), w in the order
// ((i * ny) + j) * nz + k.
IsoMesh iso_surface(const float *x, int nx, const float *y, int ny, const float *z, int nz, const float *w,
                    double level);

}  // namespace s3
