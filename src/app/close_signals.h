// Delivers SIGTERM, SIGINT and SIGHUP (terminal closed) as an event on the UI thread. At most one instance.
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
