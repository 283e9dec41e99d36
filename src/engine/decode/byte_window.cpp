#include "engine/decode/byte_window.h"

#include <algorithm>
#include <utility>

namespace tandem {

ByteWindow::ByteWindow(std::shared_ptr<const SongFile> file, std::int64_t end)
    : file_(std::move(file)), end_(std::min(end, file_->size())), bytes_(kCapacity) {}

const std::uint8_t* ByteWindow::at(std::int64_t offset, std::size_t count) noexcept {
  const auto wanted = static_cast<std::int64_t>(count);
  if (offset < 0 || wanted > end_ - offset) return nullptr;
  if (!holds(offset, wanted)) load(first_to_load(offset, wanted));
  return holds(offset, wanted) ? bytes_.data() + (offset - begin_) : nullptr;
}

bool ByteWindow::holds(std::int64_t offset, std::int64_t count) const noexcept {
  return offset >= begin_ && offset + count <= begin_ + static_cast<std::int64_t>(held_);
}

// A walk backwards finds the next places in the window too.
std::int64_t ByteWindow::first_to_load(std::int64_t offset, std::int64_t count) const noexcept {
  constexpr auto kWhole = static_cast<std::int64_t>(kCapacity);
  const bool is_just_before = offset < begin_ && begin_ - offset < kWhole;
  return is_just_before ? std::max<std::int64_t>(0, offset - std::min(kWhole / 2, kWhole - count)) : offset;
}

std::span<const std::uint8_t> ByteWindow::from(std::int64_t offset) noexcept {
  const std::uint8_t* first = at(offset, 1);
  if (first == nullptr) return {};
  return {first, held_ - static_cast<std::size_t>(offset - begin_)};
}

void ByteWindow::load(std::int64_t offset) noexcept {
  const auto count = static_cast<std::size_t>(std::min<std::int64_t>(kCapacity, end_ - offset));
  held_ = file_->read_at(offset, std::span(bytes_).first(count));
  begin_ = offset;
}

}  // namespace tandem
