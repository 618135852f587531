#include "output/device.h"
#include "core/messages.h"
#include "media/media.h"
#include "media/pdf_images.h"
#include "output/raster_formats.h"
#include "output/render.h"

#include <cairo-pdf.h>
#include <cairo-ps.h>
#include <cairo-svg.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <map>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <strings.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct FormatRow {
  const char *name, *ext;
  Format format;
};
const FormatRow formats[] = {{"PNG", "png", Format::PNG},  {"PPM", "ppm", Format::PPM},
                             {"BMP", "bmp", Format::BMP},  {"TIFF", "tif", Format::TIFF},
                             {"GIF", "gif", Format::GIF},  {"PDF", "pdf", Format::PDF},
                             {"SVG", "svg", Format::SVG},  {"PS", "ps", Format::PS},
                             {"EPS", "eps", Format::EPS}};

const FormatRow &row(Format f) {
  for (const FormatRow &r : formats)
    if (r.format == f) return r;
  return formats[0];
}

bool exists(const std::string &name) {
  struct stat st;
  return stat(name.c_str(), &st) == 0;
}

// Vector pages are measured in points: one plot unit is 0.1 mm.
constexpr double points_per_unit = 72.0 / 254.0;

cairo_status_t append(void *closure, const unsigned char *data, unsigned int length) {
  static_cast<std::string *>(closure)->append(reinterpret_cast<const char *>(data), length);
  return CAIRO_STATUS_SUCCESS;
}

// The date a reproducible build asks for, or none.
bool source_date(std::tm &tm) {
  const char *env = std::getenv("SOURCE_DATE_EPOCH");
  if (!env || !*env) return false;
  std::time_t t = static_cast<std::time_t>(std::strtoll(env, nullptr, 10));
  return gmtime_r(&t, &tm) != nullptr;
}

// Cairo stamps vector files with the current time; put SOURCE_DATE_EPOCH in its place or
// drop it, so that the same drawing always gives the same bytes.
void fix_dates(std::string &s, Format f) {
  std::tm tm{};
  bool dated = source_date(tm);
  if (f == Format::PDF) {
    size_t at = s.find("/CreationDate (");
    if (at == std::string::npos) return;
    size_t end = s.find(')', at);
    if (end == std::string::npos) return;
    // the same length keeps the cross-reference offsets valid
    std::string repl(end + 1 - at, ' ');
    if (dated) {
      char buf[64];
      std::strftime(buf, sizeof buf, "/CreationDate (D:%Y%m%d%H%M%SZ)", &tm);
      if (std::strlen(buf) <= repl.size()) repl.replace(0, std::strlen(buf), buf);
    }
    s.replace(at, repl.size(), repl);
  } else if (f == Format::PS || f == Format::EPS) {
    size_t at = s.find("%%CreationDate:");
    if (at == std::string::npos) return;
    size_t end = s.find('\n', at);
    if (end == std::string::npos) return;
    std::string repl;
    if (dated) {
      char buf[64];
      std::strftime(buf, sizeof buf, "%%%%CreationDate: %a %b %d %H:%M:%S %Y\n", &tm);
      repl = buf;
    }
    s.replace(at, end + 1 - at, repl);
  }
}

// Cairo names SVG surfaces after a counter that runs on through the process; number them
// from 1 in order of appearance, so that writing the file again gives the same bytes.
void renumber_surfaces(std::string &s) {
  std::map<std::string, std::string> names;
  std::string out;
  const std::string key = "surface";
  size_t at = 0;
  for (size_t hit; (hit = s.find(key, at)) != std::string::npos;) {
    size_t end = hit + key.size();
    while (end < s.size() && std::isdigit(static_cast<unsigned char>(s[end]))) ++end;
    out.append(s, at, hit - at);
    if (end > hit + key.size()) out += names.emplace(s.substr(hit, end - hit), key + std::to_string(names.size() + 1)).first->second;
    else out += key;
    at = end;
  }
  out.append(s, at, std::string::npos);
  s.swap(out);
}

View page_view(double scale, double dx, double dy, double min_width) {
  View v;
  v.scale = scale;
  v.dx = dx;
  v.dy = dy;
  v.min_width = min_width;
  v.background = back_rgb();
  return v;
}

