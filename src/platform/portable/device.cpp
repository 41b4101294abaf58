/** What a device answers about itself. */
#include "exports/pn10platform.h"
#include "platform/portable/context.h"

namespace pn10::portable {

namespace {

constexpr int kRasterDisplay = 1, kRasterPrinter = 2;

/** Whole millimetres of a length in pixels. */
int millimetres(int32_t pixels, int32_t dpi) {
  return static_cast<int>((int64_t{pixels} * 254 + dpi * 5) / (dpi * int64_t{10}));
}

}  // namespace

int deviceCaps(const Context& context, int index) {
  const DeviceFacts& facts = context.facts;
  const bool paper = context.device == Device::Pdf || context.device == Device::Svg;
  switch (index) {
    case TECHNOLOGY:
      return paper ? kRasterPrinter : kRasterDisplay;
    case HORZSIZE:
      return millimetres(facts.width, facts.dpi);
    case VERTSIZE:
      return millimetres(facts.height, facts.dpi);
    case HORZRES:
      return facts.width;
    case VERTRES:
      return facts.height;
    case BITSPIXEL:
      return 32;
    case PLANES:
      return 1;
    case LOGPIXELSX:
    case LOGPIXELSY:
      return facts.dpi;
    case PHYSICALWIDTH:
      return facts.pageSize.x;
    case PHYSICALHEIGHT:
      return facts.pageSize.y;
    case PHYSICALOFFSETX:
      return facts.pageOffset.x;
    case PHYSICALOFFSETY:
      return facts.pageOffset.y;
    default:
      return 0;
  }
}

}  // namespace pn10::portable

using namespace pn10::portable;

int GetDeviceCaps(HDC dc, int index) {
  const Context* context = contextOf(dc);
  return context ? deviceCaps(*context, index) : 0;
}

int Escape(HDC dc, int escape, int, const char*, void* out) {
  const Context* context = contextOf(dc);
  if (!context) return 0;
  logOp("Escape", escape);
  if (!out || (escape != GETPHYSPAGESIZE && escape != GETPRINTINGOFFSET)) return 0;
  *static_cast<POINT*>(out) = escape == GETPHYSPAGESIZE ? context->facts.pageSize : context->facts.pageOffset;
  return 1;
}

int32_t PnSetPage(HDC dc, int32_t phys_width, int32_t phys_height, int32_t offset_x, int32_t offset_y) {
  Context* context = contextOf(dc);
  if (!context) return 0;
  context->facts.pageSize = {phys_width, phys_height};
  context->facts.pageOffset = {offset_x, offset_y};
  return 1;
}
