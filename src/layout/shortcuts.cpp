#include "layout/shortcuts.h"

namespace tandem {

std::span<const Shortcut> panel_shortcuts() {
  static constexpr Shortcut kTable[] = {
      {"Ctrl+P", "PLAY"},     {"Ctrl+Space", "PAUSE"},    {"Ctrl+.", "STOPBtn"},     {"Ctrl+N", "NextBtn"},
      {"Ctrl+O", "LoadSong"}, {"F4", "MMSwitchX1"},       {"Ctrl+0", "Command2"},    {"F2", "ShowPlayList"},
      {"F3", "ShowControls"}, {"Ctrl+Up", "UpList"},      {"Ctrl+Down", "DownList"}, {"Ctrl+L", "LoadList"},
      {"Ctrl+S", "SaveList"}, {"Ctrl+M", "MMPanelX1(1)"}, {"Ctrl+Q", "Close"},       {"Alt+F4", "Close"},
  };
  return kTable;
}

}  // namespace tandem
