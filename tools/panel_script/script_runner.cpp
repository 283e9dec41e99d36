#include "tools/panel_script/script_runner.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <filesystem>

#include "base/text.h"
#include "engine/read/song_measure.h"
#include "script/unknown_word.h"
#include "tools/panel_script/script_words.h"

namespace tandem {

namespace {

template <class Number = std::int32_t>
Number number(const std::string& word) {
  Number value = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
  if (error != std::errc{} || end != word.data() + word.size()) throw UnknownWord(word);
  return value;
}

std::vector<std::int32_t> numbers(const std::vector<std::string>& words, std::size_t from) {
  std::vector<std::int32_t> values;
  for (std::size_t i = from; i < words.size(); ++i) values.push_back(number(words[i]));
  return values;
}

std::string absolute(const std::string& path) {
  return path.starts_with(kPathSeparator) ? path : std::filesystem::current_path().string() + kPathSeparator + path;
}

}  // namespace

ScriptRunner::ScriptRunner(SimulatedPlayer& player, std::ostream& out)
    : player_(player), out_(out), names_(player.program) {
  add_commands();
  add_moves();
}

void ScriptRunner::add_commands() {
  commands_["start"] = {1, [this](const Words&) { player_.load(); }};
  commands_["close"] = {1, [this](const Words&) { player_.unload(); }};
  commands_["files"] = {2, [this](const Words& words) { choose_files(words); }};
  commands_["cancel"] = {1, [this](const Words&) { player_.dialog.answers.emplace_back(); }};
  commands_["run"] = {2, [this](const Words& words) { player_.run(number<std::int64_t>(words[1])); }};
  commands_["print"] = {2, [this](const Words& words) { print(words); }};
  commands_["probe"] = {2, [this](const Words& words) { probe(words); }};
  commands_["echo"] = {1, [this](const Words& words) { echo(words); }};
}

void ScriptRunner::add_moves() {
  const PanelMoves& moves = names_.moves();
  commands_["click"] = {2, [&moves](const Words& words) { moves.click(words[1]); }};
  commands_["press"] = {2, [&moves](const Words& words) { moves.press(words[1]); }};
  commands_["release"] = {2, [&moves](const Words& words) { moves.release(words[1]); }};
  commands_["select"] = {3, [&moves](const Words& words) { moves.select(words[1], number(words[2])); }};
  commands_["dblclick"] = {3, [&moves](const Words& words) { moves.double_click(words[1], number(words[2])); }};
  commands_["move"] = {3, [&moves](const Words& words) { moves.move(words[1], number(words[2])); }};
  commands_["drag"] = {3, [&moves](const Words& words) { moves.drag(words[1], numbers(words, 2)); }};
  commands_["up"] = {2, [&moves](const Words& words) { moves.up(words[1]); }};
  commands_["down"] = {2, [&moves](const Words& words) { moves.down(words[1]); }};
}

void ScriptRunner::run_line(const std::string& line) {
  const Words words = script_words(line);
  if (words.empty()) return;
  const auto command = commands_.find(words.front());
  if (command == commands_.end()) throw UnknownWord(words.front());
  if (words.size() < command->second.least_words) throw UnknownWord(words.front() + " without what it needs");
  command->second.run(words);
}

// Several files come as the dialog returns them: their directory, then the names in the order given.
void ScriptRunner::choose_files(const Words& words) {
  std::string answer = absolute(words[1]);
  if (words.size() > 2) {
    const std::string directory = answer.substr(0, name_begin(answer));
    // The directory loses its last separator, but the root is nothing else.
    answer = directory.substr(0, std::max<std::size_t>(directory.size(), 2) - 1);
    for (std::size_t i = 1; i < words.size(); ++i) {
      const std::string path = absolute(words[i]);
      if (path.substr(0, name_begin(path)) != directory) throw UnknownWord(words[i] + " (another directory)");
      answer += '\0' + path.substr(directory.size());
    }
  }
  player_.dialog.answers.push_back(answer);
}

void ScriptRunner::print(const Words& words) {
  for (std::size_t i = 1; i < words.size(); ++i) {
    const std::string value = names_.value(words[i]);
    out_ << words[i] << '=' << value << '\n';
  }
}

void ScriptRunner::probe(const Words& words) {
  for (std::size_t i = 1; i < words.size(); ++i) {
    const auto song = measure_song(words[i]);
    out_ << words[i] << '\t' << milliseconds_of(song->length) << '\t' << (song->opens ? "ok" : "refused") << '\n';
  }
}

void ScriptRunner::echo(const Words& words) {
  for (std::size_t i = 1; i < words.size(); ++i) out_ << (i > 1 ? " " : "") << words[i];
  out_ << '\n';
}

}  // namespace tandem
