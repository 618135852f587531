// ".zdf" data files: named values in a header and numeric tables in data blocks.
#pragma once
#include "lang/value.h"

int datfil(const char *name, int mode);
int datblk(int n);
int datcnt(const char *option);
int dathdr();
int datvar(const char *name, StackEntry *entry);
// The values of the selected block, all of them (column 0) or those of one column; the
// extents of the block go to `rows` and `cols`. None when it cannot be read.
float *get_datray(int col, int *rows, int *cols);
int datcls();
