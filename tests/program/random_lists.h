// Random lists of songs, many of which cannot be played. List k (1, 2, ...) is made from the seed k alone: the standard
// generator mt19937 and no distribution of the library, so that every machine has the same lists. Odd lists are those
// in which Next is pressed.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "support/temp_directory.h"

namespace tandem::test {

enum class SongKind {
  kGood,          // 60 ms to 3 s
  kTiny,          // 1 frame to 20 ms
  kTruncated,     // the file ends before its header says
  kCutLater,      // cut after it was added: shorter than the list believes
  kMissing,       // when it is added
  kGarbage,       // no sound file at all
  kMissingLater,  // gone after it was added
  kGarbageLater,  // written over after it was added
};

struct ListedSong {
  SongKind kind = SongKind::kGood;
  std::string path;
  std::string becomes;  // what the path leads to once the list is loaded; empty: nothing
};

struct RandomList {
  int lead = 0;  // ms
  bool presses_next = false;
  std::vector<ListedSong> songs;
  std::string text() const;  // for a message
};

bool playable(SongKind kind);

class RandomLists {
 public:
  RandomLists();

  // Makes the files of list k, in place of those of the list before.
  RandomList make(unsigned k);
  // What happens to the files after they were added.
  static void spoil(const RandomList& list);

 private:
  std::string pick_good(std::mt19937& random) const;
  ListedSong make_song(std::mt19937& random, SongKind kind, std::size_t place) const;
  void make_pool();

  TempDirectory pool_;   // sounds, made once
  TempDirectory links_;  // what a list names
  std::vector<std::string> good_;
  std::vector<std::string> tiny_;
};

}  // namespace tandem::test
