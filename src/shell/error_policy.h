// What becomes of an error that ends a handler. Start-up, shut-down and settings have no policy: their errors reach the
// caller. UI thread.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "base/notification.h"
#include "base/runtime_error.h"

namespace tandem {

class ErrorPolicy {
 public:
  ErrorPolicy(const Notification<const RuntimeError&>& ended_early,
              std::function<void(const std::string&)> show_message)
      : ended_early_(&ended_early), show_message_(std::move(show_message)) {}

  // The handler ends and keeps what it did.
  template <class Handler>
  auto silently(Handler handler) const {
    return [handler, ended_early = ended_early_](const auto&... arguments) {
      try {
        handler(arguments...);
      } catch (const RuntimeError& error) {
        ended_early->raise(error);
      }
    };
  }

  // The same, and a message says why.
  template <class Handler>
  auto with_message(Handler handler) const {
    return [handler, show = show_message_](const auto&... arguments) {
      try {
        handler(arguments...);
      } catch (const RuntimeError& error) {
        if (show) show(error.what());
      }
    };
  }

 private:
  const Notification<const RuntimeError&>* ended_early_;
  std::function<void(const std::string&)> show_message_;
};

}  // namespace tandem
