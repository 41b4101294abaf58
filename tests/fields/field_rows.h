/** What the tests of numbered fields share: small tables, and one check for every plain row. */
#ifndef PN10_TESTS_FIELD_ROWS_H
#define PN10_TESTS_FIELD_ROWS_H

#include <algorithm>
#include <set>
#include <utility>

#include "model/tables.h"
#include "support/model_builder.h"

namespace pn10::test {

inline void connect(int32_t pipe, int32_t from, int32_t to) {
  model.pdt[pipe].FROM_NODE = from;
  model.pdt[pipe].TO_NODE = to;
}

enum class Kind { Float, Double, Int32, Int16, Byte, LowByte };

/** What goes in by the setter, and what must stand in the member and come out of the getter. */
inline std::vector<std::pair<double, double>> samples(Kind kind) {
  switch (kind) {
    case Kind::Float:
      return {{3.75, 3.75}, {-0.1, static_cast<double>(-0.1f)}, {1e10, 1e10}, {0, 0}};
    case Kind::Double:
      return {{3.75, 3.75}, {-0.1, -0.1}, {1e300, 1e300}, {0, 0}};
    case Kind::Int32:
      return {{7.9, 7}, {-3.9, -3}, {-1, -1}, {2000000000.5, 2000000000}, {0.999, 0}};
    case Kind::Int16:
      return {{7.9, 7}, {-3.9, -3}, {-1, -1}, {32767, 32767}, {-32768, -32768}, {256, 256}, {0, 0}};
    default:
      /* the last three: 2^32 + 5, -2^32 - 3, and a multiple of 256 */
      return {{7.9, 7},          {255.9, 255},         {256, 0},    {257, 1},
              {-1, 255},         {-1.9, 255},          {300.7, 44}, {0.999, 0},
              {4294967301.7, 5}, {-4294967299.2, 253}, {1e300, 0}};
  }
}

/** A number of a record: its field, its type, and the member as the test itself writes it. */
template <class Record>
struct NumberRow {
  int16_t field;
  Kind kind;
  void (*put)(Record&, double);
};

/** Stores and reads every sample of a row, and sees that nothing else in the record changes. */
template <class Record, class Get, class Set>
void checkNumber(const NumberRow<Record>& row, Record* record, Get get, Set set) {
  for (const auto& [in, out] : samples(row.kind)) {
    Record expected;
    std::memcpy(&expected, record, sizeof expected);
    row.put(expected, out);
    set(1, row.field, "no text", in);
    EXPECT_EQ(std::memcmp(&expected, record, sizeof expected), 0) << row.field << " set to " << in;
    char text[8] = "kept";
    EXPECT_EQ(get(1, text, row.field), out) << row.field;
    EXPECT_STREQ(text, "kept") << row.field;
  }
  EXPECT_EQ(messages(), "") << row.field;
}

struct TextRow {
  int16_t field;
  size_t width; /* with the terminator */
  size_t offset;
};

/** Stores and reads a text; one longer than the member is cut. */
template <class Record, class Get, class Set>
void checkText(const TextRow& row, Record* record, Get get, Set set) {
  const std::string full(row.width - 1, 'x');
  for (const std::string& text : {std::string("Name 1"), full, full + "yz", std::string()}) {
    Record expected;
    std::memcpy(&expected, record, sizeof expected);
    const std::string kept = text.substr(0, row.width - 1);
    std::memcpy(reinterpret_cast<char*>(&expected) + row.offset, kept.c_str(), kept.size() + 1);
    set(1, row.field, text.c_str(), 99.0);
    EXPECT_EQ(std::memcmp(&expected, record, sizeof expected), 0) << row.field << " set to " << text;
    std::string read(60, '#');
    EXPECT_EQ(get(1, read.data(), row.field), 1.0) << row.field;
    EXPECT_STREQ(read.c_str(), kept.c_str()) << row.field;
  }
  EXPECT_EQ(get(1, nullptr, row.field), 1.0) << row.field;
  set(1, row.field, nullptr, 0.0);
  char read[60];
  get(1, read, row.field);
  EXPECT_STREQ(read, "") << row.field;
  EXPECT_EQ(messages(), "") << row.field;
}

/** Reading or writing the numbers of -40 to 1000 outside `known` shows "<name> <number>" and nothing else. */
template <class Call>
void checkUnknown(const std::set<int>& known, const std::string& name, Call call) {
  for (int field = -40; field <= 1000; field++) {
    if (known.count(field)) continue;
    call(static_cast<int16_t>(field));
    EXPECT_EQ(messages(), name + " " + std::to_string(field) + "\n");
  }
  for (int field : {-32768, 32767}) {
    call(static_cast<int16_t>(field));
    EXPECT_EQ(messages(), name + " " + std::to_string(field) + "\n");
  }
}

}  // namespace pn10::test

#endif
