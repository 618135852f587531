// What bar graphs, pie charts and histograms share: colour and pattern cycles, filled areas,
// value labels, and the pure geometry the tests check.
#pragma once
#include "core/state.h"
#include "draw/scene.h"

#include <string>
#include <vector>

// Colour k (from 0) of the chart colour cycle: a CLRCYC table entry or a built-in colour.
Rgb cycle_rgb(int k);
// Pattern k (from 0) of the PATCYC cycle, 1..16.
int cycle_pattern(int k);
// The colour of line style cycle entry k (LINCYC): a line style 0..7.
int cycle_line(int k);
// Fills a closed area in a colour and pattern (0 or 16 solid, 1..15 hatched) unless NOFILL,
// then outlines it in 'border' unless 'outlined' is false or NOLINE.
void chart_area(const Path &p, Rgb fill, int pattern, bool outlined, Rgb border);
// A value as a chart label: LABELS type and decimals (-1: the fewest that show it, at most 3).
std::string chart_value(double v, LabelType type, int digits);
// A colour made darker (f < 1) or lighter towards white (f > 1).
Rgb shade(Rgb c, double f);
// Whether a chart setting x is finite and at most 'limit' in size; otherwise the routine warns
// about 'what'.
bool bounded(const char *routine, const char *what, double x, double limit);

// Histogram of data: bins of a round width (1, 2 or 5 times a power of ten) chosen so that
// there are about ceil(log2 m) + 1 of them for m values (Sturges' rule), starting at a multiple
// of the width; each bin holds the values from its lower edge up to, not including, its upper
// edge, the last one its upper edge too. NaN and infinite values are left out. At most
// 'maxbins' bins (the width grows until they fit).
struct Histogram {
  double start = 0, step = 1;
  std::vector<int> counts;
};
Histogram histogram_bins(const std::vector<double> &data, int maxbins);

// Where bar k (0-based) of a group of n, of total width 'width' with 'gap' between its bars,
// lies along the position axis: [lo, hi] in page units around the page position p. align: 0
// the group centred on p, 1 starting at p, 2 ending at p.
struct Span {
  double lo, hi;
};
Span bar_span(double p, double width, int n, double gap, int k, int align);

// Segment angles of a pie: the start and end angle (degrees, counter-clockwise from the
// X axis direction, starting at 'rotation') of each value's share of the total. Values that
// are not positive or not finite get an empty segment.
std::vector<Span> pie_angles(const std::vector<double> &values, double rotation);

// Shielding: the polyline without its parts inside the visible shielded regions.
std::vector<std::vector<Pt>> unshielded(const std::vector<Pt> &line);
bool shielded(Pt p);
// Adds a shielded region (page coordinates) and returns its number; 'automatic' for those
// that legends and messages make.
int add_shield(const std::vector<Pt> &poly, bool automatic);
// A rectangle w wide and h high whose upper edge runs from x0 to x0 + w along the baseline
// through 'at', turned counter-clockwise about 'at' by angle degrees (page coordinates).
std::vector<Pt> turned_rect(Pt at, double x0, double w, double h, double angle);
// The polygon of an ellipse (half axes a, b, turned by theta degrees) or of a pie slice.
std::vector<Pt> ellipse_polygon(Pt c, double a, double b, double theta);
std::vector<Pt> slice_polygon(Pt c, double r, double a1, double a2);
