#include "engine/read/deck_reader.h"

#include <utility>

namespace tandem {

bool DeckReader::renew() {
  std::erase_if(hung_, [](const std::weak_ptr<SongFeed>& feed) { return feed.expired(); });
  if (hung_.size() >= kMostHung || !feed_->mailbox().has_name()) return false;
  auto request = feed_->mailbox().take_request();
  if (!request) return false;
  feed_->mailbox().close();
  hung_.push_back(feed_);
  former_.push_back(std::exchange(feed_, std::make_shared<SongFeed>()));
  feed_->mailbox().put(std::move(*request));
  return true;
}

}  // namespace tandem
