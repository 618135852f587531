// Axis systems: the parts of GRAF that the colour axis of GRAF3 and the 3-D axis systems
// share, so that every axis labels and scales alike.
#pragma once
#include "core/state.h"

#include <array>
#include <functional>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

struct AxisLabel {
  double at;  // axis units (exponents on log axes)
  std::string text, sup;
};

// The label texts of an axis as LABELS and DIGITS ask for them.
std::vector<AxisLabel> axis_labels(const AxisSettings &s, const AxisRange &r);
// The range axis i (0 X, 1 Y, 2 Z) of the given length takes: automatic scaling replaces the
// given one. False, after a warning naming the routine, when the range is unusable.
bool axis_range(const char *routine, int i, float a, float e, float org, float step, double length,
                AxisRange &r);
// Defines the 2-D axis system with settled ranges at AXSPOS/AXSLEN, draws its sides: level 2.
void axis_system(const std::array<AxisRange, 2> &r);
// Draws side 0..3 (lower, left, upper, right) of the current axis system as SETGRF says and
// returns how far its ticks, labels and name reach out.
double axis_side(int side);
// The same with the label forms (MYLAB, LABMOD ...) of axis 'form' (0 X, 1 Y, 2 Z).
double axis_side(int side, int form);
// A colour bar in the rectangle with the scale r on side 0..3 (lower, left, upper, right), as
// ZAXIS and the bar of GRAF3 draw it: stripes of the COLRAN entries, the FRMBAR frame.
void colour_bar_at(const Rect &bar, bool vertical, const AxisRange &r, int side, const std::string &name);
// Label texts with the label forms of axis 'form'.
std::vector<AxisLabel> axis_labels(const AxisSettings &s, const AxisRange &r, int form);
// Applies f to the label forms of the axes named in cax ('X', 'XY' ...); a warning of the
// routine when it names none.
void for_forms(const char *routine, const char *cax, const std::function<void(AxisForm &)> &f);
// Hands a getter's values out through its pointers; null pointers are skipped.
inline void put_out(std::initializer_list<std::pair<int *, int>> outs) {
  for (auto [p, v] : outs)
    if (p) *p = v;
}
inline void put_out(std::initializer_list<std::pair<float *, float>> outs) {
  for (auto [p, v] : outs)
    if (p) *p = v;
}
// AXGIT, CROSS and their X and Y forms: line(axis) for axis 0, 1 or both (-1) once the level,
// 2 up to 'top', allows it.
void axis_lines(const char *routine, int top, int axis, void (*line)(int));
