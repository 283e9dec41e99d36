#include "desktop/bus_texts.h"

#include <QByteArray>
#include <QString>
#include <QSysInfo>
#include <QUrl>

#include "base/text.h"
#include "platform/system/upper_case.h"

namespace tandem {

namespace {

QByteArray bytes_of(std::string_view text) { return {text.data(), static_cast<qsizetype>(text.size())}; }

// File managers may name the machine (RFC 8089); a name is the same in capitals.
bool is_this_machine(const QString& host) {
  return host.isEmpty() || host == "localhost" || host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0;
}

}  // namespace

std::string bus_text(std::string_view text) { return QString::fromUtf8(bytes_of(text)).toStdString(); }

std::string shown_name(std::string_view path) { return upper_case(path.substr(name_begin(path))); }

std::string file_url(std::string_view path) {
  return "file://" + bytes_of(path).toPercentEncoding("/!$&'()*+,;=:@").toStdString();
}

std::optional<std::string> path_of(std::string_view url) {
  const QUrl parsed(QString::fromUtf8(bytes_of(url)), QUrl::StrictMode);
  if (!parsed.isValid() || parsed.scheme() != "file" || !is_this_machine(parsed.host())) return std::nullopt;
  const QByteArray path = QByteArray::fromPercentEncoding(parsed.path(QUrl::FullyEncoded).toLatin1());
  if (!path.startsWith('/') || path.contains('\0')) return std::nullopt;
  return path.toStdString();
}

}  // namespace tandem
