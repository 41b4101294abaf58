/** A map of the open model on any context: what is shown, in which colours, with labels where there is room. */
#ifndef PN10_HOST_MAP_VIEW_H
#define PN10_HOST_MAP_VIEW_H

#include <pn10gdi.h>

#include <string>
#include <vector>

#include "args.h"
#include "model_files.h"
#include "network.h"

namespace host {

enum class View { Plain, Isometric, Geographic };
enum class ColorBy { Size, Facility, Trace };

struct MapOptions {
  std::string output;
  int32_t width = 1600, height = 1200; /* pixels of an image; on paper hundredths of an inch */
  double dpi = 96;
  std::vector<double> window; /* left, bottom, right, top in map units; empty: the full extent */
  View view = View::Plain;
  ColorBy colorBy = ColorBy::Size;
  double lineScale = 1, symbolScale = 1, textPoints = 8;
  int32_t nodeSymbol = 2;
  bool customers = true, arrows = true, devices = true, mono = false, smooth = true, flags = false;
  bool nodeLabels = true, pipeLabels = true, customerLabels = true;
  std::vector<int16_t> nodeFields{301}, pipeFields{7}, customerFields{422};
  bool units = true;
  float digits[32] = {}; /* decimals of labels, as UnitOpts holds them */
  int32_t background = 0xF5FAFB;
  std::vector<int32_t> hiliteNodes, hilitePipes;
};

/** The options that `render` and the pictures of `trace` share. */
std::vector<Option> mapOptionRows();
MapOptions parseMapOptions(const Args& args);
/** What the model says of itself where the command line is silent: its view, its decimals. */
void takeModelDefaults(const Args& args, const ModelInfo& info, MapOptions* options);

/** ".png", ".pdf" or ".svg", in any case at the end of the name; empty for all else. */
std::string pictureKind(const std::string& path);

/** Paints the open model and writes the file; throws Failure with file and cause. */
void paintMap(const MapOptions& options);

}  // namespace host

#endif
