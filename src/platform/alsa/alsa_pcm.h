// One ALSA device, opened for 16-bit stereo at 44100 Hz and never blocking. On one thread.
#pragma once

#include <alsa/asoundlib.h>

#include <memory>
#include <optional>
#include <span>
#include <string>

#include "engine/device/output_ring.h"

namespace tandem {

class AlsaPcm {
 public:
  struct Sizes {  // in frames; the device takes what comes nearest
    snd_pcm_uframes_t period;
    snd_pcm_uframes_t queue;
    snd_pcm_uframes_t begin_at;  // begins to play when it holds that many
  };
  struct Look {
    int error = 0;      // 0, or a negative errno for revive()
    long queued = 0;    // frames not heard yet, what is under way in the hardware included
    long space = 0;     // frames that can be written
    bool runs = false;  // false: waits for more before it begins
  };
  enum class Revived { kYes, kAsleep, kNo };

  // Empty if there is no such device or it does not take this format.
  static std::optional<AlsaPcm> open(const std::string& name, const Sizes& sizes);

  Look look();
  long write(std::span<const Sample16> frames);  // how many it took, or a negative errno for revive()
  Revived revive(int error);                     // after an underrun or a suspend; kNo: the device is gone
  bool drop();                                   // forgets what is queued; false: the device is gone
  long queue_frames() const noexcept { return queue_frames_; }

 private:
  struct Closer {
    void operator()(snd_pcm_t* pcm) const noexcept { snd_pcm_close(pcm); }
  };

  explicit AlsaPcm(snd_pcm_t* pcm) : pcm_(pcm) {}
  bool set_hardware(const Sizes& sizes);
  bool set_software(const Sizes& sizes);

  std::unique_ptr<snd_pcm_t, Closer> pcm_;
  long queue_frames_ = 0;
};

}  // namespace tandem
