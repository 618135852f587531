// Quick plots: placeholders until the drawing library is connected.
#include "binding/quickplot.h"

#include "core/statement.h"
#include "lang/parser.h"

static int unavailable(const char *word) {
  free_stack(0);
  return not_available(word);
}

int plot_zkl(int kind) { return unavailable(kind == 1 ? "PLOT" : "SCATTR"); }
int plot3_zkl() { return unavailable("PLOT3"); }
int plot3r_zkl() { return unavailable("PLOT3R"); }
int contour_zkl(int shaded) { return unavailable(shaded ? "CONSHADE" : "CONTOUR"); }
int surf3_zkl(int kind) { return unavailable(kind == 0 ? "SURF3" : kind == 1 ? "SURFACE" : "SURSHADE"); }
