// Settings of bar graphs, pie charts and the other charts of plots/, the colour and pattern
// cycles, shielded regions and transparency.
#pragma once
#include "core/reset.h"
#include "draw/scene.h"
#include "mirval.h"

#include <array>
#include <string>
#include <vector>

// A region that curves drawn later leave out (SHLREC, SHLCIR ...): a closed polygon in page
// coordinates.
struct ShieldRegion {
  int id = 0;
  std::vector<Pt> poly;
  bool visible = true;   // SHLVIS: 'OFF' keeps the region but lets lines through
  bool automatic = false;  // made by a LEGEND or a message while SHIELD says so
};

// QPLSCL: an axis of the one-call plots given by the caller instead of an automatic one.
struct QuickAxis {
  bool set = false;
  float a = 0, e = 1, org = 0, step = 1;
};

struct ChartState {
  // bar graphs
  double bar_width = 0;            // BARWTH: > 0 plot units, < 0 user units, 0 automatic
  int group_n = 1;                 // BARGRP: bars side by side in a group
  double group_gap = 0;            // BARGRP: gap between them (plot units; < 0 share of a bar)
  int group_next = 0;              // which bar of the group the next BARS draws
  int bar_align = 0;               // BARPOS: 0 centred, 1 from the position on, 2 up to it
  bool horizontal = false;         // BARTYP 'HORI', '3DHORI'
  bool bar3d = false;              // BARTYP '3DVERT', '3DHORI'
  int bar_front = -1, bar_side = -1, bar_top = -1;  // BARCLR, -1 automatic
  int bar_border = -1;             // BARBOR: -1 the pen's colour, -2 none
  bool variable_width = false;     // BARMOD('VARIABLE', 'WIDTH')
  double depth = 0.5, depth_angle = 45;  // BAROPT: 3-D depth (share of the width), angle
  int bar_change = 0;              // CHNBAR: bit 1 colour, bit 2 pattern
  int bar_changed = 0;             // BARS calls since the cycle began
  // pie charts
  bool pie3d = false;              // PIETYP '3D'
  double pie_height = 0.15;        // PIEOPT: thickness of a 3-D pie (share of the radius)
  double pie_tilt = 45;            // PIEOPT: view angle of a 3-D pie, degrees
  bool explode_all = false;        // PIEEXP
  std::string pie_label = "PERCENT";  // PIELAB: 'NONE', 'DATA', 'PERCENT', 'BOTH'
  std::string pie_label_text;      // PIELAB: text before the values
  int pie_digits_data = -1, pie_digits_percent = 1;  // PIEVAL
  bool pie_vectors = true;         // PIEVEC: label lines
  int pie_vector_len = 0;          // PIEVEC: length of label lines, 0 automatic
  std::string pie_vector_shape = "LINE";  // PIEVEC: 'LINE', 'ARROW', 'NONE'
  std::vector<int> pie_fill, pie_line;  // PIECLR: colours of segments and their outlines
  int pie_border = -1;             // PIEBOR: -1 the pen's colour, -2 none
  double pie_rotation = 90;        // PIEROT: where the first segment starts, degrees
  int pie_change = 1;              // CHNPIE: bit 1 colour, bit 2 pattern (default colours)
  MvPieCb pie_callback = nullptr;  // PIECBK
  // the cycles of CHNCRV, CHNBAR, CHNPIE (LINCYC, CLRCYC, PATCYC); -1 a built-in colour
  std::array<int, 30> line_cycle{0, 1, 2, 3, 4, 5, 6, 7, 0, 1, 2, 3, 4, 5, 6, 7,
                                 0, 1, 2, 3, 4, 5, 6, 7, 0, 1, 2, 3, 4, 5};
  std::array<int, 30> colour_cycle = default_colour_cycle();
  std::array<int, 30> pattern_cycle{16, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15,
                                    16, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13};
  // curve options, read by CURVE, the markers and the renderer
  int curve_every = 1;             // INCCRV: CHNCRV changes the attributes after so many curves
  std::vector<int> line_colours;   // LINCLR: table colours of the next curves, in turn
  int line_colour_next = 0;
  int marker_colour = -1;          // MRKCLR: table colour of the markers, -1 the curve's colour
  double dash_scale = 1;           // LNMLT: lengths of dashes and gaps multiplied
  double gap_x = 0;                // GAPCRV: no line between points farther apart in X (user units)
  bool nan_gaps = true;            // NANCRV('OFF'): NaN points are left out and their neighbours joined
  double marker_gap = 0;           // GAPSIZ: lines stop this far short of markers (plot units)
  double marker_angle = 0;         // SYMROT: markers turned counter-clockwise, degrees
  std::array<std::vector<Pt>, 25> user_symbols{};  // MYSYMB: outlines replacing symbols 0..24
  std::array<bool, 25> user_filled{};
  std::array<int, 4> user_pattern{45, 1, 5, 0};    // MYPAT: angle, kind, density, crossed
  bool smooth = true;              // LINMOD('OFF', 'SMOOTH'): raster lines without anti-aliasing
  bool winding = false;            // POLMOD('WINDING', 'FILL'): non-zero fill rule
  bool grey = false;               // CLRMOD('GREY'): pictures written in grey levels
  // filling and outlining of areas
  bool fill = true;                // NOFILL clears it
  bool outline = true;             // NOLINE('ON') clears it
  bool arrow_lines = true;         // NOARLN clears it: arrows without their shaft
  // shielding
  bool shield_legend = false;      // SHIELD('LEGEND', 'ON'): legends shield themselves
  bool shield_messages = false;    // SHIELD('MESSAG', 'ON'): so do texts of MESSAG, NUMBER ...
  bool shield_user = true;         // SHIELD('USER', 'OFF') suspends the SHL regions
  int shield_next = 1;
  std::vector<ShieldRegion> shields;
  // transparency
  bool transparent = false;        // between TPRINI and TPRFIN
  float alpha = 0.5f;              // TPRVAL
  int tpr_targets = 3;             // TPRMOD: bit 1 fills, bit 2 lines (and text)
  // one-call plots
  std::array<QuickAxis, 3> quick{};
  bool quick_opened = false;       // QPLCRV: the plot in progress opened the page
  bool quick_curves = false;       // QPLCRV: a plot is in progress
  // moves and draws of XMOVE/XDRAW, CONNPT and RLCONN
  Pt pen_at{0, 0};
  bool pen_set = false;

  static std::array<int, 30> default_colour_cycle() {
    std::array<int, 30> c{};
    c.fill(-1);
    return c;
  }
};

// RESET entries of this part (see core/reset.h).
extern const ResetEntry chart_resets[];
