// What a song does when the libraries under it fail. Their functions are taken over for this whole program.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <mpg123.h>
#include <sndfile.h>
#include <soxr.h>

#include <atomic>
#include <cmath>
#include <limits>

#include "support/mp3_maker.h"
#include "support/song_check.h"
#include "support/wav_writer.h"

namespace tandem::test {
namespace {

std::atomic<int> resampler_calls_left{-1};  // that succeed; -1: all
std::atomic<bool> seeks_fail{false};
std::atomic<bool> decodes_no_numbers{false};

template <class Function>
Function* next_function(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

class LibraryErrors : public testing::Test {
 protected:
  LibraryErrors() = default;
  ~LibraryErrors() override {
    resampler_calls_left = -1;
    seeks_fail = false;
    decodes_no_numbers = false;
  }
  std::unique_ptr<SongSource> open(const Bytes& content) {
    write_file(directory_.file("song"), content);
    return SongSource::open(directory_.file("song"));
  }

  TempDirectory directory_;
};

TEST_F(LibraryErrors, AResamplerThatFailsEndsTheSong) {
  const auto song = open(wav_file(tones(10.0, 440, 0.3, 48000), Encoding::kInt16));
  Sound block(4096);
  ASSERT_EQ(song->read(block), block.size());
  resampler_calls_left = 3;
  Frames heard = 0;
  for (int i = 0; i < 200; ++i) heard += static_cast<Frames>(song->read(block));
  EXPECT_LT(heard, 10'000);
  resampler_calls_left = -1;
  song->seek(0);
  EXPECT_EQ(song->read(block), block.size()) << "a seek tries again";
}

TEST_F(LibraryErrors, ASeekThatFailsLandsInThePlaceAllTheSame) {
  const Signal signal = music(10.0);
  const auto song = open(wav_file(signal, Encoding::kFloat32));
  const Sound whole = to_stereo(signal);
  constexpr std::size_t kPlace = 5 * kSampleRate;
  seeks_fail = true;
  EXPECT_EQ(song->seek(kPlace), static_cast<Frames>(kPlace));
  const Sound rest = read_all(*song);
  ASSERT_EQ(rest.size(), whole.size() - kPlace);
  EXPECT_LE(greatest_difference(rest, std::span(whole).subspan(kPlace)), 1e-6F);
}

TEST_F(LibraryErrors, WhatIsNoNumberIsSilent) {
  const auto song = open(make_mp3(tones(2.0, 440, 0.3), {"-b", "128"}));
  decodes_no_numbers = true;
  const Sound sound = read_all(*song);
  ASSERT_EQ(sound.size(), 2U * kSampleRate);
  for (const StereoFrame& frame : sound) {
    ASSERT_TRUE(std::isfinite(frame.left));
    ASSERT_TRUE(std::isfinite(frame.right));
  }
}

}  // namespace
}  // namespace tandem::test

extern "C" {

soxr_error_t soxr_process(soxr_t soxr, soxr_in_t in, size_t in_frames, size_t* used, soxr_out_t out, size_t out_frames,
                          size_t* made) {
  auto& left = tandem::test::resampler_calls_left;
  if (left == 0) {
    *used = *made = 0;
    return "malloc failed";
  }
  if (left > 0) --left;
  static auto* const real = tandem::test::next_function<decltype(soxr_process)>("soxr_process");
  return real(soxr, in, in_frames, used, out, out_frames, made);
}

// Fails as after an error of the disk: the library stands anywhere.
sf_count_t sf_seek(SNDFILE* file, sf_count_t frames, int whence) {
  static auto* const real = tandem::test::next_function<decltype(sf_seek)>("sf_seek");
  if (!tandem::test::seeks_fail) return real(file, frames, whence);
  real(file, frames / 2, whence);
  return -1;
}

int mpg123_decode_frame(mpg123_handle* handle, off_t* number, unsigned char** sound, size_t* bytes) {
  static auto* const real = tandem::test::next_function<decltype(mpg123_decode_frame)>("mpg123_decode_frame");
  const int result = real(handle, number, sound, bytes);
  if (tandem::test::decodes_no_numbers && result == MPG123_OK && *bytes >= 3 * sizeof(float)) {
    auto* samples = reinterpret_cast<float*>(*sound);
    samples[0] = std::numeric_limits<float>::quiet_NaN();
    samples[1] = std::numeric_limits<float>::infinity();
    samples[2] = -std::numeric_limits<float>::infinity();
  }
  return result;
}
}
