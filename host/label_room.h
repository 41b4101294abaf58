/** Labels only where there is room: a picture's area is handed out to labels in order, and the rest stay off. */
#ifndef PN10_HOST_LABEL_ROOM_H
#define PN10_HOST_LABEL_ROOM_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace host {

/** A picture in cells, each free or taken. */
class LabelRoom {
 public:
  LabelRoom(int32_t width, int32_t height, int32_t cell);

  /** Whether a label fits, all of it inside: a strip of this length and thickness, from (x, y) along (dx, dy), a unit
   * vector. */
  bool fits(double x, double y, double dx, double dy, double length, double thickness) const;
  void take(double x, double y, double dx, double dy, double length, double thickness);

 private:
  template <class Visit>
  void walk(double x, double y, double dx, double dy, double length, double thickness, Visit visit) const;

  static constexpr size_t kOutside = static_cast<size_t>(-1);
  int32_t columns_, rows_, cell_;
  std::vector<uint8_t> taken_;
};

}  // namespace host

#endif
