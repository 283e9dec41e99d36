// The components of the graph that hold no sound of their own. UI thread; nothing fails.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "audio/mm_stages.h"

namespace tandem {

class TimeText final : public MMHelperX {
 public:
  std::string time_text(std::int32_t milliseconds) const override;
};

// Decouples nothing here: the seconds of decoded sound before the mixer do that. Adds no delay.
class PassingRingBuffer final : public MMRingBufferX {};

// Keeps the names of the displays; the program feeds them from the engine's display feed.
class Connector final : public MMConnectorX {
 public:
  std::string target(Slot slot) const override { return targets_.at(static_cast<std::size_t>(slot)); }
  void put_target(Slot slot, const std::string& display) override {
    targets_.at(static_cast<std::size_t>(slot)) = display;
  }

 private:
  std::array<std::string, 5> targets_;
};

}  // namespace tandem
