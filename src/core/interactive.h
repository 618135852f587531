// The interactive commands HELP, LIST, LOGON, LOGOFF and EXIT.
#pragma once

int help_zkl();
int list_zkl();
int logon_zkl();
int logoff_zkl();
int exit_zkl();
