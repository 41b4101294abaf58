// Every operation with any numbers, on every kind of context: nothing crashes, hangs or stays behind.
#include <random>

#include "platform/gdi.h"
#include "platform/user.h"
#include "support/support.h"

namespace pn10::test {
namespace {

/** A context, a set of objects of which some are deleted meanwhile, and calls by chance. */
class Chance {
 public:
  Chance(HDC dc, unsigned seed) : dc_(dc), random_(seed), memory_(CreateCompatibleDC(dc)) {
    for (HGDIOBJ& object : objects_) object = make();
  }
  ~Chance() {
    PnDeleteDC(memory_);
    for (HGDIOBJ object : objects_) DeleteObject(object);
  }
  Chance(const Chance&) = delete;
  Chance& operator=(const Chance&) = delete;

  void call() {
    shape();
    mode();
    switch (below(8)) {
      case 0:
        return void(SelectObject(below(4) ? dc_ : memory_, any()));
      case 1:
        return void(DeleteObject(any()));
      case 2: {
        HGDIOBJ& object = any();
        DeleteObject(object);
        return void(object = make());
      }
      case 3:
        return void(SaveDC(dc_));
      case 4:
        return void(RestoreDC(dc_, below(9) - 4));
      case 5:
        return void(SelectClipRgn(dc_, below(3) ? static_cast<HRGN>(any()) : nullptr));
      case 6:
        return transfer();
      default:
        return text();
    }
  }

 private:
  int below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
  /** Mostly on the picture, often around it, sometimes anywhere at all. */
  int number() {
    static constexpr int kEdges[] = {0, 1, -1, INT32_MAX, INT32_MIN, INT32_MAX - 1, INT32_MIN + 1, 1 << 30, 65536};
    switch (below(8)) {
      case 0:
        return kEdges[below(9)];
      case 1:
        return static_cast<int>(random_());
      case 2:
        return below(4000) - 2000;
      default:
        return below(100);
    }
  }
  COLORREF color() { return static_cast<COLORREF>(random_()); }
  HGDIOBJ& any() { return objects_[below(12)]; }

  HGDIOBJ make() {
    const LOGBRUSH brush{static_cast<UINT>(below(4)), color(), static_cast<uintptr_t>(below(9))};
    const DWORD lengths[4] = {static_cast<DWORD>(number()), static_cast<DWORD>(below(9)), static_cast<DWORD>(below(9)),
                              static_cast<DWORD>(number())};
    const DWORD style = static_cast<DWORD>(below(8)), cap = static_cast<DWORD>(below(4)) << 8;
    LOGFONTA font{};
    font.lfHeight = number();
    font.lfEscapement = number();
    font.lfWeight = number();
    font.lfItalic = font.lfUnderline = static_cast<BYTE>(below(2));
    font.lfQuality = static_cast<BYTE>(below(7));
    std::memset(font.lfFaceName, "A\x80\"&"[below(4)], sizeof font.lfFaceName);
    switch (below(8)) {
      case 0:
        return CreatePen(below(9) - 1, number(), color());
      case 1:
        return ExtCreatePen((below(2) ? PS_GEOMETRIC : PS_COSMETIC) | cap | style, static_cast<DWORD>(number()), &brush,
                            style == PS_USERSTYLE ? static_cast<DWORD>(below(5)) : 0, lengths);
      case 2:
        return CreateBrushIndirect(&brush);
      case 3:
        return CreateHatchBrush(below(10) - 1, color());
      case 4:
        return CreateFontIndirectA(&font);
      case 5:
        return CreateRectRgn(number(), number(), number(), number());
      case 6:
        return CreateCompatibleBitmap(below(2) ? dc_ : memory_, below(40) - 2, below(40) - 2);
      default:
        return CreateSolidBrush(color());
    }
  }

