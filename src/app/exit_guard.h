// Qt calls exit() when its connection to the display breaks: the X server or the compositor has ended, as a logout may
// do first. While an ExitGuard exists, exit() calls `save` and ends the program at once with status 1; nothing of Qt
// may be used in it. At most one instance; UI thread.
#pragma once

#include <functional>

namespace tandem {

class ExitGuard {
 public:
  explicit ExitGuard(std::function<void()> save);
  ~ExitGuard();
  ExitGuard(const ExitGuard&) = delete;
  ExitGuard& operator=(const ExitGuard&) = delete;
};

}  // namespace tandem
