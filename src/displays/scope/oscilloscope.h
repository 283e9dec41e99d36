// The oscilloscope: the newest sound as two traces, one sample for each px. UI thread only.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "audio/mm_displays.h"
#include "displays/core/heard_sound.h"
#include "displays/core/sound_display.h"
#include "displays/scope/scope_trigger.h"

namespace tandem {

inline constexpr std::size_t kScopeWidth = 337;

struct ScopeReading {
  // Sample i stands at x = i - shift px; one more than the width, because the first one stands left of the box.
  // 1 is the upper and -1 the lower edge.
  using Trace = std::array<float, kScopeWidth + 1>;
  Trace left{};
  Trace right{};
  float shift = 0.0F;  // 0 .. 1
  friend bool operator==(const ScopeReading&, const ScopeReading&) = default;
};

// Starts at the first rising zero crossing of the left channel, if that has none, of the right one, and else with
// whatever is newest. An amplitude of 1 / sqrt 2 fills the height; what is louder is cut at the edges.
class Oscilloscope final : public SwitchedDisplay<MMOscopeX> {
 public:
  const ScopeReading& picture() const { return picture_; }

 private:
  // Starts are looked for in 25 ms, one period of 40 Hz; so the picture is at most 33 ms old.
  static constexpr std::size_t kSearched = 1103;
  static constexpr std::size_t kLookedAt = kSearched + kScopeWidth + 1;

  void reset() override;
  void hear(std::span<const SoundFrame> frames) override { heard_.feed(frames); }
  bool pass(double seconds) override;
  bool resting() const override;

  void look() noexcept;
  ScopeStart start() const noexcept;

  HeardSound heard_{2048};
  std::array<SoundFrame, kLookedAt> frames_{};
  std::array<float, kLookedAt> left_{};
  std::array<float, kLookedAt> right_{};
  ScopeReading picture_;
};

}  // namespace tandem
