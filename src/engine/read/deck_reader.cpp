#include "engine/read/deck_reader.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tandem {

namespace {
constexpr std::size_t kBlock = 4096;
// A full ring is left alone until so much of it has been played: the reader sleeps meanwhile.
constexpr std::size_t kRefill = DeckRing::kCapacity / 8;
}  // namespace

DeckReader::DeckReader() : published_(ReaderStatus{}) {}

void DeckReader::open(std::uint32_t generation, const std::string& name) {
  const std::scoped_lock lock(mailbox_mutex_);
  order_ = Order{generation, name, 0};
  ordered_.store(true, std::memory_order_release);
}

void DeckReader::seek(std::uint32_t generation, Frames frame) {
  const std::scoped_lock lock(mailbox_mutex_);
  // A name that has not been opened yet is opened at the new place.
  Order order{generation, std::nullopt, frame};
  if (order_) order.name = std::move(order_->name);
  order_ = std::move(order);
  ordered_.store(true, std::memory_order_release);
}

std::optional<DeckReader::Order> DeckReader::take_order() {
  if (!has_order()) return std::nullopt;
  const std::scoped_lock lock(mailbox_mutex_);
  ordered_.store(false, std::memory_order_release);
  return std::exchange(order_, std::nullopt);
}

std::optional<DeckReader::Answer> DeckReader::take_answer() {
  if (!answered_.load(std::memory_order_acquire)) return std::nullopt;
  const std::scoped_lock lock(mailbox_mutex_);
  answered_.store(false, std::memory_order_release);
  return std::exchange(answer_, std::nullopt);
}

void DeckReader::say(ReaderStatus::State state) {
  status_.state = state;
  published_.publish(status_);
}

void DeckReader::open_song(const Order& order) {
  song_.reset();
  measured_ = false;
  length_.store(0, std::memory_order_release);
  if (order.name->empty()) return;
  Answer answer{order.generation, false, {}};
  song_ = SongSource::open(*order.name, answer.accepted_name);
  answer.refused = song_ == nullptr;
  const std::scoped_lock lock(mailbox_mutex_);
  answer_ = std::move(answer);
  answered_.store(true, std::memory_order_release);
}

void DeckReader::carry_out(const Order& order) {
  status_ = {order.generation, ReaderStatus::State::Opening, ring_.written(), ReaderStatus::kUnknown, order.frame};
  say(ReaderStatus::State::Opening);
  if (order.name) open_song(order);
  filling_ = song_ != nullptr;
  if (!song_) {
    const bool empty = order.name && order.name->empty();
    say(empty ? ReaderStatus::State::Empty : ReaderStatus::State::Refused);
    return;
  }
  if (order.frame > 0 || !order.name) {
    status_.first_frame = order.frame > 0 ? std::min(order.frame, song_->length()) : 0;
    song_->seek(status_.first_frame);
  }
  say(ReaderStatus::State::Reading);
}

bool DeckReader::decode_block() {
  const std::size_t room = ring_.writable();
  if (room >= kRefill) filling_ = true;
  if (!filling_ || room < kBlock) {
    filling_ = false;
    return false;
  }
  std::array<StereoFrame, kBlock> block;
  const std::size_t count = song_->read(block);
  ring_.write(std::span(block).first(count));
  if (count < kBlock) {
    status_.end = ring_.written();
    say(ReaderStatus::State::Done);
  }
  return true;
}

// The length may need a walk through the file, so it comes after the first sound.
bool DeckReader::measure() {
  if (!song_ || measured_) return false;
  measured_ = true;
  length_.store(song_->length(), std::memory_order_release);
  return true;
}

bool DeckReader::work() {
  if (const auto order = take_order()) {
    carry_out(*order);
    return true;
  }
  return (status_.state == ReaderStatus::State::Reading && decode_block()) || measure();
}

}  // namespace tandem
