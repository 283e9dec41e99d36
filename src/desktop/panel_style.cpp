#include "desktop/panel_style.h"

#include <QPainter>
#include <QStyleOption>

#include "paint/strokes/palette.h"

namespace tandem {

void PanelStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
  if (element == PE_PanelMenu) {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    painter->save();
    painter->setPen(QColor::fromRgb(palette::kFaceplate[0]));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    painter->restore();
    return;
  }
  if (element != PE_PanelTipLabel) return QProxyStyle::drawPrimitive(element, option, painter, widget);
  painter->fillRect(option->rect, QColor::fromRgb(palette::kFaceplate[0]));
  painter->fillRect(option->rect.adjusted(1, 1, -1, -1), option->palette.toolTipBase());
}

int PanelStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* data) const {
  if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
  if (hint == SH_EtchDisabledText) return 0;  // on a dark ground it looks as if printed twice
  return QProxyStyle::styleHint(hint, option, widget, data);
}

}  // namespace tandem
