/** DrawTextA: text in a rectangle, line by line. */
#include <algorithm>
#include <string>

#include "platform/portable/text_metrics.h"
#include "platform/user.h"

using namespace pn10::portable;

namespace {

/** One line of the text: its words [begin, end), and what is painted of it, [begin, painted). */
struct Line {
  const char* begin;
  const char* end;
  const char* painted;
};

bool isBreak(char c) { return c == '\r' || c == '\n'; }

/** Where the words from `at` no longer fit into `width`, or where they end; a single word always fits. */
const char* wrap(const TextMetrics& metrics, const char* at, const char* end, int64_t width) {
  const char* fits = nullptr;
  const char* p = at;
  int64_t sum = 0;
  for (; p < end && !isBreak(*p); p++) {
    if (*p == ' ' && p > at && p[-1] != ' ') {
      if (sum > width && fits) return fits;
      fits = p;
    }
    sum += metrics.advance(static_cast<unsigned char>(*p));
  }
  return sum > width && fits ? fits : p;
}

/** Takes the next line off the text; `at` moves behind it and what parts it from the next. */
Line nextLine(const TextMetrics& metrics, const char*& at, const char* end, UINT format, int64_t width) {
  const char* cut = format & DT_WORDBREAK ? wrap(metrics, at, end, width) : std::find_if(at, end, isBreak);
  const char* next = std::find_if(cut, end, [](char c) { return c != ' '; });
  if (cut < next && next < end && !isBreak(*next)) {
    const Line line{at, cut, cut + 1}; /* the blank at the break is painted, but does not begin the next line */
    at = next;
    return line;
  }
  const Line line{at, cut, cut};
  at = next;
  if (at < end && *at == '\r' && at + 1 < end && at[1] == '\n') at++;
  if (at < end) at++;
  return line;
}

/** The text without the mark of an access key: "&x" is x, "&&" is one &. */
std::string withoutPrefix(const char* text, int32_t count) {
  std::string out;
  for (int32_t i = 0; i < count; i++) {
    if (text[i] == '&' && ++i == count) break;
    out += text[i];
  }
  return out;
}

int32_t addTo(int32_t a, int64_t b) { return static_cast<int32_t>(std::clamp<int64_t>(a + b, INT32_MIN, INT32_MAX)); }

/** The clip cut to the rectangle while it lives. */
class ClipTo {
 public:
  ClipTo(Context& context, const RECT& box, bool on) : clip_(context.state.paint.clip), saved_(clip_) {
    if (!on) return;
    clip_ = {std::max(clip_.left, box.left), std::max(clip_.top, box.top), std::min(clip_.right, box.right),
             std::min(clip_.bottom, box.bottom)};
    if (clip_.left >= clip_.right || clip_.top >= clip_.bottom) clip_ = {};
  }
  ~ClipTo() { clip_ = saved_; }

 private:
  RECT& clip_;
  RECT saved_;
};

}  // namespace

int DrawTextA(HDC dc, const char* text, int count, RECT* rect, UINT format) {
  Context* context = contextOf(dc);
  const int32_t length = textLength(text, count);
  if (!context || !rect || length < 0) return 0;
  if (recording()) {
    logOp("DrawTextA", quoted(text, static_cast<size_t>(length)), rect->left, rect->top, rect->right, rect->bottom,
          Style{format});
  }
  const TextMetrics metrics(*context);
  const std::string shown =
      format & DT_NOPREFIX ? std::string(text, static_cast<size_t>(length)) : withoutPrefix(text, length);
  const char* at = shown.data();
  const char* const end = at + shown.size();
  const bool measuring = format & DT_CALCRECT;
  const ClipTo clip(*context, *rect, !measuring);
  const int64_t room = int64_t{rect->right} - rect->left;
  int64_t widest = 0, height = 0;
  if (at == end) height = metrics.height();
  while (at < end) {
    const Line line = nextLine(metrics, at, end, format, room);
    widest = std::max(widest, metrics.width(line.begin, static_cast<int32_t>(line.end - line.begin)));
    const auto bytes = static_cast<int32_t>(line.painted - line.begin);
    if (!measuring && bytes > 0) {
      paintText(*context, metrics, rect->left, addTo(rect->top, height), line.begin, bytes);
    }
    height += metrics.height();
  }
  if (measuring) {
    rect->right = addTo(rect->left, widest);
    rect->bottom = shown.empty() ? rect->top : addTo(rect->top, height);
  }
  return addTo(0, height);
}
