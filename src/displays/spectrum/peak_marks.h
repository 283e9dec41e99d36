// The marks that stay above the bars for a while after a peak. UI thread only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tandem {

// Each column has one newest mark and some older ones. The newest goes up with its bar, is held from the moment on when
// the bar leaves it, and then falls back onto the bar. A bar that rises through a mark which it had left before starts
// a new mark; the former newest and the older ones are then held and fall on their own, and the oldest goes.
class PeakMarks {
 public:
  static constexpr double kHoldUnit = 0.02;   // seconds in one unit of the hold
  static constexpr double kSpeedUnit = 0.03;  // full heights a second in one unit of the speed

  void prepare(std::size_t columns, std::size_t count);             // clears; count: marks of a column, or 0
  void put_times(std::int32_t delay, std::int32_t speed) noexcept;  // 0 as speed: marks stay for ever

  void move(std::span<const float> bars, double seconds) noexcept;

  // Heights 0 .. 1 (0: no mark), the newest marks of all columns first, then the next older ones, and so on.
  std::span<const float> heights() const noexcept { return heights_; }
  // Without sound nothing would move any more.
  bool settled() const noexcept;

 private:
  void fall(std::size_t mark, double seconds) noexcept;
  void follow(std::size_t column, float bar) noexcept;
  void start_new(std::size_t column) noexcept;

  std::size_t columns_ = 0;
  double hold_ = 0.36;
  double speed_ = 0.6;
  std::vector<float> heights_;
  std::vector<double> held_;         // seconds of hold that are left to each mark
  std::vector<float> last_bars_;     // at the last move
  std::vector<unsigned char> with_;  // whether the newest mark then stood on its bar
};

}  // namespace tandem
