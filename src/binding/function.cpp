// Library functions in assignments V = NAME(args): one binding per row of the function table,
// in table order. The result type follows the C return type of the library's declaration:
// int gives an INT, short a SHORT, double a DOUBLE and a text a STRING.
#include "binding/call.h"
#include "binding/marshal.h"
#include "binding/tables.h"
#include "lang/parser.h"
#include "mirval.h"

#include <cstdio>

static void set_result(int index, int value) { varlist[index].value.i = value; }

static void set_result(int index, short value) {
  varlist[index].type = T_SHORT;
  varlist[index].value.s = value;
}

static void set_result(int index, double value) { store_double(index, value); }

static void set_result(int index, const char *text) { store_text(index, text); }

template <auto F>
static int fplain(Marshal &m, int result) {
  auto args = gather(F, m);
  if (m.failed) {
    m.discard();
    return 1;
  }
  set_result(result, std::apply(F, args));
  m.write_back();
  return 0;
}

// CSRPOS moves the cursor from the position in its two arguments and gives the new position
// back to them; the function value is the key.
static int csrpos_f(Marshal &, int result) {
  int nx = ipar[0], ny = ipar[1];
  set_result(result, csrpos(&nx, &ny));
  store_int(idxpar[0], nx);
  store_int(idxpar[1], ny);
  return 0;
}

// FILSIZ and GMXALF give their two results to argument positions one and two: the first
// argument's own variable and the first output.
static int filsiz_f(Marshal &, int result) {
  int nw = 0, nh = 0;
  set_result(result, filsiz(static_cast<const char *>(cpar[0]), &nw, &nh));
  store_int(idxpar[0], nw);
  store_int(idxpar[1], nh);
  return 0;
}

constexpr int TEXTOUT = 257;  // text outputs: the library writes at most 80 characters

static int gmxalf_f(Marshal &, int result) {
  char c1[TEXTOUT] = "", c2[TEXTOUT] = "";
  set_result(result, gmxalf(static_cast<const char *>(cpar[0]), c1, c2));
  store_text(idxpar[0], c1);
  store_text(idxpar[1], c2);
  return 0;
}

// FCHA and INTCHA give the number's text both to their last argument and as the value.
static int fcha_f(Marshal &, int result) {
  char text[TEXTOUT] = "";
  fcha(xpar[0], ipar[0], text);
  store_text(idxpar[2], text);
  set_result(result, text);
  return 0;
}

static int intcha_f(Marshal &, int result) {
  char text[TEXTOUT] = "";
  intcha(ipar[0], text);
  store_text(idxpar[1], text);
  set_result(result, text);
  return 0;
}

// Rows that are checked but have no call.
static int nocase(Marshal &m, int) {
  std::printf(" >>>> Unknown function %s in exec_function!\n", m.name);
  return 1;
}

#define BIND(f) fplain<&::f>
#define OWN(run) run

static int (*const functions[NFUNCTION])(Marshal &, int) = {
    BIND(bitsi2),
    BIND(bitsi4),
    BIND(closfl),
    BIND(csrkey),
    OWN(csrpos_f),
    BIND(dbfini),
    BIND(dwgbut),
    BIND(dwgerr),
    BIND(dwgfil),
    BIND(dwglis),
    BIND(dwgtxt),
    OWN(fcha_f),
    OWN(filsiz_f),
    BIND(filtyp),
    BIND(fitsflt),
    BIND(fitshdu),
    BIND(fitsimg),
    BIND(fitsopn),
    BIND(fitsstr),
    BIND(fitstyp),
    BIND(fitsval),
    BIND(flen),
    BIND(getalf),
    BIND(getang),
    OWN(nocase),
    BIND(getclr),
    OWN(nocase),
    BIND(getdsp),
    BIND(getfil),
    BIND(gethgt),
    BIND(gethnm),
    BIND(getlev),
    BIND(getlin),
    BIND(getlit),
    BIND(getplv),
    BIND(getmfl),
    BIND(getmix),
    BIND(getpat),
    BIND(getshf),
    BIND(gettyp),
    BIND(getuni),
    BIND(getver),
    BIND(getvlt),
    BIND(getwid),
    BIND(getxid),
    OWN(gmxalf_f),
    BIND(gwgatt),
    BIND(gwgbox),
    BIND(gwgbut),
    BIND(gwgfil),
    BIND(gwgflt),
    BIND(gwggui),
    BIND(gwgint),
    BIND(gwglis),
    BIND(gwgscl),
    BIND(gwgtbf),
    BIND(gwgtbi),
    BIND(gwgtbs),
    BIND(gwgtxt),
    BIND(gwgxid),
    BIND(incdat),
    BIND(indrgb),
    OWN(intcha_f),
    BIND(intlen),
    BIND(intrgb),
    BIND(itmcnt),
    BIND(itmstr),
    BIND(ldimg),
    BIND(nlmess),
    BIND(nlnumb),
    BIND(nwkday),
    BIND(nxlegn),
    BIND(nxpixl),
    BIND(nxposn),
    BIND(nylegn),
    BIND(nypixl),
    BIND(nyposn),
    OWN(nocase),
    BIND(openfl),
    BIND(pdfbuf),
    BIND(posifl),
    BIND(rbfpng),
    BIND(readfl),
    BIND(skipfl),
    BIND(tellfl),
    BIND(wgapp),
    BIND(wgappb),
    BIND(wgbas),
    BIND(wgbox),
    BIND(wgbut),
    BIND(wgcmd),
    BIND(wgdlis),
    BIND(wgdraw),
    BIND(wgfil),
    BIND(wgicon),
    BIND(wgimg),
    BIND(wgini),
    BIND(wglab),
    BIND(wglis),
    BIND(wgltxt),
    BIND(wgok),
    BIND(wgpbar),
    BIND(wgpbut),
    BIND(wgpicon),
    BIND(wgpimg),
    BIND(wgpop),
    BIND(wgpopb),
    BIND(wgquit),
    BIND(wgscl),
    BIND(wgsep),
    BIND(wgstxt),
    BIND(wgtbl),
    BIND(wgtxt),
    BIND(winid),
    BIND(writfl),
    BIND(x2dpos),
    BIND(x3dabs),
    BIND(x3dpos),
    BIND(x3drel),
    BIND(xinvrs),
    BIND(xposn),
    BIND(y2dpos),
    BIND(y3dabs),
    BIND(y3dpos),
    BIND(y3drel),
    BIND(yinvrs),
    BIND(yposn),
    BIND(z3dpos),
    BIND(zbfini),
};

int exec_function(const char *name, int number, int index) {
  VarRecord &v = varlist[index];
  v.type = T_INT;
  v.count = 1;
  v.value.i = 0;
  int status;
  if (number < 0 || number >= NFUNCTION) {
    std::printf(" >>>> Unknown function %s in exec_function!\n", name);
    status = 1;
  } else {
    Marshal m(name, cfray[number].sig);
    status = functions[number](m, index);
  }
  free_stack(0);
  return status;
}
