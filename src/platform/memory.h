/** Buffers of one call: malloc memory that answers failure instead of throwing, freed on every way out. */
#ifndef PN10_PLATFORM_MEMORY_H
#define PN10_PLATFORM_MEMORY_H

#include <cstddef>
#include <cstdlib>
#include <type_traits>

namespace pn10 {

template <class T>
class Buffer {
  static_assert(std::is_trivially_copyable_v<T>);

 public:
  Buffer() = default;
  ~Buffer() { std::free(data_); }
  Buffer(const Buffer&) = delete;
  Buffer& operator=(const Buffer&) = delete;

  /** Makes room for `count` zeroed elements, forgetting what was there; false when there is no memory. */
  bool allocate(size_t count) {
    std::free(data_);
    data_ = static_cast<T*>(std::calloc(count ? count : 1, sizeof(T)));
    size_ = data_ ? count : 0;
    return data_ != nullptr;
  }
  /** Changes the size and keeps the contents; false, and nothing changed, when there is no memory. */
  bool resize(size_t count) {
    if (count > static_cast<size_t>(-1) / sizeof(T)) return false;
    void* grown = std::realloc(data_, count ? count * sizeof(T) : 1);
    if (!grown) return false;
    data_ = static_cast<T*>(grown);
    size_ = count;
    return true;
  }
  T* data() { return data_; }
  const T* data() const { return data_; }
  size_t size() const { return size_; }
  T& operator[](size_t i) { return data_[i]; }
  const T& operator[](size_t i) const { return data_[i]; }

 private:
  T* data_ = nullptr;
  size_t size_ = 0;
};

}  // namespace pn10

#endif
