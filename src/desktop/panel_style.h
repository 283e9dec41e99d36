// The desktop's own style, calmer where it would be louder than the panel: tips and menus have a dim edge instead of
// one in the colour of their text, disabled words no light shadow, and the keys of dialogs no pictures, of which some
// cannot be seen on dark ground. UI thread.
#pragma once

#include <QProxyStyle>

namespace tandem {

class PanelStyle final : public QProxyStyle {
 public:
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override;
};

}  // namespace tandem
