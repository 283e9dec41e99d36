#include "engine/decode/byte_window.h"

#include <algorithm>
#include <utility>

namespace tandem {

ByteWindow::ByteWindow(std::shared_ptr<const SongFile> file, std::int64_t end)
    : file_(std::move(file)), end_(std::min(end, file_->size())), bytes_(kCapacity) {}

const std::uint8_t* ByteWindow::at(std::int64_t offset, std::size_t count) noexcept {
  const auto wanted = static_cast<std::int64_t>(count);
  if (offset < 0 || wanted > end_ - offset) return nullptr;
  if (offset < begin_ || offset + wanted > begin_ + static_cast<std::int64_t>(held_)) load(offset);
  return count <= held_ && offset >= begin_ ? bytes_.data() + (offset - begin_) : nullptr;
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
