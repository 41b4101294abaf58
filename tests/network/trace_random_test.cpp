/** Every type, start kind and mode of the trace against the literal form, on random networks. */
#include <algorithm>
#include <filesystem>

#include "network/trace_literal.h"
#include "network/traced.h"

namespace pn10::test {
namespace {

TEST_F(SystemTrace, agrees_with_the_literal_form_on_random_networks) {
  int32_t crossed = 0;
  for (uint32_t seed = 1; seed <= 400; seed++) {
    makeRandomNetwork(seed, {30, 55, 40});
    std::mt19937 random(seed * 77);
    constexpr int kTypes[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 20, 21, 33};
    for (int type : kTypes) {
      const auto pick = [&](uint32_t n) { return static_cast<int32_t>(random() % n); };
      Control control{.type = type,
                      .color = pick(5) ? pick(0xFFFFFF) : -1,
                      .writeFiles = pick(8) != 0,
                      .startKind = pick(3) + 8,
                      .customers = pick(2)};
      if (pick(3) == 0) control.selectors = {1, 4};
      const bool fileMode = pick(3) != 0, keep = pick(2) != 0;
      const int32_t startNode = pick(31), stopNode = pick(2) ? pick(31) : 0, startPipe = pick(56);

      LiteralTrace literal;
      literal.type = static_cast<int16_t>(type);
      literal.color = control.color;
      literal.startKind = control.startKind;
      literal.writeFiles = control.writeFiles != 0;
      literal.customers = control.customers != 0;
      literal.fileMode = fileMode;
      literal.keep = keep;
      bool* switches[] = {&literal.pip, &literal.cst, &literal.vlv, &literal.sum, &literal.reg};
      for (int s : control.selectors) *switches[s - 1] = true;
      literal.copyTables();
      const int32_t expected = literal.run(startNode, stopNode, startPipe);

      for (const char* name : kTraceFiles) std::filesystem::remove(dir_.path(name));
      dir_.write("pntrace.ini", control.text());
      dir_.write("traceup.ini", control.listText());
      std::vector<int32_t> list(static_cast<size_t>(model.pipeCount) + 2, 0);
      const int32_t result = CalcSystemTrace(startNode, stopNode, startPipe, fileMode ? 0 : 1, list.data(), keep);
      crossed += result;
      ASSERT_EQ(result, expected) << "seed " << seed << " type " << type;
      for (int32_t p = 1; p <= model.pipeCount; p++) {
        ASSERT_EQ(model.pxy[p].Color, literal.pxy[static_cast<size_t>(p)].Color) << seed << " " << type << " " << p;
        ASSERT_EQ(model.pxy[p].TraceColor, literal.pxy[static_cast<size_t>(p)].TraceColor);
      }
      for (int32_t c = 1; c <= model.custCount; c++) {
        ASSERT_EQ(model.cxy[c].Color, literal.cxy[static_cast<size_t>(c)].Color) << seed << " " << type << " " << c;
        ASSERT_EQ(model.cxy[c].TraceColor, literal.cxy[static_cast<size_t>(c)].TraceColor);
      }
      for (int32_t n = 1; n <= model.nodeCount; n++) {
        ASSERT_STREQ(model.ndt[n].NODENAME, literal.ndt[static_cast<size_t>(n)].NODENAME);
      }
      for (const char* name : kTraceFiles) {
        ASSERT_EQ(dir_.exists(name), literal.files.count(name) == 1) << name << " seed " << seed << " type " << type;
        ASSERT_EQ(file(name), literal.files[name]) << name << " seed " << seed << " type " << type;
      }
      if (!fileMode) {
        const size_t fits = std::min(literal.list.size(), static_cast<size_t>(model.pipeCount) + 2);
        literal.list[0] = static_cast<int32_t>(fits) - 1;
        literal.list.resize(fits);
        list.resize(fits);
        ASSERT_EQ(list, literal.list) << "seed " << seed << " type " << type;
      }
    }
    FreeModel();
  }
  EXPECT_GT(crossed, 20000) << "the traces must reach far enough to mean something";
}

}  // namespace
}  // namespace pn10::test
