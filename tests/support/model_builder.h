/**
 * Models for tests: records in memory, grown the way a host grows them, and model files packed by hand, value by
 * value, independent of the library's column tables.
 */
#ifndef PN10_TESTS_MODEL_BUILDER_H
#define PN10_TESTS_MODEL_BUILDER_H

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "model/tables.h"
#include "support/support.h"

namespace pn10::test {

/* --- records ---------------------------------------------------------------------------------- */

/** "N1", "N2" and so on. */
std::string nodeName(int32_t number);

/** Records with the given values and zeros elsewhere. */
Ndt nodeRecord(int32_t id, std::string_view name, double x = 0, double y = 0);
Pdt pipeRecord(int32_t id, int32_t fromNode, int32_t toNode, int vtxMode = 0);
Cdt custRecord(int32_t id, int32_t pipe, double x = 0, double y = 0);
Vtx vtxRecord(int32_t owner, int kind, double x = 0, double y = 0, float z = 0);
Fdt ftgRecord(int32_t pipeId, std::string_view name, int number = 0, float eqLength = 0, int flag = 0);

/** Records with a different value in every member, made from `seed`: for tests of every column. */
Ndt everyNodeField(int seed);
Pdt everyPipeField(int seed);
Cdt everyCustField(int seed);

/* --- files ------------------------------------------------------------------------------------ */

/** The bytes of one record on file: 218, 270, 198, 26, 32. */
std::string packed(const Ndt& node);
std::string packed(const Pdt& pipe);
std::string packed(const Cdt& cust);
std::string packed(const Vtx& vtx);
std::string packed(const Fdt& ftg);

/** A whole file: records at their stride with zeros between; the last one is not filled up. */
std::string fileOf(const std::vector<Ndt>& nodes);
std::string fileOf(const std::vector<Pdt>& pipes);
std::string fileOf(const std::vector<Cdt>& custs);
std::string fileOf(const std::vector<Vtx>& vtxs);
std::string fileOf(const std::vector<Fdt>& ftgs); /* behind four zero bytes */

/* --- tables ----------------------------------------------------------------------------------- */

/** Tables of so many zeroed records with their screen records, and the counts that go with them, as after a load. */
void makeEmptyTables(int32_t nodes, int32_t pipes = 0, int32_t customers = 0, int32_t vertices = 0);

/** Adds one record the way a host does: grow table and screen table, count, set. Returns its record number. */
int32_t addNode(const Ndt& node);
int32_t addPipe(const Pdt& pipe);
int32_t addCust(const Cdt& cust);
int32_t addVtx(const Vtx& vtx);
int32_t addFtg(const Fdt& ftg);
int32_t addText(std::string_view text, double x = 0, double y = 0, int group = 0);
int32_t addUgd(int kind, double x1, double y1, double x2, double y2, int group = 0);

/** Short forms: ids are the next free ones, node names are "N1", "N2" and so on. */
int32_t addNode(double x, double y);
int32_t addPipe(int32_t fromNode, int32_t toNode);
int32_t addCust(int32_t pipe, double x, double y);

/** `count` nodes named "N1" and so on, at (10, 0), (20, 0) and so on. */
void addNodes(int32_t count);

struct Point {
  double x, y;
  float z = 0;
};
/** Gives a pipe a vertex run through `points`: VTX_MODE 4, kind 0, bound in its screen record. */
void addRun(int32_t pipe, std::initializer_list<Point> points);
/** Gives a customer a service line through `points`: VTX_MODE 4, kind 1. */
void addService(int32_t cust, std::initializer_list<Point> points);
/** Makes a pipe an arc of a radius and an included angle in radians: VTX_MODE 1, kind 8. */
void addArc(int32_t pipe, double radius, double angle);

}  // namespace pn10::test

#endif
