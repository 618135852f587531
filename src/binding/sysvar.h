// "%" system variables handed to the library.
#pragma once

// Hands variable `index` (or, with -1, every variable) to the library.
int setvar(int index);
