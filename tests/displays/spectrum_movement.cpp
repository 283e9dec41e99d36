#include "displays/spectrum_movement.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>
#include <utility>
#include <vector>

#include "displays/enabled_display.h"
#include "displays/spectrum/band_analyser.h"
#include "displays/spectrum/spectrum_analyser.h"

namespace tandem {

namespace {

using enum SpectrumSetting;

constexpr std::size_t kPerPicture = 735;
constexpr double kStep = 1.0 / 60.0;

constexpr double kTopHeight = 27.0 / 28;   // within a row of the top
constexpr double kSoundRange = 1 / 316.0;  // 25 dB below the loudest column: what is less is no sound of the piece
constexpr double kLowest = 50.0;           // Hz of the columns that must move
constexpr double kHighest = 14000.0;

struct BoardState {
  const char* name;
  std::vector<std::pair<SpectrumSetting, int>> settings;
};

// At the first start the board's scales have not reached the analyser yet: it has its own 40.
const std::array<BoardState, 3> kStates{{
    {"first start",
     {{Window, 1}, {Gain, 1}, {LogAmp, 0}, {SolidBars, 1}, {DrawInactive, 0}, {ReferenceFrequency, 500}, {Decay, 7}}},
    {"the same, Y 20",
     {{Window, 1},
      {Gain, 1},
      {LogAmp, 0},
      {SolidBars, 1},
      {DrawInactive, 0},
      {ReferenceFrequency, 500},
      {Decay, 7},
      {VerticalScale, 20}}},
    {"Default", {{Window, 1}, {Gain, 1}}},
}};

double middle_hz(const FrequencyAxis& axis, std::size_t column, std::size_t columns) {
  return axis.hz((static_cast<double>(column) + 0.5) / static_cast<double>(columns));
}

// A side's mean power in each column over the whole piece, tilted by 3 dB an octave as in all the states.
std::vector<double> loudness(std::span<const SoundFrame> sound, std::size_t side, const FrequencyAxis& axis,
                             std::size_t columns) {
  BandAnalyser bands;
  bands.prepare(1.0, FftWindow::Hamming, axis, columns);
  std::vector<double> sums(columns);
  BothSides<std::vector<float>> powers{std::vector<float>(columns), std::vector<float>(columns)};
  for (std::size_t at = 0; at + kPerPicture <= sound.size(); at += kPerPicture) {
    bands.feed(sound.subspan(at, kPerPicture));
    if (!bands.take(powers)) continue;
    for (std::size_t i = 0; i < columns; ++i)
      sums[i] += static_cast<double>(powers[side][i]) * middle_hz(axis, i, columns);
  }
  return sums;
}

// Those between 50 Hz and 14 kHz in which the piece has sound. Does not depend on how heights are drawn.
std::vector<bool> sounding(std::span<const SoundFrame> sound, std::size_t side, const FrequencyAxis& axis,
                           std::size_t columns) {
  const std::vector<double> power = loudness(sound, side, axis, columns);
  const double least = kSoundRange * *std::max_element(power.begin(), power.end());
  std::vector<bool> result(columns);
  for (std::size_t i = 0; i < columns; ++i) {
    const double hz = middle_hz(axis, i, columns);
    result[i] = hz >= kLowest && hz <= kHighest && power[i] >= least;
  }
  return result;
}

// The heights of one column.
class ColumnMovement {
 public:
  void add(double height) {
    ++pictures_;
    sum_ += height;
    squares_ += height * height;
    tops_ += height >= kTopHeight ? 1.0 : 0.0;
  }

  double mean() const { return sum_ / pictures_; }
  double deviation() const { return std::sqrt(std::max(0.0, squares_ / pictures_ - mean() * mean())); }
  double at_top() const { return tops_ / pictures_; }

 private:
  double pictures_ = 0.0;
  double sum_ = 0.0;
  double squares_ = 0.0;
  double tops_ = 0.0;
};

struct StateColumns {
  BothSides<std::vector<ColumnMovement>> columns;
  FrequencyAxis axis;
  bool rests = false;  // all of it after the sound has become silence
};

bool rests_in_silence(SpectrumAnalyser& analyser) {
  const std::vector<SoundFrame> silence(kPerPicture);
  for (int i = 0; i < 240; ++i) {
    analyser.feed(silence);
    analyser.advance(kStep);
  }
  return analyser.at_rest();
}

StateColumns columns_of(const BoardState& state, std::span<const SoundFrame> sound) {
  auto analyser = enabled<SpectrumAnalyser>();
  for (const auto& [setting, value] : state.settings) analyser.put(setting, value);
  const SpectrumReading& picture = analyser.picture();
  StateColumns movement{{}, picture.axis};
  movement.columns.fill(std::vector<ColumnMovement>(picture.heights[0].size()));
  for (std::size_t at = 0; at + kPerPicture <= sound.size(); at += kPerPicture) {
    analyser.feed(sound.subspan(at, kPerPicture));
    analyser.advance(kStep);
    for (std::size_t side = 0; side < kSides; ++side)
      for (std::size_t i = 0; i < picture.heights[side].size(); ++i)
        movement.columns[side][i].add(static_cast<double>(picture.heights[side][i]));
  }
  movement.rests = rests_in_silence(analyser);
  return movement;
}

SpectrumMovement movement_of(const BoardState& state, std::span<const SoundFrame> sound) {
  const StateColumns shown = columns_of(state, sound);
  SpectrumMovement movement{state.name};
  movement.rests = shown.rests;
  std::vector<double> deviations;
  for (std::size_t side = 0; side < kSides; ++side) {
    const std::vector<ColumnMovement>& columns = shown.columns[side];
    const std::vector<bool> sounds = sounding(sound, side, shown.axis, columns.size());
    const double share = 1.0 / static_cast<double>(kSides * columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i) {
      movement.mean += share * columns[i].mean();
      movement.at_top += share * columns[i].at_top();
      if (!sounds[i]) continue;
      deviations.push_back(columns[i].deviation());
      const std::pair weakest(movement.weakest, movement.weakest_hz);
      std::tie(movement.weakest, movement.weakest_hz) =
          std::min(weakest, {columns[i].deviation(), middle_hz(shown.axis, i, columns.size())});
    }
  }
  std::sort(deviations.begin(), deviations.end());
  movement.columns = deviations.size();
  movement.median = deviations.empty() ? 0.0 : deviations[deviations.size() / 2];
  return movement;
}

}  // namespace

bool SpectrumMovement::alive() const {
  return mean >= kLeastMean && mean <= kGreatestMean && weakest >= kLeastMove && at_top < kMostAtTop && rests;
}

std::vector<SpectrumMovement> spectrum_movement(std::span<const SoundFrame> sound) {
  std::vector<SpectrumMovement> movements;
  for (const BoardState& state : kStates) movements.push_back(movement_of(state, sound));
  return movements;
}

}  // namespace tandem
