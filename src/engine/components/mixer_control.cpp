#include "engine/components/mixer_control.h"

#include <algorithm>

namespace tandem {

namespace {
constexpr std::int32_t kFullVolume = 32768;
}

void MixerControl::put_Mute(int input, bool mute) {
  Input& state = inputs_.at(static_cast<std::size_t>(input));
  if (state.muted == mute) return;
  state.muted = mute;
  ++state.epoch;
  if (!mute) state.unmuted_at = ++unmutes_;
  commands_.send({.kind = mute ? RenderCommand::Kind::Mute : RenderCommand::Kind::Unmute,
                  .deck = static_cast<std::uint8_t>(input),
                  .epoch = state.epoch});
  if (mute) decks_.at(static_cast<std::size_t>(input)).rewind();
}

void MixerControl::put_Volume(std::int32_t volume) {
  volume_ = std::clamp(volume, 0, kFullVolume);
  commands_.send(
      {.kind = RenderCommand::Kind::Volume, .value = static_cast<float>(volume_) / static_cast<float>(kFullVolume)});
}

bool MixerControl::sounds_longer(int input) const {
  const auto at = [this](int i) { return inputs_.at(static_cast<std::size_t>(i)).unmuted_at; };
  return at(input) < at(1 - input);
}

}  // namespace tandem
