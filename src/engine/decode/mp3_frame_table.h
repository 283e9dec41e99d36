// Where each frame of an MPEG stream lies, in little memory: one place of 64 is kept, the others are found by walking
// on from it (16 bytes for 64 frames: 0.4 MB for twelve hours). Frames are numbered from 0 and added in order.
// Used by one thread at a time; place() blocks for as long as the disk does.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "engine/decode/mp3_constant_rate.h"
#include "engine/decode/mp3_frame_scanner.h"

namespace tandem {

class Mp3FrameTable {
 public:
  static constexpr std::size_t kFramesApart = 64;

  struct Place {
    std::int64_t offset = 0;
    std::int32_t bytes = 0;  // of the whole frame; 0: a lost frame, silent
  };
  // Frames that follow each other directly in the file. Only within a run may a frame refer to the one before.
  struct Run {
    std::size_t first = 0;
    std::int32_t free_format_bytes = 0;  // base size of a frame without padding; 0 if it has a bit rate
  };

  // `new_section`: it starts a run even if it follows directly.
  void add(const Mp3Frame& frame, bool new_section);
  void add_lost(std::size_t count);
  // Frames that were passed over: they follow directly on the frame added last, lie where their bit rate has it, and
  // the last of them ends at `end`.
  void add_calculated(std::size_t count, std::int64_t end);

  std::size_t size() const noexcept { return size_; }
  std::int64_t end() const noexcept { return end_; }  // the offset just after the frame added last; 0 if there is none
  const Mp3ConstantRate& constant_rate() const noexcept { return constant_rate_; }

  // Of a frame below size(), by a look at the file through `window`; nullopt if it cannot be read any more.
  std::optional<Place> place(std::size_t frame, ByteWindow& window) const noexcept;
  const Run& run_of(std::size_t frame) const noexcept;

  std::size_t memory_bytes() const noexcept;

 private:
  enum class Kind : std::uint32_t { kWalked, kLost, kCalculated };
  struct Stretch {
    std::int64_t offset = 0;
    std::uint32_t first = 0;  // 2^32 frames last three years
    Kind kind = Kind::kWalked;
  };
  static_assert(sizeof(Stretch) == 16);

  void add_stretch(Kind kind);
  const Stretch& stretch_of(std::size_t frame) const noexcept;
  std::optional<Place> walk_to(std::size_t frame, const Stretch& stretch, ByteWindow& window) const noexcept;
  std::optional<Place> calculate(std::size_t frame, const Stretch& stretch, ByteWindow& window) const noexcept;

  std::vector<Stretch> stretches_;
  std::vector<Run> runs_;
  Mp3ConstantRate constant_rate_;
  std::size_t size_ = 0;
  std::int64_t end_ = 0;
  // The place found last, from which the next one is found in one step.
  mutable std::size_t found_frame_ = 0;
  mutable Place found_;
};

}  // namespace tandem
