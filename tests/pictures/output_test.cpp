// Output files: every format, the file's name, the message line, levels, and the picture
// written when the program ends with the page still open.
#include "mirval.h"
#include "picture_support.h"

#include <cmath>
#include <cstdlib>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class OutputTest : public PictureTest {};

void small_plot() {
  mirini();
  graf(0, 10, 0, 2, 0, 10, 0, 2);
  float x[3] = {0, 5, 10}, y[3] = {1, 9, 4};
  curve(x, y, 3);
}

// Width and height from a PNG's header.
std::pair<int, int> png_size(const std::string &bytes) {
  auto be32 = [&](size_t at) {
    return (uint8_t(bytes[at]) << 24) | (uint8_t(bytes[at + 1]) << 16) | (uint8_t(bytes[at + 2]) << 8) |
           uint8_t(bytes[at + 3]);
  };
  return {be32(16), be32(20)};
}

}  // namespace

TEST_F(OutputTest, EveryFormatWritesItsKindOfFile) {
  struct Case {
    const char *format, *file, *magic;
  } cases[] = {{"PNG", "mirval.png", "\x89PNG"},      {"PDF", "mirval.pdf", "%PDF-"},
               {"SVG", "mirval.svg", "<?xml"},        {"PS", "mirval.ps", "%!PS-Adobe-3.0\n"},
               {"EPS", "mirval.eps", "%!PS-Adobe-3.0 EPSF"}, {"PPM", "mirval.ppm", "P6\n1188 840\n255\n"},
               {"BMP", "mirval.bmp", "BM"},           {"TIFF", "mirval.tif", "II*"},
               {"GIF", "mirval.gif", "GIF89a"}};
  for (const Case &c : cases) {
    metafl(c.format);
    testing::internal::CaptureStderr();
    small_plot();
    mirfin();
    std::string err = testing::internal::GetCapturedStderr();
    std::string bytes = read_file(c.file);
    EXPECT_EQ(bytes.rfind(c.magic, 0), 0u) << c.format;
    EXPECT_NE(err.find(std::string("mirval: wrote ") + c.file + " (" + c.format + ", "), std::string::npos) << err;
  }
}

TEST_F(OutputTest, RasterSizeFollowsThePageAndWinsiz) {
  small_plot();
  mirfin();
  EXPECT_EQ(png_size(read_file("mirval.png")), std::make_pair(1188, 840));
  winsiz(600, 300);
  small_plot();
  mirfin();
  EXPECT_EQ(png_size(read_file("mirval.png")), std::make_pair(600, 300));
  reset("WINSIZ");
  setpag("DA4P");
  small_plot();
  mirfin();
  EXPECT_EQ(png_size(read_file("mirval.png")), std::make_pair(840, 1188));
}

TEST_F(OutputTest, VectorFilesAreTheSameBytesEveryTime) {
  for (const char *f : {"PDF", "PS", "EPS", "SVG"}) {
    std::string first, second;
    for (std::string *out : {&first, &second}) {
      metafl(f);
      setfil("same.out");
      small_plot();
      messag("text as well", 100, 100);
      mirfin();
      *out = read_file("same.out");
    }
    EXPECT_EQ(first, second) << f;
    EXPECT_EQ(first.find("CreationDate: "), std::string::npos) << f;
  }
}

// A name that is not a plain file is written through, never replaced by one: a link keeps
// pointing at its file (and /dev/null stays a device).
TEST_F(OutputTest, ALinkIsWrittenThroughNotReplaced) {
  ASSERT_EQ(symlink("target.png", "link.png"), 0);
  setfil("link.png");
  testing::internal::CaptureStderr();
  small_plot();
  mirfin();
  testing::internal::GetCapturedStderr();
  struct stat st;
  ASSERT_EQ(lstat("link.png", &st), 0);
  EXPECT_TRUE(S_ISLNK(st.st_mode));
  EXPECT_EQ(read_file("target.png").rfind("\x89PNG", 0), 0u);
}

TEST_F(OutputTest, PdfAndPsGetOnePagePerNewpag) {
  for (const char *f : {"PDF", "PS"}) {
    metafl(f);
    setfil("pages.out");
    small_plot();
    endgrf();
    newpag();
    messag("second page", 100, 100);
    mirfin();
    std::string doc = read_file("pages.out");
    if (std::string(f) == "PDF") EXPECT_NE(doc.find("/Count 2"), std::string::npos);
    else EXPECT_NE(doc.find("%%Pages: 2"), std::string::npos);
  }
}

