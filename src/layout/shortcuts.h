// The keys that work wherever the focus is: the window makes its shortcuts of this table, and the manual's list of keys
// is checked against it. Any thread.
#pragma once

#include <span>
#include <string_view>

namespace tandem {

/// A key that presses a control.
struct Shortcut {
  std::string_view keys;  ///< as QKeySequence reads it
  std::string_view control;
};

std::span<const Shortcut> panel_shortcuts();

/// Those that make the window larger and smaller by a step.
inline constexpr std::string_view kLargerKeys[] = {"Ctrl++", "Ctrl+="};
inline constexpr std::string_view kSmallerKeys[] = {"Ctrl+-"};

}  // namespace tandem
