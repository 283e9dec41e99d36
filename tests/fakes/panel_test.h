// The base of the tests of the panel's logic: a whole panel over fakes, and short names for its parts.
#pragma once

#include <gtest/gtest.h>

#include "fakes/test_panel.h"

namespace tandem::test {

struct PanelTest : testing::Test {
  TestPanel panel;
  PanelControls& controls = panel.controls;
  RunState& state = panel.state;
  SongEntries& table = panel.program.SongTable;
};

}  // namespace tandem::test
