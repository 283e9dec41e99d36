#include "displays/spectrum/band_analyser.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tandem {

namespace {

struct StageShape {
  double from_hz;        // centre of its lowest band
  std::size_t halvings;  // of the rate
  double points;         // at sharpness 1
};

constexpr std::array<StageShape, 3> kShapes{{{0.0, 6, 128.0}, {250.0, 3, 256.0}, {2000.0, 0, 1024.0}}};

// The third halving leaves 2756 Hz of which the bands use 2200, the sixth 344 Hz of which they use 275.
constexpr std::array<std::size_t, 6> kPairs{3, 3, 8, 3, 3, 8};

std::vector<double> band_edges(const FrequencyAxis& axis, std::size_t bands) {
  std::vector<double> edges(bands + 1);
  for (std::size_t i = 0; i <= bands; ++i) edges[i] = axis.hz(static_cast<double>(i) / static_cast<double>(bands));
  return edges;
}

}  // namespace

BandAnalyser::BandAnalyser() : pending_(kLongestHop) {
  std::size_t block = kLongestHop;
  for (std::size_t i = 0; i < kHalvings; ++i) {
    filters_.emplace_back(kPairs[i], block);
    block /= 2;
    halved_[i].resize(block);
  }
}

void BandAnalyser::prepare(double sharpness, FftWindow window, const FrequencyAxis& axis, std::size_t bands) {
  const std::vector<double> edges = band_edges(axis, bands);
  std::size_t first = 0;
  for (std::size_t i = 0; i < kStages; ++i) {
    const double end_hz = i + 1 < kStages ? kShapes[i + 1].from_hz : std::numeric_limits<double>::infinity();
    std::size_t end = first;
    while (end < bands && std::sqrt(edges[end] * edges[end + 1]) < end_hz) ++end;
    const std::size_t count = end > first ? end - first + 1 : 0;
    stages_[i].prepare(static_cast<std::size_t>(kShapes[i].points * sharpness), window,
                       std::ldexp(kHeardRate, -static_cast<int>(kShapes[i].halvings)),
                       std::span(edges).subspan(count > 0 ? first : 0, count));
    first = end;
  }
  hop_ = static_cast<std::size_t>(static_cast<double>(kHop) * sharpness);
  for (auto& side : greatest_) side.assign(bands, 0.0F);
  clear();
}

void BandAnalyser::clear() noexcept {
  for (SpectrumStage& stage : stages_) stage.clear();
  for (HalvingFilter& filter : filters_) filter.clear();
  for (auto& side : greatest_) std::fill(side.begin(), side.end(), 0.0F);
  filled_ = 0;
  turn_ = 0;
  quiet_ = kMemory;
  fresh_ = false;
}

void BandAnalyser::feed(std::span<const SoundFrame> frames) noexcept {
  frames = frames.last(std::min(frames.size(), kMemory));
  while (!frames.empty()) {
    const std::size_t count = std::min(frames.size(), hop_ - filled_);
    keep(frames.first(count));
    frames = frames.subspan(count);
    if (filled_ == hop_) hop();
  }
}

void BandAnalyser::keep(std::span<const SoundFrame> frames) noexcept {
  std::copy(frames.begin(), frames.end(), pending_.begin() + static_cast<std::ptrdiff_t>(filled_));
  filled_ += frames.size();
  const auto last_sound =
      std::find_if(frames.rbegin(), frames.rend(), [](const SoundFrame& frame) { return frame != SoundFrame{}; });
  const auto zeros = static_cast<std::size_t>(last_sound - frames.rbegin());
  quiet_ = zeros == frames.size() ? std::min(quiet_ + zeros, kMemory) : zeros;
}

void BandAnalyser::hop() noexcept {
  filled_ = 0;
  fresh_ = true;
  if (quiet_ >= kMemory) return;
  add_halved(std::span(pending_).first(hop_));
  stages_[2].transform();
  stages_[turn_].transform();
  turn_ = 1 - turn_;
  std::size_t first = 0;
  for (const SpectrumStage& stage : stages_) {
    const auto part = [&](std::size_t side) { return std::span(greatest_[side]).subspan(first, stage.bands()); };
    stage.raise({part(0), part(1)});
    first += stage.bands();
  }
}

void BandAnalyser::add_halved(std::span<const SoundFrame> frames) noexcept {
  stages_[2].add(frames);
  for (std::size_t i = 0; i < kHalvings; ++i) {
    const std::span<SoundFrame> half = std::span(halved_[i]).first(frames.size() / 2);
    filters_[i].halve(frames, half);
    frames = half;
    if (i + 1 == kShapes[1].halvings) stages_[1].add(frames);
  }
  stages_[0].add(frames);
}

bool BandAnalyser::take(BothSides<std::vector<float>>& powers) noexcept {
  if (!fresh_) return false;
  fresh_ = false;
  for (std::size_t side = 0; side < kSides; ++side) {
    std::copy(greatest_[side].begin(), greatest_[side].end(), powers[side].begin());
    std::fill(greatest_[side].begin(), greatest_[side].end(), 0.0F);
  }
  return true;
}

}  // namespace tandem
