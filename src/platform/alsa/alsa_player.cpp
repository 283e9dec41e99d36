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

}  // namespace

AlsaPlayer::AlsaPlayer(AlsaPcm pcm, OutputRing& ring, PlaybackClock& clock, std::atomic<std::uint64_t>& underruns)
    : pcm_(std::move(pcm)), ring_(ring), clock_(clock), underruns_(underruns), feed_(ring, pcm_.format()) {}

Nanoseconds AlsaPlayer::time_of(long frames) const noexcept {
  return std::max(static_cast<Nanoseconds>(frames) * kNanosecondsPerSecond / feed_.format().rate, kShortest);
}

void AlsaPlayer::set_queue(int buffer_frames, int depth) {
  // Half a buffer of what is ordered lies in the ring.
  const auto buffer = static_cast<long>(feed_.format().device_frames(static_cast<std::uint64_t>(buffer_frames)));
  target_ = std::min(buffer * depth - buffer / 2, pcm_.queue_frames());
  request_ = std::max(std::min(buffer, target_ / 4), 1L);
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
  ring_.flight_recorder().fed(now, static_cast<long>(ring_frames(queued + waiting())));
  if (dry) return now + kHungry;
  return now + (look.runs ? time_of(queued - (target_ - request_)) : kShortest);
}

// Silence after the end lets the device begin with however little there is, and play the end whole.
void AlsaPlayer::begin_playing_out(std::uint64_t play_up_to) {
  motion_ = Motion::kPlayingOut;
  while (fetch_end(play_up_to) > 0) {
  }
  silence_ = std::max(request_, pcm_.queue_frames() / 2 + 1);
  waiting_.resize(waiting_.size() + static_cast<std::size_t>(silence_) * frame_bytes());
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
  return append(frames, [this](void* place, std::size_t room) { return feed_.read(place, room); });
}

std::size_t AlsaPlayer::fetch_end(std::uint64_t up_to) {
  constexpr std::size_t kPiece = 4096;
  return append(kPiece, [&](void* place, std::size_t room) { return feed_.read_end(place, room, up_to); });
}

std::size_t AlsaPlayer::append(std::size_t frames, const auto& read) {
  const std::size_t before = waiting_.size();
  waiting_.resize(before + frames * frame_bytes());
  const std::size_t made = read(waiting_.data() + before, frames);
  waiting_.resize(before + made * frame_bytes());
  return made;
}

long AlsaPlayer::send(long space) {
  const long frames = std::min(space, waiting());
  if (frames <= 0) return 0;
  const long sent = pcm_.write(std::span(waiting_).first(static_cast<std::size_t>(frames) * frame_bytes()));
  if (sent < 0) recover(sent);
  if (sent <= 0) return 0;
  waiting_.erase(waiting_.begin(), waiting_.begin() + sent * static_cast<long>(frame_bytes()));
  return sent;
}

void AlsaPlayer::report(long queued, bool runs, Nanoseconds now) {
  const std::uint64_t made = feed_.made();
  const auto position_before = [&](long frames) {
    return feed_.position_of(made - std::min(static_cast<std::uint64_t>(std::max(frames, 0L)), made));
  };
  const std::uint64_t position = position_before(queued + waiting() - silence_);
  clock_.publish({position, now, runs ? position_before(waiting() - silence_) : position});
}

}  // namespace tandem
