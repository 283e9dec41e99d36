// The end of a start that the desktop awaits: until it is reported, the pointer shows that something is starting
// (Startup Notification Protocol 0.2). Qt reports it for the process itself, not for what a running player was asked to
// do. Nothing is sent but under X11. UI thread.
#pragma once

#include <string>

class QWindow;

namespace tandem {

// `window`: one of the program's own, by which the parts of the message are known to belong together.
void report_startup_end(const QWindow& window, const std::string& id);

}  // namespace tandem
