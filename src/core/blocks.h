// Block statements and jumps: IF/ELSEIF/ELSE/END IF, DO and WHILE loops, SWITCH/CASE,
// BREAK, CONTINUE, labels and GOTO.
#pragma once

extern int iflev, ilplev, iswlev;

// Each is offered every statement; 0 when the statement was its own, 1 otherwise.
int exec_if(int tok2, const char *word);
int exec_loop(int tok2, const char *word);
int exec_switch(int tok2, const char *word);
int exec_label(const char *name);
// The first words the IF, loop and SWITCH handlers take whatever follows them.
bool is_block_word(const char *word);
// A statement exec_loop takes (and the IF and SWITCH handlers do not): DO, WHILE, END DO and
// END WHILE; `name` is the second token's name when it is one.
bool is_loop_statement(int tok2, const char *word, const char *name);
int break_zkl();
int continue_zkl();
int goto_zkl();
// The label a forward GOTO is still searching for, or null.
const char *pending_label();
// Closes, with a message for each kind, the blocks opened beyond the given numbers of open
// IF, loop and SWITCH blocks: a procedure's blocks end with its level.
void close_blocks(int nif, int nloop, int nswitch);
// Closes every open block (a new script starts).
void reset_blocks();
