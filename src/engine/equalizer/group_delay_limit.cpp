#include "engine/equalizer/group_delay_limit.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <vector>

#include "engine/core/frames.h"
#include "engine/core/window_shapes.h"
#include "engine/equalizer/real_fft.h"

namespace tandem {

namespace {

using Values = std::vector<float>;

// The lower part of the curve, taken for the whole of a response with a sixteenth of the sample rate.
constexpr std::size_t kPoints = 2048;
constexpr std::size_t kBins = kPoints / 2 + 1;
constexpr double kRate = kSampleRate / 16.0;
constexpr double kBinSpacing = kRate / kPoints;  // Hz between two bins
constexpr double kBlendFrom = 1000.0;            // Hz: from here on the new curve passes into the old one
constexpr float kUntouched = 13.0F;              // ms: a curve that delays less stays as it is
constexpr float kLimit = 14.0F;                  // ms
constexpr float kAccepted = 1.02F;               // of the limit
constexpr float kOverRelaxation = 1.8F;          // how far beyond the limit's edge a step goes, 1: just there
constexpr double kCepstrumFades = 36.0;          // ms
constexpr double kCepstrumEnds = 43.0;           // ms
constexpr float kTolerance = 0.47F;              // dB at a centre
constexpr float kSlopeTolerance = 0.45F;         // dB between a band's two centres and the point between them
constexpr int kPatience = 100;                   // rounds after which the limit gives way by 0.3 % each
constexpr int kMostRounds = 190;

// ms for one dB c(n) n
float delay_of_decibel(double rate) { return static_cast<float>(std::numbers::ln10 / 20.0 * 1000.0 / rate); }

float magnitude(const Values& values) {
  float greatest = 0.0F;
  for (const float value : values) greatest = std::max(greatest, std::abs(value));
  return greatest;
}

float at(const Values& curve, double hz) {
  const double place = std::min(hz / kBinSpacing, static_cast<double>(kBins) - 2.0);
  const auto bin = static_cast<std::size_t>(place);
  return std::lerp(curve[bin], curve[bin + 1], static_cast<float>(place - static_cast<double>(bin)));
}

// A line from point to point, held before the first and after the last.
struct Point {
  double hz;
  float db;
};

void subtract(Values& curve, const std::vector<Point>& line) {
  std::size_t next = 0;
  for (std::size_t bin = 0; bin < kBins; ++bin) {
    const double hz = kBinSpacing * static_cast<double>(bin);
    while (next < line.size() && line[next].hz <= hz) ++next;
    const Point& above = line[std::min(next, line.size() - 1)];
    const Point& below = line[next == 0 ? 0 : next - 1];
    const double way = above.hz > below.hz ? (hz - below.hz) / (above.hz - below.hz) : 0.0;
    curve[bin] -= std::lerp(below.db, above.db, static_cast<float>(way));
  }
}

// A curve and its cepstrum: both even, so that one half of each is kept as it is transformed.
class Cepstrum {
 public:
  Cepstrum(std::size_t points, double rate) : fft_(points), rate_(rate) {}

  Values of_curve(std::span<const float> curve) const {
    std::vector<RealFft::Complex> bins(curve.begin(), curve.end());
    Values cepstrum(fft_.points());
    fft_.back(bins, cepstrum);
    return cepstrum;
  }
  Values to_curve(const Values& cepstrum) const {
    std::vector<RealFft::Complex> bins(fft_.bins());
    fft_.forward(cepstrum, bins);
    Values curve(fft_.bins());
    std::transform(bins.begin(), bins.end(), curve.begin(), [](const RealFft::Complex& bin) { return bin.real(); });
    return curve;
  }
  // c(n) n, in ms of delay.
  float weight(std::size_t n) const {
    return static_cast<float>(std::min(n, fft_.points() - n)) * delay_of_decibel(rate_);
  }
  Values delays(const Values& cepstrum) const {
    Values weighted(cepstrum);
    for (std::size_t n = 0; n < weighted.size(); ++n) weighted[n] *= weight(n);
    return to_curve(weighted);
  }

 private:
  RealFft fft_;
  double rate_;
};

class Rounding {
 public:
  Rounding(std::span<const float> curve, std::span<const BandCentre> centres)
      : centres_(centres),
        curve_(curve.begin(), curve.begin() + kBins),
        cepstrum_(transform_.of_curve(curve_)),
        from_above_(delays_from_above(curve)) {
    const auto end = std::find_if(centres.begin(), centres.end(), [](auto& c) { return c.arithmetic_hz > kBlendFrom; });
    centres_ = centres.first(static_cast<std::size_t>(end - centres.begin()));
  }

