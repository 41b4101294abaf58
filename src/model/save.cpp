/**
 * The whole-model save: live records only, renumbered, one previous generation of every file kept.
 *
 * Pipes lead: each writes the end nodes that are not yet on file, its vertices and its fittings, then itself.
 * Customers follow with their service lines. The tables in memory keep their numbers.
 */
#include <cmath>
#include <cstdlib>
#include <memory>
#include <new>

#include "lookup/lookup.h"
#include "model/convert.h"
#include "model/rdx_index.h"
#include "model/record_at.h"
#include "model/saved_file.h"
#include "model/staging.h"

using namespace pn10;

namespace {

enum Result : int32_t {
  kGood = 0,
  kNoPdt = -1,
  kNoRdx = -1,
  kNoVtx = -2,
  kNoNdt = -4,
  kNoMemory = -5,
  kNoCdt = -6,
  kNoFdt = -7,
};

struct Save {
  explicit Save(int32_t rdxCount, const char* path) : base(path), references(rdxCount) {}

  const char* base;
  RdxIndex references;
  RowIndex fittings;          /* by the id of their pipe */
  Buffer<int32_t> nodeNumber; /* record number on file by record number in memory, 0 = not written */
  Buffer<int32_t> pipeNumber; /* likewise */
  SavedFile<kCdtFormat> cdt;
  SavedFile<kNdtFormat> ndt;
  SavedFile<kFdtFormat> fdt;
  SavedFile<kPdtFormat> pdt;
  SavedFile<kVtxFormat> vtx;
  SavedFile<kRdxFormat> rdx;
};

uint32_t hashOf(int32_t id) { return static_cast<uint32_t>(id); }

bool indexFittings(RowIndex& index) {
  const int32_t top = ftgTop();
  if (top <= 0) return true;
  if (!index.allocate(top)) return false;
  for (int32_t i = top; i > 0; i--) {
    const int32_t id = model.fdt[i].FTG_PIPE_ID;
    index.enter(i, hashOf(id), [id](int32_t other) { return model.fdt[other].FTG_PIPE_ID == id; });
  }
  return true;
}

bool prepare(Save& s) {
  return s.nodeNumber.allocate(static_cast<size_t>(std::max(nodeTop(), 0)) + 1) &&
         s.pipeNumber.allocate(static_cast<size_t>(std::max(pipeTop(), 0)) + 1) && indexFittings(s.fittings);
}

Result openFiles(Save& s) {
  if (!s.cdt.open(s.base)) return kNoCdt;
  if (!s.ndt.open(s.base)) return kNoNdt;
  if (!s.fdt.open(s.base)) return kNoFdt;
  if (!s.pdt.open(s.base)) return kNoPdt;
  if ((model.cxy || model.pxy) && !s.vtx.open(s.base)) return kNoVtx;
  return kGood;
}

/** Closes all files; the first in the order of opening that did not take its records decides. */
Result closeFiles(Save& s) {
  const bool cdt = s.cdt.close(), ndt = s.ndt.close(), fdt = s.fdt.close(), pdt = s.pdt.close();
  const bool vtx = s.vtx.close(), rdx = s.rdx.close();
  return !cdt ? kNoCdt : !ndt ? kNoNdt : !fdt ? kNoFdt : !pdt ? kNoPdt : !vtx ? kNoVtx : !rdx ? kNoRdx : kGood;
}

/** Writes the reference of the node in the staging record, when it has one. */
Result saveReference(Save& s) {
  if (staging.node.HAS_RDX == 0) return kGood;
  if (!s.rdx.isOpen() && !s.rdx.open(s.base)) return kNoRdx;
  if (const int32_t row = s.references.find(staging.node.NODENAME)) s.rdx.append(&model.rdx[row]);
  return kGood;
}

/** Puts one end of a pipe on file, unless it is there, and turns `end` into its number on file. */
Result saveNode(Save& s, int32_t& end) {
  if (end < 0 || static_cast<size_t>(end) >= s.nodeNumber.size()) {
    end = 0; /* no such node: a number beyond the .ndt file would make the model unreadable */
    return kGood;
  }
  int32_t& number = s.nodeNumber[static_cast<size_t>(end)];
  if (number == 0) {
    staging.node = nodeAt(end);
    if (staging.node.REC_STATUS < 0) staging.node.REC_STATUS = 1; /* a deleted node in use comes back */
    number = s.ndt.append(&staging.node);
  }
  end = number;
  /* kept: the node staged last decides, also when this end was written before; its row then follows again */
  return saveReference(s);
}

void saveRun(Save& s, int32_t first, int32_t last) {
  if (first < 1) return;
  for (int32_t v = first; v <= last && hasVtxSlot(v); v++) s.vtx.append(&model.vtx[v]);
}

void savePipeVertices(Save& s, int32_t pipe) {
  if (!model.pxy) return;
  const PXY& screen = pipeScreenAt(pipe);
  Pdt& staged = staging.pipe;
  if (staged.VTX_MODE == 1 || staged.VTX_MODE == 2) {
    staged.VTX_FIRST = s.vtx.append(&vtxAt(screen.LAST_VTX)); /* kept: VTX_LAST stays what it was */
  } else if (staged.VTX_MODE == 4) {
    staged.VTX_FIRST = s.vtx.count() + 1; /* also when the run is empty */
    saveRun(s, screen.FIRST_VTX, screen.LAST_VTX);
    staged.VTX_LAST = s.vtx.count();
  }
}

/** The equivalent length of the first `count` fittings of the staged pipe. */
float sumEquivalentLengths(const Save& s, int32_t pipe, int32_t firstFitting, int32_t count) {
  char spare[64] = "";
  const FLut* row = lutRow(lookups.flut, toInt32(GetPdtVal(pipe, spare, 104)));
  const float diameter = row ? row->REF_D : 0.0f;
  const int16_t equation = toInt16(std::abs(static_cast<int>(staging.pipe.EQUATION)));
  float sum = 0.0f;
  for (int32_t i = firstFitting; count > 0; i = s.fittings.next(i), count--) {
    sum += CalcEqLFtgNo(diameter, equation, toInt16(i)); /* kept: the record number stands for the lookup row */
  }
  return sum;
}

/** Writes the fittings of the staged pipe; when there are fewer than it says, the record in memory is put right. */
void savePipeFittings(Save& s, int32_t pipe) {
  Pdt& record = model.pdt[pipe];
  const int32_t wanted = staging.pipe.FTG_COUNT, id = staging.pipe.ID;
  if (wanted == 0) return;
  if (!model.fdt) {
    record.FTG_EQ_LENGTH = 0.0f;
    record.FTG_COUNT = 0;
    return;
  }
  const int32_t first = s.fittings.first(hashOf(id), [id](int32_t i) { return model.fdt[i].FTG_PIPE_ID == id; });
  int32_t found = 0;
  for (int32_t i = first; i && found < wanted; i = s.fittings.next(i), found++) s.fdt.append(&model.fdt[i]);
  if (found == wanted) return;
  record.FTG_EQ_LENGTH = sumEquivalentLengths(s, pipe, first, found);
  record.FTG_COUNT = static_cast<uint8_t>(found);
}

Result savePipes(Save& s) {
  for (int32_t pipe = 1; pipe <= pipeTop(); pipe++) {
    if (model.pdt[pipe].REC_STATUS < 0) continue;
    Pdt& staged = staging.pipe = model.pdt[pipe];
    if (const Result failed = saveNode(s, staged.FROM_NODE)) return failed;
    if (const Result failed = saveNode(s, staged.TO_NODE)) return failed;
    savePipeVertices(s, pipe);
    savePipeFittings(s, pipe);
    staged.FTG_COUNT = model.pdt[pipe].FTG_COUNT;
    staged.FTG_EQ_LENGTH = model.pdt[pipe].FTG_EQ_LENGTH;
    s.pipeNumber[static_cast<size_t>(pipe)] = s.pdt.append(&staged);
  }
  return kGood;
}

/** The number on file of the pipe of a live customer; -1 when the customer goes with its pipe. */
int32_t pipeOfCustomer(const Save& s, int32_t pipe) {
  const bool numbered = pipe > 0 && static_cast<size_t>(pipe) < s.pipeNumber.size();
  const int32_t number = numbered ? s.pipeNumber[static_cast<size_t>(pipe)] : 0;
  if (pipe == 0) return 0;
  if (pipeAt(pipe).REC_STATUS < 0) return -1;
  return number || model.pipeCount == 0 ? number : -1;
}

void saveCustomers(Save& s) {
  for (int32_t cust = 1; cust <= custTop(); cust++) {
    if (model.cdt[cust].REC_STATUS < 0) continue;
    const int32_t pipe = pipeOfCustomer(s, model.cdt[cust].PIPE_REC);
    if (pipe < 0) continue;
    staging.cust = model.cdt[cust];
    staging.cust.PIPE_REC = pipe;
    s.cdt.append(&staging.cust);
    if (staging.cust.VTX_MODE == 4 && hasCxySlot(cust)) saveRun(s, model.cxy[cust].FIRST_VTX, model.cxy[cust].LAST_VTX);
  }
}

int32_t saveModel(Save& s) {
  if (!prepare(s)) return kNoMemory;
  Result result = openFiles(s);
  if (result == kGood) result = savePipes(s);
  if (result == kGood) saveCustomers(s);
  const Result closed = closeFiles(s);
  if (result == kGood) result = closed;
  return result == kGood ? s.pdt.count() : result;
}

struct FreeSave {
  void operator()(Save* s) const {
    s->~Save();
    std::free(s);
  }
};

}  // namespace

int32_t SavePipe(int32_t rdxCount, const char* base) {
  if (model.nodeCount == 0 && model.pipeCount == 0 && model.custCount == 0) return 0;
  void* memory = std::malloc(sizeof(Save)); /* the buffers of six files are too much for a small stack */
  if (!memory) return kNoMemory;
  const std::unique_ptr<Save, FreeSave> save(new (memory) Save(rdxCount, base));
  return saveModel(*save);
}
