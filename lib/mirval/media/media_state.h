// Settings of images, pixels, binary files and text forms.
#pragma once
#include "core/reset.h"

#include <array>
#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <vector>

struct RasterImage;

// An alphabet that instruction characters inside a text switch to (SMXALF).
struct MixShift {
  std::string alphabet;            // STANDARD, GREEK, ITALIC, BOLD, SYMBOL, SCRIPT
  char on = 0, off = 0;            // 0: slot unused
};

// The image being made between IMGINI and IMGFIN.
struct ImageDraft {
  bool open = false;
  int x0 = 0, y0 = 0, w = 0, h = 0;  // page box of the image (plot units)
};

struct MediaState {
  // formulas
  bool tex = false;                // TEXMOD('ON')
  std::string tex_style = "TEXT";  // TEXOPT('STYLE'): TEXT or DISPLAY (limits above and below)
  bool tex_italic = true;          // TEXOPT('ITALIC'): letters of formulas in italics
  double tex_scale = 0.7;          // TEXVAL(x, 'SCRIPT'): size of indices
  double tex_raise = 0.55;         // TEXVAL(x, 'RAISE'): superscript lift, capital heights
  double tex_lower = 0.3;          // TEXVAL(x, 'LOWER'): subscript drop, capital heights
  // alphabets
  bool mix = false;                // MIXALF
  bool mix_legend = false;         // MIXLEG
  std::string base = "STANDARD";   // BASALF
  char sup = '^', sub = '[', res = ']';  // SETMIX: superscript, subscript, back to the line
  std::array<MixShift, 6> shifts{{{"GREEK", '{', '}'}}};  // SMXALF slots 1..6
  std::map<std::string, char> nation;    // EUSHFT: GERMAN, FRENCH ... -> shift character
  // character form
  double slant = 0;                // CHAANG: degrees
  double stretch = 1;              // CHAWTH: width factor
  double spacing = 0;              // CHASPC: extra room between characters, in capital heights
  double fixed = 0;                // FIXSPC: fixed advance per character, capital heights; 0 off
  double line_spacing = 1.5;       // LINESP: baseline distance of text lines, capital heights
  int text_bg = -1;                // TXTBGD: colour table entry behind texts, -1 none
  int frame = 0;                   // FRMESS: frame around texts in plot units, 0 none
  std::string codes = "STANDARD";  // CHACOD
  int stroke_font = 0;             // 0 outline fonts, 1 HWFONT (simplex strokes), 2 GOTHIC
  int unit = 6;                    // UNIT: 0 silences the library's messages
  std::string units = "MM";        // UNITS: what a plot unit stands for in vector files
  // images
  int tiforg_x = 0, tiforg_y = 0;  // TIFORG: where read images are put (page, plot units)
  int tifwin[4] = {0, 0, 0, 0};    // TIFWIN: part of the page written by WTIFF/WIMAGE; 0 size: all
  ImageDraft draft;
  int img_w = 0, img_h = 0;        // IMGSIZ: pixels of the next IMGINI image; 0: from the box
  int img_box[4] = {0, 0, 0, 0};   // IMGBOX: page box of the next IMGINI image; 0 size: page
  int img_clip[4] = {0, 0, 0, 0};  // IMGCLP: region of the image that is kept
  std::string img_fmt = "INDEX";   // IMGFMT: pixels as colour table entries (INDEX) or RGB
  std::string img_mode = "SOLID";  // IMGMOD: SOLID or TRANSPARENT
  int img_tpr = -1;                // IMGTPR: colour table entry that is transparent
  std::shared_ptr<RasterImage> pixels;  // the page's pixel layer (WPIXEL ...)
  // picture files placed by INCFIL
  int fil_box[4] = {0, 0, 0, 0};   // FILBOX; 0 size: the axis system or the page
  int fil_win[4] = {0, 0, 0, 0};   // FILWIN: part of the file's picture; 0 size: all
  std::string fil_clr = "COLOR";   // FILCLR: COLOR, GREY, BW
  std::map<std::string, std::string> fil_opt;  // FILOPT
  // format settings, kept by name (FORMAT.KEY -> value)
  std::map<std::string, std::string> formats;
  std::vector<std::pair<std::string, std::string>> bookmarks;  // PDFMRK: text, page
  bool timing = false;             // TIMOPT
  double timing_start = 0;         // seconds of processor time when TIMOPT was called
  std::vector<int> contour_colours;  // CONCLR: colour table entries of contour levels, in turn
  // binary files of OPENFL, by unit number, and the open FITS file
  std::map<int, std::FILE *> files;
  void *fits = nullptr;            // cfitsio's fitsfile
  std::string fits_name;
  // the rendered raster page, kept while the scene does not change
  std::shared_ptr<RasterImage> rendered;
  unsigned long rendered_changes = ~0ul;
  size_t rendered_pages = 0;
};

void media_reset_tex(MirvalState &st);
void media_reset_mix(MirvalState &st);
void media_reset_chars(MirvalState &st);
void media_reset_images(MirvalState &st);
void media_reset_formats(MirvalState &st);

// RESET entries of this part (see core/reset.h).
inline const ResetEntry media_resets[] = {
    {"TEXMOD TEXOPT TEXVAL", media_reset_tex},
    {"MIXALF MIXLEG BASALF SETMIX SMXALF NEWMIX EUSHFT", media_reset_mix},
    {"CHAANG CHAWTH CHASPC FIXSPC LINESP TXTBGD FRMESS CHACOD HWFONT GOTHIC UNIT UNITS", media_reset_chars},
    {"TIFORG TIFWIN IMGSIZ IMGBOX IMGCLP IMGFMT IMGMOD IMGTPR FILBOX FILWIN FILCLR FILOPT", media_reset_images},
    {"PNGMOD GIFMOD TIFMOD PDFMOD PDFMRK PSMODE PSMETA CGMBGD CGMPIC CGMVER WMFMOD HPGMOD HWMODE HWORIG HWPAGE HWSCAL BMPMOD BMPFNT BUFMOD SYMFIL TIMOPT", media_reset_formats},
    {nullptr, nullptr}};