  void shape() {
    POINT points[5];
    for (POINT& p : points) p = {number(), number()};
    const int count = below(7) - 1,
              n[8] = {number(), number(), number(), number(), number(), number(), number(), number()};
    switch (below(10)) {
      case 0:
        MoveToEx(dc_, n[0], n[1], below(2) ? points : nullptr);
        break;
      case 1:
        Polyline(dc_, below(9) ? points : nullptr, count);
        break;
      case 2:
        Polygon(dc_, below(9) ? points : nullptr, count);
        break;
      case 3:
        Ellipse(dc_, n[0], n[1], n[2], n[3]);
        break;
      case 4:
        Pie(dc_, n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7]);
        break;
      case 5:
        ArcTo(dc_, n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7]);
        break;
      case 6:
        BeginPath(dc_);
        break;
      case 7:
        EndPath(dc_);
        below(2) ? StrokeAndFillPath(dc_) : below(2) ? FillPath(dc_) : StrokePath(dc_);
        break;
      default:
        LineTo(dc_, n[0], n[1]);
    }
  }

  void mode() {
    SetROP2(dc_, below(18));
    SetBkMode(dc_, below(4));
    SetBkColor(dc_, color());
    SetTextColor(dc_, color());
    SetTextAlign(dc_, static_cast<UINT>(below(2) ? below(32) : number()));
    SetPolyFillMode(dc_, below(4));
    SetStretchBltMode(dc_, below(6));
    SetArcDirection(dc_, below(4));
  }

  void transfer() {
    static constexpr DWORD kCodes[] = {SRCCOPY, SRCAND, SRCPAINT, SRCINVERT, NOTSRCCOPY, NOTSRCERASE, 0, 0xFFFFFFFF};
    const DWORD code = kCodes[below(8)];
    const int n[8] = {number(), number(), number(), number(), number(), number(), number(), number()};
    uint32_t pixels[64] = {};
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = below(9);
    info.bmiHeader.biHeight = below(17) - 8;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    BitBlt(dc_, n[0], n[1], n[2], n[3], below(2) ? memory_ : dc_, n[4], n[5], code);
    StretchBlt(dc_, n[0], n[1], n[2], n[3], memory_, n[4], n[5], n[6], n[7], code);
    StretchBlt(memory_, n[0], n[1], n[2], n[3], dc_, n[4], n[5], n[6], n[7], code);
    StretchDIBits(dc_, n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], pixels, &info, DIB_RGB_COLORS, code);
  }

  void text() {
    static constexpr char kText[] = "Wg \x80\x01 &&a\r\n<\"j";
    const int count = below(static_cast<int>(sizeof kText));
    RECT rect{number(), number(), number(), number()};
    SIZE size;
    TextOutA(dc_, number(), number(), kText, count);
    DrawTextA(dc_, kText, below(2) ? count : -1, &rect, static_cast<UINT>(below(0x1000)));
    GetTextExtentPoint32A(dc_, kText, number() < 0 ? -1 : count, &size);
  }

  HDC dc_;
  std::mt19937 random_;
  HDC memory_;
  HGDIOBJ objects_[12];
};

TEST(AnyCalls, with_any_numbers_leave_nothing_behind_on_any_context) {
  Fresh fresh;
  TempDir dir;
  const int32_t objects = PnGetObjectCount();
  const std::string pdf = dir.path("page.pdf"), svg = dir.path("page.svg");
  for (int kind = 0; kind < 5; kind++) {
    for (unsigned seed = 0; seed < 6; seed++) {
      const HDC dc = kind == 2   ? PnCreatePdfDC(pdf.c_str(), 1, 1, 100)
                     : kind == 3 ? PnCreateSvgDC(svg.c_str(), 1, 1, 100)
                     : kind == 4 ? PnCreateRecordDC(100, 100, 96)
                                 : PnCreateImageDC(100, 100, 96, 0xFFFFFF);
      ASSERT_TRUE(dc);
      if (kind == 1) {
        PnSetAntialias(dc, 1);
      }
      if (seed == 0) PnRecord(1);
      {
        Chance chance(dc, seed + 100 * static_cast<unsigned>(kind));
        for (int i = 0; i < 400; i++) chance.call();
        EXPECT_EQ(PnDeleteDC(dc), 1) << kind << " " << seed;
      }
      PnRecord(0);
      EXPECT_EQ(PnGetObjectCount(), objects) << kind << " " << seed;
    }
  }
}

}  // namespace
}  // namespace pn10::test
