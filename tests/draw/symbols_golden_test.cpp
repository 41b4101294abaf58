/** Every symbol of both drawers against the operations that expected_ops.py works out. */
#include "draw/picture.h"
#include "draw/symbols.h"

using namespace pn10;
using namespace pn10::test;

namespace {

constexpr double kX = 50.0312, kY = 60.0717;
constexpr struct { float size, bearing; } kSizes[] = {{19.37f, 0}, {19.37f, 0.7f}, {0.4131f, 2.2f}, {0.2131f, 0}};

class Symbols : public testing::TestWithParam<int> {};

TEST_P(Symbols, paint_the_stated_operations) {
  const int16_t number = static_cast<int16_t>(GetParam());
  std::string log;
  {
    Picture p;
    log += recorded([&] {
      for (auto& s : kSizes) DrawSymbol(number, s.size, s.bearing, kX, kY);
      for (auto& s : kSizes) DrawMark(number, s.size, 0, s.bearing, 0, kX, kY);
      for (auto& s : kSizes) DrawMark(static_cast<int16_t>(-number), s.size, 0, s.bearing, 0, kX, kY);
    });
  }
  Picture iso(0, 1);
  log += recorded([&] {
    for (int i = 0; i < 2; i++) DrawMark(number, kSizes[i].size, 3.3f, kSizes[i].bearing, 0, kX, kY);
  });
  EXPECT_GOLDEN("draw/symbol_" + std::to_string(number) + ".ops", log);
}

INSTANTIATE_TEST_SUITE_P(Catalogue, Symbols,
                         testing::Values(2, 3, 4, 5, 6, 7, 10, 11, 12, 13, 14, 15, 16, 101, 102, 103, 104, 105, 106,
                                         107, 108, 109, 110, 111),
                         [](const auto& info) { return std::to_string(info.param); });

TEST(DrawMark, a_size_on_the_ground_turns_into_degrees_in_the_geographic_view) {
  Picture p(1);
  EXPECT_GOLDEN("draw/symbol_ground.ops", recorded([] { DrawMark(3, 9876543, 250, 0.3f, 1, kX, kY); }));
}

TEST(DrawMark, a_size_on_the_ground_stays_in_every_other_view) {
  Picture p;
  const std::string plain = recorded([] { DrawMark(3, 5, 250, 0, 0, kX, kY); });
  EXPECT_EQ(recorded([] { DrawMark(3, 5, 250, 0, 1, kX, kY); }), plain);
}

}  // namespace
