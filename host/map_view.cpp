// A map: window, options of the picture, labels with room, and the file.
#include "map_view.h"

#include <pn10platform.h>

#include <algorithm>
#include <cmath>

#include "map_labels.h"
#include "map_window.h"
#include "output.h"
#include "records.h"
#include "unfinished.h"

namespace host {

namespace {

/** A context for the output: an image, or a page of a PDF or SVG file. */
class Sheet {
 public:
  explicit Sheet(const MapOptions& o) : path_(o.output), file_(o.output), paper_(pictureKind(o.output) != ".png") {
    if (!paper_) {
      width = o.width, height = o.height, dpi = static_cast<int32_t>(o.dpi);
      dc = PnCreateImageDC(width, height, dpi, o.background);
      if (dc && o.smooth) PnSetAntialias(dc, 1);
    } else {
      dpi = 600;
      const double widthInches = o.width / 100.0, heightInches = o.height / 100.0;
      width = static_cast<int32_t>(widthInches * dpi), height = static_cast<int32_t>(heightInches * dpi);
      dc = pictureKind(path_) == ".pdf" ? PnCreatePdfDC(file_.path().c_str(), widthInches, heightInches, dpi)
                                        : PnCreateSvgDC(file_.path().c_str(), widthInches, heightInches, dpi);
    }
    if (!dc && paper_) throw Failure{path_ + ": can't be written"};
    if (!dc) throw Failure{path_ + ": not enough memory for a picture of this size"};
  }
  ~Sheet() {
    if (dc) PnDeleteDC(dc);
  }
  Sheet(const Sheet&) = delete;
  Sheet& operator=(const Sheet&) = delete;

  void finish() {
    const bool saved = paper_ || PnSavePng(dc, file_.path().c_str()) == 1;
    const bool closed = PnDeleteDC(dc) == 1;
    dc = nullptr;
    if (!saved || !closed || !file_.moveIntoPlace()) throw Failure{path_ + ": can't be written"};
  }
  bool paper() const { return paper_; }

  HDC dc = nullptr;
  int32_t width = 0, height = 0, dpi = 96;

