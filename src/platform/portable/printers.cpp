/** Contexts that paint paper: PDF and SVG files, made directly or as printers by name. */
#include <cctype>
#include <cmath>
#include <cstring>
#include <string>

#include "exports/pn10platform.h"
#include "platform/portable/arcs.h"
#include "platform/portable/cairo_painter.h"
#include "platform/portable/context.h"
#include "platform/portable/svg_painter.h"

using namespace pn10::portable;

namespace {

constexpr double kLargestSide = 1000; /* inches */
constexpr int32_t kLargestDpi = 100000;

struct Page {
  double width, height; /* inches */
  int32_t dpi;
  POINT offset; /* of the printable area, device units */
};

struct Printer {
  std::string name, path;
  Page page;
  Printer* next;
};
Printer* printers = nullptr;

/** False for a size that no page has; not a number included. */
bool isPage(const char* path, const Page& page) {
  return path && *path && page.width > 0 && page.width <= kLargestSide && page.height > 0 &&
         page.height <= kLargestSide && page.dpi > 0 && page.dpi <= kLargestDpi;
}

bool endsWithSvg(const char* path) {
  const size_t length = std::strlen(path);
  if (length < 4) return false;
  std::string ending(path + length - 4);
  for (char& c : ending) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return ending == ".svg";
}

/** A context whose unit (0,0) lies at the corner of the printable area. */
HDC openPage(Device device, const char* path, const Page& page) {
  if (!isPage(path, page)) return nullptr;
  const double width = page.width * page.dpi, height = page.height * page.dpi;
  FilePainter* painter = device == Device::Svg ? newSvgPainter(path, width, height, page.dpi, page.offset)
                                               : newPdfPainter(path, width, height, page.dpi, page.offset);
  if (!painter) return nullptr;
  DeviceFacts facts;
  facts.dpi = page.dpi;
  facts.pageSize = {roundToInt(width), roundToInt(height)};
  facts.pageOffset = page.offset;
  facts.width = roundToInt(width - 2.0 * page.offset.x);
  facts.height = roundToInt(height - 2.0 * page.offset.y);
  Context* context = newContext(device, facts);
  if (!context) {
    delete painter;
    return nullptr;
  }
  context->painter = context->file = painter;
  return enterContext(context);
}

}  // namespace

int32_t PnHasPageDC(void) { return 1; }

HDC PnCreatePdfDC(const char* path, double width_in, double height_in, int32_t dpi) {
  return openPage(Device::Pdf, path, {width_in, height_in, dpi, {}});
}

HDC PnCreateSvgDC(const char* path, double width_in, double height_in, int32_t dpi) {
  return openPage(Device::Svg, path, {width_in, height_in, dpi, {}});
}

int32_t PnAddPrinter(const char* name, const char* path, double width_in, double height_in, int32_t dpi,
                     int32_t offset_x, int32_t offset_y) {
  const Page page{width_in, height_in, dpi, {offset_x, offset_y}};
  if (!name || !isPage(path, page)) return 0;
  for (Printer* printer = printers; printer; printer = printer->next) {
    if (printer->name != name) continue;
    printer->path = path;
    printer->page = page;
    return 1;
  }
  printers = new Printer{name, path, page, printers};
  return 1;
}

HDC CreateDCA(const char* driver, const char* device, const char*, const DEVMODEA*) {
  if (!driver || !device || std::strcmp(driver, "WINSPOOL") != 0) return nullptr;
  for (const Printer* printer = printers; printer; printer = printer->next) {
    if (printer->name != device) continue;
    const Device kind = endsWithSvg(printer->path.c_str()) ? Device::Svg : Device::Pdf;
    const HDC dc = openPage(kind, printer->path.c_str(), printer->page);
    if (dc) logOp("CreateDCA", quoted(driver, std::strlen(driver)), quoted(device, std::strlen(device)));
    return dc;
  }
  return nullptr;
}
