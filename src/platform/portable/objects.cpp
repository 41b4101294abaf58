/** The handle table, deletion and description of objects. */
#include "platform/portable/objects.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

#include "exports/pn10platform.h"
#include "platform/portable/bitmaps.h"
#include "platform/portable/context.h"
#include "platform/portable/glyphs.h"
#include "platform/portable/log.h"

namespace pn10::portable {

HandleSlot* handleSlots = nullptr;
size_t handleSlotCount = 0;

namespace {

size_t firstFree = 0;
uintptr_t serial = 0;

struct Stock {
  Pen pen;
  Brush brush;
  Font font;
  Bitmap bitmap;
};

bool growTable() {
  const size_t wanted = handleSlotCount ? handleSlotCount * 2 : 256;
  if (wanted > kIndexMask) return false;
  void* grown = std::realloc(handleSlots, wanted * sizeof(HandleSlot));
  if (!grown) return false;
  handleSlots = static_cast<HandleSlot*>(grown);
  handleSlots[0] = {};
  for (size_t i = std::max<size_t>(handleSlotCount, 1); i < wanted; i++) {
    handleSlots[i] = {nullptr, i + 1 < wanted ? i + 1 : 0};
  }
  firstFree = std::max<size_t>(handleSlotCount, 1);
  handleSlotCount = wanted;
  return true;
}

bool giveHandle(Object* object) {
  if (!firstFree && !growTable()) return false;
  const size_t index = firstFree;
  firstFree = handleSlots[index].nextFree;
  serial = (serial + 1) & (~uintptr_t{0} >> kIndexBits);
  object->handle = reinterpret_cast<void*>(serial << kIndexBits | index);
  handleSlots[index].object = object;
  return true;
}

void freeMemory(Object* object) {
  switch (object->kind) {
    case Kind::Pen:
      delete static_cast<Pen*>(object);
      break;
    case Kind::Brush:
      delete static_cast<Brush*>(object);
      break;
    case Kind::Font:
      unrealize(*static_cast<Font*>(object));
      delete static_cast<Font*>(object);
      break;
    case Kind::Region:
      delete static_cast<Region*>(object);
      break;
    case Kind::Bitmap:
      freeBitmap(static_cast<Bitmap*>(object));
      break;
    case Kind::Context:
      freeContext(static_cast<Context*>(object));
      break;
    case Kind::Window:
      freeWindow(object);
      break;
  }
}

void setUp(Object& object, Kind kind) {
  object.kind = kind;
  object.stock = true;
  giveHandle(&object);
}

/** Made with the first context and never freed, as every context refers to them. */
Stock& stock() {
  static Stock* made = nullptr;
  if (made) return *made;
  made = new Stock{};
  setUp(made->pen, Kind::Pen);
  setUp(made->brush, Kind::Brush);
  setUp(made->font, Kind::Font);
  setUp(made->bitmap, Kind::Bitmap);
  made->font.data.lfWeight = FW_NORMAL;
  std::memcpy(made->font.data.lfFaceName, "System", 7);
  made->bitmap.width = made->bitmap.height = made->bitmap.format.bits = 1;
  return *made;
}

std::string describePen(const Pen& pen) {
  if (!pen.data.fromExtCreatePen || !pen.data.count) {
    return described("pen", Style{pen.style}, pen.width, Color{pen.data.color});
  }
  std::string list = "[";
  for (int32_t i = 0; i < pen.data.count; i++) {
    if (i) list += ',';
    put(list, pen.data.lengths[i]);
  }
  return described("pen", Style{pen.style}, pen.width, Color{pen.data.color}, list + "]");
}

std::string describeBrush(const Brush& brush) {
  if (brush.byHatch) return described("hatch", brush.hatch, Color{brush.data.color});
  return described("brush", brush.style, Color{brush.data.color});
}

std::string describeFont(const LOGFONTA& f) {
  return described("font", f.lfHeight, f.lfEscapement, f.lfWeight, f.lfItalic, f.lfUnderline,
                   quoted(f.lfFaceName, std::strlen(f.lfFaceName)));
}

/** One object's record as GetObjectA gives it: its size without a buffer, the bytes copied with one. */
template <class T>
int copyOut(const T& record, int size, void* data) {
  if (!data) return static_cast<int>(sizeof(T));
  if (size < static_cast<int>(sizeof(T))) return 0;
  std::memcpy(data, &record, sizeof(T));
  return static_cast<int>(sizeof(T));
}

}  // namespace

void* enter(Object* object, const char* madeBy) {
  if (!object) return nullptr;
  if (!giveHandle(object)) {
    freeMemory(object);
    return nullptr;
  }
  if (recording() && madeBy) logOp(madeBy, describe(object));
  return object->handle;
}

void destroy(Object* object) {
  const size_t index = reinterpret_cast<uintptr_t>(object->handle) & kIndexMask;
  handleSlots[index] = {nullptr, firstFree};
  firstFree = index;
  freeMemory(object);
}

void release(Object* object) {
  if (--object->uses == 0 && object->deleted) destroy(object);
}

Pen* stockPen() { return &stock().pen; }
Brush* stockBrush() { return &stock().brush; }
Font* stockFont() { return &stock().font; }
Bitmap* stockBitmap() { return &stock().bitmap; }

std::string describe(const Object* object) {
  if (!object) return "none";
  switch (object->kind) {
    case Kind::Pen:
      return describePen(*static_cast<const Pen*>(object));
    case Kind::Brush:
      return describeBrush(*static_cast<const Brush*>(object));
    case Kind::Font:
      return describeFont(static_cast<const Font*>(object)->data);
    case Kind::Region: {
      const RECT& box = static_cast<const Region*>(object)->box;
      return described("rgn", box.left, box.top, box.right, box.bottom);
    }
    case Kind::Bitmap: {
      const auto& bitmap = *static_cast<const Bitmap*>(object);
      return described("bitmap", bitmap.width, bitmap.height, bitmap.format.bits);
    }
    case Kind::Context:
      return "memdc";
    case Kind::Window:
      break;
  }
  return "none";
}

RECT ordered(int left, int top, int right, int bottom) {
  return {std::min(left, right), std::min(top, bottom), std::max(left, right), std::max(top, bottom)};
}

}  // namespace pn10::portable

