// Settings of map projections and geography.
#pragma once
#include "core/reset.h"

#include <cmath>
#include <memory>
#include <string>

struct MirvalState;
struct MapProjection;  // maps/projection.h

// The projection procedure of SETCBK: converts a point in place.
using MapUserCb = void (*)(float *, float *);

struct MapState {
  std::string proj = "CYLI";        // PROJCT
  float ref1 = NAN, ref2 = NAN;     // MAPREF: standard parallels; NaN: from the latitude range
  float pole_lon = NAN, pole_lat = NAN;  // MAPPOL: centre of azimuthal maps; NaN: the range's
  double radius = 6371000;          // MAPSPH: the sphere's radius in metres
  std::string base = "FRAME";       // MAPBAS: outline drawn by GRAFMP ('FRAME', 'BOX', 'NONE')
  std::string mode = "GREAT";       // MAPMOD: CURVMP joins points along 'GREAT' circles or 'STRAIGHT'
  std::string dir;                  // MAPDIR: directory of the data files; empty: the packages'
  std::string levels = "ALL";       // MAPLEV: coastline levels of WORLD ('LAND', 'LAKES', 'ALL')
  char resolution = 'l';            // MAPOPT(...,'RESOLUTION'): 'c', 'l' or 'i'
  bool rivers = false, borders = false;  // MAPOPT(...,'RIVERS'/'BORDERS')
  int lab_lon = 1, lab_lat = 1;     // MAPLAB: 0 none, 1 on the frame, 2 inside along the grid
  MapUserCb user = nullptr;         // SETCBK(..., 'PROJ')
  std::string user_file;            // MAPFIL
  std::string user_kind = "NONE";   // MAPFIL's second argument: 'CURVE', 'FILL' or 'NONE'
  // map legend plate (MPAEPL)
  int plate_x = -1, plate_y = -1;   // MPLPOS: upper left corner; -1: lower right of the map
  int plate_size = 30;              // MPLSIZ: text height
  float plate_angle = 0;            // MPLANG: turn of the north arrow, degrees
  int plate_bg = -1, plate_fg = -1; // MPLCLR: table colours; -1 the page's background / pen
  // the map axis system in force (GRAFMP)
  std::shared_ptr<MapProjection> active;
  double box[4] = {0, 0, 0, 0};     // where GRAFMP put it: x0, y0, x1, y1 on the page
  double range_a = 0, range_e = 0;  // its longitude range, to see that it is still in force
};

// RESET entries of this part (see core/reset.h).
void map_reset_proj(MirvalState &s);
void map_reset_ref(MirvalState &s);
void map_reset_pol(MirvalState &s);
void map_reset_sph(MirvalState &s);
void map_reset_bas(MirvalState &s);
void map_reset_mod(MirvalState &s);
void map_reset_dir(MirvalState &s);
void map_reset_lev(MirvalState &s);
void map_reset_opt(MirvalState &s);
void map_reset_lab(MirvalState &s);
void map_reset_cbk(MirvalState &s);
void map_reset_fil(MirvalState &s);
void map_reset_plate(MirvalState &s);
inline const ResetEntry map_resets[] = {{"PROJCT", map_reset_proj},
                                        {"MAPREF", map_reset_ref},
                                        {"MAPPOL", map_reset_pol},
                                        {"MAPSPH", map_reset_sph},
                                        {"MAPBAS", map_reset_bas},
                                        {"MAPMOD", map_reset_mod},
                                        {"MAPDIR", map_reset_dir},
                                        {"MAPLEV", map_reset_lev},
                                        {"MAPOPT", map_reset_opt},
                                        {"MAPLAB", map_reset_lab},
                                        {"SETCBK", map_reset_cbk},
                                        {"MAPFIL", map_reset_fil},
                                        {"MPLPOS MPLSIZ MPLANG MPLCLR", map_reset_plate},
                                        {nullptr, nullptr}};
