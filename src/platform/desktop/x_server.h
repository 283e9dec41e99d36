// The X server that Qt's windows are on. UI thread; needs the QGuiApplication.
#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string>

namespace tandem {

// Null where Qt is not on an X server; without a screen Qt has an interface too, but one without a connection.
xcb_connection_t* x_server();

// The name's number; XCB_ATOM_NONE after an error.
xcb_atom_t x_atom(xcb_connection_t* server, const std::string& name);

struct FreeReply {
  void operator()(void* reply) const { std::free(reply); }
};

// What the server answers, freed when it is no longer needed. Empty after an error.
template <class Reply>
using XcbReply = std::unique_ptr<Reply, FreeReply>;

}  // namespace tandem
