// The song list's lines as assistive technology has them: each is an object of its own and stays the same song while
// others come, go and are renumbered. Every id that is kept here has its line until it is taken out of the list, so
// what at() gives may be used without asking. UI thread.
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

  // Nothing if the list has no such line. One that is asked for before it is told of is told of all the same.
  QAccessibleInterface* line(int index);
  static int index_of(const QAccessibleInterface* line);

  // What has changed is told when the panel's act is over: it empties and fills the list to move one song.
  void list_changed() override;
  void selection_changed() override;  // after the lines themselves
  void sounds_changed() override;

 private:
  void follow();
  void follow_lines();
  void tell_selection();
  void remove_lines(std::size_t from, std::size_t count);
  std::vector<QAccessible::Id> add_lines(std::size_t from, std::size_t count);
  void number_lines(std::size_t from);
  AccessibleRow* at(std::size_t index) const;
  QAccessible::Id make_line(std::size_t index);

  SongListItem& list_;
  std::vector<std::string> texts_;      // as they were told
  std::vector<QAccessible::Id> ids_;    // one for each text
  std::vector<QAccessible::Id> early_;  // lines behind those, asked for before they are told of
  bool due_ = false;
  bool selection_due_ = false;
};

}  // namespace tandem
