// A picture of what is painted. UI thread.
#pragma once

#include <QImage>
#include <QPainter>
#include <functional>

namespace tandem {

/// `size` px at `scale` (1 = 100 %), filled with `ground` and then painted on.
QImage painted_image(const QSize& size, double scale, const QColor& ground,
                     const std::function<void(QPainter&)>& paint);

}  // namespace tandem
