// ".zdf" data files: named arrays in a simple text format.
#pragma once

int datfil(const char *name, int mode);
