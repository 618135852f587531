// Settings of lit solids, the depth buffer and 3-D views.
#pragma once
#include "core/reset.h"
#include "draw/scene.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

// One light. Mode 0 is fixed to the viewer (x right, y up, z towards the viewer); 1 ABS box
// coordinates, 2 USER coordinates (both positional), 3 ANGLE azimuth and elevation (a light
// from far away).
struct Light {
  bool on = false;
  int mode = 0;
  double pos[3] = {-1, 1, 2};
  Rgb ambient{0.25f, 0.25f, 0.25f};
  Rgb diffuse{0.85f, 0.85f, 0.85f};
  Rgb specular{0.6f, 0.6f, 0.6f};
  double att[3] = {1, 0, 0};       // constant, linear and quadratic attenuation
};

inline std::array<Light, 8> default_lights() {
  std::array<Light, 8> l;
  l[0].on = true;
  return l;
}

// Primitives kept for the vector outputs, in box coordinates.
struct Vtx3 {
  double p[3];
  double n[3];
  Rgb c;
};
struct Tri3 {
  Vtx3 v[3];
  bool lit = true;    // shaded by the lights; false: the colours as given
  float alpha = 1;
};
struct Seg3 {
  double a[3], b[3];
  Rgb c;
  double width = 1;
};
// 2-D items drawn on a plane of the box (GRFINI): already mapped to page points, and the
// plane's corners (the page's lower left, lower right, upper right and upper left).
struct Card3 {
  double c[4][3];
  std::vector<Item> items;
};

// The depth group: everything drawn in 3-D on the current axis system, hidden where it is
// behind something else. Raster outputs keep samples with depth; vector outputs keep the
// primitives and redo their slice of the page's items after each routine.
struct DepthGroup {
  bool active = false;
  unsigned long generation = 0;    // the axis system it belongs to
  size_t page = 0;                 // index of its page
  size_t start = 0, count = 0;     // its items in that page
  bool raster = false;
  int ss = 2;                      // samples per pixel along each side
  int W = 0, H = 0;                // sample grid
  int dw = 0, dh = 0;              // device pixels
  std::vector<float> depth;
  std::vector<uint32_t> colour;    // 0: empty
  std::vector<uint32_t> normal;    // of lit samples until they are shaded
  std::shared_ptr<RasterImage> image;
  int dx0 = 1, dy0 = 1, dx1 = 0, dy1 = 0;  // dirty samples
  std::vector<Tri3> tris;
  std::vector<Seg3> segs;
  std::vector<Card3> cards;
};

struct SolidState {
  bool lighting = false;           // LIGHT('ON')
  std::array<Light, 8> lights = default_lights();
  Rgb mat_ambient{1, 1, 1}, mat_diffuse{1, 1, 1}, mat_specular{0.5f, 0.5f, 0.5f};  // MATOP3
  double shininess = 40;           // MATOPT('EXPONENT')
  int zbf_mode = 0;                // ZBFMOD: 0 AUTO, 1 RASTER, 2 VECTOR
  int zbf_scale = 2;               // ZBFSCL: samples per pixel along each side
  bool zbf_session = false;        // between ZBFINI and ZBFFIN
  bool hide = true;                // NOHIDE clears it
  int clip = 1;                    // CLIP3D: 0 NONE, 1 the axis system's area, 2 the box
  // object transformation (TR3...), applied to user coordinates: x' = m x + t
  double m[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
  double t[3] = {0, 0, 0};
  double rot[3] = {0, 0, 0};       // ROT3D: solids turned about their own centres, degrees
  // 3-D curves and markers
  double hsym = 0;                 // HSYM3D: marker size in plot units, 0 the one of HSYMBL
  double thick = 0;                // THKC3D: line width of 3-D curves in plot units, 0 the pen's
  bool have_pos = false;           // STRT3D was called
  double pos[3] = {0, 0, 0};       // the pen of STRT3D/CONN3D, user coordinates
  // surfaces
  int surface_mode = 0;            // SUROPT: 0 BOTH (filled with lines), 1 LINES, 2 FILL
  int face = 0;                    // SETFCE: 0 ALL, 1 TOP, 2 BOTTOM
  int mesh_colour = -1;            // MSHCLR: table colour of mesh lines, -1 the pen
  int mesh_every = 1;              // MSHCRV: mesh lines of lit surfaces every n-th grid line
  double sursze[4] = {0, 0, 0, 0};  // SURSZE: user ranges of SURFUN and SURFCP; 0 = the axes
  bool sursze_set = false;
  bool shlsur = false;             // SHLSUR: the next surface also covers the 2-D items behind
  // 3-D bars, resolution of colour cubes
  double res3d[3] = {0, 0, 0};     // SETRES3D
  int autres3d[3] = {0, 0, 0};     // AUTRES3D
  std::string label3d = "HORI";    // LABL3D: HORI or NONE
  bool flab3d = false;             // FLAB3D: labels of the first axis points
  // polygon sets between PLYINI and PLYFIN
  bool ply_open = false;
  bool ply_user = true;            // PLYINI('USER'): written in user coordinates, else box
  std::vector<Tri3> ply;           // the triangles drawn since PLYINI
  // GRFINI: 2-D drawing carried onto a plane of the box
  bool plane_on = false;
  double plane[3][3] = {};         // box points: the page's lower left, lower right, upper right
  size_t plane_page = 0, plane_mark = 0;  // where the plane's items begin
  double plane_box[4] = {};        // the 3-D axis system's area, given back by GRFFIN
  DepthGroup group;
  unsigned long generation = 0;    // counts 3-D axis systems
};

// RESET entries of this part (see core/reset.h).
void solid_reset_lights(MirvalState &s);
void solid_reset_material(MirvalState &s);
void solid_reset_zbuffer(MirvalState &s);
void solid_reset_transform(MirvalState &s);
void solid_reset_view(MirvalState &s);
void solid_reset_marks(MirvalState &s);
void solid_reset_surface(MirvalState &s);
void solid_reset_other(MirvalState &s);

inline const ResetEntry solid_resets[] = {
    {"LIGHT LITMOD LITPOS LITOPT LITOP3", solid_reset_lights},
    {"MATOPT MATOP3", solid_reset_material},
    {"ZBFMOD ZBFSCL NOHIDE CLIP3D", solid_reset_zbuffer},
    {"TR3RES TR3SHF TR3SCL TR3ROT TR3AXS ROT3D", solid_reset_transform},
    {"PROJ3D VFOC3D VSCL3D VCLP3D", solid_reset_view},
    {"HSYM3D THKC3D", solid_reset_marks},
    {"SUROPT SETFCE MSHCLR MSHCRV SURSZE SHLSUR", solid_reset_surface},
    {"SETRES3D AUTRES3D LABL3D FLAB3D", solid_reset_other},
    {nullptr, nullptr}};
