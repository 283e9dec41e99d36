// The window under the hand: dragged by its bare parts, toggled by a double-click on its head, files dropped on it.

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWindow>

#include "widgets/window/panel_window.h"

namespace tandem {

namespace {
// px: a hand that clicks twice may tremble, but the desktop leaves the window behind by this way.
constexpr int kDragDistance = 4;
}  // namespace

void PanelWindow::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const UserActionScope act(*this);
  pressed_at_ = event->globalPosition().toPoint();
  drag_from_ = pressed_at_ - pos();
}

// The desktop moves the window where it can, but only once it is dragged: a double-click must come through.
void PanelWindow::mouseMoveEvent(QMouseEvent* event) {
  if (!drag_from_) return;
  const QPoint at = event->globalPosition().toPoint();
  if (!dragging_ && (at - pressed_at_).manhattanLength() < kDragDistance) return;
  if (!dragging_ && windowHandle()->startSystemMove()) return drag_from_.reset();
  dragging_ = true;
  move(at - *drag_from_);
}

void PanelWindow::mouseReleaseEvent(QMouseEvent*) {
  drag_from_.reset();
  dragging_ = false;
}

void PanelWindow::mouseDoubleClickEvent(QMouseEvent* event) {
  const UserActionScope act(*this);
  const bool on_head = event->position().y() < control_box("Window grip").h;
  if (event->button() == Qt::LeftButton && on_head) controls_.MMPanelX1[1].click.raise();
}

void PanelWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void PanelWindow::dropEvent(QDropEvent* event) {
  std::vector<std::string> paths;
  for (const QUrl& url : event->mimeData()->urls())
    // The bytes of the path as they were dropped, whether they are valid UTF-8 or not.
    if (url.isLocalFile())
      paths.push_back(QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()).toStdString());
  event->acceptProposedAction();
  const UserActionScope act(*this);
  if (!paths.empty()) hooks_.drop(paths);
}

void PanelWindow::enterEvent(QEnterEvent*) { hooks_.frame_wanted(); }

}  // namespace tandem
