// The components that the panel owns for its whole life, linked as the sound flows:
//   AudioFile(i) -> Pitch(i) -> WaveMixer input i -> MMRingBufferX1 -> EQ -> WaveOut -> MMConnectorX1 -> displays
// A deck, its file reader, its pitch stage and its mixer input share one index.
// UI thread.
#pragma once

#include <array>
#include <memory>

#include "audio/mm_audio_file.h"
#include "audio/mm_displays.h"
#include "audio/mm_hi_timer.h"
#include "audio/mm_stages.h"

namespace tandem {

inline constexpr int kDecks = 2;

struct SoundGraph : DisplayComponents {
  std::array<std::unique_ptr<MMAudioFileX>, kDecks> AudioFile;
  std::unique_ptr<MMAudioFileX> TempFile;  // opened on a song only to learn its name and length
  std::array<std::unique_ptr<MMPitchX>, kDecks> Pitch;
  std::unique_ptr<MMWaveMixerX> WaveMixer;
  std::unique_ptr<MMRingBufferX> MMRingBufferX1;
  std::unique_ptr<MMEqualizerX> EQ;
  std::unique_ptr<MMWaveOutX> WaveOut;
  std::unique_ptr<MMConnectorX> MMConnectorX1;

  std::unique_ptr<MMHelperX> Helper;

  // Timers of one queue that are due together tick in this order.
  std::unique_ptr<MMHiTimerX> MixTimer;   // 10 ms while playing, else 0
  std::unique_ptr<MMHiTimerX> Timer;      // 200 ms, always
  std::unique_ptr<MMHiTimerX> ListTimer;  // 2500 ms, once after a list edit
};

}  // namespace tandem
