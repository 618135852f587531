// 3-D settings that the quick plots hand over: kept here until the 3-D drawing uses them.
#include "core/messages.h"
#include "core/keywords.h"
#include "mirval.h"
#include "core/state.h"
#include "core/trace.h"

#include <cmath>

extern "C" {

void axis3d(float x3len, float y3len, float z3len) {
  mv_tracef("axis3d(%g, %g, %g)", (double)x3len, (double)y3len, (double)z3len);
  if (!(x3len > 0) || !(y3len > 0) || !(z3len > 0)) {
    mv_warn("axis3d", "lengths must be positive (got %g, %g, %g)", (double)x3len, (double)y3len, (double)z3len);
    return;
  }
  float *b = mirval_state().space.box;
  b[0] = x3len, b[1] = y3len, b[2] = z3len;
}

void view3d(float xvu, float yvu, float zvu, const char *copt) {
  mv_tracef("view3d(%g, %g, %g, %s)", (double)xvu, (double)yvu, (double)zvu, mv_tstr(copt).c_str());
  std::string mode = upper(copt);
  if (mode != "ABS" && mode != "USER" && mode != "ANGLE") {
    mv_warn("view3d", "unknown option %s", mv_tstr(copt).c_str());
    return;
  }
  if (!std::isfinite(xvu) || !std::isfinite(yvu) || !std::isfinite(zvu)) {
    mv_warn("view3d", "the view point must be finite");
    return;
  }
  Space3D &sp = mirval_state().space;
  sp.view[0] = xvu, sp.view[1] = yvu, sp.view[2] = zvu;
  sp.view_mode = mode;
}

void shdmod(const char *copt, const char *ctype) {
  mv_tracef("shdmod(%s, %s)", mv_tstr(copt).c_str(), mv_tstr(ctype).c_str());
  if (!copt || !ctype || !*copt || !*ctype) {
    mv_warn("shdmod", "option and type are both needed");
    return;
  }
  mirval_state().space.shading[upper(ctype)] = upper(copt);
}

}
