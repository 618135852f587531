// Settings of map projections and geography.
#pragma once
#include "core/reset.h"

struct MapState {
};

// RESET entries of this part (see core/reset.h).
inline const ResetEntry map_resets[] = {{nullptr, nullptr}};
