#include "engine/pitch/onset_detector.h"

#include <gtest/gtest.h>

#include "engine/pitch/pitch_signals.h"
#include "engine/pitch/pitch_songs.h"

namespace tandem {
namespace {

std::vector<Frames> onsets_of(const std::vector<StereoFrame>& sound) {
  SlidingWindow window(sound.size() + 10);
  window.restart(-10);
  window.add_silence(10);
  window.add(sound);
  OnsetDetector detector;
  detector.restart(0);
  detector.scan(window, window.end());
  return {detector.onsets().begin(), detector.onsets().end()};
}

// Without the very first one: a sound that starts with the song.
std::vector<Frames> later_onsets(const std::vector<StereoFrame>& sound) {
  std::vector<Frames> onsets = onsets_of(sound);
  if (!onsets.empty() && onsets.front() < 441) onsets.erase(onsets.begin());
  return onsets;
}

TEST(OnsetDetector, FindsASoundThatStartsInSilenceWithinABlock) {
  std::vector<StereoFrame> sound(20000);
  const std::vector<StereoFrame> tone = tones(11000, {441.0});
  std::copy(tone.begin(), tone.end(), sound.begin() + 9000);
  ASSERT_EQ(onsets_of(sound).size(), 1U);
  EXPECT_NEAR(static_cast<double>(onsets_of(sound).front()), 9000.0, static_cast<double>(OnsetDetector::kBlock));
}

TEST(OnsetDetector, FindsAClickInAChord) {
  std::vector<StereoFrame> sound = chord(1.0);
  sound[20000].left += 0.15F;
  const std::vector<Frames> onsets = later_onsets(sound);
  ASSERT_EQ(onsets.size(), 1U);
  EXPECT_NEAR(static_cast<double>(onsets.front()), 20000.0, static_cast<double>(OnsetDetector::kBlock));
}

TEST(OnsetDetector, FindsEveryHatAndDrum) {
  for (const AttackSong& song : {hats_in_music(), drums_in_music()}) {
    const std::vector<StereoFrame> start(song.sound.begin(), song.sound.begin() + 3 * kSampleRate);
    const std::vector<Frames> onsets = onsets_of(start);
    for (const double time : song.times) {
      if (time > 2.9) break;
      const auto at = static_cast<Frames>(time * kSampleRate);
      EXPECT_TRUE(std::any_of(onsets.begin(), onsets.end(), [at](Frames o) { return std::abs(o - at) < 100; })) << time;
    }
  }
}

TEST(OnsetDetector, ASteadySoundHasNoOnsets) {
  EXPECT_TRUE(later_onsets(tones(44100, {40.0})).empty());
  EXPECT_TRUE(later_onsets(tones(44100, {8000.0})).empty());
  EXPECT_TRUE(later_onsets(noise(44100)).empty());
  EXPECT_TRUE(later_onsets(chord(1.0)).empty());
  EXPECT_TRUE(onsets_of(std::vector<StereoFrame>(44100)).empty());
}

TEST(OnsetDetector, OneAttackIsFoundOnce) {
  std::vector<StereoFrame> sound(20000);
  for (std::size_t i = 0; i < 300; ++i) sound[10000 + i].left = 0.001F * static_cast<float>(i);
  EXPECT_EQ(onsets_of(sound).size(), 1U);
}

// The window moves on while nothing is decided, as when the shifter returns to unison for a long time.
TEST(OnsetDetector, WhatTheWindowHasDroppedIsPassedOver) {
  constexpr Frames kBegin = 100'000;
  SlidingWindow window(5000);
  window.restart(kBegin);
  window.add_silence(2000);
  window.add(noise(1000));
  OnsetDetector detector;
  detector.restart(0);
  detector.scan(window, window.end());
  ASSERT_EQ(detector.onsets().size(), 1U);
  EXPECT_NEAR(static_cast<double>(detector.onsets().front()), kBegin + 2000.0,
              static_cast<double>(OnsetDetector::kBlock));
}

TEST(OnsetDetector, ForgetsTheOnsetsBeforeAFrameAndKeepsTheLatest) {
  OnsetDetector detector;
  SlidingWindow window(100000);
  window.restart(-10);
  window.add_silence(10);
  std::vector<StereoFrame> clicks(80000);
  for (std::size_t at = 2000; at < clicks.size(); at += 2000) clicks[at].left = 0.5F;
  window.add(clicks);
  detector.restart(0);
  detector.scan(window, 20000);
  EXPECT_EQ(detector.onsets().size(), 9U);
  detector.forget(9900);
  EXPECT_EQ(detector.onsets().size(), 5U);
  EXPECT_NEAR(static_cast<double>(detector.onsets().front()), 10000.0, 32.0);
  detector.scan(window, 80000);
  EXPECT_EQ(detector.onsets().size(), OnsetDetector::kMost);
  EXPECT_NEAR(static_cast<double>(detector.onsets().back()), 78000.0, 32.0);
}

}  // namespace
}  // namespace tandem
