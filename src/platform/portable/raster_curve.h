/** Curves made into runs of vertices, and figures of them painted. */
#ifndef PN10_PLATFORM_PORTABLE_RASTER_CURVE_H
#define PN10_PLATFORM_PORTABLE_RASTER_CURVE_H

#include "platform/memory.h"
#include "platform/portable/raster.h"

namespace pn10::portable {

/** A list that grows; when there is no memory it stops growing and says so. */
template <class T>
class Growing {
 public:
  void add(const T& item) {
    if (count_ == buffer_.size() && !(ok_ = ok_ && buffer_.resize(count_ ? 2 * count_ : 64))) return;
    buffer_[count_++] = item;
  }
  T* data() { return buffer_.data(); }
  T& operator[](size_t i) { return buffer_[i]; }
  size_t size() const { return count_; }
  bool ok() const { return ok_; }

 private:
  Buffer<T> buffer_;
  size_t count_ = 0;
  bool ok_ = true;
};

/** A cubic Bezier curve. */
struct Curve {
  double x[4], y[4];
};

/** Figures of straight sides, from lines and curves; coordinates keep their fractions for wide pens. */
class FlatPath {
 public:
  /** `tolerance`: how far a curve's control points may lie from a side, in pixels. */
  explicit FlatPath(double tolerance) : tolerance_(tolerance) {}
  void add(const PathFigure& figure, bool closed);

  void fill(const Canvas& canvas, const Fill& fill, int mode);
  void stroke(const Canvas& canvas, const Stroke& stroke);

 private:
  struct Figure {
    size_t end;
    bool closed;
  };
  void begin(double x, double y);
  void lineTo(double x, double y);
  void curveTo(double x1, double y1, double x2, double y2, double x3, double y3);
  void halve(const Curve& curve, int32_t halvings);
  void end(bool closed);
  bool snap();

  const double tolerance_;
  Growing<StrokePoint> points_;
  Growing<Figure> figures_;
  Buffer<POINT> pixels_; /* points_ rounded */
  bool afterCurve_ = false, beginsWithCurve_ = false;
};

void strokeEllipse(const Canvas& canvas, const Stroke& stroke, const RECT& box);

}  // namespace pn10::portable

#endif
