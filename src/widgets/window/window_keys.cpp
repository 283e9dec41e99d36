// The keys that work wherever the focus is, from the layout's table of them. A control that is disabled, hidden or
// outside the small window does nothing.

#include <QKeyEvent>
#include <QShortcut>

#include "controls/pause_state.h"
#include "layout/shortcuts.h"
#include "widgets/window/panel_window.h"

namespace tandem {

void PanelWindow::add_shortcut(std::string_view keys, const std::function<void()>& act) {
  auto* shortcut =
      new QShortcut(QKeySequence(QString::fromLatin1(keys.data(), static_cast<qsizetype>(keys.size()))), this);
  shortcut->setAutoRepeat(false);
  connect(shortcut, &QShortcut::activated, this, act);
}

void PanelWindow::add_shortcuts() {
  for (const Shortcut& shortcut : panel_shortcuts())
    add_shortcut(shortcut.keys, [this, name = shortcut.control] { item(name)->press(); });
  for (const std::string_view keys : kLargerKeys) add_shortcut(keys, [this] { step_scale(1); });
  for (const std::string_view keys : kSmallerKeys) add_shortcut(keys, [this] { step_scale(-1); });
}

// Space where the focused control has no use for it. PAUSE with nothing playing would leave the next PLAY silent: the
// stopped panel plays.
void PanelWindow::pause_or_play() {
  const bool begins = is_stopped(controls_) && !is_paused(controls_);
  item(begins ? "PLAY" : "PAUSE")->press();
}

void PanelWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Space || event->modifiers() != Qt::NoModifier) return QWidget::keyPressEvent(event);
  if (!event->isAutoRepeat()) pause_or_play();
}

}  // namespace tandem
