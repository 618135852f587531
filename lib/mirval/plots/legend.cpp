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

#include <algorithm>
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
  std::string t(cbuf + size_t(i) * lg.chars, size_t(lg.chars));
  t.resize(std::strlen(t.c_str()));
  t.erase(t.find_last_not_of(' ') + 1);
  return t;
}

// The look of curve i, or the current pen when fewer curves were drawn.
CurveLook look(int i) {
  const MirvalState &st = mirval_state();
  if (i < static_cast<int>(st.legend.curves.size())) return st.legend.curves[i];
  return {pen_rgb(), st.pen.width * st.pen.thick, st.pen.dash, st.curve.incmrk, st.curve.marker};
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
  double h = st.text.height, pad = 0.6 * h, sample = lg.sample * h, gap = lg.gap * h;
  double pitch = h * (1 + lg.spacing);
  std::vector<std::string> lines;
  double widest = lg.title.empty() ? 0 : text_length(lg.title, "", h);
  double text_w = 0;
  for (int i = 0; i < lg.lines; ++i) {
    lines.push_back(line_text(cbuf, i));
    text_w = std::max(text_w, text_length(lines.back(), "", h));
  }
  double title_h = lg.title.empty() ? 0 : h + 0.8 * h;
  double w = std::max(widest, sample + gap + text_w) + 2 * pad;
  double ht = 2 * pad + title_h + h + (lg.lines - 1) * pitch;
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
  Path box;
  box.move({x, y});
  box.line({x + w, y});
  box.line({x + w, y + ht});
  box.line({x, y + ht});
  box.close();
  if (lg.background != -1) fill_path(box, lg.background == -2 ? back_rgb() : table_rgb(lg.background));
  if (st.pen.frame > 0) stroke_path(box, pen_rgb(), st.pen.frame, {});
  double top = y + pad;
  if (!lg.title.empty()) {
    put_text(lg.title, "", {x + pad, top}, h, 0, Just::Left, VAlign::Top, pen_rgb());
    top += title_h;
  }
  for (int i = 0; i < lg.lines; ++i, top += pitch) {
    CurveLook c = look(i);
    double mid = top + h / 2, x0 = x + pad;
    if (c.incmrk >= 0) stroke_polyline({{x0, mid}, {x0 + sample, mid}}, page_rect(), c.rgb, c.width, c.dash);
    if (c.incmrk != 0) draw_marker(c.marker, {x0 + sample / 2, mid}, st.curve.hsymbl, c.rgb, st.pen.width);
    put_text(lines[i], "", {x0 + sample + gap, mid}, h, 0, Just::Left, VAlign::Middle,
             lg.text_colours ? c.rgb : pen_rgb());
  }
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

}
