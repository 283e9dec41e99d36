// Files of real encoders against what they were made of: how many frames too late the first sample of the source is
// heard, and how many frames are heard after its last one. Prints one table.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>

#include "engine/read/song_source.h"
#include "support/program.h"
#include "support/song_check.h"
#include "support/wav_writer.h"

namespace tandem::test {
namespace {

constexpr double kSeconds = 2.4;    // a whole number of frames at every rate
constexpr Frames kWindow = 12'000;  // compared at either end
constexpr Frames kReach = 3000;

enum class Noted { kEdges, kNothing };  // what the file says of the encoder's delay and padding

struct Encoded {
  std::string encoder;               // lame, ffmpeg or sox
  std::vector<std::string> options;  // of it
  int rate = kSampleRate;
  std::string kind = "mp3";  // the file's ending
  Noted noted = Noted::kEdges;
};

std::string text_of(const Encoded& each) {
  std::string text = each.encoder;
  for (const std::string& option : each.options) text += " " + option;
  return text + (each.kind == "mp3" ? "" : " " + each.kind);
}

std::string make(const Encoded& each, const TempDirectory& directory) {
  const std::string in = directory.file("in.wav");
  std::string out = directory.file("out." + each.kind);
  write_file(in, wav_file(music(kSeconds, each.rate), Encoding::kInt16));
  std::vector<std::string> words = {each.encoder};
  if (each.encoder == "lame") words.emplace_back("--quiet");
  if (each.encoder == "ffmpeg") words.insert(words.end(), {"-nostdin", "-loglevel", "error", "-i"});
  if (each.encoder != "lame") words.push_back(in);
  words.insert(words.end(), each.options.begin(), each.options.end());
  if (each.encoder == "lame") words.push_back(in);
  words.push_back(out);
  run_program(words);
  return out;
}

class Gapless : public testing::TestWithParam<Encoded> {
 protected:
  static void SetUpTestSuite() {
    std::printf("%-46s %6s %13s %13s\n", "encoder", "rate", "first sample", "last sample");
  }

  void SetUp() override {
    const TempDirectory directory;
    const auto song = SongSource::open(make(GetParam(), directory));
    ASSERT_NE(song, nullptr);
    const Sound sound = read_all(*song);
    ASSERT_EQ(song->length(), static_cast<Frames>(sound.size()));
    const Sound source = to_stereo(music(static_cast<double>(std::lround(kSeconds * kSampleRate)) / kSampleRate));
    const auto size = static_cast<Frames>(source.size());
    first_ = lag(source, sound, kReach, kWindow, kReach);
    const Frames lag_at_end = lag(source, sound, size - kWindow - kReach, kWindow, kReach);
    last_ = static_cast<Frames>(sound.size()) - size - lag_at_end;
    std::printf("%-46s %6d %+13lld %+13lld\n", text_of(GetParam()).c_str(), GetParam().rate,
                static_cast<long long>(first_), static_cast<long long>(last_));
  }

  Frames first_ = 0;  // of the source, heard so many frames late
  Frames last_ = 0;   // so many frames are heard after it
};

TEST_P(Gapless, FirstAndLastSampleStandWhereTheyBelong) {
  if (GetParam().noted == Noted::kEdges) {
    EXPECT_EQ(first_, 0);
    EXPECT_EQ(last_, 0);
    return;
  }
  // Without a note what the encoder put in cannot be known. It stays, but nothing else comes in and nothing is lost.
  const Frames frame = Frames{1152} * kSampleRate / GetParam().rate;
  EXPECT_GE(first_, 0);
  EXPECT_LE(first_, frame + 529 * kSampleRate / GetParam().rate);
  EXPECT_GE(last_, GetParam().kind == "mp2" ? -frame : -1);  // such encoders may drop what fills no frame
  EXPECT_LE(last_, 2 * frame);
}

std::vector<Encoded> all_encoded() {
  std::vector<Encoded> all;
  const std::vector<std::vector<std::string>> of_lame = {{"-b", "320"},
                                                         {"-b", "128"},
                                                         {"-b", "192", "-p"},
                                                         {"-b", "128", "--nores"},
                                                         {"-V0"},
                                                         {"-V2"},
                                                         {"-V9"},
                                                         {"-b", "128", "-m", "m"},
                                                         {"--abr", "160"},
                                                         {"--abr", "90"},
                                                         {"--freeformat", "-b", "83"},
                                                         {"--freeformat", "-b", "400"},
                                                         {"-q0", "-V4"},
                                                         {"--preset", "insane"}};
  const std::vector<std::vector<std::string>> of_ffmpeg = {{"-b:a", "320k"},
                                                           {"-b:a", "128k"},
                                                           {"-q:a", "0"},
                                                           {"-q:a", "5"},
                                                           {"-abr", "1", "-b:a", "160k"},
                                                           {"-b:a", "128k", "-reservoir", "0"}};
  for (const auto& options : of_lame) all.push_back({"lame", options});
  for (const auto& options : of_ffmpeg) all.push_back({"ffmpeg", options});
  for (const int rate : {48000, 32000, 24000, 22050, 16000, 12000, 11025, 8000}) {
    all.push_back({"lame", {"-b", "64"}, rate});
    all.push_back({"lame", {"-V4", "--resample", std::to_string(rate)}, rate});
    all.push_back({"ffmpeg", {"-b:a", "64k"}, rate});
  }
  const std::vector<Encoded> without = {{"lame", {"-b", "128", "-t"}},
                                        {"lame", {"-V2", "-t"}},
                                        {"ffmpeg", {"-b:a", "128k", "-write_xing", "0"}},
                                        {"sox", {"-C", "128"}},
                                        {"sox", {"-C", "-4.2"}},
                                        {"sox", {"-C", "64"}, 22050},
                                        {"ffmpeg", {"-b:a", "192k"}, 44100, "mp2"},
                                        {"ffmpeg", {"-b:a", "192k"}, 48000, "mp2"},
                                        {"sox", {"-C", "192"}, 44100, "mp2"}};
  for (Encoded each : without) {
    each.noted = Noted::kNothing;
    all.push_back(each);
  }
  return all;
}

INSTANTIATE_TEST_SUITE_P(Encoders, Gapless, testing::ValuesIn(all_encoded()), [](const auto& each) {
  std::string name = text_of(each.param) + " " + std::to_string(each.param.rate);
  for (char& letter : name) {
    if (std::isalnum(static_cast<unsigned char>(letter)) == 0) letter = '_';
  }
  return name;
});

}  // namespace
}  // namespace tandem::test
