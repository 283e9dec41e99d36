#include "platform/alsa/alsa_output.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace tandem {

namespace {

// ALSA writes its complaints to standard error, once more at every attempt.
void keep_quiet(const char*, int, const char*, int, const char*, ...) {}

std::vector<std::string> candidates(const std::string& device) {
  if (!device.empty()) return {device};
  int card = -1;
  if (snd_card_next(&card) < 0 || card < 0) return {};
  return {"default", "plughw:" + std::to_string(card)};
}

std::optional<AlsaPcm> open_first(const std::vector<std::string>& names, const TargetState& target, bool converts) {
  const auto buffer = static_cast<snd_pcm_uframes_t>(target.buffer_bytes()) / sizeof(Sample16);
  // Half a buffer, since many devices report their position only at the end of a period.
  const AlsaPcm::Sizes sizes = {buffer / 2, buffer * static_cast<snd_pcm_uframes_t>(Output::kMaxQueuedBuffers), buffer};
  for (const std::string& name : names) {
    if (std::optional<AlsaPcm> pcm = AlsaPcm::open(name, sizes, converts)) return pcm;
  }
  return std::nullopt;
}

}  // namespace

AlsaOutput::AlsaOutput(OutputRing& ring, Choice choice)
    : ThreadedOutput(ring, choice.token),
      device_(std::move(choice.device)),
      allowed_((snd_lib_error_set_handler(&keep_quiet), choice.allowed)),
      thread_(
          "tandem-alsa", wake_fd(), [this] { wake(); }, [this](Nanoseconds now) { return serve(now); }) {}

void AlsaOutput::allow(bool allowed) noexcept {
  allowed_.store(allowed);
  wake();
}

Nanoseconds AlsaOutput::serve(Nanoseconds now) {
  take_commands();
  const Nanoseconds next = look_after_device(now);
  publish();
  return next;
}

Nanoseconds AlsaOutput::look_after_device(Nanoseconds now) {
  if (player_ && !current() && (player_->held() || player_->asleep())) close_device();
  const bool wanted = target().is_open() && allowed_.load();
  if (!player_ && wanted && now >= retry_at_) open_device(now);
  if (player_) return play(now);
  if (!target().wants_sound()) discard_unplayable();
  return wanted ? retry_at_ : ServingThread::kNever;
}

Nanoseconds AlsaOutput::play(Nanoseconds now) {
  if (current())
    player_->set_queue(target().buffer_bytes() / static_cast<int>(sizeof(Sample16)), target().queue_length());
  const Nanoseconds next = player_->step(current() && target().wants_sound(), target().play_up_to(), now);
  if (!player_->gone()) return !current() && player_->held() ? now : next;
  if (player_->unconverted()) {
    alsa_converts_ = true;
    ring_.flight_recorder().conversion_failed();
  }
  close_device();
  retry_at_ = now + retry_.delay();
  return retry_at_;
}

void AlsaOutput::open_device(Nanoseconds now) {
  std::optional<AlsaPcm> pcm;
  if (std::exchange(player_generation_, target().generation()) != target().generation()) alsa_converts_ = false;
  if (token_.take()) {
    pcm = open_first(candidates(device_), target(), alsa_converts_);
    if (!pcm) token_.give_back();
  }
  pcm ? retry_.succeeded() : retry_.failed();
  retry_at_ = now + retry_.delay();
  if (!pcm) return;
  player_.emplace(std::move(*pcm), ring_, playback_clock_, underruns_);
}

void AlsaOutput::close_device() {
  player_.reset();
  abandon_taken();
  token_.give_back();
}

void AlsaOutput::publish() {
  if (player_) publish_request_frames(player_->request_frames());
  publish_consuming(current() && target().wants_sound() && !player_->asleep());
}

}  // namespace tandem
