/**
 * References of nodes: a key (the node name), a long and a short text, kept in a table by row and in <base>.rdx.
 *
 * The file is read as one stream of texts: a line feed in one of them shifts all that follows.
 */
#include <cstring>

#include "fields/text.h"
#include "model/rdx_index.h"
#include "model/record_file.h"
#include "model/tables.h"

using namespace pn10;

namespace {

bool hasRdxRow(int32_t row) { return model.rdx && row > 0 && row < model.rdxRows; }

/** Makes room for `row`, half as much again for those to come; false when there is no memory. */
bool growRdx(int32_t row) {
  const int64_t old = model.rdx ? model.rdxRows : 0;
  const int64_t top = std::min<int64_t>(std::max<int64_t>(row, old + old / 2), INT32_MAX - 1);
  Rdx* grown = row <= top ? newTable<Rdx>(static_cast<int32_t>(top)) : nullptr;
  if (!grown) return false;
  if (old) std::memcpy(grown, model.rdx, static_cast<size_t>(old) * sizeof(Rdx));
  releaseTable(model.rdx);
  model.rdx = grown;
  model.rdxRows = static_cast<int32_t>(top) + 1;
  return true;
}

/** A key without the white space at its end. */
struct Key {
  const char* text;
  size_t length;
};

Key keyOf(const char* text, size_t length) { return {text, trimmedLength(text, length)}; }
Key keyOf(const char* text) { return keyOf(text, std::strlen(text)); }
Key keyOf(const Rdx& row) { return keyOf(row.KEY_TEXT, strnlen(row.KEY_TEXT, sizeof row.KEY_TEXT - 1)); }

bool operator==(Key a, Key b) { return a.length == b.length && std::memcmp(a.text, b.text, a.length) == 0; }

uint32_t hashOf(Key key) {
  uint32_t hash = 2166136261u;
  for (size_t i = 0; i < key.length; i++) hash = (hash ^ static_cast<uint8_t>(key.text[i])) * 16777619u;
  return hash;
}

void trimKey(Rdx& row) { row.KEY_TEXT[keyOf(row).length] = 0; }

}  // namespace

int32_t ReadRdx(int32_t count, const char* base) {
  /* kept: the table of the node load is replaced, not released; its address may be in the host's hands */
  model.rdx = newTable<Rdx>(count);
  model.rdxRows = model.rdx ? count + 1 : 0;
  if (!model.rdx) return -1;
  if (count == 0) return 0;
  File file(ModelPath(base, kRdxFormat.extension).get(), "rb");
  if (!file) return 0;
  std::setvbuf(file.get(), nullptr, _IOFBF, size_t{1} << 16);
  for (int32_t row = 1; row <= count; row++) {
    Rdx& r = model.rdx[row];
    if (!std::fgets(r.KEY_TEXT, sizeof r.KEY_TEXT, file.get())) break;
    if (!std::fgets(r.LONG_TEXT, sizeof r.LONG_TEXT, file.get())) break;
    if (!std::fgets(r.SHORT_TEXT, sizeof r.SHORT_TEXT, file.get())) break;
  }
  return 0;
}

void PutRdx(int32_t row, const char* key, const char* longText, const char* shortText) {
  Rdx r = {}; /* the texts may lie in the table that is about to grow */
  copyText(r.KEY_TEXT, key);
  copyText(r.LONG_TEXT, longText);
  copyText(r.SHORT_TEXT, shortText);
  if (row > 0 && (hasRdxRow(row) || growRdx(row))) model.rdx[row] = r;
}

int32_t FindRdx(int32_t count, const char* key, char* longOut, char* shortOut) {
  if (!key) return 0;
  const Key wanted = keyOf(key);
  for (int32_t row = 1; row <= count && hasRdxRow(row); row++) {
    Rdx& r = model.rdx[row];
    trimKey(r);
    if (!(keyOf(r) == wanted)) continue;
    if (longOut) copyText(longOut, sizeof r.LONG_TEXT, r.LONG_TEXT);
    if (shortOut) copyText(shortOut, sizeof r.SHORT_TEXT, r.SHORT_TEXT);
    return row;
  }
  return 0;
}

intptr_t GetRdxAddress(void) { return reinterpret_cast<intptr_t>(model.rdx); }

namespace pn10 {

bool RdxIndex::build() {
  count_ = model.rdx ? std::min(count_, model.rdxRows - 1) : 0;
  if (count_ > 0 && !rows_.allocate(count_)) return false;
  for (int32_t row = count_; row > 0; row--) {
    const Key key = keyOf(model.rdx[row]);
    rows_.enter(row, hashOf(key), [key](int32_t other) { return keyOf(model.rdx[other]) == key; });
  }
  return true;
}

int32_t RdxIndex::find(const char* key) {
  if (!built_) usable_ = build();
  built_ = true;
  if (!usable_) return FindRdx(count_, key, nullptr, nullptr);
  const Key wanted = keyOf(key);
  const int32_t found = rows_.first(hashOf(wanted), [wanted](int32_t row) { return keyOf(model.rdx[row]) == wanted; });
  const int32_t looked = found ? found : count_;
  while (trimmed_ < looked) trimKey(model.rdx[++trimmed_]);
  return found;
}

int32_t WriteRdxRecord(FILE* rdxFile, int32_t row) {
  if (!rdxFile || !hasRdxRow(row)) return 0;
  uint8_t bytes[kRdxFormat.bytes];
  encodeRecord<kRdxFormat>(&model.rdx[row], bytes);
  std::fwrite(bytes, 1, sizeof bytes, rdxFile);
  return row;
}

}  // namespace pn10
