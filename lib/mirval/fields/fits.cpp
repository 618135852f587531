// Fits and curves: interpolating splines (SPLINE, SPLMOD, GETSP1, GETSP2) and least squares
// lines (LINFIT) through GSL, Bezier curves (BEZIER), polygons cut at edges (POLCLP) and the
// shaded area between two curves (SHDCRV, SHDFAC, SHDCHA).
#include "axes/scaling.h"
#include "core/keywords.h"
#include "core/messages.h"
#include "core/trace.h"
#include "draw/clip.h"
#include "draw/draw.h"
#include "draw/markers.h"
#include "fields/fields.h"
#include "grids/contour.h"
#include "mirval.h"

#include <gsl/gsl_errno.h>
#include <gsl/gsl_fit.h>
#include <gsl/gsl_interp.h>
#include <gsl/gsl_statistics_double.h>

#include <algorithm>
#include <cmath>

bool fit_line(const float *x, const float *y, int n, double &a, double &b, double &r) {
  std::vector<double> xs, ys;
  for (int k = 0; k < n; ++k)
    if (std::isfinite(x[k]) && std::isfinite(y[k])) xs.push_back(x[k]), ys.push_back(y[k]);
  if (xs.size() < 2) return false;
  if (std::all_of(xs.begin(), xs.end(), [&](double v) { return v == xs[0]; })) return false;
  double c0, c1, cov00, cov01, cov11, sumsq;
  gsl_set_error_handler_off();
  if (gsl_fit_linear(xs.data(), 1, ys.data(), 1, xs.size(), &c0, &c1, &cov00, &cov01, &cov11, &sumsq) != GSL_SUCCESS)
    return false;
  a = c1, b = c0;
  bool flat = std::all_of(ys.begin(), ys.end(), [&](double v) { return v == ys[0]; });
  r = flat ? 1 : gsl_stats_correlation(xs.data(), 1, ys.data(), 1, xs.size());
  return std::isfinite(a) && std::isfinite(b);
}

bool spline_curve(const float *x, const float *y, int n, int order, int m, std::vector<Pt> &out) {
  out.clear();
  std::vector<double> px, py;
  for (int k = 0; k < n; ++k) {
    if (!std::isfinite(x[k]) || !std::isfinite(y[k])) continue;
    if (!px.empty() && px.back() == x[k] && py.back() == y[k]) continue;
    px.push_back(x[k]), py.push_back(y[k]);
  }
  size_t np = px.size();
  if (np < 2 || m < 2) return false;
  bool rising = true;
  for (size_t k = 1; k < np; ++k) rising = rising && px[k] > px[k - 1];
  const gsl_interp_type *type = order == 3 && np >= 3 ? gsl_interp_cspline : gsl_interp_linear;
  gsl_set_error_handler_off();
  auto sample = [&](const std::vector<double> &t, const std::vector<double> &v, std::vector<double> &res) {
    gsl_interp *in = gsl_interp_alloc(type, np);
    gsl_interp_accel *acc = gsl_interp_accel_alloc();
    gsl_interp_init(in, t.data(), v.data(), np);
    res.resize(m);
    for (int k = 0; k < m; ++k) {
      double s = k + 1 == m ? t.back() : t.front() + (t.back() - t.front()) * k / (m - 1);
      res[k] = gsl_interp_eval(in, t.data(), v.data(), s, acc);
    }
    gsl_interp_accel_free(acc);
    gsl_interp_free(in);
  };
  if (rising) {
    std::vector<double> ys;
    sample(px, py, ys);
    for (int k = 0; k < m; ++k) out.push_back({k + 1 == m ? px.back() : px.front() + (px.back() - px.front()) * k / (m - 1), ys[k]});
  } else {
    std::vector<double> t(np, 0);
    for (size_t k = 1; k < np; ++k) t[k] = t[k - 1] + std::hypot(px[k] - px[k - 1], py[k] - py[k - 1]);
    std::vector<double> xs, ys;
    sample(t, px, xs);
    sample(t, py, ys);
    for (int k = 0; k < m; ++k) out.push_back({xs[k], ys[k]});
  }
  return true;
}

