// Settings of stand-alone axes, axis options, label forms and polar and Smith charts.
#pragma once
#include "core/reset.h"

struct AxisExtraState {
};

// RESET entries of this part (see core/reset.h).
inline const ResetEntry axextra_resets[] = {{nullptr, nullptr}};
