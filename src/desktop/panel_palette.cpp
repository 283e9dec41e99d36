#include "desktop/panel_palette.h"

#include "paint/strokes/palette.h"

namespace tandem {

QPalette panel_palette() {
  using namespace palette;
  QPalette colours(QColor::fromRgb(kFaceplate[1]), QColor::fromRgb(kFaceplate[3]));
  const auto put = [&](QPalette::ColorRole role, QRgb colour) { colours.setColor(role, QColor::fromRgb(colour)); };
  for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::ToolTipText, QPalette::BrightText})
    put(role, kLegend);
  put(QPalette::Base, kWellTop);
  put(QPalette::AlternateBase, kRecessTop);
  put(QPalette::Text, kListFile);
  put(QPalette::PlaceholderText, kMark);
  put(QPalette::ToolTipBase, kRecessUpper);
  put(QPalette::Highlight, kListSelected);
  put(QPalette::HighlightedText, kWhite);
  put(QPalette::Link, kFocus);
  for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text})
    colours.setColor(QPalette::Disabled, role, QColor::fromRgb(kMark));
  return colours;
}

}  // namespace tandem
