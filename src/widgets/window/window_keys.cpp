// The keys that work wherever the focus is. A control that is disabled, hidden or outside the small window does
// nothing.

#include <QShortcut>

#include "widgets/window/panel_window.h"

namespace tandem {

void PanelWindow::add_shortcut(const char* keys, const char* name) {
  auto* shortcut = new QShortcut(QKeySequence(keys), this);
  shortcut->setAutoRepeat(false);
  connect(shortcut, &QShortcut::activated, this, [this, name] { item(name)->press(); });
}

void PanelWindow::add_shortcuts() {
  add_shortcut("Ctrl+Q", "Close");
  add_shortcut("Alt+F4", "Close");
  add_shortcut("Ctrl+M", "MMPanelX1(1)");
  add_shortcut("Ctrl+P", "PLAY");
  add_shortcut("Ctrl+Space", "PAUSE");
  add_shortcut("Ctrl+.", "STOPBtn");
  add_shortcut("Ctrl+N", "NextBtn");
  add_shortcut("Ctrl+O", "LoadSong");
  add_shortcut("F2", "ShowPlayList");
  add_shortcut("F3", "ShowControls");
  add_shortcut("Ctrl+0", "Command2");
  add_shortcut("Ctrl+Up", "UpList");
  add_shortcut("Ctrl+Down", "DownList");
  add_shortcut("Ctrl+L", "LoadList");
  add_shortcut("Ctrl+S", "SaveList");
  add_shortcut("F4", "MMSwitchX1");
}

}  // namespace tandem
