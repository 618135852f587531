// Settings of bar graphs, pie charts and the other charts of plots/.
#pragma once
#include "core/reset.h"

struct ChartState {
};

// RESET entries of this part (see core/reset.h).
inline const ResetEntry chart_resets[] = {{nullptr, nullptr}};
