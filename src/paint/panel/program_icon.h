// The program's icon, in the panel's style: on the display's glass one song's level falls and the next one's rises.
// packaging/org.tandem_player.Tandem.svg shows the same. UI thread.
#pragma once

#include <QImage>

namespace tandem {

/// A square picture, transparent outside the plate; below 40 pixels drawn more simply.
QImage program_icon(int pixels);

}  // namespace tandem
