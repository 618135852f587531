// Colours: the current colour, the 256-entry colour table and the HSV conversions.
#pragma once
#include "draw/scene.h"

#include <array>
#include <string>

using ColourTable = std::array<Rgb, 256>;

// Fills a table by name ('RAIN', 'SPEC', 'GREY', 'TEMP' and the reversed 'R' forms);
// false for an unknown name.
bool make_table(const std::string &name, ColourTable &t);
// Entry n of the current table (loading the default table on first use).
Rgb table_rgb(int n);
// The table entry nearest to a colour.
int nearest_index(Rgb c);
// h in degrees, s and v from 0 to 1.
Rgb hsv_to_rgb(double h, double s, double v);
void rgb_to_hsv(Rgb c, double &h, double &s, double &v);
// Sets the current colour.
void set_pen_rgb(Rgb c, int index);
