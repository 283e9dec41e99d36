#include "widgets/song_list_accessible.h"

#include <algorithm>

namespace tandem {

namespace {

class LineInterface final : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  LineInterface(SongListItem& list, int index) : list_(list), index_(index) {}
  int index() const { return index_; }

  bool isValid() const override { return index_ < list_.list().ListCount(); }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return list_.window()->windowHandle(); }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&list_); }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessible::Role role() const override { return QAccessible::ListItem; }
  QRect rect() const override { return list_.line_on_screen(index_); }
  void setText(QAccessible::Text, const QString&) override {}
  QString text(QAccessible::Text what) const override {
    return what == QAccessible::Name ? QString::fromStdString(list_.list().List(index_)) : QString();
  }

  QAccessible::State state() const override {
    QAccessible::State state;
    state.selectable = true;
    state.focusable = true;
    state.selected = list_.list().Selected(index_);
    state.focused = state.selected && list_.hasFocus();
    state.offscreen = rect().isNull();
    state.invisible = !list_.isVisible();
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
  }
  QStringList actionNames() const override { return {pressAction()}; }
  void doAction(const QString& name) override {
    if (name == pressAction()) list_.select_line(index_);
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  SongListItem& list_;
  int index_;
};

}  // namespace

SongListInterface::SongListInterface(SongListItem& list) : QAccessibleWidget(&list, QAccessible::List), list_(list) {}

SongListInterface::~SongListInterface() {
  for (const QAccessible::Id line : lines_) QAccessible::deleteAccessibleInterface(line);
}

QString SongListInterface::text(QAccessible::Text what) const {
  if (what == QAccessible::Name) return list_.spoken_name();
  if (what == QAccessible::Value) return list_.spoken_value();
  return QAccessibleWidget::text(what);
}

QAccessibleInterface* SongListInterface::child(int index) const {
  if (index < 0 || index >= childCount()) return nullptr;
  for (int i = static_cast<int>(lines_.size()); i <= index; ++i)
    lines_.push_back(QAccessible::registerAccessibleInterface(new LineInterface(list_, i)));
  return QAccessible::accessibleInterface(lines_[static_cast<std::size_t>(index)]);
}

int SongListInterface::indexOfChild(const QAccessibleInterface* line) const {
  const auto* found = dynamic_cast<const LineInterface*>(line);
  return found == nullptr ? -1 : found->index();
}

QAccessibleInterface* SongListInterface::childAt(int x, int y) const {
  for (int i = list_.top(); i < childCount(); ++i)
    if (list_.line_on_screen(i).contains(x, y)) return child(i);
  return nullptr;
}

QAccessibleInterface* SongListInterface::focusChild() const {
  return list_.hasFocus() ? child(list_.list().ListIndex()) : nullptr;
}

void tell_line_of(SongListItem& list) {
  if (!QAccessible::isActive() || !list.hasFocus() || list.list().ListIndex() < 0) return;
  QAccessibleEvent event(&list, QAccessible::Focus);
  event.setChild(list.list().ListIndex());
  QAccessible::updateAccessibility(&event);
}

}  // namespace tandem
