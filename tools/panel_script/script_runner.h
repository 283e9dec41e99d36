// Carries out the commands of a script on the whole player in simulated time.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "script/panel_names.h"
#include "simulation/simulated_player.h"

namespace tandem {

class ScriptRunner {
 public:
  // Whatever a script prints goes to `out`.
  ScriptRunner(SimulatedPlayer& player, std::ostream& out);

  // One line. Throws UnknownWord for what it does not know, RuntimeError for what ends the program.
  void run_line(const std::string& line);

 private:
  using Words = std::vector<std::string>;
  struct Command {
    std::size_t least_words;
    std::function<void(const Words&)> run;
  };

  void add_commands();
  void add_moves();
  void choose_files(const Words& paths);
  void print(const Words& expressions);
  void probe(const Words& words);
  void echo(const Words& words);

  SimulatedPlayer& player_;
  std::ostream& out_;
  PanelNames names_;
  std::map<std::string, Command> commands_;
};

}  // namespace tandem
