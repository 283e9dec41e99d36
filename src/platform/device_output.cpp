#include "platform/device_output.h"

#include <algorithm>
#include <utility>

namespace tandem {

DeviceOutput::DeviceOutput(OutputRing& ring, std::string alsa_device)
    : alsa_(ring, {std::move(alsa_device), &token_, false}),
      pulse_(ring, {&token_, [this](bool reachable) { alsa_.allow(!reachable); }}) {}

void DeviceOutput::open(int buffer_bytes) {
  pulse_.open(buffer_bytes);
  alsa_.open(buffer_bytes);
}

void DeviceOutput::close() {
  pulse_.close();
  alsa_.close();
}

void DeviceOutput::start() {
  pulse_.start();
  alsa_.start();
}

void DeviceOutput::stop() {
  pulse_.stop();
  alsa_.stop();
}

void DeviceOutput::pause() {
  pulse_.pause();
  alsa_.pause();
}

void DeviceOutput::restart() {
  pulse_.restart();
  alsa_.restart();
}

void DeviceOutput::set_queue_length(int buffers) {
  pulse_.set_queue_length(buffers);
  alsa_.set_queue_length(buffers);
}

// Both count the same ring's frames, and the one without a device stands where it left off.
std::uint64_t DeviceOutput::frames_played() const noexcept {
  return std::max(pulse_.frames_played(), alsa_.frames_played());
}

int DeviceOutput::request_frames() const noexcept {
  return alsa_.consuming() ? alsa_.request_frames() : pulse_.request_frames();
}

}  // namespace tandem
