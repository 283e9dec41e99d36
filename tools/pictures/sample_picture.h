// Pictures of the panel's states and of the sheets, as tests compare and documents show them. UI thread.
#pragma once

#include <QImage>
#include <string_view>
#include <vector>

namespace tandem {

/// The states of PanelScene, then the sheets: every control in every state, the kinds of spectrum, needle readings.
std::vector<std::string_view> picture_names();

/// A picture at a scale (1 = 100 %); a null image if there is no such name.
QImage sample_picture(std::string_view name, double scale);

}  // namespace tandem
