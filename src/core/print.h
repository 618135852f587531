// PRINT and PRINTL.
#pragma once

int print_zkl();
int printl_zkl();
