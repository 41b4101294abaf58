/** Device contexts: making and ending them, selection, saved states, modes and colours. */
#include "platform/portable/context.h"

#include <algorithm>
#include <new>
#include <utility>

#include "exports/pn10platform.h"

namespace pn10::portable {

HDC recentHandle = nullptr;
Context* recentContext = nullptr;

namespace {

void releaseState(const State& state) {
  release(state.pen);
  release(state.brush);
  release(state.font);
}

void retainState(const State& state) {
  retain(state.pen);
  retain(state.brush);
  retain(state.font);
}

/** Puts another object in the place of `held`; answers the handle of the old one. */
template <class T>
HGDIOBJ exchange(T*& held, T* object) {
  HGDIOBJ old = held->handle;
  T* before = held;
  retain(object);
  held = object;
  release(before);
  return old;
}

RECT cut(const RECT& a, const RECT& b) {
  RECT both{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
  if (both.left >= both.right || both.top >= both.bottom) both = {};
  return both;
}

/** Where the device can be painted at all. Paper is cut by its own edge, in its own painter. */
RECT deviceBox(const Context& context) {
  constexpr LONG kFar = 1 << 30;
  if (context.device == Device::Image) return {0, 0, context.facts.width, context.facts.height};
  if (context.device == Device::Memory) return {0, 0, context.bitmap->width, context.bitmap->height};
  return {-kFar, -kFar, kFar, kFar};
}

/** Takes a region as the clip, or none; answers what kind of region it is. */
int clipTo(Context& context, const Region* region) {
  State& state = context.state;
  state.clipped = region != nullptr;
  if (region) state.clip = region->box;
  updateClip(context);
  const bool empty = region && (region->box.left == region->box.right || region->box.top == region->box.bottom);
  return empty ? NULLREGION : SIMPLEREGION;
}

}  // namespace

Context* newContext(Device device, const DeviceFacts& facts) {
  Context* context = new (std::nothrow) Context{};
  if (!context) return nullptr;
  context->kind = Kind::Context;
  context->device = device;
  context->facts = facts;
  State& state = context->state;
  state.pen = stockPen();
  state.brush = stockBrush();
  state.font = stockFont();
  retainState(state);
  state.paint = {&state.pen->data, &state.brush->data, R2_COPYPEN, OPAQUE, 0xFFFFFF, 0, ALTERNATE, BLACKONWHITE, {}};
  if (device == Device::Memory) {
    context->bitmap = stockBitmap();
    retain(context->bitmap);
  }
  updateClip(*context);
  return context;
}

HDC enterContext(Context* context, const char* madeBy) { return static_cast<HDC>(enter(context, madeBy)); }

void freeContext(Context* context) {
  if (recentContext == context) {
    recentHandle = nullptr;
    recentContext = nullptr;
  }
  releaseState(context->state);
  for (const State& state : context->saved) releaseState(state);
  if (context->bitmap) {
    context->bitmap->holder = nullptr;
    release(context->bitmap);
  }
  Painter* const painters[] = {context->sharp, context->smooth, context->file};
  for (Painter* painter : painters) delete painter;
  if (context->device == Device::Memory) delete context->painter;
  if (context->device == Device::Image) std::free(context->raster.pixels);
  delete context;
}

bool deleteContext(Context* context) {
  const bool whole = !context->file || context->file->finish();
  destroy(context);
  return whole;
}

void updateClip(Context& context) {
  State& state = context.state;
  const RECT box = deviceBox(context);
  state.paint.clip = state.clipped ? cut(state.clip, box) : box;
}

}  // namespace pn10::portable

using namespace pn10::portable;

int32_t PnDeleteDC(HDC dc) {
  Context* context = contextOf(dc);
  if (!context) return 0;
  if (context->device == Device::Memory) logOp("DeleteDC", "memdc");
  return deleteContext(context);
}

BOOL DeleteDC(HDC dc) {
  const Context* context = contextOf(dc);
  if (context && context->device != Device::Memory) logOp("DeleteDC");
  return PnDeleteDC(dc);
}

HDC PnCreateRecordDC(int32_t width, int32_t height, int32_t dpi) {
  if (width < 1 || height < 1 || dpi < 1) return nullptr;
  DeviceFacts facts;
  facts.width = width;
  facts.height = height;
  facts.dpi = dpi;
  Context* context = newContext(Device::Record, facts);
  return context ? enterContext(context) : nullptr;
}

HGDIOBJ SelectObject(HDC dc, HGDIOBJ handle) {
  Context* context = contextOf(dc);
  if (!context) return nullptr;
  Object* object = findObject(handle);
  if (recording()) logOp("SelectObject", describe(object));
  if (!object) return nullptr;
  State& state = context->state;
  HGDIOBJ old = nullptr;
  switch (object->kind) {
    case Kind::Pen:
      old = exchange(state.pen, static_cast<Pen*>(object));
      state.paint.pen = &state.pen->data;
      return old;
    case Kind::Brush:
      old = exchange(state.brush, static_cast<Brush*>(object));
      state.paint.brush = &state.brush->data;
      return old;
    case Kind::Font:
      return exchange(state.font, static_cast<Font*>(object));
    case Kind::Bitmap:
      return context->device == Device::Memory ? selectBitmap(*context, static_cast<Bitmap*>(object)) : nullptr;
    case Kind::Region:
      return reinterpret_cast<HGDIOBJ>(static_cast<uintptr_t>(clipTo(*context, static_cast<Region*>(object))));
    case Kind::Context:
    case Kind::Window:
      break;
  }
  return nullptr;
}

int SelectClipRgn(HDC dc, HRGN handle) {
  Context* context = contextOf(dc);
  if (!context) return ERROR_REGION;
  const Region* region = find<Region>(handle);
  if (handle && !region) return ERROR_REGION;
  if (recording()) logOp("SelectClipRgn", describe(region));
  return clipTo(*context, region);
}

int SaveDC(HDC dc) {
  Context* context = contextOf(dc);
  if (!context) return 0;
  retainState(context->state);
  context->saved.push_back(context->state);
  const int level = static_cast<int>(context->saved.size());
  logOp("SaveDC", level);
  return level;
}

BOOL RestoreDC(HDC dc, int saved) {
  Context* context = contextOf(dc);
  if (!context) return 0;
  logOp("RestoreDC", saved);
  const auto count = static_cast<int64_t>(context->saved.size());
  const int64_t level = saved < 0 ? count + 1 + saved : saved;
  if (level < 1 || level > count) return 0;
  const auto at = context->saved.begin() + (level - 1);
  releaseState(context->state);
  context->state = *at;
  std::for_each(at + 1, context->saved.end(), releaseState);
  context->saved.erase(at, context->saved.end());
  updateClip(*context);
  return 1;
}
