// RESET entries of the stand-alone axes, axis options, label forms and charts.
#include "axes/axis_extra_state.h"
#include "core/state.h"

namespace {

const AxisForm form0;

template <auto... F>
void form_fields(MirvalState &s) {
  for (AxisForm &f : s.axextra.form) ((f.*F = form0.*F), ...);
}

template <auto... F> constexpr ResetFn extra_fields = restore<&MirvalState::axextra, F...>;

}  // namespace

const ResetEntry axextra_resets[] = {
    {"MYLAB", form_fields<&AxisForm::mylab>},
    {"ADDLAB", form_fields<&AxisForm::added>},
    {"LABPOS", form_fields<&AxisForm::between>},
    {"LABJUS", form_fields<&AxisForm::label_just>},
    {"LABTYP", form_fields<&AxisForm::vertical>},
    {"NAMJUS", form_fields<&AxisForm::name_just>},
    {"AXENDS", form_fields<&AxisForm::ends>},
    {"TICMOD", form_fields<&AxisForm::ticmode>},
    {"AXCLRS", form_fields<&AxisForm::colour>},
    {"LABMOD", form_fields<&AxisForm::year, &AxisForm::month, &AxisForm::weekday, &AxisForm::date_step>},
    {"LABPOS LABCLR LABJUS", extra_fields<&AxisExtraState::targets>},
    {"BASDAT", extra_fields<&AxisExtraState::base_day, &AxisExtraState::base_month, &AxisExtraState::base_year>},
    {"AXSTYP", extra_fields<&AxisExtraState::axis_type>},
    {"AXSBGD NOBGD", extra_fields<&AxisExtraState::background>},
    {"AXSORG AXSPOS", extra_fields<&AxisExtraState::centred>},
    {"AX2GRF", extra_fields<&AxisExtraState::all_labelled>},
    {"INTAX", extra_fields<&AxisExtraState::integer>},
    {"LOGTIC", extra_fields<&AxisExtraState::logtic>},
    {"NEGLOG", extra_fields<&AxisExtraState::neglog>},
    {"SETEXP", extra_fields<&AxisExtraState::exp_size>},
    {"SETBAS", extra_fields<&AxisExtraState::exp_raise>},
    {"SCLFAC", extra_fields<&AxisExtraState::factor>},
    {"SCLMOD", extra_fields<&AxisExtraState::factor_axes>},
    {"NOGRAF", extra_fields<&AxisExtraState::nograf>},
    {"GRACE", extra_fields<&AxisExtraState::grace>},
    {"ZSCALE", extra_fields<&AxisExtraState::zscale_lo, &AxisExtraState::zscale_hi>},
    {"NUMFMT", extra_fields<&AxisExtraState::auto_numbers>},
    {"NUMODE", extra_fields<&AxisExtraState::decimal, &AxisExtraState::group, &AxisExtraState::plus>},
    {"EXPZLB", extra_fields<&AxisExtraState::zero_label>},
    {"TITPOS", extra_fields<&AxisExtraState::title_pos>},
    {"RGTLAB", extra_fields<&AxisExtraState::right_labels>},
    {"RVYNAM", extra_fields<&AxisExtraState::y_name_reversed>},
    {"FRMBAR", extra_fields<&AxisExtraState::bar_frame>},
    {"FRMCLR", extra_fields<&AxisExtraState::frame_colour>},
    {"JUSBAR", extra_fields<&AxisExtraState::bar_just>},
    {"POSBAR", extra_fields<&AxisExtraState::bar_pos>},
    {"CIRCSP", extra_fields<&AxisExtraState::circle_step>},
    {"ORIGIN", extra_fields<&AxisExtraState::origin_x, &AxisExtraState::origin_y>},
    {"PAGHDR", extra_fields<&AxisExtraState::header_corner, &AxisExtraState::header_before,
                            &AxisExtraState::header_after, &AxisExtraState::header_height>},
    {"PAGMOD", extra_fields<&AxisExtraState::page_mode>},
    {"LFTTIT", restore<&MirvalState::axes, &AxesState::title_just>},
    {nullptr, nullptr}};
