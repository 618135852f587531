// Argument signatures, marshalling and library calls.
#pragma once
#include <cstddef>
#include <cstdint>

#include "lang/value.h"

constexpr int MAXPAR = 24;  // arguments of one library call

extern int idxpar[MAXPAR];
extern int ipar[MAXPAR];
extern float xpar[MAXPAR];
extern void *cpar[MAXPAR];
extern int ccnt[MAXPAR];  // element count of each cpar entry
extern long long cbytes[MAXPAR];  // storage size of each cpar entry in bytes
extern int nipar, nxpar, nspar, npar;

const char *get_stackstr(int first);
int cmp_parstr(const char *declared, const char *user, const char *name);
// Compares the arguments from stack entry `first` up with a declared signature.
int check_args(const char *declared, int first, const char *name);
int set_mirpar();
int exec_par(const char *name, int number, int kind);
int exec_routine(const char *name, int number);
int exec_function(const char *name, int number, int index);

// Set once the output format is chosen (METAFL, or MIRINI with a device from "-D"), so
// that a quick plot keeps it.
extern int g_imeta;

int32_t get_ivalue(const StackEntry *e, int *code);
double get_dvalue(const StackEntry *e, int *code);
int get_idtype(const char *word, int isarray);
// get_idtype without the message: -1 for an unknown type name.
int find_idtype(const char *word, int isarray);
void *my_malloc(size_t n);
void *my_calloc(size_t n, size_t size);
int syscll(const char *command);
