// Map projections: PROJ does the cartography; this part chooses the projection from the
// library's keywords, fixes the region a map shows and places the projected map on the page.
#pragma once
#include "maps/geometry.h"
#include "draw/scene.h"

#include <memory>
#include <string>
#include <vector>

struct PJconsts;

enum class MapFamily { Cylindrical, Pseudo, Conic, Azimuthal, User };

struct ProjectionInfo {
  const char *key;      // PROJCT keyword
  const char *proj;     // PROJ operation
  MapFamily family;
  const char *what;     // for the reference
};
// The projections known, in the order of the reference; nullptr-terminated.
extern const ProjectionInfo map_projections[];
const ProjectionInfo *find_projection(const std::string &key);

struct MapProjection {
  const ProjectionInfo *info = nullptr;
  std::string definition;  // the PROJ definition used
  Region region;
  std::shared_ptr<PJconsts> transform;  // shared by the maps of one set-up
  PJconsts *pj = nullptr;               // transform.get()
  void (*user)(float *, float *) = nullptr;
  // projected extent (metres, or the user's units) and its place on the page
  double X0 = 0, X1 = 1, Y0 = 0, Y1 = 1;
  double scale = 1, ox = 0, oy = 0;  // page x = ox + (X - X0) * scale, page y = oy - (Y - Y0) * scale
  double lat_limit = 90;             // Mercator stops short of the poles

  // Projected coordinates of a point; false where the projection has no place for it.
  bool forward(LL p, double &X, double &Y) const;
  // Inverse of forward (not for 'USER').
  bool inverse(double X, double Y, LL &p) const;
  // Page coordinates of a point (NaN where there is none).
  Pt page(LL p) const;
  // Page coordinates of many points at once.
  void pages(const LLine &pts, std::vector<Pt> &out) const;
  // Page point back to longitude and latitude.
  bool unpage(Pt q, LL &p) const;
  // Places the extent into the rectangle, keeping proportions, centred; returns the map's box.
  void place(double x0, double y0, double x1, double y1, double &bx0, double &by0, double &bx1,
             double &by1);
  // Lines and polygons in page coordinates, cut at the region.
  std::vector<std::vector<Pt>> page_lines(const LLine &line) const;
  std::vector<std::vector<Pt>> page_polygons(const LLine &poly, double step = 1.0) const;
  // The outline of the region on the page (closed).
  std::vector<Pt> outline() const;

 private:
  bool radians(LL p, double &lam, double &phi) const;
};

// Builds the projection for the keyword over the range given (degrees), with the settings of
// MAPREF, MAPPOL and MAPSPH. Returns nullptr with a message in 'err' when PROJ refuses.
std::shared_ptr<MapProjection> make_projection(const std::string &key, double lon_a, double lon_e,
                                               double lat_a, double lat_e, float ref1, float ref2,
                                               float pole_lon, float pole_lat, double radius,
                                               void (*user)(float *, float *), std::string &err);

// The map axis system in force, or nullptr.
const MapProjection *current_map();
// For the scaling functions: user coordinates (longitude, latitude) onto the page while a map
// axis system is in force; false when there is none.
bool map_user_point(double lon, double lat, double &px, double &py);
bool map_page_to_user(double px, double py, double &lon, double &lat);
// For page_cut: the page points between a and b where the line leaves the map and enters it
// again, NaN between them; nothing when it stays on it.
std::vector<Pt> map_cut(double lon_a, double lat_a, double lon_b, double lat_b);
