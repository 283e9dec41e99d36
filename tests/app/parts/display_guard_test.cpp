// What Qt says while a guard lives is said again when it goes, each message as it was.

#include "app/display_guard.h"

#include <gtest/gtest.h>

#include <QLoggingCategory>
#include <QString>
#include <string>
#include <vector>

namespace tandem::test {
namespace {

const QLoggingCategory kScreens("test.screens");

std::vector<std::string> messages;

void keep_message(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  messages.push_back(std::to_string(type) + " " + context.category + ": " + text.toStdString());
}

std::string message(QtMsgType type, const std::string& rest) { return std::to_string(type) + " " + rest; }

TEST(DisplayGuard, KeepsTheSeverityOfWhatIsSaid) {
  messages.clear();
  const QtMessageHandler before = qInstallMessageHandler(keep_message);
  {
    const DisplayGuard guard;
    qDebug("looking");
    qInfo("found 100 %%s");
    qCWarning(kScreens) << "no \"second\" screen";
    qCritical("no\ncursor");
    EXPECT_TRUE(messages.empty());
  }
  qWarning("afterwards");
  qInstallMessageHandler(before);
  const std::vector<std::string> all = {
      message(QtDebugMsg, "default: looking"), message(QtInfoMsg, "default: found 100 %s"),
      message(QtWarningMsg, "test.screens: no \"second\" screen"), message(QtCriticalMsg, "default: no\ncursor"),
      message(QtWarningMsg, "default: afterwards")};
  EXPECT_EQ(messages, all);
}

TEST(DisplayGuard, SaysNothingTwice) {
  messages.clear();
  const QtMessageHandler before = qInstallMessageHandler(keep_message);
  {
    const DisplayGuard guard;
    qInfo("once");
  }
  { const DisplayGuard guard; }
  qInstallMessageHandler(before);
  EXPECT_EQ(messages, (std::vector<std::string>{message(QtInfoMsg, "default: once")}));
}

}  // namespace
}  // namespace tandem::test
