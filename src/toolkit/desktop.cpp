#include "toolkit/desktop.h"

#include <QApplication>
#include <QDesktopServices>
#include <QMessageBox>
#include <QUrl>
#include <cstdio>

#include "platform/FileSystem.h"
#include "toolkit/host_files.h"

namespace toolkit {
namespace {

QString Text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

bool ShellExecuteA(std::string_view file) {
  if (!Files().FileExists(file) || qGuiApp == nullptr) {
    return false;
  }
  return QDesktopServices::openUrl(QUrl::fromLocalFile(Text(Files().HostPath(file))));
}

void SystemErrorBox(std::string_view text, std::string_view caption) {
  if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) {
    std::fprintf(stderr, "%.*s\n", static_cast<int>(text.size()), text.data());
    return;
  }
  QMessageBox box(QMessageBox::Critical, Text(caption), Text(text), QMessageBox::Ok);
  box.exec();
}

}  // namespace toolkit
