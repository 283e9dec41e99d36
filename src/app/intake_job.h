// Finds and measures songs on a thread of its own, so that the panel goes on meanwhile: TempFile then answers at once.
// UI thread unless stated otherwise.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/dropped_songs.h"
#include "engine/engine.h"

namespace tandem {

class IntakeJob {
 public:
  enum class Kind {
    Songs,  // chosen in the dialog
    List,   // a saved list, one path: what it names
    Drop    // files and folders
  };
  struct Request {
    Kind kind = Kind::Songs;
    std::vector<std::string> paths;
    std::size_t most = 0;  // Drop: how many songs are wanted
    // Drop: how many where a list is dropped with them, which makes room. List: how many it may have.
    std::size_t most_with_list = 0;
  };
  struct Progress {
    std::size_t done = 0;  // songs
    std::size_t all = 0;   // 0 while they are looked for
    double current = 0;    // share of the present song's file that has been looked at, 0 to 1
  };

  // Begins at once. `finished` is called on the job's thread at its end, not if it was given up before.
  IntakeJob(Request request, std::shared_ptr<MeasuredSongs> songs, std::function<void()> finished);
  // Cancels the work. Waits at most 0.2 s for its thread: one that hangs in a read is left to end by itself.
  ~IntakeJob();
  // Of all of them at once.
  static void cancel(const std::vector<std::unique_ptr<IntakeJob>>& jobs);
  IntakeJob(const IntakeJob&) = delete;
  IntakeJob& operator=(const IntakeJob&) = delete;

  bool finished() const;
  Progress progress() const;
  Dropped found() const;  // Drop, once it has finished

 private:
  struct Work;
  bool wait(std::chrono::milliseconds patience);

  std::shared_ptr<Work> work_;  // with the thread; null once it is cancelled
};

}  // namespace tandem
