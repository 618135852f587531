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
void zero(void *p, long n) { zero(static_cast<unsigned char *>(p), n); }

}  // namespace

// Trace pieces: the temporaries live until the end of the mv_tracef call that uses them.
#define TSTR(s) mv_tstr(s).c_str()
#define TARR(n, kind) mv_tarr(n, kind).c_str()
#define SET0(p) if (p) *(p) = 0
#define TEXT0(p) if (p) *(p) = '\0'
#define ZERO(p, n) zero(p, static_cast<long>(n))

extern "C" {

/*abs3pt*/ void abs3pt(float x, float y, float z, float *xp, float *yp) { mv_tracef("abs3pt(x=%g, y=%g, z=%g, xp=out, yp=out)", (double)x, (double)y, (double)z); SET0(xp); SET0(yp); mv_unavailable("abs3pt"); }
/*addlab*/ void addlab(const char *c1, float x, int n, const char *c2) { mv_tracef("addlab(%s, %g, %d, %s)", TSTR(c1), (double)x, n, TSTR(c2)); mv_unavailable("addlab"); }
/*ax2grf*/ void ax2grf(void) { mv_tracef("ax2grf()"); mv_unavailable("ax2grf"); }
/*autres3d*/ void autres3d(int n1, int n2, int n3) { mv_tracef("autres3d(%d, %d, %d)", n1, n2, n3); mv_unavailable("autres3d"); }
/*axclrs*/ void axclrs(int n, const char *c1, const char *c2) { mv_tracef("axclrs(%d, %s, %s)", n, TSTR(c1), TSTR(c2)); mv_unavailable("axclrs"); }
/*axends*/ void axends(const char *c1, const char *c2) { mv_tracef("axends(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("axends"); }
/*axsbgd*/ void axsbgd(int n) { mv_tracef("axsbgd(%d)", n); mv_unavailable("axsbgd"); }
/*axsers*/ void axsers(void) { mv_tracef("axsers()"); mv_unavailable("axsers"); }
/*axsorg*/ void axsorg(int n1, int n2) { mv_tracef("axsorg(%d, %d)", n1, n2); mv_unavailable("axsorg"); }
/*axstyp*/ void axstyp(const char *c) { mv_tracef("axstyp(%s)", TSTR(c)); mv_unavailable("axstyp"); }
/*barbor*/ void barbor(int n) { mv_tracef("barbor(%d)", n); mv_unavailable("barbor"); }
/*barclr*/ void barclr(int n1, int n2, int n3) { mv_tracef("barclr(%d, %d, %d)", n1, n2, n3); mv_unavailable("barclr"); }
/*bargrp*/ void bargrp(int n, float x) { mv_tracef("bargrp(%d, %g)", n, (double)x); mv_unavailable("bargrp"); }
/*barmod*/ void barmod(const char *c1, const char *c2) { mv_tracef("barmod(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("barmod"); }
/*baropt*/ void baropt(float x1, float x2) { mv_tracef("baropt(%g, %g)", (double)x1, (double)x2); mv_unavailable("baropt"); }
/*barpos*/ void barpos(const char *c) { mv_tracef("barpos(%s)", TSTR(c)); mv_unavailable("barpos"); }
/*bars*/ void bars(const float * /*xray*/, const float * /*y1ray*/, const float * /*y2ray*/, int n) { mv_tracef("bars(xray=%s, y1ray=%s, y2ray=%s, n=%d)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n); mv_unavailable("bars"); }
/*bars3d*/ void bars3d(const float * /*xray*/, const float * /*yray*/, const float * /*z1ray*/, const float * /*z2ray*/, const float * /*xwray*/, const float * /*ywray*/, const int * /*icray*/, int n) { mv_tracef("bars3d(xray=%s, yray=%s, z1ray=%s, z2ray=%s, xwray=%s, ywray=%s, icray=%s, n=%d)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "ints"), n); mv_unavailable("bars3d"); }
/*bartyp*/ void bartyp(const char *c) { mv_tracef("bartyp(%s)", TSTR(c)); mv_unavailable("bartyp"); }
/*barwth*/ void barwth(float x) { mv_tracef("barwth(%g)", (double)x); mv_unavailable("barwth"); }
/*basalf*/ void basalf(const char *c) { mv_tracef("basalf(%s)", TSTR(c)); mv_unavailable("basalf"); }
/*basdat*/ void basdat(int n1, int n2, int n3) { mv_tracef("basdat(%d, %d, %d)", n1, n2, n3); mv_unavailable("basdat"); }
/*bezier*/ void bezier(const float * /*xray*/, const float * /*yray*/, int n, float *xpray, float *ypray, int np) { mv_tracef("bezier(xray=%s, yray=%s, n=%d, xpray=%s, ypray=%s, np=%d)", TARR(n, "floats"), TARR(n, "floats"), n, TARR(np, "floats out"), TARR(np, "floats out"), np); ZERO(xpray, np); ZERO(ypray, np); mv_unavailable("bezier"); }
/*bmpfnt*/ void bmpfnt(const char *c) { mv_tracef("bmpfnt(%s)", TSTR(c)); mv_unavailable("bmpfnt"); }
/*bmpmod*/ void bmpmod(int n, const char *c1, const char *c2) { mv_tracef("bmpmod(%d, %s, %s)", n, TSTR(c1), TSTR(c2)); mv_unavailable("bmpmod"); }
/*bufmod*/ void bufmod(const char *c1, const char *c2) { mv_tracef("bufmod(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("bufmod"); }
/*cgmbgd*/ void cgmbgd(float x1, float x2, float x3) { mv_tracef("cgmbgd(%g, %g, %g)", (double)x1, (double)x2, (double)x3); mv_unavailable("cgmbgd"); }
/*cgmpic*/ void cgmpic(const char *c) { mv_tracef("cgmpic(%s)", TSTR(c)); mv_unavailable("cgmpic"); }
/*cgmver*/ void cgmver(int n) { mv_tracef("cgmver(%d)", n); mv_unavailable("cgmver"); }
/*chaang*/ void chaang(float x) { mv_tracef("chaang(%g)", (double)x); mv_unavailable("chaang"); }
/*chacod*/ void chacod(const char *c) { mv_tracef("chacod(%s)", TSTR(c)); mv_unavailable("chacod"); }
/*chaspc*/ void chaspc(float x) { mv_tracef("chaspc(%g)", (double)x); mv_unavailable("chaspc"); }
/*chawth*/ void chawth(float x) { mv_tracef("chawth(%g)", (double)x); mv_unavailable("chawth"); }
/*chnatt*/ void chnatt(void) { mv_tracef("chnatt()"); mv_unavailable("chnatt"); }
/*chnbar*/ void chnbar(const char *c) { mv_tracef("chnbar(%s)", TSTR(c)); mv_unavailable("chnbar"); }
/*chnpie*/ void chnpie(const char *c) { mv_tracef("chnpie(%s)", TSTR(c)); mv_unavailable("chnpie"); }
/*circ3p*/ void circ3p(float x1, float y1, float x2, float y2, float x3, float y3, float *xm, float *ym, float *r) { mv_tracef("circ3p(x1=%g, y1=%g, x2=%g, y2=%g, x3=%g, y3=%g, xm=out, ym=out, r=out)", (double)x1, (double)y1, (double)x2, (double)y2, (double)x3, (double)y3); SET0(xm); SET0(ym); SET0(r); mv_unavailable("circ3p"); }
/*circsp*/ void circsp(int n) { mv_tracef("circsp(%d)", n); mv_unavailable("circsp"); }
/*clip3d*/ void clip3d(const char *c) { mv_tracef("clip3d(%s)", TSTR(c)); mv_unavailable("clip3d"); }
/*clrcyc*/ void clrcyc(int n1, int n2) { mv_tracef("clrcyc(%d, %d)", n1, n2); mv_unavailable("clrcyc"); }
/*clrmod*/ void clrmod(const char *c) { mv_tracef("clrmod(%s)", TSTR(c)); mv_unavailable("clrmod"); }
/*clswin*/ void clswin(int n) { mv_tracef("clswin(%d)", n); mv_unavailable("clswin"); }
/*colray*/ void colray(const float * /*zray*/, int *nray, int n) { mv_tracef("colray(zray=%s, nray=%s, n=%d)", TARR(n, "floats"), TARR(n, "ints out"), n); ZERO(nray, n); mv_unavailable("colray"); }
/*conclr*/ void conclr(const int * /*nray*/, int n) { mv_tracef("conclr(nray=%s, n=%d)", TARR(n, "ints"), n); mv_unavailable("conclr"); }
/*concrv*/ void concrv(const float * /*xray*/, const float * /*yray*/, int n, float zlev) { mv_tracef("concrv(xray=%s, yray=%s, n=%d, zlev=%g)", TARR(n, "floats"), TARR(n, "floats"), n, (double)zlev); mv_unavailable("concrv"); }
/*cone3d*/ void cone3d(float x1, float x2, float x3, float x4, float x5, float x6, int n1, int n2) { mv_tracef("cone3d(%g, %g, %g, %g, %g, %g, %d, %d)", (double)x1, (double)x2, (double)x3, (double)x4, (double)x5, (double)x6, n1, n2); mv_unavailable("cone3d"); }
/*confll*/ void confll(const float * /*xray*/, const float * /*yray*/, const float * /*zray*/, int n, const int * /*i1ray*/, const int * /*i2ray*/, const int * /*i3ray*/, int ntri, const float * /*zlev*/, int nlev) { mv_tracef("confll(xray=%s, yray=%s, zray=%s, n=%d, i1ray=%s, i2ray=%s, i3ray=%s, ntri=%d, zlev=%s, nlev=%d)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n, TARR(ntri, "ints"), TARR(ntri, "ints"), TARR(ntri, "ints"), ntri, TARR(nlev, "floats"), nlev); mv_unavailable("confll"); }
/*conn3d*/ void conn3d(float x1, float x2, float x3) { mv_tracef("conn3d(%g, %g, %g)", (double)x1, (double)x2, (double)x3); mv_unavailable("conn3d"); }
/*connpt*/ void connpt(float x1, float x2) { mv_tracef("connpt(%g, %g)", (double)x1, (double)x2); mv_unavailable("connpt"); }
/*conpts*/ void conpts(const float * /*xray*/, int nx, const float * /*yray*/, int ny, const float * /*zmat*/, float zlev, float *xpts, float *ypts, int maxpts, int *nray, int maxray, int *nlins) { mv_tracef("conpts(xray=%s, nx=%d, yray=%s, ny=%d, zmat=%s, zlev=%g, xpts=%s, ypts=%s, maxpts=%d, nray=%s, maxray=%d, nlins=out)", TARR(nx, "floats"), nx, TARR(ny, "floats"), ny, TARR(nx*ny, "floats"), (double)zlev, TARR(maxpts, "floats out"), TARR(maxpts, "floats out"), maxpts, TARR(maxray, "ints out"), maxray); ZERO(xpts, maxpts); ZERO(ypts, maxpts); ZERO(nray, maxray); SET0(nlins); mv_unavailable("conpts"); }
/*conshd2*/ void conshd2(const float * /*xmat*/, const float * /*ymat*/, const float * /*zmat*/, int nx, int ny, const float * /*zlev*/, int nlev) { mv_tracef("conshd2(xmat=%s, ymat=%s, zmat=%s, nx=%d, ny=%d, zlev=%s, nlev=%d)", TARR(nx*ny, "floats"), TARR(nx*ny, "floats"), TARR(nx*ny, "floats"), nx, ny, TARR(nlev, "floats"), nlev); mv_unavailable("conshd2"); }
/*conshd3d*/ void conshd3d(const float * /*xray*/, int nx, const float * /*yray*/, int ny, const float * /*zmat*/, const float * /*zlev*/, int nlev) { mv_tracef("conshd3d(xray=%s, nx=%d, yray=%s, ny=%d, zmat=%s, zlev=%s, nlev=%d)", TARR(nx, "floats"), nx, TARR(ny, "floats"), ny, TARR(nx*ny, "floats"), TARR(nlev, "floats"), nlev); mv_unavailable("conshd3d"); }
/*contri*/ void contri(const float * /*xray*/, const float * /*yray*/, const float * /*zray*/, int n, const int * /*i1ray*/, const int * /*i2ray*/, const int * /*i3ray*/, int ntri, float zlev) { mv_tracef("contri(xray=%s, yray=%s, zray=%s, n=%d, i1ray=%s, i2ray=%s, i3ray=%s, ntri=%d, zlev=%g)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n, TARR(ntri, "ints"), TARR(ntri, "ints"), TARR(ntri, "ints"), ntri, (double)zlev); mv_unavailable("contri"); }
/*contur2*/ void contur2(const float * /*xmat*/, const float * /*ymat*/, const float * /*zmat*/, int nx, int ny, float zlev) { mv_tracef("contur2(xmat=%s, ymat=%s, zmat=%s, nx=%d, ny=%d, zlev=%g)", TARR(nx*ny, "floats"), TARR(nx*ny, "floats"), TARR(nx*ny, "floats"), nx, ny, (double)zlev); mv_unavailable("contur2"); }
/*cross*/ void cross(void) { mv_tracef("cross()"); mv_unavailable("cross"); }
/*crvqdr*/ void crvqdr(const float * /*xray*/, const float * /*yray*/, const float * /*zray*/, int n) { mv_tracef("crvqdr(xray=%s, yray=%s, zray=%s, n=%d)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n); mv_unavailable("crvqdr"); }
/*crvt3d*/ void crvt3d(const float * /*xray*/, const float * /*yray*/, const float * /*zray*/, const float * /*rray*/, const int * /*icray*/, int n) { mv_tracef("crvt3d(xray=%s, yray=%s, zray=%s, rray=%s, icray=%s, n=%d)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "ints"), n); mv_unavailable("crvt3d"); }
/*crvtri*/ void crvtri(const float * /*xray*/, const float * /*yray*/, const float * /*zray*/, int n, const int * /*i1ray*/, const int * /*i2ray*/, const int * /*i3ray*/, int ntri) { mv_tracef("crvtri(xray=%s, yray=%s, zray=%s, n=%d, i1ray=%s, i2ray=%s, i3ray=%s, ntri=%d)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n, TARR(ntri, "ints"), TARR(ntri, "ints"), TARR(ntri, "ints"), ntri); mv_unavailable("crvtri"); }
/*csrlin*/ void csrlin(int *nx1, int *ny1, int *nx2, int *ny2) { mv_tracef("csrlin(nx1=out, ny1=out, nx2=out, ny2=out)"); SET0(nx1); SET0(ny1); SET0(nx2); SET0(ny2); mv_unavailable("csrlin"); }
/*csrmod*/ void csrmod(const char *c1, const char *c2) { mv_tracef("csrmod(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("csrmod"); }
/*csrmov*/ void csrmov(int *nxray, int *nyray, int nmax, int *n, int *iret) { mv_tracef("csrmov(nxray=%s, nyray=%s, nmax=%d, n=out, iret=out)", TARR(nmax, "ints out"), TARR(nmax, "ints out"), nmax); ZERO(nxray, nmax); ZERO(nyray, nmax); SET0(n); SET0(iret); mv_unavailable("csrmov"); }
/*csrpol*/ void csrpol(int *nxray, int *nyray, int nmax, int *n, int *iret) { mv_tracef("csrpol(nxray=%s, nyray=%s, nmax=%d, n=out, iret=out)", TARR(nmax, "ints out"), TARR(nmax, "ints out"), nmax); ZERO(nxray, nmax); ZERO(nyray, nmax); SET0(n); SET0(iret); mv_unavailable("csrpol"); }
/*csrpt1*/ void csrpt1(int *nx, int *ny) { mv_tracef("csrpt1(nx=out, ny=out)"); SET0(nx); SET0(ny); mv_unavailable("csrpt1"); }
/*csrpts*/ void csrpts(int *nxray, int *nyray, int nmax, int *n, int *iret) { mv_tracef("csrpts(nxray=%s, nyray=%s, nmax=%d, n=out, iret=out)", TARR(nmax, "ints out"), TARR(nmax, "ints out"), nmax); ZERO(nxray, nmax); ZERO(nyray, nmax); SET0(n); SET0(iret); mv_unavailable("csrpts"); }
/*csrrec*/ void csrrec(int *nx1, int *ny1, int *nx2, int *ny2) { mv_tracef("csrrec(nx1=out, ny1=out, nx2=out, ny2=out)"); SET0(nx1); SET0(ny1); SET0(nx2); SET0(ny2); mv_unavailable("csrrec"); }
/*csrtyp*/ void csrtyp(const char *c) { mv_tracef("csrtyp(%s)", TSTR(c)); mv_unavailable("csrtyp"); }
/*csruni*/ void csruni(const char *c) { mv_tracef("csruni(%s)", TSTR(c)); mv_unavailable("csruni"); }
/*curv3d*/ void curv3d(const float * /*xray*/, const float * /*yray*/, const float * /*zray*/, int n) { mv_tracef("curv3d(xray=%s, yray=%s, zray=%s, n=%d)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n); mv_unavailable("curv3d"); }
/*curv4d*/ void curv4d(const float * /*xray*/, const float * /*yray*/, const float * /*zray*/, const float * /*wray*/, int n) { mv_tracef("curv4d(xray=%s, yray=%s, zray=%s, wray=%s, n=%d)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n); mv_unavailable("curv4d"); }
/*curvmp*/ void curvmp(const float * /*x*/, const float * /*y*/, int n) { mv_tracef("curvmp(x=%s, y=%s, n=%d)", TARR(n, "floats"), TARR(n, "floats"), n); mv_unavailable("curvmp"); }
/*cyli3d*/ void cyli3d(float x1, float x2, float x3, float x4, float x5, int n1, int n2) { mv_tracef("cyli3d(%g, %g, %g, %g, %g, %d, %d)", (double)x1, (double)x2, (double)x3, (double)x4, (double)x5, n1, n2); mv_unavailable("cyli3d"); }
/*dbffin*/ void dbffin(void) { mv_tracef("dbffin()"); mv_unavailable("dbffin"); }
/*dbfmod*/ void dbfmod(const char *c) { mv_tracef("dbfmod(%s)", TSTR(c)); mv_unavailable("dbfmod"); }
/*delglb*/ void delglb(void) { mv_tracef("delglb()"); mv_unavailable("delglb"); }
/*miralf*/ void miralf(void) { mv_tracef("miralf()"); mv_unavailable("miralf"); }
/*mirenv*/ void mirenv(const char *c) { mv_tracef("mirenv(%s)", TSTR(c)); mv_unavailable("mirenv"); }
/*disk3d*/ void disk3d(float x1, float x2, float x3, float x4, float x5, int n1, int n2) { mv_tracef("disk3d(%g, %g, %g, %g, %g, %d, %d)", (double)x1, (double)x2, (double)x3, (double)x4, (double)x5, n1, n2); mv_unavailable("disk3d"); }
/*doevnt*/ void doevnt(void) { mv_tracef("doevnt()"); mv_unavailable("doevnt"); }
/*dwgmsg*/ void dwgmsg(const char *c) { mv_tracef("dwgmsg(%s)", TSTR(c)); mv_unavailable("dwgmsg"); }
/*eushft*/ void eushft(const char *c1, const char *c2) { mv_tracef("eushft(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("eushft"); }
/*expimg*/ void expimg(const char *c1, const char *c2) { mv_tracef("expimg(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("expimg"); }
/*expzlb*/ void expzlb(const char *c) { mv_tracef("expzlb(%s)", TSTR(c)); mv_unavailable("expzlb"); }
/*fbars*/ void fbars(const float * /*xray*/, const float * /*y1ray*/, const float * /*y2ray*/, const float * /*y3ray*/, const float * /*y4ray*/, int n) { mv_tracef("fbars(xray=%s, y1ray=%s, y2ray=%s, y3ray=%s, y4ray=%s, n=%d)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n); mv_unavailable("fbars"); }
/*field*/ void field(const float * /*x1ray*/, const float * /*y1ray*/, const float * /*x2ray*/, const float * /*y2ray*/, int n, int ivec) { mv_tracef("field(x1ray=%s, y1ray=%s, x2ray=%s, y2ray=%s, n=%d, ivec=%d)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n, ivec); mv_unavailable("field"); }
/*field3d*/ void field3d(const float * /*x1ray*/, const float * /*y1ray*/, const float * /*z1ray*/, const float * /*x2ray*/, const float * /*y2ray*/, const float * /*z2ray*/, int n, int ivec) { mv_tracef("field3d(x1ray=%s, y1ray=%s, z1ray=%s, x2ray=%s, y2ray=%s, z2ray=%s, n=%d, ivec=%d)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n, ivec); mv_unavailable("field3d"); }
/*filbox*/ void filbox(int n1, int n2, int n3, int n4) { mv_tracef("filbox(%d, %d, %d, %d)", n1, n2, n3, n4); mv_unavailable("filbox"); }
/*filclr*/ void filclr(const char *c) { mv_tracef("filclr(%s)", TSTR(c)); mv_unavailable("filclr"); }
/*filopt*/ void filopt(const char *c1, const char *c2) { mv_tracef("filopt(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("filopt"); }
/*filwin*/ void filwin(int n1, int n2, int n3, int n4) { mv_tracef("filwin(%d, %d, %d, %d)", n1, n2, n3, n4); mv_unavailable("filwin"); }
/*fitscls*/ void fitscls(void) { mv_tracef("fitscls()"); mv_unavailable("fitscls"); }
/*fixspc*/ void fixspc(float x) { mv_tracef("fixspc(%g)", (double)x); mv_unavailable("fixspc"); }
/*flab3d*/ void flab3d(void) { mv_tracef("flab3d()"); mv_unavailable("flab3d"); }
/*freeptr*/ void freeptr(void) { mv_tracef("freeptr()"); mv_unavailable("freeptr"); }
/*frmbar*/ void frmbar(int n) { mv_tracef("frmbar(%d)", n); mv_unavailable("frmbar"); }
/*frmclr*/ void frmclr(int n) { mv_tracef("frmclr(%d)", n); mv_unavailable("frmclr"); }
/*frmess*/ void frmess(int n) { mv_tracef("frmess(%d)", n); mv_unavailable("frmess"); }
/*gapcrv*/ void gapcrv(float x) { mv_tracef("gapcrv(%g)", (double)x); mv_unavailable("gapcrv"); }
/*gapsiz*/ void gapsiz(float x, const char *c) { mv_tracef("gapsiz(%g, %s)", (double)x, TSTR(c)); mv_unavailable("gapsiz"); }
/*gaxpar*/ void gaxpar(float v1, float v2, const char *copt, const char *cax, float *a, float *b, float *orig, float *step, int *ndig) { mv_tracef("gaxpar(v1=%g, v2=%g, copt=%s, cax=%s, a=out, b=out, orig=out, step=out, ndig=out)", (double)v1, (double)v2, TSTR(copt), TSTR(cax)); SET0(a); SET0(b); SET0(orig); SET0(step); SET0(ndig); mv_unavailable("gaxpar"); }
/*getico*/ void getico(float x, float y, float *xp, float *yp) { mv_tracef("getico(x=%g, y=%g, xp=out, yp=out)", (double)x, (double)y); SET0(xp); SET0(yp); mv_unavailable("getico"); }
/*getmat*/ void getmat(const float * /*xray*/, const float * /*yray*/, const float * /*zray*/, int n, float *zmat, int nx, int ny, float zval, int *imat, float *wmat) { mv_tracef("getmat(xray=%s, yray=%s, zray=%s, n=%d, zmat=%s, nx=%d, ny=%d, zval=%g, imat=%s, wmat=%s)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n, TARR(nx*ny, "floats out"), nx, ny, (double)zval, TARR(nx*ny, "ints out"), TARR(nx*ny, "floats out")); ZERO(zmat, nx*ny); ZERO(imat, nx*ny); ZERO(wmat, nx*ny); mv_unavailable("getmat"); }
/*getor*/ void getor(int *nx0, int *ny0) { mv_tracef("getor(nx0=out, ny0=out)"); SET0(nx0); SET0(ny0); mv_unavailable("getor"); }
/*getran*/ void getran(int *nca, int *nce) { mv_tracef("getran(nca=out, nce=out)"); SET0(nca); SET0(nce); mv_unavailable("getran"); }
/*getrco*/ void getrco(float x, float y, float *xp, float *yp) { mv_tracef("getrco(x=%g, y=%g, xp=out, yp=out)", (double)x, (double)y); SET0(xp); SET0(yp); mv_unavailable("getrco"); }
/*getscm*/ void getscm(int *ixscm, int *iyscm, int *izscm) { mv_tracef("getscm(ixscm=out, iyscm=out, izscm=out)"); SET0(ixscm); SET0(iyscm); SET0(izscm); mv_unavailable("getscm"); }
/*getscr*/ void getscr(int *nwpix, int *nhpix) { mv_tracef("getscr(nwpix=out, nhpix=out)"); SET0(nwpix); SET0(nhpix); mv_unavailable("getscr"); }
/*getsp1*/ void getsp1(int *nxdis, int *nydis, int *nzdis) { mv_tracef("getsp1(nxdis=out, nydis=out, nzdis=out)"); SET0(nxdis); SET0(nydis); SET0(nzdis); mv_unavailable("getsp1"); }
/*getsp2*/ void getsp2(int *nxdis, int *nydis, int *nzdis) { mv_tracef("getsp2(nxdis=out, nydis=out, nzdis=out)"); SET0(nxdis); SET0(nydis); SET0(nzdis); mv_unavailable("getsp2"); }
/*getvk*/ void getvk(int *nytit, int *nxbar, int *nybar) { mv_tracef("getvk(nytit=out, nxbar=out, nybar=out)"); SET0(nytit); SET0(nxbar); SET0(nybar); mv_unavailable("getvk"); }
/*getwin*/ void getwin(int *nx, int *ny, int *nw, int *nh) { mv_tracef("getwin(nx=out, ny=out, nw=out, nh=out)"); SET0(nx); SET0(ny); SET0(nw); SET0(nh); mv_unavailable("getwin"); }
/*gifmod*/ void gifmod(const char *c1, const char *c2) { mv_tracef("gifmod(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("gifmod"); }
/*gothic*/ void gothic(void) { mv_tracef("gothic()"); mv_unavailable("gothic"); }
/*grace*/ void grace(int n) { mv_tracef("grace(%d)", n); mv_unavailable("grace"); }
/*grafmp*/ void grafmp(float xa, float xe, float xor_, float xstp, float ya, float ye, float yor, float ystp) { mv_tracef("grafmp(%g, %g, %g, %g, %g, %g, %g, %g)", (double)xa, (double)xe, (double)xor_, (double)xstp, (double)ya, (double)ye, (double)yor, (double)ystp); mv_unavailable("grafmp"); }
/*grafp*/ void grafp(float xe, float xor_, float xstp, float yor, float ystp) { mv_tracef("grafp(%g, %g, %g, %g, %g)", (double)xe, (double)xor_, (double)xstp, (double)yor, (double)ystp); mv_unavailable("grafp"); }
/*grafr*/ void grafr(const float * /*zre*/, const float * /*zimg*/, int n) { mv_tracef("grafr(zre=%s, zimg=%s, n=%d)", TARR(n, "floats"), TARR(n, "floats"), n); mv_unavailable("grafr"); }
/*grdpol*/ void grdpol(int n1, int n2) { mv_tracef("grdpol(%d, %d)", n1, n2); mv_unavailable("grdpol"); }
/*grffin*/ void grffin(void) { mv_tracef("grffin()"); mv_unavailable("grffin"); }
/*grfimg*/ void grfimg(const char *c) { mv_tracef("grfimg(%s)", TSTR(c)); mv_unavailable("grfimg"); }
/*grfini*/ void grfini(float x1, float x2, float x3, float x4, float x5, float x6, float x7, float x8, float x9) { mv_tracef("grfini(%g, %g, %g, %g, %g, %g, %g, %g, %g)", (double)x1, (double)x2, (double)x3, (double)x4, (double)x5, (double)x6, (double)x7, (double)x8, (double)x9); mv_unavailable("grfini"); }
/*gridim*/ void gridim(float x1, float x2, float x3, int n) { mv_tracef("gridim(%g, %g, %g, %d)", (double)x1, (double)x2, (double)x3, n); mv_unavailable("gridim"); }
/*gridmp*/ void gridmp(int n1, int n2) { mv_tracef("gridmp(%d, %d)", n1, n2); mv_unavailable("gridmp"); }
/*gridre*/ void gridre(float x1, float x2, float x3, int n) { mv_tracef("gridre(%g, %g, %g, %d)", (double)x1, (double)x2, (double)x3, n); mv_unavailable("gridre"); }
/*gwgsiz*/ void gwgsiz(int id, int *nw, int *nh) { mv_tracef("gwgsiz(id=%d, nw=out, nh=out)", id); SET0(nw); SET0(nh); mv_unavailable("gwgsiz"); }
/*gwgtbl*/ void gwgtbl(int id, float *xray, int n, int idx, const char *copt) { mv_tracef("gwgtbl(id=%d, xray=%s, n=%d, idx=%d, copt=%s)", id, TARR(n, "floats out"), n, idx, TSTR(copt)); ZERO(xray, n); mv_unavailable("gwgtbl"); }
/*hidwin*/ void hidwin(int n, const char *c) { mv_tracef("hidwin(%d, %s)", n, TSTR(c)); mv_unavailable("hidwin"); }
/*histog*/ void histog(const float * /*xray*/, int n, float *xhray, float *yhray, int *nh) { mv_tracef("histog(xray=%s, n=%d, xhray=%s, yhray=%s, nh=out)", TARR(n, "floats"), n, TARR(n, "floats out"), TARR(n, "floats out")); ZERO(xhray, n); ZERO(yhray, n); SET0(nh); mv_unavailable("histog"); }
/*hpgmod*/ void hpgmod(const char *c1, const char *c2) { mv_tracef("hpgmod(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("hpgmod"); }
/*hsym3d*/ void hsym3d(float x) { mv_tracef("hsym3d(%g)", (double)x); mv_unavailable("hsym3d"); }
/*hwfont*/ void hwfont(void) { mv_tracef("hwfont()"); mv_unavailable("hwfont"); }
/*hwmode*/ void hwmode(const char *c1, const char *c2) { mv_tracef("hwmode(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("hwmode"); }
/*hworig*/ void hworig(int n1, int n2) { mv_tracef("hworig(%d, %d)", n1, n2); mv_unavailable("hworig"); }
/*hwpage*/ void hwpage(int n1, int n2) { mv_tracef("hwpage(%d, %d)", n1, n2); mv_unavailable("hwpage"); }
/*hwscal*/ void hwscal(float x) { mv_tracef("hwscal(%g)", (double)x); mv_unavailable("hwscal"); }
/*imgbox*/ void imgbox(int n1, int n2, int n3, int n4) { mv_tracef("imgbox(%d, %d, %d, %d)", n1, n2, n3, n4); mv_unavailable("imgbox"); }
/*imgclp*/ void imgclp(int n1, int n2, int n3, int n4) { mv_tracef("imgclp(%d, %d, %d, %d)", n1, n2, n3, n4); mv_unavailable("imgclp"); }
/*imgfin*/ void imgfin(void) { mv_tracef("imgfin()"); mv_unavailable("imgfin"); }
/*imgfmt*/ void imgfmt(const char *c) { mv_tracef("imgfmt(%s)", TSTR(c)); mv_unavailable("imgfmt"); }
/*imgini*/ void imgini(void) { mv_tracef("imgini()"); mv_unavailable("imgini"); }
/*imgmod*/ void imgmod(const char *c) { mv_tracef("imgmod(%s)", TSTR(c)); mv_unavailable("imgmod"); }
/*imgsiz*/ void imgsiz(int n1, int n2) { mv_tracef("imgsiz(%d, %d)", n1, n2); mv_unavailable("imgsiz"); }
/*imgtpr*/ void imgtpr(int n) { mv_tracef("imgtpr(%d)", n); mv_unavailable("imgtpr"); }
/*inccrv*/ void inccrv(int n) { mv_tracef("inccrv(%d)", n); mv_unavailable("inccrv"); }
/*incfil*/ void incfil(const char *c) { mv_tracef("incfil(%s)", TSTR(c)); mv_unavailable("incfil"); }
/*intax*/ void intax(void) { mv_tracef("intax()"); mv_unavailable("intax"); }
/*intutf*/ void intutf(const int * /*iray*/, int nray, char *cstr, int nmax, int *nl) { mv_tracef("intutf(iray=%s, nray=%d, cstr=out, nmax=%d, nl=out)", TARR(nray, "ints"), nray, nmax); TEXT0(cstr); SET0(nl); mv_unavailable("intutf"); }
/*isopts*/ void isopts(const float * /*xray*/, int nx, const float * /*yray*/, int ny, const float * /*zray*/, int nz, const float * /*wmat*/, float wlev, float *xtri, float *ytri, float *ztri, int maxtri, int *ntri) { mv_tracef("isopts(xray=%s, nx=%d, yray=%s, ny=%d, zray=%s, nz=%d, wmat=%s, wlev=%g, xtri=%s, ytri=%s, ztri=%s, maxtri=%d, ntri=out)", TARR(nx, "floats"), nx, TARR(ny, "floats"), ny, TARR(nz, "floats"), nz, TARR(nx*ny*nz, "floats"), (double)wlev, TARR(maxtri, "floats out"), TARR(maxtri, "floats out"), TARR(maxtri, "floats out"), maxtri); ZERO(xtri, maxtri); ZERO(ytri, maxtri); ZERO(ztri, maxtri); SET0(ntri); mv_unavailable("isopts"); }
/*jusbar*/ void jusbar(const char *c) { mv_tracef("jusbar(%s)", TSTR(c)); mv_unavailable("jusbar"); }
/*labclr*/ void labclr(int n, const char *c) { mv_tracef("labclr(%d, %s)", n, TSTR(c)); mv_unavailable("labclr"); }
/*labjus*/ void labjus(const char *c1, const char *c2) { mv_tracef("labjus(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("labjus"); }
/*labl3d*/ void labl3d(const char *c) { mv_tracef("labl3d(%s)", TSTR(c)); mv_unavailable("labl3d"); }
/*labmod*/ void labmod(const char *c1, const char *c2, const char *c3) { mv_tracef("labmod(%s, %s, %s)", TSTR(c1), TSTR(c2), TSTR(c3)); mv_unavailable("labmod"); }
/*labpos*/ void labpos(const char *c1, const char *c2) { mv_tracef("labpos(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("labpos"); }
/*labtyp*/ void labtyp(const char *c1, const char *c2) { mv_tracef("labtyp(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("labtyp"); }
/*legpat*/ void legpat(int n1, int n2, int n3, int n4, int n5, int n6) { mv_tracef("legpat(%d, %d, %d, %d, %d, %d)", n1, n2, n3, n4, n5, n6); mv_unavailable("legpat"); }
/*legsel*/ void legsel(const int * /*nray*/, int n) { mv_tracef("legsel(nray=%s, n=%d)", TARR(n, "ints"), n); mv_unavailable("legsel"); }
/*legtbl*/ void legtbl(int n, const char *c) { mv_tracef("legtbl(%d, %s)", n, TSTR(c)); mv_unavailable("legtbl"); }
/*legtyp*/ void legtyp(const char *c) { mv_tracef("legtyp(%s)", TSTR(c)); mv_unavailable("legtyp"); }
/*legval*/ void legval(float x, const char *c) { mv_tracef("legval(%g, %s)", (double)x, TSTR(c)); mv_unavailable("legval"); }
/*lfttit*/ void lfttit(void) { mv_tracef("lfttit()"); mv_unavailable("lfttit"); }
/*licmod*/ void licmod(const char *c1, const char *c2) { mv_tracef("licmod(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("licmod"); }
/*licpts*/ void licpts(const float * /*xv*/, const float * /*yv*/, int nx, int ny, const int * /*itmat*/, int *iwmat, float *wmat) { mv_tracef("licpts(xv=%s, yv=%s, nx=%d, ny=%d, itmat=%s, iwmat=%s, wmat=%s)", TARR(nx*ny, "floats"), TARR(nx*ny, "floats"), nx, ny, TARR(nx*ny, "ints"), TARR(nx*ny, "ints out"), TARR(nx*ny, "floats out")); ZERO(iwmat, nx*ny); ZERO(wmat, nx*ny); mv_unavailable("licpts"); }
/*light*/ void light(const char *c) { mv_tracef("light(%s)", TSTR(c)); mv_unavailable("light"); }
/*linclr*/ void linclr(const int * /*nray*/, int n) { mv_tracef("linclr(nray=%s, n=%d)", TARR(n, "ints"), n); mv_unavailable("linclr"); }
/*lincyc*/ void lincyc(int n1, int n2) { mv_tracef("lincyc(%d, %d)", n1, n2); mv_unavailable("lincyc"); }
/*linfit*/ void linfit(const float * /*xray*/, const float * /*yray*/, int n, float *a, float *b, float *r, const char *copt) { mv_tracef("linfit(xray=%s, yray=%s, n=%d, a=out, b=out, r=out, copt=%s)", TARR(n, "floats"), TARR(n, "floats"), n, TSTR(copt)); SET0(a); SET0(b); SET0(r); mv_unavailable("linfit"); }
/*linesp*/ void linesp(float x) { mv_tracef("linesp(%g)", (double)x); mv_unavailable("linesp"); }
/*linmod*/ void linmod(const char *c1, const char *c2) { mv_tracef("linmod(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("linmod"); }
/*litmod*/ void litmod(int n, const char *c) { mv_tracef("litmod(%d, %s)", n, TSTR(c)); mv_unavailable("litmod"); }
/*litop3*/ void litop3(int n, float x1, float x2, float x3, const char *c) { mv_tracef("litop3(%d, %g, %g, %g, %s)", n, (double)x1, (double)x2, (double)x3, TSTR(c)); mv_unavailable("litop3"); }
/*litopt*/ void litopt(int n, float x, const char *c) { mv_tracef("litopt(%d, %g, %s)", n, (double)x, TSTR(c)); mv_unavailable("litopt"); }
/*litpos*/ void litpos(int n, float x1, float x2, float x3, const char *c) { mv_tracef("litpos(%d, %g, %g, %g, %s)", n, (double)x1, (double)x2, (double)x3, TSTR(c)); mv_unavailable("litpos"); }
/*lnmlt*/ void lnmlt(float x) { mv_tracef("lnmlt(%g)", (double)x); mv_unavailable("lnmlt"); }
/*logtic*/ void logtic(const char *c) { mv_tracef("logtic(%s)", TSTR(c)); mv_unavailable("logtic"); }
/*mapbas*/ void mapbas(const char *c) { mv_tracef("mapbas(%s)", TSTR(c)); mv_unavailable("mapbas"); }
/*mapdir*/ void mapdir(const char *c) { mv_tracef("mapdir(%s)", TSTR(c)); mv_unavailable("mapdir"); }
/*mapfil*/ void mapfil(const char *c1, const char *c2) { mv_tracef("mapfil(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("mapfil"); }
/*mapimg*/ void mapimg(const char *c, float x1, float x2, float x3, float x4, float x5, float x6) { mv_tracef("mapimg(%s, %g, %g, %g, %g, %g, %g)", TSTR(c), (double)x1, (double)x2, (double)x3, (double)x4, (double)x5, (double)x6); mv_unavailable("mapimg"); }
/*maplab*/ void maplab(const char *c1, const char *c2) { mv_tracef("maplab(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("maplab"); }
/*maplev*/ void maplev(const char *c) { mv_tracef("maplev(%s)", TSTR(c)); mv_unavailable("maplev"); }
/*mapmod*/ void mapmod(const char *c) { mv_tracef("mapmod(%s)", TSTR(c)); mv_unavailable("mapmod"); }
/*mapopt*/ void mapopt(const char *c1, const char *c2) { mv_tracef("mapopt(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("mapopt"); }
/*mappol*/ void mappol(float x1, float x2) { mv_tracef("mappol(%g, %g)", (double)x1, (double)x2); mv_unavailable("mappol"); }
/*mapref*/ void mapref(float x1, float x2) { mv_tracef("mapref(%g, %g)", (double)x1, (double)x2); mv_unavailable("mapref"); }
/*mapsph*/ void mapsph(float x) { mv_tracef("mapsph(%g)", (double)x); mv_unavailable("mapsph"); }
/*matop3*/ void matop3(float x1, float x2, float x3, const char *c) { mv_tracef("matop3(%g, %g, %g, %s)", (double)x1, (double)x2, (double)x3, TSTR(c)); mv_unavailable("matop3"); }
/*matopt*/ void matopt(float x, const char *c) { mv_tracef("matopt(%g, %s)", (double)x, TSTR(c)); mv_unavailable("matopt"); }
/*mdfmat*/ void mdfmat(int n1, int n2, float x) { mv_tracef("mdfmat(%d, %d, %g)", n1, n2, (double)x); mv_unavailable("mdfmat"); }
/*mixalf*/ void mixalf(void) { mv_tracef("mixalf()"); mv_unavailable("mixalf"); }
/*mixleg*/ void mixleg(void) { mv_tracef("mixleg()"); mv_unavailable("mixleg"); }
/*mpaepl*/ void mpaepl(int n) { mv_tracef("mpaepl(%d)", n); mv_unavailable("mpaepl"); }
/*mplang*/ void mplang(float x) { mv_tracef("mplang(%g)", (double)x); mv_unavailable("mplang"); }
/*mplclr*/ void mplclr(int n1, int n2) { mv_tracef("mplclr(%d, %d)", n1, n2); mv_unavailable("mplclr"); }
/*mplpos*/ void mplpos(int n1, int n2) { mv_tracef("mplpos(%d, %d)", n1, n2); mv_unavailable("mplpos"); }
/*mplsiz*/ void mplsiz(int n) { mv_tracef("mplsiz(%d)", n); mv_unavailable("mplsiz"); }
/*mpslogo*/ void mpslogo(int n1, int n2, int n3, const char *c) { mv_tracef("mpslogo(%d, %d, %d, %s)", n1, n2, n3, TSTR(c)); mv_unavailable("mpslogo"); }
/*mrkclr*/ void mrkclr(int n) { mv_tracef("mrkclr(%d)", n); mv_unavailable("mrkclr"); }
/*msgbox*/ void msgbox(const char *c) { mv_tracef("msgbox(%s)", TSTR(c)); mv_unavailable("msgbox"); }
/*mshclr*/ void mshclr(int n) { mv_tracef("mshclr(%d)", n); mv_unavailable("mshclr"); }
/*mshcrv*/ void mshcrv(int n) { mv_tracef("mshcrv(%d)", n); mv_unavailable("mshcrv"); }
/*mylab*/ void mylab(const char *c1, int n, const char *c2) { mv_tracef("mylab(%s, %d, %s)", TSTR(c1), n, TSTR(c2)); mv_unavailable("mylab"); }
/*mypat*/ void mypat(int n1, int n2, int n3, int n4) { mv_tracef("mypat(%d, %d, %d, %d)", n1, n2, n3, n4); mv_unavailable("mypat"); }
/*mysymb*/ void mysymb(const float * /*xray*/, const float * /*yray*/, int n, int isym, int iflag) { mv_tracef("mysymb(xray=%s, yray=%s, n=%d, isym=%d, iflag=%d)", TARR(n, "floats"), TARR(n, "floats"), n, isym, iflag); mv_unavailable("mysymb"); }
/*namjus*/ void namjus(const char *c1, const char *c2) { mv_tracef("namjus(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("namjus"); }
/*nancrv*/ void nancrv(const char *c) { mv_tracef("nancrv(%s)", TSTR(c)); mv_unavailable("nancrv"); }
/*neglog*/ void neglog(float x) { mv_tracef("neglog(%g)", (double)x); mv_unavailable("neglog"); }
/*newmix*/ void newmix(void) { mv_tracef("newmix()"); mv_unavailable("newmix"); }
/*noarln*/ void noarln(void) { mv_tracef("noarln()"); mv_unavailable("noarln"); }
/*nobgd*/ void nobgd(void) { mv_tracef("nobgd()"); mv_unavailable("nobgd"); }
/*nofill*/ void nofill(void) { mv_tracef("nofill()"); mv_unavailable("nofill"); }
/*nograf*/ void nograf(void) { mv_tracef("nograf()"); mv_unavailable("nograf"); }
/*nohide*/ void nohide(void) { mv_tracef("nohide()"); mv_unavailable("nohide"); }
/*noline*/ void noline(const char *c) { mv_tracef("noline(%s)", TSTR(c)); mv_unavailable("noline"); }
/*numfmt*/ void numfmt(const char *c) { mv_tracef("numfmt(%s)", TSTR(c)); mv_unavailable("numfmt"); }
/*numode*/ void numode(const char *c1, const char *c2, const char *c3, const char *c4) { mv_tracef("numode(%s, %s, %s, %s)", TSTR(c1), TSTR(c2), TSTR(c3), TSTR(c4)); mv_unavailable("numode"); }
/*opnwin*/ void opnwin(int n) { mv_tracef("opnwin(%d)", n); mv_unavailable("opnwin"); }
/*origin*/ void origin(int nx0, int ny0) { mv_tracef("origin(%d, %d)", nx0, ny0); mv_unavailable("origin"); }
/*paghdr*/ void paghdr(const char *c1, const char *c2, int n1, int n2) { mv_tracef("paghdr(%s, %s, %d, %d)", TSTR(c1), TSTR(c2), n1, n2); mv_unavailable("paghdr"); }
/*pagmod*/ void pagmod(const char *c) { mv_tracef("pagmod(%s)", TSTR(c)); mv_unavailable("pagmod"); }
/*pagwin*/ void pagwin(int n1, int n2) { mv_tracef("pagwin(%d, %d)", n1, n2); mv_unavailable("pagwin"); }
/*patcyc*/ void patcyc(int n1, int n2) { mv_tracef("patcyc(%d, %d)", n1, n2); mv_unavailable("patcyc"); }
/*pdfmod*/ void pdfmod(const char *c1, const char *c2) { mv_tracef("pdfmod(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("pdfmod"); }
/*pdfmrk*/ void pdfmrk(const char *c1, const char *c2) { mv_tracef("pdfmrk(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("pdfmrk"); }
/*pie*/ void pie(int n1, int n2, int n3, float x1, float x2) { mv_tracef("pie(%d, %d, %d, %g, %g)", n1, n2, n3, (double)x1, (double)x2); mv_unavailable("pie"); }
/*piebor*/ void piebor(int n) { mv_tracef("piebor(%d)", n); mv_unavailable("piebor"); }
/*piecbk*/ void piecbk(MvPieCb /*cb*/) { mv_tracef("piecbk(cb=callback)"); mv_unavailable("piecbk"); }
/*pieclr*/ void pieclr(const int * /*nc1ray*/, const int * /*nc2ray*/, int n) { mv_tracef("pieclr(nc1ray=%s, nc2ray=%s, n=%d)", TARR(n, "ints"), TARR(n, "ints"), n); mv_unavailable("pieclr"); }
/*pieexp*/ void pieexp(void) { mv_tracef("pieexp()"); mv_unavailable("pieexp"); }
/*piegrf*/ void piegrf(const char *cstr, int nlin, const float * /*xray*/, int n) { mv_tracef("piegrf(cstr=%s, nlin=%d, xray=%s, n=%d)", TSTR(cstr), nlin, TARR(n, "floats"), n); mv_unavailable("piegrf"); }
/*pielab*/ void pielab(const char *c1, const char *c2) { mv_tracef("pielab(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("pielab"); }
/*pieopt*/ void pieopt(float x1, float x2) { mv_tracef("pieopt(%g, %g)", (double)x1, (double)x2); mv_unavailable("pieopt"); }
/*pierot*/ void pierot(float x) { mv_tracef("pierot(%g)", (double)x); mv_unavailable("pierot"); }
/*pietyp*/ void pietyp(const char *c) { mv_tracef("pietyp(%s)", TSTR(c)); mv_unavailable("pietyp"); }
/*pieval*/ void pieval(float x, const char *c) { mv_tracef("pieval(%g, %s)", (double)x, TSTR(c)); mv_unavailable("pieval"); }
/*pievec*/ void pievec(int n, const char *c) { mv_tracef("pievec(%d, %s)", n, TSTR(c)); mv_unavailable("pievec"); }
/*pike3d*/ void pike3d(float x1, float x2, float x3, float x4, float x5, float x6, float x7, int n1, int n2) { mv_tracef("pike3d(%g, %g, %g, %g, %g, %g, %g, %d, %d)", (double)x1, (double)x2, (double)x3, (double)x4, (double)x5, (double)x6, (double)x7, n1, n2); mv_unavailable("pike3d"); }
/*plat3d*/ void plat3d(float x1, float x2, float x3, float x4, const char *c) { mv_tracef("plat3d(%g, %g, %g, %g, %s)", (double)x1, (double)x2, (double)x3, (double)x4, TSTR(c)); mv_unavailable("plat3d"); }
/*plyfin*/ void plyfin(const char *c1, const char *c2) { mv_tracef("plyfin(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("plyfin"); }
/*plyini*/ void plyini(const char *c) { mv_tracef("plyini(%s)", TSTR(c)); mv_unavailable("plyini"); }
/*pngmod*/ void pngmod(const char *c1, const char *c2) { mv_tracef("pngmod(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("pngmod"); }
/*polar*/ void polar(float x1, float x2, float x3, float x4, float x5) { mv_tracef("polar(%g, %g, %g, %g, %g)", (double)x1, (double)x2, (double)x3, (double)x4, (double)x5); mv_unavailable("polar"); }
/*polclp*/ void polclp(const float * /*xray*/, const float * /*yray*/, int n, float *xout, float *yout, int nmax, int *nout, float xv, const char *cedge) { mv_tracef("polclp(xray=%s, yray=%s, n=%d, xout=%s, yout=%s, nmax=%d, nout=out, xv=%g, cedge=%s)", TARR(n, "floats"), TARR(n, "floats"), n, TARR(nmax, "floats out"), TARR(nmax, "floats out"), nmax, (double)xv, TSTR(cedge)); ZERO(xout, nmax); ZERO(yout, nmax); SET0(nout); mv_unavailable("polclp"); }
/*polmod*/ void polmod(const char *c1, const char *c2) { mv_tracef("polmod(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("polmod"); }
/*pos2pt*/ void pos2pt(float x, float y, float *xp, float *yp) { mv_tracef("pos2pt(x=%g, y=%g, xp=out, yp=out)", (double)x, (double)y); SET0(xp); SET0(yp); mv_unavailable("pos2pt"); }
/*pos3pt*/ void pos3pt(float x, float y, float z, float *xp, float *yp, float *zp) { mv_tracef("pos3pt(x=%g, y=%g, z=%g, xp=out, yp=out, zp=out)", (double)x, (double)y, (double)z); SET0(xp); SET0(yp); SET0(zp); mv_unavailable("pos3pt"); }
/*posbar*/ void posbar(const char *c) { mv_tracef("posbar(%s)", TSTR(c)); mv_unavailable("posbar"); }
/*proj3d*/ void proj3d(const char *c) { mv_tracef("proj3d(%s)", TSTR(c)); mv_unavailable("proj3d"); }
/*projct*/ void projct(const char *c) { mv_tracef("projct(%s)", TSTR(c)); mv_unavailable("projct"); }
/*psmeta*/ void psmeta(const char *c1, const char *c2) { mv_tracef("psmeta(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("psmeta"); }
/*psmode*/ void psmode(const char *c) { mv_tracef("psmode(%s)", TSTR(c)); mv_unavailable("psmode"); }
/*pt2pos*/ void pt2pos(float x, float y, float *xp, float *yp) { mv_tracef("pt2pos(x=%g, y=%g, xp=out, yp=out)", (double)x, (double)y); SET0(xp); SET0(yp); mv_unavailable("pt2pos"); }
/*pyra3d*/ void pyra3d(float x1, float x2, float x3, float x4, float x5, float x6, int n) { mv_tracef("pyra3d(%g, %g, %g, %g, %g, %g, %d)", (double)x1, (double)x2, (double)x3, (double)x4, (double)x5, (double)x6, n); mv_unavailable("pyra3d"); }
/*qplbar*/ void qplbar(const float * /*xray*/, int n) { mv_tracef("qplbar(xray=%s, n=%d)", TARR(n, "floats"), n); mv_unavailable("qplbar"); }
/*qplclr*/ void qplclr(const float * /*zmat*/, int nx, int ny) { mv_tracef("qplclr(zmat=%s, nx=%d, ny=%d)", TARR(nx*ny, "floats"), nx, ny); mv_unavailable("qplclr"); }
/*qplcon*/ void qplcon(const float * /*zmat*/, int nx, int ny, int nlev) { mv_tracef("qplcon(zmat=%s, nx=%d, ny=%d, nlev=%d)", TARR(nx*ny, "floats"), nx, ny, nlev); mv_unavailable("qplcon"); }
/*qplcrv*/ void qplcrv(const float * /*xray*/, const float * /*yray*/, int n, const char *copt) { mv_tracef("qplcrv(xray=%s, yray=%s, n=%d, copt=%s)", TARR(n, "floats"), TARR(n, "floats"), n, TSTR(copt)); mv_unavailable("qplcrv"); }
/*qplot*/ void qplot(const float * /*xray*/, const float * /*yray*/, int n) { mv_tracef("qplot(xray=%s, yray=%s, n=%d)", TARR(n, "floats"), TARR(n, "floats"), n); mv_unavailable("qplot"); }
/*qplpie*/ void qplpie(const float * /*xray*/, int n) { mv_tracef("qplpie(xray=%s, n=%d)", TARR(n, "floats"), n); mv_unavailable("qplpie"); }
/*qplsca*/ void qplsca(const float * /*xray*/, const float * /*yray*/, int n) { mv_tracef("qplsca(xray=%s, yray=%s, n=%d)", TARR(n, "floats"), TARR(n, "floats"), n); mv_unavailable("qplsca"); }
/*qplscl*/ void qplscl(float x1, float x2, float x3, float x4, const char *c) { mv_tracef("qplscl(%g, %g, %g, %g, %s)", (double)x1, (double)x2, (double)x3, (double)x4, TSTR(c)); mv_unavailable("qplscl"); }
/*qplsur*/ void qplsur(const float * /*zmat*/, int nx, int ny) { mv_tracef("qplsur(zmat=%s, nx=%d, ny=%d)", TARR(nx*ny, "floats"), nx, ny); mv_unavailable("qplsur"); }
/*quad3d*/ void quad3d(float x1, float x2, float x3, float x4, float x5, float x6) { mv_tracef("quad3d(%g, %g, %g, %g, %g, %g)", (double)x1, (double)x2, (double)x3, (double)x4, (double)x5, (double)x6); mv_unavailable("quad3d"); }
/*rbmp*/ void rbmp(const char *c) { mv_tracef("rbmp(%s)", TSTR(c)); mv_unavailable("rbmp"); }
/*reawgt*/ void reawgt(void) { mv_tracef("reawgt()"); mv_unavailable("reawgt"); }
/*rel3pt*/ void rel3pt(float x, float y, float z, float *xp, float *yp) { mv_tracef("rel3pt(x=%g, y=%g, z=%g, xp=out, yp=out)", (double)x, (double)y, (double)z); SET0(xp); SET0(yp); mv_unavailable("rel3pt"); }
/*resatt*/ void resatt(void) { mv_tracef("resatt()"); mv_unavailable("resatt"); }
/*revscr*/ void revscr(void) { mv_tracef("revscr()"); mv_unavailable("revscr"); }
/*rgif*/ void rgif(const char *c) { mv_tracef("rgif(%s)", TSTR(c)); mv_unavailable("rgif"); }
/*rgtlab*/ void rgtlab(void) { mv_tracef("rgtlab()"); mv_unavailable("rgtlab"); }
/*rimage*/ void rimage(const char *c) { mv_tracef("rimage(%s)", TSTR(c)); mv_unavailable("rimage"); }
/*rlconn*/ void rlconn(float x1, float x2) { mv_tracef("rlconn(%g, %g)", (double)x1, (double)x2); mv_unavailable("rlconn"); }
/*rlstrt*/ void rlstrt(float x1, float x2) { mv_tracef("rlstrt(%g, %g)", (double)x1, (double)x2); mv_unavailable("rlstrt"); }
/*rlvec*/ void rlvec(float x1, float x2, float x3, float x4, int n) { mv_tracef("rlvec(%g, %g, %g, %g, %d)", (double)x1, (double)x2, (double)x3, (double)x4, n); mv_unavailable("rlvec"); }
/*rlwind*/ void rlwind(float x1, float x2, float x3, int n, float x4) { mv_tracef("rlwind(%g, %g, %g, %d, %g)", (double)x1, (double)x2, (double)x3, n, (double)x4); mv_unavailable("rlwind"); }
/*rot3d*/ void rot3d(float x1, float x2, float x3) { mv_tracef("rot3d(%g, %g, %g)", (double)x1, (double)x2, (double)x3); mv_unavailable("rot3d"); }
/*rpixel*/ void rpixel(int ix, int iy, int *iclr) { mv_tracef("rpixel(ix=%d, iy=%d, iclr=out)", ix, iy); SET0(iclr); mv_unavailable("rpixel"); }
/*rpixls*/ void rpixls(unsigned char *iray, int ix, int iy, int nw, int nh) { mv_tracef("rpixls(iray=out, ix=%d, iy=%d, nw=%d, nh=%d)", ix, iy, nw, nh); ZERO(iray, nw*nh); mv_unavailable("rpixls"); }
/*rpng*/ void rpng(const char *c) { mv_tracef("rpng(%s)", TSTR(c)); mv_unavailable("rpng"); }
/*rppm*/ void rppm(const char *c) { mv_tracef("rppm(%s)", TSTR(c)); mv_unavailable("rppm"); }
/*rpxrow*/ void rpxrow(unsigned char *iray, int ix, int iy, int n) { mv_tracef("rpxrow(iray=out, ix=%d, iy=%d, n=%d)", ix, iy, n); ZERO(iray, n); mv_unavailable("rpxrow"); }
/*rtiff*/ void rtiff(const char *c) { mv_tracef("rtiff(%s)", TSTR(c)); mv_unavailable("rtiff"); }
/*rvynam*/ void rvynam(void) { mv_tracef("rvynam()"); mv_unavailable("rvynam"); }
/*sclfac*/ void sclfac(float x) { mv_tracef("sclfac(%g)", (double)x); mv_unavailable("sclfac"); }
/*sclmod*/ void sclmod(const char *c) { mv_tracef("sclmod(%s)", TSTR(c)); mv_unavailable("sclmod"); }
/*selwin*/ void selwin(int n) { mv_tracef("selwin(%d)", n); mv_unavailable("selwin"); }
/*sendmb*/ void sendmb(void) { mv_tracef("sendmb()"); mv_unavailable("sendmb"); }
/*sendok*/ void sendok(void) { mv_tracef("sendok()"); mv_unavailable("sendok"); }
/*setbas*/ void setbas(float x) { mv_tracef("setbas(%g)", (double)x); mv_unavailable("setbas"); }
/*setcbk*/ void setcbk(MvProjectionCb /*cb*/, const char *copt) { mv_tracef("setcbk(cb=callback, copt=%s)", TSTR(copt)); mv_unavailable("setcbk"); }
/*setcsr*/ void setcsr(const char *c) { mv_tracef("setcsr(%s)", TSTR(c)); mv_unavailable("setcsr"); }
/*setexp*/ void setexp(float x) { mv_tracef("setexp(%g)", (double)x); mv_unavailable("setexp"); }
/*setfce*/ void setfce(const char *c) { mv_tracef("setfce(%s)", TSTR(c)); mv_unavailable("setfce"); }
/*setmix*/ void setmix(const char *c1, const char *c2) { mv_tracef("setmix(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("setmix"); }
/*setres3d*/ void setres3d(float x1, float x2, float x3) { mv_tracef("setres3d(%g, %g, %g)", (double)x1, (double)x2, (double)x3); mv_unavailable("setres3d"); }
/*setxid*/ void setxid(int n, const char *c) { mv_tracef("setxid(%d, %s)", n, TSTR(c)); mv_unavailable("setxid"); }
/*shdafr*/ void shdafr(const int * /*inray*/, const int * /*ipray*/, const int * /*icray*/, int n) { mv_tracef("shdafr(inray=%s, ipray=%s, icray=%s, n=%d)", TARR(n, "ints"), TARR(n, "ints"), TARR(n, "ints"), n); mv_unavailable("shdafr"); }
/*shdasi*/ void shdasi(const int * /*inray*/, const int * /*ipray*/, const int * /*icray*/, int n) { mv_tracef("shdasi(inray=%s, ipray=%s, icray=%s, n=%d)", TARR(n, "ints"), TARR(n, "ints"), TARR(n, "ints"), n); mv_unavailable("shdasi"); }
/*shdaus*/ void shdaus(const int * /*inray*/, const int * /*ipray*/, const int * /*icray*/, int n) { mv_tracef("shdaus(inray=%s, ipray=%s, icray=%s, n=%d)", TARR(n, "ints"), TARR(n, "ints"), TARR(n, "ints"), n); mv_unavailable("shdaus"); }
/*shdcha*/ void shdcha(void) { mv_tracef("shdcha()"); mv_unavailable("shdcha"); }
/*shdcrv*/ void shdcrv(const float * /*x1ray*/, const float * /*y1ray*/, int n1, const float * /*x2ray*/, const float * /*y2ray*/, int n2) { mv_tracef("shdcrv(x1ray=%s, y1ray=%s, n1=%d, x2ray=%s, y2ray=%s, n2=%d)", TARR(n1, "floats"), TARR(n1, "floats"), n1, TARR(n2, "floats"), TARR(n2, "floats"), n2); mv_unavailable("shdcrv"); }
/*shdeur*/ void shdeur(const int * /*inray*/, const int * /*ipray*/, const int * /*icray*/, int n) { mv_tracef("shdeur(inray=%s, ipray=%s, icray=%s, n=%d)", TARR(n, "ints"), TARR(n, "ints"), TARR(n, "ints"), n); mv_unavailable("shdeur"); }
/*shdfac*/ void shdfac(float x) { mv_tracef("shdfac(%g)", (double)x); mv_unavailable("shdfac"); }
/*shdmap*/ void shdmap(const char *c) { mv_tracef("shdmap(%s)", TSTR(c)); mv_unavailable("shdmap"); }
/*shdnor*/ void shdnor(const int * /*inray*/, const int * /*ipray*/, const int * /*icray*/, int n) { mv_tracef("shdnor(inray=%s, ipray=%s, icray=%s, n=%d)", TARR(n, "ints"), TARR(n, "ints"), TARR(n, "ints"), n); mv_unavailable("shdnor"); }
/*shdsou*/ void shdsou(const int * /*inray*/, const int * /*ipray*/, const int * /*icray*/, int n) { mv_tracef("shdsou(inray=%s, ipray=%s, icray=%s, n=%d)", TARR(n, "ints"), TARR(n, "ints"), TARR(n, "ints"), n); mv_unavailable("shdsou"); }
/*shdusa*/ void shdusa(const int * /*inray*/, const int * /*ipray*/, const int * /*icray*/, int n) { mv_tracef("shdusa(inray=%s, ipray=%s, icray=%s, n=%d)", TARR(n, "ints"), TARR(n, "ints"), TARR(n, "ints"), n); mv_unavailable("shdusa"); }
/*shield*/ void shield(const char *c1, const char *c2) { mv_tracef("shield(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("shield"); }
/*shlcir*/ void shlcir(int n1, int n2, int n3) { mv_tracef("shlcir(%d, %d, %d)", n1, n2, n3); mv_unavailable("shlcir"); }
/*shldel*/ void shldel(int n) { mv_tracef("shldel(%d)", n); mv_unavailable("shldel"); }
/*shlell*/ void shlell(int n1, int n2, int n3, int n4, float x) { mv_tracef("shlell(%d, %d, %d, %d, %g)", n1, n2, n3, n4, (double)x); mv_unavailable("shlell"); }
/*shlpie*/ void shlpie(int n1, int n2, int n3, float x1, float x2) { mv_tracef("shlpie(%d, %d, %d, %g, %g)", n1, n2, n3, (double)x1, (double)x2); mv_unavailable("shlpie"); }
/*shlpol*/ void shlpol(const int * /*nxray*/, const int * /*nyray*/, int n) { mv_tracef("shlpol(nxray=%s, nyray=%s, n=%d)", TARR(n, "ints"), TARR(n, "ints"), n); mv_unavailable("shlpol"); }
/*shlrct*/ void shlrct(int n1, int n2, int n3, int n4, float x) { mv_tracef("shlrct(%d, %d, %d, %d, %g)", n1, n2, n3, n4, (double)x); mv_unavailable("shlrct"); }
/*shlrec*/ void shlrec(int n1, int n2, int n3, int n4) { mv_tracef("shlrec(%d, %d, %d, %d)", n1, n2, n3, n4); mv_unavailable("shlrec"); }
/*shlsur*/ void shlsur(void) { mv_tracef("shlsur()"); mv_unavailable("shlsur"); }
/*shlvis*/ void shlvis(int n, const char *c) { mv_tracef("shlvis(%d, %s)", n, TSTR(c)); mv_unavailable("shlvis"); }
/*smxalf*/ void smxalf(const char *c1, const char *c2, const char *c3, int n) { mv_tracef("smxalf(%s, %s, %s, %d)", TSTR(c1), TSTR(c2), TSTR(c3), n); mv_unavailable("smxalf"); }
/*spcbar*/ void spcbar(int n) { mv_tracef("spcbar(%d)", n); mv_unavailable("spcbar"); }
/*sphe3d*/ void sphe3d(float x1, float x2, float x3, float x4, int n1, int n2) { mv_tracef("sphe3d(%g, %g, %g, %g, %d, %d)", (double)x1, (double)x2, (double)x3, (double)x4, n1, n2); mv_unavailable("sphe3d"); }
/*spline*/ void spline(const float * /*xray*/, const float * /*yray*/, int n, float *xsray, float *ysray, int *nspl) { mv_tracef("spline(xray=%s, yray=%s, n=%d, xsray=%s, ysray=%s, nspl=out)", TARR(n, "floats"), TARR(n, "floats"), n, TARR(n, "floats out"), TARR(n, "floats out")); ZERO(xsray, n); ZERO(ysray, n); SET0(nspl); mv_unavailable("spline"); }
/*splmod*/ void splmod(int n1, int n2) { mv_tracef("splmod(%d, %d)", n1, n2); mv_unavailable("splmod"); }
/*stmmod*/ void stmmod(const char *c1, const char *c2) { mv_tracef("stmmod(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("stmmod"); }
/*stmopt*/ void stmopt(int n, const char *c) { mv_tracef("stmopt(%d, %s)", n, TSTR(c)); mv_unavailable("stmopt"); }
/*stmpts*/ void stmpts(const float * /*xv*/, const float * /*yv*/, int nx, int ny, const float * /*xp*/, const float * /*yp*/, float x0, float y0, float *xray, float *yray, int maxpts, int *npts) { mv_tracef("stmpts(xv=%s, yv=%s, nx=%d, ny=%d, xp=%s, yp=%s, x0=%g, y0=%g, xray=%s, yray=%s, maxpts=%d, npts=out)", TARR(nx*ny, "floats"), TARR(nx*ny, "floats"), nx, ny, TARR(nx, "floats"), TARR(ny, "floats"), (double)x0, (double)y0, TARR(maxpts, "floats out"), TARR(maxpts, "floats out"), maxpts); ZERO(xray, maxpts); ZERO(yray, maxpts); SET0(npts); mv_unavailable("stmpts"); }
/*stmpts3d*/ void stmpts3d(const float * /*xv*/, const float * /*yv*/, const float * /*zv*/, int nx, int ny, int nz, const float * /*xp*/, const float * /*yp*/, const float * /*zp*/, float x0, float y0, float z0, float *xray, float *yray, float *zray, int maxpts, int *npts) { mv_tracef("stmpts3d(xv=%s, yv=%s, zv=%s, nx=%d, ny=%d, nz=%d, xp=%s, yp=%s, zp=%s, x0=%g, y0=%g, z0=%g, xray=%s, yray=%s, zray=%s, maxpts=%d, npts=out)", TARR(nx*ny*nz, "floats"), TARR(nx*ny*nz, "floats"), TARR(nx*ny*nz, "floats"), nx, ny, nz, TARR(nx, "floats"), TARR(ny, "floats"), TARR(nz, "floats"), (double)x0, (double)y0, (double)z0, TARR(maxpts, "floats out"), TARR(maxpts, "floats out"), TARR(maxpts, "floats out"), maxpts); ZERO(xray, maxpts); ZERO(yray, maxpts); ZERO(zray, maxpts); SET0(npts); mv_unavailable("stmpts3d"); }
/*stmtri*/ void stmtri(const float * /*xv*/, const float * /*yv*/, const float * /*xp*/, const float * /*yp*/, int n, const int * /*i1ray*/, const int * /*i2ray*/, const int * /*i3ray*/, int ntri, const float * /*xs*/, const float * /*ys*/, int nray) { mv_tracef("stmtri(xv=%s, yv=%s, xp=%s, yp=%s, n=%d, i1ray=%s, i2ray=%s, i3ray=%s, ntri=%d, xs=%s, ys=%s, nray=%d)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n, TARR(ntri, "ints"), TARR(ntri, "ints"), TARR(ntri, "ints"), ntri, TARR(nray, "floats"), TARR(nray, "floats"), nray); mv_unavailable("stmtri"); }
/*stmval*/ void stmval(float x, const char *c) { mv_tracef("stmval(%g, %s)", (double)x, TSTR(c)); mv_unavailable("stmval"); }
/*stream*/ void stream(const float * /*xv*/, const float * /*yv*/, int nx, int ny, const float * /*xp*/, const float * /*yp*/, const float * /*xs*/, const float * /*ys*/, int n) { mv_tracef("stream(xv=%s, yv=%s, nx=%d, ny=%d, xp=%s, yp=%s, xs=%s, ys=%s, n=%d)", TARR(nx*ny, "floats"), TARR(nx*ny, "floats"), nx, ny, TARR(nx, "floats"), TARR(ny, "floats"), TARR(n, "floats"), TARR(n, "floats"), n); mv_unavailable("stream"); }
/*stream3d*/ void stream3d(const float * /*xv*/, const float * /*yv*/, const float * /*zv*/, int nx, int ny, int nz, const float * /*xp*/, const float * /*yp*/, const float * /*zp*/, const float * /*xs*/, const float * /*ys*/, const float * /*zs*/, int n) { mv_tracef("stream3d(xv=%s, yv=%s, zv=%s, nx=%d, ny=%d, nz=%d, xp=%s, yp=%s, zp=%s, xs=%s, ys=%s, zs=%s, n=%d)", TARR(nx*ny*nz, "floats"), TARR(nx*ny*nz, "floats"), TARR(nx*ny*nz, "floats"), nx, ny, nz, TARR(nx, "floats"), TARR(ny, "floats"), TARR(nz, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n); mv_unavailable("stream3d"); }
/*strt3d*/ void strt3d(float x1, float x2, float x3) { mv_tracef("strt3d(%g, %g, %g)", (double)x1, (double)x2, (double)x3); mv_unavailable("strt3d"); }
/*strtpt*/ void strtpt(float x1, float x2) { mv_tracef("strtpt(%g, %g)", (double)x1, (double)x2); mv_unavailable("strtpt"); }
/*surfcp*/ void surfcp(MvParamSurfaceFn /*fn*/, float a1, float a2, float astp, float b1, float b2, float bstp) { mv_tracef("surfcp(fn=callback, a1=%g, a2=%g, astp=%g, b1=%g, b2=%g, bstp=%g)", (double)a1, (double)a2, (double)astp, (double)b1, (double)b2, (double)bstp); mv_unavailable("surfcp"); }
/*surfun*/ void surfun(MvSurfaceFn /*fn*/, int ixpts, float xdel, int iypts, float ydel) { mv_tracef("surfun(fn=callback, ixpts=%d, xdel=%g, iypts=%d, ydel=%g)", ixpts, (double)xdel, iypts, (double)ydel); mv_unavailable("surfun"); }
/*suriso*/ void suriso(const float * /*xray*/, int nx, const float * /*yray*/, int ny, const float * /*zray*/, int nz, const float * /*wmat*/, float wlev) { mv_tracef("suriso(xray=%s, nx=%d, yray=%s, ny=%d, zray=%s, nz=%d, wmat=%s, wlev=%g)", TARR(nx, "floats"), nx, TARR(ny, "floats"), ny, TARR(nz, "floats"), nz, TARR(nx*ny*nz, "floats"), (double)wlev); mv_unavailable("suriso"); }
/*suropt*/ void suropt(const char *c) { mv_tracef("suropt(%s)", TSTR(c)); mv_unavailable("suropt"); }
/*surshc*/ void surshc(const float * /*xray*/, int nx, const float * /*yray*/, int ny, const float * /*zmat*/, const float * /*wmat*/) { mv_tracef("surshc(xray=%s, nx=%d, yray=%s, ny=%d, zmat=%s, wmat=%s)", TARR(nx, "floats"), nx, TARR(ny, "floats"), ny, TARR(nx*ny, "floats"), TARR(nx*ny, "floats")); mv_unavailable("surshc"); }
/*sursze*/ void sursze(float x1, float x2, float x3, float x4) { mv_tracef("sursze(%g, %g, %g, %g)", (double)x1, (double)x2, (double)x3, (double)x4); mv_unavailable("sursze"); }
/*surtri*/ void surtri(const float * /*xray*/, const float * /*yray*/, const float * /*zray*/, int n, const int * /*i1ray*/, const int * /*i2ray*/, const int * /*i3ray*/, int ntri) { mv_tracef("surtri(xray=%s, yray=%s, zray=%s, n=%d, i1ray=%s, i2ray=%s, i3ray=%s, ntri=%d)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n, TARR(ntri, "ints"), TARR(ntri, "ints"), TARR(ntri, "ints"), ntri); mv_unavailable("surtri"); }
/*swgatt*/ void swgatt(int n, const char *c1, const char *c2) { mv_tracef("swgatt(%d, %s, %s)", n, TSTR(c1), TSTR(c2)); mv_unavailable("swgatt"); }
/*swgbgd*/ void swgbgd(int n, float x1, float x2, float x3) { mv_tracef("swgbgd(%d, %g, %g, %g)", n, (double)x1, (double)x2, (double)x3); mv_unavailable("swgbgd"); }
/*swgbox*/ void swgbox(int n1, int n2) { mv_tracef("swgbox(%d, %d)", n1, n2); mv_unavailable("swgbox"); }
/*swgbut*/ void swgbut(int n1, int n2) { mv_tracef("swgbut(%d, %d)", n1, n2); mv_unavailable("swgbut"); }
/*swgcb*/ void swgcb(int id, MvWidgetCb /*cb*/, int * /*iray*/) { mv_tracef("swgcb(id=%d, cb=callback, iray=[ints])", id); mv_unavailable("swgcb"); }
/*swgcb2*/ void swgcb2(int id, MvWidgetCb2 /*cb*/) { mv_tracef("swgcb2(id=%d, cb=callback)", id); mv_unavailable("swgcb2"); }
/*swgcb3*/ void swgcb3(int id, MvWidgetCb3 /*cb*/) { mv_tracef("swgcb3(id=%d, cb=callback)", id); mv_unavailable("swgcb3"); }
/*swgcbk*/ void swgcbk(int id, MvWidgetKeyCb /*cb*/) { mv_tracef("swgcbk(id=%d, cb=callback)", id); mv_unavailable("swgcbk"); }
/*swgclr*/ void swgclr(float x1, float x2, float x3, const char *c) { mv_tracef("swgclr(%g, %g, %g, %s)", (double)x1, (double)x2, (double)x3, TSTR(c)); mv_unavailable("swgclr"); }
/*swgdrw*/ void swgdrw(float x) { mv_tracef("swgdrw(%g)", (double)x); mv_unavailable("swgdrw"); }
/*swgfgd*/ void swgfgd(int n, float x1, float x2, float x3) { mv_tracef("swgfgd(%d, %g, %g, %g)", n, (double)x1, (double)x2, (double)x3); mv_unavailable("swgfgd"); }
/*swgfil*/ void swgfil(int n, const char *c) { mv_tracef("swgfil(%d, %s)", n, TSTR(c)); mv_unavailable("swgfil"); }
/*swgflt*/ void swgflt(int n1, float x, int n2) { mv_tracef("swgflt(%d, %g, %d)", n1, (double)x, n2); mv_unavailable("swgflt"); }
/*swgfnt*/ void swgfnt(const char *c, int n) { mv_tracef("swgfnt(%s, %d)", TSTR(c), n); mv_unavailable("swgfnt"); }
/*swgfoc*/ void swgfoc(int n) { mv_tracef("swgfoc(%d)", n); mv_unavailable("swgfoc"); }
/*swghlp*/ void swghlp(const char *c) { mv_tracef("swghlp(%s)", TSTR(c)); mv_unavailable("swghlp"); }
/*swgint*/ void swgint(int n1, int n2) { mv_tracef("swgint(%d, %d)", n1, n2); mv_unavailable("swgint"); }
/*swgiop*/ void swgiop(int n, const char *c) { mv_tracef("swgiop(%d, %s)", n, TSTR(c)); mv_unavailable("swgiop"); }
/*swgjus*/ void swgjus(const char *c1, const char *c2) { mv_tracef("swgjus(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("swgjus"); }
/*swglis*/ void swglis(int n1, int n2) { mv_tracef("swglis(%d, %d)", n1, n2); mv_unavailable("swglis"); }
/*swgmix*/ void swgmix(const char *c1, const char *c2) { mv_tracef("swgmix(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("swgmix"); }
/*swgmrg*/ void swgmrg(int n, const char *c) { mv_tracef("swgmrg(%d, %s)", n, TSTR(c)); mv_unavailable("swgmrg"); }
/*swgopt*/ void swgopt(const char *c1, const char *c2) { mv_tracef("swgopt(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("swgopt"); }
/*swgpop*/ void swgpop(const char *c) { mv_tracef("swgpop(%s)", TSTR(c)); mv_unavailable("swgpop"); }
/*swgpos*/ void swgpos(int n1, int n2) { mv_tracef("swgpos(%d, %d)", n1, n2); mv_unavailable("swgpos"); }
/*swgray*/ void swgray(const float * /*xray*/, int n, const char *copt) { mv_tracef("swgray(xray=%s, n=%d, copt=%s)", TARR(n, "floats"), n, TSTR(copt)); mv_unavailable("swgray"); }
/*swgscl*/ void swgscl(int n, float x) { mv_tracef("swgscl(%d, %g)", n, (double)x); mv_unavailable("swgscl"); }
/*swgsiz*/ void swgsiz(int n1, int n2) { mv_tracef("swgsiz(%d, %d)", n1, n2); mv_unavailable("swgsiz"); }
/*swgspc*/ void swgspc(float x1, float x2) { mv_tracef("swgspc(%g, %g)", (double)x1, (double)x2); mv_unavailable("swgspc"); }
/*swgstp*/ void swgstp(float x) { mv_tracef("swgstp(%g)", (double)x); mv_unavailable("swgstp"); }
/*swgtbf*/ void swgtbf(int n1, float x, int n2, int n3, int n4, const char *c) { mv_tracef("swgtbf(%d, %g, %d, %d, %d, %s)", n1, (double)x, n2, n3, n4, TSTR(c)); mv_unavailable("swgtbf"); }
/*swgtbi*/ void swgtbi(int n1, int n2, int n3, int n4, const char *c) { mv_tracef("swgtbi(%d, %d, %d, %d, %s)", n1, n2, n3, n4, TSTR(c)); mv_unavailable("swgtbi"); }
/*swgtbl*/ void swgtbl(int id, const float * /*xray*/, int n, int ndig, int idx, const char *copt) { mv_tracef("swgtbl(id=%d, xray=%s, n=%d, ndig=%d, idx=%d, copt=%s)", id, TARR(n, "floats"), n, ndig, idx, TSTR(copt)); mv_unavailable("swgtbl"); }
/*swgtbs*/ void swgtbs(int n1, const char *c1, int n2, int n3, const char *c2) { mv_tracef("swgtbs(%d, %s, %d, %d, %s)", n1, TSTR(c1), n2, n3, TSTR(c2)); mv_unavailable("swgtbs"); }
/*swgtit*/ void swgtit(const char *c) { mv_tracef("swgtit(%s)", TSTR(c)); mv_unavailable("swgtit"); }
/*swgtxt*/ void swgtxt(int n, const char *c) { mv_tracef("swgtxt(%d, %s)", n, TSTR(c)); mv_unavailable("swgtxt"); }
/*swgtyp*/ void swgtyp(const char *c1, const char *c2) { mv_tracef("swgtyp(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("swgtyp"); }
/*swgval*/ void swgval(int n, float x) { mv_tracef("swgval(%d, %g)", n, (double)x); mv_unavailable("swgval"); }
/*swgwin*/ void swgwin(int n1, int n2, int n3, int n4) { mv_tracef("swgwin(%d, %d, %d, %d)", n1, n2, n3, n4); mv_unavailable("swgwin"); }
/*swgwth*/ void swgwth(int n) { mv_tracef("swgwth(%d)", n); mv_unavailable("swgwth"); }
/*symb3d*/ void symb3d(int n, float x1, float x2, float x3) { mv_tracef("symb3d(%d, %g, %g, %g)", n, (double)x1, (double)x2, (double)x3); mv_unavailable("symb3d"); }
/*symfil*/ void symfil(const char *c1, const char *c2) { mv_tracef("symfil(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("symfil"); }
/*symrot*/ void symrot(float x) { mv_tracef("symrot(%g)", (double)x); mv_unavailable("symrot"); }
/*texmod*/ void texmod(const char *c) { mv_tracef("texmod(%s)", TSTR(c)); mv_unavailable("texmod"); }
/*texopt*/ void texopt(const char *c1, const char *c2) { mv_tracef("texopt(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("texopt"); }
/*texval*/ void texval(float x, const char *c) { mv_tracef("texval(%g, %s)", (double)x, TSTR(c)); mv_unavailable("texval"); }
/*thkc3d*/ void thkc3d(float x) { mv_tracef("thkc3d(%g)", (double)x); mv_unavailable("thkc3d"); }
/*ticmod*/ void ticmod(const char *c1, const char *c2) { mv_tracef("ticmod(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("ticmod"); }
/*tifmod*/ void tifmod(int n, const char *c1, const char *c2) { mv_tracef("tifmod(%d, %s, %s)", n, TSTR(c1), TSTR(c2)); mv_unavailable("tifmod"); }
/*tiforg*/ void tiforg(int n1, int n2) { mv_tracef("tiforg(%d, %d)", n1, n2); mv_unavailable("tiforg"); }
/*tifwin*/ void tifwin(int n1, int n2, int n3, int n4) { mv_tracef("tifwin(%d, %d, %d, %d)", n1, n2, n3, n4); mv_unavailable("tifwin"); }
/*timopt*/ void timopt(void) { mv_tracef("timopt()"); mv_unavailable("timopt"); }
/*titpos*/ void titpos(const char *c) { mv_tracef("titpos(%s)", TSTR(c)); mv_unavailable("titpos"); }
/*torus3d*/ void torus3d(float x1, float x2, float x3, float x4, float x5, float x6, float x7, float x8, int n1, int n2) { mv_tracef("torus3d(%g, %g, %g, %g, %g, %g, %g, %g, %d, %d)", (double)x1, (double)x2, (double)x3, (double)x4, (double)x5, (double)x6, (double)x7, (double)x8, n1, n2); mv_unavailable("torus3d"); }
/*tprfin*/ void tprfin(void) { mv_tracef("tprfin()"); mv_unavailable("tprfin"); }
/*tprini*/ void tprini(void) { mv_tracef("tprini()"); mv_unavailable("tprini"); }
/*tprmod*/ void tprmod(const char *c1, const char *c2) { mv_tracef("tprmod(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("tprmod"); }
/*tprval*/ void tprval(float x) { mv_tracef("tprval(%g)", (double)x); mv_unavailable("tprval"); }
/*tr3axs*/ void tr3axs(float x1, float x2, float x3, float x4) { mv_tracef("tr3axs(%g, %g, %g, %g)", (double)x1, (double)x2, (double)x3, (double)x4); mv_unavailable("tr3axs"); }
/*tr3res*/ void tr3res(void) { mv_tracef("tr3res()"); mv_unavailable("tr3res"); }
/*tr3rot*/ void tr3rot(float x1, float x2, float x3) { mv_tracef("tr3rot(%g, %g, %g)", (double)x1, (double)x2, (double)x3); mv_unavailable("tr3rot"); }
/*tr3scl*/ void tr3scl(float x1, float x2, float x3) { mv_tracef("tr3scl(%g, %g, %g)", (double)x1, (double)x2, (double)x3); mv_unavailable("tr3scl"); }
/*tr3shf*/ void tr3shf(float x1, float x2, float x3) { mv_tracef("tr3shf(%g, %g, %g)", (double)x1, (double)x2, (double)x3); mv_unavailable("tr3shf"); }
/*trfco1*/ void trfco1(float * /*xray*/, int n, const char *cfrom, const char *cto) { mv_tracef("trfco1(xray=%s, n=%d, cfrom=%s, cto=%s)", TARR(n, "floats"), n, TSTR(cfrom), TSTR(cto)); mv_unavailable("trfco1"); }
/*trfco2*/ void trfco2(float * /*xray*/, float * /*yray*/, int n, const char *cfrom, const char *cto) { mv_tracef("trfco2(xray=%s, yray=%s, n=%d, cfrom=%s, cto=%s)", TARR(n, "floats"), TARR(n, "floats"), n, TSTR(cfrom), TSTR(cto)); mv_unavailable("trfco2"); }
/*trfco3*/ void trfco3(float * /*xray*/, float * /*yray*/, float * /*zray*/, int n, const char *cfrom, const char *cto) { mv_tracef("trfco3(xray=%s, yray=%s, zray=%s, n=%d, cfrom=%s, cto=%s)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n, TSTR(cfrom), TSTR(cto)); mv_unavailable("trfco3"); }
/*trfdat*/ void trfdat(int ndays, int *iday, int *imon, int *iyear) { mv_tracef("trfdat(ndays=%d, iday=out, imon=out, iyear=out)", ndays); SET0(iday); SET0(imon); SET0(iyear); mv_unavailable("trfdat"); }
/*trfmat*/ void trfmat(const float * /*zmat*/, int nx, int ny, float *zmat2, int nx2, int ny2) { mv_tracef("trfmat(zmat=%s, nx=%d, ny=%d, zmat2=%s, nx2=%d, ny2=%d)", TARR(nx*ny, "floats"), nx, ny, TARR(nx2*ny2, "floats out"), nx2, ny2); ZERO(zmat2, nx2*ny2); mv_unavailable("trfmat"); }
/*trfrel*/ void trfrel(float * /*xray*/, float * /*yray*/, int n) { mv_tracef("trfrel(xray=%s, yray=%s, n=%d)", TARR(n, "floats"), TARR(n, "floats"), n); mv_unavailable("trfrel"); }
/*trfres*/ void trfres(void) { mv_tracef("trfres()"); mv_unavailable("trfres"); }
/*trfrot*/ void trfrot(float x, int n1, int n2) { mv_tracef("trfrot(%g, %d, %d)", (double)x, n1, n2); mv_unavailable("trfrot"); }
/*trfscl*/ void trfscl(float x1, float x2) { mv_tracef("trfscl(%g, %g)", (double)x1, (double)x2); mv_unavailable("trfscl"); }
/*trfshf*/ void trfshf(int n1, int n2) { mv_tracef("trfshf(%d, %d)", n1, n2); mv_unavailable("trfshf"); }
/*tria3d*/ void tria3d(const float * /*xray*/, const float * /*yray*/, const float * /*zray*/) { mv_tracef("tria3d(xray=%s, yray=%s, zray=%s)", TARR(3, "floats"), TARR(3, "floats"), TARR(3, "floats")); mv_unavailable("tria3d"); }
/*triang*/ void triang(const float * /*xray*/, const float * /*yray*/, int n, int *i1ray, int *i2ray, int *i3ray, int nmax, int *ntri) { mv_tracef("triang(xray=%s, yray=%s, n=%d, i1ray=%s, i2ray=%s, i3ray=%s, nmax=%d, ntri=out)", TARR(n, "floats"), TARR(n, "floats"), n, TARR(nmax, "ints out"), TARR(nmax, "ints out"), TARR(nmax, "ints out"), nmax); ZERO(i1ray, nmax); ZERO(i2ray, nmax); ZERO(i3ray, nmax); SET0(ntri); mv_unavailable("triang"); }
/*triflc*/ void triflc(const float * /*xray*/, const float * /*yray*/, const int * /*icray*/, int n) { mv_tracef("triflc(xray=%s, yray=%s, icray=%s, n=%d)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "ints"), n); mv_unavailable("triflc"); }
/*trifll*/ void trifll(const float * /*xray*/, const float * /*yray*/) { mv_tracef("trifll(xray=%s, yray=%s)", TARR(3, "floats"), TARR(3, "floats")); mv_unavailable("trifll"); }
/*tripts*/ void tripts(const float * /*xray*/, const float * /*yray*/, const float * /*zray*/, int n, const int * /*i1ray*/, const int * /*i2ray*/, const int * /*i3ray*/, int ntri, float zlev, float *xpts, float *ypts, int maxpts, int *iray, int maxray, int *nlins) { mv_tracef("tripts(xray=%s, yray=%s, zray=%s, n=%d, i1ray=%s, i2ray=%s, i3ray=%s, ntri=%d, zlev=%g, xpts=%s, ypts=%s, maxpts=%d, iray=%s, maxray=%d, nlins=out)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n, TARR(ntri, "ints"), TARR(ntri, "ints"), TARR(ntri, "ints"), ntri, (double)zlev, TARR(maxpts, "floats out"), TARR(maxpts, "floats out"), maxpts, TARR(maxray, "ints out"), maxray); ZERO(xpts, maxpts); ZERO(ypts, maxpts); ZERO(iray, maxray); SET0(nlins); mv_unavailable("tripts"); }
/*tube3d*/ void tube3d(float x1, float x2, float x3, float x4, float x5, float x6, float x7, int n1, int n2) { mv_tracef("tube3d(%g, %g, %g, %g, %g, %g, %g, %d, %d)", (double)x1, (double)x2, (double)x3, (double)x4, (double)x5, (double)x6, (double)x7, n1, n2); mv_unavailable("tube3d"); }
/*txtmod*/ void txtmod(const char *c) { mv_tracef("txtmod(%s)", TSTR(c)); mv_unavailable("txtmod"); }
/*txtopt*/ void txtopt(const char *c1, const char *c2) { mv_tracef("txtopt(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("txtopt"); }
/*txtbgd*/ void txtbgd(int n) { mv_tracef("txtbgd(%d)", n); mv_unavailable("txtbgd"); }
/*txture*/ void txture(int *itmat, int nx, int ny) { mv_tracef("txture(itmat=%s, nx=%d, ny=%d)", TARR(nx*ny, "ints out"), nx, ny); ZERO(itmat, nx*ny); mv_unavailable("txture"); }
/*unit*/ void unit(int n) { mv_tracef("unit(%d)", n); mv_unavailable("unit"); }
/*units*/ void units(const char *c) { mv_tracef("units(%s)", TSTR(c)); mv_unavailable("units"); }
/*utfint*/ void utfint(const char *cstr, int *iray, int nmax, int *nl) { mv_tracef("utfint(cstr=%s, iray=%s, nmax=%d, nl=out)", TSTR(cstr), TARR(nmax, "ints out"), nmax); ZERO(iray, nmax); SET0(nl); mv_unavailable("utfint"); }
/*vclp3d*/ void vclp3d(float x1, float x2) { mv_tracef("vclp3d(%g, %g)", (double)x1, (double)x2); mv_unavailable("vclp3d"); }
/*vecclr*/ void vecclr(int n) { mv_tracef("vecclr(%d)", n); mv_unavailable("vecclr"); }
/*vecfld*/ void vecfld(const float * /*xv*/, const float * /*yv*/, const float * /*xp*/, const float * /*yp*/, int n, int ivec) { mv_tracef("vecfld(xv=%s, yv=%s, xp=%s, yp=%s, n=%d, ivec=%d)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n, ivec); mv_unavailable("vecfld"); }
/*vecf3d*/ void vecf3d(const float * /*xv*/, const float * /*yv*/, const float * /*zv*/, const float * /*xp*/, const float * /*yp*/, const float * /*zp*/, int n, int ivec) { mv_tracef("vecf3d(xv=%s, yv=%s, zv=%s, xp=%s, yp=%s, zp=%s, n=%d, ivec=%d)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n, ivec); mv_unavailable("vecf3d"); }
/*vecmat*/ void vecmat(const float * /*xv*/, const float * /*yv*/, int nx, int ny, const float * /*xp*/, const float * /*yp*/, int ivec) { mv_tracef("vecmat(xv=%s, yv=%s, nx=%d, ny=%d, xp=%s, yp=%s, ivec=%d)", TARR(nx*ny, "floats"), TARR(nx*ny, "floats"), nx, ny, TARR(nx, "floats"), TARR(ny, "floats"), ivec); mv_unavailable("vecmat"); }
/*vecmat3d*/ void vecmat3d(const float * /*xv*/, const float * /*yv*/, const float * /*zv*/, int nx, int ny, int nz, const float * /*xp*/, const float * /*yp*/, const float * /*zp*/, int ivec) { mv_tracef("vecmat3d(xv=%s, yv=%s, zv=%s, nx=%d, ny=%d, nz=%d, xp=%s, yp=%s, zp=%s, ivec=%d)", TARR(nx*ny*nz, "floats"), TARR(nx*ny*nz, "floats"), TARR(nx*ny*nz, "floats"), nx, ny, nz, TARR(nx, "floats"), TARR(ny, "floats"), TARR(nz, "floats"), ivec); mv_unavailable("vecmat3d"); }
/*vecopt*/ void vecopt(float x, const char *c) { mv_tracef("vecopt(%g, %s)", (double)x, TSTR(c)); mv_unavailable("vecopt"); }
/*vector*/ void vector(int nx1, int ny1, int nx2, int ny2, int ivec) { mv_tracef("vector(%d, %d, %d, %d, %d)", nx1, ny1, nx2, ny2, ivec); mv_unavailable("vector"); }
/*vfoc3d*/ void vfoc3d(float x1, float x2, float x3, const char *c) { mv_tracef("vfoc3d(%g, %g, %g, %s)", (double)x1, (double)x2, (double)x3, TSTR(c)); mv_unavailable("vfoc3d"); }
/*vltfil*/ void vltfil(const char *c1, const char *c2) { mv_tracef("vltfil(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("vltfil"); }
/*vscl3d*/ void vscl3d(float x) { mv_tracef("vscl3d(%g)", (double)x); mv_unavailable("vscl3d"); }
/*vtx3d*/ void vtx3d(const float * /*xray*/, const float * /*yray*/, const float * /*zray*/, int n, const char *copt) { mv_tracef("vtx3d(xray=%s, yray=%s, zray=%s, n=%d, copt=%s)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n, TSTR(copt)); mv_unavailable("vtx3d"); }
/*vtxc3d*/ void vtxc3d(const float * /*xray*/, const float * /*yray*/, const float * /*zray*/, const int * /*icray*/, int n, const char *copt) { mv_tracef("vtxc3d(xray=%s, yray=%s, zray=%s, icray=%s, n=%d, copt=%s)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "ints"), n, TSTR(copt)); mv_unavailable("vtxc3d"); }
/*vtxn3d*/ void vtxn3d(const float * /*xray*/, const float * /*yray*/, const float * /*zray*/, const float * /*xn*/, const float * /*yn*/, const float * /*zn*/, int n, const char *copt) { mv_tracef("vtxn3d(xray=%s, yray=%s, zray=%s, xn=%s, yn=%s, zn=%s, n=%d, copt=%s)", TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), TARR(n, "floats"), n, TSTR(copt)); mv_unavailable("vtxn3d"); }
/*wgfin*/ void wgfin(void) { mv_tracef("wgfin()"); mv_unavailable("wgfin"); }
/*wimage*/ void wimage(const char *c) { mv_tracef("wimage(%s)", TSTR(c)); mv_unavailable("wimage"); }
/*wincbk*/ void wincbk(MvWindowCb /*cb*/, const char *copt) { mv_tracef("wincbk(cb=callback, copt=%s)", TSTR(copt)); mv_unavailable("wincbk"); }
/*windbr*/ void windbr(float x1, int n1, int n2, int n3, float x2) { mv_tracef("windbr(%g, %d, %d, %d, %g)", (double)x1, n1, n2, n3, (double)x2); mv_unavailable("windbr"); }
/*window*/ void window(int n1, int n2, int n3, int n4) { mv_tracef("window(%d, %d, %d, %d)", n1, n2, n3, n4); mv_unavailable("window"); }
/*winfnt*/ void winfnt(const char *c) { mv_tracef("winfnt(%s)", TSTR(c)); mv_unavailable("winfnt"); }
/*winico*/ void winico(const char *c) { mv_tracef("winico(%s)", TSTR(c)); mv_unavailable("winico"); }
/*winjus*/ void winjus(const char *c) { mv_tracef("winjus(%s)", TSTR(c)); mv_unavailable("winjus"); }
/*winkey*/ void winkey(const char *c) { mv_tracef("winkey(%s)", TSTR(c)); mv_unavailable("winkey"); }
/*winmod*/ void winmod(const char *cmod) { mv_tracef("winmod(%s)", TSTR(cmod)); mv_unavailable("winmod"); }
/*winopt*/ void winopt(int n, const char *c) { mv_tracef("winopt(%d, %s)", n, TSTR(c)); mv_unavailable("winopt"); }
/*wintit*/ void wintit(const char *c) { mv_tracef("wintit(%s)", TSTR(c)); mv_unavailable("wintit"); }
/*wintyp*/ void wintyp(const char *c) { mv_tracef("wintyp(%s)", TSTR(c)); mv_unavailable("wintyp"); }
/*wmfmod*/ void wmfmod(const char *c1, const char *c2) { mv_tracef("wmfmod(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("wmfmod"); }
/*world*/ void world(void) { mv_tracef("world()"); mv_unavailable("world"); }
/*wpixel*/ void wpixel(int n1, int n2, int n3) { mv_tracef("wpixel(%d, %d, %d)", n1, n2, n3); mv_unavailable("wpixel"); }
/*wpixls*/ void wpixls(const unsigned char * /*iray*/, int ix, int iy, int nw, int nh) { mv_tracef("wpixls(iray=%s, ix=%d, iy=%d, nw=%d, nh=%d)", TARR(nw*nh, "bytes"), ix, iy, nw, nh); mv_unavailable("wpixls"); }
/*wpxrow*/ void wpxrow(const unsigned char * /*iray*/, int ix, int iy, int n) { mv_tracef("wpxrow(iray=%s, ix=%d, iy=%d, n=%d)", TARR(n, "bytes"), ix, iy, n); mv_unavailable("wpxrow"); }
/*wtiff*/ void wtiff(const char *c) { mv_tracef("wtiff(%s)", TSTR(c)); mv_unavailable("wtiff"); }
/*x11fnt*/ void x11fnt(const char *c1, const char *c2) { mv_tracef("x11fnt(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("x11fnt"); }
/*x11mod*/ void x11mod(const char *c) { mv_tracef("x11mod(%s)", TSTR(c)); mv_unavailable("x11mod"); }
/*xaxis*/ void xaxis(float a, float b, float orig, float step, int nl, const char *cstr, int it, int nx, int ny) { mv_tracef("xaxis(%g, %g, %g, %g, %d, %s, %d, %d, %d)", (double)a, (double)b, (double)orig, (double)step, nl, TSTR(cstr), it, nx, ny); mv_unavailable("xaxis"); }
/*xaxlg*/ void xaxlg(float x1, float x2, float x3, float x4, int n1, const char *c, int n2, int n3, int n4) { mv_tracef("xaxlg(%g, %g, %g, %g, %d, %s, %d, %d, %d)", (double)x1, (double)x2, (double)x3, (double)x4, n1, TSTR(c), n2, n3, n4); mv_unavailable("xaxlg"); }
/*xaxmap*/ void xaxmap(float x1, float x2, float x3, float x4, const char *c, int n1, int n2) { mv_tracef("xaxmap(%g, %g, %g, %g, %s, %d, %d)", (double)x1, (double)x2, (double)x3, (double)x4, TSTR(c), n1, n2); mv_unavailable("xaxmap"); }
/*xcross*/ void xcross(void) { mv_tracef("xcross()"); mv_unavailable("xcross"); }
/*xdraw*/ void xdraw(float x1, float x2) { mv_tracef("xdraw(%g, %g)", (double)x1, (double)x2); mv_unavailable("xdraw"); }
/*xmove*/ void xmove(float x1, float x2) { mv_tracef("xmove(%g, %g)", (double)x1, (double)x2); mv_unavailable("xmove"); }
/*yaxis*/ void yaxis(float a, float b, float orig, float step, int nl, const char *cstr, int it, int nx, int ny) { mv_tracef("yaxis(%g, %g, %g, %g, %d, %s, %d, %d, %d)", (double)a, (double)b, (double)orig, (double)step, nl, TSTR(cstr), it, nx, ny); mv_unavailable("yaxis"); }
/*yaxlg*/ void yaxlg(float x1, float x2, float x3, float x4, int n1, const char *c, int n2, int n3, int n4) { mv_tracef("yaxlg(%g, %g, %g, %g, %d, %s, %d, %d, %d)", (double)x1, (double)x2, (double)x3, (double)x4, n1, TSTR(c), n2, n3, n4); mv_unavailable("yaxlg"); }
/*yaxmap*/ void yaxmap(float x1, float x2, float x3, float x4, const char *c, int n1, int n2) { mv_tracef("yaxmap(%g, %g, %g, %g, %s, %d, %d)", (double)x1, (double)x2, (double)x3, (double)x4, TSTR(c), n1, n2); mv_unavailable("yaxmap"); }
/*ycross*/ void ycross(void) { mv_tracef("ycross()"); mv_unavailable("ycross"); }
/*ypolar*/ void ypolar(float x1, float x2, float x3, float x4, const char *c, int n) { mv_tracef("ypolar(%g, %g, %g, %g, %s, %d)", (double)x1, (double)x2, (double)x3, (double)x4, TSTR(c), n); mv_unavailable("ypolar"); }
/*zaxis*/ void zaxis(float a, float b, float orig, float step, int nl, const char *cstr, int it, int ndir, int nx, int ny) { mv_tracef("zaxis(%g, %g, %g, %g, %d, %s, %d, %d, %d, %d)", (double)a, (double)b, (double)orig, (double)step, nl, TSTR(cstr), it, ndir, nx, ny); mv_unavailable("zaxis"); }
/*zaxlg*/ void zaxlg(float x1, float x2, float x3, float x4, int n1, const char *c, int n2, int n3, int n4, int n5) { mv_tracef("zaxlg(%g, %g, %g, %g, %d, %s, %d, %d, %d, %d)", (double)x1, (double)x2, (double)x3, (double)x4, n1, TSTR(c), n2, n3, n4, n5); mv_unavailable("zaxlg"); }
/*zbfers*/ void zbfers(void) { mv_tracef("zbfers()"); mv_unavailable("zbfers"); }
/*zbffin*/ void zbffin(void) { mv_tracef("zbffin()"); mv_unavailable("zbffin"); }
/*zbflin*/ void zbflin(float x1, float x2, float x3, float x4, float x5, float x6) { mv_tracef("zbflin(%g, %g, %g, %g, %g, %g)", (double)x1, (double)x2, (double)x3, (double)x4, (double)x5, (double)x6); mv_unavailable("zbflin"); }
/*zbfmod*/ void zbfmod(const char *c) { mv_tracef("zbfmod(%s)", TSTR(c)); mv_unavailable("zbfmod"); }
/*zbfres*/ void zbfres(void) { mv_tracef("zbfres()"); mv_unavailable("zbfres"); }
/*zbfscl*/ void zbfscl(float x) { mv_tracef("zbfscl(%g)", (double)x); mv_unavailable("zbfscl"); }
/*zbftri*/ void zbftri(const float * /*xray*/, const float * /*yray*/, const float * /*zray*/, const int * /*icray*/) { mv_tracef("zbftri(xray=%s, yray=%s, zray=%s, icray=%s)", TARR(3, "floats"), TARR(3, "floats"), TARR(3, "floats"), TARR(3, "ints")); mv_unavailable("zbftri"); }
/*zscale*/ void zscale(float x1, float x2) { mv_tracef("zscale(%g, %g)", (double)x1, (double)x2); mv_unavailable("zscale"); }
/*closfl*/ int closfl(int nu) { mv_tracef("closfl(%d)", nu); mv_unavailable("closfl"); return 0; }
/*csrkey*/ int csrkey(void) { mv_tracef("csrkey()"); mv_unavailable("csrkey"); return 0; }
/*csrpos*/ int csrpos(int *nx, int *ny) { mv_tracef("csrpos(nx=%d, ny=%d)", nx ? *nx : 0, ny ? *ny : 0); mv_unavailable("csrpos"); return 0; }
/*dbfini*/ int dbfini(void) { mv_tracef("dbfini()"); mv_unavailable("dbfini"); return 0; }
/*dwgbut*/ int dwgbut(const char *c, int n) { mv_tracef("dwgbut(%s, %d)", TSTR(c), n); mv_unavailable("dwgbut"); return 0; }
/*dwgerr*/ int dwgerr(void) { mv_tracef("dwgerr()"); mv_unavailable("dwgerr"); return 0; }
/*dwgfil*/ const char *dwgfil(const char *c1, const char *c2, const char *c3) { mv_tracef("dwgfil(%s, %s, %s)", TSTR(c1), TSTR(c2), TSTR(c3)); mv_unavailable("dwgfil"); return ""; }
/*dwglis*/ int dwglis(const char *c1, const char *c2, int n) { mv_tracef("dwglis(%s, %s, %d)", TSTR(c1), TSTR(c2), n); mv_unavailable("dwglis"); return 0; }
/*dwgtxt*/ const char *dwgtxt(const char *c1, const char *c2) { mv_tracef("dwgtxt(%s, %s)", TSTR(c1), TSTR(c2)); mv_unavailable("dwgtxt"); return ""; }
/*filsiz*/ int filsiz(const char *cfil, int *nw, int *nh) { mv_tracef("filsiz(cfil=%s, nw=out, nh=out)", TSTR(cfil)); SET0(nw); SET0(nh); mv_unavailable("filsiz"); return 0; }
/*filtyp*/ int filtyp(const char *c) { mv_tracef("filtyp(%s)", TSTR(c)); mv_unavailable("filtyp"); return 0; }
/*fitsflt*/ double fitsflt(const char *c) { mv_tracef("fitsflt(%s)", TSTR(c)); mv_unavailable("fitsflt"); return 0.0; }
/*fitshdu*/ int fitshdu(int n) { mv_tracef("fitshdu(%d)", n); mv_unavailable("fitshdu"); return 0; }
/*fitsimg*/ int fitsimg(void *iray, int nmax) { mv_tracef("fitsimg(iray=%s, nmax=%d)", TARR(nmax, "bytes out"), nmax); ZERO(iray, nmax); mv_unavailable("fitsimg"); return 0; }
/*fitsopn*/ int fitsopn(const char *c) { mv_tracef("fitsopn(%s)", TSTR(c)); mv_unavailable("fitsopn"); return 0; }
/*fitsstr*/ const char *fitsstr(const char *c) { mv_tracef("fitsstr(%s)", TSTR(c)); mv_unavailable("fitsstr"); return ""; }
/*fitstyp*/ int fitstyp(const char *c) { mv_tracef("fitstyp(%s)", TSTR(c)); mv_unavailable("fitstyp"); return 0; }
/*fitsval*/ int fitsval(const char *c) { mv_tracef("fitsval(%s)", TSTR(c)); mv_unavailable("fitsval"); return 0; }
/*getalf*/ const char *getalf(void) { mv_tracef("getalf()"); mv_unavailable("getalf"); return ""; }
/*getblk*/ int getblk(void) { mv_tracef("getblk()"); mv_unavailable("getblk"); return 0; }
/*getdfl*/ int getdfl(void) { mv_tracef("getdfl()"); mv_unavailable("getdfl"); return 0; }
/*getdsp*/ const char *getdsp(void) { mv_tracef("getdsp()"); mv_unavailable("getdsp"); return ""; }
/*getlit*/ int getlit(float xp, float yp, float zp, float xn, float yn, float zn) { mv_tracef("getlit(%g, %g, %g, %g, %g, %g)", (double)xp, (double)yp, (double)zp, (double)xn, (double)yn, (double)zn); mv_unavailable("getlit"); return 0; }
/*getplv*/ int getplv(void) { mv_tracef("getplv()"); mv_unavailable("getplv"); return 0; }
/*getmix*/ const char *getmix(const char *c) { mv_tracef("getmix(%s)", TSTR(c)); mv_unavailable("getmix"); return ""; }
/*getshf*/ const char *getshf(const char *c) { mv_tracef("getshf(%s)", TSTR(c)); mv_unavailable("getshf"); return ""; }
/*getuni*/ int getuni(void) { mv_tracef("getuni()"); mv_unavailable("getuni"); return 0; }
/*getver*/ double getver(void) { mv_tracef("getver()"); mv_unavailable("getver"); return 0.0; }
/*getwid*/ int getwid(void) { mv_tracef("getwid()"); mv_unavailable("getwid"); return 0; }
/*getxid*/ int getxid(const char *c) { mv_tracef("getxid(%s)", TSTR(c)); mv_unavailable("getxid"); return 0; }
/*gmxalf*/ const char *gmxalf(const char *copt, char *c1, char *c2) { mv_tracef("gmxalf(copt=%s, c1=out, c2=out)", TSTR(copt)); TEXT0(c1); TEXT0(c2); mv_unavailable("gmxalf"); return ""; }
/*gwgatt*/ int gwgatt(int n, const char *c) { mv_tracef("gwgatt(%d, %s)", n, TSTR(c)); mv_unavailable("gwgatt"); return 0; }
/*gwgbox*/ int gwgbox(int n) { mv_tracef("gwgbox(%d)", n); mv_unavailable("gwgbox"); return 0; }
/*gwgbut*/ int gwgbut(int n) { mv_tracef("gwgbut(%d)", n); mv_unavailable("gwgbut"); return 0; }
/*gwgfil*/ const char *gwgfil(int n) { mv_tracef("gwgfil(%d)", n); mv_unavailable("gwgfil"); return ""; }
/*gwgflt*/ double gwgflt(int n) { mv_tracef("gwgflt(%d)", n); mv_unavailable("gwgflt"); return 0.0; }
/*gwggui*/ int gwggui(void) { mv_tracef("gwggui()"); mv_unavailable("gwggui"); return 0; }
/*gwgint*/ int gwgint(int n) { mv_tracef("gwgint(%d)", n); mv_unavailable("gwgint"); return 0; }
/*gwglis*/ int gwglis(int n) { mv_tracef("gwglis(%d)", n); mv_unavailable("gwglis"); return 0; }
/*gwgscl*/ double gwgscl(int n) { mv_tracef("gwgscl(%d)", n); mv_unavailable("gwgscl"); return 0.0; }
/*gwgtbf*/ double gwgtbf(int n1, int n2, int n3) { mv_tracef("gwgtbf(%d, %d, %d)", n1, n2, n3); mv_unavailable("gwgtbf"); return 0.0; }
/*gwgtbi*/ int gwgtbi(int n1, int n2, int n3) { mv_tracef("gwgtbi(%d, %d, %d)", n1, n2, n3); mv_unavailable("gwgtbi"); return 0; }
/*gwgtbs*/ const char *gwgtbs(int n1, int n2, int n3) { mv_tracef("gwgtbs(%d, %d, %d)", n1, n2, n3); mv_unavailable("gwgtbs"); return ""; }
/*gwgtxt*/ const char *gwgtxt(int n) { mv_tracef("gwgtxt(%d)", n); mv_unavailable("gwgtxt"); return ""; }
/*gwgxid*/ int gwgxid(int n) { mv_tracef("gwgxid(%d)", n); mv_unavailable("gwgxid"); return 0; }
/*incdat*/ int incdat(int iday, int imon, int iyear) { mv_tracef("incdat(%d, %d, %d)", iday, imon, iyear); mv_unavailable("incdat"); return 0; }
/*indrgb*/ int indrgb(float r, float g, float b) { mv_tracef("indrgb(%g, %g, %g)", (double)r, (double)g, (double)b); mv_unavailable("indrgb"); return 0; }
/*intrgb*/ int intrgb(float r, float g, float b) { mv_tracef("intrgb(%g, %g, %g)", (double)r, (double)g, (double)b); mv_unavailable("intrgb"); return 0; }
/*ldimg*/ int ldimg(const char *cfil, short *iray, int nmax, int ncolor) { mv_tracef("ldimg(cfil=%s, iray=%s, nmax=%d, ncolor=%d)", TSTR(cfil), TARR(nmax, "shorts out"), nmax, ncolor); ZERO(iray, nmax); mv_unavailable("ldimg"); return 0; }
/*nwkday*/ int nwkday(int iday, int imon, int iyear) { mv_tracef("nwkday(%d, %d, %d)", iday, imon, iyear); mv_unavailable("nwkday"); return 0; }
/*nxlegn*/ int nxlegn(const char *cbuf) { mv_tracef("nxlegn(%s)", TSTR(cbuf)); mv_unavailable("nxlegn"); return 0; }
/*nxpixl*/ int nxpixl(int ix, int iy) { mv_tracef("nxpixl(%d, %d)", ix, iy); mv_unavailable("nxpixl"); return 0; }
/*nylegn*/ int nylegn(const char *cbuf) { mv_tracef("nylegn(%s)", TSTR(cbuf)); mv_unavailable("nylegn"); return 0; }
/*nypixl*/ int nypixl(int ix, int iy) { mv_tracef("nypixl(%d, %d)", ix, iy); mv_unavailable("nypixl"); return 0; }
/*openfl*/ int openfl(const char *cfil, int nlu, int irw) { mv_tracef("openfl(%s, %d, %d)", TSTR(cfil), nlu, irw); mv_unavailable("openfl"); return 0; }
/*pdfbuf*/ int pdfbuf(void *iray, int nmax) { mv_tracef("pdfbuf(iray=%s, nmax=%d)", TARR(nmax, "bytes out"), nmax); ZERO(iray, nmax); mv_unavailable("pdfbuf"); return 0; }
/*posifl*/ int posifl(int nu, int nbyte) { mv_tracef("posifl(%d, %d)", nu, nbyte); mv_unavailable("posifl"); return 0; }
/*rbfpng*/ int rbfpng(void *iray, int nmax) { mv_tracef("rbfpng(iray=%s, nmax=%d)", TARR(nmax, "bytes out"), nmax); ZERO(iray, nmax); mv_unavailable("rbfpng"); return 0; }
/*readfl*/ int readfl(int nu, void *iray, int nmax) { mv_tracef("readfl(nu=%d, iray=%s, nmax=%d)", nu, TARR(nmax, "bytes out"), nmax); ZERO(iray, nmax); mv_unavailable("readfl"); return 0; }
/*skipfl*/ int skipfl(int nu, int nbyte) { mv_tracef("skipfl(%d, %d)", nu, nbyte); mv_unavailable("skipfl"); return 0; }
/*tellfl*/ int tellfl(int nu) { mv_tracef("tellfl(%d)", nu); mv_unavailable("tellfl"); return 0; }
/*wgapp*/ int wgapp(int n, const char *c) { mv_tracef("wgapp(%d, %s)", n, TSTR(c)); mv_unavailable("wgapp"); return 0; }
/*wgappb*/ int wgappb(int ip, const unsigned char * /*iray*/, int nw, int nh) { mv_tracef("wgappb(ip=%d, iray=[bytes], nw=%d, nh=%d)", ip, nw, nh); mv_unavailable("wgappb"); return 0; }
/*wgbas*/ int wgbas(int n, const char *c) { mv_tracef("wgbas(%d, %s)", n, TSTR(c)); mv_unavailable("wgbas"); return 0; }
/*wgbox*/ int wgbox(int n1, const char *c, int n2) { mv_tracef("wgbox(%d, %s, %d)", n1, TSTR(c), n2); mv_unavailable("wgbox"); return 0; }
/*wgbut*/ int wgbut(int n1, const char *c, int n2) { mv_tracef("wgbut(%d, %s, %d)", n1, TSTR(c), n2); mv_unavailable("wgbut"); return 0; }
/*wgcmd*/ int wgcmd(int n, const char *c1, const char *c2) { mv_tracef("wgcmd(%d, %s, %s)", n, TSTR(c1), TSTR(c2)); mv_unavailable("wgcmd"); return 0; }
/*wgdlis*/ int wgdlis(int n1, const char *c, int n2) { mv_tracef("wgdlis(%d, %s, %d)", n1, TSTR(c), n2); mv_unavailable("wgdlis"); return 0; }
/*wgdraw*/ int wgdraw(int n) { mv_tracef("wgdraw(%d)", n); mv_unavailable("wgdraw"); return 0; }
/*wgfil*/ int wgfil(int n, const char *c1, const char *c2, const char *c3) { mv_tracef("wgfil(%d, %s, %s, %s)", n, TSTR(c1), TSTR(c2), TSTR(c3)); mv_unavailable("wgfil"); return 0; }
/*wgicon*/ int wgicon(const char *c1, int n1, int n2, const char *c2) { mv_tracef("wgicon(%s, %d, %d, %s)", TSTR(c1), n1, n2, TSTR(c2)); mv_unavailable("wgicon"); return 0; }
/*wgimg*/ int wgimg(const char *copt, const unsigned char * /*iray*/, int nw, int nh) { mv_tracef("wgimg(copt=%s, iray=[bytes], nw=%d, nh=%d)", TSTR(copt), nw, nh); mv_unavailable("wgimg"); return 0; }
/*wgini*/ int wgini(const char *c) { mv_tracef("wgini(%s)", TSTR(c)); mv_unavailable("wgini"); return 0; }
/*wglab*/ int wglab(int n, const char *c) { mv_tracef("wglab(%d, %s)", n, TSTR(c)); mv_unavailable("wglab"); return 0; }
/*wglis*/ int wglis(int n1, const char *c, int n2) { mv_tracef("wglis(%d, %s, %d)", n1, TSTR(c), n2); mv_unavailable("wglis"); return 0; }
/*wgltxt*/ int wgltxt(int n1, const char *c1, const char *c2, int n2) { mv_tracef("wgltxt(%d, %s, %s, %d)", n1, TSTR(c1), TSTR(c2), n2); mv_unavailable("wgltxt"); return 0; }
/*wgok*/ int wgok(int n) { mv_tracef("wgok(%d)", n); mv_unavailable("wgok"); return 0; }
/*wgpbar*/ int wgpbar(int n, float x1, float x2, float x3) { mv_tracef("wgpbar(%d, %g, %g, %g)", n, (double)x1, (double)x2, (double)x3); mv_unavailable("wgpbar"); return 0; }
/*wgpbut*/ int wgpbut(int n, const char *c) { mv_tracef("wgpbut(%d, %s)", n, TSTR(c)); mv_unavailable("wgpbut"); return 0; }
/*wgpicon*/ int wgpicon(const char *c1, int n1, int n2, const char *c2) { mv_tracef("wgpicon(%s, %d, %d, %s)", TSTR(c1), n1, n2, TSTR(c2)); mv_unavailable("wgpicon"); return 0; }
/*wgpimg*/ int wgpimg(const char *copt, const unsigned char * /*iray*/, int nw, int nh) { mv_tracef("wgpimg(copt=%s, iray=[bytes], nw=%d, nh=%d)", TSTR(copt), nw, nh); mv_unavailable("wgpimg"); return 0; }
/*wgpop*/ int wgpop(int n, const char *c) { mv_tracef("wgpop(%d, %s)", n, TSTR(c)); mv_unavailable("wgpop"); return 0; }
/*wgpopb*/ int wgpopb(int ip, const unsigned char * /*iray*/, int nw, int nh) { mv_tracef("wgpopb(ip=%d, iray=[bytes], nw=%d, nh=%d)", ip, nw, nh); mv_unavailable("wgpopb"); return 0; }
/*wgquit*/ int wgquit(int n) { mv_tracef("wgquit(%d)", n); mv_unavailable("wgquit"); return 0; }
/*wgscl*/ int wgscl(int n1, const char *c, float x1, float x2, float x3, int n2) { mv_tracef("wgscl(%d, %s, %g, %g, %g, %d)", n1, TSTR(c), (double)x1, (double)x2, (double)x3, n2); mv_unavailable("wgscl"); return 0; }
/*wgsep*/ int wgsep(int n) { mv_tracef("wgsep(%d)", n); mv_unavailable("wgsep"); return 0; }
/*wgstxt*/ int wgstxt(int n1, int n2, int n3) { mv_tracef("wgstxt(%d, %d, %d)", n1, n2, n3); mv_unavailable("wgstxt"); return 0; }
/*wgtbl*/ int wgtbl(int n1, int n2, int n3) { mv_tracef("wgtbl(%d, %d, %d)", n1, n2, n3); mv_unavailable("wgtbl"); return 0; }
/*wgtxt*/ int wgtxt(int n, const char *c) { mv_tracef("wgtxt(%d, %s)", n, TSTR(c)); mv_unavailable("wgtxt"); return 0; }
/*winid*/ int winid(void) { mv_tracef("winid()"); mv_unavailable("winid"); return 0; }
/*writfl*/ int writfl(int nu, const void * /*iray*/, int nmax) { mv_tracef("writfl(nu=%d, iray=%s, nmax=%d)", nu, TARR(nmax, "bytes"), nmax); mv_unavailable("writfl"); return 0; }
/*x2dpos*/ double x2dpos(float x, float y) { mv_tracef("x2dpos(%g, %g)", (double)x, (double)y); mv_unavailable("x2dpos"); return 0.0; }
/*x3dabs*/ double x3dabs(float x, float y, float z) { mv_tracef("x3dabs(%g, %g, %g)", (double)x, (double)y, (double)z); mv_unavailable("x3dabs"); return 0.0; }
/*x3dpos*/ double x3dpos(float x, float y, float z) { mv_tracef("x3dpos(%g, %g, %g)", (double)x, (double)y, (double)z); mv_unavailable("x3dpos"); return 0.0; }
/*x3drel*/ double x3drel(float x, float y, float z) { mv_tracef("x3drel(%g, %g, %g)", (double)x, (double)y, (double)z); mv_unavailable("x3drel"); return 0.0; }
/*y2dpos*/ double y2dpos(float x, float y) { mv_tracef("y2dpos(%g, %g)", (double)x, (double)y); mv_unavailable("y2dpos"); return 0.0; }
/*y3dabs*/ double y3dabs(float x, float y, float z) { mv_tracef("y3dabs(%g, %g, %g)", (double)x, (double)y, (double)z); mv_unavailable("y3dabs"); return 0.0; }
/*y3dpos*/ double y3dpos(float x, float y, float z) { mv_tracef("y3dpos(%g, %g, %g)", (double)x, (double)y, (double)z); mv_unavailable("y3dpos"); return 0.0; }
/*y3drel*/ double y3drel(float x, float y, float z) { mv_tracef("y3drel(%g, %g, %g)", (double)x, (double)y, (double)z); mv_unavailable("y3drel"); return 0.0; }
/*z3dpos*/ double z3dpos(float x, float y, float z) { mv_tracef("z3dpos(%g, %g, %g)", (double)x, (double)y, (double)z); mv_unavailable("z3dpos"); return 0.0; }
/*zbfini*/ int zbfini(void) { mv_tracef("zbfini()"); mv_unavailable("zbfini"); return 0; }

}  // extern "C"
