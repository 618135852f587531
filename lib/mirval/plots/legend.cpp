// Legends: the caller owns the text buffer (LEGINI fills it with blanks, LEGLIN writes its
// lines); LEGEND draws a framed box that shows each curve's line and marker beside its text.
#include "draw/colours.h"
#include "output/device.h"
#include "draw/draw.h"
#include "draw/markers.h"
#include "core/messages.h"
#include "mirval.h"
#include "axes/scaling.h"
#include "core/state.h"
#include "draw/text.h"
#include "core/trace.h"
#include "draw/pen.h"
#include "plots/charts.h"
#include "core/keywords.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

bool ready(const char *routine, const char *cbuf) {
  const LegendState &lg = mirval_state().legend;
  if (cbuf && lg.lines > 0) return true;
  mv_warn(routine, "no legend buffer: call LEGINI first");
  return false;
}

std::string line_text(const char *cbuf, int i) {
  const LegendState &lg = mirval_state().legend;
  // the buffer ends at its terminator, which may come before the lines LEGINI promised
  size_t from = size_t(i) * lg.chars, end = strnlen(cbuf, from + size_t(lg.chars));
  if (end <= from) return "";
  std::string t(cbuf + from, end - from);
  t.erase(t.find_last_not_of(' ') + 1);
  return t;
}

// The look of curve i, or the current pen when fewer curves were drawn.
CurveLook look(int i) {
  const MirvalState &st = mirval_state();
  auto g = st.legend.given.find(i + 1);
  if (g != st.legend.given.end()) return g->second;
  if (i < static_cast<int>(st.legend.curves.size())) return st.legend.curves[i];
  CurveLook c;
  c.rgb = pen_rgb();
  c.width = st.pen.width * st.pen.thick;
  c.dash = st.pen.dash;
  c.incmrk = st.curve.incmrk;
  c.marker = st.curve.marker;
  return c;
}

// Where the parts of a legend go: its lines (LEGSEL), their columns and rows (LEGTBL, LEGTYP)
// and its size.
struct Layout {
  std::vector<int> shown;        // buffer lines (from 0), in order
  std::vector<std::string> texts;
  int cols = 1, rows = 1;
  double h = 36, pad = 0, sample = 0, gap = 0, pitch = 0, title_h = 0, colw = 0, colgap = 0;
  double w = 0, ht = 0;
};

Layout layout(const char *cbuf) {
  const MirvalState &st = mirval_state();
  const LegendState &lg = st.legend;
  Layout L;
  if (lg.selected.empty()) {
    for (int i = 0; i < lg.lines; ++i) L.shown.push_back(i);
  } else {
    for (int k : lg.selected)
      if (k >= 1 && k <= lg.lines) L.shown.push_back(k - 1);
  }
  L.h = st.text.height;
  L.pad = 0.6 * L.h;
  L.sample = lg.sample * L.h;
  L.gap = lg.gap * L.h;
  L.pitch = L.h * (1 + lg.spacing);
  L.colgap = lg.column_gap * L.h;
  double text_w = 0;
  for (int i : L.shown) {
    L.texts.push_back(line_text(cbuf, i));
    text_w = std::max(text_w, text_length(L.texts.back(), "", L.h));
  }
  int m = std::max<int>(1, static_cast<int>(L.shown.size()));
  if (lg.horizontal) L.cols = m;
  else if (lg.table_rows) L.cols = (m + lg.table - 1) / lg.table;
  else L.cols = std::min(lg.table, m);
  L.rows = (m + L.cols - 1) / L.cols;
  L.colw = L.sample + L.gap + text_w;
  L.title_h = lg.title.empty() ? 0 : 1.8 * L.h;
  double title_w = lg.title.empty() ? 0 : text_length(lg.title, "", L.h);
  L.w = std::max(title_w, L.cols * L.colw + (L.cols - 1) * L.colgap) + 2 * L.pad;
  L.ht = 2 * L.pad + L.title_h + L.h + (L.rows - 1) * L.pitch;
  return L;
}

// The sample of a legend line: a filled patch for bars and pies, else a line and a marker.
void sample(const CurveLook &c, double x0, double mid, const Layout &L) {
  const MirvalState &st = mirval_state();
  if (c.pattern >= 0) {
    double ph = st.legend.patch_height * L.h;
    chart_area(rect_path(x0, mid - ph / 2, x0 + L.sample, mid + ph / 2), c.fill, c.pattern, c.outlined, c.rgb);
    return;
  }
  if (c.incmrk >= 0) stroke_polyline({{x0, mid}, {x0 + L.sample, mid}}, page_rect(), c.rgb, c.width, c.dash);
  if (c.incmrk != 0 && c.marker >= 0 && c.marker < marker_count)
    draw_marker(c.marker, {x0 + L.sample / 2, mid}, st.curve.hsymbl * st.legend.symbol_scale,
                c.marker_own ? c.marker_rgb : c.rgb, st.pen.width);
}

}  // namespace

