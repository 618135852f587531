// Library routine calls: one binding per row of the routine table, in table order. Plain rows
// forward the arguments by the C types of the library's declaration; the rows below the
// marshalling need checks, registrations or buffers of their own.
#include "binding/call.h"
#include "binding/callback.h"
#include "binding/marshal.h"
#include "binding/sysvar.h"
#include "binding/tables.h"
#include "core/error.h"
#include "core/procedure.h"
#include "core/reader.h"
#include "lang/parser.h"
#include "lang/subscript.h"
#include "mirval.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

int g_imeta = 0;

static int mirini_r(Marshal &) {
  if (g_idev == 1) {
    metafl(g_cdev);
    g_imeta = 1;
  }
  mirini();
  setvar(-1);
  return 0;
}

static int metafl_r(Marshal &m) {
  g_imeta = 1;
  return plain<&::metafl>(m);
}

// Reports a failed check of `what` in routine `name` ("Int array too small in CSRMOV").
static int report(const char *what, const char *name) {
  char msg[80];
  std::snprintf(msg, sizeof msg, what, name);
  error(msg);
  return 0;
}

// The cursor routines fill the two integer arrays in place, so both must be variables that
// hold at least the maximum count. CSRPOL and CSRPTS report under the name CSRPTS.
template <auto F, int PTS>
static int csr_r(Marshal &m) {
  const char *name = PTS ? "CSRPTS" : "CSRMOV";
  if (idxpar[0] < 0 || idxpar[1] < 0) return report("Int array in %s must be a variable", name);
  if (varlist[idxpar[0]].count < ipar[0] || varlist[idxpar[1]].count < ipar[0])
    return report("Int array too small in %s", name);
  plain<F>(m);
  return 0;
}

// The pixel routines fill the byte array in place: it must be a variable of `need` elements.
static bool pixel_array(long long need, const char *name) {
  if (idxpar[0] < 0) return report("Byte array in %s must be a variable", name), false;
  if (varlist[idxpar[0]].count < need) return report("Byte array too small in %s", name), false;
  return true;
}

static int rpixls_r(Marshal &m) {
  if (pixel_array(static_cast<long long>(ipar[2]) * ipar[3], "RPIXLS")) plain<&::rpixls>(m);
  return 0;
}

static int rpxrow_r(Marshal &m) {
  if (pixel_array(ipar[2], "RPXROW")) plain<&::rpxrow>(m);
  return 0;
}

// The map shading routines get a private copy of the second array, n integers long.
template <auto F>
static int shade_r(Marshal &m) {
  auto args = gather(F, m);
  if (m.failed) return 1;
  int n = std::get<3>(args);
  if (n <= 0) {
    error("Non positive parameter");
    return 1;
  }
  int *copy = static_cast<int *>(std::calloc(n, sizeof(int)));
  if (!copy) {
    report("Not enough memory in %s", m.name);
    return 1;
  }
  if (const int *second = std::get<1>(args))
    std::memcpy(copy, second, sizeof(int) * std::min<long long>(n, m.given[1]));
  std::get<1>(args) = copy;
  std::apply(F, args);
  std::free(copy);
  return 0;
}

static const char *text_arg(int k) { return static_cast<const char *>(cpar[k]); }

static int swgcb_r(Marshal &) {
  reg_widget(ipar[0], text_arg(0));
  swgcb(ipar[0], callbck, static_cast<int *>(cpar[1]));
  return 0;
}

// The widget callbacks without a user array: the procedure named for the widget, then the
// library told which trampoline to call.
template <auto set, auto trampoline>
static int widget_callback(Marshal &) {
  reg_widget(ipar[0], text_arg(0));
  set(ipar[0], trampoline);
  return 0;
}
static constexpr auto swgcb2_r = widget_callback<swgcb2, callbck2>;
static constexpr auto swgcb3_r = widget_callback<swgcb3, callbck3>;
static constexpr auto swgcbk_r = widget_callback<swgcbk, callbck4>;

