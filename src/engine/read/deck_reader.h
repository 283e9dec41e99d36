// One deck's reader as the deck sees it: requests from the UI thread go in, sound for the render thread comes out.
// The work itself is SongFeed's. Its thread may hang in a read when the deck is closed, so the two share it: see
// reader_thread.h. Where it hangs while another song is asked for, that song gets a feed and a thread of its own.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "engine/read/song_feed.h"

namespace tandem {

class DeckReader {
 public:
  DeckReader() : feed_(std::make_shared<SongFeed>()) {}
  ~DeckReader() { feed_->mailbox().close(); }
  DeckReader(const DeckReader&) = delete;
  DeckReader& operator=(const DeckReader&) = delete;

  // UI thread. None blocks on a file. An empty name closes the song.
  void open(std::uint32_t generation, const std::string& name) { feed_->mailbox().open(generation, name); }
  void seek(std::uint32_t generation, Frames frame) { feed_->mailbox().seek(generation, frame); }
  std::optional<ReaderMailbox::Answer> take_answer() { return feed_->mailbox().take_answer(); }

  // UI thread. Another feed in place of the one whose thread hangs, with the song that this has not come to: false if
  // it has meanwhile, or if kMostHung threads hang already (each keeps 2 MB). The render thread may use the former one
  // until forget_former().
  bool renew();
  void forget_former() { former_.clear(); }
  static constexpr std::size_t kMostHung = 8;

  DeckRing& ring() noexcept { return feed_->ring(); }
  const SeqLock<ReaderStatus>& status() const noexcept { return feed_->status(); }

  // Simulated time: one piece of the reader's work; false if there is nothing to do now.
  bool work() { return feed_->work(); }
  // Any thread: see SongFeed::idle().
  bool idle() const noexcept { return feed_->idle(); }

  const std::shared_ptr<SongFeed>& feed() const noexcept { return feed_; }

 private:
  std::shared_ptr<SongFeed> feed_;
  std::vector<std::shared_ptr<SongFeed>> former_;  // the render thread may still use them
  std::vector<std::weak_ptr<SongFeed>> hung_;
};

}  // namespace tandem
