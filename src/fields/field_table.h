/**
 * Numbered fields as rows: one table per record says for each number where the member stands, how it is read and
 * how it is stored. Getter and setter share the row; both are deduced from the type of the member, so that a row
 * cannot disagree with the record. Fields that compute or act name their function in the row.
 */
#ifndef PN10_FIELDS_FIELD_TABLE_H
#define PN10_FIELDS_FIELD_TABLE_H

#include <cstring>
#include <type_traits>

#include "fields/records.h"
#include "model/convert.h"

namespace pn10 {

/** What an offset counts from: the record, its screen record, or the process-wide tables (no record needed). */
enum class At : uint8_t { Item, Screen, Model };

using ReadField = double (*)(const void* member, int32_t rno, char* text);
using StoreField = void (*)(void* member, int32_t rno, const char* text, double value);

/** A row; a number without one has neither function and so is unknown. */
struct Field {
  int16_t number = 0;
  uint16_t offset = 0;
  At at = At::Item;
  bool stamps = true; /* a store renews REC_DATE */
  ReadField read = nullptr;
  StoreField store = nullptr;
};

/** Plain members. */
template <class T>
double readMember(const void* member, int32_t, char* text) {
  if constexpr (std::is_array_v<T>) {
    if (text) copyText(text, sizeof(T), static_cast<const char*>(member));
    return 1.0;
  } else {
    return static_cast<double>(*static_cast<const T*>(member));
  }
}

template <class T>
void storeMember(void* member, int32_t, const char* text, double value) {
  if constexpr (std::is_array_v<T>) {
    copyText(static_cast<char*>(member), sizeof(T), text);
  } else if constexpr (std::is_same_v<T, double>) {
    *static_cast<double*>(member) = value;
  } else if constexpr (std::is_same_v<T, float>) {
    *static_cast<float*>(member) = toFloat(value);
  } else if constexpr (std::is_same_v<T, int32_t>) {
    *static_cast<int32_t*>(member) = toInt32(value);
  } else if constexpr (std::is_same_v<T, int16_t>) {
    *static_cast<int16_t*>(member) = toInt16(value);
  } else {
    static_assert(std::is_same_v<T, uint8_t>);
    *static_cast<uint8_t*>(member) = toByte(value);
  }
}

/** A 16-bit member that is stored as a byte is: the low eight bits, zero-extended. */
inline void storeLowByte(void* member, int32_t, const char*, double value) {
  *static_cast<int16_t*>(member) = toByte(value);
}

/** A date reads as YYYY-MM-DD, whatever its eight bytes are. */
double readDate(const void* member, int32_t rno, char* text);
/** kept: exactly nine bytes, as strncpy copies them; a longer text leaves no terminator. */
void storeDate(void* member, int32_t rno, const char* text, double value);

/** Lifts a function that computes or acts to a row: from its record, its record number, or nothing. */
template <class R>
double callRead(double (*f)(const R&), const void* item, int32_t, char*) {
  return f(*static_cast<const R*>(item));
}
inline double callRead(double (*f)(int32_t), const void*, int32_t rno, char*) { return f(rno); }
inline double callRead(double (*f)(int32_t, char*), const void*, int32_t rno, char* text) { return f(rno, text); }
inline double callRead(double (*f)(), const void*, int32_t, char*) { return f(); }

template <auto F>
double readBy(const void* item, int32_t rno, char* text) {
  return callRead(F, item, rno, text);
}

template <class R>
void callStore(void (*f)(R&), void* item, int32_t, double) {
  f(*static_cast<R*>(item));
}
inline void callStore(void (*f)(int32_t, double), void*, int32_t rno, double value) { f(rno, value); }

template <auto F>
void storeBy(void* item, int32_t rno, const char*, double value) {
  callStore(F, item, rno, value);
}

/** The kinds of rows. */
template <class T>
constexpr Field plain(int16_t number, At at, size_t offset) {
  return {number, static_cast<uint16_t>(offset), at, at != At::Model, readMember<T>, storeMember<T>};
}
constexpr Field readOnly(Field f) {
  f.store = nullptr;
  return f;
}
constexpr Field writeOnly(Field f) {
  f.read = nullptr;
  return f;
}
constexpr Field lowByte(Field f) {
  f.store = storeLowByte;
  return f;
}
constexpr Field date(Field f) {
  f.read = readDate;
  f.store = storeDate;
  f.stamps = false;
  return f;
}
/** A member that is stored or read by a function of the record number instead. */
template <auto F>
constexpr Field readWith(Field f) {
  f.read = readBy<F>;
  return f;
}
template <auto F>
constexpr Field storeWith(Field f) {
  f.store = storeBy<F>;
  return f;
}
template <auto F>
constexpr Field computed(int16_t number, At at = At::Item) {
  return {number, 0, at, true, readBy<F>, nullptr};
}
template <auto F>
constexpr Field action(int16_t number) {
  return {number, 0, At::Item, true, nullptr, storeBy<F>};
}

template <size_t N>
consteval bool ascending(const Field (&rows)[N]) {
  for (size_t i = 1; i < N; i++)
    if (rows[i - 1].number >= rows[i].number) return false;
  return true;
}

/** The rows spread over their numbers; the empty row behind the last one answers every number outside. */
template <int16_t First, int16_t Last>
struct FieldIndex {
  Field rows[Last - First + 2];

  const Field& operator[](int16_t number) const {
    constexpr uint32_t kOutside = Last - First + 1;
    const auto i = static_cast<uint32_t>(number - First);
    return rows[i < kOutside ? i : kOutside];
  }
};

template <int16_t First, int16_t Last, size_t N>
consteval FieldIndex<First, Last> indexOf(const Field (&rows)[N]) {
  FieldIndex<First, Last> index{};
  for (const Field& row : rows) index.rows[row.number - First] = row;
  return index;
}

/** The table and the screen table of one record type, as they stand at this moment. */
template <class Item, class Screen>
struct Records {
  Item* items;
  int32_t itemSlots;
  Screen* screens;
  int32_t screenSlots;

  /** Where the member stands, or null when there is no such slot. */
  void* member(const Field& f, int32_t rno) const {
    char* base = reinterpret_cast<char*>(&model);
    if (f.at == At::Item) base = rno < itemSlots ? reinterpret_cast<char*>(items + rno) : nullptr;
    if (f.at == At::Screen) base = rno < screenSlots ? reinterpret_cast<char*>(screens + rno) : nullptr;
    return base ? base + f.offset : nullptr;
  }

  /** -1.0 for a record that is not there; record 0 reads zeros also without a table. */
  double read(const Field& f, int32_t rno, char* text) const {
    const void* at = member(f, rno);
    if (!at) {
      if (rno != 0) return -1.0;
      at = (f.at == At::Item ? reinterpret_cast<const char*>(&kZeroRecord<Item>)
                             : reinterpret_cast<const char*>(&kZeroRecord<Screen>)) +
           f.offset;
    }
    return f.read(at, rno, text);
  }

  /** Stores where the record exists, then stamps the date of a record in use; both also after an unknown number. */
  void store(const Field& f, int32_t rno, const char* text, double value) const {
    if (f.store) {
      if (void* at = member(f, rno)) f.store(at, rno, text, value);
    }
    if (f.stamps && rno < itemSlots && items[rno].REC_STATUS > 0) stampDate(items[rno].REC_DATE);
  }
};

}  // namespace pn10

#endif
