#include "engine/engine.h"

#include <algorithm>
#include <utility>

#include "engine/components/equalizer_control.h"
#include "engine/pitch/pitch_shifter.h"

namespace tandem {

Engine::Engine(Output& output, OutputRing& ring, EngineWorkers& workers, const SilenceGuard::Patience& patience)
    : output_(output),
      ring_(ring),
      workers_(workers),
      filter_worker_(workers.has_threads()),
      chain_(readers_, filter_worker_),
      commands_(chain_.commands()),
      decks_{DeckControl(0, readers_[0], commands_, chain_, [this] { workers_.wake_reader(0); }),
             DeckControl(1, readers_[1], commands_, chain_, [this] { workers_.wake_reader(1); })},
      silence_guard_(patience) {
  output_.set_queue_length(Output::kShortBuffers);
  workers_.start({readers_, chain_, output_, ring_});
}

Engine::~Engine() {
  workers_.stop();
  chain_.take_commands_silently();  // commands that never arrived own pitch shifters
  RenderEvent event;
  while (chain_.events().pop(event)) delete event.shifter;
}

MixTick Engine::mix_tick() {
  return {[this] { return mix_timer_->running(); }, [this] { mix_timer_->tick_now(); },
          [this] { return mix_timer_->ticks(); }};
}

void Engine::fill(SoundGraph& graph, TimerQueue& timers) {
  auto mixer = std::make_unique<MixerControl>(decks_, commands_);
  auto device = std::make_unique<DeviceControl>(output_, commands_);
  auto mix_timer = std::make_unique<MixTimer>(timers);
  mixer_ = mixer.get();
  device_ = device.get();
  mix_timer_ = mix_timer.get();
  song_end_ = std::make_unique<SongEnd>(decks_, *mixer_, mix_tick());

  for (int i = 0; i < 2; ++i) {
    auto& deck = decks_[static_cast<std::size_t>(i)];
    graph.AudioFile[static_cast<std::size_t>(i)] =
        std::make_unique<DeckFile>(deck, [this, i](std::int32_t ms) { song_end_->finish(i, ms); });
    graph.Pitch[static_cast<std::size_t>(i)] = std::make_unique<DeckPitch>(deck);
  }
  graph.TempFile = std::make_unique<ProbeFile>(measured_songs_);
  graph.WaveMixer = std::move(mixer);
  graph.MMRingBufferX1 = std::make_unique<PassingRingBuffer>();
  graph.EQ = std::make_unique<EqualizerControl>(filter_worker_);
  graph.WaveOut = std::move(device);
  graph.MMConnectorX1 = std::make_unique<Connector>();
  graph.Helper = std::make_unique<TimeText>();
  graph.MixTimer = std::move(mix_timer);
  graph.Timer = std::make_unique<HiTimer>(timers, 200, true);
  graph.ListTimer = std::make_unique<HiTimer>(timers, 2500, false);
}

void Engine::wake() {
  commands_.flush();
  workers_.wake_renderer();
}

void Engine::take_events() {
  RenderEvent event;
  while (chain_.events().pop(event)) {
    switch (event.kind) {
      case RenderEvent::Kind::SongEnded:
        song_end_->report(event);
        break;
      case RenderEvent::Kind::FadedOut:
        device_->faded_out();
        break;
      case RenderEvent::Kind::RetiredShifter:
        delete event.shifter;
        break;
    }
  }
}

void Engine::replace_hung_readers() {
  for (std::size_t i = 0; i < decks_.size(); ++i)
    if (workers_.replace_if_hung(i, chain_.steps())) decks_[i].change_feed();
}

void Engine::deliver() {
  replace_hung_readers();
  take_events();
  while (song_end_->deliver_one()) {
  }
  const SilenceGuard::State now{mix_timer_->running() && device_->playing(), mixer_->Mute(0) && mixer_->Mute(1),
                                chain_.steps(), chain_.last_live_step()};
  if (silence_guard_.due(now)) song_end_->break_silence();
  device_->watch_device();
  wake();
}

void Engine::skip_ticks_for(std::int64_t milliseconds) {
  if (milliseconds > 0) {
    mix_timer_->skip_ticks_for(milliseconds);
  } else {
    mix_timer_->hasten();
  }
  const auto steps = static_cast<std::uint64_t>(std::max<std::int64_t>(milliseconds, 0) / kStepMilliseconds);
  workers_.run_freely_until(steps > 0 ? chain_.steps() + steps : 0, deep_queue_);
}

void Engine::set_mix_point(int deck, std::int64_t after_milliseconds) {
  if (deck < 0) return workers_.clear_mix_point();
  const Frames frame = frames_of(after_milliseconds + 1);
  const bool first_of_it = milliseconds_of(frame) > after_milliseconds;
  workers_.put_mix_point(deck, decks_[static_cast<std::size_t>(deck)].generation(), first_of_it ? frame : frame + 1);
}

void Engine::set_deep_queue(bool deep) {
  if (deep == deep_queue_) return;
  deep_queue_ = deep;
  output_.set_queue_length(deep ? Output::kMaxQueuedBuffers - 1 : Output::kShortBuffers);
}

}  // namespace tandem
