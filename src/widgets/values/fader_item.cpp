#include "widgets/values/fader_item.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "widgets/items/time_text.h"
#include "widgets/items/wheel_steps.h"

namespace tandem {

namespace {

constexpr double kSecond = 1000;  // milliseconds

QString end_in_words(const MixView& view) {
  if (view.skipped) return QStringLiteral("fades out");
  const int left = (std::max(0, view.counted->length - view.counted->position) + 999) / 1000;
  return QStringLiteral("ends in %1 s").arg(left);
}

// Empty where no two songs sound.
QString mixing_text(const MixView& view) {
  if (!view.counted || !view.other) return {};
  return QStringLiteral("Mixing: %1 %2, %3")
      .arg(QString::fromStdString(view.counted->name), end_in_words(view), QString::fromStdString(view.other->name));
}

}  // namespace

SlidingItem::SlidingItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Slider& slider)
    : PanelItem(panel, canvas, place, &slider), slider_(slider) {}

std::optional<ItemValue> SlidingItem::value_range() const {
  return ItemValue{static_cast<double>(slider_.value()), static_cast<double>(slider_.minimum()),
                   static_cast<double>(slider_.maximum()), static_cast<double>(wheel_step())};
}

void SlidingItem::put_by_user(double value) {
  if (slider_.held()) return;
  const double wanted = std::clamp(value, double(slider_.minimum()), double(slider_.maximum()));
  slider_.user_press();
  move_to(static_cast<std::int32_t>(std::lround(wanted)));
  slider_.user_release();
}

void SlidingItem::move_to(std::int32_t value) {
  if (std::clamp(value, slider_.minimum(), slider_.maximum()) != slider_.value()) slider_.move(value);
}

void SlidingItem::let_go() {
  key_down_ = 0;
  set_pressed(false);
  slider_.user_release();
}

void SlidingItem::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  set_pressed(true);
  slider_.user_press();
  const QPointF at = panel_position(event->position());
  const QRectF cap = cap_now();
  grip_ = cap.contains(at) ? at - cap.center() : QPointF();
  move_to(value_at(at - grip_));
}

void SlidingItem::mouseMoveEvent(QMouseEvent* event) {
  if (is_pressed()) move_to(value_at(panel_position(event->position()) - grip_));
}

void SlidingItem::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) let_go();
}

void SlidingItem::wheelEvent(QWheelEvent* event) {
  const int steps = whole_wheel_steps(*event, wheel_rest_);
  if (steps != 0) put_by_user(slider_.value() + double{1} * steps * wheel_step());
  event->accept();
}

void SlidingItem::keyPressEvent(QKeyEvent* event) {
  const auto value = value_after(event->key());
  if (!value || (event->modifiers() & Qt::ControlModifier) != 0) return PanelItem::keyPressEvent(event);
  key_down_ = event->key();
  slider_.user_press();
  move_to(*value);
}

void SlidingItem::keyReleaseEvent(QKeyEvent* event) {
  if (event->isAutoRepeat() || event->key() != key_down_) return PanelItem::keyReleaseEvent(event);
  let_go();
}

void SlidingItem::cancel_press() {
  if (slider_.held()) let_go();
}

FaderState FaderItem::look() const {
  return {static_cast<double>(slider().value()),
          static_cast<double>(slider().minimum()),
          static_cast<double>(slider().maximum()),
          cap_,
          lit_colour_,
          interaction()};
}

void FaderItem::draw(QPainter& painter) const { paint_fader(painter, box(), look()); }

std::int32_t FaderItem::value_at(const QPointF& panel_position) const {
  return static_cast<std::int32_t>(std::lround(fader_value(box(), look(), panel_position.y())));
}

QRectF FaderItem::cap_now() const { return fader_cap(box(), look()); }

std::optional<std::int32_t> FaderItem::value_after(int key) const {
  switch (key) {
    case Qt::Key_Up:
      return slider().value() + 1;
    case Qt::Key_Down:
      return slider().value() - 1;
    case Qt::Key_PageUp:
      return slider().value() + page_step_;
    case Qt::Key_PageDown:
      return slider().value() - page_step_;
    case Qt::Key_Home:
      return slider().maximum();
    case Qt::Key_End:
      return slider().minimum();
    default:
      return std::nullopt;
  }
}

// Its second press and release bring the fader to 0, wherever the first ones have left it.
void FaderItem::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  slider().user_press();
  move_to(0);
}

BandItem::BandItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Slider& slider, int band)
    : FaderItem(panel, canvas, place, slider, QSizeF(14, 12), 0xFF00FF00, 3), band_(band) {}

std::optional<std::int32_t> BandItem::value_after(int key) const {
  return key == Qt::Key_0 ? 0 : FaderItem::value_after(key);
}

void BandItem::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Left) return go_to_band(band_ - 1);
  if (event->key() == Qt::Key_Right) return go_to_band(band_ + 1);
  FaderItem::keyPressEvent(event);
}

