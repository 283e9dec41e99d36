// The desktop's own style, calmer where it would be louder than the panel: a tip has a dim edge instead of one in the
// colour of its text, and the keys of dialogs have no pictures, of which some cannot be seen on dark ground. UI thread.
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
