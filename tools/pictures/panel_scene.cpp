#include "tools/pictures/panel_scene.h"

#include <QDragEnterEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QScreen>
#include <QUrl>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <stdexcept>

#include "displays/display_set.h"
#include "tools/pictures/panel_states.h"
#include "tools/pictures/synthetic_music.h"
#include "widgets/display_area/display_views.h"

namespace tandem {

namespace {

constexpr double kMusicSeconds = 4.6;  // soon after a beat
constexpr float kPeak = .68F;          // the oscilloscope shows .7
constexpr float kDrive = 4;
constexpr std::size_t kSilence = 44100;  // frames of sound
constexpr std::size_t kFrame = 735;      // frames of sound to a picture: a 60th of a second

const NamedState& state_of(std::string_view name) {
  const auto& all = named_states();
  const auto found =
      std::find_if(all.begin(), all.end(), [name](const NamedState& state) { return state.name == name; });
  if (found == all.end()) throw std::invalid_argument("no state " + std::string(name));
  return *found;
}

// The made-up band as a recording has it: with less and less above some kHz, loud and compressed.
std::vector<SoundFrame> record_music() {
  std::vector<SoundFrame> music = band_music(kMusicSeconds);
  for (const double corner : {1500.0, 6000.0}) {
    const auto share = static_cast<float>(1 - std::exp(-2 * std::numbers::pi * corner / kHeardRate));
    SoundFrame low;
    for (SoundFrame& frame : music) {
      low.left += share * (frame.left - low.left);
      low.right += share * (frame.right - low.right);
      frame = low;
    }
  }
  float peak = 0;
  for (const SoundFrame& frame : music) peak = std::max({peak, std::abs(frame.left), std::abs(frame.right)});
  const auto compressed = [peak](float sample) { return kPeak * std::tanh(kDrive * sample / peak); };
  for (SoundFrame& frame : music) frame = {compressed(frame.left), compressed(frame.right)};
  return music;
}

const std::vector<SoundFrame>& recorded_music() {
  static const std::vector<SoundFrame> music = record_music();
  return music;
}

const std::vector<SoundFrame>& silence() {
  static const std::vector<SoundFrame> silence(kSilence);
  return silence;
}

}  // namespace

std::vector<std::string_view> panel_states() {
  std::vector<std::string_view> names;
  for (const NamedState& state : named_states()) names.push_back(state.name);
  return names;
}

PanelScene::PanelScene(std::string_view name, double scale) {
  const NamedState& state = state_of(name);
  add_displays(sound_);
  controls_ = std::make_unique<PanelControls>(dialog_, timers_);
  PanelWindow::Hooks hooks;
  hooks.close = [] {};
  hooks.frame_wanted = [] {};
  hooks.user_action = [] {};
  hooks.drop = [](const auto&) {};
  window_ = std::make_unique<PanelWindow>(*controls_, views_of(sound_), std::move(hooks));
  window_->set_composited(state.shadow);
  window_->set_reduced_motion(true);
  window_->begin_with_scale(scale);
  MixView mix;
  PanelStateParts parts{*controls_, sound_, mix};
  state.put(parts);
  window_->show();
  window_->show_mix(mix);
  hear(state.plays ? recorded_music() : silence());
  if (state.hovering > 0) hover(state.hovering);
}

PanelScene::~PanelScene() = default;

void PanelScene::hear(std::span<const SoundFrame> sound) {
  for (std::size_t at = 0; at + kFrame <= sound.size(); at += kFrame) {
    window_->visual().feed(sound.subspan(at, kFrame));
    window_->frame(1.0 / 60);
  }
}

void PanelScene::hover(int files) {
  QMimeData data;
  QList<QUrl> urls;
  for (int i = 0; i < files; ++i) urls.append(QUrl::fromLocalFile(QStringLiteral("/music/%1.mp3").arg(i)));
  data.setUrls(urls);
  QDragEnterEvent enter(window_->rect().center(), Qt::CopyAction, &data, Qt::LeftButton, {});
  QCoreApplication::sendEvent(window_.get(), &enter);
}

// An opaque widget's grab() leaves what it does not paint as it was in memory: beside the shadow there is nothing.
QImage PanelScene::picture() {
  QImage picture(window_->size(), QImage::Format_ARGB32_Premultiplied);
  picture.fill(Qt::transparent);
  window_->render(&picture);
  return picture;
}

}  // namespace tandem
