#include "sound_report/sound.h"

#include <sndfile.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <complex>
#include <cstdlib>
#include <filesystem>
#include <numbers>

#include "engine/equalizer/real_fft.h"
#include "support/temp_directory.h"

namespace tandem::report {

namespace {

double window(std::size_t n, std::size_t count) {
  const double turn = 2.0 * std::numbers::pi * static_cast<double>(n) / static_cast<double>(count);
  return 0.35875 - 0.48829 * std::cos(turn) + 0.14128 * std::cos(2.0 * turn) - 0.01168 * std::cos(3.0 * turn);
}
constexpr double kWindowMean = 0.35875;

std::string replaced(std::string text, const std::string& what, const std::string& by) {
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
    text.replace(at, what.size(), by);
  return text;
}

}  // namespace

double decibels(double power) { return 10.0 * std::log10(std::max(power, 1e-30)); }

Sound mono(std::size_t frames, const std::function<double(std::size_t)>& value) {
  Sound sound(frames);
  for (std::size_t n = 0; n < frames; ++n) sound[n].left = sound[n].right = static_cast<float>(value(n));
  return sound;
}

Sound tone(double hz, double dbfs, double seconds, double rate) {
  const double amplitude = std::pow(10.0, dbfs / 20.0);
  return mono(static_cast<std::size_t>(seconds * rate), [&](std::size_t n) {
    return amplitude * std::sin(2.0 * std::numbers::pi * hz * static_cast<double>(n) / rate);
  });
}

bool has(const std::string& program) {
  return std::system(("command -v " + program + " > /dev/null 2>&1").c_str()) == 0;
}

void write_wav(const std::string& path, const Sound& sound, int rate, int bits) {
  SF_INFO info{};
  info.samplerate = rate;
  info.channels = 2;
  info.format = SF_FORMAT_WAV | (bits == 32 ? SF_FORMAT_FLOAT : bits == 24 ? SF_FORMAT_PCM_24 : SF_FORMAT_PCM_16);
  SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
  if (file == nullptr) return;
  sf_writef_float(file, &sound.front().left, static_cast<sf_count_t>(sound.size()));
  sf_close(file);
}

Sound read_wav(const std::string& path) {
  SF_INFO info{};
  SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
  if (file == nullptr || info.channels != 2) return {};
  Sound sound(static_cast<std::size_t>(info.frames));
  if (!sound.empty()) sf_readf_float(file, &sound.front().left, info.frames);
  sf_close(file);
  return sound;
}

Sound through(const Sound& sound, const std::string& command, int rate) {
  const test::TempDirectory directory;
  write_wav(directory.file("in.wav"), sound, rate);
  std::string line = replaced(command, "IN", directory.file("in.wav"));
  line = "( " + replaced(line, "OUT", directory.file("out.wav")) + " ) > /dev/null 2>&1";
  return std::system(line.c_str()) == 0 ? read_wav(directory.file("out.wav")) : Sound{};
}

double level_db(const Sound& sound, double hz, double rate) {
  std::complex<double> sum;
  for (std::size_t n = 0; n < sound.size(); ++n)
    sum += window(n, sound.size()) * double{sound[n].left} *
           std::polar(1.0, -2.0 * std::numbers::pi * hz * static_cast<double>(n) / rate);
  return 2.0 * decibels(2.0 * std::abs(sum) / kWindowMean / static_cast<double>(sound.size()));
}

Spectrum spectrum_of(const Sound& sound, double rate) {
  const std::size_t count = std::bit_floor(std::max<std::size_t>(sound.size(), 2));
  const RealFft fft(count);
  std::vector<float> time(count);
  for (std::size_t n = 0; n < std::min(count, sound.size()); ++n)
    time[n] = static_cast<float>(window(n, count)) * sound[n].left;
  std::vector<RealFft::Complex> bins(fft.bins());
  fft.forward(time, bins);
  Spectrum spectrum{{}, rate / static_cast<double>(count)};
  for (const RealFft::Complex& bin : bins) {
    const double amplitude = 2.0 * static_cast<double>(std::abs(bin)) / kWindowMean / static_cast<double>(count);
    spectrum.level_db.push_back(2.0 * decibels(amplitude));
  }
  return spectrum;
}

double highest_spur_db(const Spectrum& spectrum, double hz, double reach) {
  double highest = -300.0;
  for (std::size_t k = 0; k < spectrum.level_db.size(); ++k) {
    const double at = spectrum.spacing_hz * static_cast<double>(k);
    if (at > 20.0 && std::abs(at - hz) > reach) highest = std::max(highest, spectrum.level_db[k]);
  }
  return highest;
}

double off_tone_db(const Sound& sound, double hz, double reach) {
  const Spectrum spectrum = spectrum_of(sound);
  double off = 0.0;
  double all = 0.0;
  for (std::size_t k = 0; k < spectrum.level_db.size(); ++k) {
    const double power = std::pow(10.0, spectrum.level_db[k] / 10.0);
    all += power;
    if (std::abs(spectrum.spacing_hz * static_cast<double>(k) - hz) > reach) off += power;
  }
  return decibels(off / all);
}

}  // namespace tandem::report
