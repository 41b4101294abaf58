/**
 * SVG pages as text: one element per mark, so that a drawing stays editable.
 *
 * A clip is a group around what it cuts; it lasts until the clip changes. Raster operations become blend modes: of the
 * element, or of a group of its own under a clip, since a group with a clip keeps its elements from blending with what
 * lies below it.
 */
#include "platform/portable/svg_painter.h"

#include <png.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>

#include "platform/portable/glyphs.h"
#include "platform/portable/vector_painter.h"

namespace pn10::portable {

namespace {

constexpr size_t kFlushAt = 1 << 16;

/** A text that grows, with numbers that no locale changes. */
class Text {
 public:
  Text& operator<<(const char* text) {
    text_ += text;
    return *this;
  }
  Text& operator<<(char c) {
    text_ += c;
    return *this;
  }
  Text& operator<<(const std::string& text) {
    text_ += text;
    return *this;
  }
  /** At most three decimals, without those that are 0. */
  Text& operator<<(double value) {
    char digits[64];
    const double rounded = std::round(value * 1000) / 1000;
    const auto end =
        std::to_chars(digits, digits + sizeof digits, rounded == 0 ? 0.0 : rounded, std::chars_format::fixed);
    text_.append(digits, end.ec == std::errc{} ? end.ptr : digits);
    return *this;
  }
  Text& operator<<(int value) { return *this << std::to_string(value); }
  std::string& all() { return text_; }

 private:
  std::string text_;
};

std::string hexColor(uint32_t color) {
  char text[16];
  std::snprintf(text, sizeof text, "#%06x", color & 0xFFFFFF);
  return text;
}

const char* blendStyle(Blend blend) {
  switch (blend) {
    case Blend::Darken:
      return " style=\"mix-blend-mode:darken\"";
    case Blend::Lighten:
      return " style=\"mix-blend-mode:lighten\"";
    case Blend::Difference:
      return " style=\"mix-blend-mode:difference\"";
    case Blend::Normal:
    case Blend::None:
      break;
  }
  return "";
}

/** A character as XML takes it in UTF-8; what XML can't hold becomes a blank. */
void appendCharacter(Text& out, unsigned char character) {
  const uint16_t code = unicodeOf(character);
  if (code == '&') {
    out << "&amp;";
  } else if (code == '<') {
    out << "&lt;";
  } else if (code == '>') {
    out << "&gt;";
  } else if (code < 0x20) {
    out << ' ';
  } else if (code < 0x80) {
    out << static_cast<char>(code);
  } else {
    if (code >= 0x800) {
      out << static_cast<char>(0xE0 | code >> 12) << static_cast<char>(0x80 | (code >> 6 & 0x3F));
    } else {
      out << static_cast<char>(0xC0 | code >> 6);
    }
    out << static_cast<char>(0x80 | (code & 0x3F));
  }
}

/** A family name of code page 1252 inside an attribute and quotes. */
std::string familyName(const char* name) {
  Text out;
  for (; *name; name++) {
    if (*name != '\'' && *name != '"' && *name != '\\') appendCharacter(out, static_cast<unsigned char>(*name));
  }
  return out.all();
}

void appendBase64(std::string& out, const uint8_t* bytes, size_t size) {
  static const char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  for (size_t i = 0; i < size; i += 3) {
    const uint32_t group = uint32_t{bytes[i]} << 16 | (i + 1 < size ? uint32_t{bytes[i + 1]} << 8 : 0) |
                           (i + 2 < size ? bytes[i + 2] : 0u);
    out += kDigits[group >> 18];
    out += kDigits[group >> 12 & 63];
    out += i + 1 < size ? kDigits[group >> 6 & 63] : '=';
    out += i + 2 < size ? kDigits[group & 63] : '=';
  }
}

/** The picture as a PNG file in memory; the caller frees it. Null when there is no memory. */
uint8_t* encodePng(const Raster& raster, png_alloc_size_t* size) {
  const auto width = static_cast<size_t>(raster.width), height = static_cast<size_t>(raster.height);
  auto* rgb = static_cast<uint8_t*>(std::malloc(width * height * 3));
  if (!rgb) return nullptr;
  uint8_t* out = rgb;
  for (int32_t y = 0; y < raster.height; y++) {
    for (const uint32_t *p = raster.pixels + y * raster.stride, *end = p + raster.width; p < end; p++) {
      *out++ = static_cast<uint8_t>(*p >> 16);
      *out++ = static_cast<uint8_t>(*p >> 8);
      *out++ = static_cast<uint8_t>(*p);
    }
  }
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(raster.width);
  image.height = static_cast<png_uint_32>(raster.height);
  image.format = PNG_FORMAT_RGB;
  *size = PNG_IMAGE_PNG_SIZE_MAX(image);
  auto* file = static_cast<uint8_t*>(std::malloc(*size));
  if (file && !png_image_write_to_memory(&image, file, size, 0, rgb, 0, nullptr)) {
    std::free(file);
    file = nullptr;
  }
  std::free(rgb);
  return file;
}

constexpr int64_t kLargestEnlarged = 4000000;

/** Widens or heightens a picture to the units that it will cover, pixel by pixel, as viewers would blur it. */
class Enlarged {
 public:
  Enlarged(const Raster& picture, int64_t width, int64_t height) : raster_(picture) {
    width = std::max<int64_t>(width, picture.width);
    height = std::max<int64_t>(height, picture.height);
    if (width * height > kLargestEnlarged || (width == picture.width && height == picture.height)) return;
    pixels_ = static_cast<uint32_t*>(std::malloc(static_cast<size_t>(width * height) * sizeof(uint32_t)));
    if (!pixels_) return;
    uint32_t* out = pixels_;
    for (int64_t y = 0; y < height; y++) {
      const uint32_t* row = picture.pixels + sourceOf(y, picture.height, height) * picture.stride;
      for (int64_t x = 0; x < width; x++) *out++ = row[sourceOf(x, picture.width, width)];
    }
    raster_ = {pixels_, static_cast<int32_t>(width), static_cast<int32_t>(height), static_cast<ptrdiff_t>(width)};
  }
  ~Enlarged() { std::free(pixels_); }
  Enlarged(const Enlarged&) = delete;
  Enlarged& operator=(const Enlarged&) = delete;
  const Raster& raster() const { return raster_; }

