/** LoadImageA: bitmap files, for the one question whether they can be read. */
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/portable/bitmaps.h"
#include "platform/portable/log.h"
#include "platform/user.h"

using namespace pn10::portable;

namespace {

constexpr int64_t kFileHeader = 14;
constexpr int64_t kLargestFile = INT32_MAX;

/** A whole file in memory, with slack behind it so that a short colour table reads as black. */
struct FileBytes {
  uint8_t* data = nullptr;
  int64_t size = 0;
  ~FileBytes() { std::free(data); }

  bool read(const char* path) {
    std::FILE* file = std::fopen(path, "rb");
    if (!file) return false;
    const bool sized = std::fseek(file, 0, SEEK_END) == 0;
    size = sized ? std::ftell(file) : -1;
    bool whole = size > 0 && size <= kLargestFile && std::fseek(file, 0, SEEK_SET) == 0;
    if (whole) data = static_cast<uint8_t*>(std::calloc(static_cast<size_t>(size) + 2048, 1));
    whole = whole && data && std::fread(data, 1, static_cast<size_t>(size), file) == static_cast<size_t>(size);
    std::fclose(file);
    return whole;
  }
};

uint32_t word32(const uint8_t* at) {
  return uint32_t{at[0]} | uint32_t{at[1]} << 8 | uint32_t{at[2]} << 16 | uint32_t{at[3]} << 24;
}

/** The bitmap of a file; null when the file is no whole bitmap. */
Bitmap* readBitmap(const FileBytes& file) {
  if (file.size < kFileHeader + int64_t{sizeof(BITMAPINFOHEADER)} || std::memcmp(file.data, "BM", 2) != 0) {
    return nullptr;
  }
  const int64_t pixels = word32(file.data + 10);
  struct {
    BITMAPINFO info;
    uint8_t more[256 + 1024]; /* the longest header taken, and a full colour table */
  } header = {};
  const int64_t known = file.size - kFileHeader;
  std::memcpy(&header, file.data + kFileHeader, static_cast<size_t>(std::min<int64_t>(known, sizeof header)));
  DibLayout layout;
  if (!readDibHeader(&header.info, &layout)) return nullptr;
  if (pixels < kFileHeader || pixels + layout.size > file.size) return nullptr;
  Bitmap* bitmap = newBitmap(layout.format, layout.width, layout.height, layout.topDown);
  if (bitmap) std::memcpy(bitmap->bits, file.data + pixels, static_cast<size_t>(layout.size));
  return bitmap;
}

}  // namespace

HANDLE LoadImageA(HINSTANCE, const char* name, UINT type, int, int, UINT flags) {
  FileBytes file;
  if (!name || type != IMAGE_BITMAP || !(flags & LR_LOADFROMFILE) || !file.read(name)) return nullptr;
  Bitmap* bitmap = readBitmap(file);
  if (!bitmap) return nullptr;
  bitmap->section = flags & LR_CREATEDIBSECTION;
  return enter(bitmap, "LoadImageA");
}
