// Running a script, and putting the interpreter back to its start-up state so that one
// process can run several scripts one after another (the test drivers do).
#pragma once
#include <cstdio>

// Runs the opened script `script` (its header already read) to its end and closes it.
void run_file(FILE *script);
// Closes the files, frees the variables, labels and statements, and closes the blocks and
// procedure levels a script has left open.
void reset_interp();
