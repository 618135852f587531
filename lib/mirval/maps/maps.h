// What the map routines tell the rest of the library and the tests.
#pragma once
#include <functional>
#include <string>

// Shoreline (or MAPFIL) segments the last WORLD call took from its data.
int map_world_segments();
// A graticule label: "30°W" with LABELS('MAP'), "−30" with the other label types, nothing with
// LABELS('NONE'); lon says which axis (X longitudes, Y latitudes).
std::string map_label(double v, bool lon);
// CRVMAT on a map: cols x rows cells spread over the map's range, the cell in column c and
// row r (from the west and the south) filled in table colour colour(c, r) (none below 0),
// each the projected outline of its corners, cut at the seam and the map's edge; a matrix too
// fine to project in a few seconds is refused with a warning for the routine. False, and
// nothing drawn, when no map axis system is in force.
bool map_cells(const char *routine, int cols, int rows, const std::function<int(int, int)> &colour);
