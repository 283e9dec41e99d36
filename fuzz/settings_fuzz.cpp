// Any bytes as TP.inf: the panel loads or reports an error, and what it writes at its end can be read again.
#include "fakes/test_panel.h"
#include "fuzz_target.h"
#include "support/bytes.h"

using namespace tandem;

namespace {

bool load(test::TestPanel& panel) {
  try {
    panel.program.panel.load();
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  test::TestPanel panel;
  test::write_file(panel.directory.file("TP.inf"), {data, data + size});
  if (!load(panel)) return 0;
  const PanelControls& controls = panel.controls;
  fuzz::require(controls.Volume.value() >= 0 && controls.Volume.value() <= 32768, "the volume is within its range");
  for (const auto& band : controls.sl0)
    fuzz::require(band.value() >= -12 && band.value() <= 12, "a band is within 12 dB");
  panel.program.panel.unload();

  test::TestPanel next;
  const test::Bytes written = test::read_file(panel.directory.file("TP.inf"));
  test::write_file(next.directory.file("TP.inf"), written);
  fuzz::require(load(next), "what was written is read");
  next.program.panel.unload();
  fuzz::require(test::read_file(next.directory.file("TP.inf")) == written, "what was read is written the same");
  return 0;
}
