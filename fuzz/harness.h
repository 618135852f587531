// Runs fuzz inputs as scripts, each from a fresh interpreter in a scratch folder.
#pragma once
#include <cstddef>
#include <initializer_list>
#include <string>

// Writes `files` (name, contents pairs: the script first) into the emptied scratch folder,
// then runs the first as a script. Statements beyond a fixed budget are not executed, so
// that endless loops end; EXIT ends the script only; the shell is never called.
void run_fuzz_script(std::initializer_list<std::pair<const char *, std::string>> files);
// The input's bytes up to the first line end (or all), with the line ends and `drop` removed;
// `data` and `size` move past it.
std::string take_line(const char *&data, size_t &size, const char *drop = "");
