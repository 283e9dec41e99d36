// How far the limiter turns each frame down, from how far the frames around it exceed full scale.
// Render thread only; nothing here allocates, locks or throws.
// Two curves, of which the greater counts:
//   the short one, each channel's own: comes up to every excess at 9.9 dB in 1 ms and goes down as fast, so that the
//     stray samples with which a lossy decoder exceeds full scale cost a fraction of a millisecond; an excess
//     of more than 14 dB comes down faster, within the 1.45 ms ahead;
//   the long one, of both channels: stands at the greatest excess of the last 14.5 ms, so that the waves of tones above
//     36 Hz are not followed, and returns slowly. It grows in as the time spent beyond full scale adds up (from 2 ms
//     to 4 ms within about 150 ms), and returns the more slowly the longer that time was: 90 % of the way in at most
//     200 ms.
// Methods: look-ahead peak limiting with an attack that ends at the peak (Haemaelaeinen, "Smoothing of the control
// signal without clipped output in digital peak limiters", DAFx-02); a release that depends on the programme
// (Giannoulis, Massberg and Reiss, "Digital dynamic range compressor design", JAES 60, 2012).
#pragma once

#include <array>
#include <cstddef>

namespace tandem {

// What the two channels of a frame are divided by: at least 1, which changes nothing.
struct Divisor {
  float left = 1.0F;
  float right = 1.0F;
};

class LimiterEnvelope {
 public:
  static constexpr std::size_t kBlock = 16;       // frames
  static constexpr std::size_t kAhead = 64;       // frames that a block is known before it sounds: 1.45 ms
  static constexpr std::size_t kHeldBlocks = 40;  // what the long curve remembers: 14.5 ms

  using Block = std::array<Divisor, kBlock>;

  LimiterEnvelope() noexcept { peaks_.fill(1.0F); }

  // Nothing is under way: while what comes is within full scale, it need not be looked at.
  bool at_rest() const noexcept { return at_rest_; }
  void rest() noexcept { count(0); }

  // `excess`: the divisors that would bring each frame of a new block down to full scale; `beyond`: how many of them
  // need it. Returns those for the block that came kAhead frames earlier, which are never less than it asked for.
  Block next(const Block& excess, std::size_t beyond) noexcept;

 private:
  void count(std::size_t beyond) noexcept;
  void remember(float peak) noexcept;
  void lead_up(const Block& excess, float peak) noexcept;
  float long_target() const noexcept;
  Divisor next_divisor(const Divisor& needed, float target, float kept) noexcept;

  Divisor short_;  // where the two curves ended
  float long_ = 1.0F;
  bool at_rest_ = true;
  std::array<Divisor, kAhead + kBlock> needed_;  // the short curve ahead, without its way down
  std::size_t oldest_ = 0;                       // the frame of needed_ that sounds next
  std::array<float, kHeldBlocks> peaks_;         // the greatest excess of each of the last blocks
  std::size_t newest_peak_ = 0;
  float held_peak_ = 1.0F;  // the greatest of them
  float overshoot_ = 0.0F;  // frames beyond full scale, forgotten over 150 ms
};

}  // namespace tandem
