// Settings of stand-alone axes, axis options, label forms and polar and Smith charts.
#pragma once
#include "core/reset.h"

#include <array>
#include <map>
#include <string>
#include <vector>

// How the labels of a chart target ('BARS', 'PIE') look: LABPOS, LABCLR and LABJUS set them,
// the bar and pie routines read them.
struct LabelTarget {
  std::string pos = "AUTO";        // LABPOS keyword, e.g. 'INSIDE', 'OUTSIDE', 'CENTER'
  int colour = -1;                 // LABCLR: table colour, -1 the pen's
  std::string just = "AUTO";       // LABJUS keyword
};

// A label that ADDLAB puts beside the regular ones.
struct ExtraLabel {
  double value = 0;                // user units
  std::string text;
  int tick = 0;                    // 0 none, 1 minor, 2 major
};

// Per axis (X, Y, Z): the label forms and options beyond AxisSettings.
struct AxisForm {
  std::map<int, std::string> mylab;  // MYLAB: text of the n-th label (from 1)
  std::vector<ExtraLabel> added;   // ADDLAB
  bool between = false;            // LABPOS('CENTER'): labels between the ticks
  int label_just = 0;              // LABJUS: 0 AUTO, 1 LEFT, 2 RIGHT, 3 OUTWARDS, 4 INWARDS
  bool vertical = false;           // LABTYP('VERT'): labels turned by 90 degrees
  int name_just = 1;               // NAMJUS: 0 LEFT (lower end), 1 CENTER, 2 RIGHT (upper end)
  int ends = 3;                    // AXENDS: bit 0 label at the first end, bit 1 at the last
  int ticmode = 2;                 // TICMOD: 0 no ticks, 1 major only, 2 major and minor
  // AXCLRS: table colours of the line, ticks, labels and name; -1 the pen's
  std::array<int, 4> colour{-1, -1, -1, -1};
  // LABMOD for date labels
  int year = 2;                    // 0 NONE, 1 SHORT (two digits), 2 LONG
  int month = 0;                   // 0 NUMBER, 1 SHORT name, 2 LONG name
  int weekday = 0;                 // 0 NONE, 1 SHORT, 2 LONG
  int date_step = 0;               // 0 the axis's own step in days, 1 DAY, 2 WEEK, 3 MONTH, 4 YEAR
};

struct AxisExtraState {
  std::map<std::string, LabelTarget> targets;  // keyed by upper-case target name
  std::array<AxisForm, 3> form;
  // BASDAT: the day that date axes count from
  int base_day = 1, base_month = 1, base_year = 2000;
  // axis options
  int axis_type = 0;               // AXSTYP: 0 RECT, 1 CROSS, 2 OPEN
  int background = -1;             // AXSBGD: table colour of the axis system's area, -1 none
  bool centred = false;            // AXSORG: the next axis system placed by its centre
  int centre_x = 0, centre_y = 0;
  bool all_labelled = false;       // AX2GRF: the upper and right sides labelled too
  bool integer = false;            // INTAX: whole-number labels
  int logtic = 0;                  // LOGTIC: 0 AUTO, 1 FULL, 2 FIRST (1 2 5), 3 NONE
  double neglog = 0;               // NEGLOG: value that non-positive data take on log axes, 0 none
  double exp_size = 0.6, exp_raise = 0.55;  // SETEXP, SETBAS: exponents of labels
  double factor = 1;               // SCLFAC: labels show the values times this
  int factor_axes = 7;             // SCLMOD: the axes it applies to (bits X Y Z)
  bool nograf = false;             // NOGRAF: the next GRAF draws no axes
  int grace = 0;                   // GRACE: margin around the axis system for curves
  float zscale_lo = 0, zscale_hi = 0;  // ZSCALE: Z range for colours; equal values: none
  bool auto_numbers = false;       // NUMFMT('AUTO'): very large or small labels as exponents
  char decimal = '.';              // NUMODE: decimal sign
  std::string group;               // NUMODE: thousands separator, empty none
  bool plus = false;               // NUMODE: '+' before positive labels
  bool zero_label = true;          // EXPZLB: zero labelled on EXP axes
  int title_pos = 0;               // TITPOS: 0 above the axis system, 1 below it
  double bottom_room = 0;          // how far the lower side's ticks and labels reach down
  double left_room = 0;            // how far the left side's ticks, labels and name reach left
  bool right_labels = false;       // RGTLAB: Y labels right-justified at the left side
  bool y_name_reversed = false;    // RVYNAM: Y name read from top to bottom
  // colour bars of ZAXIS
  int bar_frame = 1;               // FRMBAR: frame width, 0 none
  int frame_colour = -1;           // FRMCLR: colour of frames, -1 the pen's
  int bar_just = 1;                // JUSBAR: 0 START, 1 CENTER, 2 END (horizontal bars)
  int bar_pos = 0;                 // POSBAR: 0 RIGHT, 1 TOP, 2 BOTTOM, 3 LEFT
  // polar and Smith charts
  int circle_step = 10;            // CIRCSP: plot units per point of drawn circles
  int chart = 0;                   // the current axis system: 0 plain, 1 polar, 2 Smith
  double rmax = 1, rorg = 0, rstep = 1, aorg = 0, astep = 30;  // GRAFP
  double cx = 0, cy = 0, radius = 1;  // page centre and radius of the chart circle
  // page helpers
  int origin_x = 0, origin_y = 0;  // ORIGIN: shift of plot coordinates
  int header_corner = 0;           // PAGHDR: 0 none, 1..4 corner, with its text
  std::string header_before, header_after;
  int header_height = 0;
  int page_mode = 0;               // PAGMOD: 0 NONE, 1 LANDSCAPE, 2 PORTRAIT
};

// RESET entries of this part (see core/reset.h), in axes/axis_resets.cpp.
extern const ResetEntry axextra_resets[];
