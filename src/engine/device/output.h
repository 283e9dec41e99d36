// The interface to a sound device. The implementations, a sound server through libpulse and ALSA, live in platform/. An
// output takes float stereo at 44100 Hz from an OutputRing that the render thread fills, and converts it to the
// device's format; it never calls back into the engine.
//
// Threads: the commands (open .. set_queue_length) come from the UI thread and never block on a device: they add up to
// a target state, which the output's own thread then brings about. The queries (consuming .. lost) may be called from
// any thread and never lock.
//
// Failure: when a device is missing, fails or disappears, the implementation retries by itself (at most every 200 ms)
// and follows the default device; meanwhile consuming() is false and frames_played() stands still. lost() becomes true
// only on an error from which there is no recovery.
#pragma once

#include <cstdint>

#include "engine/device/output_ring.h"

namespace tandem {

class Output {
 public:
  static constexpr int kMaxQueuedBuffers = 20;  // the most that may be queued, in buffers
  static constexpr int kShortBuffers = 3;       // a short queue, used while the user is present

  virtual ~Output() = default;

  virtual void open(int buffer_bytes) = 0;  // 5120 or 10240: the size of one buffer
  virtual void close() = 0;                 // what the device has taken is still played, then the device is closed
  virtual void start() = 0;                 // opens a closed device; does nothing on a running one
  virtual void stop() = 0;                  // plays what is queued, then takes nothing more
  virtual void pause() = 0;                 // plays what is queued (the engine has faded it), then holds the device
  virtual void restart() = 0;               // goes on after pause()

  // How many buffers may be queued at the device: kShortBuffers for prompt controls, up to kMaxQueuedBuffers - 1 to
  // save power while the user is away. Takes effect without a gap.
  virtual void set_queue_length(int buffers) = 0;

  // True while a device is there and takes sound at its own pace: only then may the render thread go on.
  virtual bool consuming() const noexcept = 0;
  // How many of the ring's frames have been heard, ever: grows with the device's clock between two requests,
  // never goes back, never passes what was taken from the ring.
  virtual std::uint64_t frames_played() const noexcept = 0;
  // The size of one request in frames, now: at most one buffer while the queue is short, and at most a quarter of it.
  virtual int request_frames() const noexcept = 0;
  // How often, ever, the queue ran dry while it was to play: it was too short for the machine.
  virtual std::uint64_t underruns() const noexcept { return 0; }
  virtual bool lost() const noexcept = 0;
};

}  // namespace tandem
