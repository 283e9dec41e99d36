// Under a sanitizer a test takes ten times as long. What it looks for is found by fewer random seeds, and by one of
// several measures that run the same code; the release build makes them all. A constant; any thread.
#pragma once

namespace tandem::test {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool kSanitized = true;
#else
inline constexpr bool kSanitized = false;
#endif

}  // namespace tandem::test
