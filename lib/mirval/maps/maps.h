// What the map routines tell the rest of the library and the tests.
#pragma once

// Shoreline (or MAPFIL) segments the last WORLD call took from its data.
int map_world_segments();
