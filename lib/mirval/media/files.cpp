// Binary files for scripts and C programs (OPENFL ... POSIFL), and FITS files through
// cfitsio (FITSOPN ... FITSCLS): one FITS file is open at a time, at its current HDU.
#include "core/keywords.h"
#include "core/messages.h"
#include "core/state.h"
#include "core/trace.h"
#include "media/media.h"
#include "mirval.h"

#include <fitsio.h>

#include <cerrno>
#include <climits>
#include <limits>
#include <cstring>
#include <string>

namespace {

constexpr int max_units = 100;  // unit numbers 1..99

std::FILE *unit_file(const char *routine, int nu) {
  auto &f = mirval_state().media.files;
  auto it = f.find(nu);
  if (it == f.end()) {
    mv_warn(routine, "unit %d is not open (OPENFL)", nu);
    return nullptr;
  }
  return it->second;
}

// The file of READFL and WRITFL, given an array of nmax bytes; null after one warning.
std::FILE *transfer_file(const char *routine, int nu, const void *iray, int nmax) {
  if (nmax < 1 || !iray) {
    mv_warn(routine, "nmax %d is below 1", nmax);
    return nullptr;
  }
  return unit_file(routine, nu);
}

fitsfile *fits_file(const char *routine) {
  fitsfile *f = static_cast<fitsfile *>(mirval_state().media.fits);
  if (!f) mv_warn(routine, "no FITS file is open (FITSOPN)");
  return f;
}

std::string fits_error(int status) {
  char text[FLEN_STATUS] = {};
  fits_get_errstatus(status, text);
  fits_clear_errmsg();
  return text;
}

// The open FITS file for a routine that reads keyword c, or null after one warning.
fitsfile *keyword_file(const char *routine, const char *c) {
  mv_tracef("%s(%s)", routine, mv_tstr(c).c_str());
  fitsfile *f = fits_file(routine);
  return f && given(routine, c, "keyword") ? f : nullptr;
}

// Reads keyword c as a value of cfitsio's 'type' into v; false after one warning.
bool read_keyword(const char *routine, const char *c, int type, void *v) {
  fitsfile *f = keyword_file(routine, c);
  if (!f) return false;
  int status = 0;
  if (!fits_read_key(f, type, c, v, nullptr, &status)) return true;
  mv_warn(routine, "keyword %s: %s", c, fits_error(status).c_str());
  return false;
}

thread_local std::string fits_text;  // FITSSTR's result stays valid until the next call

}  // namespace

