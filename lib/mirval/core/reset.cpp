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

const AxesState axes0;
const Space3D space0;

template <auto... F> constexpr ResetFn pen_fields = restore<&MirvalState::pen, F...>;
template <auto... F> constexpr ResetFn text_fields = restore<&MirvalState::text, F...>;
template <auto... F> constexpr ResetFn axes_fields = restore<&MirvalState::axes, F...>;
template <auto... F> constexpr ResetFn curve_fields = restore<&MirvalState::curve, F...>;
template <auto... F> constexpr ResetFn legend_fields = restore<&MirvalState::legend, F...>;
template <auto... F> constexpr ResetFn page_fields = restore<&MirvalState::page, F...>;
template <auto... F> constexpr ResetFn space_fields = restore<&MirvalState::space, F...>;
template <auto... F> constexpr ResetFn grid_fields = restore<&MirvalState::grid, F...>;

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
    {"AXSPOS CENTER", axes_fields<&AxesState::posx, &AxesState::posy>},
    {"AXSLEN AX3LEN", axes_fields<&AxesState::len>},
    {"TICLEN", axes_fields<&AxesState::ticlen_major, &AxesState::ticlen_minor>},
    {"TITLIN", axes_fields<&AxesState::title>},
    {"HTITLE", axes_fields<&AxesState::htitle>},
    {"HNAME", axes_fields<&AxesState::hname>},
    {"VKYTIT", axes_fields<&AxesState::vkytit>},
    {"TITJUS", axes_fields<&AxesState::title_just>},
    {"SETGRF", axes_fields<&AxesState::sides>},
    {"HEIGHT", text_fields<&TextState::height>},
    {"ANGLE", text_fields<&TextState::angle>},
    {"TXTJUS", text_fields<&TextState::just>},
    {"SIMPLX COMPLX DUPLX TRIPLX HELVE HELVES HELVET SERIF PSFONT TTFONT", text_fields<&TextState::font>},
    {"COLOR SETRGB SETCLR", pen_fields<&PenState::fore, &PenState::rgb, &PenState::index>},
    {"SETVLT MYVLT SETIND", [](MirvalState &s) { s.colours = ColourState{}; }},
    {"LINWID PENWID", pen_fields<&PenState::width>},
    {"LINTYP SOLID DOT DASH CHNDOT CHNDSH DOTL DASHM DASHL MYLINE", pen_fields<&PenState::style, &PenState::dash>},
    {"THKCRV", pen_fields<&PenState::thick>},
    {"SHDPAT", pen_fields<&PenState::pattern>},
    {"FRAME", pen_fields<&PenState::frame>},
    {"LNCAP", pen_fields<&PenState::cap>},
    {"LNJOIN", pen_fields<&PenState::join>},
    {"NOCLIP CLPBOR CLPWIN", pen_fields<&PenState::clip, &PenState::window>},
    {"INCMRK", curve_fields<&CurveState::incmrk>},
    {"MARKER", curve_fields<&CurveState::marker>},
    {"HSYMBL", curve_fields<&CurveState::hsymbl>},
    {"POLCRV", curve_fields<&CurveState::interp>},
    {"NOCHEK", curve_fields<&CurveState::check>},
    {"CHNCRV", curve_fields<&CurveState::change, &CurveState::changed>},
    {"LEGTIT", legend_fields<&LegendState::title>},
    {"LEGPOS", legend_fields<&LegendState::placed>},
    {"LEGOPT", legend_fields<&LegendState::sample, &LegendState::gap, &LegendState::spacing>},
    {"LEGCLR", legend_fields<&LegendState::text_colours>},
    {"LEGBGD", legend_fields<&LegendState::background>},
    {"LEGPAT", [](MirvalState &s) { s.legend.given.clear(); }},
    {"LEGSEL", [](MirvalState &s) { s.legend.selected.clear(); }},
    {"LEGTBL", legend_fields<&LegendState::table, &LegendState::table_rows>},
    {"LEGTYP", legend_fields<&LegendState::horizontal>},
    {"LEGVAL", legend_fields<&LegendState::symbol_scale, &LegendState::patch_height, &LegendState::column_gap>},
    {"AXIS3D", [](MirvalState &s) { std::copy(space0.box, space0.box + 3, s.space.box); }},
    {"VIEW3D", [](MirvalState &s) { std::copy(space0.view, space0.view + 3, s.space.view), s.space.view_mode = space0.view_mode; }},
    {"SHDMOD", [](MirvalState &s) { s.space.shading.clear(); }},
    {"SETRES", page_fields<&PageState::xres, &PageState::yres>},
    {"VANG3D", space_fields<&Space3D::vang>},
    {"VUP3D", space_fields<&Space3D::vup>},
    {"SURCLR", space_fields<&Space3D::top, &Space3D::bottom>},
    {"SURVIS", space_fields<&Space3D::visible>},
    {"SURMSH", space_fields<&Space3D::mesh>},
    {"NOBAR", grid_fields<&GridState::bar>},
    {"VKXBAR SPCBAR", grid_fields<&GridState::bar_gap>},
    {"VKYBAR", grid_fields<&GridState::bar_shift>},
    {"WIDBAR", grid_fields<&GridState::bar_width>},
    {"COLRAN", grid_fields<&GridState::colour_lo, &GridState::colour_hi>},
    {"AUTRES", grid_fields<&GridState::auto_nx, &GridState::auto_ny>},
    {"SCLPAX", grid_fields<&GridState::cut_points>},
    {"CONGAP", grid_fields<&GridState::label_gap>},
    {"CONMOD", grid_fields<&GridState::label_every, &GridState::label_least>},
    {"CONLAB", grid_fields<&GridState::label_text>},
};

// Output settings can change only while no page is open.
const Entry page_entries[] = {
    {"METAFL", page_fields<&PageState::format, &PageState::screen>},
    {"SETFIL", page_fields<&PageState::file>},
    {"FILMOD", page_fields<&PageState::filmod>},
    {"PAGE SETPAG", page_fields<&PageState::width, &PageState::height>},
    {"PAGORG", page_fields<&PageState::bottom>},
    {"WINSIZ", page_fields<&PageState::win_w, &PageState::win_h>},
    {"SCRMOD", page_fields<&PageState::reverse>},
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
