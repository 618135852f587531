// Stand-ins for the routines this build cannot perform yet. Each traces its call, warns once
// that it is not available, leaves its outputs empty (zero, or an empty text) and returns a
// neutral value. One line per routine, beginning with its name as a marker comment, so that
// implementing a routine elsewhere means deleting exactly its line:
//   sed -i '/^\/\*name\*\//d' lib/mirval/unavailable.cpp
#include "core/messages.h"
#include "mirval.h"
#include "core/trace.h"

namespace {

template <class T>
void zero(T *p, long n) {
  if (p)
    for (long i = 0; i < n; ++i) p[i] = T();
}

}  // namespace

// Trace pieces: the temporaries live until the end of the mv_tracef call that uses them.
#define TSTR(s) mv_tstr(s).c_str()
#define TARR(n, kind) mv_tarr(n, kind).c_str()
#define SET0(p) if (p) *(p) = 0
#define TEXT0(p) if (p) *(p) = '\0'
#define ZERO(p, n) zero(p, static_cast<long>(n))

extern "C" {


}  // extern "C"
