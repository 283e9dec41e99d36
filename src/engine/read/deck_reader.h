// Reads one deck's song ahead into the deck's ring. Everything that can be slow about a file (opening, scanning,
// seeking, decoding, a stalled disk) happens here, on the deck's own reader thread, or inline in simulated time.
//
// Each name, seek and rewind that the UI thread asks for starts a new *generation*; what the reader says and writes
// belongs to the generation that it works on, and whoever waits for a newer one ignores it.
#pragma once

#include <atomic>
#include <cstdint>
#include <limits>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "engine/core/frames.h"
#include "engine/core/seqlock.h"
#include "engine/read/deck_ring.h"
#include "engine/read/song_source.h"

namespace tandem {

struct ReaderStatus {
  static constexpr std::uint64_t kUnknown = std::numeric_limits<std::uint64_t>::max();
  enum class State : std::uint32_t { Opening, Reading, Done, Refused, Empty };

  std::uint32_t generation = 0;
  State state = State::Empty;
  std::uint64_t begin = 0;       // ring position of the generation's first frame
  std::uint64_t end = kUnknown;  // ring position behind the song's last frame, once it is known
  std::int64_t first_frame = 0;  // which frame of the song the first one is
};

class DeckReader {
 public:
  DeckReader();

  // UI thread. Neither blocks on a file. An empty name closes the song.
  void open(std::uint32_t generation, const std::string& name);
  void seek(std::uint32_t generation, Frames frame);

  struct Answer {  // how opening went
    std::uint32_t generation = 0;
    bool refused = false;
    std::string accepted_name;
  };
  std::optional<Answer> take_answer();  // UI thread

  // Reader thread: one piece of work; false if there is nothing to do now. Decodes at most one block.
  bool work();
  bool has_order() const noexcept { return ordered_.load(std::memory_order_acquire); }
  // A song waits for the render thread to make room for its first frame.
  bool waits_for_room() const noexcept {
    return status_.state == ReaderStatus::State::Reading && ring_.written() == status_.begin;
  }

  // UI thread: the length of the song opened last, in frames; 0 while it is not known.
  Frames length() const noexcept { return length_.load(std::memory_order_acquire); }

  // Render thread.
  DeckRing& ring() noexcept { return ring_; }
  const SeqLock<ReaderStatus>& status() const noexcept { return published_; }

 private:
  struct Order {
    std::uint32_t generation = 0;
    std::optional<std::string> name;  // none: the song that is open
    Frames frame = 0;
  };
  std::optional<Order> take_order();
  void carry_out(const Order& order);
  void open_song(const Order& order);
  void say(ReaderStatus::State state);
  bool decode_block();
  bool measure();

  DeckRing ring_;
  SeqLock<ReaderStatus> published_;

  // The reader thread's.
  ReaderStatus status_;
  std::unique_ptr<SongSource> song_;
  bool filling_ = false;
  bool measured_ = false;
  std::atomic<Frames> length_{0};

  std::mutex mailbox_mutex_;  // between UI and reader thread only, held for a moment
  std::optional<Order> order_;
  std::optional<Answer> answer_;
  std::atomic<bool> ordered_{false};
  std::atomic<bool> answered_{false};
};

}  // namespace tandem