std::string render_vector(Format f, int &w, int &h, bool stand_ins = true) {
  const MirvalState &st = mirval_state();
  double pw = st.page.width * points_per_unit, ph = st.page.height * points_per_unit;
  w = static_cast<int>(std::lround(pw));
  h = static_cast<int>(std::lround(ph));
  bool turn = (f == Format::PS || f == Format::EPS) && ps_turned(pw, ph);  // PSMODE's sheet
  if (turn) std::swap(w, h);
  std::string out;
  cairo_surface_t *s;
  if (f == Format::PDF) {
    s = cairo_pdf_surface_create_for_stream(append, &out, pw, ph);
    const char *creator = st.program[0] ? st.program : "mirval";
    cairo_pdf_surface_set_metadata(s, CAIRO_PDF_METADATA_CREATOR, creator);
    pdf_extras(s);  // PDFMRK bookmarks and PDFMOD metadata
  } else if (f == Format::SVG) {
    s = cairo_svg_surface_create_for_stream(append, &out, pw, ph);
  } else {
    s = cairo_ps_surface_create_for_stream(append, &out, turn ? ph : pw, turn ? pw : ph);
    if (f == Format::EPS) cairo_ps_surface_set_eps(s, 1);
    ps_options(s);  // PSMODE's level, PSMETA's comments
  }
  cairo_t *cr = cairo_create(s);
  View v = page_view(points_per_unit, 0, 0, 0);
  PdfImages images;
  if (f == Format::PDF && stand_ins) v.pdf_images = &images;
  // PDF and PS hold every page; the single-page formats show the last one
  bool all = f == Format::PDF || f == Format::PS;
  size_t first = all ? 0 : st.scene.pages.size() - 1;
  for (size_t i = first; i < st.scene.pages.size(); ++i) {
    cairo_save(cr);
    if (turn) {
      cairo_translate(cr, ph, 0);
      cairo_rotate(cr, M_PI / 2);
    }
    render_page(cr, st.scene.pages[i], v);
    cairo_restore(cr);
    cairo_show_page(cr);
  }
  cairo_destroy(cr);
  cairo_surface_finish(s);
  cairo_surface_destroy(s);
  fix_dates(out, f);  // first: qpdf derives the file's ID from its bytes
  if (!images.put_into(out)) return render_vector(f, w, h, false);
  if (f == Format::SVG) renumber_surfaces(out);
  return out;
}

std::string render_raster(Format f, int &w, int &h) {
  const MirvalState &st = mirval_state();
  raster_size(w, h);
  cairo_surface_t *s = cairo_image_surface_create(CAIRO_FORMAT_RGB24, w, h);
  cairo_t *cr = cairo_create(s);
  double scale = std::min(double(w) / st.page.width, double(h) / st.page.height);
  View v = page_view(scale, (w - st.page.width * scale) / 2, (h - st.page.height * scale) / 2, 1);
  v.raster = true;
  render_page(cr, st.scene.pages.back(), v);
  cairo_destroy(cr);
  cairo_surface_flush(s);
  std::string out;
  if (f == Format::PNG) {
    out = png_file(s);  // PNGMOD's transparency and opacity channel
  } else {
    Pixels px;
    px.w = w;
    px.h = h;
    px.rgb.resize(3 * size_t(w) * h);
    const unsigned char *data = cairo_image_surface_get_data(s);
    int stride = cairo_image_surface_get_stride(s);
    for (int y = 0; y < h; ++y)
      for (int x = 0; x < w; ++x) {
        uint32_t p;
        std::memcpy(&p, data + size_t(y) * stride + 4 * size_t(x), 4);
        uint8_t *q = &px.rgb[3 * (size_t(y) * w + x)];
        q[0] = uint8_t(p >> 16);
        q[1] = uint8_t(p >> 8);
        q[2] = uint8_t(p);
      }
    out = f == Format::PPM ? encode_ppm(px)
          : f == Format::BMP ? encode_bmp(px)
          : f == Format::TIFF ? encode_tiff(px)
                              : encode_gif(px, gif_options());
  }
  cairo_surface_destroy(s);
  return out;
}

}  // namespace

static bool write_all(int fd, const std::string &bytes) {
  bool ok = true;
  for (size_t done = 0; ok && done < bytes.size();) {
    ssize_t n = write(fd, bytes.data() + done, bytes.size() - done);
    if (n < 0 && errno == EINTR) continue;
    ok = n > 0;
    if (ok) done += static_cast<size_t>(n);
  }
  return close(fd) == 0 && ok;
}

