/* mirval.h - public interface of the plotting library libmirval.
 *
 * Every routine and function carries its lower-case name, with C linkage, and takes its
 * arguments in the order of its argument list:
 *   - integers are int, floating values float, texts const char * (NUL-terminated, UTF-8);
 *   - arrays are pointers to their first element, const when the routine only reads them;
 *     2-D and 3-D matrices are contiguous (zmat[i * ny + j] for point (x[i], y[j]));
 *   - outputs are pointers: coordinates and values float *, counts, indexes and colours
 *     int *, texts char * buffers; an output array holds as many elements as the integer
 *     argument that gives its size (for example np in bezier, nmax in triang);
 *   - a text output without a size argument is at most 80 characters: pass 81 bytes or more.
 * Functions return int, short (bitsi2), double (positions and floating queries) or a text;
 * a returned text stays valid until the next call of the same function.
 *
 * Callers are notified through plain function pointers (the types below); the library calls
 * them synchronously, from inside the routine or event loop that triggers them.
 */
#ifndef MIRVAL_H
#define MIRVAL_H

#ifdef __cplusplus
extern "C" {
#endif
/* The routines below are all a program sees of the library (it is built with hidden
 * visibility): its inner names never meet those of the libraries it uses. */
#if defined(__GNUC__)
#pragma GCC visibility push(default)
#endif

/* Widget callbacks. swgcb: the widget id and the integer array given at registration.
 * swgcb2: the id only. swgcb3: the id and the row and column of a table widget.
 * swgcbk: the id and the key code pressed. */
typedef void (*MvWidgetCb)(int id, int *iray);
typedef void (*MvWidgetCb2)(int id);
typedef void (*MvWidgetCb3)(int id, int irow, int icol);
typedef void (*MvWidgetKeyCb)(int id, int key);
/* Pie segment (piecbk): segment number from 1, its value and percentage; the callee may
 * change the segment's radius, offset, label angle, label vector, whether the segment is
 * drawn (idrw) and whether it is labelled (ilab) through the pointers. */
typedef void (*MvPieCb)(int iseg, float xdat, float xper, int *nrad, int *noff, float *angle,
                        int *nvx, int *nvy, int *idrw, int *ilab);
/* Map projection (setcbk): converts the point in place. */
typedef void (*MvProjectionCb)(float *x, float *y);
/* Screen window changed (wincbk): window id, new position and size in pixels. */
typedef void (*MvWindowCb)(int id, int nx, int ny, int nw, int nh);
/* Surface function z = f(x, y) (surfun). */
typedef float (*MvSurfaceFn)(float x, float y);
/* Parametric surface (surfcp): component iop (1 = x, 2 = y, 3 = z) at parameters (a, b). */
typedef float (*MvParamSurfaceFn)(float a, float b, int iop);

/* Helpers shared with the calling program (not traced but mirlog and gfilnn). */
void mirlog(const char *name);                       /* records the calling program's name (the creator of vector files) */
void gfilnn(const char *name);                       /* records a file the caller is about to write, never to be taken as output */
int qqwchk(void);                                    /* 1 when a window display can be opened, else 0 */
float qqfmin(const float *xray, int n);              /* least of n floats (the first element when n < 2) */
float qqfmax(const float *xray, int n);              /* greatest of n floats (the first element when n < 2) */
const char *dddate(void);                            /* today as "dd.mm.yyyy" */
const char *ddtime(void);                            /* the time as "hh:mm:ss" */
int trmlen(const char *text);                        /* length without trailing blanks */
void qqscpy(char *dst, const char *src, int max);    /* copies at most max characters and terminates */
void qqscat(char *dst, const char *src, int max);    /* appends so that dst holds at most max characters */

/* Library levels, starting and ending, messages and tracing. */
void chacod(const char *c);
void chnatt(void);
void delglb(void);
void endgrf(void);
void erase(void);
void errdev(const char *cdev);
void errfil(const char *cfil);
void errmod(const char *cstr, const char *cmode);
void freeptr(void);
int getblk(void);
int getdfl(void);
int getlev(void);                                            /* the level: 0 closed, 1 page, 2 2-D axes, 3 3-D axes (not traced) */
double getver(void);
void mirenv(const char *c);
void mirfin(void);
void mirini(void);
void newpag(void);
void nochek(void);
void resatt(void);
void reset(const char *cname);
void sendbf(void);
void timopt(void);
void unit(int n);
void units(const char *c);

/* Output formats, files and page. */
void bmpmod(int n, const char *c1, const char *c2);
void bufmod(const char *c1, const char *c2);
void center(void);
void cgmbgd(float x1, float x2, float x3);
void cgmpic(const char *c);
void cgmver(int n);
void expimg(const char *c1, const char *c2);
void filbox(int n1, int n2, int n3, int n4);
void filclr(const char *c);
void filmod(const char *cmod);
void filopt(const char *c1, const char *c2);
void filwin(int n1, int n2, int n3, int n4);
void frame(int n);
void frmclr(int n);
void frmess(int n);
const char *getdsp(void);
const char *getfil(void);
const char *getmfl(void);
void getor(int *nx0, int *ny0);
void getpag(int *nxpag, int *nypag);
int getpat(void);
int getplv(void);
void getres(int *npb, int *nph);
int gettyp(void);
int getuni(void);
int getxid(const char *c);
void gifmod(const char *c1, const char *c2);
void hpgmod(const char *c1, const char *c2);
void hwfont(void);
void hwmode(const char *c1, const char *c2);
void hworig(int n1, int n2);
void hwpage(int n1, int n2);
void hwscal(float x);
void imgbox(int n1, int n2, int n3, int n4);
void imgclp(int n1, int n2, int n3, int n4);
void imgfin(void);
void imgfmt(const char *c);
void imgini(void);
void imgmod(const char *c);
void imgsiz(int n1, int n2);
void imgtpr(int n);
void incfil(const char *c);
void metafl(const char *cfmt);
void origin(int nx0, int ny0);
void page(int nxpag, int nypag);
void pagera(void);
void pagfll(int n);
void paghdr(const char *c1, const char *c2, int n1, int n2);
void pagmod(const char *c);
void pagorg(const char *copt);
void pagwin(int n1, int n2);
int pdfbuf(void *iray, int nmax);
void pdfmod(const char *c1, const char *c2);
void pdfmrk(const char *c1, const char *c2);
void plyfin(const char *c1, const char *c2);
void plyini(const char *c);
void pngmod(const char *c1, const char *c2);
void psfont(const char *c);
void psmeta(const char *c1, const char *c2);
void psmode(const char *c);
int rbfpng(void *iray, int nmax);
void revscr(void);
void sclfac(float x);
void sclmod(const char *c);
void scrmod(const char *cmode);
void setfil(const char *cfil);
void setpag(const char *cpag);
void setres(int npb, int nph);
void setxid(int n, const char *c);
void texmod(const char *c);
void texopt(const char *c1, const char *c2);
void texval(float x, const char *c);
void tifmod(int n, const char *c1, const char *c2);
void tiforg(int n1, int n2);
void tifwin(int n1, int n2, int n3, int n4);
int winid(void);
void winsiz(int nw, int nh);
void wmfmod(const char *c1, const char *c2);
void world(void);

/* Axis systems and scaling. */
void autres(int n1, int n2);
void autres3d(int n1, int n2, int n3);
void ax2grf(void);
void ax3len(int nxl, int nyl, int nzl);
void axclrs(int n, const char *c1, const char *c2);
void axends(const char *c1, const char *c2);
void axgit(void);
void axis3d(float x3len, float y3len, float z3len);
void axsbgd(int n);
void axsers(void);
void axslen(int nxl, int nyl);
void axsorg(int n1, int n2);
void axspos(int nxa, int nya);
void axsscl(const char *copt, const char *cax);
void axstyp(const char *c);
void box2d(void);
void box3d(void);
void colran(int n1, int n2);
void cross(void);
void expzlb(const char *c);
void flab3d(void);
void gaxpar(float v1, float v2, const char *copt, const char *cax, float *a, float *b, float *orig, float *step, int *ndig);
void getgrf(float *a, float *e, float *orig, float *step, const char *cax);
void getlen(int *nxl, int *nyl, int *nzl);
void getpos(int *nxa, int *nya);
void getran(int *nca, int *nce);
void getscl(int *ixscl, int *iyscl, int *izscl);
void getscm(int *ixscm, int *iyscm, int *izscm);
void grace(int n);
void graf(float xa, float xe, float xor_, float xstp, float ya, float ye, float yor, float ystp);
void graf3(float xa, float xe, float xor_, float xstp, float ya, float ye, float yor, float ystp, float za, float ze, float zor, float zstp);
void graf3d(float xa, float xe, float xor_, float xstp, float ya, float ye, float yor, float ystp, float za, float ze, float zor, float zstp);
void grafmp(float xa, float xe, float xor_, float xstp, float ya, float ye, float yor, float ystp);
void grafp(float xe, float xor_, float xstp, float yor, float ystp);
void grafr(const float *zre, const float *zimg, int n);
void grdpol(int n1, int n2);
void grffin(void);
void grfimg(const char *c);
void grfini(float x1, float x2, float x3, float x4, float x5, float x6, float x7, float x8, float x9);
void grid(int n1, int n2);
void grid3d(int n1, int n2, const char *c);
void gridim(float x1, float x2, float x3, int n);
void gridre(float x1, float x2, float x3, int n);
void intax(void);
void lfttit(void);
void logtic(const char *c);
void neglog(float x);
void noarln(void);
void nograf(void);
void polar(float x1, float x2, float x3, float x4, float x5);
void rgtlab(void);
void rvynam(void);
void scale(const char *copt, const char *cax);
void setbas(float x);
void setexp(float x);
void setgrf(const char *c1, const char *c2, const char *c3, const char *c4);
void setscl(const float *xray, int n, const char *cax);
void xaxgit(void);
void xaxis(float a, float b, float orig, float step, int nl, const char *cstr, int it, int nx, int ny);
void xaxlg(float x1, float x2, float x3, float x4, int n1, const char *c, int n2, int n3, int n4);
void xcross(void);
void yaxgit(void);
void yaxis(float a, float b, float orig, float step, int nl, const char *cstr, int it, int nx, int ny);
void yaxlg(float x1, float x2, float x3, float x4, int n1, const char *c, int n2, int n3, int n4);
void ycross(void);
void ypolar(float x1, float x2, float x3, float x4, const char *c, int n);
void zaxis(float a, float b, float orig, float step, int nl, const char *cstr, int it, int ndir, int nx, int ny);
void zaxlg(float x1, float x2, float x3, float x4, int n1, const char *c, int n2, int n3, int n4, int n5);
void zscale(float x1, float x2);

/* Axis labels, ticks, names and titles. */
void addlab(const char *c1, float x, int n, const char *c2);
void digits(int ndig, const char *cax);
void getdig(int *nxdig, int *nydig, int *nzdig);
int gethnm(void);
void getlab(char *cxlab, char *cylab, char *czlab);
void getsp1(int *nxdis, int *nydis, int *nzdis);
void getsp2(int *nxdis, int *nydis, int *nzdis);
void gettcl(int *nmaj, int *nmin);
void gettic(int *nxtic, int *nytic, int *nztic);
void getvk(int *nytit, int *nxbar, int *nybar);
void hname(int nhname);
void htitle(int nhtit);
void labclr(int n, const char *c);
void labdig(int n, const char *c);
void labdis(int n, const char *c);
void labels(const char *copt, const char *cax);
void labjus(const char *c1, const char *c2);
void labl3d(const char *c);
void labmod(const char *c1, const char *c2, const char *c3);
void labpos(const char *c1, const char *c2);
void labtyp(const char *c1, const char *c2);
void mylab(const char *c1, int n, const char *c2);
void namdis(int n, const char *c);
void name(const char *cstr, const char *cax);
void namjus(const char *c1, const char *c2);
void numfmt(const char *c);
void numode(const char *c1, const char *c2, const char *c3, const char *c4);
void ticks(int ntics, const char *cax);
void ticlen(int n1, int n2);
void ticmod(const char *c1, const char *c2);
void ticpos(const char *c1, const char *c2);
void titjus(const char *c);
void title(void);
void titlin(const char *cstr, int nlin);
void titpos(const char *c);
void vkytit(int nvfu);

/* Coordinate conversion. */
void abs3pt(float x, float y, float z, float *xp, float *yp);
void getrco(float x, float y, float *xp, float *yp);
int nxposn(float x);
int nyposn(float y);
int nzposn(float z);
void pos2pt(float x, float y, float *xp, float *yp);
void pos3pt(float x, float y, float z, float *xp, float *yp, float *zp);
void pt2pos(float x, float y, float *xp, float *yp);
void rel3pt(float x, float y, float z, float *xp, float *yp);
void tr3axs(float x1, float x2, float x3, float x4);
void tr3res(void);
void tr3rot(float x1, float x2, float x3);
void tr3scl(float x1, float x2, float x3);
void tr3shf(float x1, float x2, float x3);
void trfco1(float *xray, int n, const char *cfrom, const char *cto);
void trfco2(float *xray, float *yray, int n, const char *cfrom, const char *cto);
void trfco3(float *xray, float *yray, float *zray, int n, const char *cfrom, const char *cto);
void trfdat(int ndays, int *iday, int *imon, int *iyear);
void trfmat(const float *zmat, int nx, int ny, float *zmat2, int nx2, int ny2);
void trfrel(float *xray, float *yray, int n);
void trfres(void);
void trfrot(float x, int n1, int n2);
void trfscl(float x1, float x2);
void trfshf(int n1, int n2);
double x2dpos(float x, float y);
double x3dabs(float x, float y, float z);
double x3dpos(float x, float y, float z);
double x3drel(float x, float y, float z);
double xinvrs(int nx);
double xposn(float x);
double y2dpos(float x, float y);
double y3dabs(float x, float y, float z);
double y3dpos(float x, float y, float z);
double y3drel(float x, float y, float z);
double yinvrs(int ny);
double yposn(float y);
double z3dpos(float x, float y, float z);

/* Curves, lines and markers. */
void bezier(const float *xray, const float *yray, int n, float *xpray, float *ypray, int np);
void chncrv(const char *c);
void chndot(void);
void chndsh(void);
void conn3d(float x1, float x2, float x3);
void connpt(float x1, float x2);
void crvqdr(const float *xray, const float *yray, const float *zray, int n);
void crvt3d(const float *xray, const float *yray, const float *zray, const float *rray, const int *icray, int n);
void crvtri(const float *xray, const float *yray, const float *zray, int n, const int *i1ray, const int *i2ray, const int *i3ray, int ntri);
void curv3d(const float *xray, const float *yray, const float *zray, int n);
void curv4d(const float *xray, const float *yray, const float *zray, const float *wray, int n);
void curve(const float *x, const float *y, int n);
void curve3(const float *x, const float *y, const float *z, int n);
void curvmp(const float *x, const float *y, int n);
void curvx3(const float *xray, float y, const float *zray, int n);
void curvy3(float x, const float *yray, const float *zray, int n);
void dash(void);
void dashl(void);
void dashm(void);
void dot(void);
void dotl(void);
void errbar(const float *xray, const float *yray, const float *e1ray, const float *e2ray, int n);
void field(const float *x1ray, const float *y1ray, const float *x2ray, const float *y2ray, int n, int ivec);
void field3d(const float *x1ray, const float *y1ray, const float *z1ray, const float *x2ray, const float *y2ray, const float *z2ray, int n, int ivec);
void gapcrv(float x);
void gapsiz(float x, const char *c);
int getlin(void);
void getsym(int *nsym, int *nhsym);
int getwid(void);
void histog(const float *xray, int n, float *xhray, float *yhray, int *nh);
void hsym3d(float x);
void hsymbl(int nhsym);
void inccrv(int n);
void incmrk(int nmrk);
void licmod(const char *c1, const char *c2);
void licpts(const float *xv, const float *yv, int nx, int ny, const int *itmat, int *iwmat, float *wmat);
void linfit(const float *xray, const float *yray, int n, float *a, float *b, float *r, const char *copt);
void linmod(const char *c1, const char *c2);
void lintyp(int ntyp);
void linwid(int nwidth);
void lncap(const char *c);
void lnjoin(const char *c);
void lnmlt(float x);
void marker(int nsym);
void mrkclr(int n);
void myline(const int *nray, int n);
void mysymb(const float *xray, const float *yray, int n, int isym, int iflag);
void nancrv(const char *c);
void penwid(float xwidth);
void point(int nx, int ny, int nb, int nh, int ncol);
void polcrv(const char *cpol);
void polmod(const char *c1, const char *c2);
void qplbar(const float *xray, int n);
void qplclr(const float *zmat, int nx, int ny);
void qplcon(const float *zmat, int nx, int ny, int nlev);
void qplcrv(const float *xray, const float *yray, int n, const char *copt);
void qplot(const float *xray, const float *yray, int n);
void qplpie(const float *xray, int n);
void qplsca(const float *xray, const float *yray, int n);
void qplscl(float x1, float x2, float x3, float x4, const char *c);
void qplsur(const float *zmat, int nx, int ny);
void rlconn(float x1, float x2);
void rlpoin(float x1, float x2, int n1, int n2, int n3);
void rlstrt(float x1, float x2);
void rlsymb(int n, float x1, float x2);
void rlvec(float x1, float x2, float x3, float x4, int n);
void solid(void);
void spline(const float *xray, const float *yray, int n, float *xsray, float *ysray, int *nspl);
void splmod(int n1, int n2);
void stmmod(const char *c1, const char *c2);
void stmopt(int n, const char *c);
void stmpts(const float *xv, const float *yv, int nx, int ny, const float *xp, const float *yp, float x0, float y0, float *xray, float *yray, int maxpts, int *npts);
void stmpts3d(const float *xv, const float *yv, const float *zv, int nx, int ny, int nz, const float *xp, const float *yp, const float *zp, float x0, float y0, float z0, float *xray, float *yray, float *zray, int maxpts, int *npts);
void stmtri(const float *xv, const float *yv, const float *xp, const float *yp, int n, const int *i1ray, const int *i2ray, const int *i3ray, int ntri, const float *xs, const float *ys, int nray);
void stmval(float x, const char *c);
void stream(const float *xv, const float *yv, int nx, int ny, const float *xp, const float *yp, const float *xs, const float *ys, int n);
void stream3d(const float *xv, const float *yv, const float *zv, int nx, int ny, int nz, const float *xp, const float *yp, const float *zp, const float *xs, const float *ys, const float *zs, int n);
void strt3d(float x1, float x2, float x3);
void strtpt(float x1, float x2);
void symb3d(int n, float x1, float x2, float x3);
void symbol(int nsym, int nx, int ny);
void symfil(const char *c1, const char *c2);
void symrot(float x);
void thkcrv(int n);
void vecclr(int n);
void vecf3d(const float *xv, const float *yv, const float *zv, const float *xp, const float *yp, const float *zp, int n, int ivec);
void vecfld(const float *xv, const float *yv, const float *xp, const float *yp, int n, int ivec);
void vecmat(const float *xv, const float *yv, int nx, int ny, const float *xp, const float *yp, int ivec);
void vecmat3d(const float *xv, const float *yv, const float *zv, int nx, int ny, int nz, const float *xp, const float *yp, const float *zp, int ivec);
void vecopt(float x, const char *c);
void vector(int nx1, int ny1, int nx2, int ny2, int ivec);
void xdraw(float x1, float x2);
void xmove(float x1, float x2);

/* Text, numbers and fonts. */
void angle(int ngrad);
void basalf(const char *c);
void bmpfnt(const char *c);
void chaang(float x);
void chaspc(float x);
void chawth(float x);
void complx(void);
void duplx(void);
void eushft(const char *c1, const char *c2);
void fixspc(float x);
const char *getalf(void);
int getang(void);
int gethgt(void);
const char *getmix(const char *c);
const char *getshf(const char *c);
const char *gmxalf(const char *copt, char *c1, char *c2);
void gothic(void);
void height(int nhchar);
void helve(void);
void helves(void);
void helvet(void);
void linesp(float x);
void messag(const char *cstr, int nx, int ny);
void miralf(void);
void mixalf(void);
void newmix(void);
int nlmess(const char *cstr);
int nlnumb(float x, int ndig);
void number(float x, int ndig, int nx, int ny);
void rlmess(const char *c, float x1, float x2);
void rlnumb(float x1, int n, float x2, float x3);
void serif(void);
void setfce(const char *c);
void setmix(const char *c1, const char *c2);
void simplx(void);
void smxalf(const char *c1, const char *c2, const char *c3, int n);
void triplx(void);
void ttfont(const char *c);
void txtbgd(int n);
void txtjus(const char *c);
void txtmod(const char *c);
void txtopt(const char *c1, const char *c2);
void winfnt(const char *c);
void x11fnt(const char *c1, const char *c2);
void x11mod(const char *c);

/* Colours. */
void clrcyc(int n1, int n2);
void clrmod(const char *c);
void color(const char *cname);
void colray(const float *zray, int *nray, int n);
int getclr(void);
void getind(int index, float *r, float *g, float *b);
void getrgb(float *r, float *g, float *b);
const char *getvlt(void);
void hsvrgb(float h, float s, float v, float *r, float *g, float *b);
int indrgb(float r, float g, float b);
int intrgb(float r, float g, float b);
void linclr(const int *nray, int n);
void lincyc(int n1, int n2);
void myvlt(const float *r, const float *g, const float *b, int n);
void nobgd(void);
void patcyc(int n1, int n2);
void rgbhsv(float r, float g, float b, float *h, float *s, float *v);
void setclr(int ncol);
void setind(int n, float x1, float x2, float x3);
void setrgb(float r, float g, float b);
void setvlt(const char *cvlt);
void vltfil(const char *c1, const char *c2);

/* Shapes, fills and shading. */
void arcell(int n1, int n2, int n3, int n4, float x1, float x2, float x3);
void areaf(const int *nxray, const int *nyray, int n);
void circ3p(float x1, float y1, float x2, float y2, float x3, float y3, float *xm, float *ym, float *r);
void circle(int nx, int ny, int nr);
void circsp(int n);
void clpbor(const char *copt);
void clpwin(int n1, int n2, int n3, int n4);
void ellips(int nx, int ny, int na, int nb);
void getclp(int *nx, int *ny, int *nw, int *nh);
void line(int nx1, int ny1, int nx2, int ny2);
void mypat(int n1, int n2, int n3, int n4);
void noclip(void);
void nofill(void);
void noline(const char *c);
void polclp(const float *xray, const float *yray, int n, float *xout, float *yout, int nmax, int *nout, float xv, const char *cedge);
void recfll(int nx, int ny, int nw, int nh, int ncol);
void rectan(int nx, int ny, int nw, int nh);
void rlarc(float x1, float x2, float x3, float x4, float x5, float x6, float x7);
void rlarea(const float *xray, const float *yray, int n);
void rlcirc(float x1, float x2, float x3);
void rlell(float x1, float x2, float x3, float x4);
void rline(float x1, float y1, float x2, float y2);
void rlrec(float x1, float x2, float x3, float x4);
void rlrnd(float x1, float x2, float x3, float x4, int n);
void rlsec(float x1, float x2, float x3, float x4, float x5, float x6, int n);
void rlwind(float x1, float x2, float x3, int n, float x4);
void rndrec(int n1, int n2, int n3, int n4, int n5);
void sector(int nx, int ny, int nr1, int nr2, float alpha, float beta, int ncol);
void shdafr(const int *inray, const int *ipray, const int *icray, int n);
void shdasi(const int *inray, const int *ipray, const int *icray, int n);
void shdaus(const int *inray, const int *ipray, const int *icray, int n);
void shdcha(void);
void shdcrv(const float *x1ray, const float *y1ray, int n1, const float *x2ray, const float *y2ray, int n2);
void shdeur(const int *inray, const int *ipray, const int *icray, int n);
void shdfac(float x);
void shdmap(const char *c);
void shdmod(const char *copt, const char *ctype);
void shdnor(const int *inray, const int *ipray, const int *icray, int n);
void shdpat(int n);
void shdsou(const int *inray, const int *ipray, const int *icray, int n);
void shdusa(const int *inray, const int *ipray, const int *icray, int n);
void shield(const char *c1, const char *c2);
void shlcir(int n1, int n2, int n3);
void shldel(int n);
void shlell(int n1, int n2, int n3, int n4, float x);
void shlpie(int n1, int n2, int n3, float x1, float x2);
void shlpol(const int *nxray, const int *nyray, int n);
void shlrct(int n1, int n2, int n3, int n4, float x);
void shlrec(int n1, int n2, int n3, int n4);
void shlsur(void);
void shlvis(int n, const char *c);
void triang(const float *xray, const float *yray, int n, int *i1ray, int *i2ray, int *i3ray, int nmax, int *ntri);
void triflc(const float *xray, const float *yray, const int *icray, int n);
void trifll(const float *xray, const float *yray);
void tripts(const float *xray, const float *yray, const float *zray, int n, const int *i1ray, const int *i2ray, const int *i3ray, int ntri, float zlev, float *xpts, float *ypts, int maxpts, int *iray, int maxray, int *nlins);
void windbr(float x1, int n1, int n2, int n3, float x2);

/* Legends. */
void legbgd(int n);
void legclr(void);
void legend(char *cbuf, int ncor);
void legini(char *cbuf, int nlin, int nmaxln);               /* cbuf holds nlin * nmaxln + 1 bytes */
void leglin(char *cbuf, const char *cstr, int ilin);
void legopt(float x1, float x2, float x3);
void legpat(int n1, int n2, int n3, int n4, int n5, int n6);
void legpos(int nx, int ny);
void legsel(const int *nray, int n);
void legtbl(int n, const char *c);
void legtit(const char *cstr);
void legtyp(const char *c);
void legval(float x, const char *c);
void mixleg(void);
int nxlegn(const char *cbuf);
int nylegn(const char *cbuf);

/* Bars and pies. */
void barbor(int n);
void barclr(int n1, int n2, int n3);
void bargrp(int n, float x);
void barmod(const char *c1, const char *c2);
void baropt(float x1, float x2);
void barpos(const char *c);
void bars(const float *xray, const float *y1ray, const float *y2ray, int n);
void bars3d(const float *xray, const float *yray, const float *z1ray, const float *z2ray, const float *xwray, const float *ywray, const int *icray, int n);
void bartyp(const char *c);
void barwth(float x);
void chnbar(const char *c);
void chnpie(const char *c);
void fbars(const float *xray, const float *y1ray, const float *y2ray, const float *y3ray, const float *y4ray, int n);
void frmbar(int n);
void jusbar(const char *c);
void nobar(void);
void pie(int n1, int n2, int n3, float x1, float x2);
void piebor(int n);
void piecbk(MvPieCb cb);
void pieclr(const int *nc1ray, const int *nc2ray, int n);
void pieexp(void);
void piegrf(const char *cstr, int nlin, const float *xray, int n);
void pielab(const char *c1, const char *c2);
void pieopt(float x1, float x2);
void pierot(float x);
void pietyp(const char *c);
void pieval(float x, const char *c);
void pievec(int n, const char *c);
void posbar(const char *c);
void spcbar(int n);
void vkxbar(int n);
void vkybar(int n);
void widbar(int n);

/* Contours and colour matrices. */
void conclr(const int *nray, int n);
void concrv(const float *xray, const float *yray, int n, float zlev);
void confll(const float *xray, const float *yray, const float *zray, int n, const int *i1ray, const int *i2ray, const int *i3ray, int ntri, const float *zlev, int nlev);
void congap(float x);
void conlab(const char *c);
void conmat(const float *zmat, int nx, int ny, float zlev);
void conmod(float x1, float x2);
void conpts(const float *xray, int nx, const float *yray, int ny, const float *zmat, float zlev, float *xpts, float *ypts, int maxpts, int *nray, int maxray, int *nlins);
void conshd(const float *xray, int nx, const float *yray, int ny, const float *zmat, const float *zlev, int nlev);
void conshd2(const float *xmat, const float *ymat, const float *zmat, int nx, int ny, const float *zlev, int nlev);
void conshd3d(const float *xray, int nx, const float *yray, int ny, const float *zmat, const float *zlev, int nlev);
void contri(const float *xray, const float *yray, const float *zray, int n, const int *i1ray, const int *i2ray, const int *i3ray, int ntri, float zlev);
void contur(const float *xray, int nx, const float *yray, int ny, const float *zmat, float zlev);
void contur2(const float *xmat, const float *ymat, const float *zmat, int nx, int ny, float zlev);
void crvmat(const float *zmat, int nx, int ny, int ixpts, int iypts);
void getmat(const float *xray, const float *yray, const float *zray, int n, float *zmat, int nx, int ny, float zval, int *imat, float *wmat);
void isopts(const float *xray, int nx, const float *yray, int ny, const float *zray, int nz, const float *wmat, float wlev, float *xtri, float *ytri, float *ztri, int maxtri, int *ntri);
void mdfmat(int n1, int n2, float x);
void rpoint(float x, float y, float z, int nw, int nh);
void sclpax(int iopt);
void txture(int *itmat, int nx, int ny);

/* Three-dimensional graphics, surfaces and lighting. */
void clip3d(const char *c);
void cone3d(float x1, float x2, float x3, float x4, float x5, float x6, int n1, int n2);
void cyli3d(float x1, float x2, float x3, float x4, float x5, int n1, int n2);
void disk3d(float x1, float x2, float x3, float x4, float x5, int n1, int n2);
int getlit(float xp, float yp, float zp, float xn, float yn, float zn);
void light(const char *c);
void litmod(int n, const char *c);
void litop3(int n, float x1, float x2, float x3, const char *c);
void litopt(int n, float x, const char *c);
void litpos(int n, float x1, float x2, float x3, const char *c);
void matop3(float x1, float x2, float x3, const char *c);
void matopt(float x, const char *c);
void mshclr(int n);
void mshcrv(int n);
void nohide(void);
void pike3d(float x1, float x2, float x3, float x4, float x5, float x6, float x7, int n1, int n2);
void plat3d(float x1, float x2, float x3, float x4, const char *c);
void proj3d(const char *c);
void pyra3d(float x1, float x2, float x3, float x4, float x5, float x6, int n);
void quad3d(float x1, float x2, float x3, float x4, float x5, float x6);
void rot3d(float x1, float x2, float x3);
void setres3d(float x1, float x2, float x3);
void sphe3d(float x1, float x2, float x3, float x4, int n1, int n2);
void surclr(int n1, int n2);
void surfce(const float *xray, int nx, const float *yray, int ny, const float *zmat);
void surfcp(MvParamSurfaceFn fn, float a1, float a2, float astp, float b1, float b2, float bstp);
void surfun(MvSurfaceFn fn, int ixpts, float xdel, int iypts, float ydel);
void suriso(const float *xray, int nx, const float *yray, int ny, const float *zray, int nz, const float *wmat, float wlev);
void surmat(const float *zmat, int nx, int ny, int ixpts, int iypts);
void surmsh(const char *c);
void suropt(const char *c);
void surshc(const float *xray, int nx, const float *yray, int ny, const float *zmat, const float *wmat);
void surshd(const float *xray, int nx, const float *yray, int ny, const float *zmat);
void sursze(float x1, float x2, float x3, float x4);
void surtri(const float *xray, const float *yray, const float *zray, int n, const int *i1ray, const int *i2ray, const int *i3ray, int ntri);
void survis(const char *c);
void thkc3d(float x);
void torus3d(float x1, float x2, float x3, float x4, float x5, float x6, float x7, float x8, int n1, int n2);
void tria3d(const float *xray, const float *yray, const float *zray);
void tube3d(float x1, float x2, float x3, float x4, float x5, float x6, float x7, int n1, int n2);
void vang3d(float x);
void vclp3d(float x1, float x2);
void vfoc3d(float x1, float x2, float x3, const char *c);
void view3d(float xvu, float yvu, float zvu, const char *copt);
void vscl3d(float x);
void vtx3d(const float *xray, const float *yray, const float *zray, int n, const char *copt);
void vtxc3d(const float *xray, const float *yray, const float *zray, const int *icray, int n, const char *copt);
void vtxn3d(const float *xray, const float *yray, const float *zray, const float *xn, const float *yn, const float *zn, int n, const char *copt);
void vup3d(float x);
void zbfers(void);
void zbffin(void);
int zbfini(void);
void zbflin(float x1, float x2, float x3, float x4, float x5, float x6);
void zbfmod(const char *c);
void zbfres(void);
void zbfscl(float x);
void zbftri(const float *xray, const float *yray, const float *zray, const int *icray);

/* Maps and projections. */
void gridmp(int n1, int n2);
void mapbas(const char *c);
void mapdir(const char *c);
void mapfil(const char *c1, const char *c2);
void mapimg(const char *c, float x1, float x2, float x3, float x4, float x5, float x6);
void maplab(const char *c1, const char *c2);
void maplev(const char *c);
void mapmod(const char *c);
void mapopt(const char *c1, const char *c2);
void mappol(float x1, float x2);
void mapref(float x1, float x2);
void mapsph(float x);
void mpaepl(int n);
void mplang(float x);
void mplclr(int n1, int n2);
void mplpos(int n1, int n2);
void mplsiz(int n);
void mpslogo(int n1, int n2, int n3, const char *c);
void projct(const char *c);
void setcbk(MvProjectionCb cb, const char *copt);
void wimage(const char *c);
void xaxmap(float x1, float x2, float x3, float x4, const char *c, int n1, int n2);
void yaxmap(float x1, float x2, float x3, float x4, const char *c, int n1, int n2);

/* Screen windows, cursor and pixels. */
void clswin(int n);
int csrkey(void);
void csrlin(int *nx1, int *ny1, int *nx2, int *ny2);
void csrmod(const char *c1, const char *c2);
void csrmov(int *nxray, int *nyray, int nmax, int *n, int *iret);
void csrpol(int *nxray, int *nyray, int nmax, int *n, int *iret);
int csrpos(int *nx, int *ny);                                /* moves the cursor from (nx, ny); returns the key */
void csrpt1(int *nx, int *ny);
void csrpts(int *nxray, int *nyray, int nmax, int *n, int *iret);
void csrrec(int *nx1, int *ny1, int *nx2, int *ny2);
void csrtyp(const char *c);
void csruni(const char *c);
void getico(float x, float y, float *xp, float *yp);
void getscr(int *nwpix, int *nhpix);
void getwin(int *nx, int *ny, int *nw, int *nh);
void hidwin(int n, const char *c);
int nxpixl(int ix, int iy);
int nypixl(int ix, int iy);
void opnwin(int n);
void rpixel(int ix, int iy, int *iclr);
void rpixls(unsigned char *iray, int ix, int iy, int nw, int nh);
void rpxrow(unsigned char *iray, int ix, int iy, int n);
void selwin(int n);
void setcsr(const char *c);
void wincbk(MvWindowCb cb, const char *copt);
void window(int n1, int n2, int n3, int n4);
void winico(const char *c);
void winjus(const char *c);
void winkey(const char *c);
void winmod(const char *cmod);
void winopt(int n, const char *c);
void wintit(const char *c);
void wintyp(const char *c);
void wpixel(int n1, int n2, int n3);
void wpixls(const unsigned char *iray, int ix, int iy, int nw, int nh);
void wpxrow(const unsigned char *iray, int ix, int iy, int n);

/* Images. */
void fitscls(void);
double fitsflt(const char *c);
int fitshdu(int n);
int fitsimg(void *iray, int nmax);
int fitsopn(const char *c);
const char *fitsstr(const char *c);
int fitstyp(const char *c);
int fitsval(const char *c);
int ldimg(const char *cfil, short *iray, int nmax, int ncolor);
void rbmp(const char *c);
void rgif(const char *c);
void rimage(const char *c);
void rpng(const char *c);
void rppm(const char *c);
void rtiff(const char *c);
void tprfin(void);
void tprini(void);
void tprmod(const char *c1, const char *c2);
void tprval(float x);
void wtiff(const char *c);

/* Widgets and dialogs. */
void dbffin(void);
int dbfini(void);
void dbfmod(const char *c);
void doevnt(void);
int dwgbut(const char *c, int n);
int dwgerr(void);
const char *dwgfil(const char *c1, const char *c2, const char *c3);
int dwglis(const char *c1, const char *c2, int n);
void dwgmsg(const char *c);
const char *dwgtxt(const char *c1, const char *c2);
int gwgatt(int n, const char *c);
int gwgbox(int n);
int gwgbut(int n);
const char *gwgfil(int n);
double gwgflt(int n);
int gwggui(void);
int gwgint(int n);
int gwglis(int n);
double gwgscl(int n);
void gwgsiz(int id, int *nw, int *nh);
double gwgtbf(int n1, int n2, int n3);
int gwgtbi(int n1, int n2, int n3);
void gwgtbl(int id, float *xray, int n, int idx, const char *copt);
const char *gwgtbs(int n1, int n2, int n3);
const char *gwgtxt(int n);
int gwgxid(int n);
void intutf(const int *iray, int nray, char *cstr, int nmax, int *nl);
void msgbox(const char *c);
void reawgt(void);
void sendmb(void);
void sendok(void);
void swgatt(int n, const char *c1, const char *c2);
void swgbgd(int n, float x1, float x2, float x3);
void swgbox(int n1, int n2);
void swgbut(int n1, int n2);
void swgcb(int id, MvWidgetCb cb, int *iray);
void swgcb2(int id, MvWidgetCb2 cb);
void swgcb3(int id, MvWidgetCb3 cb);
void swgcbk(int id, MvWidgetKeyCb cb);
void swgclr(float x1, float x2, float x3, const char *c);
void swgdrw(float x);
void swgfgd(int n, float x1, float x2, float x3);
void swgfil(int n, const char *c);
void swgflt(int n1, float x, int n2);
void swgfnt(const char *c, int n);
void swgfoc(int n);
void swghlp(const char *c);
void swgint(int n1, int n2);
void swgiop(int n, const char *c);
void swgjus(const char *c1, const char *c2);
void swglis(int n1, int n2);
void swgmix(const char *c1, const char *c2);
void swgmrg(int n, const char *c);
void swgopt(const char *c1, const char *c2);
void swgpop(const char *c);
void swgpos(int n1, int n2);
void swgray(const float *xray, int n, const char *copt);
void swgscl(int n, float x);
void swgsiz(int n1, int n2);
void swgspc(float x1, float x2);
void swgstp(float x);
void swgtbf(int n1, float x, int n2, int n3, int n4, const char *c);
void swgtbi(int n1, int n2, int n3, int n4, const char *c);
void swgtbl(int id, const float *xray, int n, int ndig, int idx, const char *copt);
void swgtbs(int n1, const char *c1, int n2, int n3, const char *c2);
void swgtit(const char *c);
void swgtxt(int n, const char *c);
void swgtyp(const char *c1, const char *c2);
void swgval(int n, float x);
void swgwin(int n1, int n2, int n3, int n4);
void swgwth(int n);
void utfint(const char *cstr, int *iray, int nmax, int *nl);
int wgapp(int n, const char *c);
int wgappb(int ip, const unsigned char *iray, int nw, int nh);
int wgbas(int n, const char *c);
int wgbox(int n1, const char *c, int n2);
int wgbut(int n1, const char *c, int n2);
int wgcmd(int n, const char *c1, const char *c2);
int wgdlis(int n1, const char *c, int n2);
int wgdraw(int n);
int wgfil(int n, const char *c1, const char *c2, const char *c3);
void wgfin(void);
int wgicon(const char *c1, int n1, int n2, const char *c2);
int wgimg(const char *copt, const unsigned char *iray, int nw, int nh);
int wgini(const char *c);
int wglab(int n, const char *c);
int wglis(int n1, const char *c, int n2);
int wgltxt(int n1, const char *c1, const char *c2, int n2);
int wgok(int n);
int wgpbar(int n, float x1, float x2, float x3);
int wgpbut(int n, const char *c);
int wgpicon(const char *c1, int n1, int n2, const char *c2);
int wgpimg(const char *copt, const unsigned char *iray, int nw, int nh);
int wgpop(int n, const char *c);
int wgpopb(int ip, const unsigned char *iray, int nw, int nh);
int wgquit(int n);
int wgscl(int n1, const char *c, float x1, float x2, float x3, int n2);
int wgsep(int n);
int wgstxt(int n1, int n2, int n3);
int wgtbl(int n1, int n2, int n3);
int wgtxt(int n, const char *c);

/* Files, texts, numbers, sorting and bits. */
void basdat(int n1, int n2, int n3);
short bitsi2(int nbits, short mher, int iher, short mhin, int ihin); /* mhin with bits iher.. of mher put at ihin.. */
int bitsi4(int nbits, int mher, int iher, int mhin, int ihin); /* the same for 32 bits; bit 0 is the lowest */
int closfl(int nu);
int fcha(float x, int ndig, char *cstr);                     /* x with ndig decimals; returns the length (not traced) */
int filsiz(const char *cfil, int *nw, int *nh);
int filtyp(const char *c);
int flen(float x, int ndig);                                 /* the length fcha would write */
int incdat(int iday, int imon, int iyear);
int intcha(int n, char *cstr);                               /* n as text; returns the length */
int intlen(int n);                                           /* the length intcha would write */
void itmcat(char *clis, const char *cstr);                   /* appends an item to a '|'-separated list */
int itmcnt(const char *clis);                                /* the number of items; 0 for "" */
void itmncat(char *clis, int nmax, const char *cstr);        /* the same within a buffer of nmax bytes */
const char *itmstr(const char *clis, int nlis);              /* item nlis, counted from 1 */
int nwkday(int iday, int imon, int iyear);
int openfl(const char *cfil, int nlu, int irw);
int posifl(int nu, int nbyte);
int readfl(int nu, void *iray, int nmax);
int skipfl(int nu, int nbyte);
void sortr1(float *xray, int n, const char *copt);           /* sorts in place: 'A' ascending, 'D' descending */
void sortr2(float *xray, float *yray, int n, const char *copt); /* sorts by xray, yray carried along */
void swapi2(short *iray, int n);                             /* swaps the bytes of n values in place */
void swapi4(int *iray, int n);                               /* swaps the bytes of n values in place */
int tellfl(int nu);
void upstr(char *cstr);                                      /* upper-cases in place (not traced) */
int writfl(int nu, const void *iray, int nmax);

#if defined(__GNUC__)
#pragma GCC visibility pop
#endif
#ifdef __cplusplus
}
#endif

#endif
