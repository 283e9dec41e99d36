// A whole sound graph of fakes that records every operation called on it, in one list in order.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "audio/sound_graph.h"
#include "base/timer_queue.h"
#include "fakes/fake_audio_file.h"
#include "fakes/fake_displays.h"
#include "fakes/fake_stages.h"

namespace tandem::test {

// Outlives the graphs that it makes; the pointers are to the graph made last.
class FakeSound {
 public:
  FakeFiles files;
  std::vector<std::string> calls;  // "WaveOut.start()", as logged_graph writes them

  SoundGraph make_graph(TimerQueue& timers);

  // The recorded operations of the named components, in order.
  std::vector<std::string> calls_of(const std::vector<std::string_view>& components) const;

  std::array<FakeAudioFile*, kDecks> deck{};
  FakeMixer* mixer = nullptr;
  FakeSpectrum* analyser = nullptr;
  FakeWaveOut* output = nullptr;

 private:
  SoundGraph quiet_graph(TimerQueue& timers);
};

}  // namespace tandem::test
