#include "app/dragged_files.h"

namespace tandem::test {

// In small steps, so that both programs see the pointer come.
bool DraggedFiles::drop(const std::vector<std::string>& paths) {
  std::vector<std::string> command = {TANDEM_DRAG_SOURCE};
  command.insert(command.end(), paths.begin(), paths.end());
  source_ = ChildProcess(command, files_.file("source.log"));
  const auto visible = [this] { return !desktop_.do_tool({"search", "--onlyvisible", "--name", "^Source$"}).empty(); };
  if (!wait_until(visible)) return false;
  std::vector<std::string> words = {"mousemove", "1000", "750", "mousedown", "1"};
  for (int step = 1; step <= 40; ++step)
    words.insert(words.end(),
                 {"mousemove", std::to_string(1000 - 15 * step), std::to_string(750 - 15 * step), "sleep", "0.02"});
  words.insert(words.end(), {"sleep", "0.3", "mouseup", "1"});
  desktop_.do_tool(words);
  return true;
}

}  // namespace tandem::test
