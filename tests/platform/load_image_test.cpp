/** Bitmap files of all kinds, against what two other programs read in them. */
#include <sstream>

#include "platform/dib_builder.h"
#include "platform/user.h"

namespace {

using namespace pn10::test;

HBITMAP load(const std::string& path) {
  return static_cast<HBITMAP>(LoadImageA(nullptr, path.c_str(), IMAGE_BITMAP, 0, 0, 0x2050));
}

/** All pixels as 0xRRGGBB, top row first; empty when the file does not load. */
std::vector<uint32_t> pixelsOf(const std::string& path, int* width = nullptr) {
  HBITMAP bitmap = load(path);
  if (!bitmap) return {};
  BITMAP record{};
  GetObjectA(bitmap, sizeof record, &record);
  BITMAPINFO info{};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), record.bmWidth, -record.bmHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  std::vector<uint32_t> pixels(static_cast<size_t>(record.bmWidth) * static_cast<size_t>(record.bmHeight));
  EXPECT_EQ(GetDIBits(nullptr, bitmap, 0, static_cast<UINT>(record.bmHeight), pixels.data(), &info, 0),
            record.bmHeight);
  if (width) *width = record.bmWidth;
  DeleteObject(bitmap);
  return pixels;
}

bool near(uint32_t a, uint32_t b, int tolerance) {
  for (int shift = 0; shift < 24; shift += 8) {
    const int d = static_cast<int>(a >> shift & 255) - static_cast<int>(b >> shift & 255);
    if (d > tolerance || d < -tolerance) return false;
  }
  return true;
}

TEST(LoadImage, real_files_have_their_known_corners) {
  const std::string facts = sharedFile("data/FACTS.md");
  if (facts.empty()) GTEST_SKIP() << "the files are not beside this checkout";
  std::istringstream in(readFile(facts));
  int checked = 0;
  for (std::string line; std::getline(in, line);) {
    if (!line.starts_with("| bmp/")) continue;
    std::vector<std::string> cells;
    std::istringstream row(line.substr(2));
    for (std::string cell; std::getline(row, cell, '|');) {
      const size_t from = cell.find_first_not_of(' '), to = cell.find_last_not_of(' ');
      cells.push_back(from == std::string::npos ? "" : cell.substr(from, to - from + 1));
    }
    uint32_t corners[4];
    char extra;
    if (std::sscanf(cells[9].c_str(), "%x %x %x %x%c", &corners[0], &corners[1], &corners[2], &corners[3], &extra) !=
        4) {
      continue;
    }
    /* The other programs widen 5 bits otherwise, fill the gaps of runs otherwise, and colour indices that have no
       colour otherwise; one of them misreads runs of 4 bits. */
    const bool damaged = cells[0].find("rlecut") != std::string::npos || cells[0].find("badrle") != std::string::npos ||
                         cells[0].find("rletrns") != std::string::npos ||
                         cells[0].find("pal4rle") != std::string::npos ||
                         cells[0].find("badindex") != std::string::npos;
    if (damaged) continue;
    int width = 0;
    const std::vector<uint32_t> pixels = pixelsOf(sharedFile("data/" + cells[0]), &width);
    ASSERT_FALSE(pixels.empty()) << cells[0];
    const size_t w = static_cast<size_t>(width);
    const uint32_t got[] = {pixels[0], pixels[w - 1], pixels[pixels.size() - w], pixels.back()};
    for (int i = 0; i < 4; i++) EXPECT_TRUE(near(got[i], corners[i], cells[4] == "16" ? 2 : 0)) << cells[0] << " " << i;
    checked++;
  }
  EXPECT_GE(checked, 25);
}

TEST(LoadImage, runs_give_the_pixels_of_the_plain_file) {
  const std::string plain8 = sharedFile("data/bmp/bmpsuite/g/pal8.bmp");
  if (plain8.empty()) GTEST_SKIP() << "the files are not beside this checkout";
  EXPECT_EQ(pixelsOf(sharedFile("data/bmp/bmpsuite/g/pal8rle.bmp")), pixelsOf(plain8));
  EXPECT_EQ(pixelsOf(sharedFile("data/bmp/bmpsuite/g/pal4rle.bmp")),
            pixelsOf(sharedFile("data/bmp/bmpsuite/g/pal4.bmp")));
  EXPECT_EQ(pixelsOf(sharedFile("data/bmp/bmpsuite/g/pal8os2.bmp")), pixelsOf(plain8));
}

TEST(LoadImage, damaged_files_are_refused) {
  if (sharedFile("data/bmp/bmpsuite/b").empty()) GTEST_SKIP() << "the files are not beside this checkout";
  for (const char* name :
       {"b/badbitcount", "b/badwidth", "b/shortfile", "q/pal2", "q/rgba64", "q/rgb24jpeg", "x/ba-bm"}) {
    EXPECT_EQ(load(sharedFile("data/bmp/bmpsuite/" + std::string(name) + ".bmp")), nullptr) << name;
  }
}

