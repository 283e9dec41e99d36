#include "platform/alsa/alsa_test_device.h"

#include <alsa/asoundlib.h>
#include <alsa/pcm_external.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <memory>

using tandem::AlsaTestDesk;
using tandem::Sample16;

namespace {

using Clock = std::chrono::steady_clock;
using Fault = AlsaTestDesk::Fault;

AlsaTestDesk desk;

struct Device {
  snd_pcm_ioplug_t io{};
  bool running = false;
  Clock::time_point began;
  snd_pcm_uframes_t written = 0;  // since it was prepared
  snd_pcm_uframes_t played = 0;
};

Device& device_of(snd_pcm_ioplug_t* io) { return *static_cast<Device*>(io->private_data); }

snd_pcm_uframes_t frames_since(Clock::time_point began) {
  return static_cast<snd_pcm_uframes_t>(std::chrono::duration<double>(Clock::now() - began).count() * 44100);
}

int start(snd_pcm_ioplug_t* io) {
  device_of(io).running = true;
  device_of(io).began = Clock::now();
  return 0;
}

int stop(snd_pcm_ioplug_t* io) {
  device_of(io).running = false;
  return 0;
}

int prepare(snd_pcm_ioplug_t* io) {
  if (desk.fault == Fault::kGone) return -ENODEV;
  Device& device = device_of(io);
  device.running = false;
  device.written = device.played = 0;
  return 0;
}

bool happens_now(Fault fault) { return desk.fault.compare_exchange_strong(fault, Fault::kNone); }

// Where it plays in its buffer, or a negative errno.
snd_pcm_sframes_t pointer(snd_pcm_ioplug_t* io) {
  Device& device = device_of(io);
  if (desk.fault == Fault::kGone) {
    snd_pcm_ioplug_set_state(io, SND_PCM_STATE_DISCONNECTED);
    return -ENODEV;
  }
  if (device.running && happens_now(Fault::kSuspended)) {
    snd_pcm_ioplug_set_state(io, SND_PCM_STATE_SUSPENDED);
    device.running = false;
  }
  if (device.running && happens_now(Fault::kUnderrun)) return -EPIPE;
  if (device.running) {
    device.played = std::min(frames_since(device.began), device.written);
    if (device.played == device.written) return -EPIPE;
  }
  return static_cast<snd_pcm_sframes_t>(device.played % io->buffer_size);
}

snd_pcm_sframes_t transfer(snd_pcm_ioplug_t* io, const snd_pcm_channel_area_t* areas, snd_pcm_uframes_t offset,
                           snd_pcm_uframes_t size) {
  const auto* frames = static_cast<const Sample16*>(areas->addr) + offset;
  const std::lock_guard lock(desk.mutex);
  desk.recording.insert(desk.recording.end(), frames, frames + size);
  device_of(io).written += size;
  return static_cast<snd_pcm_sframes_t>(size);
}

int close_device(snd_pcm_ioplug_t* io) {
  ::close(io->poll_fd);
  delete &device_of(io);
  return 0;
}

snd_pcm_ioplug_callback_t callbacks() {
  snd_pcm_ioplug_callback_t all{};
  all.start = start;
  all.stop = stop;
  all.pointer = pointer;
  all.transfer = transfer;
  all.prepare = prepare;
  all.close = close_device;
  return all;
}

int set_up(snd_pcm_ioplug_t* io) {
  const std::array<unsigned, 1> access = {SND_PCM_ACCESS_RW_INTERLEAVED};
  const std::array<unsigned, 1> format = {SND_PCM_FORMAT_S16};
  const bool done = snd_pcm_ioplug_set_param_list(io, SND_PCM_IOPLUG_HW_ACCESS, 1, access.data()) >= 0 &&
                    snd_pcm_ioplug_set_param_list(io, SND_PCM_IOPLUG_HW_FORMAT, 1, format.data()) >= 0 &&
                    snd_pcm_ioplug_set_param_minmax(io, SND_PCM_IOPLUG_HW_CHANNELS, 2, 2) >= 0 &&
                    snd_pcm_ioplug_set_param_minmax(io, SND_PCM_IOPLUG_HW_RATE, 44100, 44100) >= 0 &&
                    snd_pcm_ioplug_set_param_minmax(io, SND_PCM_IOPLUG_HW_PERIOD_BYTES, 256, 65536) >= 0 &&
                    snd_pcm_ioplug_set_param_minmax(io, SND_PCM_IOPLUG_HW_BUFFER_BYTES, 1024, 262144) >= 0;
  return done ? 0 : -EINVAL;
}

}  // namespace

extern "C" {

AlsaTestDesk* alsa_test_desk() { return &desk; }

// Both are called by these names.
char __snd_pcm_faulty_open_dlsym_pcm_001;

int _snd_pcm_faulty_open(snd_pcm_t** pcm, const char* name, snd_config_t*, snd_config_t*, snd_pcm_stream_t stream,
                         int mode) {
  if (desk.fault == Fault::kGone) return -ENODEV;
  static const snd_pcm_ioplug_callback_t kCallbacks = callbacks();
  auto device = std::make_unique<Device>();
  device->io.version = SND_PCM_IOPLUG_VERSION;
  device->io.name = "a card for tests";
  device->io.callback = &kCallbacks;
  device->io.private_data = device.get();
  device->io.poll_fd = eventfd(0, EFD_CLOEXEC);
  device->io.poll_events = POLLIN;
  snd_pcm_ioplug_t* io = &device->io;
  const int made = snd_pcm_ioplug_create(io, name, stream, mode);
  if (made < 0) {
    ::close(io->poll_fd);
    return made;
  }
  static_cast<void>(device.release());  // close_device() ends it
  const int ready = set_up(io);
  if (ready < 0) {
    snd_pcm_ioplug_delete(io);
    return ready;
  }
  ++desk.opened;
  *pcm = io->pcm;
  return 0;
}

}  // extern "C"
