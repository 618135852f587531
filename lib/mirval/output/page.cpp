// Output, page and library levels: METAFL ... MIRINI opens a page, MIRFIN (or the end of the
// program) writes the file.
#include "output/device.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "mirval.h"
#include "core/state.h"
#include "core/trace.h"
#include "window/screen.h"

#include <cstdlib>

namespace {

struct PageFormat {
  const char *name;
  int w, h;
};
const PageFormat page_formats[] = {
    {"DA4L", 2970, 2100},  {"DA4P", 2100, 2970},  {"DA3L", 4200, 2970}, {"DA3P", 2970, 4200},
    {"DA2L", 5940, 4200},  {"DA2P", 4200, 5940},  {"DA1L", 8410, 5940}, {"DA1P", 5940, 8410},
    {"DA0L", 11890, 8410}, {"DA0P", 8410, 11890}, {"USAL", 2794, 2159}, {"USAP", 2159, 2794}};

// Writes the picture when the program ends with the page still open, as quick plots do.
void finish_at_exit() {
  MirvalState &st = mirval_state();
  if (st.level == 0) return;
  if (screen_active()) screen_at_exit();
  else write_output("mirfin", true);
  st.level = 0;
}

void open_error_file() {
  MessageState &m = mirval_state().msg;
  if (m.fp) std::fclose(m.fp);
  m.fp = std::fopen(m.file.c_str(), "w");
  if (!m.fp) {
    m.to_file = false;
    mv_warn("errdev", "cannot open %s; messages stay on standard error", m.file.c_str());
  }
}

}  // namespace