bool replace_file(const std::string &name, const std::string &bytes) {
  struct stat st;
  if (lstat(name.c_str(), &st) == 0 && !S_ISREG(st.st_mode)) {
    int fd = open(name.c_str(), O_WRONLY | O_TRUNC | O_CREAT, 0666);
    return fd >= 0 && write_all(fd, bytes);
  }
  size_t slash = name.rfind('/');
  std::string dir = slash == std::string::npos ? "" : name.substr(0, slash + 1);
  std::string base = slash == std::string::npos ? name : name.substr(slash + 1);
  std::string tmp = dir + "." + base + ".XXXXXX";
  int fd = mkstemp(&tmp[0]);
  if (fd < 0) return false;
  mode_t mask = umask(0);
  umask(mask);
  bool ok = fchmod(fd, 0666 & ~mask) == 0;
  ok = write_all(fd, bytes) && ok;
  ok = ok && std::rename(tmp.c_str(), name.c_str()) == 0;
  if (!ok) std::remove(tmp.c_str());
  return ok;
}

const char *format_name(Format f) { return row(f).name; }
const char *format_ext(Format f) { return row(f).ext; }
bool is_raster(Format f) { return f != Format::PDF && f != Format::SVG && f != Format::PS && f != Format::EPS; }

bool parse_format(const char *name, Format &f, bool &screen) {
  screen = strcasecmp(name, "CONS") == 0 || strcasecmp(name, "XWIN") == 0;
  if (screen) {
    f = Format::PNG;
    return true;
  }
  for (const FormatRow &r : formats)
    if (strcasecmp(name, r.name) == 0 || strcasecmp(name, r.ext) == 0) {
      f = r.format;
      return true;
    }
  return false;
}

// Takes the name for this run's picture: an exclusive create reserves it, so that runs started
// together in one directory never pick the same name and overwrite each other's pictures.
// Returns false when the name is taken by another file (or another run).
bool reserve(const std::string &name) {
  int fd = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0666);
  if (fd < 0) return false;
  close(fd);
  return true;
}

void choose_file() {
  PageState &pg = mirval_state().page;
  pg.refused = false;
  std::string name = pg.file.empty() ? std::string("mirval.") + format_ext(pg.format) : pg.file;
  bool taken = pg.reserved.count(name) > 0;
  if (pg.filmod == 2 && (taken || !reserve(name))) {
    mv_warn("mirini", "file %s exists and FILMOD is BREAK: nothing will be written", name.c_str());
    pg.refused = true;
  } else if (taken || (pg.filmod == 1 && !reserve(name))) {
    size_t slash = name.rfind('/'), dot = name.rfind('.');
    if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) dot = name.size();
    std::string stem = name.substr(0, dot), ext = name.substr(dot);
    for (int k = 1;; ++k) {
      std::string candidate = stem + "_" + std::to_string(k) + ext;
      if (pg.reserved.count(candidate)) continue;
      if (pg.filmod != 1 && exists(candidate)) continue;
      if (pg.filmod == 1 ? reserve(candidate) : true) {
        name = candidate;
        break;
      }
      if (errno != EEXIST) break;  // an unwritable directory: the write reports it
    }
  }
  pg.used = name;
}

void raster_size(int &w, int &h) {
  const PageState &pg = mirval_state().page;
  if (pg.win_w > 0 && pg.win_h > 0) {
    w = pg.win_w;
    h = pg.win_h;
  } else {
    w = std::max(1, static_cast<int>(std::lround(pg.width * 0.4)));
    h = std::max(1, static_cast<int>(std::lround(pg.height * 0.4)));
  }
}

void write_output(const char *routine, bool announce) {
  MirvalState &st = mirval_state();
  if (st.page.refused || st.scene.pages.empty()) return;
  Format f = st.page.format;
  Scene &sc = st.scene;
  if (sc.written == sc.changes) {  // the file already holds this picture
    if (announce) mv_note("wrote %s (%s, %d x %d)", st.page.used.c_str(), format_name(f), sc.written_w, sc.written_h);
    return;
  }
  int w = 0, h = 0;
  std::string bytes = is_raster(f) ? render_raster(f, w, h) : render_vector(f, w, h);
  if (!replace_file(st.page.used, bytes)) {
    mv_error(routine, "cannot write %s", st.page.used.c_str());
    return;
  }
  sc.written = sc.changes;
  sc.written_w = w;
  sc.written_h = h;
  if (announce) mv_note("wrote %s (%s, %d x %d)", st.page.used.c_str(), format_name(f), w, h);
}

std::string vector_file(Format f) {
  int w = 0, h = 0;
  return render_vector(f, w, h);
}

Rgb fore_rgb() { return mirval_state().page.reverse ? Rgb{1, 1, 1} : Rgb{0, 0, 0}; }
Rgb back_rgb() { return mirval_state().page.reverse ? Rgb{0, 0, 0} : Rgb{1, 1, 1}; }
