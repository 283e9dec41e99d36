#include "controls/kinds/list_box.h"

#include "base/runtime_error.h"

namespace tandem {

const std::string& ListBox::List(std::int32_t index) const {
  static const std::string empty;
  return index >= 0 && index < ListCount() ? lines_[static_cast<std::size_t>(index)] : empty;
}

void ListBox::check(std::int32_t index) const {
  if (index < 0 || index >= ListCount()) throw RuntimeError(RuntimeErrorKind::Range);
}

void ListBox::AddItem(std::string line) {
  lines_.push_back(std::move(line));
  view_changed.raise();
}

void ListBox::RemoveItem(std::int32_t index) {
  check(index);
  lines_.erase(lines_.begin() + index);
  pressed_ = -1;
  if (index == selected_) {
    selected_ = -1;
  } else if (index < selected_) {
    --selected_;
  }
  view_changed.raise();
}

void ListBox::Clear() {
  lines_.clear();
  selected_ = -1;
  pressed_ = -1;
  view_changed.raise();
}

void ListBox::put_List(std::int32_t index, std::string line) {
  check(index);
  lines_[static_cast<std::size_t>(index)] = std::move(line);
  view_changed.raise();
}

void ListBox::put_ListIndex(std::int32_t index) {
  if (index != -1) check(index);
  selected_ = index;
  view_changed.raise();
}

void ListBox::put_Selected(std::int32_t index, bool selected) {
  check(index);
  if (selected) {
    put_ListIndex(index);
  } else if (index == selected_) {
    put_ListIndex(-1);
  }
}

void ListBox::user_select(std::int32_t index) {
  put_ListIndex(index);
  pressed_ = index;
  click.raise();
}

void ListBox::user_double_click(std::int32_t index) {
  user_select(index);
  double_click.raise();
}

void ListBox::user_second_press(std::int32_t index) {
  if (index != pressed_) return user_select(index);
  double_click.raise();
}

}  // namespace tandem