static int piecbk_r(Marshal &) {
  reg_callback(cpiecb, text_arg(0));
  piecbk(zkl_piecbk);
  return 0;
}

static int setcbk_r(Marshal &) {
  reg_callback(cprjcb, text_arg(0));
  setcbk(zkl_prjcbk, text_arg(1));
  return 0;
}

static int wincbk_r(Marshal &) {
  reg_callback(cwincb, text_arg(0));
  wincbk(zkl_wincbk, text_arg(1));
  return 0;
}

static int surfcp_r(Marshal &) {
  reg_callback(cfunc, text_arg(0));
  surfcp(func2bck, xpar[0], xpar[1], xpar[2], xpar[3], xpar[4], xpar[5]);
  return 0;
}

static int surfun_r(Marshal &) {
  reg_callback(cfunc, text_arg(0));
  surfun(funcbck, ipar[0], xpar[0], ipar[1], xpar[1]);
  return 0;
}

static int inczkl_r(Marshal &) {
  inczkl(text_arg(0));
  return 0;
}

static long long legend_size = 0;  // lines x characters of the latest LEGINI

// The legend buffer is shared by the output variable and the library.
static int legini_r(Marshal &) {
  int var = idxpar[0];
  long long n = static_cast<long long>(ipar[0]) * ipar[1];
  if (n <= 0 || n >= INT32_MAX) {
    error("Non positive parameter");
    return 1;
  }
  char *buf = static_cast<char *>(my_calloc(n + 1, 1));
  if (!buf) return 1;
  VarRecord &v = varlist[var];
  release_storage(&v);
  v.type = T_STRING;
  v.count = static_cast<int32_t>(n);
  v.ndim = 1;
  v.value.str = buf;
  legend_size = n;
  legini(buf, ipar[0], ipar[1]);
  return 0;
}

// The legend variable of LEGLIN and LEGEND: a STRING that can hold the legend of LEGINI,
// since the library writes the lines into it.
static char *legend_buffer(const char *name) {
  if (check_varidx(idxpar[0], T_STRING) < 0) return nullptr;
  if (varlist[idxpar[0]].count < legend_size) return report("Legend buffer too small in %s", name), nullptr;
  return varlist[idxpar[0]].value.str;
}

static int leglin_r(Marshal &m) {
  if (char *buf = legend_buffer(m.name)) leglin(buf, text_arg(0), ipar[0]);
  return 0;
}

static int legend_r(Marshal &m) {
  if (char *buf = legend_buffer(m.name)) legend(buf, ipar[0]);
  return 0;
}

// Gives the item list a buffer of `size` bytes holding its old text; null after a report.
static char *grow_list(long long size) {
  if (size < 1) {
    error("Non positive parameter");
    return nullptr;
  }
  VarRecord &v = varlist[idxpar[0]];
  char *buf = static_cast<char *>(my_malloc(size));
  if (!buf) return nullptr;
  qqscpy(buf, v.value.str, static_cast<int>(size - 1));
  std::free(v.value.str);
  v.value.str = buf;
  v.count = static_cast<int32_t>(size - 1);
  return buf;
}

static long long list_need() {
  return static_cast<long long>(std::strlen(varlist[idxpar[0]].value.str)) +
         std::strlen(text_arg(0)) + 2;
}

static int itmcat_r(Marshal &) {
  if (check_varidx(idxpar[0], T_STRING) < 0) return 1;
  char *buf = grow_list(list_need());
  if (!buf) return 1;
  itmcat(buf, text_arg(0));
  return 0;
}

static int itmncat_r(Marshal &) {
  if (check_varidx(idxpar[0], T_STRING) < 0) return 1;
  char *buf = grow_list(std::min<long long>(ipar[0], list_need()));
  if (!buf) return 1;
  itmncat(buf, ipar[0], text_arg(0));
  return 0;
}

