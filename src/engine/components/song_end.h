// Delivers the end of a song to the panel so that a list can never fall silent for good. UI thread.
//
// - Before the end is notified the input counts as muted.
// - A song that ends while the other input is muted (it never came to its mix point: shorter than the lead, cut off,
//   not to be opened) first reports a position past any end to the panel's mix tick, so that the next song is
//   started; then it is notified, unless the tick put a new song on its deck.
// - Of two sounding songs the one that started first ends first: the other's end is held until then and until one tick
//   has run, so that the song after it is loaded.
// - What was reported before a mute, or before a new name, is stale and dropped.
// - The finishing operation on a silent deck ends the song as the next event.
// At most one end is delivered per event.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>

#include "engine/components/deck_control.h"
#include "engine/components/mixer_control.h"
#include "engine/render/render_messages.h"

namespace tandem {

// The panel's mix timer as these rules need it.
struct MixTick {
  std::function<bool()> running;       // its interval is not 0
  std::function<void()> tick;          // one tick now
  std::function<std::uint64_t()> ran;  // how many ticks have run
};

class SongEnd {
 public:
  SongEnd(std::array<DeckControl, 2>& decks, MixerControl& mixer, MixTick mix_tick)
      : decks_(decks), mixer_(mixer), mix_tick_(std::move(mix_tick)) {}

  void report(const RenderEvent& ended);  // from the render thread
  void finish(int deck, std::int32_t milliseconds);
  bool deliver_one();  // one event; false if no end is due
  // One tick during which every song's end seems past; the guard's last resort. See silence_guard.h.
  void break_silence();

 private:
  struct Report {
    std::uint32_t generation = 0;
    std::uint32_t epoch = 0;
  };
  struct SilentFinish {
    std::uint64_t names_put = 0;
  };

  DeckControl& deck(int input) { return decks_[static_cast<std::size_t>(input)]; }
  bool has_ended(int input);
  bool deliver_silent_finish(int input);
  bool may_deliver(int input);
  void deliver(int input);
  void deliver_alone(int input);
  void notify(int input);

  std::array<DeckControl, 2>& decks_;
  MixerControl& mixer_;
  MixTick mix_tick_;
  std::array<std::optional<Report>, 2> reports_;
  std::array<std::optional<SilentFinish>, 2> silent_finishes_;
  std::uint64_t ticks_at_notice_ = 0;
  bool noticed_ = false;
};

}  // namespace tandem
