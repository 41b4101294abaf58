// Where the labels of a picture will stand, and which of them may.
#include "map_labels.h"

#include <algorithm>
#include <cmath>

#include "label_room.h"
#include "records.h"

namespace host {

namespace {

/** A unit vector from one pixel to another; along the row when they are one. */
Point direction(const Point& a, const Point& b, double* length) {
  *length = std::hypot(b.x - a.x, b.y - a.y);
  return *length > 0 ? Point{(b.x - a.x) / *length, (b.y - a.y) / *length} : Point{1, 0};
}

Point fromEnd(const Mapping& map, int32_t p) {
  return map(number(Kind::Pipe, p, PDT_FROM_X), number(Kind::Pipe, p, PDT_FROM_Y), number(Kind::Pipe, p, PDT_FROM_Z));
}
Point toEnd(const Mapping& map, int32_t p) {
  return map(number(Kind::Pipe, p, PDT_TO_X), number(Kind::Pipe, p, PDT_TO_Y), number(Kind::Pipe, p, PDT_TO_Z));
}

bool isDevice(int32_t p) { return number(Kind::Pipe, p, PDT_HYD_TYPE) > 0; }

/** How long a label may become: its longest line in average characters. */
double labelWidth(Kind kind, int32_t record, const std::vector<int16_t>& fields, double em) {
  size_t longest = 0;
  for (const int16_t field : fields) {
    size_t length = 8;  // a number with its unit
    for (const FieldName& f : fieldsOf(kind)) {
      if (f.number == field && f.reads == Reads::Text) length = text(kind, record, field).size();
    }
    longest = std::max(longest, length);
  }
  return static_cast<double>(longest) * em * 0.55;
}

/** Adds the vertices of a run to a path in the picture. */
void addRun(std::vector<Point>* path, const Mapping& map, int32_t first, int32_t last) {
  for (int32_t v = first; v > 0 && v <= last; v++) {
    double x = 0, y = 0;
    float z = 0;
    GetVTXY(v, &x, &y, &z);
    path->push_back(map(x, y, static_cast<double>(z)));
  }
}

/** Takes the room of a path but for its last pixels. */
void takePath(LabelRoom* room, const std::vector<Point>& path, double thickness, double spare = 0) {
  for (size_t i = 1; i < path.size(); i++) {
    double length;
    const Point d = direction(path[i - 1], path[i], &length);
    if (i + 1 == path.size()) length -= spare;
    if (length > 0) room->take(path[i - 1].x, path[i - 1].y, d.x, d.y, length, thickness);
  }
}

/** The pipes themselves take room too: a customer's label must not stand on them. */
void takePipes(LabelRoom* room, const Mapping& map, double thickness) {
  std::vector<Point> path;
  for (int32_t p = 1; p <= recordCount(Kind::Pipe); p++) {
    if (isDeleted(Kind::Pipe, p)) continue;
    path = {fromEnd(map, p)};
    int32_t first = 0, last = 0;
    GetPXY(p, &first, &last);
    if (number(Kind::Pipe, p, PDT_VTX_MODE) == 4) addRun(&path, map, first, last);
    path.push_back(toEnd(map, p));
    takePath(room, path, thickness);
  }
}

/** And so do service lines, up to the meter that a label begins beside. */
void takeServices(LabelRoom* room, const Mapping& map, double thickness, double besideMeter) {
  std::vector<Point> path;
  for (int32_t c = 1; c <= recordCount(Kind::Customer); c++) {
    if (isDeleted(Kind::Customer, c)) continue;
    double x = 0, y = 0, tapX = 0, tapY = 0;
    int32_t first = 0, last = 0;
    GetCXY(c, &x, &y, &tapX, &tapY, &first, &last);
    if (tapX == 0 && tapY == 0) continue;
    const double z = number(Kind::Customer, c, CDT_Z_COORD);
    path = {map(tapX, tapY, z)};
    if (number(Kind::Customer, c, CDT_VTX_MODE) == 4) addRun(&path, map, first, last);
    path.push_back(map(x, y, z));
    takePath(room, path, thickness, besideMeter);
  }
}

/** A device covers the middle of its pipe; a regulator has its dome on one side as well. */
void takeDevices(LabelRoom* room, const Mapping& map, double size) {
  for (int32_t p = 1; p <= recordCount(Kind::Pipe); p++) {
    if (isDeleted(Kind::Pipe, p) || !isDevice(p)) continue;
    const Point a = fromEnd(map, p), b = toEnd(map, p);
    double length;
    const Point d = direction(a, b, &length);
    const double thick = number(Kind::Pipe, p, PDT_HYD_TYPE) == 1 ? 1.9 : 0.8;
    room->take((a.x + b.x - d.x * size) / 2, (a.y + b.y - d.y * size) / 2, d.x, d.y, size, size * thick);
  }
}

void takeMeters(LabelRoom* room, const Mapping& map, double em) {
  for (int32_t c = 1; c <= recordCount(Kind::Customer); c++) {
    if (isDeleted(Kind::Customer, c)) continue;
    const Point at = map(number(Kind::Customer, c, CDT_X_COORD), number(Kind::Customer, c, CDT_Y_COORD),
                         number(Kind::Customer, c, CDT_Z_COORD));
    room->take(at.x - em / 3, at.y, 1, 0, em * 0.6, em * 0.6);
  }
}

bool pipeLabelFits(const MapOptions& o, const Mapping& map, LabelRoom* room, int32_t p, double em) {
  const Point a = fromEnd(map, p), b = toEnd(map, p);
  double length;
  const Point d = direction(a, b, &length);
  const double wide = labelWidth(Kind::Pipe, p, o.pipeFields, em),
               high = em * 1.2 * static_cast<double>(o.pipeFields.size());
  // Along straight pipes only, and with some line left at both ends; a device would cover its own.
  if (length <= wide * 1.4 || number(Kind::Pipe, p, PDT_VTX_MODE) != 0 || (o.devices && isDevice(p))) return false;
  const double x = (a.x + b.x - d.x * wide) / 2, y = (a.y + b.y - d.y * wide) / 2;
  if (!room->fits(x, y, d.x, d.y, wide, high)) return false;
  room->take(x, y, d.x, d.y, wide, high * 1.5);
  return true;
}

/** How the labels of points stand: from the anchor along a direction, each line below the one before. In heights. */
struct PointLabels {
  Kind kind;
  bool on;
  const std::vector<int16_t>& fields;
  int16_t x, y, z, label;
  Point anchor, along;
  double above; /* how far the first line reaches above the anchor */
};

void giveRoomToPoints(const PointLabels& k, const Mapping& map, LabelRoom* room, double em) {
  const double lines = static_cast<double>(k.fields.size()), middle = lines / 2 - k.above;
  const Point start{k.anchor.x - k.along.y * middle, k.anchor.y + k.along.x * middle};
  for (int32_t r = 1; r <= recordCount(k.kind); r++) {
    if (isDeleted(k.kind, r)) continue;
    bool fits = false;
    if (k.on) {
      const Point at = map(number(k.kind, r, k.x), number(k.kind, r, k.y), number(k.kind, r, k.z));
      const double x = at.x + start.x * em, y = at.y + start.y * em;
      const double wide = labelWidth(k.kind, r, k.fields, em), high = em * (lines + 0.2);
      fits = room->fits(x, y, k.along.x, k.along.y, wide, high);
      if (fits) room->take(x, y, k.along.x, k.along.y, wide, high);
    }
    store(k.kind, r, k.label, "", fits);
  }
}

}  // namespace

void giveRoomToLabels(const MapOptions& o, const Mapping& map, double em, double deviceSize) {
  LabelRoom room(map.width, map.height, std::max(3, static_cast<int32_t>(em / 4)));
  if (o.devices) takeDevices(&room, map, deviceSize);
  for (int32_t p = 1; p <= recordCount(Kind::Pipe); p++) {
    if (!isDeleted(Kind::Pipe, p)) SetPdtVal(p, PDT_LABEL_ON, "", o.pipeLabels && pipeLabelFits(o, map, &room, p, em));
  }
  if (o.customers) takeMeters(&room, map, em);
  // Corners are named across the streets, which run level and upright, or at 30 degrees to both sides of level. On the
  // isometric view customers' names lie on the ground.
  const bool iso = o.view == View::Isometric;
  const double slant = std::sqrt(0.5);
  giveRoomToPoints(
      {Kind::Node, o.nodeLabels, o.nodeFields, NDT_X_COORD, NDT_Y_COORD, NDT_Z_COORD, NDT_LABEL_ON,
       iso ? Point{1.1, -0.4} : Point{-slant / 2, -slant * 1.5}, iso ? Point{1, 0} : Point{slant, -slant}, 0},
      map, &room, em);
  takePipes(&room, map, em / 4);
  if (o.customers) takeServices(&room, map, em / 6, em * 0.8);
  giveRoomToPoints(
      {Kind::Customer, o.customerLabels && o.customers, o.customerFields, CDT_X_COORD, CDT_Y_COORD, CDT_Z_COORD,
       CDT_HOST_SHORT_411, iso ? Point{1.7, 0} : Point{1, -1}, iso ? Point{std::sqrt(0.75), 0.5} : Point{1, 0}, 0.75},
      map, &room, em);
}

}  // namespace host
