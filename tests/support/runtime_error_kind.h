// The kind of the run-time error that some work ends with. Fails the test if there is none.
#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "base/runtime_error.h"

namespace tandem::test {

inline RuntimeErrorKind error_of(const std::function<void()>& work) {
  try {
    work();
  } catch (const RuntimeError& error) {
    return error.kind();
  }
  ADD_FAILURE() << "no error";
  return RuntimeErrorKind::Cancelled;
}

}  // namespace tandem::test
