#include "desktop/panel_menu.h"

#include <QActionGroup>
#include <QContextMenuEvent>
#include <QKeySequence>
#include <QMenu>
#include <QTimer>
#include <QWidget>
#include <cmath>
#include <string_view>
#include <utility>

#include "controls/pause_state.h"
#include "desktop/about_box.h"
#include "layout/shortcuts.h"

namespace tandem {

namespace {

constexpr double kStep = 0.25;

QAction* last_of(const QMenu& menu) { return menu.actions().constLast(); }

// Right of the last entry, the key of the control that it presses. It is only shown: the window has the shortcut.
void show_key(const QMenu& menu, std::string_view control) {
  for (const Shortcut& shortcut : panel_shortcuts()) {
    if (shortcut.control != control) continue;
    last_of(menu)->setShortcut(QString::fromLatin1(shortcut.keys.data(), static_cast<qsizetype>(shortcut.keys.size())));
    last_of(menu)->setShortcutVisibleInContextMenu(true);  // whatever the desktop's habit
    return;
  }
}

}  // namespace

PanelMenu::PanelMenu(QWidget& window, PanelRemote& remote, Hooks hooks)
    : window_(window), remote_(remote), hooks_(std::move(hooks)) {
  window_.installEventFilter(this);
  for (QWidget* item : window_.findChildren<QWidget*>()) item->installEventFilter(this);
}

bool PanelMenu::eventFilter(QObject* receiver, QEvent* event) {
  if (event->type() != QEvent::ContextMenu) return false;
  const auto& asked = *static_cast<QContextMenuEvent*>(event);
  const bool its_own = static_cast<QWidget*>(receiver)->contextMenuPolicy() == Qt::PreventContextMenu;
  if (its_own && asked.reason() == QContextMenuEvent::Mouse) return false;
  open(asked.globalPos());
  return true;
}

QMenu* PanelMenu::open(const QPoint& on_screen) {
  auto* menu = new QMenu(&window_);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setObjectName("PanelMenu");
  add_transport(*menu);
  menu->addSeparator();
  add_songs(*menu);
  menu->addSeparator();
  add_sizes(*menu);
  add(*menu, "A&bout Tandem", true, [this] { show_about_box(&window_); });
  add(*menu, "&Quit", true, hooks_.quit);
  show_key(*menu, "Close");
  menu->popup(on_screen);
  return menu;
}

void PanelMenu::add(QMenu& menu, const char* text, bool possible, std::function<void()> act) {
  QAction* action = menu.addAction(text);
  action->setEnabled(possible);
  connect(action, &QAction::triggered, this, [this, act = std::move(act)] { QTimer::singleShot(0, this, act); });
}

// Play resumes what is paused; else it is the panel's key, which starts the line that is chosen.
void PanelMenu::add_transport(QMenu& menu) {
  PanelControls& controls = remote_.program().controls;
  const bool paused = is_paused(controls);
  const bool sounds = remote_.motion() != PanelRemote::Motion::Stopped;
  add(menu, "&Play", remote_.can_play(), [this, &controls] {
    remote_.motion() == PanelRemote::Motion::Playing ? remote_.click(controls.PLAY) : remote_.play();
  });
  show_key(menu, "PLAY");
  add(menu, "Pa&use", sounds || paused, [this, &controls] { remote_.click(controls.PAUSE); });
  show_key(menu, "PAUSE");
  last_of(menu)->setCheckable(true);
  last_of(menu)->setChecked(paused);
  add(menu, "&Stop", sounds, [this] { remote_.stop(); });
  show_key(menu, "STOPBtn");
  add(menu, "&Next", remote_.can_go_next(), [this] { remote_.next(); });
  show_key(menu, "NextBtn");
}

void PanelMenu::add_songs(QMenu& menu) {
  PanelControls& controls = remote_.program().controls;
  add(menu, "&Add songs…", controls.LoadSong.Enabled, [this, &controls] { remote_.click(controls.LoadSong); });
  show_key(menu, "LoadSong");
  add(menu, "&Open list…", controls.LoadList.Enabled, [this, &controls] { remote_.click(controls.LoadList); });
  show_key(menu, "LoadList");
  const bool has_songs = controls.PlayList.ListCount() > 0;
  add(menu, "Sa&ve list…", has_songs && controls.SaveList.Enabled,
      [this, &controls] { remote_.click(controls.SaveList); });
  show_key(menu, "SaveList");
  add(menu, "&Remove line", remote_.can_remove_line(), [this] { remote_.remove_line(); });
}

void PanelMenu::add_sizes(QMenu& menu) {
  if (!hooks_.scale) return;
  QMenu& sizes = *menu.addMenu("Si&ze");
  auto* group = new QActionGroup(&sizes);
  for (double scale = 1; scale <= hooks_.greatest_scale() + kStep / 2; scale += kStep) {
    const int percent = static_cast<int>(std::lround(scale * 100));
    add(sizes, qPrintable(QString::number(percent) + " %"), true, [this, scale] { hooks_.put_scale(scale); });
    last_of(sizes)->setCheckable(true);
    last_of(sizes)->setChecked(std::abs(hooks_.scale() - scale) < kStep / 2);
    group->addAction(last_of(sizes));
  }
}

}  // namespace tandem
