#include "app/display_pump.h"

#include <algorithm>

namespace tandem {

DisplayPump::DisplayPump(const DisplayFeed& feed) : feed_(feed), samples_(kMost), frames_(kMost) {}

std::span<const SoundFrame> DisplayPump::take(std::uint64_t heard) {
  const std::uint64_t until = std::min(heard, feed_.written());
  if (until <= taken_) return {};
  const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(until - taken_, kMost));
  taken_ = until;
  const auto samples = std::span(samples_).first(count);
  if (!feed_.read(until, samples)) return {};
  std::transform(samples.begin(), samples.end(), frames_.begin(), [](const StereoFrame& sample) {
    return SoundFrame{sample.left, sample.right};
  });
  return std::span(frames_).first(count);
}

}  // namespace tandem
