#include "widgets/display_area/level_bar_view.h"

#include <algorithm>

#include "layout/panel_layout.h"
#include "paint/displays/level_bar.h"
#include "paint/surfaces/panels.h"

namespace tandem {

LevelBarView::LevelBarView(LevelBar& bar) : ViewOf(bar, "MMLevelX1", control_box("MMLevelX1").box()) {}

void LevelBarView::draw(QPainter& painter) const {
  painter.save();
  painter.setClipRect(area(), Qt::IntersectClip);
  paint_level_bar(painter, area(), {display().lit()[0], display().lit()[1]});
  paint_glass_shine(painter, control_box("Display well").box());
  painter.restore();
}

int LevelBarView::percent() const { return std::max(display().lit()[0], display().lit()[1]) * 100 / LevelBar::kRows; }

std::optional<ItemValue> LevelBarView::value() const { return ItemValue{static_cast<double>(percent()), 0, 100, 1}; }

QString LevelBarView::value_text() const { return QString::number(percent()) + " %"; }

}  // namespace tandem
