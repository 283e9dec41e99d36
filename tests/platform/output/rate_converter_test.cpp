// The converter's sound, measured with tones: a Kaiser window (beta 24, side lobes below -170 dB) over whole sections
// of the result, whose spectrum is searched for what was not put in.
#include "platform/output/rate_converter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "platform/tone_spectrum.h"

namespace tandem {
namespace {

constexpr double kUnwanted = -110;  // dBFS

std::vector<StereoFrame> sine(double hz, std::size_t frames) {
  std::vector<StereoFrame> sound(frames);
  for (std::size_t n = 0; n < frames; ++n) {
    const double angle = 2 * std::numbers::pi * hz * static_cast<double>(n) / kSampleRate;
    sound[n].left = static_cast<float>(std::sin(angle));
    sound[n].right = -sound[n].left;
  }
  return sound;
}

struct Converted {
  std::vector<StereoFrame> sound;
  double most_held = 0;  // frames of the song inside of the converter
};

// In pieces, as the output takes them; the converter gives all it has after each frame.
Converted convert(int rate, const std::vector<StereoFrame>& song) {
  RateConverter converter(rate);
  Converted result;
  std::vector<StereoFrame> piece(4096);
  for (std::size_t taken = 0; taken < song.size();) {
    const std::size_t offered = std::min<std::size_t>(32, song.size() - taken);
    const RateConverter::Moved moved = converter.convert(std::span(song).subspan(taken, offered), piece);
    taken += moved.taken;
    result.sound.insert(result.sound.end(), piece.begin(), piece.begin() + static_cast<std::ptrdiff_t>(moved.made));
    const double held = static_cast<double>(taken) - static_cast<double>(result.sound.size()) * kSampleRate / rate;
    if (taken > 4410) result.most_held = std::max(result.most_held, held);
  }
  while (const std::size_t made = converter.finish(piece))
    result.sound.insert(result.sound.end(), piece.begin(), piece.begin() + static_cast<std::ptrdiff_t>(made));
  return result;
}

class DeviceRate : public testing::TestWithParam<int> {};

TEST_P(DeviceRate, LeavesTonesOfFullScaleCleanAtTheirLevel) {
  for (const double hz : {997.0, 10000.0, 19000.0}) {
    const test::ToneSpectrum spectrum(convert(GetParam(), sine(hz, 3 * kSampleRate)).sound, GetParam(), hz);
    RecordProperty(std::to_string(static_cast<int>(hz)) + "_unwanted_dbfs", std::to_string(spectrum.worst()));
    EXPECT_LT(spectrum.worst(), kUnwanted) << hz << " Hz";
    EXPECT_NEAR(spectrum.level(), 0.0, 0.1) << hz << " Hz";
  }
}

TEST_P(DeviceRate, PassesWhatCanBeHeard) {
  for (const double hz : {20.0, 15000.0, 19999.0}) {
    const test::ToneSpectrum spectrum(convert(GetParam(), sine(hz, 3 * kSampleRate)).sound, GetParam(), hz);
    EXPECT_NEAR(spectrum.level(), 0.0, 0.1) << hz << " Hz";
  }
}

TEST_P(DeviceRate, KeepsTheLengthAndThePlaceOfEveryFrame) {
  const std::vector<StereoFrame> song = sine(440, kSampleRate);
  const std::vector<StereoFrame> sound = convert(GetParam(), song).sound;
  EXPECT_EQ(sound.size(), static_cast<std::size_t>(GetParam()));
  double worst = 0;  // against the sine itself at the device's rate, away from the ends
  for (std::size_t n = sound.size() / 10; n < sound.size() * 9 / 10; ++n) {
    const double angle = 2 * std::numbers::pi * 440 * static_cast<double>(n) / GetParam();
    worst = std::max(worst, std::abs(double{sound[n].left} - std::sin(angle)));
  }
  EXPECT_LT(worst, 1e-5);
}

TEST_P(DeviceRate, BeginsANewSoundAfterTheEndOfOne) {
  RateConverter converter(GetParam());
  std::vector<StereoFrame> out(8192);
  const std::vector<StereoFrame> song = sine(440, 441);
  for (int i = 0; i < 3; ++i) {
    std::size_t made = converter.convert(song, out).made;
    while (const std::size_t rest = converter.finish(out)) made += rest;
    EXPECT_NEAR(static_cast<double>(made), 441.0 * GetParam() / kSampleRate, 1.0) << "sound " << i;
  }
}

INSTANTIATE_TEST_SUITE_P(Rates, DeviceRate, testing::Values(48000, 88200, 96000, 176400, 192000),
                         [](const auto& rate) { return "Of" + std::to_string(rate.param); });

// In milliseconds, of a second of sound.
double held_back(int rate) {
  const double held = convert(rate, sine(440, kSampleRate)).most_held;
  EXPECT_LT(held, static_cast<double>(RateConverter::most_held(rate))) << rate;
  return held * 1000 / kSampleRate;
}

TEST(RateConverter, HoldsBackLessThanFiveMilliseconds) {
  for (const int rate :
       {22050, 24000, 32000, 33075, 37800, 40000, 44000, 48000, 64000, 88200, 96000, 176400, 192000, 352800, 384000})
    EXPECT_LT(held_back(rate), 5.0) << rate;
}

TEST(RateConverter, HoldsBackLittleMoreForTheSlowestDevices) {
  for (const int rate : {11025, 12000, 16000}) EXPECT_LT(held_back(rate), 10.0) << rate;
  EXPECT_LT(held_back(8000), 20.0);
}

// As many frames of the song as the spectrum needs at that rate.
test::ToneSpectrum spectrum_at(int rate, double hz, double looked_at) {
  const auto frames = static_cast<std::size_t>(70000.0 * kSampleRate / rate);
  return {convert(rate, sine(hz, frames)).sound, static_cast<double>(rate), looked_at};
}

TEST(RateConverter, ASlowDeviceGetsThreeQuartersOfWhatItCanPlayAndNothingElse) {
  for (const int rate : {8000, 11025, 12000, 16000, 22050, 24000, 32000}) {
    for (const double part : {0.1, 0.5, 0.75}) {
      const double hz = part * rate / 2;
      const test::ToneSpectrum spectrum = spectrum_at(rate, hz, hz);
      EXPECT_NEAR(spectrum.level(), 0.0, 0.1) << hz << " of " << rate << " Hz";
      EXPECT_LT(spectrum.worst(), kUnwanted) << hz << " of " << rate << " Hz";
    }
    for (const double hz : {rate * 0.505, rate * 0.6})
      EXPECT_LT(spectrum_at(rate, hz, 0.0).worst(), kUnwanted) << hz << " of " << rate << " Hz";
  }
}

// What may be left above 21 kHz no one hears.
bool is_clean(const test::ToneSpectrum& spectrum) {
  return spectrum.worst() < kUnwanted || spectrum.worst_hz() > 21000;
}

TEST(RateConverter, ADeviceALittleSlowerThanTheSongLosesOnlyTheUsualTransition) {
  for (const auto& [rate, pass] : {std::pair{37800, 15800.0}, std::pair{44000, 19900.0}}) {
    for (const double hz : {997.0, 10000.0, pass}) {
      const test::ToneSpectrum spectrum = spectrum_at(rate, hz, hz);
      EXPECT_NEAR(spectrum.level(), 0.0, 0.1) << hz << " of " << rate << " Hz";
      EXPECT_LT(spectrum.worst(), kUnwanted) << hz << " of " << rate << " Hz";
    }
    for (const double hz : {19000.0, 20500.0, 21500.0, 22000.0})
      EXPECT_TRUE(is_clean(spectrum_at(rate, hz, hz))) << hz << " of " << rate << " Hz";
  }
}

TEST(RateConverter, KnowsEveryRateOfASoundCard) {
  for (const int rate : {8000, 11025, 16000, 22050, 32000, 48000, 64000, 88200, 96000, 176400, 192000, 352800, 384000})
    EXPECT_NEAR(static_cast<double>(convert(rate, sine(440, 4410)).sound.size()), 0.1 * rate, 1.0) << rate;
}

}  // namespace
}  // namespace tandem