extern "C" {

void metafl(const char *cfmt) {
  mv_tracef("metafl(%s)", mv_tstr(cfmt).c_str());
  if (!mv_level("metafl", 0, 0)) return;
  PageState &pg = mirval_state().page;
  if (!cfmt || !parse_format(cfmt, pg.format, pg.screen)) {
    // formats whose settings routines exist (CGMVER, WMFMOD, HPGMOD) but that are not written
    if (keyword_index(cfmt, {"CGM", "WMF", "HPGL"}) >= 0)
      mv_warn("metafl", "%s files are not written by this library: PNG is written instead", upper(cfmt).c_str());
    else
      mv_warn("metafl", "unknown format %s: PNG is used", mv_tstr(cfmt).c_str());
    pg.format = Format::PNG;
    pg.screen = false;
  }
}

void setfil(const char *cfil) {
  mv_tracef("setfil(%s)", mv_tstr(cfil).c_str());
  if (!mv_level("setfil", 0, 0)) return;
  if (!cfil || !*cfil) {
    mv_warn("setfil", "empty file name");
    return;
  }
  mirval_state().page.file = cfil;
}

void filmod(const char *cmod) {
  mv_tracef("filmod(%s)", mv_tstr(cmod).c_str());
  if (!mv_level("filmod", 0, 0)) return;
  static const char *modes[] = {"DELETE", "VERSION", "BREAK"};
  for (int i = 0; i < 3; ++i)
    if (same(cmod, modes[i])) {
      mirval_state().page.filmod = i;
      return;
    }
  mv_warn("filmod", "unknown mode %s", mv_tstr(cmod).c_str());
}

const char *getfil(void) {
  mv_tracef("getfil()");
  const PageState &pg = mirval_state().page;
  static std::string name;
  if (!pg.used.empty()) name = pg.used;
  else name = pg.file.empty() ? std::string("mirval.") + format_ext(pg.format) : pg.file;
  return name.c_str();
}

void page(int nxpag, int nypag) {
  mv_tracef("page(%d, %d)", nxpag, nypag);
  if (!mv_level("page", 0, 0)) return;
  if (nxpag <= 0 || nypag <= 0) {
    mv_warn("page", "page size must be positive (got %d x %d)", nxpag, nypag);
    return;
  }
  mirval_state().page.width = nxpag;
  mirval_state().page.height = nypag;
}

void setpag(const char *cpag) {
  mv_tracef("setpag(%s)", mv_tstr(cpag).c_str());
  if (!mv_level("setpag", 0, 0)) return;
  for (const PageFormat &f : page_formats)
    if (same(cpag, f.name)) {
      mirval_state().page.width = f.w;
      mirval_state().page.height = f.h;
      return;
    }
  mv_warn("setpag", "unknown page format %s", mv_tstr(cpag).c_str());
}

void pagorg(const char *copt) {
  mv_tracef("pagorg(%s)", mv_tstr(copt).c_str());
  if (same(copt, "TOP")) mirval_state().page.bottom = false;
  else if (same(copt, "BOTTOM")) mirval_state().page.bottom = true;
  else mv_warn("pagorg", "unknown option %s", mv_tstr(copt).c_str());
}

void winsiz(int nw, int nh) {
  mv_tracef("winsiz(%d, %d)", nw, nh);
  if (!mv_level("winsiz", 0, 0)) return;
  if (nw <= 0 || nh <= 0 || nw > 8000 || nh > 8000) {
    mv_warn("winsiz", "size %d x %d out of range 1..8000", nw, nh);
    return;
  }
  mirval_state().page.win_w = nw;
  mirval_state().page.win_h = nh;
}

void scrmod(const char *cmode) {
  mv_tracef("scrmod(%s)", mv_tstr(cmode).c_str());
  if (!mv_level("scrmod", 0, 0)) return;
  if (same(cmode, "REVERSE")) mirval_state().page.reverse = true;
  else if (same(cmode, "NORMAL") || same(cmode, "AUTO")) mirval_state().page.reverse = false;
  else mv_warn("scrmod", "unknown mode %s", mv_tstr(cmode).c_str());
}

void setres(int npb, int nph) {
  mv_tracef("setres(%d, %d)", npb, nph);
  if (npb <= 0 || nph <= 0) {
    mv_warn("setres", "sizes must be positive (got %d, %d)", npb, nph);
    return;
  }
  mirval_state().page.xres = npb;
  mirval_state().page.yres = nph;
}

void getres(int *npb, int *nph) {
  mv_tracef("getres(npb=out, nph=out)");
  if (npb) *npb = mirval_state().page.xres;
  if (nph) *nph = mirval_state().page.yres;
}

void getpag(int *nxpag, int *nypag) {
  mv_tracef("getpag(nxpag=out, nypag=out)");
  if (nxpag) *nxpag = mirval_state().page.width;
  if (nypag) *nypag = mirval_state().page.height;
}

void mirini(void) {
  mv_tracef("mirini()");
  if (!mv_level("mirini", 0, 0)) return;
  MirvalState &st = mirval_state();
  if (st.page.screen && screen_begin()) {
    st.page.used.clear();
  } else {
    choose_file();
    if (st.page.screen)
      mv_warn("mirini", "no screen window can be opened; the picture goes to %s", st.page.used.c_str());
  }
  st.scene.pages.assign(1, Page{});
  ++st.scene.changes;
  st.legend.curves.clear();
  st.level = 1;
  if (!st.page.exit_hook) {
    st.page.exit_hook = true;
    std::atexit(finish_at_exit);
  }
}

void mirfin(void) {
  mv_tracef("mirfin()");
  if (!mv_level("mirfin", 1, 3)) return;
  MirvalState &st = mirval_state();
  if (screen_active()) screen_finish();
  else write_output("mirfin", true);
  st.scene.pages.clear();
  ++st.scene.changes;
  st.level = 0;
}

void sendbf(void) {
  mv_tracef("sendbf()");
  if (!mv_level("sendbf", 1, 3)) return;
  if (screen_active()) screen_update();
  else write_output("sendbf", false);
}

void erase(void) {
  mv_tracef("erase()");
  if (!mv_level("erase", 1, 3)) return;
  MirvalState &st = mirval_state();
  st.scene.current().items.clear();
  ++st.scene.changes;
  st.legend.curves.clear();
}

void newpag(void) {
  mv_tracef("newpag()");
  if (!mv_level("newpag", 1, 3)) return;
  MirvalState &st = mirval_state();
  st.scene.pages.emplace_back();
  ++st.scene.changes;
  st.legend.curves.clear();
}

void errmod(const char *cstr, const char *cmode) {
  mv_tracef("errmod(%s, %s)", mv_tstr(cstr).c_str(), mv_tstr(cmode).c_str());
  bool on = same(cmode, "ON");
  if (!on && !same(cmode, "OFF")) {
    mv_warn("errmod", "mode must be ON or OFF, not %s", mv_tstr(cmode).c_str());
    return;
  }
  MirvalState &st = mirval_state();
  if (same(cstr, "ALL") || same(cstr, "WARNINGS")) st.msg.warnings = on;
  else if (same(cstr, "CHECK")) st.curve.check = on;
  else mv_warn("errmod", "unknown message class %s", mv_tstr(cstr).c_str());
}

void errdev(const char *cdev) {
  mv_tracef("errdev(%s)", mv_tstr(cdev).c_str());
  MessageState &m = mirval_state().msg;
  if (same(cdev, "FILE")) {
    m.to_file = true;
    if (!m.fp) open_error_file();
  } else if (same(cdev, "CONS") || same(cdev, "STDERR")) {
    m.to_file = false;
  } else {
    mv_warn("errdev", "unknown device %s", mv_tstr(cdev).c_str());
  }
}

void errfil(const char *cfil) {
  mv_tracef("errfil(%s)", mv_tstr(cfil).c_str());
  if (!cfil || !*cfil) {
    mv_warn("errfil", "empty file name");
    return;
  }
  MessageState &m = mirval_state().msg;
  m.file = cfil;
  if (m.to_file) open_error_file();
}

void gfilnn(const char *cname) {
  mv_tracef("gfilnn(%s)", mv_tstr(cname).c_str());
  if (cname && *cname) mirval_state().page.reserved.insert(cname);
}

const char *getmfl(void) {
  mv_tracef("getmfl()");
  const PageState &pg = mirval_state().page;
  return pg.screen ? "CONS" : format_name(pg.format);
}

}
