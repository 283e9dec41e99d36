// The equalizer as the panel sees it. UI thread.
#pragma once

#include <vector>

#include "audio/mm_stages.h"
#include "engine/equalizer/filter_worker.h"

namespace tandem {

class EqualizerControl final : public MMEqualizerX {
 public:
  explicit EqualizerControl(FilterWorker& filter_worker) : filter_worker_(filter_worker) {}

  int FilterCount() const override { return static_cast<int>(bands_.size()); }
  void add_filter(double low_hz, double high_hz, double gain_db) override;
  Filter filter(int index) const override;
  void put_Gain(int index, double gain_db) override;
  bool Bypassed() const override { return bypassed_; }
  void put_Bypassed(bool bypassed) override;

 private:
  const EqualizerBand& band(int index) const;

  FilterWorker& filter_worker_;
  std::vector<EqualizerBand> bands_;
  bool bypassed_ = false;
};

}  // namespace tandem
