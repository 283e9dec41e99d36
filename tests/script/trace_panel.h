// The panel under a trace: the whole program over the recording fakes; nothing moves but by the trace's events.
#pragma once

#include <string>
#include <vector>

#include "fakes/fake_dialog.h"
#include "fakes/fake_sound.h"
#include "shell/program.h"
#include "support/temp_directory.h"

namespace tandem {

class TracePanel {
 public:
  TracePanel();

  void set_lead(std::int16_t milliseconds) { program_.state.MixTimeMs = milliseconds; }
  // A song in the list from the start. One that is refused can't be opened on a deck.
  void add_song(const std::string& name, std::int32_t length, bool refused);

  // An event and its arguments: PLAY, TICK, POS d p ... Throws UnknownWord.
  void act(const std::vector<std::string>& words);

  // CS=1 AD=0 LI=0 MS=F NL=F m=FT f=A,"" MT=10 NB=T show=A max=200000, and ERR if a range error ended the last event.
  std::string state() const;

 private:
  bool click(const std::string& event);
  bool notify(const std::vector<std::string>& words);
  bool choose(const std::vector<std::string>& words);
  void open_playlist(const std::vector<std::string>& words);
  void know(const std::string& name, std::int32_t length);

  test::TempDirectory directory_;
  test::FakeSound sound_;
  test::FakeDialog dialog_;
  Program program_;
  std::string shown_;
  bool range_error_ = false;
};

// A whole number of a trace; throws UnknownWord.
std::int32_t trace_number(const std::string& word);

}  // namespace tandem
