#include "engine/engine.h"

#include <algorithm>
#include <utility>

#include "engine/components/equalizer_control.h"
#include "engine/pitch/pitch_shifter.h"
#include "engine/read/reader_thread.h"
#include "engine/render/render_thread.h"

namespace tandem {

Engine::Engine(Output& output, OutputRing& ring, const std::optional<Threads>& threads)
    : output_(output),
      ring_(ring),
      filter_worker_(threads.has_value()),
      chain_(readers_, filter_worker_),
      commands_(chain_.commands()),
      decks_{DeckControl(0, readers_[0], commands_, chain_,
                         [this] {
                           if (reader_threads_[0]) reader_threads_[0]->wake();
                         }),
             DeckControl(1, readers_[1], commands_, chain_, [this] {
               if (reader_threads_[1]) reader_threads_[1]->wake();
             })} {
  if (!threads) return;
  output_.set_queue_length(Output::kShortBuffers);
  for (std::size_t i = 0; i < readers_.size(); ++i) reader_threads_[i] = std::make_unique<ReaderThread>(readers_[i]);
  render_thread_ = std::make_unique<RenderThread>(chain_, output_, ring_, threads->clock, threads->notify_ui);
}

Engine::~Engine() {
  render_thread_.reset();
  for (auto& thread : reader_threads_) thread.reset();
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
  if (render_thread_) render_thread_->wake();
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
    if (reader_threads_[i] && reader_threads_[i]->replace_if_hung(chain_.steps())) decks_[i].change_feed();
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
  if (!render_thread_) return;
  const auto steps = static_cast<std::uint64_t>(std::max<std::int64_t>(milliseconds, 0) / kStepMilliseconds);
  render_thread_->run_freely_until(steps > 0 ? chain_.steps() + steps : 0, deep_queue_);
}

void Engine::set_mix_point(int deck, std::int64_t after_milliseconds) {
  if (!render_thread_) return;
  if (deck < 0) return render_thread_->mix_point_wait().clear();
  const Frames frame = frames_of(after_milliseconds + 1);
  const bool first_of_it = milliseconds_of(frame) > after_milliseconds;
  render_thread_->mix_point_wait().put(deck, decks_[static_cast<std::size_t>(deck)].generation(),
                                       first_of_it ? frame : frame + 1);
}

void Engine::set_deep_queue(bool deep) {
  if (deep == deep_queue_) return;
  deep_queue_ = deep;
  output_.set_queue_length(deep ? Output::kMaxQueuedBuffers - 1 : Output::kShortBuffers);
}

void Engine::work_inline() {
  for (std::size_t i = 0; i < readers_.size(); ++i)
    while (!stalled_[i] && readers_[i].work()) {
    }
}

void Engine::step() {
  commands_.flush();
  step_unattended();
  deliver();
}

void Engine::step_unattended() {
  // The readers come to new songs, the chain then gives up the old ones' frames, and the readers fill the room.
  work_inline();
  if (!output_.consuming() || !chain_.wants_render()) {
    chain_.take_commands_silently();
  } else {
    chain_.take_commands_ahead();
  }
  work_inline();
  render_one_step();
}

// The commands may just have begun a fade or ended one.
void Engine::render_one_step() {
  if (!output_.consuming() || !chain_.wants_render()) return;
  std::array<StereoFrame, kStepFrames> block;
  chain_.render(block);
  // Where a test's device takes nothing the ring is full in the end, and what does not fit is lost.
  static_cast<void>(ring_.write(block));
}

}  // namespace tandem
