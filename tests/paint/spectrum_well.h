// Where the panel draws its spectrum, in px of the drawing at 100 %.
#pragma once

#include <QRectF>

namespace tandem {

inline const QRectF kArea(264, 16, 337, 91);
inline const QRectF kWell(262, 14, 341, 95);  // with its rim

}  // namespace tandem
