// Geographic geometry that needs no projection: cutting lines and polygons at the map's seam
// (the meridian opposite the centre), at its longitude and latitude range, and at the edge
// of the visible cap of azimuthal maps; great circles.
#pragma once
#include <vector>

struct LL {
  double lon = 0, lat = 0;
};
using LLine = std::vector<LL>;

// The region a map shows: a longitude/latitude box around the central meridian lon0
// (lon0 - 180 <= lon_a < lon_e <= lon0 + 180), or, when cap is set, the spherical cap of
// angular radius cap_deg around (lon0, lat0).
struct Region {
  double lon0 = 0, lat0 = 0;
  double lon_a = -180, lon_e = 180, lat_a = -90, lat_e = 90;
  bool cap = false;
  double cap_deg = 90;
};

// Longitude brought into lon0 - 180 .. lon0 + 180.
double wrap_lon(double lon, double lon0);
// The pieces of a polyline that lie in the region; no piece jumps across the seam.
std::vector<LLine> cut_line(const LLine &line, const Region &r);
// The parts of a closed polygon that lie in the region, each closed along the region's edge
// (a polygon around a pole is closed over the pole). Long edges are divided so that no
// piece spans more than 'step' degrees.
std::vector<LLine> cut_polygon(const LLine &poly, const Region &r, double step = 1.0);
// Points along the great circle from a to b, at most 'step' degrees apart (a included, b too).
LLine great_circle(LL a, LL b, double step);
// Angular distance in degrees.
double angular_distance(LL a, LL b);
