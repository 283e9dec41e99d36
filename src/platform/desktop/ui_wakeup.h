// Wakes the UI thread from another thread, without locks.
// Threads: constructed on the UI thread; ring() from any. `on_wakeup` then runs on the UI thread, once for many rings.
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace tandem {

class UiWakeup {
 public:
  UiWakeup();
  ~UiWakeup();
  UiWakeup(const UiWakeup&) = delete;
  UiWakeup& operator=(const UiWakeup&) = delete;

  void ring() const noexcept;
  void connect(std::function<void()> on_wakeup);  // needs the QApplication; nullptr before that ends

 private:
  int event_ = -1;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace tandem
