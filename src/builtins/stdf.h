// The standard functions: table and dispatcher.
#pragma once
#include <cstdint>

constexpr int NSTDF = 94;

struct StdfRow {
  const char *name;
  const char *sig;
  int8_t opt;  // argument-passing flag 0, 1 or 2
};

extern const StdfRow stdf[NSTDF];

// Replaces the argument entries from `base` to the top of the stack by the function's result.
int push_stdf(int number, int base);
