// Pages and smooth images: what their paths owe to the pixels of an image context.
#include <sstream>

#include "platform/gdi.h"
#include "support/support.h"

namespace pn10::test {
namespace {

constexpr int32_t kWhite = 0xFFFFFF;

/** An image context with smooth lines and what is selected into it. */
struct Smooth : testing::Test {
  Fresh fresh;
  TempDir dir;
  int32_t objects = PnGetObjectCount();
  HDC dc = PnCreateImageDC(120, 120, 96, kWhite);
  Smooth() { EXPECT_EQ(PnSetAntialias(dc, 1), 1); }
  ~Smooth() override {
    PnDeleteDC(dc);
    EXPECT_EQ(PnGetObjectCount(), objects);
  }

  /** Selects an object that is deleted with its context. */
  template <class Handle>
  void use(Handle object) {
    SelectObject(dc, object);
    DeleteObject(object);
  }
  void line(int x0, int y0, int x1, int y1) {
    MoveToEx(dc, x0, y0, nullptr);
    LineTo(dc, x1, y1);
  }
  int marked(int32_t color) const {
    int count = 0;
    for (int at = 0; at < 120 * 120; at++) count += PnGetPixel(dc, at % 120, at / 120) == color;
    return count;
  }
  /** The box of all that is not white, as "left top right bottom", inclusive; empty without any. */
  std::string inked() const {
    int box[4] = {INT32_MAX, INT32_MAX, INT32_MIN, INT32_MIN};
    for (int y = 0; y < 120; y++) {
      for (int x = 0; x < 120; x++) {
        if (PnGetPixel(dc, x, y) == kWhite) continue;
        box[0] = std::min(box[0], x), box[1] = std::min(box[1], y);
        box[2] = std::max(box[2], x), box[3] = std::max(box[3], y);
      }
    }
    std::string text;
    for (const int side : box) text += (text.empty() ? "" : " ") + std::to_string(side);
    return box[2] < 0 ? "" : text;
  }
};

TEST_F(Smooth, pure_colours_combine_as_the_sixteen_operations_say) {
  const POINT square[] = {{10, 10}, {50, 10}, {50, 50}, {10, 50}};
  /* Full and empty channels: all four pairs of pen over ground. */
  const uint32_t ground = 0x00FFFF, pens[] = {0x00FF00, 0xFF00FF};
  for (int operation = R2_BLACK; operation <= R2_WHITE; operation++) {
    for (const uint32_t pen : pens) {
      SetROP2(dc, R2_COPYPEN);
      use(CreatePen(PS_SOLID, 11, ground));
      use(CreateSolidBrush(ground));
      const POINT page[] = {{0, 0}, {120, 0}, {120, 120}, {0, 120}};
      Polygon(dc, page, 4);
      SetROP2(dc, operation);
      use(CreateSolidBrush(pen));
      use(CreatePen(PS_NULL, 0, 0));
      Polygon(dc, square, 4);
      use(CreatePen(PS_SOLID, 11, pen));
      line(20, 90, 100, 90);
      /* The number less one is the truth table: bit 0 for pen 0 on ground 0, then 0 on 1, 1 on 0, 1 on 1. */
      uint32_t expected = 0;
      for (uint32_t bit = 1; bit < 0x1000000; bit <<= 1) {
        const int row = (pen & bit ? 2 : 0) + (ground & bit ? 1 : 0);
        if ((operation - 1) >> row & 1) expected |= bit;
      }
      EXPECT_EQ(PnGetPixel(dc, 30, 30), static_cast<int32_t>(expected)) << "brush, operation " << operation;
      EXPECT_EQ(PnGetPixel(dc, 60, 90), static_cast<int32_t>(expected)) << "pen, operation " << operation;
    }
  }
}

TEST_F(Smooth, lines_without_length_are_dots_of_wide_round_pens_only) {
  const LOGBRUSH black{BS_SOLID, 0, 0};
  const POINT spot[] = {{60, 60}, {60, 60}, {60, 60}};
  const struct {
    HPEN pen;
    const char* box;
  } rows[] = {{CreatePen(PS_SOLID, 1, 0), ""},
              {ExtCreatePen(PS_GEOMETRIC, 1, &black, 0, nullptr), ""},
              {ExtCreatePen(PS_GEOMETRIC | PS_ENDCAP_SQUARE, 8, &black, 0, nullptr), ""},
              {ExtCreatePen(PS_GEOMETRIC | PS_ENDCAP_FLAT, 8, &black, 0, nullptr), ""},
              {CreatePen(PS_SOLID, 8, 0), "56 56 63 63"}};
  for (const auto& row : rows) {
    use(row.pen);
    line(60, 60, 60, 60);
    EXPECT_EQ(inked(), row.box);
    Polyline(dc, spot, 3);
    EXPECT_EQ(inked(), row.box);
    Polygon(dc, spot, 3);
    EXPECT_EQ(inked(), row.box);
  }
}

TEST_F(Smooth, boxes_without_an_inside_are_left_out) {
  for (const auto& [width, height] : {std::pair{0, 0}, {0, 30}, {30, 0}, {1, 1}}) {
    Ellipse(dc, 20, 20, 20 + width, 20 + height);
    EXPECT_EQ(inked(), "") << width << "x" << height;
  }
  for (const auto& [width, height] : {std::pair{0, 0}, {0, 30}, {30, 0}}) {
    Pie(dc, 20, 20, 20 + width, 20 + height, 90, 20, 20, 90);
    EXPECT_EQ(inked(), "") << width << "x" << height;
  }
}

TEST_F(Smooth, a_pen_inside_the_frame_stays_inside) {
  use(CreatePen(PS_INSIDEFRAME, 5, 0));
  Ellipse(dc, 10, 10, 30, 30);
  EXPECT_EQ(inked(), "10 10 29 29");
  Pie(dc, 40, 40, 80, 80, 100, 60, 100, 60);
  EXPECT_EQ(inked(), "10 10 79 79");
}

TEST_F(Smooth, a_line_of_any_length_keeps_its_slope) {
  line(0, 0, 2000000000, 1000000000);
  EXPECT_EQ(PnGetPixel(dc, 100, 100), kWhite);
  EXPECT_NE(PnGetPixel(dc, 100, 50), kWhite);
  line(INT32_MIN, -60, INT32_MAX, 180); /* crosses the picture level, in row 60 */
  EXPECT_NE(PnGetPixel(dc, 5, 60), kWhite);
  EXPECT_NE(PnGetPixel(dc, 110, 60), kWhite);
  EXPECT_EQ(PnGetPixel(dc, 5, 70), kWhite);
  const std::string before = inked();
  line(INT32_MAX, INT32_MIN, INT32_MAX, INT32_MAX);
  line(INT32_MIN, INT32_MAX, INT32_MAX, INT32_MAX);
  line(INT32_MAX, INT32_MAX, INT32_MAX, INT32_MAX);
  EXPECT_EQ(inked(), before);
}

TEST_F(Smooth, a_polygon_of_any_size_keeps_its_sides) {
  const POINT wedge[] = {{0, 0}, {2000000000, 1000000000}, {2000000000, 2000000000}};
  use(CreateSolidBrush(0x0000FF));
  use(CreatePen(PS_SOLID, 3, 0xFF0000));
  Polygon(dc, wedge, 3);
  EXPECT_EQ(PnGetPixel(dc, 100, 75), 0x0000FF);
  EXPECT_EQ(PnGetPixel(dc, 100, 50), 0xFF0000) << "the side that goes down by halves";
  EXPECT_EQ(PnGetPixel(dc, 100, 100), 0xFF0000) << "the diagonal, which comes back";
  EXPECT_EQ(PnGetPixel(dc, 100, 40), kWhite);
  EXPECT_EQ(PnGetPixel(dc, 100, 110), kWhite);
  const POINT all[] = {{INT32_MIN, INT32_MIN}, {INT32_MAX, INT32_MIN}, {INT32_MAX, INT32_MAX}, {INT32_MIN, INT32_MAX}};
  Polygon(dc, all, 4);
  EXPECT_EQ(marked(0x0000FF), 120 * 120) << "all ground, and its outline nowhere near";
  const POINT beside[] = {{INT32_MAX, 0}, {INT32_MAX - 9, 0}, {INT32_MAX, 50}};
  use(CreateSolidBrush(0x00FF00));
  Polygon(dc, beside, 3);
  EXPECT_EQ(marked(0x0000FF), 120 * 120);
}

TEST_F(Smooth, a_chain_of_any_size_comes_back_on_its_slope) {
  const POINT chain[] = {{0, 20}, {2000000000, 20}, {2000000000, 1000000060}, {0, 60}};
  Polyline(dc, chain, 4);
  EXPECT_NE(PnGetPixel(dc, 100, 20), kWhite);
  EXPECT_NE(PnGetPixel(dc, 100, 110), kWhite);
  EXPECT_EQ(PnGetPixel(dc, 100, 60), kWhite);
}

TEST_F(Smooth, marks_of_an_svg_page_blend_with_what_was_painted_before_the_clip) {
  const HDC page = PnCreateSvgDC(dir.path("page.svg").c_str(), 2, 2, 100);
  HBRUSH yellow = CreateSolidBrush(0x00FFFF), cyan = CreateSolidBrush(0xFFFF00);
  HRGN region = CreateRectRgn(10, 10, 60, 60);
  SelectObject(page, yellow);
  Ellipse(page, 5, 5, 90, 90);
  SelectClipRgn(page, region);
  SelectObject(page, cyan);
  SetROP2(page, R2_MASKPEN);
  Ellipse(page, 20, 20, 80, 80);
  SetROP2(page, R2_COPYPEN);
  Ellipse(page, 30, 30, 40, 40);
  Ellipse(page, 30, 30, 50, 50);
  SelectClipRgn(page, nullptr);
  SetROP2(page, R2_MASKPEN);
  Ellipse(page, 70, 70, 80, 80);
  EXPECT_EQ(PnDeleteDC(page), 1);
  for (HGDIOBJ object : {HGDIOBJ{yellow}, HGDIOBJ{cyan}, HGDIOBJ{region}}) DeleteObject(object);
  /* What opens, closes and blends, line by line; a group that only clips would keep the blending to itself. */
  std::istringstream in(dir.read("page.svg"));
  std::string order;
  for (std::string line; std::getline(in, line);) {
    const bool blends = line.find("mix-blend-mode:darken") != std::string::npos;
    if (line.rfind("<g clip-path=\"url(#c1)\"", 0) == 0) order += blends ? "[& " : "[ ";
    if (line.rfind("<path", 0) == 0) order += blends ? "and " : "copy ";
    if (line.rfind("</g>", 0) == 0) order += "] ";
  }
  EXPECT_EQ(order, "copy copy [& copy ] [& copy ] [ copy copy copy copy ] and and ] ");
}

}  // namespace
}  // namespace pn10::test
