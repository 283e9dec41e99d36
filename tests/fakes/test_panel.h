// The whole panel over fakes, in a directory of its own, with time that stands still until it is advanced.
// Link support with it.
#pragma once

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/fake_dialog.h"
#include "fakes/fake_sound.h"
#include "shell/program.h"
#include "support/temp_directory.h"

namespace tandem::test {

// Capitals for ASCII letters, one to one.
inline std::string ascii_upper_case(std::string_view text) {
  std::string capitals(text);
  std::transform(capitals.begin(), capitals.end(), capitals.begin(),
                 [](char letter) { return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 32) : letter; });
  return capitals;
}

class TestPanel {
 public:
  TempDirectory directory;
  FakeSound sound;
  FakeDialog dialog;
  std::string time_of_day = "12:34:56";
  std::vector<std::string> messages;  // shown to the user
  std::vector<RuntimeErrorKind> silent_errors;

  Program program{[this](TimerQueue& timers) { return sound.make_graph(timers); }, environment()};
  PanelControls& controls = program.controls;
  RunState& state = program.state;

  TestPanel() {
    program.ended_early.connect([this](const RuntimeError& error) { silent_errors.push_back(error.kind()); });
  }

  // A song that readers know; then chosen alone in the song dialog.
  void add_song(const std::string& path, std::int32_t length_ms) {
    sound.files.lengths[path] = length_ms;
    choose(path);
  }
  void choose(const std::string& answer) {
    dialog.answers.push_back(answer);
    controls.LoadSong.click.raise();
  }
  // Songs /music/a.mp3, /music/b.mp3 ..., numbered beyond the alphabet.
  void add_songs(int count) {
    for (int i = 0; i < count; ++i) add_song(song_path(i), song_length(i));
  }
  static std::int32_t song_length(int index) { return 200000 - index * 500; }
  static std::string song_path(int index) {
    return "/music/" + (index < 26 ? std::string(1, static_cast<char>('a' + index)) : std::to_string(index)) + ".mp3";
  }

  void select(std::int32_t line) { controls.PlayList.user_select(line); }
  void tick() { program.sound.MixTimer->tick.raise(); }
  void advance(std::int64_t milliseconds) {  // in steps of 10 ms, so that no tick is left out
    for (std::int64_t end = program.timers.now() + milliseconds; program.timers.now() < end;)
      program.timers.advance(std::min(program.timers.now() + 10, end));
  }

  std::vector<std::string> lines(const ListBox& list, std::int32_t first = 0) const {
    std::vector<std::string> all;
    for (std::int32_t i = first; i < list.ListCount(); ++i) all.push_back(list.List(i));
    return all;
  }

 private:
  Environment environment() {
    return {directory.path(), [this] { return time_of_day; }, ascii_upper_case,
            [this](const std::string& text) { messages.push_back(text); }, dialog};
  }
};

}  // namespace tandem::test
