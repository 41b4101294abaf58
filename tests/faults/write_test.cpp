/** Writers on a disk that is full at the n-th byte: the code, and the previous generation untouched. */
#include <algorithm>
#include <functional>

#include "platform/gdi.h"
#include "support/file_limit.h"
#include "support/model_builder.h"

namespace pn10::test {
namespace {

/** All byte counts up to 40, then about fifty up to the size, and the last one that is too few. */
std::vector<size_t> tooFew(size_t size) {
  std::vector<size_t> all;
  for (size_t n = 0; n < size; n += n < 40 ? 1 : size / 50 + 1) all.push_back(n);
  if (size > 0) all.push_back(size - 1);
  return all;
}

struct FullDisk : testing::Test {
  Fresh fresh;
  TempDir dir;

  size_t sizeOf(const char* name) { return dir.read(name).size(); }
  /** `write` gives `failure` wherever the file is cut, and `success` with the same bytes where it just fits. */
  void everyByte(const char* name, int32_t success, int32_t failure, const std::function<int32_t()>& write) {
    ASSERT_EQ(write(), success);
    const std::string whole = dir.read(name);
    ASSERT_GT(whole.size(), 0u);
    for (size_t n : tooFew(whole.size())) {
      const FileLimit limit(n);
      EXPECT_EQ(write(), failure) << name << " full at " << n << " of " << whole.size();
    }
    const FileLimit limit(whole.size());
    EXPECT_EQ(write(), success);
    EXPECT_EQ(dir.read(name), whole);
  }
};

/* --- the whole model --------------------------------------------------------------------------- */

struct FullDiskSave : FullDisk {
  static constexpr struct {
    const char* extension;
    int32_t code;
  } kFiles[] = {{"cdt", -6}, {"ndt", -4}, {"fdt", -7}, {"pdt", -1}, {"vtx", -2}, {"rdx", -1}};

