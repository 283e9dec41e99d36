// Files and folders dragged from another program and dropped on the panel, as from a file manager.
#pragma once

#include <string>
#include <vector>

#include "app/real_player.h"

namespace tandem::test {

class DraggedFiles {
 public:
  explicit DraggedFiles(const Desktop& desktop) : desktop_(desktop) {}
  // On the panel where it stands after its start. False if the other program does not show up.
  bool drop(const std::vector<std::string>& paths);

 private:
  const Desktop& desktop_;
  TempDirectory files_;
  ChildProcess source_;
};

}  // namespace tandem::test
