#include "platform/alsa/alsa_output.h"

#include <poll.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "platform/realtime/realtime_priority.h"

namespace tandem {

namespace {

constexpr Nanoseconds kRetry = 200 * kNanosecondsPerMillisecond;
constexpr Nanoseconds kSlowRetry = kNanosecondsPerSecond;
constexpr int kQuickRetries = 50;
constexpr Nanoseconds kNever = 3600 * kNanosecondsPerSecond;

// ALSA writes its complaints to standard error, at every attempt anew.
void keep_quiet(const char*, int, const char*, int, const char*, ...) {}

std::vector<std::string> candidates(const std::string& device) {
  if (!device.empty()) return {device};
  int card = -1;
  if (snd_card_next(&card) < 0 || card < 0) return {};
  return {"default", "plughw:" + std::to_string(card)};
}

std::optional<AlsaPcm> open_first(const std::vector<std::string>& names, const TargetState& wish) {
  const auto buffer = static_cast<snd_pcm_uframes_t>(wish.buffer_bytes()) / sizeof(Sample16);
  // Half a buffer, since many devices tell their position only at the end of a period.
  const AlsaPcm::Sizes sizes = {buffer / 2, buffer * static_cast<snd_pcm_uframes_t>(Output::kMaxQueuedBuffers), buffer};
  for (const std::string& name : names) {
    if (std::optional<AlsaPcm> pcm = AlsaPcm::open(name, sizes)) return pcm;
  }
  return std::nullopt;
}

void wait_for(int fd, Nanoseconds span) {
  pollfd ordered = {fd, POLLIN, 0};
  const timespec time = {span / kNanosecondsPerSecond, span % kNanosecondsPerSecond};
  static_cast<void>(ppoll(&ordered, 1, &time, nullptr));
}

}  // namespace

AlsaOutput::AlsaOutput(OutputRing& ring, Choice choice)
    : ThreadedOutput(ring), choice_(std::move(choice)), allowed_(choice_.allowed) {
  if (choice_.lease == nullptr) choice_.lease = &own_lease_;
  snd_lib_error_set_handler(&keep_quiet);
  thread_ = std::thread([this] { run(); });
}

AlsaOutput::~AlsaOutput() {
  ending_.store(true);
  orders_.wake();
  thread_.join();
}

void AlsaOutput::allow(bool allowed) noexcept {
  allowed_.store(allowed);
  orders_.wake();
}

void AlsaOutput::run() {
  ask_realtime_priority();
  while (!ending_.load()) {
    for (const OutputCommand& order : orders_.take()) wish_.apply(order);
    const Nanoseconds next = tend(monotonic_now());
    publish();
    wait_for(orders_.fd(), std::max<Nanoseconds>(next - monotonic_now(), 0));
  }
}

Nanoseconds AlsaOutput::tend(Nanoseconds now) {
  if (player_ && !current() && (player_->held() || player_->asleep())) let_go();
  if (!player_ && wish_.open() && allowed_.load() && now >= retry_at_) open_device(now);
  if (player_) return serve(now);
  if (!wish_.wanted()) discard_unplayable();
  return wish_.open() && allowed_.load() ? retry_at_ : now + kNever;
}

Nanoseconds AlsaOutput::serve(Nanoseconds now) {
  if (current()) player_->set_queue(wish_.buffer_bytes() / static_cast<int>(sizeof(Sample16)), wish_.depth());
  const Nanoseconds next = player_->step(current() && wish_.wanted(), wish_.play_up_to(), now);
  if (!player_->gone()) return !current() && player_->held() ? now : next;
  let_go();
  retry_at_ = now + kRetry;
  return retry_at_;
}

void AlsaOutput::open_device(Nanoseconds now) {
  std::optional<AlsaPcm> pcm;
  if (choice_.lease->take()) {
    pcm = open_first(candidates(choice_.device), wish_);
    if (!pcm) choice_.lease->give_back();
  }
  failures_ = pcm ? 0 : failures_ + 1;
  retry_at_ = now + (failures_ < kQuickRetries ? kRetry : kSlowRetry);
  if (!pcm) return;
  player_.emplace(std::move(*pcm), ring_, face_.heard, face_.breaks);
  player_generation_ = wish_.generation();
}

// What the device still held counts as heard: nobody will ever hear it.
void AlsaOutput::let_go() {
  player_.reset();
  const std::uint64_t taken = ring_.taken();
  face_.heard.publish({taken, monotonic_now(), taken});
  choice_.lease->give_back();
}

// Without a device the end of the sound before a stop would come back at the next start.
void AlsaOutput::discard_unplayable() {
  if (ring_.taken() >= wish_.play_up_to() || !choice_.lease->take()) return;
  std::array<Sample16, 512> unplayed;
  while (ring_.taken() < wish_.play_up_to()) {
    const auto left = static_cast<std::size_t>(wish_.play_up_to() - ring_.taken());
    if (ring_.read(std::span(unplayed).first(std::min(left, unplayed.size()))) == 0) break;
  }
  let_go();
}

void AlsaOutput::publish() {
  if (player_) face_.request_frames.store(player_->request_frames(), std::memory_order_relaxed);
  const bool playing = current() && wish_.wanted() && !player_->asleep();
  face_.set_consuming(playing, ring_);
}

}  // namespace tandem
