/** The loaders of the six lookup files: counts, result codes, release, hostile files. */
#include "lookup/lookup.h"
#include "lookup/packed.h"
#include "model/tables.h"

namespace pn10::test {
namespace {

struct Loader {
  const char* what;
  size_t stride;
  int32_t (*read)(const char*);
  int32_t (*init)();
  int32_t* count;
  bool countsRows;
};
const Loader kLoaders[] = {
    {"PLut", kPLutStride, ReadPLut, InitPLut, &lookups.plut.count, true},
    {"FLut", kFLutStride, ReadFLut, InitFLut, &lookups.flut.count, false},
    {"RLut", kRLutStride, ReadRLut, InitRLut, &lookups.rlut.count, false},
    {"VLut", kVLutStride, ReadVLut, InitVLut, &lookups.vlut.count, false},
    {"WLut", kWLutStride, ReadWLut, InitWLut, &lookups.wlut.count, false},
    {"CLut", kCLutStride, ReadCLut, InitCLut, &lookups.clut.count, false},
};

TEST_F(LookupFiles, counts_are_rows_for_pipes_and_one_more_for_the_others) {
  for (const Loader& l : kLoaders) {
    for (int32_t records : {1, 2, 4}) {
      const std::string path = files.path(std::string(l.stride * static_cast<size_t>(records), '\0'));
      EXPECT_EQ(l.read(path.c_str()), l.countsRows ? records - 1 : records) << l.what;
      EXPECT_EQ(*l.count, l.countsRows ? records - 1 : records) << l.what;
      FreeLut();
    }
  }
}

TEST_F(LookupFiles, only_whole_records_count) {
  for (const Loader& l : kLoaders) {
    const std::string path = files.path(std::string(l.stride * 3 - 1, '\0'));
    EXPECT_EQ(l.read(path.c_str()), l.countsRows ? 1 : 2) << l.what;
    FreeLut();
  }
}

TEST_F(LookupFiles, failures_have_their_codes_and_leave_the_count_zero) {
  for (const Loader& l : kLoaders) {
    l.read(files.path(std::string(l.stride * 3, '\0')).c_str());
    FreeLut();
    EXPECT_EQ(l.read(files.dir.path("missing").c_str()), -1) << l.what;
    EXPECT_EQ(*l.count, 0) << l.what;
    EXPECT_EQ(l.read(nullptr), -1) << l.what;
    EXPECT_EQ(l.read(files.path("").c_str()), -2) << l.what;
    EXPECT_EQ(l.read(files.path(std::string(l.stride - 1, 'x')).c_str()), -2) << l.what;
    EXPECT_EQ(*l.count, 0) << l.what;
  }
}

TEST_F(LookupFiles, a_file_larger_than_any_memory_gives_the_code_for_it) {
  if (!files.dir.writeHole("lut", uint64_t{1} << 43)) GTEST_SKIP() << "the file system takes no file of 8 TiB";
  for (const Loader& l : kLoaders) {
    EXPECT_EQ(l.read(files.dir.path("lut").c_str()), l.countsRows ? -4 : -3) << l.what;
    EXPECT_EQ(*l.count, 0) << l.what;
  }
}

TEST_F(LookupFiles, init_makes_one_empty_row) {
  for (const Loader& l : kLoaders) {
    EXPECT_EQ(l.init(), 0) << l.what;
    EXPECT_EQ(*l.count, 0) << l.what;
    EXPECT_EQ(l.init(), 0) << l.what << " releases and makes it again";
  }
  const intptr_t addresses[] = {GetPLutAddress(), GetFLutAddress(), GetRLutAddress(),  GetVLutAddress(),
                                GetWLutAddress(), GetCLutAddress(), GetPPTypeAddress()};
  for (intptr_t a : addresses) EXPECT_NE(a, 0);
}

TEST_F(LookupFiles, five_loaders_forget_the_old_rows_without_releasing_them) {
  files.flut({Packed(kFLutStride).text(0, "OLD")});
  FLut* old = reinterpret_cast<FLut*>(GetFLutAddress());
  files.flut({Packed(kFLutStride).text(0, "NEW")});
  EXPECT_NE(reinterpret_cast<FLut*>(GetFLutAddress()), old);
  EXPECT_EQ(std::string(old[1].KEY_TEXT), "OLD");
  freeRecords(old);
}

TEST_F(LookupFiles, free_calls_release_and_keep_what_they_keep) {
  files.plut({pipeSize("A")});
  files.flut({Packed(kFLutStride).text(0, "E")});
  EXPECT_EQ(FreePLut(), 1);
  EXPECT_EQ(FreePLut(), 1);
  EXPECT_EQ(GetPLutAddress(), 0);
  EXPECT_EQ(GetPPTypeAddress(), 0);
  EXPECT_EQ(lookups.plut.count, 0);
  EXPECT_EQ(FreeLut(), 1);
  EXPECT_EQ(FreeLut(), 1);
  EXPECT_EQ(GetFLutAddress(), 0);
  EXPECT_EQ(lookups.flut.count, 2);
  EXPECT_EQ(FindFLutRno("E", 0), 0);
  EXPECT_EQ(GetFLutVal(1, nullptr, 12), -1.0);
  EXPECT_EQ(GetFLutVal(1, nullptr, 1), 2.0) << "the count stays readable";
}

TEST_F(LookupFiles, addresses_lead_to_rows_in_the_order_of_the_record) {
  files.plut({pipeSize("4 INCH").f32(48, 4.026f)});
  const auto* row = reinterpret_cast<const PLut*>(GetPLutAddress()) + 1;
  EXPECT_STREQ(row->KEY_TEXT, "4 INCH");
  EXPECT_EQ(row->INSIDE_D, 4.026f);
  EXPECT_EQ(sizeof(PLut), 432u);
  const auto* entry = reinterpret_cast<const PLutIdx*>(GetPPTypeAddress()) + 1;
  EXPECT_STREQ(entry->KEY_TEXT, "4 INCH");
  EXPECT_EQ(entry->ROW, 1);
  EXPECT_EQ(sizeof(PLutIdx), 44u);
}

TEST_F(LookupFiles, garbage_loads_without_harm) {
  std::string garbage(kPLutStride * 7 + 13, '\0');
  for (size_t i = 0; i < garbage.size(); i++) garbage[i] = static_cast<char>(i * 2654435761u >> 11);
  for (const Loader& l : kLoaders) {
    const std::string path = files.path(garbage);
    EXPECT_GT(l.read(path.c_str()), 0) << l.what;
  }
  Text text;
  for (int32_t row = -2; row < 12; row++) {
    for (int16_t field = -2; field < 25; field++) {
      GetPLutVal(static_cast<int16_t>(row), text, field);
      GetFLutVal(row, text, field);
      GetRLutVal(row, text, field);
      GetVLutVal(row, text, field);
      GetWLutVal(row, text, field);
      GetCLutVal(row, text, field);
    }
  }
}

}  // namespace
}  // namespace pn10::test
