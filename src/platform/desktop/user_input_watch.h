// Reports any input from the user: pointer movement over one of the program's windows, button presses, wheel, keys, and
// the activation of a window. UI thread.
#pragma once

#include <QObject>
#include <functional>

namespace tandem {

class UserInputWatch final : public QObject {
 public:
  // `moved` is called before the event reaches its window. Needs the QApplication.
  explicit UserInputWatch(std::function<void()> moved);

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  std::function<void()> moved_;
};

}  // namespace tandem
