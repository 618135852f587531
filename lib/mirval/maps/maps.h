// What the map routines tell the rest of the library and the tests.
#pragma once
#include <string>

// Shoreline (or MAPFIL) segments the last WORLD call took from its data.
int map_world_segments();
// A graticule label: "30°W" with LABELS('MAP'), "−30" with the other label types, nothing with
// LABELS('NONE'); lon says which axis (X longitudes, Y latitudes).
std::string map_label(double v, bool lon);
