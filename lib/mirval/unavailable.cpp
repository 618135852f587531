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

/*jusbar*/ void jusbar(const char *c) { mv_tracef("jusbar(%s)", TSTR(c)); mv_unavailable("jusbar"); }
/*posbar*/ void posbar(const char *c) { mv_tracef("posbar(%s)", TSTR(c)); mv_unavailable("posbar"); }
/*shield*/ void shield(const char *c1, const char *c2) { mv_tracef("shield(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("shield"); }
/*shlcir*/ void shlcir(int n1, int n2, int n3) { mv_tracef("shlcir(%d, %d, %d)", n1, n2, n3); mv_unavailable("shlcir"); }
/*shldel*/ void shldel(int n) { mv_tracef("shldel(%d)", n); mv_unavailable("shldel"); }
/*shlell*/ void shlell(int n1, int n2, int n3, int n4, float x) { mv_tracef("shlell(%d, %d, %d, %d, %g)", n1, n2, n3, n4, (double)x); mv_unavailable("shlell"); }
/*shlpie*/ void shlpie(int n1, int n2, int n3, float x1, float x2) { mv_tracef("shlpie(%d, %d, %d, %g, %g)", n1, n2, n3, (double)x1, (double)x2); mv_unavailable("shlpie"); }
/*shlpol*/ void shlpol(const int * /*nxray*/, const int * /*nyray*/, int n) { mv_tracef("shlpol(nxray=%s, nyray=%s, n=%d)", TARR(n, "ints"), TARR(n, "ints"), n); mv_unavailable("shlpol"); }
/*shlrct*/ void shlrct(int n1, int n2, int n3, int n4, float x) { mv_tracef("shlrct(%d, %d, %d, %d, %g)", n1, n2, n3, n4, (double)x); mv_unavailable("shlrct"); }
/*shlrec*/ void shlrec(int n1, int n2, int n3, int n4) { mv_tracef("shlrec(%d, %d, %d, %d)", n1, n2, n3, n4); mv_unavailable("shlrec"); }
/*shlvis*/ void shlvis(int n, const char *c) { mv_tracef("shlvis(%d, %s)", n, TSTR(c)); mv_unavailable("shlvis"); }
/*spcbar*/ void spcbar(int n) { mv_tracef("spcbar(%d)", n); mv_unavailable("spcbar"); }

}  // extern "C"
