/** The fitting file <base>.fdt: four bytes of version text, then records that keep their numbers. */
#include <cstring>

#include "model/file_handles.h"
#include "model/record_file.h"
#include "model/saved_file.h"
#include "model/tables.h"

using namespace pn10;

namespace {

constexpr RecordFormat kNoHeaderFormat = [] {
  RecordFormat format = kFdtFormat;
  format.header = 0;
  return format;
}();

/** Makes room for records 1 to `top`, zeroing the new ones; on failure the table stays. */
bool resizeFittings(int32_t top) {
  const int32_t old = model.fdt ? model.fdtSlots : 0;
  Fdt* grown = static_cast<Fdt*>(reallocateRecords(model.fdt, top, sizeof(Fdt)));
  if (!grown) return false;
  if (top >= old) std::memset(grown + old, 0, static_cast<size_t>(top + 1 - old) * sizeof(Fdt));
  model.fdt = grown;
  model.fdtSlots = top + 1;
  return true;
}

/** Reads records `first` + 1 to the count, one behind the other. */
template <const RecordFormat& F>
void readFittings(FILE* file, int32_t first, int32_t idOffset) {
  RecordReader<F> reader(file);
  for (int32_t i = first + 1; i <= model.ftgCount; i++) {
    Fdt& f = model.fdt[i];
    reader.next(&f);
    f.FTG_PIPE_ID = static_cast<int32_t>(static_cast<uint32_t>(f.FTG_PIPE_ID) + static_cast<uint32_t>(idOffset));
  }
}

bool hasHeader(const char* version) { return !version || std::strncmp(version, "10.0", std::strlen(version)) == 0; }

}  // namespace

int32_t ReadFtg(const char* base, int16_t append, int32_t idOffset, const char* version) {
  if (append == 0) { /* kept: forgotten, not released */
    model.fdt = nullptr;
    model.fdtSlots = 0;
    model.ftgCount = 0;
  }
  File file(ModelPath(base, kFdtFormat.extension).get(), "rb");
  const int64_t size = file ? fileSize(file.get()) : -1;
  if (size < 0) return -2;
  const int32_t first = append ? std::max(model.ftgCount, 0) : 0;
  const int64_t total = int64_t{first} + recordCount(size - kFdtFormat.header, kFdtFormat.stride);
  model.ftgCount = static_cast<int32_t>(std::min<int64_t>(total, INT32_MAX)); /* kept: as sized, also without memory */
  if (!resizeFittings(model.ftgCount)) return -1;
  if (hasHeader(version)) {
    readFittings<kFdtFormat>(file.get(), first, idOffset);
  } else {
    readFittings<kNoHeaderFormat>(file.get(), first, idOffset);
  }
  return model.ftgCount;
}

int32_t SaveFtg(const char* base, const char* version) {
  if (ftgTop() <= 0) return 0;
  File file;
  if (!openSaved(file, base, kFdtFormat.extension)) return -2;
  char header[kFdtFormat.header] = {};
  if (version) std::memcpy(header, version, strnlen(version, sizeof header));
  std::fwrite(header, 1, sizeof header, file.get());
  const uint8_t hole[kFdtFormat.stride] = {};
  int32_t holes = 0;
  for (int32_t i = 1; i <= ftgTop(); i++) {
    if (model.fdt[i].FTG_PIPE_ID == 0) {
      holes++;
      continue;
    }
    for (; holes > 0; holes--) std::fwrite(hole, 1, sizeof hole, file.get());
    uint8_t bytes[kFdtFormat.stride];
    encodeRecord<kFdtFormat>(&model.fdt[i], bytes);
    std::fwrite(bytes, 1, sizeof bytes, file.get());
  }
  return file.close() ? 0 : -2;
}

void FilePutFdt(int16_t handle, int32_t tableRecord, int32_t fileRecord) {
  if (hasFtgSlot(tableRecord)) writeRecordAt<kFdtFormat>(fileOfHandle(handle), fileRecord, &model.fdt[tableRecord]);
}
