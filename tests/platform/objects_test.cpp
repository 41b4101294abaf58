/** Which arguments make a pen, a brush, a font or a region, and which answer null. */
#include "platform/gdi.h"
#include "support/support.h"

namespace {

using namespace pn10::test;

const LOGBRUSH kSolid{BS_SOLID, 0, 0};

/** 1 when a call made an object, which is deleted again. */
bool made(HGDIOBJ object) { return object && DeleteObject(object); }

TEST(ExtCreatePen, knows_the_styles_by_their_low_four_bits) {
  for (DWORD style = 0; style < 48; style++) {
    const DWORD line = style % 16;
    const bool expected = line <= 6;
    EXPECT_EQ(made(ExtCreatePen(PS_GEOMETRIC | style, 3, &kSolid, 0, nullptr)), expected) << style;
  }
}

TEST(ExtCreatePen, user_styles_have_one_to_sixteen_lengths_that_are_not_all_zero) {
  DWORD lengths[17] = {4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4};
  const DWORD style = PS_GEOMETRIC | PS_USERSTYLE;
  EXPECT_TRUE(made(ExtCreatePen(style, 3, &kSolid, 1, lengths)));
  EXPECT_TRUE(made(ExtCreatePen(style, 3, &kSolid, 16, lengths)));
  EXPECT_FALSE(made(ExtCreatePen(style, 3, &kSolid, 17, lengths)));
  EXPECT_FALSE(made(ExtCreatePen(style, 3, &kSolid, 0xFFFFFFFF, lengths)));
  EXPECT_FALSE(made(ExtCreatePen(style, 3, &kSolid, 2, nullptr)));
  const DWORD zero[] = {0, 0}, gap[] = {0, 4}, negative[] = {4, 0xFFFFFFFF};
  EXPECT_FALSE(made(ExtCreatePen(style, 3, &kSolid, 2, zero)));
  EXPECT_TRUE(made(ExtCreatePen(style, 3, &kSolid, 2, gap)));
  EXPECT_FALSE(made(ExtCreatePen(style, 3, &kSolid, 2, negative)));
}

TEST(ExtCreatePen, cosmetic_pens_are_one_wide) {
  for (DWORD width : {0u, 2u, 3u, 0xFFFFFFFFu}) {
    EXPECT_FALSE(made(ExtCreatePen(PS_COSMETIC, width, &kSolid, 0, nullptr)));
  }
  EXPECT_TRUE(made(ExtCreatePen(PS_COSMETIC, 1, &kSolid, 0, nullptr)));
  EXPECT_FALSE(made(ExtCreatePen(PS_GEOMETRIC, 1, nullptr, 0, nullptr)));
  EXPECT_FALSE(made(ExtCreatePen(0x20000, 1, &kSolid, 0, nullptr)));
}

TEST(CreatePen, knows_the_seven_styles) {
  for (int style = -1; style < 9; style++) EXPECT_EQ(made(CreatePen(style, 1, 0)), style >= 0 && style <= 6) << style;
}

TEST(Brushes, are_solid_hollow_or_hatched) {
  for (int hatch = -1; hatch < 10; hatch++) {
    EXPECT_EQ(made(CreateHatchBrush(hatch, 0)), hatch >= 0 && hatch <= 7) << hatch;
  }
  for (UINT style = 0; style < 5; style++) {
    const LOGBRUSH brush{style, 0, HS_CROSS};
    EXPECT_EQ(made(CreateBrushIndirect(&brush)), style <= 2) << style;
  }
  EXPECT_TRUE(made(CreateSolidBrush(0xFFFFFFFF)));
  EXPECT_FALSE(made(CreateBrushIndirect(nullptr)));
  EXPECT_FALSE(made(CreateFontIndirectA(nullptr)));
}

TEST(GetObjectA, gives_fonts_and_brushes_back) {
  LOGFONTA font{};
  font.lfHeight = -13;
  std::memset(font.lfFaceName, 'x', sizeof font.lfFaceName); /* no terminator */
  HFONT handle = CreateFontIndirectA(&font);
  LOGFONTA back{};
  EXPECT_EQ(GetObjectA(handle, 0, nullptr), static_cast<int>(sizeof back));
  EXPECT_EQ(GetObjectA(handle, 10, &back), 0);
  EXPECT_EQ(GetObjectA(handle, sizeof back, &back), static_cast<int>(sizeof back));
  EXPECT_EQ(back.lfHeight, -13);
  EXPECT_EQ(back.lfFaceName[31], 0);
  DeleteObject(handle);
  HBRUSH brush = CreateHatchBrush(HS_CROSS, 0x123456);
  LOGBRUSH record{};
  EXPECT_EQ(GetObjectA(brush, sizeof record, &record), static_cast<int>(sizeof record));
  EXPECT_EQ(record.lbStyle, BS_HATCHED);
  EXPECT_EQ(record.lbColor, 0x123456u);
  DeleteObject(brush);
}

TEST(ObjectCount, counts_what_a_host_has_to_delete) {
  const int32_t before = PnGetObjectCount();
  HDC image = PnCreateImageDC(4, 4, 96, 0), record = PnCreateRecordDC(4, 4, 96);
  EXPECT_EQ(PnGetObjectCount(), before);
  const LOGFONTA any{};
  HGDIOBJ objects[] = {CreatePen(0, 1, 0), CreateSolidBrush(0), CreateFontIndirectA(&any), CreateRectRgn(0, 0, 1, 1),
                       CreateCompatibleBitmap(image, 2, 2)};
  HDC memory = CreateCompatibleDC(image);
  EXPECT_EQ(PnGetObjectCount(), before + 6);
  for (HGDIOBJ object : objects) EXPECT_TRUE(DeleteObject(object));
  EXPECT_EQ(PnGetObjectCount(), before + 1);
  EXPECT_TRUE(DeleteDC(memory));
  EXPECT_EQ(PnGetObjectCount(), before);
  PnDeleteDC(image);
  PnDeleteDC(record);
}

TEST(ObjectCount, survives_many_objects) {
  const int32_t before = PnGetObjectCount();
  std::vector<HPEN> pens;
  for (int i = 0; i < 2000; i++) pens.push_back(CreatePen(PS_SOLID, i, 0));
  EXPECT_EQ(PnGetObjectCount(), before + 2000);
  for (HPEN pen : pens) EXPECT_TRUE(DeleteObject(pen));
  EXPECT_EQ(PnGetObjectCount(), before);
}

}  // namespace
