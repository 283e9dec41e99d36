// SIGTERM, SIGINT and SIGHUP (the terminal is closed) as an event of the UI thread. One of it at most.
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace tandem {

class CloseSignals {
 public:
  explicit CloseSignals(std::function<void()> close);
  ~CloseSignals();
  CloseSignals(const CloseSignals&) = delete;
  CloseSignals& operator=(const CloseSignals&) = delete;

 private:
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace tandem
