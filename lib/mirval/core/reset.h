// RESET entries: a setting, named by the routines that make it, and how to restore its default.
// core/reset.cpp keeps the entries of the parts in core/state.h; each concern folder keeps the
// entries of its own part beside that part, in a table ending with {nullptr, nullptr}.
#pragma once

struct MirvalState;

struct ResetEntry {
  const char *names;  // the routines whose setting it restores, separated by blanks
  void (*fn)(MirvalState &);
};

// Restores the settings made by the routine 'name' ('ALL': every one) as RESET does, without a
// trace line; false when no setting has that name.
bool reset_setting(const char *name);
