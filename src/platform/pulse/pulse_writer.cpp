#include "platform/pulse/pulse_writer.h"

#include <pulse/timeval.h>

#include <algorithm>
#include <cmath>

namespace tandem {

std::size_t PulseWriter::write(std::size_t frames) {
  const auto read = [this](void* place, std::size_t room) { return feed_.read(place, room); };
  while (frames > 0) {
    const std::size_t written = write_piece(frames, read);
    if (written == 0) break;
    frames -= written;
  }
  return frames;
}

void PulseWriter::write_end(std::uint64_t up_to) {
  constexpr std::size_t kEndPiece = 4096;
  while (write_piece(kEndPiece, [&](void* place, std::size_t room) { return feed_.read_end(place, room, up_to); }) >
         0) {
  }
}

std::uint64_t PulseWriter::position_at(pa_usec_t time) const noexcept {
  const double frames = static_cast<double>(time) * format().rate / PA_USEC_PER_SEC;
  return feed_.position_of(static_cast<std::uint64_t>(std::llround(frames)));
}

std::size_t PulseWriter::write_piece(std::size_t frames, const auto& read) {
  const std::size_t frame_bytes = format().frame_bytes();
  void* place = nullptr;
  std::size_t bytes = frames * frame_bytes;
  if (pa_stream_begin_write(stream_, &place, &bytes) < 0 || place == nullptr) return 0;
  const std::size_t written = read(place, std::min(frames, bytes / frame_bytes));
  if (written == 0) {
    pa_stream_cancel_write(stream_);
    return 0;
  }
  return pa_stream_write(stream_, place, written * frame_bytes, nullptr, 0, PA_SEEK_RELATIVE) < 0 ? 0 : written;
}

}  // namespace tandem