using namespace pn10::portable;

BOOL DeleteObject(HGDIOBJ handle) {
  Object* object = findObject(handle);
  if (!object || object->kind == Kind::Context || object->kind == Kind::Window) return 0;
  if (object->stock) return 1;
  if (recording() && !object->deleted) logOp("DeleteObject", describe(object));
  if (object->uses > 0) {
    object->deleted = true;
  } else {
    destroy(object);
  }
  return 1;
}

int GetObjectA(HANDLE handle, int size, void* data) {
  const Object* object = findObject(handle);
  if (!object) return 0;
  if (object->kind == Kind::Font) return copyOut(static_cast<const Font*>(object)->data, size, data);
  if (object->kind == Kind::Bitmap) return getBitmapObject(*static_cast<const Bitmap*>(object), size, data);
  if (object->kind == Kind::Brush) {
    const auto& brush = *static_cast<const Brush*>(object);
    const LOGBRUSH record{brush.byHatch ? BS_HATCHED : brush.style, brush.data.color,
                          static_cast<uintptr_t>(brush.hatch)};
    return copyOut(record, size, data);
  }
  return 0;
}

int32_t PnGetObjectCount(void) {
  int32_t alive = 0;
  for (size_t i = 0; i < handleSlotCount; i++) {
    const Object* object = handleSlots[i].object;
    if (!object || object->stock || object->kind == Kind::Window) continue;
    if (object->kind != Kind::Context || isMemoryContext(object)) alive++;
  }
  return alive;
}