void BandItem::focusInEvent(QFocusEvent* event) {
  was_used(*this);
  FaderItem::focusInEvent(event);
}

double PositionItem::share() const {
  const double range = slider().maximum() - slider().minimum();
  return range > 0 ? slider().value() / range : 0.0;
}

// Where it was last painted: what is painted beside it must not draw a part of the cap elsewhere.
void PositionItem::draw(QPainter& painter) const {
  SliderState state;
  state.share = drawn_share_ < 0 ? share() : drawn_share_;
  state.next_start = mark_;
  state.overlapping = second_;
  state.interaction = interaction();
  paint_slider(painter, box(), state);
}

// The cap and, outside of it, no more than the focus ring.
QRect PositionItem::drawn_box() const {
  constexpr double kRing = 4;
  return box().adjusted(-kRing, -kRing, kRing, kRing).toAlignedRect();
}

// A song that plays moves the cap by a part of a pixel five times a second: it is drawn again where that can be seen.
void PositionItem::model_changed() {
  const double moved = std::abs(share() - drawn_share_) * box().width() * device_scale();
  const bool usual = drawn_share_ >= 0 && isEnabled() == slider().Enabled.get();
  if (usual && moved < 0.5) return;
  const QRectF ways = cap_box(drawn_share_) | cap_box(share());
  drawn_share_ = share();
  if (!usual) return changed();
  if (isVisible()) canvas().repaint_box(ways.toAlignedRect() & drawn_box());
}

// Whether two places on the slider are half a pixel apart, or one of them is not there.
bool PositionItem::seen_apart(std::optional<double> a, std::optional<double> b) const {
  if (!a || !b) return a.has_value() != b.has_value();
  return std::abs(*a - *b) * box().width() * device_scale() >= 0.5;
}

// The mark is where the cap's middle is when the next song begins. A skipped song fades wherever it stands.
void PositionItem::show_mix(const MixView& view) {
  const double range = slider().maximum() - slider().minimum();
  const auto share_of = [](std::int32_t at, double of) { return of > 0 ? std::clamp(at / of, 0.0, 1.0) : 0.0; };
  const std::optional<std::int32_t> next_at = view.skipped ? std::nullopt : view.mix_at;
  std::optional<double> mark;
  if (next_at && range > 0) mark = share_of(*next_at, range);
  std::optional<double> second;
  if (view.other) second = share_of(view.other->position, view.other->length);
  const bool mixed = !mixing_.isEmpty();
  mixing_ = mixing_text(view);
  if (mixed == mixing_.isEmpty()) canvas().description_changed(*this);
  next_ = next_at ? QStringLiteral(", next song at ") + minutes_and_seconds(*next_at) : QString();
  if (!seen_apart(mark, mark_) && !seen_apart(second, second_)) return;
  mark_ = mark;
  second_ = second;
  if (isVisible()) canvas().repaint_box(drawn_box());
}

QRectF PositionItem::cap_at(double share) const {
  const double left = box().left() + share * (box().width() - kSliderCapWidth);
  return {left, box().top(), kSliderCapWidth, box().height()};
}

// What the cap covers with the light about it and the lit end of its groove.
QRectF PositionItem::cap_box(double share) const {
  constexpr double kAbout = 6;
  return cap_at(share).adjusted(-kAbout, -kAbout, kAbout, kAbout);
}

QString PositionItem::accessible_description() const {
  return mixing_.isEmpty() ? accessible_value() + next_ : mixing_;
}

QString PositionItem::accessible_value() const {
  return minutes_and_seconds(slider().value()) + " of " + minutes_and_seconds(slider().maximum());
}

std::optional<ItemValue> PositionItem::value_range() const {
  return ItemValue{std::floor(slider().value() / kSecond), 0, std::floor(slider().maximum() / kSecond),
                   wheel_step() / kSecond};
}

void PositionItem::put_value(double seconds) { put_by_user(seconds * kSecond); }

std::int32_t PositionItem::value_at(const QPointF& panel_position) const {
  const double way = box().width() - kSliderCapWidth;
  const double share = (panel_position.x() - box().left() - kSliderCapWidth / 2) / way;
  return static_cast<std::int32_t>(std::lround(std::clamp(share, 0.0, 1.0) * slider().maximum()));
}

std::optional<std::int32_t> PositionItem::value_after(int key) const {
  constexpr std::int32_t kStep = 5000;  // milliseconds
  constexpr std::int32_t kPage = 30000;
  switch (key) {
    case Qt::Key_Left:
      return slider().value() - kStep;
    case Qt::Key_Right:
      return slider().value() + kStep;
    case Qt::Key_PageUp:
      return slider().value() + kPage;
    case Qt::Key_PageDown:
      return slider().value() - kPage;
    case Qt::Key_Home:
      return slider().minimum();
    case Qt::Key_End:
      return slider().maximum();
    default:
      return std::nullopt;
  }
}

}  // namespace tandem
