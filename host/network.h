/** A network as the sample and the imports describe it, before it becomes a model of the library. */
#ifndef PN10_HOST_NETWORK_H
#define PN10_HOST_NETWORK_H

#include <cstdint>
#include <string>
#include <vector>

namespace host {

struct Point {
  double x = 0, y = 0;
};

struct NetNode {
  std::string name;
  double x = 0, y = 0, z = 0;
  double pressure = -1; /* pressure units; negative: not given */
  bool source = false;  /* its pressure is known */
  double load = 0;      /* in flow units: negative is drawn from the network, positive enters it */
  bool valve = false;
  bool off = false, deleted = false;
  int flag = 0;
};

/** Kinds of pipe records, with the library's numbers. */
enum class LinkKind { Pipe = 0, Regulator = 1, Compressor = 2, Valve = 3, Well = 4, Fitting = 5 };

struct NetLink {
  std::string name;
  LinkKind kind = LinkKind::Pipe;
  int32_t from = 0, to = 0; /* indices of nodes, from 0 */
  std::vector<Point> bends; /* between from and to */
  double arcRadius = 0;     /* above 0: an arc of this radius and angle instead of bends */
  double arcAngle = 0;
  int arcTurn = 1;
  double length = 0;  /* model units; 0: measured */
  double setting = 0; /* set pressure, opening or coefficient of a device */
  std::string size;   /* key of the library of its kind */
  int16_t facility = 1;
  double flow = 0; /* flow units, from `from` to `to` */
  bool off = false, deleted = false;
  int flag = 0;
  std::vector<std::string> fittings; /* keys of the fitting library */
};

struct NetCustomer {
  std::string name;
  int32_t link = -1; /* index of the pipe it is tapped to, from 0 */
  Point at, tap;
  std::vector<Point> service; /* bends of the service line */
  double load = 0;            /* of one unit, flow units, positive */
  int count = 1;
  bool deleted = false;
};

/** A pipe size; inches, or millimetres for a metric one. */
struct NetSize {
  std::string name;
  double wall = 0, outside = 0, inside = 0, roughness = 0.0018;
  int32_t color = -1;
  int16_t lineWidth = 1;
  bool metric = false;
};

struct NetFacility {
  std::string name;
  int32_t color;
  int16_t lineWidth;
};

/** The units that a model's own numbers are in. */
struct NetUnits {
  std::string length = "Feet", pressure = "psig", flow = "cfh", diameter = "Inches";
  bool geographic = false; /* coordinates are longitude and latitude in degrees */
};

struct Network {
  std::vector<NetNode> nodes;
  std::vector<NetLink> links;
  std::vector<NetCustomer> customers;
  std::vector<NetSize> sizes;
  std::vector<NetFacility> facilities;
  NetUnits units;
  std::string title;
};

/**
 * Makes the library's tables of a network and saves model, libraries, facilities and header beside `base`.
 * Everything is written to files of another name first and moved at the end, so that nothing is left half-written.
 * @throws Failure with file and cause
 */
void saveNetwork(const Network& network, const std::string& base);

}  // namespace host

#endif
