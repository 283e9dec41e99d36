#include "fakes/fake_sound.h"

#include <algorithm>
#include <cstddef>
#include <memory>

#include "engine/components/hi_timer.h"
#include "engine/components/null_components.h"
#include "logged_graph/logged_graph.h"

namespace tandem::test {

namespace {

template <class Fake, class Pointer, class... Arguments>
std::unique_ptr<Fake> made(Pointer& pointer, Arguments&&... arguments) {
  auto fake = std::make_unique<Fake>(arguments...);
  pointer = fake.get();
  return fake;
}

void add_displays(SoundGraph& graph) {
  graph.MMMeterX1 = std::make_unique<FakeDisplay<MMMeterX>>();
  graph.MMMeterX2 = std::make_unique<FakeDisplay<MMMeterX>>();
  graph.MMLevelX1 = std::make_unique<FakeDisplay<MMLevelX>>();
  graph.MMOscopeX1 = std::make_unique<FakeDisplay<MMOscopeX>>();
}

void add_timers(SoundGraph& graph, TimerQueue& timers) {
  graph.MixTimer = std::make_unique<HiTimer>(timers, 0, true);
  graph.Timer = std::make_unique<HiTimer>(timers, 200, true);
  graph.ListTimer = std::make_unique<HiTimer>(timers, 2500, false);
}

}  // namespace

SoundGraph FakeSound::quiet_graph(TimerQueue& timers) {
  SoundGraph graph;
  for (std::size_t i = 0; i < kDecks; ++i) {
    graph.AudioFile[i] = made<FakeAudioFile>(deck[i], files, FakeAudioFile::Role::Deck);
    graph.Pitch[i] = std::make_unique<FakePitch>();
  }
  graph.TempFile = std::make_unique<FakeAudioFile>(files, FakeAudioFile::Role::Probe);
  graph.WaveMixer = made<FakeMixer>(mixer);
  graph.MMRingBufferX1 = std::make_unique<PassingRingBuffer>();
  graph.EQ = std::make_unique<FakeEqualizer>();
  graph.WaveOut = made<FakeWaveOut>(output);
  graph.MMConnectorX1 = std::make_unique<Connector>();
  graph.MMSpectrum1 = made<FakeSpectrum>(analyser);
  graph.Helper = std::make_unique<FakeHelper>();
  add_displays(graph);
  add_timers(graph, timers);
  return graph;
}

SoundGraph FakeSound::make_graph(TimerQueue& timers) {
  return logged_graph(quiet_graph(timers), [this](const std::string& operation) { calls.push_back(operation); });
}

std::vector<std::string> FakeSound::calls_of(const std::vector<std::string_view>& components) const {
  std::vector<std::string> found;
  for (const std::string& call : calls)
    if (std::any_of(components.begin(), components.end(), [&](std::string_view name) {
          return call.starts_with(name) && call.size() > name.size() && call[name.size()] == '.';
        }))
      found.push_back(call);
  return found;
}

}  // namespace tandem::test
