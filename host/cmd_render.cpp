// pn10 render: the map of a model as a picture or a page.
#include <pn10gdi.h>
#include <pn10platform.h>

#include <algorithm>
#include <cstdio>

#include "commands.h"
#include "map_view.h"
#include "model_files.h"
#include "output.h"
#include "records.h"

namespace host {

namespace {

/** A colour as people write it: #RRGGBB. */
int32_t parseColor(const std::string& word) {
  if (word.size() == 7 && word[0] == '#' && word.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string::npos) {
    const auto rgb = static_cast<int32_t>(std::stoul(word.substr(1), nullptr, 16));
    return (rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16;
  }
  throw UsageError{"'" + word + "' is no colour like #FBFAF5"};
}

/** "301,302" or "NODENAME,PRESSURE": labels of a kind. */
std::vector<int16_t> parseFields(Kind kind, const std::string& list) {
  std::vector<int16_t> fields;
  for (size_t at = 0; at < list.size();) {
    const size_t comma = std::min(list.find(',', at), list.size());
    fields.push_back(parseField(kind, list.substr(at, comma - at)).number);
    at = comma + 1;
  }
  return fields;
}

template <class Value>
Value oneOf(const Args& args, const char* option, Value otherwise,
            std::initializer_list<std::pair<const char*, Value>> words) {
  if (!args.has(option)) return otherwise;
  std::string all;
  for (const auto& [word, value] : words) {
    if (args.text(option) == word) return value;
    all += std::string(all.empty() ? "" : ", ") + word;
  }
  throw UsageError{std::string(option) + " is one of " + all + ", not '" + args.text(option) + "'"};
}

void hiliteByName(const Args& args, MapOptions* o) {
  for (const std::string& name : args.all("--hilite")) {
    std::string upper = ansi(name);
    StrUpper(upper.data());
    if (const int32_t node = FindNodeByName(upper.c_str(), static_cast<int32_t>(upper.size()), 1, 0)) {
      o->hiliteNodes.push_back(node);
    } else if (const int32_t pipe = FindPipeByLinkID(upper.c_str(), 1, 0)) {
      o->hilitePipes.push_back(pipe);
    } else {
      throw Failure{"no node or pipe is called '" + name + "'"};
    }
  }
}

int run(const Args& args) {
  MapOptions options = parseMapOptions(args);
  if (options.output.empty()) throw UsageError{"an output file is wanted: -o FILE"};
  const ModelInfo info = openModel(modelBase(args.positional[0]));
  takeModelDefaults(args, info, &options);
  hiliteByName(args, &options);
  paintMap(options);
  closeModel();
  return 0;
}

}  // namespace

std::vector<Option> mapOptionRows() {
  return {{"--output", "FILE", "the picture (-o FILE): .png, .pdf or .svg"},
          {"--size", "W,H", "pixels (1600,1200); of a PDF or SVG hundredths of an inch (1100,850)"},
          {"--dpi", "N", "dots per inch of a PNG (96)"},
          {"--window", "L,B,R,T", "left, bottom, right, top in map units (the full extent)"},
          {"--view", "plain|iso|geo", "flat, isometric, or longitude and latitude"},
          {"--colours", "size|facility", "what the colour of a pipe says (size)"},
          {"--lines", "F", "line widths times this (1)"},
          {"--symbols", "F", "symbols, devices and arrows times this (1)"},
          {"--node-symbol", "N", "symbol number of nodes (2, a disc; 3 square, 5 triangle, 7 diamond)"},
          {"--text", "POINTS", "size of labels (8)"},
          {"--node-labels", "FIELDS", "fields in node labels, by number or name, or none (NODENAME)"},
          {"--pipe-labels", "FIELDS", "fields in pipe labels, or none (SIZE_TYPE)"},
          {"--customer-labels", "FIELDS", "fields in customer labels, or none (LINK_ID)"},
          {"--decimals", "N", "decimals of all numbers in labels (those of the model)"},
          {"--background", "#RRGGBB", "paper colour (#FBFAF5)"},
          {"--hilite", "NAME", "a node or pipe painted in red; may be given again"},
          {"--no-customers", nullptr, "no customers and service lines"},
          {"--no-arrows", nullptr, "no flow arrows"},
          {"--no-devices", nullptr, "no device symbols"},
          {"--flags", nullptr, "flags of flagged records, a tenth of the picture high"},
          {"--mono", nullptr, "everything black, on paper"},
          {"--exact", nullptr, "pixels as GDI sets them instead of smooth lines"}};
}

void takeModelDefaults(const Args& args, const ModelInfo& info, MapOptions* options) {
  if (info.units.geographic && !args.has("--view")) options->view = View::Geographic;
  if (options->view == View::Geographic && !info.units.geographic)
    throw Failure{"the coordinates of this model are no longitudes and latitudes: --view geo has nothing to show"};
  std::copy(std::begin(info.digits), std::end(info.digits), std::begin(options->digits));
  if (args.has("--decimals"))
    std::fill(std::begin(options->digits), std::end(options->digits),
              static_cast<float>(args.wholeWithin("--decimals", 1, 0, 9)));
}

MapOptions parseMapOptions(const Args& args) {
  MapOptions o;
  o.output = args.text("--output");
  if (args.has("--output") && pictureKind(o.output).empty())
    throw UsageError{"a picture ends in .png, .pdf or .svg, not '" + o.output + "'"};
  const bool paper = !o.output.empty() && pictureKind(o.output) != ".png";
  if (paper) o.width = 1100, o.height = 850, o.background = 0xFFFFFF;
  if (paper && !PnHasPageDC()) throw NotHere{o.output + ": on this system pictures are written as .png only"};
  if (args.has("--size")) {
    const std::vector<double> size = args.numbers("--size", 2);
    if (!(size[0] >= 16 && size[1] >= 16 && size[0] <= 30000 && size[1] <= 30000))
      throw UsageError{"--size wants 16 to 30000 each way"};
    o.width = static_cast<int32_t>(size[0]);
    o.height = static_cast<int32_t>(size[1]);
  }
  o.dpi = args.numberWithin("--dpi", o.dpi, 20, 2400);
  if (args.has("--window")) {
    o.window = args.numbers("--window", 4);
    if (!(o.window[2] > o.window[0] && o.window[3] > o.window[1]))
      throw UsageError{"--window wants left, bottom, right, top in this order"};
  }
  o.view = oneOf<View>(args, "--view", View::Plain,
                       {{"plain", View::Plain}, {"iso", View::Isometric}, {"geo", View::Geographic}});
  o.colorBy =
      oneOf<ColorBy>(args, "--colours", ColorBy::Size, {{"size", ColorBy::Size}, {"facility", ColorBy::Facility}});
  o.lineScale = args.numberWithin("--lines", 1, 0.1, 100);
  o.symbolScale = args.numberWithin("--symbols", 1, 0, 100);
  o.nodeSymbol = static_cast<int32_t>(args.wholeWithin("--node-symbol", 2, 0, 111));
  o.textPoints = args.numberWithin("--text", o.textPoints, 1, 500);
  if (args.has("--background")) o.background = parseColor(args.text("--background"));
  const auto labels = [&](const char* option, Kind kind, bool& on, std::vector<int16_t>& fields) {
    if (!args.has(option)) return;
    on = args.text(option) != "none";
    if (on) fields = parseFields(kind, args.text(option));
  };
  labels("--node-labels", Kind::Node, o.nodeLabels, o.nodeFields);
  labels("--pipe-labels", Kind::Pipe, o.pipeLabels, o.pipeFields);
  labels("--customer-labels", Kind::Customer, o.customerLabels, o.customerFields);
  o.customers = !args.has("--no-customers");
  o.arrows = !args.has("--no-arrows");
  o.devices = !args.has("--no-devices");
  o.flags = args.has("--flags");
  o.mono = args.has("--mono");
  o.smooth = !args.has("--exact");
  return o;
}

Command renderCommand() {
  return {"render",
          "BASE",
          "The map of a model as PNG, PDF or SVG.",
          "pn10 render town/town -o town.png --window 497000,199000,499000,200500",
          mapOptionRows(),
          run};
}

}  // namespace host
