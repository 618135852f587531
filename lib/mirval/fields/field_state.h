// Settings of vector fields, streamlines, triangulations and fits.
#pragma once
#include "core/reset.h"

struct FieldState {
};

// RESET entries of this part (see core/reset.h).
inline const ResetEntry field_resets[] = {{nullptr, nullptr}};
