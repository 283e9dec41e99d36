#include "paint/controls/spinner.h"

#include <string>

#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "paint/text/seven_segment.h"

namespace tandem {

namespace {

constexpr double kButtonWidth = 13;

double button_height(const QRectF& box) { return (box.height() - 3) / 2; }

std::string shown_digits(const SpinnerState& look) {
  const auto places = static_cast<std::size_t>(look.digits);
  std::string text = std::to_string(look.value);
  if (text.size() < places) text.insert(0, places - text.size(), ' ');
  return text.substr(text.size() - places);
}

void paint_face(QPainter& painter, const QRectF& face, bool lime) {
  const QBrush brush = lime ? downward(face, {{0, palette::kLimeSpinnerTop}, {1, palette::kLimeSpinnerBottom}})
                            : downward(face, {{0, palette::kWhiteSpinnerTop}, {1, palette::kWhiteSpinnerBottom}});
  fill_box(painter, face, brush, 1.5);
}

void paint_digits(QPainter& painter, const QRectF& face, const SpinnerState& look) {
  const double width = kDigitAdvance * look.digits - (kDigitAdvance - kDigitWidth);
  QPointF at(face.left() + (face.width() - width) / 2 - .6, face.center().y() - kDigitHeight / 2);
  for (const char digit : shown_digits(look)) {
    paint_digit(painter, at, digit, look.lime ? palette::kLime : palette::kWhite,
                look.lime ? palette::kLimeSegmentDark : palette::kWhiteSegmentDark);
    at.rx() += kDigitAdvance;
  }
}

void paint_button(QPainter& painter, const QRectF& box, const InteractionState& interaction, double direction) {
  const QRgb top = interaction.pressed ? 0xFF15181A : mixed(0xFF565C63, 0xFF6B727A, interaction.hover);
  const QRgb bottom = interaction.pressed ? 0xFF2A2E33 : mixed(0xFF30343A, 0xFF40454B, interaction.hover);
  fill_box(painter, box, downward(box, {{0, top}, {1, bottom}}), 1.2);
  if (!interaction.pressed) {
    fill_box(painter, {box.left() + .5, box.top(), box.width() - 1, .8}, faded(palette::kWhite, .28));
  }
  const QPointF centre = box.center() + QPointF(0, interaction.pressed ? .5 : 0);
  fill_path(painter,
            polygon_path({centre + QPointF(-3, -1.6 * direction), centre + QPointF(0, 1.6 * direction),
                          centre + QPointF(3, -1.6 * direction)}),
            QColor::fromRgb(palette::kLegend));
}

}  // namespace

QRectF spinner_up_box(const QRectF& box) {
  return {box.right() - kButtonWidth - 1, box.top() + 1, kButtonWidth, button_height(box)};
}

QRectF spinner_down_box(const QRectF& box) { return spinner_up_box(box).translated(0, button_height(box) + 1); }

void paint_spinner(QPainter& painter, const QRectF& box, const SpinnerState& look) {
  fill_box(painter, box.adjusted(0, 0, 0, 1), faded(palette::kWhite, .14), 2.5);
  fill_box(painter, box, QColor::fromRgb(palette::kWellRim), 2.5);
  const QRectF face(box.left() + 1, box.top() + 1, box.width() - kButtonWidth - 3, box.height() - 2);
  paint_face(painter, face, look.lime);
  paint_digits(painter, face, look);
  fill_box(painter, {face.left(), face.top(), face.width(), 2}, faded(palette::kBlack, .35));
  paint_button(painter, spinner_up_box(box), look.up, -1);
  paint_button(painter, spinner_down_box(box), look.down, 1);
  if (look.focused) paint_focus_ring(painter, box, 3);
}

}  // namespace tandem
