// Keywords that callers pass as text, such as 'LEFT' or 'ALL': matched and kept without
// regard to case.
#pragma once
#include <string>

// Whether the keyword a (which may be null) is b.
bool same(const char *a, const char *b);
// The keyword in capitals; empty for null.
std::string upper(const char *s);
