// The sound chain on the render thread: two decks -> mixer -> equalizer -> limiter -> pause fade -> float frames.
// Threads: render() and take_commands() on the render thread, the atomics from any. Nothing under render() allocates,
// locks, throws, logs or touches a file.
#pragma once

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <span>

#include "engine/device/display_feed.h"
#include "engine/device/output_ring.h"
#include "engine/equalizer/band_equalizer.h"
#include "engine/equalizer/filter_worker.h"
#include "engine/read/deck_reader.h"
#include "engine/render/deck.h"
#include "engine/render/fade.h"
#include "engine/render/limiter.h"
#include "engine/render/render_messages.h"

namespace tandem {

class Chain {
 public:
  static constexpr int kDecks = 2;

  Chain(std::array<DeckReader, kDecks>& readers, FilterWorker& filter_worker);
  ~Chain();  // gives the filters back
  Chain(const Chain&) = delete;
  Chain& operator=(const Chain&) = delete;

  // The UI thread's ends of the two queues.
  RenderCommandQueue& commands() noexcept { return commands_; }
  RenderEventQueue& events() noexcept { return events_; }

  // One step of sound. Takes the commands first.
  void render(std::span<StereoFrame, kStepFrames> out) noexcept;
  // Takes the commands ahead of a step, so that the readers can refill the rings before it (simulated time).
  void take_commands_ahead() noexcept;
  // Takes the commands without rendering, while the output takes no sound.
  void take_commands_silently() noexcept;
  // Frames until one of the sounding songs ends, as far as that is known; 0 while one has not begun.
  Frames frames_left() const noexcept { return std::min(decks_[0].frames_left(), decks_[1].frames_left()); }
  // False once it has faded out: pausing and stopping hold the whole chain, and positions stand still.
  bool wants_render() const noexcept { return !pause_fade_.is_silent(); }

  // Any thread.
  const DeckPosition& position(int deck) const noexcept { return decks_[static_cast<std::size_t>(deck)].position(); }
  std::uint64_t steps() const noexcept { return steps_.load(std::memory_order_acquire); }
  // The last step in which an unmuted input had a song that goes on.
  std::uint64_t last_live_step() const noexcept { return last_live_step_.load(std::memory_order_acquire); }
  const DisplayFeed& display_feed() const noexcept { return display_feed_; }

 private:
  void take_commands() noexcept;
  void follow_readers() noexcept;
  void take_command(const RenderCommand& command) noexcept;
  bool in_mid_song() const noexcept;
  void drop_sound() noexcept;
  void mix_decks(std::span<StereoFrame, kStepFrames> mix) noexcept;
  void give_filters_back() noexcept;
  void equalize(std::span<StereoFrame, kStepFrames> mix) noexcept;
  void post_events() noexcept;
  void report(const RenderEvent& event) noexcept;

  std::array<Deck, kDecks> decks_;
  FilterWorker& filter_worker_;
  GainRamp volume_;
  BandEqualizer equalizer_;
  PauseFade pause_fade_;
  Limiter limiter_;
  DisplayFeed display_feed_;
  bool silence_reported_ = true;
  bool broken_off_ = false;  // in silence, or in the step that faded out, a song was broken off

  RenderCommandQueue commands_;
  RenderEventQueue events_;
  std::atomic<std::uint64_t> steps_{0};
  std::atomic<std::uint64_t> last_live_step_{0};
};

}  // namespace tandem
