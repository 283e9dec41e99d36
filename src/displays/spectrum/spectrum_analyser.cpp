#include "displays/spectrum/spectrum_analyser.h"

#include <algorithm>
#include <utility>

namespace tandem {

namespace {

constexpr std::size_t kLongest = 4096;
constexpr double kGainStep = 3.0;  // dB

int scaled(int pixels, double scale) { return std::max(1, static_cast<int>(pixels * scale)); }

bool dark(const std::vector<float>& heights) {
  return std::all_of(heights.begin(), heights.end(), [](float height) { return height <= 0.0F; });
}

}  // namespace

SpectrumAnalyser::SpectrumAnalyser() : heard_(kLongest) { prepare_transform(); }

void SpectrumAnalyser::put(SpectrumSetting setting, std::int32_t value) {
  if (!settings_.put(setting, value)) return;
  switch (setting) {
    case SpectrumSetting::FFTLength:
    case SpectrumSetting::Window:
      prepare_transform();
      break;
    case SpectrumSetting::Kind:
    case SpectrumSetting::HorizontalScale:
    case SpectrumSetting::ReferenceFrequency:
      prepare_columns();
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

void SpectrumAnalyser::fit(int half_px, double scale) {
  if (half_px == half_px_ && scale == scale_) return;
  half_px_ = std::max(1, half_px);
  scale_ = scale;
  prepare_columns();
}

void SpectrumAnalyser::prepare_transform() {
  spectrum_.prepare(length(), static_cast<FftWindow>(settings_[SpectrumSetting::Window]));
  prepare_columns();
}

void SpectrumAnalyser::prepare_columns() {
  const auto bins = static_cast<int>(length() / 2);
  const std::int32_t reference = settings_[SpectrumSetting::ReferenceFrequency];
  picture_.columns = fit_columns(half_px_, bins, scaled(kSmallestPitch, scale_));
  picture_.range = shown_range(settings_[SpectrumSetting::HorizontalScale], reference);
  picture_.reference = picture_.range.position(reference);
  const auto bands = static_cast<std::size_t>(rolls() ? kRollRows : picture_.columns.columns);
  bands_.prepare(picture_.range, bands, length() / 2);
  for (std::size_t side = 0; side < kSides; ++side) {
    targets_[side].assign(bands, 0.0F);
    levels_[side].assign(bands, 0.0F);
    picture_.heights[side].assign(rolls() ? 0 : bands, 0.0F);
  }
  prepare_history();
}

void SpectrumAnalyser::prepare_history() {
  const bool marked = settings_.is_on(SpectrumSetting::DrawPeaks) && !rolls();
  picture_.peak_count = marked ? static_cast<std::size_t>(settings_[SpectrumSetting::PeakCount]) : 0;
  for (std::size_t side = 0; side < kSides; ++side) {
    marks_[side].prepare(bands_.bands(), picture_.peak_count);
    picture_.peaks[side].assign(bands_.bands() * picture_.peak_count, 0.0F);
  }
  const int steps = rolls() ? half_px_ / scaled(kRollPitch, scale_) : 0;
  roll_.prepare(picture_.roll, static_cast<std::size_t>(steps), rolls() ? bands_.bands() : 0);
  prepare_rules();
}

void SpectrumAnalyser::prepare_rules() {
  rule_ = HeightRule(settings_.is_on(SpectrumSetting::LogAmp), kGainStep * settings_[SpectrumSetting::Gain],
                     settings_[SpectrumSetting::VerticalScale]);
  decay_ = BarDecay(static_cast<DecayKind>(settings_[SpectrumSetting::DecayMode]), settings_[SpectrumSetting::Decay]);
  for (PeakMarks& marks : marks_)
    marks.put_times(settings_[SpectrumSetting::PeakDelay], settings_[SpectrumSetting::PeakSpeed]);
  prepare_style();
}

void SpectrumAnalyser::prepare_style() {
  picture_.kind = settings_.kind();
  picture_.grid = settings_.is_on(SpectrumSetting::DrawGrid);
  picture_.inactive = settings_.is_on(SpectrumSetting::DrawInactive);
  picture_.solid_bars = settings_.is_on(SpectrumSetting::SolidBars);
  picture_.solid_marks = settings_.is_on(SpectrumSetting::SolidMarks);
  picture_.draw_mode = settings_[SpectrumSetting::DrawMode];
  changed_ = true;
}

void SpectrumAnalyser::reset() {
  heard_.clear();
  prepare_columns();
}

bool SpectrumAnalyser::resting() const { return still_ && !changed_ && heard_.silent(length()); }

bool SpectrumAnalyser::pass(double seconds) {
  if (resting()) return false;
  if (heard_.advance(seconds) || changed_) listen();
  const bool moved = move(seconds);
  still_ = all_dark();
  return std::exchange(changed_, false) || moved;
}

void SpectrumAnalyser::listen() noexcept {
  const bool silent = heard_.silent(length());
  if (!silent) spectrum_.analyse(heard_);
  for (std::size_t side = 0; side < kSides; ++side) {
    auto& targets = targets_[side];
    std::fill(targets.begin(), targets.end(), 0.0F);
    if (silent) continue;
    bands_.take_greatest(spectrum_.power(side), targets);
    for (float& target : targets) target = rule_.height(target);
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
  decay_.move(levels_[side], targets_[side], seconds);
  bool moved = false;
  for (std::size_t i = 0; i < levels_[side].size(); ++i) {
    const float height = decay_.shown(levels_[side][i]);
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
