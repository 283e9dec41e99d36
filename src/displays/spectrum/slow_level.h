// How loud the sound of the last seconds is, for a display that fills its height with quiet and with loud songs. UI
// thread only.
#pragma once

namespace tandem {

// Follows the level fast when it rises (0.4 s), slowly when it falls (4 s), between -55 and -12 dB.
class SlowLevel {
 public:
  // mean_power: of all bands, a full-scale sine in every band is 1. Below -60 dB the level stands still.
  void follow(double mean_power, double seconds) noexcept;
  void reset() noexcept { level_db_ = kMiddle; }

  // What brings the level near -26 dB: the factor of a power. A part of the difference is left, so that a louder song
  // looks louder.
  float factor() const noexcept;

 private:
  static constexpr double kMiddle = -26.0;  // dB

  double level_db_ = kMiddle;
};

}  // namespace tandem
