// Pause, stop and seek, as they are heard.
#include <gtest/gtest.h>

#include "program/clicks.h"
#include "program/player_rig.h"
#include "program/signatures.h"
#include "program/songs.h"
#include "program/ten_songs.h"

namespace tandem::test {
namespace {

constexpr std::size_t kRamp = kStepFrames;  // what fades, fades for one step

// Whether the frame of the sound is this frame of the song, to the dither (a step at most) and rounding of 16 bits.
bool is_frame(const Sample16& heard, const StereoFrame& frame) {
  constexpr float kMost = 1.51F;
  return std::abs(heard.left - frame.left * 32768.0F) <= kMost &&
         std::abs(heard.right - frame.right * 32768.0F) <= kMost;
}

// How many of `count` frames of the sound from `at` on are not those of the song from `frame` on.
std::size_t differing(const PlayerRig& rig, std::size_t at, const Sound& song, std::size_t frame, std::size_t count) {
  std::size_t differing = 0;
  for (std::size_t i = 0; i < count; ++i)
    if (!is_frame(rig.sound().at(at + i), song.at(frame + i))) ++differing;
  return differing;
}

class TransportSound : public testing::Test {
 protected:
  void play_noise() {
    song = add_noise(rig, "a", 20'000);
    start = rig.next_start();
    rig.play();
    rig.run(1000);
  }
  void play_tone() {
    add_song(rig, "tone", low_tone(20));
    rig.play();
    rig.run(1000);
  }
  // The greatest click from now on while `act` is done and the time passes.
  template <class Act>
  double clicks_of(Act act, std::int64_t milliseconds = 200) {
    const std::size_t from = rig.frames() - 200;
    act();
    rig.run(milliseconds);
    return click(rig.sound(), from, rig.frames() - 200);
  }

  // Goes on after a pause; the greatest click in the first frames after frame `paused`, which was the last before it.
  double click_of_restart(std::size_t paused, std::size_t frames) {
    rig.pause();
    rig.run(500);
    return click(std::span(rig.sound()).subspan(paused), 0, frames);
  }
  // How many frames after `act` are not the song's from its beginning on; the first `faded` ones are not looked at.
  template <class Act>
  std::size_t differing_from_the_top(Act act, std::size_t faded = 0) {
    const std::size_t again = rig.next_start();
    act();
    rig.run(1000);
    return differing(rig, again + faded, song.sound, faded, 40'000);
  }

  PlayerRig rig;
  AddedSong song;
  std::size_t start = 0;
};

TEST_F(TransportSound, PauseHoldsTheSoundAndEverything) {
  play_noise();
  rig.pause();
  rig.run(20);
  const std::size_t frames = rig.frames();
  const std::int32_t position = rig.deck(0).Position();
  rig.run(10'000);
  EXPECT_EQ(rig.frames(), frames);
  EXPECT_EQ(rig.deck(0).Position(), position);
  EXPECT_LE(position, 1020);
}

TEST_F(TransportSound, RestartGoesOnAtTheSamePlace) {
  play_noise();
  const std::size_t paused = rig.frames();
  rig.pause();
  rig.run(3000);
  const std::size_t restarted = rig.frames();
  rig.pause();
  rig.run(1000);
  EXPECT_EQ(differing(rig, start, song.sound, 0, paused - start), 0U);
  EXPECT_EQ(differing(rig, restarted + kRamp, song.sound, restarted + kRamp - start, 30'000), 0U);
}

TEST_F(TransportSound, PauseFadesToSilenceAndRestartFromIt) {
  play_tone();
  rig.pause();
  rig.run(1000);
  const std::size_t paused = rig.frames();
  EXPECT_LE(click(rig.sound(), paused - 1000, paused + 200), kNoClick);
  EXPECT_LE(click_of_restart(paused, 2000), kNoClick);
}

TEST_F(TransportSound, StopFades) {
  play_tone();
  EXPECT_LE(clicks_of([this] { rig.stop(); }), kNoClick);
  EXPECT_EQ(longest_silence(rig.sound(), rig.frames() - 4410, rig.frames()), 4410U);
}

TEST_F(TransportSound, StopAndPlayStartFromTheTop) {
  play_noise();
  rig.stop();
  rig.run(500);
  EXPECT_EQ(differing_from_the_top([this] { rig.play(); }), 0U);
}

TEST_F(TransportSound, PlayWhilePlayingStartsTheSongOver) {
  play_noise();
  EXPECT_EQ(differing_from_the_top([this] { rig.play(); }, kRamp), 0U);
}

TEST_F(TransportSound, AfterPauseAndStopNothingOldIsHeard) {
  play_noise();
  rig.pause();
  rig.run(1000);
  rig.stop();
  rig.run(1000);
  const std::size_t from = rig.frames();
  rig.pause();
  rig.run(500);
  EXPECT_EQ(longest_silence(rig.sound(), from, rig.frames()), rig.frames() - from);
}

TEST_F(TransportSound, PlayWhilePausedIsHeardFromItsFirstFrameAtTheRestart) {
  play_noise();
  rig.pause();
  rig.run(1000);
  rig.stop();
  rig.play();
  rig.run(1000);
  EXPECT_EQ(differing_from_the_top([this] { rig.pause(); }), 0U);
}

TEST_F(TransportSound, ASeekLandsOnItsMillisecond) {
  play_noise();
  for (const std::int32_t to : {4321, 17'000, 1, 9999}) {
    const std::size_t at = rig.next_start();
    rig.seek(to);
    rig.run(500);
    const auto first = static_cast<std::size_t>(frames_of(to) + (to % 10 == 0 ? 0 : 1));
    EXPECT_EQ(differing(rig, at + kRamp, song.sound, first + kRamp, 20'000), 0U) << to;
    EXPECT_EQ(rig.deck(0).Position(), to + 500);
  }
}

TEST_F(TransportSound, ASeekInEveryKindOfFileLandsOnItsMillisecond) {
  for (const KnownSong& known : ten_songs()) {
    PlayerRig each;
    each.add(known.path);
    each.play();
    each.run(500);
    const std::size_t at = each.next_start();
    each.seek(4000);
    each.run(500);
    EXPECT_EQ(differing(each, at + kRamp, known.sound, 176'400 + kRamp, 20'000), 0U) << known.path;
  }
}

TEST_F(TransportSound, ASeekDoesNotClick) {
  play_tone();
  for (const std::int32_t to : {4321, 17'000, 1000, 9999}) EXPECT_LE(clicks_of([&] { rig.seek(to); }), kNoClick) << to;
}

TEST_F(TransportSound, ASeekWhilePausedDoesNotClick) {
  play_tone();
  rig.pause();
  rig.run(1000);
  const std::size_t paused = rig.frames();
  rig.seek(7777);
  rig.run(1000);
  EXPECT_EQ(rig.deck(0).Position(), 7777);
  EXPECT_LE(click_of_restart(paused, 5000), kNoClick);
}

TEST_F(TransportSound, DraggingTheSliderSeeksOnlyAtItsRelease) {
  play_noise();
  Slider& slider = rig.controls().Slider1;
  slider.user_press();
  for (const int to : {3000, 6000, 9000}) {
    slider.move(to);
    rig.run(300);
  }
  EXPECT_EQ(differing(rig, start, song.sound, 0, rig.frames() - start), 0U);
  EXPECT_EQ(rig.controls().LblPosition.Caption.get(), "00:09");
  const std::size_t at = rig.next_start();
  slider.user_release();
  rig.run(500);
  EXPECT_EQ(differing(rig, at + kRamp, song.sound, 9 * kSampleRate + kRamp, 20'000), 0U);
}

TEST_F(TransportSound, ABufferChangeStopsWithoutAClickAndPlaysOnAfterPlay) {
  play_noise();
  rig.controls().BufferSwitch.move(1);
  EXPECT_TRUE(rig.stopped());
  rig.run(500);
  EXPECT_EQ(rig.sound_graph().WaveOut->BufferSize(), 10240);
  EXPECT_EQ(rig.player().output.request_frames(), 2560);
  const std::size_t again = rig.next_start();
  rig.play();
  rig.run(1000);
  EXPECT_EQ(differing(rig, again, song.sound, 0, 40'000), 0U);
}

// Nothing of the song is heard before the device has closed, and then all of it.
TEST_F(TransportSound, PlayTogetherWithABufferChangeBeginsTheSongOnce) {
  song = add_noise(rig, "a", 20'000);
  rig.run(100);
  const std::size_t before = rig.frames();
  rig.controls().BufferSwitch.move(1);
  rig.controls().PLAY.click.raise();
  rig.run(1000);
  const auto& sound = rig.sound();
  std::size_t heard = before;
  while (heard < sound.size() && std::abs(int{sound[heard].left}) <= 2) ++heard;
  EXPECT_LE(longest_silence(sound, heard, rig.frames()), static_cast<std::size_t>(kSampleRate / 1000));
  std::size_t at = before;
  while (at < heard + kRamp && differing(rig, at + kRamp, song.sound, kRamp, 100) > 0) ++at;
  EXPECT_EQ(differing(rig, at + kRamp, song.sound, kRamp, 20'000), 0U);
  EXPECT_LE(heard, at + kRamp) << "more than the fade of the device's beginning is missing";
  EXPECT_GE(heard, at);
}

TEST_F(TransportSound, ABufferChangeDoesNotClick) {
  play_tone();
  EXPECT_LE(clicks_of([this] { rig.controls().BufferSwitch.move(1); }), kNoClick);
}

TEST_F(TransportSound, ClosingThePanelFadesToSilence) {
  play_tone();
  rig.player().unload();
  EXPECT_LE(click(rig.sound(), rig.frames() - 2000, rig.frames() + 200), kNoClick);
}

TEST_F(TransportSound, MovesOfVolumeDoNotClick) {
  play_tone();
  for (const int volume : {0, 32768, 20'000, 19'000, 1})
    EXPECT_LE(clicks_of([&] { rig.controls().Volume.move(volume); }), kNoClick) << volume;
}

TEST_F(TransportSound, MovesOfPitchDoNotClick) {
  play_tone();
  for (const int pitch : {5, 6, -3, -20, 20, 0, 1, 0})
    EXPECT_LE(clicks_of([&] { rig.controls().SliderP.move(pitch); }, 500), kNoClick) << pitch;
}

TEST_F(TransportSound, MovesOfTheEqualizerDoNotClick) {
  play_tone();
  for (const int gain : {-12, 12, 0}) {
    EXPECT_LE(clicks_of([&] { rig.controls().sl0[5].move(gain); }), kNoClick) << gain;
    EXPECT_LE(clicks_of([&] { rig.controls().Bypass.move(gain == 12 ? 0 : 1); }), kNoClick) << gain;
  }
}

TEST_F(TransportSound, AMuteAndAnUnmuteInTheMiddleDoNotClick) {
  play_tone();
  EXPECT_LE(clicks_of([this] { rig.mixer().put_Mute(0, true); }), kNoClick);
  rig.deck(0).put_Position(3000);
  EXPECT_LE(clicks_of([this] { rig.mixer().put_Mute(0, false); }), kNoClick);
}

TEST(Click, IsFoundWhereASoundBreaksOff) {
  std::vector<Sample16> sound(4000);
  for (std::size_t i = 0; i < 2000; ++i) sound[i].left = 3000;
  EXPECT_GT(click(sound, 1000, 3000), 0.01);
  EXPECT_LT(click(sound, 200, 1000), 1e-4);
}

}  // namespace
}  // namespace tandem::test
