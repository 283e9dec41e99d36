// The figure of a fault, kept with the test's result: "fault | expected | measured" in the table of tools/reliability.
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace tandem::test {

inline void record_fault(const std::string& fault, const std::string& expected, const std::string& measured) {
  testing::Test::RecordProperty("fault", fault);
  testing::Test::RecordProperty("expected", expected);
  testing::Test::RecordProperty("measured", measured);
}

}  // namespace tandem::test