 private:
  /** The source under the middle of place i; ties to the smaller. */
  static int64_t sourceOf(int64_t i, int64_t source, int64_t places) {
    return ((2 * i + 1) * source + 2 * places - 1) / (2 * places) - 1;
  }
  Raster raster_;
  uint32_t* pixels_ = nullptr;
};

class SvgPainter final : public VectorPainter {
 public:
  SvgPainter(std::FILE* file, double width, double height, int32_t dpi, POINT origin) : file_(file) {
    out_ << "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\""
         << width / dpi << "in\" height=\"" << height / dpi << "in\" viewBox=\"" << -double(origin.x) << ' '
         << -double(origin.y) << ' ' << width << ' ' << height << "\">\n";
    /* Marks blend with the paper and among each other, not with what lies behind the page. */
    out_ << "<g style=\"isolation:isolate\" stroke-linejoin=\"round\">\n<rect x=\"" << -double(origin.x) << "\" y=\""
         << -double(origin.y) << "\" width=\"" << width << "\" height=\"" << height << "\" fill=\"#ffffff\"/>\n";
  }
  ~SvgPainter() override { finish(); }

  bool finish() override {
    if (!file_) return whole_;
    closeGroup();
    out_ << "</g>\n</svg>\n";
    flush();
    if (std::fclose(file_) != 0) whole_ = false;
    file_ = nullptr;
    return whole_;
  }

