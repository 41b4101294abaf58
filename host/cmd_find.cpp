// pn10 find: a node by its name, a pipe by its id or identifier, or what lies at a point.
#include <pn10gdi.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "commands.h"
#include "extent.h"
#include "model_files.h"
#include "output.h"
#include "records.h"

namespace host {

namespace {

void print(const Args& args, Kind kind, int32_t record, double distance) {
  const bool node = kind == Kind::Node;
  const std::string name = utf8(node ? text(kind, record, NDT_NODENAME) : text(kind, record, PDT_LINK_ID));
  const double id = node ? number(kind, record, NDT_ID) : number(kind, record, PDT_ID);
  if (args.has("--json")) {
    Json json;
    json.open('{')
        .member("kind", kindName(kind))
        .member("record", double(record))
        .member("id", id)
        .member("name", name);
    if (distance >= 0) json.member("distance", distance);
    std::printf("%s\n", json.close('}').text().c_str());
    return;
  }
  std::printf("%s %d, id %s, \"%s\"", kindName(kind), record, shortNumber(id).c_str(), name.c_str());
  if (!node) {
    std::printf(", from \"%s\" to \"%s\"", utf8(text(kind, record, PDT_FROM_NAME)).c_str(),
                utf8(text(kind, record, PDT_TO_NAME)).c_str());
  }
  if (distance >= 0) std::printf(", distance %s", shortNumber(distance).c_str());
  std::printf("\n");
}

int32_t findNode(const std::string& name, bool partial) {
  std::string upper = ansi(name);
  StrUpper(upper.data());
  return FindNodeByName(upper.c_str(), static_cast<int32_t>(upper.size()), 1, partial);
}

int32_t findPipe(const std::string& word, bool partial) {
  int32_t id = 0;
  if (parseWhole(word, &id)) {
    if (const int32_t pipe = FindPipeByID(id)) return pipe;
  }
  std::string upper = ansi(word);
  StrUpper(upper.data());
  return FindPipeByLinkID(upper.c_str(), 1, partial);
}

/** The nearest node that is not farther away than `within`, which receives its distance; the first of equals, or 0. */
int32_t nodeAt(double x, double y, double* within) {
  int32_t found = 0;
  for (int32_t n = 1; n <= recordCount(Kind::Node); n++) {
    const double away = std::hypot(number(Kind::Node, n, NDT_X_COORD) - x, number(Kind::Node, n, NDT_Y_COORD) - y);
    const bool nearer = found ? away < *within : away <= *within;  // neither, for a place that is no number
    if (!nearer || isDeleted(Kind::Node, n)) continue;
    found = n;
    *within = away;
  }
  return found;
}

/** From end to end of a pipe, on the map. */
double chord(int32_t pipe) {
  return std::hypot(number(Kind::Pipe, pipe, PDT_TO_X) - number(Kind::Pipe, pipe, PDT_FROM_X),
                    number(Kind::Pipe, pipe, PDT_TO_Y) - number(Kind::Pipe, pipe, PDT_FROM_Y));
}

int run(const Args& args) {
  const int asked = args.has("--node") + args.has("--pipe") + args.has("--at");
  if (asked != 1) throw UsageError{"one of --node, --pipe and --at is wanted"};
  openModel(modelBase(args.positional[0]));
  const bool partial = args.has("--partial");
  Kind kind = Kind::Pipe;
  int32_t record = 0;
  double away = -1;
  if (args.has("--node")) {
    kind = Kind::Node;
    record = findNode(args.text("--node"), partial);
  } else if (args.has("--pipe")) {
    record = findPipe(args.text("--pipe"), partial);
  } else {
    const std::vector<double> at = args.numbers("--at", 2);
    const Extent extent = modelExtent(false);
    const double radius = args.numberWithin("--radius", 0.01 * (extent.width() + extent.height()), 0, 1e30);
    float toPipe = static_cast<float>(radius);
    double toNode = radius;
    record = FindPipeXY(at[0], at[1], &toPipe, 0, 0, 0, 0);
    away = static_cast<double>(toPipe);
    // Who points at a node is on the first twentieth of its pipes, or beside all of them.
    const int32_t node = nodeAt(at[0], at[1], &toNode);
    if (node && (!record || toNode <= std::max(1.5 * away, chord(record) / 20))) {
      kind = Kind::Node;
      record = node;
      away = toNode;
    }
  }
  if (!record) {
    closeModel();
    throw Failure{args.positional[0] + ": nothing found"};
  }
  print(args, kind, record, away);
  closeModel();
  return 0;
}

}  // namespace

Command findCommand() {
  return {"find",
          "BASE",
          "A node by name, a pipe by id or identifier, or what lies at a point.",
          "pn10 find town/town --node \"Forest Rd & Clark Blvd\"",
          {{"--node", "NAME", "a node, in any case"},
           {"--pipe", "ID", "a pipe by its id, or by its external identifier"},
           {"--partial", nullptr, "a part of the name or identifier is enough"},
           {"--at", "X,Y", "the node or pipe nearest to a point of the map"},
           {"--radius", "R", "how far from the point, in map units (1 percent of the map)"},
           {"--json", nullptr, "as JSON"}},
          run};
}

}  // namespace host
