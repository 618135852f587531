// RESET: returns a setting, named by the routine that makes it, to its default. The defaults
// are the member initialisers of the state parts, so each entry copies from a fresh part.
#include "core/keywords.h"
#include "core/messages.h"
#include "core/reset.h"
#include "mirval.h"
#include "core/state.h"
#include "core/trace.h"

#include <algorithm>

namespace {

using Entry = ResetEntry;

const PenState pen0;
const TextState text0;
const AxesState axes0;
const CurveState curve0;
const LegendState legend0;
const PageState page0;
const Space3D space0;
const GridState grid0;

// Restores one setting of all three axes.
template <auto field>
void axis_field(MirvalState &s) {
  for (int i = 0; i < 3; ++i) s.axes.axis[i].*field = axes0.axis[i].*field;
}

const Entry entries[] = {
    {"SETSCL", axis_field<&AxisSettings::autoscale>},
    {"AXSSCL SCALE", axis_field<&AxisSettings::log>},
    {"LABELS", [](MirvalState &s) { axis_field<&AxisSettings::labels>(s); s.axes.other_labels.clear(); }},
    {"DIGITS LABDIG", [](MirvalState &s) { axis_field<&AxisSettings::digits>(s); s.axes.other_digits.clear(); }},
    {"TICKS", axis_field<&AxisSettings::ticks>},
    {"TICPOS", axis_field<&AxisSettings::ticpos>},
    {"NAME", axis_field<&AxisSettings::name>},
    {"NAMDIS", axis_field<&AxisSettings::namdis>},
    {"LABDIS", axis_field<&AxisSettings::labdis>},
    {"AXSPOS CENTER", [](MirvalState &s) { s.axes.posx = axes0.posx, s.axes.posy = axes0.posy; }},
    {"AXSLEN AX3LEN", [](MirvalState &s) { s.axes.len = axes0.len; }},
    {"TICLEN", [](MirvalState &s) { s.axes.ticlen_major = axes0.ticlen_major, s.axes.ticlen_minor = axes0.ticlen_minor; }},
    {"TITLIN", [](MirvalState &s) { s.axes.title = axes0.title; }},
    {"HTITLE", [](MirvalState &s) { s.axes.htitle = axes0.htitle; }},
    {"HNAME", [](MirvalState &s) { s.axes.hname = axes0.hname; }},
    {"VKYTIT", [](MirvalState &s) { s.axes.vkytit = axes0.vkytit; }},
    {"TITJUS", [](MirvalState &s) { s.axes.title_just = axes0.title_just; }},
    {"SETGRF", [](MirvalState &s) { s.axes.sides = axes0.sides; }},
    {"HEIGHT", [](MirvalState &s) { s.text.height = text0.height; }},
    {"ANGLE", [](MirvalState &s) { s.text.angle = text0.angle; }},
    {"TXTJUS", [](MirvalState &s) { s.text.just = text0.just; }},
    {"SIMPLX COMPLX DUPLX TRIPLX HELVE HELVES HELVET SERIF PSFONT TTFONT", [](MirvalState &s) { s.text.font = text0.font; }},
    {"COLOR SETRGB SETCLR", [](MirvalState &s) { s.pen.fore = pen0.fore, s.pen.rgb = pen0.rgb, s.pen.index = pen0.index; }},
    {"SETVLT MYVLT SETIND", [](MirvalState &s) { s.colours = ColourState{}; }},
    {"LINWID PENWID", [](MirvalState &s) { s.pen.width = pen0.width; }},
    {"LINTYP SOLID DOT DASH CHNDOT CHNDSH DOTL DASHM DASHL MYLINE", [](MirvalState &s) { s.pen.style = pen0.style, s.pen.dash = pen0.dash; }},
    {"THKCRV", [](MirvalState &s) { s.pen.thick = pen0.thick; }},
    {"SHDPAT", [](MirvalState &s) { s.pen.pattern = pen0.pattern; }},
    {"FRAME", [](MirvalState &s) { s.pen.frame = pen0.frame; }},
    {"LNCAP", [](MirvalState &s) { s.pen.cap = pen0.cap; }},
    {"LNJOIN", [](MirvalState &s) { s.pen.join = pen0.join; }},
    {"NOCLIP CLPBOR CLPWIN", [](MirvalState &s) { s.pen.clip = pen0.clip, s.pen.window = pen0.window; }},
    {"INCMRK", [](MirvalState &s) { s.curve.incmrk = curve0.incmrk; }},
    {"MARKER", [](MirvalState &s) { s.curve.marker = curve0.marker; }},
    {"HSYMBL", [](MirvalState &s) { s.curve.hsymbl = curve0.hsymbl; }},
    {"POLCRV", [](MirvalState &s) { s.curve.interp = curve0.interp; }},
    {"NOCHEK", [](MirvalState &s) { s.curve.check = curve0.check; }},
    {"CHNCRV", [](MirvalState &s) { s.curve.change = curve0.change, s.curve.changed = curve0.changed; }},
    {"LEGTIT", [](MirvalState &s) { s.legend.title = legend0.title; }},
    {"LEGPOS", [](MirvalState &s) { s.legend.placed = legend0.placed; }},
    {"LEGOPT", [](MirvalState &s) { s.legend.sample = legend0.sample, s.legend.gap = legend0.gap, s.legend.spacing = legend0.spacing; }},
    {"LEGCLR", [](MirvalState &s) { s.legend.text_colours = legend0.text_colours; }},
    {"LEGBGD", [](MirvalState &s) { s.legend.background = legend0.background; }},
    {"LEGPAT", [](MirvalState &s) { s.legend.given.clear(); }},
    {"LEGSEL", [](MirvalState &s) { s.legend.selected.clear(); }},
    {"LEGTBL", [](MirvalState &s) { s.legend.table = legend0.table, s.legend.table_rows = legend0.table_rows; }},
    {"LEGTYP", [](MirvalState &s) { s.legend.horizontal = legend0.horizontal; }},
    {"LEGVAL", [](MirvalState &s) { s.legend.symbol_scale = legend0.symbol_scale, s.legend.patch_height = legend0.patch_height, s.legend.column_gap = legend0.column_gap; }},
    {"AXIS3D", [](MirvalState &s) { std::copy(space0.box, space0.box + 3, s.space.box); }},
    {"VIEW3D", [](MirvalState &s) { std::copy(space0.view, space0.view + 3, s.space.view), s.space.view_mode = space0.view_mode; }},
    {"SHDMOD", [](MirvalState &s) { s.space.shading.clear(); }},
    {"SETRES", [](MirvalState &s) { s.page.xres = page0.xres, s.page.yres = page0.yres; }},
    {"VANG3D", [](MirvalState &s) { s.space.vang = space0.vang; }},
    {"VUP3D", [](MirvalState &s) { s.space.vup = space0.vup; }},
    {"SURCLR", [](MirvalState &s) { s.space.top = space0.top, s.space.bottom = space0.bottom; }},
    {"SURVIS", [](MirvalState &s) { s.space.visible = space0.visible; }},
    {"SURMSH", [](MirvalState &s) { s.space.mesh = space0.mesh; }},
    {"NOBAR", [](MirvalState &s) { s.grid.bar = grid0.bar; }},
    {"VKXBAR SPCBAR", [](MirvalState &s) { s.grid.bar_gap = grid0.bar_gap; }},
    {"VKYBAR", [](MirvalState &s) { s.grid.bar_shift = grid0.bar_shift; }},
    {"WIDBAR", [](MirvalState &s) { s.grid.bar_width = grid0.bar_width; }},
    {"COLRAN", [](MirvalState &s) { s.grid.colour_lo = grid0.colour_lo, s.grid.colour_hi = grid0.colour_hi; }},
    {"AUTRES", [](MirvalState &s) { s.grid.auto_nx = grid0.auto_nx, s.grid.auto_ny = grid0.auto_ny; }},
    {"SCLPAX", [](MirvalState &s) { s.grid.cut_points = grid0.cut_points; }},
    {"CONGAP", [](MirvalState &s) { s.grid.label_gap = grid0.label_gap; }},
    {"CONMOD", [](MirvalState &s) { s.grid.label_every = grid0.label_every, s.grid.label_least = grid0.label_least; }},
    {"CONLAB", [](MirvalState &s) { s.grid.label_text = grid0.label_text; }},
};

// Output settings can change only while no page is open.
const Entry page_entries[] = {
    {"METAFL", [](MirvalState &s) { s.page.format = page0.format, s.page.screen = page0.screen; }},
    {"SETFIL", [](MirvalState &s) { s.page.file = page0.file; }},
    {"FILMOD", [](MirvalState &s) { s.page.filmod = page0.filmod; }},
    {"PAGE SETPAG", [](MirvalState &s) { s.page.width = page0.width, s.page.height = page0.height; }},
    {"PAGORG", [](MirvalState &s) { s.page.bottom = page0.bottom; }},
    {"WINSIZ", [](MirvalState &s) { s.page.win_w = page0.win_w, s.page.win_h = page0.win_h; }},
    {"SCRMOD", [](MirvalState &s) { s.page.reverse = page0.reverse; }},
};

// The tables of the concern folders' own parts.
const Entry *const concern_tables[] = {axextra_resets, chart_resets, field_resets, solid_resets,
                                       map_resets, media_resets, window_resets};

bool names(const char *list, const char *name) {
  std::string l = list;
  for (size_t at = 0; at < l.size();) {
    size_t end = l.find(' ', at);
    if (end == std::string::npos) end = l.size();
    if (same(l.substr(at, end - at).c_str(), name)) return true;
    at = end + 1;
  }
  return false;
}

}  // namespace

bool reset_setting(const char *cname) {
  MirvalState &s = mirval_state();
  bool all = same(cname, "ALL");
  bool found = false;
  for (const Entry &e : entries)
    if (all || names(e.names, cname)) {
      e.fn(s);
      found = true;
    }
  for (const Entry *table : concern_tables)
    for (const Entry *e = table; e->names; ++e)
      if (all || names(e->names, cname)) {
        e->fn(s);
        found = true;
      }
  for (const Entry &e : page_entries)
    if (all || names(e.names, cname)) {
      found = true;
      if (s.level == 0) e.fn(s);
      else if (!all) mv_warn("reset", "%s can be reset only before MIRINI", cname);
    }
  return found;
}

extern "C" {

void reset(const char *cname) {
  mv_tracef("reset(%s)", mv_tstr(cname).c_str());
  if (!cname) {
    mv_warn("reset", "no setting named");
    return;
  }
  if (!reset_setting(cname)) mv_warn("reset", "unknown setting %s", cname);
}

}
