// The session's real end: Qt asks the application to quit before it closes the windows. A user who closes the window
// does it the other way round. One of it at most, with the QApplication; UI thread.
#pragma once

#include <QObject>
#include <functional>

namespace tandem {

class SessionEnd final : public QObject {
 public:
  explicit SessionEnd(
      std::function<void()> quits);  // called at each request to quit, also at those of the player itself

 private:
  bool eventFilter(QObject* watched, QEvent* event) override;

  std::function<void()> quits_;
};

}  // namespace tandem
