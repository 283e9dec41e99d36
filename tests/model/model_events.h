// What happens to the panel, as data: made at random from a seed, printed in the words of the trace language and, where
// that has none, of the script language.
#pragma once

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace tandem::model {

enum class Act {
  Play,
  Pause,
  Stop,
  Next,
  Up,
  Down,
  Tick,
  Position,   // of deck first: second, in milliseconds
  Finished,   // input first
  Select,     // line first
  Double,     // line first
  Add,        // song first of the pool, alone
  AddMany,    // second songs of the pool, from first on
  Drop,       // the same, dropped on the window
  Cancel,     // the song dialog is cancelled
  Open,       // a playlist file of second fields, from song first of the pool on
  OpenSaved,  // the file that Save writes
  OpenMissing,
  Save,
  Wait,  // first times 10 ms
  Resync,
  Refresh,  // time of day first
  DelayOver,
  DeviceLost,
  Lead,          // lamp first
  BufferSwitch,  // position first
  ShowPlayList,
  LoadSongPress,
  LoadSongRelease,
  ResetPress,
  ResetRelease,
  PitchPress,
  PitchMove,
  PitchRelease,
  PitchReset,
  SeekPress,
  SeekMove,
  SeekRelease,
  Volume,
  Band,  // slider first, value second
  Bypass,
  BoardLamp,
  SpinnerMove,
  SpinnerUp,
  SpinnerDown,
  BoardSwitch,
  ShowControls,
  Size,
  Count
};

struct Event {
  Act act = Act::Count;
  std::int32_t first = 0;
  std::int32_t second = 0;
};

struct PoolSong {
  std::string_view path;
  std::int32_t length = 0;
  bool known = true;             // TempFile takes it
  bool refused_by_deck = false;  // a deck does not
};
const std::vector<PoolSong>& song_pool();
const PoolSong& pool_song(std::int32_t index);  // wraps round

// The dialog's answer for some songs of the pool, and the bytes of a playlist file that names them.
std::string chosen_songs(const Event& event);
std::string playlist_bytes(const Event& event);
std::string_view time_of_day(std::int32_t index);

std::string event_text(const Event& event);
// A random sequence; a small number of them starts with about 200 songs.
std::vector<Event> random_events(std::uint64_t seed);

}  // namespace tandem::model
