#include "displays/spectrum/band_map.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tandem {

namespace {

constexpr double kLeastWidth = 3.0;  // bins

}  // namespace

void BandMap::prepare(std::span<const double> edges_hz, double bin_hz, std::size_t bins) {
  parts_.clear();
  const double end = static_cast<double>(bins) - 0.5;
  for (std::size_t band = 0; band + 1 < edges_hz.size(); ++band) {
    const double middle = (edges_hz[band] + edges_hz[band + 1]) / 2.0 / bin_hz;
    const double half = std::max((edges_hz[band + 1] - edges_hz[band]) / bin_hz, kLeastWidth) / 2.0;
    // In bins from the lower edge of bin 0.
    const double low = std::clamp(middle - half, 0.5, end - 1.0) + 0.5;
    const double high = std::clamp(middle + half, 1.5, end) + 0.5;
    const auto first = static_cast<std::size_t>(low);
    const std::size_t last = std::max(first, static_cast<std::size_t>(std::ceil(high)) - 1);
    const double top = static_cast<double>(last);
    parts_.push_back({first, last, static_cast<float>(std::min(high, std::floor(low) + 1.0) - low),
                      last == first ? 0.0F : static_cast<float>(high - top)});
  }
}

void BandMap::raise(std::span<const float> bins, std::span<float> bands) const noexcept {
  for (std::size_t i = 0; i < parts_.size(); ++i) {
    const Part& part = parts_[i];
    float sum = part.first_share * bins[part.first] + part.last_share * bins[part.last];
    for (std::size_t k = part.first + 1; k < part.last; ++k) sum += bins[k];
    bands[i] = std::max(bands[i], sum);
  }
}

}  // namespace tandem
