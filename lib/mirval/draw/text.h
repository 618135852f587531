// Placing text: runs in the current font, anchored at a corner, the centre or the baseline,
// optionally with a raised exponent (axis labels such as 10 with a superscript 3).
#pragma once
#include "core/state.h"

#include <string>

enum class VAlign { Top, Middle, Base };

int current_font();
// Width in plot units of a text (and its exponent) in the current font at capital height h.
double text_length(const std::string &text, const std::string &sup, double h);
// Draws text so that its anchor point (left/centre/right, top/middle/base of the capitals)
// lies at 'at' in page coordinates; angle in degrees counter-clockwise.
void put_text(const std::string &text, const std::string &sup, Pt at, double h, double angle,
              Just just, VAlign valign, Rgb rgb);
// Sets j from a justification keyword (LEFT, CENT or CENTER, RIGHT); otherwise warns.
void set_just(const char *routine, const char *c, Just &j);
// A number as NUMBER writes it: ndig decimals, 0 a trailing point, -1 a rounded integer.
std::string number_text(double x, int ndig);