TEST(LoadImage, files_load_when_they_are_whole) {
  TempDir dir;
  const Bytes file = Bytes()
                         .add("BM")
                         .i32(70)
                         .i32(0)
                         .i32(54)
                         .i32(40)
                         .i32(2)
                         .i32(2)
                         .i16(1)
                         .i16(24)
                         .i32(0)
                         .i32(16)
                         .i32(0)
                         .i32(0)
                         .i32(0)
                         .i32(0)
                         .i8(1)
                         .i8(2)
                         .i8(3)
                         .i8(4)
                         .i8(5)
                         .i8(6)
                         .i16(0)
                         .padTo(70);
  const auto loadBytes = [&](std::string_view bytes) {
    dir.write("a.bmp", bytes);
    return load(dir.path("a.bmp"));
  };
  HBITMAP loaded = loadBytes(file.str());
  ASSERT_NE(loaded, nullptr);
  BITMAP record{};
  GetObjectA(loaded, sizeof record, &record);
  EXPECT_EQ(record.bmWidth, 2);
  EXPECT_EQ(record.bmBitsPixel, 24);
  {
    Memory memory(loaded);
    EXPECT_EQ(rgb(memory.dc, 0, 1), 0x030201u);
    EXPECT_EQ(rgb(memory.dc, 1, 1), 0x060504u);
  }
  for (size_t n = 0; n < 70; n++) EXPECT_EQ(loadBytes(file.str().substr(0, n)), nullptr) << n;
  EXPECT_EQ(loadBytes("BM" + std::string(4000, '\xFF')), nullptr);
  EXPECT_EQ(LoadImageA(nullptr, dir.path("none.bmp").c_str(), IMAGE_BITMAP, 0, 0, 0x2050), nullptr);
  EXPECT_EQ(LoadImageA(nullptr, dir.path("").c_str(), IMAGE_BITMAP, 0, 0, 0x2050), nullptr);
  EXPECT_EQ(LoadImageA(nullptr, nullptr, IMAGE_BITMAP, 0, 0, 0x2050), nullptr);
  EXPECT_EQ(LoadImageA(nullptr, dir.path("a.bmp").c_str(), 1, 0, 0, 0x2050), nullptr);
}

/** A file of 8-bit or 4-bit runs, 4 wide and 3 high, with colours 0 black, 1 red, 2 green. */
std::string runs(int bits, const Bytes& code) {
  return Bytes()
      .add("BM")
      .i32(0)
      .i32(0)
      .i32(54 + 12)
      .i32(40)
      .i32(4)
      .i32(3)
      .i16(1)
      .i16(bits)
      .i32(bits == 8 ? 1 : 2)
      .i32(0)
      .i32(0)
      .i32(0)
      .i32(3)
      .i32(0)
      .i32(0)
      .i32(0xFF0000)
      .i32(0x00FF00)
      .add(code.str())
      .str();
}

TEST(LoadImage, decodes_runs_steps_and_plain_pixels) {
  TempDir dir;
  const uint32_t r = 0xFF0000, g = 0x00FF00;
  /* lowest row: red 3 times; above: one step right, then three pixels as they are; top: nothing */
  dir.write("8.bmp",
            runs(8, Bytes().i8(3).i8(1).i16(0).i8(0).i8(2).i8(1).i8(0).i8(0).i8(3).i8(2).i8(1).i8(2).i8(0).i16(0x100)));
  EXPECT_EQ(pixelsOf(dir.path("8.bmp")), (std::vector<uint32_t>{0, 0, 0, 0, 0, g, r, g, r, r, r, 0}));
  dir.write("4.bmp", runs(4, Bytes().i8(4).i8(0x12).i16(0).i8(0).i8(3).i8(0x21).i8(0x20).i16(0x100)));
  EXPECT_EQ(pixelsOf(dir.path("4.bmp")), (std::vector<uint32_t>{0, 0, 0, 0, g, r, g, 0, r, g, r, g}));
}

TEST(LoadImage, runs_that_leave_the_picture_or_break_off_do_no_harm) {
  TempDir dir;
  const Bytes codes[] = {Bytes(),
                         Bytes().i8(255),
                         Bytes().i8(255).i8(1).i8(255).i8(2),
                         Bytes().i8(0).i8(2).i8(9),
                         Bytes().i8(0).i8(2).i8(255).i8(255).i8(9).i8(1),
                         Bytes().i8(0).i8(200).i8(1),
                         Bytes().i16(0).i16(0).i16(0).i16(0).i8(4).i8(1)};
  for (const Bytes& code : codes) {
    for (const int bits : {4, 8}) {
      dir.write("a.bmp", runs(bits, code));
      HBITMAP bitmap = load(dir.path("a.bmp"));
      EXPECT_NE(bitmap, nullptr);
      DeleteObject(bitmap);
    }
  }
}

}  // namespace
