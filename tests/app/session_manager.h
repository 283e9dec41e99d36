// A session manager of the test's own, over libSM: one client at a time, which is asked to save itself, hears that a
// logout was cancelled, or learns that the session ends. It works while wait_until() asks it.
#pragma once

#include <X11/ICE/ICElib.h>
#include <X11/SM/SMlib.h>

#include <string>
#include <vector>

namespace tandem::test {

class SessionManager {
 public:
  SessionManager();  // SESSION_MANAGER of this process points at it
  ~SessionManager();
  SessionManager(const SessionManager&) = delete;
  SessionManager& operator=(const SessionManager&) = delete;

  bool work();  // takes what has come in; true, so that it stands before what is waited for

  bool has_client() const { return client_ != nullptr; }
  int saves_done() const { return saves_done_; }
  void save(bool shut_down);  // a checkpoint, or the begin of a logout
  void cancel_logout();
  void end_session();

 private:
  static Status take_client(SmsConn client, SmPointer self, unsigned long* mask, SmsCallbacks* callbacks,
                            char** reason);

  int listeners_ = 0;
  IceListenObj* listening_ = nullptr;
  std::vector<IceConn> connections_;
  SmsConn client_ = nullptr;
  int saves_done_ = 0;
};

}  // namespace tandem::test
