/** Text on white paper, and where its ink lies. */
#ifndef PN10_TESTS_TEXT_SHEET_H
#define PN10_TESTS_TEXT_SHEET_H

#include <algorithm>
#include <cstring>
#include <string>

#include "platform/gdi.h"
#include "platform/user.h"
#include "support/support.h"

namespace pn10::test {

inline LOGFONTA arial(LONG height, LONG escapement = 0, LONG weight = 400) {
  LOGFONTA font{};
  font.lfHeight = height;
  font.lfEscapement = escapement;
  font.lfWeight = weight;
  font.lfQuality = NONANTIALIASED_QUALITY;
  std::memcpy(font.lfFaceName, "Arial", 6);
  return font;
}

/** The face that stands for Arial has the widths of this project's expectations. */
inline bool hasLiberation() {
  HDC dc = PnCreateImageDC(1, 1, 96, 0);
  const LOGFONTA font = arial(-1000);
  HFONT made = CreateFontIndirectA(&font);
  SelectObject(dc, made);
  TEXTMETRICA metrics{};
  GetTextMetricsA(dc, &metrics);
  PnDeleteDC(dc);
  DeleteObject(made);
  return metrics.tmHeight == 1117 && metrics.tmMaxCharWidth == 1253;
}
#define NEEDS_LIBERATION() \
  if (!hasLiberation()) GTEST_SKIP() << "Liberation Sans is not installed (package fonts-liberation)"

/** An image context with a font. */
class Sheet {
 public:
  Sheet(int width, int height) : dc(PnCreateImageDC(width, height, 96, 0xFFFFFF)), width_(width), height_(height) {
    SetBkMode(dc, TRANSPARENT);
  }
  ~Sheet() {
    PnDeleteDC(dc);
    DeleteObject(font_);
  }
  Sheet(const Sheet&) = delete;
  Sheet& operator=(const Sheet&) = delete;

  Sheet& use(const LOGFONTA& font) {
    HFONT made = CreateFontIndirectA(&font);
    SelectObject(dc, made);
    DeleteObject(font_);
    font_ = made;
    return *this;
  }
  Sheet& write(int x, int y, const std::string& text, UINT align = 0) {
    SetTextAlign(dc, align);
    TextOutA(dc, x, y, text.data(), static_cast<int>(text.size()));
    return *this;
  }
  SIZE extent(const std::string& text) const {
    SIZE size{-1, -1};
    GetTextExtentPoint32A(dc, text.data(), static_cast<int>(text.size()), &size);
    return size;
  }
  TEXTMETRICA metrics() const {
    TEXTMETRICA all{};
    GetTextMetricsA(dc, &all);
    return all;
  }
  ABC abc(char character) const {
    ABC widths{};
    const auto code = static_cast<unsigned char>(character);
    GetCharABCWidthsA(dc, code, code, &widths);
    return widths;
  }
  bool inked(int x, int y) const { return PnGetPixel(dc, x, y) != 0xFFFFFF; }

  /** "x 12..24 y 15..31", or "none". */
  std::string ink() const {
    const RECT box = inkBox();
    if (box.left > box.right) return "none";
    return "x " + std::to_string(box.left) + ".." + std::to_string(box.right) + " y " + std::to_string(box.top) + ".." +
           std::to_string(box.bottom);
  }
  /** The first and last inked columns and rows. */
  RECT inkBox() const {
    RECT box{width_, height_, -1, -1};
    for (int y = 0; y < height_; y++) {
      for (int x = 0; x < width_; x++) {
        if (!inked(x, y)) continue;
        box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x), std::max(box.bottom, y)};
      }
    }
    return box;
  }
  /** The inked columns of a row: "12-13 23-24". */
  std::string row(int y) const {
    std::string runs;
    for (int x = 0; x < width_; x++) {
      if (!inked(x, y)) continue;
      const int from = x;
      while (x + 1 < width_ && inked(x + 1, y)) x++;
      if (!runs.empty()) runs += ' ';
      runs += std::to_string(from) + (x > from ? "-" + std::to_string(x) : "");
    }
    return runs;
  }

  HDC dc;

 private:
  int width_, height_;
  HFONT font_ = nullptr;
};

}  // namespace pn10::test

#endif
