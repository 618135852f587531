// Colour-coded data: how values of the Z axis become entries of the colour table.
#pragma once
#include "core/state.h"

// The colour table entry of z on a Z axis whose colours run from entry lo to hi: values below
// the axis get lo - 1, values above it hi + 1 (so that they stand out); -1 for NaN, or for a
// value that a log axis cannot place.
int colour_entry(const AxisRange &z, int lo, int hi, double z_value);
// The same for the Z axis of the current axis system and the COLRAN entries.
int z_colour(double z_value);
// Matrix sizes for trace lines and checks, without overflowing int.
int matrix_size(int nx, int ny);