TEST_F(OutputTest, FileModesKeepOrRefuseExistingFiles) {
  small_plot();
  mirfin();
  filmod("VERSION");
  small_plot();
  EXPECT_STREQ(getfil(), "mirval_1.png");
  mirfin();
  EXPECT_TRUE(file_exists("mirval_1.png"));
  filmod("BREAK");
  testing::internal::CaptureStderr();
  small_plot();
  mirfin();
  std::string err = testing::internal::GetCapturedStderr();
  EXPECT_NE(err.find("mirval: warning: mirini: file mirval.png exists"), std::string::npos) << err;
  EXPECT_EQ(err.find("wrote"), std::string::npos);
}

TEST_F(OutputTest, NamesTheCallerReservedAreNeverTaken) {
  setfil("data.png");
  gfilnn("data.png");
  small_plot();
  EXPECT_STREQ(getfil(), "data_1.png");
}

TEST_F(OutputTest, ScreenDevicesFallBackToPngWithOneWarning) {
  EXPECT_EQ(qqwchk(), 0);
  metafl("CONS");
  testing::internal::CaptureStderr();
  small_plot();
  mirfin();
  std::string err = testing::internal::GetCapturedStderr();
  EXPECT_NE(err.find("warning: mirini: no screen window can be opened; the picture goes to mirval.png"),
            std::string::npos);
  EXPECT_TRUE(file_exists("mirval.png"));
  metafl("NOSUCH");
  EXPECT_STREQ(getfil(), "mirval.png");
}

TEST_F(OutputTest, RoutinesRefuseTheWrongLevel) {
  float x[2] = {0, 1};
  testing::internal::CaptureStderr();
  curve(x, x, 2);
  graf(0, 1, 0, 1, 0, 1, 0, 1);
  mirfin();
  mirini();
  metafl("PDF");
  curve(x, x, 2);
  std::string err = testing::internal::GetCapturedStderr();
  expect_all_in(err, {"mirval: warning: curve: not allowed at level 0",
                      "mirval: warning: graf: not allowed at level 0",
                      "mirval: warning: mirfin: not allowed at level 0",
                      "mirval: warning: metafl: not allowed at level 1",
                      "mirval: warning: curve: not allowed at level 1"});
  EXPECT_EQ(getlev(), 1);
  graf(0, 1, 0, 1, 0, 1, 0, 1);
  EXPECT_EQ(getlev(), 2);
  endgrf();
  EXPECT_EQ(getlev(), 1);
}

TEST_F(OutputTest, BadArgumentsWarnAndDrawNothing) {
  small_plot();
  float nan_data[3] = {1, NAN, 3};
  testing::internal::CaptureStderr();
  curve(nan_data, nan_data, 3);
  curve(nan_data, nan_data, 0);
  height(-3);
  setclr(300);
  marker(99);
  legend(nullptr, 3);
  std::string err = testing::internal::GetCapturedStderr();
  expect_all_in(err, {"curve: no points", "height: height -3 out of range 1..10000",
                      "setclr: colour number 300", "marker: symbol 99", "legend: no legend buffer"});
  EXPECT_EQ(gethgt(), 36);
}

