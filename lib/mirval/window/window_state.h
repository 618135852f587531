// The screen windows, cursor input and widgets.
#pragma once
#include "core/reset.h"

struct WindowState {
};

// RESET entries of this part (see core/reset.h).
inline const ResetEntry window_resets[] = {{nullptr, nullptr}};
