#include "widgets/direct_drawing.h"

#include <QBackingStore>
#include <QRegion>
#include <QWindow>
#include <cmath>
#include <cstring>

namespace tandem {

namespace {

// The store's image, if it takes the picture's pixels as they are.
QImage* target_of(QBackingStore& store, const QImage& picture) {
  QPaintDevice* device = store.paintDevice();
  if (device == nullptr || device->devType() != QInternal::Image) return nullptr;
  auto* image = static_cast<QImage*>(device);
  const double scale = picture.devicePixelRatio();
  const bool opaque = image->format() == QImage::Format_RGB32;
  // One with transparency is emptied by the toolkit in whole px before it is drawn: there must be no more than is
  // drawn.
  const bool takes = opaque || (image->format() == QImage::Format_ARGB32_Premultiplied && scale == std::floor(scale));
  return takes && image->devicePixelRatio() == scale ? image : nullptr;
}

bool is_whole(const QPointF& point) { return point == QPointF(point.toPoint()); }

// A box in pixels of the picture.
QRect device_box(const QRect& box, const QPointF& at, const QImage& picture) {
  const double scale = picture.devicePixelRatio();
  return QRectF((box.topLeft() - at) * scale, QSizeF(box.size()) * scale).toAlignedRect() & picture.rect();
}

void copy(QImage& target, const QPoint& to, const QImage& picture, const QRect& box) {
  const auto bytes = static_cast<std::size_t>(box.width()) * sizeof(QRgb);
  for (int y = box.top(); y <= box.bottom(); ++y) {
    auto* into = reinterpret_cast<QRgb*>(target.scanLine(y + to.y())) + box.left() + to.x();
    std::memcpy(into, reinterpret_cast<const QRgb*>(picture.constScanLine(y)) + box.left(), bytes);
  }
}

}  // namespace

bool draw_directly(const QWidget& window, const QImage& picture, const QPointF& at, std::span<const QRectF> changed) {
  QBackingStore* store = window.backingStore();
  QWindow* screen = window.windowHandle();
  if (store == nullptr || screen == nullptr || !window.isVisible() || !screen->isExposed()) return false;
  if (store->size() != window.size()) return false;
  const double scale = picture.devicePixelRatio();
  const QPointF origin = at * scale;
  if (!is_whole(origin)) return false;
  QRegion region;
  for (const QRectF& box : changed) region += box.toAlignedRect();
  store->beginPaint(region);
  QImage* target = target_of(*store, picture);
  const bool fits = target != nullptr && target->rect().contains(QRect(origin.toPoint(), picture.size()));
  if (fits) {
    for (const QRectF& box : changed)
      copy(*target, origin.toPoint(), picture, device_box(box.toAlignedRect(), at, picture));
  }
  store->endPaint();
  if (fits) store->flush(region, screen);
  return fits;
}

}  // namespace tandem
