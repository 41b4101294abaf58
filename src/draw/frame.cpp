/** The calls by which the host describes a device, a window on the world and its options. */
#include "draw/frame.h"

#include "geometry/geographic.h"

using namespace pn10;

namespace {

const PlotOpts kNoPlot = {};
const ViewOpts kNoView = {};
const UnitOpts kNoUnit = {};

constexpr int16_t kProjectionGeographic = 1, kProjectionPlain = 2;

int16_t mapModeOf(int16_t projection, int16_t isoFlag) {
  if (projection == kProjectionGeographic) return 2;
  if (projection == kProjectionPlain) return 3;
  return isoFlag ? 1 : 0;
}

void setIso(int16_t isoFlag) {
  drawState.IsoFlag = isoFlag;
  drawState.Iso30 = 0.5235987901687622f;
  drawState.Iso60 = 1.0471975803375244f;
}

void setNamedColors(DrawState& s) {
  s.Black = 0x000000;
  s.Blue = 0xFF0000;
  s.Cyan = 0xFFFF00;
  s.Grey = 0x7F7F7F;
  s.Green = 0x00FF00;
  s.Magenta = 0xFF00FF;
  s.Red = 0x0000FF;
  s.White = 0xFFFFFF;
  s.Yellow = 0x00FFFF;
}

/** Shortest chord of an arc and shortest pipe worth painting; without a pixel count the pipe's is a pixel in feet. */
void setShortest(DrawState& s, float minPixels, double width, int32_t devWidth) {
  s.MinChord = toFloat(minPixels / s.ScaleX);
  const double pixel = feetPerMetre() * kEarthRadius * width * kRadiansOfDegree / devWidth;
  s.MinPipeLength = toFloat((minPixels > 0 ? s.MinChord : pixel) * 0.5);
}

}  // namespace

int32_t SetDrawVars(int16_t devMode, HDC dc, HWND drawWindow, float loadFactor, const PlotOpts* plotOpts,
                    const ViewOpts* viewOpts, const UnitOpts* unitOpts, HWND keyWindow, int32_t singleNode,
                    int32_t singleCust, int16_t isoFlag, int16_t projection, int16_t zoom, double mapScale) {
  DrawState& s = drawState;
  s.DevMode = devMode;
  s.DC = dc;
  s.DrawWindow = drawWindow;
  s.KeyWindow = keyWindow;
  s.LoadFactor = loadFactor;
  s.Plot = plotOpts ? plotOpts : &kNoPlot;
  s.View = viewOpts ? viewOpts : &kNoView;
  s.Unit = unitOpts ? unitOpts : &kNoUnit;
  s.SingleNode = singleNode;
  s.SingleCust = singleCust;
  s.MapMode = mapModeOf(projection, isoFlag);
  s.Zoom = zoom;
  s.MapScale = mapScale;
  setIso(isoFlag);
  setNamedColors(s);
  return 1;
}

int32_t SetIso(int16_t isoFlag) {
  setIso(isoFlag);
  return 1;
}

int32_t SetDev(int16_t value) {
  drawState.DevValue = value;
  return 1;
}

int32_t SetPNGDIScale(double x0, double y0, double x1, double y1, int32_t devWidth, int32_t devHeight, float minPixels,
                      float displayHeight, double geoX1, double geoY1, double geoX2, double geoY2) {
  DrawState& s = drawState;
  s.X0 = s.ClipX0 = x0;
  s.Y0 = s.ClipY0 = y0;
  s.X1 = s.ClipX1 = x1;
  s.Y1 = s.ClipY1 = y1;
  s.ScaleX = s.ScaleY = 0;
  s.MinChord = s.MinPipeLength = 0;
  if (x1 - x0 != 0) s.ScaleX = devWidth / (x1 - x0);
  if (s.ScaleX != 0 && s.Plot->ShortPipeSkip) setShortest(s, minPixels, x1 - x0, devWidth);
  if (y1 - y0 != 0) s.ScaleY = devHeight / (y1 - y0);
  s.PointsFactor = -static_cast<float>(devHeight) / displayHeight;
  s.UnitsPerDisplay = s.PointsFactor / s.ScaleY;
  s.GeoX1 = geoX1;
  s.GeoY1 = geoY1;
  s.GeoX2 = geoX2;
  s.GeoY2 = geoY2;
  return -1;
}
