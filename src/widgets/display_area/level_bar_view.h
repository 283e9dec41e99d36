// The level bar between the needles: so little that it is painted as it is. UI thread.
#pragma once

#include "displays/meters/level_bar.h"
#include "widgets/display_area/display_view.h"

namespace tandem {

class LevelBarView final : public ViewOf<LevelBar> {
 public:
  explicit LevelBarView(LevelBar& bar);
  ChangedPicture update(double) override { return {}; }
  void draw(QPainter& painter) const override;
  bool is_beside() const override { return true; }
  std::optional<ItemValue> value() const override;
  QString value_text() const override;

 private:
  int percent() const;
};

}  // namespace tandem
