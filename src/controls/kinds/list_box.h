// A list of text lines of which one or none is selected. UI thread only.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "controls/kinds/control.h"

namespace tandem {

class ListBox : public Control {
 public:
  // A line that does not exist reads as empty text.
  const std::string& List(std::int32_t index) const;
  std::int32_t ListCount() const { return static_cast<std::int32_t>(lines_.size()); }
  // The selected line, -1 for none. It follows its line when others are removed.
  std::int32_t ListIndex() const { return selected_; }
  bool Selected(std::int32_t index) const { return index >= 0 && index == selected_; }

  // None of these notifies the logic. Indices outside the list throw Range, a ListIndex outside -1 .. ListCount - 1
  // too.
  void AddItem(std::string line);
  void RemoveItem(std::int32_t index);
  void Clear();
  void put_List(std::int32_t index, std::string line);
  void put_ListIndex(std::int32_t index);
  void put_Selected(std::int32_t index, bool selected);

  Notification<> click;
  Notification<> double_click;

  // What the user does, on an existing line. A double-click is one click and then the double-click.
  void user_select(std::int32_t index);
  void user_double_click(std::int32_t index);  // both presses at once, as a key does it
  // The second press of a double-click whose first one was a user_select(). If that line has gone or moved since, or
  // the press is on another line, it is a first press.
  void user_second_press(std::int32_t index);

 private:
  void check(std::int32_t index) const;

  std::vector<std::string> lines_;
  std::int32_t selected_ = -1;
  std::int32_t pressed_ = -1;  // the line that the user clicked last; -1 since lines have moved
};

}  // namespace tandem
