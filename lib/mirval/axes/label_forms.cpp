// Label forms of axes and charts: dates (BASDAT and the day helpers), the user's own labels
// (MYLAB, ADDLAB), where and how labels stand (LABPOS, LABJUS, LABTYP, LABMOD, LABCLR), how
// numbers look (NUMFMT, NUMODE, EXPZLB), and axis names and titles (NAMJUS, TITPOS, LFTTIT,
// RGTLAB, RVYNAM).
#include "axes/axes.h"
#include "axes/date_labels.h"
#include "axes/scaling.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "core/trace.h"
#include "draw/draw.h"
#include "mirval.h"

#include <cmath>
#include <string>

namespace {

AxisExtraState &extra() { return mirval_state().axextra; }

// The chart targets whose labels LABPOS, LABJUS and LABCLR set besides the axes.
bool is_target(const char *c) { return same(c, "BARS") || same(c, "PIE"); }

// LABPOS and LABJUS for a chart target c2: keeps keyword c1 (AUTO, the two given, CENTER or
// CENT, kept as CENTER) in 'field'. False when c2 is no target.
bool for_target(const char *routine, const char *what, const char *c1, const char *c2, const char *w1,
                const char *w2, std::string LabelTarget::*field) {
  if (!is_target(c2)) return false;
  int k = keyword(routine, what, c1, {"AUTO", w1, w2, "CENTER", "CENT"});
  if (k >= 0) extra().targets[upper(c2)].*field = k == 4 ? "CENTER" : upper(c1);
  return true;
}

bool base_ok(const char *routine, int d, int m, int y) {
  if (valid_date(d, m, y)) return true;
  mv_warn(routine, "%d.%d.%d is no date", d, m, y);
  return false;
}

long base_days() {
  const AxisExtraState &x = extra();
  return days_from_civil(x.base_day, x.base_month, x.base_year);
}

}  // namespace

