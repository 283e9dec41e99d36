#include "engine/decode/encoded_songs.h"

#include <cmath>
#include <stdexcept>

#include "engine/read/song_source.h"
#include "support/program.h"
#include "support/song_check.h"
#include "support/wav_writer.h"

namespace tandem::test {

namespace {

constexpr double kSeconds = 2.4;    // a whole number of frames at every rate
constexpr Frames kWindow = 12'000;  // compared at either end
constexpr Frames kReach = 3000;

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

}  // namespace

std::string text_of(const Encoded& each) {
  std::string text = each.encoder;
  for (const std::string& option : each.options) text += " " + option;
  return text + (each.kind == "mp3" ? "" : " " + each.kind);
}

Edges edges_of(const Encoded& each) {
  const TempDirectory directory;
  const auto song = SongSource::open(make(each, directory));
  if (song == nullptr) throw std::runtime_error("it cannot be opened");
  const Sound sound = read_all(*song);
  if (song->length() != static_cast<Frames>(sound.size()))
    throw std::runtime_error("its length is not that of its sound");
  const Sound source = to_stereo(music(static_cast<double>(std::lround(kSeconds * kSampleRate)) / kSampleRate));
  const auto size = static_cast<Frames>(source.size());
  const Frames lag_at_end = lag(source, sound, size - kWindow - kReach, kWindow, kReach);
  return {lag(source, sound, kReach, kWindow, kReach), static_cast<Frames>(sound.size()) - size - lag_at_end};
}

std::vector<Encoded> encoded_songs() {
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

}  // namespace tandem::test
