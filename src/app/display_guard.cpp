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

QtMessageHandler handler_before = nullptr;
DisplayGuard::Tells what_is_told = DisplayGuard::Tells::Reason;
std::vector<QByteArray> said;  // what the toolkit said so far

// The first that speaks of a display.
QByteArray reason() {
  const auto found =
      std::find_if(said.begin(), said.end(), [](const QByteArray& text) { return text.contains("display"); });
  return found == said.end() ? said.front() : *found;
}

[[noreturn]] void end() {
  if (what_is_told == DisplayGuard::Tells::Reason)
    std::fprintf(stderr, "tandem: There is no display: %s\n", reason().constData());
  _exit(1);
}

void take_message(QtMsgType type, const QMessageLogContext&, const QString& text) {
  said.push_back(text.simplified().toLocal8Bit());
  if (type == QtFatalMsg) end();
}

}  // namespace

DisplayGuard::DisplayGuard(Tells tells) {
  what_is_told = tells;
  said.clear();
  handler_before = qInstallMessageHandler(take_message);
}

DisplayGuard::~DisplayGuard() {
  qInstallMessageHandler(handler_before);
  for (const QByteArray& text : said) qWarning("%s", text.constData());
}

}  // namespace tandem
