/** The two symbol drawers: one interpreter of the catalogue's steps, set up by the differences of each. */
#include "draw/symbols.h"

#include <cmath>
#include <cstdlib>

#include "draw/frame.h"
#include "draw/lines.h"
#include "draw/symbol_catalogue.h"
#include "geometry/angles.h"
#include "geometry/direction.h"
#include "geometry/geographic.h"

namespace pn10 {

namespace {

constexpr double kDegree = 0.017453292;
constexpr int kHalfTurn = 180; /* chords of the half disc that stands for a pie */
constexpr int kMostCorners = 10;

/** A symbol at its place: where its points go and how its round parts are painted. */
class SymbolPainter {
 public:
  SymbolPainter(double x, double y, float size, Direction along, bool turned)
      : origin_{x, y}, size_(size), along_(along), turned_(turned) {}

  /** DrawMark: circles become chords; on the isometric plane devices are laid on the model plane. */
  void asMark(float elev) {
    mark_ = true;
    elev_ = elev;
    leaning_ = drawState.MapMode == 1;
  }

  void paint(const Shape& shape) {
    for (int32_t i = 0; i < shape.count; i++) {
      if (!step(shape.steps[i])) return;
    }
  }

 private:
  /** False when the symbol ends here. */
  bool step(const Step& s) {
    const WorldPoint p{s.x, s.y};
    switch (s.verb) {
      case Verb::Corner:
        corners_[count_++] = dev(p);
        break;
      case Verb::Fill:
        Polygon(drawState.DC, corners_, count_);
        count_ = 0;
        break;
      case Verb::Move:
        moveTo(dev(p));
        break;
      case Verb::Line:
        lineTo(dev(p));
        break;
      case Verb::Box:
        corner_ = p;
        break;
      case Verb::Disc:
        return disc(p), true;
      case Verb::OnlyDisc:
        return disc(p);
      case Verb::Ellipse:
        return ellipse(p), true;
      case Verb::Ring:
        ring(p);
        break;
      case Verb::Pie:
        pieEnd_ = p;
        break;
      case Verb::Radial:
        radial_ = p;
        break;
      case Verb::EndPie:
        pie(p);
        break;
      case Verb::Device:
        onModel_ = leaning_;
        break;
      case Verb::Plain:
        onModel_ = false;
        break;
    }
    return true;
  }

  static void moveTo(DevPoint p) { MoveToEx(drawState.DC, p.x, p.y, nullptr); }
  static void lineTo(DevPoint p) { LineTo(drawState.DC, p.x, p.y); }

  /** A point of the shape on the world plane. */
  WorldPoint at(WorldPoint p) const {
    if (turned_) p = {p.y, -p.x};
    const double x = p.x * size_, y = p.y * size_;
    return {origin_.x + (x * along_.cosine - y * along_.sine), origin_.y + (x * along_.sine + y * along_.cosine)};
  }

  DevPoint dev(const WorldPoint& p) const { return mapped(at(p)); }

  DevPoint mapped(const WorldPoint& w) const {
    return onModel_ ? WorldToDevPair(isoX(w.x, w.y), isoY(w.x, w.y, elev_)) : WorldToDevPair(w.x, w.y);
  }

  /** The box of a round part: its middle turns with the bearing, its axes stay those of the device. */
  struct DevBox {
    DevPoint a, b;
  };
  DevBox boxTo(const WorldPoint& end) const {
    const WorldPoint middle = at({(corner_.x + end.x) * 0.5, (corner_.y + end.y) * 0.5});
    const double halfX = (end.x - corner_.x) * 0.5 * size_, halfY = (corner_.y - end.y) * 0.5 * size_;
    return {WorldToDevPair(middle.x - halfX, middle.y + halfY), WorldToDevPair(middle.x + halfX, middle.y - halfY)};
  }

  bool ellipse(const WorldPoint& end) const {
    const DevBox box = boxTo(end);
    if (!BoxExceeds(box.a, box.b, kSmallestEllipse)) return false;
    Ellipse(drawState.DC, box.a.x, box.a.y, box.b.x, box.b.y);
    return true;
  }

  bool disc(const WorldPoint& end) const { return !leaning_ && ellipse(end); }

  void ring(const WorldPoint& end) const {
    if (mark_) {
      DrawArcPoly(elev_, toFloat(0.5 * size_), 0, toFloat(TWO_PI), 0, origin_.x, origin_.y, 0);
    } else {
      ellipse(end);
    }
  }

  void pie(const WorldPoint& radial) const {
    const DevBox box = boxTo(pieEnd_);
    if (!BoxExceeds(box.a, box.b, kSmallestPie)) return;
    if (onModel_) return leaningPie(radial);
    const DevPoint from = dev(radial_), to = dev(radial);
    Pie(drawState.DC, box.a.x, box.a.y, box.b.x, box.b.y, from.x, from.y, to.x, to.y);
  }

  /** A pie has no leaning form: its diameter as a line, and the half circle from the first radial as a polygon. */
  void leaningPie(const WorldPoint& radial) const {
    const WorldPoint middle{(radial_.x + radial.x) * 0.5, (radial_.y + radial.y) * 0.5};
    const double radius = (pieEnd_.x - corner_.x) * 0.5;
    const double start = GetBrg(middle.x, middle.y, radial_.x, radial_.y);
    POINT arc[kHalfTurn + 1];
    for (int i = 0; i <= kHalfTurn; i++) arc[i] = dev(moved(middle, directionOf(start + i * kDegree), radius));
    moveTo(arc[0]);
    lineTo(arc[kHalfTurn]);
    Polygon(drawState.DC, arc, kHalfTurn + 1);
  }

  WorldPoint origin_;
  double size_;
  Direction along_;
  bool turned_;
  bool mark_ = false;
  bool leaning_ = false; /* the isometric view of DrawMark */
  bool onModel_ = false; /* within a device part of it */
  float elev_ = 0;
  DevPoint corners_[kMostCorners];
  int count_ = 0;
  WorldPoint corner_{}, pieEnd_{}, radial_{};
};

Direction directionOfSymbol(const Symbol& symbol, float bearing) {
  return symbol.upright ? Direction{1, 0} : directionOf(bearing);
}

/** A size in length units on the ground, in degrees. */
float groundSize(float size, float elev) {
  return toFloat(size / ((elev + feetPerMetre() * kEarthRadius) * kRadiansOfDegree));
}

}  // namespace

void DrawSymbol(int16_t symbol, float size, float bearing, double x, double y) {
  const Symbol* row = symbolOf(symbol);
  if (!row) return;
  SymbolPainter(x, y, size, directionOfSymbol(*row, bearing), false).paint(row->shape);
}

void DrawMark(int16_t symbol, float size, float elev, float bearing, int16_t ground, double x, double y) {
  const Symbol* row = symbolOf(std::abs(int32_t{symbol}));
  if (!row || (symbol < 0 && !row->hollowMark)) return;
  if (drawState.MapMode == 2 && ground) size = groundSize(size, elev);
  SymbolPainter painter(x, y, size, directionOfSymbol(*row, bearing), row->turnedMark);
  painter.asMark(elev);
  painter.paint(row->mark);
}

}  // namespace pn10
