#include "platform/alsa/alsa_player.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "engine/core/frames.h"

namespace tandem {

namespace {

constexpr Nanoseconds kHungry = 10 * kNanosecondsPerMillisecond;
constexpr Nanoseconds kAsleep = 200 * kNanosecondsPerMillisecond;
constexpr Nanoseconds kShortest = kNanosecondsPerMillisecond;
constexpr Nanoseconds kHeldLook = 3600 * kNanosecondsPerSecond;

Nanoseconds time_of(long frames) {
  return std::max(static_cast<Nanoseconds>(frames) * kNanosecondsPerSecond / kSampleRate, kShortest);
}

}  // namespace

AlsaPlayer::AlsaPlayer(AlsaPcm pcm, OutputRing& ring, PlaybackClock& clock, std::atomic<std::uint64_t>& underruns)
    : pcm_(std::move(pcm)), ring_(ring), clock_(clock), underruns_(underruns) {}

void AlsaPlayer::set_queue(int buffer_frames, int depth) {
  // Half a buffer of what is ordered lies in the ring.
  target_ = std::min(static_cast<long>(buffer_frames) * depth - buffer_frames / 2, pcm_.queue_frames());
  request_ = std::max(std::min<long>(buffer_frames, target_ / 4), 1L);
}

Nanoseconds AlsaPlayer::step(bool wanted, std::uint64_t play_up_to, Nanoseconds now) {
  if (motion_ == Motion::kHeld && (wanted || play_up_to > ring_.taken())) motion_ = Motion::kPlaying;
  if (motion_ == Motion::kPlaying && !wanted) begin_playing_out(play_up_to);
  if (motion_ == Motion::kHeld) return now + kHeldLook;
  AlsaPcm::Look found;
  if (!look(found)) return now + (asleep_ ? kAsleep : kShortest);
  return motion_ == Motion::kPlaying ? play(found, now) : play_out(found, now);
}

bool AlsaPlayer::look(AlsaPcm::Look& found) {
  found = pcm_.look();
  if (found.error >= 0) {
    asleep_ = false;
    return true;
  }
  recover(found.error);
  return false;
}

// What the device held is played (underrun) or lost (suspend).
void AlsaPlayer::recover(long error) {
  if (error == -EPIPE && motion_ == Motion::kPlaying) {
    underruns_.fetch_add(1, std::memory_order_relaxed);
    ring_.flight_recorder().underrun(monotonic_now(), static_cast<std::int64_t>(ring_.readable()), ring_.taken(), true);
  }
  const AlsaPcm::Revived revived = pcm_.revive(static_cast<int>(error));
  asleep_ = revived == AlsaPcm::Revived::kAsleep;
  gone_ = revived == AlsaPcm::Revived::kNo;
  report(0, false, monotonic_now());
}

Nanoseconds AlsaPlayer::play(const AlsaPcm::Look& look, Nanoseconds now) {
  const long room = std::min(look.space, target_ - look.queued) - waiting();
  const bool dry = room > 0 && fetch(static_cast<std::size_t>(room)) < static_cast<std::size_t>(room);
  const long queued = look.queued + send(look.space);
  report(queued, look.runs, now);
  ring_.flight_recorder().fed(now, queued + waiting());
  if (dry) return now + kHungry;
  return now + (look.runs ? time_of(queued - (target_ - request_)) : kShortest);
}

// Silence after the end lets the device begin with however little there is, and play the end whole.
void AlsaPlayer::begin_playing_out(std::uint64_t play_up_to) {
  motion_ = Motion::kPlayingOut;
  if (play_up_to > ring_.taken()) fetch(static_cast<std::size_t>(play_up_to - ring_.taken()));
  silence_ = std::max(request_, pcm_.queue_frames() / 2 + 1);
  waiting_.resize(waiting_.size() + static_cast<std::size_t>(silence_));
}

Nanoseconds AlsaPlayer::play_out(const AlsaPcm::Look& look, Nanoseconds now) {
  const long queued = look.queued + send(look.space);
  report(queued, look.runs, now);
  const long left = queued + waiting() - silence_;
  if (left > 0) return now + time_of(std::min(left, request_));
  motion_ = Motion::kHeld;
  waiting_.clear();
  silence_ = 0;
  gone_ = gone_ || !pcm_.drop();
  report(0, false, now);
  return now;
}

std::size_t AlsaPlayer::fetch(std::size_t frames) {
  std::vector<StereoFrame> fresh(std::min(frames, ring_.readable()));
  fresh.resize(ring_.read(fresh));
  const std::size_t before = waiting_.size();
  waiting_.resize(before + fresh.size());
  quantizer_.convert(fresh, std::span(waiting_).subspan(before));
  return fresh.size();
}

long AlsaPlayer::send(long space) {
  const long frames = std::min(space, waiting());
  if (frames <= 0) return 0;
  const long sent = pcm_.write(std::span(waiting_).first(static_cast<std::size_t>(frames)));
  if (sent < 0) recover(sent);
  if (sent <= 0) return 0;
  waiting_.erase(waiting_.begin(), waiting_.begin() + sent);
  return sent;
}

void AlsaPlayer::report(long queued, bool runs, Nanoseconds now) {
  const std::uint64_t taken = ring_.taken();
  const auto unheard = static_cast<std::uint64_t>(std::max(queued + waiting() - silence_, 0L));
  const auto unsent = static_cast<std::uint64_t>(std::max(waiting() - silence_, 0L));
  const std::uint64_t position = taken - std::min(unheard, taken);
  clock_.publish({position, now, runs ? taken - std::min(unsent, taken) : position});
}

}  // namespace tandem
