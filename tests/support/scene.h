/** Pictures for tests and benches: a plain view on a context, and networks to paint. */
#ifndef PN10_TESTS_SCENE_H
#define PN10_TESTS_SCENE_H

#include <string>

#include "platform/gdi.h"
#include "support/support.h"

namespace pn10::test {

/**
 * A host's view with every option record of its own. The world window is 100 x 100 on 1000 x 1000 dots and a display
 * unit is a world unit, so a world length is ten dots; the world's (0, 0) is the dot (0, 1000). A context has 72 dots
 * per inch, so a font of n points is n dots high.
 */
struct SceneView {
  SceneView();
  ~SceneView();
  SceneView(const SceneView&) = delete;
  SceneView& operator=(const SceneView&) = delete;

  /** Hands everything to the library, as before every paint. */
  void setup();
  /** Paints all tables and returns the operation log. */
  std::string paint();
  /** The same without a log. */
  void paintQuietly();
  /** Paints on another context from now on; the caller deletes it. */
  void useContext(HDC context) { dc = context; }

  ViewOpts view{};
  PlotOpts plot{};
  UnitOpts unit{};
  HDC dc;
  HWND window;
  int16_t devMode = 0, iso = 0, projection = 0, zoom = 0;
  int16_t clearHilite = 0, linesOnly = 0;
  int16_t recolourPipes = 0, recolourNodes = 0, recolourCusts = 0;
  int32_t singleNode = 0, singleCust = 0;
  float loadFactor = 1;
  double mapScale = 100;
  double x0 = 0, y0 = 100, x1 = 100, y1 = 0;
  double geo[4] = {0, 100, 100, 0}; /* geographic window: x1, y1, x2, y2 */
  int32_t width = 1000, height = 1000;
  float minPixels = 0, displayHeight = 100;

 private:
  HDC own_;
};

/** A street grid of about `pipes` pipes and 0.9 nodes per pipe in the unit square times `side`. */
struct StreetGrid {
  int32_t pipes = 0;
  double side = 1000;
  int32_t verticesPercent = 30; /* of the pipes: runs of two vertices */
  int32_t customersPercent = 0; /* of the pipes: one customer each */
};
void makeStreetGrid(const StreetGrid& grid);

/** A few streets with everything that a picture can show; it fills a window of 0 to 100. */
void makeStreetScene();
/** The options that go with it: labels, leaders, arrows, marks and grips on. */
void showEverything(SceneView& picture);

}  // namespace pn10::test

#endif
