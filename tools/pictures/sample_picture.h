// Pictures of the example states and of the specimen sheets, as tests compare and documents show them. UI thread.
#pragma once

#include <QImage>
#include <string_view>
#include <vector>

namespace tandem {

/// The panel's example states, then the sheets: every control in every state, the kinds of spectrum, needle readings.
std::vector<std::string_view> picture_names();

/// A picture at a scale (1 = 100 %), transparent outside the plate; a null image if there is no such name.
QImage specimen_picture(std::string_view name, double scale);

}  // namespace tandem
