// The spectrum analyser: the sound as columns of heights, left and right. UI thread only.
// No allocation but in put() and fit().
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "audio/mm_displays.h"
#include "displays/core/feed_watch.h"
#include "displays/core/sound_display.h"
#include "displays/spectrum/band_analyser.h"
#include "displays/spectrum/bar_decay.h"
#include "displays/spectrum/column_contrast.h"
#include "displays/spectrum/peak_marks.h"
#include "displays/spectrum/roll_recorder.h"
#include "displays/spectrum/slow_level.h"
#include "displays/spectrum/spectrum_heights.h"
#include "displays/spectrum/spectrum_reading.h"
#include "displays/spectrum/spectrum_settings.h"

namespace tandem {

class SpectrumAnalyser final : public SwitchedDisplay<MMSpectrumX> {
 public:
  SpectrumAnalyser();

  std::int32_t get(SpectrumSetting setting) const override { return settings_[setting]; }
  void put(SpectrumSetting setting, std::int32_t value) override;

  // Lays the columns out for a screen of that scale (1 = 100 %).
  void fit(double scale);

  const SpectrumReading& picture() const { return picture_; }

 private:
  using Heights = BothSides<std::vector<float>>;

  void reset() override;
  void hear(std::span<const SoundFrame> frames) override;
  bool pass(double seconds) override;
  bool resting() const override;

  bool rolls() const { return settings_.kind() == AnalyserKind::Roll; }
  double sharpness() const;
  void prepare_bands();
  void prepare_tilt();
  void prepare_history();
  void prepare_rules();
  void prepare_style();

  void fall_silent() noexcept;
  void listen(double seconds) noexcept;
  bool move(double seconds) noexcept;
  bool move_bars(std::size_t side, double seconds) noexcept;
  bool move_peaks(std::size_t side, double seconds) noexcept;
  bool all_dark() const noexcept;

  SpectrumSettings settings_;
  double scale_ = 1.0;

  FeedWatch watch_;
  BandAnalyser bands_;
  SlowLevel level_;
  HeightLaw law_;
  BothSides<ColumnContrast> contrast_;
  BothSides<BarDecay> decay_;
  BothSides<PeakMarks> marks_;
  RollRecorder roll_;

  std::vector<float> tilt_;  // factor of each band's power
  float overlap_ = 0.0F;     // share of its neighbour's power that a band hears
  Heights powers_;           // of the newest transforms
  Heights targets_;          // the heights of what is heard now
  Heights levels_;           // the same after the decay
  SpectrumReading picture_;
  bool changed_ = true;  // by a setting, not yet reported
  bool still_ = true;
};

}  // namespace tandem
