// Reads a 4096 x 4096 PNG and a 4096 x 4096 FITS image and draws each into a PDF file; the
// times of the library calls (not of making the test files) are printed in seconds, on the
// clock and of the processor (which other work on the machine does not stretch).
// With "--files DIR" it only makes the two files, for the whole-run timings of run.sh.
#include "mirval.h"

#include <cairo.h>
#include <fitsio.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

namespace {

constexpr int N = 4096;

struct Timer {
  std::chrono::steady_clock::time_point wall = std::chrono::steady_clock::now();
  std::clock_t cpu = std::clock();
  void print(const char *what) const {
    std::printf("%s: %.3f s (processor %.3f s)\n", what,
                std::chrono::duration<double>(std::chrono::steady_clock::now() - wall).count(),
                double(std::clock() - cpu) / CLOCKS_PER_SEC);
  }
};

float value(int i, int j) {
  double x = (i - N / 2) / 600.0, y = (j - N / 2) / 600.0;
  return float(std::exp(-(x * x + y * y)) + 0.2 * std::sin(i / 37.0) * std::cos(j / 53.0));
}

void make_png(const char *name) {
  cairo_surface_t *s = cairo_image_surface_create(CAIRO_FORMAT_RGB24, N, N);
  unsigned char *d = cairo_image_surface_get_data(s);
  int stride = cairo_image_surface_get_stride(s);
  for (int j = 0; j < N; ++j)
    for (int i = 0; i < N; ++i) {
      unsigned v = unsigned(std::fmin(255.0, std::fmax(0.0, 200 * value(i, j))));
      uint32_t *p = reinterpret_cast<uint32_t *>(d + size_t(j) * stride) + i;
      *p = (v << 16) | ((255 - v) << 8) | (v / 2);
    }
  cairo_surface_mark_dirty(s);
  cairo_surface_write_to_png(s, name);
  cairo_surface_destroy(s);
}

void make_fits(const char *name) {
  fitsfile *f = nullptr;
  int status = 0;
  std::remove(name);
  fits_create_file(&f, name, &status);
  long axes[2] = {N, N};
  fits_create_img(f, FLOAT_IMG, 2, axes, &status);
  std::vector<float> row(N);
  for (int j = 0; j < N; ++j) {
    for (int i = 0; i < N; ++i) row[i] = value(i, j);
    long first[2] = {1, j + 1};
    fits_write_pix(f, TFLOAT, first, N, row.data(), &status);
  }
  fits_close_file(f, &status);
}

}  // namespace

int main(int argc, char **argv) {
  bool files_only = argc == 3 && std::string(argv[1]) == "--files";
  std::string dir = files_only ? argv[2] : std::getenv("TMPDIR") ? std::getenv("TMPDIR") : "/tmp";
  std::string png = dir + "/mirval_bench.png", fits = dir + "/mirval_bench.fits";
  make_png(png.c_str());
  make_fits(fits.c_str());
  if (files_only) return 0;
  errmod("ALL", "OFF");

  Timer t;
  metafl("PDF");
  setfil((dir + "/mirval_bench_png.pdf").c_str());
  winsiz(N, N * 2100 / 2970);  // one image pixel to one pixel across the page
  mirini();
  rpng(png.c_str());
  mirfin();
  t.print("PNG 4096 x 4096 -> PDF");

  t = Timer();
  metafl("PDF");
  setfil((dir + "/mirval_bench_fits.pdf").c_str());
  mirini();
  fitsopn(fits.c_str());
  std::vector<float> img(size_t(N) * N);
  int n = fitsimg(img.data(), N * N);
  fitscls();
  float lo = img[0], hi = img[0];
  for (float v : img) lo = v < lo ? v : lo, hi = v > hi ? v : hi;
  std::vector<unsigned char> bytes(img.size());
  float step = 253 / (hi - lo);
  for (size_t k = 0; k < img.size(); ++k) bytes[k] = (unsigned char)(1 + step * (img[k] - lo));
  imgbox(0, 0, 2100, 2100);
  imgsiz(N, N);
  imgini();
  wpixls(bytes.data(), 0, 0, N, N);
  imgfin();
  mirfin();
  std::printf("%d pixels read; ", n);
  t.print("FITS 4096 x 4096 -> PDF");
  std::remove(png.c_str());
  std::remove(fits.c_str());
  return 0;
}
