#include "engine/pitch/pitch_measures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <numbers>
#include <set>

namespace tandem {
namespace {

double decibels_of_power(double power) { return 10.0 * std::log10(std::max(power, 1e-20)); }

double blackman_harris(std::size_t i, std::size_t count) {
  const double turn = kTurn * (static_cast<double>(i) + 0.5) / static_cast<double>(count);
  return 0.35875 - 0.48829 * std::cos(turn) + 0.14128 * std::cos(2.0 * turn) - 0.01168 * std::cos(3.0 * turn);
}

// The energy of one bin of the discrete Fourier transform.
double bin_energy(std::span<const double> x, double bin) {
  const double angle = -kTurn * bin / static_cast<double>(x.size());
  const std::complex<double> step = std::polar(1.0, angle);
  std::complex<double> sum = 0.0;
  std::complex<double> turn;
  for (std::size_t i = 0; i < x.size(); ++i) {
    if (i % 1024 == 0) turn = std::polar(1.0, angle * static_cast<double>(i));
    sum += x[i] * turn;
    turn *= step;
  }
  return std::norm(sum) / static_cast<double>(x.size());
}

double power(const StereoFrame& frame) {
  const auto left = static_cast<double>(frame.left);
  const auto right = static_cast<double>(frame.right);
  return left * left + right * right;
}

double mean_power(std::span<const StereoFrame> sound) {
  double sum = 0.0;
  for (const StereoFrame& frame : sound) sum += power(frame);
  return sum / static_cast<double>(sound.size());
}

// The plain inner loop of the filter below; nothing in it is worth a thread checker's time.
__attribute__((no_sanitize("thread"))) void add_scaled(const float* in, float tap, float* out, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) out[i] += tap * in[i];
}

// Both channels together, what lies between two frequencies, without delay.
std::vector<float> band_of(std::span<const StereoFrame> sound, double low, double high) {
  constexpr int kHalf = 100;
  constexpr double kBeta = 9.0;
  const auto low_pass = [](int i, double hz) {
    const double cut = std::min(hz, kSampleRate / 2.0) / kSampleRate;
    return i == 0 ? 2.0 * cut : std::sin(kTurn * cut * i) / (std::numbers::pi * i);
  };
  std::vector<float> in(sound.size() + 2 * kHalf);
  for (std::size_t i = 0; i < sound.size(); ++i) in[i + kHalf] = sound[i].left + sound[i].right;
  std::vector<float> out(sound.size());
  for (int i = -kHalf; i <= kHalf; ++i) {
    const double x = static_cast<double>(i) / (kHalf + 1);
    const double window = std::cyl_bessel_i(0.0, kBeta * std::sqrt(1.0 - x * x)) / std::cyl_bessel_i(0.0, kBeta);
    const auto tap = static_cast<float>(window * (low_pass(i, high) - low_pass(i, low)));
    add_scaled(in.data() + (i + kHalf), tap, out.data(), out.size());
  }
  return out;
}

// The mean power of the `width` frames around each frame.
std::vector<double> powers(const std::vector<float>& sound, std::size_t width) {
  std::vector<double> result(sound.size());
  double sum = 0.0;
  for (std::size_t i = 0; i < sound.size(); ++i) {
    sum += static_cast<double>(sound[i]) * static_cast<double>(sound[i]);
    if (i >= width) sum -= static_cast<double>(sound[i - width]) * static_cast<double>(sound[i - width]);
    if (i >= width / 2) result[i - width / 2] = std::max(sum, 1e-14) / static_cast<double>(width);
  }
  return result;
}

std::size_t frames_in(double seconds) { return static_cast<std::size_t>(seconds * kSampleRate); }

// The attack around a frame in a curve of powers.
struct Attack {
  std::size_t peak;
  double power;
  double rise;  // the frame at which it comes within 6 dB of its peak
};

Attack attack_at(const std::vector<double>& curve, std::size_t frame) {
  const std::size_t reach = frames_in(0.025);
  const auto from = curve.begin() + static_cast<std::ptrdiff_t>(frame - reach);
  const auto peak = std::max_element(from, from + static_cast<std::ptrdiff_t>(2 * reach));
  const std::size_t at = static_cast<std::size_t>(peak - curve.begin());
  std::size_t rise = at;
  while (rise > at - frames_in(0.01) && curve[rise] > *peak / 4.0) --rise;
  return {at, *peak, static_cast<double>(rise)};
}

// The greatest power near a frame that is not the attack itself.
double second_power(const std::vector<double>& curve, std::size_t frame, std::size_t peak, std::size_t apart) {
  const std::size_t reach = frames_in(0.04);
  double greatest = 0.0;
  for (std::size_t i = frame - reach; i < frame + reach; ++i)
    if (i + apart < peak || i > peak + apart) greatest = std::max(greatest, curve[i]);
  return greatest;
}

}  // namespace