  /** The pipe file is the largest by far in the first model, the customer file in the second, and so on. */
  void makeModel(int nodes, int pipes, int custs, int vertices, int fittings, int references) {
    FreeModel();
    FreeFdt();
    addNodes(nodes);
    for (int r = 1; r <= references; r++) {
      PutRdx(r, nodeName(r).c_str(), "long", "short");
      model.ndt[r].HAS_RDX = 1;
    }
    for (int p = 1; p <= pipes; p++) addPipe(1 + (p - 1) % nodes, 1 + p % nodes);
    for (int v = 0; v < vertices; v++) addVtx(vtxRecord(model.pdt[1].ID, 0, v, v));
    model.pdt[1].VTX_MODE = vertices ? 4 : 0;
    model.pxy[1].FIRST_VTX = vertices ? 1 : 0;
    model.pxy[1].LAST_VTX = vertices;
    for (int f = 0; f < fittings; f++) addFtg(ftgRecord(model.pdt[1].ID, "tee"));
    model.pdt[1].FTG_COUNT = static_cast<uint8_t>(fittings);
    for (int c = 0; c < custs; c++) addCust(1, c, c);
  }
};

TEST_F(FullDiskSave, gives_the_code_of_the_first_file_that_is_cut) {
  makeModel(30, 40, 20, 100, 90, 12);
  const int32_t pipes = SavePipe(12, dir.base().c_str());
  ASSERT_EQ(pipes, 40);
  size_t sizes[6], largest = 0;
  for (int i = 0; i < 6; i++) {
    sizes[i] = sizeOf((std::string("model.") + kFiles[i].extension).c_str());
    ASSERT_GT(sizes[i], 1000u) << kFiles[i].extension;
    largest = std::max(largest, sizes[i]);
  }
  std::vector<size_t> cuts = tooFew(largest);
  for (size_t size : sizes) cuts.insert(cuts.end(), {size - 1, size, size + 1});
  for (size_t n : cuts) {
    int32_t expected = pipes;
    for (int i = 5; i >= 0; i--) {
      if (sizes[i] > n) expected = kFiles[i].code;
    }
    const FileLimit limit(n);
    EXPECT_EQ(SavePipe(12, dir.base().c_str()), expected) << n;
  }
}

TEST_F(FullDiskSave, leaves_the_previous_generation_alone) {
  makeModel(30, 40, 20, 100, 90, 12);
  for (const auto& file : kFiles)
    dir.write(std::string("model.") + file.extension, std::string("old ") + file.extension);
  {
    const FileLimit limit(64);
    EXPECT_EQ(SavePipe(12, dir.base().c_str()), -6);
  }
  for (const auto& file : kFiles) {
    EXPECT_EQ(dir.read(std::string("model.") + file.extension + ".bak"), std::string("old ") + file.extension);
  }
}

TEST_F(FullDiskSave, a_file_longer_than_its_buffer_is_cut_anywhere) {
  makeModel(700, 700, 0, 0, 0, 0); /* 154000 and 196000 bytes */
  for (size_t n : {size_t{65535}, size_t{65536}, size_t{70000}, size_t{131072}, size_t{153000}}) {
    const FileLimit limit(n);
    EXPECT_EQ(SavePipe(0, dir.base().c_str()), -4) << n;
  }
  const FileLimit limit(160000);
  EXPECT_EQ(SavePipe(0, dir.base().c_str()), -1);
}

TEST_F(FullDisk, fittings_give_minus_two_and_keep_the_old_file) {
  for (int i = 1; i <= 300; i++) addFtg(ftgRecord(i % 7, "tee"));
  everyByte("model.fdt", 0, -2, [this] { return SaveFtg(dir.base().c_str(), "10.0"); });
  dir.write("model.fdt", "old");
  const FileLimit limit(50);
  EXPECT_EQ(SaveFtg(dir.base().c_str(), "10.0"), -2);
  EXPECT_EQ(dir.read("model.fdt.bak"), "old");
}

/* --- text files -------------------------------------------------------------------------------- */

TEST_F(FullDisk, facilities_give_minus_two) {
  const int32_t count = DefaultFac();
  ASSERT_GT(count, 0);
  const std::string path = dir.path("fac");
  everyByte("fac", count, -2, [&] { return SaveFac(path.c_str(), "title"); });
}

TEST_F(FullDisk, the_header_gives_minus_two) {
  dir.write("in", "M\n");
  ASSERT_EQ(HdrIo(dir.path("in").c_str(), "M", 1), 200);
  for (int16_t i = 0; i < 201; i++) SetHdrVal(i, std::string(250, 'x').c_str()); /* beyond a stream's buffer */
  const std::string path = dir.path("hdr");
  everyByte("hdr", 200, -2, [&] { return HdrIo(path.c_str(), "M", 0); });
}

/** A row of pipes with a customer each, and a turned off regulator at every node: all five files get a line per pipe.
 */
void makeRow(int nodes) {
  addNodes(nodes);
  for (int n = 1; n < nodes; n++) {
    for (const bool off : {false, true}) {
      const int32_t p = addPipe(n, n + 1);
      Pdt& pipe = model.pdt[p];
      pipe.HYD_TYPE = off ? 1 : 0;
      pipe.STATUS = off;
      pipe.CUST_COUNT = 1;
      model.pxy[p].Report = 1;
      addCust(p, 0, 0);
    }
  }
}

TEST_F(FullDisk, a_trace_gives_minus_two_for_each_of_its_files) {
  SetGlobalGDI(dir.path("").c_str(), "");
  makeRow(120);
  int selector = 0;
  for (const char* name : {"trace.pip", "trace.cst", "trace.vlv", "trace.sum", "trace.reg"}) {
    dir.write("pntrace.ini", "20\n255\n1\n0\n0\n1\n0\n1\n" + std::to_string(++selector) + "\n");
    everyByte(name, 119, -2, [] { return CalcSystemTrace(1, 0, 0, 0, nullptr, 0); });
  }
}

/* --- pictures ---------------------------------------------------------------------------------- */

void paint(HDC dc) {
  for (int i = 0; i < 300; i++) {
    MoveToEx(dc, i, 0, nullptr);
    LineTo(dc, 37 * i % 300, 290);
  }
  TextOutA(dc, 20, 20, "full", 4);
}

TEST_F(FullDisk, a_png_is_not_saved) {
  const HDC dc = PnCreateImageDC(300, 300, 96, 0xFFFFFF);
  paint(dc);
  const std::string path = dir.path("map.png");
  everyByte("map.png", 1, 0, [&] { return PnSavePng(dc, path.c_str()); });
  PnDeleteDC(dc);
}

TEST_F(FullDisk, a_page_is_not_finished) {
  for (const char* name : {"map.pdf", "map.svg"}) {
    const std::string path = dir.path(name);
    const auto write = [&] {
      const HDC dc = name[4] == 'p' ? PnCreatePdfDC(path.c_str(), 3, 3, 100) : PnCreateSvgDC(path.c_str(), 3, 3, 100);
      if (!dc) return 0;
      paint(dc);
      return PnDeleteDC(dc);
    };
    ASSERT_EQ(write(), 1);
    for (size_t n : tooFew(sizeOf(name) - 64)) { /* a page carries the time it was made: its size may differ a little */
      const FileLimit limit(n);
      EXPECT_EQ(write(), 0) << name << " full at " << n;
    }
    EXPECT_EQ(write(), 1);
  }
}

}  // namespace
}  // namespace pn10::test
