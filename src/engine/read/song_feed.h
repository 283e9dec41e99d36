// Reads one deck's song ahead into the deck's ring. Everything that can be slow about a file (opening, scanning,
// seeking, decoding, a stalled disk) happens in work(), on the deck's own reader thread, or inline in simulated time.
//
// Nothing here reads further than the sound needs: a song's length is not asked for, a seek looks for its own frame
// only, and a long walk through a file ends as soon as its result is not wanted any more.
#pragma once

#include <atomic>
#include <memory>

#include "engine/core/seqlock.h"
#include "engine/read/deck_ring.h"
#include "engine/read/reader_mailbox.h"
#include "engine/read/reader_status.h"
#include "engine/read/song_source.h"

namespace tandem {

class SongFeed {
 public:
  SongFeed();

  ReaderMailbox& mailbox() noexcept { return mailbox_; }                       // UI thread
  DeckRing& ring() noexcept { return ring_; }                                  // render thread
  const SeqLock<ReaderStatus>& status() const noexcept { return published_; }  // render thread

  // Reader thread: one piece of work; false if there is nothing to do now. Decodes at most one block.
  bool work();
  // A song waits for the render thread to make room for its first frame.
  bool waits_for_room() const noexcept {
    return status_.state == ReaderStatus::State::Reading && ring_.written() == status_.begin;
  }
  bool closed() const noexcept { return mailbox_.closed(); }
  // Any thread: nothing is asked for, and as much is read ahead as there is room for.
  bool idle() const noexcept { return !mailbox_.has_request() && idle_.load(std::memory_order_acquire); }

 private:
  bool work_on();
  void carry_out(const ReaderMailbox::Request& request);
  void open_song(const ReaderMailbox::Request& request);
  void publish(ReaderStatus::State state);
  bool decode_block();
  bool wanted() const noexcept;
  bool walk_on(std::int64_t byte);

  DeckRing ring_;
  SeqLock<ReaderStatus> published_;
  ReaderMailbox mailbox_;

  // The reader thread's.
  ReaderStatus status_;
  std::unique_ptr<SongSource> song_;
  bool opening_ = false;
  bool filling_ = false;
  std::atomic<bool> idle_{true};
};

}  // namespace tandem
