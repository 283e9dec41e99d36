#include "app/exit_guard.h"

#include <unistd.h>

#include <cstdlib>
#include <utility>

namespace tandem {

namespace {

// Never destroyed: exit() destroys objects of this lifetime before or after it calls the handler, as it likes.
std::function<void()>& saves() {
  static auto* const function = new std::function<void()>;
  return *function;
}

// The sound's threads still run: objects that they use must not be destroyed under them, as exit() would go on to do.
void save_and_end() {
  const auto save = std::exchange(saves(), nullptr);
  if (!save) return;
  save();
  _exit(EXIT_FAILURE);
}

}  // namespace

ExitGuard::ExitGuard(std::function<void()> save) {
  static const int registered = std::atexit(save_and_end);
  if (registered == 0) saves() = std::move(save);
}

ExitGuard::~ExitGuard() { saves() = nullptr; }

}  // namespace tandem
