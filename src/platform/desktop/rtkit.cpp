#include "platform/desktop/rtkit.h"

#include <algorithm>
#include <utility>

#include "platform/realtime/realtime_guard.h"
#include "platform/realtime/realtime_priority.h"

namespace tandem {

namespace {

constexpr const char* kService = "org.freedesktop.RealtimeKit1";
constexpr const char* kServiceObject = "/org/freedesktop/RealtimeKit1";
constexpr std::int64_t kNiceness = -11;  // as sound servers take it

sd_bus_message* new_call(sd_bus* bus, const char* interface, const char* method) {
  sd_bus_message* message = nullptr;
  sd_bus_message_new_method_call(bus, &message, kService, kServiceObject, interface, method);
  return message;
}

// As the type says, 32 or 64 bits wide.
void append_number(sd_bus_message* message, char type, std::int64_t value) {
  const auto narrow = static_cast<std::int32_t>(value);
  const void* place = &narrow;
  if (type == 't' || type == 'x') place = &value;
  sd_bus_message_append_basic(message, type, place);
}

// 0 if the answer is an error or of another shape.
std::int64_t number_in_variant(sd_bus_message* answer, char type) {
  const std::array<char, 2> contents = {type, '\0'};
  if (sd_bus_message_is_method_error(answer, nullptr) != 0) return 0;
  if (sd_bus_message_enter_container(answer, 'v', contents.data()) <= 0) return 0;
  std::int32_t narrow = 0;
  std::int64_t wide = 0;
  const bool is_wide = type == 'x';
  if (sd_bus_message_read_basic(answer, type, is_wide ? static_cast<void*>(&wide) : &narrow) <= 0) return 0;
  return is_wide ? wide : narrow;
}

}  // namespace

void RtKit::ask() {
  if (std::exchange(asked_, true)) return;
  const ThreadNumbers refused = take_refused_threads();
  if (refused.count == 0) return;
  for (std::size_t i = 0; i < refused.count; ++i) requests_.at(i) = {this, refused.numbers.at(i)};
  connection_.emplace(DBusConnection::Bus::kSystem);
  for (Limit* limit : {&longest_run_, &highest_, &lowest_niceness_}) ask_limit(*limit);
}

void RtKit::ask_limit(Limit& limit) {
  if (!asking()) return;
  sd_bus_message* message = new_call(connection_->bus(), "org.freedesktop.DBus.Properties", "Get");
  sd_bus_message_append_basic(message, 's', kService);
  sd_bus_message_append_basic(message, 's', limit.name);
  send(message, &RtKit::on_limit, &limit);
}

void RtKit::limits_known() {
  const std::int64_t priority = std::min<std::int64_t>(kRealtimePriority, highest_.value);
  const bool possible = priority > 0 && longest_run_.value > 0;
  if (!possible || !limit_realtime_runs(static_cast<std::uint64_t>(longest_run_.value))) return;
  for (Request& request : requests_)
    if (request.kit != nullptr) call({"MakeThreadRealtime", 'u', priority, &RtKit::on_realtime}, request);
}

void RtKit::call(const Method& method, Request& request) {
  sd_bus_message* message = new_call(connection_->bus(), kService, method.name);
  append_number(message, 't', request.thread);
  append_number(message, method.type, method.value);
  send(message, method.answered, &request);
}

void RtKit::send(sd_bus_message* message, sd_bus_message_handler_t handler, void* about) {
  if (sd_bus_call_async(connection_->bus(), nullptr, message, handler, about, 0) >= 0) ++open_questions_;
  sd_bus_message_unref(message);
  connection_->attend();
}

void RtKit::answered() {
  if (--open_questions_ == 0) connection_->leave();
}

int RtKit::on_limit(sd_bus_message* answer, void* limit, sd_bus_error*) {
  auto& asked = *static_cast<Limit*>(limit);
  asked.value = number_in_variant(answer, asked.type);
  if (asked.kit->open_questions_ == 1) asked.kit->limits_known();
  asked.kit->answered();
  return 0;
}

int RtKit::on_realtime(sd_bus_message* answer, void* request, sd_bus_error*) {
  auto& asked = *static_cast<Request*>(request);
  RtKit& kit = *asked.kit;
  const std::int64_t niceness = std::max(kNiceness, kit.lowest_niceness_.value);
  if (sd_bus_message_is_method_error(answer, nullptr) != 0 && niceness < 0)
    kit.call({"MakeThreadHighPriority", 'i', niceness, &RtKit::on_nice}, asked);
  kit.answered();
  return 0;
}

int RtKit::on_nice(sd_bus_message*, void* request, sd_bus_error*) {
  static_cast<Request*>(request)->kit->answered();
  return 0;
}

}  // namespace tandem
