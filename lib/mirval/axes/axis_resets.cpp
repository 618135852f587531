// RESET entries of the stand-alone axes, axis options, label forms and charts.
#include "axes/axis_extra_state.h"
#include "core/state.h"

namespace {

const AxisExtraState extra0;
const AxisForm form0;

template <auto Field>
void form_field(MirvalState &s) {
  for (AxisForm &f : s.axextra.form) f.*Field = form0.*Field;
}

template <auto Field>
void extra_field(MirvalState &s) {
  s.axextra.*Field = extra0.*Field;
}

}  // namespace

const ResetEntry axextra_resets[] = {
    {"MYLAB", form_field<&AxisForm::mylab>},
    {"ADDLAB", form_field<&AxisForm::added>},
    {"LABPOS", form_field<&AxisForm::between>},
    {"LABJUS", form_field<&AxisForm::label_just>},
    {"LABTYP", form_field<&AxisForm::vertical>},
    {"NAMJUS", form_field<&AxisForm::name_just>},
    {"AXENDS", form_field<&AxisForm::ends>},
    {"TICMOD", form_field<&AxisForm::ticmode>},
    {"AXCLRS", form_field<&AxisForm::colour>},
    {"LABMOD", [](MirvalState &s) {
       for (AxisForm &f : s.axextra.form)
         f.year = form0.year, f.month = form0.month, f.weekday = form0.weekday, f.date_step = form0.date_step;
     }},
    {"LABPOS LABCLR LABJUS", extra_field<&AxisExtraState::targets>},
    {"BASDAT", [](MirvalState &s) {
       s.axextra.base_day = extra0.base_day, s.axextra.base_month = extra0.base_month,
       s.axextra.base_year = extra0.base_year;
     }},
    {"AXSTYP", extra_field<&AxisExtraState::axis_type>},
    {"AXSBGD NOBGD", extra_field<&AxisExtraState::background>},
    {"AXSORG AXSPOS", extra_field<&AxisExtraState::centred>},
    {"AX2GRF", extra_field<&AxisExtraState::all_labelled>},
    {"INTAX", extra_field<&AxisExtraState::integer>},
    {"LOGTIC", extra_field<&AxisExtraState::logtic>},
    {"NEGLOG", extra_field<&AxisExtraState::neglog>},
    {"SETEXP", extra_field<&AxisExtraState::exp_size>},
    {"SETBAS", extra_field<&AxisExtraState::exp_raise>},
    {"SCLFAC", extra_field<&AxisExtraState::factor>},
    {"SCLMOD", extra_field<&AxisExtraState::factor_axes>},
    {"NOGRAF", extra_field<&AxisExtraState::nograf>},
    {"GRACE", extra_field<&AxisExtraState::grace>},
    {"ZSCALE", [](MirvalState &s) { s.axextra.zscale_lo = extra0.zscale_lo, s.axextra.zscale_hi = extra0.zscale_hi; }},
    {"NUMFMT", extra_field<&AxisExtraState::auto_numbers>},
    {"NUMODE", [](MirvalState &s) {
       s.axextra.decimal = extra0.decimal, s.axextra.group = extra0.group, s.axextra.plus = extra0.plus;
     }},
    {"EXPZLB", extra_field<&AxisExtraState::zero_label>},
    {"TITPOS", extra_field<&AxisExtraState::title_pos>},
    {"RGTLAB", extra_field<&AxisExtraState::right_labels>},
    {"RVYNAM", extra_field<&AxisExtraState::y_name_reversed>},
    {"FRMBAR", extra_field<&AxisExtraState::bar_frame>},
    {"FRMCLR", extra_field<&AxisExtraState::frame_colour>},
    {"JUSBAR", extra_field<&AxisExtraState::bar_just>},
    {"POSBAR", extra_field<&AxisExtraState::bar_pos>},
    {"CIRCSP", extra_field<&AxisExtraState::circle_step>},
    {"ORIGIN", [](MirvalState &s) { s.axextra.origin_x = extra0.origin_x, s.axextra.origin_y = extra0.origin_y; }},
    {"PAGHDR", [](MirvalState &s) {
       s.axextra.header_corner = extra0.header_corner, s.axextra.header_before = extra0.header_before,
       s.axextra.header_after = extra0.header_after, s.axextra.header_height = extra0.header_height;
     }},
    {"PAGMOD", extra_field<&AxisExtraState::page_mode>},
    {"LFTTIT", [](MirvalState &s) { s.axes.title_just = AxesState{}.title_just; }},
    {nullptr, nullptr}};
