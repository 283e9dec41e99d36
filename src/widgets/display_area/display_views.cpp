#include "widgets/display_area/display_views.h"

#include "layout/panel_layout.h"
#include "widgets/display_area/level_bar_view.h"
#include "widgets/display_area/picture_views.h"
#include "widgets/display_area/spectrum_view.h"

namespace tandem {

DisplayViews views_of(SoundGraph& sound) {
  const auto meter = [](MMMeterX& component) -> NeedleMeter& { return static_cast<NeedleMeter&>(component); };
  DisplayViews views;
  views.push_back(std::make_unique<SpectrumView>(static_cast<SpectrumAnalyser&>(*sound.MMSpectrum1)));
  views.push_back(std::make_unique<NeedleView>(meter(*sound.MMMeterX1), "MMMeterX1", left_meter_box(), false));
  views.push_back(std::make_unique<LevelBarView>(static_cast<LevelBar&>(*sound.MMLevelX1)));
  views.push_back(std::make_unique<NeedleView>(meter(*sound.MMMeterX2), "MMMeterX2", right_meter_box(), true));
  views.push_back(std::make_unique<ScopeView>(static_cast<Oscilloscope&>(*sound.MMOscopeX1)));
  return views;
}

}  // namespace tandem
