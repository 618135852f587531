// Replaying stored statements. A stored statement is analysed when it is first replayed: its
// first word and second token and, for assignments and element assignments, compiled code.
// The analysis lasts as long as the statement stays in the buffer.
#pragma once

// Executes stored statement k exactly as exec_stmt would.
void exec_stored(int k);
// The buffer releases its statements from `first` up to nstrec.
void forget_stored(int first);
// A fresh start after a run that was left from inside a replayed statement (a program that
// runs scripts one after another and jumps out of one that ends the program): nothing is
// running any more, so what was released can go.
void reset_replay();
