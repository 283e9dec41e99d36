// What assistive technology is told of the song list: its lines are its children. UI thread.
#pragma once

#include <QAccessibleWidget>
#include <vector>

#include "widgets/song_list_item.h"

namespace tandem {

class SongListInterface final : public QAccessibleWidget {
 public:
  explicit SongListInterface(SongListItem& list);
  ~SongListInterface() override;

  QString text(QAccessible::Text what) const override;
  int childCount() const override { return list_.list().ListCount(); }
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* line) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  QAccessibleInterface* focusChild() const override;

 private:
  SongListItem& list_;
  mutable std::vector<QAccessible::Id> lines_;  // as far as they were asked for
};

// The selected line has changed.
void tell_line_of(SongListItem& list);

}  // namespace tandem
