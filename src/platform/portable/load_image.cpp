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

constexpr int64_t kFileHeader = 14, kOldHeader = 12, kLongestRun = 255;
constexpr DWORD kMasksWithAlpha = 6;
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

uint32_t word(const uint8_t* at, int bytes) {
  uint32_t value = 0;
  for (int i = 0; i < bytes; i++) value |= uint32_t{at[i]} << (8 * i);
  return value;
}

/** A header with room for the longest one taken and a full colour table. */
struct Header {
  BITMAPINFO info;
  uint8_t more[256 + 1024];
};

/** The oldest header has 16-bit sizes and three bytes per colour. */
void readOldHeader(const uint8_t* at, Header* header) {
  BITMAPINFOHEADER& h = header->info.bmiHeader;
  h.biSize = sizeof h;
  h.biWidth = static_cast<LONG>(word(at + 4, 2));
  h.biHeight = static_cast<LONG>(word(at + 6, 2));
  h.biPlanes = static_cast<WORD>(word(at + 8, 2));
  h.biBitCount = static_cast<WORD>(word(at + 10, 2));
  auto* colors = reinterpret_cast<uint8_t*>(header) + sizeof h;
  const int count = h.biBitCount <= 8 ? 1 << h.biBitCount : 0;
  for (int i = 0; i < count; i++) std::memcpy(colors + 4 * i, at + kOldHeader + 3 * i, 3);
}

/** Rows of runs into a bitmap of 4 or 8 bits; what runs out of it, or is cut off, is left out. */
void decodeRuns(const uint8_t* in, int64_t size, Bitmap& bitmap) {
  const int bits = bitmap.format.bits;
  int64_t x = 0, y = 0; /* the lowest row first */
  const auto put = [&](uint32_t index) {
    if (x < bitmap.width) putPaletteIndex(bitmap.bits + bitmap.stride * y, bits, x, index);
    x++;
  };
  const auto indexIn = [&](const uint8_t* bytes, int i) -> uint32_t {
    if (bits == 8) return bytes[i];
    return i % 2 ? bytes[i / 2] & 15u : bytes[i / 2] >> 4;
  };
  for (int64_t at = 0; at + 1 < size && y < bitmap.height;) {
    const uint8_t count = in[at], value = in[at + 1];
    at += 2;
    if (count) { /* one colour, or two by turns, `count` times */
      for (int i = 0; i < count; i++) put(bits == 8 ? value : indexIn(&value, i % 2));
    } else if (value == 0) { /* end of the row */
      x = 0;
      y++;
    } else if (value == 1) { /* end of the picture */
      return;
    } else if (value == 2) { /* a step aside and up */
      if (at + 1 >= size) return;
      x += in[at];
      y += in[at + 1];
      at += 2;
    } else { /* pixels as they are, padded to whole words */
      const int64_t bytes = bits == 8 ? value : (value + 1) / 2;
      if (at + bytes > size) return;
      for (int i = 0; i < value; i++) put(indexIn(in + at, i));
      at += (bytes + 1) & ~int64_t{1};
    }
  }
}

/** The bitmap of a file; null when the file is no whole bitmap. */
Bitmap* readBitmap(const FileBytes& file) {
  if (file.size < kFileHeader + kOldHeader || std::memcmp(file.data, "BM", 2) != 0) return nullptr;
  const uint8_t* const at = file.data + kFileHeader;
  const int64_t pixels = word(file.data + 10, 4);
  Header header = {};
  if (word(at, 4) == kOldHeader) {
    readOldHeader(at, &header);
  } else {
    std::memcpy(&header, at, static_cast<size_t>(std::min<int64_t>(file.size - kFileHeader, sizeof header)));
  }
  BITMAPINFOHEADER& h = header.info.bmiHeader;
  const bool runs =
      (h.biCompression == BI_RLE8 && h.biBitCount == 8) || (h.biCompression == BI_RLE4 && h.biBitCount == 4);
  if (runs) h.biCompression = BI_RGB;
  if (h.biCompression == kMasksWithAlpha) h.biCompression = BI_BITFIELDS;
  DibLayout layout;
  if (!readDibHeader(&header.info, &layout) || pixels < kFileHeader || pixels > file.size) return nullptr;
  /* A pair of bytes stands for 255 pixels at most: a larger picture is a slip, or made to fill the memory. */
  const bool tooLarge = runs ? int64_t{layout.width} * layout.height > kLongestRun * file.size || layout.topDown
                             : pixels + layout.size > file.size;
  if (tooLarge) return nullptr;
  Bitmap* bitmap = newBitmap(layout.format, layout.width, layout.height, layout.topDown);
  if (!bitmap) return nullptr;
  if (runs) {
    decodeRuns(file.data + pixels, file.size - pixels, *bitmap);
  } else {
    std::memcpy(bitmap->bits, file.data + pixels, static_cast<size_t>(layout.size));
  }
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
