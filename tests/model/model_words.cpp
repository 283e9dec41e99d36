// The songs that the events name, and the events in words.
#include "model/model_events.h"

namespace tandem::model {

namespace {

std::string song_word(std::int32_t index) {
  const PoolSong& song = pool_song(index);
  return '"' + std::string(song.path) + "\" " + std::to_string(song.length) + (song.known ? "" : " unknown") +
         (song.refused_by_deck ? " refused" : "");
}

std::string song_words(const Event& event) {
  std::string words;
  for (std::int32_t i = 0; i < event.second && i < 8; ++i) words += ' ' + song_word(event.first + i);
  return words + (event.second > 8 ? " ... (" + std::to_string(event.second) + " of the pool)" : "");
}

constexpr std::string_view kWords[] = {"PLAY",
                                       "PAUSE",
                                       "STOP",
                                       "NEXT",
                                       "UP",
                                       "DOWN",
                                       "TICK",
                                       "POS",
                                       "FIN",
                                       "SEL",
                                       "DBL",
                                       "ADD",
                                       "ADD",
                                       "drop",
                                       "ADD",
                                       "OPEN",
                                       "OPEN saved",
                                       "OPEN missing",
                                       "click SaveList",
                                       "run",
                                       "RESYNC",
                                       "tick Timer",
                                       "tick TimerDelay",
                                       "device lost",
                                       "click lead",
                                       "move BufferSwitch",
                                       "click ShowPlayList",
                                       "press LoadSong",
                                       "release LoadSong",
                                       "press Command2",
                                       "release Command2",
                                       "press SliderP",
                                       "move SliderP",
                                       "release SliderP",
                                       "click Command2",
                                       "press Slider1",
                                       "move Slider1",
                                       "release Slider1",
                                       "move Volume",
                                       "move sl0",
                                       "move Bypass",
                                       "click MMLEDX",
                                       "move MMLEDSpin",
                                       "up MMLEDSpin",
                                       "down MMLEDSpin",
                                       "move MMSwitch",
                                       "click ShowControls",
                                       "click MMPanelX1"};

}  // namespace

const std::vector<PoolSong>& song_pool() {
  static const std::vector<PoolSong> pool{
      {"/m/a.mp3", 200000},
      {"/m/b.mp3", 180000},
      {"/m/c.wav", 2000},
      {"/m/ninechars.mp3", 150000},  // 13 characters
      {"/m/ten__chars.mp3", 3500},   // 14
      {"/m/a long title of a song.mp3", 640000},
      {"/m/not a song.mp3", 0, false},
      {"/m/broken.mp3", 90000, true, true},
      {"/other/a.mp3", 100},
      {"/m/comma, comma.mp3", 61000},
      {"/m/blank at the end.mp3 ", 5000},
      {"/m/    four blanks first.mp3", 7000},
      {"/m/\xC3\xA4\xC3\xB6\xC3\xBC \xE2\x82\xAC.mp3", 8000},
      {"/m/x", 9000},  // a name of one letter
      {"/m/- hyphen.mp3", 280},
      {"/m/nothing.wav", 0},
      {"/m/C:\\back\\slash.mp3", 12345},
      {"/root.mp3", 3600000},
      {"/m/\"quoted\".mp3", 2500},
  };
  return pool;
}

const PoolSong& pool_song(std::int32_t index) {
  const std::vector<PoolSong>& pool = song_pool();
  return pool[static_cast<std::size_t>(index) % pool.size()];
}

std::string chosen_songs(const Event& event) {
  if (event.act == Act::Add || event.second == 1) return std::string(pool_song(event.first).path);
  std::string answer = "/m";
  for (std::int32_t i = 0; i < event.second; ++i) {
    const std::string_view path = pool_song(event.first + i).path;
    answer += '\0' + std::string(path.substr(path.rfind('/') + 1));
  }
  return answer;
}

// Every third field is quoted, some end at a comma, the last line may lack its end.
std::string playlist_bytes(const Event& event) {
  std::string bytes;
  for (std::int32_t i = 0; i < event.second; ++i) {
    const std::string path(pool_song(event.first + i).path);
    const bool quoted = i % 3 == 2 && path.find('"') == std::string::npos;
    bytes += quoted ? '"' + path + '"' : " " + path;
    if (i + 1 < event.second || event.first % 2 == 0) bytes += i % 4 == 3 ? "," : (i % 2 == 0 ? "\r\n" : "\n");
  }
  return bytes;
}

std::string_view time_of_day(std::int32_t index) {
  constexpr std::array<std::string_view, 4> kTimes{"12:34:56", "09:05:00", "9:05", ""};
  return kTimes.at(static_cast<std::size_t>(index) % kTimes.size());
}

std::string event_text(const Event& event) {
  std::string text(kWords[static_cast<std::size_t>(event.act)]);
  switch (event.act) {
    case Act::Add:
      return text + ' ' + song_word(event.first);
    case Act::AddMany:
    case Act::Drop:
    case Act::Open:
      return text + song_words(event);
    default:
      return text + "  # " + std::to_string(event.first) + ' ' + std::to_string(event.second);
  }
}

}  // namespace tandem::model
