// The three error routines through which every part of the interpreter reports.
// They print to standard output and change no interpreter state.
#pragma once

int error(const char *msg);
int char_error(const char *msg, const char *text);
int c_error(const char *msg, int c);
