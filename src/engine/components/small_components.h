// The components of the graph that need no more than a few lines. UI thread.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "audio/mm_audio_file.h"
#include "audio/mm_hi_timer.h"
#include "audio/mm_stages.h"

namespace tandem {

// Opens and measures a song within the put; keeps nothing open.
class ProbeFile final : public MMAudioFileX {
 public:
  std::string FileName() const override { return name_; }
  void put_FileName(const std::string& name) override;
  std::int32_t Length() const override { return length_ms_; }
  std::int32_t Position() const override { return 0; }
  void put_Position(std::int32_t) override {}
  void finish(std::int32_t) override {}

 private:
  std::string name_;
  std::int32_t length_ms_ = 0;
};

class TimeText final : public MMHelperX {
 public:
  std::string time_text(std::int32_t milliseconds) const override;
};

// Decouples nothing here: the seconds of decoded sound before the mixer do that. Adds no delay.
class PassingRingBuffer final : public MMRingBufferX {};

class Connector final : public MMConnectorX {
 public:
  std::string target(Slot slot) const override { return targets_.at(static_cast<std::size_t>(slot)); }
  void put_target(Slot slot, const std::string& display) override {
    targets_.at(static_cast<std::size_t>(slot)) = display;
  }

 private:
  std::array<std::string, 5> targets_;
};

// The mix timer: counts its ticks, and can be made to tick between two of them.
class MixClock final : public MMHiTimerX {
 public:
  explicit MixClock(TimerQueue& queue) : timer_(queue, 0, true) {
    timer_.tick.connect([this] { tick_now(); });
  }
  std::int32_t Interval() const override { return timer_.Interval(); }
  void put_Interval(std::int32_t milliseconds) override { timer_.put_Interval(milliseconds); }
  bool Enabled() const override { return timer_.Enabled(); }
  void put_Enabled(bool enabled) override { timer_.put_Enabled(enabled); }

  // The panel's ticks until then would do nothing: they are saved. Each word replaces the one before: a mix point that
  // has come nearer (the song was sought, the lead time chosen) is not slept over. Taken back by hasten().
  void rest_for(TimerQueue::Milliseconds milliseconds) {
    timer_.hasten();
    timer_.postpone(milliseconds);
  }
  void hasten() { timer_.hasten(); }

  bool running() const { return timer_.Enabled() && timer_.Interval() > 0; }
  void tick_now() {
    ++ticks_;
    tick.raise();
  }
  std::uint64_t ticks() const { return ticks_; }

 private:
  HiTimer timer_;
  std::uint64_t ticks_ = 0;
};

}  // namespace tandem
