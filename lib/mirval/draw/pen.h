// The pen: line styles and widths, and where drawing is clipped.
#pragma once

// Sets the line style 0..7 (solid, dot, dash, chain-dot, chain-dash, long dot, medium dash,
// long dash).
void set_line_style(int style);
