#include "app/session_manager.h"

#include <poll.h>

#include <cstdlib>
#include <stdexcept>

namespace tandem::test {

namespace {

SessionManager* the_manager = nullptr;

Status registers(SmsConn client, SmPointer, char* previous) {
  std::free(previous);
  return SmsRegisterClientReply(client, SmsGenerateClientID(client));
}

void closes(SmsConn client, SmPointer, int count, char** reasons) {
  SmFreeReasons(count, reasons);
  IceConn connection = SmsGetIceConnection(client);
  SmsCleanUp(client);
  IceCloseConnection(connection);
}

}  // namespace

// Every client on this machine is let in.
Status SessionManager::take_client(SmsConn client, SmPointer, unsigned long* mask, SmsCallbacks* callbacks, char**) {
  the_manager->client_ = client;
  *callbacks = {};
  callbacks->register_client.callback = registers;
  callbacks->interact_request.callback = [](SmsConn, SmPointer, int) {};
  callbacks->interact_done.callback = [](SmsConn, SmPointer, Bool) {};
  callbacks->save_yourself_request.callback = [](SmsConn, SmPointer, int, Bool, int, Bool, Bool) {};
  callbacks->save_yourself_phase2_request.callback = [](SmsConn asks, SmPointer) { SmsSaveYourselfPhase2(asks); };
  callbacks->save_yourself_done.callback = [](SmsConn, SmPointer, Bool) { ++the_manager->saves_done_; };
  callbacks->close_connection.callback = [](SmsConn leaves, SmPointer data, int count, char** reasons) {
    the_manager->client_ = nullptr;
    the_manager->connections_.clear();
    closes(leaves, data, count, reasons);
  };
  callbacks->set_properties.callback = [](SmsConn, SmPointer, int count, SmProp** properties) {
    for (int i = 0; i < count; ++i) SmFreeProperty(properties[i]);
    std::free(properties);
  };
  callbacks->delete_properties.callback = [](SmsConn, SmPointer, int, char**) {};
  callbacks->get_properties.callback = [](SmsConn asks, SmPointer) { SmsReturnProperties(asks, 0, nullptr); };
  *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
          SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask | SmsSaveYourselfDoneProcMask |
          SmsCloseConnectionProcMask | SmsSetPropertiesProcMask | SmsDeletePropertiesProcMask |
          SmsGetPropertiesProcMask;
  return 1;
}

SessionManager::SessionManager() {
  the_manager = this;
  char error[256] = {};
  const auto let_in = [](char*) -> Bool { return True; };
  if (!SmsInitialize("test", "1", take_client, nullptr, let_in, sizeof(error), error) ||
      !IceListenForConnections(&listeners_, &listening_, sizeof(error), error))
    throw std::runtime_error(error);
  for (int i = 0; i < listeners_; ++i) IceSetHostBasedAuthProc(listening_[i], let_in);
  char* names = IceComposeNetworkIdList(listeners_, listening_);
  ::setenv("SESSION_MANAGER", names, 1);
  std::free(names);
  IceSetIOErrorHandler([](IceConn) {});  // a client that has gone
}

SessionManager::~SessionManager() {
  ::unsetenv("SESSION_MANAGER");
  IceFreeListenObjs(listeners_, listening_);
  the_manager = nullptr;
}

bool SessionManager::work() {
  std::vector<pollfd> ends;
  for (int i = 0; i < listeners_; ++i) ends.push_back({IceGetListenConnectionNumber(listening_[i]), POLLIN, 0});
  const std::vector<IceConn> connections = connections_;
  for (IceConn connection : connections) ends.push_back({IceConnectionNumber(connection), POLLIN, 0});
  if (::poll(ends.data(), ends.size(), 0) <= 0) return true;
  for (std::size_t i = 0; i < ends.size(); ++i) {
    if (ends[i].revents == 0) continue;
    const auto listener = static_cast<std::size_t>(listeners_);
    IceAcceptStatus accepted = IceAcceptSuccess;
    if (i < listener) {
      if (IceConn made = IceAcceptConnection(listening_[i], &accepted)) connections_.push_back(made);
    } else if (!connections_.empty() &&
               IceProcessMessages(connections[i - listener], nullptr, nullptr) == IceProcessMessagesIOError) {
      client_ = nullptr;
      connections_.clear();
    }
  }
  return true;
}

void SessionManager::save(bool shut_down) {
  SmsSaveYourself(client_, SmSaveBoth, shut_down ? True : False, SmInteractStyleNone, False);
}

void SessionManager::cancel_logout() { SmsShutdownCancelled(client_); }

void SessionManager::end_session() { SmsDie(client_); }

}  // namespace tandem::test
