#include "app/close_signals.h"

#include <fcntl.h>
#include <unistd.h>
#include <cerrno>
#include <csignal>

namespace tandem {

namespace {

int pipe_ends[2] = {-1, -1};

// On any thread, in the middle of anything: it must not see another errno afterwards.
extern "C" void write_to_pipe(int) {
  const int kept = errno;
  const char byte = 0;
  static_cast<void>(!write(pipe_ends[1], &byte, 1));
  errno = kept;
}

// A signal that was ignored when the program started stays ignored, as SIGHUP is under nohup.
void handle(void (*handler)(int)) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP})
    if (std::signal(signal, handler) == SIG_IGN) std::signal(signal, SIG_IGN);
}

}  // namespace

CloseSignals::CloseSignals(std::function<void()> close) {
  if (pipe2(pipe_ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
  notifier_ = std::make_unique<QSocketNotifier>(pipe_ends[0], QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [close = std::move(close)] {
    char byte = 0;
    while (read(pipe_ends[0], &byte, 1) == 1) {
    }
    close();
  });
  handle(write_to_pipe);
}

CloseSignals::~CloseSignals() {
  handle(SIG_DFL);
  for (const int end : pipe_ends) ::close(end);
}

}  // namespace tandem