extern "C" {

void basdat(int n1, int n2, int n3) {
  mv_tracef("basdat(%d, %d, %d)", n1, n2, n3);
  if (!base_ok("basdat", n1, n2, n3)) return;
  extra().base_day = n1, extra().base_month = n2, extra().base_year = n3;
}

int incdat(int iday, int imon, int iyear) {
  mv_tracef("incdat(%d, %d, %d)", iday, imon, iyear);
  if (!base_ok("incdat", iday, imon, iyear)) return 0;
  return static_cast<int>(days_from_civil(iday, imon, iyear) - base_days());
}

int nwkday(int iday, int imon, int iyear) {
  mv_tracef("nwkday(%d, %d, %d)", iday, imon, iyear);
  if (!base_ok("nwkday", iday, imon, iyear)) return 0;
  return weekday(days_from_civil(iday, imon, iyear));
}

void trfdat(int ndays, int *iday, int *imon, int *iyear) {
  mv_tracef("trfdat(ndays=%d, iday=out, imon=out, iyear=out)", ndays);
  long d = base_days() + ndays;
  CivilDate c{0, 0, 0};
  if (d < days_from_civil(1, 1, 1) || d > days_from_civil(31, 12, 9999)) mv_warn("trfdat", "day %d is out of range", ndays);
  else c = civil_from_days(d);
  if (iday) *iday = c.day;
  if (imon) *imon = c.month;
  if (iyear) *iyear = c.year;
}

void mylab(const char *c1, int n, const char *c2) {
  mv_tracef("mylab(%s, %d, %s)", mv_tstr(c1).c_str(), n, mv_tstr(c2).c_str());
  if (!in_range("mylab", "label number", n, 1, 1000)) return;
  std::string t = trimmed(c1);
  for_forms("mylab", c2, [&](AxisForm &f) { f.mylab[n] = t; });
}

void addlab(const char *c1, float x, int n, const char *c2) {
  mv_tracef("addlab(%s, %g, %d, %s)", mv_tstr(c1).c_str(), (double)x, n, mv_tstr(c2).c_str());
  if (!std::isfinite(x) || std::fabs(x) > 1e30) {
    mv_warn("addlab", "position %g is not a finite number", (double)x);
    return;
  }
  if (!in_range("addlab", "tick type", n, 0, 2)) return;
  std::string t = trimmed(c1);
  for_forms("addlab", c2, [&](AxisForm &f) {
    if (f.added.size() < 1000) f.added.push_back({x, t, n});
  });
}

void labpos(const char *c1, const char *c2) {
  mv_tracef("labpos(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  if (for_target("labpos", "position", c1, c2, "INSIDE", "OUTSIDE", &LabelTarget::pos)) return;
  int k = keyword("labpos", "position", c1, {"TICKS", "CENTER", "CENT"});
  if (k < 0) return;
  for_forms("labpos", c2, [&](AxisForm &f) { f.between = k > 0; });
}

void labjus(const char *c1, const char *c2) {
  mv_tracef("labjus(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  if (for_target("labjus", "justification", c1, c2, "LEFT", "RIGHT", &LabelTarget::just)) return;
  int k = keyword("labjus", "justification", c1, {"AUTO", "LEFT", "RIGHT", "OUTW", "INWA"});
  if (k < 0) return;
  for_forms("labjus", c2, [&](AxisForm &f) { f.label_just = k; });
}

void labtyp(const char *c1, const char *c2) {
  mv_tracef("labtyp(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  int k = keyword("labtyp", "label direction", c1, {"HORI", "VERT"});
  if (k < 0) return;
  for_forms("labtyp", c2, [&](AxisForm &f) { f.vertical = k == 1; });
}

// Date label forms: LABMOD('YEAR', 'NONE'|'SHORT'|'LONG'), ('MONTH', 'NUMBER'|'SHORT'|'LONG'),
// ('DAYS', 'NONE'|'SHORT'|'LONG'), ('STEP', 'AUTO'|'DAY'|'WEEK'|'MONTH'|'YEAR').
void labmod(const char *c1, const char *c2, const char *c3) {
  mv_tracef("labmod(%s, %s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str(), mv_tstr(c3).c_str());
  int key = keyword("labmod", "key", c1, {"YEAR", "MONTH", "DAYS", "STEP"});
  if (key < 0) return;
  int v = -1;
  switch (key) {
    case 0: v = keyword("labmod", "year form", c2, {"NONE", "SHORT", "LONG"}); break;
    case 1: v = keyword("labmod", "month form", c2, {"NUMBER", "SHORT", "LONG"}); break;
    case 2: v = keyword("labmod", "weekday form", c2, {"NONE", "SHORT", "LONG"}); break;
    default: v = keyword("labmod", "date step", c2, {"AUTO", "DAY", "WEEK", "MONTH", "YEAR"});
  }
  if (v < 0) return;
  for_forms("labmod", c3, [&](AxisForm &f) {
    if (key == 0) f.year = v;
    else if (key == 1) f.month = v;
    else if (key == 2) f.weekday = v;
    else f.date_step = v;
  });
}

void labclr(int n, const char *c) {
  mv_tracef("labclr(%d, %s)", n, mv_tstr(c).c_str());
  if (!in_range("labclr", "colour", n, -1, 255)) return;
  if (is_target(c)) {
    extra().targets[upper(c)].colour = n;
    return;
  }
  for_forms("labclr", c, [&](AxisForm &f) { f.colour[2] = n; });
}

void numfmt(const char *c) {
  mv_tracef("numfmt(%s)", mv_tstr(c).c_str());
  int k = keyword("numfmt", "number form", c, {"FIXED", "FLOAT", "AUTO"});
  if (k >= 0) extra().auto_numbers = k == 2;
}

// Decimal sign ('POINT' or 'COMMA'), thousands separator ('NONE', 'SPACE', 'POINT', 'COMMA'),
// sign of positive numbers ('NONE' or 'PLUS'), and a fourth word kept for later ('NONE').
void numode(const char *c1, const char *c2, const char *c3, const char *c4) {
  mv_tracef("numode(%s, %s, %s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str(), mv_tstr(c3).c_str(), mv_tstr(c4).c_str());
  int d = keyword("numode", "decimal sign", c1, {"POINT", "COMMA"});
  if (d < 0) return;
  int g = keyword("numode", "thousands separator", c2, {"NONE", "SPACE", "POINT", "COMMA"});
  if (g < 0) return;
  int s = keyword("numode", "sign form", c3, {"NONE", "PLUS"});
  if (s < 0) return;
  if (keyword("numode", "option", c4, {"NONE", "AUTO"}) < 0) return;
  if ((d == 0 && g == 2) || (d == 1 && g == 3)) {
    mv_warn("numode", "the thousands separator must differ from the decimal sign");
    return;
  }
  AxisExtraState &x = extra();
  x.decimal = d == 0 ? '.' : ',';
  x.group = g == 0 ? "" : g == 1 ? "\u2009" : g == 2 ? "." : ",";
  x.plus = s == 1;
}

void expzlb(const char *c) {
  mv_tracef("expzlb(%s)", mv_tstr(c).c_str());
  int k = keyword("expzlb", "option", c, {"ON", "OFF"});
  if (k >= 0) extra().zero_label = k == 0;
}

void namjus(const char *c1, const char *c2) {
  mv_tracef("namjus(%s, %s)", mv_tstr(c1).c_str(), mv_tstr(c2).c_str());
  int k = keyword("namjus", "justification", c1, {"LEFT", "CENT", "RIGHT", "CENTER", "BOTTOM", "TOP"});
  if (k < 0) return;
  int j = k == 3 ? 1 : k == 4 ? 0 : k == 5 ? 2 : k;
  for_forms("namjus", c2, [&](AxisForm &f) { f.name_just = j; });
}

void titpos(const char *c) {
  mv_tracef("titpos(%s)", mv_tstr(c).c_str());
  int k = keyword("titpos", "position", c, {"ABOVE", "BELOW"});
  if (k >= 0) extra().title_pos = k;
}

void lfttit(void) {
  mv_tracef("lfttit()");
  mirval_state().axes.title_just = Just::Left;
}

void rgtlab(void) {
  mv_tracef("rgtlab()");
  extra().right_labels = true;
}

void rvynam(void) {
  mv_tracef("rvynam()");
  extra().y_name_reversed = true;
}

}  // extern "C"
