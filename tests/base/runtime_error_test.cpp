#include "base/runtime_error.h"

#include <gtest/gtest.h>

#include <string>

#include "base/notification.h"
#include "base/rounding.h"

namespace tandem {
namespace {

TEST(RuntimeErrors, TheTextIsTheReasonAndThePath) {
  EXPECT_STREQ(RuntimeError(RuntimeErrorKind::Overflow).what(), "Overflow");
  EXPECT_STREQ(RuntimeError(RuntimeErrorKind::FileNotFound, "/opt/TP.inf").what(), "File not found: /opt/TP.inf");
}

TEST(RuntimeErrors, EveryKindHasItsOwnReason) {
  const RuntimeErrorKind kinds[] = {RuntimeErrorKind::Overflow,     RuntimeErrorKind::Range,
                                    RuntimeErrorKind::InvalidValue, RuntimeErrorKind::InputPastEnd,
                                    RuntimeErrorKind::FileNotFound, RuntimeErrorKind::FileAccess,
                                    RuntimeErrorKind::Cancelled};
  for (const auto first : kinds)
    for (const auto second : kinds)
      EXPECT_EQ(first == second, std::string(RuntimeError(first).what()) == RuntimeError(second).what());
}

TEST(Widths, AreSixteenBitsOrAnOverflow) {
  EXPECT_EQ(to_int16(32767), 32767);
  EXPECT_EQ(to_int16(-32768), -32768);
  EXPECT_THROW(to_int16(32768), RuntimeError);
  EXPECT_THROW(to_int16(-32769), RuntimeError);
}

TEST(Widths, AreThirtyTwoBitsOrAnOverflow) {
  EXPECT_EQ(to_int32(2147483647), 2147483647);
  EXPECT_THROW(to_int32(2147483648), RuntimeError);
  EXPECT_THROW(to_int32(-2147483649), RuntimeError);
}

TEST(Rounding, TakesHalvesToTheEvenNumber) {
  EXPECT_EQ(rounded_half_to_even(0.5), 0.0);
  EXPECT_EQ(rounded_half_to_even(1.5), 2.0);
  EXPECT_EQ(rounded_half_to_even(-0.5), 0.0);
  EXPECT_EQ(rounded_half_to_even(-1.5), -2.0);
  EXPECT_EQ(rounded_half_to_even(2.4999), 2.0);
  EXPECT_EQ(rounded_half_to_even(2.5001), 3.0);
}

TEST(Notifications, RunTheirHandlerWithinTheRaise) {
  Notification<int> event;
  event.raise(1);  // no listener
  int heard = 0;
  event.connect([&](int value) { heard = value; });
  event.raise(7);
  EXPECT_EQ(heard, 7);
}

}  // namespace
}  // namespace tandem
