/** The rectangle that the live nodes and customers of the open model lie in. */
#ifndef PN10_HOST_EXTENT_H
#define PN10_HOST_EXTENT_H

namespace host {

struct Extent {
  double minX = 0, minY = 0, maxX = 0, maxY = 0;
  bool empty = true;
  void add(double x, double y);
  double width() const { return maxX - minX; }
  double height() const { return maxY - minY; }
};
/** Nodes, vertices of pipes and, when asked for, customers. */
Extent modelExtent(bool customers);

}  // namespace host

#endif
