#include "desktop/sleep_inhibitor.h"

#include <cstdint>
#include <utility>

#include "platform/desktop/portal_names.h"

namespace tandem {

namespace {

constexpr const char* kLogin = "org.freedesktop.login1";
constexpr const char* kReason = "Playing music";

sd_bus_message* new_call(sd_bus* bus, const char* service, const char* object, const char* interface,
                         const char* method) {
  sd_bus_message* call = nullptr;
  if (bus == nullptr || sd_bus_message_new_method_call(bus, &call, service, object, interface, method) < 0)
    return nullptr;
  sd_bus_message_set_auto_start(call, 0);
  return call;
}

void watch(sd_bus* bus, const char* wanted, sd_bus_message_handler_t seen, void* about) {
  sd_bus_add_match_async(bus, nullptr, wanted, seen, nullptr, about);
}

bool send(DBusConnection& link, sd_bus_message* call, sd_bus_message_handler_t answered, void* about) {
  const bool sent = call != nullptr && sd_bus_call_async(link.bus(), nullptr, call, answered, about, 0) >= 0;
  sd_bus_message_unref(call);
  link.attend();
  return sent;
}

}  // namespace

SleepInhibitor::SleepInhibitor(DBusConnection& session) : session_(session) {
  if (session_.bus() == nullptr) return;
  watch(session_.bus(), kPortalComesOrGoes, &SleepInhibitor::on_portal_change, this);
  watch(session_.bus(),
        "type='signal',sender='org.freedesktop.portal.Desktop',interface='org.freedesktop.portal.Request',"
        "member='Response'",
        &SleepInhibitor::on_portal_verdict, this);
}

SleepInhibitor::~SleepInhibitor() {
  if (session_.bus() == nullptr) return;
  let_go();
  sd_bus_flush(session_.bus());
}

void SleepInhibitor::hold(bool wanted) {
  if (std::exchange(wanted_, wanted) == wanted) return;
  if (!wanted_) return let_go();
  if (!asking_) ask_portal();
}

// The options: what a user may read in a list of those who hold the sleep off.
void SleepInhibitor::ask_portal() {
  constexpr std::uint32_t kSuspend = 4;
  sd_bus_message* call =
      new_call(session_.bus(), kPortalService, kPortalObject, "org.freedesktop.portal.Inhibit", "Inhibit");
  if (call != nullptr) sd_bus_message_append(call, "sua{sv}", "", kSuspend, 1, "reason", "s", kReason);
  portal_changed_ = false;
  refused_.clear();
  asking_ = send(session_, call, &SleepInhibitor::on_portal_answer, this);
  if (!asking_) ask_login();
}

int SleepInhibitor::on_portal_answer(sd_bus_message* answer, void* self, sd_bus_error*) {
  auto& inhibitor = *static_cast<SleepInhibitor*>(self);
  inhibitor.asking_ = false;
  const char* request = nullptr;
  if (sd_bus_message_is_method_error(answer, nullptr) == 0 && sd_bus_message_read_basic(answer, 'o', &request) > 0)
    inhibitor.request_ = request;
  if (inhibitor.request_ == inhibitor.refused_) inhibitor.request_.clear();
  if (!inhibitor.wanted_) {
    inhibitor.let_go();
  } else if (inhibitor.request_.empty()) {
    inhibitor.ask_login();
  } else {
    inhibitor.lock_.reset();
  }
  return 0;
}

// The object that answers the call is no yes yet. Its verdict may come before the answer does. Other requests of this
// connection, as the file dialog's, have objects of their own.
int SleepInhibitor::on_portal_verdict(sd_bus_message* signal, void* self, sd_bus_error*) {
  auto& inhibitor = *static_cast<SleepInhibitor*>(self);
  std::uint32_t verdict = 0;
  if (sd_bus_message_read_basic(signal, 'u', &verdict) <= 0 || verdict == 0) return 0;
  inhibitor.refused_ = sd_bus_message_get_path(signal);
  if (inhibitor.request_ != inhibitor.refused_) return 0;
  inhibitor.request_.clear();
  if (inhibitor.wanted_) inhibitor.ask_login();
  return 0;
}

void SleepInhibitor::ask_login() {
  if (!system_ || system_->bus() == nullptr) system_.emplace(DBusConnection::Bus::kSystem);
  sd_bus_message* call =
      new_call(system_->bus(), kLogin, "/org/freedesktop/login1", "org.freedesktop.login1.Manager", "Inhibit");
  if (call != nullptr) sd_bus_message_append(call, "ssss", "sleep:idle", "Tandem", kReason, "block");
  asking_ = send(*system_, call, &SleepInhibitor::on_login_answer, this);
}

int SleepInhibitor::on_login_answer(sd_bus_message* answer, void* self, sd_bus_error*) {
  auto& inhibitor = *static_cast<SleepInhibitor*>(self);
  inhibitor.asking_ = false;
  // The descriptor that holds the sleep off stays open as long as the message that brought it.
  const bool granted = sd_bus_message_is_method_error(answer, nullptr) == 0;
  if (granted && inhibitor.wanted_) inhibitor.lock_.reset(sd_bus_message_ref(answer));
  if (inhibitor.portal_changed_ && inhibitor.wanted_) inhibitor.ask_portal();
  return 0;
}

void SleepInhibitor::let_go() {
  lock_.reset();
  if (request_.empty()) return;
  const std::string request = std::exchange(request_, {});
  sd_bus_message* call =
      new_call(session_.bus(), kPortalService, request.c_str(), "org.freedesktop.portal.Request", "Close");
  if (call == nullptr) return;
  sd_bus_message_set_expect_reply(call, 0);
  sd_bus_send(session_.bus(), call, nullptr);
  sd_bus_message_unref(call);
  session_.attend();
}

// What a portal held is gone with it; one that begins is asked.
int SleepInhibitor::on_portal_change(sd_bus_message*, void* self, sd_bus_error*) {
  auto& inhibitor = *static_cast<SleepInhibitor*>(self);
  inhibitor.request_.clear();
  inhibitor.portal_changed_ = inhibitor.asking_;
  if (inhibitor.wanted_ && !inhibitor.asking_) inhibitor.ask_portal();
  return 0;
}

}  // namespace tandem
