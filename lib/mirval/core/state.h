// The library's one state record, split into named parts. Each part is a plain record whose
// member initialisers are the defaults, so that RESET can restore a field from a fresh part.
#pragma once
#include "axes/axis_extra_state.h"
#include "draw/fonts.h"
#include "draw/scene.h"
#include "fields/field_state.h"
#include "maps/map_state.h"
#include "media/media_state.h"
#include "plots/chart_state.h"
#include "solids/solid_state.h"
#include "window/window_state.h"

#include <array>
#include <cstdio>
#include <map>
#include <set>
#include <string>
#include <vector>

struct MessageState {
  bool warnings = true;   // ERRMOD('ALL'/'WARNINGS', 'OFF') clears it
  bool to_file = false;   // ERRDEV('FILE')
  FILE *fp = nullptr;     // the ERRFIL file once opened
  std::string file = "mirval.err";  // ERRFIL
};

enum class Format { PNG, PPM, BMP, TIFF, GIF, PDF, SVG, PS, EPS };

// Output and page: everything fixed before MIRINI.
struct PageState {
  Format format = Format::PNG;
  bool screen = false;             // 'CONS' or 'XWIN' was asked for
  std::string file;                // SETFIL; empty: mirval.<ext>
  std::string used;                // the name actually written (GETFIL)
  int filmod = 0;                  // 0 DELETE, 1 VERSION, 2 BREAK
  bool refused = false;            // FILMOD 'BREAK' met an existing file: write nothing
  int width = 2970, height = 2100; // page size in plot units
  bool bottom = false;             // PAGORG('BOTTOM'): plot y counts up from the lower edge
  int win_w = 0, win_h = 0;        // WINSIZ; 0 means 0.4 pixel per plot unit
  bool reverse = false;            // SCRMOD('REVERSE'): white on black
  int xres = 1, yres = 1;          // SETRES: size of colour points
  std::set<std::string> reserved;  // GFILNN: names the caller writes itself
  bool exit_hook = false;          // the atexit completion is registered
};

// A rectangle in page coordinates (plot units, y downwards from the upper edge).
struct Rect {
  double x0 = 0, y0 = 0, x1 = 0, y1 = 0;
};

enum class ClipMode { Axis, Page, Window };

struct PenState {
  bool fore = true;                // the foreground colour, whatever SCRMOD says
  Rgb rgb;                         // the colour when fore is false
  int index = -1;                  // colour table entry it came from, -1 for RGB
  double width = 1;                // LINWID/PENWID in plot units
  int style = 0;                   // LINTYP 0..7; -1 for MYLINE
  std::vector<double> dash;        // the current pattern in plot units; empty: solid
  int thick = 1;                   // THKCRV: curves drawn this many times as wide
  int pattern = 0;                 // SHDPAT: 0 outline only, 1..15 hatching, 16 solid
  int frame = 1;                   // FRAME: width of frames in plot units, 0 none
  Cap cap = Cap::Auto;             // LNCAP
  Join join = Join::Round;         // LNJOIN
  ClipMode clip = ClipMode::Axis;  // CLPBOR, CLPWIN, NOCLIP
  Rect window;                     // the CLPWIN rectangle
};

struct ColourState {
  std::array<Rgb, 256> table{};    // filled by SETVLT at start
  std::string name = "RAIN";
  bool loaded = false;
};

enum class Just { Left, Center, Right };

struct TextState {
  int height = 36;                 // capital height in plot units
  double angle = 0;                // degrees, counter-clockwise
  FontChoice font;
  Just just = Just::Left;          // TXTJUS
};

enum class LabelType { Float, Exp, Fexp, Log, None, Date, Time, MyLab, Map };

