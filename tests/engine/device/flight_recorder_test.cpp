#include "engine/device/flight_recorder.h"

#include <gtest/gtest.h>

#include "engine/core/frames.h"

namespace tandem {
namespace {

constexpr std::int64_t kMillisecond = 1'000'000;
using Late = FlightRecorder::Late;

std::int64_t frames(int milliseconds) { return std::int64_t{milliseconds} * kSampleRate / 1000; }

class FlightRecorderTest : public testing::Test {
 protected:
  FlightRecorder::Underrun last() {
    const auto underruns = recorder_.underruns();
    EXPECT_FALSE(underruns.empty());
    return underruns.empty() ? FlightRecorder::Underrun() : underruns.back();
  }
  // An underrun at 1 s; 90 ms were queued when the device was given sound so long before.
  Late late_after(int fed_ms, int ready_ms) {
    constexpr std::int64_t kNow = 1000 * kMillisecond;
    recorder_.fed(kNow - fed_ms * kMillisecond, frames(90));
    recorder_.underrun(kNow, frames(ready_ms), 0, true);
    return FlightRecorder::late(last());
  }

  FlightRecorder recorder_;
};

TEST_F(FlightRecorderTest, IsEmptyAtFirst) { EXPECT_TRUE(recorder_.underruns().empty()); }

TEST_F(FlightRecorderTest, ADeviceThatHadMoreThanItCanHavePlayedWasLateItself) {
  EXPECT_EQ(late_after(20, 0), Late::kServer);
}

TEST_F(FlightRecorderTest, WithSoundReadyTheOutputWasLate) { EXPECT_EQ(late_after(120, 10), Late::kOutput); }

TEST_F(FlightRecorderTest, WithNoneReadyTheRenderThreadWasLate) {
  recorder_.rendered(900 * kMillisecond, 35 * kMillisecond);
  EXPECT_EQ(late_after(120, 0), Late::kRender);
  EXPECT_EQ(last().since_rendered, 100 * kMillisecond);
  EXPECT_EQ(last().rendered_late, 35 * kMillisecond);
}

TEST_F(FlightRecorderTest, OrThePanelForWhichItWaited) {
  recorder_.waited_for_panel(990 * kMillisecond);
  EXPECT_EQ(late_after(120, 0), Late::kPanel);
}

TEST_F(FlightRecorderTest, KeepsTheNewest) {
  for (int n = 1; n <= 100; ++n) recorder_.underrun(n, 0, static_cast<std::uint64_t>(n), n % 2 == 0);
  const auto underruns = recorder_.underruns();
  ASSERT_EQ(underruns.size(), FlightRecorder::kKept);
  EXPECT_EQ(underruns.front().frame, 100 - FlightRecorder::kKept + 1);
  EXPECT_EQ(underruns.back().frame, 100U);
  EXPECT_EQ(underruns.back().steady, 1U);
}

TEST_F(FlightRecorderTest, SaysInOneLineWhatAnUnderrunWasLike) {
  late_after(120, 0);
  const std::string text = FlightRecorder::text(last());
  EXPECT_NE(text.find("render thread"), std::string::npos) << text;
  EXPECT_NE(text.find("90.0 ms were queued"), std::string::npos) << text;
}

}  // namespace
}  // namespace tandem
