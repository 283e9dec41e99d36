// What assistive technology learns of the song list: its lines are its children. UI thread.
#pragma once

#include <QAccessibleWidget>
#include <memory>

#include "widgets/accessibility/accessible_rows.h"
#include "widgets/items/song_list_item.h"

namespace tandem {

class SongListInterface final : public QAccessibleWidget {
 public:
  explicit SongListInterface(SongListItem& list);

  QString text(QAccessible::Text what) const override;
  int childCount() const override;
  QAccessibleInterface* child(int index) const override { return lines().line(index); }
  int indexOfChild(const QAccessibleInterface* line) const override { return AccessibleRows::index_of(line); }
  QAccessibleInterface* childAt(int x, int y) const override;
  QAccessibleInterface* focusChild() const override;

 private:
  AccessibleRows& lines() const;
  SongListItem& list_;
  mutable std::shared_ptr<AccessibleRows> lines_;
};

}  // namespace tandem
