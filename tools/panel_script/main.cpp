// panel_script [--dir DIR] [--wav OUT.wav] [--log] [SCRIPT]
// panel_script --trace TRACES
// The whole player without a window, a sound device or a clock, driven by a text: see docs/panel_script.md.
// Exit status 0; 1 with the error report if the program ends by a run-time error, or if a trace fails; 2 with one line
// on standard error for a word that it does not know.

#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "base/runtime_error.h"
#include "logged_graph/wav_recorder.h"
#include "script/trace_replay.h"
#include "script/unknown_word.h"
#include "settings/settings_file.h"
#include "simulation/simulated_player.h"
#include "support/temp_directory.h"
#include "tools/panel_script/script_runner.h"

namespace {

using tandem::UnknownWord;

struct Options {
  std::string directory;
  std::string wav;
  std::string script = "-";
  std::string traces;
  bool log = false;
};

Options read_options(int argc, char** argv) {
  Options options;
  for (int i = 1; i < argc; ++i) {
    const std::string_view word = argv[i];
    const auto next = [&] {
      if (i + 1 == argc) throw UnknownWord(std::string(word) + " without what it needs");
      return std::string(argv[++i]);
    };
    if (word == "--dir") {
      options.directory = next();
    } else if (word == "--wav") {
      options.wav = next();
    } else if (word == "--trace") {
      options.traces = next();
    } else if (word == "--log") {
      options.log = true;
    } else if (word.starts_with("--")) {
      throw UnknownWord(std::string(word));
    } else {
      options.script = word;
    }
  }
  return options;
}

std::ifstream opened(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw tandem::RuntimeError(tandem::RuntimeErrorKind::FileNotFound, path);
  return file;
}

int replay(const std::string& path) {
  std::ifstream traces = opened(path);
  return tandem::replay_traces(traces, std::cout).failed == 0 ? 0 : 1;
}

// A new program directory with the factory settings, gone at the end.
class ProgramDirectory {
 public:
  explicit ProgramDirectory(const std::string& given) : path_(given) {
    if (!path_.empty()) return;
    path_ = temporary_.emplace().path();
    std::ofstream(temporary_->file("TP.inf"), std::ios::binary) << tandem::factory_settings();
  }
  const std::string& path() const { return path_; }

 private:
  std::string path_;
  std::optional<tandem::test::TempDirectory> temporary_;
};

// A word that is not known, and the line that it stands in.
struct ScriptError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

void run_script(std::istream& script, tandem::ScriptRunner& runner) {
  std::string line;
  for (int number = 1; std::getline(script, line); ++number) {
    try {
      runner.run_line(line);
    } catch (const UnknownWord& error) {
      throw ScriptError("line " + std::to_string(number) + ": " + error.what());
    }
  }
}

int play(const Options& options) {
  const ProgramDirectory directory(options.directory);
  std::unique_ptr<tandem::WavRecorder> wav;
  if (!options.wav.empty()) wav = std::make_unique<tandem::WavRecorder>(options.wav);
  tandem::SimulatedPlayer::Options player_options;
  player_options.directory = directory.path();
  if (wav) {
    player_options.sink =
        tandem::sink_of_16_bits([&wav](std::span<const tandem::Sample16> frames) { wav->write(frames); });
  }
  if (options.log) player_options.log = [](const std::string& operation) { std::cout << operation << '\n'; };
  player_options.show_message = [](const std::string& text) { std::cerr << "message: " << text << '\n'; };
  tandem::SimulatedPlayer player(player_options);
  tandem::ScriptRunner runner(player, std::cout);
  if (options.script == "-") {
    run_script(std::cin, runner);
  } else {
    std::ifstream script = opened(options.script);
    run_script(script, runner);
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  try {
    const Options options = read_options(argc, argv);
    return options.traces.empty() ? play(options) : replay(options.traces);
  } catch (const UnknownWord& error) {
    std::cerr << "panel_script: " << error.what() << '\n';
    return 2;
  } catch (const ScriptError& error) {
    std::cerr << "panel_script: " << error.what() << '\n';
    return 2;
  } catch (const std::exception& error) {
    std::cerr << "tandem: " << error.what() << '\n';
    return 1;
  }
}
