#include "shaping/equalizer_sliders.h"

#include "base/text.h"
#include "controls/panel_controls.h"
#include "shaping/band_table.h"

namespace tandem {

void EqualizerSliders::add_bands() {
  for (state_.BandIndex = 0; state_.BandIndex < static_cast<std::int16_t>(kBands); ++state_.BandIndex) {
    const Band& band = kBandTable[static_cast<std::size_t>(state_.BandIndex)];
    state_.BandLow = band.low;
    state_.BandHigh = band.high;
    sound_.EQ->add_filter(state_.BandLow, state_.BandHigh, 0.0);
  }
}

void EqualizerSliders::change_band(std::size_t band) {
  const std::int32_t position = controls_.sl0.at(band).Position;
  sound_.EQ->put_Gain(static_cast<int>(band), position);
  controls_.dbLabel0.at(band).Caption = number_text(position);
}

void EqualizerSliders::change_bypass() { sound_.EQ->put_Bypassed(controls_.Bypass.Position == 0); }

}  // namespace tandem