TEST_F(OutputTest, ErrmodSilencesWarningsAndTheFileLine) {
  errmod("ALL", "OFF");
  testing::internal::CaptureStderr();
  small_plot();
  height(-1);
  mirfin();
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(OutputTest, ErrdevSendsMessagesToTheErrorFile) {
  errfil("messages.txt");
  errdev("FILE");
  small_plot();
  height(-1);
  mirfin();
  errdev("CONS");
  std::string text = read_file("messages.txt");
  expect_all_in(text, {"mirval: warning: height:", "mirval: wrote mirval.png (PNG, 1188 x 840)"});
}

TEST_F(OutputTest, SendbfCompletesTheFileWhileThePageStaysOpen) {
  metafl("PDF");
  small_plot();
  sendbf();
  std::string doc = read_file("mirval.pdf");
  EXPECT_NE(doc.find("%%EOF"), std::string::npos);
  EXPECT_EQ(getlev(), 2);
}

TEST_F(OutputTest, TheProgramsEndWritesAnOpenPage) {
  pid_t pid = fork();
  ASSERT_GE(pid, 0);
  if (pid == 0) {
    // like a quick plot: the page stays open when the program ends
    metafl("SVG");
    small_plot();
    std::exit(0);
  }
  int status = 0;
  waitpid(pid, &status, 0);
  EXPECT_TRUE(WIFEXITED(status));
  std::string svg = read_file("mirval.svg");
  EXPECT_NE(svg.find("</svg>"), std::string::npos);
}

TEST_F(OutputTest, ResetRestoresDefaults) {
  height(50);
  axslen(1000, 500);
  setvlt("GREY");
  reset("HEIGHT");
  reset("AXSLEN");
  EXPECT_EQ(gethgt(), 36);
  int nx, ny, nz;
  getlen(&nx, &ny, &nz);
  EXPECT_EQ(nx, 2200);
  EXPECT_EQ(ny, 1200);
  float r, g, b;
  getind(100, &r, &g, &b);
  EXPECT_FLOAT_EQ(r, g);
  reset("ALL");
  getind(100, &r, &g, &b);
  EXPECT_NE(r, g);
}

TEST_F(OutputTest, SettingsAreReportedBack) {
  marker(5);
  hsymbl(20);
  int sym, size;
  getsym(&sym, &size);
  EXPECT_EQ(sym, 5);
  EXPECT_EQ(size, 20);
  chndot();
  EXPECT_EQ(gettyp(), 3);
  linwid(7);
  EXPECT_EQ(getlin(), 7);
  shdpat(16);
  EXPECT_EQ(getpat(), 16);
  angle(45);
  EXPECT_EQ(getang(), 45);
  hname(50);
  EXPECT_EQ(gethnm(), 50);
  setvlt("rtemp");
  EXPECT_STREQ(getvlt(), "RTEMP");
  metafl("eps");
  EXPECT_STREQ(getmfl(), "EPS");
  labels("EXP", "Y");
  digits(2, "X");
  ticks(4, "Z");
  char lx[81], ly[81], lz[81];
  getlab(lx, ly, lz);
  EXPECT_STREQ(lx, "FLOAT");
  EXPECT_STREQ(ly, "EXP");
  int dx, dy, dz, tx, ty, tz;
  getdig(&dx, &dy, &dz);
  gettic(&tx, &ty, &tz);
  EXPECT_EQ(dx, 2);
  EXPECT_EQ(dy, -1);
  EXPECT_EQ(tz, 4);
  mirini();
  graf(0, 10, 0, 2, 5, -5, 5, -2.5f);
  float a, e, org, step;
  getgrf(&a, &e, &org, &step, "Y");
  EXPECT_FLOAT_EQ(a, 5);
  EXPECT_FLOAT_EQ(e, -5);
  EXPECT_FLOAT_EQ(step, 2.5f);
}

TEST_F(OutputTest, ColoursAreReportedBack) {
  setclr(200);
  EXPECT_EQ(getclr(), 200);
  setrgb(1, 0, 0);
  float r, g, b;
  getrgb(&r, &g, &b);
  EXPECT_FLOAT_EQ(r, 1);
  EXPECT_FLOAT_EQ(g, 0);
  color("FORE");
  EXPECT_EQ(getclr(), 0);
  float h, s, v;
  rgbhsv(0, 0, 1, &h, &s, &v);
  EXPECT_FLOAT_EQ(h, 240);
  hsvrgb(60, 1, 1, &r, &g, &b);
  EXPECT_FLOAT_EQ(r, 1);
  EXPECT_FLOAT_EQ(g, 1);
  EXPECT_FLOAT_EQ(b, 0);
}

TEST_F(OutputTest, PositionsConvertBothWays) {
  small_plot();
  EXPECT_EQ(nxposn(5), 1550);
  EXPECT_EQ(nyposn(5), 1200);
  EXPECT_DOUBLE_EQ(xposn(10), 2650);
  EXPECT_NEAR(xinvrs(1550), 5, 1e-9);
  EXPECT_NEAR(yinvrs(600), 10, 1e-9);
  EXPECT_GT(nlmess("wide text"), nlmess("w"));
}
