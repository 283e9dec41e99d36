// Makes libsoxr fail in this test program, as without memory: its functions are taken over.
#pragma once

namespace tandem::test {

// While it lives no converter can be made, and those that there are fail. One at a time; any thread.
class FailingResampler {
 public:
  FailingResampler();
  ~FailingResampler();
  FailingResampler(const FailingResampler&) = delete;
  FailingResampler& operator=(const FailingResampler&) = delete;
};

}  // namespace tandem::test
