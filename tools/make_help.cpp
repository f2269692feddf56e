// make_help SOURCE OUTPUT: prints an HTML page as A4 pages into a PDF file. The page names its
// pictures relative to its own folder.
#include <QFile>
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QMarginsF>
#include <QPageSize>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QTextDocument>
#include <QUrl>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>

namespace {

constexpr const char* kStyle =
    "h1 { color: #0372AC; font-size: 22pt; }"
    "h2 { color: #0372AC; font-size: 14pt; margin-top: 18px; }"
    "h3 { color: #606060; font-size: 11pt; margin-top: 12px; }"
    "td { padding: 3px 8px 3px 0; vertical-align: top; }"
    "pre { background-color: #EDF1F7; }"
    "pre, tt { font-family: 'DejaVu Sans Mono'; font-size: 8pt; }"
    ".lead { font-size: 10pt; }";

QString ReadText(const QString& file) {
  QFile in(file);
  if (!in.open(QIODevice::ReadOnly)) {
    throw std::runtime_error("cannot read " + file.toStdString());
  }
  return QString::fromUtf8(in.readAll());
}

/// Loads each picture of the text into the document. A missing picture is an error.
void AddPictures(QTextDocument& document, const QString& text, const QUrl& base) {
  static const QRegularExpression name(QStringLiteral("<img src=\"([^\"]+)\""));
  for (const QRegularExpressionMatch& match : name.globalMatch(text)) {
    const QUrl source(match.captured(1));
    const QImage picture(base.resolved(source).toLocalFile());
    if (picture.isNull()) {
      throw std::runtime_error("no picture " + match.captured(1).toStdString());
    }
    document.addResource(QTextDocument::ImageResource, source, picture);
  }
}

void Print(const QString& source, const QString& output) {
  const QString text = ReadText(source);
  QTextDocument document;
  document.setDefaultFont(QFont(QStringLiteral("DejaVu Sans"), 9));
  document.setDefaultStyleSheet(QString::fromLatin1(kStyle));
  AddPictures(document, text, QUrl::fromLocalFile(source));
  document.setHtml(text);
  QFile file(output);
  if (!file.open(QIODevice::WriteOnly)) {
    throw std::runtime_error("cannot write " + output.toStdString());
  }
  QPdfWriter writer(&file);
  writer.setPageSize(QPageSize(QPageSize::A4));
  writer.setTitle(QStringLiteral("Nimbrel Help"));
  writer.setCreator(QStringLiteral("Nimbrel"));
  document.print(&writer);
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  if (argc != 3) {
    std::cerr << "usage: make_help SOURCE OUTPUT\n";
    return 2;
  }
  try {
    Print(QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]));
  } catch (const std::exception& error) {
    std::cerr << argv[1] << ": " << error.what() << "\n";
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
