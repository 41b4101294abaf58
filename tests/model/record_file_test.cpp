/** Record transfer: every column at its place, short reads, line feeds, and the two file forms. */
#include "model/record_file.h"

#include "model/staging.h"
#include "support/file_limit.h"
#include "support/model_builder.h"

namespace pn10::test {
namespace {

/** The bytes of a record as the library writes them. */
template <const RecordFormat& F, class Record>
std::string written(const Record& record) {
  std::string bytes(F.bytes, '?');
  encodeRecord<F>(&record, reinterpret_cast<uint8_t*>(bytes.data()));
  return bytes;
}

/** Reads `bytes` over `record` as a file of one record. */
template <const RecordFormat& F, class Record>
Record readOver(const std::string& bytes, Record record) {
  decodeRecord<F>({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()}, &record);
  return record;
}

/** Reads `bytes` through the general loop, whatever they are. */
template <const RecordFormat& F, class Record>
Record readSlowly(const std::string& bytes, Record record) {
  ByteSpan from = {reinterpret_cast<const uint8_t*>(bytes.data()), std::min<size_t>(bytes.size(), F.bytes)};
  readColumns(F, from, &record);
  return record;
}

template <class Record>
bool same(const Record& a, const Record& b) {
  return std::memcmp(&a, &b, sizeof a) == 0;
}

template <const RecordFormat& F, class Record>
void expectEveryColumn(const Record& record) {
  const std::string bytes = packed(record);
  ASSERT_EQ(bytes.size(), F.bytes);
  EXPECT_EQ(written<F>(record), bytes);
  EXPECT_TRUE(same(readOver<F>(bytes, Record{}), record));
  EXPECT_TRUE(same(readSlowly<F>(bytes, Record{}), record));
}

TEST(RecordFile, every_column_of_the_five_records_lies_where_the_hand_packed_bytes_have_it) {
  expectEveryColumn<kNdtFormat>(everyNodeField(1));
  expectEveryColumn<kPdtFormat>(everyPipeField(2));
  expectEveryColumn<kCdtFormat>(everyCustField(3));
  expectEveryColumn<kVtxFormat>(vtxRecord(7, 3, 1.5, -2.5, 9.25f));
  expectEveryColumn<kFdtFormat>(ftgRecord(5, "elbow 90", 3, 1.75f, -4));
}

TEST(RecordFile, strides_bytes_and_headers_are_those_of_the_files) {
  struct {
    const RecordFormat& format;
    uint32_t stride, bytes, header;
  } rows[] = {{kNdtFormat, 220, 218, 0}, {kPdtFormat, 280, 270, 0}, {kVtxFormat, 26, 26, 0},
              {kCdtFormat, 214, 198, 0}, {kFdtFormat, 32, 32, 4},   {kRdxFormat, 336, 336, 0}};
  for (const auto& row : rows) {
    EXPECT_EQ(row.format.stride, row.stride) << row.format.extension;
    EXPECT_EQ(row.format.bytes, row.bytes) << row.format.extension;
    EXPECT_EQ(row.format.header, row.header) << row.format.extension;
  }
}

TEST(RecordFile, a_count_is_the_ceiling_of_size_over_stride) {
  struct {
    int64_t size;
    int32_t count;
  } rows[] = {{0, 0}, {1, 1}, {218, 1}, {220, 1}, {221, 2}, {440, 2}, {-5, 0}, {int64_t{1} << 62, INT32_MAX}};
  for (const auto& row : rows) EXPECT_EQ(recordCount(row.size, 220), row.count) << row.size;
}

/** Low byte, low byte in 16 bits, and any nonzero to 1, at every place where they stand. */
TEST(RecordFile, integers_narrow_by_the_rule_of_their_column) {
  const std::string zeros(kNdtFormat.bytes, '\0');
  for (const Column& column : kNdtColumns) {
    if (column.codec != Codec::LowByte && column.codec != Codec::LowByte16 && column.codec != Codec::Flag) continue;
    struct {
      int onFile, lowByte, flag;
    } rows[] = {{256, 0, 1}, {511, 255, 1}, {-1, 255, 1}, {0, 0, 0}};
    for (const auto& row : rows) {
      std::string bytes = zeros;
      bytes.replace(column.offset, 2, Bytes().i16(row.onFile).str());
      const Ndt node = readOver<kNdtFormat>(bytes, Ndt{});
      const uint8_t* member = reinterpret_cast<const uint8_t*>(&node) + column.member;
      EXPECT_EQ(member[0], column.codec == Codec::Flag ? row.flag : row.lowByte) << column.name << row.onFile;
      EXPECT_TRUE(column.codec != Codec::LowByte16 || member[1] == 0) << column.name;
    }
  }
}

TEST(RecordFile, the_rules_stand_at_the_fields_that_have_them) {
  std::string of_low_byte, of_low_byte16, of_flag;
  for (const Column& column : kNdtColumns) {
    if (column.codec == Codec::LowByte) of_low_byte += std::string(column.name) + " ";
    if (column.codec == Codec::LowByte16) of_low_byte16 += std::string(column.name) + " ";
    if (column.codec == Codec::Flag) of_flag += std::string(column.name) + " ";
  }
  EXPECT_EQ(of_low_byte, "P_KNOWN QX_STATUS T_KNOWN HAS_RDX HOST_BYTE_348 HOST_BYTE_346 HYD_STATUS CMP_MODE ");
  EXPECT_EQ(of_low_byte16, "QB_KNOWN QB_DF QB_STATUS ");
  EXPECT_EQ(of_flag, "QX_DF ");
  std::string of_pipe;
  for (const Column& column : kPdtColumns) {
    if (column.codec == Codec::LowByte) of_pipe += std::string(column.name) + " ";
    EXPECT_NE(column.codec, Codec::Flag) << column.name;
    EXPECT_NE(column.codec, Codec::LowByte16) << column.name;
  }
  EXPECT_EQ(of_pipe, "HYD_TYPE STATUS SIZE_FLAG VTX_MODE HOST_BYTE_58 CALC_RESERVED_B ");
}

TEST(RecordFile, sixteen_bit_flags_of_a_node_are_written_whole) {
  Ndt node{};
  node.QB_DF = 0x1234;
  EXPECT_EQ(written<kNdtFormat>(node).substr(70, 2), Bytes().i16(0x1234).str());
}

/** A column that the file holds in part or not at all keeps the value of the record before. */
TEST(RecordFile, a_file_cut_anywhere_keeps_the_values_of_the_record_before) {
  const Ndt before = everyNodeField(1), now = everyNodeField(2);
  const std::string bytes = packed(now);
  for (size_t size = 0; size <= bytes.size(); size++) {
    const Ndt got = readOver<kNdtFormat>(bytes.substr(0, size), before);
    for (const Column& column : kNdtColumns) {
      const auto* has = reinterpret_cast<const char*>(&got) + column.member;
      const auto* old = reinterpret_cast<const char*>(&before) + column.member;
      const auto* fresh = reinterpret_cast<const char*>(&now) + column.member;
      const size_t there = size > column.offset ? size - column.offset : 0;
      if (there >= column.width) {
        ASSERT_EQ(std::memcmp(has, fresh, column.memberSize), 0) << column.name << " at " << size;
      } else if (column.codec == Codec::Text && there > 0) {
        ASSERT_EQ(std::string(has), std::string(fresh, there)) << column.name << " at " << size;
      } else {
        ASSERT_EQ(std::memcmp(has, old, column.memberSize), 0) << column.name << " at " << size;
      }
    }
  }
}

TEST(RecordFile, a_line_feed_ends_a_text_and_shifts_the_rest_of_the_record) {
  Ndt before{};
  std::strcpy(before.NODENAME, "ABCDEFGHIJ");
  Bytes shifted; /* what the columns behind a name of "ab\n" meet */
  shifted.i32(77).add("ab\n").f32(2.5f).i16(3).text("psig", 10).f32(0.5f).padTo(kNdtFormat.bytes);
  const Ndt got = readOver<kNdtFormat>(shifted.str(), before);
  EXPECT_EQ(got.ID, 77);
  EXPECT_STREQ(got.NODENAME, "ab\n");
  EXPECT_STREQ(got.NODENAME + 4, "EFGHIJ"); /* behind the terminator nothing is written */
  EXPECT_EQ(got.PRESSURE, 2.5f);
  EXPECT_EQ(got.P_KNOWN, 3);
  EXPECT_STREQ(got.P_UNITS, "psig");
  EXPECT_EQ(got.P_FACTOR, 0.5f);
}

TEST(RecordFile, nul_bytes_inside_a_text_do_not_stop_the_read_and_are_written_back) {
  Ndt node = nodeRecord(1, "A");
  node.NODENAME[20] = 'Z';
  const std::string bytes = packed(node);
  EXPECT_EQ(readOver<kNdtFormat>(bytes, Ndt{}).NODENAME[20], 'Z');
  EXPECT_EQ(written<kNdtFormat>(node), bytes);
}

/** fgets and fread by themselves, one call per column, as the plain words of the format have it. */
template <const RecordFormat& F>
void readByCalls(FILE* file, int32_t n, void* record) {
  seekFile(file, (n - 1) * int64_t{F.stride});
  for (size_t i = 0; i < F.columnCount; i++) {
    const Column& c = F.columns[i];
    uint8_t* member = static_cast<uint8_t*>(record) + c.member;
    uint8_t value[64];
    if (c.codec == Codec::Text) {
      char text[300];
      if (std::fgets(text, c.width + 1, file)) {
        std::memcpy(member, text, std::strlen(text) + 1);
      }
    } else if (std::fread(value, 1, c.width, file) == c.width) {
      if (c.codec == Codec::Zeros) continue;
      if (c.codec == Codec::Flag) value[0] = value[0] || value[1];
      if (c.codec == Codec::LowByte16) value[1] = 0;
      std::memcpy(member, value, c.memberSize);
    }
  }
}

/** Records of printable text and line feeds, without NUL bytes, read both ways. */
TEST(RecordFile, random_line_feeds_and_cuts_read_as_by_single_calls) {
  TempDir dir;
  uint32_t state = 12345;
  auto random = [&] { return (state = state * 1664525u + 1013904223u) >> 8; };
  for (int round = 0; round < 200; round++) {
    std::string bytes(random() % 900, '\0');
    const uint32_t feeds = random() % 60 + 1;
    for (char& c : bytes) c = random() % feeds == 0 ? '\n' : static_cast<char>('!' + random() % 90);
    dir.write("any.bin", bytes);
    File file(dir.path("any.bin").c_str(), "rb");
    Pdt byCalls = everyPipeField(9), byRecord = byCalls, byReader = byCalls;
    File again(dir.path("any.bin").c_str(), "rb");
    RecordReader<kPdtFormat> reader(again.get());
    for (int32_t n = 1; n <= 4; n++) {
      readByCalls<kPdtFormat>(file.get(), n, &byCalls);
      readRecordAt(kPdtFormat, file.get(), n, &byRecord);
      reader.next(&byReader);
      ASSERT_TRUE(same(byCalls, byRecord)) << round << " record " << n;
      ASSERT_TRUE(same(byCalls, byReader)) << round << " record " << n;
    }
  }
}

TEST(RecordFile, a_reader_crosses_its_buffer_and_a_writer_leaves_zeros_between_records) {
  TempDir dir;
  std::vector<Ndt> nodes;
  for (int i = 0; i < 700; i++) nodes.push_back(everyNodeField(i)); /* more than two buffers */
  {
    File file(dir.path("n.bin").c_str(), "wb");
    RecordWriter<kNdtFormat> writer(file.get());
    for (const Ndt& node : nodes) writer.append(&node);
    EXPECT_TRUE(writer.flush());
  }
  EXPECT_EQ(dir.read("n.bin"), fileOf(nodes));
  File file(dir.path("n.bin").c_str(), "rb");
  RecordReader<kNdtFormat> reader(file.get());
  for (const Ndt& node : nodes) {
    Ndt got{};
    reader.next(&got);
    ASSERT_TRUE(same(got, node));
  }
}

TEST(RecordFile, a_writer_flushed_halfway_goes_on_at_the_right_place) {
  TempDir dir;
  const std::vector<Pdt> pipes = {everyPipeField(1), everyPipeField(2), everyPipeField(3)};
  {
    File file(dir.path("p.bin").c_str(), "wb");
    RecordWriter<kPdtFormat> writer(file.get());
    for (const Pdt& pipe : pipes) {
      writer.append(&pipe);
      EXPECT_TRUE(writer.flush());
    }
  }
  EXPECT_EQ(dir.read("p.bin"), fileOf(pipes));
}

TEST(RecordFile, a_writer_begins_behind_the_header_and_writes_nothing_without_records) {
  TempDir dir;
  const std::vector<Fdt> ftgs = {ftgRecord(1, "tee"), ftgRecord(2, "elbow")};
  {
    File file(dir.path("f.bin").c_str(), "wb"), none(dir.path("none.bin").c_str(), "wb");
    RecordWriter<kFdtFormat> writer(file.get()), idle(none.get());
    EXPECT_EQ(writer.append(&ftgs[0]), 1);
    EXPECT_EQ(writer.append(&ftgs[1]), 2);
  }
  EXPECT_EQ(dir.read("f.bin"), fileOf(ftgs));
  EXPECT_EQ(dir.read("none.bin"), "");
}

TEST(RecordFile, a_writer_notices_that_a_file_takes_no_more) {
  const TempDir dir;
  const FileLimit limit(1000);
  File full(dir.path("full").c_str(), "wb");
  RecordWriter<kVtxFormat> writer(full.get()), absent(nullptr);
  for (int i = 0; i < 10000; i++) {
    const Vtx v = vtxRecord(i, 0);
    writer.append(&v);
    absent.append(&v);
  }
  EXPECT_FALSE(writer.flush());
  EXPECT_FALSE(absent.flush());
}

TEST(NdtRecord, goes_through_the_staging_record_at_its_place_in_the_file) {
  Fresh fresh;
  TempDir dir;
  File file(dir.path("n.bin").c_str(), "wb+");
  staging.node = everyNodeField(4);
  EXPECT_EQ(WriteNdtRecord(file.get(), 3), 0);
  staging.node = everyNodeField(5);
  EXPECT_EQ(WriteNdtRecord(file.get(), 1), 0);
  EXPECT_EQ(fileSize(file.get()), 2 * 220 + 218);
  EXPECT_EQ(ReadNdtRecord(file.get(), 3), 0);
  EXPECT_TRUE(same(staging.node, everyNodeField(4)));
  EXPECT_EQ(ReadNdtRecord(file.get(), 2), 0); /* the hole between them */
  EXPECT_EQ(staging.node.ID, 0);
  EXPECT_EQ(ReadNdtRecord(file.get(), 1), 0);
  EXPECT_EQ(ReadNdtRecord(file.get(), 4), 0); /* nothing there */
  EXPECT_EQ(ReadNdtRecord(file.get(), -7), 0);
  EXPECT_EQ(ReadNdtRecord(nullptr, 1), 0);
  EXPECT_TRUE(same(staging.node, everyNodeField(5)));
}

TEST(PdtRecord, goes_through_the_staging_record_at_its_place_in_the_file) {
  Fresh fresh;
  TempDir dir;
  File file(dir.path("p.bin").c_str(), "wb+");
  staging.pipe = everyPipeField(4);
  WritePdtRecord(file.get(), 2);
  EXPECT_EQ(fileSize(file.get()), 280 + 270);
  staging.pipe = Pdt{};
  ReadPdtRecord(file.get(), 2);
  EXPECT_TRUE(same(staging.pipe, everyPipeField(4)));
  WritePdtRecord(nullptr, 1);
  WritePdtRecord(file.get(), -1);
  EXPECT_EQ(fileSize(file.get()), 280 + 270);
}

TEST(WriteVtxRecord, writes_a_table_record_at_a_file_record) {
  Fresh fresh;
  TempDir dir;
  addVtx(vtxRecord(1, 0, 1, 2, 3));
  addVtx(vtxRecord(2, 2, 4, 5, 6));
  {
    File file(dir.path("v.bin").c_str(), "wb");
    EXPECT_EQ(WriteVtxRecord(file.get(), 1, 2), 0);
    EXPECT_EQ(WriteVtxRecord(file.get(), 2, 99), 0); /* no such record: nothing */
  }
  EXPECT_EQ(dir.read("v.bin"), packed(vtxRecord(2, 2, 4, 5, 6)));
}

TEST(ModelPath, is_absent_without_a_base_and_beyond_all_limits) {
  EXPECT_STREQ(ModelPath("net", ".ndt").get(), "net.ndt");
  EXPECT_EQ(ModelPath(nullptr, ".ndt").get(), nullptr);
  EXPECT_EQ(ModelPath(std::string(5000, 'x').c_str(), ".ndt").get(), nullptr);
}

}  // namespace
}  // namespace pn10::test
