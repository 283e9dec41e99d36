#include "engine/read/song_feed.h"

#include <array>

namespace tandem {

namespace {
constexpr std::size_t kBlock = 4096;
// A full ring is left alone until so much of it has been played: the reader sleeps meanwhile.
constexpr std::size_t kRefill = DeckRing::kCapacity / 8;
constexpr std::int64_t kNews = 1 << 20;  // bytes of a walk from one report to the next
}  // namespace

SongFeed::SongFeed() : published_(ReaderStatus{}) {}

void SongFeed::publish(ReaderStatus::State state) {
  status_.state = state;
  published_.publish(status_);
}

// A walk through the file goes on only for what is still asked for. A seek does not end the opening of its own song.
bool SongFeed::wanted() const noexcept {
  return !mailbox_.closed() && !(opening_ ? mailbox_.has_name() : mailbox_.has_request());
}

// A long search for the place of a seek is no stall: the deck sees that it goes on.
bool SongFeed::walk_on(std::int64_t byte) {
  const bool seeks = !opening_ && status_.state == ReaderStatus::State::Opening;
  if (seeks && byte >= status_.walked + kNews) {
    status_.walked = byte;
    publish(status_.state);
  }
  return wanted();
}

void SongFeed::open_song(const ReaderMailbox::Request& request) {
  song_.reset();
  if (request.name->empty()) return;
  opening_ = true;
  song_ = SongSource::open(*request.name, [this](std::int64_t byte) { return walk_on(byte); });
  opening_ = false;
  mailbox_.answer({request.generation, song_ == nullptr});
}

void SongFeed::carry_out(const ReaderMailbox::Request& request) {
  status_ = {
      request.generation, ReaderStatus::State::Opening, ring_.written(), ReaderStatus::kUnknown, request.frame, 0};
  publish(ReaderStatus::State::Opening);
  if (request.name) open_song(request);
  filling_ = song_ != nullptr;
  if (!song_) {
    const bool empty = request.name && request.name->empty();
    return publish(empty ? ReaderStatus::State::Empty : ReaderStatus::State::Refused);
  }
  if (request.frame > 0 || !request.name) status_.first_frame = song_->seek(request.frame);
  publish(ReaderStatus::State::Reading);
}

bool SongFeed::decode_block() {
  const std::size_t room = ring_.writable();
  if (room >= kRefill) filling_ = true;
  if (!filling_ || room < kBlock) {
    filling_ = false;
    return false;
  }
  std::array<StereoFrame, kBlock> block;
  const std::size_t count = song_->read(block);
  ring_.write(std::span(block).first(count));
  // A block that was broken off for a new request is no end.
  if (count < kBlock && wanted()) {
    status_.end = ring_.written();
    publish(ReaderStatus::State::Done);
  }
  return true;
}

bool SongFeed::work() {
  idle_.store(false, std::memory_order_release);
  const bool worked = work_on();
  idle_.store(!worked, std::memory_order_release);
  return worked;
}

bool SongFeed::work_on() {
  if (const auto request = mailbox_.take_request()) {
    carry_out(*request);
    return true;
  }
  return status_.state == ReaderStatus::State::Reading && decode_block();
}

}  // namespace tandem
