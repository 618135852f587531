// Settings of lit solids, the depth buffer and 3-D views.
#pragma once
#include "core/reset.h"

struct SolidState {
};

// RESET entries of this part (see core/reset.h).
inline const ResetEntry solid_resets[] = {{nullptr, nullptr}};
