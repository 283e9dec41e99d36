#include "platform/alsa/alsa_pcm.h"

#include <algorithm>
#include <array>
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

struct Encoding {
  snd_pcm_format_t format;
  SampleEncoding ours;
};
// The best first.
constexpr std::array kEncodings{Encoding{SND_PCM_FORMAT_FLOAT, SampleEncoding::kFloat32},
                                Encoding{SND_PCM_FORMAT_S32, SampleEncoding::kInt32},
                                Encoding{SND_PCM_FORMAT_S16, SampleEncoding::kInt16}};

// Some cards take 32 bits and play 16 of them: those want the dither of 16.
bool is_cut_to_16(const snd_pcm_hw_params_t* parameters, SampleEncoding encoding) {
  const int bits = snd_pcm_hw_params_get_sbits(parameters);
  return encoding == SampleEncoding::kInt32 && bits > 0 && bits <= 16;
}

bool set_encoding(snd_pcm_t* pcm, snd_pcm_hw_params_t* parameters, const Encoding& encoding) {
  return snd_pcm_hw_params_any(pcm, parameters) >= 0 &&
         snd_pcm_hw_params_set_access(pcm, parameters, SND_PCM_ACCESS_RW_INTERLEAVED) >= 0 &&
         snd_pcm_hw_params_set_format(pcm, parameters, encoding.format) >= 0 &&
         !is_cut_to_16(parameters, encoding.ours) && snd_pcm_hw_params_set_channels(pcm, parameters, 2) >= 0;
}

// Our own rate where the device has it, or else the nearest.
std::optional<int> set_rate(snd_pcm_t* pcm, snd_pcm_hw_params_t* parameters) {
  unsigned rate = kSampleRate;
  if (snd_pcm_hw_params_set_rate_near(pcm, parameters, &rate, nullptr) < 0) return std::nullopt;
  if (rate < kLowestRate || rate > kHighestRate) return std::nullopt;
  return static_cast<int>(rate);
}

std::optional<DeviceFormat> set_format(snd_pcm_t* pcm, snd_pcm_hw_params_t* parameters) {
  for (const Encoding& encoding : kEncodings) {
    if (!set_encoding(pcm, parameters, encoding)) continue;
    if (const auto rate = set_rate(pcm, parameters)) return DeviceFormat{encoding.ours, *rate};
  }
  return std::nullopt;
}

// A plug-in may go on reporting free space.
int error_of(snd_pcm_state_t state) {
  if (state == SND_PCM_STATE_SUSPENDED) return -ESTRPIPE;
  return state == SND_PCM_STATE_DISCONNECTED ? -ENODEV : 0;
}

}  // namespace

std::optional<AlsaPcm> AlsaPcm::open(const std::string& name, const Sizes& sizes, bool converts) {
  if (converts) return open_as(name, sizes, 0);
  for (const int mode : {SND_PCM_NO_AUTO_RESAMPLE | SND_PCM_NO_AUTO_FORMAT, SND_PCM_NO_AUTO_RESAMPLE, 0}) {
    if (std::optional<AlsaPcm> opened = open_as(name, sizes, mode)) return opened;
  }
  return std::nullopt;
}

std::optional<AlsaPcm> AlsaPcm::open_as(const std::string& name, const Sizes& sizes, int mode) {
  snd_pcm_t* pcm = nullptr;
  if (snd_pcm_open(&pcm, name.c_str(), SND_PCM_STREAM_PLAYBACK, SND_PCM_NONBLOCK | mode) < 0) return std::nullopt;
  AlsaPcm opened(pcm);
  if (!opened.set_hardware(sizes) || !opened.set_software(sizes)) return std::nullopt;
  return opened;
}

bool AlsaPcm::set_hardware(const Sizes& sizes) {
  const auto parameters = hardware_parameters();
  if (!parameters) return false;
  const std::optional<DeviceFormat> format = set_format(pcm_.get(), parameters.get());
  if (!format) return false;
  format_ = *format;
  auto period = static_cast<snd_pcm_uframes_t>(format_.device_frames(sizes.period));
  auto queue = static_cast<snd_pcm_uframes_t>(format_.device_frames(sizes.queue));
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
  snd_pcm_sw_params_set_start_threshold(
      pcm_.get(), parameters.get(),
      std::min(static_cast<snd_pcm_uframes_t>(format_.device_frames(sizes.begin_at)), most));
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

long AlsaPcm::write(std::span<const std::byte> bytes) {
  const snd_pcm_sframes_t written = snd_pcm_writei(pcm_.get(), bytes.data(), bytes.size() / format_.frame_bytes());
  return written == -EAGAIN ? 0 : written;
}

AlsaPcm::Revived AlsaPcm::revive(int error) {
  if (error == -ESTRPIPE && snd_pcm_resume(pcm_.get()) == -EAGAIN) return Revived::kAsleep;
  if (error != -EPIPE && error != -ESTRPIPE && error != -EBADFD) return Revived::kNo;
  return snd_pcm_prepare(pcm_.get()) >= 0 ? Revived::kYes : Revived::kNo;
}

bool AlsaPcm::drop() { return snd_pcm_drop(pcm_.get()) >= 0 && snd_pcm_prepare(pcm_.get()) >= 0; }

}  // namespace tandem
