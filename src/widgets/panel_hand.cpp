// The window under the hand: dragged by its bare parts, toggled by a double-click on its head, files dropped on it.

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWindow>

#include "widgets/panel_window.h"

namespace tandem {

void PanelWindow::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  hooks_.user_acts();
  if (windowHandle() != nullptr && windowHandle()->startSystemMove()) return;
  drag_from_ = event->globalPosition().toPoint() - pos();
}

void PanelWindow::mouseMoveEvent(QMouseEvent* event) {
  if (drag_from_) move(event->globalPosition().toPoint() - *drag_from_);
}

void PanelWindow::mouseReleaseEvent(QMouseEvent*) { drag_from_.reset(); }

void PanelWindow::mouseDoubleClickEvent(QMouseEvent* event) {
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
  if (!paths.empty()) hooks_.drop(paths);
}

void PanelWindow::enterEvent(QEnterEvent*) { hooks_.frame_wanted(); }

}  // namespace tandem
