// The program on a desktop of its own with a screen reader's bus: what it shows is read there, what it plays is heard
// in a recording of the sound server. One thread.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "app/assistive_bus.h"
#include "app/real_player.h"
#include "app/tone_times.h"

namespace tandem::test {

class AssistiveFixture : public testing::Test {
 protected:
  void SetUp() override {
    if (!AssistiveBus::installed()) GTEST_SKIP() << "at-spi2-core is not installed";
    desktop.sound.start();
    bus = std::make_unique<AssistiveBus>();
  }
  // In place of one that runs already.
  void start(const std::string& settings) {
    player.reset();
    player = std::make_unique<RealPlayer>(desktop, settings);
    ASSERT_TRUE(player->show_up()) << player->errors();
    ASSERT_TRUE(bus->find("Tandem"));
  }
  // Once the recording has begun.
  bool hears(double tone) const {
    return wait_until([&] { return find_tone(desktop.sound.recording(), tone).has_value(); });
  }

  Desktop desktop;
  std::unique_ptr<AssistiveBus> bus;
  std::unique_ptr<RealPlayer> player;
};

}  // namespace tandem::test
