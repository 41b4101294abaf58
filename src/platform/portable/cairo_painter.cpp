/** Cairo paints PDF pages, and rasters with smooth lines. */
#include "platform/portable/cairo_painter.h"

#include <cairo-ft.h>
#include <cairo-pdf.h>
#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <new>
#include <numbers>

#include "platform/portable/faces.h"
#include "platform/portable/vector_painter.h"

namespace pn10::portable {

namespace {

constexpr double kPointsPerInch = 72;
constexpr int32_t kHatchCell = 8;

cairo_operator_t operatorOf(Blend blend) {
  switch (blend) {
    case Blend::Darken:
      return CAIRO_OPERATOR_DARKEN;
    case Blend::Lighten:
      return CAIRO_OPERATOR_LIGHTEN;
    case Blend::Difference:
      return CAIRO_OPERATOR_DIFFERENCE;
    case Blend::Normal:
      return CAIRO_OPERATOR_OVER;
    case Blend::None:
      break;
  }
  return CAIRO_OPERATOR_DEST;
}

void setInk(cairo_t* cairo, Mixed ink) {
  cairo_set_operator(cairo, operatorOf(ink.blend));
  cairo_set_source_rgb(cairo, (ink.color >> 16) / 255.0, (ink.color >> 8 & 255) / 255.0, (ink.color & 255) / 255.0);
}

void layPath(cairo_t* cairo, const Path& path, double shift) {
  cairo_new_path(cairo);
  for (const PathFigure& figure : path) {
    cairo_move_to(cairo, figure.startX + shift, figure.startY + shift);
    for (const PathFigure::Piece& p : figure.pieces) {
      if (p.curve) {
        cairo_curve_to(cairo, p.x1 + shift, p.y1 + shift, p.x2 + shift, p.y2 + shift, p.x3 + shift, p.y3 + shift);
      } else {
        cairo_line_to(cairo, p.x3 + shift, p.y3 + shift);
      }
    }
    if (figure.closed) cairo_close_path(cairo);
  }
}

cairo_status_t writeBytes(void* file, const unsigned char* bytes, unsigned int count) {
  const bool written = std::fwrite(bytes, 1, count, static_cast<std::FILE*>(file)) == count;
  return written ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

/** What a painter paints on: a raster, whose sharp painter does text and pictures, or a page that goes to a file. */
struct Target {
  cairo_surface_t* surface;
  Painter* sharp;
  std::FILE* file;
  double scale;
  POINT origin;
};

class CairoPainter final : public VectorPainter {
 public:
  /** Takes the surface and the file over. */
  explicit CairoPainter(const Target& target)
      : surface_(target.surface), cairo_(cairo_create(surface_)), sharp_(target.sharp), file_(target.file) {
    if (file_) { /* colours combine with the paper, so there has to be some */
      cairo_set_source_rgb(cairo_, 1, 1, 1);
      cairo_paint(cairo_);
    }
    cairo_scale(cairo_, target.scale, target.scale);
    cairo_translate(cairo_, target.origin.x, target.origin.y);
    cairo_set_line_join(cairo_, CAIRO_LINE_JOIN_ROUND);
  }
  ~CairoPainter() override { finish(); }

  bool ok() const { return cairo_status(cairo_) == CAIRO_STATUS_SUCCESS; }

  bool finish() override {
    if (!surface_) return whole_;
    whole_ = cairo_status(cairo_) == CAIRO_STATUS_SUCCESS;
    cairo_destroy(cairo_);
    cairo_surface_finish(surface_);
    whole_ = whole_ && cairo_surface_status(surface_) == CAIRO_STATUS_SUCCESS;
    cairo_surface_destroy(surface_);
    surface_ = nullptr;
    if (file_) { /* Cairo forgets some failures of writeBytes; the stream does not */
      const bool failed = std::ferror(file_) != 0;
      if (std::fclose(file_) != 0 || failed) whole_ = false;
    }
    return whole_;
  }

  void text(const PaintState& state, const TextRun& run) override {
    if (!sharp_) return VectorPainter::text(state, run);
    cairo_surface_flush(surface_);
    sharp_->text(state, run);
    cairo_surface_mark_dirty(surface_);
  }
  void blit(const PaintState& state, const Blit& blit) override {
    if (!sharp_) return VectorPainter::blit(state, blit);
    cairo_surface_flush(surface_);
    sharp_->blit(state, blit);
    cairo_surface_mark_dirty(surface_);
  }

 protected:
  void setClip(const RECT& clip) override {
    if (clip.left == clip_.left && clip.top == clip_.top && clip.right == clip_.right && clip.bottom == clip_.bottom) {
      return;
    }
    clip_ = clip;
    cairo_reset_clip(cairo_);
    constexpr LONG kOpen = 1 << 22; /* wider than any page, and inside Cairo's coordinates */
    const RECT c{std::max(clip.left, -kOpen), std::max(clip.top, -kOpen), std::min(clip.right, kOpen),
                 std::min(clip.bottom, kOpen)};
    if (c.left == -kOpen && c.top == -kOpen && c.right == kOpen && c.bottom == kOpen) return;
    cairo_new_path(cairo_);
    cairo_rectangle(cairo_, c.left, c.top, double(c.right) - c.left, double(c.bottom) - c.top);
    cairo_clip(cairo_);
  }

  void strokePath(const Path& path, const VectorStroke& stroke) override {
    setInk(cairo_, stroke.ink);
    cairo_set_line_width(cairo_, stroke.width);
    cairo_set_line_cap(cairo_, stroke.cap == PS_ENDCAP_FLAT     ? CAIRO_LINE_CAP_BUTT
                               : stroke.cap == PS_ENDCAP_SQUARE ? CAIRO_LINE_CAP_SQUARE
                                                                : CAIRO_LINE_CAP_ROUND);
    cairo_set_dash(cairo_, stroke.dashes, stroke.dashCount, 0);
    layPath(cairo_, path, stroke.shift);
    cairo_stroke(cairo_);
  }

  void fillPath(const Path& path, bool winding, Mixed ink) override {
    setInk(cairo_, ink);
    cairo_set_fill_rule(cairo_, winding ? CAIRO_FILL_RULE_WINDING : CAIRO_FILL_RULE_EVEN_ODD);
    layPath(cairo_, path, 0);
    cairo_fill(cairo_);
  }

  void hatchPath(const Path& path, bool winding, const VectorHatch& hatch) override {
    if (hatch.gapsPainted && hatch.gaps.blend != Blend::None) fillPath(path, winding, hatch.gaps);
    if (hatch.ink.blend == Blend::None) return;
    cairo_save(cairo_);
    cairo_set_fill_rule(cairo_, winding ? CAIRO_FILL_RULE_WINDING : CAIRO_FILL_RULE_EVEN_ODD);
    layPath(cairo_, path, 0);
    cairo_clip(cairo_);
    double left, top, right, bottom;
    cairo_clip_extents(cairo_, &left, &top, &right, &bottom);
    layHatch(hatchLines(hatch.hatch), left, top, right, bottom);
    setInk(cairo_, hatch.ink);
    cairo_set_line_width(cairo_, 1);
    cairo_set_line_cap(cairo_, CAIRO_LINE_CAP_BUTT);
    cairo_set_dash(cairo_, nullptr, 0, 0);
    cairo_stroke(cairo_);
    cairo_restore(cairo_);
  }

  void glyphs(const TextRun& run, uint32_t color) override {
    FontData& font = *run.font;
    if (!setFont(font)) return;
    setInk(cairo_, {Blend::Normal, color});
    const double angle = run.escapement * std::numbers::pi / 1800;
    cairo_save(cairo_);
    cairo_translate(cairo_, run.originX, run.originY);
    cairo_rotate(cairo_, -angle);
    constexpr int32_t kBatch = 64;
    cairo_glyph_t batch[kBatch];
    double along = 0;
    for (int32_t i = 0; i < run.count;) {
      int n = 0;
      for (; n < kBatch && i < run.count; n++, i++) {
        batch[n] = {glyphIndex(font, run.text[i]), along, 0};
        along += advanceOf(font, run.text[i]);
      }
      cairo_show_glyphs(cairo_, batch, n);
    }
    cairo_restore(cairo_);
    font.face->em = 0; /* Cairo sets the face to a size of its own */
  }

  void image(const Raster& raster, const RECT& box, bool mirrorX, bool mirrorY, Blend blend) override {
    cairo_surface_t* picture = cairo_image_surface_create(CAIRO_FORMAT_RGB24, raster.width, raster.height);
    if (cairo_surface_status(picture) == CAIRO_STATUS_SUCCESS) {
      cairo_surface_flush(picture);
      auto* out = cairo_image_surface_get_data(picture);
      const int stride = cairo_image_surface_get_stride(picture);
      for (int32_t y = 0; y < raster.height; y++) {
        const uint32_t* row = raster.pixels + y * raster.stride;
        std::copy_n(row, raster.width, reinterpret_cast<uint32_t*>(out + ptrdiff_t{y} * stride));
      }
      cairo_surface_mark_dirty(picture);
      paintPicture(picture, raster, box, mirrorX, mirrorY, blend);
    }
    cairo_surface_destroy(picture);
  }

 private:
  void layHatch(uint32_t lines, double left, double top, double right, double bottom) {
    cairo_new_path(cairo_);
    const double width = right - left, height = bottom - top;
    if (!(width > 0) || !(height > 0) || width > 1e6 || height > 1e6) return;
    const auto first = [](double low, double phase) {
      return std::floor((low - phase) / kHatchCell) * kHatchCell + phase;
    };
    for (double y = first(top, 3.5); lines & 1 && y <= bottom; y += kHatchCell) {
      cairo_move_to(cairo_, left, y);
      cairo_line_to(cairo_, right, y);
    }
    for (double x = first(left, 4.5); lines & 2 && x <= right; x += kHatchCell) {
      cairo_move_to(cairo_, x, top);
      cairo_line_to(cairo_, x, bottom);
    }
    for (double d = first(left - bottom, 0); lines & 4 && d <= right - top; d += kHatchCell) { /* x - y = d */
      cairo_move_to(cairo_, top + d, top);
      cairo_line_to(cairo_, bottom + d, bottom);
    }
    for (double s = first(left + top, 0); lines & 8 && s <= right + bottom; s += kHatchCell) { /* x + y = s */
      cairo_move_to(cairo_, s - top, top);
      cairo_line_to(cairo_, s - bottom, bottom);
    }
  }

  bool setFont(FontData& font) {
    cairo_font_face_t* face = cairo_ft_font_face_create_for_ft_face(font.face->ft, FT_LOAD_NO_BITMAP);
    unsigned imitate = 0;
    if (font.face->imitateBold) imitate |= CAIRO_FT_SYNTHESIZE_BOLD;
    if (font.face->imitateItalic) imitate |= CAIRO_FT_SYNTHESIZE_OBLIQUE;
    cairo_ft_font_face_set_synthesize(face, imitate);
    cairo_set_font_face(cairo_, face);
    cairo_font_face_destroy(face);
    cairo_set_font_size(cairo_, font.em);
    return cairo_status(cairo_) == CAIRO_STATUS_SUCCESS;
  }

  void paintPicture(cairo_surface_t* picture, const Raster& raster, const RECT& box, bool mirrorX, bool mirrorY,
                    Blend blend) {
    const double width = double(box.right) - box.left, height = double(box.bottom) - box.top;
    if (width <= 0 || height <= 0) return;
    cairo_save(cairo_);
    cairo_translate(cairo_, mirrorX ? box.right : box.left, mirrorY ? box.bottom : box.top);
    cairo_scale(cairo_, (mirrorX ? -width : width) / raster.width, (mirrorY ? -height : height) / raster.height);
    cairo_set_operator(cairo_, operatorOf(blend));
    cairo_set_source_surface(cairo_, picture, 0, 0);
    cairo_pattern_set_filter(cairo_get_source(cairo_), CAIRO_FILTER_NEAREST);
    cairo_new_path(cairo_);
    cairo_rectangle(cairo_, 0, 0, raster.width, raster.height);
    cairo_fill(cairo_);
    cairo_restore(cairo_);
  }

  cairo_surface_t* surface_;
  cairo_t* cairo_;
  Painter* sharp_;
  std::FILE* file_;
  bool whole_ = false;
  RECT clip_{-(1 << 30), -(1 << 30), 1 << 30, 1 << 30};
};

/** A painter of a target, which is given up when there is no memory for it or it can't be painted. */
CairoPainter* paintOn(const Target& target) {
  if (cairo_surface_status(target.surface) == CAIRO_STATUS_SUCCESS) {
    auto* painter = new (std::nothrow) CairoPainter(target);
    if (painter && painter->ok()) return painter;
    delete painter;
    if (painter) return nullptr;
  }
  cairo_surface_destroy(target.surface);
  if (target.file) std::fclose(target.file);
  return nullptr;
}

}  // namespace

Painter* newSmoothPainter(const Raster& raster, Painter* sharp) {
  cairo_surface_t* surface = cairo_image_surface_create_for_data(
      reinterpret_cast<unsigned char*>(raster.pixels), CAIRO_FORMAT_RGB24, raster.width, raster.height,
      static_cast<int>(raster.stride * ptrdiff_t{sizeof(uint32_t)}));
  return paintOn({surface, sharp, nullptr, 1, {0, 0}});
}

FilePainter* newPdfPainter(const char* path, double width, double height, int32_t dpi, POINT origin) {
  std::FILE* file = std::fopen(path, "wb");
  if (!file) return nullptr;
  const double scale = kPointsPerInch / dpi;
  cairo_surface_t* surface = cairo_pdf_surface_create_for_stream(writeBytes, file, width * scale, height * scale);
  return paintOn({surface, nullptr, file, scale, origin});
}

}  // namespace pn10::portable
