/** The scenes of the picture sheet, from top to bottom. */
#include "platform/sheet_scenes.h"

#include <cstring>
#include <string>

#include "platform/user.h"

namespace pn10::test {

namespace {

constexpr COLORREF kBlack = 0, kRed = 0x2020D0, kBlue = 0xC04000, kGreen = 0x208020, kGrey = 0x808080,
                   kYellow = 0x00FFFF, kCyan = 0xFFFF00, kMagenta = 0xFF00FF;

/** An object selected while it lives, then deleted. */
class Use {
 public:
  Use(HDC dc, HGDIOBJ object) : dc_(dc), object_(object), old_(SelectObject(dc, object)) {}
  ~Use() {
    SelectObject(dc_, old_);
    DeleteObject(object_);
  }
  Use(const Use&) = delete;
  Use& operator=(const Use&) = delete;

 private:
  HDC dc_;
  HGDIOBJ object_, old_;
};

HPEN solid(int width, COLORREF color) { return CreatePen(PS_SOLID, width, color); }
HBRUSH hollow() {
  const LOGBRUSH brush{BS_HOLLOW, 0, 0};
  return CreateBrushIndirect(&brush);
}
HPEN geometric(DWORD style, DWORD width, COLORREF color, DWORD count = 0, const DWORD* lengths = nullptr) {
  const LOGBRUSH brush{BS_SOLID, color, 0};
  return ExtCreatePen(PS_GEOMETRIC | style, width, &brush, count, lengths);
}
HFONT font(LONG height, LONG escapement = 0, LONG weight = 400, bool italic = false, bool underline = false) {
  LOGFONTA f{};
  f.lfHeight = height;
  f.lfEscapement = escapement;
  f.lfWeight = weight;
  f.lfItalic = italic;
  f.lfUnderline = underline;
  std::memcpy(f.lfFaceName, "Arial", 6);
  return CreateFontIndirectA(&f);
}

void line(HDC dc, int x1, int y1, int x2, int y2) {
  MoveToEx(dc, x1, y1, nullptr);
  LineTo(dc, x2, y2);
}
void text(HDC dc, int x, int y, const std::string& t) { TextOutA(dc, x, y, t.data(), static_cast<int>(t.size())); }
void title(HDC dc, int x, int y, const char* t) {
  const Use use(dc, font(-13, 0, 700));
  SetTextAlign(dc, 0);
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, kBlack);
  text(dc, x, y, t);
}
void rectangle(HDC dc, int l, int t, int r, int b) {
  const POINT points[] = {{l, t}, {r, t}, {r, b}, {l, b}};
  Polygon(dc, points, 4);
}

/** A fan of one-pixel lines, then a row per style and a column per width. */
void pens(HDC dc) {
  title(dc, 20, 10, "Lines: every slope; CreatePen 0-6 at width 1; geometric 0-7 at widths 1 2 3 5 9");
  {
    const Use pen(dc, solid(1, kBlue));
    for (int i = -60; i <= 60; i += 12) {
      line(dc, 90, 100, 90 + i, 40), line(dc, 90, 100, 90 + i, 160);
      line(dc, 90, 100, 30, 100 + i), line(dc, 90, 100, 150, 100 + i);
    }
  }
  SetBkMode(dc, OPAQUE);
  SetBkColor(dc, kYellow);
  for (int style = 0; style <= 6; style++) {
    const Use pen(dc, CreatePen(style, 1, kRed));
    line(dc, 180, 40 + 18 * style, 300, 40 + 18 * style);
  }
  SetBkColor(dc, 0xFFFFFF);
  const DWORD widths[] = {1, 2, 3, 5, 9};
  for (int column = 0; column < 5; column++) {
    const DWORD w = widths[column];
    const DWORD user[] = {4 * w, 2 * w, 1, 2 * w};
    for (DWORD style = 0; style <= 7; style++) {
      const int x = 330 + 130 * column, y = 40 + 18 * static_cast<int>(style);
      const Use pen(dc, style == 7 ? geometric(style, w, kBlack, 4, user) : geometric(style, w, kBlack));
      line(dc, x, y, x + 105, y);
    }
  }
}

/** Round, square and flat ends, joins, dashes around corners. */
void caps(HDC dc) {
  title(dc, 20, 185, "Caps, joins, dashes on slopes and around corners");
  int x = 30;
  for (DWORD cap : {PS_ENDCAP_ROUND, PS_ENDCAP_SQUARE, PS_ENDCAP_FLAT}) {
    for (DWORD style : {PS_SOLID, PS_DASH, PS_DASHDOT}) {
      const Use pen(dc, geometric(cap | style, 7, kGreen));
      const POINT points[] = {{x, 260}, {x + 30, 215}, {x + 60, 260}, {x + 75, 260}};
      Polyline(dc, points, 4);
      x += 105;
    }
  }
}

void shapes(HDC dc) {
  title(dc, 20, 285, "Polygons (alternate, winding), ellipses, pies (both directions), arcs and paths");
  const POINT star[] = {{60, 305}, {85, 385}, {20, 335}, {100, 335}, {35, 385}};
  POINT moved[5];
  const Use pen(dc, geometric(PS_SOLID, 2, kBlack));
  const Use brush(dc, CreateSolidBrush(kCyan));
  for (int mode : {ALTERNATE, WINDING}) {
    for (int i = 0; i < 5; i++) moved[i] = {star[i].x + (mode - 1) * 100, star[i].y};
    SetPolyFillMode(dc, mode);
    Polygon(dc, moved, 5);
  }
  SetPolyFillMode(dc, ALTERNATE);
  Ellipse(dc, 225, 310, 305, 380);
  for (int n = 1; n <= 8; n++) {
    const Use thin(dc, solid(1, kBlack));
    Ellipse(dc, 310, 305 + 9 * n, 310 + n, 305 + 10 * n);
    Ellipse(dc, 322 + 3 * n, 345 - 4 * n, 322 + 6 * n, 345 + 4 * n);
  }
  {
    const Use none(dc, CreatePen(PS_NULL, 1, 0));
    Ellipse(dc, 385, 310, 425, 380);
  }
  Pie(dc, 440, 310, 510, 380, 510, 345, 475, 310);
  SetArcDirection(dc, AD_CLOCKWISE);
  Pie(dc, 520, 310, 590, 380, 590, 345, 555, 310);
  {
    const Use wide(dc, solid(6, kBlue));
    MoveToEx(dc, 610, 380, nullptr);
    ArcTo(dc, 610, 310, 680, 380, 610, 345, 645, 310);
    SetArcDirection(dc, AD_COUNTERCLOCKWISE);
    MoveToEx(dc, 700, 310, nullptr);
    ArcTo(dc, 690, 320, 750, 380, 690, 350, 750, 350);
  }
  /* The elbow of a pipe: outer arc clockwise, inner arc back. */
  BeginPath(dc);
  MoveToEx(dc, 780, 310, nullptr);
  SetArcDirection(dc, AD_CLOCKWISE);
  ArcTo(dc, 710, 310, 850, 450, 780, 310, 850, 380);
  LineTo(dc, 825, 380);
  SetArcDirection(dc, AD_COUNTERCLOCKWISE);
  ArcTo(dc, 735, 335, 825, 425, 825, 380, 780, 335);
  LineTo(dc, 780, 310);
  EndPath(dc);
  StrokeAndFillPath(dc);
  BeginPath(dc);
  Ellipse(dc, 870, 310, 940, 380);
  Ellipse(dc, 890, 330, 920, 360);
  EndPath(dc);
  FillPath(dc);
  BeginPath(dc);
  MoveToEx(dc, 960, 310, nullptr);
  LineTo(dc, 985, 345);
  LineTo(dc, 960, 380);
  EndPath(dc);
  StrokePath(dc);
}

void hatches(HDC dc) {
  title(dc, 20, 400, "Hatches 0-7: transparent on grey, opaque on yellow ground; hollow and solid");
  const Use pen(dc, solid(1, kBlack));
  {
    const Use none(dc, CreatePen(PS_NULL, 1, 0));
    const Use grey(dc, CreateSolidBrush(0xE0E0E0));
    rectangle(dc, 20, 420, 880, 445);
  }
  for (int hatch = 0; hatch < 8; hatch++) {
    const Use brush(dc, CreateHatchBrush(hatch, kRed));
    SetBkMode(dc, TRANSPARENT);
    rectangle(dc, 30 + 105 * hatch, 425, 120 + 105 * hatch, 470);
    SetBkMode(dc, OPAQUE);
    SetBkColor(dc, kYellow);
    Ellipse(dc, 30 + 105 * hatch, 475, 120 + 105 * hatch, 520);
  }
  SetBkColor(dc, 0xFFFFFF);
  {
    const Use brush(dc, hollow());
    rectangle(dc, 890, 425, 980, 470);
  }
  const Use brush(dc, CreateSolidBrush(kGreen));
  rectangle(dc, 890, 475, 980, 520);
}

void texts(HDC dc) {
  title(dc, 20, 540, "Text: angles, alignments with their points, opaque cells, styles, code page 1252");
  SetBkMode(dc, TRANSPARENT);
  SetTextAlign(dc, TA_BASELINE);
  for (int angle = 0; angle < 3600; angle += 300) {
    const Use f(dc, font(-13, angle));
    SetTextColor(dc, angle % 900 ? kBlack : kRed);
    text(dc, 120, 660, "    60.0 psig");
  }
  const Use point(dc, solid(1, kBlue));
  int x = 270, y = 580;
  for (UINT align : {0u, 2u, 6u, 8u, 10u, 14u, 24u, 26u, 30u}) {
    const Use f(dc, font(-16));
    SetTextColor(dc, kBlack);
    SetTextAlign(dc, align);
    SetBkMode(dc, OPAQUE);
    SetBkColor(dc, kYellow);
    text(dc, x, y, "Align" + std::to_string(align));
    line(dc, x - 6, y, x + 7, y), line(dc, x, y - 6, x, y + 7);
    x += 125;
    if (x > 540) x = 270, y += 55;
  }
  SetTextAlign(dc, 0);
  for (int angle : {0, 300, 900, 2000}) {
    const Use f(dc, font(-16, angle));
    SetBkColor(dc, kCyan);
    text(dc, 670, 660, "  Opaque");
  }
  SetBkMode(dc, TRANSPARENT);
  struct Style {
    const char* name;
    LONG weight;
    bool italic, underline;
  };
  y = 560;
  for (const Style& s : {Style{"Regular 16", 400, false, false},
                         {"Bold 16", 700, false, false},
                         {"Italic 16", 400, true, false},
                         {"Bold italic", 700, true, false},
                         {"Underlined gy", 400, false, true}}) {
    const Use f(dc, font(-16, 0, s.weight, s.italic, s.underline));
    text(dc, 780, y, s.name);
    y += 24;
  }
  {
    const Use f(dc, font(-16));
    text(dc, 780, y, "\x80 \x85 \x93q\x94 \xB0\xB1\xB2 \xC4\xD6\xDC\xDF \xE9");
    text(dc, 780, y + 24, "<a & \"b\">");
  }
  const Use f(dc, font(-40, 150, 700));
  SetTextColor(dc, kBlue);
  SetTextAlign(dc, TA_BASELINE);
  text(dc, 780, 770, "Large 15\xB0");
}

void clips(HDC dc) {
  title(dc, 20, 785, "Clip region; a paragraph broken by DrawText");
  SaveDC(dc);
  HRGN region = CreateRectRgn(30, 810, 230, 890);
  SelectClipRgn(dc, region);
  DeleteObject(region);
  {
    const Use none(dc, CreatePen(PS_NULL, 1, 0));
    const Use ground(dc, CreateSolidBrush(0xF0E0E0));
    rectangle(dc, 0, 700, 500, 1000);
  }
  const Use pen(dc, geometric(PS_SOLID, 5, kRed));
  for (int i = 0; i < 20; i++) line(dc, 10 + 15 * i, 800, 60 + 15 * i, 900);
  {
    const Use brush(dc, CreateSolidBrush(kGreen));
    Ellipse(dc, 180, 790, 280, 870);
    const Use f(dc, font(-48));
    SetTextAlign(dc, 0);
    SetBkMode(dc, TRANSPARENT);
    text(dc, 5, 840, "Clipped");
  }
  RestoreDC(dc, -1);
  const Use f(dc, font(-14));
  SetTextAlign(dc, 0);
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, kBlack);
  RECT box{260, 810, 460, 890};
  {
    const Use frame(dc, solid(1, kGrey));
    const Use inside(dc, hollow());
    rectangle(dc, box.left - 4, box.top - 2, box.right + 4, box.bottom + 2);
  }
  DrawTextA(dc,
            "A paragraph that breaks at its blanks into lines of the rectangle's width.\nA line feed ends a line, and "
            "what hangs out is cut away.",
            -1, &box, DT_WORDBREAK | DT_NOPREFIX);
}

