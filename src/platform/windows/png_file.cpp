/** PNG files, written by the imaging component of the system. */
#include <windows.h>

#include <wincodec.h>

#include "platform/memory.h"
#include "platform/windows/image_context.h"

namespace pn10::windows {

namespace {

/** A reference to a component, given back on every way out. */
template <class T>
class Com {
 public:
  Com() = default;
  ~Com() {
    if (object_) object_->Release();
  }
  Com(const Com&) = delete;
  Com& operator=(const Com&) = delete;
  T** slot() { return &object_; }
  T* operator->() const { return object_; }
  T* get() const { return object_; }

 private:
  T* object_ = nullptr;
};

/** Components for this thread. A host that has them already, of whatever kind, keeps its own. */
class ComThread {
 public:
  ComThread() : entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED))) {}
  ~ComThread() {
    if (entered_) CoUninitialize();
  }
  ComThread(const ComThread&) = delete;
  ComThread& operator=(const ComThread&) = delete;

 private:
  bool entered_;
};

bool wideText(const char* text, Buffer<wchar_t>* wide) {
  const int length = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
  return length > 0 && wide->allocate(static_cast<size_t>(length)) &&
         MultiByteToWideChar(CP_ACP, 0, text, -1, wide->data(), length) == length;
}

/** Row by row, so that a large picture does not stand in memory twice. */
HRESULT writeRows(IWICBitmapFrameEncode* frame, const ImageContext& image) {
  const auto width = static_cast<UINT>(image.width);
  Buffer<BYTE> row;
  if (!row.allocate(size_t{width} * 3)) return E_OUTOFMEMORY;
  const uint32_t* pixel = image.pixels;
  for (int32_t y = 0; y < image.height; y++) {
    BYTE* out = row.data();
    for (UINT x = 0; x < width; x++, pixel++) {
      *out++ = static_cast<BYTE>(*pixel);
      *out++ = static_cast<BYTE>(*pixel >> 8);
      *out++ = static_cast<BYTE>(*pixel >> 16);
    }
    const HRESULT written = frame->WritePixels(1, width * 3, width * 3, row.data());
    if (FAILED(written)) return written;
  }
  return S_OK;
}

HRESULT encode(IWICImagingFactory* factory, IWICStream* stream, const ImageContext& image) {
  Com<IWICBitmapEncoder> encoder;
  Com<IWICBitmapFrameEncode> frame;
  WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
  HRESULT done = factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.slot());
  if (SUCCEEDED(done)) done = encoder->Initialize(stream, WICBitmapEncoderNoCache);
  if (SUCCEEDED(done)) done = encoder->CreateNewFrame(frame.slot(), nullptr);
  if (SUCCEEDED(done)) done = frame->Initialize(nullptr);
  if (SUCCEEDED(done)) done = frame->SetSize(static_cast<UINT>(image.width), static_cast<UINT>(image.height));
  if (SUCCEEDED(done)) done = frame->SetPixelFormat(&format);
  // The encoder may answer another format than was asked for; PNG has this one.
  if (SUCCEEDED(done) && format != GUID_WICPixelFormat24bppBGR) done = E_FAIL;
  if (SUCCEEDED(done)) done = writeRows(frame.get(), image);
  if (SUCCEEDED(done)) done = frame->Commit();
  return SUCCEEDED(done) ? encoder->Commit() : done;
}

}  // namespace

bool writePng(const ImageContext& image, const char* path) {
  Buffer<wchar_t> file;
  if (!wideText(path, &file)) return false;
  const ComThread thread;
  bool opened = false, written = false;
  {
    Com<IWICImagingFactory> factory;
    Com<IWICStream> stream;
    HRESULT done = CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                    reinterpret_cast<void**>(factory.slot()));
    if (SUCCEEDED(done)) done = factory->CreateStream(stream.slot());
    if (SUCCEEDED(done)) done = stream->InitializeFromFilename(file.data(), GENERIC_WRITE);
    opened = SUCCEEDED(done);
    written = opened && SUCCEEDED(encode(factory.get(), stream.get(), image));
  }
  // Half a picture is none. The stream has let go of the file here.
  if (opened && !written) DeleteFileW(file.data());
  return written;
}

}  // namespace pn10::windows
