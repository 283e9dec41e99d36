#include "script/panel_moves.h"

#include <type_traits>
#include <variant>

#include "script/unknown_word.h"

namespace tandem {

namespace {

template <class Kind>
concept Clickable = requires(Kind& control) {
  control.click.raise();
};
template <class Kind>
concept Pressable = requires(Kind& control) {
  control.press.raise();
};

// What the mouse does to a control: down, click and up, as far as its kind knows them. A list is clicked on its lines.
struct Mouse {
  bool down = false;
  bool clicks = false;
  bool up = false;

  void operator()(ListBox* /*list*/) const { throw UnknownWord("a list's click without a line"); }
  void operator()(Slider* slider) const {
    if (down) slider->user_press();
    if (up) slider->user_release();
  }
  template <class Kind>
  void operator()(Kind* control) const {
    if constexpr (Pressable<Kind>) {
      if (down) control->press.raise();
    }
    if constexpr (Clickable<Kind>) {
      if (clicks) control->click.raise();
    } else {
      throw UnknownWord("a click on what has none");
    }
    if constexpr (Pressable<Kind>) {
      if (up) control->release.raise();
    }
  }
};

bool enabled(const AnyControl& control) {
  return std::visit([](const auto* each) { return each->Enabled.get(); }, control);
}

void use(const AnyControl& control, const Mouse& mouse) {
  if (enabled(control)) std::visit(mouse, control);
}

}  // namespace

const AnyControl& PanelMoves::control(const std::string& name) const {
  const auto found = controls_.find(name);
  if (found == controls_.end()) throw UnknownWord(name);
  return found->second;
}

template <class Kind>
Kind& PanelMoves::as(const std::string& name) const {
  Kind* const* found = std::get_if<Kind*>(&control(name));
  if (found == nullptr) throw UnknownWord(name);
  return **found;
}

void PanelMoves::click(const std::string& name) const { use(control(name), {true, true, true}); }
void PanelMoves::press(const std::string& name) const { use(control(name), {true, false, false}); }
void PanelMoves::release(const std::string& name) const { use(control(name), {false, false, true}); }

ValuedControl& PanelMoves::valued(const std::string& name) const {
  ValuedControl* found = std::visit(
      [](auto* each) -> ValuedControl* {
        if constexpr (std::is_base_of_v<ValuedControl, std::remove_pointer_t<decltype(each)>>) return each;
        return nullptr;
      },
      control(name));
  if (found == nullptr) throw UnknownWord(name);
  return *found;
}

void PanelMoves::move(const std::string& name, std::int32_t value) const {
  ValuedControl& moved = valued(name);
  if (moved.Enabled) moved.move(value);
}

void PanelMoves::drag(const std::string& name, const std::vector<std::int32_t>& values) const {
  ValuedControl& moved = valued(name);
  if (!moved.Enabled) return;
  auto* const* slider = std::get_if<Slider*>(&control(name));
  if (slider != nullptr) (*slider)->user_press();
  for (const std::int32_t value : values) moved.move(value);
  if (slider != nullptr) (*slider)->user_release();
}

void PanelMoves::up(const std::string& name) const {
  auto& spinner = as<Spinner>(name);
  if (spinner.Enabled) spinner.user_up();
}

void PanelMoves::down(const std::string& name) const {
  auto& spinner = as<Spinner>(name);
  if (spinner.Enabled) spinner.user_down();
}

// The list if it takes the mouse; a line that does not exist can't be named.
ListBox* PanelMoves::list_with(const std::string& name, std::int32_t line) const {
  auto& list = as<ListBox>(name);
  if (line < 0 || line >= list.ListCount()) throw UnknownWord(name + " line " + std::to_string(line));
  return list.Enabled ? &list : nullptr;
}

void PanelMoves::select(const std::string& name, std::int32_t line) const {
  if (ListBox* list = list_with(name, line)) list->user_select(line);
}

void PanelMoves::double_click(const std::string& name, std::int32_t line) const {
  if (ListBox* list = list_with(name, line)) list->user_double_click(line);
}

}  // namespace tandem
