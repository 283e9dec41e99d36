#include "engine/read/resampler.h"

#include <gtest/gtest.h>

#include "support/signal.h"

namespace tandem::test {
namespace {

Sound converted(Resampler& resampler, std::span<const StereoFrame> in) {
  Sound out(in.size() * 8 + 10'000);
  std::size_t made = 0;
  while (!in.empty()) {
    const auto step = resampler.process(in.first(std::min<std::size_t>(in.size(), 700)), std::span(out).subspan(made));
    in = in.subspan(step.used);
    made += step.made;
  }
  for (std::size_t rest = 1; rest > 0; made += rest) rest = resampler.process({}, std::span(out).subspan(made)).made;
  out.resize(made);
  return out;
}

TEST(Resampler, PutsEverySoundWhereItsTimeIs) {
  for (const int rate : {8000, 22050, 48000, 96000}) {
    Resampler resampler(rate);
    const Sound out = converted(resampler, to_stereo(tones(1.0, 997.0, 0.5, rate)));
    ASSERT_NEAR(static_cast<double>(out.size()), kSampleRate, 2.0) << rate;
    const Sound expected = to_stereo(tones(1.0, 997.0, 0.5));
    EXPECT_GT(snr_db(std::span(expected).subspan(10'000, 20'000), std::span(out).subspan(10'000, 20'000)), 100.0)
        << rate;
  }
}

TEST(Resampler, ForgetsAllSoundWhenItIsReset) {
  Resampler resampler(48000);
  const Sound fresh = converted(resampler, to_stereo(tones(0.2, 500.0, 0.5, 48000)));
  resampler.reset();
  Sound scrap(500);
  resampler.process(to_stereo(tones(0.1, 3000.0, 1.0, 48000)), scrap);
  resampler.reset();
  EXPECT_EQ(converted(resampler, to_stereo(tones(0.2, 500.0, 0.5, 48000))), fresh);
}

}  // namespace
}  // namespace tandem::test
