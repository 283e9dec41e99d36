#include "widgets/window/direct_drawing.h"

#include <QBackingStore>
#include <QRegion>
#include <QVarLengthArray>
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

QRegion region_of(std::span<const QRectF> boxes) {
  QRegion region;
  for (const QRectF& box : boxes) region += box.toAlignedRect();
  return region;
}

bool is_whole(const QPointF& point) { return point == QPointF(point.toPoint()); }

// A box in pixels of the picture.
QRect device_box(const QRect& box, const QPointF& at, const QImage& picture) {
  const double scale = picture.devicePixelRatio();
  return QRectF((box.topLeft() - at) * scale, QSizeF(box.size()) * scale).toAlignedRect() & picture.rect();
}

void copy(QImage& target, const QPoint& to, const QImage& picture, const QRect& box) {
  const auto bytes = static_cast<std::size_t>(box.width()) * sizeof(QRgb);
  uchar* into = target.scanLine(box.top() + to.y()) + static_cast<std::size_t>(box.left() + to.x()) * sizeof(QRgb);
  const uchar* from = picture.constScanLine(box.top()) + static_cast<std::size_t>(box.left()) * sizeof(QRgb);
  for (int rows = box.height(); rows > 0; --rows) {
    std::memcpy(into, from, bytes);
    into += target.bytesPerLine();
    from += picture.bytesPerLine();
  }
}

}  // namespace

bool draw_directly(const QWidget& window, const QImage& picture, const QPointF& at, std::span<const QRectF> changed,
                   const Present& present) {
  QBackingStore* store = window.backingStore();
  QWindow* screen = window.windowHandle();
  if (store == nullptr || screen == nullptr || !window.isVisible() || !screen->isExposed()) return false;
  if (store->size() != window.size()) return false;
  const double scale = picture.devicePixelRatio();
  const QPointF origin = at * scale;
  if (!is_whole(origin)) return false;
  // What goes another way to the screen the store is told as one box, which costs it less than many: it shows that part
  // itself some day.
  const QRectF whole(at, picture.deviceIndependentSize());
  store->beginPaint(present ? QRegion(whole.toAlignedRect()) : region_of(changed));
  QImage* target = target_of(*store, picture);
  const bool fits = target != nullptr && target->rect().contains(QRect(origin.toPoint(), picture.size()));
  QVarLengthArray<QRect, 16> boxes;  // in pixels of the window
  for (const QRectF& box : changed) {
    const QRect part = device_box(box.toAlignedRect(), at, picture);
    if (fits) copy(*target, origin.toPoint(), picture, part);
    boxes.append(part.translated(origin.toPoint()));
  }
  store->endPaint();
  if (!fits || (present && present(*target, {boxes.data(), static_cast<std::size_t>(boxes.size())}))) return fits;
  store->flush(region_of(changed), screen);
  return fits;
}

}  // namespace tandem
