/** Windows and their keys, cursor, message boxes, the terminal, the date, printers, device answers. */
#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include "platform/gdi.h"
#include "platform/kernel.h"
#include "platform/user.h"
#include "support/support.h"

namespace {

using namespace pn10::test;

TEST(Window, gives_keys_in_order_and_only_those_asked_for) {
  HWND window = PnCreateWindow();
  PnPostMessage(window, 0x200, 1, 2);
  PnPostMessage(window, WM_KEYDOWN, 27, 0x00010001);
  PnPostMessage(window, 0x101, 27, 0xC0010001);
  MSG message{};
  EXPECT_TRUE(PeekMessageA(&message, window, WM_KEYDOWN, WM_KEYLAST, 0));
  EXPECT_TRUE(PeekMessageA(&message, window, WM_KEYDOWN, WM_KEYLAST, PM_REMOVE));
  EXPECT_EQ(message.message, WM_KEYDOWN);
  EXPECT_EQ(message.wParam, 27u);
  EXPECT_EQ(message.lParam >> 16, 1);
  EXPECT_TRUE(PeekMessageA(&message, window, WM_KEYDOWN, WM_KEYLAST, PM_REMOVE));
  EXPECT_EQ(message.message, 0x101u);
  EXPECT_FALSE(PeekMessageA(&message, window, WM_KEYDOWN, WM_KEYLAST, PM_REMOVE));
  EXPECT_TRUE(PeekMessageA(&message, window, 0, 0, PM_REMOVE));
  EXPECT_EQ(message.message, 0x200u);
  PnDestroyWindow(window);
}

TEST(Window, counts_updates_and_logs_what_is_asked_of_it) {
  HWND window = PnCreateWindow();
  MSG message{};
  PnPostMessage(window, WM_KEYDOWN, 65, 0);
  EXPECT_EQ(recorded([&] {
              InvalidateRect(window, nullptr, 1);
              UpdateWindow(window);
              PeekMessageA(&message, window, WM_KEYDOWN, WM_KEYLAST, PM_REMOVE);
              PeekMessageA(&message, window, WM_KEYDOWN, WM_KEYLAST, PM_REMOVE);
            }),
            "InvalidateRect 1\nUpdateWindow\nPeekMessageA found\nPeekMessageA none\n");
  EXPECT_EQ(PnGetWindowUpdates(window), 1);
  PnDestroyWindow(window);
}

TEST(Window, none_is_harmless) {
  MSG message{};
  HWND gone = PnCreateWindow();
  EXPECT_TRUE(InvalidateRect(gone, nullptr, 1));
  EXPECT_FALSE(DeleteObject(gone));
  PnDestroyWindow(gone);
  PnDestroyWindow(gone);
  PnPostMessage(gone, 1, 2, 3);
  EXPECT_FALSE(PeekMessageA(&message, gone, 0, 0, 1) || UpdateWindow(gone) || InvalidateRect(gone, nullptr, 1));
  PnPostMessage(nullptr, 1, 2, 3);
  EXPECT_FALSE(PeekMessageA(&message, nullptr, 0, 0, 1));
  EXPECT_FALSE(PeekMessageA(nullptr, nullptr, 0, 0, 1));
  EXPECT_FALSE(UpdateWindow(nullptr));
  EXPECT_TRUE(InvalidateRect(nullptr, nullptr, 1)); /* all windows */
  EXPECT_EQ(PnGetWindowUpdates(nullptr), 0);
  PnDestroyWindow(nullptr);
}

TEST(Cursor, starts_as_an_arrow_and_answers_the_old_one) {
  EXPECT_EQ(PnGetCursor(), 32512);
  HCURSOR old = nullptr;
  EXPECT_EQ(recorded([&] { old = SetCursor(LoadCursorA(nullptr, IDC_WAIT)); }), "SetCursor 32514\n");
  EXPECT_EQ(PnGetCursor(), 32514);
  SetCursor(old);
  EXPECT_EQ(PnGetCursor(), 32512);
}

TEST(MessageBox, shows_and_logs_its_text) {
  static std::string shown;
  PnSetMessageBox([](const char* text, const char* caption) { shown = std::string(text) + "|" + caption; });
  EXPECT_EQ(recorded([] { EXPECT_EQ(MessageBoxA(nullptr, "getndt 999", "", 0), 1); }), "MessageBoxA \"getndt 999\"\n");
  EXPECT_EQ(shown, "getndt 999|");
  MessageBoxA(nullptr, nullptr, nullptr, 0);
  EXPECT_EQ(shown, "|");
  PnSetMessageBox(nullptr);
  testing::internal::CaptureStderr();
  MessageBoxA(nullptr, "one line", "", 0);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "one line\n");
}

