// Settings of images, pixels, binary files and text forms.
#pragma once
#include "core/reset.h"

struct MediaState {
};

// RESET entries of this part (see core/reset.h).
inline const ResetEntry media_resets[] = {{nullptr, nullptr}};
