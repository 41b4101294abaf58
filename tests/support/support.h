/** What the tests share: fresh models, files packed byte by byte, messages, operation logs and golden files. */
#ifndef PN10_TESTS_SUPPORT_H
#define PN10_TESTS_SUPPORT_H

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "exports/pn10gdi.h"
#include "exports/pn10platform.h"

namespace pn10::test {

/** Little-endian bytes, written value by value: the tests' own packer, independent of the library's writers. */
class Bytes {
 public:
  Bytes& i8(int v) { return raw(static_cast<uint8_t>(v), 1); }
  Bytes& i16(int v) { return raw(static_cast<uint16_t>(v), 2); }
  Bytes& i32(int64_t v) { return raw(static_cast<uint32_t>(v), 4); }
  Bytes& f32(float v) {
    uint32_t bits;
    std::memcpy(&bits, &v, 4);
    return raw(bits, 4);
  }
  Bytes& f64(double v) {
    uint64_t bits;
    std::memcpy(&bits, &v, 8);
    return raw(bits, 8);
  }
  /** Exactly `width` bytes, filled up with NUL. */
  Bytes& text(std::string_view t, size_t width) {
    std::string field(t.substr(0, width));
    field.resize(width, '\0');
    data_ += field;
    return *this;
  }
  Bytes& padTo(size_t size) {
    data_.resize(size, '\0');
    return *this;
  }
  Bytes& add(std::string_view more) {
    data_ += more;
    return *this;
  }
  size_t size() const { return data_.size(); }
  const std::string& str() const { return data_; }

 private:
  Bytes& raw(uint64_t v, int width) {
    for (int i = 0; i < width; i++) data_ += static_cast<char>(v >> (8 * i));
    return *this;
  }
  std::string data_;
};

/** A folder of its own, removed at the end; base() is a model base path in it. */
class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  std::string path(std::string_view name) const { return dir_ + "/" + std::string(name); }
  std::string base() const { return path("model"); }
  void write(std::string_view name, std::string_view bytes) const;
  /** A file that is one hole; false where the file system takes none of this size. */
  bool writeHole(std::string_view name, uint64_t bytes) const;
  std::string read(std::string_view name) const;
  bool exists(std::string_view name) const;

 private:
  std::string dir_;
};

/** Every free call of the library, as a host that ends makes them. */
void freeAll();

/** Puts the whole process-wide state back to what it is at library load, and catches message boxes. */
class Fresh {
 public:
  Fresh();
  ~Fresh();
};

/** Texts of the message boxes since the last call, each with a line feed. */
std::string messages();

/** The operation log of what `f` does. */
template <class F>
std::string recorded(F&& f) {
  PnRecord(1);
  f();
  PnRecord(0);
  std::string log(static_cast<size_t>(PnGetRecord(nullptr, 0)) + 1, '\0');
  PnGetRecord(log.data(), static_cast<int32_t>(log.size()));
  log.pop_back();
  return log;
}

/** The lines of a log whose operation is one of `names`, e.g. only(log, {"LineTo", "MoveToEx"}). */
std::string only(const std::string& log, std::initializer_list<std::string_view> names);

/** How often `what` stands in a log. */
int timesIn(const std::string& log, std::string_view what);

/**
 * Compares with tests/golden/<name>; lines that begin with # are comments there and kept by a blessing.
 * With --bless on the command line the file is written anew instead; read the diff before it is committed.
 */
void expectGolden(const std::string& name, const std::string& actual, const char* file, int line);
#define EXPECT_GOLDEN(name, actual) ::pn10::test::expectGolden(name, actual, __FILE__, __LINE__)

/** A file of the shared data set beside the checkout; empty when the set is absent (then skip, saying so). */
std::string sharedFile(const std::string& relative);

/** A text of a file, empty when it can't be read. */
std::string readFile(const std::string& path);

}  // namespace pn10::test

#endif