TEST(Terminal, is_told_from_files_for_output_and_errors) {
  const int terminal = posix_openpt(O_RDWR | O_NOCTTY), file = open("/dev/null", O_WRONLY);
  ASSERT_TRUE(terminal >= 0 && file >= 0);
  for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
    const int kept = dup(stream);
    dup2(terminal, stream);
    const int32_t onTerminal = PnIsTerminal(stream);
    dup2(file, stream);
    const int32_t onFile = PnIsTerminal(stream);
    dup2(kept, stream);
    close(kept);
    EXPECT_EQ(onTerminal, 1) << stream;
    EXPECT_EQ(onFile, 0) << stream;
  }
  // Numbers that are no output, be they open or not.
  for (const int32_t none : {0, terminal, -1, INT32_MAX}) EXPECT_EQ(PnIsTerminal(none), 0) << none;
  close(file);
  close(terminal);
}

TEST(Date, is_the_one_set_or_the_clock) {
  SYSTEMTIME time{};
  PnSetDate(20240229);
  GetLocalTime(&time);
  EXPECT_EQ(time.wYear, 2024);
  EXPECT_EQ(time.wMonth, 2);
  EXPECT_EQ(time.wDay, 29);
  PnSetDate(0);
  GetLocalTime(&time);
  EXPECT_GE(time.wYear, 2024);
  GetLocalTime(nullptr);
}

TEST(MulDiv, rounds_halves_away_from_zero_and_refuses_what_does_not_fit) {
  const int rows[][4] = {{10, 3, 4, 8},      {-10, 3, 4, -8},      {10, -3, -4, 8},       {7, 1, 2, 4},
                         {-7, 1, 2, -4},     {1, 1, 3, 0},         {INT32_MAX, 2, 1, -1}, {5, 5, 0, -1},
                         {96, 720, 72, 960}, {INT32_MIN, 1, 1, -1}};
  for (const auto& [a, b, c, result] : rows) EXPECT_EQ(MulDiv(a, b, c), result) << a << " " << b << " " << c;
}

TEST(DeviceCaps, of_image_record_and_memory_contexts) {
  HDC image = PnCreateImageDC(1016, 508, 254, 0), record = PnCreateRecordDC(200, 100, 72);
  HDC fresh = CreateCompatibleDC(nullptr), like = CreateCompatibleDC(image);
  const struct {
    int index, image, record, fresh, like;
  } rows[] = {{LOGPIXELSX, 254, 72, 96, 254}, {LOGPIXELSY, 254, 72, 96, 254}, {HORZRES, 1016, 200, 1024, 1016},
              {VERTRES, 508, 100, 768, 508},  {HORZSIZE, 102, 71, 271, 102},  {VERTSIZE, 51, 35, 203, 51},
              {BITSPIXEL, 32, 32, 32, 32},    {PLANES, 1, 1, 1, 1},           {TECHNOLOGY, 1, 1, 1, 1},
              {PHYSICALWIDTH, 0, 0, 0, 0},    {PHYSICALOFFSETX, 0, 0, 0, 0},  {77777, 0, 0, 0, 0}};
  for (const auto& row : rows) {
    EXPECT_EQ(GetDeviceCaps(image, row.index), row.image) << row.index;
    EXPECT_EQ(GetDeviceCaps(record, row.index), row.record) << row.index;
    EXPECT_EQ(GetDeviceCaps(fresh, row.index), row.fresh) << row.index;
    EXPECT_EQ(GetDeviceCaps(like, row.index), row.like) << row.index;
  }
  for (HDC dc : {image, record, fresh, like}) PnDeleteDC(dc);
}

