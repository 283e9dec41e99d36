#include "platform/desktop/user_input_watch.h"

#include <QCoreApplication>
#include <QEvent>
#include <utility>

namespace tandem {

UserInputWatch::UserInputWatch(std::function<void()> moved) : moved_(std::move(moved)) {
  QCoreApplication::instance()->installEventFilter(this);
}

bool UserInputWatch::eventFilter(QObject*, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::Enter:
    case QEvent::WindowActivate:
    case QEvent::TouchBegin:
    case QEvent::TabletMove:
    case QEvent::DragEnter:
      moved_();
      break;
    default:
      break;
  }
  return false;
}

}  // namespace tandem
