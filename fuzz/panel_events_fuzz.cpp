// Bytes, three for an act, as a user of the whole player.
#include <algorithm>

#include "fuzz_target.h"
#include "panel_user.h"

namespace {

struct Count {
  std::size_t acts = 0;
  ~Count() { std::printf("%zu acts\n", acts); }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kMostActs = 1000;
  static const tandem::fuzz::SongShelf shelf;
  static Count count;
  tandem::fuzz::PanelUser user(shelf);
  const std::size_t acts = std::min(size / 3, kMostActs);
  count.acts += acts;
  for (std::size_t i = 0; i < acts; ++i) {
    user.act(data[3 * i], data[3 * i + 1], data[3 * i + 2]);
    user.check();
  }
  user.leave_alone();
  user.check();
  return 0;
}
