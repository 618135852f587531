// The library's one state record, split into named parts. Each part is a plain record;
// the drawing engine adds its parts (page, pen, text, axes, legend, 3-D ...) here.
#pragma once
#include <cstdio>

struct MessageState {
  bool warnings = true;   // ERRMOD('ALL'/'WARNINGS', 'OFF') clears it
  bool to_file = false;   // ERRDEV('FILE')
  FILE *fp = nullptr;     // the ERRFIL file once opened
};

struct MirvalState {
  int level = 0;          // 0 closed, 1 page open, 2 2-D axis system, 3 3-D axis system
  char program[81] = {};  // the caller's name given to mirlog
  MessageState msg;
};

MirvalState &mirval_state();
