#pragma once

#include <QDesktopServices>
#include <QTextBrowser>
#include <QUrl>
#include <string>

/// While one exists, it takes the place of the system's handler of documents.
class OpenedDocument {
 public:
  OpenedDocument() { QDesktopServices::setUrlHandler(kScheme, &browser_, "setSource"); }
  OpenedDocument(const OpenedDocument&) = delete;
  OpenedDocument& operator=(const OpenedDocument&) = delete;
  ~OpenedDocument() { QDesktopServices::unsetUrlHandler(kScheme); }

  /// The document opened last; empty if none was.
  std::string File() const { return browser_.source().toLocalFile().toStdString(); }

 private:
  inline static const QString kScheme = QStringLiteral("file");
  QTextBrowser browser_;
};
