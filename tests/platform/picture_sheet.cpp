/**
 * The picture sheet on every kind of context: picture_sheet.png, _smooth.png, .pdf and .svg in the build folder.
 *
 * Probes are places inside plain areas whose colours follow from what is painted there; PDF and SVG are read back
 * through the programs that show them.
 */
#include <png.h>

#include <cstdlib>

#include "platform/sheet_scenes.h"
#include "support/support.h"

namespace {

using namespace pn10::test;

/** A place inside a plain area, and the colour that every kind of context shows there. */
struct Probe {
  const char* what;
  int x, y;
  uint32_t rgb;
};
const Probe kProbes[] = {
    {"pentagram, alternate: the middle is open", 60, 350, 0xFFFFFF},
    {"pentagram, winding: the middle is filled", 160, 350, 0x00FFFF},
    {"inside of the ellipse", 265, 345, 0x00FFFF},
    {"ellipse without a pen", 405, 345, 0x00FFFF},
    {"pie counter-clockwise: the quarter upper right", 490, 330, 0x00FFFF},
    {"pie counter-clockwise: nothing lower left", 460, 365, 0xFFFFFF},
    {"pie clockwise: the quarter lower left", 540, 365, 0x00FFFF},
    {"pie clockwise: nothing upper right", 572, 328, 0xFFFFFF},
    {"the elbow's body", 828, 350, 0x00FFFF},
    {"ring by a path: its band", 880, 345, 0x00FFFF},
    {"ring by a path: its hole", 905, 345, 0xFFFFFF},
    {"hatch 6 is solid", 700, 450, 0xD02020},
    {"hollow rectangle", 930, 440, 0xFFFFFF},
    {"solid rectangle", 930, 500, 0x208020},
    {"outside the clip, left", 26, 850, 0xFFFFFF},
    {"inside the clip, ground", 226, 888, 0xE0E0F0},
    {"yellow alone", 525, 840, 0xFFFF00},
    {"yellow and cyan", 570, 845, 0x00FF00},
    {"cyan alone", 590, 890, 0x00FFFF},
    {"magenta alone", 655, 840, 0xFF00FF},
    {"cyan and magenta", 610, 850, 0x0000FF},
    {"cyan pen on yellow", 830, 850, 0x00FF00},
    {"picture: first row", 75, 945, 0xFF0000},
    {"picture: last row", 45, 1005, 0xFFFFFF},
    {"picture: diagonal", 100, 1005, 0x000000},
    {"picture mirrored: diagonal", 210, 945, 0x000000},
    {"picture half outside: not painted", 255, 945, 0xFFFFFF},
    {"picture half outside: painted", 310, 945, 0xFF0000},
    {"red and light yellow", 400, 945, 0xFF0000},
    {"blue and white paper", 370, 985, 0x0000FF},
    {"white and light yellow keep the ground", 355, 955, 0xFFFF80},
    {"not red", 505, 945, 0x00FFFF},
    {"not (white or white)", 790, 1005, 0x000000},
    {"stretched: second row", 45, 1090, 0x00FF00},
    {"upside down: lowest row is red", 450, 1135, 0xFF0000},
};

std::string out(const char* ending) { return std::string(PN10_BUILD_DIR) + "/picture_sheet" + ending; }

/** A picture read from a PNG file. */
struct Image {
  int width = 0, height = 0;
  std::vector<uint8_t> bytes;

  explicit Image(const std::string& path) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&image, path.c_str())) return;
    image.format = PNG_FORMAT_RGB;
    bytes.resize(PNG_IMAGE_SIZE(image));
    const png_color white{255, 255, 255};
    if (!png_image_finish_read(&image, &white, bytes.data(), 0, nullptr)) return;
    width = static_cast<int>(image.width);
    height = static_cast<int>(image.height);
  }
  uint32_t at(int x, int y) const {
    if (x >= width || y >= height) return 0x1000000;
    const uint8_t* p =
        bytes.data() + 3 * (static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x));
    return uint32_t{p[0]} << 16 | uint32_t{p[1]} << 8 | p[2];
  }
};

void expectProbes(const Image& image, int tolerance) {
  ASSERT_EQ(image.width, kSheetWidth);
  ASSERT_LE(std::abs(image.height - kSheetHeight), 1); /* a page of rounded size is one row longer in some programs */
  for (const Probe& probe : kProbes) {
    const uint32_t got = image.at(probe.x, probe.y);
    int worst = 0;
    for (int shift = 0; shift < 24; shift += 8) {
      worst =
          std::max(worst, std::abs(static_cast<int>(got >> shift & 255) - static_cast<int>(probe.rgb >> shift & 255)));
    }
    EXPECT_LE(worst, tolerance) << probe.what << " at " << probe.x << "," << probe.y << ": " << std::hex << got;
  }
}