void rasterOperations(HDC dc) {
  title(dc, 500, 785, "R2_MASKPEN: colours AND what is below them; text covers");
  const Use none(dc, CreatePen(PS_NULL, 1, 0));
  SetROP2(dc, R2_MASKPEN);
  const COLORREF colors[] = {kYellow, kCyan, kMagenta};
  for (int i = 0; i < 3; i++) {
    const Use brush(dc, CreateSolidBrush(colors[i]));
    Ellipse(dc, 510 + 40 * i, 810 + (i == 1 ? 25 : 0), 590 + 40 * i, 870 + (i == 1 ? 25 : 0));
  }
  {
    const Use brush(dc, CreateSolidBrush(kYellow));
    rectangle(dc, 700, 810, 960, 890);
    const Use pen(dc, geometric(PS_SOLID, 12, kCyan));
    line(dc, 715, 825, 945, 875);
    line(dc, 715, 875, 945, 825);
  }
  const Use f(dc, font(-20, 0, 700));
  SetTextColor(dc, 0xFFFFFF);
  SetBkMode(dc, TRANSPARENT);
  SetTextAlign(dc, TA_BASELINE);
  text(dc, 760, 885, "white text");
  SetROP2(dc, R2_COPYPEN);
  SetTextColor(dc, kBlack);
}