extern "C" {

void legini(char *cbuf, int nlin, int nmaxln) {
  mv_tracef("legini(cbuf=out, nlin=%d, nmaxln=%d)", nlin, nmaxln);
  if (!cbuf) {
    mv_warn("legini", "no buffer given");
    return;
  }
  if (!in_range("legini", "number of lines", nlin, 1, 10000) ||
      !in_range("legini", "characters per line", nmaxln, 1, 10000))
    return;
  LegendState &lg = mirval_state().legend;
  lg.lines = nlin;
  lg.chars = nmaxln;
  size_t n = size_t(nlin) * nmaxln;
  std::memset(cbuf, ' ', n);
  cbuf[n] = '\0';
}

void leglin(char *cbuf, const char *cstr, int ilin) {
  mv_tracef("leglin(cbuf=[buffer], cstr=%s, ilin=%d)", mv_tstr(cstr).c_str(), ilin);
  if (!ready("leglin", cbuf)) return;
  const LegendState &lg = mirval_state().legend;
  if (ilin < 1 || ilin > lg.lines) {
    mv_warn("leglin", "line %d out of range 1..%d", ilin, lg.lines);
    return;
  }
  size_t len = cstr ? std::min(std::strlen(cstr), size_t(lg.chars)) : 0;
  // never cut a UTF-8 character in two
  while (len > 0 && len < std::strlen(cstr) && (static_cast<unsigned char>(cstr[len]) & 0xC0) == 0x80) --len;
  char *dst = cbuf + size_t(ilin - 1) * lg.chars;
  std::memset(dst, ' ', lg.chars);
  if (len) std::memcpy(dst, cstr, len);
}

void legend(char *cbuf, int ncor) {
  mv_tracef("legend(cbuf=[buffer], ncor=%d)", ncor);
  if (!mv_level("legend", 1, 3) || !ready("legend", cbuf)) return;
  if (ncor < 1 || ncor > 8) {
    mv_warn("legend", "position %d out of range 1..8", ncor);
    return;
  }
  const MirvalState &st = mirval_state();
  const LegendState &lg = st.legend;
  Layout L = layout(cbuf);
  double w = L.w, ht = L.ht, h = L.h;
  // upper left corner: LEGPOS, or a corner of the page (1..4) or of the axis system (5..8)
  double x, y;
  if (lg.placed) {
    x = lg.x;
    y = page_y(lg.y);
  } else {
    Rect area = page_rect();
    double m = 60;
    if (ncor > 4) {
      area = st.level >= 2 ? st.axes.box : placed_box();
      m = 0.6 * h;
    }
    int corner = (ncor - 1) % 4;  // 0 lower left, 1 lower right, 2 upper right, 3 upper left
    x = corner == 0 || corner == 3 ? area.x0 + m : area.x1 - m - w;
    y = corner <= 1 ? area.y1 - m - ht : area.y0 + m;
  }
  Path box = rect_path(x, y, x + w, y + ht);
  if (lg.background != -1) fill_path(box, lg.background == -2 ? back_rgb() : table_rgb(lg.background));
  if (st.pen.frame > 0) stroke_path(box, pen_rgb(), st.pen.frame, {});
  double top = y + L.pad;
  if (!lg.title.empty()) {
    put_text(lg.title, "", {x + L.pad, top}, h, 0, Just::Left, VAlign::Top, pen_rgb());
    top += L.title_h;
  }
  for (size_t k = 0; k < L.shown.size(); ++k) {
    int col = static_cast<int>(k) / L.rows, row = static_cast<int>(k) % L.rows;
    if (lg.horizontal) col = static_cast<int>(k), row = 0;
    CurveLook c = look(L.shown[k]);
    double mid = top + row * L.pitch + h / 2, x0 = x + L.pad + col * (L.colw + L.colgap);
    sample(c, x0, mid, L);
    put_text(L.texts[k], "", {x0 + L.sample + L.gap, mid}, h, 0, Just::Left, VAlign::Middle,
             lg.text_colours ? (c.pattern >= 0 ? c.fill : c.rgb) : pen_rgb());
  }
  if (st.chart.shield_legend) add_shield({{x, y}, {x + w, y}, {x + w, y + ht}, {x, y + ht}}, true);
}

void legtit(const char *cstr) {
  mv_tracef("legtit(%s)", mv_tstr(cstr).c_str());
  std::string t = cstr ? cstr : "";
  t.erase(t.find_last_not_of(' ') + 1);
  mirval_state().legend.title = t;
}

void legpos(int nx, int ny) {
  mv_tracef("legpos(%d, %d)", nx, ny);
  LegendState &lg = mirval_state().legend;
  lg.placed = true;
  lg.x = nx;
  lg.y = ny;
}

void legopt(float x1, float x2, float x3) {
  mv_tracef("legopt(%g, %g, %g)", (double)x1, (double)x2, (double)x3);
  if (!(x1 >= 0) || !(x2 >= 0) || !(x3 >= 0) || x1 > 100 || x2 > 100 || x3 > 100) {
    mv_warn("legopt", "factors must lie between 0 and 100 (got %g, %g, %g)", (double)x1, (double)x2, (double)x3);
    return;
  }
  LegendState &lg = mirval_state().legend;
  lg.sample = x1;
  lg.gap = x2;
  lg.spacing = x3;
}

void legclr(void) {
  mv_tracef("legclr()");
  mirval_state().legend.text_colours = true;
}

void legbgd(int n) {
  mv_tracef("legbgd(%d)", n);
  if (in_range("legbgd", "colour", n, -1, 255)) mirval_state().legend.background = n;
}

void legpat(int n1, int n2, int n3, int n4, int n5, int n6) {
  mv_tracef("legpat(%d, %d, %d, %d, %d, %d)", n1, n2, n3, n4, n5, n6);
  if (!in_range("legpat", "line style", n1, -1, 7) || !in_range("legpat", "thickness", n2, 1, 100) ||
      !in_range("legpat", "symbol", n3, -1, marker_count - 1) || !in_range("legpat", "colour", n4, -1, 255) ||
      !in_range("legpat", "pattern", n5, -1, 16) || !in_range("legpat", "legend line", n6, 1, 10000))
    return;
  MirvalState &st = mirval_state();
  CurveLook c;
  c.rgb = n4 >= 0 ? table_rgb(n4) : pen_rgb();
  c.width = st.pen.width * n2;
  if (n5 >= 0) {
    c.pattern = n5 == 0 ? 16 : n5;
    c.fill = c.rgb;
    c.rgb = pen_rgb();
  } else {
    if (n1 >= 0) {
      PenState keep = st.pen;
      set_line_style(n1);
      c.dash = st.pen.dash;
      st.pen = keep;
    }
    c.incmrk = n1 < 0 ? -1 : n3 >= 0 ? 1 : 0;
    c.marker = n3;
  }
  st.legend.given[n6] = c;
}

void legsel(const int *nray, int n) {
  mv_tracef("legsel(nray=%s, n=%d)", mv_tarr(n, "ints").c_str(), n);
  if (!nray || n < 1) {
    mv_warn("legsel", "no lines given (n = %d)", n);
    return;
  }
  LegendState &lg = mirval_state().legend;
  lg.selected.clear();
  if (n == 1 && nray[0] == -1) return;  // all lines again
  for (int i = 0; i < n; ++i) {
    if (nray[i] < 1) {
      mv_warn("legsel", "line number %d below 1", nray[i]);
      lg.selected.clear();
      return;
    }
    lg.selected.push_back(nray[i]);
  }
}

void legtbl(int n, const char *c) {
  mv_tracef("legtbl(%d, %s)", n, mv_tstr(c).c_str());
  if (!in_range("legtbl", "number", n, 1, 100)) return;
  LegendState &lg = mirval_state().legend;
  if (same(c, "COLUMNS") || same(c, "COLS")) lg.table_rows = false;
  else if (same(c, "ROWS")) lg.table_rows = true;
  else {
    mv_warn("legtbl", "unknown option %s", mv_tstr(c).c_str());
    return;
  }
  lg.table = n;
  lg.horizontal = false;
}

void legtyp(const char *c) {
  mv_tracef("legtyp(%s)", mv_tstr(c).c_str());
  if (same(c, "VERT")) mirval_state().legend.horizontal = false;
  else if (same(c, "HORI")) mirval_state().legend.horizontal = true;
  else mv_warn("legtyp", "unknown type %s", mv_tstr(c).c_str());
}

void legval(float x, const char *c) {
  mv_tracef("legval(%g, %s)", (double)x, mv_tstr(c).c_str());
  LegendState &lg = mirval_state().legend;
  double *target = same(c, "SYMBOL") ? &lg.symbol_scale : same(c, "PATCH") ? &lg.patch_height
                 : same(c, "COLUMN") ? &lg.column_gap : nullptr;
  if (!target) {
    mv_warn("legval", "unknown option %s", mv_tstr(c).c_str());
    return;
  }
  if (in_range("legval", "factor", x, 0, 100)) *target = x;
}

int nxlegn(const char *cbuf) {
  mv_tracef("nxlegn(%s)", mv_tstr(cbuf).c_str());
  if (!ready("nxlegn", cbuf)) return 0;
  return static_cast<int>(std::lround(layout(cbuf).w));
}

int nylegn(const char *cbuf) {
  mv_tracef("nylegn(%s)", mv_tstr(cbuf).c_str());
  if (!ready("nylegn", cbuf)) return 0;
  return static_cast<int>(std::lround(layout(cbuf).ht));
}

}
