// The caller's registrations and the level: small utilities with no drawing.
#include "mirval.h"
#include "core/state.h"
#include "core/trace.h"

extern "C" {

void mirlog(const char *name) {
  mv_tracef("mirlog(%s)", mv_tstr(name).c_str());
  qqscpy(mirval_state().program, name ? name : "", sizeof mirval_state().program - 1);
}

int getlev(void) { return mirval_state().level; }

}  // extern "C"
