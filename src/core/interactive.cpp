// Interactive commands: placeholders until they are built.
#include "core/interactive.h"

#include "core/statement.h"

int help_zkl() { return not_available("HELP"); }
int list_zkl() { return not_available("LIST"); }
int logon_zkl() { return not_available("LOGON"); }
int logoff_zkl() { return not_available("LOGOFF"); }
int exit_zkl() { return not_available("EXIT"); }
