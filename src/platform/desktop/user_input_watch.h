// Reports when the user does anything at all: moves the pointer over one of the program's windows, presses, turns the
// wheel, strikes a key, or brings a window to the front. UI thread.
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
