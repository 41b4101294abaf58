/** What the label texts of nodes, pipes and customers share: one bounded line, and the rows that describe a field. */
#ifndef PN10_DRAW_LABEL_TEXT_H
#define PN10_DRAW_LABEL_TEXT_H

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "fields/number_format.h"
#include "fields/number_text.h"
#include "fields/text.h"
#include "model/convert.h"

namespace pn10 {

/** Bytes of a label line with its terminator; what does not fit is cut. */
constexpr size_t kLabelSize = 256;

/** Entries of the digit table that labels take their decimals from. */
enum Quantity : int8_t {
  kDiameter = 0,
  kLength = 2,
  kVelocity = 3,
  kEfficiency = 3,
  kFlow = 4,
  kPressureDrop = 5,
  kPressure = 7,
  kLoad = 8,
  kElevation = 9,
  kTemperature = 10,
  kCoordinate = 15,
  kCustLoad = 25,
  kHeatingValue = 26,
  kViscosity = 27,
  kHeatRatio = 28,
  kGravity = 29,
  kInteger = -1, /* "%i" */
  kWhole = -2    /* "%0.f" */
};

/** Appends to the caller's line of kLabelSize bytes, empty at start. */
class LabelText {
 public:
  explicit LabelText(char* text) : text_(text) { text_[0] = 0; }
  void put(const char* more) { put(more, std::strlen(more)); }
  void put(const char* more, size_t count) {
    const size_t room = kLabelSize - 1 - length_;
    if (count > room) count = room;
    std::memcpy(text_ + length_, more, count);
    length_ += count;
    text_[length_] = 0;
  }
  /** A field of N bytes without the white space at its end. */
  template <size_t N>
  void trimmed(const char (&field)[N]) {
    size_t count = strnlen(field, N);
    while (count > 0 && isSpace(field[count - 1])) count--;
    put(field, count);
  }
  /** With the decimals that the digit table gives to this quantity. */
  void number(double value, Quantity quantity) {
    char* end = text_ + length_;
    const size_t room = kLabelSize - length_;
    if (quantity >= 0) {
      length_ += printDigits(end, room, quantity, value);
    } else {
      length_ += quantity == kInteger ? printInt(end, room, toInt32(value)) : printFixed(end, room, value, 0);
    }
  }
  bool empty() const { return length_ == 0; }

 private:
  char* text_;
  size_t length_ = 0;
};

/**
 * One label field of a record kind: prefix, value, mark and unit text, printed in this order. A line that is no
 * single number has a `write` in place of prefix and value; it answers false when the record has no such line.
 */
template <class Record>
struct LabelField {
  int16_t field = 0;
  const char* prefix = "";
  Quantity quantity = kInteger;
  double (*value)(const Record&) = nullptr;
  const char* (*unit)(const Record&) = nullptr;
  const char* (*mark)(const Record&) = nullptr;
  bool (*when)(const Record&) = nullptr; /* the records that have this line; null: all */
  bool (*write)(LabelText&, const Record&, bool prefix) = nullptr;
};

/** The value of a record's member, widened. */
template <auto member, class Record>
double memberValue(const Record& r) {
  return r.*member;
}

/** Prints one field of a record; 1 when the line holds text. An unknown field gives an empty line and 0. */
template <class Record, size_t N>
int32_t printLabelField(const LabelField<Record> (&fields)[N], const Record& record, int16_t field, LabelText& line,
                        bool prefix, bool units) {
  const LabelField<Record>* f = fields;
  while (f != fields + N && f->field != field) f++;
  if (f == fields + N || (f->when && !f->when(record))) return 0;
  if (f->write) {
    if (!f->write(line, record, prefix)) return 0;
  } else {
    if (prefix) line.put(f->prefix);
    line.number(f->value(record), f->quantity);
  }
  if (f->mark) line.put(f->mark(record));
  if (units && f->unit) {
    line.put(" ");
    line.put(f->unit(record));
  }
  return line.empty() ? 0 : 1;
}

}  // namespace pn10

#endif
