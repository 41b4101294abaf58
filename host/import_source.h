/** A network as a file describes it, before kinds, sizes and taps are understood. */
#ifndef PN10_HOST_IMPORT_SOURCE_H
#define PN10_HOST_IMPORT_SOURCE_H

#include <deque>

#include "import_text.h"

namespace host {

struct SourceNode {
  std::string id, kind, name;
  Point at;
  double z = 0, demand = 0; /* demand in the units of the source */
  bool placed = false;
  Where where;
};

struct SourceLink {
  std::string id, kind, from, to, status, type;
  double length = 0, diameter = 0, setting = 0; /* 0: not given */
  std::vector<Point> bends;
  Where where;
};

struct SourceCustomer {
  std::string id, serviceLine;
  Point at, tap;
  bool tapped = false; /* the tap is given */
  double demand = 0;
  Where where;
};

struct Source {
  std::string title;
  std::deque<std::string> paths; /* the files, which the places point to */
  std::vector<SourceNode> nodes;
  std::vector<SourceLink> links;
  std::vector<SourceCustomer> customers;
  NetUnits units;
  bool metric = false;
  double flowFactor = 1; /* of demands to units.flow */
};

/** What became of the source, for the report. */
struct ImportCounts {
  size_t houses = 0, unused = 0, cut = 0;
};

/** Reads an EPANET text network. Throws Failure with file and line. */
Source readInp(const std::string& path);
/** Reads nodes.csv, links.csv and, when it is there, customers.csv of a folder; `us`: feet and inches. */
Source readCsvFolder(const std::string& folder, bool us);
/** Sets the units of a source: US customary or metric. */
void setUnits(Source& source, bool metric);

/** Understands a source. Throws Failure with file and line. */
Network makeNetwork(const Source& source, ImportCounts* counts);

/** Finds the pipe nearest to a place in time that does not grow with the network. */
class PipeIndex {
 public:
  explicit PipeIndex(const Network& net);
  /** The nearest pipe and the place on it; -1 without pipes. The earlier one of two at the same distance. */
  int32_t nearest(const Point& to, Point* on) const;

 private:
  struct Piece {
    Point a, b;
    int32_t link;
  };
  void lookInto(int column, int row, const Point& to, double* best, int32_t* link, Point* on) const;

  std::vector<Piece> pieces_;
  std::vector<size_t> first_; /* of a cell in inCell_ */
  std::vector<uint32_t> inCell_;
  double x0_ = 0, y0_ = 0, cell_ = 1;
  int columns_ = 1, rows_ = 1;
};

}  // namespace host

#endif
