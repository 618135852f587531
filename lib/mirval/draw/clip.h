// Clipping of lines and polygons to a rectangle: curves leave the axis system cleanly, and
// far-away points never reach the renderer.
#pragma once
#include "draw/scene.h"
#include "core/state.h"

#include <vector>

bool inside(Pt p, const Rect &r);
// The pieces of a polyline that lie in the rectangle.
std::vector<std::vector<Pt>> clip_polyline(const std::vector<Pt> &line, const Rect &r);
// The part of a polygon that lies in the rectangle (Sutherland-Hodgman).
std::vector<Pt> clip_polygon(const std::vector<Pt> &poly, const Rect &r);
