/**
 * Pens, brushes, fonts, bitmaps, regions, contexts and windows behind their handles.
 *
 * A handle is a number, not an address: the low bits index a table, the rest is a serial that is never
 * given twice. A null, deleted or invented handle is found out by one comparison and touches no memory.
 */
#ifndef PN10_PLATFORM_PORTABLE_OBJECTS_H
#define PN10_PLATFORM_PORTABLE_OBJECTS_H

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/gdi.h"
#include "platform/portable/painter.h"

namespace pn10::portable {

enum class Kind : uint8_t { Pen, Brush, Font, Bitmap, Region, Context, Window };

struct Object {
  Kind kind;
  bool stock = false;   /* what a fresh context holds: never deleted, never counted */
  bool deleted = false; /* deleted while selected: lives until the last selection ends */
  int32_t uses = 0;     /* selections and saved states that hold it */
  void* handle = nullptr;
};

struct Pen : Object {
  static constexpr Kind kKind = Kind::Pen;
  PenData data;
  DWORD style = 0;   /* as given */
  int32_t width = 1; /* as given */
};

struct Brush : Object {
  static constexpr Kind kKind = Kind::Brush;
  BrushData data;
  bool byHatch = false; /* made by CreateHatchBrush, which its description tells */
  UINT style = BS_SOLID;
  int32_t hatch = 0;
};

struct Font : Object {
  static constexpr Kind kKind = Kind::Font;
  LOGFONTA data;
  FontData* real = nullptr; /* once text was measured or painted with it */
};

struct Region : Object {
  static constexpr Kind kKind = Kind::Region;
  RECT box; /* corners in order */
};

struct Bitmap;  /* bitmaps.h */
struct Context; /* context.h */

/** The table. Slot 0 is never used, so that a null handle finds nothing. */
struct HandleSlot {
  Object* object;
  size_t nextFree;
};
extern HandleSlot* handleSlots;
extern size_t handleSlotCount;

constexpr int kIndexBits = sizeof(void*) == 8 ? 32 : 20;
constexpr uintptr_t kIndexMask = (uintptr_t{1} << kIndexBits) - 1;

/** The object of a handle; null for a handle that is none. */
inline Object* findObject(const void* handle) {
  const size_t index = reinterpret_cast<uintptr_t>(handle) & kIndexMask;
  if (index >= handleSlotCount) return nullptr;
  Object* object = handleSlots[index].object;
  return object && object->handle == handle ? object : nullptr;
}

template <class T>
T* find(const void* handle) {
  Object* object = findObject(handle);
  return object && object->kind == T::kKind ? static_cast<T*>(object) : nullptr;
}

/** Gives a new object its handle and logs its making; on failure the object is freed and the answer is null. */
void* enter(Object* object, const char* madeBy);

/** Ends one use of an object; frees it when it was deleted meanwhile. */
void release(Object* object);
inline void retain(Object* object) { object->uses++; }

/** Takes the object out of the table and frees its memory. */
void destroy(Object* object);

/** The objects of a fresh context. */
Pen* stockPen();
Brush* stockBrush();
Font* stockFont();
Bitmap* stockBitmap();

/** An object as the log names it. */
std::string describe(const Object* object);
std::string describe(const Bitmap& bitmap);

/** Frees a bitmap with what it owns. */
void freeBitmap(Bitmap* bitmap);
void freeContext(Context* context);
void freeWindow(Object* window);
int getBitmapObject(const Bitmap& bitmap, int size, void* data);

/** A rectangle with its corners in order. */
RECT ordered(int left, int top, int right, int bottom);

}  // namespace pn10::portable

#endif