// Settings of one axis (X, Y or Z) that apply to the next axis system.
struct AxisSettings {
  bool log = false;                // AXSSCL/SCALE
  LabelType labels = LabelType::Float;
  int digits = -1;                 // decimals of the labels, -1 automatic
  int ticks = 2;                   // tick intervals between labels
  int ticpos = 0;                  // TICPOS: 0 outwards (label side), 1 inwards, 2 both
  std::string name;                // NAME
  int namdis = 30;                 // NAMDIS: gap between labels and name
  int labdis = 22;                 // LABDIS: gap between ticks and labels
  bool autoscale = false;          // SETSCL: the next GRAF takes its range from data
  double data_min = 0, data_max = 1, data_minpos = 1;  // data_minpos: least positive value
};

// The axis system in force at level 2: the ranges GRAF settled on and where they sit.
struct AxisRange {
  double a = 0, e = 1, org = 0, step = 1;  // ends, first label, label step (log: exponents)
  bool log = false;
};

struct AxesState {
  std::array<AxisSettings, 3> axis;
  int posx = 450, posy = 1800;     // AXSPOS: lower left corner (plot coordinates)
  std::array<int, 3> len{2200, 1200, 1200};  // AXSLEN, AX3LEN
  int ticlen_major = 24, ticlen_minor = 16;
  std::array<std::string, 4> title;  // TITLIN lines 1..4
  int htitle = 44, hname = 36;
  int vkytit = 0;                  // extra gap between the title and the axis system
  Just title_just = Just::Center;  // TITJUS
  std::array<int, 4> sides{4, 4, 2, 2};  // SETGRF: 0 NONE 1 LINE 2 TICKS 3 LABELS 4 NAME
  std::map<std::string, LabelType> other_labels;  // LABELS for 'CONTOUR', 'BAR' ...
  std::map<std::string, int> other_digits;        // LABDIG for 'BARS' ...
  // the current axis system
  std::array<AxisRange, 2> range;
  Rect box;                        // its rectangle on the page
  double title_room = 0;           // how far its upper side's ticks and labels reach up
};

enum class Interp { Linear, Step, Stairs, Bars, Stem, Spline };

struct CurveState {
  int incmrk = 0;
  int marker = 0;
  int hsymbl = 35;
  Interp interp = Interp::Linear;
  bool check = true;               // NOCHEK turns the count of outside points off
  int change = 0;                  // CHNCRV: bit 1 colour, bit 2 line style
  int changed = 0;                 // curves drawn since the cycle began
};

// How a curve looked, so that the legend can show it.
struct CurveLook {
  Rgb rgb;
  double width = 1;
  std::vector<double> dash;
  int incmrk = 0, marker = 0;
  int pattern = -1;                // bars and pies: a patch in SHDPAT pattern 0..16; -1 a line
  Rgb fill;                        // the patch's colour
  Rgb marker_rgb;                  // the marker's colour (MRKCLR)
  bool marker_own = false;         // marker_rgb differs from rgb
  bool outlined = true;            // the patch has a border
};

struct LegendState {
  int lines = 0, chars = 0;        // LEGINI
  std::string title = "Legend";
  bool placed = false;             // LEGPOS given
  int x = 0, y = 0;
  double sample = 4.0, gap = 0.5, spacing = 0.7;  // LEGOPT, in character heights
  bool text_colours = false;       // LEGCLR
  int background = -2;             // LEGBGD: -2 the page's background, -1 none, else a table colour
  std::vector<CurveLook> curves;   // every curve of the page, in order
  std::map<int, CurveLook> given;  // LEGPAT: looks set for lines 1..n
  std::vector<int> selected;       // LEGSEL: the lines shown, in order; empty: all
  int table = 1;                   // LEGTBL: columns (or rows when table_rows)
  bool table_rows = false;
  bool horizontal = false;         // LEGTYP('HORI'): all lines side by side
  double symbol_scale = 1;         // LEGVAL(x, 'SYMBOL'): marker size in the legend
  double patch_height = 1;         // LEGVAL(x, 'PATCH'): patch height in character heights
  double column_gap = 2;           // LEGVAL(x, 'COLUMN'): gap between columns
};

