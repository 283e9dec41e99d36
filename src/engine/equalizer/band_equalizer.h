// The 15-band equalizer in the sound chain: convolves both channels with one filter, or passes them untouched.
// Render thread only; nothing here allocates, locks or throws after construction.
// The delay is the same with and without a filter, and a minimum-phase filter keeps the sound in place, so filters
// are exchanged by cross-fading. Without a filter the samples pass bit for bit and only their past is kept.
// Method: partitioned overlap-save convolution (Gardner 1995; uniform partitions).
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <span>

#include "engine/core/frames.h"
#include "engine/equalizer/equalizer_filter.h"

namespace tandem {

class BandEqualizer {
 public:
  static constexpr int kDelay = static_cast<int>(kPartition);  // frames from input to output
  static constexpr int kFadeFrames = 512;                      // length of a cross-fade: 11.6 ms

  BandEqualizer();

  // Changes to another filter (nullptr: none) with the next block, or after the fade that is running; of several
  // that wait only the newest is taken. Every filter is passed in once; it must live until take_retired() gives it.
  void adopt(const EqualizerFilter* next) noexcept;

  // A filter that is no longer used, or nullptr. To be called until it gives nullptr, after adopt() and process().
  const EqualizerFilter* take_retired() noexcept;

  // In place; any number of frames.
  void process(std::span<StereoFrame> in_out) noexcept;

  // Forgets all sound: what comes out next is kDelay frames of silence. A fade or change under way is completed.
  void reset() noexcept;

 private:
  // One filter at work. Sum k is that of block `first + k`, less what blocks after `first` contribute.
  struct ActiveFilter {
    const EqualizerFilter* filter = nullptr;
    std::size_t first = kNever;
    SpectraAhead sums{};
  };
  static constexpr std::size_t kNever = 0;  // so far before the first block that no sum is left

  static constexpr std::size_t kPastBlocks = kPartitions + 1;
  static constexpr std::size_t kFadeBlocks = static_cast<std::size_t>(kFadeFrames) / kPartition;

  void process_block() noexcept;
  void begin_fade() noexcept;
  void end_fade() noexcept;
  void retire(const EqualizerFilter* filter) noexcept;
  void keep_input() noexcept;
  void transform_input() noexcept;
  const Block& convolve(ActiveFilter& active, Block& scratch) noexcept;
  void mix_fade() noexcept;
  void write_output(const Block& sound) noexcept;
  const Block& past(std::size_t index) const noexcept { return past_[index % kPastBlocks]; }

  std::array<StereoFrame, kPartition> io_{};  // before position_: input of this block; from there: output of the last
  std::size_t position_ = 0;
  std::size_t block_ = kPastBlocks;  // number of the block being filled
  std::size_t transformed_ = 0;      // all blocks before this one that a filter reaches have their spectrum

  std::array<Block, kPastBlocks> past_{};  // the last input, block n in n mod 21
  SpectrumTable spectra_;                  // the spectrum of blocks n - 1 and n in slot n mod 20

  std::array<ActiveFilter, 2> filters_{};
  std::size_t current_ = 0;     // the filter in use, or fading in
  std::size_t fade_block_ = 0;  // blocks of the running fade that are done
  bool fading_ = false;
  bool waiting_ = false;
  const EqualizerFilter* waiting_filter_ = nullptr;
  const EqualizerFilter* retired_ = nullptr;
  std::array<Block, 2> scratch_{};
  std::array<float, kFadeFrames> fade_in_{};
};

}  // namespace tandem
