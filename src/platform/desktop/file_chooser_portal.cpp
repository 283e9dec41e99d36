#include "platform/desktop/file_chooser_portal.h"

#include <QGuiApplication>
#include <QTimer>
#include <QUrl>
#include <QWidget>
#include <algorithm>
#include <cstdint>
#include <memory>
#include <string_view>

#include "base/text.h"
#include "platform/desktop/portal_names.h"

namespace tandem {

namespace {

// How the portal knows the window that the dialog belongs to: only an X server's number is easily said.
std::string window_name(const QWidget* parent) {
  if (parent == nullptr || QGuiApplication::platformName() != "xcb") return {};
  return "x11:" + QString::number(parent->winId(), 16).toStdString();
}

// Keeps input from a window by a modal one that is never seen: Qt's own way with dialogs of the desktop.
class InputBlock {
 public:
  explicit InputBlock(QWidget* window) {
    if (window == nullptr) return;
    modal_ = std::make_unique<QWidget>(window, Qt::Dialog);
    modal_->setAttribute(Qt::WA_DontShowOnScreen);
    modal_->setWindowModality(Qt::WindowModal);
    modal_->show();
  }
  ~InputBlock() {
    if (modal_) modal_->hide();
  }
  InputBlock(const InputBlock&) = delete;
  InputBlock& operator=(const InputBlock&) = delete;

 private:
  std::unique_ptr<QWidget> modal_;
};

void append_filter(sd_bus_message* call, const std::string& filter) {
  const std::size_t bar = filter.find('|');
  if (bar == std::string::npos) return;
  sd_bus_message_open_container(call, 'e', "sv");
  sd_bus_message_append(call, "s", "filters");
  sd_bus_message_open_container(call, 'v', "a(sa(us))");
  sd_bus_message_open_container(call, 'a', "(sa(us))");
  sd_bus_message_open_container(call, 'r', "sa(us)");
  sd_bus_message_append(call, "s", filter.substr(0, bar).c_str());
  sd_bus_message_open_container(call, 'a', "(us)");
  for (std::string_view rest = std::string_view(filter).substr(bar + 1); !rest.empty();) {
    const std::size_t end = std::min(rest.find(';'), rest.size());
    sd_bus_message_append(call, "(us)", 0U, any_case(rest.substr(0, end)).c_str());
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  for (int container = 0; container < 5; ++container) sd_bus_message_close_container(call);
}

void append_folder(sd_bus_message* call, const std::string& folder) {
  if (folder.empty()) return;
  sd_bus_message_open_container(call, 'e', "sv");
  sd_bus_message_append(call, "s", "current_folder");
  sd_bus_message_open_container(call, 'v', "ay");
  sd_bus_message_append_array(call, 'y', folder.c_str(), folder.size() + 1);  // with its zero
  sd_bus_message_close_container(call);
  sd_bus_message_close_container(call);
}

void append_question(sd_bus_message* call, const FileChooserPortal::Question& question) {
  sd_bus_message_append(call, "s", question.title.c_str());
  sd_bus_message_open_container(call, 'a', "{sv}");
  sd_bus_message_append(call, "{sv}", "modal", "b", 1);
  if (question.multiple) sd_bus_message_append(call, "{sv}", "multiple", "b", 1);
  append_filter(call, question.filter);
  append_folder(call, question.folder);
  sd_bus_message_close_container(call);
}

std::vector<std::string> paths_in(sd_bus_message* results) {
  std::vector<std::string> paths;
  if (sd_bus_message_enter_container(results, 'a', "{sv}") <= 0) return paths;
  while (sd_bus_message_enter_container(results, 'e', "sv") > 0) {
    const char* name = "";
    sd_bus_message_read_basic(results, 's', &name);
    if (std::string_view(name) == "uris" && sd_bus_message_enter_container(results, 'v', "as") > 0) {
      sd_bus_message_enter_container(results, 'a', "s");
      for (const char* url = nullptr; sd_bus_message_read_basic(results, 's', &url) > 0;) {
        const QString path = QUrl(QString::fromUtf8(url)).path(QUrl::FullyEncoded);
        paths.push_back(QByteArray::fromPercentEncoding(path.toLatin1()).toStdString());
      }
      sd_bus_message_exit_container(results);
      sd_bus_message_exit_container(results);
    } else {
      sd_bus_message_skip(results, "v");
    }
    sd_bus_message_exit_container(results);
  }
  return paths;
}

}  // namespace

void FileChooserPortal::Dialog::end() {
  done = true;
  loop.quit();
}

int FileChooserPortal::on_call_answer(sd_bus_message* answer, void* dialog, sd_bus_error*) {
  auto& asked = *static_cast<Dialog*>(dialog);
  const char* request = nullptr;
  if (sd_bus_message_is_method_error(answer, nullptr) == 0 && sd_bus_message_read_basic(answer, 'o', &request) > 0) {
    asked.request = request;
  } else {
    asked.end();
  }
  return 0;
}

int FileChooserPortal::on_response(sd_bus_message* signal, void* dialog, sd_bus_error*) {
  constexpr std::uint32_t kChosen = 0;
  auto& asked = *static_cast<Dialog*>(dialog);
  std::uint32_t response = kChosen + 1;
  if (asked.request != sd_bus_message_get_path(signal) || sd_bus_message_read_basic(signal, 'u', &response) <= 0)
    return 0;
  if (response == kChosen) asked.paths = paths_in(signal);
  asked.end();
  return 0;
}

// A portal that ends takes its dialog with it: as if it had been cancelled.
int FileChooserPortal::on_portal_change(sd_bus_message*, void* dialog, sd_bus_error*) {
  static_cast<Dialog*>(dialog)->end();
  return 0;
}

std::optional<std::vector<std::string>> FileChooserPortal::ask(const Question& question, QWidget* parent) {
  Dialog dialog;
  DBusConnection session(DBusConnection::Bus::kUser);
  if (session.bus() == nullptr) return std::nullopt;
  sd_bus_match_signal_async(session.bus(), nullptr, kPortalService, nullptr, "org.freedesktop.portal.Request",
                            "Response", &FileChooserPortal::on_response, nullptr, &dialog);
  sd_bus_add_match_async(session.bus(), nullptr, kPortalComesOrGoes, &FileChooserPortal::on_portal_change, nullptr,
                         &dialog);
  sd_bus_message* call = nullptr;
  sd_bus_message_new_method_call(session.bus(), &call, kPortalService, kPortalObject,
                                 "org.freedesktop.portal.FileChooser", question.save ? "SaveFile" : "OpenFile");
  sd_bus_message_set_auto_start(call, 0);
  sd_bus_message_append(call, "s", window_name(parent).c_str());
  append_question(call, question);
  const int sent = sd_bus_call_async(session.bus(), nullptr, call, &FileChooserPortal::on_call_answer, &dialog, 0);
  sd_bus_message_unref(call);
  session.attend();
  QTimer bus_watch;  // a bus that is gone brings no answer
  QObject::connect(&bus_watch, &QTimer::timeout, &bus_watch, [&] {
    if (session.bus() == nullptr) dialog.end();
  });
  bus_watch.start(1000);
  const InputBlock block(parent);
  if (sent >= 0 && !dialog.done) dialog.loop.exec();
  if (!dialog.done) return std::vector<std::string>();  // the program ends: nothing more is asked
  if (dialog.request.empty()) return std::nullopt;
  return dialog.paths;
}

}  // namespace tandem