// How the current 3-D axis system maps box coordinates (the AXIS3D box centred at the origin)
// onto the page: a perspective view from 'eye' along the orthonormal basis u (right), v (up),
// w (into the picture).
struct Camera {
  double eye[3] = {0, 0, 0};
  double u[3] = {1, 0, 0}, v[3] = {0, 0, 1}, w[3] = {0, 1, 0};
  Pt centre;                       // page point the line of sight meets
  double focal = 1;                // plot units per unit of u/w and v/w
  bool ortho = false;              // PROJ3D('ORTHO'): every point seen as far as the focus
  double dist = 1;                 // distance from the eye to the focus along w
};

// 3-D settings and the current 3-D axis system.
struct Space3D {
  float box[3] = {2, 2, 2};        // AXIS3D
  float view[3] = {4, -5, 4};      // VIEW3D
  std::string view_mode = "ABS";
  float vang = 28;                 // VANG3D: opening angle of the view, degrees
  float vup = 0;                   // VUP3D: turn of the picture about the line of sight
  std::map<std::string, std::string> shading;  // SHDMOD: target -> mode
  int top = -1, bottom = -1;       // SURCLR: table colours of the two sides, -1 the pen's
  std::string visible = "BOTH";    // SURVIS: 'TOP', 'BOTTOM' or 'BOTH' sides of SURFCE
  bool mesh = false;               // SURMSH: grid lines over SURSHD's cells
  std::array<AxisRange, 3> range;  // set by GRAF3D
  Camera cam;
  bool ortho = false;              // PROJ3D
  float focus[3] = {0, 0, 0};      // VFOC3D: the point looked at
  bool focus_user = false;         // VFOC3D('USER'): focus in user coordinates
  float vscale = 1;                // VSCL3D: the picture this much larger than fitted
  float near_clip = 0, far_clip = 0;  // VCLP3D: shown depths from the eye, 0 none
};

// Colour-coded data and contours: the colour bar of GRAF3, colour points, contour labels.
struct GridState {
  bool bar = true;                 // NOBAR clears it
  int bar_gap = 85, bar_shift = 0, bar_width = 85;  // VKXBAR, VKYBAR, WIDBAR
  int colour_lo = 1, colour_hi = 254;  // COLRAN: the table entries of the Z axis
  int auto_nx = 0, auto_ny = 0;    // AUTRES: colour points sized to fill the axis system
  bool cut_points = true;          // SCLPAX: colour points cut at the axis system
  double label_gap = 0.5;          // CONGAP: room around contour labels, character heights
  double label_every = 6, label_least = 1.5;  // CONMOD: label spacing, shortest labelled line (label widths)
  std::string label_text;          // CONLAB: text of contour labels; empty: the level
  // contour labels already placed on the current axis system, as turned rectangles (page
  // corners), so that labels of later levels keep clear of them
  std::vector<std::array<Pt, 4>> label_boxes;
  size_t label_page = 0;           // the page (count of pages) they were placed on
  bool colour_axis = false;        // the current axis system has a Z axis (GRAF3, GRAF3D)
  AxisRange z;                     // and this is it
};

struct MirvalState {
  int level = 0;          // 0 closed, 1 page open, 2 2-D axis system, 3 3-D axis system
  char program[81] = {};  // the caller's name given to mirlog
  MessageState msg;
  PageState page;
  PenState pen;
  ColourState colours;
  TextState text;
  AxesState axes;
  CurveState curve;
  LegendState legend;
  Space3D space;
  GridState grid;
  Scene scene;
  FontTable fonts;
  // the parts of the concern folders, each declared in its folder
  AxisExtraState axextra;
  ChartState chart;
  FieldState field;
  SolidState solid;
  MapState map;
  MediaState media;
  WindowState window;
};

MirvalState &mirval_state();
