// Under a sanitizer a test takes ten times as long, and more so under an emulated processor. What it looks for is found
// by fewer random seeds, and by one of several measures that run the same code; the release build makes them all. A
// constant; any thread.
#pragma once

namespace tandem::test {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || defined(TANDEM_EMULATED)
inline constexpr bool kShortRuns = true;
#else
inline constexpr bool kShortRuns = false;
#endif

}  // namespace tandem::test
