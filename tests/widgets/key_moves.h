// Keys that move the control with the focus.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>

#include "widgets/window_rig.h"

namespace tandem::test {

// Presses one key after the other; each one leaves the control at its value.
inline void expect_keys_move(WindowRig& rig, const ValuedControl& control,
                             std::initializer_list<std::pair<Qt::Key, int>> moves) {
  for (const auto& [key, value] : moves) {
    rig.key(key);
    EXPECT_EQ(control.value(), value) << key;
  }
}

}  // namespace tandem::test
