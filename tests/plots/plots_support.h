// Helpers of the chart tests: a page written to a file, the items of the page, and pictures
// kept for a person to look at (MIRVAL_PLOTS_KEEP=dir).
#pragma once
#include "library_test.h"
#include "core/state.h"

#include <string>
#include <vector>

class PlotsTest : public PageTest {
 protected:
  std::vector<const Item *> items(ItemKind kind) const;
  std::vector<std::string> texts() const;
};
