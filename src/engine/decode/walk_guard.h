// Cancels a long scan of a song's file from outside, and reports its progress.
// Called by the thread that walks, before each step and at most 64 KiB of the file apart, with the offset reached. The
// walk ends when it returns false; what was found so far stays known, and the walk can be taken up again.
#pragma once

#include <cstdint>
#include <functional>

namespace tandem {

using WalkGuard = std::function<bool(std::int64_t offset)>;  // empty: never ends a walk

}  // namespace tandem
