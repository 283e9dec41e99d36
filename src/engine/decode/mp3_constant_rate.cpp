#include "engine/decode/mp3_constant_rate.h"

namespace tandem {

void Mp3ConstantRate::add(const Mp3Frame& frame) noexcept {
  if (frames_++ == 0) header_ = frame.header;
  if (frame.header.free_format() || !same_bit_rate(frame.header, header_)) constant_ = false;
  padded_ = padded_ || frame.header.padding > 0;
}

std::array<std::int64_t, 2> Mp3ConstantRate::distances(std::int64_t frames) const noexcept {
  const std::int64_t slot = header_.slot_bytes();
  if (!padded_) return {frames * (header_.bytes - header_.padding), frames * (header_.bytes - header_.padding)};
  const std::int64_t bits = frames * header_.samples * header_.bit_rate;
  const std::int64_t slots = bits / (8 * slot * header_.rate);
  return {slots * slot, (slots + 1) * slot};
}

std::int64_t Mp3ConstantRate::frames_within(std::int64_t bytes) const noexcept {
  return bytes * 8 * header_.rate / (std::int64_t{header_.samples} * header_.bit_rate);
}

}  // namespace tandem
