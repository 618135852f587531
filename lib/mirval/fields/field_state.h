// Settings of vector fields, streamlines, triangulations and fits.
#pragma once
#include "core/reset.h"
#include "draw/scene.h"

#include <string>
#include <vector>

struct FieldState {
  // VECOPT: arrows of VECFLD, VECMAT and FIELD
  double vec_scale = 0;            // 'SCALE': plot units per unit of magnitude; 0 automatic
  double vec_length = 0;           // 'LENGTH': the longest arrow in plot units; 0 from the spacing
  double vec_head = 0;             // 'HEAD': head length in plot units; 0 automatic
  double vec_angle = 20;           // 'ANGLE': half opening of the head, degrees
  double vec_position = 0;         // 'POSITION': 0 arrows start at their points, 1 end there
  bool vec_uniform = false;        // 'UNIFORM': all arrows as long as the longest
  int vec_colour = -1;             // VECCLR: -1 the pen, -2 by length, 0..255 a table entry
  // STMMOD, STMOPT, STMVAL: streamlines
  bool stm_arrows = true;          // STMMOD('ON'/'OFF', 'ARROWS')
  int stm_direction = 0;           // STMMOD(.., 'INTEGRATION'): 0 both, 1 forward, -1 backward
  int stm_method = 0;              // STMMOD(.., 'METHOD'): 0 RKF45, 1 RKCK, 2 RK8PD
  int stm_points = 5000;           // STMOPT(n, 'POINTS'): most points of one line
  int stm_arrow_every = 400;       // STMOPT(n, 'ARROWS'): plot units between arrows along a line
  int stm_lines = 2000;            // STMOPT(n, 'LINES'): most lines of one automatic STREAM
  int stm_head = 22;               // STMOPT(n, 'HEAD'): arrow head length in plot units
  double stm_distance = 60;        // STMVAL(x, 'DISTANCE'): spacing of automatic lines, plot units
  double stm_test = 0.5;           // STMVAL(x, 'TEST'): lines stop this share of DISTANCE from others
  double stm_accuracy = 1e-6;      // STMVAL(x, 'ACCURACY'): error bound of a step in plot units
  double stm_step = 8;             // STMVAL(x, 'STEP'): longest step in plot units
  double stm_speed = 1e-6;         // STMVAL(x, 'SPEED'): lines stop below this share of the top speed
  std::vector<Pt> starts_plot;     // STRTPT: start points in plot coordinates
  std::vector<Pt> starts_user;     // RLSTRT: start points in user coordinates
  // LICMOD
  int lic_filter = 0;              // 'FILTER': 0 BOX, 1 HANNING
  double lic_length = 10;          // 'LENGTH': half length of the kernel in cells
  bool lic_normalize = true;       // 'NORMALIZE': results stretched over 0..255
  // SPLMOD, GETSP2
  int spl_order = 3;               // 1 linear, 3 cubic
  int spl_points = 0;              // points of a SPLINE; 0: as many as the input
  int spl_last_in = 0, spl_last_out = 0, spl_last_pieces = 0;
  // MDFMAT: smoothing of GETMAT's matrix
  int mdf_passes = 0, mdf_radius = 1;
  double mdf_weight = 0.5;
  // SHDFAC, SHDCHA: areas of SHDCRV
  double shd_factor = 1;           // opacity of the shading
  bool shd_change = false;         // each SHDCRV takes the next pattern
  int shd_count = 0;
  // TRFSHF, TRFSCL, TRFROT: x' = t[0] x + t[1] y + t[2], y' = t[3] x + t[4] y + t[5]
  double trf[6] = {1, 0, 0, 0, 1, 0};
};

void field_reset_vecopt(MirvalState &);
void field_reset_vecclr(MirvalState &);
void field_reset_stmmod(MirvalState &);
void field_reset_stmopt(MirvalState &);
void field_reset_stmval(MirvalState &);
void field_reset_starts(MirvalState &);
void field_reset_licmod(MirvalState &);
void field_reset_splmod(MirvalState &);
void field_reset_mdfmat(MirvalState &);
void field_reset_shdfac(MirvalState &);
void field_reset_shdcha(MirvalState &);
void field_reset_trf(MirvalState &);

// RESET entries of this part (see core/reset.h).
inline const ResetEntry field_resets[] = {
    {"VECOPT", field_reset_vecopt},   {"VECCLR", field_reset_vecclr},
    {"STMMOD", field_reset_stmmod},   {"STMOPT", field_reset_stmopt},
    {"STMVAL", field_reset_stmval},   {"STRTPT RLSTRT", field_reset_starts},
    {"LICMOD", field_reset_licmod},   {"SPLMOD", field_reset_splmod},
    {"MDFMAT", field_reset_mdfmat},   {"SHDFAC", field_reset_shdfac},
    {"SHDCHA", field_reset_shdcha},   {"TRFSHF TRFSCL TRFROT TRFRES", field_reset_trf},
    {nullptr, nullptr}};
