#include "support/song_check.h"

#include <algorithm>
#include <random>

namespace tandem::test {
namespace {

constexpr int kSeeks = 300;
constexpr Frames kFramesAfterSeek = 500;

void try_seek(SongSource& source, Frames frame, SongCheck& check) {
  Sound out(kFramesAfterSeek);
  source.seek(frame);
  const auto got = static_cast<Frames>(source.read(out));
  if (got != std::clamp<Frames>(check.length - frame, 0, kFramesAfterSeek)) {
    ++check.misplaced;
    return;
  }
  const auto reference = std::span(check.sound).subspan(static_cast<std::size_t>(frame), static_cast<std::size_t>(got));
  check.difference = std::max(check.difference, greatest_difference(reference, out));
}

void try_seeks(SongSource& source, SongCheck& check) {
  std::mt19937 random(20);
  std::uniform_int_distribution<Frames> anywhere(0, check.length);
  for (int i = 0; i < kSeeks; ++i) try_seek(source, anywhere(random), check);
}

}  // namespace

Sound read_all(SongSource& source) {
  constexpr std::size_t kBlock = 4000;
  Sound sound;
  std::size_t got = kBlock;
  while (got == kBlock) {
    sound.resize(sound.size() + kBlock);
    got = source.read(std::span(sound).last(kBlock));
    sound.resize(sound.size() - kBlock + got);
  }
  return sound;
}

bool SongCheck::consistent(float tolerance) const {
  return opened && length == measured && length == static_cast<Frames>(sound.size()) && misplaced == 0 &&
         difference <= tolerance;
}

SongCheck check_song(const std::string& path) {
  SongCheck check;
  const auto source = SongSource::open(path);
  if (source == nullptr) return check;
  check.opened = true;
  check.sound = read_all(*source);
  check.length = source->length();
  if (const auto measured = measure_song(path)) check.measured = measured->length;
  if (check.length == static_cast<Frames>(check.sound.size())) try_seeks(*source, check);
  return check;
}

SongCheck check_song(const Bytes& file) {
  const TempDirectory directory;
  write_file(directory.file("song"), file);
  return check_song(directory.file("song"));
}

}  // namespace tandem::test
