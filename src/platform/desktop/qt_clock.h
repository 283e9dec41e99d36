// The program's real clock and its one timer: calls back when the next thing is due, never more often than needed.
// UI thread.
#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <cstdint>
#include <functional>
#include <optional>

namespace tandem {

class QtClock : public QObject {
 public:
  using Milliseconds = std::int64_t;
  // Called at each wake-up with the monotonic time in milliseconds since the clock was made; returns when to wake next,
  // nothing for not at all until reschedule().
  using Work = std::function<std::optional<Milliseconds>(Milliseconds now)>;

  explicit QtClock(Work work);
  Milliseconds now() const { return elapsed_.elapsed(); }
  // Something may be due earlier than what the last wake-up said: look again as soon as the event loop is free.
  void reschedule();

 private:
  void wake();

  Work work_;
  QElapsedTimer elapsed_;
  QTimer timer_;
  bool asked_ = false;
};

}  // namespace tandem