 protected:
  void setClip(const RECT& clip) override {
    if (clip.left == clip_.left && clip.top == clip_.top && clip.right == clip_.right && clip.bottom == clip_.bottom) {
      return;
    }
    closeGroup();
    clip_ = clip;
    clipped_ =
        clip.left != kOpen.left || clip.top != kOpen.top || clip.right != kOpen.right || clip.bottom != kOpen.bottom;
    if (!clipped_) return;
    clips_++;
    out_ << "<clipPath id=\"c" << clips_ << "\"><rect x=\"" << clip.left << "\" y=\"" << clip.top << "\" width=\""
         << double(clip.right) - clip.left << "\" height=\"" << double(clip.bottom) - clip.top << "\"/></clipPath>\n";
  }

  void strokePath(const Path& path, const VectorStroke& stroke) override {
    beginMark(stroke.ink.blend);
    layPath(path, stroke.shift);
    out_ << " fill=\"none\" stroke=\"" << hexColor(stroke.ink.color) << "\" stroke-width=\"" << stroke.width << '"';
    if (stroke.cap != PS_ENDCAP_FLAT) {
      out_ << " stroke-linecap=\"" << (stroke.cap == PS_ENDCAP_SQUARE ? "square" : "round") << '"';
    }
    for (int32_t i = 0; i < stroke.dashCount; i++) out_ << (i ? "," : " stroke-dasharray=\"") << stroke.dashes[i];
    if (stroke.dashCount) out_ << '"';
    endMark(stroke.ink.blend);
  }

  void fillPath(const Path& path, bool winding, Mixed ink) override {
    beginMark(ink.blend);
    layPath(path, 0);
    out_ << " fill=\"" << hexColor(ink.color) << '"' << (winding ? "" : " fill-rule=\"evenodd\"");
    endMark(ink.blend);
  }

  void hatchPath(const Path& path, bool winding, const VectorHatch& hatch) override {
    if (hatch.gapsPainted && hatch.gaps.blend != Blend::None) fillPath(path, winding, hatch.gaps);
    if (hatch.ink.blend == Blend::None) return;
    if (hatch.hatch != hatchDrawn_ || hatch.ink.color != hatchColor_) defineHatch(hatch);
    beginMark(hatch.ink.blend);
    layPath(path, 0);
    out_ << " fill=\"url(#h" << hatches_ << ")\"" << (winding ? "" : " fill-rule=\"evenodd\"");
    endMark(hatch.ink.blend);
  }

  void glyphs(const TextRun& run, uint32_t color) override {
    FontData& font = *run.font;
    const Face& face = *font.face;
    beginMark(Blend::Normal);
    out_ << "<text xml:space=\"preserve\" fill=\"" << hexColor(color) << "\" font-family=\"'" << familyName(face.name)
         << "','" << familyName(face.family) << "'\" font-size=\"" << font.em << "\"";
    if (face.bold) out_ << " font-weight=\"bold\"";
    if (face.italic) out_ << " font-style=\"italic\"";
    if (run.escapement) {
      out_ << " transform=\"rotate(" << -run.escapement / 10.0 << ' ' << run.originX << ' ' << run.originY << ")\"";
    }
    out_ << " y=\"" << run.originY << "\" x=\"";
    double x = run.originX;
    for (int32_t i = 0; i < run.count; i++) {
      out_ << (i ? " " : "") << x;
      x += advanceOf(font, run.text[i]);
    }
    out_ << "\">";
    for (int32_t i = 0; i < run.count; i++) appendCharacter(out_, run.text[i]);
    out_ << "</text>\n";
    flushWhenLong();
  }

