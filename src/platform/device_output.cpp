#include "platform/device_output.h"

#include <algorithm>
#include <utility>

namespace tandem {

DeviceOutput::DeviceOutput(OutputRing& ring, std::string alsa_device)
    : alsa_(ring, {std::move(alsa_device), &token_, false}),
      pulse_(ring, {&token_, [this](bool reachable) { alsa_.allow(!reachable); }}) {}

template <class... Values>
void DeviceOutput::command_both(void (Output::*command)(Values...), Values... values) {
  (pulse_.*command)(values...);
  (alsa_.*command)(values...);
}

void DeviceOutput::open(int buffer_bytes) { command_both(&Output::open, buffer_bytes); }
void DeviceOutput::close() { command_both(&Output::close); }
void DeviceOutput::start() { command_both(&Output::start); }
void DeviceOutput::stop() { command_both(&Output::stop); }
void DeviceOutput::pause() { command_both(&Output::pause); }
void DeviceOutput::restart() { command_both(&Output::restart); }
void DeviceOutput::set_queue_length(int buffers) { command_both(&Output::set_queue_length, buffers); }

// Both count the same ring's frames, and the one without a device stands where it left off.
std::uint64_t DeviceOutput::frames_played() const noexcept {
  return std::max(pulse_.frames_played(), alsa_.frames_played());
}

int DeviceOutput::request_frames() const noexcept {
  return alsa_.consuming() ? alsa_.request_frames() : pulse_.request_frames();
}

}  // namespace tandem
