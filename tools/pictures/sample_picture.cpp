#include "tools/pictures/sample_picture.h"

#include <algorithm>

#include "tools/pictures/panel_scene.h"
#include "tools/pictures/sample_sheets.h"
#include "tools/pictures/sheet_image.h"

namespace tandem {

std::span<const SampleSheet> sample_sheets() {
  static constexpr SampleSheet kSheets[] = {
      {"sheet-keys", kKeysSheetWidth, kStatesSheetHeight, paint_keys_sheet},
      {"sheet-controls", kControlsSheetWidth, kStatesSheetHeight, paint_controls_sheet},
      {"sheet-glass", kGlassSheetWidth, kGlassSheetHeight, paint_glass_sheet},
      {"sheet-displays", kDisplaysSheetWidth, kDisplaysSheetHeight, paint_displays_sheet}};
  return kSheets;
}

std::vector<std::string_view> picture_names() {
  std::vector<std::string_view> names = panel_states();
  for (const SampleSheet& sheet : sample_sheets()) names.push_back(sheet.name);
  return names;
}

QImage sample_picture(std::string_view name, double scale) {
  for (const SampleSheet& sheet : sample_sheets()) {
    if (sheet.name == name) return painted_image({sheet.width, sheet.height}, scale, Qt::transparent, sheet.paint);
  }
  const auto states = panel_states();
  if (std::find(states.begin(), states.end(), name) == states.end()) return {};
  return PanelScene(name, scale).picture();
}

}  // namespace tandem
