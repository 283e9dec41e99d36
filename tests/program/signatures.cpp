#include "program/signatures.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <random>
#include <vector>

namespace tandem::test {

namespace {

constexpr double kScale = 32768.0;
constexpr float kHeard = 2.0F;  // more than the rounding of one output sample

// A turning number: a sine without a call for each sample.
class Sine {
 public:
  Sine(double radians_per_frame, double phase)
      : step_(std::polar(1.0, radians_per_frame)), now_(std::polar(1.0, phase)) {}
  double next() {
    const double value = now_.imag();
    now_ = {now_.real() * step_.real() - now_.imag() * step_.imag(),
            now_.real() * step_.imag() + now_.imag() * step_.real()};
    return value;
  }

 private:
  std::complex<double> step_;
  std::complex<double> now_;
};

constexpr int kVoices = 24;

std::vector<Sine> sines(unsigned seed, int rate) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> hertz(200.0, 8000.0);
  std::uniform_real_distribution<double> phase(0.0, 2 * std::numbers::pi);
  std::vector<Sine> all;
  for (int i = 0; i < kVoices; ++i) {
    const double turn = 2 * std::numbers::pi * hertz(random) / rate;
    const double begin = phase(random);
    all.emplace_back(turn, i == 0 ? std::numbers::pi / 2 : begin);  // the first sample is not 0 by chance
  }
  return all;
}

float loudest(const StereoFrame& frame) { return std::max(std::abs(frame.left), std::abs(frame.right)); }

bool silent(const Sample16& frame) { return std::abs(frame.left) <= 2 && std::abs(frame.right) <= 2; }

}  // namespace

Signal signature(unsigned seed, double seconds, double peak, int rate, int channels) {
  auto voices = sines(seed, rate);
  Signal signal{rate, channels, {}};
  const auto frames = std::llround(seconds * rate);
  double greatest = 0;
  for (std::int64_t i = 0; i < frames; ++i) {
    double value = 0;
    for (Sine& sine : voices) value += sine.next();
    greatest = std::max(greatest, std::abs(value));
    signal.samples.insert(signal.samples.end(), static_cast<std::size_t>(channels), value);
  }
  for (double& sample : signal.samples) sample *= peak / greatest;
  return signal;
}

Signal full_noise(unsigned seed, Frames frames, double peak) {
  std::mt19937 random(seed);
  std::uniform_int_distribution<int> value(-32768, 32767);
  Signal signal{kSampleRate, 2, {}};
  for (std::int64_t i = 0; i < 2 * frames; ++i) {
    const double sample = std::trunc(value(random) * peak);
    signal.samples.push_back((sample == 0 ? 1.0 : sample) / kScale);
  }
  return signal;
}

SongFinder::SongFinder(std::span<const Sample16> sound) {
  left_.reserve(sound.size());
  for (const Sample16& frame : sound)
    left_.push_back({static_cast<float>(frame.left), static_cast<float>(frame.right)});
}

double SongFinder::misfit(std::span<const StereoFrame> song, std::size_t start) const {
  constexpr std::size_t kCompared = 4000;
  double sum = 0;
  for (std::size_t i = 0; i < std::min({song.size(), kCompared, left_.size() - start}); ++i)
    sum += std::abs(left_[start + i].left - song[i].left * kScale) +
           std::abs(left_[start + i].right - song[i].right * kScale);
  return sum;
}

// A song may begin with samples so small that rounding decides whether they are heard.
std::size_t SongFinder::best_start(std::span<const StereoFrame> song, std::size_t about) const {
  constexpr std::size_t kReach = 200;
  std::size_t best = about;
  double least = misfit(song, about);
  for (std::size_t at = about - std::min(about, kReach); at < std::min(about + kReach, left_.size()); ++at) {
    const double here = misfit(song, at);
    if (here >= least) continue;
    least = here;
    best = at;
  }
  return best;
}

std::size_t SongFinder::take(std::span<const StereoFrame> song) {
  const auto heard = [](const StereoFrame& frame) { return loudest(frame) > kHeard; };
  const auto found = std::find_if(left_.begin() + static_cast<std::ptrdiff_t>(from_), left_.end(), heard);
  std::size_t silence = 0;
  while (silence < song.size() && loudest(song[silence]) * static_cast<float>(kScale) <= kHeard) ++silence;
  const auto at = static_cast<std::size_t>(found - left_.begin());
  if (found == left_.end() || at < silence) return left_.size();
  const bool certain = loudest(song.front()) * static_cast<float>(kScale) > kHeard + 1;
  const std::size_t start = certain ? at : best_start(song, at - silence);
  for (std::size_t i = 0; i < song.size() && start + i < left_.size(); ++i) {
    left_[start + i].left -= song[i].left * static_cast<float>(kScale);
    left_[start + i].right -= song[i].right * static_cast<float>(kScale);
  }
  from_ = start;
  return start;
}

double SongFinder::rest() const {
  float greatest = 0;
  for (const StereoFrame& frame : left_) greatest = std::max(greatest, loudest(frame));
  return greatest;
}

std::size_t SongFinder::first_rest() const {
  const auto found = std::find_if(left_.begin(), left_.end(), [](const StereoFrame& f) { return loudest(f) > 1.0F; });
  return static_cast<std::size_t>(found - left_.begin());
}

std::size_t longest_silence(std::span<const Sample16> sound, std::size_t from, std::size_t to) {
  std::size_t longest = 0;
  std::size_t run = 0;
  for (std::size_t i = from; i < std::min(to, sound.size()); ++i) {
    run = silent(sound[i]) ? run + 1 : 0;
    longest = std::max(longest, run);
  }
  return longest;
}

}  // namespace tandem::test
