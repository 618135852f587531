// Size rules: how many elements the library reads or writes through the arrays of a routine,
// so that a call whose arrays are shorter than its counts say is refused before it starts.
#pragma once

// The rule of the routine or function NAME (upper case); null when it has none.
const char *size_rule(const char *name);

// Whether the arguments of a call fit `rule` (a null rule always fits). given[k] is what
// argument k + 1 hands the library: the element count of an array, the value of an integer.
bool sizes_fit(const char *rule, const long long *given, int nargs);
