#include "toolkit/fonts.h"

#include <QString>
#include <QStringList>
#include <algorithm>
#include <cmath>

namespace toolkit {

namespace {

constexpr int kLargestPixelSize = 512;

QStringList WithFallbacks(std::string_view family) {
  const QString name = QString::fromUtf8(family.data(), static_cast<qsizetype>(family.size()));
  QStringList families{name};
  if (name.compare(QStringLiteral("Tahoma"), Qt::CaseInsensitive) == 0) {
    families << QStringLiteral("DejaVu Sans Condensed");
  }
  return families << QStringLiteral("DejaVu Sans");
}

}  // namespace

QFont MakeFont(const FontRequest& request) {
  QFont font;
  font.setFamilies(WithFallbacks(request.family));
  font.setPixelSize(
      std::clamp(static_cast<int>(std::lround(request.pixel_size)), 1, kLargestPixelSize));
  font.setBold(request.bold);
  font.setItalic(request.italic);
  font.setUnderline(request.underline);
  font.setStrikeOut(request.strikeout);
  return font;
}

int PixelSize(double points) {
  const double pixels = std::clamp(points * 96.0 / 72.0, 1.0, 1.0 * kLargestPixelSize);
  return static_cast<int>(std::lround(pixels));
}

}  // namespace toolkit
