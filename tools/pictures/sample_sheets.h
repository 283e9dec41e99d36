// Sample sheets: pieces of faceplate that show controls in all their states. UI thread.
#pragma once

#include <QPainter>
#include <span>
#include <string_view>

namespace tandem {

struct SampleSheet {
  std::string_view name;
  int width;  ///< px at 100 %
  int height;
  void (*paint)(QPainter& painter);
};

std::span<const SampleSheet> sample_sheets();

void paint_keys_sheet(QPainter& painter);
void paint_controls_sheet(QPainter& painter);
void paint_displays_sheet(QPainter& painter);
void paint_glass_sheet(QPainter& painter);
inline constexpr int kKeysSheetWidth = 480;
inline constexpr int kControlsSheetWidth = 280;
inline constexpr int kStatesSheetHeight = 530;
inline constexpr int kDisplaysSheetWidth = 720;
inline constexpr int kDisplaysSheetHeight = 590;
inline constexpr int kGlassSheetWidth = 560;
inline constexpr int kGlassSheetHeight = 412;

}  // namespace tandem
