// The desktop's own file dialog, shown for the program by the desktop portal in another process. Where there is no
// session bus or no portal that can show one, nothing is shown, and the question is to be asked otherwise; no program
// is started. UI thread; timers and notifications go on while it is open.
#pragma once

#include <QEventLoop>
#include <optional>
#include <string>
#include <vector>

#include "platform/desktop/dbus_connection.h"

class QWidget;

namespace tandem {

class FileChooserPortal {
 public:
  struct Question {
    bool save = false;      // a name that may be new, else files that are there
    bool multiple = false;  // any number of them
    std::string title;
    std::string folder;  // where it opens, if not empty
    std::string filter;  // "text|*.a;*.b"; any letter case matches
  };

  // Full paths, none if it was cancelled; nothing if no dialog was shown. `parent` takes no input meanwhile; it may be
  // null.
  static std::optional<std::vector<std::string>> ask(const Question& question, QWidget* parent);

 private:
  struct Dialog {
    QEventLoop loop;
    std::string request;  // the portal's object for it; empty: it shows none
    bool done = false;
    std::vector<std::string> paths;
    void end();
  };
  static int on_call_answer(sd_bus_message* answer, void* dialog, sd_bus_error*);
  static int on_response(sd_bus_message* signal, void* dialog, sd_bus_error*);
  static int on_portal_change(sd_bus_message* signal, void* dialog, sd_bus_error*);
};

}  // namespace tandem
