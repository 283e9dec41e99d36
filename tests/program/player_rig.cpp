#include "program/player_rig.h"

#include "controls/panel_groups.h"
#include "engine/equalizer/band_equalizer.h"
#include "engine/render/limiter.h"
#include "settings/settings_file.h"
#include "support/bytes.h"

namespace tandem::test {

namespace {
constexpr std::int64_t kOpeningFade = 50;  // ms

// As the panel's own wiring does it.
template <class Handler>
void silently(Handler handler) {
  try {
    handler();
  } catch (const RuntimeError&) {  // the handler has ended and keeps what it did
    return;
  }
}
}  // namespace

std::string factory_text() { return factory_settings(); }

PlayerRig::PlayerRig() : PlayerRig(factory_text()) {}

PlayerRig::PlayerRig(const std::string& settings, const SilenceGuard::Patience& patience) {
  write_file(directory_.file("TP.inf"), text_bytes(settings));
  const auto keep = [this](std::span<const Sample16> frames) {
    sound_.insert(sound_.end(), frames.begin(), frames.end());
  };
  player_ = std::make_unique<SimulatedPlayer>(SimulatedPlayer::Options{.directory = directory_.path(),
                                                                       .sink = sink_of_16_bits(keep),
                                                                       .log = {},
                                                                       .show_message = {},
                                                                       .silence_patience = patience});
  hook();
  player_->load();
  run(kOpeningFade);
}

void PlayerRig::hook() {
  Program& program = player_->program;
  program.sound.WaveMixer->input_finished.connect([this, &program](int input) {
    for (const auto& act : hooks.before_finished) act(input);
    silently([&] { program.mix.input_finished(input); });
    for (const auto& act : hooks.after_finished) act(input);
  });
  program.sound.MixTimer->tick.connect([this, &program] {
    silently([&] { program.mix.tick(); });
    for (const auto& act : hooks.after_mix_tick) act();
  });
  program.sound.Timer->tick.connect([this, &program] {
    silently([&] { program.display.refresh(); });
    for (const auto& act : hooks.after_refresh) act();
  });
}

void PlayerRig::add(const std::string& path) {
  player_->dialog.answers.push_back(path);
  controls().LoadSong.click.raise();
}

void PlayerRig::add(const std::vector<std::string>& paths) {
  for (const std::string& path : paths) add(path);
}

std::string PlayerRig::make_file(const std::string& name, const std::vector<std::uint8_t>& bytes) const {
  write_file(file(name), bytes);
  return file(name);
}

void PlayerRig::press(Button& button) {
  if (button.Enabled) button.click.raise();
}

void choose_lead(PanelControls& controls, int milliseconds) {
  for (const LeadTime& lead : kLeadTimes) {
    Lamp& lamp = controls.*lead.lamp;
    if (lead.milliseconds == milliseconds && lamp.LEDColor == kLeadDark) lamp.click.raise();
  }
}

void PlayerRig::choose_lead(int milliseconds) { test::choose_lead(controls(), milliseconds); }

void PlayerRig::seek(std::int32_t milliseconds) {
  Slider& slider = controls().Slider1;
  slider.user_press();
  slider.move(milliseconds);
  slider.user_release();
}

bool PlayerRig::run_until(const std::function<bool()>& condition, std::int64_t limit_milliseconds) {
  for (std::int64_t t = 0; t < limit_milliseconds && !condition(); t += kStepMilliseconds) run(kStepMilliseconds);
  return condition();
}

bool PlayerRig::run_until_stopped(std::int64_t limit_milliseconds) {
  return run_until([this] { return stopped(); }, limit_milliseconds);
}

bool PlayerRig::stopped() const {
  return controls().PLAY.Picture == 0 && controls().STOPBtn.Picture == 5 &&
         player_->program.sound.MixTimer->Interval() == 0;
}

}  // namespace tandem::test