  bool needed() const { return magnitude(delays()) > kUntouched; }

  void run() {
    float limit = kLimit;
    for (int round = 0; round < kMostRounds; ++round) {
      const Values now = delays();
      if (round > 0 && magnitude(now) <= limit * kAccepted && greatest_miss() <= kTolerance) return;
      if (round >= kPatience) limit *= 1.003F;
      limit_delays(now, limit);
      end_cepstrum();
      pass_centres();
    }
  }

  // The new curve, passing into the old one towards its upper end.
  void write(std::span<float> curve) const {
    for (std::size_t bin = 0; bin < kBins; ++bin) {
      const double way = (kBinSpacing * static_cast<double>(bin) - kBlendFrom) / (kRate / 2.0 - kBlendFrom);
      const double share = 1.0 - raised_cosine(way);
      curve[bin] += static_cast<float>(share) * (curve_[bin] - curve[bin]);
    }
  }

 private:
  // What the curve above the lower part adds: the delays of the whole of it, less those of the lower part alone.
  Values delays_from_above(std::span<const float> curve) const {
    const Cepstrum whole(2 * (curve.size() - 1), kSampleRate);
    Values result = whole.delays(whole.of_curve(curve));
    result.resize(kBins);
    const Values below = transform_.delays(cepstrum_);
    std::transform(result.begin(), result.end(), below.begin(), result.begin(), std::minus());
    return result;
  }

  Values delays() const {
    Values result = transform_.delays(cepstrum_);
    std::transform(result.begin(), result.end(), from_above_.begin(), result.begin(), std::plus());
    return result;
  }

  float greatest_miss() const {
    float miss = 0.0F;
    for (const BandCentre& centre : centres_) {
      miss = std::max(
          {miss, std::abs(miss_at(centre, centre.geometric_hz)), std::abs(miss_at(centre, centre.arithmetic_hz))});
    }
    return miss;
  }

  float miss_at(const BandCentre& centre, double hz) const {
    return at(curve_, hz) - static_cast<float>(centre.gain_db);
  }

  void limit_delays(const Values& delays, float limit) {
    Values excess(delays);
    for (float& delay : excess) delay -= std::clamp(delay, -limit, limit);
    const Values change = transform_.of_curve(excess);
    for (std::size_t n = 1; n < kPoints; ++n) cepstrum_[n] -= kOverRelaxation * change[n] / transform_.weight(n);
  }

  void end_cepstrum() {
    for (std::size_t n = 0; n < kPoints; ++n) {
      const double ms = static_cast<double>(std::min(n, kPoints - n)) * 1000.0 / kRate;
      cepstrum_[n] *= static_cast<float>(std::clamp((kCepstrumEnds - ms) / (kCepstrumEnds - kCepstrumFades), 0.0, 1.0));
    }
  }

  void pass_centres() {
    curve_ = transform_.to_curve(cepstrum_);
    if (centres_.empty()) return;
    subtract(curve_, line_of_misses());
    cepstrum_ = transform_.of_curve(curve_);
  }

  // By how much the curve misses the centres; where it is too steep there, a slope as well, up to a third of the way to
  // the neighbours.
  std::vector<Point> line_of_misses() const {
    std::vector<Point> line;
    for (std::size_t i = 0; i < centres_.size(); ++i) {
      const BandCentre& centre = centres_[i];
      const float above = miss_at(centre, centre.arithmetic_hz);
      const float below = miss_at(centre, centre.geometric_hz);
      const float middle = (above + below) / 2.0F;
      const float half = (above - below) / 2.0F;
      const float steep = half - std::clamp(half, -kSlopeTolerance, kSlopeTolerance);
      const double reach = i == 0 ? 0.0 : (centre.hz - centres_[i - 1].hz) / 3.0;
      const double apart = (centre.arithmetic_hz - centre.geometric_hz) / 2.0;
      const bool too_steep = steep != 0.0F && apart > 0.0;
      const float slope = too_steep ? steep * static_cast<float>(reach / apart) : 0.0F;
      if (too_steep) line.push_back({centre.hz - reach, middle - slope});
      line.push_back({centre.hz, middle});
      if (too_steep) line.push_back({centre.hz + reach, middle + slope});
    }
    return line;
  }

  Cepstrum transform_{kPoints, kRate};
  std::span<const BandCentre> centres_;
  Values curve_;       // dB
  Values cepstrum_;    // of it
  Values from_above_;  // ms
};

}  // namespace

void limit_group_delay(std::span<float> curve, std::span<const BandCentre> centres) {
  Rounding rounding(curve, centres);
  if (!rounding.needed()) return;
  rounding.run();
  rounding.write(curve);
}

}  // namespace tandem
