/** KERNEL32 of the portable platform: dynamic libraries, the local date, MulDiv and global memory. */
#include "platform/kernel.h"

#include <dlfcn.h>

#include <cctype>
#include <cstdlib>
#include <ctime>
#include <string>

#include "exports/pn10platform.h"

namespace {

int32_t fixedDate = 0;

/** "NAME.dll" under this system's name "libNAME.so"; empty for a name with another ending. */
std::string systemName(const std::string& name) {
  const size_t slash = name.find_last_of("/\\");
  const std::string folder = slash == std::string::npos ? "" : name.substr(0, slash + 1);
  std::string file = slash == std::string::npos ? name : name.substr(slash + 1);
  if (file.size() < 4) return "";
  std::string ending = file.substr(file.size() - 4);
  for (char& c : ending) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (ending != ".dll") return "";
  file.resize(file.size() - 4);
  return folder + "lib" + file + ".so";
}

/** The folder of this library, with its slash; empty when the system does not tell. */
std::string ownFolder() {
  Dl_info info{};
  if (!dladdr(reinterpret_cast<void*>(&systemName), &info) || !info.dli_fname) return "";
  const std::string path = info.dli_fname;
  const size_t slash = path.rfind('/');
  return slash == std::string::npos ? "" : path.substr(0, slash + 1);
}

}  // namespace

HMODULE LoadLibraryA(const char* name) {
  if (!name || !*name) return nullptr;
  const std::string native = systemName(name);
  const bool hasFolder = native.find('/') != std::string::npos;
  const std::string tries[] = {native.empty() || hasFolder ? "" : ownFolder() + native, native, name};
  for (const std::string& path : tries) {
    if (path.empty()) continue;
    if (void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) return library;
  }
  return nullptr;
}

FARPROC GetProcAddress(HMODULE library, const char* name) {
  return library && name ? reinterpret_cast<FARPROC>(dlsym(library, name)) : nullptr;
}

BOOL FreeLibrary(HMODULE library) { return library && dlclose(library) == 0; }

void PnSetDate(int32_t yyyymmdd) { fixedDate = yyyymmdd; }

void GetLocalTime(SYSTEMTIME* time) {
  if (!time) return;
  *time = SYSTEMTIME{};
  if (fixedDate) {
    time->wYear = static_cast<WORD>(fixedDate / 10000);
    time->wMonth = static_cast<WORD>(fixedDate / 100 % 100);
    time->wDay = static_cast<WORD>(fixedDate % 100);
    return;
  }
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  if (!localtime_r(&now, &local)) return;
  time->wYear = static_cast<WORD>(local.tm_year + 1900);
  time->wMonth = static_cast<WORD>(local.tm_mon + 1);
  time->wDayOfWeek = static_cast<WORD>(local.tm_wday);
  time->wDay = static_cast<WORD>(local.tm_mday);
  time->wHour = static_cast<WORD>(local.tm_hour);
  time->wMinute = static_cast<WORD>(local.tm_min);
  time->wSecond = static_cast<WORD>(local.tm_sec);
}

int MulDiv(int a, int b, int c) {
  if (c == 0) return -1;
  const int64_t product = static_cast<int64_t>(a) * b;
  const int64_t divisor = c;
  const bool negative = (product < 0) != (divisor < 0);
  const uint64_t top = product < 0 ? 0 - static_cast<uint64_t>(product) : static_cast<uint64_t>(product);
  const uint64_t bottom = divisor < 0 ? 0 - static_cast<uint64_t>(divisor) : static_cast<uint64_t>(divisor);
  const uint64_t rounded = (top + bottom / 2) / bottom;
  if (rounded > INT32_MAX) return -1;
  return negative ? -static_cast<int>(rounded) : static_cast<int>(rounded);
}

HGLOBAL GlobalAlloc(UINT flags, size_t size) {
  const size_t bytes = size ? size : 1;
  return flags & GMEM_ZEROINIT ? std::calloc(1, bytes) : std::malloc(bytes);
}

HGLOBAL GlobalFree(HGLOBAL memory) {
  std::free(memory);
  return nullptr;
}
