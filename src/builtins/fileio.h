// Numbered files of the I/O functions: the file table and the workers behind FOPEN ... PUTS.
#pragma once
#include <cstdint>
#include <cstdio>

constexpr int MAXFP = 8;

// Access classes of an open file, by the mode it was opened with.
enum Access : uint8_t { ACC_READ, ACC_WRITE, ACC_RBIN, ACC_WBIN, ACC_RPLUS, ACC_RPLUSBIN };

struct FileSlot {
  FILE *fp;
  uint8_t open;
  uint8_t access;
};

extern FileSlot fplist[MAXFP];

int init_io();
int exit_io();
int check_fileptr(int n, const char *name);
int fopen_stdf(const char *name, const char *mode);
int fgets_stdf(char *buf, int size, int n, int sel);
int fgetc_stdf(int n);
int fread_stdf(void *data, int size, int count, int n);
int fwrite_stdf(const void *data, int size, int count, int n);
int fputs_stdf(const char *text, int n);
int fputc_stdf(int c, int n);
int fclose_stdf(int n);
int fflush_stdf(int n);
int rewind_stdf(int n);
int ftell_stdf(int n);
int fseek_stdf(int n, int offset);
int feof_stdf(int n);

// FGETS, GETS, FREAD and FWRITE as the dispatcher meets them: arguments from `base` up.
int fgets_args(int base, int sel);
int fraw_args(int base, bool write);
