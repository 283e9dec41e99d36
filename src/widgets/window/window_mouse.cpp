// The window under the mouse: dragged by its bare parts, toggled by a double-click on its head, files dropped on it,
// the wheel over its displays and, with Ctrl, anywhere else.

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWindow>
#include <algorithm>

#include "widgets/items/song_list_item.h"
#include "widgets/items/wheel_steps.h"
#include "widgets/values/knob_item.h"
#include "widgets/window/dropped_names.h"
#include "widgets/window/panel_window.h"

namespace tandem {

namespace {
// px the pointer may move before a press becomes a drag, so that a double click is not one. The window trails the
// pointer by as much.
constexpr int kDragDistance = 4;
constexpr int kVolumeSteps = 3;  // per cent a notch of the wheel over a display
}  // namespace

// A key that has the keyboard loses it to the mouse, for Space would press it again without a ring to say so; a fader
// or the list keeps its arrows.
void PanelWindow::mouse_pressed() {
  auto* focused = dynamic_cast<PanelItem*>(focusWidget());
  if (focused == nullptr) return;
  focused->hide_focus();
  if (focused->focusPolicy() == Qt::TabFocus) setFocus(Qt::MouseFocusReason);
}

void PanelWindow::mousePressEvent(QMouseEvent* event) {
  mouse_pressed();
  if (event->button() != Qt::LeftButton) return;
  const UserActionScope act(*this);
  pressed_at_ = event->globalPosition().toPoint();
  drag_from_ = pressed_at_ - pos();
}

// The window manager moves the window where it can, but only once it is dragged: a double-click must come through.
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
  const bool on_head = transform_.to_panel(event->position()).y() < control_box("Window grip").h;
  if (event->button() == Qt::LeftButton && on_head) controls_.MMPanelX1[1].click.raise();
}

// 3 % a notch, 1 % with Ctrl.
void PanelWindow::turn_volume(const QWheelEvent& event) {
  const bool fine = (event.modifiers() & Qt::ControlModifier) != 0;
  volume_->turn(whole_wheel_steps(event, volume_rest_) * WheelItem::kStep * (fine ? 1 : kVolumeSteps));
}

bool PanelWindow::take_wheel(const PanelItem& over, QWheelEvent& event) {
  const ControlGroup group = over.place().group;
  if (group == ControlGroup::Display || group == ControlGroup::Visual) {
    turn_volume(event);
  } else if ((event.modifiers() & Qt::ControlModifier) != 0 && &over != volume_) {
    step_scale(whole_wheel_steps(event, size_rest_));
  } else {
    return false;
  }
  event.accept();
  return true;
}

void PanelWindow::wheelEvent(QWheelEvent* event) {
  if ((event->modifiers() & Qt::ControlModifier) == 0) return event->ignore();
  step_scale(whole_wheel_steps(*event, size_rest_));
  event->accept();
}

void PanelWindow::show_drop(const std::optional<QString>& what) {
  drop_ = what;
  list_->set_drop(what);
  for (PanelItem* item : items_) item->end_hover();  // nothing is left by the pointer while files are dragged
  update();
}

// Only what has a path here can be added. A source that offers to move its files keeps them.
void PanelWindow::dragEnterEvent(QDragEnterEvent* event) {
  const std::vector<std::string> paths = local_paths(*event->mimeData());
  if (paths.empty() || (event->possibleActions() & Qt::CopyAction) == 0) return event->ignore();
  event->setDropAction(Qt::CopyAction);
  event->accept();
  show_drop(names_in_words(paths));
}

void PanelWindow::dragLeaveEvent(QDragLeaveEvent*) { show_drop(std::nullopt); }

void PanelWindow::dropEvent(QDropEvent* event) {
  const std::vector<std::string> paths = local_paths(*event->mimeData());
  event->setDropAction(Qt::CopyAction);
  event->accept();
  show_drop(std::nullopt);
  const UserActionScope act(*this);
  if (!paths.empty()) hooks_.drop(paths);
}

void PanelWindow::enterEvent(QEnterEvent*) { hooks_.frame_wanted(); }

}  // namespace tandem
