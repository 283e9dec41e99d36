// The spectrum analyser: the newest sound as columns of heights, left and right. UI thread only.
// One transform for each picture at most, both channels in one; no allocation but in put() and fit().
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "audio/mm_displays.h"
#include "displays/core/heard_sound.h"
#include "displays/core/sound_display.h"
#include "displays/spectrum/bar_decay.h"
#include "displays/spectrum/peak_marks.h"
#include "displays/spectrum/roll_recorder.h"
#include "displays/spectrum/spectrum_heights.h"
#include "displays/spectrum/spectrum_reading.h"
#include "displays/spectrum/spectrum_settings.h"
#include "displays/spectrum/stereo_spectrum.h"

namespace tandem {

class SpectrumAnalyser final : public SwitchedDisplay<MMSpectrumX> {
 public:
  static constexpr int kHalfPixels = 160;   // of each half at scale 1
  static constexpr int kSmallestPitch = 2;  // px of a column at scale 1
  static constexpr int kRollPitch = 2;      // px of a step of the roll at scale 1
  static constexpr int kRollRows = 28;      // frequencies of the roll

  SpectrumAnalyser();

  std::int32_t get(SpectrumSetting setting) const override { return settings_[setting]; }
  void put(SpectrumSetting setting, std::int32_t value) override;

  // Lays the columns out for halves of half_px device pixels on a screen of that scale (1 = 100 %).
  void fit(int half_px, double scale);

  const SpectrumReading& picture() const { return picture_; }

 private:
  using Heights = BothSides<std::vector<float>>;

  void reset() override;
  void hear(std::span<const SoundFrame> frames) override { heard_.feed(frames); }
  bool pass(double seconds) override;
  bool resting() const override;

  bool rolls() const { return settings_.kind() == AnalyserKind::Roll; }
  std::size_t length() const { return static_cast<std::size_t>(settings_[SpectrumSetting::FFTLength]); }
  void prepare_transform();
  void prepare_columns();
  void prepare_history();
  void prepare_rules();
  void prepare_style();

  void listen() noexcept;
  bool move(double seconds) noexcept;
  bool move_bars(std::size_t side, double seconds) noexcept;
  bool move_peaks(std::size_t side, double seconds) noexcept;
  bool all_dark() const noexcept;

  SpectrumSettings settings_;
  int half_px_ = kHalfPixels;
  double scale_ = 1.0;

  HeardSound heard_;
  StereoSpectrum spectrum_;
  BandMap bands_;
  HeightRule rule_;
  BarDecay decay_;
  BothSides<PeakMarks> marks_;
  RollRecorder roll_;

  Heights targets_;  // the heights of what is heard now
  Heights levels_;   // the same after the decay
  SpectrumReading picture_;
  bool changed_ = true;  // by a setting, not yet reported
  bool still_ = true;
};

}  // namespace tandem
