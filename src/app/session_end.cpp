#include "app/session_end.h"

#include <QCoreApplication>
#include <QEvent>
#include <utility>

namespace tandem {

SessionEnd::SessionEnd(std::function<void()> quits) : quits_(std::move(quits)) {
  QCoreApplication::instance()->installEventFilter(this);
}

bool SessionEnd::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Quit && watched == QCoreApplication::instance()) quits_();
  return QObject::eventFilter(watched, event);
}

}  // namespace tandem
