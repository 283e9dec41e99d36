#include "paint/panel/panel_style.h"

#include <QColor>
#include <algorithm>
#include <cmath>

#include "paint/strokes/palette.h"
#include "paint/text/caption.h"

namespace tandem {

namespace {

using namespace Qt::StringLiterals;

constexpr double kTextSize = 10.5;  // px at 100 %
constexpr QRgb kPlateTop = 0xFF2F343A;
constexpr QRgb kPlateBottom = 0xFF202429;
constexpr QRgb kDisabledText = 0xFF6F767E;

QString name(QRgb colour) { return QColor::fromRgb(colour).name(); }

QString px(double length, double scale) { return QString::number(std::max(1., std::round(length * scale))) + u"px"_s; }

QString plate() {
  return u"qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 %1, stop:1 %2)"_s.arg(name(kPlateTop), name(kPlateBottom));
}

QString tip_rule(double scale) {
  return u"QToolTip { color: %1; background: %2; border: 1px solid %3; padding: %4 %5; }"_s.arg(
      name(palette::kLegend), plate(), name(palette::kOuterEdge), px(3, scale), px(6, scale));
}

QString menu_rules(double scale) {
  return u"QMenu { color: %1; background: %2; border: 1px solid %3; padding: %4 0; }"
         u"QMenu::item { padding: %5 %6; }"
         u"QMenu::item:selected { color: %7; background: %8; }"
         u"QMenu::item:disabled { color: %9; }"_s.arg(name(palette::kLegend), plate(), name(palette::kOuterEdge),
                                                      px(4, scale), px(2, scale), px(14, scale), name(palette::kWhite),
                                                      name(palette::kListSelected), name(kDisabledText)) +
         u"QMenu::separator { height: 1px; background: %1; margin: %2 %3; }"_s.arg(name(palette::kOuterEdge),
                                                                                   px(3, scale), px(8, scale));
}

QString key_rules(double scale) {
  return u"QPushButton { color: %1; background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 %2, stop:1 %3);"
         u" border: %4 solid %5; border-radius: %6; padding: %7 %8; }"_s.arg(
             name(palette::kLegend), name(palette::kTileTop), name(palette::kTileBottom), px(2, scale),
             name(palette::kNeutralKey), px(3, scale), px(4, scale), px(12, scale)) +
         u"QPushButton:hover { background: %1; } QPushButton:pressed { background: %2; }"
         u"QPushButton:focus { border-color: %3; } QPushButton:disabled { color: %4; }"_s.arg(
             name(palette::kTileHoverTop), name(palette::kOuterEdge), name(palette::kFocus),
             name(palette::kDisabledCaption));
}

}  // namespace

QFont panel_font(double scale) {
  QFont font = caption_font(kTextSize);
  font.setPixelSize(std::max(8, static_cast<int>(std::lround(kTextSize * scale))));
  return font;
}

QString panel_style_sheet(double scale) { return tip_rule(scale) + menu_rules(scale) + key_rules(scale); }

}  // namespace tandem
