#include "platform/output/target_state.h"

#include <gtest/gtest.h>

#include "engine/device/output.h"

namespace tandem {
namespace {

TargetState started() {
  TargetState state;
  state.start(0);
  return state;
}

TEST(TargetState, AtFirstNothingIsOpenAndNoSoundIsWanted) {
  const TargetState state;
  EXPECT_FALSE(state.is_open());
  EXPECT_FALSE(state.wants_sound());
  EXPECT_EQ(state.play_up_to(), 0U);
}

TEST(TargetState, StartOpensAClosedDevice) {
  const TargetState state = started();
  EXPECT_TRUE(state.is_open());
  EXPECT_TRUE(state.wants_sound());
  EXPECT_EQ(state.buffer_bytes(), 5120);
}

TEST(TargetState, StopEndsWhereTheRingStood) {
  TargetState state = started();
  state.stop(1000);
  EXPECT_TRUE(state.is_open());
  EXPECT_FALSE(state.wants_sound());
  EXPECT_EQ(state.play_up_to(), 1000U);
}

TEST(TargetState, WhatIsStoppedTwiceEndsWhereItFirstDid) {
  TargetState state = started();
  state.stop(1000);
  state.stop(2000);
  state.close(3000);
  EXPECT_EQ(state.play_up_to(), 1000U);
}

TEST(TargetState, PauseHoldsWhatWasStartedAndRestartGoesOn) {
  TargetState state = started();
  state.pause(500);
  EXPECT_FALSE(state.wants_sound());
  EXPECT_EQ(state.play_up_to(), 500U);
  state.restart(500);
  EXPECT_TRUE(state.wants_sound());
}

TEST(TargetState, WhatWasNotStartedCannotBePaused) {
  TargetState state;
  state.open(5120);
  state.pause(500);
  state.start(500);
  EXPECT_TRUE(state.wants_sound());
}

TEST(TargetState, StartWhilePausedStaysPausedAndStopEndsThePause) {
  TargetState state = started();
  state.pause(0);
  state.start(0);
  EXPECT_FALSE(state.wants_sound());
  state.stop(0);
  state.start(0);
  EXPECT_TRUE(state.wants_sound());
}

TEST(TargetState, AnotherBufferSizeIsAnotherDevice) {
  TargetState state;
  state.open(5120);
  const std::uint32_t first = state.generation();
  state.open(5120);
  EXPECT_EQ(state.generation(), first) << "the same size: the same device";
  state.open(10240);
  EXPECT_NE(state.generation(), first);
}

TEST(TargetState, AClosedDeviceThatIsOpenedAgainIsAnother) {
  TargetState state;
  state.open(5120);
  const std::uint32_t first = state.generation();
  state.close(0);
  EXPECT_NE(state.generation(), first);
  state.open(5120);
  EXPECT_NE(state.generation(), first);
  state.close(0);
  const std::uint32_t closed = state.generation();
  state.close(0);
  EXPECT_EQ(state.generation(), closed) << "a closed device cannot be closed";
}

TEST(TargetState, SizesStayWithinWhatADeviceCanDo) {
  TargetState state;
  state.open(1);
  EXPECT_EQ(state.buffer_bytes(), 256);
  state.open(1 << 20);
  EXPECT_EQ(state.buffer_bytes(), 1 << 16);
  state.open(5123);
  EXPECT_EQ(state.buffer_bytes(), 5120);
  state.set_queue_length(0);
  EXPECT_EQ(state.queue_length(), 1);
  state.set_queue_length(100);
  EXPECT_EQ(state.queue_length(), Output::kMaxQueuedBuffers);
}

}  // namespace
}  // namespace tandem
