// PNG pictures against reference images in ref/: compared by where the ink is, within two
// pixels, so that a font update passes but a misplaced axis or a missing curve does not.
// MIRVAL_UPDATE_REFS=1 writes new references instead of comparing.
#include "mirval.h"
#include "picture_support.h"

#include <cmath>
#include <cstdlib>

namespace {

class PngTest : public PictureTest {};

void damped_axes() {
  height(50);
  name("Time [s]", "X");
  name("Signal", "Y");
  titlin("Damped oscillation", 1);
  graf(0, 10, 0, 2, -1, 1, -1, 0.5);
  title();
}

void axes_and_curves() {
  damped_axes();
  float x[200], y[200];
  for (int i = 0; i < 200; ++i) x[i] = i * 0.05f, y[i] = std::exp(-0.25f * x[i]) * std::cos(3 * x[i]);
  color("RED");
  linwid(6);
  curve(x, y, 200);
  color("FORE");
}

void log_axes_and_legend() {
  height(50);
  axsscl("LOG", "Y");
  labels("LOG", "Y");
  float x[30], a[30], b[30];
  for (int i = 0; i < 30; ++i) x[i] = 1 + i, a[i] = x[i] * x[i], b[i] = 1000 / x[i];
  setscl(x, 30, "X");
  setscl(a, 30, "Y");
  graf(0, 0, 0, 0, 0, 0, 0, 0);
  grid(1, 1);
  color("BLUE");
  incmrk(3);
  marker(21);
  hsymbl(40);
  curve(x, a, 30);
  color("GREEN");
  incmrk(-1);
  marker(2);
  curve(x, b, 30);
  color("FORE");
  two_line_legend("square", "inverse", 10, 6);
}

void shapes_and_text() {
  height(60);
  shdpat(16);
  setclr(50);
  rectan(200, 200, 600, 400);
  shdpat(3);
  color("RED");
  circle(1300, 400, 200);
  shdpat(0);
  color("FORE");
  sector(2100, 400, 80, 250, 20, 290, 180);
  messag("Shapes and text", 200, 800);
  angle(90);
  messag("upwards", 2600, 1000);
  angle(0);
  for (int m = 0; m < 12; ++m) symbol(m, 250 + m * 180, 1300);
  linwid(5);
  dash();
  line(200, 1600, 2700, 1600);
  chndot();
  line(200, 1800, 2700, 1800);
}

struct Reference {
  const char *name;
  void (*draw)();
};
const Reference references[] = {{"axes_and_curves", axes_and_curves},
                                {"log_axes_and_legend", log_axes_and_legend},
                                {"shapes_and_text", shapes_and_text}};

std::string render(const Reference &r) {
  std::string file = std::string(r.name) + ".png";
  winsiz(600, 424);
  setfil(file.c_str());
  errmod("ALL", "OFF");
  mirini();
  r.draw();
  mirfin();
  errmod("ALL", "ON");
  reset("ALL");
  return file;
}

std::string reference(const Reference &r) { return std::string(PICTURE_REF_DIR) + "/" + r.name + ".png"; }

}  // namespace

TEST_F(PngTest, PicturesMatchTheirReferences) {
  bool update = std::getenv("MIRVAL_UPDATE_REFS") != nullptr;
  for (const Reference &r : references) {
    std::string file = render(r);
    if (update) {
      std::string cmd = "cp " + file + " " + reference(r);
      ASSERT_EQ(std::system(cmd.c_str()), 0);
      continue;
    }
    ASSERT_TRUE(file_exists(reference(r))) << reference(r);
    EXPECT_LT(ink_mismatch(file, reference(r), 2), 0.03) << r.name;
  }
}

TEST_F(PngTest, AMisplacedAxisIsNoticed) {
  axspos(490, 1800);  // 40 plot units, 8 pixels, to the right
  std::string moved = render(references[0]);
  EXPECT_GT(ink_mismatch(moved, reference(references[0]), 2), 0.05);
}

TEST_F(PngTest, AMissingCurveIsNoticed) {
  std::string file = render({"axes_only", damped_axes});
  EXPECT_GT(ink_mismatch(file, reference(references[0]), 2), 0.05);
}
