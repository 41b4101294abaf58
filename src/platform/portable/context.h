/**
 * A device context: the state that GDI keeps, and the painter that it paints with.
 *
 * The members that lines and shapes touch come first; a painting call costs the handle check, one look at
 * the log switch and the painter.
 */
#ifndef PN10_PLATFORM_PORTABLE_CONTEXT_H
#define PN10_PLATFORM_PORTABLE_CONTEXT_H

#include <vector>

#include "platform/portable/bitmaps.h"
#include "platform/portable/log.h"
#include "platform/portable/objects.h"

namespace pn10::portable {

enum class Device : uint8_t { Image, Memory, Pdf, Svg, Record };

/** What SaveDC keeps. The objects in it are held by their use counts. */
struct State {
  PaintState paint{};
  POINT position{};
  Pen* pen = nullptr;
  Brush* brush = nullptr;
  Font* font = nullptr;
  UINT textAlign = 0;
  int arcDirection = AD_COUNTERCLOCKWISE;
  bool clipped = false;
  RECT clip{}; /* the region in force when `clipped` */
};

/** Answers about the device. */
struct DeviceFacts {
  int32_t width = 0, height = 0, dpi = 96;
  POINT pageSize{}, pageOffset{};
};

/** A painter that writes a file, finished when its context goes. */
class FilePainter : public Painter {
 public:
  /** Writes what is left and closes; false when the file is not whole. */
  virtual bool finish() = 0;
};

struct Context : Object {
  static constexpr Kind kKind = Kind::Context;
  Painter* painter = nullptr; /* null: paints nothing */
  State state;
  bool pathOpen = false;
  Device device = Device::Record;
  bool pathReady = false;
  bool figureOpen = false; /* the path's last figure goes on at the current position */
  Path path;
  DeviceFacts facts;
  std::vector<State> saved;

  Raster raster{};             /* image contexts: their pixels; memory contexts: those of a paintable bitmap */
  Painter* sharp = nullptr;    /* image contexts: the integer painter ... */
  Painter* smooth = nullptr;   /* ... and the one with smooth lines, once it was asked for */
  FilePainter* file = nullptr; /* PDF and SVG contexts; the same as `painter` */
  Bitmap* bitmap = nullptr;    /* memory contexts: what is selected */
};

/** The context asked for last: a picture is painted on one. Both null, or both of a living context. */
extern HDC recentHandle;
extern Context* recentContext;

inline Context* contextOf(HDC dc) {
  if (dc == recentHandle) [[likely]]
    return recentContext;
  Context* context = find<Context>(dc);
  if (context) {
    recentHandle = dc;
    recentContext = context;
  }
  return context;
}
inline bool isMemoryContext(const Object* object) {
  return static_cast<const Context*>(object)->device == Device::Memory;
}

/** A context in its start state, without a painter and not yet in the table; null when there is no memory. */
Context* newContext(Device device, const DeviceFacts& facts);

/** Enters a context into the table. On failure it is freed. */
HDC enterContext(Context* context, const char* madeBy = nullptr);

/** Ends a context; false when its file could not be written. */
bool deleteContext(Context* context);

/** Takes the clip region and the device together again, after one of them changed. */
void updateClip(Context& context);

/** Selects a bitmap into a memory context: bitmaps.cpp. */
HGDIOBJ selectBitmap(Context& context, Bitmap* bitmap);

/**
 * Runs a painting step of a context. A memory context whose bitmap is not of 32 bits is painted through a copy.
 * `paint` takes a Painter&.
 */
Painter* beginOnCopy(Context& context, RasterView& view);
template <class Paint>
void withPainter(Context& context, Paint paint) {
  if (context.painter) [[likely]] {
    paint(*context.painter);
    return;
  }
  if (!context.bitmap || context.bitmap->stock) return;
  RasterView view(context.bitmap, true);
  if (Painter* painter = beginOnCopy(context, view)) {
    paint(*painter);
    delete painter;
  }
}

/** The answers of a device, for GetDeviceCaps. */
int deviceCaps(const Context& context, int index);

}  // namespace pn10::portable

#endif
