/** Escape during a picture: what one poll takes from the queue, and how often a pass polls. */
#include "draw/frame.h"
#include "draw/picture.h"
#include "platform/user.h"

using namespace pn10;
using namespace pn10::test;

namespace {

/** A window for keys and drawing. */
struct Keys : Picture {
  HWND window = PnCreateWindow();
  Keys() {
    drawState.KeyWindow = window;
    drawState.DrawWindow = window;
  }
  ~Keys() { PnDestroyWindow(window); }
  void key(uint32_t message, uint32_t lparam) { PnPostMessage(window, message, 0, lparam); }
  bool empty() {
    MSG m{};
    return !PeekMessageA(&m, window, 0, 0xFFFF, PM_REMOVE);
  }
};

TEST(PollCancel, shows_what_stands_and_takes_all_keys) {
  Keys k;
  k.key(0x100, 0x001E0001);
  k.key(0x101, 0xC01E0001);
  EXPECT_EQ(recorded([&] { EXPECT_EQ(PollCancel(k.window), 0); }),
            "UpdateWindow\nInvalidateRect 1\nPeekMessageA found\nPeekMessageA found\nPeekMessageA none\n");
  EXPECT_TRUE(k.empty());
}

TEST(PollCancel, escape_cancels_and_stops_at_once) {
  Keys k;
  k.key(0x100, 0x001E0001);
  k.key(0x100, 0x00010001);
  k.key(0x100, 0x001E0001);
  EXPECT_EQ(PollCancel(k.window), -1);
  EXPECT_FALSE(k.empty()); /* the key behind Escape still waits */
}

TEST(PollCancel, escape_with_the_extended_bit_or_released_does_not_cancel) {
  Keys k;
  k.key(0x100, 0x01010001); /* extended */
  k.key(0x100, 0x40010001); /* repeated */
  k.key(0x101, 0x00010001); /* released */
  EXPECT_EQ(PollCancel(k.window), 0);
  EXPECT_TRUE(k.empty());
}

TEST(PollCancel, other_messages_stay_in_the_queue) {
  Keys k;
  k.key(0x0F, 0);
  k.key(0x201, 0);
  EXPECT_EQ(PollCancel(k.window), 0);
  EXPECT_FALSE(k.empty());
}

TEST(PollCancel, takes_every_kind_of_key_message_and_no_other) {
  Keys k;
  for (uint32_t message = 0x100; message <= 0x109; message++) k.key(message, 0);
  EXPECT_EQ(PollCancel(k.window), 0);
  EXPECT_TRUE(k.empty());
  for (uint32_t message : {0xFFu, 0x10Au}) {
    k.key(message, 0);
    EXPECT_EQ(PollCancel(k.window), 0);
    EXPECT_FALSE(k.empty()) << message;
  }
}

int32_t pollsOf(int32_t first, int32_t last, int32_t percent, int items, int16_t devMode = 0) {
  Keys k;
  k.plot.PollPercent = percent;
  drawState.DevMode = devMode;
  CancelPolls polls(first, last);
  for (int i = 0; i < items; i++) EXPECT_FALSE(polls.drawn());
  EXPECT_FALSE(polls.finish());
  return PnGetWindowUpdates(k.window);
}

TEST(CancelPolls, every_batch_and_once_more_at_the_end) {
  EXPECT_EQ(pollsOf(1, 101, 10, 100), 10); /* (100 * 10) / 100 = 10 items */
  EXPECT_EQ(pollsOf(1, 101, 10, 95), 10);  /* nine batches and five items */
  EXPECT_EQ(pollsOf(1, 101, 10, 92), 10);  /* nine batches and two items */
  EXPECT_EQ(pollsOf(1, 101, 10, 91), 9);   /* one item left is not above 1 */
  EXPECT_EQ(pollsOf(1, 100, 10, 18), 2);   /* 99 * 10 / 100 = 9 */
}

TEST(CancelPolls, one_item_polls_once) { EXPECT_EQ(pollsOf(5, 5, 100, 1), 1); }

TEST(CancelPolls, no_or_an_absurd_percentage_polls_at_every_item) {
  EXPECT_EQ(pollsOf(1, 100, 0, 7), 7);
  EXPECT_EQ(pollsOf(1, 100, -50, 7), 7);
  EXPECT_EQ(pollsOf(-2147483647, 2147483647, 2147483647, 7), 1); /* far more than 7: only the end */
}

TEST(CancelPolls, printing_never_polls) { EXPECT_EQ(pollsOf(1, 101, 10, 100, 1), 0); }

TEST(CancelPolls, escape_is_told) {
  Keys k;
  k.plot.PollPercent = 100;
  CancelPolls polls(1, 3);
  k.key(0x100, 0x00010001);
  EXPECT_FALSE(polls.drawn());
  EXPECT_TRUE(polls.drawn());
}

}  // namespace
