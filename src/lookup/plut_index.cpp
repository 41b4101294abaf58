/**
 * The sorted key index of the pipe sizes, which every pipe asks in every colour pass.
 *
 * A search takes one of four ranges of the sorted entries, chosen by three pivot keys, and answers the first
 * entry there. As the entries stand still after a load, each key's answer is worked out once and found by a
 * hash. When the host takes the address of the entries it may write into them: from then on each search goes
 * through its range, entry by entry.
 */
#include "lookup/plut_index.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "lookup/lookup.h"
#include "model/tables.h"

namespace pn10 {

namespace {

constexpr size_t kKeySize = 40;

/** First entry of a key in its range and how many follow there; entry 0 and no matches when there is none. */
struct Found {
  int32_t entry, matches;
};

struct Range {
  int32_t first, last;
};

struct PLutIndex {
  PLutIdx* entries; /* 1 to the count of the sizes, sorted by key */
  int32_t quarter[3];
  char pivot[3][42]; /* the keys that stood at the quarters when the file was read */
  Found* answers;    /* hash table of `mask` + 1 slots, at most a quarter full; null: not made, or no longer sure */
  uint32_t mask;
};
PLutIndex keyIndex;

bool sameKey(const char* a, const char* b) { return std::strncmp(a, b, kKeySize) == 0; }

Range rangeOf(const char* key) {
  for (int i = 0; i < 3; i++) {
    if (std::strcmp(key, keyIndex.pivot[i]) <= 0) return {i ? keyIndex.quarter[i - 1] : 1, keyIndex.quarter[i]};
  }
  return {keyIndex.quarter[2], lookups.plut.count};
}

Found scanRange(const char* key) {
  const Range range = rangeOf(key);
  Found found{};
  for (int32_t i = range.first; i <= range.last; i++) {
    if (!sameKey(key, keyIndex.entries[i].KEY_TEXT)) continue;
    if (!found.matches++) found.entry = i;
  }
  return found;
}

/** A key in words, padded with zeros: a copy byte by byte would be read back before its stores are through. */
struct Key {
  uint64_t word[kKeySize / 8];
};

static_assert(std::endian::native == std::endian::little, "the bytes behind a tail are shifted out");

Key keyOf(const char* text, size_t length) {
  Key key{};
  const size_t whole = length / 8, rest = length % 8;
  for (size_t i = 0; i < whole; i++) std::memcpy(&key.word[i], text + 8 * i, 8);
  if (rest && whole) {
    uint64_t tail;
    std::memcpy(&tail, text + length - 8, 8);
    key.word[whole] = tail >> (64 - 8 * rest);
  } else {
    std::memcpy(&key.word[whole], text + 8 * whole, rest);
  }
  return key;
}

/** Products side by side, so that none waits for another. */
uint64_t hashOf(const Key& key) {
  const uint64_t* w = key.word;
  const uint64_t hash = w[0] * 0x9e3779b97f4a7c15u + w[1] * 0xc2b2ae3d27d4eb4fu + w[2] * 0x165667b19e3779f9u +
                        w[3] * 0xd6e8feb86659fd93u + w[4] * 0xff51afd7ed558ccdu;
  return (hash ^ hash >> 32) * 0x9e3779b97f4a7c15u >> 32;
}

/** The slot of a key: its own or the empty one where it belongs. */
Found& slotOf(const Key& key) {
  for (uint32_t i = static_cast<uint32_t>(hashOf(key)) & keyIndex.mask;; i = (i + 1) & keyIndex.mask) {
    Found& slot = keyIndex.answers[i];
    if (!slot.matches || std::memcmp(keyIndex.entries[slot.entry].KEY_TEXT, key.word, kKeySize) == 0) return slot;
  }
}

/** Notes the answer of the key that entries `first` to `last` share. */
void noteAnswer(int32_t first, int32_t last) {
  const char* text = keyIndex.entries[first].KEY_TEXT;
  const Key key = keyOf(text, strnlen(text, kKeySize));
  const Range range = rangeOf(keyIndex.entries[first].KEY_TEXT);
  first = std::max(first, range.first);
  last = std::min(last, range.last);
  if (first <= last) slotOf(key) = {first, last - first + 1};
}

/** Without memory for them every search goes through its range. */
void makeAnswers() {
  const int32_t count = lookups.plut.count;
  if (count > 1 << 28) return;
  uint32_t slots = 4;
  while (slots < 4 * static_cast<uint32_t>(count)) slots *= 2;
  keyIndex.answers = newTable<Found>(static_cast<int32_t>(slots - 1));
  if (!keyIndex.answers) return;
  keyIndex.mask = slots - 1;
  for (int32_t first = 1, next; first <= count; first = next) {
    next = first + 1;
    while (next <= count && sameKey(keyIndex.entries[first].KEY_TEXT, keyIndex.entries[next].KEY_TEXT)) next++;
    noteAnswer(first, next - 1);
  }
}

Found find(const char* key) {
  const size_t length = strnlen(key, kKeySize + 1);
  if (length > kKeySize || !keyIndex.answers) return scanRange(key);
  return slotOf(keyOf(key, length));
}

}  // namespace

bool makePLutIndex(int32_t n) {
  releasePLutIndex();
  keyIndex.entries = newTable<PLutIdx>(n);
  return keyIndex.entries != nullptr;
}

/**
 * The order of equal keys is that of an exchange sort which also swaps equal keys: for each i, with each later
 * j, swap unless entry i is below entry j. One pass brings the last of the smallest keys to the front and moves
 * other entries only past greater ones, so equal keys keep their order until their turn comes and then leave
 * from the last to the first: descending row numbers. Hence the entries go in backwards and the sort is stable.
 */
void sortPLutIndex(int32_t n) {
  PLutIdx* entries = keyIndex.entries;
  for (int32_t i = 1; i < n; i++) {
    const int32_t row = n - i;
    std::memcpy(entries[i].KEY_TEXT, lookups.plut.rows[row].KEY_TEXT,
                strnlen(lookups.plut.rows[row].KEY_TEXT, kKeySize));
    entries[i].ROW = static_cast<int16_t>(row);
  }
  std::stable_sort(entries + 1, entries + n, [](const PLutIdx& a, const PLutIdx& b) {
    return std::strncmp(a.KEY_TEXT, b.KEY_TEXT, kKeySize) < 0;
  });
  for (int q = 0; q < 3; q++) {
    keyIndex.quarter[q] = static_cast<int32_t>(int64_t{n} * (q + 1) / 4);
    copyText(keyIndex.pivot[q], entries[keyIndex.quarter[q]].KEY_TEXT);
  }
  lookups.plut.count = n - 1;
  makeAnswers();
}

void releasePLutIndex() {
  releaseTable(keyIndex.entries);
  releaseTable(keyIndex.answers);
  keyIndex = {};
}

}  // namespace pn10

using namespace pn10;

int32_t FindPLutRno(const char* key, int16_t countMatches) {
  if (!key || lookups.plut.count <= 0 || !keyIndex.entries) return 0;
  const Found found = find(key);
  return countMatches ? found.matches : found.entry ? keyIndex.entries[found.entry].ROW : 0;
}

intptr_t GetPPTypeAddress(void) {
  releaseTable(keyIndex.answers);
  return reinterpret_cast<intptr_t>(keyIndex.entries);
}
