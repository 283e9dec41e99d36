#include "script/trace_replay.h"

#include <algorithm>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "script/trace_panel.h"
#include "script/unknown_word.h"

namespace tandem {

namespace {

std::vector<std::string> words_of(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

// Every word that is expected must be there; ERR must be there exactly if it is expected.
bool fits(const std::string& expected, const std::string& state) {
  const std::vector<std::string> came = words_of(state);
  const auto has = [](const std::vector<std::string>& words, const std::string& word) {
    return std::find(words.begin(), words.end(), word) != words.end();
  };
  const std::vector<std::string> wanted = words_of(expected);
  return has(wanted, "ERR") == has(came, "ERR") &&
         std::all_of(wanted.begin(), wanted.end(), [&](const std::string& word) { return has(came, word); });
}

class Replay {
 public:
  explicit Replay(std::ostream& out) : out_(out) {}

  void read(const std::string& line) {
    ++line_number_;
    const std::size_t bar = line.find('|');
    const std::vector<std::string> words = words_of(line.substr(0, bar));
    if (words.empty() || words[0].starts_with('#')) return;
    if (words[0] == "trace") {
      end_trace();
      begin_trace(line);
    } else if (!panel_) {
      throw UnknownWord(words[0] + " outside a trace");
    } else if (!failed_ && !prepare(words)) {
      panel_->act(words);
      if (bar != std::string::npos) check(line.substr(0, bar), line.substr(bar + 1));
    }
  }
  void end_trace() {
    if (panel_) ++(failed_ ? count_.failed : count_.passed);
    panel_.reset();
  }
  int line_number() const { return line_number_; }
  TraceCount count() const { return count_; }

 private:
  void begin_trace(const std::string& line) {
    title_ = line;
    failed_ = false;
    panel_ = std::make_unique<TracePanel>();
  }
  bool prepare(const std::vector<std::string>& words) {
    if (words[0] == "lead" && words.size() == 2) {
      panel_->set_lead(to_int16(trace_number(words[1])));
    } else if (words[0] == "song" && (words.size() == 3 || (words.size() == 4 && words[3] == "refused"))) {
      panel_->add_song(words[1], trace_number(words[2]), words.size() == 4);
    } else {
      return false;
    }
    return true;
  }
  void check(const std::string& event, const std::string& expected) {
    const std::string came = panel_->state();
    if (fits(expected, came)) return;
    failed_ = true;
    out_ << title_ << ", line " << line_number_ << ": " << event << "\n  expected" << expected << "\n  came     "
         << came << "\n";
  }

  std::ostream& out_;
  std::unique_ptr<TracePanel> panel_;
  std::string title_;
  bool failed_ = false;
  int line_number_ = 0;
  TraceCount count_;
};

}  // namespace

TraceCount replay_traces(std::istream& traces, std::ostream& out) {
  Replay replay(out);
  try {
    for (std::string line; std::getline(traces, line);) replay.read(line);
  } catch (const std::exception& error) {
    throw UnknownWord("line " + std::to_string(replay.line_number()) + ": " + error.what());
  }
  replay.end_trace();
  out << replay.count().passed << " passed, " << replay.count().failed << " failed\n";
  return replay.count();
}

}  // namespace tandem
