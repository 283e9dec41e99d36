// Displays that draw nothing. The analyser limits its settings as the real one does.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "audio/mm_displays.h"

namespace tandem::test {

template <class Interface>
class FakeDisplay : public Interface {
 public:
  bool Enabled() const override { return enabled_; }
  void put_Enabled(bool enabled) override { enabled_ = enabled; }
  bool Visible() const override { return visible_; }
  void put_Visible(bool visible) override { visible_ = visible; }

 private:
  bool enabled_ = false;
  bool visible_ = false;
};

class FakeSpectrum final : public FakeDisplay<MMSpectrumX> {
 public:
  FakeSpectrum();
  std::int32_t get(SpectrumSetting setting) const override { return values_.at(static_cast<std::size_t>(setting)); }
  void put(SpectrumSetting setting, std::int32_t value) override;

 private:
  std::array<std::int32_t, static_cast<std::size_t>(SpectrumSetting::Count)> values_{};
};

}  // namespace tandem::test
