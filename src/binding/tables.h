// The fixed name tables of the library binding.
#pragma once
#include <cstdint>

constexpr int NROUTINE = 665;  // routines: statements NAME(...)
constexpr int NFUNCTION = 129; // functions: V = NAME(...)
constexpr int NSYSV = 66;      // "%" system variables

struct RoutineRow {
  const char *name;
  const char *sig;
};

struct SysvRow {
  const char *name;  // without the "%"
  int8_t type;
};

extern const RoutineRow cray[NROUTINE];
extern const RoutineRow cfray[NFUNCTION];
extern const SysvRow sysv[NSYSV];
