// Images in and out, pixels, binary and FITS files, formula layout and alphabets.
#include "library_test.h"

#include "core/state.h"
#include "media/formula.h"
#include "media/image_io.h"
#include "media/media.h"
#include "mirval.h"

#include <fitsio.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

std::string media_format_setting(const char *format, const char *key);

namespace {

class Media : public LibraryTest {};

void open_page() {
  metafl("PNG");
  setfil("page.png");
  mirini();
}

// A page with a few colours and shapes, the same every time.
void draw_something() {
  color("RED");
  recfll(100, 100, 800, 600, 50);
  color("BLUE");
  line(0, 0, 2970, 2100);
  messag("Round trip", 1200, 1200);
}

bool same_pixels(const Picture &a, const Picture &b, int tolerance = 0) {
  if (a.w != b.w || a.h != b.h || a.w == 0) return false;
  for (size_t i = 0; i < a.px.size(); ++i)
    if (std::abs(a.px[i].r - b.px[i].r) > tolerance || std::abs(a.px[i].g - b.px[i].g) > tolerance ||
        std::abs(a.px[i].b - b.px[i].b) > tolerance)
      return false;
  return true;
}

// At 'in' of page.png a placed picture: channel 'strong' bright, 'weak' dark; at 'out' the
// white page.
void expect_placed(int Pixel::*strong, int Pixel::*weak, int in_x, int in_y, int out_x, int out_y) {
  Picture p = read_png("page.png");
  ASSERT_EQ(p.w, 1188);
  Pixel in = p.at(in_x, in_y), out = p.at(out_x, out_y);
  EXPECT_GT(in.*strong, 200);
  EXPECT_LT(in.*weak, 50);
  EXPECT_EQ(out.*strong, 255);
  EXPECT_EQ(out.*weak, 255);
}

LayoutStyle style(double h) {
  LayoutStyle s;
  s.font = font_index(FontChoice{});
  s.height = h;
  s.tex = true;
  return s;
}

TEST_F(Media, SuperscriptIsRaisedAndSmaller) {
  Layout l = layout_text("$x^2$", style(40));
  ASSERT_EQ(l.glyphs.size(), 2u);
  EXPECT_EQ(l.glyphs[1].text, "2");
  EXPECT_GT(l.glyphs[1].y, 15);
  EXPECT_LT(l.glyphs[1].size, l.glyphs[0].size);
  EXPECT_GT(l.glyphs[1].x, l.glyphs[0].x);
}

TEST_F(Media, SubscriptIsLowered) {
  Layout l = layout_text("$x_i$", style(40));
  ASSERT_EQ(l.glyphs.size(), 2u);
  EXPECT_LT(l.glyphs[1].y, -5);
}

TEST_F(Media, FractionStacksAroundItsBar) {
  Layout l = layout_text("$\\frac{a}{bbbb}$", style(40));
  ASSERT_EQ(l.bars.size(), 1u);
  ASSERT_EQ(l.glyphs.size(), 5u);  // a, and the four letters b
  const LayBar &bar = l.bars[0];
  EXPECT_GT(l.glyphs[0].y, bar.y1);  // numerator above
  EXPECT_LT(l.glyphs[1].y + 40, bar.y0 + 1);  // denominator's capitals below
  EXPECT_GE(bar.x1 - bar.x0, 0);
  // the bar spans the wider part, the numerator is centred on it
  double den_w = l.width;
  EXPECT_GT(bar.x1 - bar.x0, 0.8 * (den_w - 10));
  EXPECT_GT(l.glyphs[0].x, l.glyphs[1].x);
  EXPECT_GT(l.ascent, 40);
  EXPECT_GT(l.descent, 20);
}

TEST_F(Media, RootDrawsItsSignOverTheBody) {
  Layout l = layout_text("$\\sqrt{x}$", style(40));
  ASSERT_EQ(l.lines.size(), 1u);
  const std::vector<double> &xy = l.lines[0].xy;
  ASSERT_EQ(xy.size(), 10u);
  EXPECT_GT(xy[7], 40);  // the top of the sign is above the capitals
  EXPECT_GT(xy[8], l.glyphs[0].x);  // the overline reaches past the body's start
}

TEST_F(Media, GreekAndSymbolsBecomeUnicode) {
  Layout l = layout_text("$\\alpha \\leq \\Omega$", style(40));
  ASSERT_EQ(l.glyphs.size(), 3u);
  EXPECT_EQ(l.glyphs[0].text, "\xCE\xB1");
  EXPECT_EQ(l.glyphs[1].text, "\xE2\x89\xA4");
  EXPECT_EQ(l.glyphs[2].text, "\xCE\xA9");
  EXPECT_EQ(tex_symbol("infty"), "\xE2\x88\x9E");
  EXPECT_EQ(tex_symbol("nonsense"), "");
}

TEST_F(Media, SumTakesLimitsAboveAndBelow) {
  Layout l = layout_text("$\\sum_{i=1}^{n}$", style(40));
  ASSERT_GE(l.glyphs.size(), 4u);
  double sum_y = l.glyphs[0].y;
  bool above = false, below = false;
  for (size_t k = 1; k < l.glyphs.size(); ++k) {
    if (l.glyphs[k].text == "n") above = l.glyphs[k].y > sum_y + 30;
    if (l.glyphs[k].text == "i") below = l.glyphs[k].y < sum_y - 10;
  }
  EXPECT_TRUE(above);
  EXPECT_TRUE(below);
}

TEST_F(Media, PlainTextOutsideDollarsIsOneRun) {
  Layout l = layout_text("no formula", style(40));
  ASSERT_EQ(l.glyphs.size(), 1u);
  EXPECT_EQ(l.glyphs[0].text, "no formula");
}

TEST_F(Media, MixedAlphabetsRaiseAndSwitchToGreek) {
  mixalf();
  LayoutStyle s = style(40);
  s.tex = false;
  s.mix = true;
  Layout l = layout_text("E=mc^2]{ab}", s);
  ASSERT_EQ(l.glyphs.size(), 3u);
  EXPECT_EQ(l.glyphs[0].text, "E=mc");
  EXPECT_GT(l.glyphs[1].y, 10);
  EXPECT_EQ(l.glyphs[2].text, "\xCE\xB1\xCE\xB2");
  EXPECT_EQ(greek_of('W'), "\xCE\xA9");
}

TEST_F(Media, NationalShiftGivesUmlauts) {
  eushft("GERMAN", "!");
  EXPECT_STREQ(getshf("GERMAN"), "!");
  Layout l = layout_text("Gr!u!se", style(40));
  ASSERT_EQ(l.glyphs.size(), 1u);
  EXPECT_EQ(l.glyphs[0].text, "Gr\xC3\xBC\xC3\x9F" "e");
}

TEST_F(Media, SettersAndGetters) {
  setmix("@", "SUP");
  EXPECT_STREQ(getmix("SUP"), "@");
  smxalf("SYMBOL", "<", ">", 2);
  char c1[4], c2[4];
  EXPECT_STREQ(gmxalf("SYMBOL", c1, c2), "SYMBOL");
  EXPECT_STREQ(c1, "<");
  EXPECT_STREQ(c2, ">");
  basalf("ITALIC");
  EXPECT_STREQ(getalf(), "ITALIC");
  reset("BASALF");
  EXPECT_STREQ(getalf(), "STANDARD");
  unit(0);
  EXPECT_EQ(getuni(), 0);
  unit(6);
  linwid(3);
  EXPECT_EQ(getwid(), 3);
}

TEST_F(Media, ResetPutsEachGroupOfSettingsBack) {
  texmod("ON");
  texopt("DISPLAY", "STYLE");
  texval(0.5, "SCRIPT");
  newmix();
  setmix("@", "SUB");
  eushft("GERMAN", "!");
  chaang(20);
  linesp(3);
  frmess(2);
  tiforg(5, 6);
  tifwin(1, 2, 3, 4);
  filclr("BW");
  filopt("OFF", "ASPECT");
  timopt();
  const MediaState fresh, &m = mirval_state().media;
  EXPECT_TRUE(m.tex && m.mix && m.sub == '@' && m.slant == 20 && m.frame == 2 && m.tifwin[3] == 4 && m.timing);
  for (const char *name : {"TEXMOD", "MIXALF", "CHAANG", "TIFWIN", "TIMOPT"}) reset(name);
  EXPECT_EQ(m.tex, fresh.tex);
  EXPECT_EQ(m.tex_style, fresh.tex_style);
  EXPECT_EQ(m.tex_scale, fresh.tex_scale);
  EXPECT_EQ(m.mix, fresh.mix);
  EXPECT_EQ(m.sub, fresh.sub);
  EXPECT_TRUE(m.nation.empty());
  EXPECT_EQ(m.slant, fresh.slant);
  EXPECT_EQ(m.line_spacing, fresh.line_spacing);
  EXPECT_EQ(m.frame, fresh.frame);
  EXPECT_EQ(m.tiforg_y, fresh.tiforg_y);
  for (int k = 0; k < 4; ++k) EXPECT_EQ(m.tifwin[k], fresh.tifwin[k]);
  EXPECT_EQ(m.fil_clr, fresh.fil_clr);
  EXPECT_TRUE(m.fil_opt.empty());
  EXPECT_FALSE(m.timing);
}

TEST_F(Media, UtfRoundTrip) {
  int codes[16], n = 0;
  utfint("A\xC3\xA4\xE2\x82\xAC", codes, 16, &n);
  ASSERT_EQ(n, 3);
  EXPECT_EQ(codes[0], 'A');
  EXPECT_EQ(codes[1], 0xE4);
  EXPECT_EQ(codes[2], 0x20AC);
  char text[16];
  int len = 0;
  intutf(codes, 3, text, 16, &len);
  EXPECT_STREQ(text, "A\xC3\xA4\xE2\x82\xAC");
  EXPECT_EQ(len, 6);
  intutf(codes, 3, text, 3, &len);  // only "A" and the two bytes of a-umlaut do not fit
  EXPECT_STREQ(text, "A");
}

TEST_F(Media, PngRoundTripIsExact) {
  open_page();
  draw_something();
  wimage("a.png");
  erase();
  rpng("a.png");
  wimage("b.png");
  Picture a = read_png("a.png"), b = read_png("b.png");
  ASSERT_EQ(a.w, 1188);
  EXPECT_TRUE(same_pixels(a, b));
  mirfin();
}

TEST_F(Media, TiffAndPpmAndBmpRoundTripsAreExact) {
  open_page();
  draw_something();
  wimage("a.png");
  wtiff("a.tif");
  expimg("a.ppm", "PPM");
  expimg("a.bmp", "BMP");
  Picture a = read_png("a.png");
  const char *files[] = {"a.tif", "a.ppm", "a.bmp"};
  for (const char *f : files) {
    erase();
    rimage(f);
    wimage("b.png");
    EXPECT_TRUE(same_pixels(a, read_png("b.png"))) << f;
  }
  EXPECT_EQ(filtyp("a.tif"), 3);
  EXPECT_EQ(filtyp("a.png"), 1);
  EXPECT_EQ(filtyp("missing"), -1);
  int w = 0, h = 0;
  EXPECT_EQ(filsiz("a.tif", &w, &h), 0);
  EXPECT_EQ(w, 1188);
  EXPECT_EQ(h, 840);
  mirfin();
}

TEST_F(Media, GifKeepsFewColoursExactly) {
  open_page();
  recfll(0, 0, 1000, 1000, 50);
  recfll(1000, 1000, 1000, 1000, 200);
  wimage("a.png");
  expimg("a.gif", "GIF");
  erase();
  rgif("a.gif");
  wimage("b.png");
  EXPECT_TRUE(same_pixels(read_png("a.png"), read_png("b.png")));
  mirfin();
}

TEST_F(Media, ReadImagePlacedAtTiforg) {
  open_page();
  recfll(0, 0, 100, 50, 250);  // 40 x 20 pixels
  tifwin(0, 0, 40, 20);
  wimage("small.png");
  reset("TIFWIN");
  erase();
  tiforg(1000, 500);  // pixel 400, 200
  rpng("small.png");
  mirfin();
  expect_placed(&Pixel::r, &Pixel::b, 410, 210, 390, 210);
}

TEST_F(Media, PixelsWriteAndReadBack) {
  open_page();
  wpixel(10, 20, 50);
  int c = -1;
  rpixel(10, 20, &c);
  EXPECT_EQ(c, 50);
  rpixel(11, 20, &c);
  EXPECT_EQ(c, 255);  // the white page
  unsigned char row[5] = {1, 2, 3, 4, 5}, back[5] = {};
  wpxrow(row, 100, 100, 5);
  rpxrow(back, 100, 100, 5);
  EXPECT_EQ(0, std::memcmp(row, back, 5));
  unsigned char block[6] = {10, 20, 30, 40, 50, 60}, got[6] = {};
  wpixls(block, 200, 200, 3, 2);
  rpixls(got, 200, 200, 3, 2);
  EXPECT_EQ(0, std::memcmp(block, got, 6));
  rpixel(5000, 5000, &c);  // outside: warned, nothing read
  EXPECT_EQ(c, 0);
  mirfin();
}

TEST_F(Media, ImageWithTransparentColour) {
  open_page();
  recfll(0, 0, 2970, 2100, 50);  // a coloured page under the image
  imgbox(0, 0, 500, 500);
  imgsiz(10, 10);
  imgmod("TRANSPARENT");
  imgtpr(0);
  imgini();
  std::vector<unsigned char> px(100, 0);
  for (int k = 0; k < 50; ++k) px[k] = 100;  // upper half drawn, lower half transparent
  wpixls(px.data(), 0, 0, 10, 10);
  imgfin();
  mirfin();
  Picture p = read_png("page.png");
  Pixel upper = p.at(100, 20), lower = p.at(100, 180);
  EXPECT_FALSE(upper.r == lower.r && upper.g == lower.g && upper.b == lower.b);
  Pixel page = p.at(300, 180);  // outside the image: the filled page
  EXPECT_EQ(lower.r, page.r);   // the page shows through the transparent half
  EXPECT_EQ(lower.g, page.g);
  EXPECT_EQ(lower.b, page.b);
}

TEST_F(Media, BuffersHoldPngAndPdf) {
  open_page();
  draw_something();
  int n = rbfpng(nullptr, 0);
  ASSERT_GT(n, 100);
  std::vector<unsigned char> buf(n);
  EXPECT_EQ(rbfpng(buf.data(), n), n);
  EXPECT_EQ(0, std::memcmp(buf.data(), "\x89PNG", 4));
  std::vector<unsigned char> small(10);
  EXPECT_LT(rbfpng(small.data(), 10), 0);
  pdfmrk("First page", "PAGE");
  pdfmod("Media test", "TITLE");
  int m = pdfbuf(nullptr, 0);
  std::vector<char> pdf(m);
  EXPECT_EQ(pdfbuf(pdf.data(), m), m);
  std::string s(pdf.begin(), pdf.end());
  EXPECT_EQ(s.compare(0, 4, "%PDF"), 0);
  EXPECT_NE(s.find("/Outlines"), std::string::npos);
  EXPECT_NE(s.find("First page"), std::string::npos);
  EXPECT_NE(s.find("Media test"), std::string::npos);
  mirfin();
}

// A 120 x 90 image of four flat quarters; the lower right one transparent, the lower left one
// half so.
std::shared_ptr<RasterImage> quarters() {
  auto img = std::make_shared<RasterImage>();
  img->w = 120;
  img->h = 90;
  img->smooth = false;
  for (int y = 0; y < 90; ++y)
    for (int x = 0; x < 120; ++x) {
      bool right = x >= 60, low = y >= 45;
      img->argb.push_back(!low ? (right ? argb_of(0, 0, 255, 255) : argb_of(255, 0, 0, 255))
                               : (right ? 0u : argb_of(0, 160, 0, 128)));
    }
  return img;
}

TEST_F(Media, LargeImagesGoIntoPdfOnceAndExactly) {
  metafl("PDF");
  setfil("page.pdf");
  mirini();
  auto img = quarters();
  place_image(img, 0, 0, 1200, 900, false);  // the page is 2970 x 2100 plot units
  newpag();
  place_image(img, 0, 0, 1200, 900, false);
  mirfin();
  std::string pdf = read_file("page.pdf");
  EXPECT_EQ(count(pdf, "/Subtype /Image"), 2);  // the image and its soft mask, shared by the pages
  EXPECT_NE(pdf.find("/Width 120"), std::string::npos);
  RasterImage page;
  std::string err;
  ASSERT_TRUE(render_picture("page.pdf", 2, 297, 210, page, err)) << err;
  auto at = [&](int x, int y) {
    unsigned r, g, b, a;
    rgba_of(page.argb[size_t(y) * page.w + x], r, g, b, a);
    return std::vector<unsigned>{r, g, b};
  };
  EXPECT_EQ(at(30, 20), (std::vector<unsigned>{255, 0, 0}));
  EXPECT_EQ(at(90, 20), (std::vector<unsigned>{0, 0, 255}));
  EXPECT_EQ(at(90, 70), (std::vector<unsigned>{255, 255, 255}));  // transparent: the page
  std::vector<unsigned> half = at(30, 70);  // half green over white
  EXPECT_NEAR(half[0], 127, 3);
  EXPECT_NEAR(half[1], 207, 3);
  EXPECT_EQ(at(200, 150), (std::vector<unsigned>{255, 255, 255}));
  // the same picture gives the same bytes
  metafl("PDF");
  setfil("again.pdf");
  mirini();
  place_image(img, 0, 0, 1200, 900, false);
  newpag();
  place_image(img, 0, 0, 1200, 900, false);
  mirfin();
  EXPECT_EQ(read_file("again.pdf"), pdf);
}

TEST_F(Media, SvgPictureIsPlacedInTheBox) {
  FILE *fp = std::fopen("pic.svg", "w");
  std::fputs("<svg xmlns='http://www.w3.org/2000/svg' width='100' height='100'>"
             "<rect width='100' height='100' fill='#00ff00'/></svg>", fp);
  std::fclose(fp);
  open_page();
  filbox(1000, 500, 500, 500);  // pixels 400..600, 200..400
  incfil("pic.svg");
  mirfin();
  expect_placed(&Pixel::g, &Pixel::r, 500, 300, 300, 300);
}

TEST_F(Media, BinaryFiles) {
  int u = openfl("data.bin", 0, 1);
  ASSERT_GE(u, 1);
  const char text[] = "0123456789";
  EXPECT_EQ(writfl(u, text, 10), 10);
  EXPECT_EQ(tellfl(u), 10);
  EXPECT_EQ(closfl(u), 0);
  u = openfl("data.bin", 7, 0);
  EXPECT_EQ(u, 7);
  char got[8] = {};
  EXPECT_EQ(skipfl(u, 3), 3);
  EXPECT_EQ(readfl(u, got, 4), 4);
  EXPECT_STREQ(got, "3456");
  EXPECT_EQ(posifl(u, 8), 0);
  EXPECT_EQ(readfl(u, got, 8), 2);
  EXPECT_EQ(readfl(u, got, 8), 0);
  EXPECT_EQ(closfl(u), 0);
  EXPECT_EQ(closfl(u), -1);
  EXPECT_EQ(readfl(42, got, 1), -1);
  EXPECT_EQ(openfl("no/such/dir/x", 0, 0), -1);
}

// A FITS file made by cfitsio: a 6 x 4 float image with keywords, and a binary table.
void make_fits(const char *name) {
  fitsfile *f = nullptr;
  int status = 0;
  std::remove(name);
  fits_create_file(&f, name, &status);
  long axes[2] = {6, 4};
  fits_create_img(f, FLOAT_IMG, 2, axes, &status);
  float px[24];
  for (int k = 0; k < 24; ++k) px[k] = k * 0.5f;
  fits_write_img(f, TFLOAT, 1, 24, px, &status);
  fits_update_key_str(f, "OBJECT", "M31", "the target", &status);
  double exptime = 12.5;
  fits_update_key(f, TDOUBLE, "EXPTIME", &exptime, "seconds", &status);
  int flag = 1;
  fits_update_key(f, TLOGICAL, "SIMUL", &flag, "", &status);
  char *ttype[] = {const_cast<char *>("X")}, *tform[] = {const_cast<char *>("1E")}, *tunit[] = {const_cast<char *>("")};
  fits_create_tbl(f, BINARY_TBL, 0, 1, ttype, tform, tunit, "TAB", &status);
  fits_close_file(f, &status);
  ASSERT_EQ(status, 0);
}

TEST_F(Media, FitsKeywordsAndImage) {
  make_fits("img.fits");
  ASSERT_EQ(fitsopn("img.fits"), 0);
  EXPECT_EQ(fitsval("NAXIS1"), 6);
  EXPECT_EQ(fitsval("NAXIS2"), 4);
  EXPECT_DOUBLE_EQ(fitsflt("EXPTIME"), 12.5);
  EXPECT_STREQ(fitsstr("OBJECT"), "M31");
  EXPECT_EQ(fitstyp("OBJECT"), 1);
  EXPECT_EQ(fitstyp("SIMUL"), 2);
  EXPECT_EQ(fitstyp("NAXIS"), 3);
  EXPECT_EQ(fitstyp("EXPTIME"), 4);
  EXPECT_EQ(fitstyp("MISSING"), 0);
  float img[24] = {};
  EXPECT_EQ(fitsimg(img, 24), 24);
  EXPECT_FLOAT_EQ(img[0], 0);
  EXPECT_FLOAT_EQ(img[23], 11.5);
  EXPECT_EQ(fitsimg(img, 10), -1);  // too small
  EXPECT_EQ(fitshdu(2), 2);
  EXPECT_EQ(fitsimg(img, 24), -1);  // a table, no image
  EXPECT_EQ(fitshdu(3), -1);
  EXPECT_EQ(filtyp("img.fits"), 10);
  fitscls();
  EXPECT_EQ(fitsval("NAXIS1"), 0);  // closed: warned
  EXPECT_EQ(fitsopn("missing.fits"), -1);
}

// Files written by cfitsio's own programs: a tile-compressed copy (imcopy) and an image
// section (fitscopy), read back through FITSOPN, FITSHDU and FITSIMG.
TEST_F(Media, FitsFilesOfCfitsioToolsAreRead) {
  make_fits("img.fits");
  ASSERT_EQ(std::system("imcopy img.fits 'packed.fits[compress]' > /dev/null 2>&1"), 0);
  ASSERT_EQ(std::system("fitscopy 'img.fits[2:4,3:4]' part.fits > /dev/null 2>&1"), 0);
  ASSERT_EQ(fitsopn("packed.fits"), 0);
  EXPECT_EQ(fitshdu(2), 0);  // the first extension: an image, which cfitsio uncompresses
  float img[24] = {};
  EXPECT_EQ(fitsimg(img, 24), 24);
  for (int k = 0; k < 24; ++k) EXPECT_FLOAT_EQ(img[k], k * 0.5f) << k;
  fitscls();
  ASSERT_EQ(fitsopn("part.fits"), 0);
  EXPECT_EQ(fitsval("NAXIS1"), 3);
  EXPECT_EQ(fitsval("NAXIS2"), 2);
  EXPECT_STREQ(fitsstr("OBJECT"), "M31");
  float part[6] = {};
  EXPECT_EQ(fitsimg(part, 6), 6);
  const float want[6] = {6.5f, 7, 7.5f, 9.5f, 10, 10.5f};  // columns 2..4 of rows 3 and 4
  for (int k = 0; k < 6; ++k) EXPECT_FLOAT_EQ(part[k], want[k]) << k;
  fitscls();
}

TEST_F(Media, FormatSettingsAreKept) {
  cgmver(3);
  EXPECT_EQ(media_format_setting("CGM", "VERSION"), "3");
  hwpage(2000, 1000);
  EXPECT_EQ(media_format_setting("HW", "PAGE"), "2000 1000");
  tifmod(300, "INCH", "RESOLUTION");
  EXPECT_EQ(media_format_setting("TIFF", "RESOLUTION"), "300");
  tifmod(0, "LZW", "COMPRESSION");
  pngmod("ON", "TRANSPARENT");
  EXPECT_EQ(media_format_setting("PNG", "TRANSPARENT"), "ON");
  pngmod("MAYBE", "TRANSPARENT");  // refused
  EXPECT_EQ(media_format_setting("PNG", "TRANSPARENT"), "ON");
  reset("CGMVER");
  EXPECT_EQ(media_format_setting("CGM", "VERSION"), "");
}

// The colour type of a PNG file: 2 RGB, 6 RGB with opacity.
int png_colour_type(const std::string &name) {
  std::string s = read_file(name);
  return s.size() > 25 ? s[25] : -1;
}

// One filled rectangle (pixels 40..360 x 40..280) on a page written to a file.
void rectangle_page(const char *format, const char *file) {
  metafl(format);
  setfil(file);
  mirini();
  recfll(100, 100, 800, 600, 50);
  mirfin();
}

TEST_F(Media, PngModesTakeEffect) {
  rectangle_page("PNG", "page.png");
  EXPECT_EQ(png_colour_type("page.png"), 2);
  pngmod("ON", "TRANSPARENT");
  rectangle_page("PNG", "clear.png");
  EXPECT_EQ(png_colour_type("clear.png"), 6);
  RasterImage img;
  std::string err;
  ASSERT_TRUE(read_image("clear.png", img, err)) << err;
  EXPECT_EQ(img.argb[0], 0u);                        // the background: transparent
  EXPECT_EQ(img.argb[200 * img.w + 200] >> 24, 255u);  // the rectangle: opaque
  reset("PNGMOD");
  pngmod("ON", "ALPHA");
  rectangle_page("PNG", "alpha.png");
  EXPECT_EQ(png_colour_type("alpha.png"), 6);
  ASSERT_TRUE(read_image("alpha.png", img, err)) << err;
  EXPECT_EQ(img.argb[0], 0xFFFFFFFFu);  // opaque white
}

TEST_F(Media, GifModesTakeEffectAndReadBack) {
  rectangle_page("GIF", "page.gif");
  RasterImage plain, fancy;
  std::string err;
  ASSERT_TRUE(read_image("page.gif", plain, err)) << err;
  gifmod("ON", "TRANSPARENT");
  gifmod("ON", "INTERLACE");
  rectangle_page("GIF", "fancy.gif");
  std::string gif = read_file("fancy.gif");
  EXPECT_NE(gif.find("\x21\xF9\x04\x01"), std::string::npos);  // a transparent colour
  ASSERT_TRUE(read_image("fancy.gif", fancy, err)) << err;
  ASSERT_EQ(fancy.argb.size(), plain.argb.size());
  EXPECT_EQ(fancy.argb[0], 0u);  // the background: transparent
  size_t differ = 0;
  for (size_t i = 0; i < plain.argb.size(); ++i)
    differ += plain.argb[i] != 0xFFFFFFFFu && fancy.argb[i] != plain.argb[i];
  EXPECT_EQ(differ, 0u);  // interlaced rows come back in their places
}

TEST_F(Media, PostScriptModesTakeEffect) {
  metafl("PS");
  setfil("page.ps");
  mirini();
  mirfin();
  std::string plain = read_file("page.ps");
  EXPECT_NE(plain.find("%%DocumentMedia: 297x210mm 842 595"), std::string::npos);
  psmode("PORTRAIT");
  psmode("LEVEL2");
  psmeta("Media test", "TITLE");
  setfil("turned.ps");
  mirini();
  mirfin();
  std::string turned = read_file("turned.ps");
  EXPECT_NE(turned.find("%%DocumentMedia: A4 595 842"), std::string::npos);  // an upright sheet
  EXPECT_NE(turned.find("%%Title: Media test"), std::string::npos);
  EXPECT_EQ(media_format_setting("PS", "ORIENTATION"), "PORTRAIT");
  EXPECT_EQ(media_format_setting("PS", "LEVEL"), "LEVEL2");
}

TEST_F(Media, FormatsNotWrittenSayPngIsWrittenInstead) {
  cgmver(3);
  testing::internal::CaptureStderr();
  metafl("CGM");
  std::string said = testing::internal::GetCapturedStderr();
  EXPECT_EQ(said, "mirval: warning: metafl: CGM files are not written by this library: PNG is written instead\n");
  setfil("page.png");
  mirini();
  mirfin();
  EXPECT_EQ(png_colour_type("page.png"), 2);
  EXPECT_EQ(media_format_setting("CGM", "VERSION"), "3");  // kept, and read back
}

TEST_F(Media, LzwTiffIsReadBack) {
  tifmod(0, "LZW", "COMPRESSION");
  open_page();
  draw_something();
  wimage("a.png");
  wtiff("a.tif");
  erase();
  rtiff("a.tif");
  wimage("b.png");
  EXPECT_TRUE(same_pixels(read_png("a.png"), read_png("b.png")));
  mirfin();
}

TEST_F(Media, TextureIsDeterministicAndInRange) {
  std::vector<int> a(64 * 32), b(64 * 32);
  txture(a.data(), 64, 32);
  txture(b.data(), 64, 32);
  EXPECT_EQ(a, b);
  int lo = 255, hi = 0;
  for (int v : a) lo = std::min(lo, v), hi = std::max(hi, v);
  EXPECT_GE(lo, 1);
  EXPECT_LE(hi, 254);
  EXPECT_GT(hi - lo, 30);
}

TEST_F(Media, BadArgumentsDoNoHarm) {
  open_page();
  rpng(nullptr);
  rpng("");
  rpng("missing.png");
  wpixls(nullptr, 0, 0, 2, 2);
  rpixls(nullptr, 0, 0, 2, 2);
  unsigned char b[4];
  rpixls(b, 0, 0, 0, 2);
  wpixel(-1, -1, 3);
  incfil("missing.svg");
  texval(NAN, "SCRIPT");
  chaang(1e30f);
  intutf(nullptr, 3, nullptr, 0, nullptr);
  ldimg("missing.png", nullptr, 0, 256);
  messag("$\\frac{a}{", 100, 100);   // unfinished formula
  texmod("ON");
  messag("$\\sqrt[", 100, 300);
  messag("$x^$", 100, 500);
  messag("$}}}{{{$", 100, 700);
  mirfin();
  EXPECT_TRUE(file_exists("page.png"));
}

// A picture file that cannot be read gives one warning line, without the line end the
// reading library puts after its own message.
TEST_F(Media, ABrokenSvgGivesOneWarningLine) {
  FILE *fp = std::fopen("broken.svg", "w");
  std::fputs("<svg xmlns='http://www.w3.org/2000/svg' width='100'><rect", fp);
  std::fclose(fp);
  open_page();
  testing::internal::CaptureStderr();
  incfil("broken.svg");
  std::string said = testing::internal::GetCapturedStderr();
  mirfin();
  EXPECT_EQ(said.rfind("mirval: warning: incfil: ", 0), 0u) << said;
  EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
}

}  // namespace
