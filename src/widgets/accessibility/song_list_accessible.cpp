#include "widgets/accessibility/song_list_accessible.h"

namespace tandem {

SongListInterface::SongListInterface(SongListItem& list) : QAccessibleWidget(&list, QAccessible::List), list_(list) {
  list.notify_accessibility();
}

// From the first question on they are followed.
AccessibleRows& SongListInterface::lines() const {
  if (!lines_) {
    lines_ = std::make_shared<AccessibleRows>(list_);
    list_.set_follower(lines_);
  }
  return *lines_;
}

int SongListInterface::childCount() const {
  lines();
  return list_.list().ListCount();
}

QString SongListInterface::text(QAccessible::Text what) const {
  if (what == QAccessible::Name) return list_.accessible_name();
  if (what == QAccessible::Value) return list_.accessible_value();
  if (what == QAccessible::Description && !list_.accessible_description().isEmpty())
    return list_.accessible_description();
  return QAccessibleWidget::text(what);
}

QAccessibleInterface* SongListInterface::childAt(int x, int y) const {
  for (int i = list_.top(); i < childCount(); ++i)
    if (list_.line_on_screen(i).contains(x, y)) return child(i);
  return nullptr;
}

QAccessibleInterface* SongListInterface::focusChild() const {
  return list_.hasFocus() ? child(list_.list().ListIndex()) : nullptr;
}

}  // namespace tandem
