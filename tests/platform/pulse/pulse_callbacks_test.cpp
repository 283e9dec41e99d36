// A stream that is given up is never called again.
#include <gtest/gtest.h>

#include "platform/pulse/late_callbacks.h"
#include "platform/pulse/pulse_output_fixture.h"

namespace tandem {
namespace {

class PulseCallbacksTest : public PulseOutputFixture {
 protected:
  void SetUp() override { server_.start(); }
  void expect_none_late() const {
    // The server has answered everything that was asked before once another stream plays.
    EXPECT_EQ(test::late_callbacks(), 0);
    EXPECT_GT(test::disconnected_streams(), 0);
  }

  OutputFeeder feeder_{ring_, output_, kKeep};
};

TEST_F(PulseCallbacksTest, NoneComesLateWhenTheBufferChanges) {
  output_.set_queue_length(4);
  output_.start();
  for (int i = 0; i < 6; ++i) {
    ASSERT_TRUE(played_further(kRequest * 2));
    output_.stop();
    output_.close();
    output_.open(i % 2 == 0 ? 2 * kBuffer : kBuffer);
    output_.start();
  }
  ASSERT_TRUE(played_further(kRequest * 8));
  expect_none_late();
}

TEST_F(PulseCallbacksTest, NoneComesLateWhenTheQueueIsResizedBeforeTheClose) {
  output_.start();
  for (int i = 0; i < 6; ++i) {
    ASSERT_TRUE(played_further(kRequest * 2));
    output_.set_queue_length(19);
    output_.close();
    output_.set_queue_length(3);
    output_.start();
  }
  ASSERT_TRUE(played_further(kRequest * 8));
  expect_none_late();
}

TEST_F(PulseCallbacksTest, NoneComesLateWhenTheSinkGoes) {
  output_.start();
  ASSERT_TRUE(played_further(kRequest * 2));
  server_.unload_sink("null0");
  ASSERT_TRUE(wait_until([this] { return !output_.consuming(); }));
  server_.load_sink("null0");
  ASSERT_TRUE(played_further(kRequest * 4));
  expect_none_late();
}

}  // namespace
}  // namespace tandem
