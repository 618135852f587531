// Settings of stand-alone axes, axis options, label forms and polar and Smith charts.
#pragma once
#include "core/reset.h"

#include <map>
#include <string>

// How the labels of a chart target ('BARS', 'PIE') look: LABPOS, LABCLR and LABJUS set them,
// the bar and pie routines read them.
struct LabelTarget {
  std::string pos = "AUTO";        // LABPOS keyword, e.g. 'INSIDE', 'OUTSIDE', 'CENTER'
  int colour = -1;                 // LABCLR: table colour, -1 the pen's
  std::string just = "AUTO";       // LABJUS keyword
};

struct AxisExtraState {
  std::map<std::string, LabelTarget> targets;  // keyed by upper-case target name
};

// RESET entries of this part (see core/reset.h).
inline const ResetEntry axextra_resets[] = {{nullptr, nullptr}};
