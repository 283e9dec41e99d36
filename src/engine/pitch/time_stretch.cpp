#include "engine/pitch/time_stretch.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tandem {
namespace {

constexpr auto kFade = static_cast<Frames>(SpliceSearch::kOverlap);
constexpr Frames kStraight = 441;  // frames between two fades: more is purer for high tones, less keeps onsets in time
constexpr Frames kFirst = 441;     // frames before the first splice
constexpr Frames kSongKept = 4096;

// Frames from a splice to where the sound is in time, of what lies between two splices. Half would be the middle, but
// an onset that lies in a fade pulls the splice to its own side; measured with bursts in silence and in chords.
constexpr double kInTime = static_cast<double>(kFade) / 2.0 + 0.8 * static_cast<double>(kFade + kStraight);

std::vector<float> hann_rise() {
  std::vector<float> rise(SpliceSearch::kOverlap);
  for (std::size_t i = 0; i < rise.size(); ++i) {
    const double part = (static_cast<double>(i) + 0.5) / static_cast<double>(rise.size());
    rise[i] = static_cast<float>(0.5 - 0.5 * std::cos(std::numbers::pi * part));
  }
  return rise;
}

}  // namespace

TimeStretch::TimeStretch() : song_(std::size_t{1} << 14), sound_(std::size_t{1} << 13), fade_(hann_rise()) {}

void TimeStretch::begin(const SongInput& song, Frames at) noexcept {
  song.go_back_to(std::max<Frames>(0, at - kBack));
  song_.restart(song.position());
  song.fill(song_, at + kFirst);
  const Frames known = std::clamp<Frames>(at - song_.begin(), 0, kBefore);
  sound_.restart(at - kBefore);
  sound_.add_silence(static_cast<std::size_t>(kBefore - known));
  sound_.add(song_, at - known, static_cast<std::size_t>(known + kFirst));
  tail_ = at + kFirst;
}

bool TimeStretch::splice(const SongInput& song, double heard_at, double ratio, float bias) noexcept {
  // A reader at another speed than the song's is to one side of it before that place and to the other behind it.
  const auto centre = static_cast<Frames>(std::lround(heard_at - kInTime * (1.0 - 1.0 / ratio)));
  const Frames reach = std::max(tail_ + kFade, centre + SpliceSearch::kReach + kFade + kStraight);
  if (!song.fill(song_, reach)) return false;
  const Frames from = search_.best(song_, tail_, centre, bias);
  sound_.add_faded(song_, tail_, from, fade_);
  sound_.add(song_, from + kFade, static_cast<std::size_t>(kStraight));
  tail_ = from + kFade + kStraight;
  return true;
}

bool TimeStretch::go_straight(const SongInput& song) noexcept {
  if (!song.fill(song_, tail_ + kStepFrames)) return false;
  sound_.add(song_, tail_, kStepFrames);
  tail_ += kStepFrames;
  return true;
}

void TimeStretch::forget(Frames number, Frames at) noexcept {
  sound_.forget(number - kBefore);
  song_.forget(std::min(at, tail_) - kSongKept);
}

}  // namespace tandem
