// The limiter before the output: keeps both channels within full scale, and is not there while nothing exceeds it.
// Render thread only; nothing here allocates, locks or throws.
// Looks ahead by its delay: the gain comes down smoothly before a peak, stays for a while, and returns smoothly to
// exactly 1. Both channels get the same gain, so that the image does not move. While neither the last kHoldFrames nor
// the look-ahead hold a sample beyond full scale and the gain has returned, the output is the delayed input bit for
// bit. A sample that is not a number, or infinite, becomes silence.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "engine/frames.h"

namespace tandem {

class Limiter {
 public:
  static constexpr int kDelay = 64;                // frames from input to output: 1.45 ms
  static constexpr int kHoldFrames = 441;          // 10 ms: a low tone is not followed wave by wave
  static constexpr double kReleaseSeconds = 0.06;  // time constant of the return

  // In place; any number of frames.
  void process(std::span<StereoFrame> in_out) noexcept;

  // Forgets all sound and returns to full gain.
  void reset() noexcept { *this = Limiter(); }

  // The gain of the last frame that came out, 1 = untouched.
  float gain() const noexcept { return gain_; }

 private:
  // Gains are whole numbers here, so that the running sums never drift and the gain returns to 1 exactly.
  using Gain = std::int64_t;
  static constexpr Gain kFull = Gain{1} << 30;

  // The running mean of the last 32 gains, rounded down. Two in a row are a smooth slope of 63 frames.
  class Mean {
   public:
    Mean() { last_.fill(kFull); }
    Gain put(Gain value) noexcept;

   private:
    static constexpr std::size_t kLength = 32;
    std::array<Gain, kLength> last_{};
    std::size_t place_ = 0;
    Gain sum_ = kFull * static_cast<Gain>(kLength);
  };

  // The least of the gains put within the window; only those below full are kept, in ascending order.
  class Least {
   public:
    Gain put(Gain value) noexcept;
    bool empty() const noexcept { return first_ == last_; }

   private:
    static constexpr std::uint64_t kWindow = kDelay + kHoldFrames;
    static constexpr std::uint64_t kSize = 512;
    static_assert(kWindow < kSize);
    struct Entry {
      Gain value;
      std::uint64_t until;
    };
    std::array<Entry, kSize> entries_{};
    std::uint64_t first_ = 0;
    std::uint64_t last_ = 0;
    std::uint64_t now_ = 0;
  };

  static bool within_full_scale(std::span<const StereoFrame> frames) noexcept;
  static Gain needed_gain(const StereoFrame& frame) noexcept;
  bool at_rest() const noexcept { return least_.empty() && calm_ >= 2 * kDelay; }
  void pass(std::span<StereoFrame> in_out) noexcept;
  void limit(StereoFrame& frame) noexcept;

  std::array<StereoFrame, kDelay> delayed_{};
  std::size_t place_ = 0;
  Least least_;
  Gain envelope_ = kFull;
  Mean first_mean_;
  Mean second_mean_;
  int calm_ = 2 * kDelay;  // frames since the envelope reached full gain, up to 2 * kDelay
  float gain_ = 1.0F;
};

}  // namespace tandem
