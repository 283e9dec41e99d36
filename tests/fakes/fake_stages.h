// Components that keep what they are given and make no sound.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "audio/mm_displays.h"
#include "audio/mm_stages.h"
#include "base/runtime_error.h"

namespace tandem::test {

class FakePitch final : public MMPitchX {
 public:
  float Value() const override { return value_; }
  void put_Value(float value) override { value_ = value; }

 private:
  float value_ = 0.0F;
};

class FakeMixer final : public MMWaveMixerX {
 public:
  bool Mute(int input) const override { return mute_.at(static_cast<std::size_t>(input)); }
  void put_Mute(int input, bool mute) override { mute_.at(static_cast<std::size_t>(input)) = mute; }
  std::int32_t Volume() const override { return volume_; }
  void put_Volume(std::int32_t volume) override { volume_ = volume; }

  // The song on an input has ended: it is muted, then the notification follows.
  void end_input(int input) {
    put_Mute(input, true);
    input_finished.raise(input);
  }

 private:
  std::array<bool, 2> mute_{true, true};
  std::int32_t volume_ = 32768;
};

class FakeEqualizer final : public MMEqualizerX {
 public:
  int FilterCount() const override { return static_cast<int>(filters_.size()); }
  void add_filter(double low_hz, double high_hz, double gain_db) override {
    filters_.push_back({low_hz, high_hz, gain_db});
  }
  Filter filter(int index) const override { return filters_[checked(index)]; }
  void put_Gain(int index, double gain_db) override { filters_[checked(index)].Gain = gain_db; }
  bool Bypassed() const override { return bypassed_; }
  void put_Bypassed(bool bypassed) override { bypassed_ = bypassed; }

 private:
  std::size_t checked(int index) const {
    if (index < 0 || index >= FilterCount()) throw RuntimeError(RuntimeErrorKind::Range);
    return static_cast<std::size_t>(index);
  }
  std::vector<Filter> filters_;
  bool bypassed_ = false;
};

class FakeWaveOut final : public MMWaveOutX {
 public:
  std::int32_t BufferSize() const override { return buffer_size_; }
  void put_BufferSize(std::int32_t bytes) override { buffer_size_ = bytes; }
  void open() override {}
  void close() override {}
  void start() override {}
  void stop() override {}
  void pause() override {}
  void restart() override {}

 private:
  std::int32_t buffer_size_ = 5120;
};

class FakeHelper final : public MMHelperX {
 public:
  std::string time_text(std::int32_t milliseconds) const override {
    const std::int32_t seconds = milliseconds / 1000;
    return std::to_string(seconds / 60) + (seconds % 60 < 10 ? ":0" : ":") + std::to_string(seconds % 60);
  }
};

}  // namespace tandem::test