extern "C" {

// irw: 0 read, 1 write (a new file, or emptied), 2 append, 3 read and write an existing file.
// nlu: the unit number 1..99 to use, or 0 for the lowest free one. Returns the unit or -1.
int openfl(const char *cfil, int nlu, int irw) {
  mv_tracef("openfl(%s, %d, %d)", mv_tstr(cfil).c_str(), nlu, irw);
  if (!has_file("openfl", cfil)) return -1;
  if (irw < 0 || irw > 3) {
    mv_warn("openfl", "mode %d lies outside 0..3 (read, write, append, update)", irw);
    return -1;
  }
  if (nlu < 0 || nlu >= max_units) {
    mv_warn("openfl", "unit %d lies outside 0..%d", nlu, max_units - 1);
    return -1;
  }
  auto &f = mirval_state().media.files;
  if (nlu == 0) {
    for (nlu = 1; nlu < max_units && f.count(nlu); ++nlu) {
    }
    if (nlu == max_units) {
      mv_warn("openfl", "all %d units are open", max_units - 1);
      return -1;
    }
  } else if (f.count(nlu)) {
    mv_warn("openfl", "unit %d is already open", nlu);
    return -1;
  }
  static const char *modes[] = {"rb", "wb", "ab", "r+b"};
  std::FILE *fp = std::fopen(cfil, modes[irw]);
  if (!fp) {
    mv_warn("openfl", "cannot open %s: %s", cfil, std::strerror(errno));
    return -1;
  }
  f[nlu] = fp;
  return nlu;
}

int closfl(int nu) {
  mv_tracef("closfl(%d)", nu);
  std::FILE *fp = unit_file("closfl", nu);
  if (!fp) return -1;
  mirval_state().media.files.erase(nu);
  if (std::fclose(fp) != 0) {
    mv_warn("closfl", "unit %d: the file could not be completed", nu);
    return -1;
  }
  return 0;
}

int readfl(int nu, void *iray, int nmax) {
  mv_tracef("readfl(nu=%d, iray=%s, nmax=%d)", nu, mv_tarr(nmax, "bytes out").c_str(), nmax);
  std::FILE *fp = transfer_file("readfl", nu, iray, nmax);
  if (!fp) return -1;
  size_t n = std::fread(iray, 1, size_t(nmax), fp);
  if (n == 0 && std::ferror(fp)) {
    mv_warn("readfl", "unit %d cannot be read", nu);
    std::clearerr(fp);
    return -1;
  }
  return int(n);
}

int writfl(int nu, const void *iray, int nmax) {
  mv_tracef("writfl(nu=%d, iray=%s, nmax=%d)", nu, mv_tarr(nmax, "bytes").c_str(), nmax);
  std::FILE *fp = transfer_file("writfl", nu, iray, nmax);
  if (!fp) return -1;
  size_t n = std::fwrite(iray, 1, size_t(nmax), fp);
  if (n < size_t(nmax)) {
    mv_warn("writfl", "unit %d: only %zu of %d bytes written", nu, n, nmax);
    std::clearerr(fp);
  }
  return int(n);
}

// Moves nbyte bytes on from the current position (backwards when negative); returns the
// new position or -1.
int skipfl(int nu, int nbyte) {
  mv_tracef("skipfl(%d, %d)", nu, nbyte);
  std::FILE *fp = unit_file("skipfl", nu);
  if (!fp) return -1;
  if (std::fseek(fp, nbyte, SEEK_CUR) != 0) {
    mv_warn("skipfl", "unit %d cannot move by %d bytes", nu, nbyte);
    return -1;
  }
  long at = std::ftell(fp);
  return at > INT_MAX ? INT_MAX : int(at);
}

int tellfl(int nu) {
  mv_tracef("tellfl(%d)", nu);
  std::FILE *fp = unit_file("tellfl", nu);
  if (!fp) return -1;
  long at = std::ftell(fp);
  return at < 0 ? -1 : at > INT_MAX ? INT_MAX : int(at);
}

int posifl(int nu, int nbyte) {
  mv_tracef("posifl(%d, %d)", nu, nbyte);
  std::FILE *fp = unit_file("posifl", nu);
  if (!fp) return -1;
  if (nbyte < 0) {
    mv_warn("posifl", "position %d is negative", nbyte);
    return -1;
  }
  if (std::fseek(fp, nbyte, SEEK_SET) != 0) {
    mv_warn("posifl", "unit %d cannot move to %d", nu, nbyte);
    return -1;
  }
  return 0;
}

// Returns 0, or -1 when the file cannot be opened. The primary HDU is current.
int fitsopn(const char *c) {
  mv_tracef("fitsopn(%s)", mv_tstr(c).c_str());
  if (!has_file("fitsopn", c)) return -1;
  MediaState &m = mirval_state().media;
  if (m.fits) {
    int st = 0;
    fits_close_file(static_cast<fitsfile *>(m.fits), &st);
    m.fits = nullptr;
  }
  fitsfile *f = nullptr;
  int status = 0;
  if (fits_open_file(&f, c, READONLY, &status)) {
    mv_warn("fitsopn", "cannot open %s: %s", c, fits_error(status).c_str());
    if (f) {
      int st = 0;
      fits_close_file(f, &st);
    }
    return -1;
  }
  m.fits = f;
  m.fits_name = c;
  return 0;
}

void fitscls(void) {
  mv_tracef("fitscls()");
  MediaState &m = mirval_state().media;
  if (!m.fits) {
    mv_warn("fitscls", "no FITS file is open (FITSOPN)");
    return;
  }
  int status = 0;
  fits_close_file(static_cast<fitsfile *>(m.fits), &status);
  m.fits = nullptr;
  m.fits_name.clear();
}

// Makes HDU n (1 the primary) current; returns its type (0 image, 1 ASCII table, 2 binary
// table), or -1.
int fitshdu(int n) {
  mv_tracef("fitshdu(%d)", n);
  fitsfile *f = fits_file("fitshdu");
  if (!f) return -1;
  int count = 0, status = 0;
  fits_get_num_hdus(f, &count, &status);
  if (n < 1 || n > count) {
    mv_warn("fitshdu", "HDU %d lies outside 1..%d", n, count);
    return -1;
  }
  int type = 0;
  status = 0;
  if (fits_movabs_hdu(f, n, &type, &status)) {
    mv_warn("fitshdu", "cannot move to HDU %d: %s", n, fits_error(status).c_str());
    return -1;
  }
  return type == IMAGE_HDU ? 0 : type == ASCII_TBL ? 1 : 2;
}

int fitsval(const char *c) {
  long v = 0;
  if (!read_keyword("fitsval", c, TLONG, &v)) return 0;
  return v > INT_MAX ? INT_MAX : v < INT_MIN ? INT_MIN : int(v);
}

double fitsflt(const char *c) {
  double v = 0;
  return read_keyword("fitsflt", c, TDOUBLE, &v) ? v : 0;
}

const char *fitsstr(const char *c) {
  char v[FLEN_VALUE] = {};
  fits_text = read_keyword("fitsstr", c, TSTRING, v) ? v : "";
  return fits_text.c_str();
}

// The kind of a keyword's value: 1 text, 2 logical, 3 integer, 4 floating, 5 complex;
// 0 when the keyword is missing.
int fitstyp(const char *c) {
  fitsfile *f = keyword_file("fitstyp", c);
  if (!f) return 0;
  char value[FLEN_VALUE] = {}, type = 0;
  int status = 0;
  if (fits_read_keyword(f, c, value, nullptr, &status)) {
    fits_clear_errmsg();
    return 0;
  }
  status = 0;
  if (fits_get_keytype(value, &type, &status)) {
    fits_clear_errmsg();
    return 0;
  }
  return type == 'C' ? 1 : type == 'L' ? 2 : type == 'I' ? 3 : type == 'F' ? 4 : type == 'X' ? 5 : 0;
}

// Reads the image of the current HDU as floats (BSCALE and BZERO applied, blank pixels NaN),
// rows from the first FITS row; returns the number of pixels, or -1.
int fitsimg(void *iray, int nmax) {
  mv_tracef("fitsimg(iray=%s, nmax=%d)", mv_tarr(nmax, "bytes out").c_str(), nmax);
  fitsfile *f = fits_file("fitsimg");
  if (!f) return -1;
  if (!iray || nmax < 1) {
    mv_warn("fitsimg", "nmax %d is below 1", nmax);
    return -1;
  }
  int status = 0, type = 0;
  fits_get_hdu_type(f, &type, &status);
  if (status || type != IMAGE_HDU) {
    mv_warn("fitsimg", "the current HDU holds no image");
    fits_clear_errmsg();
    return -1;
  }
  int naxis = 0;
  long axes[9] = {0};
  fits_get_img_dim(f, &naxis, &status);
  if (!status) fits_get_img_size(f, naxis > 9 ? 9 : naxis, axes, &status);
  if (status || naxis < 1) {
    mv_warn("fitsimg", "the current HDU holds no image");
    fits_clear_errmsg();
    return -1;
  }
  long long n = 1;
  for (int k = 0; k < naxis && k < 9; ++k) n *= axes[k];
  if (n > nmax) {
    mv_warn("fitsimg", "the image has %lld pixels, the array holds %d", n, nmax);
    return -1;
  }
  float nan = std::numeric_limits<float>::quiet_NaN();
  int anynul = 0;
  if (fits_read_img(f, TFLOAT, 1, n, &nan, iray, &anynul, &status)) {
    mv_warn("fitsimg", "cannot read the image: %s", fits_error(status).c_str());
    return -1;
  }
  return int(n);
}

}
