#include "platform/pulse/pulse_queue.h"

#include <gtest/gtest.h>

namespace tandem {
namespace {

constexpr int kBuffer = 5120;  // bytes, 29 ms
const DeviceFormat kOurs;

TEST(PulseQueue, AShortQueueBeginsWithWhatSurvivesALateWakeUp) {
  const pa_buffer_attr queue = attributes_of({kBuffer, 3}, kOurs);
  EXPECT_EQ(queue.tlength, 3U * kBuffer);
  EXPECT_EQ(queue.prebuf, 2U * kBuffer);
  EXPECT_EQ(queue.minreq, kBuffer / 8U);
}

TEST(PulseQueue, ALongOneIsFilledInQuarters) {
  const pa_buffer_attr queue = attributes_of({kBuffer, 19}, kOurs);
  EXPECT_EQ(queue.tlength, 19U * kBuffer);
  EXPECT_EQ(queue.minreq, queue.tlength / 4 / 4 * 4);
  EXPECT_EQ(queue.prebuf, 2U * kBuffer);
}

TEST(PulseQueue, TwoRequestsAndTheDevicesShareFitInAtAnyRate) {
  for (const int rate : {8000, 44100, 48000, 192000})
    for (int depth = 2; depth <= 20; ++depth) {
      const DeviceFormat format{SampleEncoding::kFloat32, rate};
      const pa_buffer_attr queue = attributes_of({kBuffer, depth}, format);
      EXPECT_LE(2 * queue.minreq, queue.tlength / 2) << rate << ", " << depth;
      EXPECT_LT(queue.prebuf, queue.tlength);
      for (const std::uint32_t bytes : {queue.tlength, queue.minreq}) EXPECT_EQ(bytes % format.frame_bytes(), 0U);
    }
}

// The device has half of what is left beside two requests: while the queue grows no more than before.
TEST(PulseQueue, WhileItGrowsTheDeviceGetsNoLargerShare) {
  const auto share = [](const pa_buffer_attr& queue) { return (queue.tlength - 2 * queue.minreq) / 2; };
  for (const int depth : {2, 3, 6}) {
    const PulseQueue from{kBuffer, depth};
    const PulseQueue to{kBuffer, 19};
    const pa_buffer_attr growing = growing_attributes(from, to, kOurs);
    EXPECT_EQ(growing.tlength, attributes_of(to, kOurs).tlength);
    EXPECT_LE(share(growing), share(attributes_of(from, kOurs)) + sizeof(float)) << depth;
    EXPECT_GT(share(attributes_of(to, kOurs)), share(attributes_of(from, kOurs))) << "which it would have at once";
  }
}

}  // namespace
}  // namespace tandem