double off_tone_db(std::span<const StereoFrame> sound, std::span<const double> frequencies) {
  constexpr std::size_t kCount = std::size_t{1} << 16;
  const auto middle = sound.subspan((sound.size() - kCount) / 2, kCount);
  std::vector<double> x(kCount);
  double all = 0.0;
  for (std::size_t i = 0; i < kCount; ++i) {
    x[i] = blackman_harris(i, kCount) * static_cast<double>(middle[i].left + middle[i].right);
    all += x[i] * x[i];
  }
  std::set<int> bins;
  constexpr double kBinsAHertz = static_cast<double>(kCount) / kSampleRate;
  for (const double hz : frequencies) {
    const int last = static_cast<int>((hz + 12.0) * kBinsAHertz);
    for (int bin = static_cast<int>(std::ceil((hz - 12.0) * kBinsAHertz)); bin <= last; ++bin) bins.insert(bin);
  }
  double tones = 0.0;
  for (const int bin : bins) tones += 2.0 * bin_energy(x, bin);
  return decibels_of_power((all - tones) / all);
}

double tone_db(std::span<const StereoFrame> sound, double hz) {
  constexpr std::size_t kCount = std::size_t{1} << 14;
  const auto middle = sound.subspan((sound.size() - kCount) / 2, kCount);
  std::vector<double> x(kCount);
  double gain = 0.0;
  for (std::size_t i = 0; i < kCount; ++i) {
    const double window = blackman_harris(i, kCount);
    x[i] = window * static_cast<double>(middle[i].left);
    gain += window;
  }
  const double amplitude = 2.0 * std::sqrt(bin_energy(x, hz * kCount / kSampleRate) * kCount) / gain;
  return decibels_of_power(amplitude * amplitude / 0.25);
}

LevelRange levels_db(std::span<const StereoFrame> sound, std::span<const StereoFrame> reference) {
  const double mean = mean_power(reference);
  LevelRange range{100.0, -100.0};
  for (std::size_t i = 4410; i + 8820 < sound.size(); i += kStepFrames) {
    const double level = decibels_of_power(mean_power(sound.subspan(i, kStepFrames)) / mean);
    range = {std::min(range.least, level), std::max(range.greatest, level)};
  }
  return range;
}

// A window of the song is `ratio` times as long, for it is read so much faster.
AttackReport compare_attacks(const AttackSong& song, std::span<const StereoFrame> sound, double ratio,
                             const AttackBand& band) {
  const auto was = powers(band_of(song.sound, band.low, band.high), frames_in(band.window * ratio));
  const auto is = powers(band_of(sound, band.low * ratio, band.high * ratio), frames_in(band.window));
  const std::size_t apart = frames_in(std::max(0.0035, 3.0 * band.window));
  AttackReport report;
  for (const double time : song.times) {
    const std::size_t frame = frames_in(time);
    const Attack before = attack_at(was, frame);
    const Attack after = attack_at(is, frame);
    const double loss = decibels_of_power(after.power / before.power);
    const double echo = second_power(is, frame, after.peak, apart) - second_power(was, frame, before.peak, apart);
    const double error = std::abs(after.rise - before.rise) * 1000.0 / kSampleRate;
    report.lost += loss < -6.0 ? 1 : 0;
    report.doubled += echo > after.power / 4.0 ? 1 : 0;
    report.worst_loss_db = std::min(report.worst_loss_db, loss);
    report.mean_error_ms += error / static_cast<double>(song.times.size());
    report.worst_error_ms = std::max(report.worst_error_ms, error);
  }
  return report;
}

}  // namespace tandem
