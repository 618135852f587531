// The classic stroke fonts (HWFONT, GOTHIC), read from the Hershey glyph files of Debian's
// hershey-fonts-data: every character is a set of pen strokes.
#pragma once
#include <string>
#include <vector>

// Stroke sets: 1 simplex (futural), 2 gothic (gothgbt).
// Width of a text in plot units at capital height h.
double hershey_width(int set, const std::string &text, double h);
// The strokes of a text with its baseline starting at (0, 0), y upwards, at capital height h:
// each polyline as x, y pairs.
std::vector<std::vector<double>> hershey_strokes(int set, const std::string &text, double h);
// Whether the glyph file of the set could be read.
bool hershey_available(int set);
