// How the bins of a transform make up the bands of a picture. Values; any thread.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace tandem {

// A contiguous run of bands, each the sum of the power in its part of the spectrum.
class BandMap {
 public:
  // edges_hz: one more than there are bands, rising. A bin is as wide as bin_hz about its middle and counts by the part
  // of it that lies in the band; a band narrower than three bins is widened to three about its middle, so that a tone
  // between two bands is not lost. bins: how many there are.
  void prepare(std::span<const double> edges_hz, double bin_hz, std::size_t bins);

  // Raises each of the bands to its sum if that is greater; bands.size() is bands().
  void raise(std::span<const float> bins, std::span<float> bands) const noexcept;

  std::size_t bands() const noexcept { return parts_.size(); }
  // The bins that count: first_bin() .. end_bin() - 1.
  std::size_t first_bin() const noexcept { return parts_.empty() ? 0 : parts_.front().first; }
  std::size_t end_bin() const noexcept { return parts_.empty() ? 0 : parts_.back().last + 1; }

 private:
  struct Part {
    std::size_t first;
    std::size_t last;
    float first_share;
    float last_share;  // 0 if the first is the last
  };
  std::vector<Part> parts_;
};

}  // namespace tandem
