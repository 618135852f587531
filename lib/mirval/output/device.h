// Output devices: format names, the output file's name, and writing the drawing model
// to the chosen format.
#pragma once
#include "core/state.h"

#include <string>

const char *format_name(Format f);
const char *format_ext(Format f);
bool is_raster(Format f);
// Parses a METAFL name; 'CONS' and 'XWIN' give PNG with screen set.
bool parse_format(const char *name, Format &f, bool &screen);
// Decides the file name at MIRINI according to SETFIL, FILMOD and GFILNN.
void choose_file();
// Size of the raster image in pixels, and the view that fits the page into it.
void raster_size(int &w, int &h);
// Renders every page and writes the output file, then says so on the message line.
void write_output(const char *routine, bool announce);
// Writes a file whole: under a temporary name renamed into place, so that no reader sees half
// of it; a name that is a link, a pipe or a device is written through. False on failure.
bool replace_file(const std::string &name, const std::string &bytes);
// The bytes of a vector file (PDF, SVG, PS, EPS) as MIRFIN writes them.
std::string vector_file(Format f);
// The foreground and background colours (SCRMOD swaps them).
Rgb fore_rgb();
Rgb back_rgb();