/** How much of the sheet two pictures share: the part of the pixels that are about alike. */
double alike(const Image& a, const Image& b) {
  int64_t same = 0;
  for (int y = 0; y < kSheetHeight; y++) {
    for (int x = 0; x < kSheetWidth; x++) {
      const int d = static_cast<int>(a.at(x, y) >> 8 & 255) - static_cast<int>(b.at(x, y) >> 8 & 255);
      same += std::abs(d) < 96;
    }
  }
  return static_cast<double>(same) / kSheetWidth / kSheetHeight;
}

bool hasProgram(const char* name) {
  return std::system(("command -v " + std::string(name) + " >/dev/null").c_str()) == 0;
}

/** The sheet with the pixels of GDI; a file of its own each time, since the tests may run at the same moment. */
Image sharpSheet(const std::string& path = "") {
  const TempDir dir;
  if (path.empty()) return sharpSheet(dir.path("sheet.png"));
  HDC dc = PnCreateImageDC(kSheetWidth, kSheetHeight, kSheetDpi, 0xFFFFFF);
  paintSheet(dc);
  EXPECT_EQ(PnSavePng(dc, path.c_str()), 1);
  PnDeleteDC(dc);
  return Image(path);
}

TEST(PictureSheet, of_an_image_has_its_colours_where_they_belong) {
  const int32_t objects = PnGetObjectCount();
  expectProbes(sharpSheet(out(".png")), 0);
  EXPECT_EQ(PnGetObjectCount(), objects);
}

TEST(PictureSheet, with_smooth_lines_is_the_same_picture) {
  HDC dc = PnCreateImageDC(kSheetWidth, kSheetHeight, kSheetDpi, 0xFFFFFF);
  ASSERT_EQ(PnSetAntialias(dc, 1), 1);
  paintSheet(dc);
  ASSERT_EQ(PnSavePng(dc, out("_smooth.png").c_str()), 1);
  PnDeleteDC(dc);
  const Image smooth(out("_smooth.png"));
  expectProbes(smooth, 2);
  EXPECT_GT(alike(smooth, sharpSheet()), 0.97);
}

TEST(PictureSheet, as_pdf_reads_back_as_the_same_picture) {
  const std::string path = out(".pdf");
  HDC dc = PnCreatePdfDC(path.c_str(), double{kSheetWidth} / kSheetDpi, double{kSheetHeight} / kSheetDpi, kSheetDpi);
  ASSERT_NE(dc, nullptr);
  paintSheet(dc);
  ASSERT_EQ(PnDeleteDC(dc), 1);
  EXPECT_EQ(readFile(path).substr(0, 5), "%PDF-");
  if (!hasProgram("pdftoppm")) GTEST_SKIP() << "pdftoppm is not installed, the page can't be read back";
  const std::string back = out("_pdf");
  ASSERT_EQ(std::system(("pdftoppm -singlefile -png -r 100 '" + path + "' '" + back + "'").c_str()), 0);
  const Image page(back + ".png");
  expectProbes(page, 3);
  EXPECT_GT(alike(page, sharpSheet()), 0.95);
}

TEST(PictureSheet, as_svg_reads_back_as_the_same_picture) {
  const std::string path = out(".svg");
  HDC dc = PnCreateSvgDC(path.c_str(), double{kSheetWidth} / kSheetDpi, double{kSheetHeight} / kSheetDpi, kSheetDpi);
  ASSERT_NE(dc, nullptr);
  paintSheet(dc);
  ASSERT_EQ(PnDeleteDC(dc), 1);
  const std::string text = readFile(path);
  EXPECT_NE(text.find("mix-blend-mode:darken"), std::string::npos);
  EXPECT_NE(text.find("<text"), std::string::npos);
  if (!hasProgram("rsvg-convert")) GTEST_SKIP() << "rsvg-convert is not installed, the page can't be read back";
  const std::string back = out("_svg.png");
  ASSERT_EQ(std::system(("rsvg-convert -d 100 -p 100 -o '" + back + "' '" + path + "'").c_str()), 0);
  const Image page(back);
  expectProbes(page, 3);
  EXPECT_GT(alike(page, sharpSheet()), 0.95);
}

}  // namespace
