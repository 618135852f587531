// Formatted output (PRINTF, FPRINTF, SPRINTF) and input (SCANF, FSCANF, SSCANF).
#pragma once

// Selector 0: the console form (PRINTF, SCANF); 1: the file form (FPRINTF, FSCANF).
int fprintf_stdf(int sel, int base);
int sprintf_stdf(int base);
int fscanf_stdf(int sel, int base);
int sscanf_stdf(int base);
