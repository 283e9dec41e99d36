// Any bytes as a playlist file: it opens as far as it goes, the lists stay in step, and what is saved can be opened.
#include "fakes/test_panel.h"
#include "fuzz_target.h"
#include "support/bytes.h"

using namespace tandem;

namespace {

void check_lists(const test::TestPanel& panel) {
  const PanelControls& controls = panel.controls;
  fuzz::require(controls.ListAux2.ListCount() >= controls.PlayList.ListCount(), "the twin is not shorter");
  fuzz::require(controls.PlayList.ListCount() <= 201, "at most 201 fields are read");
  fuzz::require(panel.state.SongCount <= 201 && panel.state.SongCount <= controls.PlayList.ListCount(),
                "no more songs than lines");
  for (std::int32_t i = 0; i < controls.PlayList.ListCount(); ++i)
    fuzz::require(controls.PlayList.List(i).size() >= 5, "a line has a number");
}

void open(test::TestPanel& panel, const std::string& path) {
  panel.dialog.answers.push_back(path);
  panel.controls.LoadList.click.raise();
  check_lists(panel);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  test::TestPanel panel;
  for (const char* song : {"/m/a.mp3", "/m/b.mp3", "C:\\c.mp3", "a"}) panel.sound.files.lengths[song] = 1000;
  test::write_file(panel.directory.file("list.m3l"), {data, data + size});
  open(panel, panel.directory.file("list.m3l"));
  panel.controls.PLAY.click.raise();
  panel.tick();
  panel.dialog.answers.push_back(panel.directory.file("saved.m3l"));
  panel.controls.SaveList.click.raise();
  open(panel, panel.directory.file("saved.m3l"));
  if (panel.controls.PlayList.ListCount() > 0) panel.controls.PlayList.user_double_click(0);
  panel.controls.DownList.click.raise();
  return 0;
}
