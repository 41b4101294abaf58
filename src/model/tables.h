/**
 * The process-wide tables, counters and settings: the ground that everything else stands on.
 *
 * Tables are plain arrays with a slot 0 that no item uses. A count is the highest record number in use;
 * the slots that a table really has stand beside it, because a host may raise a count before it grows the
 * table. Walks and checks go through the helpers below, so that nothing reads past a block.
 *
 * Everything is zero at library load.
 */
#ifndef PN10_MODEL_TABLES_H
#define PN10_MODEL_TABLES_H

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "exports/pn10gdi.h"
#include "model/annotation_records.h"

namespace pn10 {

/** Tables, the slots each block has (slot 0 counted), and the counters. */
struct ModelTables {
  Ndt* ndt;
  NXY* nxy;
  Pdt* pdt;
  PXY* pxy;
  Cdt* cdt;
  CXY* cxy;
  Vtx* vtx;
  Fdt* fdt;
  Gtx* gtx;
  Ugd* ugd;
  Hdr* hdr;
  Rdx* rdx;

  int32_t ndtSlots, nxySlots, pdtSlots, pxySlots, cdtSlots, cxySlots, vtxSlots, fdtSlots, rdxRows;

  int32_t nodeCount, lastNodeId, lastNodeName;
  int32_t pipeCount, lastPipeId;
  int32_t lastGroupId; /* one counter for the groups of pipes and the objects of text and user graphics */
  int32_t custCount, lastCustId;
  int32_t vtxCount;
  int32_t ftgCount;
  int32_t textCount, textCapacity;
  int32_t ugdCount, ugdCapacity, lastUgdId;
};

/** What SetGlobalGDI, SetGlobalUnits, SetAppCancel and SetBaseCond store. */
struct Settings {
  int16_t appCancel;
  char dataPath[261];
  char secondPath[261];
  int32_t offColor;
  char velUnits[41], elevUnits[41], coordUnits[41];
  float velFactor, effFactor;
  float lengthFactor; /* of computed lengths: 0 plane, positive a factor, negative longitude and latitude in degrees */
  float tolerance;    /* points closer than this coincide */
  float baseP, baseT; /* 0 acts as 1 where it divides */
  char patmUnits[41], tempUnits[41], visUnits[41], hvUnits[41];
  float patmFactor, visFactor;
  int16_t tempCode; /* 0 Fahrenheit */
};

extern ModelTables model;
extern Settings settings;

/** The shared buffer of all failure messages. */
extern char messageBuffer[256];

/** Highest record numbers that may be walked: the count, or less when the block is smaller. */
inline int32_t nodeTop() { return std::min(model.nodeCount, model.ndtSlots - 1); }
inline int32_t pipeTop() { return std::min(model.pipeCount, model.pdtSlots - 1); }
inline int32_t custTop() { return std::min(model.custCount, model.cdtSlots - 1); }
inline int32_t vtxTop() { return std::min(model.vtxCount, model.vtxSlots - 1); }
inline int32_t textTop() { return model.gtx ? std::min(model.textCount, model.textCapacity) : 0; }
inline int32_t ugdTop() { return model.ugd ? std::min(model.ugdCount, model.ugdCapacity) : 0; }
inline int32_t ftgTop() { return std::min(model.ftgCount, model.fdtSlots - 1); }

/** True for a record number of an item: 1 to the top. */
inline bool isNode(int32_t n) { return n > 0 && n <= nodeTop(); }
inline bool isPipe(int32_t p) { return p > 0 && p <= pipeTop(); }
inline bool isCust(int32_t c) { return c > 0 && c <= custTop(); }
inline bool isVtx(int32_t v) { return v > 0 && v <= vtxTop(); }
inline bool isFtg(int32_t f) { return f > 0 && f <= ftgTop(); }

/** True for a number whose slot exists, whatever the count says: what the unchecked operations need. */
inline bool hasNodeSlot(int32_t n) { return n >= 0 && n < model.ndtSlots; }
inline bool hasPipeSlot(int32_t p) { return p >= 0 && p < model.pdtSlots; }
inline bool hasCustSlot(int32_t c) { return c >= 0 && c < model.cdtSlots; }
inline bool hasNxySlot(int32_t n) { return n >= 0 && n < model.nxySlots; }
inline bool hasPxySlot(int32_t p) { return p >= 0 && p < model.pxySlots; }
inline bool hasCxySlot(int32_t c) { return c >= 0 && c < model.cxySlots; }
inline bool hasVtxSlot(int32_t v) { return v >= 0 && v < model.vtxSlots; }
inline bool hasFtgSlot(int32_t f) { return f >= 0 && f < model.fdtSlots; }

/**
 * A zeroed table of `count` + 1 records, or null when there is no memory or `count` is negative.
 * Tables come from malloc and go back through releaseTable.
 */
template <class Record>
Record* newTable(int32_t count);
/** A table and its screen table for `count` records; false without memory, and what there was memory for stays. */
template <class Record, class Screen>
bool newTables(Record*& table, int32_t& slots, Screen*& screen, int32_t& screenSlots, int32_t count);
/** Frees a table and sets its pointer to null. */
template <class Record>
void releaseTable(Record*& table);

/** Frees the text table with the text of every row; the pointer becomes null, the counters stay. */
void releaseTexts();

/** The allocator under newTable and the grow operations: calloc and realloc of count + 1 records with 64-bit sizes. */
void* allocateRecords(int32_t count, size_t recordSize);
void* reallocateRecords(void* block, int32_t count, size_t recordSize);
void freeRecords(void* block);

template <class Record>
Record* newTable(int32_t count) {
  return static_cast<Record*>(allocateRecords(count, sizeof(Record)));
}
template <class Record, class Screen>
bool newTables(Record*& table, int32_t& slots, Screen*& screen, int32_t& screenSlots, int32_t count) {
  table = newTable<Record>(count);
  screen = table ? newTable<Screen>(count) : nullptr;
  slots = table ? count + 1 : 0;
  screenSlots = screen ? count + 1 : 0;
  return screen != nullptr;
}
template <class Record>
void releaseTable(Record*& table) {
  freeRecords(table);
  table = nullptr;
}

/** Shows "<format with number>" in a message box, as every accessor does for an unknown field; returns -1.0. */
double unknownField(const char* format, int32_t number);

/** The local date as YYYYMMDD with a terminator: what the setters stamp into REC_DATE. */
void stampDate(char (&date)[9]);

/** Copies at most `size` - 1 bytes of `text` (null counts as empty) and terminates. */
void copyText(char* to, size_t size, const char* text);
template <size_t N>
void copyText(char (&to)[N], const char* text) {
  copyText(to, N, text);
}

}  // namespace pn10

#endif
