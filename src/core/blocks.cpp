// Block statements: placeholders until blocks and jumps are built.
#include "core/blocks.h"

#include "core/statement.h"
#include "lang/lexer.h"

#include <cstring>

int iflev = 0, ilplev = 0, iswlev = 0;

static bool is_word(const char *word, const char *w) { return std::strcmp(word, w) == 0; }

// "END IF", "END DO" ...: the second token is the word.
static bool end_of(int tok2, const char *word, const char *what) {
  return is_word(word, "END") && tok2 == TK_ID && is_word(vlex.name, what);
}

int exec_if(int tok2, const char *word) {
  if (is_word(word, "IF") || is_word(word, "ELSEIF") || is_word(word, "ENDIF") || end_of(tok2, word, "IF") ||
      (is_word(word, "ELSE") && (tok2 == TK_END || (tok2 == TK_ID && is_word(vlex.name, "IF"))))) {
    not_available(word);
    return 0;
  }
  return 1;
}

int exec_loop(int tok2, const char *word) {
  if (is_word(word, "DO") || is_word(word, "WHILE") || end_of(tok2, word, "DO") || end_of(tok2, word, "WHILE")) {
    not_available(word);
    return 0;
  }
  return 1;
}

int exec_switch(int tok2, const char *word) {
  if (is_word(word, "SWITCH") || is_word(word, "CASE") || is_word(word, "DEFAULT") || end_of(tok2, word, "SWITCH")) {
    not_available(word);
    return 0;
  }
  return 1;
}

int exec_label(const char *name) { return not_available(name); }
int break_zkl() { return not_available("BREAK"); }
int continue_zkl() { return not_available("CONTINUE"); }
int goto_zkl() { return not_available("GOTO"); }
