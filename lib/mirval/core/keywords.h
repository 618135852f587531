// Keywords that callers pass as text, such as 'LEFT' or 'ALL': matched and kept without
// regard to case.
#pragma once
#include <initializer_list>
#include <string>

// Whether the keyword a (which may be null) is b.
bool same(const char *a, const char *b);
// The keyword in capitals; empty for null.
std::string upper(const char *s);
// The text without its trailing blanks; empty for null.
std::string trimmed(const char *s);
// Where the keyword a stands among the names (0, 1 ...); -1 when it is none of them.
int keyword_index(const char *a, std::initializer_list<const char *> names);
// The same, with a warning of the routine about its argument 'what' for -1.
int keyword(const char *routine, const char *what, const char *a, std::initializer_list<const char *> names);
// The same, with a warning that lists the names: "unknown WHAT a (A, B or C)".
int listed_keyword(const char *routine, const char *what, const char *a, std::initializer_list<const char *> names);
// "A, B, C", or with last " or ", "A, B or C".
std::string word_list(std::initializer_list<const char *> words, const char *last = ", ");
