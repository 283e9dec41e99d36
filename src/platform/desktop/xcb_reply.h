// What the X server answers, freed when it is no longer needed. Empty after an error.
#pragma once

#include <cstdlib>
#include <memory>

namespace tandem {

struct FreeReply {
  void operator()(void* reply) const { std::free(reply); }
};

template <class Reply>
using XcbReply = std::unique_ptr<Reply, FreeReply>;

}  // namespace tandem