 private:
  std::string path_;
  UnfinishedFile file_; /* a picture that stood there goes only for a whole one */
  bool paper_;
};

constexpr double kPaperText = 0.75; /* a page is read from nearer than a screen */
constexpr int32_t kInk = 0x403830, kNodeInk = 0x5A5048, kPipeInk = 0x6B3A1E, kCustomer = 0x4A7AA8;

ViewOpts viewOptions(const MapOptions& o, double zoom, double displayHeight) {
  ViewOpts v{};
  const auto scaled = [&](double tenths) { return static_cast<int32_t>(std::lround(tenths * o.symbolScale)); };
  v.BackColor = o.background;
  v.LineWidth = std::max(1, static_cast<int32_t>(std::lround(o.lineScale)));
  v.NodeOn = 1;
  v.NodeSize = scaled(std::clamp(30 * zoom, 22.0, 60.0));
  v.NodeColor = kNodeInk;
  v.NodeSpecialColor = 0x2020C0;
  v.NodeSymbol = o.nodeSymbol;
  v.NodeTextColor = kInk;
  v.PipeColor = 0x806030;
  v.ElemColor = 0x2030A0;
  v.PipeColorMode = o.colorBy == ColorBy::Facility ? -3 : -2;
  v.PipeWidth = o.colorBy == ColorBy::Facility ? 98 : 99;
  v.PipeLineType = 1;
  v.PipeTextColor = kPipeInk;
  v.DevicesOn = o.devices;
  v.DevicesUnlabelled = 0;
  // A share of the view: a positive size would be in map units for all shapes but the bow tie.
  v.DeviceSize = -scaled(std::clamp(13 * zoom, 9.0, 27.0));
  v.ArrowsOn = o.arrows && zoom > 0.75;
  // An arrow below a hundredth of the picture's height is not drawn; this is just above.
  v.ArrowSize = static_cast<int32_t>(std::ceil(displayHeight * 0.0105 / 0.3));
  v.ArrowStyle = 1;
  v.ArrowMinFlow = 1;
  v.ArrowsAtMidVertex = 1;
  v.CustOn = o.customers && zoom > 0.3;
  v.CustSize = scaled(std::clamp(50 * zoom, 26.0, 80.0));
  v.CustColor = kCustomer;
  v.CustSymbol = 3;
  v.CustTextColor = 0x305878;
  const double limit = 1e30;
  const auto fill = [&](bool on, int32_t& mask, float& labelLimit, float& font, int32_t& transparent, int32_t& units,
                        int32_t* slots, size_t count, const std::vector<int16_t>& fields) {
    mask = on;
    labelLimit = static_cast<float>(limit);
    font = static_cast<float>(o.textPoints);
    transparent = 1;
    units = o.units;
    for (size_t i = 0; i < fields.size() && i < count; i++) slots[i] = fields[i];
  };
  fill(o.nodeLabels, v.NodeLabelMask, v.NodeLabelLimit, v.NodeFontSize, v.NodeTransparent, v.NodeUnits, v.NodeLabel, 20,
       o.nodeFields);
  fill(o.pipeLabels, v.PipeLabelMask, v.PipeLabelLimit, v.PipeFontSize, v.PipeTransparent, v.PipeUnits, v.PipeLabel, 19,
       o.pipeFields);
  fill(o.customerLabels, v.CustLabelMask, v.CustLabelLimit, v.CustFontSize, v.CustTransparent, v.CustUnits, v.CustLabel,
       20, o.customerFields);
  v.NodeLabelAngle = o.view == View::Isometric ? 900 : 450;  // across the streets
  v.CustLabelAngle = 900;
  v.NodeLeader = 1;
  return v;
}

PlotOpts plotOptions(const MapOptions& o) {
  PlotOpts p{};
  p.Mono = o.mono;
  p.ClipOn = 1;
  p.ShortPipeSkip = 1;
  p.PollPercent = 100;
  p.HiliteColor = 0x0000E0;
  p.PrintNodeSize = static_cast<int32_t>(28 * o.symbolScale);
  p.PrintCustSize = static_cast<int32_t>(45 * o.symbolScale);
  p.PrintLineWidth = std::max(1, static_cast<int32_t>(7 * o.lineScale));
  p.PrintLabelsOn = 1;
  const auto points = static_cast<float>(o.textPoints * 10 * kPaperText);
  p.NodePrintFontSize = p.PipePrintFontSize = p.CustPrintFontSize = points;
  return p;
}

/**
 * Arrows of 0.08 inches: on paper they take the factor of the nodes, which is their print size over the screen's. Nodes
 * without a size on the screen have the factor 1; with one there and none on paper, arrows have none either.
 */
int32_t paperArrowSize(const ViewOpts& view, const PlotOpts& plot) {
  if (view.NodeSize != 0 && plot.PrintNodeSize == 0) return 0;
  const double nodeFactor = view.NodeSize != 0 ? plot.PrintNodeSize * 0.001 / (view.NodeSize * 0.1 / 96) : 1;
  return static_cast<int32_t>(std::lround(0.08 * 96 / 0.3 / nodeFactor));
}

/**
 * Widths for what the libraries give none: "by lookup" of a device, or of a size without a row, would stand as the code
 * itself, 99 dots. Flags are a tenth of the picture high by their rule, so they are shown when asked for. In memory
 * only.
 */
void settleRecords(const MapOptions& o) {
  for (int32_t p = 1; p <= recordCount(Kind::Pipe); p++) {
    const bool sized = number(Kind::Pipe, p, PDT_HYD_TYPE) == 0 && number(Kind::Pipe, p, PDT_LOOKUP_ROW) > 0;
    if (number(Kind::Pipe, p, PDT_LINE_WIDTH) == 0 && !sized) SetPdtVal(p, PDT_LINE_WIDTH, "", 2);
    if (!o.flags) SetPdtVal(p, PDT_FLAG_BYTE, "", 0);
  }
  for (int32_t n = 1; !o.flags && n <= recordCount(Kind::Node); n++) SetNdtVal(n, NDT_FLAG_TYPE, "", 0);
  for (int32_t c = 1; !o.flags && c <= recordCount(Kind::Customer); c++) SetCdtVal(c, CDT_FLAG_BYTE, "", 0);
}

/** How large the picture shows the network: the length of a typical pipe in units of an inch. */
double zoomOf(const Mapping& map, const Sheet& sheet) {
  std::vector<double> lengths;
  const int32_t pipes = recordCount(Kind::Pipe), step = std::max(1, pipes / 2000);
  for (int32_t p = 1; p <= pipes; p += step) {
    if (isDeleted(Kind::Pipe, p)) continue;
    const Point a = map(number(Kind::Pipe, p, PDT_FROM_X), number(Kind::Pipe, p, PDT_FROM_Y));
    const Point b = map(number(Kind::Pipe, p, PDT_TO_X), number(Kind::Pipe, p, PDT_TO_Y));
    lengths.push_back(std::hypot(b.x - a.x, b.y - a.y) / sheet.dpi);
  }
  if (lengths.empty()) return 1;
  std::nth_element(lengths.begin(), lengths.begin() + static_cast<std::ptrdiff_t>(lengths.size() / 2), lengths.end());
  return lengths[lengths.size() / 2];
}

void hilite(const MapOptions& o) {
  // There is no call that hilites a record: a colour of its own marks it, in memory only.
  // A size in percent of the picture's height is seen at every scale; the usual one may be too small to be painted.
  for (const int32_t n : o.hiliteNodes) SetNdtVal(n, NDT_COLOR, "", 0x0000E0), SetNdtVal(n, NDT_SYM_SIZE, "", -1.5);
  for (const int32_t p : o.hilitePipes) SetPdtVal(p, PDT_COLOR, "", 0x0000E0), SetPdtVal(p, PDT_LINE_WIDTH, "", 5);
}

}  // namespace

std::string pictureKind(const std::string& path) {
  std::string ending = path.size() > 4 ? path.substr(path.size() - 4) : "";
  for (char& c : ending) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
  return ending == ".png" || ending == ".pdf" || ending == ".svg" ? ending : "";
}

void paintMap(const MapOptions& given) {
  MapOptions o = given;
  Sheet sheet(o);
  const double aspect = static_cast<double>(sheet.width) / sheet.height;
  const Window window = pictureWindow(o, aspect);
  const Mapping map{window, sheet.width, sheet.height, o.view};
  const double zoom = zoomOf(map, sheet);
  // A crowd of labels says nothing: below a quarter inch per pipe there are none.
  if (zoom < 0.25) o.nodeLabels = o.pipeLabels = o.customerLabels = false;
  if (zoom < 0.8) o.customerLabels = false;
  settleRecords(o);
  hilite(o);

  if (o.colorBy == ColorBy::Trace) o.arrows = false;
  const double displayHeight = sheet.height * 96.0 / sheet.dpi;
  ViewOpts view = viewOptions(o, zoom, displayHeight);
  const PlotOpts plot = plotOptions(o);
  if (sheet.paper()) view.ArrowSize = paperArrowSize(view, plot);
  if (o.nodeLabels || o.pipeLabels || o.customerLabels) {
    const double em = o.textPoints * sheet.dpi / 72 * (sheet.paper() ? kPaperText : 1);
    giveRoomToLabels(o, map, em, -view.DeviceSize * 0.001 * sheet.height);
  }
  UnitOpts units{};
  std::copy(std::begin(o.digits), std::end(o.digits), std::begin(units.Digits));
  SetDrawVars(sheet.paper() ? 1 : 0, sheet.dc, nullptr, 1, &plot, &view, &units, nullptr, 0, 0,
              o.view == View::Isometric, o.view == View::Geographic ? 1 : 0, 0, 1);
  SetPNGDIScale(window.left, window.top, window.right, window.bottom, sheet.width, sheet.height, 0.5f,
                static_cast<float>(displayHeight), window.left, window.top, window.right, window.bottom);
  // A trace left its colours in the screen records: widths and types are worked out, the colours stay.
  for (int32_t p = 1; o.colorBy == ColorBy::Trace && p <= recordCount(Kind::Pipe); p++) {
    const int32_t traced = GetColorPXY(p);
    SetPipeColor(p);
    SetPdtVal(p, PDT_XY_COLOR, "", traced);
  }
  int16_t pipes = o.colorBy != ColorBy::Trace, nodes = 1, customers = o.colorBy != ColorBy::Trace;
  DrawPict(1, recordCount(Kind::Pipe), 1, recordCount(Kind::Node), 1, recordCount(Kind::Customer), 0, 0, 0, 0, 0,
           &pipes, &nodes, &customers, 0);
  sheet.finish();
}

}  // namespace host
