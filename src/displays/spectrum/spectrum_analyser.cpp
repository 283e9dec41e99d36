#include "displays/spectrum/spectrum_analyser.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <utility>

#include "displays/spectrum/heights.h"

namespace tandem {

namespace {

constexpr double kGainStep = 3.0;       // dB an octave
constexpr double kDesignLength = 64.0;  // at which the transforms have their own lengths
constexpr double kOverlap = -12.0;      // dB, how much softer a column hears its neighbour when all octaves are shown

}  // namespace

SpectrumAnalyser::SpectrumAnalyser() { prepare_bands(); }

void SpectrumAnalyser::put(SpectrumSetting setting, std::int32_t value) {
  if (!settings_.put(setting, value)) return;
  switch (setting) {
    case SpectrumSetting::FFTLength:
    case SpectrumSetting::Window:
    case SpectrumSetting::Kind:
    case SpectrumSetting::HorizontalScale:
    case SpectrumSetting::ReferenceFrequency:
      prepare_bands();
      break;
    case SpectrumSetting::PeakCount:
    case SpectrumSetting::DrawPeaks:
      prepare_history();
      break;
    default:
      prepare_rules();
      break;
  }
}

void SpectrumAnalyser::fit(double scale) {
  if (scale == scale_) return;
  scale_ = scale;
  prepare_bands();
}

double SpectrumAnalyser::sharpness() const {
  return std::clamp(settings_[SpectrumSetting::FFTLength] / kDesignLength, 0.5, 2.0);
}

void SpectrumAnalyser::prepare_bands() {
  picture_.reference_hz = settings_[SpectrumSetting::ReferenceFrequency];
  picture_.grid = spectrum_grid(settings_[SpectrumSetting::FFTLength], scale_);
  picture_.axis = shown_axis(settings_[SpectrumSetting::HorizontalScale], picture_.reference_hz);
  const auto bands = static_cast<std::size_t>(rolls() ? picture_.grid.rows : picture_.grid.columns);
  bands_.prepare(sharpness(), static_cast<FftWindow>(settings_[SpectrumSetting::Window]), picture_.axis, bands);
  for (std::size_t side = 0; side < kSides; ++side) {
    powers_[side].assign(bands, 0.0F);
    targets_[side].assign(bands, 0.0F);
    levels_[side].assign(bands, 0.0F);
    picture_.heights[side].assign(rolls() ? 0 : bands, 0.0F);
    decay_[side].prepare(bands);
    contrast_[side].prepare(bands);
  }
  prepare_history();
}

void SpectrumAnalyser::prepare_history() {
  const bool marked = settings_.is_on(SpectrumSetting::DrawPeaks) && !rolls();
  picture_.peak_count = marked ? static_cast<std::size_t>(settings_[SpectrumSetting::PeakCount]) : 0;
  for (std::size_t side = 0; side < kSides; ++side) {
    marks_[side].prepare(powers_[side].size(), picture_.peak_count);
    picture_.peaks[side].assign(powers_[side].size() * picture_.peak_count, 0.0F);
  }
  const int steps = rolls() ? picture_.grid.half_width() / picture_.grid.roll_step() : 0;
  roll_.prepare(picture_.roll, static_cast<std::size_t>(steps), rolls() ? powers_[0].size() : 0);
  prepare_rules();
}

void SpectrumAnalyser::prepare_rules() {
  law_ = HeightLaw(settings_.is_on(SpectrumSetting::LogAmp), settings_[SpectrumSetting::VerticalScale]);
  for (std::size_t side = 0; side < kSides; ++side) {
    decay_[side].put(static_cast<DecayKind>(settings_[SpectrumSetting::DecayMode]), settings_[SpectrumSetting::Decay],
                     settings_.is_on(SpectrumSetting::SolidBars));
    marks_[side].put_times(settings_[SpectrumSetting::PeakDelay], settings_[SpectrumSetting::PeakSpeed]);
  }
  // Enlarged, a column is narrower than a filter; there the choice of window must stay visible.
  overlap_ = rolls()
                 ? 0.0F
                 : static_cast<float>(std::pow(10.0, kOverlap * settings_[SpectrumSetting::HorizontalScale] / 10.0));
  prepare_tilt();
  prepare_style();
}

void SpectrumAnalyser::prepare_tilt() {
  const double gain = kGainStep * settings_[SpectrumSetting::Gain];
  tilt_.resize(powers_[0].size());
  for (std::size_t i = 0; i < tilt_.size(); ++i) {
    const double hz = picture_.axis.hz((static_cast<double>(i) + 0.5) / static_cast<double>(tilt_.size()));
    tilt_[i] = static_cast<float>(std::pow(10.0, gain * std::log2(hz / picture_.reference_hz) / 10.0));
  }
}

void SpectrumAnalyser::prepare_style() {
  picture_.kind = settings_.kind();
  picture_.grid_lines = settings_.is_on(SpectrumSetting::DrawGrid);
  picture_.inactive = settings_.is_on(SpectrumSetting::DrawInactive);
  picture_.solid_bars = settings_.is_on(SpectrumSetting::SolidBars);
  changed_ = true;
}

void SpectrumAnalyser::reset() {
  level_.reset();
  prepare_bands();
}

void SpectrumAnalyser::hear(std::span<const SoundFrame> frames) {
  if (frames.empty()) return;
  watch_.fed();
  bands_.feed(frames);
}

bool SpectrumAnalyser::resting() const { return still_ && !changed_ && bands_.silent(); }

bool SpectrumAnalyser::pass(double seconds) {
  if (resting()) return false;
  if (watch_.advance(seconds) == FeedWatch::State::Gone) fall_silent();
  if (bands_.take(powers_) || changed_) listen(seconds);
  const bool moved = move(seconds);
  still_ = all_dark();
  return std::exchange(changed_, false) || moved;
}

void SpectrumAnalyser::fall_silent() noexcept {
  bands_.clear();
  level_.reset();
  for (std::size_t side = 0; side < kSides; ++side) {
    std::fill(powers_[side].begin(), powers_[side].end(), 0.0F);
    std::fill(targets_[side].begin(), targets_[side].end(), 0.0F);
  }
}

void SpectrumAnalyser::listen(double seconds) noexcept {
  for (std::size_t side = 0; side < kSides; ++side)
    std::transform(powers_[side].begin(), powers_[side].end(), tilt_.begin(), targets_[side].begin(),
                   std::multiplies());
  for (auto& side : targets_) overlap_bands(side, overlap_);
  const auto sum = [](const std::vector<float>& powers) { return std::accumulate(powers.begin(), powers.end(), 0.0); };
  level_.follow((sum(targets_[0]) + sum(targets_[1])) / (2.0 * static_cast<double>(tilt_.size())), seconds);
  const float factor = level_.factor();
  for (std::size_t side = 0; side < kSides; ++side) {
    for (float& target : targets_[side]) target = law_.height(target * factor);
    contrast_[side].enlarge(targets_[side], seconds);
    for (float& target : targets_[side]) target = shouldered(target);
  }
}

bool SpectrumAnalyser::move(double seconds) noexcept {
  if (rolls()) return roll_.move(picture_.roll, targets_, seconds);
  bool moved = false;
  for (std::size_t side = 0; side < kSides; ++side) {
    moved = move_bars(side, seconds) || moved;
    moved = move_peaks(side, seconds) || moved;
  }
  return moved;
}

bool SpectrumAnalyser::move_bars(std::size_t side, double seconds) noexcept {
  decay_[side].move(levels_[side], targets_[side], seconds);
  bool moved = false;
  for (std::size_t i = 0; i < levels_[side].size(); ++i) {
    const float height = decay_[side].shown(levels_[side][i], picture_.grid.rows);
    moved = moved || height != picture_.heights[side][i];
    picture_.heights[side][i] = height;
  }
  return moved;
}

bool SpectrumAnalyser::move_peaks(std::size_t side, double seconds) noexcept {
  if (picture_.peak_count == 0) return false;
  marks_[side].move(picture_.heights[side], seconds);
  const std::span<const float> marks = marks_[side].heights();
  const bool moved = !std::equal(marks.begin(), marks.end(), picture_.peaks[side].begin());
  std::copy(marks.begin(), marks.end(), picture_.peaks[side].begin());
  return moved;
}

bool SpectrumAnalyser::all_dark() const noexcept {
  for (std::size_t side = 0; side < kSides; ++side)
    if (!dark(targets_[side]) || !dark(levels_[side]) || !marks_[side].settled()) return false;
  return !rolls() || roll_.empty(picture_.roll);
}

}  // namespace tandem
