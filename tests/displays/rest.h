// A display that comes to rest when the sound ends.
#pragma once

#include <gtest/gtest.h>

#include "displays/tones.h"

namespace tandem {

// Plays `sound` to the display until `end` seconds. It moves while the first `sounding` seconds are heard; at the end
// it is at rest and no longer changes.
inline void expect_rest_after(SoundDisplay& display, const Sound& sound, double sounding, double end) {
  Screen screen(display, sound);
  screen.run(sounding);
  EXPECT_FALSE(display.at_rest());
  screen.run(end);
  EXPECT_TRUE(display.at_rest());
  EXPECT_FALSE(screen.picture(1.0 / 60.0));
}

}  // namespace tandem
