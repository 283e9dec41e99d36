#include "widgets/window/panel_type.h"

#include <QApplication>
#include <QToolTip>

#include "paint/text/caption.h"

namespace tandem {

void use_panel_type(double scale) {
  const QFont font = widget_font(CaptionStyle().size * scale);
  if (QApplication::font() == font) return;
  QApplication::setFont(font);
  QToolTip::setFont(font);  // has one of its own
}

}  // namespace tandem
