// RESET entries: a setting, named by the routines that make it, and how to restore its default.
// core/reset.cpp keeps the entries of the parts in core/state.h; each concern folder keeps the
// entries of its own part beside that part, in a table ending with {nullptr, nullptr}.
#pragma once

#include <cstddef>
#include <type_traits>

struct MirvalState;

using ResetFn = void (*)(MirvalState &);

struct ResetEntry {
  const char *names;  // the routines whose setting it restores, separated by blanks
  ResetFn fn;
};

// Restores the settings made by the routine 'name' ('ALL': every one) as RESET does, without a
// trace line; false when no setting has that name.
bool reset_setting(const char *name);

// One member put back from a fresh part; arrays element by element.
template <class T>
void put_back(T &to, const T &from) { to = from; }
template <class T, size_t N>
void put_back(T (&to)[N], const T (&from)[N]) {
  for (size_t i = 0; i < N; ++i) to[i] = from[i];
}

// The usual entry function: restores the given members of one part of the state from a fresh
// part, as restore<&MirvalState::pen, &PenState::width>.
template <auto Part, auto... Fields>
void restore(MirvalState &s) {
  using P = std::remove_reference_t<decltype(s.*Part)>;
  static const P fresh{};
  P &p = s.*Part;
  (put_back(p.*Fields, fresh.*Fields), ...);
}
