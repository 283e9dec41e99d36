// Takes the look of the real panel.
#pragma once

#include <vector>

#include "fakes/test_panel.h"
#include "model/panel_model.h"

namespace tandem::model {

PanelLook look_at(test::TestPanel& panel);

// The recorded calls of the components whose calls the model keeps.
std::vector<std::string> transport_calls(const test::FakeSound& sound);

}  // namespace tandem::model
