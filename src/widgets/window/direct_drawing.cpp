#include "widgets/window/direct_drawing.h"

#include <QBackingStore>
#include <QRegion>
#include <QVarLengthArray>
#include <QWindow>
#include <cmath>
#include <cstring>
#include <optional>

namespace tandem {

namespace {

// The store's image, if it takes opaque pixels as they are.
QImage* target_of(QBackingStore& store, double scale) {
  QPaintDevice* device = store.paintDevice();
  if (device == nullptr || device->devType() != QInternal::Image) return nullptr;
  auto* image = static_cast<QImage*>(device);
  const bool takes = image->format() == QImage::Format_RGB32 || image->format() == QImage::Format_ARGB32_Premultiplied;
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

// A store with transparency is emptied by Qt in whole px before it is drawn. Where these are no whole pixels more is
// emptied than is drawn, so what stands there is put back.
class KeptPixels {
 public:
  KeptPixels(QBackingStore& store, const QRegion& emptied, double scale) {
    store.beginPaint({});  // for its image alone
    if (const QImage* image = target_of(store, scale)) {
      for (const QRect& px : emptied) {
        const QRectF box(QPointF(px.topLeft()) * scale, QSizeF(px.size()) * scale);
        const QRect about = box.toAlignedRect().adjusted(-1, -1, 1, 1) & image->rect();
        parts_.append({about.topLeft(), image->copy(about)});
      }
    }
    store.endPaint();
  }
  void put_back(QImage& target) const {
    for (const Part& part : parts_) copy(target, part.at, part.pixels, part.pixels.rect());
  }

 private:
  struct Part {
    QPoint at;
    QImage pixels;
  };
  QVarLengthArray<Part, 8> parts_;
};

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
  const bool transparent = window.testAttribute(Qt::WA_TranslucentBackground);
  const QRegion region = region_of(present && !transparent ? std::span(&whole, 1) : shown, scale);
  std::optional<KeptPixels> kept;
  if (transparent && scale != std::floor(scale)) kept.emplace(*store, region, scale);
  store->beginPaint(region);
  QImage* target = target_of(*store, scale);
  const bool fits = target != nullptr && target->rect().contains(whole);
  if (target != nullptr && kept) kept->put_back(*target);
  for (const QRect& box : shown)
    if (fits) copy(*target, at, picture, box.translated(-at));
  store->endPaint();
  if (!fits || (present && present(*target, shown))) return fits;
  store->flush(region_of(shown, scale), screen);
  return fits;
}

}  // namespace tandem
