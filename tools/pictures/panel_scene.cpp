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

constexpr double kMusicSeconds = 4.88;
constexpr std::size_t kFrame = 735;  // frames of sound to a picture: a 60th of a second

const NamedState& state_of(std::string_view name) {
  const auto& all = named_states();
  const auto found =
      std::find_if(all.begin(), all.end(), [name](const NamedState& state) { return state.name == name; });
  if (found == all.end()) throw std::invalid_argument("no state " + std::string(name));
  return *found;
}

// A second of a chord, the left channel a little louder and without its highest tone.
std::vector<SoundFrame> chord() {
  constexpr double kTones[] = {110, 440, 1000, 3000, 7000};
  std::vector<SoundFrame> sound(44100);
  double level = .3;
  for (const double tone : kTones) {
    for (std::size_t i = 0; i < sound.size(); ++i) {
      const double wave = level * std::sin(2 * std::numbers::pi * tone * static_cast<double>(i) / 44100);
      if (tone < 5000) sound[i].left += static_cast<float>(wave);
      sound[i].right += static_cast<float>(.7 * wave);
    }
    level *= .6;
  }
  return sound;
}

std::vector<SoundFrame> sound_of(Heard heard) {
  if (heard == Heard::Chord) return chord();
  return heard == Heard::Music ? band_music(kMusicSeconds) : std::vector<SoundFrame>(44100);
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
  hooks.user_acts = [] {};
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
  hear(state.heard);
  if (state.hovering > 0) hover(state.hovering);
}

PanelScene::~PanelScene() = default;

void PanelScene::hear(Heard heard) {
  const std::vector<SoundFrame> sound = sound_of(heard);
  for (std::size_t at = 0; at + kFrame <= sound.size(); at += kFrame) {
    window_->visual().feed(std::span(sound).subspan(at, kFrame));
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
