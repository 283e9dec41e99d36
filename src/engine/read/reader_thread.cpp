#include "engine/read/reader_thread.h"

#include <chrono>
#include <thread>
#include <utility>

#include "engine/core/thread_name.h"

namespace tandem {

namespace {
constexpr auto kIdle = std::chrono::milliseconds(200);  // the ring holds seconds
constexpr auto kShort = std::chrono::milliseconds(2);
constexpr auto kReaderPatience = std::chrono::milliseconds(100);
}  // namespace

ReaderThread::ReaderThread(DeckReader& reader) : reader_(reader) { start(); }

ReaderThread::~ReaderThread() { shared_->stop(); }

void ReaderThread::start() {
  shared_ = std::make_shared<Shared>(reader_.feed());
  std::thread([shared = shared_] { shared->run(); }).detach();
}

void ReaderThread::wake() { shared_->wake(); }

bool ReaderThread::replace_if_hung(std::uint64_t step) {
  const std::uint64_t before = std::exchange(turns_, shared_->turns());
  const bool works_on_the_same = before == turns_ && turns_ % 2 == 1;
  if (!works_on_the_same) turned_at_ = step;
  if (!shared_->has_name()) no_name_until_ = step;
  const bool hangs = step - turned_at_ > kWork && step - no_name_until_ > kRequest;
  if (!hangs || !reader_.renew()) return false;
  start();
  return true;
}

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
  changed_.wait_for(lock, kReaderPatience, [this] { return ended_; });
}

void ReaderThread::Shared::sleep() {
  std::unique_lock lock(mutex_);
  changed_.wait_for(lock, feed_->waits_for_room() ? kShort : kIdle, [this] { return woken_; });
  woken_ = false;
}

bool ReaderThread::Shared::work() {
  turns_.fetch_add(1, std::memory_order_release);
  const bool worked = feed_->work();
  turns_.fetch_add(1, std::memory_order_release);
  return worked;
}

void ReaderThread::Shared::run() {
  name_this_thread("tandem-reader");
  while (!feed_->closed()) {
    if (!work()) sleep();
  }
  {
    const std::scoped_lock lock(mutex_);
    ended_ = true;
  }
  changed_.notify_all();
}

}  // namespace tandem
