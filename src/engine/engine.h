// The sound engine: one of everything between the panel's components and the output's ring.
//
// EngineWorkers read and render between the two: threads in the player, or one step after the other in simulated time.
//
// UI thread, except where Chain says otherwise.
#pragma once

#include <array>
#include <memory>

#include "audio/sound_graph.h"
#include "engine/components/deck_control.h"
#include "engine/components/device_control.h"
#include "engine/components/mix_timer.h"
#include "engine/components/mixer_control.h"
#include "engine/components/null_components.h"
#include "engine/components/probe_file.h"
#include "engine/components/silence_guard.h"
#include "engine/components/song_end.h"
#include "engine/device/output.h"
#include "engine/engine_workers.h"
#include "engine/render/chain.h"

namespace tandem {

class Engine {
 public:
  // Output, ring and workers outlive the engine. `patience`: see SilenceGuard.
  Engine(Output& output, OutputRing& ring, EngineWorkers& workers, const SilenceGuard::Patience& patience = {});
  ~Engine();
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;

  // Puts the sound components and the timers into the graph, but not the displays. Called once; the graph's components
  // refer to this engine, which must outlive their use.
  void fill(SoundGraph& graph, TimerQueue& timers);

  // Delivers what the render thread has reported: song ends first, then the guard against silence. To be called before
  // the timers are advanced, at every tick of the clock.
  void deliver();

  // No mix tick is needed for the next `milliseconds`: ticks are skipped and several steps are rendered per wake-up.
  // 0 cancels.
  void skip_ticks_for(std::int64_t milliseconds);
  // The panel starts the next song when this deck's position is past that millisecond: rendering waits there briefly
  // for the panel's tick, so that a late tick makes no late overlap. Deck -1: no wait.
  void set_mix_point(int deck, std::int64_t after_milliseconds);
  // How much the device keeps queued: little for prompt controls, much while the user is away.
  void set_deep_queue(bool deep);

  // What TempFile answers from. Any thread; may outlive the engine.
  const std::shared_ptr<MeasuredSongs>& measured_songs() const { return measured_songs_; }
  const DisplayFeed& display_feed() const { return chain_.display_feed(); }
  const FlightRecorder& flight_recorder() const { return ring_.flight_recorder(); }
  const Chain& chain() const { return chain_; }
  bool device_idle() const { return !device_ || device_->idle(); }
  // An unmuted input has a song that goes on, or had it a moment ago.
  bool sounding() const { return chain_.steps() <= chain_.last_live_step() + 2; }
  bool playing() const { return device_ != nullptr && device_->playing(); }
  // Both readers have finished their requests and have read as far ahead as they can.
  bool readers_idle() const { return readers_[0].idle() && readers_[1].idle(); }

 private:
  void replace_hung_readers();
  void take_events();
  void wake();
  MixTick mix_tick();

  Output& output_;
  OutputRing& ring_;
  EngineWorkers& workers_;
  std::array<DeckReader, 2> readers_;
  FilterWorker filter_worker_;
  Chain chain_;
  CommandSender commands_;
  std::array<DeckControl, 2> decks_;

  // Owned by the graph.
  MixerControl* mixer_ = nullptr;
  DeviceControl* device_ = nullptr;
  MixTimer* mix_timer_ = nullptr;

  std::unique_ptr<SongEnd> song_end_;
  SilenceGuard silence_guard_;
  std::shared_ptr<MeasuredSongs> measured_songs_ = std::make_shared<MeasuredSongs>();
  bool deep_queue_ = false;
};

}  // namespace tandem