std::vector<Pt> bezier_curve(const float *x, const float *y, int n, int m) {
  std::vector<Pt> out;
  std::vector<Pt> w(n);
  for (int k = 0; k < m; ++k) {
    double t = m > 1 ? double(k) / (m - 1) : 0;
    for (int i = 0; i < n; ++i) w[i] = {x[i], y[i]};
    for (int r = 1; r < n; ++r)
      for (int i = 0; i < n - r; ++i) w[i] = {(1 - t) * w[i].x + t * w[i + 1].x, (1 - t) * w[i].y + t * w[i + 1].y};
    out.push_back(w[0]);
  }
  return out;
}

std::vector<Pt> clip_half(const std::vector<Pt> &poly, int edge, double v) {
  std::vector<Pt> out;
  auto keep = [&](Pt p) {
    switch (edge) {
      case 0: return p.x >= v;
      case 1: return p.x <= v;
      case 2: return p.y >= v;
      default: return p.y <= v;
    }
  };
  size_t n = poly.size();
  for (size_t k = 0; k < n; ++k) {
    Pt a = poly[k], b = poly[(k + 1) % n];
    if (keep(a)) out.push_back(a);
    if (keep(a) != keep(b)) {
      double r = edge < 2 ? (v - a.x) / (b.x - a.x) : (v - a.y) / (b.y - a.y);
      Pt c{a.x + r * (b.x - a.x), a.y + r * (b.y - a.y)};
      if (edge < 2) c.x = v;
      else c.y = v;
      out.push_back(c);
    }
  }
  return out;
}

std::vector<Pt> clip_convex(const std::vector<Pt> &poly, const std::vector<Pt> &window) {
  std::vector<Pt> out = poly;
  size_t m = window.size();
  double orient = polygon_area(window) >= 0 ? 1 : -1;
  for (size_t e = 0; e < m && !out.empty(); ++e) {
    Pt a = window[e], b = window[(e + 1) % m];
    auto side = [&](Pt p) { return orient * ((b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x)); };
    std::vector<Pt> in = out;
    out.clear();
    for (size_t k = 0; k < in.size(); ++k) {
      Pt p = in[k], q = in[(k + 1) % in.size()];
      double sp = side(p), sq = side(q);
      if (sp >= 0) out.push_back(p);
      if ((sp >= 0) != (sq >= 0)) {
        double r = sp / (sp - sq);
        out.push_back({p.x + r * (q.x - p.x), p.y + r * (q.y - p.y)});
      }
    }
  }
  return out;
}

namespace {

#define TARR(n, kind) mv_tarr(n, kind).c_str()

// Three answers, each where the caller gave room for it.
void give3(int *a, int *b, int *c, int x, int y, int z) {
  if (a) *a = x;
  if (b) *b = y;
  if (c) *c = z;
}

}  // namespace

