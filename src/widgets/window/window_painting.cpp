// How the window is painted: its background from a cache, the items over it, and what moves by itself past Qt's
// repainting.

#include <QPaintEvent>
#include <QPainter>

#include "paint/panel/panel_background.h"
#include "paint/panel/window_shadow.h"
#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "paint/surfaces/panels.h"
#include "widgets/items/song_list_item.h"
#include "widgets/window/panel_window.h"

namespace tandem {

namespace {

// The box and what is about it up to the next points that are whole device pixels at every step of 25 %.
QRect on_whole_pixels(const QRect& box) {
  constexpr int kStep = 4;  // px
  const auto down = [](int at) { return at - (at % kStep + kStep) % kStep; };
  return {QPoint(down(box.left()), down(box.top())),
          QPoint(down(box.right()) + kStep - 1, down(box.bottom()) + kStep - 1)};
}

}  // namespace

void PanelWindow::repaint_box(const QRect& box) {
  if (!isMinimized() && !covered_) update(transform_.to_window(QRectF(box)).toAlignedRect());
}

void PanelWindow::repaint_at_once(const QRect& wanted) {
  if (isMinimized() || covered_) return;
  const QRect box = on_whole_pixels(transform_.to_window(QRectF(wanted)).toAlignedRect()) & rect();
  const double scale = devicePixelRatioF();
  const QSize pixels = (QSizeF(box.size()) * scale).toSize();
  if (part_.size() != pixels) part_ = QImage(pixels, QImage::Format_RGB32);
  part_.setDevicePixelRatio(scale);
  QPainter painter(&part_);
  set_up(painter, 1);
  painter.translate(-box.topLeft());
  draw_rect(painter, box);
  painter.end();
  const QRect whole(QPoint(), pixels);
  if (!draw_directly(*this, part_, (QPointF(box.topLeft()) * scale).toPoint(), {&whole, 1}, hooks_.present))
    update(box);
}

void PanelWindow::show_picture(const QImage& picture, const QPointF& at, std::span<const QRect> changed) {
  if (changed.empty() || isMinimized() || covered_) return;
  const double scale = devicePixelRatioF();
  const QPointF corner = transform_.to_window(at) * scale + QPointF(.5, .5);
  const QPoint device(static_cast<int>(std::floor(corner.x())), static_cast<int>(std::floor(corner.y())));
  if (draw_directly(*this, picture, device, changed, hooks_.present)) return;
  for (const QRect& box : changed) {
    const QRect moved = box.translated(device);
    update(QRectF(QPointF(moved.topLeft()) / scale, QSizeF(moved.size()) / scale).toAlignedRect());
  }
}

const QPixmap& PanelWindow::background() {
  const WindowState state{size_now(), controls_.PlayList.Visible, composited_};
  const double scale = devicePixelRatioF() * transform_.factor();
  if (background_scale_ == scale && state == background_state_ && !background_.isNull()) return background_;
  background_scale_ = scale;
  background_state_ = state;
  background_ = QPixmap((QSizeF(size()) * devicePixelRatioF()).toSize());
  background_.fill(composited_ ? Qt::transparent : Qt::black);
  background_.setDevicePixelRatio(devicePixelRatioF());
  QPainter painter(&background_);
  painter.translate(transform_.margin(), transform_.margin());
  set_up(painter, transform_.factor());
  if (composited_) paint_window_shadow(painter, window_size(state.size));
  paint_background(painter, state);
  return background_;
}

// One rectangle at a time: a clip of several makes Qt draw pictures by spans, on threads of its own.
void PanelWindow::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  set_up(painter, 1);
  for (const QRect& rect : event->region()) draw_rect(painter, rect);
}

void PanelWindow::draw_rect(QPainter& painter, const QRect& rect) {
  painter.setClipRect(rect);
  painter.drawPixmap(0, 0, background());
  painter.save();
  painter.translate(transform_.margin(), transform_.margin());
  painter.scale(transform_.factor(), transform_.factor());
  draw_items(painter, transform_.to_panel(QRectF(rect)).toAlignedRect());
  if (drop_ && !list_->isVisible()) draw_drop_frame(painter);
  painter.restore();
}

void PanelWindow::draw_items(QPainter& painter, const QRect& box) {
  if (visual_->painted_box().contains(box)) return visual_->draw(painter);
  const QRect glass = control_box("MMPanelX1(1)").box();
  bool shine_due = box.intersects(glass);
  for (const PanelItem* item : items_) {
    const bool on_glass = item->place().group == ControlGroup::Display;
    if (shine_due && !on_glass) {
      paint_glass_shine(painter, glass);
      shine_due = false;
    }
    if (!item->isHidden() && box.intersects(item->painted_box())) item->draw(painter);
  }
}

// Where no list is in sight, files are dropped on the whole panel.
void PanelWindow::draw_drop_frame(QPainter& painter) {
  const QRectF frame = QRectF(QPointF(), QSizeF(window_size(size_now()))).adjusted(3, 3, -3, -3);
  frame_box(painter, frame, faded(palette::kFocus, .14), 3, 4);
  frame_box(painter, frame, faded(palette::kFocus, .9), 1.2, 4);
}

}  // namespace tandem