TEST(DeviceCaps, answer_the_page_that_was_set) {
  HDC dc = PnCreateRecordDC(200, 100, 72);
  POINT point{7, 7};
  EXPECT_EQ(Escape(dc, GETPHYSPAGESIZE, 0, nullptr, &point), 1);
  EXPECT_EQ(point.x, 0);
  EXPECT_EQ(PnSetPage(dc, 850, 1100, 25, 30), 1);
  EXPECT_EQ(Escape(dc, GETPHYSPAGESIZE, 0, nullptr, &point), 1);
  EXPECT_EQ(point.x, 850);
  EXPECT_EQ(point.y, 1100);
  EXPECT_EQ(Escape(dc, GETPRINTINGOFFSET, 0, nullptr, &point), 1);
  EXPECT_EQ(point.x, 25);
  EXPECT_EQ(point.y, 30);
  EXPECT_EQ(GetDeviceCaps(dc, 110), 850);
  EXPECT_EQ(GetDeviceCaps(dc, 111), 1100);
  EXPECT_EQ(GetDeviceCaps(dc, 112), 25);
  EXPECT_EQ(GetDeviceCaps(dc, 113), 30);
  EXPECT_EQ(Escape(dc, 99, 0, nullptr, &point), 0);
  EXPECT_EQ(Escape(dc, GETPHYSPAGESIZE, 0, nullptr, nullptr), 0);
  PnDeleteDC(dc);
}

TEST(Printers, open_a_page_by_name) {
  TempDir dir;
  EXPECT_EQ(PnAddPrinter("Plotter A", dir.path("a.pdf").c_str(), 8.5, 11, 300, 75, 50), 1);
  EXPECT_EQ(PnAddPrinter("Plotter B", dir.path("b.SVG").c_str(), 11, 17, 100, 0, 0), 1);
  HDC dc = nullptr;
  EXPECT_EQ(recorded([&] { dc = CreateDCA("WINSPOOL", "Plotter A", nullptr, nullptr); }),
            "CreateDCA \"WINSPOOL\" \"Plotter A\"\n");
  ASSERT_NE(dc, nullptr);
  const int rows[][2] = {{LOGPIXELSX, 300},     {PHYSICALWIDTH, 2550}, {PHYSICALHEIGHT, 3300}, {PHYSICALOFFSETX, 75},
                         {PHYSICALOFFSETY, 50}, {HORZRES, 2400},       {VERTRES, 3200},        {TECHNOLOGY, 2}};
  for (const auto& [index, answer] : rows) EXPECT_EQ(GetDeviceCaps(dc, index), answer) << index;
  EXPECT_TRUE(DeleteDC(dc));
  EXPECT_EQ(dir.read("a.pdf").substr(0, 5), "%PDF-");
  dc = CreateDCA("WINSPOOL", "Plotter B", nullptr, nullptr);
  EXPECT_EQ(PnDeleteDC(dc), 1);
  EXPECT_EQ(dir.read("b.SVG").substr(0, 4), "<svg");
}

TEST(Printers, unknown_names_and_senseless_pages_are_refused) {
  EXPECT_EQ(CreateDCA("WINSPOOL", "nobody", nullptr, nullptr), nullptr);
  EXPECT_EQ(CreateDCA("DISPLAY", nullptr, nullptr, nullptr), nullptr);
  EXPECT_EQ(CreateDCA(nullptr, "Plotter A", nullptr, nullptr), nullptr);
  EXPECT_EQ(PnAddPrinter(nullptr, "x.pdf", 1, 1, 96, 0, 0), 0);
  EXPECT_EQ(PnAddPrinter("x", nullptr, 1, 1, 96, 0, 0), 0);
  EXPECT_EQ(PnAddPrinter("x", "x.pdf", 0, 1, 96, 0, 0), 0);
  EXPECT_EQ(PnAddPrinter("x", "x.pdf", 1, 1, 0, 0, 0), 0);
}

TEST(Files, that_cannot_be_written_are_told_at_the_end) {
  HDC pdf = PnCreatePdfDC("/dev/full", 2, 2, 96);
  ASSERT_NE(pdf, nullptr);
  LineTo(pdf, 9, 9);
  EXPECT_EQ(PnDeleteDC(pdf), 0);
  HDC svg = PnCreateSvgDC("/dev/full", 2, 2, 96);
  ASSERT_NE(svg, nullptr);
  EXPECT_EQ(PnDeleteDC(svg), 0);
  HDC image = PnCreateImageDC(2, 2, 96, 0);
  EXPECT_EQ(PnSavePng(image, "/no/such/folder/a.png"), 0);
  EXPECT_EQ(PnSavePng(image, nullptr), 0);
  PnDeleteDC(image);
}

}  // namespace
