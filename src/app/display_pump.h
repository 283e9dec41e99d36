// Feeds the displays with the sound that is being heard now. UI thread.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "displays/core/sound_frame.h"
#include "engine/device/display_feed.h"

namespace tandem {

class DisplayPump {
 public:
  explicit DisplayPump(const DisplayFeed& feed);

  // The frames that were heard since the last call, at most the newest kMost of them. `heard`: how many frames of the
  // output have been heard so far.
  std::span<const SoundFrame> take(std::uint64_t heard);

 private:
  static constexpr std::size_t kMost = 8192;

  const DisplayFeed& feed_;
  std::uint64_t taken_ = 0;
  std::vector<StereoFrame> samples_;
  std::vector<SoundFrame> frames_;
};

}  // namespace tandem
