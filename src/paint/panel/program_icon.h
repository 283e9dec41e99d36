// The program's icon, in the panel's style: on the display's glass one song's level falls and the next one's rises.
// packaging/tandem.svg shows the same. UI thread.
#pragma once

#include <QImage>

namespace tandem {

/// A square picture, transparent outside the plate.
QImage program_icon(int pixels);

}  // namespace tandem
