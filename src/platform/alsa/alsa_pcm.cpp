#include "platform/alsa/alsa_pcm.h"

#include <algorithm>
#include <cerrno>

#include "engine/core/frames.h"

namespace tandem {

namespace {

struct FreeHardware {
  void operator()(snd_pcm_hw_params_t* parameters) const noexcept { snd_pcm_hw_params_free(parameters); }
};
struct FreeSoftware {
  void operator()(snd_pcm_sw_params_t* parameters) const noexcept { snd_pcm_sw_params_free(parameters); }
};

std::unique_ptr<snd_pcm_hw_params_t, FreeHardware> hardware_parameters() {
  snd_pcm_hw_params_t* parameters = nullptr;
  snd_pcm_hw_params_malloc(&parameters);
  return std::unique_ptr<snd_pcm_hw_params_t, FreeHardware>(parameters);
}

std::unique_ptr<snd_pcm_sw_params_t, FreeSoftware> software_parameters() {
  snd_pcm_sw_params_t* parameters = nullptr;
  snd_pcm_sw_params_malloc(&parameters);
  return std::unique_ptr<snd_pcm_sw_params_t, FreeSoftware>(parameters);
}

bool set_format(snd_pcm_t* pcm, snd_pcm_hw_params_t* parameters) {
  return snd_pcm_hw_params_any(pcm, parameters) >= 0 &&
         snd_pcm_hw_params_set_access(pcm, parameters, SND_PCM_ACCESS_RW_INTERLEAVED) >= 0 &&
         snd_pcm_hw_params_set_format(pcm, parameters, SND_PCM_FORMAT_S16) >= 0 &&
         snd_pcm_hw_params_set_channels(pcm, parameters, 2) >= 0 &&
         snd_pcm_hw_params_set_rate(pcm, parameters, static_cast<unsigned>(kSampleRate), 0) >= 0;
}

// A plug-in may go on telling of free space.
int error_of(snd_pcm_state_t state) {
  if (state == SND_PCM_STATE_SUSPENDED) return -ESTRPIPE;
  return state == SND_PCM_STATE_DISCONNECTED ? -ENODEV : 0;
}

}  // namespace

std::optional<AlsaPcm> AlsaPcm::open(const std::string& name, const Sizes& sizes) {
  snd_pcm_t* pcm = nullptr;
  if (snd_pcm_open(&pcm, name.c_str(), SND_PCM_STREAM_PLAYBACK, SND_PCM_NONBLOCK) < 0) return std::nullopt;
  AlsaPcm opened(pcm);
  if (!opened.set_hardware(sizes) || !opened.set_software(sizes)) return std::nullopt;
  return opened;
}

bool AlsaPcm::set_hardware(const Sizes& sizes) {
  const auto parameters = hardware_parameters();
  if (!parameters || !set_format(pcm_.get(), parameters.get())) return false;
  snd_pcm_uframes_t period = sizes.period;
  snd_pcm_uframes_t queue = sizes.queue;
  snd_pcm_hw_params_set_period_size_near(pcm_.get(), parameters.get(), &period, nullptr);
  snd_pcm_hw_params_set_buffer_size_near(pcm_.get(), parameters.get(), &queue);
  if (snd_pcm_hw_params(pcm_.get(), parameters.get()) < 0) return false;
  if (snd_pcm_hw_params_get_buffer_size(parameters.get(), &queue) < 0) return false;
  queue_frames_ = static_cast<long>(queue);
  return queue_frames_ > 0;
}

bool AlsaPcm::set_software(const Sizes& sizes) {
  const auto parameters = software_parameters();
  if (!parameters || snd_pcm_sw_params_current(pcm_.get(), parameters.get()) < 0) return false;
  const auto most = static_cast<snd_pcm_uframes_t>(std::max(queue_frames_ / 2, 1L));
  snd_pcm_sw_params_set_start_threshold(pcm_.get(), parameters.get(), std::min(sizes.begin_at, most));
  return snd_pcm_sw_params(pcm_.get(), parameters.get()) >= 0;
}

// Some devices do not report a delay until they have run for a while: until then the fill of the queue is used.
AlsaPcm::Look AlsaPcm::look() {
  Look found;
  const snd_pcm_sframes_t space = snd_pcm_avail(pcm_.get());
  const snd_pcm_state_t state = snd_pcm_state(pcm_.get());
  found.error = std::min(error_of(state), static_cast<int>(std::min<snd_pcm_sframes_t>(space, 0)));
  if (found.error < 0) return found;
  found.space = std::min<long>(space, queue_frames_);
  found.queued = queue_frames_ - found.space;
  found.runs = state == SND_PCM_STATE_RUNNING;
  snd_pcm_sframes_t delay = 0;
  if (found.runs && snd_pcm_delay(pcm_.get(), &delay) >= 0) found.queued = std::max<long>(delay, 0);
  return found;
}

long AlsaPcm::write(std::span<const Sample16> frames) {
  const snd_pcm_sframes_t written = snd_pcm_writei(pcm_.get(), frames.data(), frames.size());
  return written == -EAGAIN ? 0 : written;
}

AlsaPcm::Revived AlsaPcm::revive(int error) {
  if (error == -ESTRPIPE && snd_pcm_resume(pcm_.get()) == -EAGAIN) return Revived::kAsleep;
  if (error != -EPIPE && error != -ESTRPIPE && error != -EBADFD) return Revived::kNo;
  return snd_pcm_prepare(pcm_.get()) >= 0 ? Revived::kYes : Revived::kNo;
}

bool AlsaPcm::drop() { return snd_pcm_drop(pcm_.get()) >= 0 && snd_pcm_prepare(pcm_.get()) >= 0; }

}  // namespace tandem
