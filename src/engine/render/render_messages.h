// What crosses between the UI thread and the render thread: plain data in two fixed queues.
#pragma once

#include <cstdint>
#include <deque>

#include "engine/core/frames.h"
#include "engine/core/spsc_queue.h"

namespace tandem {

class PitchShifter;
class SongFeed;

struct RenderCommand {  // UI -> render
  enum class Kind : std::uint8_t { Song, Feed, Mute, Unmute, Finish, Pitch, Volume, FadeOut, FadeIn };
  Kind kind = Kind::Song;
  std::uint8_t deck = 0;
  bool keeps_fade = false;          // Song: a seek within the song, a finishing run goes on
  std::uint32_t generation = 0;     // Song: the generation that the deck waits for from now on
  std::uint32_t epoch = 0;          // Mute, Unmute: numbers the mute changes of the input
  Frames frames = 0;                // Song: where it starts; Finish: how long the fade is
  float value = 0.0F;               // Song, Pitch: the pitch value; Volume: the gain
  PitchShifter* shifter = nullptr;  // Song, Pitch: a new one, owned by the receiver
  SongFeed* feed = nullptr;         // Feed: what brings the song that the deck waits for
};

struct RenderEvent {  // render -> UI
  enum class Kind : std::uint8_t { SongEnded, FadedOut, RetiredShifter };
  Kind kind = Kind::SongEnded;
  std::uint8_t deck = 0;
  std::uint32_t generation = 0;     // SongEnded: of the song that ended
  std::uint32_t epoch = 0;          // SongEnded: of the unmute under which it ended
  PitchShifter* shifter = nullptr;  // RetiredShifter: owned by the receiver
};

using RenderCommandQueue = SpscQueue<RenderCommand, 1024>;
using RenderEventQueue = SpscQueue<RenderEvent, 1024>;

// The UI thread's end of the command queue: commands that do not fit wait here until flush().
class CommandSender {
 public:
  explicit CommandSender(RenderCommandQueue& queue) : queue_(queue) {}
  void send(const RenderCommand& command) {
    waiting_.push_back(command);
    flush();
  }
  void flush() {
    while (!waiting_.empty() && queue_.push(waiting_.front())) waiting_.pop_front();
  }

 private:
  RenderCommandQueue& queue_;
  std::deque<RenderCommand> waiting_;
};

}  // namespace tandem
