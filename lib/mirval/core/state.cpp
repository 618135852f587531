#include "core/state.h"

MirvalState &mirval_state() {
  static MirvalState state;
  return state;
}