  void image(const Raster& raster, const RECT& box, bool mirrorX, bool mirrorY, Blend blend) override {
    const Enlarged enlarged(raster, int64_t{box.right} - box.left, int64_t{box.bottom} - box.top);
    png_alloc_size_t size = 0;
    uint8_t* png = encodePng(enlarged.raster(), &size);
    if (!png) {
      whole_ = false;
      return;
    }
    beginMark(blend);
    out_ << "<image width=\"" << double(box.right) - box.left << "\" height=\"" << double(box.bottom) - box.top
         << "\" preserveAspectRatio=\"none\" image-rendering=\"optimizeSpeed\" transform=\"translate("
         << (mirrorX ? box.right : box.left) << ' ' << (mirrorY ? box.bottom : box.top) << ") scale("
         << (mirrorX ? -1 : 1) << ' ' << (mirrorY ? -1 : 1) << ")\" xlink:href=\"data:image/png;base64,";
    appendBase64(out_.all(), png, size);
    out_ << '"';
    endMark(blend);
    std::free(png);
  }

 private:
  static constexpr RECT kOpen{-(1 << 30), -(1 << 30), 1 << 30, 1 << 30};

  /** Before each mark: the group that cuts it. */
  void beginMark(Blend blend) {
    const char* style = blendStyle(blend);
    if (!clipped_ || (grouped_ && !*style)) return;
    closeGroup();
    out_ << "<g clip-path=\"url(#c" << clips_ << ")\"" << style << ">\n";
    grouped_ = true;
  }
  void closeGroup() {
    if (grouped_) out_ << "</g>\n";
    grouped_ = false;
  }

  void layPath(const Path& path, double shift) {
    out_ << "<path d=\"";
    for (const PathFigure& figure : path) {
      out_ << 'M' << figure.startX + shift << ' ' << figure.startY + shift;
      for (const PathFigure::Piece& p : figure.pieces) {
        if (p.curve) {
          out_ << 'C' << p.x1 + shift << ' ' << p.y1 + shift << ' ' << p.x2 + shift << ' ' << p.y2 + shift << ' ';
        } else {
          out_ << 'L';
        }
        out_ << p.x3 + shift << ' ' << p.y3 + shift;
      }
      if (figure.closed) out_ << 'Z';
    }
    out_ << '"';
  }

  void endMark(Blend blend) {
    const char* style = blendStyle(blend);
    out_ << (clipped_ ? "" : style) << "/>\n";
    if (*style) closeGroup();
    flushWhenLong();
  }

  void defineHatch(const VectorHatch& hatch) {
    hatchDrawn_ = hatch.hatch;
    hatchColor_ = hatch.ink.color;
    const uint32_t lines = hatchLines(hatch.hatch);
    hatches_++;
    out_ << "<pattern id=\"h" << hatches_ << "\" width=\"8\" height=\"8\" patternUnits=\"userSpaceOnUse\"><path d=\""
         << (lines & 1 ? "M0 3.5H8" : "") << (lines & 2 ? "M4.5 0V8" : "")
         << (lines & 4 ? "M-1 -1L9 9M7 -1L9 1M-1 7L1 9" : "") << (lines & 8 ? "M-1 9L9 -1M-1 1L1 -1M7 9L9 7" : "")
         << "\" fill=\"none\" stroke=\"" << hexColor(hatch.ink.color) << "\" stroke-width=\"1\"/></pattern>\n";
  }

  void flushWhenLong() {
    if (out_.all().size() >= kFlushAt) flush();
  }
  void flush() {
    std::string& text = out_.all();
    if (std::fwrite(text.data(), 1, text.size(), file_) != text.size()) whole_ = false;
    text.clear();
  }

  std::FILE* file_;
  Text out_;
  RECT clip_ = kOpen;
  bool clipped_ = false, grouped_ = false, whole_ = true;
  int clips_ = 0, hatches_ = 0;
  int32_t hatchDrawn_ = -1;
  uint32_t hatchColor_ = 0;
};

}  // namespace

FilePainter* newSvgPainter(const char* path, double width, double height, int32_t dpi, POINT origin) {
  std::FILE* file = std::fopen(path, "wb");
  if (!file) return nullptr;
  auto* painter = new (std::nothrow) SvgPainter(file, width, height, dpi, origin);
  if (!painter) std::fclose(file);
  return painter;
}

}  // namespace pn10::portable