/** A picture of 4 x 4 pixels: red, green, blue, white rows with a black diagonal. */
struct Picture {
  BITMAPINFOHEADER head{sizeof(BITMAPINFOHEADER), 4, -4, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  uint32_t pixels[16];
  Picture() {
    const uint32_t rows[] = {0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF};
    for (int i = 0; i < 16; i++) pixels[i] = i / 4 == i % 4 ? 0 : rows[i / 4];
  }
  const BITMAPINFO* info() const { return reinterpret_cast<const BITMAPINFO*>(&head); }
};

void blits(HDC dc) {
  title(dc, 20, 910, "Pictures: copy, mirrored, half outside, AND over colours, NOT, OR, XOR, NOT (s OR d)");
  const Picture picture;
  {
    const Use none(dc, CreatePen(PS_NULL, 1, 0));
    const Use brush(dc, CreateSolidBrush(0x80FFFF));
    rectangle(dc, 350, 930, 980, 975);
  }
  SetStretchBltMode(dc, COLORONCOLOR);
  const auto paint = [&](int x, int width, int sourceX, DWORD rop) {
    StretchDIBits(dc, x, 935, width, 80, sourceX, 0, 4, 4, picture.pixels, picture.info(), DIB_RGB_COLORS, rop);
  };
  paint(30, 80, 0, SRCCOPY);
  paint(219, -80, 0, SRCCOPY);
  paint(240, 80, -2, SRCCOPY);
  const DWORD rops[] = {SRCAND, NOTSRCCOPY, SRCPAINT, SRCINVERT, NOTSRCERASE, SRCCOPY};
  for (int i = 0; i < 6; i++) paint(360 + 105 * i, 80, 0, rops[i]);
  /* The same picture through a memory context, at an odd size. */
  HDC memory = CreateCompatibleDC(dc);
  void* bits = nullptr;
  HBITMAP bitmap = CreateDIBSection(dc, picture.info(), DIB_RGB_COLORS, &bits, nullptr, 0);
  std::memcpy(bits, picture.pixels, sizeof picture.pixels);
  const HGDIOBJ old = SelectObject(memory, bitmap);
  title(dc, 20, 1035, "StretchBlt from a memory context: 4 x 4 to 150 x 90, AND, upside down, one to one");
  StretchBlt(dc, 30, 1055, 150, 90, memory, 0, 0, 4, 4, SRCCOPY);
  {
    const Use none(dc, CreatePen(PS_NULL, 1, 0));
    const Use brush(dc, CreateSolidBrush(0x80FFFF));
    rectangle(dc, 200, 1055, 350, 1100);
  }
  StretchBlt(dc, 200, 1055, 150, 90, memory, 0, 0, 4, 4, SRCAND);
  StretchBlt(dc, 370, 1144, 150, -90, memory, 0, 0, 4, 4, SRCCOPY);
  BitBlt(dc, 540, 1055, 4, 4, memory, 0, 0, SRCCOPY);
  SelectObject(memory, old);
  DeleteObject(bitmap);
  DeleteDC(memory);
}

/** Marks of a network drawing at its usual size. */
void network(HDC dc) {
  title(dc, 20, 1160, "A small network");
  const POINT nodes[] = {{60, 1220}, {200, 1190}, {340, 1230}, {480, 1195}, {620, 1235}, {760, 1200}, {900, 1220}};
  const Use f(dc, font(-11));
  SetTextAlign(dc, TA_BASELINE);
  SetBkMode(dc, TRANSPARENT);
  for (int i = 0; i < 6; i++) {
    const Use pen(dc, i % 2 ? geometric(PS_DASH, 2, kBlue) : solid(2, kBlue));
    line(dc, nodes[i].x, nodes[i].y, nodes[i + 1].x, nodes[i + 1].y);
  }
  const Use pen(dc, solid(1, kBlack));
  const Use brush(dc, CreateSolidBrush(0xFFFFFF));
  for (int i = 0; i < 7; i++) {
    Ellipse(dc, nodes[i].x - 4, nodes[i].y - 4, nodes[i].x + 5, nodes[i].y + 5);
    text(dc, nodes[i].x + 7, nodes[i].y - 5, "N-" + std::to_string(i + 1));
  }
}

}  // namespace

void paintSheet(HDC dc) {
  pens(dc);
  caps(dc);
  shapes(dc);
  hatches(dc);
  texts(dc);
  clips(dc);
  rasterOperations(dc);
  blits(dc);
  network(dc);
}

}  // namespace pn10::test
