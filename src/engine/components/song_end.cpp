#include "engine/components/song_end.h"

namespace tandem {

void SongEnd::report(const RenderEvent& ended) { reports_.at(ended.deck) = Report{ended.generation, ended.epoch}; }

bool SongEnd::has_ended(int input) {
  const auto& report = reports_[static_cast<std::size_t>(input)];
  return report && !mixer_.Mute(input) && report->generation == deck(input).generation() &&
         report->epoch == mixer_.epoch(input);
}

void SongEnd::finish(int input, std::int32_t milliseconds) {
  if (mixer_.Mute(input) || deck(input).empty()) {
    silent_finishes_[static_cast<std::size_t>(input)] = SilentFinish{deck(input).names_put()};
  } else {
    deck(input).finish(milliseconds);
  }
}

bool SongEnd::deliver_silent_finish(int input) {
  auto& waiting = silent_finishes_[static_cast<std::size_t>(input)];
  if (!waiting) return false;
  const bool stale = waiting->names_put != deck(input).names_put();
  waiting.reset();
  if (!stale) notify(input);
  return !stale;
}

bool SongEnd::may_deliver(int input) {
  if (!has_ended(input)) return false;
  if (!mixer_.Mute(1 - input)) return mixer_.sounds_longer(input);
  return !noticed_ || !mix_tick_.running() || mix_tick_.ran() != ticks_at_notice_;
}

void SongEnd::notify(int input) {
  reports_[static_cast<std::size_t>(input)].reset();
  mixer_.put_Mute(input, true);
  noticed_ = true;
  ticks_at_notice_ = mix_tick_.ran();
  mixer_.input_finished.raise(input);
}

void SongEnd::deliver_alone(int input) {
  const std::uint64_t names_put = deck(input).names_put();
  if (mix_tick_.running()) {
    deck(input).pretend_ended(true);
    mix_tick_.tick();
    deck(input).pretend_ended(false);
  }
  if (deck(input).names_put() == names_put) notify(input);
}

void SongEnd::deliver(int input) {
  if (mixer_.Mute(1 - input)) {
    deliver_alone(input);
  } else {
    notify(input);
  }
}

bool SongEnd::deliver_one() {
  for (int input = 0; input < 2; ++input)
    if (deliver_silent_finish(input)) return true;
  for (int input = 0; input < 2; ++input) {
    if (!may_deliver(input)) continue;
    deliver(input);
    return true;
  }
  return false;
}

void SongEnd::break_silence() {
  const std::array<bool, 2> were_muted{mixer_.Mute(0), mixer_.Mute(1)};
  for (DeckControl& deck : decks_) deck.pretend_ended(true);
  mix_tick_.tick();
  for (DeckControl& deck : decks_) deck.pretend_ended(false);
  for (int input = 0; input < 2; ++input)
    if (were_muted[static_cast<std::size_t>(input)] && !mixer_.Mute(input)) return notify(1 - input);
  notify(0);
}

}  // namespace tandem
