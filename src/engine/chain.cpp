#include "engine/chain.h"

#include <algorithm>
#include <cmath>

#include "engine/denormals.h"

namespace tandem {

namespace {

std::int16_t to_sample(float value) noexcept {
  return static_cast<std::int16_t>(std::clamp(std::lrintf(value * 32768.0F), -32768L, 32767L));
}

void convert(std::span<const StereoFrame> from, std::span<Sample16> to) noexcept {
  for (std::size_t i = 0; i < from.size(); ++i) to[i] = {to_sample(from[i].left), to_sample(from[i].right)};
}

}  // namespace

Chain::Chain(std::array<DeckReader, kDecks>& readers, FilterDesigner& designer)
    : decks_{Deck(readers[0]), Deck(readers[1])}, designer_(designer) {}

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

void Chain::render(std::span<Sample16, kStepFrames> out) noexcept {
  const FlushDenormals flush;
  take_orders(true);
  std::array<StereoFrame, kStepFrames> mix{};
  mix_decks(mix);
  volume_.apply(mix);
  equalize(mix);
  gate_.apply(mix);
  limiter_.process(mix);
  convert(mix, out);
  display_feed_.write(out);
  tell_news();
}

void Chain::follow_readers() noexcept {
  for (Deck& deck : decks_) deck.follow_reader();
}

void Chain::take_orders_ahead() noexcept {
  take_orders(true);
  follow_readers();
}

void Chain::take_orders_silently() noexcept {
  take_orders(false);
  follow_readers();
  gate_.finish_closing();
  tell_news();
}

void Chain::take_orders(bool sounding) noexcept {
  RenderOrder order;
  while (orders_.pop(order)) take_order(order, sounding);
}

void Chain::take_order(const RenderOrder& order, bool sounding) noexcept {
  Deck& deck = decks_[order.deck];
  using Kind = RenderOrder::Kind;
  switch (order.kind) {
    case Kind::Song:
      deck.begin_song(order, sounding);
      break;
    case Kind::Mute:
      deck.mute(order.epoch, sounding);
      break;
    case Kind::Unmute:
      deck.unmute(order.epoch);
      break;
    case Kind::Finish:
      deck.finish(order.frames);
      break;
    case Kind::Pitch:
      deck.change_pitch(order);
      break;
    case Kind::Volume:
      volume_.set(order.value);
      break;
    case Kind::OpenGate:
      gate_.open();
      break;
    case Kind::CloseGate:
      gate_.close();
      gate_told_ = false;
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
  if (designer_.take(filter)) equalizer_.adopt(filter);
  equalizer_.process(mix);
  give_filters_back();
}

void Chain::give_filters_back() noexcept {
  while (const EqualizerFilter* retired = equalizer_.take_retired()) designer_.give_back(retired);
}

void Chain::tell(const RenderNews& news) noexcept { news_.push(news); }

void Chain::tell_news() noexcept {
  for (std::uint8_t i = 0; i < kDecks; ++i) {
    RenderNews news;
    if (decks_[i].take_end(news)) {
      news.deck = i;
      tell(news);
    }
    while (PitchEngine* engine = decks_[i].take_retired()) tell({RenderNews::Kind::RetiredEngine, i, 0, 0, engine});
  }
  if (gate_.closed() && !gate_told_) {
    gate_told_ = true;
    tell({RenderNews::Kind::GateClosed});
  }
}

}  // namespace tandem
