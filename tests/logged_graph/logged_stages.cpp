#include "logged_graph/logged_stages.h"

#include <cstddef>
#include <utility>

#include "logged_graph/setting_names.h"
#include "logged_graph/value_text.h"

namespace tandem {

namespace {

class LoggedAudioFile final : public LoggedComponent<MMAudioFileX> {
 public:
  using LoggedComponent::LoggedComponent;
  std::string FileName() const override { return inner().FileName(); }
  void put_FileName(const std::string& name) override { call("FileName", name, &MMAudioFileX::put_FileName, name); }
  std::int32_t Length() const override { return inner().Length(); }
  std::int32_t Position() const override { return inner().Position(); }
  void put_Position(std::int32_t milliseconds) override {
    call("Position", std::to_string(milliseconds), &MMAudioFileX::put_Position, milliseconds);
  }
  void finish(std::int32_t milliseconds) override {
    call("finish", std::to_string(milliseconds), &MMAudioFileX::finish, milliseconds);
  }
};

class LoggedPitch final : public LoggedComponent<MMPitchX> {
 public:
  using LoggedComponent::LoggedComponent;
  float Value() const override { return inner().Value(); }
  void put_Value(float value) override { call("Value", number_word(value), &MMPitchX::put_Value, value); }
};

class LoggedMixer final : public LoggedComponent<MMWaveMixerX> {
 public:
  explicit LoggedMixer(Logged<MMWaveMixerX> parts) : LoggedComponent(std::move(parts)) {
    inner().input_finished.connect([this](int input) { input_finished.raise(input); });
  }
  bool Mute(int input) const override { return inner().Mute(input); }
  void put_Mute(int input, bool mute) override {
    call("Mute", std::to_string(input) + ", " + boolean_word(mute), &MMWaveMixerX::put_Mute, input, mute);
  }
  std::int32_t Volume() const override { return inner().Volume(); }
  void put_Volume(std::int32_t volume) override {
    call("Volume", std::to_string(volume), &MMWaveMixerX::put_Volume, volume);
  }
};

class LoggedEqualizer final : public LoggedComponent<MMEqualizerX> {
 public:
  using LoggedComponent::LoggedComponent;
  int FilterCount() const override { return inner().FilterCount(); }
  void add_filter(double low_hz, double high_hz, double gain_db) override {
    call("Filters.add", number_word(low_hz) + ", " + number_word(high_hz) + ", " + number_word(gain_db),
         &MMEqualizerX::add_filter, low_hz, high_hz, gain_db);
  }
  Filter filter(int index) const override { return inner().filter(index); }
  void put_Gain(int index, double gain_db) override {
    call("Filters(" + std::to_string(index) + ").Gain", number_word(gain_db), &MMEqualizerX::put_Gain, index, gain_db);
  }
  bool Bypassed() const override { return inner().Bypassed(); }
  void put_Bypassed(bool bypassed) override {
    call("Bypassed", boolean_word(bypassed), &MMEqualizerX::put_Bypassed, bypassed);
  }
};

class LoggedWaveOut final : public LoggedComponent<MMWaveOutX> {
 public:
  explicit LoggedWaveOut(Logged<MMWaveOutX> parts) : LoggedComponent(std::move(parts)) {
    inner().device_lost.connect([this] { device_lost.raise(); });
  }
  std::int32_t BufferSize() const override { return inner().BufferSize(); }
  void put_BufferSize(std::int32_t bytes) override {
    call("BufferSize", std::to_string(bytes), &MMWaveOutX::put_BufferSize, bytes);
  }
  void open() override { call("open", "", &MMWaveOutX::open); }
  void close() override { call("close", "", &MMWaveOutX::close); }
  void start() override { call("start", "", &MMWaveOutX::start); }
  void stop() override { call("stop", "", &MMWaveOutX::stop); }
  void pause() override { call("pause", "", &MMWaveOutX::pause); }
  void restart() override { call("restart", "", &MMWaveOutX::restart); }
};

class LoggedConnector final : public LoggedComponent<MMConnectorX> {
 public:
  using LoggedComponent::LoggedComponent;
  std::string target(Slot slot) const override { return inner().target(slot); }
  void put_target(Slot slot, const std::string& display) override {
    call(std::string(slot_names()[static_cast<std::size_t>(slot)].name), display, &MMConnectorX::put_target, slot,
         display);
  }
};

class LoggedTimer final : public LoggedComponent<MMHiTimerX> {
 public:
  explicit LoggedTimer(Logged<MMHiTimerX> parts) : LoggedComponent(std::move(parts)) {
    inner().tick.connect([this] { tick.raise(); });
  }
  std::int32_t Interval() const override { return inner().Interval(); }
  void put_Interval(std::int32_t milliseconds) override {
    call("Interval", std::to_string(milliseconds), &MMHiTimerX::put_Interval, milliseconds);
  }
  bool Enabled() const override { return inner().Enabled(); }
  void put_Enabled(bool enabled) override { call("Enabled", boolean_word(enabled), &MMHiTimerX::put_Enabled, enabled); }
};

}  // namespace

std::unique_ptr<MMAudioFileX> logged(Logged<MMAudioFileX> parts) {
  return std::make_unique<LoggedAudioFile>(std::move(parts));
}
std::unique_ptr<MMPitchX> logged(Logged<MMPitchX> parts) { return std::make_unique<LoggedPitch>(std::move(parts)); }
std::unique_ptr<MMWaveMixerX> logged(Logged<MMWaveMixerX> parts) {
  return std::make_unique<LoggedMixer>(std::move(parts));
}
std::unique_ptr<MMEqualizerX> logged(Logged<MMEqualizerX> parts) {
  return std::make_unique<LoggedEqualizer>(std::move(parts));
}
std::unique_ptr<MMWaveOutX> logged(Logged<MMWaveOutX> parts) {
  return std::make_unique<LoggedWaveOut>(std::move(parts));
}
std::unique_ptr<MMConnectorX> logged(Logged<MMConnectorX> parts) {
  return std::make_unique<LoggedConnector>(std::move(parts));
}
std::unique_ptr<MMHiTimerX> logged(Logged<MMHiTimerX> parts) { return std::make_unique<LoggedTimer>(std::move(parts)); }

}  // namespace tandem
