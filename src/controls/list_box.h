// A list of text lines of which one or none is selected. UI thread only.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "controls/control.h"

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

  // The user's hand, on an existing line.
  void user_select(std::int32_t index);
  void user_double_click(std::int32_t index);  // a double-click is a click first

 private:
  void check(std::int32_t index) const;

  std::vector<std::string> lines_;
  std::int32_t selected_ = -1;
};

}  // namespace tandem
