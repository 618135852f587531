// Marker symbols 0..24, drawn centred on a point.
#pragma once
#include "draw/scene.h"

constexpr int marker_count = 25;
// Draws symbol n with the given size (plot units) and colour; open symbols use 'width'.
void draw_marker(int n, Pt c, double size, Rgb rgb, double width);
