#include "engine/read/reader_thread.h"

#include <chrono>
#include <thread>
#include <utility>

#include "engine/core/thread_name.h"

namespace tandem {

namespace {
constexpr auto kIdle = std::chrono::milliseconds(200);  // the ring holds seconds
constexpr auto kShort = std::chrono::milliseconds(2);
constexpr auto kPatience = std::chrono::milliseconds(100);
}  // namespace

ReaderThread::ReaderThread(const DeckReader& reader) : shared_(std::make_shared<Shared>(reader.feed())) {
  std::thread([shared = shared_] { shared->run(); }).detach();
}

ReaderThread::~ReaderThread() { shared_->stop(); }

void ReaderThread::wake() { shared_->wake(); }

void ReaderThread::Shared::wake() {
  {
    const std::scoped_lock lock(mutex_);
    woken_ = true;
  }
  changed_.notify_all();
}

void ReaderThread::Shared::stop() {
  feed_->mailbox().close();
  wake();
  std::unique_lock lock(mutex_);
  changed_.wait_for(lock, kPatience, [this] { return ended_; });
}

void ReaderThread::Shared::sleep() {
  std::unique_lock lock(mutex_);
  changed_.wait_for(lock, feed_->waits_for_room() ? kShort : kIdle, [this] { return woken_; });
  woken_ = false;
}

void ReaderThread::Shared::run() {
  name_this_thread("tandem-reader");
  while (!feed_->closed()) {
    if (!feed_->work()) sleep();
  }
  {
    const std::scoped_lock lock(mutex_);
    ended_ = true;
  }
  changed_.notify_all();
}

}  // namespace tandem
