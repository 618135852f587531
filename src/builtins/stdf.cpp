// The standard-function dispatcher: the arguments are checked against the signature and
// replaced on the stack by the result.
#include "builtins/stdf.h"

#include "binding/call.h"
#include "core/statement.h"
#include "lang/parser.h"

int push_stdf(int number, int base) {
  if (check_args(stdf[number].sig, base, stdf[number].name)) return 1;
  free_stack(base);
  push_int(0);
  return not_available(stdf[number].name);
}
