// Random actions on the panel, on random lists in which many songs cannot be played. Whatever was done, once the
// actions are off a panel that plays comes to its end without falling silent for long, and one that is stopped stays
// so. Session k is made from the seed k alone.
#include <gtest/gtest.h>

#include <array>

#include "program/player_rig.h"
#include "program/random_lists.h"
#include "program/signatures.h"
#include "support/short_runs.h"

namespace tandem::test {
namespace {

constexpr unsigned kSessions = kShortRuns ? 24 : 400;
constexpr int kActs = 40;

class User {
 public:
  User(PlayerRig& rig, unsigned seed) : rig_(rig), random_(seed) {}

  void act() {
    static constexpr std::array kChoices{&User::play,  &User::play,  &User::next,   &User::next,   &User::stop,
                                         &User::pause, &User::seek,  &User::select, &User::up,     &User::down,
                                         &User::lead,  &User::pitch, &User::remove, &User::buffers};
    (this->*kChoices.at(below(kChoices.size())))();
  }
  std::int64_t rest() { return 10 * static_cast<std::int64_t>(below(4) == 0 ? below(300) : below(20)); }

 private:
  std::size_t below(std::size_t bound) { return random_() % bound; }
  std::int32_t line() {
    return static_cast<std::int32_t>(below(static_cast<std::size_t>(rig_.controls().PlayList.ListCount())));
  }
  void click(Button& button) {
    if (button.Enabled) button.click.raise();
  }
  void play() { rig_.play(); }
  void next() { rig_.next(); }
  void stop() { rig_.stop(); }
  void pause() { rig_.pause(); }
  void seek() { rig_.seek(static_cast<std::int32_t>(below(4000))); }
  void select() {
    if (rig_.controls().PlayList.ListCount() > 0) rig_.controls().PlayList.user_select(line());
  }
  void remove() {
    if (rig_.controls().PlayList.ListCount() > 3) rig_.controls().PlayList.user_double_click(line());
  }
  void up() { click(rig_.controls().UpList); }
  void down() { click(rig_.controls().DownList); }
  void lead() {
    constexpr std::array kLeads{280, 1000, 2500, 3500};
    rig_.choose_lead(kLeads.at(below(kLeads.size())));
  }
  void pitch() { rig_.controls().SliderP.move(static_cast<std::int32_t>(below(41)) - 20); }
  void buffers() { rig_.controls().BufferSwitch.move(static_cast<std::int32_t>(below(2))); }

  PlayerRig& rig_;
  std::mt19937 random_;
};

class RandomActs : public testing::TestWithParam<unsigned> {
 protected:
  void session(unsigned k) {
    const RandomList list = lists_.make(k);
    PlayerRig rig;
    for (const ListedSong& song : list.songs) rig.add(song.path);
    RandomLists::spoil(list);
    User user(rig, k);
    for (int i = 0; i < kActs; ++i) {
      user.act();
      rig.run(user.rest());
    }
    leave_alone(rig, "session " + std::to_string(k) + ", " + list.text());
  }

 private:
  static void leave_alone(PlayerRig& rig, const std::string& name) {
    if (rig.controls().PAUSE.Picture == 3) rig.pause();
    if (rig.stopped()) rig.play();  // Next on a stopped panel has started a song that nothing stops: on purpose
    const std::size_t from = rig.next_start();
    EXPECT_TRUE(rig.run_until_stopped(120'000)) << name;
    const std::size_t to = rig.next_start();
    rig.run(1000);
    EXPECT_TRUE(rig.stopped()) << name;
    // The guard waits half a second; where a mix had been started for a song that was then taken away, its first round
    // only ends that mix. Each line of the list may hold nothing that plays.
    const std::int64_t allowed = 1020 + 10 * rig.controls().PlayList.ListCount();
    EXPECT_LE(milliseconds_of(static_cast<Frames>(longest_silence(rig.sound(), from, to))), allowed) << name;
    // The fade of what was broken off by the last act is all that may still be heard.
    EXPECT_EQ(longest_silence(rig.sound(), to + kStepFrames, rig.frames()), rig.frames() - to - kStepFrames) << name;
  }

  RandomLists lists_;
};

TEST_P(RandomActs, TheListComesToItsEnd) {
  for (unsigned k = 1 + GetParam() * kSessions / 4; k <= (GetParam() + 1) * kSessions / 4; ++k) session(k);
}

INSTANTIATE_TEST_SUITE_P(Sessions, RandomActs, testing::Range(0U, 4U));

}  // namespace
}  // namespace tandem::test