extern "C" {

void spline(const float *xray, const float *yray, int n, float *xsray, float *ysray, int *nspl) {
  mv_tracef("spline(xray=%s, yray=%s, n=%d, xsray=%s, ysray=%s, nspl=out)", TARR(n, "floats"), TARR(n, "floats"), n,
            TARR(n, "floats out"), TARR(n, "floats out"));
  if (nspl) *nspl = 0;
  if (!nspl || !arrays_ok("spline", n, 2, {xray, yray, xsray, ysray})) return;
  FieldState &fs = mirval_state().field;
  // the outputs hold n points: SPLMOD's count is kept within that
  int m = fs.spl_points > 0 ? std::min(fs.spl_points, n) : n;
  std::vector<Pt> out;
  if (!spline_curve(xray, yray, n, fs.spl_order, m, out)) {
    mv_warn("spline", "fewer than two different finite points");
    return;
  }
  for (size_t k = 0; k < out.size(); ++k) xsray[k] = float(out[k].x), ysray[k] = float(out[k].y);
  *nspl = static_cast<int>(out.size());
  int used = 0;
  for (int k = 0; k < n; ++k) used += std::isfinite(xray[k]) && std::isfinite(yray[k]);
  fs.spl_last_in = used, fs.spl_last_out = *nspl, fs.spl_last_pieces = std::max(0, used - 1);
}

void splmod(int n1, int n2) {
  mv_tracef("splmod(%d, %d)", n1, n2);
  if (n1 != 1 && n1 != 3) {
    mv_warn("splmod", "the order %d is neither 1 (linear) nor 3 (cubic)", n1);
    return;
  }
  if (!in_range("splmod", "points", n2, 0, 10000000)) return;
  FieldState &fs = mirval_state().field;
  fs.spl_order = n1, fs.spl_points = n2;
}

void getsp1(int *nxdis, int *nydis, int *nzdis) {
  mv_tracef("getsp1(nxdis=out, nydis=out, nzdis=out)");
  const FieldState &fs = mirval_state().field;
  give3(nxdis, nydis, nzdis, fs.spl_order, fs.spl_points, fs.spl_last_out);
}

void getsp2(int *nxdis, int *nydis, int *nzdis) {
  mv_tracef("getsp2(nxdis=out, nydis=out, nzdis=out)");
  const FieldState &fs = mirval_state().field;
  give3(nxdis, nydis, nzdis, fs.spl_last_in, fs.spl_last_out, fs.spl_last_pieces);
}

void linfit(const float *xray, const float *yray, int n, float *a, float *b, float *r, const char *copt) {
  mv_tracef("linfit(xray=%s, yray=%s, n=%d, a=out, b=out, r=out, copt=%s)", TARR(n, "floats"), TARR(n, "floats"), n,
            mv_tstr(copt).c_str());
  if (a) *a = 0;
  if (b) *b = 0;
  if (r) *r = 0;
  if (!a || !b || !r || !arrays_ok("linfit", n, 2, {xray, yray})) return;
  int draw = same(copt, "NONE") ? 0 : same(copt, "LINE") ? 1 : same(copt, "ALL") ? 2 : -1;
  if (draw < 0) {
    mv_warn("linfit", "unknown option %s; NONE is used", mv_tstr(copt).c_str());
    draw = 0;
  }
  double fa, fb, fr;
  if (!fit_line(xray, yray, n, fa, fb, fr)) {
    mv_warn("linfit", "no line: fewer than two finite points with different x");
    return;
  }
  *a = float(fa), *b = float(fb), *r = float(fr);
  if (!draw) return;
  if (!mv_level("linfit", 2, 3)) return;
  double lo = INFINITY, hi = -INFINITY;
  for (int k = 0; k < n; ++k)
    if (std::isfinite(xray[k]) && std::isfinite(yray[k])) lo = std::min(lo, double(xray[k])), hi = std::max(hi, double(xray[k]));
  Rect clip = user_clip();
  std::vector<Pt> line;
  for (int k = 0; k <= 64; ++k) {  // many points, so that log axes show the line's true form
    double x = lo + (hi - lo) * k / 64;
    line.push_back(page_point(x, fa * x + fb));
  }
  std::vector<Pt> finite;
  for (Pt p : line)
    if (std::isfinite(p.x + p.y)) finite.push_back(p);
  stroke_polyline(simplify(finite, POLYLINE_TOLERANCE), clip);
  if (draw == 2) {
    const MirvalState &st = mirval_state();
    for (int k = 0; k < n; ++k) {
      Pt p = page_point(xray[k], yray[k]);
      if (std::isfinite(p.x + p.y) && inside(p, clip)) draw_marker(st.curve.marker, p, st.curve.hsymbl, pen_rgb(), st.pen.width);
    }
  }
}

void bezier(const float *xray, const float *yray, int n, float *xpray, float *ypray, int np) {
  mv_tracef("bezier(xray=%s, yray=%s, n=%d, xpray=%s, ypray=%s, np=%d)", TARR(n, "floats"), TARR(n, "floats"), n,
            TARR(np, "floats out"), TARR(np, "floats out"), np);
  if (!arrays_ok("bezier", n, 2, {xray, yray}) || !arrays_ok("bezier", np, 2, {xpray, ypray})) return;
  if (n > 10000) {
    mv_warn("bezier", "n = %d control points are too many (at most 10000)", n);
    return;
  }
  if (!finite_all(xray, n) || !finite_all(yray, n)) {
    mv_warn("bezier", "a control point is not a number");
    return;
  }
  std::vector<Pt> c = bezier_curve(xray, yray, n, np);
  for (int k = 0; k < np; ++k) xpray[k] = float(c[k].x), ypray[k] = float(c[k].y);
}

void polclp(const float *xray, const float *yray, int n, float *xout, float *yout, int nmax, int *nout, float xv,
            const char *cedge) {
  mv_tracef("polclp(xray=%s, yray=%s, n=%d, xout=%s, yout=%s, nmax=%d, nout=out, xv=%g, cedge=%s)", TARR(n, "floats"),
            TARR(n, "floats"), n, TARR(nmax, "floats out"), TARR(nmax, "floats out"), nmax, (double)xv,
            mv_tstr(cedge).c_str());
  if (nout) *nout = 0;
  if (!nout || !arrays_ok("polclp", n, 3, {xray, yray}) || !arrays_ok("polclp", nmax, 1, {xout, yout})) return;
  if (!finite_all(xray, n) || !finite_all(yray, n)) {
    mv_warn("polclp", "a corner is not a number");
    return;
  }
  std::vector<Pt> poly(n);
  for (int k = 0; k < n; ++k) poly[k] = {xray[k], yray[k]};
  std::vector<Pt> out;
  static const char *edges[] = {"LEFT", "RIGHT", "BOTTOM", "TOP"};
  int edge = -1;
  for (int k = 0; k < 4; ++k)
    if (same(cedge, edges[k])) edge = k;
  if (edge >= 0) {
    if (!std::isfinite(xv)) {
      mv_warn("polclp", "the edge position %g is not a number", (double)xv);
      return;
    }
    out = clip_half(poly, edge, xv);
  } else if (same(cedge, "AXIS")) {
    if (!mv_level("polclp", 2, 3)) return;
    const AxesState &ax = mirval_state().axes;
    const AxisRange &rx = ax.range[0], &ry = ax.range[1];
    auto ends = [](const AxisRange &r, double &lo, double &hi) {
      double a = r.log ? std::pow(10.0, r.a) : r.a, e = r.log ? std::pow(10.0, r.e) : r.e;
      lo = std::min(a, e), hi = std::max(a, e);
    };
    double x0, x1, y0, y1;
    ends(rx, x0, x1);
    ends(ry, y0, y1);
    out = clip_half(clip_half(clip_half(clip_half(poly, 0, x0), 1, x1), 2, y0), 3, y1);
  } else {
    mv_warn("polclp", "unknown edge %s", mv_tstr(cedge).c_str());
    return;
  }
  if (static_cast<int>(out.size()) > nmax)
    mv_warn("polclp", "nmax = %d holds %d of the %zu corners", nmax, nmax, out.size());
  int m = std::min(nmax, static_cast<int>(out.size()));
  for (int k = 0; k < m; ++k) xout[k] = float(out[k].x), yout[k] = float(out[k].y);
  *nout = m;
}

void shdcrv(const float *x1ray, const float *y1ray, int n1, const float *x2ray, const float *y2ray, int n2) {
  mv_tracef("shdcrv(x1ray=%s, y1ray=%s, n1=%d, x2ray=%s, y2ray=%s, n2=%d)", TARR(n1, "floats"), TARR(n1, "floats"), n1,
            TARR(n2, "floats"), TARR(n2, "floats"), n2);
  if (!mv_level("shdcrv", 2, 3) || !arrays_ok("shdcrv", n1, 1, {x1ray, y1ray}) ||
      !arrays_ok("shdcrv", n2, 1, {x2ray, y2ray}))
    return;
  if (n1 + n2 < 3) {
    mv_warn("shdcrv", "the two curves have %d points together: at least 3 are needed", n1 + n2);
    return;
  }
  std::vector<Pt> poly;
  for (int k = 0; k < n1; ++k) poly.push_back(page_point(x1ray[k], y1ray[k]));
  for (int k = n2 - 1; k >= 0; --k) poly.push_back(page_point(x2ray[k], y2ray[k]));
  std::vector<Pt> finite;
  for (Pt p : poly)
    if (std::isfinite(p.x + p.y)) finite.push_back(p);
  if (finite.size() < 3) {
    mv_warn("shdcrv", "fewer than three points are numbers");
    return;
  }
  MirvalState &st = mirval_state();
  FieldState &fs = st.field;
  int pattern = st.pen.pattern;
  if (fs.shd_change) pattern = (std::max(pattern, 1) - 1 + fs.shd_count++) % 16 + 1;
  else if (pattern == 0) pattern = 16;
  std::vector<Pt> cut = clip_polygon(finite, user_clip());
  if (cut.size() < 3) return;
  pattern_fill(closed_path(cut), pen_rgb(), pattern, float(fs.shd_factor));
}

void shdfac(float x) {
  mv_tracef("shdfac(%g)", (double)x);
  if (in_range("shdfac", "factor", x, 0, 1)) mirval_state().field.shd_factor = x;
}

void shdcha(void) {
  mv_tracef("shdcha()");
  FieldState &fs = mirval_state().field;
  fs.shd_change = true;
  fs.shd_count = 0;
}

}
