// The sorted index of the pipe sizes, against a literal exchange sort and a literal scan of the stated range.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "lookup/lookup.h"
#include "lookup/packed.h"

namespace pn10::test {
namespace {

class PipeSizes : public testing::Test {
 protected:
  Fresh fresh;
  LutFiles files;
  int32_t load(const std::vector<std::string>& keys) {
    std::vector<Packed> rows;
    for (const std::string& key : keys) rows.push_back(pipeSize(key));
    return files.plut(rows);
  }
};

/** The index as it is described: exchange sort that swaps equal keys, quarters, pivots, scans. */
struct LiteralIndex {
  struct Entry {
    std::string key;
    int row;
  };
  std::vector<Entry> entries;
  std::vector<int> quarters;
  std::string pivots[3];
  int count;

  explicit LiteralIndex(const std::vector<std::string>& keys) : entries(keys.size() + 2), count(int(keys.size())) {
    const int n = count + 1;
    for (int i = 1; i < n; i++) entries[size_t(i)] = {keys[size_t(i - 1)], i};
    for (size_t i = 1; i + 1 < size_t(n); i++) {
      for (size_t j = i + 1; j < size_t(n); j++) {
        if (!(entries[i].key < entries[j].key)) std::swap(entries[i], entries[j]);
      }
    }
    quarters = {n / 4, n / 2, 3 * n / 4};
    for (size_t q = 0; q < 3; q++) pivots[q] = entries[size_t(quarters[q])].key;
  }
  std::pair<int, int> find(const std::string& key) const {
    if (count == 0) return {0, 0};
    int first = quarters[2], last = count;
    if (key <= pivots[0]) {
      first = 1, last = quarters[0];
    } else if (key <= pivots[1]) {
      first = quarters[0], last = quarters[1];
    } else if (key <= pivots[2]) {
      first = quarters[1], last = quarters[2];
    }
    int row = 0, matches = 0;
    for (int i = first; i <= last; i++) {
      if (entries[size_t(i)].key.substr(0, 40) != key.substr(0, 40)) continue;
      if (matches++ == 0) row = entries[size_t(i)].row;
    }
    return {row, matches};
  }
};

std::vector<std::string> randomKeys(std::mt19937& random, int count, int letters) {
  std::vector<std::string> keys;
  for (int i = 0; i < count; i++) {
    std::string key = random() % 8 == 0 ? std::string(37, 'p') : "";
    for (auto n = random() % 3 + (random() % 20 != 0); n > 0; n--) {
      key += static_cast<char>((random() % 5 == 0 ? 0xe0u : 'a') + random() % static_cast<unsigned long>(letters));
    }
    keys.push_back(key);
  }
  return keys;
}

TEST_F(PipeSizes, order_and_searches_equal_the_literal_ones_for_random_tables) {
  std::mt19937 random(20);
  for (int round = 0; round < 300; round++) {
    const auto keys = randomKeys(random, round % 40, 1 + round % 6);
    ASSERT_EQ(load(keys), int32_t(keys.size()));
    const LiteralIndex literal(keys);
    auto wanted = keys;
    for (const std::string& key : randomKeys(random, 30, 6)) wanted.push_back(key);
    for (const std::string& key : keys) wanted.push_back(key + "x");
    for (bool shared : {false, true}) {
      if (shared) {
        const auto* entries = reinterpret_cast<const PLutIdx*>(GetPPTypeAddress());
        for (size_t i = 1; i <= keys.size(); i++) {
          ASSERT_EQ(std::string(entries[i].KEY_TEXT), literal.entries[i].key) << "round " << round;
          ASSERT_EQ(entries[i].ROW, literal.entries[i].row) << "round " << round << " entry " << i;
        }
      }
      for (const std::string& key : wanted) {
        const auto [row, matches] = literal.find(key);
        ASSERT_EQ(FindPLutRno(key.c_str(), 0), row) << "round " << round << " " << key;
        ASSERT_EQ(FindPLutRno(key.c_str(), 1), matches) << "round " << round << " " << key;
      }
    }
  }
}

TEST_F(PipeSizes, equal_keys_stand_from_the_last_row_to_the_first) {
  load({"B", "A", "B", "B"});
  EXPECT_EQ(FindPLutRno("A", 0), 2);
  const auto* entries = reinterpret_cast<const PLutIdx*>(GetPPTypeAddress());
  EXPECT_EQ(entries[2].ROW, 4);
  EXPECT_EQ(entries[3].ROW, 3);
  EXPECT_EQ(entries[4].ROW, 1);
}

TEST_F(PipeSizes, matches_count_in_the_chosen_range_only) {
  // n = 9: quarters 2, 4, 6; the eight equal keys are not above pivot 1, so entries 1 and 2 are scanned
  load({"K", "K", "K", "K", "K", "K", "K", "K"});
  EXPECT_EQ(FindPLutRno("K", 1), 2);
  EXPECT_EQ(FindPLutRno("K", 0), 8);
}

TEST_F(PipeSizes, a_header_alone_has_no_key) {
  EXPECT_EQ(load({}), 0);
  EXPECT_EQ(FindPLutRno("X", 1), 0);
  EXPECT_EQ(FindPLutRno("", 0), 0);
  EXPECT_NE(GetPPTypeAddress(), 0);
}

TEST_F(PipeSizes, nothing_loaded_finds_nothing) {
  EXPECT_EQ(FindPLutRno("X", 0), 0);
  EXPECT_EQ(FindPLutRno("X", 1), 0);
  EXPECT_EQ(FindPLutRno(nullptr, 0), 0);
  InitPLut();
  EXPECT_EQ(FindPLutRno("X", 0), 0);
}

TEST_F(PipeSizes, forty_characters_decide_a_match_but_all_decide_the_range) {
  const std::string key(40, 'k');
  load({key});
  EXPECT_EQ(FindPLutRno(key.c_str(), 0), 1);
  EXPECT_EQ(FindPLutRno((key + "longer").c_str(), 0), 1) << "behind the pivots the last range is entry 1 again";
  EXPECT_EQ(FindPLutRno(std::string(39, 'k').c_str(), 0), 0);
}

TEST_F(PipeSizes, what_the_host_writes_into_the_index_counts) {
  load({"A", "B", "C", "D"});
  auto* entries = reinterpret_cast<PLutIdx*>(GetPPTypeAddress());
  std::strcpy(entries[2].KEY_TEXT, "AA");
  entries[2].ROW = 77;
  EXPECT_EQ(FindPLutRno("B", 0), 0);
  EXPECT_EQ(FindPLutRno("AA", 0), 77);
}

TEST_F(PipeSizes, a_later_file_takes_the_place_of_the_earlier) {
  load({"A", "B"});
  GetPPTypeAddress();
  load({"C"});
  EXPECT_EQ(FindPLutRno("A", 0), 0);
  EXPECT_EQ(FindPLutRno("C", 0), 1);
  EXPECT_EQ(ReadPLut(files.dir.path("missing").c_str()), -1);
  EXPECT_EQ(FindPLutRno("C", 0), 0) << "a failed load leaves an empty lookup";
}

TEST_F(PipeSizes, the_model_takes_the_pipe_sizes_with_it) {
  load({"A"});
  FreeModel();
  EXPECT_EQ(lookups.plut.count, 0);
  EXPECT_EQ(GetPLutAddress(), 0);
}

}  // namespace
}  // namespace pn10::test
