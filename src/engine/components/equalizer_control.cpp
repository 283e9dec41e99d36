#include "engine/components/equalizer_control.h"

#include "base/runtime_error.h"

namespace tandem {

const EqualizerBand& EqualizerControl::band(int index) const {
  if (index < 0 || index >= FilterCount()) throw RuntimeError(RuntimeErrorKind::Range);
  return bands_[static_cast<std::size_t>(index)];
}

void EqualizerControl::add_filter(double low_hz, double high_hz, double gain_db) {
  bands_.push_back({low_hz, high_hz, gain_db});
  filter_worker_.request(bands_, bypassed_);
}

MMEqualizerX::Filter EqualizerControl::filter(int index) const {
  const EqualizerBand& found = band(index);
  return {found.low_hz, found.high_hz, found.gain_db};
}

void EqualizerControl::put_Gain(int index, double gain_db) {
  if (band(index).gain_db == gain_db) return;
  bands_[static_cast<std::size_t>(index)].gain_db = gain_db;
  filter_worker_.request(bands_, bypassed_);
}

void EqualizerControl::put_Bypassed(bool bypassed) {
  bypassed_ = bypassed;
  filter_worker_.request(bands_, bypassed_);
}

}  // namespace tandem
