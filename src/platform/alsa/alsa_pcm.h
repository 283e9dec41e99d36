// One ALSA device, opened for stereo in the encoding and at the rate that are its own, so that no plug-in of ALSA
// converts what we convert better: float or 32 bits where it has more than 16, its rate where it has not ours. Where it
// has none of our encodings (24 bits in 3 bytes), ALSA converts from the one with the most bits. Never blocks. On one
// thread.
#pragma once

#include <alsa/asoundlib.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "platform/output/device_format.h"

namespace tandem {

class AlsaPcm {
 public:
  struct Sizes {  // in frames of ours, 44100 a second; the device takes what comes nearest
    snd_pcm_uframes_t period;
    snd_pcm_uframes_t queue;
    snd_pcm_uframes_t begin_at;  // begins to play when it holds that many
  };
  struct Look {
    int error = 0;      // 0, or a negative errno for revive()
    long queued = 0;    // frames of the device not heard yet, what is under way in the hardware included
    long space = 0;     // frames that can be written
    bool runs = false;  // false: waits for more before it begins
  };
  enum class Revived { kYes, kAsleep, kNo };

  // Empty if there is no such device or it takes no format of ours. `converts`: ALSA converts to the device's rate.
  static std::optional<AlsaPcm> open(const std::string& name, const Sizes& sizes, bool converts);

  Look look();
  // Whole frames, in the device's format; how many frames it took, or a negative errno for revive().
  long write(std::span<const std::byte> bytes);
  Revived revive(int error);  // after an underrun or a suspend; kNo: the device is gone
  bool drop();                // forgets what is queued; false: the device is gone
  long queue_frames() const noexcept { return queue_frames_; }
  const DeviceFormat& format() const noexcept { return format_; }

 private:
  struct Closer {
    void operator()(snd_pcm_t* pcm) const noexcept { snd_pcm_close(pcm); }
  };

  explicit AlsaPcm(snd_pcm_t* pcm) : pcm_(pcm) {}
  static std::optional<AlsaPcm> open_as(const std::string& name, const Sizes& sizes, int mode);
  bool set_hardware(const Sizes& sizes);
  bool set_software(const Sizes& sizes);

  std::unique_ptr<snd_pcm_t, Closer> pcm_;
  DeviceFormat format_;
  long queue_frames_ = 0;
};

}  // namespace tandem
