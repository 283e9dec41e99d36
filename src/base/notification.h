// One event and its one handler. The handler runs synchronously inside raise(), on the raising thread.
// What the handler throws passes through raise().
#pragma once

#include <functional>
#include <utility>

namespace tandem {

template <class... Arguments>
class Notification {
 public:
  using Handler = std::function<void(Arguments...)>;

  void connect(Handler handler) { handler_ = std::move(handler); }
  void raise(Arguments... arguments) const {
    if (handler_) handler_(arguments...);
  }

 private:
  Handler handler_;
};

}  // namespace tandem
