#include "logged_graph/logged_graph.h"

#include <cstddef>
#include <utility>

#include "logged_graph/logged_stages.h"
#include "logged_graph/setting_names.h"
#include "logged_graph/value_text.h"

namespace tandem {

namespace {

template <class Interface>
class LoggedDisplay : public LoggedComponent<Interface> {
 public:
  using LoggedComponent<Interface>::LoggedComponent;
  bool Enabled() const override { return this->inner().Enabled(); }
  void put_Enabled(bool enabled) override {
    this->call("Enabled", boolean_word(enabled), &Interface::put_Enabled, enabled);
  }
  bool Visible() const override { return this->inner().Visible(); }
  void put_Visible(bool visible) override {
    this->call("Visible", boolean_word(visible), &Interface::put_Visible, visible);
  }
};

class LoggedSpectrum final : public LoggedDisplay<MMSpectrumX> {
 public:
  using LoggedDisplay::LoggedDisplay;
  std::int32_t get(SpectrumSetting setting) const override { return inner().get(setting); }
  void put(SpectrumSetting setting, std::int32_t value) override {
    call(std::string(setting_names()[static_cast<std::size_t>(setting)].name), setting_text(setting, value),
         &MMSpectrumX::put, setting, value);
  }
};

template <class Interface>
std::unique_ptr<Interface> logged_display(Logged<Interface> parts) {
  return std::make_unique<LoggedDisplay<Interface>>(std::move(parts));
}

void log_displays(SoundGraph& graph, const CallLog& log) {
  graph.MMSpectrum1 =
      std::make_unique<LoggedSpectrum>(Logged<MMSpectrumX>{std::move(graph.MMSpectrum1), "MMSpectrum1", log});
  graph.MMMeterX1 = logged_display<MMMeterX>({std::move(graph.MMMeterX1), "MMMeterX1", log});
  graph.MMMeterX2 = logged_display<MMMeterX>({std::move(graph.MMMeterX2), "MMMeterX2", log});
  graph.MMLevelX1 = logged_display<MMLevelX>({std::move(graph.MMLevelX1), "MMLevelX1", log});
  graph.MMOscopeX1 = logged_display<MMOscopeX>({std::move(graph.MMOscopeX1), "MMOscopeX1", log});
}

// The helper and the ring buffer have nothing to log.
template <class Component>
void wrap(std::unique_ptr<Component>& component, const std::string& name, const CallLog& log) {
  component = logged(Logged<Component>{std::move(component), name, log});
}

}  // namespace

SoundGraph logged_graph(SoundGraph inner, const CallLog& log) {
  for (std::size_t i = 0; i < kDecks; ++i) {
    wrap(inner.AudioFile[i], "AudioFile(" + std::to_string(i) + ")", log);
    wrap(inner.Pitch[i], "Pitch(" + std::to_string(i) + ")", log);
  }
  wrap(inner.TempFile, "TempFile", log);
  wrap(inner.WaveMixer, "WaveMixer", log);
  wrap(inner.EQ, "EQ", log);
  wrap(inner.WaveOut, "WaveOut", log);
  wrap(inner.MMConnectorX1, "MMConnectorX1", log);
  wrap(inner.MixTimer, "MixTimer", log);
  wrap(inner.Timer, "Timer", log);
  wrap(inner.ListTimer, "ListTimer", log);
  log_displays(inner, log);
  return inner;
}

}  // namespace tandem
