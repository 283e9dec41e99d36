#include "app/display_guard.h"

#include <unistd.h>

#include <QByteArray>
#include <QString>
#include <QtGlobal>
#include <algorithm>
#include <cstdio>
#include <vector>

namespace tandem {

namespace {

struct Message {
  QtMsgType type;
  QByteArray category;
  QString text;
};

QtMessageHandler handler_before = nullptr;
DisplayGuard::Report what_to_report = DisplayGuard::Report::Reason;
std::vector<Message> said;  // by Qt so far

// The first message that mentions a display.
QByteArray reason() {
  const auto found =
      std::find_if(said.begin(), said.end(), [](const Message& message) { return message.text.contains("display"); });
  return (found == said.end() ? said.front() : *found).text.simplified().toLocal8Bit();
}

[[noreturn]] void end() {
  if (what_to_report == DisplayGuard::Report::Reason)
    std::fprintf(stderr, "tandem: There is no display: %s\n", reason().constData());
  _exit(1);
}

void take_message(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  said.push_back({type, context.category, text});
  if (type == QtFatalMsg) end();
}

// Logs the message as Qt would have without the guard.
void say_again(const Message& message) {
  const QMessageLogger logger(nullptr, 0, nullptr, message.category.constData());
  const QByteArray text = message.text.toUtf8();
  switch (message.type) {
    case QtDebugMsg:
      return logger.debug("%s", text.constData());
    case QtInfoMsg:
      return logger.info("%s", text.constData());
    case QtCriticalMsg:
      return logger.critical("%s", text.constData());
    default:
      return logger.warning("%s", text.constData());
  }
}

}  // namespace

DisplayGuard::DisplayGuard(Report report) {
  what_to_report = report;
  said.clear();
  handler_before = qInstallMessageHandler(take_message);
}

DisplayGuard::~DisplayGuard() {
  qInstallMessageHandler(handler_before);
  for (const Message& message : said) say_again(message);
}

}  // namespace tandem
