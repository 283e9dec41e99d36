#include "program/random_lists.h"

#include <array>
#include <filesystem>

#include "program/signatures.h"
#include "support/bytes.h"
#include "support/wav_writer.h"

namespace tandem::test {

namespace {

constexpr double kNoisePeak = 0.2;
constexpr std::size_t kLongestRun = 10;  // of songs that cannot be played

unsigned below(std::mt19937& random, unsigned bound) { return static_cast<unsigned>(random() % bound); }

Bytes noise_file(unsigned seed, Frames frames) {
  return wav_file(full_noise(seed, frames, kNoisePeak), Encoding::kInt16);
}

SongKind random_playable(std::mt19937& random) {
  constexpr std::array kKinds{SongKind::kGood, SongKind::kGood,      SongKind::kGood,
                              SongKind::kTiny, SongKind::kTruncated, SongKind::kCutLater};
  return kKinds.at(below(random, kKinds.size()));
}

SongKind random_unplayable(std::mt19937& random) {
  constexpr std::array kKinds{SongKind::kMissing,      SongKind::kGarbage,      SongKind::kMissingLater,
                              SongKind::kGarbageLater, SongKind::kMissingLater, SongKind::kGarbageLater};
  return kKinds.at(below(random, kKinds.size()));
}

std::vector<SongKind> random_kinds(std::mt19937& random) {
  std::vector<SongKind> kinds;
  const std::size_t size = 3 + below(random, 12);
  while (kinds.size() < size) {
    for (unsigned n = 1 + below(random, 3); n > 0; --n) kinds.push_back(random_playable(random));
    const unsigned run = below(random, 4) == 0 ? 1 + below(random, kLongestRun) : below(random, 3);
    for (unsigned n = 0; n < run; ++n) kinds.push_back(random_unplayable(random));
  }
  if (below(random, 4) == 0) kinds.erase(kinds.begin());  // one list in four may begin with any song
  return kinds;
}

}  // namespace

bool playable(SongKind kind) { return kind <= SongKind::kCutLater; }

std::string RandomList::text() const {
  constexpr std::array kNames{"good", "tiny", "truncated", "cut", "missing", "garbage", "gone", "overwritten"};
  std::string text = "lead " + std::to_string(lead) + (presses_next ? ", Next" : "") + ":";
  for (const ListedSong& song : songs) text += std::string(" ") + kNames.at(static_cast<std::size_t>(song.kind));
  return text;
}

RandomLists::RandomLists() { make_pool(); }

void RandomLists::make_pool() {
  unsigned seed = 1000;
  const auto keep = [this, &seed](const std::string& name, const Bytes& bytes) {
    write_file(pool_.file(name), bytes);
    ++seed;
    return pool_.file(name);
  };
  for (const int ms : {60, 150, 270, 400, 700, 1000, 1100, 1700, 2500, 3000})
    good_.push_back(keep(std::to_string(ms) + ".wav", noise_file(seed, frames_of(ms))));
  for (const int frames : {1, 2, 100, 440, 441, 442, 882})
    tiny_.push_back(keep("tiny" + std::to_string(frames) + ".wav", noise_file(seed, frames)));
  const Bytes whole = noise_file(seed, frames_of(2000));
  keep("truncated.wav", slice(whole, 0, whole.size() / 3));
  keep("cut.wav", slice(whole, 0, whole.size() / 4));
  keep("garbage.mp3", text_bytes("This is no music.\n"));
}

std::string RandomLists::pick_good(std::mt19937& random) const {
  return good_.at(below(random, static_cast<unsigned>(good_.size())));
}

ListedSong RandomLists::make_song(std::mt19937& random, SongKind kind, std::size_t place) const {
  ListedSong song{kind, links_.file(std::to_string(place) + ".wav"), {}};
  std::string now = pick_good(random);
  switch (kind) {
    case SongKind::kGood:
      song.becomes = now;
      break;
    case SongKind::kTiny:
      now = song.becomes = tiny_.at(below(random, static_cast<unsigned>(tiny_.size())));
      break;
    case SongKind::kTruncated:
      now = song.becomes = pool_.file("truncated.wav");
      break;
    case SongKind::kCutLater:
      now = pool_.file("2500.wav");
      song.becomes = pool_.file("cut.wav");
      break;
    case SongKind::kMissing:
      now.clear();
      break;
    case SongKind::kGarbage:
      now = song.becomes = pool_.file("garbage.mp3");
      break;
    case SongKind::kMissingLater:
      break;
    case SongKind::kGarbageLater:
      song.becomes = pool_.file("garbage.mp3");
      break;
  }
  if (!now.empty()) std::filesystem::create_symlink(now, song.path);
  return song;
}

RandomList RandomLists::make(unsigned k) {
  for (const auto& entry : std::filesystem::directory_iterator(links_.path())) std::filesystem::remove(entry.path());
  std::mt19937 random(k);
  constexpr std::array kLeads{280, 1000, 2500, 3500};
  RandomList list{kLeads.at(below(random, kLeads.size())), k % 2 == 1, {}};
  for (const SongKind kind : random_kinds(random)) list.songs.push_back(make_song(random, kind, list.songs.size()));
  return list;
}

void RandomLists::spoil(const RandomList& list) {
  for (const ListedSong& song : list.songs) {
    std::filesystem::remove(song.path);
    if (!song.becomes.empty()) std::filesystem::create_symlink(song.becomes, song.path);
  }
}

}  // namespace tandem::test
