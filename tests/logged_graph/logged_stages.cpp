#include "logged_graph/logged_stages.h"

#include <cstddef>
#include <utility>

#include "logged_graph/setting_names.h"
#include "logged_graph/value_text.h"

namespace tandem {

namespace {

class LoggedAudioFile final : public MMAudioFileX {
 public:
  explicit LoggedAudioFile(Logged<MMAudioFileX> parts) : p_(std::move(parts)) {}
  std::string FileName() const override { return p_.inner->FileName(); }
  void put_FileName(const std::string& name) override {
    p_.log_call("FileName", name);
    p_.inner->put_FileName(name);
  }
  std::int32_t Length() const override { return p_.inner->Length(); }
  std::int32_t Position() const override { return p_.inner->Position(); }
  void put_Position(std::int32_t milliseconds) override {
    p_.log_call("Position", std::to_string(milliseconds));
    p_.inner->put_Position(milliseconds);
  }
  void finish(std::int32_t milliseconds) override {
    p_.log_call("finish", std::to_string(milliseconds));
    p_.inner->finish(milliseconds);
  }

 private:
  Logged<MMAudioFileX> p_;
};

class LoggedPitch final : public MMPitchX {
 public:
  explicit LoggedPitch(Logged<MMPitchX> parts) : p_(std::move(parts)) {}
  float Value() const override { return p_.inner->Value(); }
  void put_Value(float value) override {
    p_.log_call("Value", number_word(value));
    p_.inner->put_Value(value);
  }

 private:
  Logged<MMPitchX> p_;
};

class LoggedMixer final : public MMWaveMixerX {
 public:
  explicit LoggedMixer(Logged<MMWaveMixerX> parts) : p_(std::move(parts)) {
    p_.inner->input_finished.connect([this](int input) { input_finished.raise(input); });
  }
  bool Mute(int input) const override { return p_.inner->Mute(input); }
  void put_Mute(int input, bool mute) override {
    p_.log_call("Mute", std::to_string(input) + ", " + boolean_word(mute));
    p_.inner->put_Mute(input, mute);
  }
  std::int32_t Volume() const override { return p_.inner->Volume(); }
  void put_Volume(std::int32_t volume) override {
    p_.log_call("Volume", std::to_string(volume));
    p_.inner->put_Volume(volume);
  }

 private:
  Logged<MMWaveMixerX> p_;
};

class LoggedEqualizer final : public MMEqualizerX {
 public:
  explicit LoggedEqualizer(Logged<MMEqualizerX> parts) : p_(std::move(parts)) {}
  int FilterCount() const override { return p_.inner->FilterCount(); }
  void add_filter(double low_hz, double high_hz, double gain_db) override {
    p_.log_call("Filters.add", number_word(low_hz) + ", " + number_word(high_hz) + ", " + number_word(gain_db));
    p_.inner->add_filter(low_hz, high_hz, gain_db);
  }
  Filter filter(int index) const override { return p_.inner->filter(index); }
  void put_Gain(int index, double gain_db) override {
    p_.log_call("Filters(" + std::to_string(index) + ").Gain", number_word(gain_db));
    p_.inner->put_Gain(index, gain_db);
  }
  bool Bypassed() const override { return p_.inner->Bypassed(); }
  void put_Bypassed(bool bypassed) override {
    p_.log_call("Bypassed", boolean_word(bypassed));
    p_.inner->put_Bypassed(bypassed);
  }

 private:
  Logged<MMEqualizerX> p_;
};

class LoggedWaveOut final : public MMWaveOutX {
 public:
  explicit LoggedWaveOut(Logged<MMWaveOutX> parts) : p_(std::move(parts)) {
    p_.inner->device_lost.connect([this] { device_lost.raise(); });
  }
  std::int32_t BufferSize() const override { return p_.inner->BufferSize(); }
  void put_BufferSize(std::int32_t bytes) override {
    p_.log_call("BufferSize", std::to_string(bytes));
    p_.inner->put_BufferSize(bytes);
  }
  void open() override { call("open", &MMWaveOutX::open); }
  void close() override { call("close", &MMWaveOutX::close); }
  void start() override { call("start", &MMWaveOutX::start); }
  void stop() override { call("stop", &MMWaveOutX::stop); }
  void pause() override { call("pause", &MMWaveOutX::pause); }
  void restart() override { call("restart", &MMWaveOutX::restart); }

 private:
  void call(const std::string& operation, void (MMWaveOutX::*method)()) {
    p_.log_call(operation, "");
    (p_.inner.get()->*method)();
  }
  Logged<MMWaveOutX> p_;
};

class LoggedConnector final : public MMConnectorX {
 public:
  explicit LoggedConnector(Logged<MMConnectorX> parts) : p_(std::move(parts)) {}
  std::string target(Slot slot) const override { return p_.inner->target(slot); }
  void put_target(Slot slot, const std::string& display) override {
    p_.log_call(std::string(slot_names()[static_cast<std::size_t>(slot)].name), display);
    p_.inner->put_target(slot, display);
  }

 private:
  Logged<MMConnectorX> p_;
};

class LoggedTimer final : public MMHiTimerX {
 public:
  explicit LoggedTimer(Logged<MMHiTimerX> parts) : p_(std::move(parts)) {
    p_.inner->tick.connect([this] { tick.raise(); });
  }
  std::int32_t Interval() const override { return p_.inner->Interval(); }
  void put_Interval(std::int32_t milliseconds) override {
    p_.log_call("Interval", std::to_string(milliseconds));
    p_.inner->put_Interval(milliseconds);
  }
  bool Enabled() const override { return p_.inner->Enabled(); }
  void put_Enabled(bool enabled) override {
    p_.log_call("Enabled", boolean_word(enabled));
    p_.inner->put_Enabled(enabled);
  }

 private:
  Logged<MMHiTimerX> p_;
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
