// The accessible objects of the song list's lines: one for each song, which keeps its identity while others are added,
// removed and renumbered. Every id in ids_ has its object until it is removed from there, so at() never returns null.
// UI thread.
#pragma once

#include <QAccessible>
#include <memory>
#include <string>
#include <vector>

#include "widgets/items/song_list_item.h"

namespace tandem {

class AccessibleRow;

class AccessibleRows final : public SongListFollower, public std::enable_shared_from_this<AccessibleRows> {
 public:
  explicit AccessibleRows(SongListItem& list);
  ~AccessibleRows() override;
  AccessibleRows(const AccessibleRows&) = delete;
  AccessibleRows& operator=(const AccessibleRows&) = delete;

  // Null if the list has no such line. A line requested before its creation was announced is still announced.
  QAccessibleInterface* line(int index);
  static int index_of(const QAccessibleInterface* line);

  // Changes are announced when the panel's handler has returned: to move one song it empties and refills the list.
  void list_changed() override;
  void selection_changed() override;  // after the lines themselves
  void sounds_changed() override;

 private:
  void follow();
  void follow_lines();
  void announce_selection();
  void remove_lines(std::size_t from, std::size_t count);
  std::vector<QAccessible::Id> add_lines(std::size_t from, std::size_t count);
  void number_lines(std::size_t from);
  AccessibleRow* at(std::size_t index) const;
  QAccessible::Id make_line(std::size_t index);

  SongListItem& list_;
  std::vector<std::string> texts_;      // as last announced
  std::vector<QAccessible::Id> ids_;    // one for each text
  std::vector<QAccessible::Id> early_;  // lines after those, requested before they were announced
  bool due_ = false;
  bool selection_due_ = false;
};

}  // namespace tandem
