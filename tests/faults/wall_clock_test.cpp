// The clock on the wall is only looked at: nothing that sounds depends on it.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <string>

#include "faults/measured.h"
#include "platform/system/time_of_day.h"
#include "program/player_rig.h"
#include "program/songs.h"

namespace tandem::test {
namespace {

std::vector<Sample16> evening(const std::function<std::string()>& wall_clock) {
  PlayerRig rig;
  rig.player().wall_clock = wall_clock;
  for (const char* name : {"1", "2", "3"}) add_noise(rig, name, 4000);
  rig.choose_lead(1000);
  rig.play();
  EXPECT_TRUE(rig.run_until_stopped(20'000));
  return rig.sound();
}

std::size_t differing_frames(const std::vector<Sample16>& a, const std::vector<Sample16>& b) {
  std::size_t differ = a.size() > b.size() ? a.size() - b.size() : b.size() - a.size();
  for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i)
    if (a[i].left != b[i].left || a[i].right != b[i].right) ++differ;
  return differ;
}

TEST(WallClock, ThatJumpsChangesNoSample) {
  std::size_t looks = 0;
  const std::array<std::string, 6> times = {"23:59", "00:00", "03:00", "02:00", "12:00", "11:59"};
  const auto jumping = [&] { return times.at(looks++ % times.size()); };
  const auto jumped = evening(jumping);
  const auto calm = evening({});
  EXPECT_GE(looks, 40U);
  const std::size_t differ = differing_frames(jumped, calm);
  EXPECT_EQ(differ, 0U);
  record_fault("wall clock jumps " + std::to_string(looks) + " times", "the same samples",
               std::to_string(differ) + " samples differ");
}

// As the program itself asks for the time: by the system's clock and the zone of the day. Both are moved while it
// runs; the clock by taking over the system's call for this whole test program.
std::time_t shift = 0;  // seconds

class MovedClock {
 public:
  MovedClock() : zone_(std::getenv("TZ") == nullptr ? "" : std::getenv("TZ")) {}
  ~MovedClock() {
    shift = 0;
    zone_.empty() ? ::unsetenv("TZ") : ::setenv("TZ", zone_.c_str(), 1);
    ::tzset();
  }
  MovedClock(const MovedClock&) = delete;
  MovedClock& operator=(const MovedClock&) = delete;

  std::string next() {
    constexpr std::array kZones = {"UTC0", "XXX-14", "YYY+12", "ZZZ-5:45"};
    constexpr std::array<std::time_t, 5> kShifts = {0, 3600, -3600, 20 * 365 * 86400, -40'000'000};
    ::setenv("TZ", kZones.at(looks_ % kZones.size()), 1);
    shift = kShifts.at(looks_ % kShifts.size());
    ++looks_;
    const std::string text = time_of_day();
    if (text != last_) ++changes_;
    last_ = text;
    return text;
  }
  int looks() const { return static_cast<int>(looks_); }
  int changes() const { return changes_; }  // of what the panel showed

 private:
  std::string zone_;
  std::size_t looks_ = 0;
  int changes_ = 0;
  std::string last_;
};

TEST(WallClock, AndTimeZoneThatAreChangedChangeNoSample) {
  MovedClock clock;
  const auto moved = evening([&clock] { return clock.next(); });
  const auto calm = evening({});
  EXPECT_GE(clock.looks(), 40);
  EXPECT_GE(clock.changes(), 40);
  const std::size_t differ = differing_frames(moved, calm);
  EXPECT_EQ(differ, 0U);
  record_fault(
      "system clock and time zone changed " + std::to_string(clock.looks()) + " times, as the program reads them",
      "the same samples", std::to_string(differ) + " samples differ");
}

}  // namespace
}  // namespace tandem::test

extern "C" std::time_t time(std::time_t* place) noexcept {
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  const std::time_t moved = now.tv_sec + tandem::test::shift;
  if (place != nullptr) *place = moved;
  return moved;
}
