/** Whole pictures of a street scene and of damaged networks: objects, selections, harmlessness. */
#include <algorithm>
#include <limits>
#include <random>
#include <sstream>

#include "model/draw_state.h"
#include "support/model_builder.h"
#include "support/random_network.h"
#include "support/scene.h"

namespace pn10::test {
namespace {

/** A kind of picture, by what it changes in the view. */
struct Kind {
  const char* name;
  void (*change)(SceneView&);
};

void selectAll(SceneView& v) {
  v.plot.GripsOn = v.plot.GripsShown = 1;
  for (int32_t n = 1; n <= model.nodeCount; n++) model.nxy[n].HILITE = 1;
  for (int32_t p = 1; p <= model.pipeCount; p++) model.pxy[p].HILITE = 1;
  for (int32_t c = 1; c <= model.custCount; c++) model.cxy[c].HILITE = 1;
}

constexpr Kind kKinds[] = {
    {"plain", [](SceneView&) {}},
    {"isometric", [](SceneView& v) { v.iso = 1, v.x1 = 170, v.y0 = 70, v.y1 = -70; }},
    {"geographic", [](SceneView& v) { v.projection = 1, v.zoom = 3, v.y0 = v.geo[1] = 80; }},
    {"plain without special handling", [](SceneView& v) { v.projection = 2; }},
    {"paper", [](SceneView& v) { v.devMode = 1; }},
    {"reduced mono paper", [](SceneView& v) { v.devMode = 2, v.plot.Mono = v.plot.Metric = 1; }},
    {"selected", selectAll},
    {"cleared",
     [](SceneView& v) {
       selectAll(v);
       v.paintQuietly();
       v.clearHilite = 1;
     }},
    {"lines only", [](SceneView& v) { v.linesOnly = 1; }},
    {"far out", [](SceneView& v) { v.x1 = 1e6, v.y0 = 1e6; }},
    {"a window without size", [](SceneView& v) { v.x1 = v.x0, v.y1 = v.y0; }},
    {"beyond the limits",
     [](SceneView& v) { v.view.NodeZoomLimit = v.view.CustZoomLimit = 1, v.view.SymbolsAllZoom = 1; }},
    {"open arrows, segment numbers",
     [](SceneView& v) { v.view.ArrowStyle = 0, v.view.PipeLabel[2] = 71, v.view.CustLabel[5] = 428; }},
    {"cancelled",
     [](SceneView& v) {
       v.plot.PollPercent = 0;
       PnPostMessage(v.window, 0x100, 27, 1 << 16);
     }},
};

/** The last selection of each kind of object in a log. */
std::string lastSelections(const std::string& log) {
  std::string pen, brush, font, line;
  std::istringstream in(log);
  while (std::getline(in, line)) {
    if (line.starts_with("SelectObject pen")) pen = line;
    if (line.starts_with("SelectObject brush")) brush = line;
    if (line.starts_with("SelectObject font")) font = line;
  }
  return pen + "\n" + brush + "\n" + font + "\n";
}

int made(const std::string& log) {
  int count = 0;
  std::string line;
  std::istringstream in(log);
  while (std::getline(in, line)) {
    count += line.starts_with("Create") || line.starts_with("ExtCreate");
    count -= line.starts_with("DeleteObject");
  }
  return count;
}

TEST(ScenePictures, every_kind_leaves_objects_and_selections_as_they_were) {
  for (const Kind& kind : kKinds) {
    SCOPED_TRACE(kind.name);
    Fresh fresh;
    makeStreetScene();
    SceneView view;
    showEverything(view);
    kind.change(view);
    const int32_t objects = PnGetObjectCount();
    const std::string log = view.paint();
    EXPECT_EQ(PnGetObjectCount(), objects);
    EXPECT_EQ(made(log), 0);
    EXPECT_EQ(lastSelections(log),
              "SelectObject pen(0,1,0x000000)\nSelectObject brush(0,0xFFFFFF)\n"
              "SelectObject font(0,0,400,0,0,\"System\")\n");
    EXPECT_EQ(drawState.LabelFont, nullptr);
    EXPECT_EQ(drawState.LabelEscapement, -1);
  }
}

TEST(ScenePictures, a_picture_makes_objects_by_changes_not_by_items) {
  Fresh fresh;
  makeStreetGrid({2000, 100, 30, 20});
  SceneView view;
  const std::string log = view.paint();
  std::string line;
  int created = 0, painted = 0;
  std::istringstream in(log);
  while (std::getline(in, line)) {
    created += line.starts_with("Create") || line.starts_with("ExtCreate");
    painted += line.starts_with("LineTo");
  }
  EXPECT_GT(painted, 2000);
  EXPECT_LE(created, 12);
}

TEST(ScenePictures, no_label_of_the_scene_stands_on_its_head) {
  Fresh fresh;
  makeStreetScene();
  SceneView view;
  showEverything(view);
  std::istringstream fonts(only(view.paint(), {"CreateFontIndirectA"}));
  std::string line;
  while (std::getline(fonts, line)) {
    const int escapement = std::atoi(line.c_str() + line.find(',') + 1);
    EXPECT_FALSE(escapement > 910 && escapement < 2711) << line;
  }
}

/** Values that no host should write and that must do no harm. */
template <class T>
void spoil(std::mt19937& random, T& value) {
  const double wild[] = {0, -1, 1, 1e300, -1e300, 65535, 32768, 2147483647.0, -2147483648.0, 4};
  const double pick = wild[random() % 10];
  if constexpr (std::is_floating_point_v<T>) {
    value = random() % 5 ? static_cast<T>(pick) : std::numeric_limits<T>::quiet_NaN();
  } else {
    value = static_cast<T>(static_cast<int64_t>(std::clamp(pick, -2147483648.0, 2147483647.0)));
  }
}

void spoilTables(std::mt19937& random) {
  for (int32_t n = 1; n <= model.nodeCount; n++) {
    Ndt& r = model.ndt[n];
    model.nxy[n].Drawn = -1;
    if (random() % 3) continue;
    spoil(random, r.X_COORD), spoil(random, r.TEXT_X), spoil(random, r.TEXT_ANGLE), spoil(random, r.SYM_SIZE);
    spoil(random, r.SYMBOL), spoil(random, r.FLAG_TYPE), spoil(random, r.Z_COORD), spoil(random, r.Q_FACTOR);
  }
  for (int32_t p = 1; p <= model.pipeCount; p++) {
    Pdt& r = model.pdt[p];
    PXY& s = model.pxy[p];
    s.Display = 1;
    if (random() % 3) continue;
    spoil(random, s.FIRST_VTX), spoil(random, s.LAST_VTX), spoil(random, s.LineType), spoil(random, s.LineWidth);
    spoil(random, r.VTX_MODE), spoil(random, r.HYD_TYPE), spoil(random, r.TEXT_Y), spoil(random, r.FLOW);
    if (random() % 8 == 0) spoil(random, r.FROM_NODE), spoil(random, r.TO_NODE);
  }
  for (int32_t c = 1; c <= model.custCount; c++) {
    Cdt& r = model.cdt[c];
    CXY& s = model.cxy[c];
    r.VTX_MODE = 4;
    if (random() % 3) continue;
    spoil(random, s.FIRST_VTX), spoil(random, s.LAST_VTX), spoil(random, r.PIPE_REC), spoil(random, r.X_COORD);
    spoil(random, r.HOST_SHORT_409), spoil(random, r.HOST_SHORT_410), spoil(random, r.FLAG_BYTE);
  }
}

TEST(ScenePictures, spoiled_records_do_no_harm_in_any_kind_of_picture) {
  for (uint32_t seed = 1; seed <= 12; seed++) {
    for (const Kind& kind : kKinds) {
      Fresh fresh;
      std::mt19937 random(seed);
      makeRandomNetwork(seed, {40, 60, 30});
      spoilTables(random);
      SceneView view;
      showEverything(view);
      spoil(random, view.view.DeviceSize), spoil(random, view.view.ArrowSize), spoil(random, view.plot.PollPercent);
      kind.change(view);
      const int32_t objects = PnGetObjectCount();
      view.paintQuietly();
      EXPECT_EQ(PnGetObjectCount(), objects) << kind.name << " " << seed;
    }
  }
}

}  // namespace
}  // namespace pn10::test
