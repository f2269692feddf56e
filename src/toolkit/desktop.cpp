#include <QApplication>
#include <QDesktopServices>
#include <QMessageBox>
#include <QUrl>
#include <cstdio>

#include "platform/files.h"
#include "toolkit/desktop.h"

namespace toolkit {
namespace {

void (*open_listener)(std::string_view) = nullptr;

QString Text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

bool ShellExecuteA(std::string_view file) {
  if (open_listener != nullptr) {
    open_listener(file);
    return platform::FileExists(file);
  }
  if (!platform::FileExists(file) || qGuiApp == nullptr) {
    return false;
  }
  return QDesktopServices::openUrl(QUrl::fromLocalFile(Text(platform::HostPath(file))));
}

void SetOpenListener(void (*listener)(std::string_view file)) { open_listener = listener; }

void SystemErrorBox(std::string_view text, std::string_view caption) {
  if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) {
    std::fprintf(stderr, "%.*s\n", static_cast<int>(text.size()), text.data());
    return;
  }
  QMessageBox box(QMessageBox::Critical, Text(caption), Text(text), QMessageBox::Ok);
  box.exec();
}

}  // namespace toolkit
