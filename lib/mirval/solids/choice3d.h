// Keyword options of the 3-D settings, whose warnings list the choices.
#pragma once
#include <initializer_list>

// Where the keyword c stands among the names (0, 1 ...); -1 after the routine's warning
// "unknown WHAT c (A, B or C)".
int choice3d(const char *routine, const char *what, const char *c, std::initializer_list<const char *> names);
