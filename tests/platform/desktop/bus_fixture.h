// Tests of what talks over a bus: an event loop, and questions asked while it runs.
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>

#include "platform/desktop/bus_test_daemon.h"

namespace tandem {

class BusFixture : public testing::Test {
 protected:
  static bool soon(const std::function<bool()>& holds) {
    return wait_until([&] {
      QCoreApplication::processEvents();
      return holds();
    });
  }

  // Nothing is written to standard error, whatever happens.
  void SetUp() override { testing::internal::CaptureStderr(); }
  void TearDown() override { EXPECT_EQ(testing::internal::GetCapturedStderr(), ""); }

 private:
  int words_ = 1;
  char name_[7] = "tandem";
  char* word_ = name_;

 protected:
  QCoreApplication application_{words_, &word_};
  BusTestDaemon bus_;
};

}  // namespace tandem
