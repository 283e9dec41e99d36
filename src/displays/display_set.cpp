#include "displays/display_set.h"

#include <memory>

#include "displays/meters/level_bar.h"
#include "displays/meters/needle_meter.h"
#include "displays/scope/oscilloscope.h"
#include "displays/spectrum/spectrum_analyser.h"

namespace tandem {

void add_displays(SoundGraph& graph) {
  graph.MMSpectrum1 = std::make_unique<SpectrumAnalyser>();
  graph.MMMeterX1 = std::make_unique<NeedleMeter>(0);
  graph.MMMeterX2 = std::make_unique<NeedleMeter>(1);
  graph.MMLevelX1 = std::make_unique<LevelBar>();
  graph.MMOscopeX1 = std::make_unique<Oscilloscope>();
}

}  // namespace tandem
