#include "engine/read/reader_mailbox.h"

#include <utility>

namespace tandem {

void ReaderMailbox::open(std::uint32_t generation, const std::string& name) { put({generation, name, 0}); }

void ReaderMailbox::put(Request request) {
  const std::scoped_lock lock(mutex_);
  request_ = std::move(request);
  named_.store(true, std::memory_order_release);
  asked_.store(true, std::memory_order_release);
}

void ReaderMailbox::seek(std::uint32_t generation, Frames frame) {
  const std::scoped_lock lock(mutex_);
  Request request{generation, std::nullopt, frame};
  if (request_) request.name = std::move(request_->name);
  request_ = std::move(request);
  asked_.store(true, std::memory_order_release);
}

std::optional<ReaderMailbox::Request> ReaderMailbox::take_request() {
  if (!has_request()) return std::nullopt;
  const std::scoped_lock lock(mutex_);
  asked_.store(false, std::memory_order_release);
  named_.store(false, std::memory_order_release);
  return std::exchange(request_, std::nullopt);
}

void ReaderMailbox::answer(const Answer& answer) {
  const std::scoped_lock lock(mutex_);
  answer_ = answer;
  answered_.store(true, std::memory_order_release);
}

std::optional<ReaderMailbox::Answer> ReaderMailbox::take_answer() {
  if (!answered_.load(std::memory_order_acquire)) return std::nullopt;
  const std::scoped_lock lock(mutex_);
  answered_.store(false, std::memory_order_release);
  return std::exchange(answer_, std::nullopt);
}

}  // namespace tandem
