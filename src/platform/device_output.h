// The player's output: the sound server if there is one, ALSA while no server can be reached and the machine has a
// card, otherwise neither; it then keeps retrying both, and consuming() is false meanwhile. After losing a server it
// waits about a second for a restart before ALSA takes the card. Threads and failures: those of PulseOutput and
// AlsaOutput.
#pragma once

#include <string>

#include "engine/device/output.h"
#include "platform/alsa/alsa_output.h"
#include "platform/pulse/pulse_output.h"

namespace tandem {

class DeviceOutput final : public Output {
 public:
  // alsa_device: empty for the machine's own choice.
  explicit DeviceOutput(OutputRing& ring, std::string alsa_device = {});

  void open(int buffer_bytes) override;
  void close() override;
  void start() override;
  void stop() override;
  void pause() override;
  void restart() override;
  void set_queue_length(int buffers) override;

  bool consuming() const noexcept override { return pulse_.consuming() || alsa_.consuming(); }
  std::uint64_t frames_played() const noexcept override;
  int request_frames() const noexcept override;
  std::uint64_t underruns() const noexcept override { return pulse_.underruns() + alsa_.underruns(); }
  bool lost() const noexcept override { return false; }

  // What the sound server shows its users. UI thread; UTF-8.
  void put_stream_name(const std::string& name) { pulse_.put_stream_name(name); }

 private:
  template <class... Values>
  void command_both(void (Output::*command)(Values...), Values... values);

  RingReaderToken token_;  // of the two, the one that holds a device reads the ring
  AlsaOutput alsa_;
  PulseOutput pulse_;  // decides whether alsa_ may play, so it is destroyed first
};

}  // namespace tandem
