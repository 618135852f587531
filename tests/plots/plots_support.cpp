#include "plots_support.h"
#include "mirval.h"

std::vector<const Item *> PlotsTest::items(ItemKind kind) const {
  std::vector<const Item *> out;
  for (const Item &it : mirval_state().scene.current().items)
    if (it.kind == kind) out.push_back(&it);
  return out;
}

std::vector<std::string> PlotsTest::texts() const {
  std::vector<std::string> out;
  for (const Item *it : items(ItemKind::Text)) out.push_back(it->text);
  return out;
}