// Rows that are checked but have no call.
static int nocall(Marshal &m) {
  std::printf(" >>>> Unknown routine %s in exec_routine!\n", m.name);
  return 0;
}

struct Binding {
  const char *sizes;  // output arrays, see Marshal
  int (*run)(Marshal &);
};

#define BIND(f) Binding{nullptr, plain<&::f>}
#define BIND_OUT(f, sizes) Binding{sizes, plain<&::f>}
#define OWN(run) Binding{nullptr, run}

static const Binding routines[NROUTINE] = {
    BIND(abs3pt),
    BIND(addlab),
    BIND(angle),
    BIND(arcell),
    BIND(areaf),
    BIND(ax2grf),
    BIND(autres),
    BIND(autres3d),
    BIND(ax3len),
    BIND(axclrs),
    BIND(axends),
    BIND(axgit),
    BIND(axis3d),
    BIND(axsbgd),
    BIND(axsers),
    BIND(axslen),
    BIND(axsorg),
    BIND(axspos),
    BIND(axsscl),
    BIND(axstyp),
    BIND(barbor),
    BIND(barclr),
    BIND(bargrp),
    BIND(barmod),
    BIND(baropt),
    BIND(barpos),
    BIND(bars),
    BIND(bars3d),
    BIND(bartyp),
    BIND(barwth),
    BIND(basalf),
    BIND(basdat),
    BIND_OUT(bezier, "1 1"),
    BIND(bmpfnt),
    BIND(bmpmod),
    BIND(box2d),
    BIND(box3d),
    BIND(bufmod),
    BIND(center),
    BIND(cgmbgd),
    BIND(cgmpic),
    BIND(cgmver),
    BIND(chaang),
    BIND(chacod),
    BIND(chaspc),
    BIND(chawth),
    BIND(chnatt),
    BIND(chncrv),
    BIND(chndot),
    BIND(chndsh),
    BIND(chnbar),
    BIND(chnpie),
    BIND(circ3p),
    BIND(circle),
    BIND(circsp),
    BIND(clip3d),
    BIND(clpbor),
    BIND(clpwin),
    BIND(clrcyc),
    BIND(clrmod),
    BIND(clswin),
    BIND(color),
    BIND(colran),
    BIND_OUT(colray, "0"),
    BIND(complx),
    OWN(nocall),
    BIND(concrv),
    BIND(cone3d),
    BIND(confll),
    BIND(congap),
    BIND(conlab),
    BIND(conmat),
    BIND(conmod),
    BIND(conn3d),
    BIND(connpt),
    BIND_OUT(conpts, "2 2 3 -"),
    BIND(conshd),
    BIND(conshd2),
    BIND(conshd3d),
    BIND(contri),
    BIND(contur),
    BIND(contur2),
    BIND(cross),
    BIND(crvmat),
    BIND(crvqdr),
    BIND(crvt3d),
    BIND(crvtri),
    BIND(csrlin),
    BIND(csrmod),
    OWN((csr_r<&::csrmov, 0>)),
    OWN((csr_r<&::csrpol, 1>)),
    BIND(csrpt1),
    OWN((csr_r<&::csrpts, 1>)),
    BIND(csrrec),
    BIND(csrtyp),
    BIND(csruni),
    BIND(curv3d),
    BIND(curv4d),
    BIND(curve),
    BIND(curve3),
    BIND(curvmp),
    BIND(curvx3),
    BIND(curvy3),
    BIND(cyli3d),
    BIND(dash),
    BIND(dashl),
    BIND(dashm),
    BIND(dbffin),
    BIND(dbfmod),
    BIND(delglb),
    BIND(digits),
    BIND(miralf),
    BIND(mirenv),
    BIND(mirfin),
    OWN(mirini_r),
    BIND(disk3d),
    BIND(doevnt),
    BIND(dot),
    BIND(dotl),
    BIND(duplx),
    BIND(dwgmsg),
    BIND(ellips),
    BIND(endgrf),
    BIND(erase),
    BIND(errbar),
    BIND(errdev),
    BIND(errfil),
    BIND(errmod),
    BIND(eushft),
    BIND(expimg),
    BIND(expzlb),
    BIND(fbars),
    BIND(field),
    BIND(field3d),
    BIND(filbox),
    BIND(filclr),
    BIND(filmod),
    BIND(filopt),
    BIND(filwin),
    BIND(fitscls),
    BIND(fixspc),
    BIND(flab3d),
    BIND(frame),
    OWN(nocall),
    BIND(frmbar),
    BIND(frmclr),
    BIND(frmess),
    BIND(gapcrv),
    BIND(gapsiz),
    BIND(gaxpar),
    BIND(getclp),
    BIND(getdig),
    BIND(getgrf),
    BIND(getico),
    BIND(getind),
    BIND(getlab),
    BIND(getlen),
    BIND_OUT(getmat, "1*2 1*2 1*2"),
    BIND(getor),
    BIND(getpag),
    BIND(getpos),
    BIND(getran),
    BIND(getrco),
    BIND(getres),
    BIND(getrgb),
    BIND(getscl),
    BIND(getscm),
    BIND(getscr),
    BIND(getsp1),
    BIND(getsp2),
    BIND(getsym),
    BIND(gettcl),
    BIND(gettic),
    BIND(getvk),
    BIND(getwin),
    BIND(gifmod),
    BIND(gothic),
    BIND(grace),
    BIND(graf),
    BIND(graf3),
    BIND(graf3d),
    BIND(grafmp),
    BIND(grafp),
    BIND(grafr),
    BIND(grdpol),
    BIND(grffin),
    BIND(grfimg),
    BIND(grfini),
    BIND(grid),
    BIND(grid3d),
    BIND(gridim),
    BIND(gridmp),
    BIND(gridre),
    OWN(nocall),
    BIND_OUT(gwgtbl, "1"),
    BIND(height),
    BIND(helve),
    BIND(helves),
    BIND(helvet),
    BIND(hidwin),
    BIND_OUT(histog, "0 0 -"),
    BIND(hname),
    BIND(hpgmod),
    BIND(hsym3d),
    BIND(hsymbl),
    BIND(hsvrgb),
    BIND(htitle),
    BIND(hwfont),
    BIND(hwmode),
    BIND(hworig),
    BIND(hwpage),
    BIND(hwscal),
    BIND(imgbox),
    BIND(imgclp),
    BIND(imgfin),
    BIND(imgfmt),
    BIND(imgini),
    BIND(imgmod),
    BIND(imgsiz),
    BIND(imgtpr),
    BIND(inccrv),
    BIND(incfil),
    OWN(inczkl_r),
    BIND(incmrk),
    BIND(intax),
    BIND_OUT(intutf, "1 -"),
    BIND_OUT(isopts, "3 3 3 -"),
    OWN(itmcat_r),
    OWN(itmncat_r),
    BIND(jusbar),
    BIND(labclr),
    BIND(labdig),
    BIND(labdis),
    BIND(labels),
    BIND(labjus),
    BIND(labl3d),
    BIND(labmod),
    BIND(labpos),
    BIND(labtyp),
    BIND(legbgd),
    BIND(legclr),
    OWN(legend_r),
    OWN(legini_r),
    OWN(leglin_r),
    BIND(legopt),
    BIND(legpat),
    BIND(legpos),
    BIND(legsel),
    BIND(legtbl),
    BIND(legtit),
    BIND(legtyp),
    BIND(legval),
    BIND(lfttit),
    BIND(licmod),
    BIND_OUT(licpts, "0*1 0*1"),
    BIND(light),
    BIND(linclr),
    BIND(lincyc),
    BIND(line),
    BIND(linfit),
    BIND(linesp),
    BIND(linmod),
    BIND(lintyp),
    BIND(linwid),
    BIND(litmod),
    BIND(litop3),
    BIND(litopt),
    BIND(litpos),
    BIND(lncap),
    BIND(lnjoin),
    BIND(lnmlt),
    BIND(logtic),
    BIND(mapbas),
    BIND(mapdir),
    BIND(mapfil),
    BIND(mapimg),
    BIND(maplab),
    BIND(maplev),
    BIND(mapmod),
    BIND(mapopt),
    BIND(mappol),
    BIND(mapref),
    BIND(mapsph),
    BIND(marker),
    BIND(matop3),
    BIND(matopt),
    BIND(mdfmat),
    BIND(messag),
    OWN(metafl_r),
    BIND(mixalf),
    BIND(mixleg),
    BIND(mpaepl),
    BIND(mplang),
    BIND(mplclr),
    BIND(mplpos),
    BIND(mplsiz),
    BIND(mpslogo),
    BIND(mrkclr),
    BIND(msgbox),
    BIND(mshclr),
    BIND(mshcrv),
    BIND(mylab),
    BIND(myline),
    BIND(mypat),
    BIND(mysymb),
    BIND(myvlt),
    BIND(namdis),
    BIND(name),
    BIND(namjus),
    BIND(nancrv),
    BIND(neglog),
    BIND(newmix),
    BIND(newpag),
    BIND(noarln),
    BIND(nobar),
    BIND(nobgd),
    BIND(nochek),
    BIND(noclip),
    BIND(nofill),
    BIND(nograf),
    BIND(nohide),
    BIND(noline),
    BIND(number),
    BIND(numfmt),
    BIND(numode),
    BIND(opnwin),
    BIND(origin),
    BIND(page),
    BIND(pagera),
    BIND(pagfll),
    BIND(paghdr),
    BIND(pagmod),
    BIND(pagorg),
    BIND(pagwin),
    BIND(patcyc),
    BIND(pdfmod),
    BIND(pdfmrk),
    BIND(penwid),
    BIND(pie),
    BIND(piebor),
    OWN(piecbk_r),
    BIND(pieclr),
    BIND(pieexp),
    BIND(piegrf),
    BIND(pielab),
    BIND(pieopt),
    BIND(pierot),
    BIND(pietyp),
    BIND(pieval),
    BIND(pievec),
    BIND(pike3d),
    BIND(plat3d),
    BIND(plyfin),
    BIND(plyini),
    BIND(pngmod),
    BIND(point),
    BIND(polar),
    BIND_OUT(polclp, "1 1 -"),
    BIND(polcrv),
    BIND(polmod),
    BIND(pos2pt),
    BIND(pos3pt),
    BIND(posbar),
    BIND(proj3d),
    BIND(projct),
    BIND(psfont),
    BIND(psmeta),
    BIND(psmode),
    BIND(pt2pos),
    BIND(pyra3d),
    BIND(qplbar),
    BIND(qplclr),
    BIND(qplcon),
    BIND(qplcrv),
    BIND(qplot),
    BIND(qplpie),
    BIND(qplsca),
    BIND(qplscl),
    BIND(qplsur),
    BIND(quad3d),
    BIND(rbmp),
    BIND(reawgt),
    BIND(recfll),
    BIND(rectan),
    BIND(rel3pt),
    BIND(resatt),
    BIND(reset),
    BIND(revscr),
    BIND(rgbhsv),
    BIND(rgif),
    BIND(rgtlab),
    BIND(rimage),
    BIND(rlarc),
    BIND(rlarea),
    BIND(rlcirc),
    BIND(rlconn),
    BIND(rlell),
    BIND(rline),
    BIND(rlmess),
    BIND(rlnumb),
    BIND(rlpoin),
    BIND(rlrec),
    BIND(rlrnd),
    BIND(rlsec),
    BIND(rlstrt),
    BIND(rlsymb),
    BIND(rlvec),
    BIND(rlwind),
    BIND(rndrec),
    BIND(rot3d),
    BIND(rpixel),
    OWN(rpixls_r),
    BIND(rpng),
    BIND(rppm),
    OWN(rpxrow_r),
    BIND(rtiff),
    BIND(rvynam),
    BIND(axsscl),  // SCALE: the same call as AXSSCL
    BIND(sclfac),
    BIND(sclmod),
    BIND(scrmod),
    BIND(sector),
    BIND(selwin),
    BIND(sendbf),
    BIND(sendmb),
    BIND(sendok),
    BIND(serif),
    BIND(setbas),
    OWN(setcbk_r),
    BIND(setclr),
    BIND(setcsr),
    BIND(setexp),
    BIND(setfce),
    BIND(setfil),
    BIND(setgrf),
    BIND(setind),
    BIND(setmix),
    BIND(setpag),
    BIND(setres),
    BIND(setres3d),
    BIND(setrgb),
    BIND(setscl),
    BIND(setvlt),
    BIND(setxid),
    OWN(shade_r<&::shdafr>),
    OWN(shade_r<&::shdasi>),
    OWN(shade_r<&::shdaus>),
    BIND(shdcha),
    BIND(shdcrv),
    OWN(shade_r<&::shdeur>),
    BIND(shdfac),
    BIND(shdmap),
    BIND(shdmod),
    BIND(shdnor),
    BIND(shdpat),
    BIND(shdsou),
    BIND(shdusa),
    BIND(shield),
    BIND(shlcir),
    BIND(shldel),
    BIND(shlell),
    BIND(shlpie),
    BIND(shlpol),
    BIND(shlrct),
    BIND(shlrec),
    BIND(shlsur),
    BIND(shlvis),
    BIND(simplx),
    BIND(smxalf),
    BIND(solid),
    BIND(sortr1),
    BIND(sortr2),
    BIND(spcbar),
    BIND(sphe3d),
    BIND_OUT(spline, "0 0 -"),
    BIND(splmod),
    BIND(stmmod),
    BIND(stmopt),
    BIND_OUT(stmpts, "2 2 -"),
    BIND_OUT(stmpts3d, "3 3 3 -"),
    BIND(stmtri),
    BIND(stmval),
    BIND(stream),
    BIND(stream3d),
    BIND(strt3d),
    BIND(strtpt),
    BIND(surclr),
    BIND(surfce),
    OWN(surfcp_r),
    OWN(surfun_r),
    BIND(suriso),
    BIND(surmat),
    BIND(surmsh),
    BIND(suropt),
    BIND(surshc),
    BIND(surshd),
    BIND(sursze),
    BIND(surtri),
    BIND(survis),
    BIND(swapi2),
    BIND(swapi4),
    BIND(swgatt),
    BIND(swgbgd),
    BIND(swgbox),
    BIND(swgbut),
    OWN(swgcb_r),
    OWN(swgcb2_r),
    OWN(swgcb3_r),
    OWN(swgcbk_r),
    BIND(swgclr),
    BIND(swgdrw),
    BIND(swgfgd),
    BIND(swgfil),
    BIND(swgflt),
    BIND(swgfnt),
    BIND(swgfoc),
    BIND(swghlp),
    BIND(swgint),
    BIND(swgiop),
    BIND(swgjus),
    BIND(swglis),
    BIND(swgmix),
    BIND(swgmrg),
    BIND(swgopt),
    BIND(swgpop),
    BIND(swgpos),
    BIND(swgray),
    BIND(swgscl),
    BIND(swgsiz),
    BIND(swgspc),
    BIND(swgstp),
    BIND(swgtbf),
    BIND(swgtbi),
    BIND(swgtbl),
    BIND(swgtbs),
    BIND(swgtit),
    BIND(swgtxt),
    BIND(swgtyp),
    BIND(swgval),
    BIND(swgwin),
    BIND(swgwth),
    BIND(symbol),
    BIND(symb3d),
    BIND(symfil),
    BIND(symrot),
    BIND(texmod),
    BIND(texopt),
    BIND(texval),
    BIND(thkc3d),
    BIND(thkcrv),
    BIND(ticks),
    BIND(ticlen),
    BIND(ticmod),
    BIND(ticpos),
    BIND(tifmod),
    BIND(tiforg),
    BIND(tifwin),
    BIND(timopt),
    BIND(titjus),
    BIND(title),
    BIND(titlin),
    BIND(titpos),
    BIND(torus3d),
    BIND(tprfin),
    BIND(tprini),
    BIND(tprmod),
    BIND(tprval),
    BIND(tr3axs),
    BIND(tr3res),
    BIND(tr3rot),
    BIND(tr3scl),
    BIND(tr3shf),
    BIND(trfco1),
    BIND(trfco2),
    BIND(trfco3),
    BIND(trfdat),
    BIND_OUT(trfmat, "2*3"),
    BIND(trfrel),
    BIND(trfres),
    BIND(trfrot),
    BIND(trfscl),
    BIND(trfshf),
    BIND(tria3d),
    BIND_OUT(triang, "1 1 1 -"),
    BIND(triflc),
    BIND(trifll),
    BIND(triplx),
    BIND_OUT(tripts, "2 2 3 -"),
    BIND(ttfont),
    BIND(tube3d),
    OWN(nocall),
    OWN(nocall),
    BIND(txtbgd),
    BIND(txtjus),
    BIND_OUT(txture, "0*1"),
    BIND(unit),
    BIND(units),
    BIND(upstr),
    BIND_OUT(utfint, "0 -"),
    BIND(vang3d),
    BIND(vclp3d),
    BIND(vecclr),
    BIND(vecfld),
    BIND(vecf3d),
    BIND(vecmat),
    BIND(vecmat3d),
    BIND(vecopt),
    BIND(vector),
    BIND(vfoc3d),
    BIND(view3d),
    BIND(vkxbar),
    BIND(vkybar),
    BIND(vkytit),
    BIND(vltfil),
    BIND(vscl3d),
    BIND(vtx3d),
    BIND(vtxc3d),
    BIND(vtxn3d),
    BIND(vup3d),
    BIND(wgfin),
    BIND(widbar),
    BIND(wimage),
    OWN(wincbk_r),
    BIND(windbr),
    BIND(window),
    BIND(winfnt),
    BIND(winico),
    BIND(winjus),
    BIND(winkey),
    BIND(winmod),
    BIND(winopt),
    BIND(winsiz),
    BIND(wintit),
    BIND(wintyp),
    BIND(wmfmod),
    BIND(world),
    BIND(wpixel),
    BIND(wpixls),
    BIND(wpxrow),
    BIND(wtiff),
    BIND(x11fnt),
    BIND(x11mod),
    BIND(xaxgit),
    BIND(xaxis),
    BIND(xaxlg),
    BIND(xaxmap),
    BIND(xcross),
    BIND(xdraw),
    BIND(xmove),
    BIND(yaxgit),
    BIND(yaxis),
    BIND(yaxlg),
    BIND(yaxmap),
    BIND(ycross),
    BIND(ypolar),
    BIND(zaxis),
    BIND(zaxlg),
    BIND(zbfers),
    BIND(zbffin),
    BIND(zbflin),
    BIND(zbfmod),
    BIND(zbfres),
    BIND(zbfscl),
    BIND(zbftri),
    BIND(zscale),
};

int exec_routine(const char *name, int number) {
  if (number < 0 || number >= NROUTINE) {
    std::printf(" >>>> Unknown routine %s in exec_routine!\n", name);
    free_stack(0);
    return 0;
  }
  Marshal m(name, cray[number].sig, routines[number].sizes);
  int status = routines[number].run(m);
  free_stack(0);
  return status;
}
