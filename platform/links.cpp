#include "platform/links.h"

#include <QDesktopServices>
#include <QUrl>
#include <filesystem>
#include <utility>

#include "base/files.h"

namespace platform {

namespace {

std::function<void(const std::string&)> responder;

bool StartsWith(const QString& text, const char* scheme) { return text.startsWith(scheme, Qt::CaseInsensitive); }

QUrl MailLink(const QString& text) {
  const QString mark = "?subject=";
  const qsizetype subject = text.indexOf(mark, 0, Qt::CaseInsensitive);
  if (subject < 0) return QUrl(text);
  const qsizetype start = subject + mark.size();
  return QUrl(text.left(start) + QString::fromLatin1(QUrl::toPercentEncoding(text.mid(start))));
}

QUrl FileLink(const std::string& path) {
  const std::string found = FindPath(path);
  if (found.empty()) return {};
  std::error_code error;
  const std::filesystem::path whole = std::filesystem::absolute(found, error);
  return QUrl::fromLocalFile(QString::fromStdString(whole.string()));
}

QUrl LinkOf(const std::string& text) {
  const QString link = QString::fromStdString(text);
  if (StartsWith(link, "mailto:")) return MailLink(link);
  if (StartsWith(link, "http:") || StartsWith(link, "https:")) return QUrl(link);
  return FileLink(text);
}

}  // namespace

std::string CodedLink(const std::string& text) { return LinkOf(text).toEncoded().toStdString(); }

void OpenLink(const std::string& text) {
  if (responder) {
    responder(text);
    return;
  }
  const QUrl link = LinkOf(text);
  if (!link.isEmpty()) QDesktopServices::openUrl(link);
}

void SetLinkResponder(std::function<void(const std::string&)> new_responder) { responder = std::move(new_responder); }

}  // namespace platform
