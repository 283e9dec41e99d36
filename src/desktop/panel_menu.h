// The menu of the right button, anywhere on the panel but where a control has a use of its own for it (a context menu
// policy of Qt::PreventContextMenu). Its entries do what the panel's own keys do. A menu lives as long as it is open.
// UI thread.
#pragma once

#include <QObject>
#include <QPoint>
#include <functional>

#include "desktop/panel_remote.h"

class QMenu;
class QWidget;

namespace tandem {

class PanelMenu final : public QObject {
 public:
  struct Hooks {
    std::function<double()> scale;  // of the window, 1 for its own size; empty: it has but one
    std::function<void(double)> put_scale;
    std::function<double()> greatest_scale;  // that the screen has room for
    std::function<void()> quit;
  };
  // Listens to the window and everything on it.
  PanelMenu(QWidget& window, PanelRemote& remote, Hooks hooks);

  // The entries as they are now. Deleted when it is closed.
  QMenu* open(const QPoint& on_screen);

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  void add_transport(QMenu& menu);
  void add_songs(QMenu& menu);
  void add_sizes(QMenu& menu);
  // `act` is called when the menu has closed: a dialog may be open in it.
  void add(QMenu& menu, const char* text, bool possible, std::function<void()> act);

  QWidget& window_;
  PanelRemote& remote_;
  Hooks hooks_;
};

}  // namespace tandem
