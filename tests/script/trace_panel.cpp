#include "script/trace_panel.h"

#include <charconv>
#include <cstddef>
#include <map>

#include "base/whole_file.h"
#include "playlist/list_lines.h"
#include "script/unknown_word.h"

namespace tandem {

namespace {

// Songs of traces lie in the root folder.
std::string path_of(const std::string& name) { return "/" + name; }
std::string name_or_quotes(const std::string& path) { return path.empty() ? "\"\"" : std::string(name_of(path)); }
const char* letter(bool value) { return value ? "T" : "F"; }

}  // namespace

std::int32_t trace_number(const std::string& word) {
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (error != std::errc{} || end != word.data() + word.size()) throw UnknownWord(word);
  return number;
}

TracePanel::TracePanel()
    : program_([this](TimerQueue& timers) { return sound_.make_graph(timers); },
               {directory_.path(), [] { return std::string("12:00"); },
                [](std::string_view text) { return std::string(text); }, [](const std::string& /*text*/) {}, dialog_}) {
  program_.display.song_shown.connect([this](const std::string& file) { shown_ = file; });
  program_.ended_early.connect(
      [this](const RuntimeError& error) { range_error_ = error.kind() == RuntimeErrorKind::Range; });
}

void TracePanel::know(const std::string& name, std::int32_t length) { sound_.files.lengths[path_of(name)] = length; }

void TracePanel::add_song(const std::string& name, std::int32_t length, bool refused) {
  know(name, length);
  if (refused) sound_.files.refused_by_decks.insert(path_of(name));
  const std::int16_t number = ++program_.state.SongCount;
  program_.controls.PlayList.AddItem(LineText(number, path_of(name)));
  program_.controls.ListAux2.AddItem(LineText(number, path_of(name)));
  program_.SongTable.at(number) = {path_of(name), length};
}

void TracePanel::act(const std::vector<std::string>& words) {
  range_error_ = false;
  if (!click(words.at(0)) && !notify(words) && !choose(words)) throw UnknownWord(words.at(0));
}

// Clicks reach a button even while it is disabled.
bool TracePanel::click(const std::string& event) {
  PanelControls& c = program_.controls;
  const std::map<std::string, Button*> buttons{{"PLAY", &c.PLAY},    {"PAUSE", &c.PAUSE}, {"STOP", &c.STOPBtn},
                                               {"NEXT", &c.NextBtn}, {"UP", &c.UpList},   {"DOWN", &c.DownList}};
  const auto found = buttons.find(event);
  if (found == buttons.end()) return false;
  found->second->click.raise();
  return true;
}

bool TracePanel::notify(const std::vector<std::string>& words) {
  const std::string& event = words.at(0);
  if (event == "TICK") {
    program_.sound.MixTimer->tick.raise();
  } else if (event == "RESYNC") {
    program_.sound.ListTimer->tick.raise();
  } else if (event == "POS" && words.size() == 3) {
    sound_.deck.at(static_cast<std::size_t>(trace_number(words[1])))->position = trace_number(words[2]);
  } else if (event == "FIN" && words.size() == 2) {
    sound_.mixer->end_input(trace_number(words[1]));
  } else {
    return false;
  }
  return true;
}

bool TracePanel::choose(const std::vector<std::string>& words) {
  const std::string& event = words.at(0);
  if (event == "SEL" && words.size() == 2) {
    program_.controls.PlayList.user_select(trace_number(words[1]));
  } else if (event == "DBL" && words.size() == 2) {
    program_.controls.PlayList.user_double_click(trace_number(words[1]));
  } else if (event == "ADD" && words.size() == 3) {
    know(words[1], trace_number(words[2]));
    dialog_.answers.push_back(path_of(words[1]));
    program_.controls.LoadSong.click.raise();
  } else if (event == "OPEN" && words.size() % 2 == 1) {
    open_playlist(words);
  } else {
    return false;
  }
  return true;
}

void TracePanel::open_playlist(const std::vector<std::string>& words) {
  std::string text;
  for (std::size_t i = 1; i + 1 < words.size(); i += 2) {
    know(words[i], trace_number(words[i + 1]));
    text += path_of(words[i]) + "\r\n";
  }
  replace_whole_file(directory_.file("trace.m3l"), text);
  dialog_.answers.push_back(directory_.file("trace.m3l"));
  program_.controls.LoadList.click.raise();
}

std::string TracePanel::state() const {
  const RunState& s = program_.state;
  const SoundGraph& sound = program_.sound;
  std::string text = "CS=" + std::to_string(s.CurrentSong) + " AD=" + std::to_string(s.ActiveDeck);
  text += " LI=" + std::to_string(program_.controls.PlayList.ListIndex());
  text += std::string(" MS=") + letter(s.MixStarted != kFalse) + " NL=" + letter(s.NextSongLoaded != kFalse);
  text += std::string(" m=") + letter(sound.WaveMixer->Mute(0)) + letter(sound.WaveMixer->Mute(1));
  text += " f=" + name_or_quotes(sound.AudioFile[0]->FileName()) + "," + name_or_quotes(sound.AudioFile[1]->FileName());
  text += " MT=" + std::to_string(sound.MixTimer->Interval());
  text += std::string(" NB=") + letter(program_.controls.NextBtn.Enabled);
  text += " show=" + name_or_quotes(shown_) + " max=" + std::to_string(program_.controls.Slider1.maximum());
  return text + (range_error_ ? " ERR" : "");
}

}  // namespace tandem
