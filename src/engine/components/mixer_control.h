// The two-input mixer as the panel sees it. UI thread.
#pragma once

#include <array>
#include <cstdint>

#include "audio/mm_stages.h"
#include "engine/components/deck_control.h"
#include "engine/render/render_messages.h"

namespace tandem {

class MixerControl final : public MMWaveMixerX {
 public:
  MixerControl(std::array<DeckControl, 2>& decks, CommandSender& commands) : decks_(decks), commands_(commands) {}

  bool Mute(int input) const override { return inputs_.at(static_cast<std::size_t>(input)).muted; }
  // An input that goes from sounding to muted rewinds its deck.
  void put_Mute(int input, bool mute) override;
  std::int32_t Volume() const override { return volume_; }
  void put_Volume(std::int32_t volume) override;

  // Numbers the mute changes of an input: an end that was reported under another number is stale.
  std::uint32_t epoch(int input) const { return inputs_.at(static_cast<std::size_t>(input)).epoch; }
  // True if this input was unmuted before the other one; both are unmuted.
  bool sounds_longer(int input) const;

 private:
  struct Input {
    bool muted = true;
    std::uint32_t epoch = 0;
    std::uint64_t unmuted_at = 0;  // in the order of all unmutes
  };

  std::array<DeckControl, 2>& decks_;
  CommandSender& commands_;
  std::array<Input, 2> inputs_{};
  std::uint64_t unmutes_ = 0;
  std::int32_t volume_ = 32768;
};

}  // namespace tandem
