#include "engine/render/chain.h"

#include <algorithm>
#include <cassert>

#include "engine/core/flush_denormals.h"
#include "engine/core/render_guard.h"

namespace tandem {

Chain::Chain(std::array<DeckReader, kDecks>& readers, FilterWorker& filter_worker)
    : decks_{Deck(*readers[0].feed()), Deck(*readers[1].feed())}, filter_worker_(filter_worker) {}

// The equalizer lets go of its filters at the end of a fade to none.
Chain::~Chain() {
  constexpr int kStepsOfAllFades = 8;
  equalizer_.adopt(nullptr);
  for (int i = 0; i < kStepsOfAllFades; ++i) {
    std::array<StereoFrame, kStepFrames> silence{};
    equalizer_.process(silence);
    give_filters_back();
  }
}

void Chain::render(std::span<StereoFrame, kStepFrames> out) noexcept {
  const RenderGuard guard;
  const FlushDenormals flush;
  take_commands();
  std::fill(out.begin(), out.end(), StereoFrame{});
  mix_decks(out);
  volume_.apply(out);
  equalize(out);
  limiter_.process(out);
  pause_fade_.apply(out);
  if (!pause_fade_.is_silent()) broken_off_ = false;
  display_feed_.write(out);
  post_events();
}

void Chain::follow_readers() noexcept {
  for (Deck& deck : decks_) deck.follow_reader();
}

void Chain::take_commands_ahead() noexcept {
  take_commands();
  follow_readers();
}

// What was broken off while nothing is heard needs no fade: it is dropped, with what the stages still hold of it,
// unless another song goes on that must not lose a frame.
void Chain::take_commands_silently() noexcept {
  const RenderGuard guard;
  do {
    take_commands();
    pause_fade_.finish_fade_out();
  } while (!commands_.empty());
  if (broken_off_ && !in_mid_song()) drop_sound();
  follow_readers();
  post_events();
}

bool Chain::in_mid_song() const noexcept {
  return std::any_of(decks_.begin(), decks_.end(), [](const Deck& deck) { return deck.in_mid_song(); });
}

void Chain::drop_sound() noexcept {
  for (Deck& deck : decks_) deck.drop_tail();
  equalizer_.reset();
  limiter_.reset();
  pause_fade_.forget();
  broken_off_ = false;
}

// The step that fades out ends what sounded: commands after that are taken when the fade is over, and are not heard in
// it.
void Chain::take_commands() noexcept {
  RenderCommand command;
  while (!pause_fade_.fading_out() && commands_.pop(command)) take_command(command);
}

void Chain::take_command(const RenderCommand& command) noexcept {
  Deck& deck = decks_[command.deck];
  using Kind = RenderCommand::Kind;
  switch (command.kind) {
    case Kind::Song:
      broken_off_ = broken_off_ || deck.in_mid_song();
      deck.begin_song(command);
      break;
    case Kind::Feed:
      deck.change_feed(*command.feed);
      break;
    case Kind::Mute:
      broken_off_ = broken_off_ || deck.in_mid_song();
      deck.mute(command.epoch);
      break;
    case Kind::Unmute:
      deck.unmute(command.epoch);
      break;
    case Kind::Finish:
      deck.finish(command.frames);
      break;
    case Kind::Pitch:
      deck.change_pitch(command);
      break;
    case Kind::Volume:
      volume_.set(command.value);
      break;
    case Kind::FadeIn:
      pause_fade_.begin_fade_in();
      break;
    case Kind::FadeOut:
      pause_fade_.begin_fade_out();
      silence_reported_ = false;
      break;
  }
}

void Chain::mix_decks(std::span<StereoFrame, kStepFrames> mix) noexcept {
  for (Deck& deck : decks_) deck.render(mix);
  const std::uint64_t step = steps_.load(std::memory_order_relaxed) + 1;
  if (std::any_of(decks_.begin(), decks_.end(), [](const Deck& deck) { return deck.goes_on(); }))
    last_live_step_.store(step, std::memory_order_release);
  steps_.store(step, std::memory_order_release);
}

void Chain::equalize(std::span<StereoFrame, kStepFrames> mix) noexcept {
  const EqualizerFilter* filter = nullptr;
  if (filter_worker_.take(filter)) equalizer_.adopt(filter);
  equalizer_.process(mix);
  give_filters_back();
}

void Chain::give_filters_back() noexcept {
  while (const EqualizerFilter* retired = equalizer_.take_retired()) filter_worker_.give_back(retired);
}

// There is always room: an event answers a command, and no more commands than events are ever under way.
void Chain::report(const RenderEvent& event) noexcept {
  [[maybe_unused]] const bool has_room = events_.push(event);
  assert(has_room);
}

void Chain::post_events() noexcept {
  for (std::uint8_t i = 0; i < kDecks; ++i) {
    if (const auto end = decks_[i].take_end(i)) report(*end);
    while (PitchShifter* shifter = decks_[i].take_retired())
      report({RenderEvent::Kind::RetiredShifter, i, 0, 0, shifter});
  }
  if (pause_fade_.is_silent() && !silence_reported_) {
    silence_reported_ = true;
    report({RenderEvent::Kind::FadedOut});
  }
}

}  // namespace tandem
