// mirzkl loads the plotting library on its first call into it, not at start: a script that
// only computes and prints starts at once instead of waiting for some hundred libraries
// (Cairo, GTK, PROJ ...) it never uses.
#pragma once

// The address of library routine `name`; loads the library first if needed. A library that
// cannot be loaded, or lacks the routine, ends the program with a message.
void *mirval_routine(const char *name);
