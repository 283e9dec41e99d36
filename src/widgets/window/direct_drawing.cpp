#include "widgets/window/direct_drawing.h"

#include <QBackingStore>
#include <QRegion>
#include <QVarLengthArray>
#include <QWindow>
#include <cmath>
#include <cstring>

namespace tandem {

namespace {

// The store's image, if it takes opaque pixels as they are.
QImage* target_of(QBackingStore& store, double scale) {
  QPaintDevice* device = store.paintDevice();
  if (device == nullptr || device->devType() != QInternal::Image) return nullptr;
  auto* image = static_cast<QImage*>(device);
  const bool opaque = image->format() == QImage::Format_RGB32;
  // One with transparency is emptied by Qt in whole px before it is drawn: there must be no more than is drawn.
  const bool takes = opaque || (image->format() == QImage::Format_ARGB32_Premultiplied && scale == std::floor(scale));
  return takes && image->devicePixelRatio() == scale ? image : nullptr;
}

// Px of the window.
QRegion region_of(std::span<const QRect> device_boxes, double scale) {
  QRegion region;
  for (const QRect& box : device_boxes)
    region += QRectF(QPointF(box.topLeft()) / scale, QSizeF(box.size()) / scale).toAlignedRect();
  return region;
}

void copy(QImage& target, const QPoint& to, const QImage& picture, const QRect& box) {
  const auto bytes = static_cast<std::size_t>(box.width()) * sizeof(QRgb);
  uchar* into = target.scanLine(box.top() + to.y()) + static_cast<std::size_t>(box.left() + to.x()) * sizeof(QRgb);
  const uchar* from = picture.constScanLine(box.top()) + static_cast<std::size_t>(box.left()) * sizeof(QRgb);
  const qsizetype into_line = target.bytesPerLine();
  const qsizetype from_line = picture.bytesPerLine();
  for (int rows = box.height(); rows > 0; --rows) {
    std::memcpy(into, from, bytes);
    into += into_line;
    from += from_line;
  }
}

}  // namespace

bool draw_directly(const QWidget& window, const QImage& picture, const QPoint& at, std::span<const QRect> changed,
                   const Present& present) {
  QBackingStore* store = window.backingStore();
  QWindow* screen = window.windowHandle();
  if (store == nullptr || screen == nullptr || !window.isVisible() || !screen->isExposed()) return false;
  if (store->size() != window.size()) return false;
  const double scale = window.devicePixelRatioF();
  const QRect whole(at, picture.size());
  QVarLengthArray<QRect, 16> boxes;  // in pixels of the window
  for (const QRect& box : changed) boxes.append((box & picture.rect()).translated(at));
  const std::span<const QRect> shown(boxes.data(), static_cast<std::size_t>(boxes.size()));
  // With `present` the store gets one dirty box instead of many, which is cheaper: Qt shows it with its next painting.
  // Not so with transparency, where Qt empties what is dirty.
  const bool one = present && !window.testAttribute(Qt::WA_TranslucentBackground);
  store->beginPaint(region_of(one ? std::span(&whole, 1) : shown, scale));
  QImage* target = target_of(*store, scale);
  const bool fits = target != nullptr && target->rect().contains(whole);
  for (const QRect& box : shown)
    if (fits) copy(*target, at, picture, box.translated(-at));
  store->endPaint();
  if (!fits || (present && present(*target, shown))) return fits;
  store->flush(region_of(shown, scale), screen);
  return fits;
}

}  // namespace tandem
